// linear_GaussJordan, complex: A X = B for an n x n complex matrix and m
// right-hand sides, real and imaginary parts in separate arrays, by
// Gauss-Jordan elimination with full pivoting.
//
// The steps are those of the real overload, with the pivot measured by its
// squared modulus re*re + im*im (at most 2^-52 means singular, a modulus up
// to about 1.49e-8), quotients through the conjugate and the squared modulus
// found by the search, and products with three real multiplications, in the
// groupings of foundation/rowops.h. Exchanges move real and imaginary parts
// together. The next pivot search rides on each row's update pass.
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

void swap_rows(double* x, double* y, std::size_t count)
{
    for (std::size_t v = 0; v < count; ++v) std::swap(x[v], y[v]);
}

int solve(double* ar, double* ai, double* br, double* bi, std::size_t n, std::size_t m,
          int* record)
{
    const qel::RowKernels& kern = qel::row_kernels();
    const double eps = qel::kPivotThreshold;

    const qel::Pivot first = qel::search_pivot_complex(ar, ai, n);
    double best = first.magnitude;
    std::size_t pivot_row = first.row, pivot_col = first.col;

    for (std::size_t k = 0; k < n; ++k) {
        if (best <= eps) return 0;
        const double s = best;
        const std::size_t r = pivot_row, q = pivot_col;
        record[k] = static_cast<int>(q);

        double* pivr = ar + k * n;
        double* pivi = ai + k * n;
        double* bkr = br + k * m;
        double* bki = bi + k * m;
        if (q != k) {
            std::swap(ar[r * n + k], ar[r * n + q]);
            std::swap(ai[r * n + k], ai[r * n + q]);
        }
        if (r != k) {
            swap_rows(pivr + k, ar + r * n + k, n - k);
            swap_rows(pivi + k, ai + r * n + k, n - k);
            swap_rows(bkr, br + r * m, m);
            swap_rows(bki, bi + r * m, m);
        }

        const double pr = pivr[k], pi = pivi[k];
        const std::size_t width = n - k - 1;
        kern.cdivide(pivr + k + 1, pivi + k + 1, pr, pi, s, width);
        kern.cdivide(bkr, bki, pr, pi, s, m);

        best = 0.0;
        for (std::size_t i = 0; i < n; ++i) {
            if (i == k) continue;
            double* rowr = ar + i * n;
            double* rowi = ai + i * n;
            if (q != k) {
                std::swap(rowr[k], rowr[q]);
                std::swap(rowi[k], rowi[q]);
            }
            const double ur = rowr[k], ui = rowi[k];
            if (i > k && width > 0) {
                double mag;
                std::size_t j = kern.cupdate_argmax(rowr + k + 1, rowi + k + 1, pivr + k + 1,
                                                    pivi + k + 1, ur, ui, width, &mag);
                if (mag > best) {
                    best = mag;
                    pivot_row = i;
                    pivot_col = k + 1 + j;
                }
            } else {
                kern.cupdate(rowr + k + 1, rowi + k + 1, pivr + k + 1, pivi + k + 1, ur, ui, width);
            }
            kern.cupdate(br + i * m, bi + i * m, bkr, bki, ur, ui, m);
        }
    }

    for (std::size_t k = n; k-- > 0;) {
        std::size_t q = static_cast<std::size_t>(record[k]);
        if (q != k) {
            swap_rows(br + k * m, br + q * m, m);
            swap_rows(bi + k * m, bi + q * m, m);
        }
    }
    return 1;
}

}  // namespace

QELMATH_API int linear_GaussJordan(double* ar, double* ai, double* br, double* bi, int n, int m)
{
    if (n < 0 || m < 0) return 0;
    qel::ScratchBlock<int> record(static_cast<std::size_t>(n));
    if (record.failed()) return 0;
    if (n == 0) return 1;
    return solve(ar, ai, br, bi, static_cast<std::size_t>(n), static_cast<std::size_t>(m),
                 record.get());
}
