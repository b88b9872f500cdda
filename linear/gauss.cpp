// linear_Gauss, real: an n x n system by Gaussian elimination with full
// pivoting (see full_pivot.cpp for the method and its order of operations).
//
// The column record, n ints, is the one block taken, as the first action and
// given back before every return. A failed request returns 0 with a and b
// untouched; a negative order returns 0 and touches nothing; order 0 takes and
// gives back an empty block and returns 1. On 0 for a singular system, a and
// b hold partially reduced values.
#include "QELMath.h"

#include <cstddef>

#include "foundation/scratch.h"
#include "linear/full_pivot.h"

QELMATH_API int linear_Gauss(double* a, double* b, int n)
{
    if (n < 0) return 0;
    qel::ScratchBlock<int> record(static_cast<std::size_t>(n));
    if (record.failed()) return 0;
    if (n == 0) return 1;
    return qel::gauss_full_pivot(a, b, static_cast<std::size_t>(n), record.get());
}
