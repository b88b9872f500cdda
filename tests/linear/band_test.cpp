// Band and tridiagonal solvers, and the Gauss-Seidel iteration.
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "reference.h"
#include "test_util.h"

namespace {

using lintest::same_bits;
using lintest::Vec;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Packs the band of a full n x n matrix; filler for columns at or past n is
// `beyond`.
Vec pack_band(const Vec& full, std::size_t n, std::size_t h, double beyond)
{
    const std::size_t w = 2 * h + 1;
    Vec a(n * w, 0.0);
    for (std::size_t i = 0; i < n; ++i) {
        std::size_t first = i > h ? i - h : 0;
        for (std::size_t p = 0; p < w; ++p) {
            std::size_t j = first + p;
            if (j >= n) a[i * w + p] = beyond;
            else if (j + h >= i && j <= i + h) a[i * w + p] = full[i * n + j];
        }
    }
    return a;
}

Vec random_band(std::mt19937_64& rng, std::size_t n, std::size_t h)
{
    Vec full = lintest::random_matrix(rng, n, n);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j)
            if (i > j + h || j > i + h) full[i * n + j] = 0.0;
    return full;
}

class Band : public lintest::AtEveryWidth {};

TEST_F(Band, SameBitsAsThePlainTranscriptionAtEveryWidth)
{
    for (qel::SimdLevel level : lintest::levels()) {
        qel::cap_simd_level(level);
        std::mt19937_64 rng(41);
        for (std::size_t n = 1; n <= 30; n += 3) {
            for (std::size_t h = 0; h < n && h < 6; ++h) {
                for (std::size_t m : {0u, 1u, 7u}) {
                    Vec a = pack_band(random_band(rng, n, h), n, h, 0.0);
                    Vec b = lintest::random_matrix(rng, n, m);
                    Vec ra = a, rb = b;
                    int want = ref::gauss_band(ra.data(), rb.data(), n, h, m);
                    ASSERT_EQ(linear_GaussBand(a.data(), b.data(), int(n), int(h), int(m)), want);
                    EXPECT_TRUE(same_bits(b, rb)) << n << " " << h << " " << m;
                }
            }
        }
    }
}

TEST(GaussBand, FourByFourExampleMatchesAFullSolver)
{
    // [a00, a01, 0], [a10, a11, a12], [a21, a22, a23], [a32, a33, any]
    Vec full{4, 1, 0, 0, 2, 5, 1, 0, 0, 3, 6, 2, 0, 0, 1, 3};
    Vec a = pack_band(full, 4, 1, 1e300);
    EXPECT_EQ(a, (Vec{4, 1, 0, 2, 5, 1, 3, 6, 2, 1, 3, 1e300}));
    Vec b{1, 2, 3, 4}, fb = b, fa = full;
    ASSERT_EQ(linear_GaussBand(a.data(), b.data(), 4, 1, 1), 2);
    ASSERT_EQ(linear_Gauss(fa.data(), fb.data(), 4), 1);
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(b[i], fb[i], 1e-15);
}

TEST(GaussBand, SeveralRightHandSidesAreIndependent)
{
    std::mt19937_64 rng(42);
    const std::size_t n = 9, h = 2, m = 3;
    Vec a = pack_band(random_band(rng, n, h), n, h, 0.0);
    Vec b = lintest::random_matrix(rng, n, m), x = b;
    Vec wa = a;
    ASSERT_EQ(linear_GaussBand(wa.data(), x.data(), int(n), int(h), int(m)), 2);
    for (std::size_t v = 0; v < m; ++v) {
        Vec one(n), ca = a;
        for (std::size_t i = 0; i < n; ++i) one[i] = b[i * m + v];
        ASSERT_EQ(linear_GaussBand(ca.data(), one.data(), int(n), int(h), 1), 2);
        for (std::size_t i = 0; i < n; ++i) EXPECT_EQ(x[i * m + v], one[i]);
    }
}

TEST(GaussBand, FillerBelowNCountsFillerBeyondNeverDoes)
{
    std::mt19937_64 rng(43);
    const std::size_t n = 7, h = 2;
    Vec full = random_band(rng, n, h), b0 = lintest::random_matrix(rng, n, 1);
    Vec clean = pack_band(full, n, h, 0.0), x_clean = b0;
    ASSERT_EQ(linear_GaussBand(clean.data(), x_clean.data(), int(n), int(h), 1), 2);

    Vec nan_beyond = pack_band(full, n, h, kNaN), x_nan = b0;
    ASSERT_EQ(linear_GaussBand(nan_beyond.data(), x_nan.data(), int(n), int(h), 1), 2);
    EXPECT_TRUE(same_bits(x_nan, x_clean));

    // Row 0 position 3 stands for column 3, which is inside the matrix.
    Vec below = pack_band(full, n, h, 0.0), x_below = b0;
    below[3] = 0.5;
    ASSERT_EQ(linear_GaussBand(below.data(), x_below.data(), int(n), int(h), 1), 2);
    EXPECT_FALSE(same_bits(x_below, x_clean));
}

TEST(GaussBand, DiagonalSingleAndSingular)
{
    Vec a{2, -4, 8}, b{1, 2, 3, 4, 5, 6};
    ASSERT_EQ(linear_GaussBand(a.data(), b.data(), 3, 0, 2), 2);
    EXPECT_EQ(b, (Vec{0.5, 1, -0.75, -1, 0.625, 0.75}));

    double one = 4.0, rhs = 2.0;
    EXPECT_EQ(linear_GaussBand(&one, &rhs, 1, 0, 1), 2);
    EXPECT_EQ(rhs, 0.5);

    Vec sing{1, 2, 0, 2, 4, 0}, sb{1, 1};  // n = 2, h = 1: rows (1, 2) and (2, 4)
    EXPECT_EQ(linear_GaussBand(sing.data(), sb.data(), 2, 1, 1), 0);
    Vec zero{0, 0, 0, 0, 0, 0}, zb{1, 1};
    EXPECT_EQ(linear_GaussBand(zero.data(), zb.data(), 2, 1, 1), 0);
}

TEST(GaussBand, HalfWidthBeyondTheOrderStaysInsideTheArray)
{
    std::mt19937_64 rng(44);
    for (std::size_t h : {3u, 4u, 9u}) {
        const std::size_t n = 3;
        Vec full = lintest::well_conditioned(rng, n);
        Vec a = pack_band(full, n, h, kNaN);  // exactly n (2h + 1) doubles
        Vec b = lintest::random_matrix(rng, n, 2), fb(n), x = b;
        ASSERT_EQ(linear_GaussBand(a.data(), x.data(), int(n), int(h), 2), 2);
        for (std::size_t v = 0; v < 2; ++v) {
            Vec fa = full;
            for (std::size_t i = 0; i < n; ++i) fb[i] = b[i * 2 + v];
            ASSERT_EQ(linear_Gauss(fa.data(), fb.data(), int(n)), 1);
            for (std::size_t i = 0; i < n; ++i) EXPECT_NEAR(x[i * 2 + v], fb[i], 1e-14) << h;
        }
    }
}

TEST(GaussBand, OutOfRangeArguments)
{
    double a = 5.0, b = 7.0;
    EXPECT_EQ(linear_GaussBand(&a, &b, 0, 0, 1), 2);
    EXPECT_EQ(linear_GaussBand(&a, &b, -1, 0, 1), 0);
    EXPECT_EQ(linear_GaussBand(&a, &b, 1, -1, 1), 0);
    EXPECT_EQ(linear_GaussBand(&a, &b, 1, 0, -1), 0);
    EXPECT_EQ(a, 5.0);
    EXPECT_EQ(b, 7.0);
}

// --- tridiagonal -------------------------------------------------------------

TEST(TrianglePullup, CasesFromTheMethod)
{
    Vec a{0, 1, 1, 1}, b{1, 1};
    EXPECT_EQ(linear_TrianglePullup(a.data(), 2, b.data()), 0);
    EXPECT_EQ(b, (Vec{1, 1}));

    a = {2, 1, 4, 2}, b = {1, 1};
    EXPECT_EQ(linear_TrianglePullup(a.data(), 2, b.data()), 0);
    EXPECT_EQ(b, (Vec{0.5, -1}));

    double one = 8.0, rhs = 2.0;
    EXPECT_EQ(linear_TrianglePullup(&one, 1, &rhs), 2);
    EXPECT_EQ(rhs, 0.25);

    EXPECT_EQ(linear_TrianglePullup(&one, 0, &rhs), 2);
    EXPECT_EQ(linear_TrianglePullup(&one, -2, &rhs), 0);
    EXPECT_EQ(rhs, 0.25);
}

TEST(TrianglePullup, AgreesWithAFullSolverAndKeepsTheSubdiagonal)
{
    std::mt19937_64 rng(45);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    const std::size_t n = 40;
    Vec full(n * n, 0.0), packed(3 * n - 2);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = (i ? i - 1 : 0); j <= i + 1 && j < n; ++j) {
            full[i * n + j] = (i == j) ? 4.0 + u(rng) : u(rng);
            packed[2 * i + j] = full[i * n + j];
        }
    const Vec packed_in = packed;
    Vec b = lintest::random_matrix(rng, n, 1), x = b, fa = full;
    ASSERT_EQ(linear_TrianglePullup(packed.data(), int(n), x.data()), 2);
    ASSERT_EQ(linear_Gauss(fa.data(), b.data(), int(n)), 1);
    for (std::size_t i = 0; i < n; ++i) EXPECT_NEAR(x[i], b[i], 1e-15);
    for (std::size_t k = 0; k + 1 < n; ++k) {
        EXPECT_EQ(packed[3 * k + 2], packed_in[3 * k + 2]);
        EXPECT_EQ(packed[3 * k + 1], packed_in[3 * k + 1] / packed[3 * k]);
    }
}

// --- Gauss-Seidel ----------------------------------------------------------

TEST(GaussSeidel, DominanceCheckStopsAtTheFirstFailingRow)
{
    Vec a{2, 1, 1, 1, 3, 1, 1, 1, 2}, b{1, 1, 1}, x{7, 8, 9};
    const Vec a_in = a;
    EXPECT_EQ(linear_GaussSeidel(a.data(), b.data(), 3, x.data(), 1e-10), -1);
    EXPECT_EQ(x, (Vec{0, 8, 9}));
    a = {3, 1, 1, 1, 3, 1, 1, 1, 2}, x = {7, 8, 9};
    EXPECT_EQ(linear_GaussSeidel(a.data(), b.data(), 3, x.data(), 1e-10), -1);
    EXPECT_EQ(x, (Vec{0, 0, 0}));
    EXPECT_EQ(b, (Vec{1, 1, 1}));
}

TEST(GaussSeidel, ConvergesFromZeroWhateverXHolds)
{
    std::mt19937_64 rng(46);
    const std::size_t n = 20;
    Vec a = lintest::random_matrix(rng, n, n);
    for (std::size_t i = 0; i < n; ++i) a[i * n + i] = double(n) + 1.0;
    const Vec a_in = a;
    Vec b = lintest::random_matrix(rng, n, 1), b_in = b;
    Vec x1(n, 0.0), x2(n, 1e6);
    ASSERT_EQ(linear_GaussSeidel(a.data(), b.data(), int(n), x1.data(), 1e-13), 1);
    ASSERT_EQ(linear_GaussSeidel(a.data(), b.data(), int(n), x2.data(), 1e-13), 1);
    EXPECT_TRUE(same_bits(x1, x2));
    EXPECT_TRUE(same_bits(a, a_in));
    EXPECT_TRUE(same_bits(b, b_in));
    EXPECT_LT(lintest::relative_residual(a, x1, b, n), 1e-12);

    // A looser eps stops earlier, further from the solution.
    Vec loose(n);
    ASSERT_EQ(linear_GaussSeidel(a.data(), b.data(), int(n), loose.data(), 1e-2), 1);
    EXPECT_GT(lintest::relative_residual(a, loose, b, n), lintest::relative_residual(a, x1, b, n));
}

TEST(GaussSeidel, StoppingRules)
{
    double a = 4.0, b = 1.0, x = 3.0;
    EXPECT_EQ(linear_GaussSeidel(&a, &b, 1, &x, 1e-12), 1);
    EXPECT_EQ(x, 0.25);
    // eps <= 0 can never be met, but a sweep that changes nothing ends it.
    x = 3.0;
    EXPECT_EQ(linear_GaussSeidel(&a, &b, 1, &x, 0.0), 1);
    EXPECT_EQ(x, 0.25);
    // An unknown that never settles: 10,000 sweeps, then 0.
    double nan_b = kNaN;
    EXPECT_EQ(linear_GaussSeidel(&a, &nan_b, 1, &x, -1.0), 0);
    EXPECT_TRUE(std::isnan(x));
    x = 3.0;
    EXPECT_EQ(linear_GaussSeidel(&a, &nan_b, 1, &x, kNaN), 0);
    // n = 0 converges at once; a negative n touches nothing.
    EXPECT_EQ(linear_GaussSeidel(&a, &b, 0, &x, 1e-9), 1);
    x = 3.0;
    EXPECT_EQ(linear_GaussSeidel(&a, &b, -1, &x, 1e-9), 0);
    EXPECT_EQ(x, 3.0);
}

}  // namespace
