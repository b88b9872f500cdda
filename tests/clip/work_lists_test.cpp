// PointList and PolygonGraph: unique insertion, growth in steps of 16,
// index codes, vertex removal and building from a closed polygon.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "clip/point_list.h"
#include "clip/polygon_graph.h"
#include "support/test_allocator.h"

namespace {

using qel::PointList;
using qel::PolygonGraph;

TEST(PointList, CoincidingPointsAreOne)
{
    testalloc::Scope scope;
    {
        PointList l;
        EXPECT_EQ(l.FindPoint(0, 0), -1);
        EXPECT_EQ(l.AddPoint(0, 0), 0);
        EXPECT_EQ(l.AddPoint(0.0009, 0), 0);
        EXPECT_EQ(l.Count(), 1);
        double x = 1, y = 1;
        EXPECT_EQ(l.GetPoint(0, &x, &y), 0);
        EXPECT_EQ(x, 0.0);
        EXPECT_EQ(y, 0.0);
        EXPECT_EQ(l.AddPoint(0.001, 0), 1);   // 0.001^2 is not below 1e-6
        EXPECT_EQ(l.Count(), 2);
        // The first coinciding index wins.
        EXPECT_EQ(l.FindPoint(0.0006, 0), 0);
        EXPECT_EQ(l.FindPoint(0.0009, 0), 0);
        EXPECT_EQ(l.FindPoint(0.0011, 0), 1);
    }
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST(PointList, GrowsBySixteenCopyingAndGivingBack)
{
    testalloc::Scope scope;
    {
        PointList l;
        EXPECT_EQ(l.AddPoint(0, 0), 0);
        EXPECT_EQ(l.Capacity(), 16);
        for (int i = 1; i < 16; ++i) EXPECT_EQ(l.AddPoint(i, 0), i);
        EXPECT_EQ(l.Capacity(), 16);
        // A full list grows before it searches, even for a present point.
        EXPECT_EQ(l.AddPoint(3, 0), 3);
        EXPECT_EQ(l.Capacity(), 32);
        EXPECT_EQ(l.Count(), 16);
        EXPECT_EQ(l.AddPoint(16, 0), 16);
        const std::vector<std::uint32_t> sizes = testalloc::requests();
        ASSERT_EQ(sizes.size(), 2u);
        EXPECT_EQ(sizes[0], 16u * 16u);
        EXPECT_EQ(sizes[1], 32u * 16u);
        EXPECT_EQ(testalloc::frees(), 1u);   // the old block went back
        double x, y;
        l.GetPoint(15, &x, &y);
        EXPECT_EQ(x, 15.0);
        l.Clear();
        EXPECT_EQ(l.Count(), 0);
        EXPECT_EQ(l.Capacity(), 32);
        l.Release();
        EXPECT_EQ(l.Capacity(), 0);
        EXPECT_EQ(l.Data(), nullptr);
        l.Release();   // nothing to give back twice
        EXPECT_EQ(testalloc::frees(), 2u);
    }
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST(PointList, RefusedGrowthLeavesTheListAlone)
{
    testalloc::Scope scope;
    {
        PointList l;
        for (int i = 0; i < 16; ++i) l.AddPoint(i, i);
        testalloc::fail_at(2);
        EXPECT_EQ(l.AddPoint(100, 100), -1);
        EXPECT_EQ(l.Count(), 16);
        EXPECT_EQ(l.Capacity(), 16);
        EXPECT_EQ(l.AddPoint(100, 100), 16);
    }
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST(PointList, IndicesRemovalAndBounds)
{
    PointList l;
    double x = 7, y = 7;
    EXPECT_EQ(l.GetBounds(&x, &y, &x, &y), 0);
    EXPECT_EQ(x, 7.0);
    l.AddPoint(1, 5);
    l.AddPoint(-2, 3);
    l.AddPoint(4, -1);
    EXPECT_EQ(l.GetPoint(-1, &x, &y), -1);
    EXPECT_EQ(l.GetPoint(3, &x, &y), -1);
    EXPECT_EQ(l.GetPoint(2, &x, &y), 2);
    double a, b, c, d;
    EXPECT_EQ(l.GetBounds(&a, &b, &c, &d), 1);
    EXPECT_EQ(a, -2.0);
    EXPECT_EQ(b, -1.0);
    EXPECT_EQ(c, 4.0);
    EXPECT_EQ(d, 5.0);
    EXPECT_EQ(l.RemoveAt(3), -1);
    EXPECT_EQ(l.RemovePoint(9, 9), -1);
    EXPECT_EQ(l.RemovePoint(-2.0005, 3), 1);
    EXPECT_EQ(l.Count(), 2);
    l.GetPoint(1, &x, &y);
    EXPECT_EQ(x, 4.0);
    EXPECT_EQ(l.RemoveAt(0), 1);
    l.GetPoint(0, &x, &y);
    EXPECT_EQ(x, 4.0);
}

TEST(PolygonGraph, EdgesCodesAndSplit)
{
    testalloc::Scope scope;
    {
        PolygonGraph g;
        g.AddPoint(0, 0);
        g.AddPoint(10, 0);
        EXPECT_EQ(g.AddEdge(0, 2), -1);
        EXPECT_EQ(g.AddEdge(-1, 0), -1);
        EXPECT_EQ(g.AddEdge(0, 1), 0);
        EXPECT_EQ(g.AddEdge(1, 1), 1);   // a loop is allowed
        int a, b;
        EXPECT_EQ(g.GetEdge(2, &a, &b), -1);
        EXPECT_EQ(g.GetEdge(0, &a, &b), 1);
        EXPECT_EQ(a, 0);
        EXPECT_EQ(b, 1);
        const int k = g.AddPoint(5, 0);
        EXPECT_EQ(g.SplitEdge(5, k), -1);
        EXPECT_EQ(g.SplitEdge(0, 9), -2);
        EXPECT_EQ(g.SplitEdge(0, k), 1);
        g.GetEdge(0, &a, &b);
        EXPECT_EQ(b, 2);
        g.GetEdge(2, &a, &b);
        EXPECT_EQ(a, 2);
        EXPECT_EQ(b, 1);
        EXPECT_EQ(g.RemoveEdgeAt(3), -1);
        EXPECT_EQ(g.RemoveEdgeAt(1), 1);
        EXPECT_EQ(g.EdgeCount(), 2);
    }
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST(PolygonGraph, EdgePointsAndRenumbering)
{
    PolygonGraph h;
    h.AddPoint(1, 2);
    h.AddPoint(3, 4);
    h.AddEdge(0, 1);
    h.AddEdge(1, 0);
    h.AddPoint(5, 6);
    h.AddEdge(0, 2);
    double p[2] = {0, 0}, q[2] = {-9, -9};
    EXPECT_EQ(h.GetEdgePoints(3, p, q), -1);
    EXPECT_EQ(h.GetEdgePoints(-1, p, q), -1);
    EXPECT_EQ(q[0], -9.0);
    h.RemoveVertex(3, 4);
    // Only the edge to (5, 6) survives, renumbered from (0, 2) to (0, 1).
    ASSERT_EQ(h.EdgeCount(), 1);
    int a, b;
    h.GetEdge(0, &a, &b);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 1);
    EXPECT_EQ(h.GetEdgePoints(0, p, q), 1);
    EXPECT_EQ(p[0], 1.0);
    EXPECT_EQ(q[0], 5.0);
    EXPECT_EQ(q[1], 6.0);
}

TEST(PolygonGraph, RemoveVertexTakesEveryEdgeAtIt)
{
    PolygonGraph g;
    const int pts[] = {0, 0, 10, 0, 10, 10, 0, 10};
    g.BuildFromPolygon(pts, 4);
    EXPECT_EQ(g.RemoveVertex(50, 50), -1);
    EXPECT_EQ(g.RemoveVertex(10, 0), 1);   // degree 2
    EXPECT_EQ(g.PointCount(), 3);
    ASSERT_EQ(g.EdgeCount(), 2);
    int a, b;
    g.GetEdge(0, &a, &b);
    EXPECT_EQ(a, 1);
    EXPECT_EQ(b, 2);
    g.GetEdge(1, &a, &b);
    EXPECT_EQ(a, 2);
    EXPECT_EQ(b, 0);
    g.AddEdge(0, 1);   // vertex 0 now has three edges
    EXPECT_EQ(g.RemoveVertex(0, 0), 1);
    ASSERT_EQ(g.EdgeCount(), 1);
    g.GetEdge(0, &a, &b);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 1);
}

TEST(PolygonGraph, BuildRunsCounterClockwise)
{
    PolygonGraph g;
    const int cw[] = {0, 0, 0, 10, 10, 10, 10, 0};
    ASSERT_EQ(g.BuildFromPolygon(cw, 4), 1);
    ASSERT_EQ(g.PointCount(), 4);
    const double want[] = {10, 0, 10, 10, 0, 10, 0, 0};
    for (int i = 0; i < 4; ++i) {
        double x, y;
        g.GetPoint(i, &x, &y);
        EXPECT_EQ(x, want[2 * i]);
        EXPECT_EQ(y, want[2 * i + 1]);
    }
    ASSERT_EQ(g.EdgeCount(), 4);
    for (int e = 0; e < 4; ++e) {
        int a, b;
        g.GetEdge(e, &a, &b);
        EXPECT_EQ(a, e);
        EXPECT_EQ(b, (e + 1) % 4);
    }
    // The first point repeated at the end and a doubled vertex add no edge.
    const int closed[] = {0, 0, 10, 0, 10, 0, 10, 10, 0, 10, 0, 0};
    g.BuildFromPolygon(closed, 6);
    EXPECT_EQ(g.PointCount(), 4);
    EXPECT_EQ(g.EdgeCount(), 4);
    // A polygon touching itself shares the vertex.
    const int bow[] = {0, 0, 4, 0, 4, 4, 0, 0, -4, 0, -4, -4};
    g.BuildFromPolygon(bow, 6);
    EXPECT_EQ(g.PointCount(), 5);
    EXPECT_EQ(g.EdgeCount(), 6);
    // Empty and one-point polygons.
    g.BuildFromPolygon(cw, 0);
    EXPECT_EQ(g.PointCount(), 0);
    EXPECT_EQ(g.EdgeCount(), 0);
    g.BuildFromPolygon(cw, -3);
    EXPECT_EQ(g.PointCount(), 0);
    g.BuildFromPolygon(cw, 1);
    EXPECT_EQ(g.PointCount(), 1);
    EXPECT_EQ(g.EdgeCount(), 0);
    const double dbl[] = {0.5, 0.5, 2.5, 0.5, 2.5, 2.5};
    g.BuildFromPoints(dbl, 3);
    EXPECT_EQ(g.PointCount(), 3);
    EXPECT_EQ(g.EdgeCount(), 3);
}

TEST(PolygonGraph, EveryRefusedRequestIsReportedAndNothingLeaks)
{
    std::vector<int> pts;
    for (int i = 0; i < 40; ++i) {
        pts.push_back(i);
        pts.push_back(i * i % 17);
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        testalloc::Scope scope;
        {
            PolygonGraph g;
            testalloc::fail_at(k);
            const int r = g.BuildFromPolygon(pts.data(), 40);
            EXPECT_EQ(r, k <= 6 ? -1 : 1) << k;
        }
        EXPECT_EQ(scope.leaked(), 0u);
    }
}

}  // namespace
