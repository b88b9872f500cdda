#include "foundation/cpu.h"

#include <atomic>

namespace qel {

namespace {

SimdLevel detect()
{
#if (defined(__x86_64__) || defined(__i386__)) && (defined(__GNUC__) || defined(__clang__))
    __builtin_cpu_init();
    // libgcc's feature bits include the OS's XSAVE support for the wider
    // registers, so a CPU that has AVX-512 under an OS that does not save it
    // reports no AVX-512.
    if (__builtin_cpu_supports("avx512f")) return SimdLevel::kAvx512;
    if (__builtin_cpu_supports("avx2")) return SimdLevel::kAvx2;
#endif
    return SimdLevel::kBaseline;
}

std::atomic<int> g_cap{static_cast<int>(SimdLevel::kAvx512)};

}  // namespace

SimdLevel simd_level()
{
    static const SimdLevel detected = detect();
    int cap = g_cap.load(std::memory_order_relaxed);
    return static_cast<int>(detected) < cap ? detected : static_cast<SimdLevel>(cap);
}

void cap_simd_level(SimdLevel cap)
{
    g_cap.store(static_cast<int>(cap), std::memory_order_relaxed);
}

}  // namespace qel
