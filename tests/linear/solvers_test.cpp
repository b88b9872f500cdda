// The linear solvers: the plain eliminations' bits at every vector width,
// residuals and width-independence where no plain copy is kept, the closed
// forms' defined bits, argument and threshold edges, scratch memory.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "foundation/cpu.h"
#include "reference.h"
#include "support/test_allocator.h"

namespace {

using Vec = std::vector<double>;
constexpr double kEps = 2.220446049250313e-16;

bool same_bits(const Vec& x, const Vec& y) { return x.size() == y.size() && (x.empty() || !std::memcmp(x.data(), y.data(), x.size() * 8)); }
std::uint64_t bits(double x) { std::uint64_t u; std::memcpy(&u, &x, 8); return u; }
Vec head(const Vec& v, std::size_t k) { return Vec(v.begin(), v.begin() + k); }

// Appends what a solver returns on copies of a and b, then b as written.
template <class F> void put(Vec& out, Vec a, Vec b, F solve)
{
    out.push_back(solve(a.data(), b.data())), out.insert(out.end(), b.begin(), b.end());
}

// Shape 0 random; 1 small integers, so magnitudes tie and the first met
// pivots; 2 every third entry 1e-17, which the sparse solver skips; 3 a NaN
// that is never a pivot.
Vec matrix(std::mt19937_64& rng, std::size_t rows, std::size_t cols, int shape = 0)
{
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    std::uniform_int_distribution<int> t(-3, 3);
    Vec a(rows * cols);
    for (std::size_t i = 0; i < a.size(); ++i) a[i] = shape == 1 ? t(rng) : shape == 2 && i % 3 == 0 ? 1e-17 : u(rng);
    if (shape == 3 && rows > 2 && cols > 2) a[cols + 1] = std::numeric_limits<double>::quiet_NaN();
    return a;
}

// Largest |A x - b| over m right-hand sides, A complex n x n (ai may be empty).
double residual(const Vec& ar, const Vec& ai, const Vec& xr, const Vec& xi, const Vec& br, const Vec& bi, std::size_t n, std::size_t m)
{
    double worst = 0.0;
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t v = 0; v < m; ++v) {
            double sr = -br[i * m + v], si = bi.empty() ? 0.0 : -bi[i * m + v];
            for (std::size_t j = 0; j < n; ++j) {
                const double yr = ar[i * n + j], yi = ai.empty() ? 0.0 : ai[i * n + j], ur = xr[j * m + v], ui = xi.empty() ? 0.0 : xi[j * m + v];
                sr += yr * ur - yi * ui, si += yr * ui + yi * ur;
            }
            worst = std::fmax(worst, std::hypot(sr, si));
        }
    return worst;
}

// Sizes reach every kernel's unrolled loop and remainder at every width.
const std::size_t kSizes[] = {1, 2, 3, 4, 5, 7, 8, 9, 12, 16, 17, 23, 33, 47, 70};
const qel::SimdLevel kLevels[] = {qel::SimdLevel::kBaseline, qel::SimdLevel::kAvx2, qel::SimdLevel::kAvx512};

TEST(AtEveryWidth, RealEliminationsGiveThePlainBitsTheOthersSolveAlike)
{
    std::mt19937_64 rng(1);
    for (std::size_t n : kSizes)
        for (int shape = 0; shape < 4; ++shape) {
            const int in = static_cast<int>(n);
            const std::size_t h = n > 5 ? 5 : n - 1, w = 2 * h + 1;
            const Vec a = matrix(rng, n, n, shape), ai = matrix(rng, n, n, shape), b = matrix(rng, n, 3), bi = matrix(rng, n, 3);
            const Vec b1 = head(b, n), bi1 = head(bi, n), b2 = head(b, 2 * n), bi2 = head(bi, 2 * n);
            Vec want, first;   // real: the plain results, each solver's return first
            put(want, a, b1, [n](double* x, double* y) { return ref::gauss(x, y, n); });
            put(want, a, b, [n](double* x, double* y) { return ref::gauss_jordan(x, y, n, 3); });
            put(want, a, b1, [n](double* x, double* y) { return ref::gauss_jordan(x, y, n, 1, true); });
            // A band of half-width up to 5 packed left-justified; filler past
            // column n - 1 must never be read as a coefficient.
            Vec band(n * w, 0.0), dense(n * n, 0.0);
            for (std::size_t i = 0; i < n; ++i)
                for (std::size_t p = 0, c = (i > h ? i - h : 0); p < w; ++p, ++c)
                    if (c < n) band[i * w + p] = dense[i * n + c] = a[i * n + c];
            for (qel::SimdLevel level : kLevels) {
                qel::cap_simd_level(level);
                SCOPED_TRACE(::testing::Message() << "level " << int(level) << " n " << n << " shape " << shape);
                Vec got, xr = a, xi = ai, yr = b1, yi = bi1, zr = a, zi = ai, vr = b2, vi = bi2, pb = band, bb = b2;
                put(got, a, b1, [in](double* x, double* y) { return linear_Gauss(x, y, in); });
                put(got, a, b, [in](double* x, double* y) { return linear_GaussJordan(x, y, in, 3); });
                put(got, a, b1, [in](double* x, double* y) { return linear_SparsenessGaussJordan(x, in, y); });
                EXPECT_TRUE(same_bits(got, want));
                const int cg = linear_Gauss(xr.data(), xi.data(), in, yr.data(), yi.data());
                const int cj = linear_GaussJordan(zr.data(), zi.data(), vr.data(), vi.data(), in, 2);
                const int bd = linear_GaussBand(pb.data(), bb.data(), in, int(h), 2);
                for (const Vec* v : {&yr, &yi, &vr, &vi, &bb}) got.insert(got.end(), v->begin(), v->end());
                got.insert(got.end(), {double(cg), double(cj), double(bd)});
                if (first.empty()) first = got;
                EXPECT_TRUE(same_bits(got, first)) << "the widths agree";
                if (shape == 3) continue;
                const double tol = 1e-9 * n;
                EXPECT_LT(cg == 1 ? residual(a, ai, yr, yi, b1, bi1, n, 1) : 0.0, tol);
                EXPECT_LT(cj == 1 ? residual(a, ai, vr, vi, b2, bi2, n, 2) : 0.0, tol);
                EXPECT_LT(bd == 2 ? residual(dense, {}, bb, {}, b2, {}, n, 2) : 0.0, tol);
                EXPECT_EQ(cg, cj) << "a regular matrix is regular to both";
                EXPECT_TRUE(shape != 0 || (cg == 1 && bd == 2));
            }
        }
    qel::cap_simd_level(qel::SimdLevel::kAvx512);
}

TEST(ClosedForms, DefinedBitsChoiceOfEquationsAndFallbacks)
{
    // want: the bits of b after; empty: b untouched.
    struct Row { int n; Vec a, b; int result; std::vector<std::uint64_t> want; };
    // 2: 23 * (1/3) and -5 * (1/3), where a true division would round
    // differently; the threshold is inclusive. 3: a minor of equations 0 and
    // 1 that vanishes takes equations 0 and 2; a first row (a00, 0, 0)
    // equations 1 and 2; where D passes but no minor does, full elimination,
    // which may find a pivot below the threshold; a minor at the threshold
    // is refused. 4: D passes, the second pair's determinant is at the
    // threshold: full elimination, whose last pivot is too.
    const Row rows[] = {
        {2, {1, 1, 1, 4}, {6, 1}, 1, {0x401eaaaaaaaaaaaau, 0xbffaaaaaaaaaaaaau}}, {2, {kEps, 0, 0, 1}, {1, 2}, 0, {}},
        {2, {2.3e-16, 0, 0, 1}, {1, 2}, 1, {bits(1.0 * (1.0 / 2.3e-16)), bits(2.3e-16 * 2.0 * (1.0 / 2.3e-16))}},
        {3, {4, 1, 2, 1, 5, 3, 2, 1, 6}, {1, 2, 3}, 1, {0xbf96c16c16c16c17u, 0x3fbc71c71c71c71bu, 0x3fdf49f49f49f49du}},
        {3, {2, 0, 1, 1, 0, 3, 5, 1, 1}, {1, 2, 3}, 1, {0x3fc999999999999au, 0x3ff6666666666666u, 0x3fe3333333333333u}},
        {3, {2, 0, 0, 0, 3, 0, 0, 0, 4}, {1, 2, 3}, 1, {bits(0.5), bits(8.0 * (1.0 / 12.0)), bits(0.75)}}, {3, {1, 2, 3, 2, 4, 6, 1, 1, 1}, {1, 2, 3}, 0, {}},
        {3, {1e10, 0, 0, 0, 1e-10, 0, 0, 0, 1e-10}, {1, 2, 3}, 1, {bits(1e-10), bits(2e10), bits(3e10)}},
        {3, {100, 0, 0, 0, 1e-17, 0, 0, 0, 1}, {1, 2, 3}, 0, {}}, {3, {2, 0, 0, 0, kEps, 0, 0, 0, 1}, {1, 2, 3}, 0, {}},
        {4, {5, 1, 2, 0, 1, 6, 1, 2, 2, 1, 7, 1, 0, 2, 1, 8}, {1, 2, 3, 4}, 1,
         {0x3fa3f4072ee3ddaeu, 0x3fc0761f86af307du, 0x3fd5a635dfacfe9au, 0x3fdb3c7553347a1du}},
        {4, {1e3, 0, 0, 0, 0, 1e3, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1e-17}, {1, 2, 3, 4}, 0, {}},
        {4, {1, 2, 3, 4, 2, 4, 6, 8, 0, 1, 0, 1, 1, 0, 1, 0}, {1, 2, 3, 4}, 0, {}},
        {4, {1, 0, 2, 0, 0, 1, -1, 0, 0, 0, 3, 0, 0, 0, -3, kEps}, {1, 2, 3, 4}, 0, {}},
    };
    for (const Row& r : rows) {
        Vec a = r.a, b = r.b;
        EXPECT_EQ((r.n == 2 ? linear_Gauss2 : r.n == 3 ? linear_Gauss3 : linear_Gauss4)(a.data(), b.data()), r.result) << r.n << " " << r.a[0];
        EXPECT_TRUE(same_bits(a, r.a)) << "a is never written";
        for (std::size_t i = 0; i < b.size(); ++i)
            EXPECT_EQ(bits(b[i]), r.want.empty() ? bits(r.b[i]) : r.want[i]) << r.n << " " << r.a[0] << " x" << i;
    }
}

TEST(SolverEdges, OrdersThresholdsAndWhatIsWritten)
{
    // (1 + 2i) x = 5 gives 1 - 2i exactly; the complex pivot test is on the
    // squared modulus; [[1, 0], [0, 1e-9 i]] fails on its last pivot.
    double ar[] = {1, 1.49e-8, 1, 0, 0, 0, 0, 0, 0, 0}, ai[] = {2, 0, 0, 0, 0, 1e-9, 0, 0, 0, 0}, br[2] = {5, 1}, bi[2] = {};
    EXPECT_TRUE(linear_Gauss(ar, ai, 1, br, bi) == 1 && br[0] == 1.0 && bi[0] == -2.0);
    EXPECT_EQ(linear_Gauss(ar + 1, ai + 1, 1, br, bi) + linear_Gauss(ar + 2, ai + 2, 2, br, bi) + linear_Gauss(ar + 6, ai + 6, 2, br, bi), 0);

    double a = 5.0, b = 7.0;   // orders and half-widths out of range: nothing solved or written
    const int band[][4] = {{0, 0, 1, 2}, {-1, 0, 1, 0}, {1, -1, 1, 0}, {1, 0, -1, 0}};
    for (const auto& c : band) EXPECT_EQ(linear_GaussBand(&a, &b, c[0], c[1], c[2]), c[3]) << c[0] << c[1] << c[2];
    EXPECT_TRUE(a == 5.0 && b == 7.0);

    // Tridiagonal: a zero pivot, a vanishing second pivot (b reduced but not
    // solved), one unknown, none, a negative order.
    const struct { Vec t, b; int n, result; Vec after; } tri[] = {{{0, 1, 1, 1}, {1, 1}, 2, 0, {1, 1}},
        {{2, 1, 4, 2}, {1, 1}, 2, 0, {0.5, -1}}, {{8}, {2}, 1, 2, {0.25}}, {{8}, {2}, 0, 2, {2}}, {{8}, {2}, -2, 0, {2}}};
    for (auto r : tri) EXPECT_TRUE(linear_TrianglePullup(r.t.data(), r.n, r.b.data()) == r.result && r.b == r.after) << r.n;
    // Gauss-Seidel: row 1 not dominant gives -1 with x zeroed up to that row.
    Vec g{4, 1, 0, 3, 2, 0, 0, 0, 1}, gb{1, 1, 1}, x{9, 9, 9};
    EXPECT_TRUE(linear_GaussSeidel(g.data(), gb.data(), 3, x.data(), 1e-12) == -1 && x == (Vec{0, 0, 9}));
}

// The solvers that keep a column record, for order n: a regular matrix
// (every imaginary entry 0.25) or a zero one.
struct Allocating { const char* name; std::size_t a_planes, b_size; int (*call)(int n, double* a, double* b); };

const Allocating kAllocating[] = {
    {"Gauss", 1, 1, [](int n, double* a, double* b) { return linear_Gauss(a, b, n); }},
    {"Gauss complex", 2, 2, [](int n, double* a, double* b) { return linear_Gauss(a, a + n * n, n, b, b + n); }},
    {"GaussJordan", 1, 2, [](int n, double* a, double* b) { return linear_GaussJordan(a, b, n, 2); }},
    {"GaussJordan complex", 2, 4, [](int n, double* a, double* b) { return linear_GaussJordan(a, a + n * n, b, b + 2 * n, n, 2); }},
    {"SparsenessGaussJordan", 1, 1, [](int n, double* a, double* b) { return linear_SparsenessGaussJordan(a, n, b); }},
};

TEST(Scratch, OneBlockOfNIntsBackOnEveryPathAndFailureTouchesNothing)
{
    for (const Allocating& f : kAllocating)
        for (int n : {0, 1, 4, 5})
            for (int mode = 0; mode < (n ? 3 : 2); ++mode) {   // regular, singular, no memory
                Vec a(std::size_t(n) * n, mode == 1 ? 0.0 : 0.5), b(f.b_size * n, 1.0);
                for (int i = 0; i < n && mode != 1; ++i) a[i * n + i] = 4.0 + i;
                a.resize(f.a_planes * n * n, mode == 1 ? 0.0 : 0.25);
                const Vec a_in = a, b_in = b;
                testalloc::Scope scope;
                testalloc::fail_at(mode == 2 ? 1 : 0);
                EXPECT_EQ(f.call(n, a.data(), b.data()), mode == 0 || n == 0 ? 1 : 0) << f.name << n << mode;
                testalloc::fail_at(0);
                EXPECT_TRUE(testalloc::requests() == std::vector<std::uint32_t>{std::uint32_t(4 * n)} && scope.leaked() == 0) << f.name;
                EXPECT_TRUE(mode != 2 || (same_bits(a, a_in) && same_bits(b, b_in))) << f.name;
            }
    testalloc::Scope scope;
    double a[4] = {1, 2, 3, 4}, b[4] = {5, 6, 7, 8};
    EXPECT_EQ(linear_Gauss(a, b, -1) + linear_Gauss(a, a + 2, -3, b, b + 2) + linear_SparsenessGaussJordan(a, -2, b), 0);
    EXPECT_EQ(linear_GaussJordan(a, b, -1, 1) + linear_GaussJordan(a, b, 2, -1), 0);
    EXPECT_EQ(linear_GaussJordan(a, a + 2, b, b + 2, -1, 1) + linear_GaussJordan(a, a + 2, b, b + 2, 1, -1), 0);
    EXPECT_TRUE(testalloc::requests().empty() && Vec(a, a + 4) == (Vec{1, 2, 3, 4}) && Vec(b, b + 4) == (Vec{5, 6, 7, 8}));
}

}  // namespace
