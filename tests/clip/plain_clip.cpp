#include "clip/plain_clip.h"

#include <new>
#include <vector>

#include "QELMemory.h"
#include "clip/clip_predicates.h"
#include "clip/contour.h"
#include "clip/point_list.h"
#include "clip/polygon_graph.h"

namespace plainclip {

using qel::PointList;
using qel::PolygonGraph;

namespace {

double SquaredDistance(const double* p, const double* a)
{
    const double dx = p[0] - a[0];
    const double dy = p[1] - a[1];
    return dx * dx + dy * dy;
}

void Point(const PointList& l, int i, double* p) { l.GetPoint(i, &p[0], &p[1]); }
void Point(const PolygonGraph& g, int i, double* p) { g.GetPoint(i, &p[0], &p[1]); }

}  // namespace

int ClipPolygonWithRect(int x1, int y1, int x2, int y2, const int* pts, int n, int** outPts,
                        int** outCounts)
{
    if (n <= 0 || x1 >= x2 || y1 >= y2) return -1;
    // 1-4
    PolygonGraph G;
    G.BuildFromPolygon(pts, n);
    double minX, minY, maxX, maxY;
    if (!G.GetBounds(&minX, &minY, &maxX, &maxY)) return -1;
    const double X1 = x1, Y1 = y1, X2 = x2, Y2 = y2;
    if (X2 <= minX || minY >= Y2 || maxX <= X1 || maxY <= Y1) return -1;
    if (maxX <= X2 && maxY <= Y2 && X1 <= minX && Y1 <= minY) return -2;
    // 5
    PointList R;
    R.AddPoint(X1, Y1);
    R.AddPoint(X2, Y1);
    R.AddPoint(X2, Y2);
    R.AddPoint(X1, Y2);
    PolygonGraph RG;
    RG.BuildFromPoints(R);
    // 6
    for (int s = 0; s < 4; ++s) {
        double A[2], B[2];
        Point(R, s, A);
        Point(R, (s + 1) % 4, B);
        const int c = G.EdgeCount();
        for (int e = 0; e < c; ++e) {
            double P[2], Q[2], X[2];
            if (G.GetEdgePoints(e, P, Q) != 1) continue;
            if (qel::IntersectSegments(A, B, P, Q, X)) {
                const int k = G.AddPoint(X[0], X[1]);
                G.SplitEdge(e, k);
                R.AddPoint(X[0], X[1]);
            } else {
                if (qel::PointOnSegment(P[0], P[1], A, B)) R.AddPoint(P[0], P[1]);
                if (qel::PointOnSegment(A[0], A[1], P, Q) && !qel::PointsCoincide(A[0], A[1], P)) {
                    const int k = G.AddPoint(A[0], A[1]);
                    G.SplitEdge(e, k);
                }
            }
        }
    }
    // 7
    for (int i = 0; i < G.PointCount();) {
        double p[2];
        Point(G, i, p);
        if (qel::LocatePoint(RG, p[0], p[1]) == -2)
            G.RemoveVertex(p[0], p[1]);
        else
            ++i;
    }
    // 8
    PointList R2;
    for (int s = 0; s < 4; ++s) {
        double A[2], B[2];
        Point(R, s, A);
        Point(R, (s + 1) % 4, B);
        R2.AddPoint(A[0], A[1]);
        for (;;) {
            double best[2] = {B[0], B[1]};
            double bestD = SquaredDistance(B, A);
            for (int j = 4; j < R.Count(); ++j) {
                double p[2];
                Point(R, j, p);
                if (!qel::PointOnSegment(p[0], p[1], A, B)) continue;
                const double d = SquaredDistance(p, A);
                if (d < bestD) {
                    best[0] = p[0];
                    best[1] = p[1];
                    bestD = d;
                }
            }
            R2.AddPoint(best[0], best[1]);
            if (qel::PointsCoincide(best[0], best[1], B)) break;
            R.RemovePoint(best[0], best[1]);
        }
    }
    // 9
    RG.BuildFromPoints(R2);
    PolygonGraph G2;
    G2.BuildFromPolygon(pts, n);
    // 10, keeping outline points that stand for a point of G, with outline
    // edges whose midpoint lies outside dropped as well
    for (int i = 0; i < RG.PointCount();) {
        double p[2];
        Point(RG, i, p);
        if (G.Points().FindPoint(p[0], p[1]) < 0 && qel::LocatePoint(G2, p[0], p[1]) == -2)
            RG.RemoveVertex(p[0], p[1]);
        else
            ++i;
    }
    for (int e = 0; e < RG.EdgeCount();) {
        double P[2], Q[2];
        RG.GetEdgePoints(e, P, Q);
        if (qel::LocatePoint(G2, (P[0] + Q[0]) * 0.5, (P[1] + Q[1]) * 0.5) == -2)
            RG.RemoveEdgeAt(e);
        else
            ++e;
    }
    // 11, skipping edges G already holds; one against the outline cancels
    for (int e = 0; e < RG.EdgeCount(); ++e) {
        double P[2], Q[2];
        RG.GetEdgePoints(e, P, Q);
        const int kP = G.AddPoint(P[0], P[1]);
        const int kQ = G.AddPoint(Q[0], Q[1]);
        if (kP == kQ) continue;
        int found = -1;
        for (int f = 0; f < G.EdgeCount() && found < 0; ++f) {
            int a, b;
            G.GetEdge(f, &a, &b);
            if ((a == kP && b == kQ) || (a == kQ && b == kP)) found = f;
        }
        if (found < 0) {
            G.AddEdge(kP, kQ);
        } else {
            int a, b;
            G.GetEdge(found, &a, &b);
            if (a == kQ) G.RemoveEdgeAt(found);
        }
    }
    // 12
    if (G.EdgeCount() == 0) {
        for (int i = 0; i < G2.PointCount(); ++i) {
            double p[2];
            Point(G2, i, p);
            if (X1 < p[0] && p[0] < X2 && Y1 < p[1] && p[1] < Y2) return -2;
        }
        // The centre stands for the inside: corners may lie on an edge or in
        // a piece too thin to keep.
        return qel::LocatePoint(G2, 0.5 * (X1 + X2), 0.5 * (Y1 + Y2)) == -1 ? -3 : -1;
    }
    // 13
    const int E = G.EdgeCount();
    PointList* lists = static_cast<PointList*>(mem_malloc(static_cast<std::uint32_t>(E * sizeof(PointList))));
    for (int i = 0; i < E; ++i) new (&lists[i]) PointList();
    for (int e = 0; e < G.EdgeCount();) {
        double P[2], Q[2];
        G.GetEdgePoints(e, P, Q);
        if (qel::PointsCoincide(P[0], P[1], Q))
            G.RemoveEdgeAt(e);
        else
            ++e;
    }
    // 14, leaving a vertex where several edges remain by the one turning
    // furthest left; a closed chain of fewer than three points or no area is
    // no contour
    auto furtherLeft = [&](int from, int c, int v, int w) {
        double f[2], p[2], a[2], b[2];
        Point(G, from, f);
        Point(G, c, p);
        Point(G, v, a);
        Point(G, w, b);
        return qel::TurnsFurtherLeft(f, p, a, b) != 0;
    };
    int k = 0;
    while (G.EdgeCount() > 0) {
        PointList* cur = &lists[k];
        int s, c;
        G.GetEdge(0, &s, &c);
        int from = s;
        double p[2];
        Point(G, s, p);
        cur->AddPoint(p[0], p[1]);
        Point(G, c, p);
        cur->AddPoint(p[0], p[1]);
        G.RemoveEdgeAt(0);
        for (;;) {
            if (G.EdgeCount() == 0) break;
            int found = -1, next = -1, candidates = 0, left = -1, leftNext = -1;
            for (int f = 0; f < G.EdgeCount(); ++f) {
                int a, b;
                G.GetEdge(f, &a, &b);
                if (a != c && b != c) continue;
                ++candidates;
                if (found < 0) {
                    found = f;
                    next = (a == c) ? b : a;
                }
                if (a == c && (left < 0 || furtherLeft(from, c, b, leftNext))) {
                    left = f;
                    leftNext = b;
                }
            }
            if (found < 0) {
                cur->Clear();
                break;
            }
            if (candidates > 1 && left >= 0) {
                found = left;
                next = leftNext;
            }
            G.RemoveEdgeAt(found);
            if (next == s) {
                const double area = qel::ContourShoelace(cur->Count(), [&](int j) { return cur->Data() + 2 * j; });
                if (cur->Count() < 3 || area == 0.0)
                    cur->Clear();
                else
                    ++k;
                break;
            }
            // Back at one of its own points: the loop from there is a
            // contour of its own, and the chain goes on from that point.
            Point(G, next, p);
            const int j = cur->FindPoint(p[0], p[1]);
            if (j < 0) {
                cur->AddPoint(p[0], p[1]);
            } else {
                std::vector<double> open(cur->Data(), cur->Data() + 2 * cur->Count());
                cur->Clear();
                for (std::size_t i = 2 * static_cast<std::size_t>(j); i < open.size(); i += 2)
                    cur->AddPoint(open[i], open[i + 1]);
                const double loop = qel::ContourShoelace(cur->Count(), [&](int i) { return cur->Data() + 2 * i; });
                if (cur->Count() < 3 || loop == 0.0)
                    cur->Clear();
                else
                    cur = &lists[++k];
                for (int i = 0; i <= j; ++i) cur->AddPoint(open[2 * i], open[2 * i + 1]);
            }
            from = c;
            c = next;
        }
    }
    // 15
    auto releaseLists = [&]() {
        for (int i = 0; i < E; ++i) lists[i].~PointList();
        mem_free(lists);
    };
    if (k == 0) {
        releaseLists();
        return -1;
    }
    // Counter-clockwise contours, keeping the first point.
    int m = 0;
    for (int i = 0; i < k; ++i) m += lists[i].Count();
    int* counts = static_cast<int*>(mem_malloc(static_cast<std::uint32_t>(k * sizeof(int))));
    int* out = static_cast<int*>(mem_malloc(static_cast<std::uint32_t>(2 * m * sizeof(int))));
    int w = 0;
    for (int i = 0; i < k; ++i) {
        const PointList& l = lists[i];
        const int len = l.Count();
        const double area = qel::ContourShoelace(len, [&](int j) { return l.Data() + 2 * j; });
        for (int j = 0; j < len; ++j) {
            const int at = (area < 0.0 && j > 0) ? len - j : j;
            out[w++] = qel::RoundCoordinate(l.Data()[2 * at]);
            out[w++] = qel::RoundCoordinate(l.Data()[2 * at + 1]);
        }
        counts[i] = len;
    }
    releaseLists();
    *outPts = out;
    *outCounts = counts;
    return k;
}

}  // namespace plainclip
