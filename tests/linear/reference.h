// Plain transcriptions, step for step and with no attempt at speed, of the
// full-pivoting eliminations and of the real product's inner-product scheme.
// The library must give the same bits; the benchmarks time them as baselines.
#pragma once
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace ref {

constexpr double kEps = 2.220446049250313e-16;

// The first largest magnitude of the trailing square from (k, k), row by row;
// then row r exchanged with k (from column k on, and b's rows of m) and
// column q with k. Returns the magnitude found.
inline double pivot(double* a, double* b, std::size_t n, std::size_t m, std::size_t k, std::size_t& q)
{
    double best = 0.0;
    std::size_t r = q = k;
    for (std::size_t i = k; i < n; ++i)
        for (std::size_t j = k; j < n; ++j)
            if (std::fabs(a[i * n + j]) > best) best = std::fabs(a[i * n + j]), r = i, q = j;
    if (best <= kEps) return best;
    for (std::size_t i = 0; i < n; ++i) std::swap(a[i * n + k], a[i * n + q]);
    for (std::size_t j = k; j < n; ++j) std::swap(a[k * n + j], a[r * n + j]);
    for (std::size_t v = 0; v < m; ++v) std::swap(b[k * m + v], b[r * m + v]);
    return best;
}

inline int gauss(double* a, double* b, std::size_t n)
{
    std::vector<std::size_t> rec(n, n - 1);
    for (std::size_t k = 0; k + 1 < n; ++k) {
        if (pivot(a, b, n, 1, k, rec[k]) <= kEps) return 0;
        const double p = a[k * n + k];
        for (std::size_t j = k + 1; j < n; ++j) a[k * n + j] = a[k * n + j] / p;
        b[k] = b[k] / p;
        for (std::size_t i = k + 1; i < n; ++i) {
            for (std::size_t j = k + 1; j < n; ++j) a[i * n + j] = a[i * n + j] - a[i * n + k] * a[k * n + j];
            b[i] = b[i] - a[i * n + k] * b[k];
        }
    }
    if (std::fabs(a[n * n - 1]) <= kEps) return 0;
    b[n - 1] = b[n - 1] / a[n * n - 1];
    for (std::size_t i = n - 1; i-- > 0;) {
        double s = 0.0;
        for (std::size_t j = i + 1; j < n; ++j) s = s + a[i * n + j] * b[j];
        b[i] = b[i] - s;
    }
    for (std::size_t k = n; k-- > 0;) std::swap(b[k], b[rec[k]]);
    return 1;
}

// Gauss-Jordan on m right-hand sides; the sparse variant skips every
// division and update whose factor is within the threshold of zero.
inline int gauss_jordan(double* a, double* b, std::size_t n, std::size_t m, bool sparse = false)
{
    auto live = [sparse](double x) { return !sparse || std::fabs(x) > kEps; };
    std::vector<std::size_t> rec(n);
    for (std::size_t k = 0; k < n; ++k) {
        if (pivot(a, b, n, m, k, rec[k]) <= kEps) return 0;
        const double p = a[k * n + k];
        for (std::size_t j = k + 1; j < n; ++j)
            if (live(a[k * n + j])) a[k * n + j] = a[k * n + j] / p;
        for (std::size_t v = 0; v < m; ++v) b[k * m + v] = b[k * m + v] / p;
        for (std::size_t i = 0; i < n; ++i) {
            if (i == k || !live(a[i * n + k])) continue;
            for (std::size_t j = k + 1; j < n; ++j)
                if (live(a[k * n + j])) a[i * n + j] = a[i * n + j] - a[k * n + j] * a[i * n + k];
            for (std::size_t v = 0; v < m; ++v) b[i * m + v] = b[i * m + v] - b[k * m + v] * a[i * n + k];
        }
    }
    for (std::size_t k = n; k-- > 0;)
        for (std::size_t v = 0; v < m; ++v) std::swap(b[k * m + v], b[rec[k] * m + v]);
    return 1;
}

}  // namespace ref

namespace plain {

// Onto s in blocks of four, then the rest summed on its own and added.
inline double blocked_sum(const std::vector<double>& t, double s = 0.0)
{
    std::size_t p = 0;
    for (; p + 4 <= t.size(); p += 4) s = s + (((t[p] + t[p + 1]) + t[p + 2]) + t[p + 3]);
    if (p == t.size()) return s;
    double rest = t[p];
    for (++p; p < t.size(); ++p) rest = rest + t[p];
    return s + rest;
}

// Winograd's inner products: row and column factors, then the paired terms
// in blocks of four, the odd last term added alone.
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
            for (int p = 0; p < h; ++p)
                t[p] = (a[i * n + 2 * p] + b[(2 * p + 1) * k + j]) * (a[i * n + 2 * p + 1] + b[2 * p * k + j]);
            const double s = blocked_sum(t, (-f[i]) - g[j]);
            c[i * k + j] = n % 2 == 1 ? s + a[i * n + n - 1] * b[(n - 1) * k + j] : s;
        }
}

}  // namespace plain
