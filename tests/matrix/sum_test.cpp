#include <climits>
#include <cstring>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

constexpr double kSentinel = -7.25;
constexpr int kIntSentinel = 0x5a5a5a5a;

TEST(RealSum, WritesExactlyCountElements)
{
    for (int count = 0; count <= 9; ++count) {
        std::vector<double> a(count), b(count);
        for (int t = 0; t < count; ++t) {
            a[t] = 0.5 * t + 0.1;
            b[t] = 3.0 - t;
        }
        std::vector<double> sum(count + 2, kSentinel), diff(count + 2, kSentinel);
        mt_Add(a.data(), b.data(), 1, count, sum.data() + 1);
        mt_Sub(a.data(), b.data(), count, 1, diff.data() + 1);
        EXPECT_EQ(sum.front(), kSentinel);
        EXPECT_EQ(sum.back(), kSentinel);
        EXPECT_EQ(diff.front(), kSentinel);
        EXPECT_EQ(diff.back(), kSentinel);
        for (int t = 0; t < count; ++t) {
            EXPECT_EQ(sum[t + 1], a[t] + b[t]);
            EXPECT_EQ(diff[t + 1], a[t] - b[t]);
        }
    }
}

TEST(RealSum, CountIsTheWrapAroundProductOfTheDimensions)
{
    double a[2] = {1.0, 2.0}, b[2] = {10.0, 20.0};
    double c[2] = {kSentinel, kSentinel};
    mt_Add(a, b, 0, 5, c);
    mt_Add(a, b, 5, 0, c);
    mt_Add(a, b, -1, 2, c);
    mt_Add(a, b, 65536, 65536, c);   // 2^32 wraps to 0
    EXPECT_EQ(c[0], kSentinel);
    EXPECT_EQ(c[1], kSentinel);
    // (-1)(-1) = 1: one element, as the count is all that matters.
    mt_Sub(a, b, -1, -1, c);
    EXPECT_EQ(c[0], -9.0);
    EXPECT_EQ(c[1], kSentinel);
}

TEST(RealSum, InPlaceOnEitherOperand)
{
    double a[5] = {1, 2, 3, 4, 5}, b[5] = {0.5, 0.25, -1, 8, 1e300};
    mt_Add(a, b, 1, 5, a);
    EXPECT_EQ(a[0], 1.5);
    EXPECT_EQ(a[4], 5 + 1e300);
    mt_Sub(a, b, 5, 1, b);
    EXPECT_EQ(b[0], 1.0);
    EXPECT_EQ(b[1], 2.0);
    EXPECT_EQ(b[2], 3.0);
    EXPECT_EQ(b[3], 4.0);
}

TEST(ComplexSum, AccumulatesIntoTheFirstOperand)
{
    double ar[3] = {1, 2, 3}, ai[3] = {-1, -2, -3};
    const double br[3] = {10, 20, 30}, bi[3] = {0.5, 0.5, 0.5};
    mt_Add(ar, ai, br, bi, 1, 3, ar, ai);
    EXPECT_EQ(ar[2], 33.0);
    EXPECT_EQ(ai[0], -0.5);
    mt_Sub(ar, ai, br, bi, 3, 1, ar, ai);
    EXPECT_EQ(ar[0], 1.0);
    EXPECT_EQ(ai[2], -3.0);
}

TEST(ComplexSum, RealPartsAreFinishedBeforeImaginaryPartsAreRead)
{
    // ci may be ar: the real parts go into cr first, from the old ar.
    double ar[2] = {1, 2}, ai[2] = {100, 200};
    const double br[2] = {10, 20}, bi[2] = {1000, 2000};
    double cr[2];
    mt_Add(ar, ai, br, bi, 1, 2, cr, ar);
    EXPECT_EQ(cr[0], 11.0);
    EXPECT_EQ(cr[1], 22.0);
    EXPECT_EQ(ar[0], 1100.0);
    EXPECT_EQ(ar[1], 2200.0);
}

TEST(IntegerSum, WrapsAroundIn32Bits)
{
    const int a[4] = {INT_MAX, INT_MIN, -5, 7};
    const int b[4] = {1, 1, 3, -8};
    int c[6] = {kIntSentinel, 0, 0, 0, 0, kIntSentinel};
    mt_Add(a, b, 2, 2, c + 1);
    EXPECT_EQ(c[1], INT_MIN);
    EXPECT_EQ(c[2], INT_MIN + 1);
    EXPECT_EQ(c[3], -2);
    EXPECT_EQ(c[4], -1);
    EXPECT_EQ(c[0], kIntSentinel);
    EXPECT_EQ(c[5], kIntSentinel);
    mt_Sub(a, b, 4, 1, c + 1);
    EXPECT_EQ(c[1], INT_MAX - 1);
    EXPECT_EQ(c[2], INT_MAX);
    EXPECT_EQ(c[3], -8);
    EXPECT_EQ(c[4], 15);
    mt_Sub(b, a, 1, 1, c + 1);
    EXPECT_EQ(c[1], INT_MIN + 2);   // 1 - INT_MAX
    EXPECT_EQ(c[2], INT_MAX);
}

}  // namespace
