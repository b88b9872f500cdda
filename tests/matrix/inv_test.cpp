#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "support/test_allocator.h"

namespace {

constexpr double kEps = 2.220446049250313e-16;
constexpr double kSentinel = -7.25;

std::vector<double> random_matrix(std::mt19937_64& rng, int n)
{
    std::uniform_real_distribution<double> d(-1.0, 1.0);
    std::vector<double> v(std::size_t(n) * n);
    for (double& x : v) x = d(rng);
    return v;
}

// Largest deviation of a * inv from the identity.
double identity_error(const std::vector<double>& a, const double* inv, int n)
{
    double worst = 0;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            double s = 0;
            for (int l = 0; l < n; ++l) s += a[i * n + l] * inv[l * n + j];
            worst = std::fmax(worst, std::fabs(s - (i == j ? 1.0 : 0.0)));
        }
    return worst;
}

TEST(Inversion, ThresholdIsInclusive)
{
    double a[4] = {kEps, 0, 0, kEps};
    EXPECT_EQ(mt_Inv(a, 2), 0);
    const double above = std::nextafter(kEps, 1.0);
    double b[4] = {above, 0, 0, above};
    EXPECT_EQ(mt_Inv(b, 2), 1);
    EXPECT_EQ(b[0], 1.0 / above);
    EXPECT_EQ(b[3], 1.0 / above);
    EXPECT_EQ(b[1], 0.0);
}

TEST(Inversion, OrderOneAndZero)
{
    double a = 4.0;
    EXPECT_EQ(mt_Inv(&a, 1), 1);
    EXPECT_EQ(a, 0.25);
    double z = 0.0;
    EXPECT_EQ(mt_Inv(&z, 1), 0);
    testalloc::Scope scope;
    EXPECT_EQ(mt_Inv(nullptr, 0), 1);
    EXPECT_EQ(testalloc::requests(), (std::vector<std::uint32_t>{0}));
    EXPECT_EQ(testalloc::frees(), 1u);
    testalloc::reset();
    EXPECT_EQ(mt_Inv(nullptr, -2), 1);
    EXPECT_EQ(mt_Inv(nullptr, nullptr, -2), 1);
    EXPECT_TRUE(testalloc::requests().empty());
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST(Inversion, PivotRecordIsOneBlockReleasedOnEveryPath)
{
    double a[9] = {2, 1, 0, 1, 3, 1, 0, 1, 4};
    testalloc::Scope scope;
    EXPECT_EQ(mt_Inv(a, 3), 1);
    EXPECT_EQ(testalloc::requests(), (std::vector<std::uint32_t>{24}));
    double s[9] = {1, 2, 3, 2, 4, 6, 1, 1, 1};
    EXPECT_EQ(mt_Inv(s, 3), 0);
    double ar[4] = {1, 0, 0, 1}, ai[4] = {0, 0, 0, 0};
    EXPECT_EQ(mt_Inv(ar, ai, 2), 1);
    EXPECT_EQ(testalloc::requests(), (std::vector<std::uint32_t>{24, 24, 16}));
    EXPECT_EQ(testalloc::frees(), 3u);
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST(Inversion, NoRecordMeansNoInversionAndAnUntouchedMatrix)
{
    double a[9] = {2, 1, 0, 1, 3, 1, 0, 1, 4};
    const std::vector<double> before(a, a + 9);
    double ar[4] = {0, 1, 2, 0}, ai[4] = {1, 0, 0, 1};
    testalloc::Scope scope;
    testalloc::fail_at(1);
    EXPECT_EQ(mt_Inv(a, 3), 0);
    EXPECT_EQ(0, std::memcmp(a, before.data(), sizeof a));
    testalloc::reset();
    testalloc::fail_at(1);
    EXPECT_EQ(mt_Inv(ar, ai, 2), 0);
    EXPECT_EQ(ar[1], 1.0);
    EXPECT_EQ(ai[0], 1.0);
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST(Inversion, TiesGoToTheFirstElementMet)
{
    // Pivot (0, 0) of four equal magnitudes; the second step finds 0.
    double a[4] = {1, -1, -1, 1};
    EXPECT_EQ(mt_Inv(a, 2), 0);
    const double left[4] = {1, -1, 1, 0};
    EXPECT_EQ(0, std::memcmp(a, left, sizeof left));
}

TEST(Inversion, ExchangesAreUndone)
{
    // Largest elements off the diagonal force row and column exchanges.
    double a[9] = {0, 0, 2, 0, 4, 0, 8, 0, 0};
    EXPECT_EQ(mt_Inv(a, 3), 1);
    const double inv[9] = {0, 0, 0.125, 0, 0.25, 0, 0.5, 0, 0};
    for (int t = 0; t < 9; ++t) EXPECT_EQ(a[t], inv[t]) << t;
    double p[4] = {1, 2, 3, 4};
    EXPECT_EQ(mt_Inv(p, 2), 1);
    EXPECT_NEAR(p[0], -2.0, 1e-15);
    EXPECT_NEAR(p[1], 1.0, 1e-15);
    EXPECT_NEAR(p[2], 1.5, 1e-15);
    EXPECT_NEAR(p[3], -0.5, 1e-15);
}

TEST(Inversion, IdentityFromTheProductUpToOrder200)
{
    std::mt19937_64 rng(12);
    for (int n : {3, 4, 9, 31, 100, 200}) {
        const auto a = random_matrix(rng, n);
        std::vector<double> cells(a.size() + 2, kSentinel);
        std::memcpy(cells.data() + 1, a.data(), a.size() * sizeof(double));
        testalloc::Scope scope;
        ASSERT_EQ(mt_Inv(cells.data() + 1, n), 1);
        EXPECT_LT(identity_error(a, cells.data() + 1, n), 1e-9) << "n = " << n;
        EXPECT_EQ(cells.front(), kSentinel);
        EXPECT_EQ(cells.back(), kSentinel);
        EXPECT_EQ(scope.leaked(), 0u);
    }
}

TEST(ComplexInversion, OrderOneAndTheThreshold)
{
    double ar = 2, ai = 1;
    EXPECT_EQ(mt_Inv(&ar, &ai, 1), 1);
    EXPECT_EQ(ar, 0.4);
    EXPECT_EQ(ai, -0.2);
    double br = std::ldexp(1.0, -26), bi = 0;   // squared modulus exactly 2^-52
    EXPECT_EQ(mt_Inv(&br, &bi, 1), 1);
    EXPECT_EQ(br, std::ldexp(1.0, 26));
    double cr = 1.4e-8, ci = 0;
    EXPECT_EQ(mt_Inv(&cr, &ci, 1), 0);
    EXPECT_EQ(cr, 1.4e-8);
}

TEST(ComplexInversion, ThreeMultiplicationFormsOnASmallCase)
{
    // [[0, i], [2, 0]]: pivot 2 at (1, 0) with squared modulus 4.
    double ar[4] = {0, 0, 2, 0}, ai[4] = {0, 1, 0, 0};
    EXPECT_EQ(mt_Inv(ar, ai, 2), 1);
    // Inverse [[0, 0.5], [-i, 0]].
    const double wr[4] = {0, 0.5, 0, 0}, wi[4] = {0, 0, -1, 0};
    for (int t = 0; t < 4; ++t) {
        EXPECT_EQ(ar[t], wr[t]) << t;
        EXPECT_EQ(ai[t], wi[t]) << t;
    }
}

TEST(ComplexInversion, EveryOrderToNineWithOffDiagonalPivots)
{
    std::mt19937_64 rng(21);
    std::uniform_real_distribution<double> d(-1.0, 1.0);
    for (int n = 1; n <= 9; ++n) {
        std::vector<double> ar(n * n), ai(n * n);
        for (int t = 0; t < n * n; ++t) {
            ar[t] = d(rng);
            ai[t] = d(rng);
        }
        // A dominant cyclic shift: off the diagonal for every order above 1.
        for (int i = 0; i < n; ++i) ar[i * n + (i + 1) % n] += 4.0 * (i + 1);
        std::vector<double> xr(n * n + 2, kSentinel), xi(n * n + 2, kSentinel);
        std::memcpy(xr.data() + 1, ar.data(), n * n * sizeof(double));
        std::memcpy(xi.data() + 1, ai.data(), n * n * sizeof(double));
        ASSERT_EQ(mt_Inv(xr.data() + 1, xi.data() + 1, n), 1);
        EXPECT_EQ(xr.front(), kSentinel);
        EXPECT_EQ(xr.back(), kSentinel);
        EXPECT_EQ(xi.front(), kSentinel);
        EXPECT_EQ(xi.back(), kSentinel);
        double worst = 0;
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                double re = 0, im = 0;
                for (int l = 0; l < n; ++l) {
                    const double pr = ar[i * n + l], pi = ai[i * n + l];
                    const double qr = xr[1 + l * n + j], qi = xi[1 + l * n + j];
                    re += pr * qr - pi * qi;
                    im += pr * qi + pi * qr;
                }
                worst = std::fmax(worst, std::fabs(re - (i == j)) + std::fabs(im));
            }
        EXPECT_LT(worst, 1e-12) << "n = " << n;
    }
}

TEST(ClosedFormInversion, WorkedExampleAndSingularCases)
{
    double a[4] = {1, 2, 3, 4};
    EXPECT_EQ(mt_Inv2(a), 1);
    const double inv[4] = {-2, 1, 1.5, -0.5};
    EXPECT_EQ(0, std::memcmp(a, inv, sizeof inv));

    double z2[4] = {1, 2, 0, 0};
    double z3[9] = {1, 2, 3, 0, 0, 0, 4, 5, 6};
    double z4[16] = {1, 2, 3, 4, 5, 6, 7, 8, 0, 0, 0, 0, 1, 0, 0, 1};
    const std::vector<double> c2(z2, z2 + 4), c3(z3, z3 + 9), c4(z4, z4 + 16);
    EXPECT_EQ(mt_Inv2(z2), 0);
    EXPECT_EQ(mt_Inv3(z3), 0);
    EXPECT_EQ(mt_Inv4(z4), 0);
    EXPECT_EQ(0, std::memcmp(z2, c2.data(), sizeof z2));
    EXPECT_EQ(0, std::memcmp(z3, c3.data(), sizeof z3));
    EXPECT_EQ(0, std::memcmp(z4, c4.data(), sizeof z4));
    // |det| exactly at the threshold is refused; just above it is inverted.
    double t2[4] = {kEps, 0, 0, 1};
    EXPECT_EQ(mt_Inv2(t2), 0);
    t2[0] = std::nextafter(kEps, 1.0);
    EXPECT_EQ(mt_Inv2(t2), 1);

    double n3[9] = {NAN, 0, 0, 0, 1, 0, 0, 0, 1};
    EXPECT_EQ(mt_Inv3(n3), 1);
    EXPECT_TRUE(std::isnan(n3[4]));
}

TEST(ClosedFormInversion, Order3And4AgreeWithTheGeneralInversion)
{
    std::mt19937_64 rng(8);
    for (int trial = 0; trial < 30; ++trial) {
        auto a3 = random_matrix(rng, 3), a4 = random_matrix(rng, 4);
        for (int d = 0; d < 3; ++d) a3[d * 4] += 2.0;
        for (int d = 0; d < 4; ++d) a4[d * 5] += 2.0;
        auto g3 = a3, c3 = a3, g4 = a4, c4 = a4;
        ASSERT_EQ(mt_Inv3(c3.data()), 1);
        ASSERT_EQ(mt_Inv4(c4.data()), 1);
        ASSERT_EQ(mt_Inv(g3.data(), 3), 1);
        ASSERT_EQ(mt_Inv(g4.data(), 4), 1);
        for (int t = 0; t < 9; ++t) EXPECT_NEAR(c3[t], g3[t], 1e-13);
        for (int t = 0; t < 16; ++t) EXPECT_NEAR(c4[t], g4[t], 1e-13);
        EXPECT_LT(identity_error(a4, c4.data(), 4), 1e-13);
    }
    // Order 3 by hand: diag(2, 4, 8) -> cofactors times r = 1/64.
    double d3[9] = {2, 0, 0, 0, 4, 0, 0, 0, 8};
    EXPECT_EQ(mt_Inv3(d3), 1);
    EXPECT_EQ(d3[0], 0.5);
    EXPECT_EQ(d3[4], 0.25);
    EXPECT_EQ(d3[8], 0.125);
}

}  // namespace
