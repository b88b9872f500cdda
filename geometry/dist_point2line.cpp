// DistPoint2Line: distance in space from p to the infinite line AB, as the
// height of the triangle P A B over AB by Heron's formula.
//
// Special cases: when |AB| itself is zero by the double tolerance the line
// has collapsed and the result is |PA|. For a point on or very near the line
// rounding can leave the product under the root slightly negative; it is
// clamped at zero, so such a point gets 0, never NaN.
#include <cmath>

#include "QELMath.h"

QELMATH_API double DistPoint2Line(double* const p, double* const a, double* const b)
{
    double ab = math_Distance(a, b);
    double pa = math_Distance(p, a);
    double pb = math_Distance(p, b);
    if (math_IsRealZero(ab)) return pa;

    double s = (pa + ab + pb) * 0.5;
    double heron = s * (s - ab) * (s - pa) * (s - pb);
    if (heron < 0.0) heron = 0.0;
    double area = std::sqrt(heron);
    return 2 * area / ab;
}
