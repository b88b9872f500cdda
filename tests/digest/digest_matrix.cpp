// Digests of the matrix sums, products, determinants and inversions. The
// overloaded forms are passed as generic lambdas, so that the overload is
// chosen by the element type of the row's buffers.
#include "QELMath.h"
#include "digest.h"

namespace {

using namespace dg;

void values(Rng& r, int* p, int n)
{
    for (int i = 0; i < n; ++i)
        p[i] = r.coin(4) ? static_cast<int>(static_cast<std::uint32_t>(r.next())) : r.irange(-50, 50);
}

void values(Rng& r, double* p, int n) { r.reals(p, n); }

// Sums and differences of m x n matrices in 5 x 5 buffers, all digested;
// the real forms sometimes write over an operand (`over`: 0 the first for a
// sum, 1 the second for a difference, -1 never).
template <class T, class F>
void sum(Out& out, const char* label, int over, F f)
{
    run(out, label, 30, [=](Rng& r, Digest& d) {
        int m = r.irange(0, 5), n = r.irange(-1, 5);
        T a[25], b[25], c[25];
        values(r, a, 25); values(r, b, 25); values(r, c, 25);
        T* dst = over >= 0 && r.coin(3) ? (over ? b : a) : c;
        f(a, b, m, n, dst);
        d.each(dst, 25);
    });
}

// The complex forms: ar, ai, br, bi, cr, ci; the sum sometimes into (ar, ai).
template <class F>
void complex_sum(Out& out, const char* label, bool over, F f)
{
    run(out, label, 30, [=](Rng& r, Digest& d) {
        int m = r.irange(0, 5), n = r.irange(0, 5), o = 4;
        double x[6][25];
        for (auto& p : x) values(r, p, 25);
        if (over && r.coin(3)) o = 0;
        f(x[0], x[1], x[2], x[3], m, n, x[o], x[o + 1]);
        d.each(x[o], 25); d.each(x[o + 1], 25);
    });
}

// m x n times n x k into a 6 x 6 buffer, all digested.
template <class T, class F>
void mul(Out& out, const char* label, int calls, int nmax, F f)
{
    run(out, label, calls, [=](Rng& r, Digest& d) {
        int m = r.irange(0, 6), n = r.irange(0, nmax), k = r.irange(0, 6);
        T a[66], b[66], c[36];
        values(r, a, 6 * nmax); values(r, b, 6 * nmax); values(r, c, 36);
        f(a, b, m, n, k, c);
        d.each(c, 36);
    });
}

// Rows times a fixed square matrix: c has rows x size elements, and the
// whole output buffer (beyond the result too) is digested.
template <class F>
void fixed(Out& out, const char* label, int rows, int size, F f)
{
    run(out, label, 20, [=](Rng& r, Digest& d) {
        double a[16], b[16], c[20];
        values(r, a, rows * size); values(r, b, size * size); r.fill(c, 20, -1, 1);
        f(a, b, c);
        d.each(c, 20);
    });
}

template <class F>
void rows_times(Out& out, const char* label, int size, F f)
{
    run(out, label, 30, [=](Rng& r, Digest& d) {
        int n = r.irange(0, 11);
        double a[44], b[16], c[48];
        values(r, a, n * size); values(r, b, size * size); r.fill(c, 48, -1, 1);
        f(a, n, b, c);
        d.each(c, 48);
    });
}

void square(Rng& r, double* a, int n)
{
    values(r, a, n * n);
    if (n > 1 && r.coin(6)) {
        int i = r.irange(0, n - 1);
        for (int c = 0; c < n; ++c) a[i * n + c] = 0;
    }
}

// Determinant or inversion of a fixed size: the result and the matrix.
template <class F>
void closed(Out& out, const char* label, int n, F f)
{
    run(out, label, 40, [=](Rng& r, Digest& d) {
        double a[16];
        square(r, a, n);
        d(f(a));
        d.each(a, n * n);
    });
}

// Inversions, real (one plane of numbers) or complex (two); a failed one leaves the
// matrix without defined content, so only its result code is digested.
template <int Planes, class F>
void inversion(Out& out, const char* label, int nmax, F f)
{
    run(out, label, 40, [=](Rng& r, Digest& d) {
        int n = r.irange(0, nmax);
        double a[Planes][81];
        for (auto& p : a) square(r, p, n);
        int code = f(a, n);
        d(code);
        if (code == 1) for (auto& p : a) d.each(p, n * n);
    });
}

void family(Out& out)
{
    sum<int>(out, "mt_Add(int)", -1, [](auto... a) { mt_Add(a...); });
    sum<double>(out, "mt_Add(real)", 0, [](auto... a) { mt_Add(a...); });
    complex_sum(out, "mt_Add(complex)", true, [](auto... a) { mt_Add(a...); });
    sum<int>(out, "mt_Sub(int)", -1, [](auto... a) { mt_Sub(a...); });
    sum<double>(out, "mt_Sub(real)", 1, [](auto... a) { mt_Sub(a...); });
    complex_sum(out, "mt_Sub(complex)", false, [](auto... a) { mt_Sub(a...); });
    mul<int>(out, "mt_Mul(int)", 30, 9, [](auto... a) { mt_Mul(a...); });
    mul<double>(out, "mt_Mul(real)", 40, 11, [](auto... a) { mt_Mul(a...); });
    run(out, "mt_Mul(complex)", 40, [](Rng& r, Digest& d) {
        int m = r.irange(0, 5), n = r.irange(0, 10), k = r.irange(0, 5);
        double a[4][50], cr[25], ci[25];
        for (auto& p : a) values(r, p, 50);
        values(r, cr, 25); values(r, ci, 25);
        mt_Mul(a[0], a[1], a[2], a[3], m, n, k, cr, ci);
        d.each(cr, 25); d.each(ci, 25);
    });
    run(out, "mt_MulN1x1N", 30, [](Rng& r, Digest& d) {
        int n = r.irange(0, 9);
        double a[9], b[9], c[81];
        values(r, a, 9); values(r, b, 9); r.fill(c, 81, -1, 1);
        mt_MulN1x1N(a, n, b, c);
        d.each(c, 81);
    });
    run(out, "mt_Mul1NxN1", 30, [](Rng& r, Digest& d) {
        int n = r.irange(0, 19);
        double a[19], b[19], c[2];
        values(r, a, 19); values(r, b, 19); r.fill(c, 2, -1, 1);
        mt_Mul1NxN1(a, n, b, c);
        d.each(c, 2);
    });
    fixed(out, "mt_Mul12x22", 1, 2, mt_Mul12x22);
    fixed(out, "mt_Mul22x22", 2, 2, mt_Mul22x22);
    rows_times(out, "mt_MulN2x22", 2, mt_MulN2x22);
    fixed(out, "mt_Mul13x33", 1, 3, mt_Mul13x33);
    fixed(out, "mt_Mul23x33", 2, 3, mt_Mul23x33);
    fixed(out, "mt_Mul33x33", 3, 3, mt_Mul33x33);
    rows_times(out, "mt_MulN3x33", 3, mt_MulN3x33);
    fixed(out, "mt_Mul14x44", 1, 4, mt_Mul14x44);
    fixed(out, "mt_Mul24x44", 2, 4, mt_Mul24x44);
    fixed(out, "mt_Mul34x44", 3, 4, mt_Mul34x44);
    fixed(out, "mt_Mul44x44", 4, 4, mt_Mul44x44);
    rows_times(out, "mt_MulN4x44", 4, mt_MulN4x44);
    run(out, "mt_Det", 40, [](Rng& r, Digest& d) {
        int n = r.irange(1, 9);
        double a[81];
        square(r, a, n);
        d(mt_Det(a, n));
        d.each(a, n * n);
    });
    closed(out, "mt_Det2", 2, mt_Det2);
    closed(out, "mt_Det3", 3, mt_Det3);
    closed(out, "mt_Det4", 4, mt_Det4);
    inversion<1>(out, "mt_Inv(real)", 9, [](auto a, int n) { return mt_Inv(a[0], n); });
    inversion<2>(out, "mt_Inv(complex)", 8, [](auto a, int n) { return mt_Inv(a[0], a[1], n); });
    closed(out, "mt_Inv2", 2, mt_Inv2);
    closed(out, "mt_Inv3", 3, mt_Inv3);
    closed(out, "mt_Inv4", 4, mt_Inv4);
}

int reg = dg::add_family(50, "matrix", &family);

}  // namespace
