// How far from a line of the clipper a segment must keep for no predicate of
// that line to hold for it.
#ifndef QELMATH_CLIP_CLIP_MARGINS_H
#define QELMATH_CLIP_CLIP_MARGINS_H

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

}  // namespace qel

#endif
