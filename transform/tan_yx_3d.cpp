// TransMatrixTanYX3D: shear of space, y' = y + t*x: the identity with t in
// T[0][1] (row of the coordinate that is added, column of the one that
// changes).
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixTanYX3D(double t, double (* const T)[4])
{
    qel::identity4(T);
    T[0][1] = t;
}
