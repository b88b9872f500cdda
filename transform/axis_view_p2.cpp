// TransMatrixAxisViewP2: dimetric view, TransMatrixAxisView for cos(alpha) =
// 0.935 and sin(beta) = 1/3, with the coefficients stored with three
// decimals: 0.935, -0.118, -0.354, -0.312, 0.943. The matrix holds exactly
// these numbers, not values recomputed from the angles. Note that sin(alpha) for
// cos(alpha) = 0.935 is 0.35465, so T[1][0] = -0.354 is 6.5e-4 from the exact
// coefficient where the others are within 5e-4. Unit lengths along x, y and
// z are drawn 0.942, 0.472 and 0.943 long: the 1 : 1/2 : 1 dimetric.
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
