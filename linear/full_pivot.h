// Gaussian elimination with full pivoting, shared by the general real solver
// and by the closed forms when their own formulas cannot finish a solution.
#ifndef QELMATH_LINEAR_FULL_PIVOT_H
#define QELMATH_LINEAR_FULL_PIVOT_H

#include <cstddef>

namespace qel {

// Solves the n x n system (n >= 1) in place: a is work space, b receives the
// solution on a return of 1; on 0 (a pivot of magnitude <= the pivot
// threshold) both hold partially reduced values. record holds n ints of
// work space for the column exchanges.
int gauss_full_pivot(double* a, double* b, std::size_t n, int* record);

}  // namespace qel

#endif
