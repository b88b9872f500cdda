// mt_Det3: determinant of a 3 x 3 matrix, expanded along the first column:
// ((a02 a21 - a22 a01) a10 + (a22 a11 - a21 a12) a00) + (a12 a01 - a02 a11) a20.
// No pivoting and no threshold. Reads only.
#include "QELMath.h"

QELMATH_API double mt_Det3(const double* a)
{
    const double a00 = a[0], a01 = a[1], a02 = a[2];
    const double a10 = a[3], a11 = a[4], a12 = a[5];
    const double a20 = a[6], a21 = a[7], a22 = a[8];
    return ((a02 * a21 - a22 * a01) * a10 + (a22 * a11 - a21 * a12) * a00) +
           (a12 * a01 - a02 * a11) * a20;
}
