// TransMatrixAxisView: general axonometric view onto the plane y = 0. The
// model is turned by alpha about z and tilted by beta towards the viewer
// (a rotation by -beta about x), then projected along y: the product
// Rotate3DZ(alpha) . Rotate3DX(-beta) with column 1 cleared. alpha = beta = 0
// gives the front view TransMatrixViewV (with -0.0 in the products of sin 0).
//
// -sin(alpha)*sin(beta) is formed as the negated product; negation commutes
// with rounding, so the grouping of the sign changes no bit.
#include "QELMath.h"
#include "foundation/elementary.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixAxisView(double alpha, double beta, double (* const T)[4])
{
    double sa, ca, sb, cb;
    qel::sincos(alpha, &sa, &ca);
    qel::sincos(beta, &sb, &cb);
    qel::clear4(T);
    T[0][0] = ca;
    T[0][2] = -(sa * sb);
    T[1][0] = -sa;
    T[1][2] = -(ca * sb);
    T[2][2] = cb;
    T[3][3] = 1.0;
}
