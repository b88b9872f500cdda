// TransMatrixViewV: the front (V) principal view, the orthogonal projection
// onto the plane y = 0: (x, y, z) to (x, 0, z). Drawing coordinates are x'
// across and z' up.
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixViewV(double (* const T)[4])
{
    qel::clear4(T);
    T[0][0] = 1.0;
    T[2][2] = 1.0;
    T[3][3] = 1.0;
}
