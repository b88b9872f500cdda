// The clipper against the exact intersection of a simple polygon with the
// rectangle (CGAL's exact booleans on rational numbers), on input made of
// ties: vertices on sides and corners, edges along sides, slivers, and pieces
// that pinch together at a point of a side. Each result must also be the
// plain procedure's, bit for bit.
//
// Pieces are the connected parts of the intersection's interior, so two parts
// that meet at a point are two pieces; CGAL keeps them in one outline that
// visits the point twice, and each repeated visit closes one more piece.
//
// Area: a contour's vertices p_i come out rounded as q_i = p_i - e_i with
// |e_i| <= d on each axis, d = 1/2 plus 1e-3 for the merging of points closer
// than the coincidence radius. From the shoelace sum,
//   2A(p) - 2A(q) = sum cross(e_i, q_i+1 - q_i-1) + sum cross(e_i, e_i+1),
// and |cross(e, w)| <= d (|w_x| + |w_y|), so
//   |A(p) - A(q)| <= d P + n d^2,
// P the contour's perimeter in the 1-norm and n its vertex count, both read
// from the output. The bound is summed over the contours, plus the area of
// the exact pieces thin enough to vanish (see Verdict).
#include <gtest/gtest.h>

#include <CGAL/Boolean_set_operations_2.h>
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>

#include <cstdlib>
#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "QELMath.h"
#include "clip/plain_clip.h"
#include "clip/random_polygons.h"

namespace {

using K = CGAL::Exact_predicates_exact_constructions_kernel;
using Polygon = CGAL::Polygon_2<K>;
using PolygonWithHoles = CGAL::Polygon_with_holes_2<K>;

Polygon ToPolygon(const std::vector<int>& p)
{
    Polygon poly;
    for (std::size_t i = 0; i < p.size(); i += 2) poly.push_back(K::Point_2(p[i], p[i + 1]));
    return poly;
}

// Pieces of the exact intersection: all of them, and those too wide to
// vanish. A piece whose points all merge into one or two vertices under the
// coincidence radius (0.001) cannot be held by the clipper's graph; it lies
// within 0.001 of a segment, so its area is at most 0.001 times its
// perimeter (plus the discs at the ends): pieces with area above 0.002 times
// their 1-norm perimeter must come out, thinner ones may.
struct Verdict {
    int pieces = 0, required = 0;
    K::FT area = 0, thin = 0;   // thin: area of the pieces that may vanish
};

void AddPiece(const std::vector<K::Point_2>& loop, Verdict& v)
{
    Polygon piece(loop.begin(), loop.end());
    double perimeter = 0.0;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const K::Point_2& p = loop[i];
        const K::Point_2& q = loop[(i + 1) % loop.size()];
        perimeter += std::fabs(CGAL::to_double(p.x() - q.x())) + std::fabs(CGAL::to_double(p.y() - q.y()));
    }
    const bool wide = CGAL::to_double(piece.area()) > 2e-3 * perimeter;
    ++v.pieces;
    v.required += wide ? 1 : 0;
    v.area += piece.area();
    if (!wide) v.thin += piece.area();
}

Verdict Exact(const clipcases::Case& c, Polygon poly)
{
    if (poly.is_clockwise_oriented()) poly.reverse_orientation();
    Polygon rect;
    rect.push_back(K::Point_2(c.x1, c.y1));
    rect.push_back(K::Point_2(c.x2, c.y1));
    rect.push_back(K::Point_2(c.x2, c.y2));
    rect.push_back(K::Point_2(c.x1, c.y2));
    std::vector<PolygonWithHoles> parts;
    CGAL::intersection(poly, rect, std::back_inserter(parts));
    Verdict v;
    for (const PolygonWithHoles& part : parts) {
        EXPECT_EQ(part.number_of_holes(), 0u);   // a simple polygon cut by a convex one has none
        // Split the outline where it visits a point again: each loop closed
        // there is a piece of its own.
        std::vector<K::Point_2> open;
        for (const K::Point_2& q : part.outer_boundary().container()) {
            std::size_t j = open.size();
            while (j > 0 && open[j - 1] != q) --j;
            if (j == 0) {
                open.push_back(q);
                continue;
            }
            AddPiece(std::vector<K::Point_2>(open.begin() + static_cast<std::ptrdiff_t>(j) - 1, open.end()), v);
            open.resize(j);
        }
        AddPiece(open, v);
    }
    return v;
}

struct Deviation {
    int cases = 0, clipped = 0, vanished = 0;   // vanished: cases where thin pieces did
    double worst = 0.0;   // largest deviation over the rounding bound, where nothing vanished
};

std::string Describe(const clipcases::Case& c)
{
    std::string s = "rect " + std::to_string(c.x1) + " " + std::to_string(c.y1) + " " + std::to_string(c.x2) +
                    " " + std::to_string(c.y2) + " poly";
    for (int v : c.pts) s += " " + std::to_string(v);
    return s;
}

// Checks one case; false (and a failure) when the clipper disagrees.
bool Agrees(const clipcases::Case& c, Deviation& dev)
{
    const Polygon poly = ToPolygon(c.pts);
    if (!poly.is_simple() || poly.area() == 0) return true;
    ++dev.cases;
    const Verdict exact = Exact(c, poly);
    int* pts = nullptr;
    int* counts = nullptr;
    std::vector<int> mutablePts = c.pts;
    const int n = static_cast<int>(c.pts.size() / 2);
    const int k = ClipPolygonWithRect(c.x1, c.y1, c.x2, c.y2, mutablePts.data(), n, &pts, &counts);
    // Ties are where the fast clipper could part from the plain procedure.
    int* plainPts = nullptr;
    int* plainCounts = nullptr;
    const int plain = plainclip::ClipPolygonWithRect(c.x1, c.y1, c.x2, c.y2, c.pts.data(), n, &plainPts, &plainCounts);
    EXPECT_EQ(plain, k) << Describe(c);
    if (plain >= 1 && plain == k) {
        int m = 0;
        for (int i = 0; i < k; ++i) m += counts[i];
        EXPECT_TRUE(std::equal(counts, counts + k, plainCounts) && std::equal(pts, pts + 2 * m, plainPts))
            << Describe(c);
    }
    if (plain >= 1) {
        mem_free(plainPts);
        mem_free(plainCounts);
    }
    int pieces = 0;
    K::FT area = 0, bound = 0;
    const K::FT d = K::FT(501) / 1000;
    if (k >= 1) {
        ++dev.clipped;
        pieces = k;
        long twice = 0, at = 0;
        for (int i = 0; i < k; ++i) {
            long perimeter = 0;
            for (int j = 0; j < counts[i]; ++j) {
                const int* p = pts + 2 * (at + j);
                const int* q = pts + 2 * (at + (j + 1) % counts[i]);
                twice += static_cast<long>(p[0] - q[0]) * (p[1] + q[1]);
                perimeter += std::labs(static_cast<long>(p[0]) - q[0]) + std::labs(static_cast<long>(p[1]) - q[1]);
            }
            bound += d * K::FT(perimeter) + K::FT(counts[i]) * d * d;
            at += counts[i];
        }
        area = K::FT(twice) / 2;
        mem_free(pts);
        mem_free(counts);
    } else if (k == -2) {
        pieces = 1;
        area = CGAL::abs(poly.area());
    } else if (k == -3) {
        pieces = 1;
        area = K::FT(static_cast<long>(c.x2 - c.x1) * (c.y2 - c.y1));
    }
    bound += exact.thin;
    const K::FT off = CGAL::abs(area - exact.area);
    const bool counted = exact.required <= pieces && pieces <= exact.pieces;
    EXPECT_TRUE(counted) << Describe(c) << "\n" << pieces << " pieces, exact " << exact.pieces << " of which "
                         << exact.required << " too wide to vanish";
    EXPECT_LE(off, bound) << Describe(c) << "\nexact area " << CGAL::to_double(exact.area) << ", ours "
                          << CGAL::to_double(area);
    dev.vanished += pieces < exact.pieces ? 1 : 0;
    if (pieces == exact.pieces && bound > 0) {
        const double r = CGAL::to_double(off / bound);
        if (r > dev.worst) dev.worst = r;
    }
    return counted && off <= bound;
}

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
    Deviation dev;
    int failures = 0;
    for (int i = 0; i < cases && failures < 5; ++i) failures += Agrees(make(rng), dev) ? 0 : 1;
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
