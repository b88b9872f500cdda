// VectorCrossProduct and VectorDotProduct. The cross product is formed in
// full before it is stored, so out may be a or b.
#include "QELMath.h"

QELMATH_API void VectorCrossProduct(double* a, double* b, double* out)
{
    double x = a[1] * b[2] - a[2] * b[1];
    double y = a[2] * b[0] - a[0] * b[2];
    double z = a[0] * b[1] - a[1] * b[0];
    out[0] = x;
    out[1] = y;
    out[2] = z;
}

QELMATH_API double VectorDotProduct(double* a, double* b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
