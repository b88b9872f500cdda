// TransMatrixRotate3DZ: rotation by theta about the z axis, counter-clockwise
// seen from +z towards the origin, so theta = pi/2 takes +x to +y.
// Sine and cosine are the library's correctly rounded ones.
#include "QELMath.h"
#include "foundation/elementary.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixRotate3DZ(double theta, double (* const T)[4])
{
    double sn, cs;
    qel::sincos(theta, &sn, &cs);
    qel::clear4(T);
    T[0][0] = cs;
    T[0][1] = sn;
    T[1][0] = -sn;
    T[1][1] = cs;
    T[2][2] = 1.0;
    T[3][3] = 1.0;
}
