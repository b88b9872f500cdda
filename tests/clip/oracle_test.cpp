// The clipper against the exact intersection of a simple polygon with the
// rectangle, on input made of ties: vertices on sides and corners, edges
// along sides, slivers, and pieces that pinch together at a point of a side.
// Each result must also be the plain procedure's, bit for bit.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>

#include "clip/exact_oracle.h"
#include "clip/random_polygons.h"

namespace {

// Small coordinates: vertices on sides and corners, edges along sides.
clipcases::Case Touching(std::mt19937& rng)
{
    clipcases::Case c;
    std::uniform_int_distribution<int> v(-3, 3);
    const int n = 3 + static_cast<int>(rng() % 6);
    for (int k = 0; k < 2 * n; ++k) c.pts.push_back(v(rng));
    clipcases::Rectangle(rng, -2, 2, c);
    return c;
}

// Orthogonal polygons whose edges run along the sides.
clipcases::Case Aligned(std::mt19937& rng)
{
    clipcases::Case c;
    c.pts = clipcases::Orthogonal(rng, 2 + static_cast<int>(rng() % 8), 10);
    clipcases::Rectangle(rng, -14, 14, c);
    return c;
}

// A star with some vertices thrown far out along their angle: long, thin
// spikes through the rectangle, nearly parallel edges meeting far away.
clipcases::Case Sliver(std::mt19937& rng)
{
    clipcases::Case c;
    const int n = 4 + static_cast<int>(rng() % 12);
    c.pts = clipcases::Star(rng, n, 2.0, 15.0, 0.0, 0.0);
    std::uniform_real_distribution<double> far(1e3, 1e5);
    for (int i = 0; i < n; ++i) {
        if (rng() % 3) continue;
        const double x = c.pts[2 * i], y = c.pts[2 * i + 1];
        const double s = far(rng) / std::sqrt(x * x + y * y + 1.0);
        c.pts[2 * i] = static_cast<int>(std::lround(x * s));
        c.pts[2 * i + 1] = static_cast<int>(std::lround(y * s));
    }
    clipcases::Rectangle(rng, -12, 12, c);
    return c;
}

// A star and a rectangle with a side through one of its vertices, so that
// parts of the polygon can meet at that point of the side.
clipcases::Case Pinch(std::mt19937& rng)
{
    clipcases::Case c;
    const int n = 4 + static_cast<int>(rng() % 14);
    c.pts = clipcases::Star(rng, n, 3.0, 20.0, 0.0, 0.0);
    clipcases::Rectangle(rng, -22, 22, c);
    const int i = static_cast<int>(rng() % static_cast<unsigned>(n));
    const int x = c.pts[2 * i], y = c.pts[2 * i + 1];
    switch (rng() % 4) {
    case 0: c.x1 = x; c.x2 = x + 1 + static_cast<int>(rng() % 20); break;
    case 1: c.x2 = x; c.x1 = x - 1 - static_cast<int>(rng() % 20); break;
    case 2: c.y1 = y; c.y2 = y + 1 + static_cast<int>(rng() % 20); break;
    default: c.y2 = y; c.y1 = y - 1 - static_cast<int>(rng() % 20); break;
    }
    return c;
}

void Sweep(clipcases::Case (*make)(std::mt19937&), unsigned seed, int cases, const char* kind)
{
    std::mt19937 rng(seed);
    cliporacle::Deviation dev;
    int failures = 0;
    for (int i = 0; i < cases && failures < 5; ++i) {
        const clipcases::Case c = make(rng);
        const std::string why = cliporacle::Check(c.x1, c.y1, c.x2, c.y2, c.pts, dev);
        if (!why.empty()) ADD_FAILURE() << why;
        failures += why.empty() ? 0 : 1;
    }
    std::printf("%s: %d simple polygons, %d clipped, %d with thin pieces vanished, largest area deviation %.3f "
                "of its bound\n", kind, dev.cases, dev.clipped, dev.vanished, dev.worst);
    EXPECT_GE(dev.clipped, cases / 10);
}

#ifndef QEL_ORACLE_CASES
#define QEL_ORACLE_CASES 300
#endif

TEST(ClipOracle, TouchingInput) { Sweep(Touching, 1, 5 * QEL_ORACLE_CASES, "touching"); }
TEST(ClipOracle, AlignedInput) { Sweep(Aligned, 2, QEL_ORACLE_CASES, "aligned"); }
TEST(ClipOracle, SliverInput) { Sweep(Sliver, 3, QEL_ORACLE_CASES, "sliver"); }
TEST(ClipOracle, PinchInput) { Sweep(Pinch, 4, QEL_ORACLE_CASES, "pinch"); }

}  // namespace
