// RayCrossesEdge: one crossing of the probe ray s-e with the edge c-d.
//
// The lines are intersected as in IntersectSegments (parallel: no crossing);
// a crossing at the ray's start does not count. When an end of the edge lies
// on the ray (PointOnSegment with the ray as segment), the edge is judged by
// its direction away from that end: with theta the ray's direction and phi
// that of the edge leaving the end, delta = theta - phi in [0, 2pi) and the
// edge counts when delta < pi, i.e. it leaves to the ray's clockwise side.
// Both edges at a vertex on the ray are judged alike, so a boundary that
// passes through the ray at a vertex counts once and one that touches it
// counts twice or not at all. Otherwise the crossing must lie within both
// ranges (inclusive).
#include <cmath>

#include "clip/clip_predicates.h"
#include "foundation/constants.h"
#include "foundation/elementary.h"

namespace qel {

namespace {

int LeavesClockwise(double theta, double dy, double dx)
{
    double delta = theta - qel::atan2(dy, dx);
    while (delta >= kTwoPi) delta -= kTwoPi;
    while (delta < 0.0) delta += kTwoPi;
    return (delta < kPi) ? 1 : 0;
}

}  // namespace

int RayCrossesEdge(const double* s, const double* e, const double* c, const double* d,
                   double* x)
{
    const double a1 = e[1] - s[1];
    const double b1 = s[0] - e[0];
    const double c1 = a1 * s[0] - (e[0] - s[0]) * s[1];
    const double a2 = d[1] - c[1];
    const double b2 = c[0] - d[0];
    const double c2 = a2 * c[0] - (d[0] - c[0]) * c[1];
    const double det = a2 * b1 - b2 * a1;
    if (std::fabs(det) <= kParallel) return 0;
    const double r = 1.0 / det;
    x[0] = (b1 * c2 - b2 * c1) * r;
    x[1] = (a2 * c1 - a1 * c2) * r;

    if (PointsCoincide(x[0], x[1], s)) return 0;
    // The ray's direction theta = atan2(e.y - s.y, e.x - s.x) is needed only
    // when an end of the edge lies on the ray.
    if (PointOnSegment(c[0], c[1], s, e))
        return LeavesClockwise(qel::atan2(e[1] - s[1], e[0] - s[0]), d[1] - c[1], d[0] - c[0]);
    if (PointOnSegment(d[0], d[1], s, e))
        return LeavesClockwise(qel::atan2(e[1] - s[1], e[0] - s[0]), c[1] - d[1], c[0] - d[0]);
    return (WithinRange(x, s, e) && WithinRange(x, c, d)) ? 1 : 0;
}

}  // namespace qel
