// The clipping predicates: half-open segments, thresholds, the corner rule
// of the crossing test and the vertex rule of the probe ray.
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

TEST(RayCrossesEdge, VertexOnTheRayCountsOnceWhereTheBoundaryPasses)
{
    const double s[2] = {0, 0}, e[2] = {100, 0};
    double x[2];
    // Boundary passing downward through (5, 0): edges (5, 3)-(5, 0) and
    // (5, 0)-(6, -3): exactly one counts.
    const double c1[2] = {5, 3}, d1[2] = {5, 0}, d2[2] = {6, -3};
    EXPECT_EQ(qel::RayCrossesEdge(s, e, c1, d1, x) + qel::RayCrossesEdge(s, e, d1, d2, x), 1);
    // Touching from above: (4, 3)-(5, 0)-(6, 3): both or neither.
    const double t0[2] = {4, 3}, t2[2] = {6, 3};
    const int touch = qel::RayCrossesEdge(s, e, t0, d1, x) + qel::RayCrossesEdge(s, e, d1, t2, x);
    EXPECT_TRUE(touch == 0 || touch == 2);
    // A plain crossing, one behind the start and one at the start.
    const double c3[2] = {7, -1}, d3[2] = {7, 1};
    EXPECT_EQ(qel::RayCrossesEdge(s, e, c3, d3, x), 1);
    const double c4[2] = {-7, -1}, d4[2] = {-7, 1};
    EXPECT_EQ(qel::RayCrossesEdge(s, e, c4, d4, x), 0);
    const double c5[2] = {0, -1}, d5[2] = {0, 1};
    EXPECT_EQ(qel::RayCrossesEdge(s, e, c5, d5, x), 0);
}

TEST(RayCrossesEdge, NearMissOfAVertexIsJudgedLikeAHit)
{
    // The ray passes 4e-4 below the vertex (0, 0.0004): the crossing lies
    // within the coincidence radius of the vertex but the vertex is off the
    // ray's line band, so both edges are ranged as ordinary crossings and the
    // boundary passing through counts once.
    const double s[2] = {-5, 0}, e[2] = {5, 0};
    const double c[2] = {-1, 3}, v[2] = {0, 0.0004}, d[2] = {1, -3};
    double x[2];
    EXPECT_EQ(qel::RayCrossesEdge(s, e, c, v, x) + qel::RayCrossesEdge(s, e, v, d, x), 1);
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
