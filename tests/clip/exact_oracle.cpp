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

#include "QELMath.h"

namespace cliporacle {
namespace {

using K = CGAL::Exact_predicates_exact_constructions_kernel;
using FT = K::FT;
using Point = K::Point_2;
using Polygon = CGAL::Polygon_2<K>;

// In the 1-norm.
FT Perimeter(const Polygon& p) { FT s = 0; for (const auto& e : p.edges()) s += CGAL::abs(e.to_vector().x()) + CGAL::abs(e.to_vector().y()); return s; }

}  // namespace

std::string Check(int x1, int y1, int x2, int y2, const std::vector<int>& pts, Deviation& dev)
{
    Polygon poly;
    for (std::size_t i = 0; i < pts.size(); i += 2) poly.push_back(Point(pts[i], pts[i + 1]));
    if (!poly.is_simple() || poly.area() == 0) return "";
    ++dev.cases;
    if (poly.is_clockwise_oriented()) poly.reverse_orientation();
    const Point corners[4] = {Point(x1, y1), Point(x2, y1), Point(x2, y2), Point(x1, y2)};
    std::vector<CGAL::Polygon_with_holes_2<K>> parts;
    CGAL::intersection(poly, Polygon(corners, corners + 4), std::back_inserter(parts));
    // The exact pieces: their number, how many are too wide to vanish, their
    // area and the area of the thin ones. A simple polygon leaves no holes.
    int exact = 0, wide = 0;
    FT exactArea = 0, thin = 0;
    auto piece = [&](const std::vector<Point>& loop) {
        const Polygon p(loop.begin(), loop.end());
        const bool w = p.area() > FT(2) / 1000 * Perimeter(p);
        ++exact, wide += w, exactArea += p.area(), thin += w ? FT(0) : p.area();
    };
    std::string why;
    for (const auto& part : parts) {
        if (part.number_of_holes() != 0) why += "a hole in the exact intersection\n";
        std::vector<Point> open;
        for (const Point& q : part.outer_boundary().container()) {
            std::size_t j = open.size();
            while (j > 0 && open[j - 1] != q) --j;
            if (j > 0) piece(std::vector<Point>(open.begin() + static_cast<std::ptrdiff_t>(j) - 1, open.end())), open.resize(j);
            else open.push_back(q);
        }
        piece(open);
    }
    int *out = nullptr, *counts = nullptr;   // the clipper only reads the points
    const int k = ClipPolygonWithRect(x1, y1, x2, y2, const_cast<int*>(pts.data()), static_cast<int>(pts.size() / 2), &out, &counts);
    const int pieces = k >= 1 ? k : (k == -2 || k == -3);
    FT area = k == -2 ? CGAL::abs(poly.area()) : k == -3 ? (FT(x2) - FT(x1)) * (FT(y2) - FT(y1)) : FT(0), bound = thin, d = FT(501) / 1000;
    for (int i = 0, at = 0; i < k; at += counts[i++]) {
        Polygon c;
        for (int j = at; j < at + counts[i]; ++j) c.push_back(Point(out[2 * j], out[2 * j + 1]));
        area += c.area();
        bound += FT(counts[i]) * d * d + d * Perimeter(c);
    }
    if (k >= 1) ++dev.clipped, mem_free(out), mem_free(counts);
    const FT off = CGAL::abs(area - exactArea);
    dev.vanished += pieces < exact;
    if (pieces == exact && bound > 0 && CGAL::to_double(off / bound) > dev.worst) dev.worst = CGAL::to_double(off / bound);
    if (wide > pieces || pieces > exact) why += std::to_string(pieces) + " pieces, exact " + std::to_string(exact) + ", " + std::to_string(wide) + " wide\n";
    if (off > bound) why += "exact area " + std::to_string(CGAL::to_double(exactArea)) + ", ours " + std::to_string(CGAL::to_double(area)) + "\n";
    return why;
}

}  // namespace cliporacle
