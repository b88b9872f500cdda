// Digests of the linear solvers. Where a failed elimination leaves its
// arrays without defined content, only the result code is digested.
#include <cmath>

#include "QELMath.h"
#include "digest.h"

namespace {

using namespace dg;

// A square matrix: random, with exact small entries, or made singular by a
// repeated row or a zero row.
void matrix(Rng& r, double* a, int n)
{
    r.reals(a, n * n);
    if (n > 1 && r.coin(6)) {
        int i = r.irange(0, n - 1), j = r.irange(0, n - 1);
        for (int c = 0; c < n; ++c) a[i * n + c] = (i == j) ? 0.0 : a[j * n + c];
    }
}

void dominant(Rng& r, double* a, int n)
{
    r.fill(a, n * n, -1, 1);
    for (int i = 0; i < n; ++i) {
        double s = 0;
        for (int j = 0; j < n; ++j)
            if (j != i) s += std::fabs(a[i * n + j]);
        a[i * n + i] = (r.coin(2) ? 1 : -1) * (s + r.uni(0.01, 2));
    }
}

// The eliminations, real (one plane of numbers) or complex (two): n from [nmin, nmax], m
// from [0, mmax] unless mmax < 0, the matrices (sometimes made sparse with
// zeros and values below any tolerance), then `rhs` values of each right
// side (n if rhs is 0). f(a, b, n, m) makes the call.
template <int Planes, class F>
void elimination(Out& out, const char* label, int nmin, int nmax, int mmax, int rhs, bool sparse, F f)
{
    run(out, label, 40, [=](Rng& r, Digest& d) {
        int n = r.irange(nmin, nmax), m = mmax < 0 ? 0 : r.irange(0, mmax), len = rhs ? rhs : n;
        double a[Planes][81], b[Planes][32];
        for (auto& p : a) matrix(r, p, n);
        for (int i = 0; sparse && i < n * n; ++i)
            if (r.coin(2)) a[0][i] = r.coin(4) ? 1e-17 : 0.0;
        for (auto& p : b) r.fill(p, len, -5, 5);
        int code = f(a, b, n, m);
        d(code);
        if (code == 1) for (auto& p : b) d.each(p, len);
    });
}

// The closed forms: a and b digested whole, since a must come back as it
// went in. For three unknowns the first row is sometimes (a00, 0, 0).
template <class F>
void closed(Out& out, const char* label, int n, F f)
{
    run(out, label, 40, [=](Rng& r, Digest& d) {
        double a[16], b[4];
        matrix(r, a, n);
        if (n == 3 && r.coin(6)) a[1] = a[2] = 0;
        r.fill(b, n, -5, 5);
        d(f(a, b));
        d.each(a, n * n); d.each(b, n);
    });
}

void family(Out& out)
{
    elimination<1>(out, "linear_Gauss(real)", 1, 9, -1, 0, false,
                   [](auto a, auto b, int n, int) { return linear_Gauss(a[0], b[0], n); });
    closed(out, "linear_Gauss2", 2, linear_Gauss2);
    closed(out, "linear_Gauss3", 3, linear_Gauss3);
    closed(out, "linear_Gauss4", 4, linear_Gauss4);
    elimination<2>(out, "linear_Gauss(complex)", 1, 8, -1, 0, false,
                   [](auto a, auto b, int n, int) { return linear_Gauss(a[0], a[1], n, b[0], b[1]); });
    elimination<1>(out, "linear_GaussJordan(real)", 0, 8, 4, 32, false,
                   [](auto a, auto b, int n, int m) { return linear_GaussJordan(a[0], b[0], n, m); });
    elimination<2>(out, "linear_GaussJordan(complex)", 0, 7, 3, 21, false,
                   [](auto a, auto b, int n, int m) { return linear_GaussJordan(a[0], a[1], b[0], b[1], n, m); });
    run(out, "linear_GaussBand", 40, [](Rng& r, Digest& d) {
        int n = r.irange(1, 9), h = r.irange(0, n - 1), m = r.irange(0, 3), w = 2 * h + 1;
        double a[9 * 17], b[27];
        // Left-justified band rows; positions past column n - 1 stay zero.
        for (int i = 0; i < n; ++i) {
            int first = i - h < 0 ? 0 : i - h;
            for (int p = 0; p < w; ++p) a[i * w + p] = (first + p < n && first + p <= i + h) ? r.uni(-5, 5) : 0.0;
            if (r.coin(12)) a[i * w + (i - first)] = 0;
        }
        r.fill(b, n * m, -5, 5);
        int code = linear_GaussBand(a, b, n, h, m);
        d(code);
        if (code == 2) d.each(b, n * m);
    });
    run(out, "linear_TrianglePullup", 40, [](Rng& r, Digest& d) {
        int n = r.irange(1, 12);
        double a[34], b[12];
        r.fill(a, 3 * n - 2, -3, 3);
        for (int k = 0; k < n; ++k)
            if (!r.coin(10)) a[3 * k] += (a[3 * k] < 0 ? -4 : 4);
        r.fill(b, n, -5, 5);
        d(linear_TrianglePullup(a, n, b));
        d.each(a, 3 * n - 2); d.each(b, n);
    });
    run(out, "linear_GaussSeidel", 30, [](Rng& r, Digest& d) {
        int n = r.irange(0, 8);
        double a[64], b[8], x[8];
        r.coin(5) ? matrix(r, a, n) : dominant(r, a, n);   // the first most likely not dominant
        r.fill(b, n, -5, 5); r.fill(x, n, -1, 1);
        d(linear_GaussSeidel(a, b, n, x, r.coin(2) ? 1e-12 : 1e-6));
        d.each(a, n * n); d.each(b, n); d.each(x, n);
    });
    elimination<1>(out, "linear_SparsenessGaussJordan", 0, 9, -1, 0, true,
                   [](auto a, auto b, int n, int) { return linear_SparsenessGaussJordan(a[0], n, b[0]); });
}

int reg = dg::add_family(40, "linear", &family);

}  // namespace
