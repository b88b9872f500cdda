// TransMatrixRotate3DO: rotation by theta about the axis through the origin
// with direction u = (ux, uy, uz), counter-clockwise seen from the tip of u
// towards the origin (Rodrigues' formula, written for row vectors).
//
// u is used as given and must be a unit vector; it is not normalised, and a
// direction of any other length gives a matrix that is no rotation. With
// cs = cos theta, sn = sin theta and k = 1 - cs, the diagonal is
// u_i^2 + cs*(1 - u_i^2) and the off-diagonal terms are (u_i*u_j)*k plus or
// minus sn*u_l; products are formed left to right, so ux*uy*k is
// (ux*uy)*k. Each pair product is computed once and shared by its two
// entries, which changes no bit.
//
// With u a coordinate axis the entries equal those of TransMatrixRotate3DX,
// Y or Z by value; a zero entry may carry the other sign (0 - sn*0 is +0.0
// where the axis builder writes -sin 0 = -0.0). With theta = 0 the result is
// the identity up to the rounding of u_i^2 + (1 - u_i^2) on the diagonal.
#include "QELMath.h"
#include "foundation/elementary.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixRotate3DO(double ux, double uy, double uz, double theta,
                                      double (* const T)[4])
{
    double sn, cs;
    qel::sincos(theta, &sn, &cs);
    double k = 1.0 - cs;

    double xx = ux * ux, yy = uy * uy, zz = uz * uz;
    double xyk = ux * uy * k, xzk = ux * uz * k, yzk = uy * uz * k;

    qel::clear4(T);
    T[0][0] = xx + cs * (1.0 - xx);
    T[0][1] = sn * uz + xyk;
    T[0][2] = xzk - sn * uy;
    T[1][0] = xyk - sn * uz;
    T[1][1] = yy + cs * (1.0 - yy);
    T[1][2] = yzk + sn * ux;
    T[2][0] = xzk + sn * uy;
    T[2][1] = yzk - sn * ux;
    T[2][2] = zz + cs * (1.0 - zz);
    T[3][3] = 1.0;
}
