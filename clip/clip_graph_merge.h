// The clipper's general graph merge, which answers every input.
#ifndef QELMATH_CLIP_CLIP_GRAPH_MERGE_H
#define QELMATH_CLIP_CLIP_GRAPH_MERGE_H

namespace qel {

// ClipPolygonWithRect by the graph merge alone (see clip_polygon_with_rect.cpp).
int ClipByGraphMerge(int x1, int y1, int x2, int y2, const int* pts, int n, int** outPts, int** outCounts);

}  // namespace qel

#endif
