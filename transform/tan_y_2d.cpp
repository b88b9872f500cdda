// TransMatrixTanY2D: shear along y, x' = x, y' = y + t*x: the identity with
// t in T[0][1].
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixTanY2D(double t, double (* const T)[3])
{
    qel::identity3(T);
    T[0][1] = t;
}
