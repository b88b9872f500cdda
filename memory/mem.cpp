// The default QELMemory: plain C heap. Zero-byte requests are rounded up to
// one byte so that every successful call yields a distinct, freeable block.
#include "QELMemory.h"

#include <cstdlib>

extern "C" QELMEMORY_API void* mem_malloc(uint32_t size)
{
    return std::malloc(size == 0 ? 1u : static_cast<std::size_t>(size));
}

extern "C" QELMEMORY_API void mem_free(void* p)
{
    std::free(p);
}
