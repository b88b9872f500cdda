// Run-time choice of the vector unit.
//
// The library ships built for baseline x86-64 (SSE2). Hot kernels carry
// AVX2 and AVX-512 variants compiled with target attributes and pick one at
// run time. No variant uses FMA, so the choice never changes a result's bits,
// only its speed. Other CPUs stay at kBaseline: AArch64 builds use NEON
// throughout (every ARMv8-A CPU has it), anything else plain loops.
#ifndef QELMATH_FOUNDATION_CPU_H
#define QELMATH_FOUNDATION_CPU_H

namespace qel {

enum class SimdLevel : int { kBaseline = 0, kAvx2 = 1, kAvx512 = 2 };

// The widest level this CPU and OS support, capped by cap_simd_level.
SimdLevel simd_level();

// Caps the level used from now on (tests and benchmarks compare the variants);
// a cap above what the CPU supports has no effect beyond that support.
void cap_simd_level(SimdLevel cap);

}  // namespace qel

#endif
