// ClipPolygonWithRect: the part of an integer polygon inside an axis-parallel
// rectangle, as closed counter-clockwise contours with integer vertices.
//
// Method: a graph merge. The polygon becomes a graph G of counter-clockwise
// edges; its edges are split where they cross the rectangle's sides (a
// polygon vertex on a side enters the outline, a corner on an edge splits
// it); vertices outside the rectangle are dropped; the rectangle becomes an
// outline through its corners and the crossings in walking order; outline
// points outside the polygon are dropped (not those that stand for a point of
// G, such as a corner that a crossing merged into), and an outline edge whose
// midpoint lies outside the polygon too, so the outline never bridges a
// notch; the outline edges join G (an edge G already holds between the same
// points is not added twice, and one running against the outline cancels);
// and G's edges are walked into closed chains, first edge first. All edges
// run counter-clockwise around the inside, so where several edges remain at
// a vertex (pieces touching there) the walk leaves by the one turning
// furthest left, which keeps to the piece it walks; a chain that comes back
// to one of its own points closes a contour there and goes on from it (so a
// dangling edge where the walk began costs only itself); a closed chain of
// fewer than three points or of zero area is no contour. With no edge left,
// the rectangle lies inside the polygon when its centre does. Contours that come out clockwise are reversed keeping their first
// point; coordinates are rounded to floor(v + 0.5).
//
// Every decision is that of the plain procedure with linear lists; only the
// searching is faster:
//  - points sit in a grid on the coincidence scale that returns the lowest
//    coinciding index, as the linear search does;
//  - the side crossings skip polygon edges whose box lies farther from the
//    side than any rounding can bridge (clip_margins.h);
//  - the input's own points are kept by the closed rectangle, which is what
//    locating them gives for integer coordinates below 2^24;
//  - an outline point is first tried against the polygon edge it came from;
//    a full location counts probe-ray crossings only over edges that reach
//    the ray's line within a margin;
//  - the midpoints of the outline edges, taken along the sides, correct the
//    previous midpoint's count over the few edges that can tell the two rays
//    apart (side_locator.h);
//  - the chain walk finds the first remaining edge at a vertex through
//    per-vertex lists in edge order.
// The margins grow with the coordinates' magnitude and the polygon's size,
// so that a skipped test could not have come out otherwise. Input where
// nothing sits near anything else does not come here: a linear pass gives
// the same bits (clip_common_case.cpp), and the output stage both share is
// WriteContours.
//
// Results: k >= 1 contours (outPts and outCounts written, owned by the
// caller, freed with mem_free); -1 nothing inside, no closed contour, bad
// arguments (n <= 0, x1 >= x2 or y1 >= y2) or no memory; -2 the polygon lies
// inside the rectangle; -3 the rectangle lies inside the polygon. On every
// negative result nothing is written and every block taken is given back.
#include <algorithm>
#include <cmath>

#include "QELMath.h"
#include "clip/clip_common_case.h"
#include "clip/clip_graph_merge.h"
#include "clip/clip_margins.h"
#include "clip/clip_predicates.h"
#include "clip/clip_work.h"
#include "clip/write_contours.h"
#include "clip/side_locator.h"

namespace {

using qel::clipwork::Buffer;
using qel::clipwork::PairIndex;
using qel::clipwork::PointSet;
using qel::clipwork::SideLocator;

constexpr int kFail = -1000;   // internal: memory ran out

struct Graph {
    PointSet pts;
    Buffer<int> ends;   // first, second per edge
    int edge_count() const { return static_cast<int>(ends.size() / 2); }
    bool add_edge(int i, int j) { return ends.push(i) && ends.push(j); }
};

// A closed polygon into a fresh graph with counter-clockwise edges, exactly
// as PolygonGraph builds it.
template <class Coord>
bool BuildClosed(Graph& g, const Coord* pts, int n)
{
    double s = 0.0;
    for (int i = 0; i + 1 < n; ++i) {
        const double xi = static_cast<double>(pts[2 * i]), yi = static_cast<double>(pts[2 * i + 1]);
        const double xj = static_cast<double>(pts[2 * i + 2]), yj = static_cast<double>(pts[2 * i + 3]);
        s = s + (xi - xj) * (yi + yj);
    }
    const double xl = static_cast<double>(pts[2 * (n - 1)]), yl = static_cast<double>(pts[2 * (n - 1) + 1]);
    s = s + (xl - static_cast<double>(pts[0])) * (yl + static_cast<double>(pts[1]));
    const int start = (s > 0.0) ? 0 : n - 1;
    const int step = (s > 0.0) ? 1 : -1;
    if (!g.ends.reserve(2 * static_cast<std::size_t>(n)) || !g.pts.reserve(n)) return false;
    int prev = g.pts.add(static_cast<double>(pts[2 * start]), static_cast<double>(pts[2 * start + 1]));
    if (prev < 0) return false;
    for (int m = 0, i = start; m < n; ++m, i += step) {
        const int k = g.pts.add(static_cast<double>(pts[2 * i]), static_cast<double>(pts[2 * i + 1]));
        if (k < 0) return false;
        if (k != prev) {
            if (!g.add_edge(prev, k)) return false;
            prev = k;
        }
    }
    return prev == 0 || g.add_edge(prev, 0);
}

// The input polygon's graph as first built, kept unchanged for locating.
struct Snapshot {
    Buffer<double> xy;
    Buffer<int> ends;
    int points() const { return static_cast<int>(xy.size() / 2); }
    int edge_count() const { return static_cast<int>(ends.size() / 2); }
    const double* at(int i) const { return xy.data() + 2 * i; }
};

struct Bounds {
    double minX, minY, maxX, maxY;
};

Bounds BoundsOf(const PointSet& p)
{
    const double* q = p.at(0);
    Bounds b{q[0], q[1], q[0], q[1]};
    for (int i = 1; i < p.count(); ++i) {
        q = p.at(i);
        if (q[0] < b.minX) b.minX = q[0];
        if (q[0] > b.maxX) b.maxX = q[0];
        if (q[1] < b.minY) b.minY = q[1];
        if (q[1] > b.maxY) b.maxY = q[1];
    }
    return b;
}

double MaxAbs(double a, double b, double c, double d)
{
    double m = std::fabs(a);
    if (std::fabs(b) > m) m = std::fabs(b);
    if (std::fabs(c) > m) m = std::fabs(c);
    if (std::fabs(d) > m) m = std::fabs(d);
    return m;
}

// LocatePoint on a graph whose probe frame is known, every edge evaluated.
int LocateExact(const Graph& g, const qel::ProbeFrame& f, double x, double y)
{
    if (g.pts.count() < 2 || qel::OutsideProbeBox(f, x, y)) return -2;
    const double s[2] = {x, y};
    const double u[2] = {f.cosL, f.sinL};
    unsigned crossings = 0;
    for (int k = 0; k < g.edge_count(); ++k) {
        const double* c = g.pts.at(g.ends[2 * static_cast<std::size_t>(k)]);
        const double* d = g.pts.at(g.ends[2 * static_cast<std::size_t>(k) + 1]);
        if (qel::PointOnSegment(x, y, c, d)) return k;
        crossings += static_cast<unsigned>(qel::RayCrossesEdge(s, u, c, d));
    }
    return (crossings & 1u) ? -1 : -2;
}

// LocatePoint on the input polygon's graph, evaluating only the edges whose
// predicates can hold: the point can lie on an edge only within 0.002 of its
// range on the range axis, and the ray can cross an edge only when the edge
// reaches within the far margin of the ray's line.
struct PolygonLocator {
    const Snapshot* g;
    qel::ProbeFrame f;
    double frameAbs;

    int locate(double x, double y) const
    {
        if (g->points() < 2 || qel::OutsideProbeBox(f, x, y)) return -2;
        const double s[2] = {x, y};
        const double u[2] = {f.cosL, f.sinL};
        double m = frameAbs;
        if (std::fabs(x) > m) m = std::fabs(x);
        if (std::fabs(y) > m) m = std::fabs(y);
        const double mu = qel::FarMargin(m, f.length);
        unsigned crossings = 0;
        const int* ends = g->ends.data();
        for (int k = 0; k < g->edge_count(); ++k) {
            const double* c = g->at(ends[2 * k]);
            const double* d = g->at(ends[2 * k + 1]);
            if (MayHold(x, y, c, d) && qel::PointOnSegment(x, y, c, d)) return k;
            const double wc = (c[0] - x) * f.sinL - (c[1] - y) * f.cosL;
            const double wd = (d[0] - x) * f.sinL - (d[1] - y) * f.cosL;
            if ((wc > mu && wd > mu) || (wc < -mu && wd < -mu)) continue;
            crossings += static_cast<unsigned>(qel::RayCrossesEdge(s, u, c, d));
        }
        return (crossings & 1u) ? -1 : -2;
    }

    // Outside the range widened by 0.002 both range factors exceed 0.002 in
    // size with opposite signs, and the point is no nearer the start than
    // that, so PointOnSegment gives 0.
    static bool MayHold(double x, double y, const double* c, const double* d)
    {
        double v = x, a = c[0], b = d[0];
        if (!(std::fabs(c[0] - d[0]) >= qel::kAxis)) {
            v = y;
            a = c[1];
            b = d[1];
        }
        const double lo = a < b ? a : b, hi = a < b ? b : a;
        return v >= lo - 2e-3 && v <= hi + 2e-3;
    }
};

struct SideCut {
    double d;
    int j;
};

double SquaredDistance(const double* p, const double* a)
{
    const double dx = p[0] - a[0];
    const double dy = p[1] - a[1];
    return dx * dx + dy * dy;
}

// Drops the points of g whose keep flag is clear, with their edges; the
// other points and edges keep their order.
bool DropPoints(Graph& g, const unsigned char* keep, int extra = 0)
{
    Buffer<int> index;
    if (!g.pts.compact(keep, index, extra)) return false;
    std::size_t m = 0;
    for (std::size_t e = 0; e + 1 < g.ends.size(); e += 2) {
        const int a = index[static_cast<std::size_t>(g.ends[e])];
        const int b = index[static_cast<std::size_t>(g.ends[e + 1])];
        if (a < 0 || b < 0) continue;
        g.ends[m++] = a;
        g.ends[m++] = b;
    }
    g.ends.truncate(m);
    return true;
}

// [mid, last) ahead of [first, mid), each in its order, by three reversals
// (our own: a standard algorithm's instance would be exported with the API).
void Reverse(int* a, int* b)
{
    while (a < b && a < --b) {
        const int t = *a;
        *a++ = *b;
        *b = t;
    }
}

void MoveAhead(int* first, int* mid, int* last)
{
    Reverse(first, mid);
    Reverse(mid, last);
    Reverse(first, last);
}

int Clip(int x1, int y1, int x2, int y2, const int* pts, int n, int** outPts, int** outCounts)
{
    // 1-4: polygon graph, and the early answers from its bounding box.
    Graph g;
    if (!BuildClosed(g, pts, n)) return kFail;
    const Bounds gb = BoundsOf(g.pts);
    const double rx1 = x1, ry1 = y1, rx2 = x2, ry2 = y2;
    if (rx2 <= gb.minX || gb.minY >= ry2 || gb.maxX <= rx1 || gb.maxY <= ry1) return -1;
    if (gb.maxX <= rx2 && gb.maxY <= ry2 && rx1 <= gb.minX && ry1 <= gb.minY) return -2;

    Snapshot g2;
    if (!g2.xy.resize(2 * static_cast<std::size_t>(g.pts.count())) || !g2.ends.copy_from(g.ends)) return kFail;
    for (std::size_t i = 0; i < g2.xy.size(); ++i) g2.xy[i] = g.pts.coords()[i];

    // 5: the rectangle's corners and its graph.
    PointSet r;
    const double corners[8] = {rx1, ry1, rx2, ry1, rx2, ry2, rx1, ry2};
    for (int i = 0; i < 4; ++i)
        if (r.add(corners[2 * i], corners[2 * i + 1]) < 0) return kFail;
    Graph rg;
    if (!BuildClosed(rg, corners, 4)) return kFail;
    Buffer<int> rHint;   // for each point of r: polygon edge it lies on, or -1
    if (!rHint.assign(4, -1)) return kFail;

    // 6: split the polygon's edges at the sides.
    Buffer<int> origin;
    Buffer<unsigned char> intact;
    const int e0 = g.edge_count();
    if (!origin.resize(static_cast<std::size_t>(e0)) || !intact.assign(static_cast<std::size_t>(e0), 1))
        return kFail;
    for (int e = 0; e < e0; ++e) origin[static_cast<std::size_t>(e)] = e;
    const double size = std::sqrt((gb.maxX - gb.minX) * (gb.maxX - gb.minX) +
                                  (gb.maxY - gb.minY) * (gb.maxY - gb.minY));
    double mag = MaxAbs(gb.minX, gb.minY, gb.maxX, gb.maxY);
    const double rmag = MaxAbs(rx1, ry1, rx2, ry2);
    if (rmag > mag) mag = rmag;
    const double mu = qel::FarMargin(mag, size);

    auto split = [&](int e, int k) {
        const std::size_t ue = static_cast<std::size_t>(e);
        const int j = g.ends[2 * ue + 1];
        if (!g.add_edge(k, j) || !origin.push(origin[ue]) || !intact.push(0)) return false;
        g.ends[2 * ue + 1] = k;
        intact[ue] = 0;
        return true;
    };
    auto addToR = [&](const double* p, int hint) {
        const int before = r.count();
        const int k = r.add(p[0], p[1]);
        if (k < 0) return false;
        return k != before || rHint.push(hint);
    };

    // Room for the crossings: at most about one per polygon edge near a side.
    {
        int near = 0;
        for (int e = 0; e < e0; ++e) {
            const double* pp = g.pts.at(g.ends[2 * static_cast<std::size_t>(e)]);
            const double* qq = g.pts.at(g.ends[2 * static_cast<std::size_t>(e) + 1]);
            const double lx = (pp[0] < qq[0] ? pp[0] : qq[0]) - mu, hx = (pp[0] < qq[0] ? qq[0] : pp[0]) + mu;
            const double ly = (pp[1] < qq[1] ? pp[1] : qq[1]) - mu, hy = (pp[1] < qq[1] ? qq[1] : pp[1]) + mu;
            const bool spansX = lx <= rx2 && hx >= rx1, spansY = ly <= ry2 && hy >= ry1;
            near += (spansX && ((ly <= ry1 && hy >= ry1) || (ly <= ry2 && hy >= ry2))) ? 1 : 0;
            near += (spansY && ((lx <= rx1 && hx >= rx1) || (lx <= rx2 && hx >= rx2))) ? 1 : 0;
        }
        if (!r.reserve(4 + near) || !g.pts.reserve(g.pts.count() + near) ||
            !g.ends.reserve(g.ends.size() + 4 * static_cast<std::size_t>(near)))
            return kFail;
    }
    for (int s = 0; s < 4; ++s) {
        const double a[2] = {corners[2 * s], corners[2 * s + 1]};
        const double b[2] = {corners[2 * ((s + 1) % 4)], corners[2 * ((s + 1) % 4) + 1]};
        const int c = g.edge_count();
        for (int e = 0; e < c; ++e) {
            const std::size_t ue = static_cast<std::size_t>(e);
            const double* pp = g.pts.at(g.ends[2 * ue]);
            const double* qq = g.pts.at(g.ends[2 * ue + 1]);
            // A piece of a split edge has fractional ends and may be short,
            // so its slope is not bounded by the figure's size: its margin
            // grows with its own length over its extent on the range axes of
            // the tests.
            const double margin = intact[ue] ? mu : qel::PieceMargin(pp, qq, mag, size);
            if (qel::FarFromSide(pp, qq, a, b, margin)) continue;
            const double p[2] = {pp[0], pp[1]};
            const double q[2] = {qq[0], qq[1]};
            double x[2];
            if (qel::IntersectSegments(a, b, p, q, x)) {
                const int k = g.pts.add(x[0], x[1]);
                if (k < 0 || !split(e, k) || !addToR(x, origin[ue])) return kFail;
                continue;
            }
            if (qel::PointOnSegment(p[0], p[1], a, b) && !addToR(p, origin[ue])) return kFail;
            if (qel::PointOnSegment(a[0], a[1], p, q) && !qel::PointsCoincide(a[0], a[1], p)) {
                const int k = g.pts.add(a[0], a[1]);
                if (k < 0 || !split(e, k)) return kFail;
            }
        }
    }
    origin.release();
    intact.release();

    // 7: drop the polygon's points outside the rectangle.
    {
        qel::ProbeFrame rf;
        const Bounds b = BoundsOf(rg.pts);
        qel::MakeProbeFrame(b.minX, b.minY, b.maxX, b.maxY, &rf);
        Buffer<unsigned char> keep;
        if (!keep.resize(static_cast<std::size_t>(g.pts.count()))) return kFail;
        // The input's own points come first in g. Against the integer
        // corners an integer point's probe count is exact, and below 2^24 so
        // is the band test's t (off a side's line t is at least the side's
        // length; on it, beyond the side's end, the range test fails): such a
        // point is kept exactly when it lies in the closed rectangle.
        const int exact = mag <= 16777216.0 ? g2.points() : 0;
        for (int i = 0; i < g.pts.count(); ++i) {
            const double* p = g.pts.at(i);
            keep[static_cast<std::size_t>(i)] =
                i < exact ? (rx1 <= p[0] && p[0] <= rx2 && ry1 <= p[1] && p[1] <= ry2)
                          : LocateExact(rg, rf, p[0], p[1]) != -2;
        }
        if (!DropPoints(g, keep.data(), r.count())) return kFail;
    }

    // 8: the outline: corners and crossings in walking order along the sides.
    PointSet r2;
    Buffer<int> r2Hint;
    if (!r2.reserve(r.count())) return kFail;
    {
        Buffer<unsigned char> taken;
        Buffer<SideCut> cuts;
        if (!taken.assign(static_cast<std::size_t>(r.count()), 0)) return kFail;
        auto addToR2 = [&](const double* p, int hint) {
            const int before = r2.count();
            const int k = r2.add(p[0], p[1]);
            if (k < 0) return false;
            return k != before || r2Hint.push(hint);
        };
        for (int s = 0; s < 4; ++s) {
            const double* a = r.at(s);
            const double* b = r.at((s + 1) % 4);
            if (!addToR2(a, -1)) return kFail;
            const double whole = SquaredDistance(b, a);
            cuts.clear();
            // A point farther than 0.001 from the side's line is off its line
            // band (5e-7) whatever the rounding of the band test.
            const int across = (s % 2 == 0) ? 1 : 0;
            for (int j = 4; j < r.count(); ++j) {
                const double* p = r.at(j);
                if (taken[static_cast<std::size_t>(j)] || std::fabs(p[across] - a[across]) > 1e-3 + 1e-12 * mag ||
                    !qel::PointOnSegment(p[0], p[1], a, b))
                    continue;
                const double d = SquaredDistance(p, a);
                if (d < whole && !cuts.push(SideCut{d, j})) return kFail;
            }
            std::sort(cuts.data(), cuts.data() + cuts.size(), [](const SideCut& p, const SideCut& q) {
                return p.d < q.d || (p.d == q.d && p.j < q.j);
            });
            bool reachedEnd = false;
            for (std::size_t i = 0; i < cuts.size() && !reachedEnd; ++i) {
                const int j = cuts[i].j;
                const double* p = r.at(j);
                if (!addToR2(p, rHint[static_cast<std::size_t>(j)])) return kFail;
                if (qel::PointsCoincide(p[0], p[1], b))
                    reachedEnd = true;
                else
                    taken[static_cast<std::size_t>(j)] = 1;
            }
            if (!reachedEnd && !addToR2(b, -1)) return kFail;
        }
    }

    // 9: rebuild the outline graph from r2.
    Graph outline;
    if (!outline.pts.reserve(r2.count())) return kFail;
    {
        Buffer<double> xy;
        if (!xy.resize(2 * static_cast<std::size_t>(r2.count()))) return kFail;
        for (int i = 0; i < r2.count(); ++i) {
            xy[2 * static_cast<std::size_t>(i)] = r2.at(i)[0];
            xy[2 * static_cast<std::size_t>(i) + 1] = r2.at(i)[1];
        }
        if (!BuildClosed(outline, xy.data(), r2.count())) return kFail;
    }
    // The input polygon's graph, for locating outline points.
    PolygonLocator locator;
    {
        const Bounds b = gb;
        qel::MakeProbeFrame(b.minX, b.minY, b.maxX, b.maxY, &locator.f);
        locator.g = &g2;
        locator.frameAbs = MaxAbs(b.minX, b.minY, b.maxX, b.maxY);
    }

    // 10: drop outline points outside the polygon, then outline edges whose
    // midpoint lies outside it.
    {
        Buffer<unsigned char> keep;
        if (!keep.resize(static_cast<std::size_t>(outline.pts.count()))) return kFail;
        for (int i = 0; i < outline.pts.count(); ++i) {
            const double* p = outline.pts.at(i);
            const int at = r2.find(p[0], p[1]);
            const int h = at < 0 ? -1 : r2Hint[static_cast<std::size_t>(at)];
            bool in = false;
            if (h >= 0 && !qel::OutsideProbeBox(locator.f, p[0], p[1])) {
                const double* c = g2.at(g2.ends[2 * static_cast<std::size_t>(h)]);
                const double* d = g2.at(g2.ends[2 * static_cast<std::size_t>(h) + 1]);
                in = qel::PointOnSegment(p[0], p[1], c, d) != 0;
            }
            if (!in) in = g.pts.find(p[0], p[1]) >= 0;
            if (!in) in = locator.locate(p[0], p[1]) != -2;
            keep[static_cast<std::size_t>(i)] = in;
        }
        if (!DropPoints(outline, keep.data())) return kFail;
        SideLocator sides;
        const double rect[4] = {rx1, ry1, rx2, ry2};
        if (!sides.init(g2.at(0), g2.points(), g2.ends.data(), g2.edge_count(), locator.f, rect))
            return kFail;
        std::size_t m = 0;
        for (std::size_t e = 0; e + 1 < outline.ends.size(); e += 2) {
            const double* p = outline.pts.at(outline.ends[e]);
            const double* q = outline.pts.at(outline.ends[e + 1]);
            const double mx = (p[0] + q[0]) * 0.5, my = (p[1] + q[1]) * 0.5;
            const int out = sides.outside(mx, my);
            if (out < 0) return kFail;
            if (out) continue;
            outline.ends[m++] = outline.ends[e];
            outline.ends[m++] = outline.ends[e + 1];
        }
        outline.ends.truncate(m);
    }
    // 11: merge the outline into g. An edge g holds between the same points
    // is not added again; one running against the outline cancels with it.
    Buffer<unsigned char> dead;
    {
        PairIndex pairs;
        const int expected = g.edge_count() + outline.edge_count();
        if (!dead.assign(static_cast<std::size_t>(g.edge_count()), 0) || !pairs.reserve(expected)) return kFail;
        for (int e = 0; e < g.edge_count(); ++e)
            if (!pairs.insert(g.ends[2 * static_cast<std::size_t>(e)],
                              g.ends[2 * static_cast<std::size_t>(e) + 1], e))
                return kFail;
        for (std::size_t e = 0; e + 1 < outline.ends.size(); e += 2) {
            const double* p = outline.pts.at(outline.ends[e]);
            const double* q = outline.pts.at(outline.ends[e + 1]);
            const int kp = g.pts.add(p[0], p[1]);
            const int kq = g.pts.add(q[0], q[1]);
            if (kp < 0 || kq < 0) return kFail;
            if (kp == kq) continue;
            const int f = pairs.first_live(kp, kq, dead.data());
            if (f >= 0) {
                if (g.ends[2 * static_cast<std::size_t>(f)] == kq) dead[static_cast<std::size_t>(f)] = 1;
                continue;
            }
            const int ne = g.edge_count();
            if (!g.add_edge(kp, kq) || !dead.push(0) || !pairs.insert(kp, kq, ne)) return kFail;
        }
    }

    // 12: no edge left: the polygon inside, the rectangle inside, or nothing.
    int live = 0;
    for (int e = 0; e < g.edge_count(); ++e) live += dead[static_cast<std::size_t>(e)] ? 0 : 1;
    if (live == 0) {
        for (int i = 0; i < g2.points(); ++i) {
            const double* p = g2.at(i);
            if (rx1 < p[0] && p[0] < rx2 && ry1 < p[1] && p[1] < ry2) return -2;
        }
        // With every edge gone no boundary crosses the rectangle's inside but
        // pieces thin enough to vanish, whose points all merged within the
        // coincidence radius of a side. The centre, at least 1/2 from every
        // side, stands for the whole inside; a corner may lie on an edge or
        // within such a piece.
        return locator.locate(0.5 * (rx1 + rx2), 0.5 * (ry1 + ry2)) == -1 ? -3 : -1;
    }

    // 13: the remaining edges in order, without those from a point to itself.
    Buffer<int> ea, eb;
    for (int e = 0; e < g.edge_count(); ++e) {
        const std::size_t ue = static_cast<std::size_t>(e);
        if (dead[ue] || g.ends[2 * ue] == g.ends[2 * ue + 1]) continue;
        if (!ea.push(g.ends[2 * ue]) || !eb.push(g.ends[2 * ue + 1])) return kFail;
    }
    dead.release();
    const int m = static_cast<int>(ea.size());
    const int np = g.pts.count();

    // Edges at each vertex in edge order, for the first remaining one.
    Buffer<int> first, adj, cursor;
    if (!first.assign(static_cast<std::size_t>(np) + 1, 0) || !adj.resize(2 * static_cast<std::size_t>(m)) ||
        !cursor.resize(static_cast<std::size_t>(np)))
        return kFail;
    for (int e = 0; e < m; ++e) {
        ++first[static_cast<std::size_t>(ea[static_cast<std::size_t>(e)]) + 1];
        ++first[static_cast<std::size_t>(eb[static_cast<std::size_t>(e)]) + 1];
    }
    for (int v = 0; v < np; ++v) first[static_cast<std::size_t>(v) + 1] += first[static_cast<std::size_t>(v)];
    for (int v = 0; v < np; ++v) cursor[static_cast<std::size_t>(v)] = first[static_cast<std::size_t>(v)];
    for (int e = 0; e < m; ++e) {
        adj[static_cast<std::size_t>(cursor[static_cast<std::size_t>(ea[static_cast<std::size_t>(e)])]++)] = e;
        adj[static_cast<std::size_t>(cursor[static_cast<std::size_t>(eb[static_cast<std::size_t>(e)])]++)] = e;
    }
    for (int v = 0; v < np; ++v) cursor[static_cast<std::size_t>(v)] = first[static_cast<std::size_t>(v)];

    // 14: walk the chains, first remaining edge first. Where several edges
    // remain at a vertex, the walk leaves by the one turning furthest left.
    // A chain that comes back to one of its own points closes a contour there
    // (pieces touching at that point), and the walk goes on from it: the
    // closed part moves ahead of the open one, so that the open chain stays
    // last in `chain`, from `start`.
    Buffer<unsigned char> used;
    Buffer<int> seen, at, chain, contourEnd;
    if (!used.assign(static_cast<std::size_t>(m), 0) || !seen.assign(static_cast<std::size_t>(np), 0) ||
        !at.resize(static_cast<std::size_t>(np)))
        return kFail;
    int remaining = m, next0 = 0, stamp = 0;
    auto nextAt = [&](int v, int from) {
        int& c = cursor[static_cast<std::size_t>(v)];
        const int end = first[static_cast<std::size_t>(v) + 1];
        while (c < end && used[static_cast<std::size_t>(adj[static_cast<std::size_t>(c)])]) ++c;
        if (c == end) return -1;
        int best = -1, candidates = 0;
        for (int i = c; i < end; ++i) {
            const int e = adj[static_cast<std::size_t>(i)];
            if (used[static_cast<std::size_t>(e)]) continue;
            ++candidates;
            if (ea[static_cast<std::size_t>(e)] != v) continue;
            if (best < 0 || qel::TurnsFurtherLeft(g.pts.at(from), g.pts.at(v), g.pts.at(eb[static_cast<std::size_t>(e)]),
                                                  g.pts.at(eb[static_cast<std::size_t>(best)])))
                best = e;
        }
        return (candidates == 1 || best < 0) ? adj[static_cast<std::size_t>(c)] : best;
    };
    while (remaining > 0) {
        while (used[static_cast<std::size_t>(next0)]) ++next0;
        const int s = ea[static_cast<std::size_t>(next0)];
        int c = eb[static_cast<std::size_t>(next0)], from = s;
        used[static_cast<std::size_t>(next0)] = 1;
        --remaining;
        ++stamp;
        std::size_t start = chain.size();
        if (!chain.push(s) || !chain.push(c)) return kFail;
        seen[static_cast<std::size_t>(s)] = seen[static_cast<std::size_t>(c)] = stamp;
        at[static_cast<std::size_t>(s)] = 0;
        at[static_cast<std::size_t>(c)] = 1;
        for (;;) {
            if (remaining == 0) {
                chain.truncate(start);
                break;
            }
            const int f = nextAt(c, from);
            if (f < 0) {
                chain.truncate(start);
                break;
            }
            used[static_cast<std::size_t>(f)] = 1;
            --remaining;
            const int nv = (ea[static_cast<std::size_t>(f)] == c) ? eb[static_cast<std::size_t>(f)]
                                                                  : ea[static_cast<std::size_t>(f)];
            if (nv == s) {
                // A chain of fewer than three points or without area is
                // dropped by the output stage.
                if (!contourEnd.push(static_cast<int>(chain.size()))) return kFail;
                break;
            }
            if (seen[static_cast<std::size_t>(nv)] != stamp) {
                seen[static_cast<std::size_t>(nv)] = stamp;
                at[static_cast<std::size_t>(nv)] = static_cast<int>(chain.size() - start);
                if (!chain.push(nv)) return kFail;
            } else {
                const std::size_t j = start + static_cast<std::size_t>(at[static_cast<std::size_t>(nv)]);
                const std::size_t loop = chain.size() - j;
                MoveAhead(chain.data() + start, chain.data() + j, chain.data() + chain.size());
                for (std::size_t i = start + 1; i < start + loop; ++i) seen[static_cast<std::size_t>(chain[i])] = 0;
                if (!contourEnd.push(static_cast<int>(start + loop)) || !chain.push(nv)) return kFail;
                start += loop;
            }
            from = c;
            c = nv;
        }
    }

    // 15, 16: the contours, counter-clockwise, rounded.
    return qel::WriteContours(g.pts.coords(), chain.data(), contourEnd.data(), static_cast<int>(contourEnd.size()),
                              outPts, outCounts);
}

}  // namespace

namespace qel {

int ClipByGraphMerge(int x1, int y1, int x2, int y2, const int* pts, int n, int** outPts, int** outCounts)
{
    if (n <= 0 || x1 >= x2 || y1 >= y2) return -1;
    const int k = Clip(x1, y1, x2, y2, pts, n, outPts, outCounts);
    return k == kFail ? -1 : k;
}

}  // namespace qel

// Input where nothing sits near anything else takes the linear pass, which
// gives the merge's bits; the rest, and whatever the pass cannot vouch for,
// takes the merge.
QELMATH_API int ClipPolygonWithRect(int x1, int y1, int x2, int y2, int* pts, int n, int** outPts,
                                    int** outCounts)
{
    if (n <= 0 || x1 >= x2 || y1 >= y2) return -1;
    const int common = qel::ClipCommonCase(x1, y1, x2, y2, pts, n, outPts, outCounts);
    if (common != qel::kNotCommonCase) return common;
    return qel::ClipByGraphMerge(x1, y1, x2, y2, pts, n, outPts, outCounts);
}
