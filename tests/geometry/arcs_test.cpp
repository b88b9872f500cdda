#include <cmath>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kSentinel = -777.0;

struct Arc {
    double centre[3] = {kSentinel, kSentinel, kSentinel};
    double radius = kSentinel, start = kSentinel, end = kSentinel;
    int code = 99;
};

Arc bulge(double x1, double y1, double z1, double x2, double y2, double z2, double b)
{
    double p1[3] = {x1, y1, z1}, p2[3] = {x2, y2, z2};
    Arc a;
    a.code = Bulge2Arc(p1, p2, b, a.centre, &a.radius, &a.start, &a.end);
    return a;
}

Arc three(const double* p1, const double* p2, const double* p3)
{
    double a1[3] = {p1[0], p1[1], p1[2]}, a2[3] = {p2[0], p2[1], p2[2]}, a3[3] = {p3[0], p3[1], p3[2]};
    Arc a;
    a.code = ThreePoints2Arc(a1, a2, a3, a.centre, &a.radius, &a.start, &a.end);
    return a;
}

void expect_untouched(const Arc& a)
{
    EXPECT_EQ(a.centre[0], kSentinel);
    EXPECT_EQ(a.centre[1], kSentinel);
    EXPECT_EQ(a.centre[2], kSentinel);
    EXPECT_EQ(a.radius, kSentinel);
    EXPECT_EQ(a.start, kSentinel);
    EXPECT_EQ(a.end, kSentinel);
}

TEST(Bulge2Arc, HalfCircles)
{
    Arc a = bulge(1, 0, 0, -1, 0, 0, 1);
    EXPECT_EQ(a.code, 0);
    EXPECT_EQ(a.radius, 1);
    EXPECT_EQ(a.centre[0], 0);
    EXPECT_EQ(a.centre[1], 0);
    EXPECT_EQ(a.centre[2], 0);
    EXPECT_EQ(a.start, 0);
    EXPECT_EQ(a.end, kPi);

    a = bulge(1, 0, 0, -1, 0, 0, -1);
    EXPECT_EQ(a.code, 0);
    EXPECT_EQ(a.radius, 1);
    EXPECT_EQ(a.start, kPi);
    EXPECT_EQ(a.end, 0);
}

TEST(Bulge2Arc, QuarterTurnsBothWays)
{
    double b = std::sqrt(2.0) - 1;
    Arc a = bulge(1, 0, 0, 0, 1, 0, b);
    EXPECT_EQ(a.code, 0);
    EXPECT_NEAR(a.centre[0], 0, 1e-15);
    EXPECT_NEAR(a.centre[1], 0, 1e-15);
    EXPECT_NEAR(a.radius, 1, 1e-15);
    EXPECT_NEAR(a.start, 0, 1e-15);
    EXPECT_NEAR(a.end, kPi / 2, 1e-15);

    a = bulge(1, 0, 0, 0, 1, 0, -b);
    EXPECT_EQ(a.code, 0);
    EXPECT_NEAR(a.centre[0], 1, 1e-15);
    EXPECT_NEAR(a.centre[1], 1, 1e-15);
    EXPECT_NEAR(a.start, kPi, 1e-15);
    EXPECT_NEAR(a.end, 3 * kPi / 2, 1e-15);
}

TEST(Bulge2Arc, MoreThanHalfATurn)
{
    Arc a = bulge(0, 0, 0, 2, 0, 0, 2);
    EXPECT_EQ(a.code, 0);
    EXPECT_EQ(a.radius, 1.25);
    EXPECT_EQ(a.centre[0], 1);
    EXPECT_EQ(a.centre[1], -0.75);
    EXPECT_EQ(a.start, std::atan2(0.75, -1.0));
    EXPECT_EQ(a.end, std::atan2(0.75, 1.0));
    // Clockwise of more than half a turn: centre on the other side.
    a = bulge(0, 0, 0, 2, 0, 0, -2);
    EXPECT_EQ(a.centre[1], 0.75);
    EXPECT_EQ(a.start, std::atan2(-0.75, 1.0) + 2 * kPi);
    EXPECT_EQ(a.end, std::atan2(-0.75, -1.0) + 2 * kPi);
}

TEST(Bulge2Arc, DegenerateInputWritesNothing)
{
    expect_untouched(bulge(0, 0, 0, 2, 0, 0, 1e-10));
    EXPECT_EQ(bulge(0, 0, 0, 2, 0, 0, 1e-10).code, 1);
    Arc a = bulge(0, 0, 0, 2, 0, 1e-3, 0.5);
    EXPECT_EQ(a.code, -2);
    expect_untouched(a);
    a = bulge(0, 0, 5, 2, 0, 6, 0.5);
    EXPECT_EQ(a.code, -2);
    expect_untouched(a);
    a = bulge(3, 4, 1, 3, 4, 2, 0.5);
    EXPECT_EQ(a.code, -2);
    a = bulge(3, 4, 1, 3, 4, 1, 0.5);
    EXPECT_EQ(a.code, -1);
    expect_untouched(a);

    a = bulge(0, 0, 5, 2, 0, 5, 1);
    EXPECT_EQ(a.code, 0);
    EXPECT_EQ(a.centre[2], 5);
}

TEST(ThreePoints2Arc, CounterClockwiseAndReversed)
{
    double p1[3] = {1, 0, 0}, up[3] = {0, 1, 3}, down[3] = {0, -1, 3}, p3[3] = {-1, 0, 0};
    Arc a = three(p1, up, p3);
    EXPECT_EQ(a.code, 0);
    EXPECT_EQ(a.centre[0], 0);
    EXPECT_EQ(a.centre[1], 0);
    EXPECT_EQ(a.centre[2], 3);
    EXPECT_EQ(a.radius, 1);
    EXPECT_EQ(a.start, 0);
    EXPECT_EQ(a.end, kPi);

    a = three(p1, down, p3);
    EXPECT_EQ(a.code, 0);
    EXPECT_EQ(a.start, kPi);
    EXPECT_EQ(a.end, 0);
}

TEST(ThreePoints2Arc, OffCentreArcThroughZeroAngle)
{
    // Centre (10, 20), radius 5: from angle 3pi/2 counter-clockwise via 0 to pi/2.
    double p1[3] = {10, 15, 0}, p2[3] = {15, 20, 0}, p3[3] = {10, 25, 0};
    Arc a = three(p1, p2, p3);
    EXPECT_EQ(a.code, 0);
    EXPECT_EQ(a.centre[0], 10);
    EXPECT_EQ(a.centre[1], 20);
    EXPECT_EQ(a.radius, 5);
    EXPECT_EQ(a.start, 4.71238898038469);
    EXPECT_EQ(a.end, 1.5707963267948966);
}

TEST(ThreePoints2Arc, DegeneratePaths)
{
    double p1[3] = {1, 2, 0}, p2[3] = {5, 2, 9}, same[3] = {1, 2, 4};
    // P1 and P3 coincide: the circle on the diameter P1 P2.
    Arc a = three(p1, p2, same);
    EXPECT_EQ(a.code, -2);
    EXPECT_EQ(a.centre[0], 3);
    EXPECT_EQ(a.centre[1], 2);
    EXPECT_EQ(a.centre[2], 9);
    EXPECT_EQ(a.radius, 2);
    EXPECT_EQ(a.start, kSentinel);
    EXPECT_EQ(a.end, kSentinel);

    // All three coincide: only centre.z.
    a = three(p1, same, same);
    EXPECT_EQ(a.code, -1);
    EXPECT_EQ(a.centre[2], 4);
    EXPECT_EQ(a.centre[0], kSentinel);
    EXPECT_EQ(a.centre[1], kSentinel);
    EXPECT_EQ(a.radius, kSentinel);

    // Collinear, and P2 on an end point.
    double mid[3] = {3, 2, 1}, end[3] = {5, 2, 0};
    a = three(p1, mid, end);
    EXPECT_EQ(a.code, -1);
    EXPECT_EQ(a.centre[2], 1);
    EXPECT_EQ(a.centre[0], kSentinel);
    EXPECT_EQ(a.radius, kSentinel);
    a = three(p1, end, end);
    EXPECT_EQ(a.code, -1);
    EXPECT_EQ(a.start, kSentinel);
}

TEST(PointIsOnCircle, Classes)
{
    double c[3] = {0, 0, 0};
    double on[3] = {0.6, 0.8, 0}, in[3] = {0.999, 0, 0}, out[3] = {1.001, 0, 0};
    EXPECT_EQ(PointIsOnCircle(c, 1, on), 0);
    EXPECT_EQ(PointIsOnCircle(c, 1, in), -2);
    EXPECT_EQ(PointIsOnCircle(c, 1, out), -1);
    // The distance is taken in space.
    double lifted[3] = {0, 0, 1};
    EXPECT_EQ(PointIsOnCircle(c, 1, lifted), 0);
    EXPECT_EQ(PointIsOnCircle(c, 0, c), 0);
}

}  // namespace
