// The inner sums of the real product's inner-product scheme, blocked.
#ifndef QELMATH_MATRIX_WINOGRAD_KERNEL_H
#define QELMATH_MATRIX_WINOGRAD_KERNEL_H

#include <cstddef>

namespace qel {

// For every element c[i][j] of the m x k result (row stride k), adds the block
// sums of the index pairs p = 0 .. pairs - 1, in increasing block order:
// c += ((t0 + t1) + t2) + t3 with tq = (a[i][2p] + b[2p+1][j]) *
// (a[i][2p+1] + b[2p][j]) over the four pairs of the block. pairs must be a
// multiple of four; a is m x n and b is n x k, both row-major.
void winograd_block_sums(const double* a, const double* b, std::size_t m, std::size_t n,
                         std::size_t k, std::size_t pairs, double* c);

}  // namespace qel

#endif
