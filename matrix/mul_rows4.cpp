// Rows of 4 values times a 4 x 4 matrix: the fixed members and mt_MulN4x44.
//
// Element j of a result row is the sum of p[l] m[l][j] over the inner
// index in increasing order, left to right. The fixed members write their
// rows in order; mt_MulN4x44 takes four rows per pass, then the rest, and
// touches rows 0 .. n-1 of a and c only (nothing for n <= 0). Results must
// not overlap the operands. No memory is taken.
#include "QELMath.h"
#include "matrix/fixed_rows.h"

QELMATH_API void mt_Mul14x44(const double* a, const double* b, double* c)
{
    qel::rows_times<4>(a, 1, b, c);
}

QELMATH_API void mt_Mul24x44(const double* a, const double* b, double* c)
{
    qel::rows_times<4>(a, 2, b, c);
}

QELMATH_API void mt_Mul34x44(const double* a, const double* b, double* c)
{
    qel::rows_times<4>(a, 3, b, c);
}

QELMATH_API void mt_Mul44x44(const double* a, const double* b, double* c)
{
    qel::rows_times<4>(a, 4, b, c);
}

QELMATH_API void mt_MulN4x44(const double* a, int n, const double* b, double* c)
{
    qel::rows_times<4>(a, n, b, c);
}
