// TransMatrixMove3D: translation by (dx, dy, dz): the identity with the shift
// in the last row, so points (w = 1) move and directions (w = 0) do not.
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixMove3D(double dx, double dy, double dz, double (* const T)[4])
{
    qel::identity4(T);
    T[3][0] = dx;
    T[3][1] = dy;
    T[3][2] = dz;
}
