// Rows of 3 values times a 3 x 3 matrix: the fixed members and mt_MulN3x33.
//
// Element j of a result row is the sum of p[l] m[l][j] over the inner
// index in increasing order, left to right. The fixed members write their
// rows in order; mt_MulN3x33 takes four rows per pass, then the rest, and
// touches rows 0 .. n-1 of a and c only (nothing for n <= 0). Results must
// not overlap the operands. No memory is taken.
#include "QELMath.h"
#include "matrix/fixed_rows.h"

QELMATH_API void mt_Mul13x33(const double* a, const double* b, double* c)
{
    qel::rows_times<3>(a, 1, b, c);
}

QELMATH_API void mt_Mul23x33(const double* a, const double* b, double* c)
{
    qel::rows_times<3>(a, 2, b, c);
}

QELMATH_API void mt_Mul33x33(const double* a, const double* b, double* c)
{
    qel::rows_times<3>(a, 3, b, c);
}

QELMATH_API void mt_MulN3x33(const double* a, int n, const double* b, double* c)
{
    qel::rows_times<3>(a, n, b, c);
}
