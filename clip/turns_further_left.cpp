// TurnsFurtherLeft: the chain walk's choice among several edges leaving a
// vertex.
//
// The merged graph's edges all run counter-clockwise around the inside, so at
// a vertex where pieces touch, the edge that continues the piece just walked
// is the one turning furthest left from the arriving edge: turning clockwise
// from the direction back along the arriving edge, the first edge met bounds
// the same piece. Taking another would cross into the touching piece and
// splice two contours into one self-touching outline.
//
// The clockwise angle from b = from - c to a direction x lies in (0, 2pi];
// smaller means further left. Quarter: 0 for (0, pi), 1 for pi, 2 for
// (pi, 2pi), 3 for 2pi (straight back). Within quarters 0 and 2 the angles
// differ by less than pi, so the sign of the cross product orders them. Every
// sign is exact for the differences of the points (CrossSign).
#include "clip/clip_predicates.h"

namespace qel {

namespace {

int Quarter(double bx, double by, double xx, double xy)
{
    const int cross = CrossSign(bx, by, xx, xy);
    if (cross < 0) return 0;
    if (cross > 0) return 2;
    return CrossSign(bx, by, -xy, xx) < 0 ? 1 : 3;   // sign of the dot product b . x
}

}  // namespace

int TurnsFurtherLeft(const double* from, const double* c, const double* v, const double* w)
{
    const double bx = from[0] - c[0], by = from[1] - c[1];
    const double vx = v[0] - c[0], vy = v[1] - c[1];
    const double wx = w[0] - c[0], wy = w[1] - c[1];
    const int qv = Quarter(bx, by, vx, vy), qw = Quarter(bx, by, wx, wy);
    if (qv != qw) return qv < qw ? 1 : 0;
    if (qv == 1 || qv == 3) return 0;
    return CrossSign(vx, vy, wx, wy) < 0 ? 1 : 0;
}

}  // namespace qel
