// Windows entry point: records the module handle (nothing reads it) and
// reports success for every notification. Nothing else happens at load.
#if defined(_WIN32)
#include <windows.h>

#include "QELMath.h"

namespace qel {
HINSTANCE g_module = nullptr;
}

extern "C" QELMATH_API BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) qel::g_module = module;
    return TRUE;
}
#endif
