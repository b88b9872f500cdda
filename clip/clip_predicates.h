// Geometric tests of the clipper, on plane points of two doubles (x, y).
//
// Fixed thresholds, independent of the tolerance state:
//   coincidence  squared distance below 1e-6 (point_list.h)
//   parallel     |cross product of the two directions| <= 1e-6
//   axis         1e-6 on a coordinate difference (range-test axis)
//   line band    twice the triangle area below 0.5e-6 * length
//   box margin   the coincidence radius 1e-3 plus 1e-6 times the box's
//                largest coordinate magnitude, at least 1 (LocatePoint's
//                bounding-box test)
// Segments are half-open: they hold their first end point, not their second.
// Which side of a line a point lies on, as the probe ray and the chain walk
// ask it, is decided exactly (CrossSign), with no tolerance at all.
#ifndef QELMATH_CLIP_CLIP_PREDICATES_H
#define QELMATH_CLIP_CLIP_PREDICATES_H

#include <cmath>

#include "clip/point_list.h"
#include "clip/polygon_graph.h"
#include "foundation/double_double.h"

namespace qel {

constexpr double kParallel = 1e-6;
constexpr double kAxis = 1e-6;
constexpr double kLineBand = 1e-6;   // used as 0.5 * kLineBand * length
constexpr double kBoxMargin = 1e-6;   // relative to the box's magnitude
constexpr double kCoincidenceRadius = 1e-3;   // square root of kCoincidence

// Sign (-1, 0, 1) of ax * by - ay * bx, exact for the doubles given (products
// below 2^995 in size and above 2^-969 or zero). When the rounded difference
// exceeds its error bound (3.3e-16 of |ax by| + |ay bx|, taken as 1e-15) its
// sign is the answer; otherwise each product becomes its rounded value plus
// its exact error (Dekker), and the four terms are summed error-free into a
// non-overlapping expansion whose leading non-zero term carries the sign.
inline int CrossSign(double ax, double ay, double bx, double by)
{
    const double p = ax * by, q = ay * bx, det = p - q;
    const double bound = 1e-15 * (std::fabs(p) + std::fabs(q));
    if (det > bound) return 1;
    if (det < -bound) return -1;
    double pe, qe, t, x0, j, k, x1, x2, x3, pp, qq;
    dd::two_prod(ax, by, pp, pe);
    dd::two_prod(ay, bx, qq, qe);
    dd::two_sum(pe, -qe, t, x0);
    dd::two_sum(pp, t, j, k);
    dd::two_sum(k, -qq, t, x1);
    dd::two_sum(j, t, x3, x2);
    const double lead = x3 != 0.0 ? x3 : x2 != 0.0 ? x2 : x1 != 0.0 ? x1 : x0;
    return (lead > 0.0) - (lead < 0.0);
}

// 1 when (x, y) lies on the half-open segment a to b.
int PointOnSegment(double x, double y, const double* a, const double* b);

// 1 when segment a-b crosses segment p-q (half-open both). x receives the
// crossing of the two lines whenever they are not parallel, also for 0.
int IntersectSegments(const double* a, const double* b, const double* p, const double* q,
                      double* x);

// 1 when the probe ray from s in direction u crosses the edge c-d: its ends
// lie on opposite sides of the ray's line, an end on the line counting with
// the right-hand side, and the crossing lies ahead of s. Exact when s, c and
// d have integer coordinates (see ray_crosses_edge.cpp).
int RayCrossesEdge(const double* s, const double* u, const double* c, const double* d);

// Chain walk at a vertex c reached from `from`: 1 when leaving c towards v
// turns further left than leaving towards w, i.e. v is met first turning
// clockwise from the direction back to `from` (that direction itself last).
// Decided exactly on the differences of the points.
int TurnsFurtherLeft(const double* from, const double* c, const double* v, const double* w);

// First edge on which (x, y) lies (>= 0), -1 inside, -2 outside.
int LocatePoint(const PolygonGraph& g, double x, double y);

// Whether x lies between a and b by the range rule of the crossing tests:
// on y, or on x for a segment that is horizontal within the axis threshold.
inline bool WithinRange(const double* x, const double* a, const double* b)
{
    const double ay = a[1] - b[1];
    if (ay < kAxis && -ay < kAxis) return (x[0] - a[0]) * (b[0] - x[0]) >= 0.0;
    return (x[1] - a[1]) * (b[1] - x[1]) >= 0.0;
}

// The probe ray of a point set depends on its bounding box only: its
// direction is the angle L in radians, L the box diagonal, so that every
// point tested against one graph uses rays of one direction. The ray has no
// end: crossings are counted over the whole half-line.
struct ProbeFrame {
    double minX, minY, maxX, maxY;
    double length, cosL, sinL;
    double margin;   // kCoincidenceRadius + kBoxMargin * the box's largest |coordinate|
};

void MakeProbeFrame(double minX, double minY, double maxX, double maxY, ProbeFrame* f);

inline bool OutsideProbeBox(const ProbeFrame& f, double x, double y)
{
    return x - f.minX < -f.margin || x - f.maxX > f.margin || y - f.minY < -f.margin || y - f.maxY > f.margin;
}

}  // namespace qel

#endif
