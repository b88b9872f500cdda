// linear_Gauss, complex: an n x n complex system (real and imaginary parts in
// separate arrays) by Gaussian elimination with full pivoting.
//
// The steps are those of the real solver: pivot of greatest squared modulus
// re*re + im*im over the remaining submatrix (first met row by row on a tie),
// row and column exchanges, pivot row divided by the pivot, rows below
// reduced, last diagonal element tested alone, back substitution, column
// exchanges undone on the solution in reverse order. A squared modulus at
// most 2^-52 (a modulus up to about 1.49e-8) means singular; a last diagonal
// element that is not a number is not caught.
//
// Products take three real multiplications and a quotient goes through the
// conjugate and the squared modulus, in the groupings of foundation/rowops.h;
// every update w = w - u*v keeps that grouping, back substitution included.
// As in the real solver, the next pivot search rides on the update pass and
// column exchanges reach the already reduced rows only at the end.
//
// The column record, n ints, is taken first and given back before every
// return; a failed request returns 0 with nothing touched. A negative order
// returns 0; order 0 takes and gives back an empty block and returns 1.
#include "QELMath.h"

#include <cstddef>
#include <utility>

#include "foundation/constants.h"
#include "foundation/pivot.h"
#include "foundation/rowops.h"
#include "foundation/scratch.h"

namespace {

// w = w - u*v with three real multiplications.
inline void sub_product(double& wr, double& wi, double ur, double ui, double vr, double vi)
{
    const double p = ur * vr;
    const double q = ui * vi;
    const double s = (ur + ui) * (vr + vi);
    wr = (wr - p) + q;
    wi = (p + (wi - s)) + q;
}

// x = x / p, p = (pr, pi) of squared modulus s.
inline void divide(double& xr, double& xi, double pr, double pi, double s)
{
    const double a = pr * xr;
    const double b = pi * xi;
    const double re = (a + b) / s;
    const double im = ((pr - pi) * (xr + xi) - a + b) / s;
    xr = re;
    xi = im;
}

int solve(double* ar, double* ai, std::size_t n, double* br, double* bi, int* record)
{
    const qel::RowKernels& kern = qel::row_kernels();
    const double eps = qel::kPivotThreshold;

    const qel::Pivot first = qel::search_pivot_complex(ar, ai, n);
    double best = first.magnitude;
    std::size_t pivot_row = first.row, pivot_col = first.col;

    for (std::size_t k = 0; k + 1 < n; ++k) {
        if (best <= eps) return 0;
        const double s = best;
        const std::size_t r = pivot_row, q = pivot_col;

        double* pivr = ar + k * n;
        double* pivi = ai + k * n;
        double* rr = ar + r * n;
        double* ri = ai + r * n;
        if (r != k) {
            for (std::size_t j = k; j < n; ++j) {
                std::swap(pivr[j], rr[j]);
                std::swap(pivi[j], ri[j]);
            }
            std::swap(br[k], br[r]);
            std::swap(bi[k], bi[r]);
        }
        record[k] = static_cast<int>(q);
        if (q != k) {
            std::swap(pivr[k], pivr[q]);
            std::swap(pivi[k], pivi[q]);
        }

        const double pr = pivr[k], pi = pivi[k];
        const std::size_t width = n - k - 1;
        kern.cdivide(pivr + k + 1, pivi + k + 1, pr, pi, s, width);
        divide(br[k], bi[k], pr, pi, s);

        const bool search_next = k + 2 < n;
        best = 0.0;
        for (std::size_t i = k + 1; i < n; ++i) {
            double* rowr = ar + i * n;
            double* rowi = ai + i * n;
            if (q != k) {
                std::swap(rowr[k], rowr[q]);
                std::swap(rowi[k], rowi[q]);
            }
            const double ur = rowr[k], ui = rowi[k];
            if (search_next) {
                double m;
                std::size_t j = kern.cupdate_argmax(rowr + k + 1, rowi + k + 1, pivr + k + 1,
                                                    pivi + k + 1, ur, ui, width, &m);
                if (m > best) {
                    best = m;
                    pivot_row = i;
                    pivot_col = k + 1 + j;
                }
            } else {
                kern.cupdate(rowr + k + 1, rowi + k + 1, pivr + k + 1, pivi + k + 1, ur, ui, width);
            }
            sub_product(br[i], bi[i], ur, ui, br[k], bi[k]);
        }
    }

    const std::size_t last = (n - 1) * n + (n - 1);
    const double lr = ar[last], li = ai[last];
    const double ls = lr * lr + li * li;
    if (ls <= eps) return 0;
    divide(br[n - 1], bi[n - 1], lr, li, ls);

    // The column exchanges made after a row was reduced, in the order made.
    for (std::size_t i = 0; i + 2 < n; ++i) {
        double* rowr = ar + i * n;
        double* rowi = ai + i * n;
        for (std::size_t k = i + 1; k + 1 < n; ++k) {
            std::size_t q = static_cast<std::size_t>(record[k]);
            if (q != k) {
                std::swap(rowr[k], rowr[q]);
                std::swap(rowi[k], rowi[q]);
            }
        }
    }

    for (std::size_t i = n - 1; i-- > 0;) {
        const double* rowr = ar + i * n;
        const double* rowi = ai + i * n;
        double xr = br[i], xi = bi[i];
        for (std::size_t j = i + 1; j < n; ++j) sub_product(xr, xi, rowr[j], rowi[j], br[j], bi[j]);
        br[i] = xr;
        bi[i] = xi;
    }

    record[n - 1] = static_cast<int>(n - 1);
    for (std::size_t k = n; k-- > 0;) {
        std::size_t q = static_cast<std::size_t>(record[k]);
        if (q != k) {
            std::swap(br[k], br[q]);
            std::swap(bi[k], bi[q]);
        }
    }
    return 1;
}

}  // namespace

QELMATH_API int linear_Gauss(double* ar, double* ai, int n, double* br, double* bi)
{
    if (n < 0) return 0;
    qel::ScratchBlock<int> record(static_cast<std::size_t>(n));
    if (record.failed()) return 0;
    if (n == 0) return 1;
    return solve(ar, ai, static_cast<std::size_t>(n), br, bi, record.get());
}
