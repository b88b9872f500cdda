#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "QELMath.h"

namespace {

using P = std::array<double, 3>;
using Out = std::array<double, 7>;   // code or result, then what is written
constexpr double S = -777.0;          // left where nothing is written
const double kPi = 0x1.921fb54442d18p+1;

const P o = {0, 0, 0}, x2 = {2, 0, 0}, x10 = {10, 0, 0}, y10 = {0, 10, 0};

Out bulge(P a, P b, double k, Out r = {0, S, S, S, S, S, S}) { return r[0] = Bulge2Arc(a.data(), b.data(), k, &r[1], &r[4], &r[5], &r[6]), r; }
Out three(P a, P b, P c, Out r = {0, S, S, S, S, S, S}) { return r[0] = ThreePoints2Arc(a.data(), b.data(), c.data(), &r[1], &r[4], &r[5], &r[6]), r; }
template <class F> Out point(F f, P a, P b, P c = {}, Out r = {0, S, S, S, S, S, S}) { return r[0] = f(a.data(), b.data(), c.data(), &r[1]), r; }

// Arcs: code, centre, radius, start and end angle. Then the functions that
// write a point or line coefficients, and the third coordinate left alone.
TEST(Shapes, WhatIsWrittenAtTiesAndDegenerateInput)
{
    auto norm = [](double* a, double* b, double*, double* c) { return double(NormalizeLine(a, b, c)); };
    const std::pair<Out, Out> rows[] = {
        {bulge({1, 0, 0}, {-1, 0, 0}, -1), {0, 0, 0, 0, 1, kPi, 0}},
        {bulge({1, 0, 0}, {0, 1, 0}, 0x1.a827999fcef34p-2), {0, 0x1p-54, 0x1p-54, 0, 1, 0, 0x1.921fb54442d19p+0}},
        {bulge(o, x2, -2), {0, 1, 0.75, 0, 1.25, 0x1.68f095fdf593cp+2, 0x1.e47df3d0dd4dp+1}},   // more than half a turn
        {bulge({0, 0, 5}, {2, 0, 5}, 1), {0, 1, 0, 5, 1, kPi, 0}}, {bulge(o, x2, 1e-10), {1, S, S, S, S, S, S}},
        {bulge(o, {2, 0, 1e-3}, 0.5), {-2, S, S, S, S, S, S}}, {bulge({3, 4, 1}, {3, 4, 2}, 0.5), {-2, S, S, S, S, S, S}},
        {bulge({3, 4, 1}, {3, 4, 1}, 0.5), {-1, S, S, S, S, S, S}}, {three({1, 0, 0}, {0, -1, 3}, {-1, 0, 0}), {0, 0, -0.0, 3, 1, kPi, 0}},
        {three({10, 15, 0}, {15, 20, 0}, {10, 25, 0}), {0, 10, 20, 0, 5, 0x1.2d97c7f3321d2p+2, 0x1.921fb54442d18p+0}},
        {three({1, 2, 0}, {5, 2, 9}, {1, 2, 4}), {-2, 3, 2, 9, 2, S, S}},   // P1 = P3: the circle on P1 P2
        {three({1, 2, 0}, {1, 2, 4}, {1, 2, 4}), {-1, S, S, 4, S, S, S}}, {three({1, 2, 0}, {3, 2, 1}, {5, 2, 0}), {-1, S, S, 1, S, S, S}},
        {three({1, 2, 0}, {5, 2, 0}, {5, 2, 0}), {-1, S, S, 0, S, S, S}}, {point(norm, {0, 0, 7}, {1, 0, -7}), {1, 0, -1, 0, S, S, S}},
        {point(norm, {2, 3, 0}, {5, 7, 0}), {1, 4, -3, 1, S, S, S}}, {point(norm, {2, 3, 0}, {2, 3, 5}), {0, 0, 0, -0.0, S, S, S}},
        {point(TriangleCircumCircle, o, x2, {0, 2, 0}), {0x1.6a09e667f3bcdp+0, 1, 1, S, S, S, S}},
        {point(TriangleCircumCircle, o, {3, 4, 0}, {3, 4, 0}), {5, 1.5, 2, S, S, S, S}},   // the box's full diagonal
        {point(TriangleInscribedCircle, {0, 0, 7}, {3, 0, 7}, {0, 4, -50}), {1, 1, 1, S, S, S, S}},
        {point(TriangleInscribedCircle, o, {4, 0, 0}, {1, 0, 0}), {0, 1, 0, S, S, S, S}},
        {point(TriangleInscribedCircle, {5, 6, 0}, {5 + 1e-10, 6, 0}, {5, 6, 0}), {0, 5, 6, S, S, S, S}},
    };
    for (const auto& row : rows)
        for (int i = 0; i < 7; ++i) EXPECT_TRUE(std::memcmp(&row.first[i], &row.second[i], 8) == 0) << &row - rows << " " << i << ": " << row.first[i];
}

// Classes at the tolerance on either side, the side an edge point falls to,
// and Heron's rounding.
TEST(Shapes, ClassesAndDistances)
{
    auto on = [](P a, P b, P p) { return double(PointIsOnLine(a.data(), b.data(), p.data())); };
    auto in = [](P a, P b, P c, P p) { return double(PointIsInTriangle(a.data(), b.data(), c.data(), p.data())); };
    auto circle = [](P c, double r, P p) { return double(PointIsOnCircle(c.data(), r, p.data())); };
    auto d = [](double (*f)(double*, double*, double*), P p, P a, P b) { return f(p.data(), a.data(), b.data()); };
    const std::pair<double, double> rows[] = {
        {on(o, o, o), 1}, {on(o, o, {1, 1, 0}), -3}, {on(o, x2, x2), 2}, {on(o, x2, {0, 0, 1}), 3}, {on(o, x2, {-1, 0, 0}), -1},
        {on(o, x2, {3, 0, 0}), -2}, {on(o, x2, {1, 1e-5, 0}), 0}, {on(o, x2, {1, 1e-4, 0}), 3}, {in(o, y10, x10, {2, 2, 0}), 1},
        {in(o, x10, y10, {6, 6, 0}), -1}, {in(o, x10, y10, o), 0}, {in(o, x10, y10, {1e-5, 0, 0}), 0}, {in(o, x10, y10, {5, 0, 0}), -1},
        {in(o, y10, x10, {5, 0, 0}), 1}, {circle(o, 1, {0.6, 0.8, 0}), 0}, {circle(o, 1, {0.999, 0, 0}), -2}, {circle(o, 1, {1.001, 0, 0}), -1},
        {circle(o, 1, {0, 0, 1}), 0}, {d(DistPoint2Line2d, {1, -3, 100}, o, {4, 0, 0}), 3}, {d(DistPoint2Line2d, {3, 4, 0}, o, {1e-5, 0, 0}), 5},
        {d(DistPoint2Line, {1, 3, 0}, o, x2), 3.0000000000000018}, {d(DistPoint2Line, {0.5, 2, 0}, o, {1e-5, 0, 0}), 2.000000000015262},
        {d(DistPoint2Line, {3, 4, 0}, o, o), 5}, {d(DistPoint2Line, {1, 0, 0}, o, x2), 0},
    };
    for (const auto& row : rows) EXPECT_TRUE(std::memcmp(&row.first, &row.second, 8) == 0) << &row - rows << ": " << row.first;
    // On the line, rounding leaves Heron's product slightly negative: 0, not NaN.
    P a = {0.1, 0.7, 0.3}, b = {1.9, -2.3, 4.1};
    for (double t = -2.0; t < 3.5; t += 1 / 37.0)
        ASSERT_LT(d(DistPoint2Line, {a[0] + t * (b[0] - a[0]), a[1] + t * (b[1] - a[1]), a[2] + t * (b[2] - a[2])}, a, b), 1e-6) << t;
}

}  // namespace
