// linear_Gauss2: two equations in two unknowns by Cramer's rule.
//
// det = a00*a11 - a01*a10; |det| <= 2^-52 is singular (0, b untouched).
// Otherwise both unknowns are formed from the incoming b and multiplied by
// the one reciprocal 1/det before either is stored. a is never written.
#include "QELMath.h"

#include <cmath>

#include "foundation/constants.h"

QELMATH_API int linear_Gauss2(double* a, double* b)
{
    const double det = a[0] * a[3] - a[1] * a[2];
    if (std::fabs(det) <= qel::kPivotThreshold) return 0;
    const double inv = 1.0 / det;
    const double x0 = (a[3] * b[0] - a[1] * b[1]) * inv;
    const double x1 = (a[0] * b[1] - a[2] * b[0]) * inv;
    b[0] = x0;
    b[1] = x1;
    return 1;
}
