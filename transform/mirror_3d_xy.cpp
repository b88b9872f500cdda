// TransMatrixMirror3DXY: mirror in the xy plane, z' = -z: the identity with
// -1 in T[2][2].
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixMirror3DXY(double (* const T)[4])
{
    qel::identity4(T);
    T[2][2] = -1.0;
}
