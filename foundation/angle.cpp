// math_Angle: direction angle from p to q in the plane, in [-pi, pi], as the
// two-argument arc tangent gives it (p = q gives 0).
#include "QELMath.h"
#include "foundation/elementary.h"

QELMATH_API double math_Angle(double* const p, double* const q)
{
    return qel::atan2(q[1] - p[1], q[0] - p[0]);
}
