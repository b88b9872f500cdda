// Digests of the linear solvers. Where a failed elimination leaves its
// arrays without defined content, only the result code is digested.
#include <cmath>

#include "QELMath.h"
#include "digest.h"

namespace {

using dg::Digest;
using dg::Rng;

// A square matrix: random, with exact small entries, or made singular by a
// repeated row or a zero row.
void matrix(Rng& r, double* a, int n)
{
    bool exact = r.coin(3);
    for (int i = 0; i < n * n; ++i) a[i] = exact ? r.grid(-4, 4) : r.uni(-10, 10);
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

// The closed forms: a and b digested whole, since a must come back as it
// went in. For three unknowns the first row is sometimes (a00, 0, 0).
template <class F>
void closed(std::vector<dg::Entry>& out, const char* label, int n, F f)
{
    dg::run(out, label, 40, [=](Rng& r, Digest& d) {
        double a[16], b[4];
        matrix(r, a, n);
        if (n == 3 && r.coin(6)) a[1] = a[2] = 0;
        r.fill(b, n, -5, 5);
        d.i32(f(a, b));
        d.ds(a, n * n);
        d.ds(b, n);
    });
}

void family(std::vector<dg::Entry>& out)
{
    dg::run(out, "linear_Gauss(real)", 40, [](Rng& r, Digest& d) {
        int n = r.irange(1, 9);
        double a[81], b[9];
        matrix(r, a, n);
        r.fill(b, n, -5, 5);
        int code = linear_Gauss(a, b, n);
        d.i32(code);
        if (code == 1) d.ds(b, n);
    });
    closed(out, "linear_Gauss2", 2, linear_Gauss2);
    closed(out, "linear_Gauss3", 3, linear_Gauss3);
    closed(out, "linear_Gauss4", 4, linear_Gauss4);
    dg::run(out, "linear_Gauss(complex)", 40, [](Rng& r, Digest& d) {
        int n = r.irange(1, 8);
        double ar[64], ai[64], br[8], bi[8];
        matrix(r, ar, n);
        matrix(r, ai, n);
        r.fill(br, n, -5, 5);
        r.fill(bi, n, -5, 5);
        int code = linear_Gauss(ar, ai, n, br, bi);
        d.i32(code);
        if (code == 1) {
            d.ds(br, n);
            d.ds(bi, n);
        }
    });
    dg::run(out, "linear_GaussJordan(real)", 40, [](Rng& r, Digest& d) {
        int n = r.irange(0, 8), m = r.irange(0, 4);
        double a[64], b[32];
        matrix(r, a, n);
        r.fill(b, 32, -5, 5);
        int code = linear_GaussJordan(a, b, n, m);
        d.i32(code);
        if (code == 1) d.ds(b, 32);
    });
    dg::run(out, "linear_GaussJordan(complex)", 40, [](Rng& r, Digest& d) {
        int n = r.irange(0, 7), m = r.irange(0, 3);
        double ar[49], ai[49], br[21], bi[21];
        matrix(r, ar, n);
        matrix(r, ai, n);
        r.fill(br, 21, -5, 5);
        r.fill(bi, 21, -5, 5);
        int code = linear_GaussJordan(ar, ai, br, bi, n, m);
        d.i32(code);
        if (code == 1) {
            d.ds(br, 21);
            d.ds(bi, 21);
        }
    });
    dg::run(out, "linear_GaussBand", 40, [](Rng& r, Digest& d) {
        int n = r.irange(1, 9), h = r.irange(0, n - 1), m = r.irange(0, 3);
        int w = 2 * h + 1;
        double a[9 * 17], b[27];
        // Left-justified band rows; positions past column n - 1 stay zero.
        for (int i = 0; i < n; ++i) {
            int first = i - h < 0 ? 0 : i - h;
            for (int p = 0; p < w; ++p) {
                int col = first + p;
                a[i * w + p] = (col < n && col <= i + h) ? r.uni(-5, 5) : 0.0;
            }
            if (r.coin(12)) a[i * w + (i - first)] = 0;
        }
        r.fill(b, n * m, -5, 5);
        int code = linear_GaussBand(a, b, n, h, m);
        d.i32(code);
        if (code == 2) d.ds(b, n * m);
    });
    dg::run(out, "linear_TrianglePullup", 40, [](Rng& r, Digest& d) {
        int n = r.irange(1, 12);
        double a[34], b[12];
        r.fill(a, 3 * n - 2, -3, 3);
        for (int k = 0; k < n; ++k)
            if (!r.coin(10)) a[3 * k] += (a[3 * k] < 0 ? -4 : 4);
        r.fill(b, n, -5, 5);
        d.i32(linear_TrianglePullup(a, n, b));
        d.ds(a, 3 * n - 2);
        d.ds(b, n);
    });
    dg::run(out, "linear_GaussSeidel", 30, [](Rng& r, Digest& d) {
        int n = r.irange(0, 8);
        double a[64], b[8], x[8];
        if (r.coin(5)) {
            matrix(r, a, n);   // most likely not dominant
        } else {
            dominant(r, a, n);
        }
        r.fill(b, n, -5, 5);
        r.fill(x, n, -1, 1);
        int code = linear_GaussSeidel(a, b, n, x, r.coin(2) ? 1e-12 : 1e-6);
        d.i32(code);
        d.ds(a, n * n);
        d.ds(b, n);
        d.ds(x, n);
    });
    dg::run(out, "linear_SparsenessGaussJordan", 40, [](Rng& r, Digest& d) {
        int n = r.irange(0, 9);
        double a[81], b[9];
        matrix(r, a, n);
        for (int i = 0; i < n * n; ++i)
            if (r.coin(2)) a[i] = r.coin(4) ? 1e-17 : 0.0;
        r.fill(b, n, -5, 5);
        int code = linear_SparsenessGaussJordan(a, n, b);
        d.i32(code);
        if (code == 1) d.ds(b, n);
    });
}

int reg = dg::add_family(40, "linear", &family);

}  // namespace
