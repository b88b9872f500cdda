// TrangleArea: area of the triangle in space, half the length of the cross
// product (P2 - P1) x (P3 - P1). Components in the order of
// VectorCrossProduct; collinear or coincident points give 0.
#include <cmath>

#include "QELMath.h"

QELMATH_API double TrangleArea(double* const p1, double* const p2, double* const p3)
{
    double ax = p2[0] - p1[0], ay = p2[1] - p1[1], az = p2[2] - p1[2];
    double bx = p3[0] - p1[0], by = p3[1] - p1[1], bz = p3[2] - p1[2];
    double nx = ay * bz - az * by;
    double ny = az * bx - ax * bz;
    double nz = ax * by - ay * bx;
    return 0.5 * std::sqrt(nx * nx + ny * ny + nz * nz);
}
