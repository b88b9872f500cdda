#include <cmath>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

TEST(PointIsOnLine, CoincidenceComesFirst)
{
    double a[3] = {0, 0, 0}, b[3] = {0, 0, 0}, p[3] = {0, 0, 0};
    EXPECT_EQ(PointIsOnLine(a, b, p), 1);
    double q[3] = {1, 1, 0};
    EXPECT_EQ(PointIsOnLine(a, b, q), -3);
    double b2[3] = {2, 0, 0}, at_b[3] = {2, 0, 0};
    EXPECT_EQ(PointIsOnLine(a, b2, at_b), 2);
    // z counts: a point above A is not A.
    double above[3] = {0, 0, 1};
    EXPECT_EQ(PointIsOnLine(a, b2, above), 3);
}

TEST(PointIsOnLine, SegmentAndExtensions)
{
    double a[3] = {0, 0, 0}, b[3] = {2, 0, 0};
    double mid[3] = {1, 0, 0}, before[3] = {-1, 0, 0}, past[3] = {3, 0, 0};
    EXPECT_EQ(PointIsOnLine(a, b, mid), 0);
    EXPECT_EQ(PointIsOnLine(a, b, before), -1);
    EXPECT_EQ(PointIsOnLine(a, b, past), -2);
    // The defect is absolute: 1e-5 off the middle is on it, 1e-4 is not.
    double near[3] = {1, 1e-5, 0}, off[3] = {1, 1e-4, 0};
    EXPECT_EQ(PointIsOnLine(a, b, near), 0);
    EXPECT_EQ(PointIsOnLine(a, b, off), 3);
    double space_a[3] = {0, 0, 0}, space_b[3] = {0, 0, 4}, space_p[3] = {0, 0, 9};
    EXPECT_EQ(PointIsOnLine(space_a, space_b, space_p), -2);
}

TEST(NormalizeLine, CoefficientsAreWrittenOnBothPaths)
{
    double a[3] = {0, 0, 7}, b[3] = {1, 0, -7}, coef[3] = {9, 9, 9};
    EXPECT_EQ(NormalizeLine(a, b, coef), 1);
    EXPECT_EQ(coef[0], 0);
    EXPECT_EQ(coef[1], -1);
    EXPECT_EQ(coef[2], 0);

    double c[3] = {2, 3, 0}, d[3] = {5, 7, 0};
    EXPECT_EQ(NormalizeLine(c, d, coef), 1);
    EXPECT_EQ(coef[0], 4);
    EXPECT_EQ(coef[1], -3);
    EXPECT_EQ(coef[2], 1);    // -(2*4) - (-3)*3
    // Positive to the right of c -> d.
    EXPECT_GT(coef[0] * 6 + coef[1] * 3 + coef[2], 0);

    double same[3] = {2, 3, 5};
    coef[0] = coef[1] = coef[2] = 9;
    EXPECT_EQ(NormalizeLine(c, same, coef), 0);
    EXPECT_EQ(coef[0], 0);
    EXPECT_EQ(coef[1], 0);
    EXPECT_EQ(coef[2], 0);
}

TEST(DistPoint2Line, PlaneDistance)
{
    double a[3] = {0, 0, 0}, b[3] = {4, 0, 0}, p[3] = {1, -3, 100};
    EXPECT_EQ(DistPoint2Line2d(p, a, b), 3);
    double c[3] = {0, 0, 0}, d[3] = {3, 4, 0}, q[3] = {4, -3, 0};
    EXPECT_EQ(DistPoint2Line2d(q, c, d), 5);
    // A segment shorter than the root of the tolerance is the point A.
    double e[3] = {1e-5, 0, 0}, r[3] = {3, 4, 0};
    EXPECT_EQ(DistPoint2Line2d(r, a, e), 5);
}

TEST(DistPoint2Line, SpaceDistance)
{
    double a[3] = {0, 0, 0}, b[3] = {2, 0, 0};
    double on[3] = {1, 0, 0}, off[3] = {1, 3, 0};
    EXPECT_EQ(DistPoint2Line(on, a, b), 0);
    // Heron's formula rounds: 3 up to a few ulps, pinned.
    EXPECT_EQ(DistPoint2Line(off, a, b), 3.0000000000000018);
    double up[3] = {5, 0, 4};
    EXPECT_NEAR(DistPoint2Line(up, a, b), 4, 1e-14);
    // The test is on the length, so a 1e-5 segment still is a line here.
    double e[3] = {1e-5, 0, 0}, r[3] = {0.5, 2, 0};
    EXPECT_NEAR(DistPoint2Line(r, a, e), 2, 1e-6);
    // Coincident end points: the distance to A.
    double p[3] = {3, 4, 0};
    EXPECT_EQ(DistPoint2Line(p, a, a), 5);
}

// Rounding leaves Heron's product slightly negative for many points on the
// line; the result must be 0, not NaN.
TEST(DistPoint2Line, PointsOnTheLineGiveZeroNotNaN)
{
    double a[3] = {0.1, 0.7, 0.3}, b[3] = {1.9, -2.3, 4.1};
    int zero_seen = 0;
    for (int i = 0; i <= 200; ++i) {
        double t = i / 37.0 - 2.0;
        double p[3] = {a[0] + t * (b[0] - a[0]), a[1] + t * (b[1] - a[1]), a[2] + t * (b[2] - a[2])};
        double d = DistPoint2Line(p, a, b);
        ASSERT_FALSE(std::isnan(d)) << i;
        EXPECT_LT(d, 1e-6) << i;
        if (d == 0) ++zero_seen;
    }
    EXPECT_GT(zero_seen, 0);
}

}  // namespace
