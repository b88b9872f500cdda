// Internals shared by the sine, cosine and arc tangent files, reachable from
// the tests: the tables, the double-double kernels with their error bounds,
// and the split into a fast path and a slow path.
//
// Every function f in {sin, cos, atan, atan2} is evaluated as
//   1. special and tiny arguments, answered exactly;
//   2. the fast path: reduction and a double-double kernel whose error is
//      bounded (bounds below, derived in the kernels' files); the result is
//      returned when the rounding test proves that hi + lo, within that
//      bound, rounds to hi;
//   3. otherwise the slow path in 224-bit fixed point, accurate to better than
//      2^-150 relative, far beyond the 2^-126 that the hardest known cases of
//      these functions need.
#ifndef QELMATH_FOUNDATION_ELEMENTARY_INTERNAL_H
#define QELMATH_FOUNDATION_ELEMENTARY_INTERNAL_H

#include "foundation/double_double.h"
#include "foundation/fixed_point.h"

namespace qel {

constexpr int kSinCosTableSize = 204;
// sin hi, lo, cos hi, lo, split of sin hi, split of cos hi
extern const double kSinCosTable[kSinCosTableSize][8];
constexpr int kAtanTableSize = 257;
// atan hi, lo, then pi/2 - atan hi, lo
extern const double kAtanTable[kAtanTableSize][4];

// pi/2 and pi as double-doubles, and in fixed point.
constexpr dd::DD kPio2DD = {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54};
constexpr dd::DD kPiDD = {0x1.921fb54442d18p+1, 0x1.1a62633145c07p-53};
extern const fx::Fixed kPio2Fixed;
extern const fx::Fixed kPiFixed;

// Relative error bounds of the double-double kernels on their domains.
constexpr double kSinKernelError = 0x1p-67;
constexpr double kCosKernelError = 0x1p-68;
constexpr double kAtanKernelError = 0x1p-68;

// sin_cos_kernel(rh, rl, which), inline in foundation/sin_cos_kernel.h:
// sin(r) (which == 0) or cos(r) (which == 1) for |r| <= 0.7854, r = rh + rl
// with |rl| <= 2^-53 |rh|, within kSinKernelError or kCosKernelError of its
// magnitude. The Cody-Waite pair, |rl| <= 2^-53 |rh| + 2^-48.7, adds an
// absolute 2^-98.4 (charged in kCodyWaiteAbsError, reduce_pio2.h).

// atan_kernel(a, b, z), inline in foundation/atan_kernel.h: atan(a/b) for
// 0 < a <= b, both in [2^-600, 2^500], within kAtanKernelError of its
// magnitude; z is a/b to within 2^-20 (it picks the table point only).

// Fast paths: true and *y set when the fast result is proven correctly
// rounded; false when the slow path must decide. Finite, non-tiny arguments
// only (what sin, cos, atan and atan2 hand them).
bool sin_fast(double x, double* y);
bool cos_fast(double x, double* y);
bool atan_fast(double x, double* y);
bool atan2_fast(double y, double x, double* r);

// Slow paths, correctly rounded, for the same arguments.
double sin_slow(double x);
double cos_slow(double x);
double atan_slow(double x);
double atan2_slow(double y, double x);

// sin(r) and cos(r) in fixed point for |r| <= 0.8, within 2^-212.
void sin_cos_fixed(const fx::Fixed& r, fx::Fixed* s, fx::Fixed* c);

}  // namespace qel

#endif
