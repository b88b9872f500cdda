// Locating many points of the rectangle's boundary against the input
// polygon, each answer equal to LocatePoint's (outside or not).
//
// Probe rays of one graph are parallel. For two successive query points on
// the same side, an edge whose ends both lie beyond the strip between their
// rays (by a margin) and that keeps away from the piece of side between them
// meets both rays alike: both cross it ahead of their starts, or both behind,
// or neither meets it. So the crossing count of the next point is that of the
// previous one corrected over the edges with an end in the strip or near the
// piece of side, each corrected edge evaluated for both rays with the exact
// predicate. Walking the outline costs in total about one pass over the
// polygon's vertices instead of one per query.
#ifndef QELMATH_CLIP_SIDE_LOCATOR_H
#define QELMATH_CLIP_SIDE_LOCATOR_H

#include <cstdint>

#include "clip/clip_predicates.h"
#include "clip/clip_work.h"

namespace qel {
namespace clipwork {

class SideLocator {
public:
    // The polygon's graph (points xy, edges as index pairs), its probe frame,
    // and the rectangle x1, y1, x2, y2. False when memory ran out.
    bool init(const double* xy, int points, const int* ends, int edges, const ProbeFrame& f,
              const double* rect);
    // 1 when LocatePoint on the graph gives -2 for (x, y), else 0;
    // kNoMemory when memory ran out.
    int outside(double x, double y);

private:
    struct Key {
        double w;
        int edge;
    };
    struct Side {
        int axis;           // 0: along x, 1: along y
        double base, width; // buckets over the side's extent
        int buckets;
        Buffer<int> start;  // bucket -> first index into list
        Buffer<int> list;   // edges near the side, by bucket
    };

    double wOf(const double* p) const;
    int sideOf(double x, double y) const;
    void full(const double* s);
    bool collect(int side, double w0, double w1, double a0, double a1);

    const double* xy_ = nullptr;
    const int* ends_ = nullptr;
    int edges_ = 0;
    int points_ = 0;
    ProbeFrame f_{};
    double rect_[4] = {0, 0, 0, 0};
    double mu_ = 0, nearMargin_ = 0, tol_ = 0, mag_ = 0;
    bool sweepable_ = false;

    struct Near {
        double lo, hi;
        int edge;
    };
    Buffer<Key> byW_;
    Buffer<double> reach_;
    Buffer<Near> near_;
    Side sides_[4];
    Buffer<int> mark_;
    Buffer<int> picked_;
    int stamp_ = 0;

    bool havePrev_ = false;
    int prevSide_ = -1;
    double prevS_[2] = {0, 0};
    std::int64_t prevCrossings_ = 0;
    bool prevOnEdge_ = false;
};

}  // namespace clipwork
}  // namespace qel

#endif
