// atan, correctly rounded to nearest for every double.
//
// Method: atan x = atan z for z = |x| <= 1, and pi/2 - atan z with z = 1/|x|
// for |x| > 1; both from the double-double kernel (atan_kernel.h), which
// takes z as the pair (|x|, 1) or (1, |x|), so 1/|x| is never rounded, and
// anchors pi/2 - atan z on a tabulated pi/2 - atan c. Its relative bound
// 2^-68 holds for both; err = (2^-68 + 2^-100)(1 + 2^-20) |y|. When
// the rounding test fails the fixed-point slow path decides (atan_slow.cpp).
//
// Special cases: atan(+-0) = +-0; atan(x) = x for |x| < 2^-27 (the true value
// is x (1 - x^2/3 + ...), within half a spacing below x); atan(+-inf) and
// atan(x) for |x| > 2^60 are +-pi/2 rounded, 0x3FF921FB54442D18 (pi/2 exceeds
// that double by 2^-53.9, and 1/|x| < 2^-60 keeps the result within half a
// spacing of it); atan(NaN) is NaN.
#include "foundation/elementary.h"
#include "foundation/atan_kernel.h"
#include "foundation/elementary_internal.h"

namespace qel {

bool atan_fast(double x, double* y)
{
    double ax = dd::abs(x);
    dd::DD r = ax > 1.0 ? atan_kernel<true>(1.0, ax, 1.0 / ax) : atan_kernel(ax, 1.0, ax);
    double err = dd::abs(r.hi) * ((kAtanKernelError + 0x1p-100) * (1.0 + 0x1p-20));
    if (!dd::rounds_to_hi(r.hi, r.lo, err)) return false;
    *y = dd::copy_sign(r.hi, x);
    return true;
}

double atan(double x)
{
    double ax = dd::abs(x);
    if (!(ax >= 0x1p-27 && ax <= 0x1p60)) {
        if (ax < 0x1p-27) return x;           // +-0 and subnormals included
        if (ax > 0x1p60) return dd::copy_sign(kPio2DD.hi, x);  // infinities too
        return x + x;                          // NaN
    }
    double y;
    if (atan_fast(x, &y)) return y;
    return atan_slow(x);
}

}  // namespace qel
