// mt_Det4: determinant of a 4 x 4 matrix, expanded along the first column.
//
// Each 3 x 3 minor (row i and column 0 deleted) is expanded along column 1
// with the six 2 x 2 minors of columns 2 and 3, formed once and shared. The
// groupings below fix the result's bits. No pivoting and no threshold.
// Reads only.
#include "QELMath.h"

QELMATH_API double mt_Det4(const double* a)
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

    const double minor0 = (a11 * m1 - a21 * m2) + a31 * m3;
    const double minor1 = (m1 * a01 + a21 * m4) - a31 * m5;
    const double minor2 = (m2 * a01 + m4 * a11) + a31 * m6;
    const double minor3 = m6 * a21 + (m5 * a11 + m3 * a01);

    return ((minor0 * a00 - minor1 * a10) + minor2 * a20) - minor3 * a30;
}
