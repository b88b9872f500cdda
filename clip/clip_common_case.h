// The clipper's linear pass for the common case (see clip_common_case.cpp).
#ifndef QELMATH_CLIP_CLIP_COMMON_CASE_H
#define QELMATH_CLIP_CLIP_COMMON_CASE_H

namespace qel {

// Returned by ClipCommonCase when the input is not in the common case; the
// caller then runs the general graph merge, which answers every input.
constexpr int kNotCommonCase = -100;

// ClipPolygonWithRect's answer for input of the common case, bit for bit the
// general graph merge's, or kNotCommonCase (nothing written, nothing kept).
// Needs n >= 1, x1 < x2 and y1 < y2.
int ClipCommonCase(int x1, int y1, int x2, int y2, const int* pts, int n, int** outPts, int** outCounts);

}  // namespace qel

#endif
