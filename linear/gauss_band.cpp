// linear_GaussBand: a band system of half width h in packed rows, with m
// right-hand sides (b is n x m, row-major), by Gaussian elimination with
// partial pivoting inside the band.
//
// Row i of the packed array holds w = 2h + 1 doubles, left-justified: its
// position 0 stands for column max(0, i - h). Each step k picks, among the
// rows k .. min(k + h, n - 1) taking part, the one whose position 0 (column
// k) is greatest in magnitude (the first on a tie), exchanges it with row k,
// divides row k and b's row k by it, and reduces the rows below while
// shifting them one place left, so that position 0 of every row taking part
// stands for the next column. Back substitution then uses positions
// 1 .. min(2h, n - 1 - i) of each row. A pivot, or the last diagonal entry, of
// magnitude at most 2^-52 means singular: 0, arrays partially reduced.
// Success returns 2. No memory is taken.
//
// A negative n, h or m returns 0 and touches nothing; n = 0 returns 2. A half
// width of n or more is allowed: the rows taking part are bounded by n - 1
// and nothing outside the n(2h + 1) doubles of the band array is touched.
#include "QELMath.h"

#include <cmath>
#include <cstddef>
#include <utility>

#include "foundation/constants.h"
#include "foundation/rowops.h"

QELMATH_API int linear_GaussBand(double* a, double* b, int n, int h, int m)
{
    if (n < 0 || h < 0 || m < 0) return 0;
    if (n == 0) return 2;
    const qel::RowKernels& kern = qel::row_kernels();
    const double eps = qel::kPivotThreshold;
    const std::size_t rows = static_cast<std::size_t>(n);
    const std::size_t half = static_cast<std::size_t>(h);
    const std::size_t w = 2 * half + 1;
    const std::size_t cols = static_cast<std::size_t>(m);

    std::size_t s = half < rows - 1 ? half : rows - 1;
    for (std::size_t k = 0; k + 1 < rows; ++k) {
        double best = 0.0;
        std::size_t r = k;
        for (std::size_t i = k; i <= s; ++i) {
            double mag = std::fabs(a[i * w]);
            if (mag > best) {
                best = mag;
                r = i;
            }
        }
        if (best <= eps) return 0;

        double* pivot = a + k * w;
        double* bk = b + k * cols;
        if (r != k) {
            double* rowr = a + r * w;
            double* br = b + r * cols;
            for (std::size_t v = 0; v < cols; ++v) std::swap(bk[v], br[v]);
            for (std::size_t j = 0; j < w; ++j) std::swap(pivot[j], rowr[j]);
        }

        const double p = pivot[0];
        kern.divide(bk, p, cols);
        kern.divide(pivot + 1, p, w - 1);

        for (std::size_t i = k + 1; i <= s; ++i) {
            double* row = a + i * w;
            const double t = row[0];
            kern.update(b + i * cols, bk, t, cols);
            for (std::size_t j = 1; j < w; ++j) row[j - 1] = row[j] - t * pivot[j];
            row[w - 1] = 0.0;
        }
        if (s < rows - 1) ++s;
    }

    const double last = a[(rows - 1) * w];
    if (std::fabs(last) <= eps) return 0;
    kern.divide(b + (rows - 1) * cols, last, cols);

    for (std::size_t i = rows - 1; i-- > 0;) {
        const double* row = a + i * w;
        const std::size_t below = rows - 1 - i;
        const std::size_t q = 2 * half < below ? 2 * half : below;
        double* bi = b + i * cols;
        // Each element of b's row i takes its terms in increasing j, as the
        // scalar loop over j inside v would.
        for (std::size_t j = 1; j <= q; ++j) kern.update(bi, b + (i + j) * cols, row[j], cols);
    }
    return 2;
}
