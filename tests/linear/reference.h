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

// The entries of the two fields: a real number, and a complex one in the
// library's groupings (three multiplications, division through the
// conjugate by the squared modulus the pivot search measured).
struct Real {
    double v;
    double mag() const { return std::fabs(v); }
    Real over(Real p, double) const { return {v / p.v}; }
    Real minus(Real u, Real w) const { return {v - u.v * w.v}; }   // this - u w
};

struct Complex {
    double re, im;
    double mag() const { return re * re + im * im; }
    Complex over(Complex p, double s) const
    {
        return {(p.re * re + p.im * im) / s, ((p.re - p.im) * (re + im) - p.re * re + p.im * im) / s};
    }
    Complex minus(Complex u, Complex w) const
    {
        return {(re - u.re * w.re) + u.im * w.im, (u.re * w.re + (im - (u.re + u.im) * (w.re + w.im))) + u.im * w.im};
    }
};

// Back substitution: the real solver sums a row's products before taking
// them off, the complex one takes off each product as it comes.
inline void take_off(const std::vector<Real>& a, std::vector<Real>& b, std::size_t n, std::size_t i)
{
    double s = 0.0;
    for (std::size_t j = i + 1; j < n; ++j) s = s + a[i * n + j].v * b[j].v;
    b[i].v = b[i].v - s;
}

inline void take_off(const std::vector<Complex>& a, std::vector<Complex>& b, std::size_t n, std::size_t i)
{
    for (std::size_t j = i + 1; j < n; ++j) b[i] = b[i].minus(a[i * n + j], b[j]);
}

// One step's full pivot search: the first largest magnitude in row order.
template <class T>
double full_search(const std::vector<T>& a, std::size_t n, std::size_t k, std::size_t& r, std::size_t& q)
{
    double best = 0.0;
    r = q = k;
    for (std::size_t i = k; i < n; ++i)
        for (std::size_t j = k; j < n; ++j)
            if (a[i * n + j].mag() > best) best = a[i * n + j].mag(), r = i, q = j;
    return best;
}

// Elimination with full pivoting on m right-hand sides: below the pivot
// only, then back substitution (jordan false, m = 1), or above and below
// (jordan true). The unknowns come back in the caller's order.
template <class T>
int eliminate(std::vector<T>& a, std::vector<T>& b, std::size_t n, std::size_t m, bool jordan)
{
    std::vector<std::size_t> rec(n);
    for (std::size_t k = 0; k < n; ++k) {
        if (!jordan && k + 1 == n) break;
        std::size_t r, q;
        const double s = full_search(a, n, k, r, q);
        if (s <= kEps) return 0;
        rec[k] = q;
        for (std::size_t i = 0; i < n && q != k; ++i) std::swap(a[i * n + k], a[i * n + q]);
        for (std::size_t j = k; j < n && r != k; ++j) std::swap(a[k * n + j], a[r * n + j]);
        for (std::size_t v = 0; v < m && r != k; ++v) std::swap(b[k * m + v], b[r * m + v]);
        const T p = a[k * n + k];
        for (std::size_t j = k + 1; j < n; ++j) a[k * n + j] = a[k * n + j].over(p, s);
        for (std::size_t v = 0; v < m; ++v) b[k * m + v] = b[k * m + v].over(p, s);
        for (std::size_t i = jordan ? 0 : k + 1; i < n; ++i) {
            if (i == k) continue;
            const T u = a[i * n + k];
            for (std::size_t j = k + 1; j < n; ++j) a[i * n + j] = a[i * n + j].minus(u, a[k * n + j]);
            for (std::size_t v = 0; v < m; ++v) b[i * m + v] = b[i * m + v].minus(u, b[k * m + v]);
        }
    }
    if (!jordan) {
        const T last = a[n * n - 1];
        const double s = last.mag();
        if (s <= kEps) return 0;
        b[n - 1] = b[n - 1].over(last, s);
        for (std::size_t i = n - 1; i-- > 0;) take_off(a, b, n, i);
        rec[n - 1] = n - 1;
    }
    for (std::size_t k = n; k-- > 0;)
        for (std::size_t v = 0; v < m && rec[k] != k; ++v) std::swap(b[k * m + v], b[rec[k] * m + v]);
    return 1;
}

// The solvers' own array forms; every array is written back, also after a
// failure, as far as the elimination got.
inline int solve_real(double* a, double* b, std::size_t n, std::size_t m, bool jordan)
{
    std::vector<Real> x(n * n), y(n * m);
    for (std::size_t i = 0; i < n * n; ++i) x[i].v = a[i];
    for (std::size_t i = 0; i < n * m; ++i) y[i].v = b[i];
    const int r = eliminate(x, y, n, m, jordan);
    for (std::size_t i = 0; i < n * n; ++i) a[i] = x[i].v;
    for (std::size_t i = 0; i < n * m; ++i) b[i] = y[i].v;
    return r;
}

inline int solve_complex(double* ar, double* ai, double* br, double* bi, std::size_t n, std::size_t m, bool jordan)
{
    std::vector<Complex> x(n * n), y(n * m);
    for (std::size_t i = 0; i < n * n; ++i) x[i] = {ar[i], ai[i]};
    for (std::size_t i = 0; i < n * m; ++i) y[i] = {br[i], bi[i]};
    const int r = eliminate(x, y, n, m, jordan);
    for (std::size_t i = 0; i < n * n; ++i) ar[i] = x[i].re, ai[i] = x[i].im;
    for (std::size_t i = 0; i < n * m; ++i) br[i] = y[i].re, bi[i] = y[i].im;
    return r;
}

inline int gauss(double* a, double* b, std::size_t n) { return solve_real(a, b, n, 1, false); }
inline int gauss_jordan(double* a, double* b, std::size_t n, std::size_t m) { return solve_real(a, b, n, m, true); }
inline int cgauss(double* ar, double* ai, std::size_t n, double* br, double* bi)
{
    return solve_complex(ar, ai, br, bi, n, 1, false);
}
inline int cgauss_jordan(double* ar, double* ai, double* br, double* bi, std::size_t n, std::size_t m)
{
    return solve_complex(ar, ai, br, bi, n, m, true);
}

// The real pivot search on a plain array, for the sparse solver.
inline void full_search(const double* a, std::size_t n, std::size_t k, std::size_t* r, std::size_t* q, double* best)
{
    *best = 0.0;
    *r = *q = k;
    for (std::size_t i = k; i < n; ++i)
        for (std::size_t j = k; j < n; ++j)
            if (std::fabs(a[i * n + j]) > *best) *best = std::fabs(a[i * n + j]), *r = i, *q = j;
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
