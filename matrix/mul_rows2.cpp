// Rows of 2 values times a 2 x 2 matrix: the fixed members and mt_MulN2x22.
//
// Element j of a result row is the sum of p[l] m[l][j] over the inner
// index in increasing order, left to right. The fixed members write their
// rows in order; mt_MulN2x22 takes four rows per pass, then the rest, and
// touches rows 0 .. n-1 of a and c only (nothing for n <= 0). Results must
// not overlap the operands. No memory is taken.
#include "QELMath.h"
#include "matrix/fixed_rows.h"

QELMATH_API void mt_Mul12x22(const double* a, const double* b, double* c)
{
    qel::rows_times<2>(a, 1, b, c);
}

QELMATH_API void mt_Mul22x22(const double* a, const double* b, double* c)
{
    qel::rows_times<2>(a, 2, b, c);
}

QELMATH_API void mt_MulN2x22(const double* a, int n, const double* b, double* c)
{
    qel::rows_times<2>(a, n, b, c);
}
