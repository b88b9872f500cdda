// LocatePoint: a point against a PolygonGraph by the parity of probe-ray
// crossings.
//
// Outside the bounding box (margin 1e-6) the point is outside. Otherwise the
// edges are taken in order: the first on which the point lies is returned;
// each other edge adds its RayCrossesEdge to a counter, odd meaning inside.
// The ray runs from the point over the box diagonal L at the angle L radians
// (see ProbeFrame), one direction for every point tested against one graph.
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
    double e[2];
    ProbeRayEnd(f, x, y, e);
    unsigned crossings = 0;
    for (int k = 0; k < g.EdgeCount(); ++k) {
        double c[2], d[2], cut[2];
        if (g.GetEdgePoints(k, c, d) != 1) continue;
        if (PointOnSegment(x, y, c, d)) return k;
        crossings += static_cast<unsigned>(RayCrossesEdge(s, e, c, d, cut));
    }
    return (crossings & 1u) ? -1 : -2;
}

}  // namespace qel
