// linear_GaussSeidel: A x = b by Gauss-Seidel sweeps from x = 0, for strictly
// diagonally dominant matrices.
//
// The rows are first checked in order, each setting x[i] = 0.0: a row whose
// diagonal magnitude is not strictly greater than the sum of the others'
// magnitudes returns -1 at once (a, b untouched, later x entries untouched).
// Each sweep then updates x[i] = (b[i] - sum over j != i of a[i][j] x[j]) /
// a[i][i] in order, using this sweep's values for j < i, and takes as its
// measure the greatest |new - old| / (1 + |new|). The iteration stops with 1
// after the first sweep whose measure is below eps, or after a sweep that
// changed no unknown, whatever eps is.
//
// The sweeps are bounded: after 10,000 sweeps without meeting the stopping
// rule (eps <= 0, eps below the rounding level of the data, or an eps that is
// not a number) the function returns 0 with x holding the last sweep. A
// negative n returns 0 and touches nothing.
#include "QELMath.h"

#include <cmath>
#include <cstddef>

namespace {

constexpr int kMaxSweeps = 10000;

}  // namespace

QELMATH_API int linear_GaussSeidel(double* a, double* b, int n, double* x, double eps)
{
    if (n < 0) return 0;
    const std::size_t rows = static_cast<std::size_t>(n);

    for (std::size_t i = 0; i < rows; ++i) {
        x[i] = 0.0;
        const double* row = a + i * rows;
        double s = 0.0;
        for (std::size_t j = 0; j < rows; ++j) {
            if (j != i) s = s + std::fabs(row[j]);
        }
        if (std::fabs(row[i]) <= s) return -1;
    }

    double p = eps + 1.0;
    for (int sweep = 0; !(p < eps); ++sweep) {
        if (sweep == kMaxSweeps) return 0;
        p = 0.0;
        bool changed = false;
        for (std::size_t i = 0; i < rows; ++i) {
            const double* row = a + i * rows;
            const double t = x[i];
            double s = 0.0;
            for (std::size_t j = 0; j < rows; ++j) {
                if (j != i) s = s + row[j] * x[j];
            }
            const double xi = (b[i] - s) / row[i];
            x[i] = xi;
            if (xi != t) changed = true;
            const double q = std::fabs(xi - t) / (1.0 + std::fabs(xi));
            if (q > p) p = q;
        }
        if (!changed) return 1;
    }
    return 1;
}
