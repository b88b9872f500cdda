// TransMatrixViewW: the side (W) principal view laid out to the left of the
// front view: (x, y, z) to (-y - d, 0, z). The y axis becomes the leftward
// drawing axis, pointing away from the front view, and the view sits d
// further left. The shift is stored as -d, so d = 0 gives -0.0 there.
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixViewW(double d, double (* const T)[4])
{
    qel::clear4(T);
    T[1][0] = -1.0;
    T[2][2] = 1.0;
    T[3][0] = -d;
    T[3][3] = 1.0;
}
