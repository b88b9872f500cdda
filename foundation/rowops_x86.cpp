// The x86 row kernels: SSE2 (the baseline every x86-64 CPU has), AVX2 and
// AVX-512, each compiled from the one body in rowops_simd.inc with target
// attributes, so that the library itself stays built for the baseline and
// picks the widest variant at run time. FMA is never enabled: a fused
// multiply-add would round once where the plain loop rounds twice.
#include "foundation/rowops_impl.h"

#ifdef QELMATH_ROWOPS_X86

#include <immintrin.h>

#include <cmath>

namespace qel {

// --- SSE2 ------------------------------------------------------------------
namespace sse2_kernels {
#define QV __m128d
#define QM __m128d
#define QW 2
#define QTARGET __attribute__((target("sse2")))
#define QLOAD _mm_loadu_pd
#define QSTORE _mm_storeu_pd
#define QSET1 _mm_set1_pd
#define QADD _mm_add_pd
#define QSUB _mm_sub_pd
#define QMUL _mm_mul_pd
#define QDIV _mm_div_pd
#define QABS(x) _mm_andnot_pd(_mm_set1_pd(-0.0), (x))
#define QGT(a, b) _mm_cmpgt_pd((a), (b))
#define QBLEND(m, o, n) _mm_or_pd(_mm_and_pd((m), (n)), _mm_andnot_pd((m), (o)))
#define QINDEX0 _mm_set_pd(1.0, 0.0)
#define QEQ(a, b) _mm_cmpeq_pd((a), (b))
#define QMAX _mm_max_pd
#define QMIN _mm_min_pd
#define QHMAX hmax
#define QHMIN hmin
__attribute__((target("sse2"))) inline double hmax(__m128d v)
{
    return _mm_cvtsd_f64(_mm_max_sd(v, _mm_unpackhi_pd(v, v)));
}
__attribute__((target("sse2"))) inline double hmin(__m128d v)
{
    return _mm_cvtsd_f64(_mm_min_sd(v, _mm_unpackhi_pd(v, v)));
}
#include "foundation/rowops_simd.inc"
#include "foundation/rowops_simd_end.inc"
}  // namespace sse2_kernels

// --- AVX2 (only AVX instructions are needed; AVX2 marks the generation) ----
namespace avx2_kernels {
#define QV __m256d
#define QM __m256d
#define QW 4
#define QTARGET __attribute__((target("avx2")))
#define QLOAD _mm256_loadu_pd
#define QSTORE _mm256_storeu_pd
#define QSET1 _mm256_set1_pd
#define QADD _mm256_add_pd
#define QSUB _mm256_sub_pd
#define QMUL _mm256_mul_pd
#define QDIV _mm256_div_pd
#define QABS(x) _mm256_andnot_pd(_mm256_set1_pd(-0.0), (x))
#define QGT(a, b) _mm256_cmp_pd((a), (b), _CMP_GT_OQ)
#define QBLEND(m, o, n) _mm256_blendv_pd((o), (n), (m))
#define QINDEX0 _mm256_set_pd(3.0, 2.0, 1.0, 0.0)
#define QEQ(a, b) _mm256_cmp_pd((a), (b), _CMP_EQ_OQ)
#define QMAX _mm256_max_pd
#define QMIN _mm256_min_pd
#define QHMAX hmax
#define QHMIN hmin
__attribute__((target("avx2"))) inline double hmax(__m256d v)
{
    __m128d h = _mm_max_pd(_mm256_castpd256_pd128(v), _mm256_extractf128_pd(v, 1));
    return _mm_cvtsd_f64(_mm_max_sd(h, _mm_unpackhi_pd(h, h)));
}
__attribute__((target("avx2"))) inline double hmin(__m256d v)
{
    __m128d h = _mm_min_pd(_mm256_castpd256_pd128(v), _mm256_extractf128_pd(v, 1));
    return _mm_cvtsd_f64(_mm_min_sd(h, _mm_unpackhi_pd(h, h)));
}
#include "foundation/rowops_simd.inc"
#include "foundation/rowops_simd_end.inc"
}  // namespace avx2_kernels

// --- AVX-512 -----------------------------------------------------------------
// GCC 12's headers build some AVX-512 intrinsics on a deliberately undefined
// vector and then warn about it at -O2; the warning is about the header.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
namespace avx512_kernels {
#define QV __m512d
#define QM __mmask8
#define QW 8
#define QTARGET __attribute__((target("avx512f")))
#define QLOAD _mm512_loadu_pd
#define QSTORE _mm512_storeu_pd
#define QSET1 _mm512_set1_pd
#define QADD _mm512_add_pd
#define QSUB _mm512_sub_pd
#define QMUL _mm512_mul_pd
#define QDIV _mm512_div_pd
#define QABS(x) _mm512_abs_pd(x)
#define QGT(a, b) _mm512_cmp_pd_mask((a), (b), _CMP_GT_OQ)
#define QBLEND(m, o, n) _mm512_mask_blend_pd((m), (o), (n))
#define QINDEX0 _mm512_set_pd(7.0, 6.0, 5.0, 4.0, 3.0, 2.0, 1.0, 0.0)
#define QMASK(k) static_cast<__mmask8>((1u << (k)) - 1u)
#define QMLOAD(m, p) _mm512_maskz_loadu_pd((m), (p))
#define QMSTORE(p, m, v) _mm512_mask_storeu_pd((p), (m), (v))
#define QEQ(a, b) _mm512_cmp_pd_mask((a), (b), _CMP_EQ_OQ)
#define QMAX _mm512_max_pd
#define QMIN _mm512_min_pd
#define QHMAX hmax
#define QHMIN hmin
__attribute__((target("avx512f"))) inline double hmax(__m512d v)
{
    __m256d q = _mm256_max_pd(_mm512_castpd512_pd256(v), _mm512_extractf64x4_pd(v, 1));
    __m128d h = _mm_max_pd(_mm256_castpd256_pd128(q), _mm256_extractf128_pd(q, 1));
    return _mm_cvtsd_f64(_mm_max_sd(h, _mm_unpackhi_pd(h, h)));
}
__attribute__((target("avx512f"))) inline double hmin(__m512d v)
{
    __m256d q = _mm256_min_pd(_mm512_castpd512_pd256(v), _mm512_extractf64x4_pd(v, 1));
    __m128d h = _mm_min_pd(_mm256_castpd256_pd128(q), _mm256_extractf128_pd(q, 1));
    return _mm_cvtsd_f64(_mm_min_sd(h, _mm_unpackhi_pd(h, h)));
}
#include "foundation/rowops_simd.inc"
#undef QV
#undef QM
#undef QW
#undef QTARGET
#undef QLOAD
#undef QSTORE
#undef QSET1
#undef QADD
#undef QSUB
#undef QMUL
#undef QDIV
#undef QABS
#undef QGT
#undef QBLEND
#undef QINDEX0
#undef QMASK
#undef QMLOAD
#undef QMSTORE
#undef QEQ
#undef QMAX
#undef QMIN
#undef QHMAX
#undef QHMIN
}  // namespace avx512_kernels
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

#define QELMATH_ROWOPS_TABLE(ns)                                                        \
    {                                                                                   \
        ns::update, ns::update_argmax, ns::argmax, ns::divide, ns::cupdate,             \
            ns::cupdate_argmax, ns::cargmax, ns::cdivide                                \
    }

const RowKernels kRowKernelsSse2 = QELMATH_ROWOPS_TABLE(sse2_kernels);
const RowKernels kRowKernelsAvx2 = QELMATH_ROWOPS_TABLE(avx2_kernels);
const RowKernels kRowKernelsAvx512 = QELMATH_ROWOPS_TABLE(avx512_kernels);

#undef QELMATH_ROWOPS_TABLE

}  // namespace qel

#endif
