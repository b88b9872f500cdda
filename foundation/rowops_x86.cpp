// The x86 row kernels: SSE2 (the baseline every x86-64 CPU has), AVX2 and
// AVX-512, each compiled from the one body in rowops_x86.inc with target
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
#include "foundation/rowops_x86.inc"
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
#include "foundation/rowops_x86.inc"
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
}  // namespace avx2_kernels

// --- AVX-512 -----------------------------------------------------------------
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
#include "foundation/rowops_x86.inc"
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
}  // namespace avx512_kernels

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
