// Bulge2Arc: a polyline segment P1 -> P2 with bulge b (the tangent of a
// quarter of the included angle) as centre, radius and end angles.
//
// Method: chord c = |P1P2| in the plane, radius |(1/b + b) * c / 4|, centre on
// the chord's perpendicular bisector at k = sqrt(r^2 - c^2/4) / c chord
// lengths from the midpoint; the side follows from b alone (exact
// comparisons). The arc is reported counter-clockwise from start to end, so
// a clockwise (negative) bulge is reported reversed. Both angles end in
// [0, 2pi).
//
// Results: 0 arc written; 1 straight (b zero by the double tolerance);
// -2 end points at different heights; -1 end points coincide in the plane.
// Nothing is written on 1, -2 and -1.
#include <cmath>

#include "QELMath.h"
#include "foundation/elementary.h"

QELMATH_API int Bulge2Arc(double* const p1, double* const p2, double b, double* const centre,
                          double* radius, double* start, double* end)
{
    if (math_IsRealZero(b)) return 1;

    bool level = math_IsRealZero(p1[2]) ? math_IsRealZero(p2[2]) != 0
                                         : math_IsRealEqual(p1[2] / p2[2], 1.0) != 0;
    if (!level) return -2;

    double dx = p2[0] - p1[0];
    double dy = p2[1] - p1[1];
    double q = dx * dx + dy * dy;
    if (math_IsRealZero(q)) return -1;

    double chord = std::sqrt(q);
    double r = std::fabs((1 / b + b) * chord * 0.25);
    *radius = r;

    double h2 = r * r - 0.25 * chord * chord;
    if (h2 < 0) h2 = 0;
    double k = std::sqrt(h2) / chord;

    double mx = (p1[0] + p2[0]) * 0.5;
    double my = (p1[1] + p2[1]) * 0.5;
    bool left = b < -1 || (0 < b && b < 1);
    if (left) {
        centre[0] = mx - k * dy;
        centre[1] = my + k * dx;
    } else {
        centre[0] = mx + k * dy;
        centre[1] = my - k * dx;
    }
    centre[2] = 0.5 * (p1[2] + p2[2]);

    double a1 = qel::atan2(p1[1] - centre[1], p1[0] - centre[0]);
    double a2 = qel::atan2(p2[1] - centre[1], p2[0] - centre[0]);
    if (b < 0) {
        *start = a2;
        *end = a1;
    } else {
        *start = a1;
        *end = a2;
    }
    math_NormalizeAngle(start);
    math_NormalizeAngle(end);
    return 0;
}
