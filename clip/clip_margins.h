// How far from a line of the clipper a segment must keep for no predicate of
// that line to hold for it.
#ifndef QELMATH_CLIP_CLIP_MARGINS_H
#define QELMATH_CLIP_CLIP_MARGINS_H

#include <cmath>

#include "clip/clip_predicates.h"

namespace qel {

// Margin beyond which a segment's box cannot meet a line of the clipper in
// any predicate: the coincidence radius, the line band over the longest edge,
// and the rounding of line crossings, which grows with the magnitude M of the
// coordinates times the size D of the figure (D also bounds 1/sin of the
// slope of an integer edge).
inline double FarMargin(double m, double d)
{
    return 1e-3 + 1e-6 * d + 1e-9 * (m + d) + 1e-13 * (m + d + 1.0) * (d + 1.0);
}

// FarMargin for a segment with fractional ends: the bound 1/sin <= D of an
// integer edge's slope becomes r, its length over the smaller of its extents
// on the axes the range tests read (a segment of length 0 takes part in no
// test off its point).
inline double PieceMargin(const double* p, const double* q, double m, double d)
{
    const double dx = std::fabs(p[0] - q[0]), dy = std::fabs(p[1] - q[1]);
    const double len = std::sqrt(dx * dx + dy * dy);
    if (len == 0.0) return 1e-3 + 1e-9 * (m + d);
    const double onSegment = dx >= kAxis ? dx : dy;    // PointOnSegment's axis
    const double crossing = dy >= kAxis ? dy : dx;     // IntersectSegments' axis
    const double run = onSegment < crossing ? onSegment : crossing;
    const double r = len / run;
    return 1e-3 + 1e-6 * r + 1e-9 * (m + d) + 1e-13 * (m + d + 1.0) * (r + 1.0);
}

// Whether the merge's side pass skips segment p-q for the side from a to b,
// with margin mu for an intact polygon edge or PieceMargin for a piece.
inline bool FarFromSide(const double* p, const double* q, const double* a, const double* b, double margin)
{
    const double a0x = a[0] < b[0] ? a[0] : b[0], a1x = a[0] < b[0] ? b[0] : a[0];
    const double a0y = a[1] < b[1] ? a[1] : b[1], a1y = a[1] < b[1] ? b[1] : a[1];
    return (p[0] < a0x - margin && q[0] < a0x - margin) || (p[0] > a1x + margin && q[0] > a1x + margin) ||
           (p[1] < a0y - margin && q[1] < a0y - margin) || (p[1] > a1y + margin && q[1] > a1y + margin);
}

}  // namespace qel

#endif
