// mt_Det: determinant of an n x n real matrix by Gaussian elimination with
// full pivoting, in place (the matrix is destroyed).
//
// At each step the element of largest magnitude in the remaining submatrix,
// found in row-major order with a strictly-greater comparison (so ties go to
// the smallest row, then the smallest column), becomes the pivot. A largest
// magnitude below 2^-52 (0x3CB0000000000000; the bound itself is accepted)
// makes the matrix singular: the result is +0.0 and the array keeps the
// state of the completed steps. Exchanges cover the active part only and
// flip the sign; rows below the pivot are reduced with m = a[i][k] * (1 /
// pivot), one reciprocal per step. The result is (P * s) * a[n-1][n-1], with
// P the product of the pivots in order and s the sign, so a zero last
// element gives a zero. n = 1 returns a[0] untested; n = 0 returns 1.0 (the
// empty product) and n < 0 returns 0.0. No memory is taken.
//
// The next step's pivot search runs inside this step's row updates, so the
// submatrix is swept once per step; the scan order and the comparison are
// those of a separate search.
#include <cmath>
#include <cstddef>
#include <utility>

#include "QELMath.h"
#include "foundation/constants.h"
#include "foundation/pivot.h"
#include "foundation/rowops.h"

QELMATH_API double mt_Det(double* a, int n)
{
    if (n == 0) return 1.0;
    if (n < 0) return 0.0;
    if (n == 1) return a[0];
    const std::size_t order = static_cast<std::size_t>(n);

    // Search of step 0 over the whole matrix.
    const qel::Pivot first = qel::search_pivot(a, order);
    double d = first.magnitude;
    std::size_t pivot_row = first.row, pivot_col = first.col;

    double product = 1.0;
    double sign = 1.0;
    for (std::size_t k = 0; k + 1 < order; ++k) {
        if (d < qel::kPivotThreshold) return 0.0;
        double* row_k = a + k * order;
        if (pivot_row != k) {
            double* row_p = a + pivot_row * order;
            for (std::size_t j = k; j < order; ++j) std::swap(row_k[j], row_p[j]);
            sign = -sign;
        }
        if (pivot_col != k) {
            for (std::size_t i = k; i < order; ++i) std::swap(a[i * order + k], a[i * order + pivot_col]);
            sign = -sign;
        }
        product = product * row_k[k];
        const double r = 1.0 / row_k[k];

        // Reduce the rows below and search the next submatrix as they go.
        const std::size_t width = order - k - 1;
        d = 0.0;
        pivot_row = k + 1;
        pivot_col = k + 1;
        for (std::size_t i = k + 1; i < order; ++i) {
            double* row_i = a + i * order;
            const double m = row_i[k] * r;
            double mag;
            const std::size_t j = qel::row_update_argmax(row_i + k + 1, row_k + k + 1, m, width, &mag);
            if (mag > d) {
                d = mag;
                pivot_row = i;
                pivot_col = k + 1 + j;
            }
        }
    }
    return (product * sign) * a[(order - 1) * order + order - 1];
}
