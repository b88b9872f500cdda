// The exact-area oracle of the clipper.
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
#include "clip/exact_oracle.h"

#include <CGAL/Boolean_set_operations_2.h>
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "QELMath.h"
#include "clip/plain_clip.h"

namespace cliporacle {
namespace {

struct Rect {
    int x1, y1, x2, y2;
};

using K = CGAL::Exact_predicates_exact_constructions_kernel;
using Polygon = CGAL::Polygon_2<K>;
using PolygonWithHoles = CGAL::Polygon_with_holes_2<K>;

K::FT ToFT(std::int64_t v)   // exactly, in two 32-bit halves
{
    const std::int64_t hi = v / 4294967296, lo = v % 4294967296;
    return K::FT(static_cast<double>(hi)) * K::FT(4294967296.0) + K::FT(static_cast<double>(lo));
}

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

Verdict Exact(const Rect& c, Polygon poly, std::string& why)
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
        if (part.number_of_holes() != 0) why += "a hole in the exact intersection\n";   // never, for a simple polygon
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

std::string Describe(const Rect& c, const std::vector<int>& pts)
{
    std::string s = "rect " + std::to_string(c.x1) + " " + std::to_string(c.y1) + " " + std::to_string(c.x2) +
                    " " + std::to_string(c.y2) + " poly";
    for (int v : pts) s += " " + std::to_string(v);
    return s;
}

}  // namespace

std::string Check(int x1, int y1, int x2, int y2, const std::vector<int>& pts, Deviation& dev)
{
    const Rect c{x1, y1, x2, y2};
    const Polygon poly = ToPolygon(pts);
    if (!poly.is_simple() || poly.area() == 0) return "";
    ++dev.cases;
    std::string why;
    const Verdict exact = Exact(c, poly, why);
    int* out = nullptr;
    int* counts = nullptr;
    std::vector<int> mutablePts = pts;
    const int n = static_cast<int>(pts.size() / 2);
    const int k = ClipPolygonWithRect(x1, y1, x2, y2, mutablePts.data(), n, &out, &counts);
    // Ties are where the fast clipper could part from the plain procedure.
    int* plainPts = nullptr;
    int* plainCounts = nullptr;
    const int plain = plainclip::ClipPolygonWithRect(x1, y1, x2, y2, pts.data(), n, &plainPts, &plainCounts);
    if (plain != k) why += "plain gives " + std::to_string(plain) + ", fast " + std::to_string(k) + "\n";
    if (plain >= 1 && plain == k) {
        int m = 0;
        for (int i = 0; i < k; ++i) m += counts[i];
        if (!std::equal(counts, counts + k, plainCounts) || !std::equal(out, out + 2 * m, plainPts))
            why += "fast and plain contours differ\n";
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
        std::int64_t twice = 0, at = 0;
        for (int i = 0; i < k; ++i) {
            std::int64_t perimeter = 0;
            for (int j = 0; j < counts[i]; ++j) {
                const int* p = out + 2 * (at + j);
                const int* q = out + 2 * (at + (j + 1) % counts[i]);
                const std::int64_t dx = static_cast<std::int64_t>(p[0]) - q[0], dy = static_cast<std::int64_t>(p[1]) - q[1];
                twice += dx * (static_cast<std::int64_t>(p[1]) + q[1]);
                perimeter += (dx < 0 ? -dx : dx) + (dy < 0 ? -dy : dy);
            }
            bound += d * ToFT(perimeter) + K::FT(counts[i]) * d * d;
            at += counts[i];
        }
        area = ToFT(twice) / 2;
        mem_free(out);
        mem_free(counts);
    } else if (k == -2) {
        pieces = 1;
        area = CGAL::abs(poly.area());
    } else if (k == -3) {
        pieces = 1;
        area = ToFT(static_cast<std::int64_t>(x2) - x1) * ToFT(static_cast<std::int64_t>(y2) - y1);
    }
    bound += exact.thin;
    const K::FT off = CGAL::abs(area - exact.area);
    if (exact.required > pieces || pieces > exact.pieces)
        why += std::to_string(pieces) + " pieces, exact " + std::to_string(exact.pieces) + " of which " +
               std::to_string(exact.required) + " too wide to vanish\n";
    if (off > bound)
        why += "exact area " + std::to_string(CGAL::to_double(exact.area)) + ", ours " +
               std::to_string(CGAL::to_double(area)) + "\n";
    dev.vanished += pieces < exact.pieces ? 1 : 0;
    if (pieces == exact.pieces && bound > 0) {
        const double r = CGAL::to_double(off / bound);
        if (r > dev.worst) dev.worst = r;
    }
    return why.empty() ? why : Describe(c, pts) + "\n" + why;
}

}  // namespace cliporacle
