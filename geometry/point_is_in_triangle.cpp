// PointIsInTriangle: 1 inside, 0 at a vertex, -1 outside, in the plane.
//
// Method: an exact bounding-box rejection, a vertex test on the squared
// distances against the double tolerance (in the order P1, P2, P3), then
// the sum of the three angle differences seen from P, each wrapped into
// (-pi, pi]: about +-2pi inside, about 0 outside; |sum| > 1 decides.
//
// A point exactly on an edge sees two vertices in opposite directions, a
// difference that wraps to +pi, so its result depends on the triangle's
// orientation and on rounding; it gets no treatment of its own.
#include "QELMath.h"
#include "geometry/triangle_core.h"

QELMATH_API int PointIsInTriangle(double* const p1, double* const p2, double* const p3,
                                  double* const p)
{
    return qel::point_in_triangle(p1, p2, p3, p);
}
