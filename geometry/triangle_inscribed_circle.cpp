// TriangleInscribedCircle: the inscribed circle in the plane (x and y only,
// like TriangleCircumCircle).
//
// Method: side lengths a = |P2P3|, b = |P3P1|, c = |P1P2| and s = a + b + c;
// the incentre is the side-weighted mean (a*P1 + b*P2 + c*P3) / s and the
// radius is twice the area over the perimeter, |(P2 - P1) x (P3 - P1)| / s.
//
// Special case: a perimeter of zero by the double tolerance (all three
// points coincide) gives P1 as the centre and radius 0. Centre z untouched.
#include <cmath>

#include "QELMath.h"

QELMATH_API double TriangleInscribedCircle(double* const p1, double* const p2, double* const p3,
                                           double* const centre)
{
    double a = math_Distance2d(p2, p3);
    double b = math_Distance2d(p3, p1);
    double c = math_Distance2d(p1, p2);
    double s = a + b + c;
    if (math_IsRealZero(s)) {
        centre[0] = p1[0];
        centre[1] = p1[1];
        return 0.0;
    }
    centre[0] = (a * p1[0] + b * p2[0] + c * p3[0]) / s;
    centre[1] = (a * p1[1] + b * p2[1] + c * p3[1]) / s;
    double cross = (p2[0] - p1[0]) * (p3[1] - p1[1]) - (p2[1] - p1[1]) * (p3[0] - p1[0]);
    return std::fabs(cross) / s;
}
