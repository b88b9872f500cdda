// The two triangle kernels that the enclosing circle shares with the
// exported triangle functions: one definition, so that every caller gets the
// same bits.
#ifndef QELMATH_GEOMETRY_TRIANGLE_CORE_H
#define QELMATH_GEOMETRY_TRIANGLE_CORE_H

#include <cmath>

#include "QELMath.h"
#include "foundation/constants.h"
#include "foundation/elementary.h"

namespace qel {

// Circumcentre by Cramer's rule on the two perpendicular bisectors
// (P1 - P2).C = k12 and (P1 - P3).C = k13. Returns false, leaving cx and cy
// alone, when the determinant is zero by the double tolerance.
inline bool circumcentre(const double* p1, const double* p2, const double* p3,
                         double* cx, double* cy)
{
    double d12x = p1[0] - p2[0], d12y = p1[1] - p2[1];
    double d13x = p1[0] - p3[0], d13y = p1[1] - p3[1];
    double s1 = p1[0] * p1[0] + p1[1] * p1[1];
    double k13 = 0.5 * ((s1 - p3[0] * p3[0]) - p3[1] * p3[1]);
    double k12 = 0.5 * ((s1 - p2[0] * p2[0]) - p2[1] * p2[1]);
    double det = d12y * d13x - d12x * d13y;
    if (math_IsRealZero(det)) return false;
    *cx = (d12y * k13 - d13y * k12) / det;
    *cy = (k13 * d12x - k12 * d13x) / (d12x * d13y - d12y * d13x);
    return true;
}

// Radius of the circumscribed circle, centre into c[0], c[1]. Degenerate
// (collinear or coincident) vertices give the bounding box's centre and its
// full diagonal, so that such a "circle" never wins a search for a small one.
inline double circumcircle(const double* p1, const double* p2, const double* p3, double* c)
{
    double cx, cy;
    if (!circumcentre(p1, p2, p3, &cx, &cy)) {
        double xmin = p1[0], xmax = p1[0], ymin = p1[1], ymax = p1[1];
        if (p2[0] < xmin) xmin = p2[0];
        if (p2[0] > xmax) xmax = p2[0];
        if (p3[0] < xmin) xmin = p3[0];
        if (p3[0] > xmax) xmax = p3[0];
        if (p2[1] < ymin) ymin = p2[1];
        if (p2[1] > ymax) ymax = p2[1];
        if (p3[1] < ymin) ymin = p3[1];
        if (p3[1] > ymax) ymax = p3[1];
        c[0] = 0.5 * (xmin + xmax);
        c[1] = 0.5 * (ymin + ymax);
        double h = ymax - ymin, w = xmax - xmin;
        return std::sqrt(h * h + w * w);
    }
    c[0] = cx;
    c[1] = cy;
    double dx = cx - p1[0], dy = cy - p1[1];
    return std::sqrt(dx * dx + dy * dy);
}

// Wraps an angle difference into (-pi, pi]; one turn suffices because both
// angles come from atan2.
inline double wrap_turn(double d)
{
    if (d > kPi) return d - kTwoPi;
    if (d <= -kPi) return d + kTwoPi;
    return d;
}

// Angle-sum test of p against the triangle p1 p2 p3 in the plane:
// 1 inside, 0 at a vertex (squared distance within the double tolerance),
// -1 outside. A point on an edge is decided by the rounding of the angles.
inline int point_in_triangle(const double* p1, const double* p2, const double* p3,
                             const double* p)
{
    double xmin = p1[0], xmax = p1[0], ymin = p1[1], ymax = p1[1];
    if (p2[0] < xmin) xmin = p2[0];
    if (p2[0] > xmax) xmax = p2[0];
    if (p3[0] < xmin) xmin = p3[0];
    if (p3[0] > xmax) xmax = p3[0];
    if (p2[1] < ymin) ymin = p2[1];
    if (p2[1] > ymax) ymax = p2[1];
    if (p3[1] < ymin) ymin = p3[1];
    if (p3[1] > ymax) ymax = p3[1];
    if (p[0] < xmin || p[0] > xmax || p[1] < ymin || p[1] > ymax) return -1;

    double u1x = p1[0] - p[0], u1y = p1[1] - p[1];
    double u2x = p2[0] - p[0], u2y = p2[1] - p[1];
    double u3x = p3[0] - p[0], u3y = p3[1] - p[1];
    if (math_IsRealZero(u1x * u1x + u1y * u1y)) return 0;
    if (math_IsRealZero(u2x * u2x + u2y * u2y)) return 0;
    if (math_IsRealZero(u3x * u3x + u3y * u3y)) return 0;

    double a1 = qel::atan2(u1y, u1x);
    double a2 = qel::atan2(u2y, u2x);
    double a3 = qel::atan2(u3y, u3x);
    double sum = wrap_turn(a1 - a2) + wrap_turn(a2 - a3) + wrap_turn(a3 - a1);
    return std::fabs(sum) > 1.0 ? 1 : -1;
}

}  // namespace qel

#endif
