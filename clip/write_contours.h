// The clipper's result arrays from closed chains of points.
#ifndef QELMATH_CLIP_WRITE_CONTOURS_H
#define QELMATH_CLIP_WRITE_CONTOURS_H

namespace qel {

// Writes k closed chains as the clipper's result: chain holds point indices
// into xy (x, y pairs), chain after chain, chain i ending before
// chain[ends[i]]. A chain of fewer than three points, or whose signed area
// (ContourShoelace) is zero, is no contour and is left out. Each contour comes
// out counter-clockwise (a clockwise one is reversed keeping its first point)
// with coordinates rounded by RoundCoordinate. Returns the number of contours
// written (outPts and outCounts receive blocks from mem_malloc, owned by the
// caller), or -1 when there is none or memory ran out (nothing written,
// nothing kept).
int WriteContours(const double* xy, const int* chain, const int* ends, int k, int** outPts, int** outCounts);

}  // namespace qel

#endif
