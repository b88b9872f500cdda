// sin, cos and sincos, correctly rounded to nearest for every double.
//
// Method: reduction by pi/2 (Cody-Waite below 823549, Payne-Hanek above, see
// reduce_pio2.cpp), the double-double kernel of sin_cos_kernel.cpp, and a
// rounding test with the bound
//   err = 2^-66 |y|                 (kernel, kSinCosKernelError)
//       + 2^-130 + 2^-100 |r|       (reduction, absolute: |sin'|, |cos'| <= 1;
//                                    2^-100 |r| <= 2^-99.6 |y| for sine, and
//                                    only 2^-100 r^2 for cosine)
// which the code takes as 2^-66 (1 + 2^-20) |y| + 2^-129. When the test
// cannot prove that hi + lo rounds to hi, the slow path in fixed point
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

constexpr double kPio4 = 0x1.921fb54442d18p-1;

// x = k*pi/2 + r; returns k mod 4.
inline int reduce(double x, dd::DD& r)
{
    double ax = dd::abs(x);
    if (ax <= kPio4) {
        r.hi = x;
        r.lo = 0.0;
        return 0;
    }
    if (ax < kCodyWaiteLimit) return reduce_pio2_cody_waite(x, r);
    return reduce_pio2_huge(x, r);
}

inline bool decide(const dd::DD& y, bool negate, double* out)
{
    double err = dd::abs(y.hi) * (kSinCosKernelError * (1.0 + 0x1p-20)) + 0x1p-129;
    if (!dd::rounds_to_hi(y.hi, y.lo, err)) return false;
    *out = negate ? -y.hi : y.hi;
    return true;
}

inline bool is_tiny_or_special(double x) { return !(dd::abs(x) >= 0x1p-27 && dd::abs(x) <= 0x1.fffffffffffffp+1023); }

}  // namespace

bool sin_fast(double x, double* y)
{
    dd::DD r, v;
    int k = reduce(x, r);
    if (k & 1)
        sin_cos_kernel(r.hi, r.lo, nullptr, &v);
    else
        sin_cos_kernel(r.hi, r.lo, &v, nullptr);
    return decide(v, (k & 2) != 0, y);
}

bool cos_fast(double x, double* y)
{
    dd::DD r, v;
    int k = (reduce(x, r) + 1) & 3;
    if (k & 1)
        sin_cos_kernel(r.hi, r.lo, nullptr, &v);
    else
        sin_cos_kernel(r.hi, r.lo, &v, nullptr);
    return decide(v, (k & 2) != 0, y);
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
    // One reduction, one kernel call for both.
    dd::DD r, sv, cv;
    int k = reduce(x, r);
    sin_cos_kernel(r.hi, r.lo, &sv, &cv);
    // sin x = [sin r, cos r, -sin r, -cos r][k], cos x = the same at k + 1.
    const dd::DD& sin_src = (k & 1) ? cv : sv;
    const dd::DD& cos_src = (k & 1) ? sv : cv;
    if (!decide(sin_src, (k & 2) != 0, s)) *s = sin_slow(x);
    if (!decide(cos_src, ((k + 1) & 2) != 0, c)) *c = cos_slow(x);
}

}  // namespace qel
