// TransMatrixTanZX3D: shear of space, z' = z + t*x: the identity with t in
// T[0][2] (row of the coordinate that is added, column of the one that
// changes).
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixTanZX3D(double t, double (* const T)[4])
{
    qel::identity4(T);
    T[0][2] = t;
}
