// PolygonGraph: edge list over a PointList.
//
// Building from a closed polygon takes twice its signed area first,
// S = sum (x_i - x_i+1)(y_i + y_i+1) with the closing term last, in doubles,
// and walks the points forward when S > 0 and backward otherwise, so that the
// edges always run counter-clockwise; a clockwise or degenerate polygon
// starts at its last point. Coinciding consecutive points give no edge, a
// point met again reuses its vertex, and the closing edge comes last.
#include "clip/polygon_graph.h"

#include <cstring>

#include "QELMemory.h"

namespace qel {

int PolygonGraph::AddEdge(int i, int j)
{
    const int n = points_.Count();
    if (i < 0 || j < 0 || i >= n || j >= n) return -1;
    if (edgeCount_ == edgeCapacity_) {
        void* block = edges_;
        if (!GrowWorkStorage(&block, &edgeCapacity_, edgeCount_, 2 * sizeof(std::int32_t)))
            return -2;
        edges_ = static_cast<std::int32_t*>(block);
    }
    edges_[2 * edgeCount_] = i;
    edges_[2 * edgeCount_ + 1] = j;
    return edgeCount_++;
}

int PolygonGraph::GetEdge(int e, int* first, int* second) const
{
    if (e < 0 || e >= edgeCount_) return -1;
    *first = edges_[2 * e];
    *second = edges_[2 * e + 1];
    return 1;
}

int PolygonGraph::GetEdgePoints(int e, double* p, double* q) const
{
    if (e < 0 || e >= edgeCount_) return -1;
    if (points_.GetPoint(edges_[2 * e], &p[0], &p[1]) < 0) return -2;
    if (points_.GetPoint(edges_[2 * e + 1], &q[0], &q[1]) < 0) return -3;
    return 1;
}

int PolygonGraph::RemoveEdgeAt(int e)
{
    if (e < 0 || e >= edgeCount_) return -1;
    std::memmove(edges_ + 2 * e, edges_ + 2 * (e + 1),
                 static_cast<std::size_t>(edgeCount_ - 1 - e) * 2 * sizeof(std::int32_t));
    --edgeCount_;
    return 1;
}

int PolygonGraph::SplitEdge(int e, int k)
{
    if (e < 0 || e >= edgeCount_) return -1;
    if (k < 0 || k >= points_.Count()) return -2;
    const int j = edges_[2 * e + 1];
    if (AddEdge(k, j) < 0) return -3;
    edges_[2 * e + 1] = k;
    return 1;
}

int PolygonGraph::RemoveVertex(double x, double y)
{
    const int k = points_.FindPoint(x, y);
    if (k < 0) return -1;
    for (int e = 0; e < edgeCount_;) {
        if (edges_[2 * e] == k || edges_[2 * e + 1] == k)
            RemoveEdgeAt(e);
        else
            ++e;
    }
    for (int e = 0; e < 2 * edgeCount_; ++e)
        if (edges_[e] > k) --edges_[e];
    points_.RemoveAt(k);
    return 1;
}

template <class Coord>
int PolygonGraph::Build(const Coord* pts, int n)
{
    edgeCount_ = 0;
    points_.Clear();
    if (n <= 0) return 1;

    double s = 0.0;
    for (int i = 0; i + 1 < n; ++i) {
        const double xi = static_cast<double>(pts[2 * i]), yi = static_cast<double>(pts[2 * i + 1]);
        const double xj = static_cast<double>(pts[2 * i + 2]), yj = static_cast<double>(pts[2 * i + 3]);
        s = s + (xi - xj) * (yi + yj);
    }
    {
        const double xl = static_cast<double>(pts[2 * (n - 1)]), yl = static_cast<double>(pts[2 * (n - 1) + 1]);
        const double x0 = static_cast<double>(pts[0]), y0 = static_cast<double>(pts[1]);
        s = s + (xl - x0) * (yl + y0);
    }
    const int start = (s > 0.0) ? 0 : n - 1;
    const int step = (s > 0.0) ? 1 : -1;

    int prev = points_.AddPoint(static_cast<double>(pts[2 * start]),
                                static_cast<double>(pts[2 * start + 1]));
    if (prev < 0) return -1;
    for (int m = 0, i = start; m < n; ++m, i += step) {
        const int k = points_.AddPoint(static_cast<double>(pts[2 * i]),
                                       static_cast<double>(pts[2 * i + 1]));
        if (k < 0) return -1;
        if (k != prev) {
            if (AddEdge(prev, k) < 0) return -1;
            prev = k;
        }
    }
    if (prev != 0 && AddEdge(prev, 0) < 0) return -1;
    return 1;
}

int PolygonGraph::BuildFromPolygon(const int* pts, int n) { return Build(pts, n); }
int PolygonGraph::BuildFromPoints(const double* pts, int n) { return Build(pts, n); }

void PolygonGraph::Release()
{
    if (edgeCapacity_ != 0) {
        edgeCount_ = 0;
        edgeCapacity_ = 0;
        mem_free(edges_);
        edges_ = nullptr;
    }
    points_.Release();
}

}  // namespace qel
