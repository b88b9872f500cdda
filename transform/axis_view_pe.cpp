// TransMatrixAxisViewPE: isometric view, TransMatrixAxisView for alpha = 45
// degrees and sin(beta) = 1/sqrt(3), with the coefficients rounded to three
// decimals: 0.707 (1/sqrt 2), 0.408 (1/sqrt 6) and 0.816 (sqrt(2/3)). The
// matrix holds exactly those three-decimal numbers, not values recomputed
// from the angles; each is within 5e-4 of the exact coefficient, and unit
// lengths along the three axes are all drawn 0.816 long (to 3e-4).
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixAxisViewPE(double (* const T)[4])
{
    qel::clear4(T);
    T[0][0] = 0.707;
    T[0][2] = -0.408;
    T[1][0] = -0.707;
    T[1][2] = -0.408;
    T[2][2] = 0.816;
    T[3][3] = 1.0;
}
