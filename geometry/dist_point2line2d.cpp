// DistPoint2Line2d: distance in the plane from p to the infinite line AB,
// |a*x + b*y + c| / |(a, b)| with the coefficients of NormalizeLine.
//
// A line whose squared length is zero by the double tolerance (any segment
// shorter than about the root of the tolerance) has collapsed to A: the
// result is then the plane distance from p to A.
#include <cmath>

#include "QELMath.h"

QELMATH_API double DistPoint2Line2d(double* const p, double* const a, double* const b)
{
    double na = b[1] - a[1];
    double nb = a[0] - b[0];
    double nc = -(a[0] * na) - a[1] * nb;
    double s = nb * nb + na * na;
    if (math_IsRealZero(s)) return math_Distance2d(p, a);
    return std::fabs(p[1] * nb + p[0] * na + nc) / std::sqrt(s);
}
