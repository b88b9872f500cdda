// linear_TrianglePullup: a tridiagonal system in packed storage by the
// forward elimination and back substitution of the Thomas algorithm, without
// pivoting.
//
// The packed array holds row after row the entries a00, a01, a10, a11, a12,
// ..., a[n-1][n-2], a[n-1][n-1]: diagonal d_k at 3k, the entry above it u_k
// at 3k + 1 and the one below it l_(k+1) at 3k + 2. Each step divides u_k and
// b[k] by d_k and reduces d_(k+1) and b[k+1]; a reduced diagonal entry of
// magnitude at most 2^-52 stops with 0 (no exchange is ever tried, so a zero
// on the diagonal fails even for a regular matrix). Success returns 2, with
// the normalised u_k and reduced d_k left in the array; the l entries are
// never written. No memory is taken. n = 0 returns 2; a negative n returns 0;
// neither touches anything.
#include "QELMath.h"

#include <cmath>
#include <cstddef>

#include "foundation/constants.h"

QELMATH_API int linear_TrianglePullup(double* a, int n, double* b)
{
    if (n < 0) return 0;
    if (n == 0) return 2;
    const double eps = qel::kPivotThreshold;
    const std::size_t rows = static_cast<std::size_t>(n);

    for (std::size_t k = 0; k + 1 < rows; ++k) {
        const double d = a[3 * k];
        if (std::fabs(d) <= eps) return 0;
        a[3 * k + 1] = a[3 * k + 1] / d;
        b[k] = b[k] / d;
        const double l = a[3 * k + 2];
        a[3 * k + 3] = a[3 * k + 3] - a[3 * k + 1] * l;
        b[k + 1] = b[k + 1] - b[k] * l;
    }

    const double last = a[3 * (rows - 1)];
    if (std::fabs(last) <= eps) return 0;
    b[rows - 1] = b[rows - 1] / last;

    for (std::size_t k = rows - 1; k-- > 0;) b[k] = b[k] - a[3 * k + 1] * b[k + 1];
    return 2;
}
