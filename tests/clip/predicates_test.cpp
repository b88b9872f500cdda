// The clipping predicates: half-open segments, thresholds, the corner rule
// of the crossing test, the exact side tests of the probe ray and the turn
// order of the chain walk.
#include <gtest/gtest.h>

#include "clip/clip_predicates.h"
#include "clip/polygon_graph.h"

namespace {

TEST(PointOnSegment, HalfOpenWithinTheLineBand)
{
    const double a[2] = {0, 0}, b[2] = {1, 0};
    EXPECT_EQ(qel::PointOnSegment(0, 0, a, b), 1);
    EXPECT_EQ(qel::PointOnSegment(1, 0, a, b), 0);
    EXPECT_EQ(qel::PointOnSegment(0.5, 0, a, b), 1);
    EXPECT_EQ(qel::PointOnSegment(0.5, 4e-7, a, b), 1);
    EXPECT_EQ(qel::PointOnSegment(0.5, 6e-7, a, b), 0);
    EXPECT_EQ(qel::PointOnSegment(1.5, 0, a, b), 0);
    EXPECT_EQ(qel::PointOnSegment(-0.0005, 0, a, b), 1);   // coincides with a
    EXPECT_EQ(qel::PointOnSegment(0.9995, 0, a, b), 0);    // coincides with b
    const double z[2] = {0, 0};
    EXPECT_EQ(qel::PointOnSegment(0, 0, z, z), 0);   // length 0 holds nothing
    // A vertical segment is ranged on y.
    const double c[2] = {3, 0}, d[2] = {3, 10};
    EXPECT_EQ(qel::PointOnSegment(3, 5, c, d), 1);
    EXPECT_EQ(qel::PointOnSegment(3, 11, c, d), 0);
    EXPECT_EQ(qel::PointOnSegment(3, -1, c, d), 0);
}

TEST(IntersectSegments, HalfOpenEnds)
{
    const double a[2] = {0, 0}, b[2] = {10, 0};
    double x[2] = {-1, -1};
    const double p1[2] = {5, -5}, q1[2] = {5, 5};
    EXPECT_EQ(qel::IntersectSegments(a, b, p1, q1, x), 1);
    EXPECT_EQ(x[0], 5.0);
    EXPECT_EQ(x[1], 0.0);
    const double p2[2] = {10, -5}, q2[2] = {10, 5};
    EXPECT_EQ(qel::IntersectSegments(a, b, p2, q2, x), 0);   // at b
    const double p3[2] = {0, -5}, q3[2] = {0, 5};
    EXPECT_EQ(qel::IntersectSegments(a, b, p3, q3, x), 1);   // at a, on p-q
    const double p4[2] = {5, 0}, q4[2] = {5, 5};
    EXPECT_EQ(qel::IntersectSegments(a, b, p4, q4, x), 1);   // at p
    const double p5[2] = {5, -5}, q5[2] = {5, 0};
    EXPECT_EQ(qel::IntersectSegments(a, b, p5, q5, x), 0);   // at q
    const double p6[2] = {0, 1}, q6[2] = {10, 1};
    x[0] = x[1] = -7;
    EXPECT_EQ(qel::IntersectSegments(a, b, p6, q6, x), 0);   // parallel
    EXPECT_EQ(x[0], -7.0);
    EXPECT_EQ(x[1], -7.0);
}

TEST(IntersectSegments, CornerOnTheExtensionOfAnEdgeIsNoCrossing)
{
    // The lines meet at a = (0, 0), which lies beyond the edge p-q.
    const double a[2] = {0, 0}, b[2] = {0, 10};
    const double p[2] = {3, -3}, q[2] = {6, -6};
    double x[2];
    EXPECT_EQ(qel::IntersectSegments(a, b, p, q, x), 0);
    EXPECT_EQ(x[0], 0.0);   // written all the same
    EXPECT_EQ(x[1], 0.0);
    // ... and at a when p-q does reach it.
    const double r[2] = {-3, 3}, s[2] = {3, -3};
    EXPECT_EQ(qel::IntersectSegments(a, b, r, s, x), 1);
}

TEST(RayCrossesEdge, DecidedBySidesAlone)
{
    // Ray from the origin along +x. Each row: a path c, v, d and how many of
    // its two edges count. A vertex on the ray counts with the right-hand
    // side: passing through, once; touching, twice or not at all.
    const double s[2] = {0, 0}, u[2] = {1, 0};
    const struct {
        double c[2], v[2], d[2];
        int count;
    } rows[] = {
        {{5, 3}, {5, 0}, {6, -3}, 1},        // passes down through a vertex on the ray
        {{4, 3}, {5, 0}, {6, 3}, 2},         // touches from the left
        {{4, -3}, {5, 0}, {6, -3}, 0},       // touches from the right
        {{4, 3}, {5, 4e-4}, {6, -3}, 1},     // misses the vertex by a hair: one crossing
        {{7, -1}, {7, 1}, {7, 1}, 1},        // plain crossing (second edge has length 0)
        {{-7, -1}, {-7, 1}, {-7, 1}, 0},     // behind the start
        {{0, -1}, {0, 1}, {0, 1}, 0},        // through the start
        {{1e-5, -1}, {1e-5, 1}, {1e-5, 1}, 1},   // a hair ahead of the start, no radius
        {{-1e-5, -1}, {-1e-5, 1}, {-1e-5, 1}, 0},
    };
    for (const auto& r : rows)
        EXPECT_EQ(qel::RayCrossesEdge(s, u, r.c, r.v) + qel::RayCrossesEdge(s, u, r.v, r.d), r.count)
            << r.v[0] << ", " << r.v[1];
}

TEST(CrossSign, ExactWhereTheRoundedProductsTie)
{
    // a = 2^27 + 1: a * a = 2^54 + 2^28 + 1 rounds to (a - 1)(a + 1), so the
    // rounded difference is 0 and the exact one 1.
    const double a = 134217729.0;
    EXPECT_EQ(qel::CrossSign(a, a - 1, a + 1, a), 1);
    EXPECT_EQ(qel::CrossSign(a - 1, a, a, a + 1), -1);
    EXPECT_EQ(qel::CrossSign(3.0, 6.0, 1.0, 2.0), 0);
}

TEST(TurnsFurtherLeft, FirstMetTurningClockwiseFromTheWayBack)
{
    // Arriving at the origin from (-1, 0): back points to -x. Turning
    // clockwise from there: up (+y) first, then +x, then down, then back.
    const double from[2] = {-1, 0}, c[2] = {0, 0};
    const double up[2] = {0, 1}, ahead[2] = {1, 0}, down[2] = {0, -1}, back[2] = {-2, 0}, upRight[2] = {1, 1};
    EXPECT_EQ(qel::TurnsFurtherLeft(from, c, up, ahead), 1);
    EXPECT_EQ(qel::TurnsFurtherLeft(from, c, ahead, up), 0);
    EXPECT_EQ(qel::TurnsFurtherLeft(from, c, ahead, down), 1);
    EXPECT_EQ(qel::TurnsFurtherLeft(from, c, down, back), 1);
    EXPECT_EQ(qel::TurnsFurtherLeft(from, c, back, down), 0);
    EXPECT_EQ(qel::TurnsFurtherLeft(from, c, up, upRight), 1);
    EXPECT_EQ(qel::TurnsFurtherLeft(from, c, upRight, ahead), 1);
    EXPECT_EQ(qel::TurnsFurtherLeft(from, c, ahead, ahead), 0);   // a tie keeps the earlier edge
}

TEST(LocatePoint, SquareCases)
{
    qel::PolygonGraph g;
    const int sq[] = {0, 0, 10, 0, 10, 10, 0, 10};
    g.BuildFromPolygon(sq, 4);
    EXPECT_EQ(qel::LocatePoint(g, 5, 5), -1);
    EXPECT_EQ(qel::LocatePoint(g, 15, 5), -2);
    EXPECT_EQ(qel::LocatePoint(g, 10, 5), 1);
    EXPECT_EQ(qel::LocatePoint(g, 10, 10), 2);
    EXPECT_EQ(qel::LocatePoint(g, 0, 0), 0);
    EXPECT_EQ(qel::LocatePoint(g, 10.0000002, 5), 1);
    EXPECT_EQ(qel::LocatePoint(g, 10.000002, 5), -2);
    qel::PolygonGraph one;
    one.BuildFromPolygon(sq, 1);
    EXPECT_EQ(qel::LocatePoint(one, 0, 0), -2);
}

TEST(LocatePoint, ConcavePolygonAndVerticesOnTheRay)
{
    // A comb whose teeth put vertices everywhere; points in the gaps are
    // outside, points in the teeth inside, whatever the ray meets.
    qel::PolygonGraph g;
    const int comb[] = {0, 0, 9, 0, 9, 6, 8, 6, 8, 2, 6, 2, 6, 6, 5, 6, 5, 2, 3, 2, 3, 6, 2, 6, 2, 2, 1, 2, 1, 6, 0, 6};
    g.BuildFromPolygon(comb, 16);
    for (int y = 3; y <= 5; ++y) {
        EXPECT_EQ(qel::LocatePoint(g, 0.5, y), -1);
        EXPECT_EQ(qel::LocatePoint(g, 1.5, y), -2);
        EXPECT_EQ(qel::LocatePoint(g, 2.5, y), -1);
        EXPECT_EQ(qel::LocatePoint(g, 4, y), -2);
        EXPECT_EQ(qel::LocatePoint(g, 7, y), -2);
        EXPECT_EQ(qel::LocatePoint(g, 8.5, y), -1);
    }
    EXPECT_EQ(qel::LocatePoint(g, 4, 1), -1);
}

}  // namespace
