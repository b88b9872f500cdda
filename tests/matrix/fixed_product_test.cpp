#include <cmath>
#include <cstring>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

constexpr double kSentinel = -7.25;

using RowsFn = void (*)(const double*, int, const double*, double*);

// Row i of a (s values) times b (s x s), summed left to right in l.
double element(const double* a, const double* b, int s, int i, int j)
{
    double v = a[i * s] * b[j];
    for (int l = 1; l < s; ++l) v = v + a[i * s + l] * b[l * s + j];
    return v;
}

std::vector<double> values(int count, double scale)
{
    std::vector<double> v(count);
    for (int t = 0; t < count; ++t) v[t] = scale * std::sin(1.0 + t * 0.7) + 0.1 * t;
    return v;
}

void check_rows(RowsFn fn, int s)
{
    const auto b = values(s * s, 3.0);
    for (int n = 0; n <= 9; ++n) {
        const auto a = values(n * s + 1, 1e3);
        std::vector<double> c(n * s + 2 * s, kSentinel);
        fn(a.data(), n, b.data(), c.data() + s);
        for (int g = 0; g < s; ++g) {
            EXPECT_EQ(c[g], kSentinel);
            EXPECT_EQ(c[s + n * s + g], kSentinel);
        }
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < s; ++j) EXPECT_EQ(c[s + i * s + j], element(a.data(), b.data(), s, i, j));
    }
    double c = kSentinel;
    fn(b.data(), -3, b.data(), &c);
    EXPECT_EQ(c, kSentinel);
}

TEST(FixedProduct, RowArraysWriteExactlyTheirRows)
{
    check_rows(mt_MulN2x22, 2);
    check_rows(mt_MulN3x33, 3);
    check_rows(mt_MulN4x44, 4);
}

TEST(FixedProduct, FixedShapesSumLeftToRight)
{
    // Sums that depend on their order: 1e16 + 1 + 1 is 1e16 left to right.
    const double b2[4] = {1e16, 1, 1, 1e16};
    const double a2[4] = {1, 1, 2, 3};
    double c[16];
    mt_Mul12x22(a2, b2, c);
    EXPECT_EQ(c[0], 1e16 + 1);
    mt_Mul22x22(a2, b2, c);
    EXPECT_EQ(c[3], 1 + 3e16);
    const double b3[9] = {1e16, 0, 0, 1, 0, 0, 1, 0, 0};
    const double a3[3] = {1, 1, 1};
    mt_Mul13x33(a3, b3, c);
    EXPECT_EQ(c[0], 1e16);   // (1e16 + 1) + 1, not 1e16 + (1 + 1)
    const double b4[16] = {1e16, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, -1e16, 0, 0, 0};
    const double a4[4] = {1, 1, 1, 1};
    mt_Mul14x44(a4, b4, c);
    EXPECT_EQ(c[0], 0.0);
}

template <int S>
void check_fixed(void (*fn)(const double*, const double*, double*), int rows)
{
    const auto a = values(rows * S, 10.0), b = values(S * S, 2.0);
    std::vector<double> c(rows * S + 2, kSentinel);
    fn(a.data(), b.data(), c.data() + 1);
    EXPECT_EQ(c.front(), kSentinel);
    EXPECT_EQ(c.back(), kSentinel);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < S; ++j) EXPECT_EQ(c[1 + i * S + j], element(a.data(), b.data(), S, i, j));
    // The identity gives the rows back.
    std::vector<double> id(S * S, 0.0);
    for (int d = 0; d < S; ++d) id[d * S + d] = 1.0;
    fn(a.data(), id.data(), c.data() + 1);
    EXPECT_EQ(0, std::memcmp(a.data(), c.data() + 1, rows * S * sizeof(double)));
}

TEST(FixedProduct, EveryShape)
{
    check_fixed<2>(mt_Mul12x22, 1);
    check_fixed<2>(mt_Mul22x22, 2);
    check_fixed<3>(mt_Mul13x33, 1);
    check_fixed<3>(mt_Mul23x33, 2);
    check_fixed<3>(mt_Mul33x33, 3);
    check_fixed<4>(mt_Mul14x44, 1);
    check_fixed<4>(mt_Mul24x44, 2);
    check_fixed<4>(mt_Mul34x44, 3);
    check_fixed<4>(mt_Mul44x44, 4);
}

TEST(InnerProduct, BlocksOfFourThenTheRest)
{
    const double one = 1.0;
    double c = kSentinel;
    mt_Mul1NxN1(&one, 0, &one, &c);
    EXPECT_EQ(c, 0.0);
    EXPECT_FALSE(std::signbit(c));
    c = kSentinel;
    mt_Mul1NxN1(&one, -4, &one, &c);
    EXPECT_EQ(c, 0.0);
    const double a5[5] = {1, 2, 3, 4, 5}, b5[5] = {-1, 0.5, 2, 0.25, 3};
    mt_Mul1NxN1(a5, 5, b5, &c);
    EXPECT_EQ(c, 22.0);
    // ((1 + 1) + 1) + 2^53 ties up to 2^53 + 4; the rest (1 + 1) makes it
    // 2^53 + 6. One running sum would stay at 2^53 + 4.
    const double a6[6] = {1, 1, 1, 9007199254740992.0, 1, 1}, b6[6] = {1, 1, 1, 1, 1, 1};
    mt_Mul1NxN1(a6, 6, b6, &c);
    EXPECT_EQ(c, 9007199254740998.0);
    // -0.0 products: the sum starts from +0.0.
    const double nz[1] = {-0.0};
    mt_Mul1NxN1(nz, 1, &one, &c);
    EXPECT_FALSE(std::signbit(c));
}

TEST(OuterProduct, SquareOfProducts)
{
    const double a[3] = {1, -2, 0.5}, b[3] = {3, 4, -8};
    double c[11];
    for (double& x : c) x = kSentinel;
    mt_MulN1x1N(a, 3, b, c + 1);
    EXPECT_EQ(c[0], kSentinel);
    EXPECT_EQ(c[10], kSentinel);
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) EXPECT_EQ(c[1 + i * 3 + j], a[i] * b[j]);
    mt_MulN1x1N(a, 0, b, c);
    mt_MulN1x1N(a, -1, b, c);
    EXPECT_EQ(c[0], kSentinel);
    double big[11 * 11 + 1];
    big[121] = kSentinel;
    const auto x = values(11, 1.0), y = values(11, 2.0);
    mt_MulN1x1N(x.data(), 11, y.data(), big);
    EXPECT_EQ(big[120], x[10] * y[10]);
    EXPECT_EQ(big[121], kSentinel);
}

}  // namespace
