// TransMatrixTanZY3D: shear of space, y' = y + t*z: the identity with t in
// T[2][1].
//
// By the naming rule of the other shears (TanAB adds t times B to A, through
// T[row of B][column of A]) this would be z' = z + t*y, T[1][2]; but
// TransMatrixTanYZ3D already sets that entry. T[2][1] is the one
// off-diagonal entry of the linear block that no other shear reaches, so the
// six shears between them cover all six.
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixTanZY3D(double t, double (* const T)[4])
{
    qel::identity4(T);
    T[2][1] = t;
}
