// Digests of the matrix sums, products, determinants and inversions.
#include "QELMath.h"
#include "digest.h"

namespace {

using dg::Digest;
using dg::Rng;

void ints(Rng& r, int* p, int n)
{
    for (int i = 0; i < n; ++i)
        p[i] = r.coin(4) ? static_cast<int>(static_cast<std::uint32_t>(r.next())) : r.irange(-50, 50);
}

void reals(Rng& r, double* p, int n)
{
    bool exact = r.coin(3);
    for (int i = 0; i < n; ++i) p[i] = exact ? r.grid(-4, 4) : r.uni(-10, 10);
}

// Rows times a fixed square matrix: c has rows x size elements, and the
// whole output buffer (beyond the result too) is digested.
template <class F>
void fixed(std::vector<dg::Entry>& out, const char* label, int rows, int size, F f)
{
    dg::run(out, label, 20, [=](Rng& r, Digest& d) {
        double a[16], b[16], c[20];
        reals(r, a, rows * size);
        reals(r, b, size * size);
        r.fill(c, 20, -1, 1);
        f(a, b, c);
        d.ds(c, 20);
    });
}

template <class F>
void rows_times(std::vector<dg::Entry>& out, const char* label, int size, F f)
{
    dg::run(out, label, 30, [=](Rng& r, Digest& d) {
        int n = r.irange(0, 11);
        double a[44], b[16], c[48];
        reals(r, a, n * size);
        reals(r, b, size * size);
        r.fill(c, 48, -1, 1);
        f(a, n, b, c);
        d.ds(c, 48);
    });
}

void square(Rng& r, double* a, int n)
{
    reals(r, a, n * n);
    if (n > 1 && r.coin(6)) {
        int i = r.irange(0, n - 1);
        for (int c = 0; c < n; ++c) a[i * n + c] = 0;
    }
}

template <class F>
void closed_det(std::vector<dg::Entry>& out, const char* label, int n, F f)
{
    dg::run(out, label, 40, [=](Rng& r, Digest& d) {
        double a[16];
        square(r, a, n);
        d.d(f(a));
        d.ds(a, n * n);
    });
}

template <class F>
void closed_inv(std::vector<dg::Entry>& out, const char* label, int n, F f)
{
    dg::run(out, label, 40, [=](Rng& r, Digest& d) {
        double a[16];
        square(r, a, n);
        d.i32(f(a));
        d.ds(a, n * n);
    });
}

// Sums and differences of m x n matrices in 5 x 5 buffers, all digested;
// the real forms sometimes write over an operand (the first for a sum, the
// second for a difference).
template <class F>
void int_sum(std::vector<dg::Entry>& out, const char* label, F f)
{
    dg::run(out, label, 30, [=](Rng& r, Digest& d) {
        int m = r.irange(0, 5), n = r.irange(-1, 5);
        int a[25], b[25], c[25];
        ints(r, a, 25);
        ints(r, b, 25);
        ints(r, c, 25);
        f(a, b, m, n, c);
        d.is(c, 25);
    });
}

template <class F>
void real_sum(std::vector<dg::Entry>& out, const char* label, bool over_second, F f)
{
    dg::run(out, label, 30, [=](Rng& r, Digest& d) {
        int m = r.irange(0, 5), n = r.irange(-1, 5);
        double a[25], b[25], c[25];
        reals(r, a, 25);
        reals(r, b, 25);
        reals(r, c, 25);
        double* dst = r.coin(3) ? (over_second ? b : a) : c;
        f(a, b, m, n, dst);
        d.ds(dst, 25);
    });
}

void family(std::vector<dg::Entry>& out)
{
    int_sum(out, "mt_Add(int)", [](const int* a, const int* b, int m, int n, int* c) { mt_Add(a, b, m, n, c); });
    real_sum(out, "mt_Add(real)", false,
             [](const double* a, const double* b, int m, int n, double* c) { mt_Add(a, b, m, n, c); });
    dg::run(out, "mt_Add(complex)", 30, [](Rng& r, Digest& d) {
        int m = r.irange(0, 5), n = r.irange(0, 5);
        double ar[25], ai[25], br[25], bi[25], cr[25], ci[25];
        for (double* p : {ar, ai, br, bi, cr, ci}) reals(r, p, 25);
        double* dr = r.coin(3) ? ar : cr;
        double* di = dr == ar ? ai : ci;
        mt_Add(ar, ai, br, bi, m, n, dr, di);
        d.ds(dr, 25);
        d.ds(di, 25);
    });
    int_sum(out, "mt_Sub(int)", [](const int* a, const int* b, int m, int n, int* c) { mt_Sub(a, b, m, n, c); });
    real_sum(out, "mt_Sub(real)", true,
             [](const double* a, const double* b, int m, int n, double* c) { mt_Sub(a, b, m, n, c); });
    dg::run(out, "mt_Sub(complex)", 30, [](Rng& r, Digest& d) {
        int m = r.irange(0, 5), n = r.irange(0, 5);
        double ar[25], ai[25], br[25], bi[25], cr[25], ci[25];
        for (double* p : {ar, ai, br, bi, cr, ci}) reals(r, p, 25);
        mt_Sub(ar, ai, br, bi, m, n, cr, ci);
        d.ds(cr, 25);
        d.ds(ci, 25);
    });
    dg::run(out, "mt_Mul(int)", 30, [](Rng& r, Digest& d) {
        int m = r.irange(0, 6), n = r.irange(0, 9), k = r.irange(0, 6);
        int a[54], b[54], c[36];
        ints(r, a, 54);
        ints(r, b, 54);
        ints(r, c, 36);
        mt_Mul(a, b, m, n, k, c);
        d.is(c, 36);
    });
    dg::run(out, "mt_Mul(real)", 40, [](Rng& r, Digest& d) {
        int m = r.irange(0, 6), n = r.irange(0, 11), k = r.irange(0, 6);
        double a[66], b[66], c[36];
        reals(r, a, 66);
        reals(r, b, 66);
        reals(r, c, 36);
        mt_Mul(a, b, m, n, k, c);
        d.ds(c, 36);
    });
    dg::run(out, "mt_Mul(complex)", 40, [](Rng& r, Digest& d) {
        int m = r.irange(0, 5), n = r.irange(0, 10), k = r.irange(0, 5);
        double ar[50], ai[50], br[50], bi[50], cr[25], ci[25];
        for (double* p : {ar, ai, br, bi}) reals(r, p, 50);
        reals(r, cr, 25);
        reals(r, ci, 25);
        mt_Mul(ar, ai, br, bi, m, n, k, cr, ci);
        d.ds(cr, 25);
        d.ds(ci, 25);
    });
    dg::run(out, "mt_MulN1x1N", 30, [](Rng& r, Digest& d) {
        int n = r.irange(0, 9);
        double a[9], b[9], c[81];
        reals(r, a, 9);
        reals(r, b, 9);
        r.fill(c, 81, -1, 1);
        mt_MulN1x1N(a, n, b, c);
        d.ds(c, 81);
    });
    dg::run(out, "mt_Mul1NxN1", 30, [](Rng& r, Digest& d) {
        int n = r.irange(0, 19);
        double a[19], b[19], c[2];
        reals(r, a, 19);
        reals(r, b, 19);
        r.fill(c, 2, -1, 1);
        mt_Mul1NxN1(a, n, b, c);
        d.ds(c, 2);
    });
    fixed(out, "mt_Mul12x22", 1, 2, [](const double* a, const double* b, double* c) { mt_Mul12x22(a, b, c); });
    fixed(out, "mt_Mul22x22", 2, 2, [](const double* a, const double* b, double* c) { mt_Mul22x22(a, b, c); });
    rows_times(out, "mt_MulN2x22", 2, [](const double* a, int n, const double* b, double* c) { mt_MulN2x22(a, n, b, c); });
    fixed(out, "mt_Mul13x33", 1, 3, [](const double* a, const double* b, double* c) { mt_Mul13x33(a, b, c); });
    fixed(out, "mt_Mul23x33", 2, 3, [](const double* a, const double* b, double* c) { mt_Mul23x33(a, b, c); });
    fixed(out, "mt_Mul33x33", 3, 3, [](const double* a, const double* b, double* c) { mt_Mul33x33(a, b, c); });
    rows_times(out, "mt_MulN3x33", 3, [](const double* a, int n, const double* b, double* c) { mt_MulN3x33(a, n, b, c); });
    fixed(out, "mt_Mul14x44", 1, 4, [](const double* a, const double* b, double* c) { mt_Mul14x44(a, b, c); });
    fixed(out, "mt_Mul24x44", 2, 4, [](const double* a, const double* b, double* c) { mt_Mul24x44(a, b, c); });
    fixed(out, "mt_Mul34x44", 3, 4, [](const double* a, const double* b, double* c) { mt_Mul34x44(a, b, c); });
    fixed(out, "mt_Mul44x44", 4, 4, [](const double* a, const double* b, double* c) { mt_Mul44x44(a, b, c); });
    rows_times(out, "mt_MulN4x44", 4, [](const double* a, int n, const double* b, double* c) { mt_MulN4x44(a, n, b, c); });
    dg::run(out, "mt_Det", 40, [](Rng& r, Digest& d) {
        int n = r.irange(1, 9);
        double a[81];
        square(r, a, n);
        d.d(mt_Det(a, n));
        d.ds(a, n * n);
    });
    closed_det(out, "mt_Det2", 2, [](const double* a) { return mt_Det2(a); });
    closed_det(out, "mt_Det3", 3, [](const double* a) { return mt_Det3(a); });
    closed_det(out, "mt_Det4", 4, [](const double* a) { return mt_Det4(a); });
    dg::run(out, "mt_Inv(real)", 40, [](Rng& r, Digest& d) {
        int n = r.irange(0, 9);
        double a[81];
        square(r, a, n);
        int code = mt_Inv(a, n);
        d.i32(code);
        if (code == 1) d.ds(a, n * n);
    });
    dg::run(out, "mt_Inv(complex)", 40, [](Rng& r, Digest& d) {
        int n = r.irange(0, 8);
        double ar[64], ai[64];
        square(r, ar, n);
        square(r, ai, n);
        int code = mt_Inv(ar, ai, n);
        d.i32(code);
        if (code == 1) {
            d.ds(ar, n * n);
            d.ds(ai, n * n);
        }
    });
    closed_inv(out, "mt_Inv2", 2, [](double* a) { return mt_Inv2(a); });
    closed_inv(out, "mt_Inv3", 3, [](double* a) { return mt_Inv3(a); });
    closed_inv(out, "mt_Inv4", 4, [](double* a) { return mt_Inv4(a); });
}

int reg = dg::add_family(50, "matrix", &family);

}  // namespace
