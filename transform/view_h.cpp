// TransMatrixViewH: the top (H) principal view laid out below the front view:
// (x, y, z) to (x, 0, -y - d). The y axis becomes the downward drawing axis,
// pointing away from the front view, and the view sits d further down.
// The shift is stored as -d, so d = 0 gives -0.0 there.
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixViewH(double d, double (* const T)[4])
{
    qel::clear4(T);
    T[0][0] = 1.0;
    T[1][2] = -1.0;
    T[3][2] = -d;
    T[3][3] = 1.0;
}
