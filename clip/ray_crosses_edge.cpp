// RayCrossesEdge: one crossing of the probe ray from s in direction u with the
// edge c-d.
//
// The crossing is decided by signs alone, never by a distance, so a point
// near an edge is inside or outside by where it lies and not by a tolerance
// (a point on an edge is PointOnSegment's business, asked before). With the
// differences c - s = (cx, cy) and d - s = (dx, dy):
//   side(p)  = sign(ux * py - uy * px)      p = c - s or d - s; > 0 left of the ray
//   ahead    = sign(cx * dy - cy * dx)      orientation of s, c, d
// The edge crosses the ray's line when exactly one end lies strictly left of
// it (an end on the line counts with the right-hand side, so where the
// boundary passes through the line at a vertex exactly one of the two edges
// counts, and where it only touches the line both or neither do). It crosses
// the ray itself when the crossing lies ahead of s, that is when s lies to the
// left of the edge directed from its right-hand end to its left-hand end:
// ahead > 0 when d is the left end, ahead < 0 when c is. A crossing exactly at
// s (ahead = 0) does not count. The ray has no end.
//
// Each sign is CrossSign of doubles, exact for the doubles it is given; the
// differences are exact when s, c and d are integers (below 2^52 in size), so
// for integer input the count is exact whatever the direction u.
#include "clip/clip_predicates.h"

namespace qel {

int RayCrossesEdge(const double* s, const double* u, const double* c, const double* d)
{
    const double cx = c[0] - s[0], cy = c[1] - s[1];
    const double dx = d[0] - s[0], dy = d[1] - s[1];
    const bool cLeft = CrossSign(u[0], u[1], cx, cy) > 0;
    const bool dLeft = CrossSign(u[0], u[1], dx, dy) > 0;
    if (cLeft == dLeft) return 0;
    const int ahead = CrossSign(cx, cy, dx, dy);
    return (dLeft ? ahead > 0 : ahead < 0) ? 1 : 0;
}

}  // namespace qel
