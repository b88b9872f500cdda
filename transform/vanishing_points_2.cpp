// TransMatrixPerspective2: central projection with two vanishing points, the
// product Rotate3DZ(theta) . Move3D(dx, dy, dz) . Pq: the model is turned
// about the vertical axis, shifted, and projected as in
// TransMatrixPerspective1. Lines along x and y both recede; z stays upright.
// theta = 0 gives TransMatrixPerspective1 by value (q*sin 0 is a signed zero
// there, and q*dy + 1 is the same number as dy*q + 1).
//
// The four-number overload re-shifts a matrix the full builder made: it
// writes T[3][0] = dx, T[3][2] = dz and T[3][3] = dy*q + 1 and leaves the
// other thirteen entries exactly as they were, so the q in T[0][3] and
// T[1][3] stays whatever the matrix held.
#include "QELMath.h"
#include "foundation/elementary.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixPerspective2(double dx, double dz, double dy, double q, double theta,
                                         double (* const T)[4])
{
    double sn, cs;
    qel::sincos(theta, &sn, &cs);
    qel::clear4(T);
    T[0][0] = cs;
    T[0][3] = q * sn;
    T[1][0] = -sn;
    T[1][3] = q * cs;
    T[2][2] = 1.0;
    T[3][0] = dx;
    T[3][2] = dz;
    T[3][3] = q * dy + 1.0;
}

QELMATH_API void TransMatrixPerspective2(double dx, double dz, double dy, double q,
                                         double (* const T)[4])
{
    T[3][0] = dx;
    T[3][2] = dz;
    T[3][3] = dy * q + 1.0;
}
