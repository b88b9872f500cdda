// mt_Mul, real: c (m x k) = a (m x n) . b (n x k) by Winograd's
// inner-product scheme.
//
// With h = n / 2 index pairs, each row i of a has the row factor
// F[i] = sum_p a[i][2p] a[i][2p+1] and each column j of b the column factor
// G[j] = sum_p b[2p][j] b[2p+1][j]. Then
//   c[i][j] = (-F[i]) - G[j] + sum_p (a[i][2p] + b[2p+1][j]) (a[i][2p+1] + b[2p][j])
//             [+ a[i][n-1] b[n-1][j] when n is odd],
// one multiplication per pair instead of two. Every sum over p (factors and
// pair terms) is taken in blocks of four, ((t0 + t1) + t2) + t3 added to the
// running value, the one to three remaining terms summed in index order and
// added once after the last block; the odd-n term comes after that. These
// orders define the result to the last bit; it differs from a plain dot
// product in the last bits, and n = 0 gives -0.0 everywhere.
//
// The factors live in two scratch arrays, m then k doubles, released row
// factors first. Should either request fail, the column factors are kept in
// the first row of c instead (c never overlaps an operand, and that row is
// written last), which gives the same bits without heap memory. Negative
// dimensions write nothing and take no memory.
#include <cstddef>

#include "QELMath.h"
#include "foundation/scratch.h"
#include "matrix/winograd_kernel.h"

namespace {

// sum_p x[2p s] x[(2p+1) s] for p < pairs, in blocks of four.
double pair_factor(const double* x, std::size_t s, std::size_t pairs)
{
    double f = 0.0;
    std::size_t p = 0;
    for (; p + 4 <= pairs; p += 4) {
        const double* y = x + 2 * p * s;
        const double t0 = y[0] * y[s];
        const double t1 = y[2 * s] * y[3 * s];
        const double t2 = y[4 * s] * y[5 * s];
        const double t3 = y[6 * s] * y[7 * s];
        f = f + (((t0 + t1) + t2) + t3);
    }
    if (p < pairs) {
        double rest = x[2 * p * s] * x[(2 * p + 1) * s];
        for (++p; p < pairs; ++p) rest = rest + x[2 * p * s] * x[(2 * p + 1) * s];
        f = f + rest;
    }
    return f;
}

// All k column factors at once, row pair by row pair, so that b is read
// along its rows.
void column_factors(const double* b, std::size_t k, std::size_t pairs, double* g)
{
    for (std::size_t j = 0; j < k; ++j) g[j] = 0.0;
    std::size_t p = 0;
    for (; p + 4 <= pairs; p += 4) {
        const double* r = b + 2 * p * k;
        for (std::size_t j = 0; j < k; ++j) {
            const double t0 = r[j] * r[k + j];
            const double t1 = r[2 * k + j] * r[3 * k + j];
            const double t2 = r[4 * k + j] * r[5 * k + j];
            const double t3 = r[6 * k + j] * r[7 * k + j];
            g[j] = g[j] + (((t0 + t1) + t2) + t3);
        }
    }
    const std::size_t rest = pairs - p;
    if (rest == 0) return;
    const double* r = b + 2 * p * k;
    for (std::size_t j = 0; j < k; ++j) {
        double s = r[j] * r[k + j];
        if (rest > 1) s = s + r[2 * k + j] * r[3 * k + j];
        if (rest > 2) s = s + r[4 * k + j] * r[5 * k + j];
        g[j] = g[j] + s;
    }
}

// The terms after the last block: the remaining pairs' sum, then the odd-n
// term, for every element of row i.
void finish_row(const double* ai, const double* b, std::size_t n, std::size_t k,
                std::size_t pairs, double* ci)
{
    const std::size_t p = pairs - pairs % 4;
    const std::size_t rest = pairs - p;
    if (rest > 0) {
        const double* r = b + 2 * p * k;
        const double* x = ai + 2 * p;
        for (std::size_t j = 0; j < k; ++j) {
            double s = (x[0] + r[k + j]) * (x[1] + r[j]);
            if (rest > 1) s = s + (x[2] + r[3 * k + j]) * (x[3] + r[2 * k + j]);
            if (rest > 2) s = s + (x[4] + r[5 * k + j]) * (x[5] + r[4 * k + j]);
            ci[j] = ci[j] + s;
        }
    }
    if (n % 2 == 1) {
        const double last = ai[n - 1];
        const double* r = b + (n - 1) * k;
        for (std::size_t j = 0; j < k; ++j) ci[j] = ci[j] + last * r[j];
    }
}

}  // namespace

QELMATH_API void mt_Mul(const double* a, const double* b, int m, int n, int k, double* c)
{
    if (m < 0 || n < 0 || k < 0) return;
    const std::size_t rows = static_cast<std::size_t>(m);
    const std::size_t inner = static_cast<std::size_t>(n);
    const std::size_t cols = static_cast<std::size_t>(k);
    const std::size_t pairs = inner / 2;

    qel::ScratchBlock<double> row_factor(rows);
    qel::ScratchBlock<double> col_factor(cols);
    if (!row_factor.failed() && !col_factor.failed()) {
        for (std::size_t i = 0; i < rows; ++i) row_factor[i] = pair_factor(a + i * inner, 1, pairs);
        column_factors(b, cols, pairs, col_factor.get());
        for (std::size_t i = 0; i < rows; ++i) {
            const double f = row_factor[i];
            double* ci = c + i * cols;
            for (std::size_t j = 0; j < cols; ++j) ci[j] = (-f) - col_factor[j];
        }
    } else if (rows > 0) {
        // Row 0 holds the column factors until it is itself started.
        column_factors(b, cols, pairs, c);
        for (std::size_t i = rows; i-- > 0;) {
            const double f = pair_factor(a + i * inner, 1, pairs);
            double* ci = c + i * cols;
            for (std::size_t j = 0; j < cols; ++j) ci[j] = (-f) - c[j];
        }
    }
    row_factor.release();
    col_factor.release();

    qel::winograd_block_sums(a, b, rows, inner, cols, pairs - pairs % 4, c);
    for (std::size_t i = 0; i < rows; ++i) finish_row(a + i * inner, b, inner, cols, pairs, c + i * cols);
}
