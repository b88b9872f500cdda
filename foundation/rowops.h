// Row kernels shared by the elimination solvers, the determinant and the
// inversions.
//
// Each element's operations are exactly those of the scalar loop, so results
// are the same bits whatever vector unit runs them (no FMA anywhere).
#ifndef QELMATH_FOUNDATION_ROWOPS_H
#define QELMATH_FOUNDATION_ROWOPS_H

#include <cstddef>

namespace qel {

// dst[j] = dst[j] - f * src[j] for j = 0 .. count-1.
void row_update(double* dst, const double* src, double f, std::size_t count);

// The same update, fused with the search for the largest magnitude among the
// updated elements: returns the index of the first j (in increasing order)
// whose |dst[j]| is greatest, and stores that magnitude in *mag. Elements that
// are not numbers never win. With count == 0, or when no element compares
// greater than 0.0, returns count and stores 0.0.
std::size_t row_update_argmax(double* dst, const double* src, double f, std::size_t count,
                              double* mag);

// The search alone: first index of the greatest |row[j]|, as above.
std::size_t row_argmax(const double* row, std::size_t count, double* mag);

}  // namespace qel

#endif
