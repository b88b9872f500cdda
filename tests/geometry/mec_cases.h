// Shared by the enclosing-circle tests: point-set generators, and the
// comparison of the fast search with the plain one.
#pragma once
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "geometry/mec_reference.h"
#include "support/test_allocator.h"

namespace mectest {

using Points = std::vector<double>;
struct Circle { double cx, cy, r; };

template <void (*Search)(double*, int, double*, double*) = MinimumRadiusCircleFromPoints>
Circle fast(Points& pts)
{
    double c[3] = {-7, -7, -7};
    return Search(pts.data(), static_cast<int>(pts.size() / 2), c, c + 2), Circle{c[0], c[1], c[2]};
}

// Both run on copies: outputs and reordered arrays equal to the bit, and the
// same requests made.
inline ::testing::AssertionResult agrees(const Points& pts)
{
    Points a = pts, b = pts;
    testalloc::reset();
    const Circle f = fast(a);
    const auto requests = testalloc::requests();
    testalloc::reset();
    const Circle p = fast<mecref::reference_mec>(b);
    if (!std::memcmp(&f, &p, sizeof f) && !std::memcmp(a.data(), b.data(), 8 * a.size()) && requests == testalloc::requests())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "fast radius " << f.r << ", plain " << p.r << ", n = " << pts.size() / 2;
}

inline Points disc(std::mt19937_64& g, int n, double scale, Points pts = {})
{
    std::uniform_real_distribution<double> u(-1, 1);
    for (double x = u(g), y = u(g); static_cast<int>(pts.size()) < 2 * n; x = u(g), y = u(g))
        if (x * x + y * y <= 1) pts.insert(pts.end(), {x * scale, y * scale});
    return pts;
}

// On a circle around a random centre, at random or evenly spaced angles.
inline Points on_circle(std::mt19937_64& g, int n, double r, bool regular, Points pts = {})
{
    std::uniform_real_distribution<double> u(0, 6.283185307179586), off(-100, 100);
    const double ox = off(g), oy = off(g), phase = u(g);
    for (int i = 0; i < n; ++i) {
        double a = regular ? phase + i * 6.283185307179586 / n : u(g);
        pts.insert(pts.end(), {ox + r * std::cos(a), oy + r * std::sin(a)});
    }
    return pts;
}

// Small integers: many collinear triples and exact duplicates. With
// on_ring, lattice points of x^2 + y^2 = 25 or 65 only.
inline Points grid(std::mt19937_64& g, int n, int side, bool on_ring = false, Points pts = {})
{
    std::uniform_int_distribution<int> u(-side, side);
    const int r2 = g() & 1 ? 65 : 25;
    for (int x = u(g), y = u(g); static_cast<int>(pts.size()) < 2 * n; x = u(g), y = u(g))
        if (!on_ring || x * x + y * y == r2) pts.insert(pts.end(), {double(x), double(y)});
    return pts;
}

// A rectangle turned by a random angle with points inside, or an upright
// outline with points along its sides, in random order.
inline Points rectangle(std::mt19937_64& g, int extra, bool outline, Points pts = {})
{
    std::uniform_real_distribution<double> u(0, 3.141592653589793), side(0.1, 10), in(-0.5, 0.5);
    double a = outline ? 0 : u(g), w = side(g), h = side(g), c = std::cos(a), s = std::sin(a);
    std::vector<std::pair<double, double>> p = {{-w / 2, -h / 2}, {w / 2, -h / 2}, {w / 2, h / 2}, {-w / 2, h / 2}};
    for (double i = 0, t = -0.5; i < extra; ++i, t = i / extra - 0.5)
        if (outline) p.insert(p.end(), {{t * w, -h / 2}, {w / 2, t * h}, {-t * w, h / 2}, {-w / 2, -t * h}});
        else p.push_back({in(g) * w, in(g) * h});
    std::shuffle(p.begin() + (outline ? 0 : 4), p.end(), g);
    for (auto& q : p) pts.insert(pts.end(), {c * q.first - s * q.second, s * q.first + c * q.second});
    return pts;
}

}  // namespace mectest
