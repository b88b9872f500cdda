// IntersectSegments: crossing of the half-open segments a-b and p-q.
//
// Lines a1 x + b1 y = c1 through a, b and a2 x + b2 y = c2 through p, q;
// det = a2 b1 - b2 a1, lines with |det| <= 1e-6 (absolute) do not cross and
// x is not written. Otherwise x = ((b1 c2 - b2 c1) r, (a2 c1 - a1 c2) r) with
// r = 1/det. A crossing at q does not count, nor one at b when b lies on
// p-q (half-open ends: the segment that starts at b takes it up). A crossing
// near b with b off p-q is ranged like any other: an edge that passes a
// corner by less than the coincidence radius, but outside the line band,
// crosses the side there and the next side does not see it. A crossing at a
// counts when a lies on p-q, or when it lies on p-q (at p or within its
// range) and within a-b: a rectangle corner on the extension of a polygon
// edge is no crossing, nor is an edge that passes the corner outside it
// within the coincidence radius. A crossing at p counts. Otherwise x must
// lie within both ranges.
#include <cmath>

#include "clip/clip_predicates.h"

namespace qel {

int IntersectSegments(const double* a, const double* b, const double* p, const double* q,
                      double* x)
{
    const double a1 = b[1] - a[1];
    const double b1 = a[0] - b[0];
    const double c1 = a1 * a[0] - (b[0] - a[0]) * a[1];
    const double a2 = q[1] - p[1];
    const double b2 = p[0] - q[0];
    const double c2 = a2 * p[0] - (q[0] - p[0]) * p[1];
    const double det = a2 * b1 - b2 * a1;
    if (std::fabs(det) <= kParallel) return 0;
    const double r = 1.0 / det;
    x[0] = (b1 * c2 - b2 * c1) * r;
    x[1] = (a2 * c1 - a1 * c2) * r;

    if (PointsCoincide(x[0], x[1], b) && PointOnSegment(b[0], b[1], p, q)) return 0;
    if (PointsCoincide(x[0], x[1], q)) return 0;
    if (PointsCoincide(x[0], x[1], a))
        return (PointOnSegment(a[0], a[1], p, q) ||
                ((PointsCoincide(x[0], x[1], p) || WithinRange(x, p, q)) && WithinRange(x, a, b)))
                   ? 1
                   : 0;
    if (PointsCoincide(x[0], x[1], p)) return 1;
    if (!WithinRange(x, a, b)) return 0;
    return WithinRange(x, p, q) ? 1 : 0;
}

}  // namespace qel
