// TransMatrixScale3D: scaling about the origin, (x, y, z) to (sx*x, sy*y, sz*z).
// Zero or negative factors are taken as they are (a factor -1 mirrors).
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixScale3D(double sx, double sy, double sz, double (* const T)[4])
{
    qel::clear4(T);
    T[0][0] = sx;
    T[1][1] = sy;
    T[2][2] = sz;
    T[3][3] = 1.0;
}
