// sin, cos and sincos, correctly rounded to nearest for every double.
//
// Method: reduction by pi/2 (Cody-Waite below 1647099, Payne-Hanek above, see
// reduce_pio2.cpp), the double-double kernel of sin_cos_kernel.h, and a
// rounding test with the bound
//   err = eps |y|                   (kernel: eps = 2^-67 when the kernel
//                                    computed sin r, 2^-68 for cos r)
//       + A + 2^-100 |r|            (reduction, absolute: |sin'|, |cos'| <= 1;
//                                    2^-100 |r| <= 2^-99.6 |y| for sin r, and
//                                    only 2^-100 r^2 for cos r)
// which the code takes as (eps + 2^-99)(1 + 2^-20) |y| + 2A. A is 2^-98 for
// the short Cody-Waite reduction (2^-100, and what its unnormalised tail
// costs the kernel, see reduce_pio2.h); when that cannot decide a small result
// (an argument near a multiple of pi/2, such as sin(pi) or cos(pi/2)), the
// precise one (A = 2^-130) tries again. Payne-Hanek has no absolute term.
// When the test cannot prove that hi + lo rounds to hi, the slow path in
// fixed point decides (sin_cos_slow.cpp): on random arguments a few calls in
// 10^5.
//
// Special cases: sin(+-0) = +-0; sin(x) = x for |x| < 2^-26 (the true value
// differs from x by less than x^3/6, below half a spacing); cos(x) = 1 for
// |x| < 2^-27; infinities and NaN give NaN.
#include "foundation/elementary.h"
#include "foundation/elementary_internal.h"
#include "foundation/reduce_pio2.h"
#include "foundation/sin_cos_kernel.h"

namespace qel {

namespace {

// sin(x) with x = k*pi/2 + r is [sin r, cos r, -sin r, -cos r][k mod 4];
// abs_err is the reduction's absolute error bound (doubled for safety).
inline bool sin_quadrant_fast(const dd::DD& r, int k, double abs_err, double* out)
{
    static constexpr double kBound[2] = {(kSinKernelError + 0x1p-99) * (1.0 + 0x1p-20),
                                         (kCosKernelError + 0x1p-99) * (1.0 + 0x1p-20)};
    int which = k & 1;
    dd::DD y = sin_cos_kernel(r.hi, r.lo, which);
    double err = dd::abs(y.hi) * kBound[which] + abs_err;
    if (!dd::rounds_to_hi(y.hi, y.lo, err)) return false;
    *out = dd::from_bits(dd::bits_of(y.hi) ^ (static_cast<std::uint64_t>(k & 2) << 62));
    return true;
}

// The fast path for sin(x + shift * pi/2): the short reduction, and for a
// small result near a multiple of pi/2 a second try with the precise one.
inline bool sin_shifted_fast(double x, int shift, double* out)
{
    dd::DD r;
    if (dd::abs(x) < kCodyWaiteLimit) {
        int k = reduce_pio2_cody_waite(x, r) + shift;
        if (sin_quadrant_fast(r, k, 2.0 * kCodyWaiteAbsError, out)) return true;
        if (dd::abs(r.hi) > 0x1p-20 && dd::abs(r.hi) < 1.5) return false;  // not a tiny result
        k = reduce_pio2_cody_waite_precise(x, r) + shift;
        return sin_quadrant_fast(r, k, 2.0 * kCodyWaitePreciseAbsError, out);
    }
    return sin_quadrant_fast(r, reduce_pio2_huge(x, r) + shift, 0.0, out);
}

inline bool is_tiny_or_special(double x) { return !(dd::abs(x) >= 0x1p-27 && dd::abs(x) <= 0x1.fffffffffffffp+1023); }

}  // namespace

bool sin_fast(double x, double* y) { return sin_shifted_fast(x, 0, y); }

bool cos_fast(double x, double* y) { return sin_shifted_fast(x, 1, y); }  // cos x = sin(x + pi/2)

double sin(double x)
{
    if (is_tiny_or_special(x)) {
        if (dd::abs(x) < 0x1p-26) return x;  // +-0 and subnormals included
        return x - x;                         // NaN for infinities and NaN
    }
    double y;
    if (sin_fast(x, &y)) return y;
    return sin_slow(x);
}

double cos(double x)
{
    if (is_tiny_or_special(x)) {
        if (dd::abs(x) < 0x1p-27) return 1.0;
        return x - x;
    }
    double y;
    if (cos_fast(x, &y)) return y;
    return cos_slow(x);
}

void sincos(double x, double* s, double* c)
{
    if (is_tiny_or_special(x)) {
        *s = qel::sin(x);
        *c = qel::cos(x);
        return;
    }
    // One reduction for both.
    dd::DD r;
    if (dd::abs(x) < kCodyWaiteLimit) {
        int k = reduce_pio2_cody_waite(x, r);
        if (!sin_quadrant_fast(r, k, 2.0 * kCodyWaiteAbsError, s) && !sin_fast(x, s)) *s = sin_slow(x);
        if (!sin_quadrant_fast(r, k + 1, 2.0 * kCodyWaiteAbsError, c) && !cos_fast(x, c)) *c = cos_slow(x);
        return;
    }
    int k = reduce_pio2_huge(x, r);
    if (!sin_quadrant_fast(r, k, 0.0, s)) *s = sin_slow(x);
    if (!sin_quadrant_fast(r, k + 1, 0.0, c)) *c = cos_slow(x);
}

}  // namespace qel
