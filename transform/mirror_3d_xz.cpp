// TransMatrixMirror3DXZ: mirror in the xz plane, y' = -y: the identity with
// -1 in T[1][1].
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixMirror3DXZ(double (* const T)[4])
{
    qel::identity4(T);
    T[1][1] = -1.0;
}
