// math_IsPoint2dEqual, math_IsPointEqual: q is the reference point.
//
// Two tests must both pass. Per coordinate, a relative test with a strict
// bound (or, for a reference coordinate within the tolerance of zero, an
// absolute one); then the squared distance against the squared point
// tolerance. Near the origin the relative test is the stricter, far from it
// the distance test.
#include <cmath>

#include "QELMath.h"
#include "foundation/tolerance.h"
#include "foundation/vec.h"

namespace {

bool coordinate_passes(double p, double q, double tp)
{
    if (std::fabs(q) <= tp) return std::fabs(p) <= tp;
    return std::fabs(p / q - 1.0) < tp;
}

int points_equal(const double* p, const double* q, int dims)
{
    double tp = qel::point_tolerance();
    for (int i = 0; i < dims; ++i)
        if (!coordinate_passes(p[i], q[i], tp)) return 0;
    double d2 = dims == 2 ? qel::distance2d_squared(p, q) : qel::distance_squared(p, q);
    return d2 <= qel::point_tolerance_squared() ? 1 : 0;
}

}  // namespace

QELMATH_API int math_IsPoint2dEqual(const double* p, const double* q)
{
    return points_equal(p, q, 2);
}

QELMATH_API int math_IsPointEqual(const double* p, const double* q)
{
    return points_equal(p, q, 3);
}
