// mt_Inv3: in-place inverse of a 3 x 3 matrix as adjugate over determinant.
//
// det = (a10 (a21 a02 - a22 a01) + a00 (a11 a22 - a21 a12)) + a20 (a12 a01 -
// a11 a02), whose bracketed minors are also the first row of the adjugate.
// When |det| <= 2^-52 the result is 0 and the matrix is untouched; otherwise
// each element is its cofactor times r = 1 / det. NaN determinants pass.
#include <cmath>

#include "QELMath.h"
#include "foundation/constants.h"

QELMATH_API int mt_Inv3(double* a)
{
    const double a00 = a[0], a01 = a[1], a02 = a[2];
    const double a10 = a[3], a11 = a[4], a12 = a[5];
    const double a20 = a[6], a21 = a[7], a22 = a[8];

    const double c00 = a11 * a22 - a21 * a12;
    const double c01 = a21 * a02 - a22 * a01;
    const double c02 = a12 * a01 - a11 * a02;
    const double det = (a10 * c01 + a00 * c00) + a20 * c02;
    if (std::fabs(det) <= qel::kPivotThreshold) return 0;
    const double r = 1.0 / det;

    a[0] = c00 * r;
    a[1] = c01 * r;
    a[2] = c02 * r;
    a[3] = (a20 * a12 - a10 * a22) * r;
    a[4] = (a00 * a22 - a20 * a02) * r;
    a[5] = (a10 * a02 - a00 * a12) * r;
    a[6] = (a21 * a10 - a20 * a11) * r;
    a[7] = (a20 * a01 - a21 * a00) * r;
    a[8] = (a11 * a00 - a10 * a01) * r;
    return 1;
}
