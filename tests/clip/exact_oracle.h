// The clipper against the exact intersection of a simple polygon with the
// rectangle (CGAL's exact booleans on rational numbers), shared by the clip
// tests and the clip fuzz target.
#ifndef QELMATH_TESTS_CLIP_EXACT_ORACLE_H
#define QELMATH_TESTS_CLIP_EXACT_ORACLE_H

#include <string>
#include <vector>

namespace cliporacle {

struct Deviation {
    int cases = 0, clipped = 0, vanished = 0;   // vanished: cases where thin pieces did
    double worst = 0.0;   // largest deviation over the rounding bound, where nothing vanished
};

// Clips the polygon with the library and holds the result to the exact
// intersection: the number of pieces, the area within the rounding's bound. Polygons that are not
// simple or have no area are not judged. Returns what disagrees, or "".
std::string Check(int x1, int y1, int x2, int y2, const std::vector<int>& pts, Deviation& dev);

}  // namespace cliporacle

#endif
