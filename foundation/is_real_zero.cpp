// math_IsRealZero: x within the double tolerance of zero, both bounds
// inclusive. A NaN x compares false both ways and so counts as zero, as the
// two one-sided tests give it.
#include "QELMath.h"
#include "foundation/tolerance.h"

QELMATH_API int math_IsRealZero(double x)
{
    double t = qel::real_tolerance();
    if (x > t) return 0;
    if (x < -t) return 0;
    return 1;
}
