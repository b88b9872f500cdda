// TransMatrixCoordMapToView: device coordinates back to model coordinates,
// x = (X - x0)*sx, y = (y0 - Y)*sy; the inverse of TransMatrixCoordMapToGDI
// for the same arguments, up to the rounding of 1/sx and 1/sy there.
//
// The shift is (-x0)*sx with x0 negated as an integer, so x0 = 0 gives +0.0
// before the scale, not -0.0. The negation is taken in 64 bits: INT_MIN has
// no 32-bit negation and becomes 2147483648.0, giving 2147483648.0*sx.
#include <cstdint>

#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixCoordMapToView(int x0, int y0, double sx, double sy,
                                           double (* const T)[3])
{
    double minus_x0 = static_cast<double>(-static_cast<std::int64_t>(x0));
    qel::clear3(T);
    T[0][0] = sx;
    T[1][1] = -sy;
    T[2][0] = minus_x0 * sx;
    T[2][1] = static_cast<double>(y0) * sy;
    T[2][2] = 1.0;
}
