// The AArch64 row kernels: NEON, two doubles per register. Every ARMv8-A CPU
// has NEON with double lanes, so the library is simply built with it and
// needs no run-time choice. The body is the one the x86 kernels use
// (rowops_simd.inc); each element is computed by a separate multiply and
// subtract (fmul, fsub), never by fmla/fmls, which would round once where the
// plain loop rounds twice and change the bits.
#include "foundation/rowops_impl.h"

#ifdef QELMATH_ROWOPS_NEON

#include <arm_neon.h>

#include <cmath>

namespace qel {

namespace neon_kernels {
#define QV float64x2_t
#define QM uint64x2_t
#define QW 2
#define QTARGET
#define QLOAD vld1q_f64
#define QSTORE vst1q_f64
#define QSET1 vdupq_n_f64
#define QADD vaddq_f64
#define QSUB vsubq_f64
#define QMUL vmulq_f64
#define QDIV vdivq_f64
#define QABS vabsq_f64
#define QGT vcgtq_f64
#define QBLEND(m, o, n) vbslq_f64((m), (n), (o))
#define QINDEX0 index0()
#define QEQ vceqq_f64
#define QMAX vmaxq_f64
#define QMIN vminq_f64
#define QHMAX vmaxvq_f64
#define QHMIN vminvq_f64
inline float64x2_t index0()
{
    static const double lanes[2] = {0.0, 1.0};
    return vld1q_f64(lanes);
}
#include "foundation/rowops_simd.inc"
#include "foundation/rowops_simd_end.inc"
}  // namespace neon_kernels

const RowKernels kRowKernelsNeon = {
    neon_kernels::update,         neon_kernels::update_argmax, neon_kernels::argmax,
    neon_kernels::divide,         neon_kernels::cupdate,       neon_kernels::cupdate_argmax,
    neon_kernels::cargmax,        neon_kernels::cdivide,
};

}  // namespace qel

#endif
