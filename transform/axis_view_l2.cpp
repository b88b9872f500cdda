// TransMatrixAxisViewL2: the cabinet projection, the matrix of
// TransMatrixAxisViewL with a = b = -0.354: y drawn at 45 degrees down to the
// left at half length (0.5/sqrt 2 = 0.35355..., stored with three decimals).
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixAxisViewL2(double (* const T)[4])
{
    qel::clear4(T);
    T[0][0] = 1.0;
    T[1][0] = -0.354;
    T[1][2] = -0.354;
    T[2][2] = 1.0;
    T[3][3] = 1.0;
}
