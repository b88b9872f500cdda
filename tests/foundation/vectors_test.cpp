#include <cmath>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

constexpr double kPi = 3.141592653589793;

TEST(Vectors, NormalizeMultipliesByTheRoundedReciprocal)
{
    double v[3] = {0, 3, 4};
    EXPECT_EQ(NormalizeVector(v), 1);
    EXPECT_EQ(v[0], 0.0);
    EXPECT_EQ(v[1], 0.6000000000000001);   // 3 * (1/5), not 3/5
    EXPECT_EQ(v[2], 0.8);
}

TEST(Vectors, ShortVectorsCountAsZeroAndStayUnchanged)
{
    double v[3] = {0, 0, 3e-5};   // squared length 9e-10 <= 1e-9
    EXPECT_EQ(NormalizeVector(v), 0);
    EXPECT_EQ(v[2], 3e-5);
    double w[3] = {0, 0, 3.2e-5};   // 1.024e-9 > 1e-9
    EXPECT_EQ(NormalizeVector(w), 1);
    EXPECT_DOUBLE_EQ(w[2], 1.0);
}

TEST(Vectors, CrossProductMayWriteOverItsInput)
{
    double x[3] = {1, 0, 0}, y[3] = {0, 1, 0};
    VectorCrossProduct(x, y, x);
    EXPECT_EQ(x[0], 0.0);
    EXPECT_EQ(x[1], 0.0);
    EXPECT_EQ(x[2], 1.0);
    double a[3] = {1, 2, 3}, b[3] = {4, 5, 6};
    VectorCrossProduct(a, b, b);
    EXPECT_EQ(b[0], -3.0);
    EXPECT_EQ(b[1], 6.0);
    EXPECT_EQ(b[2], -3.0);
    double c[3] = {1, 2, 3}, d[3] = {4, -5, 6};
    EXPECT_EQ(VectorDotProduct(c, d), 12.0);
}

TEST(Distances, PlaneFormsIgnoreZ)
{
    double p[3] = {0, 0, 5}, q[3] = {3, 4, -5};
    EXPECT_EQ(math_Distance2d(p, q), 5.0);
    EXPECT_EQ(math_Distance2d2(p, q), 25.0);
    EXPECT_EQ(math_Distance2(p, q), 125.0);
    EXPECT_DOUBLE_EQ(math_Distance(p, q), std::sqrt(125.0));
}

TEST(Angles, DirectionAngleCoversTheWholeCircle)
{
    double o[3] = {0, 0, 0}, w[3] = {-1, 0, 0}, s[3] = {0, -1, 0};
    EXPECT_EQ(math_Angle(o, w), kPi);
    EXPECT_EQ(math_Angle(o, s), -kPi / 2);
    EXPECT_EQ(math_Angle(o, o), 0.0);
}

TEST(Angles, DegreesAndRadians)
{
    EXPECT_EQ(math_Radian2Degree(kPi), 180.0);
    EXPECT_EQ(math_Degree2Radian(180.0), kPi);
    EXPECT_EQ(math_Degree2Radian(90.0), kPi / 2);
    // Multiplied first, divided second: (1 * 180) / pi.
    EXPECT_EQ(math_Radian2Degree(1.0), 57.295779513082323);
}

TEST(Angles, CosSinWritesCosineFirst)
{
    double c = 7, s = 7;
    math_CosSin(0.0, &c, &s);
    EXPECT_EQ(c, 1.0);
    EXPECT_EQ(s, 0.0);
    math_CosSin(kPi / 2, &c, &s);
    EXPECT_EQ(s, 1.0);
    EXPECT_EQ(c, 6.123233995736766e-17);
}

TEST(Polar, MovesInThePlaneAndMayWriteOverItsBase)
{
    double p[3] = {1, 2, 3}, out[3];
    math_Polar(p, 1.234, 0.0, out);
    EXPECT_EQ(out[0], 1.0);
    EXPECT_EQ(out[1], 2.0);
    EXPECT_EQ(out[2], 3.0);
    math_Polar(p, 0.0, 2.0, p);
    EXPECT_EQ(p[0], 3.0);
    EXPECT_EQ(p[1], 2.0);
    EXPECT_EQ(p[2], 3.0);
}

}  // namespace
