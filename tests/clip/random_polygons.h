// Random test polygons for the clipper with small integer coordinates, so
// that vertices fall on the rectangle's sides and corners often.
#ifndef QELMATH_TESTS_CLIP_RANDOM_POLYGONS_H
#define QELMATH_TESTS_CLIP_RANDOM_POLYGONS_H

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "foundation/elementary.h"

namespace clipcases {

// Draws of their own rather than std::uniform_*_distribution, whose outputs
// differ between standard libraries (libstdc++, libc++), so that the corpora,
// and the digests pinned over them, are the same on every platform. They
// give what GCC's library gives, so the corpora stayed as they were: an
// integer by Lemire's nearly divisionless method, a real from two 32-bit
// draws scaled by 2^-64.
inline int Draw(std::mt19937& rng, int lo, int hi)
{
    const std::uint32_t span = static_cast<std::uint32_t>(hi - lo) + 1u;
    std::uint64_t product = static_cast<std::uint64_t>(rng()) * span;
    if (static_cast<std::uint32_t>(product) < span) {
        const std::uint32_t threshold = (0u - span) % span;
        while (static_cast<std::uint32_t>(product) < threshold)
            product = static_cast<std::uint64_t>(rng()) * span;
    }
    return lo + static_cast<int>(product >> 32);
}

inline double Draw(std::mt19937& rng, double lo, double hi)
{
    const double low = static_cast<double>(rng());
    const double high = static_cast<double>(rng());
    double u = (low + high * 4294967296.0) / 18446744073709551616.0;
    if (u >= 1.0) u = std::nextafter(1.0, 0.0);
    return u * (hi - lo) + lo;
}

struct Case {
    int x1, y1, x2, y2;
    std::vector<int> pts;
};

// Histogram polygon (x-monotone, orthogonal): columns of random heights on
// y = 0, then turned by a multiple of 90 degrees and shifted; its notches
// cross the sides of a rectangle that cuts through the columns.
inline std::vector<int> Orthogonal(std::mt19937& rng, int columns, int span)
{
    std::vector<int> xs{0}, hs;
    for (int i = 0; i < columns; ++i) {
        xs.push_back(xs.back() + Draw(rng, 1, 4));
        hs.push_back(Draw(rng, 1, span));
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
    const int turn = Draw(rng, 0, 3);
    const int dx = Draw(rng, -10, 10);
    const int dy = Draw(rng, -10, 10);
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
    std::vector<double> angles(static_cast<std::size_t>(n));
    for (double& v : angles) v = Draw(rng, 0.0, 6.283185307179586);
    std::sort(angles.begin(), angles.end());
    std::vector<int> p;
    for (double t : angles) {
        const double rr = Draw(rng, rmin, rmax);
        // The library's own cosine and sine: the runtime's may differ in the
        // last bit from one platform to the next.
        p.push_back(static_cast<int>(std::lround(cx + rr * qel::cos(t))));
        p.push_back(static_cast<int>(std::lround(cy + rr * qel::sin(t))));
    }
    return p;
}

// Repeats some vertices in place, closes with the first point, reverses.
inline void Disturb(std::mt19937& rng, std::vector<int>& p)
{
    auto coin = [](std::mt19937& g) { return Draw(g, 0, 7); };
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
    auto v = [lo, hi](std::mt19937& g) { return Draw(g, lo, hi); };
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

// Squared distance from p to the segment a-b.
inline double SegmentDistance2(const int* p, const int* a, const int* b)
{
    const double dx = b[0] - a[0], dy = b[1] - a[1];
    const double len2 = dx * dx + dy * dy;
    double t = len2 > 0.0 ? ((p[0] - a[0]) * dx + (p[1] - a[1]) * dy) / len2 : 0.0;
    t = t < 0.0 ? 0.0 : (t > 1.0 ? 1.0 : t);
    const double ex = a[0] + t * dx - p[0], ey = a[1] + t * dy - p[1];
    return ex * ex + ey * ey;
}

// A star polygon and a rectangle with nothing for a tolerance to tie: the
// vertices distinct and off the sides' lines, every vertex and corner at least
// 0.01 from every edge it is not an end of.
inline Case KeptApart(std::mt19937& rng)
{
    for (;;) {
        Case c;
        c.pts = Star(rng, 3 + static_cast<int>(rng() % 28), 5.0, 60.0, 0.0, 0.0);
        Rectangle(rng, -50, 50, c);
        const int n = static_cast<int>(c.pts.size() / 2);
        const int corners[8] = {c.x1, c.y1, c.x2, c.y1, c.x2, c.y2, c.x1, c.y2};
        bool apart = true;
        for (int i = 0; i < n && apart; ++i) {
            const int* v = &c.pts[2 * static_cast<std::size_t>(i)];
            apart = v[0] != c.x1 && v[0] != c.x2 && v[1] != c.y1 && v[1] != c.y2;
            for (int e = 0; e < n && apart; ++e) {
                const int* a = &c.pts[2 * static_cast<std::size_t>(e)];
                const int* b = &c.pts[2 * static_cast<std::size_t>((e + 1) % n)];
                if (e != i && (e + 1) % n != i) apart = SegmentDistance2(v, a, b) >= 1e-4;
                for (int k = 0; k < 4 && apart; ++k) apart = SegmentDistance2(corners + 2 * k, a, b) >= 1e-4;
            }
        }
        if (!apart) continue;
        if (rng() % 2) {
            std::vector<int> r;
            for (std::size_t i = c.pts.size(); i >= 2; i -= 2) {
                r.push_back(c.pts[i - 2]);
                r.push_back(c.pts[i - 1]);
            }
            c.pts.swap(r);
        }
        return c;
    }
}

// FNV-1a over 32-bit values, for pinning the results of a corpus.
struct Fnv {
    std::uint64_t h = 14695981039346656037ull;
    void mix(int v)
    {
        for (int b = 0; b < 4; ++b) {
            h ^= (static_cast<std::uint32_t>(v) >> (8 * b)) & 0xFFu;
            h *= 1099511628211ull;
        }
    }
};

}  // namespace clipcases

#endif
