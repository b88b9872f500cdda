// PointIsOnCircle: 0 on the circle (distance equal to r by the double
// tolerance, relative to r), -2 inside, -1 outside. The distance is taken in
// space, z included.
#include "QELMath.h"

QELMATH_API int PointIsOnCircle(double* const centre, double r, double* const point)
{
    double d = math_Distance(centre, point);
    if (math_IsRealEqual(d, r)) return 0;
    if (r >= d) return -2;
    return -1;
}
