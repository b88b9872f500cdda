// The side locator answers as LocatePoint does for points walked along the
// rectangle's sides, whether it corrects the previous count or starts over.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "clip/clip_predicates.h"
#include "clip/polygon_graph.h"
#include "clip/random_polygons.h"
#include "clip/side_locator.h"

namespace {

void WalkSides(const std::vector<int>& poly, const double* rect, std::mt19937& rng, int perSide, int* checked)
{
    qel::PolygonGraph g;
    ASSERT_EQ(g.BuildFromPolygon(poly.data(), static_cast<int>(poly.size() / 2)), 1);
    if (g.PointCount() < 2) return;
    double b[4];
    g.GetBounds(&b[0], &b[1], &b[2], &b[3]);
    qel::ProbeFrame f;
    qel::MakeProbeFrame(b[0], b[1], b[2], b[3], &f);
    qel::clipwork::SideLocator sides;
    ASSERT_TRUE(sides.init(g.Points().Data(), g.PointCount(), g.Edges(), g.EdgeCount(), f, rect));
    const double corner[5][2] = {{rect[0], rect[1]}, {rect[2], rect[1]}, {rect[2], rect[3]}, {rect[0], rect[3]},
                                 {rect[0], rect[1]}};
    std::uniform_real_distribution<double> u(0.0, 1.0);
    for (int s = 0; s < 4; ++s) {
        std::vector<double> t(static_cast<std::size_t>(perSide));
        for (double& v : t) v = (u(rng) < 0.3) ? std::floor(u(rng) * 8.0) / 8.0 : u(rng);
        std::sort(t.begin(), t.end());
        for (double v : t) {
            const double x = corner[s][0] + v * (corner[s + 1][0] - corner[s][0]);
            const double y = corner[s][1] + v * (corner[s + 1][1] - corner[s][1]);
            const int want = qel::LocatePoint(g, x, y) == -2 ? 1 : 0;
            ASSERT_EQ(sides.outside(x, y), want) << "side " << s << " at " << x << ", " << y;
            ++*checked;
        }
    }
}

TEST(SideLocator, AgreesWithLocatePointAlongTheSides)
{
    std::mt19937 rng(808);
    int checked = 0;
    for (int i = 0; i < 300; ++i) {
        const std::vector<int> poly = (i % 2) ? clipcases::Star(rng, 20 + static_cast<int>(rng() % 80), 30.0, 100.0, 0.0, 0.0)
                                              : clipcases::Orthogonal(rng, 3 + static_cast<int>(rng() % 12), 12);
        const double h = (i % 2) ? 40.0 + static_cast<double>(rng() % 50) : 6.0 + static_cast<double>(rng() % 6);
        const double rect[4] = {-h, -h + static_cast<double>(rng() % 3), h, h};
        WalkSides(poly, rect, rng, 40, &checked);
        if (HasFatalFailure()) return;
    }
    EXPECT_GT(checked, 40000);
}

}  // namespace
