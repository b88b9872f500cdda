// Distances and squared distances, in space and in the plane. The squared
// forms let comparisons avoid the square root.
#include <cmath>

#include "QELMath.h"
#include "foundation/vec.h"

QELMATH_API double math_Distance(double* const p, double* const q)
{
    return std::sqrt(qel::distance_squared(p, q));
}

QELMATH_API double math_Distance2d(double* const p, double* const q)
{
    return std::sqrt(qel::distance2d_squared(p, q));
}

QELMATH_API double math_Distance2(double* const p, double* const q)
{
    return qel::distance_squared(p, q);
}

QELMATH_API double math_Distance2d2(double* const p, double* const q)
{
    return qel::distance2d_squared(p, q);
}
