// TransMatrixAxisViewL: oblique (cavalier or cabinet) projection onto y = 0
// that draws the y axis along the vector (a, b): (x, y, z) to
// (x + a*y, 0, z + b*y). x and z keep their true length.
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixAxisViewL(double a, double b, double (* const T)[4])
{
    qel::clear4(T);
    T[0][0] = 1.0;
    T[1][0] = a;
    T[1][2] = b;
    T[2][2] = 1.0;
    T[3][3] = 1.0;
}
