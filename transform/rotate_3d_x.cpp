// TransMatrixRotate3DX: rotation by theta about the x axis, counter-clockwise
// seen from +x towards the origin, so theta = pi/2 takes +y to +z (leaving
// cos(pi/2) = 6.1e-17 in y: the double pi/2 is a little short of the angle).
// Sine and cosine are the library's correctly rounded ones.
#include "QELMath.h"
#include "foundation/elementary.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixRotate3DX(double theta, double (* const T)[4])
{
    double sn, cs;
    qel::sincos(theta, &sn, &cs);
    qel::clear4(T);
    T[0][0] = 1.0;
    T[1][1] = cs;
    T[1][2] = sn;
    T[2][1] = -sn;
    T[2][2] = cs;
    T[3][3] = 1.0;
}
