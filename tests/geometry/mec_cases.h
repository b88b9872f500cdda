// Shared by the enclosing-circle tests: point-set generators, and the
// comparison of the fast search with the plain one.
#ifndef QELMATH_TESTS_MEC_CASES_H
#define QELMATH_TESTS_MEC_CASES_H

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "geometry/mec_reference.h"
#include "support/test_allocator.h"

namespace mectest {

using Points = std::vector<double>;

struct Circle {
    double cx, cy, r;
};

inline Circle fast(Points& pts)
{
    Circle c{-7.0, -7.0, -7.0};
    double centre[2] = {c.cx, c.cy};
    MinimumRadiusCircleFromPoints(pts.data(), static_cast<int>(pts.size() / 2), centre, &c.r);
    c.cx = centre[0];
    c.cy = centre[1];
    return c;
}

inline Circle plain(Points& pts)
{
    Circle c{-7.0, -7.0, -7.0};
    double centre[2] = {c.cx, c.cy};
    mecref::reference_mec(pts.data(), static_cast<int>(pts.size() / 2), centre, &c.r);
    c.cx = centre[0];
    c.cy = centre[1];
    return c;
}

inline bool same_bits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// Runs both on copies of pts; every output and the reordered array must
// agree to the bit, and both must make the same requests.
inline ::testing::AssertionResult agrees(const Points& pts)
{
    Points a = pts, b = pts;
    testalloc::reset();
    Circle fa = fast(a);
    std::vector<std::uint32_t> fast_requests = testalloc::requests();
    testalloc::reset();
    Circle pb = plain(b);
    std::vector<std::uint32_t> plain_requests = testalloc::requests();
    if (!same_bits(fa.cx, pb.cx) || !same_bits(fa.cy, pb.cy) || !same_bits(fa.r, pb.r))
        return ::testing::AssertionFailure()
               << "fast (" << fa.cx << ", " << fa.cy << ", " << fa.r << ") plain (" << pb.cx
               << ", " << pb.cy << ", " << pb.r << ") for n = " << pts.size() / 2;
    if (std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) != 0)
        return ::testing::AssertionFailure() << "reordered arrays differ, n = " << pts.size() / 2;
    if (fast_requests != plain_requests)
        return ::testing::AssertionFailure() << "requests differ";
    return ::testing::AssertionSuccess();
}

// The circle must hold every point to 1e-12 relative.
inline ::testing::AssertionResult encloses_all(const Points& pts, const Circle& c)
{
    for (std::size_t i = 0; i + 1 < pts.size(); i += 2) {
        double d = std::hypot(pts[i] - c.cx, pts[i + 1] - c.cy);
        if (d > c.r * (1 + 1e-12) + 1e-300)
            return ::testing::AssertionFailure()
                   << "point " << i / 2 << " at " << d << " outside radius " << c.r;
    }
    return ::testing::AssertionSuccess();
}

// --- Equivalence with the plain search ------------------------------------

inline Points disc(std::mt19937_64& g, int n, double scale)
{
    std::uniform_real_distribution<double> u(-1, 1);
    Points pts;
    while (static_cast<int>(pts.size()) < 2 * n) {
        double x = u(g), y = u(g);
        if (x * x + y * y > 1) continue;
        pts.push_back(x * scale);
        pts.push_back(y * scale);
    }
    return pts;
}

inline Points on_circle(std::mt19937_64& g, int n, double r, bool regular)
{
    std::uniform_real_distribution<double> u(0, 6.283185307179586);
    std::uniform_real_distribution<double> off(-100, 100);
    double ox = off(g), oy = off(g), phase = u(g);
    Points pts;
    for (int i = 0; i < n; ++i) {
        double a = regular ? phase + i * 6.283185307179586 / n : u(g);
        pts.push_back(ox + r * std::cos(a));
        pts.push_back(oy + r * std::sin(a));
    }
    return pts;
}

// Small integer grid: many collinear triples and exact duplicates.
inline Points grid(std::mt19937_64& g, int n, int side)
{
    std::uniform_int_distribution<int> u(0, side);
    Points pts;
    for (int i = 0; i < n; ++i) {
        pts.push_back(u(g));
        pts.push_back(u(g));
    }
    return pts;
}

// Lattice points on x^2 + y^2 = 25 or 65, several of them, in random order.
inline Points cocircular_integers(std::mt19937_64& g, int n)
{
    static const int c25[][2] = {{5, 0}, {4, 3}, {3, 4}, {0, 5}, {-3, 4}, {-4, 3}, {-5, 0},
                                 {-4, -3}, {-3, -4}, {0, -5}, {3, -4}, {4, -3}};
    static const int c65[][2] = {{1, 8}, {8, 1}, {4, 7}, {7, 4}, {-1, 8}, {-8, 1}, {-4, 7},
                                 {-7, 4}, {1, -8}, {8, -1}, {4, -7}, {7, -4}, {-1, -8},
                                 {-8, -1}, {-4, -7}, {-7, -4}};
    bool big = g() & 1;
    int count = big ? 16 : 12;
    std::uniform_int_distribution<int> u(0, count - 1);
    Points pts;
    for (int i = 0; i < n; ++i) {
        int k = u(g);
        pts.push_back(big ? c65[k][0] : c25[k][0]);
        pts.push_back(big ? c65[k][1] : c25[k][1]);
    }
    return pts;
}

// A rectangle turned by a random angle, possibly with interior points.
inline Points rotated_rectangle(std::mt19937_64& g, int extra)
{
    std::uniform_real_distribution<double> u(0, 3.141592653589793);
    std::uniform_real_distribution<double> side(0.1, 10);
    std::uniform_real_distribution<double> in(-0.5, 0.5);
    double a = u(g), w = side(g), h = side(g), c = std::cos(a), s = std::sin(a);
    Points pts;
    auto put = [&](double x, double y) {
        pts.push_back(c * x - s * y);
        pts.push_back(s * x + c * y);
    };
    put(-w / 2, -h / 2);
    put(w / 2, -h / 2);
    put(w / 2, h / 2);
    put(-w / 2, h / 2);
    for (int i = 0; i < extra; ++i) put(in(g) * w, in(g) * h);
    return pts;
}

// The outline of an axis-parallel rectangle with points along its sides, in
// random order: exact collinear runs on the hull.
inline Points rectangle_outline(std::mt19937_64& g, int per_side)
{
    std::uniform_real_distribution<double> u(0.5, 4);
    double w = u(g), h = u(g);
    std::vector<std::pair<double, double>> p;
    for (int i = 0; i < per_side; ++i) {
        double t = static_cast<double>(i) / per_side;
        p.push_back({-w + 2 * w * t, -h});
        p.push_back({w, -h + 2 * h * t});
        p.push_back({w - 2 * w * t, h});
        p.push_back({-w, h - 2 * h * t});
    }
    std::shuffle(p.begin(), p.end(), g);
    Points pts;
    for (auto& q : p) {
        pts.push_back(q.first);
        pts.push_back(q.second);
    }
    return pts;
}

}  // namespace mectest

#endif
