// Random test polygons for the clipper with small integer coordinates, so
// that vertices fall on the rectangle's sides and corners often.
#ifndef QELMATH_TESTS_CLIP_RANDOM_POLYGONS_H
#define QELMATH_TESTS_CLIP_RANDOM_POLYGONS_H

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace clipcases {

struct Case {
    int x1, y1, x2, y2;
    std::vector<int> pts;
};

// Histogram polygon (x-monotone, orthogonal): columns of random heights on
// y = 0, then turned by a multiple of 90 degrees and shifted; its notches
// cross the sides of a rectangle that cuts through the columns.
inline std::vector<int> Orthogonal(std::mt19937& rng, int columns, int span)
{
    std::uniform_int_distribution<int> w(1, 4), h(1, span);
    std::vector<int> xs{0}, hs;
    for (int i = 0; i < columns; ++i) {
        xs.push_back(xs.back() + w(rng));
        hs.push_back(h(rng));
    }
    std::vector<int> p{xs.back(), 0, 0, 0};
    for (int i = 0; i < columns; ++i) {
        p.push_back(xs[i]);
        p.push_back(hs[i]);
        p.push_back(xs[i + 1]);
        p.push_back(hs[i]);
    }
    // Drop collinear repeats where neighbouring columns share a height.
    std::vector<int> q;
    const int n = static_cast<int>(p.size() / 2);
    for (int i = 0; i < n; ++i) {
        const int a = (i + n - 1) % n, c = (i + 1) % n;
        const long cross = static_cast<long>(p[2 * i] - p[2 * a]) * (p[2 * c + 1] - p[2 * i + 1]) -
                           static_cast<long>(p[2 * i + 1] - p[2 * a + 1]) * (p[2 * c] - p[2 * i]);
        if (cross == 0 && (p[2 * i] != p[2 * a] || p[2 * i + 1] != p[2 * a + 1])) continue;
        if (p[2 * i] == p[2 * a] && p[2 * i + 1] == p[2 * a + 1]) continue;
        q.push_back(p[2 * i]);
        q.push_back(p[2 * i + 1]);
    }
    const int turn = std::uniform_int_distribution<int>(0, 3)(rng);
    const int dx = std::uniform_int_distribution<int>(-10, 10)(rng);
    const int dy = std::uniform_int_distribution<int>(-10, 10)(rng);
    for (std::size_t i = 0; i < q.size(); i += 2) {
        int x = q[i], y = q[i + 1];
        for (int t = 0; t < turn; ++t) {
            const int nx = -y;
            y = x;
            x = nx;
        }
        q[i] = x + dx;
        q[i + 1] = y + dy;
    }
    return q;
}

// Star-shaped about its centre: sorted angles, random radii.
inline std::vector<int> Star(std::mt19937& rng, int n, double rmin, double rmax, double cx, double cy)
{
    std::uniform_real_distribution<double> a(0.0, 6.283185307179586), r(rmin, rmax);
    std::vector<double> angles(static_cast<std::size_t>(n));
    for (double& v : angles) v = a(rng);
    std::sort(angles.begin(), angles.end());
    std::vector<int> p;
    for (double t : angles) {
        const double rr = r(rng);
        p.push_back(static_cast<int>(std::lround(cx + rr * std::cos(t))));
        p.push_back(static_cast<int>(std::lround(cy + rr * std::sin(t))));
    }
    return p;
}

// Repeats some vertices in place, closes with the first point, reverses.
inline void Disturb(std::mt19937& rng, std::vector<int>& p)
{
    std::uniform_int_distribution<int> coin(0, 7);
    std::vector<int> q;
    for (std::size_t i = 0; i < p.size(); i += 2) {
        q.push_back(p[i]);
        q.push_back(p[i + 1]);
        if (coin(rng) == 0) {
            q.push_back(p[i]);
            q.push_back(p[i + 1]);
        }
    }
    if (coin(rng) == 0) {
        q.push_back(q[0]);
        q.push_back(q[1]);
    }
    if (coin(rng) < 4) {
        std::vector<int> r;
        for (std::size_t i = q.size(); i >= 2; i -= 2) {
            r.push_back(q[i - 2]);
            r.push_back(q[i - 1]);
        }
        q.swap(r);
    }
    p.swap(q);
}

// A rectangle over [lo, hi]^2 with integer corners.
inline void Rectangle(std::mt19937& rng, int lo, int hi, Case& c)
{
    std::uniform_int_distribution<int> v(lo, hi);
    do {
        c.x1 = v(rng);
        c.x2 = v(rng);
    } while (c.x1 == c.x2);
    do {
        c.y1 = v(rng);
        c.y2 = v(rng);
    } while (c.y1 == c.y2);
    if (c.x1 > c.x2) std::swap(c.x1, c.x2);
    if (c.y1 > c.y2) std::swap(c.y1, c.y2);
}

}  // namespace clipcases

#endif
