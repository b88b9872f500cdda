// ThreePoints2Arc: the arc that starts at P1, passes P2 and ends at P3, as
// radius and end angles about its centre, reported counter-clockwise.
//
// Method: the centre's x and y are the circumcentre of the three points by
// the same Cramer solution as TriangleCircumCircle; the centre's z is P2's.
// The radius is P2's distance from the centre. Each point's angle comes from
// atan of dy/dx (pi/2 or 3pi/2 when dx is zero by the double tolerance); the
// arc runs from P1 to P3 counter-clockwise when that sweep meets P2 first,
// otherwise it runs clockwise and is reported reversed (start = P3's angle).
//
// Results: 0 arc written (centre, radius, start, end); -2 P1 and P3
// coincide in the plane: the whole circle on the diameter P1 P2 (centre x, y
// and radius written, no angles); -1 no arc: all three coincide, or the
// points are collinear, or P2 lies on an end point (only centre.z written).
// centre.z is written first on every path; the centre is never read.
#include <cmath>

#include "QELMath.h"
#include "foundation/constants.h"
#include "foundation/elementary.h"
#include "geometry/triangle_core.h"

namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kThreeHalfPi = 4.71238898038469;

double arc_angle(double dx, double dy)
{
    if (math_IsRealZero(dx)) return dy >= 0 ? kHalfPi : kThreeHalfPi;
    double a = qel::atan(dy / dx);
    if (dx < 0) a = a + qel::kPi;
    return a;
}

}  // namespace

QELMATH_API int ThreePoints2Arc(double* const p1, double* const p2, double* const p3,
                                double* const centre, double* radius, double* start, double* end)
{
    centre[2] = p2[2];

    double l13 = math_Distance2d(p1, p3);
    if (math_IsRealZero(l13)) {
        double l12 = math_Distance2d(p1, p2);
        if (math_IsRealZero(l12)) return -1;
        centre[0] = (p2[0] + p1[0]) * 0.5;
        centre[1] = (p1[1] + p2[1]) * 0.5;
        *radius = 0.5 * l12;
        return -2;
    }

    double cx, cy;
    if (!qel::circumcentre(p1, p2, p3, &cx, &cy)) return -1;
    centre[0] = cx;
    centre[1] = cy;

    double dx1 = p1[0] - cx, dy1 = p1[1] - cy;
    double dx2 = p2[0] - cx, dy2 = p2[1] - cy;
    double dx3 = p3[0] - cx, dy3 = p3[1] - cy;
    *radius = std::sqrt(dx2 * dx2 + dy2 * dy2);

    double a1 = arc_angle(dx1, dy1);
    double a2 = arc_angle(dx2, dy2);
    double a3 = arc_angle(dx3, dy3);
    math_NormalizeAngle(&a1, &a3);
    while (a2 < a1) a2 = a2 + qel::kTwoPi;

    if (a3 > a2) {
        *start = a1;
        *end = a3;
    } else {
        *start = a3;
        *end = a1;
    }
    math_NormalizeAngle(start);
    math_NormalizeAngle(end);
    return 0;
}
