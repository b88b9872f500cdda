// The linear solvers: the plain elimination's bits at every vector width,
// the closed forms' defined bits and fallbacks, argument and threshold
// edges, and scratch memory on every path.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
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

bool same_bits(const Vec& x, const Vec& y)
{
    return x.size() == y.size() && (x.empty() || std::memcmp(x.data(), y.data(), x.size() * 8) == 0);
}

std::uint64_t bits(double x)
{
    std::uint64_t u;
    std::memcpy(&u, &x, sizeof u);
    return u;
}

// Random entries, or small integers so that magnitudes tie and the
// first-met rule decides the pivots, or random with a NaN that is never a
// pivot.
Vec matrix(std::mt19937_64& rng, std::size_t rows, std::size_t cols, int shape = 0)
{
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    std::uniform_int_distribution<int> t(-3, 3);
    Vec a(rows * cols);
    for (double& x : a) x = shape == 1 ? t(rng) : u(rng);
    if (shape == 2 && rows > 2 && cols > 2) a[cols + 1] = std::numeric_limits<double>::quiet_NaN();
    return a;
}

class AtEveryWidth : public ::testing::Test {
protected:
    void TearDown() override { qel::cap_simd_level(qel::SimdLevel::kAvx512); }
};

// Sizes reach every kernel's unrolled loop and remainder at every width.
const std::size_t kSizes[] = {1, 2, 3, 4, 5, 7, 8, 9, 12, 16, 17, 23, 33, 47, 70};
const qel::SimdLevel kLevels[] = {qel::SimdLevel::kBaseline, qel::SimdLevel::kAvx2, qel::SimdLevel::kAvx512};

TEST_F(AtEveryWidth, EliminationsGiveThePlainTranscriptionsBits)
{
    for (qel::SimdLevel level : kLevels) {
        qel::cap_simd_level(level);
        std::mt19937_64 rng(1);
        for (std::size_t n : kSizes) {
            const int in = static_cast<int>(n);
            for (int shape = 0; shape < 3; ++shape) {
                SCOPED_TRACE(::testing::Message() << "level " << int(level) << " n " << n << " shape " << shape);
                Vec a = matrix(rng, n, n, shape), b = matrix(rng, n, 3, shape);
                Vec ra = a, rb = b, b1(b.begin(), b.begin() + n), rb1 = b1;
                ASSERT_EQ(linear_Gauss(a.data(), b1.data(), in), ref::gauss(ra.data(), rb1.data(), n));
                EXPECT_TRUE(same_bits(b1, rb1));
                a = ra = matrix(rng, n, n, shape);
                ASSERT_EQ(linear_GaussJordan(a.data(), b.data(), in, 3), ref::gauss_jordan(ra.data(), rb.data(), n, 3));
                EXPECT_TRUE(same_bits(b, rb));
                a = ra = matrix(rng, n, n, shape);
                b1 = rb1 = matrix(rng, n, 1);
                for (std::size_t i = 0; i < n * n; i += 3) a[i] = ra[i] = shape ? 1e-17 : 0.0;
                ASSERT_EQ(linear_SparsenessGaussJordan(a.data(), in, b1.data()),
                          ref::sparse_gauss_jordan(ra.data(), n, rb1.data()));
                EXPECT_TRUE(same_bits(b1, rb1));
                Vec ar = matrix(rng, n, n, shape), ai = matrix(rng, n, n, shape);
                Vec br = matrix(rng, n, 2), bi = matrix(rng, n, 2);
                Vec rar = ar, rai = ai, rbr = br, rbi = bi, cbr(br.begin(), br.begin() + n), cbi(bi.begin(), bi.begin() + n);
                Vec rcbr = cbr, rcbi = cbi;
                ASSERT_EQ(linear_Gauss(ar.data(), ai.data(), in, cbr.data(), cbi.data()),
                          ref::cgauss(rar.data(), rai.data(), n, rcbr.data(), rcbi.data()));
                EXPECT_TRUE(same_bits(cbr, rcbr) && same_bits(cbi, rcbi));
                ar = rar = matrix(rng, n, n, shape), ai = rai = matrix(rng, n, n, shape);
                ASSERT_EQ(linear_GaussJordan(ar.data(), ai.data(), br.data(), bi.data(), in, 2),
                          ref::cgauss_jordan(rar.data(), rai.data(), rbr.data(), rbi.data(), n, 2));
                EXPECT_TRUE(same_bits(br, rbr) && same_bits(bi, rbi));
                // A band of half-width up to 5 packed left-justified; filler
                // past column n - 1 must never be read as a coefficient.
                const std::size_t h = n > 5 ? 5 : n - 1, w = 2 * h + 1;
                Vec band(n * w, 0.0), bb = matrix(rng, n, 2), rbb = bb;
                std::uniform_real_distribution<double> u(-1.0, 1.0);
                for (std::size_t i = 0; i < n; ++i)
                    for (std::size_t p = 0; p < w; ++p)
                        band[i * w + p] = (i > h ? i - h : 0) + p < n ? u(rng) : 0.0;
                Vec rband = band;
                ASSERT_EQ(linear_GaussBand(band.data(), bb.data(), in, int(h), 2),
                          ref::gauss_band(rband.data(), rbb.data(), n, h, 2));
                EXPECT_TRUE(same_bits(bb, rbb));
            }
        }
    }
}

TEST(ClosedForms, DefinedBitsChoiceOfEquationsAndFallbacks)
{
    struct Row {
        int n;
        Vec a, b;
        int result;
        std::vector<std::uint64_t> want;   // bits of b after; empty: b untouched
    };
    const Row rows[] = {
        // 23 * (1/3) and -5 * (1/3): a true division would round differently.
        {2, {1, 1, 1, 4}, {6, 1}, 1, {0x401eaaaaaaaaaaaau, 0xbffaaaaaaaaaaaaau}},
        {2, {kEps, 0, 0, 1}, {1, 2}, 0, {}},   // the threshold is inclusive
        {2, {2.3e-16, 0, 0, 1}, {1, 2}, 1, {bits(1.0 * (1.0 / 2.3e-16)), bits(2.3e-16 * 2.0 * (1.0 / 2.3e-16))}},
        {3, {4, 1, 2, 1, 5, 3, 2, 1, 6}, {1, 2, 3}, 1, {0xbf96c16c16c16c17u, 0x3fbc71c71c71c71bu, 0x3fdf49f49f49f49du}},
        // Minor of equations 0 and 1 vanishes: equations 0 and 2.
        {3, {2, 0, 1, 1, 0, 3, 5, 1, 1}, {1, 2, 3}, 1, {0x3fc999999999999au, 0x3ff6666666666666u, 0x3fe3333333333333u}},
        // First row (a00, 0, 0): equations 1 and 2.
        {3, {2, 0, 0, 0, 3, 0, 0, 0, 4}, {1, 2, 3}, 1, {bits(0.5), bits(8.0 * (1.0 / 12.0)), bits(0.75)}},
        {3, {1, 2, 3, 2, 4, 6, 1, 1, 1}, {1, 2, 3}, 0, {}},
        // D passes but no minor does: full elimination, which here finds a
        // pivot below the threshold.
        {3, {1e10, 0, 0, 0, 1e-10, 0, 0, 0, 1e-10}, {1, 2, 3}, 1, {bits(1e-10), bits(2e10), bits(3e10)}},
        {3, {100, 0, 0, 0, 1e-17, 0, 0, 0, 1}, {1, 2, 3}, 0, {}},
        {4, {5, 1, 2, 0, 1, 6, 1, 2, 2, 1, 7, 1, 0, 2, 1, 8}, {1, 2, 3, 4}, 1,
         {0x3fa3f4072ee3ddaeu, 0x3fc0761f86af307du, 0x3fd5a635dfacfe9au, 0x3fdb3c7553347a1du}},
        {4, {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, {1.5, -2, 3.25, 4}, 1, {bits(1.5), bits(-2.0), bits(3.25), bits(4.0)}},
        {4, {1e3, 0, 0, 0, 0, 1e3, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1e-17}, {1, 2, 3, 4}, 0, {}},
        {4, {1, 2, 3, 4, 2, 4, 6, 8, 0, 1, 0, 1, 1, 0, 1, 0}, {1, 2, 3, 4}, 0, {}},
    };
    for (const Row& r : rows) {
        Vec a = r.a, b = r.b;
        const int got = r.n == 2 ? linear_Gauss2(a.data(), b.data())
                                 : r.n == 3 ? linear_Gauss3(a.data(), b.data()) : linear_Gauss4(a.data(), b.data());
        EXPECT_EQ(got, r.result) << r.n << " " << r.a[0];
        EXPECT_TRUE(same_bits(a, r.a)) << "a is never written";
        for (std::size_t i = 0; i < b.size(); ++i)
            EXPECT_EQ(bits(b[i]), r.want.empty() ? bits(r.b[i]) : r.want[i]) << r.n << " " << r.a[0] << " x" << i;
    }
}

TEST(SolverEdges, OrdersThresholdsAndWhatIsWritten)
{
    // (1 + 2i) x = 5 gives 1 - 2i exactly; the complex pivot test is on the
    // squared modulus against the threshold.
    double ar = 1, ai = 2, br = 5, bi = 0;
    ASSERT_EQ(linear_Gauss(&ar, &ai, 1, &br, &bi), 1);
    EXPECT_TRUE(br == 1.0 && bi == -2.0);
    ar = 1.49e-8, ai = 0, br = 1;
    EXPECT_EQ(linear_Gauss(&ar, &ai, 1, &br, &bi), 0);
    ar = 1.5e-8, ai = 0;
    EXPECT_EQ(linear_Gauss(&ar, &ai, 1, &br, &bi), 1);
    // [[0, i], [2, 0]] x = [1, 4]: x = [2, -i] after an off-diagonal pivot;
    // the last pivot of [[1, 0], [0, 1e-9 i]] fails on its modulus.
    Vec zr{0, 0, 2, 0}, zi{0, 1, 0, 0}, vr{1, 4}, vi{0, 0};
    ASSERT_EQ(linear_Gauss(zr.data(), zi.data(), 2, vr.data(), vi.data()), 1);
    EXPECT_TRUE(vr == (Vec{2, 0}) && vi == (Vec{0, -1}));
    zr = {1, 0, 0, 0}, zi = {0, 0, 0, 1e-9}, vr = {1, 1}, vi = {0, 0};
    EXPECT_EQ(linear_Gauss(zr.data(), zi.data(), 2, vr.data(), vi.data()), 0);
    zr = {0, 0, 0, 0}, zi = {0, 0, 0, 0};
    EXPECT_EQ(linear_Gauss(zr.data(), zi.data(), 2, vr.data(), vi.data()), 0);

    double a = 5.0, b = 7.0;
    const int band[][4] = {{0, 0, 1, 2}, {-1, 0, 1, 0}, {1, -1, 1, 0}, {1, 0, -1, 0}};
    for (const auto& c : band) EXPECT_EQ(linear_GaussBand(&a, &b, c[0], c[1], c[2]), c[3]) << c[0] << c[1] << c[2];
    EXPECT_TRUE(a == 5.0 && b == 7.0);

    // Tridiagonal: a zero pivot, a vanishing second pivot (b reduced but not
    // solved), one unknown, none, a negative order.
    Vec t{0, 1, 1, 1}, tb{1, 1};
    EXPECT_EQ(linear_TrianglePullup(t.data(), 2, tb.data()), 0);
    EXPECT_EQ(tb, (Vec{1, 1}));
    t = {2, 1, 4, 2}, tb = {1, 1};
    EXPECT_EQ(linear_TrianglePullup(t.data(), 2, tb.data()), 0);
    EXPECT_EQ(tb, (Vec{0.5, -1}));
    double one = 8.0, rhs = 2.0;
    EXPECT_EQ(linear_TrianglePullup(&one, 1, &rhs), 2);
    EXPECT_EQ(rhs, 0.25);
    EXPECT_EQ(linear_TrianglePullup(&one, 0, &rhs), 2);
    EXPECT_EQ(linear_TrianglePullup(&one, -2, &rhs), 0);
    EXPECT_EQ(rhs, 0.25);
}

// The solvers that keep a column record, for order n: a regular matrix
// (imaginary parts 0.25) or a zero one.
struct Allocating {
    const char* name;
    std::size_t a_parts, b_size;
    std::function<int(int n, double* a, double* b)> call;
};

const Allocating kAllocating[] = {
    {"Gauss", 1, 1, [](int n, double* a, double* b) { return linear_Gauss(a, b, n); }},
    {"Gauss complex", 2, 2, [](int n, double* a, double* b) { return linear_Gauss(a, a + n * n, n, b, b + n); }},
    {"GaussJordan", 1, 2, [](int n, double* a, double* b) { return linear_GaussJordan(a, b, n, 2); }},
    {"GaussJordan complex", 2, 4,
     [](int n, double* a, double* b) { return linear_GaussJordan(a, a + n * n, b, b + 2 * n, n, 2); }},
    {"SparsenessGaussJordan", 1, 1, [](int n, double* a, double* b) { return linear_SparsenessGaussJordan(a, n, b); }},
};

void make(const Allocating& f, int n, bool singular, Vec& a, Vec& b)
{
    a.assign(std::size_t(n) * n, singular ? 0.0 : 0.5);
    for (int i = 0; i < n && !singular; ++i) a[i * n + i] = 4.0 + i;
    a.resize(f.a_parts * n * n, singular ? 0.0 : 0.25);
    b.assign(f.b_size * n, 1.0);
}

TEST(Scratch, OneBlockOfNIntsBackOnEveryPathAndFailureTouchesNothing)
{
    for (const Allocating& f : kAllocating) {
        for (int n : {0, 1, 5}) {
            for (bool singular : {false, true}) {
                Vec a, b;
                make(f, n, singular, a, b);
                testalloc::Scope scope;
                EXPECT_EQ(f.call(n, a.data(), b.data()), (singular && n > 0) ? 0 : 1) << f.name << n;
                EXPECT_EQ(testalloc::requests(), std::vector<std::uint32_t>{std::uint32_t(4 * n)}) << f.name;
                EXPECT_EQ(testalloc::frees(), 1u) << f.name;
                EXPECT_EQ(scope.leaked(), 0u) << f.name;
            }
        }
        Vec a, b;
        make(f, 4, false, a, b);
        const Vec a_in = a, b_in = b;
        testalloc::Scope scope;
        testalloc::fail_at(1);
        EXPECT_EQ(f.call(4, a.data(), b.data()), 0) << f.name;
        testalloc::fail_at(0);
        EXPECT_EQ(scope.leaked(), 0u) << f.name;
        EXPECT_TRUE(same_bits(a, a_in) && same_bits(b, b_in)) << f.name;
        EXPECT_EQ(f.call(4, a.data(), b.data()), 1) << f.name;
    }
    testalloc::Scope scope;
    double a[4] = {1, 2, 3, 4}, b[4] = {5, 6, 7, 8};
    EXPECT_EQ(linear_Gauss(a, b, -1), 0);
    EXPECT_EQ(linear_Gauss(a, a + 2, -3, b, b + 2), 0);
    EXPECT_EQ(linear_GaussJordan(a, b, -1, 1), 0);
    EXPECT_EQ(linear_GaussJordan(a, b, 2, -1), 0);
    EXPECT_EQ(linear_GaussJordan(a, a + 2, b, b + 2, -1, 1), 0);
    EXPECT_EQ(linear_GaussJordan(a, a + 2, b, b + 2, 1, -1), 0);
    EXPECT_EQ(linear_SparsenessGaussJordan(a, -2, b), 0);
    EXPECT_TRUE(testalloc::requests().empty());
    EXPECT_TRUE(Vec(a, a + 4) == (Vec{1, 2, 3, 4}) && Vec(b, b + 4) == (Vec{5, 6, 7, 8}));
}

TEST(GaussSeidel, DominanceFirstThenConvergence)
{
    // Converges from zero whatever x holds; row 1 not dominant: -1 with x
    // zeroed up to that row and the rest as it was.
    Vec a{4, 1, 1, 4}, b{5, 5}, x{9, 9};
    EXPECT_EQ(linear_GaussSeidel(a.data(), b.data(), 2, x.data(), 1e-12), 1);
    EXPECT_NEAR(x[0], 1.0, 1e-12);
    EXPECT_NEAR(x[1], 1.0, 1e-12);
    a = {4, 1, 0, 3, 2, 0, 0, 0, 1}, b = {1, 1, 1}, x = {9, 9, 9};
    EXPECT_EQ(linear_GaussSeidel(a.data(), b.data(), 3, x.data(), 1e-12), -1);
    EXPECT_EQ(x, (Vec{0, 0, 9}));
}

}  // namespace
