// Gaussian elimination with full pivoting on a real system.
//
// Step k takes as pivot the element of greatest magnitude in the remaining
// submatrix, the first met scanning row by row when several tie; exchanges
// columns (recorded) and rows to bring it to (k, k); divides the pivot row by
// it; and subtracts multiples of the pivot row from every row below. After
// the last step the last diagonal element is tested alone, the unknowns come
// from back substitution over the normalised rows, and the column exchanges
// are undone on the solution in reverse order. A pivot of magnitude at most
// the threshold 2^-52 means singular; a last diagonal element that is not a
// number is not caught.
//
// The result is defined to the last bit by that order, and the speed comes
// from doing the same operations with fewer passes over memory:
//  - each row's update also finds that row's largest updated element, so the
//    next step's pivot search costs nothing extra (rows are merged in
//    increasing order with a strict comparison, which keeps the first-met rule);
//  - a column exchange is applied to an active row as the update pass reaches
//    it, and to the rows already reduced, which nothing reads until the back
//    substitution, only at the end, row by row, in the order they were made;
//  - the row kernels run on the widest vector unit present.
#include "linear/full_pivot.h"

#include <cmath>
#include <utility>

#include "foundation/constants.h"
#include "foundation/pivot.h"
#include "foundation/rowops.h"

namespace qel {

int gauss_full_pivot(double* a, double* b, std::size_t n, int* record)
{
    const RowKernels& kern = row_kernels();
    const double eps = kPivotThreshold;

    // Pivot search of the first step; later steps get theirs from the updates.
    const qel::Pivot first = qel::search_pivot(a, n);
    double best = first.magnitude;
    std::size_t pivot_row = first.row, pivot_col = first.col;

    for (std::size_t k = 0; k + 1 < n; ++k) {
        if (best <= eps) return 0;
        const std::size_t r = pivot_row, q = pivot_col;
        record[k] = static_cast<int>(q);

        double* pivot = a + k * n;
        double* rowr = a + r * n;
        if (q != k) std::swap(rowr[k], rowr[q]);
        if (r != k) {
            for (std::size_t j = k; j < n; ++j) std::swap(pivot[j], rowr[j]);
            std::swap(b[k], b[r]);
        }

        const double p = pivot[k];
        const std::size_t width = n - k - 1;
        kern.divide(pivot + k + 1, p, width);
        b[k] = b[k] / p;

        const bool search_next = k + 2 < n;
        best = 0.0;
        for (std::size_t i = k + 1; i < n; ++i) {
            double* row = a + i * n;
            if (q != k) std::swap(row[k], row[q]);
            const double factor = row[k];
            if (search_next) {
                double m;
                std::size_t j = kern.update_argmax(row + k + 1, pivot + k + 1, factor, width, &m);
                if (m > best) {
                    best = m;
                    pivot_row = i;
                    pivot_col = k + 1 + j;
                }
            } else {
                kern.update(row + k + 1, pivot + k + 1, factor, width);
            }
            b[i] = b[i] - factor * b[k];
        }
    }

    const double last = a[(n - 1) * n + (n - 1)];
    if (std::fabs(last) <= eps) return 0;
    b[n - 1] = b[n - 1] / last;

    // The column exchanges made after a row was reduced, in the order made.
    for (std::size_t i = 0; i + 2 < n; ++i) {
        double* row = a + i * n;
        for (std::size_t k = i + 1; k + 1 < n; ++k) {
            std::size_t q = static_cast<std::size_t>(record[k]);
            if (q != k) std::swap(row[k], row[q]);
        }
    }

    for (std::size_t i = n - 1; i-- > 0;) {
        const double* row = a + i * n;
        double s = 0.0;
        for (std::size_t j = i + 1; j < n; ++j) s = s + row[j] * b[j];
        b[i] = b[i] - s;
    }

    record[n - 1] = static_cast<int>(n - 1);
    for (std::size_t k = n; k-- > 0;) {
        std::size_t q = static_cast<std::size_t>(record[k]);
        if (q != k) std::swap(b[k], b[q]);
    }
    return 1;
}

}  // namespace qel
