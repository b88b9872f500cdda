// The vector products: mt_MulN1x1N (outer, n x n result) and mt_Mul1NxN1
// (inner, one value).
//
// The outer product writes row i as a[i] b[0], ..., a[i] b[n-1], for
// n <= 0 nothing. The inner product starts from c[0] = 0 and adds the
// products a[l] b[l] in blocks of four, ((t0 + t1) + t2) + t3 added to the
// running value, then the one to three remaining products summed in index
// order and added once; n <= 0 gives +0.0. No memory is taken.
#include <cstddef>

#include "QELMath.h"

QELMATH_API void mt_MulN1x1N(const double* a, int n, const double* b, double* c)
{
    if (n <= 0) return;
    const std::size_t len = static_cast<std::size_t>(n);
    for (std::size_t i = 0; i < len; ++i) {
        const double x = a[i];
        double* row = c + i * len;
        for (std::size_t j = 0; j < len; ++j) row[j] = x * b[j];
    }
}

QELMATH_API void mt_Mul1NxN1(const double* a, int n, const double* b, double* c)
{
    double sum = 0.0;
    int l = 0;
    for (; l + 4 <= n; l += 4) {
        const double t0 = a[l] * b[l];
        const double t1 = a[l + 1] * b[l + 1];
        const double t2 = a[l + 2] * b[l + 2];
        const double t3 = a[l + 3] * b[l + 3];
        sum = sum + (((t0 + t1) + t2) + t3);
    }
    if (l < n) {
        double rest = a[l] * b[l];
        for (++l; l < n; ++l) rest = rest + a[l] * b[l];
        sum = sum + rest;
    }
    c[0] = sum;
}
