#include <climits>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "foundation/cpu.h"
#include "plain_winograd.h"
#include "support/test_allocator.h"

namespace {

constexpr double kSentinel = -7.25;
const qel::SimdLevel kLevels[] = {qel::SimdLevel::kBaseline, qel::SimdLevel::kAvx2,
                                  qel::SimdLevel::kAvx512};

std::vector<double> random_matrix(std::mt19937_64& rng, std::size_t count)
{
    std::uniform_real_distribution<double> d(-2.0, 2.0);
    std::vector<double> v(count);
    for (double& x : v) x = d(rng);
    return v;
}

// Restores the widest vector unit after tests that cap it.
class AtEveryWidth : public ::testing::Test {
protected:
    void TearDown() override { qel::cap_simd_level(qel::SimdLevel::kAvx512); }
};

// An output with sentinels before and after its m*k elements.
struct Guarded {
    explicit Guarded(std::size_t count) : cells(count + 8, kSentinel) {}
    double* out() { return cells.data() + 4; }
    bool guards_intact() const
    {
        for (std::size_t g = 0; g < 4; ++g)
            if (cells[g] != kSentinel || cells[cells.size() - 1 - g] != kSentinel) return false;
        return true;
    }
    std::vector<double> cells;
};

TEST(RealProduct, WorkedExample)
{
    const double a[4] = {1, 2, 3, 4}, b[4] = {5, 6, 7, 8};
    Guarded c(4);
    testalloc::Scope scope;
    mt_Mul(a, b, 2, 2, 2, c.out());
    EXPECT_EQ(c.out()[0], 19.0);
    EXPECT_EQ(c.out()[1], 22.0);
    EXPECT_EQ(c.out()[2], 43.0);
    EXPECT_EQ(c.out()[3], 50.0);
    EXPECT_TRUE(c.guards_intact());
    EXPECT_EQ(testalloc::requests(), (std::vector<std::uint32_t>{16, 16}));
    EXPECT_EQ(testalloc::frees(), 2u);
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST(RealProduct, RequestsRowThenColumnFactors)
{
    std::mt19937_64 rng(3);
    auto a = random_matrix(rng, 3 * 4), b = random_matrix(rng, 4 * 5);
    Guarded c(15);
    testalloc::Scope scope;
    mt_Mul(a.data(), b.data(), 3, 4, 5, c.out());
    EXPECT_EQ(testalloc::requests(), (std::vector<std::uint32_t>{24, 40}));
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST(RealProduct, BlocksOfFourThenTheRemainderThenTheOddTerm)
{
    // 1 x 11 times 11 x 1. Even rows of b are 0 and odd columns of a are 1,
    // so G = 0, F = the sum of a[2p], and pair term p is a[2p] + b[2p+1].
    // With a[0] = 2^53 and b[2p+1] = 1: F = 2^53; the first block is
    // ((2^53 + 1) + 1 + 1) + 1 = 2^53 (each +1 ties to even), so -F plus it
    // is 0; the remaining pair adds 0 + 1; the odd term adds 3 * 0.5.
    // A running sum over the terms one by one would give 5.5 instead.
    double a[11] = {}, b[11] = {};
    a[0] = 9007199254740992.0;
    for (int p = 0; p < 5; ++p) {
        a[2 * p + 1] = 1.0;
        b[2 * p + 1] = 1.0;
    }
    a[10] = 3.0;
    b[10] = 0.5;
    double c = kSentinel;
    mt_Mul(a, b, 1, 11, 1, &c);
    EXPECT_EQ(c, 2.5);
}

TEST(RealProduct, OddInnerSizeAndOuterProduct)
{
    // 1 x 3 times 3 x 1: F = 1*2, G = 4*5, c = (-2 - 20) + (1 + 5)(2 + 4) + 3*6.
    const double a[3] = {1, 2, 3}, b[3] = {4, 5, 6};
    double c = 0;
    mt_Mul(a, b, 1, 3, 1, &c);
    EXPECT_EQ(c, 32.0);
    // n = 1: each element comes from the odd term alone, (-0 - 0) + a b.
    const double x[3] = {1.5, -2, 0}, y[2] = {4, 0.25};
    Guarded outer(6);
    mt_Mul(x, y, 3, 1, 2, outer.out());
    const double want[6] = {6, 0.375, -8, -0.5, 0, 0};
    EXPECT_EQ(0, std::memcmp(want, outer.out(), sizeof want));
    EXPECT_TRUE(outer.guards_intact());
}

TEST(RealProduct, EmptyInnerSizeGivesNegativeZero)
{
    Guarded c(6);
    mt_Mul(nullptr, nullptr, 2, 0, 3, c.out());
    for (int t = 0; t < 6; ++t) {
        EXPECT_EQ(c.out()[t], 0.0);
        EXPECT_TRUE(std::signbit(c.out()[t]));
    }
    EXPECT_TRUE(c.guards_intact());
}

TEST(RealProduct, EmptyOuterSizesWriteNothingButTakeTheFactors)
{
    const double a[4] = {1, 2, 3, 4};
    Guarded c(0);
    testalloc::Scope scope;
    mt_Mul(a, a, 0, 2, 2, c.out());
    EXPECT_EQ(testalloc::requests(), (std::vector<std::uint32_t>{0, 16}));
    testalloc::reset();
    mt_Mul(a, a, 2, 2, 0, c.out());
    EXPECT_EQ(testalloc::requests(), (std::vector<std::uint32_t>{16, 0}));
    EXPECT_EQ(testalloc::frees(), 2u);
    EXPECT_TRUE(c.guards_intact());
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST(RealProduct, NegativeSizesWriteNothingAndTakeNothing)
{
    const double a[4] = {1, 2, 3, 4};
    Guarded c(4);
    testalloc::Scope scope;
    mt_Mul(a, a, -1, 2, 2, c.out());
    mt_Mul(a, a, 2, -2, 2, c.out());
    mt_Mul(a, a, 2, 2, -3, c.out());
    EXPECT_TRUE(testalloc::requests().empty());
    EXPECT_EQ(c.out()[0], kSentinel);
    EXPECT_TRUE(c.guards_intact());
}

TEST(RealProduct, SameBitsWhenTheFactorArraysCannotBeHad)
{
    std::mt19937_64 rng(11);
    const int m = 7, n = 13, k = 9;
    auto a = random_matrix(rng, m * n), b = random_matrix(rng, n * k);
    Guarded want(m * k);
    mt_Mul(a.data(), b.data(), m, n, k, want.out());
    for (int failing = 1; failing <= 2; ++failing) {
        Guarded got(m * k);
        testalloc::Scope scope;
        testalloc::fail_at(failing);
        mt_Mul(a.data(), b.data(), m, n, k, got.out());
        EXPECT_EQ(testalloc::requests().size(), 2u);
        EXPECT_EQ(scope.leaked(), 0u);
        EXPECT_EQ(0, std::memcmp(want.cells.data(), got.cells.data(), want.cells.size() * 8))
            << "failing request " << failing;
    }
    Guarded got(m * k);
    testalloc::Scope scope;
    testalloc::fail_from(1);
    mt_Mul(a.data(), b.data(), m, n, k, got.out());
    EXPECT_EQ(0, std::memcmp(want.cells.data(), got.cells.data(), want.cells.size() * 8));
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST_F(AtEveryWidth, RealProductKeepsTheBitsOfThePlainScheme)
{
    std::mt19937_64 rng(7);
    const int sizes[][3] = {{1, 1, 1},    {3, 8, 5},     {4, 16, 16},  {5, 17, 17},
                            {7, 9, 33},   {9, 130, 20},  {33, 135, 19}, {13, 300, 41},
                            {64, 64, 64}, {2, 200, 200}, {1, 7, 70},    {70, 10, 1}};
    for (qel::SimdLevel level : kLevels) {
        qel::cap_simd_level(level);
        for (const auto& s : sizes) {
            const int m = s[0], n = s[1], k = s[2];
            auto a = random_matrix(rng, std::size_t(m) * n);
            auto b = random_matrix(rng, std::size_t(n) * k);
            std::vector<double> want(std::size_t(m) * k);
            Guarded got(want.size());
            plain::winograd(a.data(), b.data(), m, n, k, want.data());
            mt_Mul(a.data(), b.data(), m, n, k, got.out());
            EXPECT_EQ(0, std::memcmp(want.data(), got.out(), want.size() * sizeof(double)))
                << m << "x" << n << "x" << k << " level " << static_cast<int>(level);
            EXPECT_TRUE(got.guards_intact());
        }
    }
}

TEST(RealProduct, AgreesWithTheOrdinaryProductUpToOrder200)
{
    std::mt19937_64 rng(5);
    for (int n : {3, 5, 9, 50, 199, 200}) {
        auto a = random_matrix(rng, std::size_t(n) * n), b = random_matrix(rng, std::size_t(n) * n);
        std::vector<double> c(std::size_t(n) * n);
        mt_Mul(a.data(), b.data(), n, n, n, c.data());
        double worst = 0;
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                double s = 0, mag = 0;
                for (int l = 0; l < n; ++l) {
                    s += a[i * n + l] * b[l * n + j];
                    mag += std::fabs(a[i * n + l] * b[l * n + j]);
                }
                worst = std::fmax(worst, std::fabs(c[i * n + j] - s) / (mag + 1));
            }
        EXPECT_LT(worst, 64 * n * 2.220446049250313e-16) << "n = " << n;
    }
}

TEST(IntegerProduct, SmallCaseAndWrapAround)
{
    const int a[6] = {1, 2, 3, 4, 5, 6};    // 2 x 3
    const int b[6] = {7, 8, 9, 10, 11, 12}; // 3 x 2
    int c[6] = {99, 0, 0, 0, 0, 99};
    testalloc::Scope scope;
    mt_Mul(a, b, 2, 3, 2, c + 1);
    EXPECT_EQ(c[1], 58);
    EXPECT_EQ(c[2], 64);
    EXPECT_EQ(c[3], 139);
    EXPECT_EQ(c[4], 154);
    EXPECT_EQ(c[0], 99);
    EXPECT_EQ(c[5], 99);
    EXPECT_TRUE(testalloc::requests().empty());

    const int big[2] = {INT_MAX, INT_MIN}, two[2] = {2, 3};
    int w = 0;
    mt_Mul(big, two, 1, 2, 1, &w);   // 2 (2^31 - 1) - 3 * 2^31 wraps to 2^31 - 2
    EXPECT_EQ(w, INT_MAX - 1);
    int z[2] = {5, 5};
    mt_Mul(big, two, 1, 0, 2, z);
    EXPECT_EQ(z[0], 0);
    EXPECT_EQ(z[1], 0);
    mt_Mul(big, two, 1, -1, 2, z);
    mt_Mul(big, two, -1, 1, 2, z);
    z[0] = 5;
    mt_Mul(big, two, 1, 1, -2, z);
    EXPECT_EQ(z[0], 5);
}

// The complex product term by term in the defined order.
void plain_complex(const std::vector<double>& ar, const std::vector<double>& ai,
                   const std::vector<double>& br, const std::vector<double>& bi, int m, int n,
                   int k, std::vector<double>& cr, std::vector<double>& ci)
{
    for (int i = 0; i < m; ++i)
        for (int j = 0; j < k; ++j) {
            std::vector<double> tr(n), ti(n);
            for (int l = 0; l < n; ++l) {
                const double x = ar[i * n + l], y = ai[i * n + l];
                const double u = br[l * k + j], v = bi[l * k + j];
                const double p1 = x * u, p2 = y * v, s = (x + y) * (u + v);
                tr[l] = p1 - p2;
                ti[l] = (s - p1) - p2;
            }
            cr[i * k + j] = plain::blocked_sum(tr);
            ci[i * k + j] = plain::blocked_sum(ti);
        }
}

TEST(ComplexProduct, ThreeMultiplicationsPerTerm)
{
    // (3 + 4i)(5 + 6i): P1 = 15, P2 = 24, S = 7 * 11 = 77 -> (-9, 38).
    const double ar = 3, ai = 4, br = 5, bi = 6;
    double cr = 0, ci = 0;
    mt_Mul(&ar, &ai, &br, &bi, 1, 1, 1, &cr, &ci);
    EXPECT_EQ(cr, -9.0);
    EXPECT_EQ(ci, 38.0);
}

TEST_F(AtEveryWidth, ComplexProductKeepsItsBlockedSums)
{
    std::mt19937_64 rng(9);
    const int sizes[][3] = {{1, 1, 1},  {2, 3, 5},    {3, 8, 9},   {4, 9, 17},
                            {5, 13, 3}, {6, 20, 33},  {3, 150, 19}, {4, 128, 16},
                            {7, 67, 40}, {2, 65, 17}};
    for (qel::SimdLevel level : kLevels) {
        qel::cap_simd_level(level);
        for (const auto& s : sizes) {
            const int m = s[0], n = s[1], k = s[2];
            auto ar = random_matrix(rng, m * n), ai = random_matrix(rng, m * n);
            auto br = random_matrix(rng, n * k), bi = random_matrix(rng, n * k);
            std::vector<double> wr(m * k), wi(m * k);
            plain_complex(ar, ai, br, bi, m, n, k, wr, wi);
            Guarded gr(m * k), gi(m * k);
            mt_Mul(ar.data(), ai.data(), br.data(), bi.data(), m, n, k, gr.out(), gi.out());
            EXPECT_EQ(0, std::memcmp(wr.data(), gr.out(), wr.size() * 8));
            EXPECT_EQ(0, std::memcmp(wi.data(), gi.out(), wi.size() * 8));
            EXPECT_TRUE(gr.guards_intact() && gi.guards_intact());
            // And the ordinary complex product to within rounding.
            for (int i = 0; i < m; ++i)
                for (int j = 0; j < k; ++j) {
                    double re = 0, im = 0;
                    for (int l = 0; l < n; ++l) {
                        re += ar[i * n + l] * br[l * k + j] - ai[i * n + l] * bi[l * k + j];
                        im += ar[i * n + l] * bi[l * k + j] + ai[i * n + l] * br[l * k + j];
                    }
                    EXPECT_NEAR(gr.out()[i * k + j], re, 1e-13 * n);
                    EXPECT_NEAR(gi.out()[i * k + j], im, 1e-13 * n);
                }
        }
    }
}

TEST(ComplexProduct, EmptyInnerSizeWritesZerosAndNegativeSizesNothing)
{
    Guarded cr(4), ci(4);
    testalloc::Scope scope;
    mt_Mul(nullptr, nullptr, nullptr, nullptr, 2, 0, 2, cr.out(), ci.out());
    for (int t = 0; t < 4; ++t) {
        EXPECT_EQ(cr.out()[t], 0.0);
        EXPECT_FALSE(std::signbit(cr.out()[t]));
        EXPECT_EQ(ci.out()[t], 0.0);
    }
    cr.out()[0] = kSentinel;
    mt_Mul(nullptr, nullptr, nullptr, nullptr, -2, 0, 2, cr.out(), ci.out());
    mt_Mul(nullptr, nullptr, nullptr, nullptr, 2, -1, 2, cr.out(), ci.out());
    EXPECT_EQ(cr.out()[0], kSentinel);
    EXPECT_TRUE(cr.guards_intact() && ci.guards_intact());
    EXPECT_TRUE(testalloc::requests().empty());
}

}  // namespace
