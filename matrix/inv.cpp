// mt_Inv, real: in-place inverse of an n x n matrix by Gauss-Jordan
// elimination with full pivoting.
//
// Step k takes the element of largest magnitude in rows and columns k .. n-1
// (row-major scan, strictly-greater comparison: ties go to the smallest row,
// then the smallest column); a magnitude at or below 2^-52
// (0x3CB0000000000000) makes the matrix singular. The pivot's row and column
// are exchanged into place over the full matrix, the pivot is replaced by
// its reciprocal r, row k is scaled by r, every other element is reduced by
// a[i][j] -= a[k][j] * a[i][k] while column k still holds its old values, and
// column k becomes -(a[i][k] * r). At the end the exchanges are undone in
// reverse order, rows by the recorded pivot columns and columns by the
// recorded pivot rows.
//
// The pivot record, 2n ints (pivot rows, then pivot columns), is one scratch
// block released on every path. Results: 1 inverted; 0 singular, with the
// matrix left in the state of the completed steps and no exchange undone;
// 0 also when the record cannot be had, with the matrix untouched. n = 0
// takes and gives back an empty block and returns 1; n < 0 returns 1 and
// takes nothing.
//
// The search of step k + 1 runs inside the updates of step k, over the same
// elements in the same order; the updates themselves are the shared row
// kernels, whose elements carry exactly the operations above.
#include <cmath>
#include <cstddef>
#include <utility>

#include "QELMath.h"
#include "foundation/constants.h"
#include "foundation/pivot.h"
#include "foundation/rowops.h"
#include "foundation/scratch.h"

QELMATH_API int mt_Inv(double* a, int n)
{
    if (n < 0) return 1;
    const std::size_t order = static_cast<std::size_t>(n);
    qel::ScratchBlock<int> record(2 * order);
    if (record.failed()) return 0;
    if (order == 0) return 1;
    int* pivot_rows = record.get();
    int* pivot_cols = record.get() + order;

    // Search of step 0 over the whole matrix.
    const qel::Pivot first = qel::search_pivot(a, order);
    double d = first.magnitude;
    std::size_t pivot_row = first.row, pivot_col = first.col;

    for (std::size_t k = 0; k < order; ++k) {
        if (d <= qel::kPivotThreshold) return 0;
        pivot_rows[k] = static_cast<int>(pivot_row);
        pivot_cols[k] = static_cast<int>(pivot_col);
        if (pivot_row != k) qel::swap_rows(a, order, k, pivot_row);
        if (pivot_col != k) qel::swap_columns(a, order, k, pivot_col);

        double* row_k = a + k * order;
        const double r = 1.0 / row_k[k];
        row_k[k] = r;
        for (std::size_t j = 0; j < k; ++j) row_k[j] = row_k[j] * r;
        for (std::size_t j = k + 1; j < order; ++j) row_k[j] = row_k[j] * r;

        // Reduce every other row; rows below k also search the next submatrix.
        const std::size_t right = order - k - 1;
        d = 0.0;
        pivot_row = k + 1;
        pivot_col = k + 1;
        for (std::size_t i = 0; i < order; ++i) {
            if (i == k) continue;
            double* row_i = a + i * order;
            const double f = row_i[k];
            qel::row_update(row_i, row_k, f, k);
            if (i < k) {
                qel::row_update(row_i + k + 1, row_k + k + 1, f, right);
            } else {
                double mag;
                const std::size_t j = qel::row_update_argmax(row_i + k + 1, row_k + k + 1, f, right, &mag);
                if (mag > d) {
                    d = mag;
                    pivot_row = i;
                    pivot_col = k + 1 + j;
                }
            }
            row_i[k] = -(f * r);
        }
    }

    for (std::size_t k = order; k-- > 0;) {
        const std::size_t col = static_cast<std::size_t>(pivot_cols[k]);
        const std::size_t row = static_cast<std::size_t>(pivot_rows[k]);
        if (col != k) qel::swap_rows(a, order, k, col);
        if (row != k) qel::swap_columns(a, order, k, row);
    }
    return 1;
}
