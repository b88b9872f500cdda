// TransMatrixAxisViewP2: dimetric view, TransMatrixAxisView for cos(alpha) =
// 0.935 and sin(beta) = 1/3, with the coefficients rounded to three decimals
// (sin alpha = 0.354, cos beta = 0.943). The stored values are those
// three-decimal numbers, not the exact products.
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixAxisViewP2(double (* const T)[4])
{
    qel::clear4(T);
    T[0][0] = 0.935;
    T[0][2] = -0.118;
    T[1][0] = -0.354;
    T[1][2] = -0.312;
    T[2][2] = 0.943;
    T[3][3] = 1.0;
}
