// linear_GaussJordan, real: A X = B for an n x n matrix and m right-hand
// sides (B and X n x m, row-major) by Gauss-Jordan elimination with full
// pivoting.
//
// Step k (k = 0 .. n-1, the last one included) takes the element of greatest
// magnitude of the remaining submatrix as pivot (first met row by row on a
// tie), exchanges columns (recorded) and rows to bring it to (k, k), divides
// the pivot row of a and of b by it, and subtracts multiples of the pivot row
// from every other row, above and below, so no back substitution is needed.
// At the end the rows of b are exchanged back, in reverse order of the column
// exchanges. A pivot of magnitude at most 2^-52 means singular: 0, with a and
// b partially reduced.
//
// Each row's update also searches that row for the next pivot, and a column
// exchange is applied to a row as the update pass reaches it; the row kernels
// run on the widest vector unit present. The result is the same to the bit.
//
// The column record, n ints, is taken first and given back before every
// return; a failed request returns 0 with nothing touched. A negative n or m
// returns 0 and touches nothing; n = 0 returns 1; m = 0 reduces a and writes
// nothing into b.
#include "QELMath.h"

#include <cstddef>
#include <utility>

#include "foundation/constants.h"
#include "foundation/pivot.h"
#include "foundation/rowops.h"
#include "foundation/scratch.h"

namespace {

int solve(double* a, double* b, std::size_t n, std::size_t m, int* record)
{
    const qel::RowKernels& kern = qel::row_kernels();
    const double eps = qel::kPivotThreshold;

    const qel::Pivot first = qel::search_pivot(a, n);
    double best = first.magnitude;
    std::size_t pivot_row = first.row, pivot_col = first.col;

    for (std::size_t k = 0; k < n; ++k) {
        if (best <= eps) return 0;
        const std::size_t r = pivot_row, q = pivot_col;
        record[k] = static_cast<int>(q);

        double* pivot = a + k * n;
        double* rowr = a + r * n;
        double* bk = b + k * m;
        if (q != k) std::swap(rowr[k], rowr[q]);
        if (r != k) {
            for (std::size_t j = k; j < n; ++j) std::swap(pivot[j], rowr[j]);
            double* brow = b + r * m;
            for (std::size_t v = 0; v < m; ++v) std::swap(bk[v], brow[v]);
        }

        const double p = pivot[k];
        const std::size_t width = n - k - 1;
        kern.divide(pivot + k + 1, p, width);
        kern.divide(bk, p, m);

        best = 0.0;
        for (std::size_t i = 0; i < n; ++i) {
            if (i == k) continue;
            double* row = a + i * n;
            if (q != k) std::swap(row[k], row[q]);
            const double factor = row[k];
            if (i > k && width > 0) {
                double mag;
                std::size_t j = kern.update_argmax(row + k + 1, pivot + k + 1, factor, width, &mag);
                if (mag > best) {
                    best = mag;
                    pivot_row = i;
                    pivot_col = k + 1 + j;
                }
            } else {
                kern.update(row + k + 1, pivot + k + 1, factor, width);
            }
            kern.update(b + i * m, bk, factor, m);
        }
    }

    for (std::size_t k = n; k-- > 0;) {
        std::size_t q = static_cast<std::size_t>(record[k]);
        if (q != k) {
            double* bk = b + k * m;
            double* bq = b + q * m;
            for (std::size_t v = 0; v < m; ++v) std::swap(bk[v], bq[v]);
        }
    }
    return 1;
}

}  // namespace

QELMATH_API int linear_GaussJordan(double* a, double* b, int n, int m)
{
    if (n < 0 || m < 0) return 0;
    qel::ScratchBlock<int> record(static_cast<std::size_t>(n));
    if (record.failed()) return 0;
    if (n == 0) return 1;
    return solve(a, b, static_cast<std::size_t>(n), static_cast<std::size_t>(m), record.get());
}
