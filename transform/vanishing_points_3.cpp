// TransMatrixPerspective3: central projection with three vanishing points, the
// product Rotate3DZ(theta) . Rotate3DX(phi) . Move3D(dx, dy, dz) . Pq: the
// model is turned about the vertical axis, tilted about x, shifted, and
// projected as in TransMatrixPerspective1, so lines along all three axes
// recede. phi = 0 gives TransMatrixPerspective2 by value.
//
// The entries are the product written out, with each product formed left to
// right: T[0][3] = (q*sin theta)*cos phi, T[1][3] = (q*cos theta)*cos phi,
// T[2][3] = (-q)*sin phi. Multiplying the four matrices instead would round
// q*(sin theta*cos phi), which can differ in the last bit.
//
// The four-number overload is the same re-shift as TransMatrixPerspective2's:
// T[3][0] = dx, T[3][2] = dz, T[3][3] = dy*q + 1, the other thirteen entries
// left exactly as they were.
#include "QELMath.h"
#include "foundation/elementary.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixPerspective3(double dx, double dz, double dy, double q, double theta,
                                         double phi, double (* const T)[4])
{
    double st, ct, sp, cp;
    qel::sincos(theta, &st, &ct);
    qel::sincos(phi, &sp, &cp);
    qel::clear4(T);
    T[0][0] = ct;
    T[0][2] = st * sp;
    T[0][3] = q * st * cp;
    T[1][0] = -st;
    T[1][2] = ct * sp;
    T[1][3] = q * ct * cp;
    T[2][2] = cp;
    T[2][3] = -q * sp;
    T[3][0] = dx;
    T[3][2] = dz;
    T[3][3] = q * dy + 1.0;
}

QELMATH_API void TransMatrixPerspective3(double dx, double dz, double dy, double q,
                                         double (* const T)[4])
{
    T[3][0] = dx;
    T[3][2] = dz;
    T[3][3] = dy * q + 1.0;
}
