// ClipCommonCase: ClipPolygonWithRect in one linear pass when nothing sits
// near anything else, with the general graph merge's bits.
//
// The general merge pays, per vertex, for a point grid (every point hashed
// twice or more), a location of every polygon vertex against the rectangle,
// a sort of all vertices for locating the outline, an edge-pair index and
// per-vertex edge lists for the walk. In the common case every one of its
// decisions is known from integer comparisons and from the few predicates
// this pass evaluates itself, and the graph it walks is a set of disjoint
// cycles. The pass checks the conditions below as it goes and hands the
// input back (kNotCommonCase) at the first that fails.
//
// Conditions (M: the largest coordinate magnitude):
//  C1 |coordinates| <= 2^24, so that sums, differences and products of two
//     differences of input coordinates are exact in doubles;
//  C2 no vertex on the rectangle's boundary, so every vertex is at least 1
//     from each side (a vertex on a side's line lies at least 1 beyond the
//     side's end), and no two vertices inside the rectangle are equal (after
//     dropping consecutive repeats);
//  C3 every segment the merge's side pass tries (its own box rules, shared
//     in clip_margins.h) gives the predicate results of a clean crossing:
//     no vertex on a side, no corner on an edge, a crossing only for an
//     edge whose ends lie strictly on opposite sides of the side's line, and
//     no line crossing within 2e-3 of a corner;
//  C4 every crossing lies on its polygon edge by PointOnSegment;
//  C5 every corner is at least 2e-3 from every polygon edge; along each side
//     neighbouring boundary points are more than the coincidence radius
//     apart, and each midpoint between them is at least 1e-6 from the lines
//     of the edges crossing that side;
//  C6 no edge is steeper than 1e6 to an axis without lying along it.
//
// Why the result is then the merge's, stage by stage. The bounding-box
// answers are the same integer tests. The side pass is evaluated here with
// the same predicates on the same points in the same order, under the
// merge's own rules for which segments to try, so the crossings, their bits,
// the pieces and their order are the merge's; C3 makes them the true
// crossings of the sides.
// Dropping points outside the rectangle keeps the crossings, which lie on
// their side by PointOnSegment: a crossing passed the same range test on the
// side, keeps 2e-3 from its ends (C3) and lies within a few ulps of the
// side's line, so the band test's t, exact to about 15 eps M times the
// side's length under C1, stays far below its bound of 5e-7 times the
// length. Every vertex lies at least 1 from each side (C2), so on none by
// PointOnSegment (off the line's band, or on the line beyond the side's end
// by the exact range test), and the probe ray's count from an integer point
// against integer corners is exact: inside vertices stay, outside ones go,
// whatever the box margin decides first.
// The outline orders each side's crossings by the same squared distances,
// all distinct (C5). Locating it keeps the crossings (C4: on their own edge,
// the merge's first try) and locates the corners and the midpoints of the
// outline's segments. None lies on an edge by PointOnSegment: a corner is
// 2e-3 from every edge (C5); a midpoint is off the band of every edge
// crossing its side (C5), at least 1 or a corner's distance from every edge
// that does not (the distance between two segments is taken at an end of
// one of them), and an edge ending short of the side's line or beyond the
// side's end could hold it only on its range axis past its end, which would
// take a slope beyond 1e6 (C6). The
// probe ray's count works on the differences of the edge ends from the
// point, rounded by at most eps times their size, the same for both edges at
// a vertex: it is the exact crossing parity of the polygon with every
// vertex moved by less than 4e-9 under C1, far less than the point's
// distance to the boundary, so it is the point's exact inside or outside.
// The box margin only shortcuts points truly outside. This pass computes
// that parity exactly: for a corner by counting, in integer arithmetic, the
// edges that cross the side's line before it, and along a side by flipping
// at each crossing. The parity reached at the end of a side must agree with
// the next corner's, a check of the whole.
// Merging finds no coinciding points and no repeated or opposed edges:
// crossings keep 2e-3 from the corners and from each other, and a chord
// cannot end twice on one side. So every kept point has exactly two kept
// edges (one polygon piece and one outline edge at a crossing), the graph is
// disjoint cycles, the walk's choice at a point is forced, and the chains
// follow from the edges in the merge's order: the original edges (pieces in
// place), then the split-off pieces in creation order, then the outline
// edges along the boundary. The shared output stage finishes them.
#include "clip/clip_common_case.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "clip/clip_margins.h"
#include "clip/clip_predicates.h"
#include "clip/clip_work.h"
#include "clip/write_contours.h"

namespace qel {

namespace {

using clipwork::Buffer;

constexpr int kNot = kNotCommonCase;
constexpr double kLimit = 16777216.0;   // C1: 2^24
constexpr double kNear = 2e-3;          // C3, C5
constexpr double kApart = 1.01e-3;      // C5: beyond the coincidence radius
constexpr double kBand = 1e-6;          // C5: twice PointOnSegment's band
constexpr double kSteep = 1e6;          // C6

struct Piece {
    int a, b;   // point ids, in the edge's direction
    int edge;   // the original edge it is part of
};

struct Crossing {
    double key;    // squared distance from the side's first corner
    double sine;   // of its edge's angle with the side
    int id;        // point id
    int side;
};

struct Vertex {
    int tail;               // end of the piece in place of the edge from here
    unsigned char inside;   // strictly inside the rectangle
    unsigned char sides;    // the sides the merge tries the edge from here on
};

struct RingPoint {
    int id;   // outline point, in walking order along the boundary
    int in;   // the segment from here to the next point lies inside
};

struct Edge {
    int a, b;
    int used;
};

// Exact in doubles under C1: differences of inputs and their products.
double Cross(const double* p, const double* q, const double* c)
{
    return (q[0] - p[0]) * (c[1] - p[1]) - (q[1] - p[1]) * (c[0] - p[0]);
}

// Open-addressing set of integer points: true when the point was there.
class PointSeen {
public:
    bool init(int expected)
    {
        std::size_t n = 16;
        while (n < 2 * static_cast<std::size_t>(expected) + 2) n *= 2;
        return keys_.assign(n, kEmpty);
    }
    bool seen(int x, int y)
    {
        const std::uint64_t key = (static_cast<std::uint64_t>(static_cast<std::uint32_t>(x)) << 32) |
                                  static_cast<std::uint32_t>(y);
        const std::size_t mask = keys_.size() - 1;
        std::uint64_t h = key * 0x9E3779B97F4A7C15ull;
        for (std::size_t i = static_cast<std::size_t>(h >> 32) & mask;; i = (i + 1) & mask) {
            if (keys_[i] == kEmpty) {
                keys_[i] = key;
                return false;
            }
            if (keys_[i] == key) return true;
        }
    }

private:
    // x = y = INT_MIN: beyond C1, so never a point of the pass.
    static constexpr std::uint64_t kEmpty = 0x8000000080000000ull;
    Buffer<std::uint64_t> keys_;
};

class Pass {
public:
    Pass(int x1, int y1, int x2, int y2) : rect_{double(x1), double(y1), double(x2), double(y2)}
    {
        const double c[8] = {rect_[0], rect_[1], rect_[2], rect_[1], rect_[2], rect_[3], rect_[0], rect_[3]};
        for (int i = 0; i < 8; ++i) corners_[i] = c[i];
        const double b[16] = {rect_[0], rect_[2], rect_[1], rect_[1], rect_[2], rect_[2], rect_[1], rect_[3],
                              rect_[0], rect_[2], rect_[3], rect_[3], rect_[0], rect_[0], rect_[1], rect_[3]};
        for (int i = 0; i < 16; ++i) box_[i] = b[i];
    }
    int run(const int* pts, int n, int** outPts, int** outCounts);

private:
    bool vertices(const int* pts, int n);
    bool insideVertices();
    bool edges();
    bool sides();
    bool evaluate(int side, int a, int b, int edge, int* split);
    bool farPiece(int side, int a, int b) const;
    bool outline();
    int walk(int** outPts, int** outCounts);

    bool noMemory()
    {
        oom_ = true;
        return false;
    }
    const double* at(int id) const { return xy_.data() + 2 * static_cast<std::size_t>(id); }
    bool keptPoint(int id) const
    {
        return id >= m_ ? (id < cornerBase_ || cornerIn_[id - cornerBase_])
                        : vx_[static_cast<std::size_t>(id)].inside != 0;
    }

    double rect_[4];
    double corners_[8];
    double box_[16];                  // per side: x range, y range
    double c0_ = 0, c1_ = 0;          // PieceMargin < c0 + c1 (dx + dy) / run
    double minX_ = 0, minY_ = 0, maxX_ = 0, maxY_ = 0, mag_ = 0, size_ = 0;
    int m_ = 0;                       // distinct vertices, ids 0 .. m - 1
    Buffer<double> xy_;               // vertices, then crossings, then corners
    Buffer<Vertex> vx_;               // per vertex, and the edge from it
    Buffer<int> near_;                // edges the merge tries on some side, in order
    Buffer<Piece> extra_;             // pieces split off, in creation order
    Buffer<Crossing> cuts_;           // all sides' crossings as found, id - m in order
    bool cornerIn_[4] = {false, false, false, false};
    int cornerBase_ = 0;
    Buffer<RingPoint> ring_;          // the boundary in walking order
    int parity_[4] = {0, 0, 0, 0};
    bool oom_ = false;   // memory ran out: the answer is -1, as the merge's
};

bool Pass::vertices(const int* pts, int n)
{
    // Orientation exactly as the graph is built, then the distinct
    // consecutive points in walking order.
    double s = 0.0;
    for (int i = 0; i + 1 < n; ++i) {
        const double xi = pts[2 * i], yi = pts[2 * i + 1];
        const double xj = pts[2 * i + 2], yj = pts[2 * i + 3];
        s = s + (xi - xj) * (yi + yj);
    }
    const double xl = pts[2 * (n - 1)], yl = pts[2 * (n - 1) + 1];
    s = s + (xl - static_cast<double>(pts[0])) * (yl + static_cast<double>(pts[1]));
    const int start = (s > 0.0) ? 0 : n - 1;
    const int step = (s > 0.0) ? 1 : -1;
    if (!xy_.reserve(2 * static_cast<std::size_t>(n) + 64)) return noMemory();
    int px = pts[2 * start], py = pts[2 * start + 1];
    xy_.push(px);
    xy_.push(py);
    for (int k = 1, i = start + step; k < n; ++k, i += step) {
        const int x = pts[2 * i], y = pts[2 * i + 1];
        if (x == px && y == py) continue;
        xy_.push(x);
        xy_.push(y);
        px = x;
        py = y;
    }
    m_ = static_cast<int>(xy_.size() / 2);
    if (m_ > 1 && px == pts[2 * start] && py == pts[2 * start + 1]) {
        xy_.truncate(xy_.size() - 2);
        --m_;
    }
    return m_ >= 3;
}

// Which vertices the merge keeps (inside ones), and C2's inside repeats.
bool Pass::insideVertices()
{
    if (!vx_.resize(static_cast<std::size_t>(m_))) return noMemory();
    int count = 0;
    for (int i = 0; i < m_; ++i) {
        const double* p = at(i);
        const bool in = rect_[0] < p[0] && p[0] < rect_[2] && rect_[1] < p[1] && p[1] < rect_[3];
        vx_[static_cast<std::size_t>(i)] = Vertex{i + 1 == m_ ? 0 : i + 1, static_cast<unsigned char>(in ? 1 : 0), 0};
        count += in ? 1 : 0;
    }
    if (count == 0) return true;
    // Few inside points are compared pairwise, more go through a set.
    PointSeen seen;
    const bool few = count <= 16;
    if (!few && !seen.init(count)) return noMemory();
    for (int i = 0; i < m_; ++i) {
        if (!vx_[static_cast<std::size_t>(i)].inside) continue;
        const double* p = at(i);
        if (few) {
            for (int j = 0; j < i; ++j)
                if (vx_[static_cast<std::size_t>(j)].inside && at(j)[0] == p[0] && at(j)[1] == p[1]) return false;
        } else if (seen.seen(static_cast<int>(p[0]), static_cast<int>(p[1]))) {
            return false;
        }
    }
    return true;
}

// One pass over the original edges: the sides the merge tries each on, the
// corners' distances (C5), the corners' crossing parities, and the edges'
// angles with the polygon's probe ray (C6).
bool Pass::edges()
{
    size_ = std::sqrt((maxX_ - minX_) * (maxX_ - minX_) + (maxY_ - minY_) * (maxY_ - minY_));
    const double mu = FarMargin(mag_, size_);
    const double md = mag_ + size_;
    c0_ = 1e-3 + 1e-9 * md + 1e-13 * (md + 1.0);
    c1_ = 1e-6 + 1e-13 * (md + 1.0);
    const double inLoX = rect_[0] + mu, inHiX = rect_[2] - mu, inLoY = rect_[1] + mu, inHiY = rect_[3] - mu;
    for (int e = 0; e < m_; ++e) {
        const int f = (e + 1 == m_) ? 0 : e + 1;
        const double* p = at(e);
        const double* q = at(f);
        const double lx = std::min(p[0], q[0]), hx = std::max(p[0], q[0]);
        const double ly = std::min(p[1], q[1]), hy = std::max(p[1], q[1]);

        // C6: no edge within 1e-6 of an axis but not on it.
        const double dx = std::fabs(q[0] - p[0]), dy = std::fabs(q[1] - p[1]);
        if ((dx > 0.0 && dy > kSteep * dx) || (dy > 0.0 && dx > kSteep * dy)) return false;
        const double len2 = dx * dx + dy * dy;

        // Corners within the edge's box: distance (C5), and parity.
        for (int k = 0; k < 4; ++k) {
            const double* c = corners_ + 2 * k;
            if (lx <= c[0] && c[0] <= hx && ly <= c[1] && c[1] <= hy) {
                const double cr = Cross(p, q, c);
                if (cr * cr < kNear * kNear * len2 * (1.0 + 1e-9)) return false;
            }
        }
        for (int line = 0; line < 2; ++line) {
            const double y = rect_[2 * line + 1];
            if ((p[1] < y) == (q[1] < y)) continue;
            // The crossing's x against x1 and x2, exactly.
            for (int side = 0; side < 2; ++side) {
                const double x = rect_[2 * side];
                const double num = (p[0] - x) * (q[1] - y) - (q[0] - x) * (p[1] - y);
                if (num == 0.0) return false;
                const bool before = (num > 0.0) == (q[1] > p[1]) ? false : true;
                // corners: line 0 -> (x1,y1) = 0, (x2,y1) = 1; line 1 -> (x2,y2) = 2, (x1,y2) = 3
                const int k = line == 0 ? side : 3 - side;
                if (before) parity_[k] ^= 1;
            }
        }

        // The merge's box rule for the side pass.
        if (hx < rect_[0] - mu || lx > rect_[2] + mu || hy < rect_[1] - mu || ly > rect_[3] + mu) continue;
        if (lx > inLoX && hx < inHiX && ly > inLoY && hy < inHiY) continue;
        // FarFromSide's test on the sides' boxes, as the merge evaluates it.
        unsigned char mask = 0;
        for (int s = 0; s < 4; ++s) {
            const double* box = box_ + 4 * s;
            if (!(hx < box[0] - mu || lx > box[1] + mu || hy < box[2] - mu || ly > box[3] + mu))
                mask = static_cast<unsigned char>(mask | (1u << s));
        }
        if (mask != 0) {
            vx_[static_cast<std::size_t>(e)].sides = mask;
            if (!near_.push(e)) return noMemory();
        }
    }
    for (int k = 0; k < 4; ++k) cornerIn_[k] = parity_[k] != 0;
    // A segment crosses the boundary at most twice: room for the crossings.
    const std::size_t most = 2 * near_.size() + 8;
    if (!xy_.reserve(xy_.size() + 2 * most) || !extra_.reserve(most) || !cuts_.reserve(most) ||
        !ring_.reserve(most))
        return noMemory();
    return true;
}

// Whether the merge skips piece a -> b on side s. Most pieces lie far beyond
// any margin: a bound on PieceMargin without its root and quotient tells
// (margin < c0 + c1 (dx + dy) / run); the rest take the merge's own test.
inline bool Pass::farPiece(int s, int a, int b) const
{
    const double* p = at(a);
    const double* q = at(b);
    const double* box = box_ + 4 * s;   // the side's x range, then its y range
    const double gap = std::max(std::max(box[0] - std::max(p[0], q[0]), std::min(p[0], q[0]) - box[1]),
                                std::max(box[2] - std::max(p[1], q[1]), std::min(p[1], q[1]) - box[3]));
    if (gap <= 1e-3) return false;
    const double dx = std::fabs(p[0] - q[0]), dy = std::fabs(p[1] - q[1]);
    const double run = std::min(dx >= kAxis ? dx : dy, dy >= kAxis ? dy : dx);
    if (run > 0.0 && gap * run > 1.000001 * (c0_ * run + c1_ * (dx + dy))) return true;
    return FarFromSide(p, q, corners_ + 2 * s, corners_ + 2 * ((s + 1) % 4), PieceMargin(p, q, mag_, size_));
}

// The merge's side test of one segment a -> b (point ids) against side s.
// On a crossing, *split receives the new point's id, else -1.
bool Pass::evaluate(int s, int a, int b, int edge, int* split)
{
    *split = -1;
    const double* A = corners_ + 2 * s;
    const double* B = corners_ + 2 * ((s + 1) % 4);
    const double P[2] = {at(a)[0], at(a)[1]};
    const double Q[2] = {at(b)[0], at(b)[1]};
    const int along = (s % 2 == 0) ? 0 : 1, across = 1 - along;
    double X[2] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()};
    if (IntersectSegments(A, B, P, Q, X)) {
        const double* c = at(edge);
        const double* d = at(edge + 1 == m_ ? 0 : edge + 1);
        const double line = A[across];
        if (!((c[across] < line && d[across] > line) || (c[across] > line && d[across] < line))) return false;
        if (std::fabs(X[along] - A[along]) < kNear || std::fabs(X[along] - B[along]) < kNear) return false;
        if (!PointOnSegment(X[0], X[1], c, d)) return false;
        const int id = static_cast<int>(xy_.size() / 2);
        const double dx = X[0] - A[0], dy = X[1] - A[1];
        const double ex = d[0] - c[0], ey = d[1] - c[1];
        const double sine = std::fabs(across == 1 ? ey : ex) / std::sqrt(ex * ex + ey * ey);
        if (!xy_.push(X[0]) || !xy_.push(X[1]) || !cuts_.push(Crossing{dx * dx + dy * dy, sine, id, s}))
            return noMemory();
        *split = id;
        return true;
    }
    // No crossing: a line crossing near a corner, a vertex on the side or a
    // corner on the segment is not the common case.
    if (std::fabs(X[0] - A[0]) < kNear && std::fabs(X[1] - A[1]) < kNear) return false;
    if (std::fabs(X[0] - B[0]) < kNear && std::fabs(X[1] - B[1]) < kNear) return false;
    if (PointOnSegment(P[0], P[1], A, B)) return false;
    if (PointOnSegment(A[0], A[1], P, Q) && !PointsCoincide(A[0], A[1], P)) return false;
    return true;
}

// The side pass in the merge's order: per side, the original edges by index, then
// the pieces split off so far.
bool Pass::sides()
{
    for (int s = 0; s < 4; ++s) {
        const std::size_t before = extra_.size();
        for (std::size_t i = 0; i < near_.size(); ++i) {
            const int e = near_[i];
            const int end = vx_[static_cast<std::size_t>(e)].tail;
            if (end < m_ ? !(vx_[static_cast<std::size_t>(e)].sides & (1u << s)) : farPiece(s, e, end)) continue;
            int split;
            if (!evaluate(s, e, end, e, &split)) return false;
            if (split < 0) continue;
            vx_[static_cast<std::size_t>(e)].tail = split;
            if (!extra_.push(Piece{split, end, e})) return noMemory();
        }
        for (std::size_t j = 0; j < before; ++j) {
            const Piece piece = extra_[j];
            if (farPiece(s, piece.a, piece.b)) continue;
            int split;
            if (!evaluate(s, piece.a, piece.b, piece.edge, &split)) return false;
            if (split < 0) continue;
            extra_[j].b = split;
            if (!extra_.push(Piece{split, piece.b, piece.edge})) return noMemory();
        }
    }
    return true;
}

// The outline: the boundary in walking order, and which of its segments lie
// inside the polygon, by parity from each corner (C5: all points apart).
bool Pass::outline()
{
    cornerBase_ = static_cast<int>(xy_.size() / 2);
    for (int k = 0; k < 8; ++k)
        if (!xy_.push(corners_[k])) return noMemory();
    // The crossings grouped by side, each side's in the order found.
    Buffer<Crossing> bySide;
    std::size_t from[5] = {0, 0, 0, 0, 0};
    if (!bySide.resize(cuts_.size())) return noMemory();
    for (std::size_t i = 0; i < cuts_.size(); ++i) ++from[cuts_[i].side + 1];
    for (int s = 0; s < 4; ++s) from[s + 1] += from[s];
    {
        std::size_t fill[4] = {from[0], from[1], from[2], from[3]};
        for (std::size_t i = 0; i < cuts_.size(); ++i) bySide[fill[cuts_[i].side]++] = cuts_[i];
    }
    const auto byKey = [](const Crossing& p, const Crossing& q) { return p.key < q.key; };
    for (int s = 0; s < 4; ++s) {
        // A polygon's walk meets a side's crossings mostly in order, from
        // wherever it starts: try a rotation before sorting.
        Crossing* first = bySide.data() + from[s];
        Crossing* last = bySide.data() + from[s + 1];
        Crossing* descent = std::is_sorted_until(first, last, byKey);
        if (descent != last) {
            if (std::is_sorted(descent, last, byKey) && !byKey(*first, *(last - 1)))
                std::rotate(first, descent, last);
            else
                std::sort(first, last, byKey);
        }
        const int along = (s % 2 == 0) ? 0 : 1;
        bool in = cornerIn_[s];
        int id = cornerBase_ + s;
        double prev = corners_[2 * s + along];
        for (const Crossing* c = first; c != last; ++c) {
            const double here = at(c->id)[along];
            const double next = (c + 1 != last) ? at((c + 1)->id)[along] : corners_[2 * ((s + 1) % 4) + along];
            const double gap = std::min(std::fabs(here - prev), std::fabs(next - here));
            if (!(gap >= kApart && 0.5 * gap * c->sine >= kBand)) return false;
            if (!ring_.push(RingPoint{id, in ? 1 : 0})) return noMemory();
            in = !in;
            id = c->id;
            prev = here;
        }
        if (!ring_.push(RingPoint{id, in ? 1 : 0})) return noMemory();
        if (in != cornerIn_[(s + 1) % 4]) return false;
    }
    return true;
}

// Merge and walk: the kept edges in the merge's order, walked into chains.
int Pass::walk(int** outPts, int** outCounts)
{
    const int points = static_cast<int>(xy_.size() / 2);
    const std::size_t segments = ring_.size();
    Buffer<Edge> edges;
    Buffer<int> adj;
    if (!adj.assign(2 * static_cast<std::size_t>(points), -1) ||
        !edges.reserve(static_cast<std::size_t>(m_) + extra_.size() + segments))
        return -1;
    // 1 added, 0 a third edge at a point (not the common case), -1 no memory.
    auto add = [&](int a, int b) {
        const int e = static_cast<int>(edges.size());
        for (int v : {a, b}) {
            int* slot = adj.data() + 2 * static_cast<std::size_t>(v);
            if (slot[0] < 0)
                slot[0] = e;
            else if (slot[1] < 0)
                slot[1] = e;
            else
                return 0;
        }
        return edges.push(Edge{a, b, 0}) ? 1 : -1;
    };
    int added = 1;
    for (int e = 0; e < m_; ++e) {
        const int b = vx_[static_cast<std::size_t>(e)].tail;
        if (vx_[static_cast<std::size_t>(e)].inside && keptPoint(b)) added = std::min(added, add(e, b));
    }
    for (std::size_t j = 0; j < extra_.size(); ++j)
        if (keptPoint(extra_[j].a) && keptPoint(extra_[j].b)) added = std::min(added, add(extra_[j].a, extra_[j].b));
    for (std::size_t i = 0; i < segments; ++i)
        if (ring_[i].in) added = std::min(added, add(ring_[i].id, ring_[i + 1 == segments ? 0 : i + 1].id));
    if (added < 0) return -1;
    if (added == 0) return kNot;
    const int m = static_cast<int>(edges.size());
    if (m == 0) return -1;   // nothing inside: no vertex, no crossing, no corner

    Buffer<int> chain, ends;
    if (!chain.reserve(static_cast<std::size_t>(m))) return -1;
    for (int e0 = 0; e0 < m; ++e0) {
        if (edges[static_cast<std::size_t>(e0)].used) continue;
        edges[static_cast<std::size_t>(e0)].used = 1;
        const int s = edges[static_cast<std::size_t>(e0)].a;
        int c = edges[static_cast<std::size_t>(e0)].b, came = e0;
        if (!chain.push(s) || !chain.push(c)) return -1;
        for (;;) {
            const int* slot = adj.data() + 2 * static_cast<std::size_t>(c);
            const int f = slot[0] == came ? slot[1] : slot[0];
            if (f < 0 || edges[static_cast<std::size_t>(f)].used) return kNot;   // not a cycle
            Edge& next = edges[static_cast<std::size_t>(f)];
            next.used = 1;
            const int nv = next.a == c ? next.b : next.a;
            if (nv == s) break;
            if (!chain.push(nv)) return -1;
            c = nv;
            came = f;
        }
        if (!ends.push(static_cast<int>(chain.size()))) return -1;
    }
    return WriteContours(xy_.data(), chain.data(), ends.data(), static_cast<int>(ends.size()), outPts, outCounts);
}

int Pass::run(const int* pts, int n, int** outPts, int** outCounts)
{
    // The bounding-box answers, and C1, C2 on the raw points.
    int minX = pts[0], minY = pts[1], maxX = pts[0], maxY = pts[1];
    const int x1 = static_cast<int>(rect_[0]), y1 = static_cast<int>(rect_[1]);
    const int x2 = static_cast<int>(rect_[2]), y2 = static_cast<int>(rect_[3]);
    bool onBoundary = false;
    for (int i = 0; i < n; ++i) {
        const int x = pts[2 * i], y = pts[2 * i + 1];
        minX = std::min(minX, x);
        maxX = std::max(maxX, x);
        minY = std::min(minY, y);
        maxY = std::max(maxY, y);
        onBoundary = onBoundary || ((x == x1 || x == x2) && y1 <= y && y <= y2) ||
                     ((y == y1 || y == y2) && x1 <= x && x <= x2);
    }
    if (x2 <= minX || minY >= y2 || maxX <= x1 || maxY <= y1) return -1;
    if (maxX <= x2 && maxY <= y2 && x1 <= minX && y1 <= minY) return -2;
    if (onBoundary) return kNot;
    minX_ = minX;
    minY_ = minY;
    maxX_ = maxX;
    maxY_ = maxY;
    for (double v : {minX_, minY_, maxX_, maxY_, rect_[0], rect_[1], rect_[2], rect_[3]})
        mag_ = std::max(mag_, std::fabs(v));
    if (mag_ > kLimit) return kNot;

    if (!vertices(pts, n) || !insideVertices() || !edges() || !sides() || !outline())
        return oom_ ? -1 : kNot;
    return walk(outPts, outCounts);
}

}  // namespace

int ClipCommonCase(int x1, int y1, int x2, int y2, const int* pts, int n, int** outPts, int** outCounts)
{
    Pass pass(x1, y1, x2, y2);
    return pass.run(pts, n, outPts, outCounts);
}

}  // namespace qel
