// TransMatrixTanX2D: shear along x, x' = x + t*y, y' = y: the identity with
// t in T[1][0].
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixTanX2D(double t, double (* const T)[3])
{
    qel::identity3(T);
    T[1][0] = t;
}
