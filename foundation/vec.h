// Distances as the library computes them everywhere: d = q - p per
// coordinate, squares summed left to right.
#ifndef QELMATH_FOUNDATION_VEC_H
#define QELMATH_FOUNDATION_VEC_H

namespace qel {

inline double distance2d_squared(const double* p, const double* q)
{
    double dx = q[0] - p[0];
    double dy = q[1] - p[1];
    return dx * dx + dy * dy;
}

inline double distance_squared(const double* p, const double* q)
{
    double dx = q[0] - p[0];
    double dy = q[1] - p[1];
    double dz = q[2] - p[2];
    return dx * dx + dy * dy + dz * dz;
}

}  // namespace qel

#endif
