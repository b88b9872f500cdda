// NormalizeLine: the implicit equation a*x + b*y + c = 0 of the line through
// A and B in the plane, unscaled. (a, b) is the right-hand normal of A -> B,
// so the left side is positive to the right of the direction and equals the
// signed distance times |AB|.
//
// The coefficients are written even when A and B coincide in the plane
// (squared length zero by the double tolerance); the result then is 0.
#include "QELMath.h"

QELMATH_API int NormalizeLine(double* const a, double* const b, double* const coef)
{
    double na = b[1] - a[1];
    coef[0] = na;
    double nb = a[0] - b[0];
    coef[1] = nb;
    coef[2] = -(a[0] * na) - nb * a[1];
    return math_IsRealZero(nb * nb + na * na) ? 0 : 1;
}
