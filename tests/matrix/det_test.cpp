#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "support/test_allocator.h"

namespace {

constexpr double kEps = 2.220446049250313e-16;

TEST(Determinant, WorkedExampleAndWhatItLeaves)
{
    double a[4] = {1, 2, 3, 4};
    testalloc::Scope scope;
    EXPECT_EQ(mt_Det(a, 2), -2.0);
    const double left[4] = {4, 3, 2, -0.5};
    EXPECT_EQ(0, std::memcmp(a, left, sizeof left));
    EXPECT_TRUE(testalloc::requests().empty());
}

TEST(Determinant, TiesGoToTheFirstElementMet)
{
    // All magnitudes 1 and 2: the -2 at (0, 1) comes before the 2 at (1, 0).
    // Column exchange, sign -1; m = 1 * (1 / -2); a11 = 2 - (-0.5)(1).
    double a[4] = {1, -2, 2, 1};
    EXPECT_EQ(mt_Det(a, 2), 5.0);
    const double left[4] = {-2, 1, 1, 2.5};
    EXPECT_EQ(0, std::memcmp(a, left, sizeof left));
}

TEST(Determinant, ThresholdIsStrict)
{
    double a[4] = {kEps, 0, 0, kEps};
    EXPECT_EQ(mt_Det(a, 2), kEps * kEps);
    const double below = std::nextafter(kEps, 0.0);
    double b[4] = {below, 0, 0, below};
    const double r = mt_Det(b, 2);
    EXPECT_EQ(r, 0.0);
    EXPECT_FALSE(std::signbit(r));
    // Stopped after the search: nothing exchanged or eliminated.
    EXPECT_EQ(b[0], below);
    EXPECT_EQ(b[3], below);
}

TEST(Determinant, ZeroRowGivesZeroFromTheLastElement)
{
    double a[4] = {0, 0, 0, 3};
    EXPECT_EQ(mt_Det(a, 2), 0.0);
    // Pivot 3 moved to (0, 0), two exchanges; the zero left behind is a[1][1].
    EXPECT_EQ(a[0], 3.0);
    EXPECT_EQ(a[3], 0.0);
}

TEST(Determinant, DegenerateOrders)
{
    double tiny = 1e-300;
    EXPECT_EQ(mt_Det(&tiny, 1), 1e-300);
    double zero = -0.0;
    EXPECT_TRUE(std::signbit(mt_Det(&zero, 1)));
    EXPECT_EQ(mt_Det(nullptr, 0), 1.0);
    const double neg = mt_Det(nullptr, -3);
    EXPECT_EQ(neg, 0.0);
    EXPECT_FALSE(std::signbit(neg));
}

TEST(Determinant, SingularMatrixStopsInTheFailingStep)
{
    double a[9] = {1, 2, 3, 2, 4, 6, 1, 1, 1};
    const double r = mt_Det(a, 3);
    EXPECT_EQ(r, 0.0);
    EXPECT_FALSE(std::signbit(r));
}

TEST(Determinant, PermutedDiagonalGivesTheExactSignedProduct)
{
    // Distinct powers of two on a permuted diagonal: every pivot is exact,
    // nothing is eliminated, and the sign follows the exchanges made.
    std::mt19937_64 rng(4);
    for (int n : {2, 5, 17, 64}) {
        std::vector<int> perm(n);
        for (int i = 0; i < n; ++i) perm[i] = i;
        std::shuffle(perm.begin(), perm.end(), rng);
        std::vector<double> a(std::size_t(n) * n, 0.0);
        double product = 1.0;
        for (int i = 0; i < n; ++i) {
            const double v = std::ldexp((i % 2) ? -1.0 : 1.0, (i * 7) % 23 - 11);
            a[std::size_t(i) * n + perm[i]] = v;
            product *= v;
        }
        // Sign of the permutation by counting inversions.
        int inversions = 0;
        for (int i = 0; i < n; ++i)
            for (int j = i + 1; j < n; ++j) inversions += perm[i] > perm[j];
        const double want = (inversions % 2) ? -product : product;
        EXPECT_EQ(mt_Det(a.data(), n), want) << "n = " << n;
    }
}

TEST(ClosedFormDeterminant, FormulasAsGroupedAndArgumentsUntouched)
{
    const double a2[4] = {1, 2, 3, 4};
    EXPECT_EQ(mt_Det2(a2), -2.0);
    const double s3[9] = {1, 2, 3, 2, 4, 6, 1, 1, 1};
    double copy[16];
    std::memcpy(copy, s3, sizeof s3);
    EXPECT_EQ(mt_Det3(s3), 0.0);
    EXPECT_EQ(0, std::memcmp(copy, s3, sizeof s3));
    // No threshold: a tiny determinant comes back as it is.
    const double t2[4] = {1e-200, 0, 0, 1e-100};
    EXPECT_EQ(mt_Det2(t2), 1e-300);
    const double s4[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    std::memcpy(copy, s4, sizeof s4);
    EXPECT_EQ(mt_Det4(s4), 0.0);
    EXPECT_EQ(0, std::memcmp(copy, s4, sizeof s4));
    // Hand-evaluated in the stated grouping.
    const double h3[9] = {2, -1, 0.5, 3, 4, -2, 1, 0, 5};
    EXPECT_EQ(mt_Det3(h3), ((0.5 * 0 - 5 * -1) * 3 + (5 * 4 - 0 * -2) * 2) + (-2 * -1 - 0.5 * 4) * 1);
    EXPECT_EQ(mt_Det3(h3), 55.0);
    const double d4[16] = {2, 0, 0, 0, 0, 3, 0, 0, 0, 0, -1, 0, 0, 0, 0, 0.5};
    EXPECT_EQ(mt_Det4(d4), -3.0);
}

TEST(ClosedFormDeterminant, AgreesWithTheGeneralDeterminant)
{
    std::mt19937_64 rng(6);
    std::uniform_real_distribution<double> d(-3.0, 3.0);
    for (int trial = 0; trial < 50; ++trial) {
        double a3[9], a4[16];
        for (double& x : a3) x = d(rng);
        for (double& x : a4) x = d(rng);
        const double c3 = mt_Det3(a3), c4 = mt_Det4(a4);
        EXPECT_NEAR(mt_Det(a3, 3), c3, 1e-12 * (1 + std::fabs(c3)));
        EXPECT_NEAR(mt_Det(a4, 4), c4, 1e-12 * (1 + std::fabs(c4)));
    }
}

}  // namespace
