// mt_Inv4: in-place inverse of a 4 x 4 matrix as adjugate over determinant.
//
// The adjugate comes from twelve 2 x 2 minors formed once: m1 .. m6 of
// columns 2 and 3, w1 .. w6 of columns 0 and 1. Its first row X0 .. X3 also
// gives the determinant, expanded along the first column. The groupings
// below fix every element's bits. When |det| <= 2^-52 the result is 0 and the
// matrix is untouched; otherwise each element is its adjugate entry times
// r = 1 / det. NaN determinants pass.
#include <cmath>

#include "QELMath.h"
#include "foundation/constants.h"

QELMATH_API int mt_Inv4(double* a)
{
    const double a00 = a[0], a01 = a[1], a02 = a[2], a03 = a[3];
    const double a10 = a[4], a11 = a[5], a12 = a[6], a13 = a[7];
    const double a20 = a[8], a21 = a[9], a22 = a[10], a23 = a[11];
    const double a30 = a[12], a31 = a[13], a32 = a[14], a33 = a[15];

    const double m1 = a22 * a33 - a32 * a23;
    const double m2 = a12 * a33 - a32 * a13;
    const double m3 = a12 * a23 - a13 * a22;
    const double m4 = a32 * a03 - a33 * a02;
    const double m5 = a03 * a22 - a23 * a02;
    const double m6 = a13 * a02 - a03 * a12;
    const double w1 = a20 * a31 - a21 * a30;
    const double w2 = a10 * a31 - a30 * a11;
    const double w3 = a10 * a21 - a20 * a11;
    const double w4 = a30 * a01 - a31 * a00;
    const double w5 = a20 * a01 - a21 * a00;
    const double w6 = a11 * a00 - a10 * a01;

    const double x0 = (a11 * m1 - a21 * m2) + a31 * m3;
    const double x1 = (a31 * m5 - m1 * a01) - a21 * m4;
    const double x2 = (m4 * a11 + m2 * a01) + a31 * m6;
    const double x3 = (-(m3 * a01) - a11 * m5) - a21 * m6;
    const double det = ((a10 * x1 + a00 * x0) + a20 * x2) + a30 * x3;
    if (std::fabs(det) <= qel::kPivotThreshold) return 0;
    const double r = 1.0 / det;

    a[0] = x0 * r;
    a[1] = x1 * r;
    a[2] = x2 * r;
    a[3] = x3 * r;
    a[4] = ((a20 * m2 - a10 * m1) - a30 * m3) * r;
    a[5] = ((m1 * a00 + a20 * m4) - a30 * m5) * r;
    a[6] = ((-(a00 * m2) - a10 * m4) - a30 * m6) * r;
    a[7] = ((a10 * m5 + a00 * m3) + a20 * m6) * r;
    a[8] = ((a13 * w1 - w2 * a23) + w3 * a33) * r;
    a[9] = ((w5 * a33 - a03 * w1) - w4 * a23) * r;
    a[10] = ((a13 * w4 + a03 * w2) + w6 * a33) * r;
    a[11] = ((-(a03 * w3) - a13 * w5) - w6 * a23) * r;
    a[12] = ((a22 * w2 - a12 * w1) - a32 * w3) * r;
    a[13] = ((a22 * w4 + w1 * a02) - a32 * w5) * r;
    a[14] = ((-(w2 * a02) - w4 * a12) - a32 * w6) * r;
    a[15] = (w6 * a22 + (w5 * a12 + w3 * a02)) * r;
    return 1;
}
