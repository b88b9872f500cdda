// TransMatrixRotate3DY: rotation by theta about the y axis, counter-clockwise
// seen from +y towards the origin, so theta = pi/2 takes +z to +x.
// Sine and cosine are the library's correctly rounded ones.
#include "QELMath.h"
#include "foundation/elementary.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixRotate3DY(double theta, double (* const T)[4])
{
    double sn, cs;
    qel::sincos(theta, &sn, &cs);
    qel::clear4(T);
    T[0][0] = cs;
    T[0][2] = -sn;
    T[1][1] = 1.0;
    T[2][0] = sn;
    T[2][2] = cs;
    T[3][3] = 1.0;
}
