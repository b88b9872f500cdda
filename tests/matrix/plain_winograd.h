// A plain transcription of the real product's inner-product scheme: one
// element at a time, every sum in the defined order, no blocking or vectors.
// The tests hold the library's kernel to its bits, and the benchmarks time
// it as the baseline the kernel is measured against.
#ifndef QELMATH_TESTS_MATRIX_PLAIN_WINOGRAD_H
#define QELMATH_TESTS_MATRIX_PLAIN_WINOGRAD_H

#include <vector>

namespace plain {

inline double blocked_sum(const std::vector<double>& t)
{
    double s = 0.0;
    std::size_t p = 0;
    for (; p + 4 <= t.size(); p += 4) s = s + (((t[p] + t[p + 1]) + t[p + 2]) + t[p + 3]);
    if (p < t.size()) {
        double rest = t[p];
        for (++p; p < t.size(); ++p) rest = rest + t[p];
        s = s + rest;
    }
    return s;
}

inline void winograd(const double* a, const double* b, int m, int n, int k, double* c)
{
    const int h = n / 2;
    std::vector<double> f(m), g(k), t(h);
    for (int i = 0; i < m; ++i) {
        for (int p = 0; p < h; ++p) t[p] = a[i * n + 2 * p] * a[i * n + 2 * p + 1];
        f[i] = blocked_sum(t);
    }
    for (int j = 0; j < k; ++j) {
        for (int p = 0; p < h; ++p) t[p] = b[2 * p * k + j] * b[(2 * p + 1) * k + j];
        g[j] = blocked_sum(t);
    }
    for (int i = 0; i < m; ++i)
        for (int j = 0; j < k; ++j) {
            double s = (-f[i]) - g[j];
            int p = 0;
            for (; p + 4 <= h; p += 4) {
                double q[4];
                for (int u = 0; u < 4; ++u)
                    q[u] = (a[i * n + 2 * (p + u)] + b[(2 * (p + u) + 1) * k + j]) *
                           (a[i * n + 2 * (p + u) + 1] + b[2 * (p + u) * k + j]);
                s = s + (((q[0] + q[1]) + q[2]) + q[3]);
            }
            if (p < h) {
                double rest = (a[i * n + 2 * p] + b[(2 * p + 1) * k + j]) *
                              (a[i * n + 2 * p + 1] + b[2 * p * k + j]);
                for (++p; p < h; ++p)
                    rest = rest + (a[i * n + 2 * p] + b[(2 * p + 1) * k + j]) *
                                      (a[i * n + 2 * p + 1] + b[2 * p * k + j]);
                s = s + rest;
            }
            if (n % 2 == 1) s = s + a[i * n + n - 1] * b[(n - 1) * k + j];
            c[i * k + j] = s;
        }
}

}  // namespace plain

#endif
