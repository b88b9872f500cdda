#include "clip/plain_clip.h"

#include <array>
#include <vector>

#include "QELMemory.h"
#include "clip/clip_predicates.h"
#include "clip/contour.h"

namespace plainclip {
namespace {

using namespace qel;
using Pt = std::array<double, 2>;

template <class L> Pt At(const L& l, int i) { Pt p; l.GetPoint(i, &p[0], &p[1]); return p; }

// Take out, one at a time, the vertices p and the edges P-Q for which out holds.
template <class Out> void RemoveVertices(PolygonGraph& g, Out out) { for (int i = 0; i < g.PointCount();) out(At(g, i)) ? (void)g.RemoveVertex(At(g, i)[0], At(g, i)[1]) : (void)++i; }

template <class Out> void RemoveEdges(PolygonGraph& g, Out out)
{
    double P[2], Q[2];
    for (int e = 0; e < g.EdgeCount();) g.GetEdgePoints(e, P, Q), out(P, Q) ? (void)g.RemoveEdgeAt(e) : (void)++e;
}

double Dist2(const double* p, const double* a) { return (p[0] - a[0]) * (p[0] - a[0]) + (p[1] - a[1]) * (p[1] - a[1]); }

double Area(const PointList& l) { return ContourShoelace(l.Count(), [&](int j) { return l.Data() + 2 * j; }); }

// A closed chain of fewer than three points or no area is no contour.
bool NoContour(const PointList& l) { return l.Count() < 3 || Area(l) == 0.0; }

}  // namespace

int ClipPolygonWithRect(int x1, int y1, int x2, int y2, const int* pts, int n, int** outPts, int** outCounts)
{
    if (n <= 0 || x1 >= x2 || y1 >= y2) return -1;
    PolygonGraph G, G2, RG;
    for (PolygonGraph* h : {&G, &G2}) h->BuildFromPolygon(pts, n);
    double minX, minY, maxX, maxY;
    if (!G.GetBounds(&minX, &minY, &maxX, &maxY)) return -1;
    const double X1 = x1, Y1 = y1, X2 = x2, Y2 = y2;
    if (X2 <= minX || minY >= Y2 || maxX <= X1 || maxY <= Y1) return -1;
    if (maxX <= X2 && maxY <= Y2 && X1 <= minX && Y1 <= minY) return -2;
    // Side s runs from corner s to corner s + 1; the first corner comes again at the end.
    const double C[10] = {X1, Y1, X2, Y1, X2, Y2, X1, Y2, X1, Y1};
    PointList R, R2;
    for (int s = 0; s < 4; ++s) R.AddPoint(C[2 * s], C[2 * s + 1]);
    RG.BuildFromPoints(R);
    // Split G at its crossings with the sides and at corners on its edges;
    // R collects the outline's points.
    for (int s = 0; s < 4; ++s) {
        const double *A = C + 2 * s, *B = A + 2;
        for (int e = 0, c = G.EdgeCount(); e < c; ++e) {
            double P[2], Q[2], X[2];
            if (G.GetEdgePoints(e, P, Q) != 1) continue;
            if (IntersectSegments(A, B, P, Q, X)) { G.SplitEdge(e, G.AddPoint(X[0], X[1])); R.AddPoint(X[0], X[1]); continue; }
            if (PointOnSegment(P[0], P[1], A, B)) R.AddPoint(P[0], P[1]);
            if (PointOnSegment(A[0], A[1], P, Q) && !PointsCoincide(A[0], A[1], P)) G.SplitEdge(e, G.AddPoint(A[0], A[1]));
        }
    }
    RemoveVertices(G, [&](Pt p) { return LocatePoint(RG, p[0], p[1]) == -2; });
    // The outline in order: each side's points nearest first.
    for (int s = 0; s < 4; ++s) {
        const double *A = C + 2 * s, *B = A + 2;
        R2.AddPoint(A[0], A[1]);
        for (;;) {
            Pt best = {B[0], B[1]};
            for (int j = 4; j < R.Count(); ++j)
                if (const Pt p = At(R, j); PointOnSegment(p[0], p[1], A, B) && Dist2(p.data(), A) < Dist2(best.data(), A)) best = p;
            R2.AddPoint(best[0], best[1]);
            if (PointsCoincide(best[0], best[1], B)) break;
            R.RemovePoint(best[0], best[1]);
        }
    }
    RG.BuildFromPoints(R2);
    // Outline points outside the polygon go, unless they stand for a point of
    // G, and so do outline edges whose midpoint lies outside.
    RemoveVertices(RG, [&](Pt p) { return G.Points().FindPoint(p[0], p[1]) < 0 && LocatePoint(G2, p[0], p[1]) == -2; });
    RemoveEdges(RG, [&](const double* P, const double* Q) { return LocatePoint(G2, (P[0] + Q[0]) * 0.5, (P[1] + Q[1]) * 0.5) == -2; });
    // The outline's edges join G, skipping edges G already holds; one
    // against the outline cancels.
    for (int e = 0; e < RG.EdgeCount(); ++e) {
        double P[2], Q[2];
        RG.GetEdgePoints(e, P, Q);
        const int kP = G.AddPoint(P[0], P[1]), kQ = G.AddPoint(Q[0], Q[1]);
        if (kP == kQ) continue;
        int f = 0, a = -1, b = -1;
        while (f < G.EdgeCount() && (G.GetEdge(f, &a, &b), !((a == kP && b == kQ) || (a == kQ && b == kP)))) ++f;
        if (f == G.EdgeCount()) G.AddEdge(kP, kQ);
        else if (a == kQ) G.RemoveEdgeAt(f);
    }
    if (G.EdgeCount() == 0) {
        for (int i = 0; i < G2.PointCount(); ++i)
            if (X1 < At(G2, i)[0] && At(G2, i)[0] < X2 && Y1 < At(G2, i)[1] && At(G2, i)[1] < Y2) return -2;
        // The centre stands for the inside: corners may lie on an edge or in
        // a piece too thin to keep.
        return LocatePoint(G2, 0.5 * (X1 + X2), 0.5 * (Y1 + Y2)) == -1 ? -3 : -1;
    }
    std::vector<PointList> lists(static_cast<std::size_t>(G.EdgeCount()));
    RemoveEdges(G, [](const double* P, const double* Q) { return PointsCoincide(P[0], P[1], Q) != 0; });
    // Walk the chains from the first edge left, leaving a vertex by the first
    // edge there, or by the outgoing one turning furthest left.
    std::size_t k = 0;
    while (G.EdgeCount() > 0) {
        PointList* cur = &lists[k];   // may hold a chain that came to nothing
        cur->Clear();
        int s, c, from;
        G.GetEdge(0, &s, &c);
        from = s;
        for (int v : {s, c}) cur->AddPoint(At(G, v)[0], At(G, v)[1]);
        G.RemoveEdgeAt(0);
        while (G.EdgeCount() > 0) {
            int found = -1, next = -1, left = -1;
            for (int f = 0, a, b; f < G.EdgeCount(); ++f) {
                G.GetEdge(f, &a, &b);
                if (found < 0 && (a == c || b == c)) found = f, next = (a == c) ? b : a;
                if (a == c && (left < 0 || TurnsFurtherLeft(At(G, from).data(), At(G, c).data(), At(G, b).data(), At(G, next).data()))) left = f, next = b;
            }
            if (found < 0) break;
            G.RemoveEdgeAt(left >= 0 ? left : found);
            if (next == s) { k += NoContour(*cur) ? 0 : 1; break; }
            // Back at one of its own points: the loop from there is a
            // contour of its own, and the chain goes on from that point.
            const Pt p = At(G, next);
            const int j = cur->FindPoint(p[0], p[1]);
            if (j < 0) cur->AddPoint(p[0], p[1]);
            else {
                const std::vector<double> open(cur->Data(), cur->Data() + 2 * cur->Count());
                cur->Clear();
                for (std::size_t i = 2 * static_cast<std::size_t>(j); i < open.size(); i += 2) cur->AddPoint(open[i], open[i + 1]);
                NoContour(*cur) ? cur->Clear() : (void)(cur = &lists[++k]);
                for (int i = 0; i <= j; ++i) cur->AddPoint(open[2 * i], open[2 * i + 1]);
            }
            from = c;
            c = next;
        }
    }
    if (k == 0) return -1;
    // Counter-clockwise contours, keeping the first point.
    std::uint32_t m = 0;
    for (std::size_t i = 0; i < k; ++i) m += static_cast<std::uint32_t>(lists[i].Count());
    int* counts = static_cast<int*>(mem_malloc(static_cast<std::uint32_t>(k * sizeof(int))));
    int* out = static_cast<int*>(mem_malloc(2 * m * sizeof(int)));
    for (std::size_t i = 0, w = 0; i < k; ++i) {
        const int len = counts[i] = lists[i].Count();
        const bool cw = Area(lists[i]) < 0.0;
        for (int j = 0; j < len; ++j)
            for (int a = 0; a < 2; ++a) out[w++] = RoundCoordinate(lists[i].Data()[2 * (cw && j > 0 ? len - j : j) + a]);
    }
    *outPts = out, *outCounts = counts;
    return static_cast<int>(k);
}

}  // namespace plainclip
