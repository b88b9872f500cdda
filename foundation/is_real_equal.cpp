// math_IsRealEqual: a relative comparison against the reference b. When b
// itself is within the tolerance of zero the ratio means nothing, so a is
// then judged on its own. Not symmetric in a and b.
#include <cmath>

#include "QELMath.h"
#include "foundation/tolerance.h"

QELMATH_API int math_IsRealEqual(double a, double b)
{
    double t = qel::real_tolerance();
    if (std::fabs(b) <= t) return std::fabs(a) <= t ? 1 : 0;
    return std::fabs(a / b - 1.0) <= t ? 1 : 0;
}
