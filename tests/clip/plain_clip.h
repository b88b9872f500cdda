// The clipping procedure transcribed step by step on the work lists, with
// every search linear: the reference the fast clipper must match exactly.
// It takes its memory through mem_malloc like the library and assumes every
// request is met.
#ifndef QELMATH_TESTS_CLIP_PLAIN_CLIP_H
#define QELMATH_TESTS_CLIP_PLAIN_CLIP_H

namespace plainclip {

int ClipPolygonWithRect(int x1, int y1, int x2, int y2, const int* pts, int n, int** outPts,
                        int** outCounts);

}  // namespace plainclip

#endif
