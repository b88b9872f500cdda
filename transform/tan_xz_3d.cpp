// TransMatrixTanXZ3D: shear of space, x' = x + t*z: the identity with t in
// T[2][0] (row of the coordinate that is added, column of the one that
// changes).
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixTanXZ3D(double t, double (* const T)[4])
{
    qel::identity4(T);
    T[2][0] = t;
}
