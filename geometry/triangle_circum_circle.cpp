// TriangleCircumCircle: the circle through three points, in the plane.
//
// Method: Cramer's rule on the two perpendicular bisectors through P1 (see
// triangle_core.h); the radius is the centre's distance to P1. When the
// determinant is zero by the double tolerance (collinear or coincident
// points) the centre is the middle of the bounding box and the result its
// full diagonal, which for collinear points is the distance between the two
// outermost. Writes centre x and y only; z is untouched.
#include "QELMath.h"
#include "geometry/triangle_core.h"

QELMATH_API double TriangleCircumCircle(double* const p1, double* const p2, double* const p3,
                                        double* const centre)
{
    return qel::circumcircle(p1, p2, p3, centre);
}
