#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;

// Restores the default tolerances after every test, whatever it changed.
class Tolerances : public ::testing::Test {
protected:
    void TearDown() override
    {
        math_SetDoubleTolerance(1e-9);
        math_SetPointTolerance(1e-9);
        math_SetVectorTolerance(1e-9);
    }
};

TEST_F(Tolerances, RealZeroBoundsAreInclusive)
{
    EXPECT_EQ(math_IsRealZero(1e-9), 1);
    EXPECT_EQ(math_IsRealZero(-1e-9), 1);
    EXPECT_EQ(math_IsRealZero(std::nextafter(1e-9, 1.0)), 0);
    EXPECT_EQ(math_IsRealZero(std::nextafter(-1e-9, -1.0)), 0);
    EXPECT_EQ(math_IsRealZero(1.5e-9), 0);
    EXPECT_EQ(math_IsRealZero(-0.0), 1);
}

TEST_F(Tolerances, RealEqualIsRelativeToTheSecondArgument)
{
    EXPECT_EQ(math_IsRealEqual(5e-10, 0), 1);
    EXPECT_EQ(math_IsRealEqual(0, 5e-9), 0);
    EXPECT_EQ(math_IsRealEqual(1000, 1000.0000005), 1);
    EXPECT_EQ(math_IsRealEqual(1e-6, 1.01e-6), 0);
    // Not symmetric: a reference within the tolerance of zero judges a alone.
    EXPECT_EQ(math_IsRealEqual(1e-9, 2e-9), 0);
    EXPECT_EQ(math_IsRealEqual(2e-9, 1e-9), 0);
    EXPECT_EQ(math_IsRealEqual(1e-9, 1e-9), 1);
    EXPECT_EQ(math_IsRealEqual(std::nan(""), 1.0), 0);
}

TEST_F(Tolerances, AngleEqualReducesEachAngleWithoutWrapAround)
{
    EXPECT_EQ(math_IsAngleEqual(kTwoPi, 0), 1);
    EXPECT_EQ(math_IsAngleEqual(0, -kTwoPi), 0);
    EXPECT_EQ(math_IsAngleEqual(-kPi / 2, 3 * kPi / 2), 1);
    EXPECT_EQ(math_IsAngleEqual(1e-12, kTwoPi - 1e-12), 0);
    EXPECT_EQ(math_IsAngleEqual(5 * kTwoPi + 1, 1), 1);
    // Beyond 2^31 turns the count stays a double: defined, no wrap of the int.
    double huge = kTwoPi * 4294967296.0;
    EXPECT_EQ(math_IsAngleEqual(huge, 0), 1);
    EXPECT_EQ(math_IsAngleEqual(std::numeric_limits<double>::infinity(), 0), 0);
}

TEST_F(Tolerances, PointEqualNeedsBothTheRelativeAndTheDistanceTest)
{
    double p[3] = {1000, 0, 0}, q[3] = {1000 + 1e-7, 0, 0};
    EXPECT_EQ(math_IsPointEqual(p, q), 0);
    double r[3] = {1e-6, 0, 0}, s[3] = {1.0001e-6, 0, 0};
    EXPECT_EQ(math_IsPointEqual(r, s), 0);
    EXPECT_EQ(math_IsPoint2dEqual(r, s), 0);
    double a[3] = {1, 2, 3}, b[3] = {1, 2, 3 + 1e-3};
    EXPECT_EQ(math_IsPoint2dEqual(a, b), 1);   // z is not read
    EXPECT_EQ(math_IsPointEqual(a, b), 0);
    EXPECT_EQ(math_IsPointEqual(a, a), 1);
}

TEST_F(Tolerances, ZeroPointToleranceRejectsIdenticalPointsOffTheOrigin)
{
    math_SetPointTolerance(0);
    double a[3] = {1, 0, 0}, o[3] = {0, 0, 0};
    EXPECT_EQ(math_IsPointEqual(a, a), 0);
    EXPECT_EQ(math_IsPointEqual(o, o), 1);
}

TEST_F(Tolerances, SettersStoreTheSquare)
{
    // A point 0.9e-3 off passes only once the squared tolerance is 1e-6.
    double p[3] = {1, 1, 0}, q[3] = {1 + 0.9e-3, 1, 0};
    EXPECT_EQ(math_IsPoint2dEqual(p, q), 0);
    math_SetPointTolerance(1e-3);
    EXPECT_EQ(math_IsPoint2dEqual(p, q), 1);
    double r[3] = {1 + 1.1e-3, 1, 0};
    EXPECT_EQ(math_IsPoint2dEqual(p, r), 0);
    // The vector tolerance changes nothing any operation computes.
    math_SetVectorTolerance(1.0);
    double v[3] = {0, 0, 3e-5};
    EXPECT_EQ(NormalizeVector(v), 0);
}

TEST_F(Tolerances, SettersStoreUnusableValuesUnchanged)
{
    math_SetDoubleTolerance(-1);
    EXPECT_EQ(math_IsRealZero(0), 0);   // 0 > -1
    math_SetDoubleTolerance(std::nan(""));
    EXPECT_EQ(math_IsRealZero(5), 1);   // both comparisons with NaN fail
}

TEST_F(Tolerances, DirectionSenseOnTheDominantAxis)
{
    double o[3] = {0, 0, 0}, d[3] = {1, 1, 0}, e[3] = {2, 3, 0}, f[3] = {-1, -1, 0};
    EXPECT_EQ(math_IsDirection2dEqual(o, d, o, e), 1);
    EXPECT_EQ(math_IsDirection2dEqual(o, d, o, f), 0);
    EXPECT_EQ(math_IsDirection2dEqual(o, o, o, e), 0);
    EXPECT_EQ(math_IsDirection2dEqual(o, d, o, o), 0);
    // First direction (1, 1): y decides, so a second direction with a zero
    // y extent reads as not the same sense even though x agrees.
    double g[3] = {5, 0, 0};
    EXPECT_EQ(math_IsDirection2dEqual(o, d, o, g), 0);
    // 3D: x and z tie; x wins (z must be strictly larger).
    double h[3] = {1, 0, 1}, k[3] = {1, 0, -1};
    EXPECT_EQ(math_IsDirectionEqual(o, h, o, k), 1);
    double m[3] = {1, 0, 2};
    EXPECT_EQ(math_IsDirectionEqual(o, m, o, k), 0);
}

}  // namespace
