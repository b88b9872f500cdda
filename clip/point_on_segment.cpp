// PointOnSegment: (x, y) on the half-open segment a to b.
//
// A point that coincides with b is off (it belongs to the segment that starts
// there), and one that coincides with a is on, whatever the line: the
// coincidence disc of a vertex belongs to the edge that leaves it, so a point
// near a corner of a polygon lies on exactly one of its edges even where it is
// outside both line bands. Otherwise the point must lie in the line band,
// twice the triangle area
// t = |(a.x - b.x)(b.y + a.y) + (x - a.x)(y + a.y) + (b.x - x)(y + b.y)|
// below 0.5e-6 times the length (a distance of 5e-7), so a segment of length
// zero holds nothing, and between the ends on x, or on y for a segment
// vertical within 1e-6.
#include <cmath>

#include "clip/clip_predicates.h"

namespace qel {

int PointOnSegment(double x, double y, const double* a, const double* b)
{
    if (PointsCoincide(x, y, b)) return 0;
    if (PointsCoincide(x, y, a)) return 1;
    const double t = std::fabs((a[0] - b[0]) * (b[1] + a[1]) + (x - a[0]) * (y + a[1]) +
                               (b[0] - x) * (y + b[1]));
    const double dx = a[0] - b[0];
    const double dy = a[1] - b[1];
    const double length = std::sqrt(dx * dx + dy * dy);
    if (!(0.5 * kLineBand * length > t)) return 0;
    if (std::fabs(dx) >= kAxis) return ((x - a[0]) * (b[0] - x) >= 0.0) ? 1 : 0;
    return ((y - a[1]) * (b[1] - y) >= 0.0) ? 1 : 0;
}

}  // namespace qel
