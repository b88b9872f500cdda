// LocatePoint: a point against a PolygonGraph by the parity of probe-ray
// crossings.
//
// Outside the bounding box by more than its margin the point is outside.
// Otherwise the edges are taken in order: the first on which the point lies
// (PointOnSegment) is returned; each other edge adds its RayCrossesEdge to a
// counter, odd meaning inside. The ray runs from the point at the angle L
// radians, L the box diagonal (see ProbeFrame), one direction for every point
// tested against one graph.
//
// The margin is the coincidence radius 1e-3 plus 1e-6 times the box's
// largest coordinate magnitude (at least 1). PointOnSegment holds within the
// coincidence radius of an edge's start, up to 1e-3 outside the box, and a
// crossing point computed on a side at 5e8 from an edge piece of steep slope
// can lie a few 1e-6 outside the box it belongs in: a narrower margin would
// call outside a point that lies on an edge. A wider one costs nothing but a
// count: the early answer is only a shortcut, and the exact ray count gives
// outside for any point beyond the box.
#include <cmath>

#include "clip/clip_predicates.h"
#include "foundation/elementary.h"

namespace qel {

void MakeProbeFrame(double minX, double minY, double maxX, double maxY, ProbeFrame* f)
{
    f->minX = minX;
    f->minY = minY;
    f->maxX = maxX;
    f->maxY = maxY;
    const double w = maxX - minX;
    const double h = maxY - minY;
    f->length = std::sqrt(w * w + h * h);
    f->cosL = qel::cos(f->length);
    f->sinL = qel::sin(f->length);
    double m = 1.0;
    const double v[4] = {minX, minY, maxX, maxY};
    for (double c : v)
        if (std::fabs(c) > m) m = std::fabs(c);
    f->margin = kCoincidenceRadius + kBoxMargin * m;
}

int LocatePoint(const PolygonGraph& g, double x, double y)
{
    if (g.PointCount() < 2) return -2;
    double minX, minY, maxX, maxY;
    g.GetBounds(&minX, &minY, &maxX, &maxY);
    ProbeFrame f;
    MakeProbeFrame(minX, minY, maxX, maxY, &f);
    if (OutsideProbeBox(f, x, y)) return -2;

    const double s[2] = {x, y};
    const double u[2] = {f.cosL, f.sinL};
    unsigned crossings = 0;
    for (int k = 0; k < g.EdgeCount(); ++k) {
        double c[2], d[2];
        if (g.GetEdgePoints(k, c, d) != 1) continue;
        if (PointOnSegment(x, y, c, d)) return k;
        crossings += static_cast<unsigned>(RayCrossesEdge(s, u, c, d));
    }
    return (crossings & 1u) ? -1 : -2;
}

}  // namespace qel
