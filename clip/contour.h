// Finishing a contour of the clipper: orientation and integer rounding.
#ifndef QELMATH_CLIP_CONTOUR_H
#define QELMATH_CLIP_CONTOUR_H

#include <climits>
#include <cmath>

namespace qel {

// Twice the signed area of the closed contour of m points at xy(i) (x then y),
// sum (x_i - x_i+1)(y_i + y_i+1) from i = 0 with the closing term last:
// positive for a counter-clockwise contour with y up.
template <class PointAt>
double ContourShoelace(int m, PointAt xy)
{
    double s = 0.0;
    for (int i = 0; i + 1 < m; ++i) {
        const double* p = xy(i);
        const double* q = xy(i + 1);
        s = s + (p[0] - q[0]) * (p[1] + q[1]);
    }
    if (m > 0) {
        const double* p = xy(m - 1);
        const double* q = xy(0);
        s = s + (p[0] - q[0]) * (p[1] + q[1]);
    }
    return s;
}

// Nearest integer with halves rounded up (2.5 -> 3, -2.5 -> -2), that is
// floor(v + 0.5); values beyond the int range are held at its ends.
inline int RoundCoordinate(double v)
{
    const double r = std::floor(v + 0.5);
    if (r >= 2147483647.0) return INT_MAX;
    if (r <= -2147483648.0) return INT_MIN;
    return static_cast<int>(r);
}

}  // namespace qel

#endif
