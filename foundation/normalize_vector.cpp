// NormalizeVector: scales v to unit length by the rounded reciprocal of its
// length (one division, three multiplications), so (0, 3, 4) becomes
// (0, 0.6000000000000001, 0.8). A squared length within the double tolerance
// of zero leaves v unchanged and returns 0; with the default 1e-9 that is
// every vector shorter than about 3.16e-5.
#include <cmath>

#include "QELMath.h"

QELMATH_API int NormalizeVector(double* v)
{
    double s = v[0] * v[0] + v[1] * v[1] + v[2] * v[2];
    if (math_IsRealZero(s)) return 0;
    double f = 1.0 / std::sqrt(s);
    v[0] = v[0] * f;
    v[1] = v[1] * f;
    v[2] = v[2] * f;
    return 1;
}
