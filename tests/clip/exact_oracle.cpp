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
// and |cross(e, w)| <= d (|w_x| + |w_y|), so |A(p) - A(q)| <= d P + n d^2,
// P the contour's perimeter in the 1-norm and n its vertex count, both read
// from the output; summed over the contours, plus the area of the exact
// pieces thin enough to vanish.
//
// A piece whose points all merge into one or two vertices under the
// coincidence radius (0.001) cannot be held by the clipper's graph; it lies
// within 0.001 of a segment, so its area is at most 0.001 times its perimeter
// (plus the discs at the ends): pieces with area above 0.002 times their
// 1-norm perimeter must come out, thinner ones may.
#include "clip/exact_oracle.h"

#include <CGAL/Boolean_set_operations_2.h>
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>

#include <cmath>
#include <cstdint>

#include "QELMath.h"
#include "clip/plain_clip.h"

namespace cliporacle {
namespace {

using K = CGAL::Exact_predicates_exact_constructions_kernel;
using FT = K::FT;
using Point = K::Point_2;
using Polygon = CGAL::Polygon_2<K>;

FT Exact(std::int64_t v) { return FT(static_cast<double>(v / 4294967296)) * FT(4294967296.0) + FT(static_cast<double>(v % 4294967296)); }

struct Verdict {
    int pieces = 0, required = 0;
    FT area = 0, thin = 0;   // thin: area of the pieces that may vanish
    void add(const std::vector<Point>& loop)
    {
        const FT a = Polygon(loop.begin(), loop.end()).area();
        double perimeter = 0.0;
        for (std::size_t i = 0; i < loop.size(); ++i) {
            const Point& q = loop[(i + 1) % loop.size()];
            perimeter += std::fabs(CGAL::to_double(loop[i].x() - q.x())) + std::fabs(CGAL::to_double(loop[i].y() - q.y()));
        }
        const bool wide = CGAL::to_double(a) > 2e-3 * perimeter;
        ++pieces;
        required += wide;
        area += a;
        if (!wide) thin += a;
    }
};

// The fast clipper's result against the plain procedure's, freeing both.
bool SameAsPlain(int x1, int y1, int x2, int y2, const std::vector<int>& pts, int k, int* out, int* counts, std::string& why)
{
    int *pp = nullptr, *pc = nullptr;
    const int plain = plainclip::ClipPolygonWithRect(x1, y1, x2, y2, pts.data(), static_cast<int>(pts.size() / 2), &pp, &pc);
    if (plain != k) why += "plain gives " + std::to_string(plain) + ", fast " + std::to_string(k) + "\n";
    if (plain < 1) return true;
    int m = 0;
    for (int i = 0; i < plain && plain == k; ++i) m += counts[i];
    if (plain == k && (!std::equal(counts, counts + k, pc) || !std::equal(out, out + 2 * m, pp)))
        why += "fast and plain contours differ\n";
    mem_free(pp);
    mem_free(pc);
    return true;
}

}  // namespace

std::string Check(int x1, int y1, int x2, int y2, const std::vector<int>& pts, Deviation& dev)
{
    Polygon poly;
    for (std::size_t i = 0; i < pts.size(); i += 2) poly.push_back(Point(pts[i], pts[i + 1]));
    if (!poly.is_simple() || poly.area() == 0) return "";
    ++dev.cases;
    std::string why;
    if (poly.is_clockwise_oriented()) poly.reverse_orientation();
    const Point corners[4] = {Point(x1, y1), Point(x2, y1), Point(x2, y2), Point(x1, y2)};
    std::vector<CGAL::Polygon_with_holes_2<K>> parts;
    CGAL::intersection(poly, Polygon(corners, corners + 4), std::back_inserter(parts));
    Verdict exact;
    for (const auto& part : parts) {
        if (part.number_of_holes() != 0) why += "a hole in the exact intersection\n";   // never, for a simple polygon
        std::vector<Point> open;
        for (const Point& q : part.outer_boundary().container()) {
            std::size_t j = open.size();
            while (j > 0 && open[j - 1] != q) --j;
            if (j > 0) exact.add(std::vector<Point>(open.begin() + static_cast<std::ptrdiff_t>(j) - 1, open.end()));
            open.resize(j > 0 ? j : open.size());
            if (j == 0) open.push_back(q);
        }
        exact.add(open);
    }
    int *out = nullptr, *counts = nullptr;
    std::vector<int> copy = pts;
    const int k = ClipPolygonWithRect(x1, y1, x2, y2, copy.data(), static_cast<int>(pts.size() / 2), &out, &counts);
    SameAsPlain(x1, y1, x2, y2, pts, k, out, counts, why);
    int pieces = k >= 1 ? k : (k == -2 || k == -3);
    FT area = k == -2 ? CGAL::abs(poly.area()) : k == -3 ? Exact(std::int64_t{x2} - x1) * Exact(std::int64_t{y2} - y1) : FT(0);
    FT bound = exact.thin;
    if (k >= 1) {
        ++dev.clipped;
        const FT d = FT(501) / 1000;
        std::int64_t twice = 0;
        for (int i = 0, at = 0; i < k; at += counts[i++]) {
            std::int64_t perimeter = 0;
            for (int j = 0; j < counts[i]; ++j) {
                const int* p = out + 2 * (at + j);
                const int* q = out + 2 * (at + (j + 1) % counts[i]);
                const std::int64_t dx = std::int64_t{p[0]} - q[0], dy = std::int64_t{p[1]} - q[1];
                twice += dx * (std::int64_t{p[1]} + q[1]);
                perimeter += std::llabs(dx) + std::llabs(dy);
            }
            bound += d * Exact(perimeter) + FT(counts[i]) * d * d;
        }
        area = Exact(twice) / 2;
        mem_free(out);
        mem_free(counts);
    }
    const FT off = CGAL::abs(area - exact.area);
    if (exact.required > pieces || pieces > exact.pieces)
        why += std::to_string(pieces) + " pieces, exact " + std::to_string(exact.pieces) + " of which " +
               std::to_string(exact.required) + " too wide to vanish\n";
    if (off > bound)
        why += "exact area " + std::to_string(CGAL::to_double(exact.area)) + ", ours " + std::to_string(CGAL::to_double(area)) + "\n";
    dev.vanished += pieces < exact.pieces;
    if (pieces == exact.pieces && bound > 0) dev.worst = std::max(dev.worst, CGAL::to_double(off / bound));
    if (why.empty()) return why;
    std::string s = "rect " + std::to_string(x1) + " " + std::to_string(y1) + " " + std::to_string(x2) + " " + std::to_string(y2) + " poly";
    for (int v : pts) s += " " + std::to_string(v);
    return s + "\n" + why;
}

}  // namespace cliporacle
