// Geometric tests of the clipper, on plane points of two doubles (x, y).
//
// Fixed thresholds, independent of the tolerance state:
//   coincidence  squared distance below 1e-6 (point_list.h)
//   parallel     |cross product of the two directions| <= 1e-6
//   axis         1e-6 on a coordinate difference (range-test axis)
//   line band    twice the triangle area below 0.5e-6 * length
//   box margin   1e-6 (LocatePoint's bounding-box test)
// Segments are half-open: they hold their first end point, not their second.
#ifndef QELMATH_CLIP_CLIP_PREDICATES_H
#define QELMATH_CLIP_CLIP_PREDICATES_H

#include "clip/point_list.h"
#include "clip/polygon_graph.h"

namespace qel {

constexpr double kParallel = 1e-6;
constexpr double kAxis = 1e-6;
constexpr double kLineBand = 1e-6;   // used as 0.5 * kLineBand * length
constexpr double kBoxMargin = 1e-6;

// 1 when (x, y) lies on the half-open segment a to b.
int PointOnSegment(double x, double y, const double* a, const double* b);

// 1 when segment a-b crosses segment p-q (half-open both). x receives the
// crossing of the two lines whenever they are not parallel, also for 0.
int IntersectSegments(const double* a, const double* b, const double* p, const double* q,
                      double* x);

// 1 when the probe ray s-e counts as crossing the edge c-d; x as above.
// An edge whose end point lies on the ray is judged by the side its other
// end leaves to, so a boundary that passes through the ray at a vertex counts
// once and one that only touches it counts twice or not at all.
int RayCrossesEdge(const double* s, const double* e, const double* c, const double* d,
                   double* x);

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

// The probe ray of a point set depends on its bounding box only: its length
// is the box diagonal L, which takes it out of the box from any point inside,
// and its direction is the angle L in radians.
struct ProbeFrame {
    double minX, minY, maxX, maxY;
    double length, cosL, sinL;
};

void MakeProbeFrame(double minX, double minY, double maxX, double maxY, ProbeFrame* f);

inline bool OutsideProbeBox(const ProbeFrame& f, double x, double y)
{
    return x - f.minX < -kBoxMargin || x - f.maxX > kBoxMargin ||
           y - f.minY < -kBoxMargin || y - f.maxY > kBoxMargin;
}

inline void ProbeRayEnd(const ProbeFrame& f, double x, double y, double* e)
{
    e[0] = x + f.length * f.cosL;
    e[1] = y + f.length * f.sinL;
}

}  // namespace qel

#endif
