#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "foundation/cpu.h"
#include "geometry/mec_cases.h"
#include "support/test_allocator.h"

namespace {

using namespace mectest;

TEST(EnclosingCircle, OneAndTwoPointsAndNothing)
{
    Points one = {3, 4};
    Circle c = fast(one);
    EXPECT_EQ(c.cx, 3);
    EXPECT_EQ(c.cy, 4);
    EXPECT_EQ(c.r, 0);

    Points two = {0, 0, 4, 0};
    c = fast(two);
    EXPECT_EQ(c.cx, 2);
    EXPECT_EQ(c.cy, 0);
    EXPECT_EQ(c.r, 2);

    testalloc::Scope scope;
    double centre[2] = {-7, -8}, radius = -9;
    Points some = {1, 2, 3, 4, 5, 6};
    MinimumRadiusCircleFromPoints(some.data(), 0, centre, &radius);
    MinimumRadiusCircleFromPoints(some.data(), -3, centre, &radius);
    EXPECT_EQ(centre[0], -7);
    EXPECT_EQ(centre[1], -8);
    EXPECT_EQ(radius, -9);
    EXPECT_EQ(some, (Points{1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(testalloc::requests().empty());
}

TEST(EnclosingCircle, PairCircleAndReorder)
{
    Points pts = {0, 0, 4, 0, 2, 1};
    Circle c = fast(pts);
    EXPECT_EQ(c.cx, 2);
    EXPECT_EQ(c.cy, 0);
    EXPECT_EQ(c.r, 2);
    EXPECT_EQ(pts, (Points{2, 1, 0, 0, 4, 0}));
}

TEST(EnclosingCircle, CircumcircleWhenNoPairEncloses)
{
    Points pts = {0, 0, 4, 0, 2, 3};
    Circle c = fast(pts);
    EXPECT_EQ(c.cx, 2);
    EXPECT_EQ(c.cy, 0.8333333333333334);
    EXPECT_EQ(c.r, 2.1666666666666665);
    EXPECT_EQ(pts, (Points{2, 3, 0, 0, 4, 0}));
}

TEST(EnclosingCircle, SquareWithCentreIsFilteredAndReordered)
{
    Points pts = {0, 0, 10, 0, 10, 10, 0, 10, 5, 5};
    Circle c = fast(pts);
    EXPECT_EQ(c.cx, 5);
    EXPECT_EQ(c.cy, 5);
    EXPECT_EQ(c.r, std::sqrt(50.0));
    EXPECT_EQ(pts, (Points{10, 10, 0, 10, 0, 0, 10, 0, 5, 5}));
}

// Four points on x^2 + y^2 = 13, none opposite: without the slack every
// triple fails by a rounding and the box's circle (radius sqrt(15.25)) stays.
TEST(EnclosingCircle, CocircularPointsFindTheirCircle)
{
    Points pts = {-3, -2, -3, 2, 2, -3, 2, 3};
    Circle c = fast(pts);
    EXPECT_NEAR(c.cx, 0, 1e-15);
    EXPECT_NEAR(c.cy, 0, 1e-15);
    EXPECT_EQ(c.r, 3.6055512754639891);
    EXPECT_TRUE(agrees({-3, -2, -3, 2, 2, -3, 2, 3}));
}

// A point within the tolerance of a vertex but not on it stays a candidate,
// so the circle still holds it. (10, 5 + 3e-5) is 3e-5 from the vertex
// (10, 5), inside the triangle's box, outside the triangle and 1.2e-11
// (relative) outside the circle of the other three.
TEST(EnclosingCircle, PointNearAVertexIsNotSetAside)
{
    Points pts = {0, 0, 10, 5, 0, 10, 10, 5 + 3e-5, 3, 3};
    Points copy = pts;
    Circle c = fast(pts);
    EXPECT_TRUE(encloses_all(copy, c));
    Points three = {0, 0, 10, 5, 0, 10};
    Circle without = fast(three);
    EXPECT_FALSE(encloses_all(copy, without));
    EXPECT_TRUE(agrees(copy));
    // An exact duplicate of a vertex is set aside and changes nothing.
    Points dup = {0, 0, 10, 0, 0, 10, 10, 0, 3, 3};
    Points bare = {0, 0, 10, 0, 0, 10};
    EXPECT_EQ(fast(dup).r, fast(bare).r);
}

TEST(EnclosingCircle, RequestsAndReleases)
{
    for (int n : {3, 5, 17}) {
        Points pts;
        for (int i = 0; i < n; ++i) {
            pts.push_back(std::cos(i * 0.7) * (1 + i % 3));
            pts.push_back(std::sin(i * 0.7) * (1 + i % 3));
        }
        testalloc::Scope scope;
        fast(pts);
        std::vector<std::uint32_t> want = {static_cast<std::uint32_t>(16 * n),
                                           static_cast<std::uint32_t>(4 * n)};
        EXPECT_EQ(testalloc::requests(), want) << n;
        EXPECT_EQ(testalloc::frees(), 2u);
        EXPECT_EQ(scope.leaked(), 0u);
    }
    // One or two points take nothing.
    testalloc::Scope scope;
    Points two = {1, 1, 2, 2};
    fast(two);
    EXPECT_TRUE(testalloc::requests().empty());
}

TEST(EnclosingCircle, FailedRequestWritesNothing)
{
    const Points original = {0, 0, 10, 0, 10, 10, 0, 10, 5, 5};
    for (std::size_t k = 1; k <= 2; ++k) {
        Points pts = original;
        double centre[2] = {-7, -8}, radius = -9;
        testalloc::Scope scope;
        testalloc::fail_at(k);
        MinimumRadiusCircleFromPoints(pts.data(), 5, centre, &radius);
        testalloc::fail_at(0);
        EXPECT_EQ(centre[0], -7) << k;
        EXPECT_EQ(centre[1], -8) << k;
        EXPECT_EQ(radius, -9) << k;
        EXPECT_EQ(scope.leaked(), 0u) << k;
        EXPECT_EQ(testalloc::frees(), k - 1) << k;
        if (k == 1) EXPECT_EQ(pts, original);
        else EXPECT_EQ(pts, (Points{10, 10, 0, 10, 0, 0, 10, 0, 5, 5}));
    }
}

TEST(EnclosingCircle, MatchesPlainSearchOnRandomSets)
{
    std::mt19937_64 g(20261123);
    std::uniform_int_distribution<int> small(3, 24);
    int checked = 0;
    for (int round = 0; round < 400; ++round) {
        int n = small(g);
        ASSERT_TRUE(agrees(disc(g, n, 1.0))) << "disc round " << round;
        ASSERT_TRUE(agrees(disc(g, n, 1e6))) << "far disc round " << round;
        ASSERT_TRUE(agrees(grid(g, n, 4))) << "grid round " << round;
        ASSERT_TRUE(agrees(grid(g, n, 1))) << "tiny grid round " << round;
        ASSERT_TRUE(agrees(on_circle(g, std::min(n, 16), 3.0, false))) << "circle round " << round;
        ASSERT_TRUE(agrees(on_circle(g, std::min(n, 16), 1e-3, true))) << "polygon round " << round;
        ASSERT_TRUE(agrees(cocircular_integers(g, std::min(n, 14)))) << "lattice round " << round;
        ASSERT_TRUE(agrees(rotated_rectangle(g, n % 5))) << "rectangle round " << round;
        ASSERT_TRUE(agrees(rectangle_outline(g, 1 + n / 4))) << "outline round " << round;
        checked += 9;
    }
    EXPECT_EQ(checked, 3600);
}

// Circles of many points, several scales, and a near-degenerate sliver: the
// cases in which nothing is filtered or in which the cross products cannot
// decide and the arc tangents must.
TEST(EnclosingCircle, MatchesPlainSearchOnHarderSets)
{
    std::mt19937_64 g(7);
    for (int round = 0; round < 30; ++round) {
        ASSERT_TRUE(agrees(on_circle(g, 40, 1.0, false))) << round;
        ASSERT_TRUE(agrees(on_circle(g, 36, 1e5, true))) << round;
        Points sliver;
        std::uniform_real_distribution<double> u(0, 1);
        for (int i = 0; i < 25; ++i) {
            double t = u(g);
            sliver.push_back(t);
            sliver.push_back(3 * t + (i % 3 == 0 ? 1e-14 * u(g) : 0.0));
        }
        ASSERT_TRUE(agrees(sliver)) << round;
        Points mixed = disc(g, 30, 2.0);
        Points ring = on_circle(g, 20, 2.0, false);
        mixed.insert(mixed.end(), ring.begin(), ring.end());
        ASSERT_TRUE(agrees(mixed)) << round;
        // A point just inside a vertex, within the tolerance of it: only
        // triangles on that vertex hold it, and they give 0.
        Points dented = on_circle(g, 40, 1.0, true);
        dented.push_back(dented[4] * (1 - 1e-6));
        dented.push_back(dented[5] * (1 - 1e-6));
        ASSERT_TRUE(agrees(dented)) << round;
        // A closed outline: the first point again at the end.
        Points closed = on_circle(g, 30, 4.0, round % 2 == 0);
        closed.push_back(closed[0]);
        closed.push_back(closed[1]);
        ASSERT_TRUE(agrees(closed)) << round;
    }
}

// Points on a circle reach the triple search with every triple; its vector
// screen and the scalar loop must give the plain search's bits alike.
TEST(EnclosingCircle, TripleSearchSameWithAndWithoutVectorUnit)
{
    for (qel::SimdLevel level : {qel::SimdLevel::kBaseline, qel::SimdLevel::kAvx2}) {
        qel::cap_simd_level(level);
        std::mt19937_64 g(555);
        for (int round = 0; round < 60; ++round) {
            int n = 5 + round % 30;
            ASSERT_TRUE(agrees(on_circle(g, n, 0.5 + round, false))) << round;
            ASSERT_TRUE(agrees(on_circle(g, n, 3.0, true))) << round;
            ASSERT_TRUE(agrees(cocircular_integers(g, n))) << round;
            // Collinear runs on a circle's chord: degenerate lanes.
            Points pts = on_circle(g, 8, 1.0, false);
            for (int i = 0; i < n; ++i) {
                pts.push_back(pts[0] + (pts[2] - pts[0]) * i / n);
                pts.push_back(pts[1] + (pts[3] - pts[1]) * i / n);
            }
            ASSERT_TRUE(agrees(pts)) << round;
        }
    }
    qel::cap_simd_level(qel::SimdLevel::kAvx512);
}

// Far from 1: the error bounds of the shortcuts give up and the plain
// decisions take over; NaN and infinity must not upset either.
TEST(EnclosingCircle, MatchesPlainSearchAtExtremeScales)
{
    std::mt19937_64 g(2718);
    for (double scale : {1e-300, 1e-200, 1e-150, 1e150, 1e200, 1e300}) {
        for (int round = 0; round < 20; ++round) {
            EXPECT_TRUE(agrees(disc(g, 15, scale))) << scale;
            EXPECT_TRUE(agrees(on_circle(g, 12, scale, false))) << scale;
        }
    }
    // Points on a line far beyond the spread across it: a point between two
    // others there sees them almost straight behind one another.
    const struct {
        Points pts;
        double radius;
    } collinear[] = {
        {{0, 0x1p76, 0, 30, 0, 0x1p76 - 0x1p23, 218600626, -672783360, 0, 0}, 0x1p75},
        {{0, 0x1p55, 0, 0, 5.0000000000000036, 16, 0, 0x1p55 - 4}, 0x1.ffffffffffffcp+53},
    };
    for (const auto& row : collinear) {
        EXPECT_TRUE(agrees(row.pts));
        Points p = row.pts;
        double c[2], r = -1;
        MinimumRadiusCircleFromPoints(p.data(), static_cast<int>(p.size() / 2), c, &r);
        EXPECT_EQ(r, row.radius);
    }
    Points odd = disc(g, 10, 1.0);
    odd[4] = std::nan("");
    EXPECT_TRUE(agrees(odd));
    odd[4] = INFINITY;
    EXPECT_TRUE(agrees(odd));
    odd[7] = -INFINITY;
    EXPECT_TRUE(agrees(odd));
}

TEST(EnclosingCircle, MatchesPlainSearchAfterToleranceChanges)
{
    std::mt19937_64 g(99);
    for (double t : {0.0, -1.0, 1e-3, 10.0}) {
        math_SetDoubleTolerance(t);
        for (int round = 0; round < 40; ++round) {
            EXPECT_TRUE(agrees(disc(g, 12, 1.0))) << t;
            EXPECT_TRUE(agrees(grid(g, 12, 3))) << t;
        }
    }
    math_SetDoubleTolerance(1e-9);
}

TEST(EnclosingCircle, EnclosesEveryPoint)
{
    std::mt19937_64 g(4242);
    for (int round = 0; round < 300; ++round) {
        std::vector<Points> sets = {disc(g, 50, 1.0), grid(g, 40, 6), on_circle(g, 30, 7.0, false),
                                    on_circle(g, 24, 7.0, true), cocircular_integers(g, 20),
                                    rotated_rectangle(g, 10)};
        for (const Points& s : sets) {
            Points work = s;
            ASSERT_TRUE(encloses_all(s, fast(work))) << round;
        }
    }
}

}  // namespace
