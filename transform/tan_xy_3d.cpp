// TransMatrixTanXY3D: shear of space, x' = x + t*y: the identity with t in
// T[1][0] (row of the coordinate that is added, column of the one that
// changes).
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixTanXY3D(double t, double (* const T)[4])
{
    qel::identity4(T);
    T[1][0] = t;
}
