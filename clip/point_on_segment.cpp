// PointOnSegment: (x, y) on the half-open segment a to b.
//
// The point must lie in the line band, twice the triangle area
// t = |(a.x - b.x)(b.y + a.y) + (x - a.x)(y + a.y) + (b.x - x)(y + b.y)|
// below 0.5e-6 times the length (a distance of 5e-7), so a segment of length
// zero holds nothing. Then a point at b is out and a point at a is in, both by
// the coincidence threshold, and otherwise the point must lie between the
// ends on x, or on y for a segment vertical within 1e-6.
#include <cmath>

#include "clip/clip_predicates.h"

namespace qel {

int PointOnSegment(double x, double y, const double* a, const double* b)
{
    const double t = std::fabs((a[0] - b[0]) * (b[1] + a[1]) + (x - a[0]) * (y + a[1]) +
                               (b[0] - x) * (y + b[1]));
    const double dx = a[0] - b[0];
    const double dy = a[1] - b[1];
    const double length = std::sqrt(dx * dx + dy * dy);
    if (!(0.5 * kLineBand * length > t)) return 0;
    if (PointsCoincide(x, y, b)) return 0;
    if (PointsCoincide(x, y, a)) return 1;
    if (std::fabs(dx) >= kAxis) return ((x - a[0]) * (b[0] - x) >= 0.0) ? 1 : 0;
    return ((y - a[1]) * (b[1] - y) >= 0.0) ? 1 : 0;
}

}  // namespace qel
