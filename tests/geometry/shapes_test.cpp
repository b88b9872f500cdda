#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>

#include "QELMath.h"

namespace {

using P = std::array<double, 3>;
constexpr double S = -777.0;   // left where nothing is written
const double kPi = 0x1.921fb54442d18p+1;

bool same(double x, double y) { return std::memcmp(&x, &y, sizeof x) == 0; }

// The code, then centre x y z, radius, start and end angle.
using Arc = std::pair<int, std::array<double, 6>>;
Arc bulge(P a, P b, double k)
{
    Arc r{0, {S, S, S, S, S, S}};
    r.first = Bulge2Arc(a.data(), b.data(), k, r.second.data(), &r.second[3], &r.second[4], &r.second[5]);
    return r;
}
Arc three(P a, P b, P c)
{
    Arc r{0, {S, S, S, S, S, S}};
    r.first = ThreePoints2Arc(a.data(), b.data(), c.data(), r.second.data(), &r.second[3], &r.second[4], &r.second[5]);
    return r;
}

TEST(Arcs, CodesAnglesAndWhatIsWritten)
{
    const double q = std::sqrt(2.0) - 1;
    const std::pair<Arc, Arc> rows[] = {
        {bulge({1, 0, 0}, {-1, 0, 0}, 1), {0, {0, 0, 0, 1, 0, kPi}}},
        {bulge({1, 0, 0}, {-1, 0, 0}, -1), {0, {0, 0, 0, 1, kPi, 0}}},
        {bulge({1, 0, 0}, {0, 1, 0}, q), {0, {0x1p-54, 0x1p-54, 0, 1, 0, 0x1.921fb54442d19p+0}}},
        {bulge({1, 0, 0}, {0, 1, 0}, -q), {0, {1, 1, 0, 1, kPi, 0x1.2d97c7f3321d2p+2}}},
        // More than half a turn: the centre on the other side of the chord.
        {bulge({0, 0, 0}, {2, 0, 0}, 2), {0, {1, -0.75, 0, 1.25, 0x1.3fc176b7a856p+1, 0x1.4978fa3269ee1p-1}}},
        {bulge({0, 0, 0}, {2, 0, 0}, -2), {0, {1, 0.75, 0, 1.25, 0x1.68f095fdf593cp+2, 0x1.e47df3d0dd4dp+1}}},
        {bulge({0, 0, 5}, {2, 0, 5}, 1), {0, {1, 0, 5, 1, kPi, 0}}},
        // No bulge, end points at different heights, or the same point.
        {bulge({0, 0, 0}, {2, 0, 0}, 1e-10), {1, {S, S, S, S, S, S}}},
        {bulge({0, 0, 0}, {2, 0, 1e-3}, 0.5), {-2, {S, S, S, S, S, S}}},
        {bulge({0, 0, 5}, {2, 0, 6}, 0.5), {-2, {S, S, S, S, S, S}}},
        {bulge({3, 4, 1}, {3, 4, 2}, 0.5), {-2, {S, S, S, S, S, S}}},
        {bulge({3, 4, 1}, {3, 4, 1}, 0.5), {-1, {S, S, S, S, S, S}}},
        // Through P2 counter-clockwise or back; the height is P2's.
        {three({1, 0, 0}, {0, 1, 3}, {-1, 0, 0}), {0, {0, 0, 3, 1, 0, kPi}}},
        {three({1, 0, 0}, {0, -1, 3}, {-1, 0, 0}), {0, {0, -0.0, 3, 1, kPi, 0}}},
        {three({10, 15, 0}, {15, 20, 0}, {10, 25, 0}), {0, {10, 20, 0, 5, 0x1.2d97c7f3321d2p+2, 0x1.921fb54442d18p+0}}},
        // P1 = P3: the circle on P1 P2, no angles; all equal or collinear: z only.
        {three({1, 2, 0}, {5, 2, 9}, {1, 2, 4}), {-2, {3, 2, 9, 2, S, S}}},
        {three({1, 2, 0}, {1, 2, 4}, {1, 2, 4}), {-1, {S, S, 4, S, S, S}}},
        {three({1, 2, 0}, {3, 2, 1}, {5, 2, 0}), {-1, {S, S, 1, S, S, S}}},
        {three({1, 2, 0}, {5, 2, 0}, {5, 2, 0}), {-1, {S, S, 0, S, S, S}}},
    };
    for (const auto& [got, want] : rows) {
        EXPECT_EQ(got.first, want.first) << &got - &rows[0].first;
        for (int i = 0; i < 6; ++i) EXPECT_TRUE(same(got.second[i], want.second[i])) << &got - &rows[0].first << " " << i;
    }
}

// Every function returns one number; tolerance bounds sit on either side.
TEST(LinesAndTriangles, ClassesTiesAndBoundaries)
{
    auto D = [](P p, P a, P b) { return DistPoint2Line(p.data(), a.data(), b.data()); };
    auto D2 = [](P p, P a, P b) { return DistPoint2Line2d(p.data(), a.data(), b.data()); };
    auto on = [](P a, P b, P p) { return double(PointIsOnLine(a.data(), b.data(), p.data())); };
    auto in = [](P a, P b, P c, P p) { return double(PointIsInTriangle(a.data(), b.data(), c.data(), p.data())); };
    auto circle = [](P c, double r, P p) { return double(PointIsOnCircle(c.data(), r, p.data())); };
    auto per = [](P a, P b, P c) { return TranglePerimeter(a.data(), b.data(), c.data()); };
    auto area = [](P a, P b, P c) { return TrangleArea(a.data(), b.data(), c.data()); };
    const P o = {0, 0, 0}, x2 = {2, 0, 0}, x10 = {10, 0, 0}, y10 = {0, 10, 0};
    const std::pair<double, double> rows[] = {
        {on(o, o, o), 1}, {on(o, o, {1, 1, 0}), -3}, {on(o, x2, x2), 2}, {on(o, x2, {0, 0, 1}), 3},
        {on(o, x2, {1, 0, 0}), 0}, {on(o, x2, {-1, 0, 0}), -1}, {on(o, x2, {3, 0, 0}), -2},
        {on(o, x2, {1, 1e-5, 0}), 0}, {on(o, x2, {1, 1e-4, 0}), 3}, {on(o, {0, 0, 4}, {0, 0, 9}), -2},
        {D2({1, -3, 100}, o, {4, 0, 0}), 3}, {D2({4, -3, 0}, o, {3, 4, 0}), 5},
        {D2({3, 4, 0}, o, {1e-5, 0, 0}), 5},   // shorter than the root of the tolerance: the point A
        {D({1, 0, 0}, o, x2), 0}, {D({1, 3, 0}, o, x2), 3.0000000000000018}, {D({5, 0, 4}, o, x2), 4},
        {D({0.5, 2, 0}, o, {1e-5, 0, 0}), 2.000000000015262}, {D({3, 4, 0}, o, o), 5},
        {in(o, x10, y10, {2, 2, 0}), 1}, {in(o, y10, x10, {2, 2, 0}), 1}, {in(o, x10, y10, {6, 6, 0}), -1},
        {in(o, x10, y10, {11, 1, 0}), -1}, {in(o, x10, y10, o), 0}, {in(o, x10, y10, {1e-5, 0, 0}), 0},
        {in(o, x10, y10, {5, 0, 0}), -1}, {in(o, y10, x10, {5, 0, 0}), 1},   // an edge follows the orientation
        {circle(o, 1, {0.6, 0.8, 0}), 0}, {circle(o, 1, {0.999, 0, 0}), -2}, {circle(o, 1, {1.001, 0, 0}), -1},
        {circle(o, 1, {0, 0, 1}), 0}, {circle(o, 0, o), 0},
        {per(o, {3, 0, 0}, {3, 4, 0}), 7}, {per(o, {3, 0, 0}, {3, 0, 12}), 15},
        {area(o, {3, 0, 0}, {3, 4, 0}), 6}, {area({1, 1, 1}, {1, 3, 1}, {1, 1, 5}), 4}, {area(o, {1, 1, 1}, {2, 2, 2}), 0},
    };
    for (const auto& row : rows) EXPECT_TRUE(same(row.first, row.second)) << &row - rows << ": " << row.first;
    // Rounding leaves Heron's product slightly negative on the line: 0, not NaN.
    P a = {0.1, 0.7, 0.3}, b = {1.9, -2.3, 4.1};
    for (int i = 0; i <= 200; ++i) {
        double t = i / 37.0 - 2.0, d = D({a[0] + t * (b[0] - a[0]), a[1] + t * (b[1] - a[1]), a[2] + t * (b[2] - a[2])}, a, b);
        ASSERT_TRUE(d >= 0 && d < 1e-6) << i;
    }
}

// Functions that write a point: what is written, and the third coordinate
// left alone.
TEST(LinesAndTriangles, WrittenCentresAndCoefficients)
{
    auto norm = [](P a, P b) { P c = {9, 9, 9}; double r = NormalizeLine(a.data(), b.data(), c.data()); return std::array<double, 4>{r, c[0], c[1], c[2]}; };
    auto circum = [](P a, P b, P c) { P m = {9, 9, 9}; double r = TriangleCircumCircle(a.data(), b.data(), c.data(), m.data()); return std::array<double, 4>{r, m[0], m[1], m[2]}; };
    auto incircle = [](P a, P b, P c) { P m = {9, 9, 9}; double r = TriangleInscribedCircle(a.data(), b.data(), c.data(), m.data()); return std::array<double, 4>{r, m[0], m[1], m[2]}; };
    const P o = {0, 0, 0}, o7 = {0, 0, 7};
    const std::pair<std::array<double, 4>, std::array<double, 4>> rows[] = {
        {norm(o7, {1, 0, -7}), {1, 0, -1, 0}}, {norm({2, 3, 0}, {5, 7, 0}), {1, 4, -3, 1}}, {norm({2, 3, 0}, {2, 3, 5}), {0, 0, 0, -0.0}},
        {circum(o, {2, 0, 0}, {0, 2, 0}), {std::sqrt(2.0), 1, 1, 9}}, {circum(o, {1, 0, 0}, {4, 0, 0}), {4, 2, 0, 9}},
        {circum(o, {3, 4, 0}, {3, 4, 0}), {5, 1.5, 2, 9}},   // degenerate: the box's full diagonal
        {incircle(o7, {3, 0, 7}, {0, 4, 7}), {1, 1, 1, 9}}, {incircle(o7, {3, 0, 7}, {0, 4, -50}), {1, 1, 1, 9}},
        {incircle(o, {4, 0, 0}, {1, 0, 0}), {0, 1, 0, 9}}, {incircle({5, 6, 0}, {5 + 1e-10, 6, 0}, {5, 6, 0}), {0, 5, 6, 9}},
    };
    for (const auto& row : rows)
        for (int i = 0; i < 4; ++i) EXPECT_TRUE(same(row.first[i], row.second[i])) << &row - rows << " " << i << ": " << row.first[i];
}

}  // namespace
