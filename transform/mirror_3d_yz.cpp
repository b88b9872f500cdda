// TransMatrixMirror3DYZ: mirror in the yz plane, x' = -x: the identity with
// -1 in T[0][0].
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixMirror3DYZ(double (* const T)[4])
{
    qel::identity4(T);
    T[0][0] = -1.0;
}
