// sin, cos and sincos, correctly rounded to nearest for every double.
//
// Method: reduction by pi/2 (Cody-Waite below 823549, Payne-Hanek above, see
// reduce_pio2.cpp), the double-double kernel of sin_cos_kernel.cpp, and a
// rounding test with the bound
//   err = eps |y|                   (kernel: eps = 2^-67 when the kernel
//                                    computed sin r, 2^-68 for cos r)
//       + 2^-130 + 2^-100 |r|       (reduction, absolute: |sin'|, |cos'| <= 1;
//                                    2^-100 |r| <= 2^-99.6 |y| for sin r, and
//                                    only 2^-100 r^2 for cos r)
// which the code takes as (eps + 2^-99)(1 + 2^-20) |y| + 2^-129. When the
// test cannot prove that hi + lo rounds to hi, the slow path in fixed point
// decides (sin_cos_slow.cpp): on random arguments about one call in 10^4.
//
// Special cases: sin(+-0) = +-0; sin(x) = x for |x| < 2^-26 (the true value
// differs from x by less than x^3/6, below half a spacing); cos(x) = 1 for
// |x| < 2^-27; infinities and NaN give NaN.
#include "foundation/elementary.h"
#include "foundation/elementary_internal.h"
#include "foundation/reduce_pio2.h"

namespace qel {

namespace {

// x = k*pi/2 + r; returns k mod 4. Cody-Waite also serves |x| <= pi/4
// (k = 0 and r = x exactly), which spares a branch.
inline int reduce(double x, dd::DD& r)
{
    if (dd::abs(x) < kCodyWaiteLimit) return reduce_pio2_cody_waite(x, r);
    return reduce_pio2_huge(x, r);
}

// sin(x) with x = k*pi/2 + r is [sin r, cos r, -sin r, -cos r][k mod 4].
inline bool sin_quadrant_fast(const dd::DD& r, int k, double* out)
{
    static constexpr double kBound[2] = {(kSinKernelError + 0x1p-99) * (1.0 + 0x1p-20),
                                         (kCosKernelError + 0x1p-99) * (1.0 + 0x1p-20)};
    int which = k & 1;
    dd::DD y = sin_cos_kernel(r.hi, r.lo, which);
    double err = dd::abs(y.hi) * kBound[which] + 0x1p-129;
    if (!dd::rounds_to_hi(y.hi, y.lo, err)) return false;
    *out = dd::from_bits(dd::bits_of(y.hi) ^ (static_cast<std::uint64_t>(k & 2) << 62));
    return true;
}

inline bool is_tiny_or_special(double x) { return !(dd::abs(x) >= 0x1p-27 && dd::abs(x) <= 0x1.fffffffffffffp+1023); }

}  // namespace

bool sin_fast(double x, double* y)
{
    dd::DD r;
    int k = reduce(x, r);
    return sin_quadrant_fast(r, k, y);
}

bool cos_fast(double x, double* y)
{
    dd::DD r;
    int k = reduce(x, r);
    return sin_quadrant_fast(r, k + 1, y);  // cos x = sin(x + pi/2)
}

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
    int k = reduce(x, r);
    if (!sin_quadrant_fast(r, k, s)) *s = sin_slow(x);
    if (!sin_quadrant_fast(r, k + 1, c)) *c = cos_slow(x);
}

}  // namespace qel
