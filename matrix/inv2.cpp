// mt_Inv2: in-place inverse of a 2 x 2 matrix as adjugate over determinant.
//
// det = a00 a11 - a01 a10. When |det| <= 2^-52 (0x3CB0000000000000) the
// result is 0 and the matrix is untouched; otherwise r = 1 / det (the one
// division) and every element is its cofactor times r. A determinant that is
// not a number passes the test and gives NaN elements with result 1.
#include <cmath>

#include "QELMath.h"
#include "foundation/constants.h"

QELMATH_API int mt_Inv2(double* a)
{
    const double a00 = a[0], a01 = a[1], a10 = a[2], a11 = a[3];
    const double det = a00 * a11 - a01 * a10;
    if (std::fabs(det) <= qel::kPivotThreshold) return 0;
    const double r = 1.0 / det;
    a[0] = a11 * r;
    a[1] = -a01 * r;
    a[2] = -a10 * r;
    a[3] = a00 * r;
    return 1;
}
