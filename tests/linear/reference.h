// Plain transcriptions of the full-pivoting solvers, step for step and with
// no attempt at speed: a separate pivot search each step, column exchanges on
// every row at once, scalar loops. The library's solvers must give the same
// bits. The column record lives in a std::vector here (no allocator counts).
#ifndef QELMATH_TESTS_LINEAR_REFERENCE_H
#define QELMATH_TESTS_LINEAR_REFERENCE_H

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace ref {

constexpr double kEps = 2.220446049250313e-16;

inline void full_search(const double* a, std::size_t n, std::size_t k, std::size_t* r,
                        std::size_t* q, double* best)
{
    *best = 0.0;
    *r = k;
    *q = k;
    for (std::size_t i = k; i < n; ++i)
        for (std::size_t j = k; j < n; ++j)
            if (std::fabs(a[i * n + j]) > *best) {
                *best = std::fabs(a[i * n + j]);
                *r = i;
                *q = j;
            }
}

inline int gauss(double* a, double* b, std::size_t n)
{
    std::vector<std::size_t> rec(n);
    for (std::size_t k = 0; k + 1 < n; ++k) {
        std::size_t r, q;
        double best;
        full_search(a, n, k, &r, &q, &best);
        if (best <= kEps) return 0;
        rec[k] = q;
        if (q != k)
            for (std::size_t i = 0; i < n; ++i) std::swap(a[i * n + k], a[i * n + q]);
        if (r != k) {
            for (std::size_t j = k; j < n; ++j) std::swap(a[k * n + j], a[r * n + j]);
            std::swap(b[k], b[r]);
        }
        double p = a[k * n + k];
        for (std::size_t j = k + 1; j < n; ++j) a[k * n + j] = a[k * n + j] / p;
        b[k] = b[k] / p;
        for (std::size_t i = k + 1; i < n; ++i) {
            for (std::size_t j = k + 1; j < n; ++j)
                a[i * n + j] = a[i * n + j] - a[i * n + k] * a[k * n + j];
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
    rec[n - 1] = n - 1;
    for (std::size_t k = n; k-- > 0;)
        if (rec[k] != k) std::swap(b[k], b[rec[k]]);
    return 1;
}

inline int gauss_jordan(double* a, double* b, std::size_t n, std::size_t m)
{
    std::vector<std::size_t> rec(n);
    for (std::size_t k = 0; k < n; ++k) {
        std::size_t r, q;
        double best;
        full_search(a, n, k, &r, &q, &best);
        if (best <= kEps) return 0;
        rec[k] = q;
        if (q != k)
            for (std::size_t i = 0; i < n; ++i) std::swap(a[i * n + k], a[i * n + q]);
        if (r != k) {
            for (std::size_t j = k; j < n; ++j) std::swap(a[k * n + j], a[r * n + j]);
            for (std::size_t v = 0; v < m; ++v) std::swap(b[k * m + v], b[r * m + v]);
        }
        double p = a[k * n + k];
        for (std::size_t j = k + 1; j < n; ++j) a[k * n + j] = a[k * n + j] / p;
        for (std::size_t v = 0; v < m; ++v) b[k * m + v] = b[k * m + v] / p;
        for (std::size_t i = 0; i < n; ++i) {
            if (i == k) continue;
            for (std::size_t j = k + 1; j < n; ++j)
                a[i * n + j] = a[i * n + j] - a[k * n + j] * a[i * n + k];
            for (std::size_t v = 0; v < m; ++v)
                b[i * m + v] = b[i * m + v] - b[k * m + v] * a[i * n + k];
        }
    }
    for (std::size_t k = n; k-- > 0;)
        if (rec[k] != k)
            for (std::size_t v = 0; v < m; ++v) std::swap(b[k * m + v], b[rec[k] * m + v]);
    return 1;
}

// Complex helpers in the library's groupings.
inline void csub(double& wr, double& wi, double ur, double ui, double vr, double vi)
{
    wr = (wr - ur * vr) + ui * vi;
    wi = (ur * vr + (wi - (ur + ui) * (vr + vi))) + ui * vi;
}

inline void cdiv(double& xr, double& xi, double pr, double pi, double s)
{
    double re = (pr * xr + pi * xi) / s;
    double im = ((pr - pi) * (xr + xi) - pr * xr + pi * xi) / s;
    xr = re;
    xi = im;
}

inline void csearch(const double* ar, const double* ai, std::size_t n, std::size_t k,
                    std::size_t* r, std::size_t* q, double* best)
{
    *best = 0.0;
    *r = k;
    *q = k;
    for (std::size_t i = k; i < n; ++i)
        for (std::size_t j = k; j < n; ++j) {
            double m = ar[i * n + j] * ar[i * n + j] + ai[i * n + j] * ai[i * n + j];
            if (m > *best) {
                *best = m;
                *r = i;
                *q = j;
            }
        }
}

inline void cswap(double* ar, double* ai, std::size_t x, std::size_t y)
{
    std::swap(ar[x], ar[y]);
    std::swap(ai[x], ai[y]);
}

inline int cgauss(double* ar, double* ai, std::size_t n, double* br, double* bi)
{
    std::vector<std::size_t> rec(n);
    for (std::size_t k = 0; k + 1 < n; ++k) {
        std::size_t r, q;
        double s;
        csearch(ar, ai, n, k, &r, &q, &s);
        if (s <= kEps) return 0;
        if (r != k) {
            for (std::size_t j = k; j < n; ++j) cswap(ar, ai, k * n + j, r * n + j);
            cswap(br, bi, k, r);
        }
        rec[k] = q;
        if (q != k)
            for (std::size_t i = 0; i < n; ++i) cswap(ar, ai, i * n + k, i * n + q);
        double pr = ar[k * n + k], pi = ai[k * n + k];
        for (std::size_t j = k + 1; j < n; ++j) cdiv(ar[k * n + j], ai[k * n + j], pr, pi, s);
        cdiv(br[k], bi[k], pr, pi, s);
        for (std::size_t i = k + 1; i < n; ++i) {
            double ur = ar[i * n + k], ui = ai[i * n + k];
            for (std::size_t j = k + 1; j < n; ++j)
                csub(ar[i * n + j], ai[i * n + j], ur, ui, ar[k * n + j], ai[k * n + j]);
            csub(br[i], bi[i], ur, ui, br[k], bi[k]);
        }
    }
    double lr = ar[n * n - 1], li = ai[n * n - 1];
    double ls = lr * lr + li * li;
    if (ls <= kEps) return 0;
    cdiv(br[n - 1], bi[n - 1], lr, li, ls);
    for (std::size_t i = n - 1; i-- > 0;)
        for (std::size_t j = i + 1; j < n; ++j)
            csub(br[i], bi[i], ar[i * n + j], ai[i * n + j], br[j], bi[j]);
    rec[n - 1] = n - 1;
    for (std::size_t k = n; k-- > 0;)
        if (rec[k] != k) cswap(br, bi, k, rec[k]);
    return 1;
}

inline int cgauss_jordan(double* ar, double* ai, double* br, double* bi, std::size_t n,
                         std::size_t m)
{
    std::vector<std::size_t> rec(n);
    for (std::size_t k = 0; k < n; ++k) {
        std::size_t r, q;
        double s;
        csearch(ar, ai, n, k, &r, &q, &s);
        if (s <= kEps) return 0;
        rec[k] = q;
        if (q != k)
            for (std::size_t i = 0; i < n; ++i) cswap(ar, ai, i * n + k, i * n + q);
        if (r != k) {
            for (std::size_t j = k; j < n; ++j) cswap(ar, ai, k * n + j, r * n + j);
            for (std::size_t v = 0; v < m; ++v) cswap(br, bi, k * m + v, r * m + v);
        }
        double pr = ar[k * n + k], pi = ai[k * n + k];
        for (std::size_t j = k + 1; j < n; ++j) cdiv(ar[k * n + j], ai[k * n + j], pr, pi, s);
        for (std::size_t v = 0; v < m; ++v) cdiv(br[k * m + v], bi[k * m + v], pr, pi, s);
        for (std::size_t i = 0; i < n; ++i) {
            if (i == k) continue;
            double ur = ar[i * n + k], ui = ai[i * n + k];
            for (std::size_t j = k + 1; j < n; ++j)
                csub(ar[i * n + j], ai[i * n + j], ur, ui, ar[k * n + j], ai[k * n + j]);
            for (std::size_t v = 0; v < m; ++v)
                csub(br[i * m + v], bi[i * m + v], ur, ui, br[k * m + v], bi[k * m + v]);
        }
    }
    for (std::size_t k = n; k-- > 0;)
        if (rec[k] != k)
            for (std::size_t v = 0; v < m; ++v) cswap(br, bi, k * m + v, rec[k] * m + v);
    return 1;
}

// Sparse Gauss-Jordan, transcribed with its tests in the places they stand.
inline int sparse_gauss_jordan(double* a, std::size_t n, double* b)
{
    std::vector<std::size_t> rec(n);
    for (std::size_t k = 0; k < n; ++k) {
        std::size_t r, q;
        double best;
        full_search(a, n, k, &r, &q, &best);
        if (best <= kEps) return 0;
        rec[k] = q;
        if (q != k)
            for (std::size_t i = 0; i < n; ++i) std::swap(a[i * n + k], a[i * n + q]);
        if (r != k) {
            for (std::size_t j = k; j < n; ++j) std::swap(a[k * n + j], a[r * n + j]);
            std::swap(b[k], b[r]);
        }
        double p = a[k * n + k];
        for (std::size_t j = k + 1; j < n; ++j)
            if (std::fabs(a[k * n + j]) > kEps) a[k * n + j] = a[k * n + j] / p;
        b[k] = b[k] / p;
        for (std::size_t j = k + 1; j < n; ++j) {
            if (!(std::fabs(a[k * n + j]) > kEps)) continue;
            for (std::size_t i = 0; i < n; ++i)
                if (i != k && std::fabs(a[i * n + k]) > kEps)
                    a[i * n + j] = a[i * n + j] - a[k * n + j] * a[i * n + k];
        }
        for (std::size_t i = 0; i < n; ++i)
            if (i != k && std::fabs(a[i * n + k]) > kEps) b[i] = b[i] - a[i * n + k] * b[k];
    }
    for (std::size_t k = n; k-- > 0;)
        if (rec[k] != k) std::swap(b[k], b[rec[k]]);
    return 1;
}

// Band elimination with partial pivoting on packed rows (0 <= h < n).
inline int gauss_band(double* a, double* b, std::size_t n, std::size_t h, std::size_t m)
{
    const std::size_t w = 2 * h + 1;
    std::size_t s = h;
    for (std::size_t k = 0; k + 1 < n; ++k) {
        double best = 0.0;
        std::size_t r = k;
        for (std::size_t i = k; i <= s; ++i)
            if (std::fabs(a[i * w]) > best) {
                best = std::fabs(a[i * w]);
                r = i;
            }
        if (best <= kEps) return 0;
        for (std::size_t v = 0; v < m; ++v) std::swap(b[k * m + v], b[r * m + v]);
        for (std::size_t j = 0; j < w; ++j) std::swap(a[k * w + j], a[r * w + j]);
        double p = a[k * w];
        for (std::size_t v = 0; v < m; ++v) b[k * m + v] = b[k * m + v] / p;
        for (std::size_t j = 1; j < w; ++j) a[k * w + j] = a[k * w + j] / p;
        for (std::size_t i = k + 1; i <= s; ++i) {
            double t = a[i * w];
            for (std::size_t v = 0; v < m; ++v) b[i * m + v] = b[i * m + v] - t * b[k * m + v];
            for (std::size_t j = 1; j < w; ++j) a[i * w + j - 1] = a[i * w + j] - t * a[k * w + j];
            a[i * w + w - 1] = 0.0;
        }
        if (s < n - 1) ++s;
    }
    double p = a[(n - 1) * w];
    if (std::fabs(p) <= kEps) return 0;
    for (std::size_t v = 0; v < m; ++v) b[(n - 1) * m + v] = b[(n - 1) * m + v] / p;
    for (std::size_t i = n - 1; i-- > 0;) {
        std::size_t q = std::min(2 * h, n - 1 - i);
        for (std::size_t v = 0; v < m; ++v)
            for (std::size_t j = 1; j <= q; ++j)
                b[i * m + v] = b[i * m + v] - a[i * w + j] * b[(i + j) * m + v];
    }
    return 2;
}

}  // namespace ref

#endif
