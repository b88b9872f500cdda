// TransMatrixTanYZ3D: shear of space, z' = z + t*y: the identity with t in
// T[1][2]. Unlike its sisters, which add t times the second named coordinate
// to the first, this one adds t*y to z.
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixTanYZ3D(double t, double (* const T)[4])
{
    qel::identity4(T);
    T[1][2] = t;
}
