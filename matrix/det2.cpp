// mt_Det2: determinant of a 2 x 2 matrix, a11 a00 - a10 a01. No pivoting and
// no threshold: the formula's value, however small. Reads only.
#include "QELMath.h"

QELMATH_API double mt_Det2(const double* a)
{
    return a[3] * a[0] - a[2] * a[1];
}
