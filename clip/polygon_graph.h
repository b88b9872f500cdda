// PolygonGraph: plane points (a PointList) and directed edges between them,
// held as pairs of point indices in insertion order. It carries the polygon
// being clipped, the rectangle outline and the merged result of the clipper.
// Edge storage grows like the points, 16 edges at a time.
#ifndef QELMATH_CLIP_POLYGON_GRAPH_H
#define QELMATH_CLIP_POLYGON_GRAPH_H

#include <cstdint>

#include "clip/point_list.h"

namespace qel {

class PolygonGraph {
public:
    PolygonGraph() = default;
    ~PolygonGraph() { Release(); }
    PolygonGraph(const PolygonGraph&) = delete;
    PolygonGraph& operator=(const PolygonGraph&) = delete;

    std::int32_t EdgeCount() const { return edgeCount_; }
    std::int32_t PointCount() const { return points_.Count(); }
    int GetPoint(int i, double* x, double* y) const { return points_.GetPoint(i, x, y); }
    // As PointList::AddPoint: -1 only when memory ran out.
    int AddPoint(double x, double y) { return points_.AddPoint(x, y); }
    int GetBounds(double* minX, double* minY, double* maxX, double* maxY) const
    {
        return points_.GetBounds(minX, minY, maxX, maxY);
    }

    // -1 for a bad index; -2 when the edge storage could not grow; else the
    // new edge's index.
    int AddEdge(int i, int j);
    int GetEdge(int e, int* first, int* second) const;
    // -1 bad e; -2 bad first index; -3 bad second index (p written); else 1.
    int GetEdgePoints(int e, double* p, double* q) const;
    int RemoveEdgeAt(int e);
    // -1 bad e; -2 bad k; -3 no memory for the appended half (nothing
    // changed); else 1: edge e = (i, j) becomes (i, k), (k, j) is appended.
    int SplitEdge(int e, int k);
    // -1 when no point coincides with (x, y); else removes that point and
    // its edges, renumbers the later points, and returns 1.
    int RemoveVertex(double x, double y);

    // Rebuild from a closed polygon so that the edges run counter-clockwise
    // (y up). n <= 0 leaves an empty graph. 1, or -1 when memory ran out
    // (the graph is then incomplete and only fit for Release).
    int BuildFromPolygon(const int* pts, int n);
    int BuildFromPoints(const double* pts, int n);
    int BuildFromPoints(const PointList& list) { return BuildFromPoints(list.Data(), list.Count()); }

    void Release();

    const PointList& Points() const { return points_; }
    const std::int32_t* Edges() const { return edges_; }

private:
    template <class Coord>
    int Build(const Coord* pts, int n);

    std::int32_t edgeCount_ = 0;
    std::int32_t edgeCapacity_ = 0;
    std::int32_t* edges_ = nullptr;
    PointList points_;
};

}  // namespace qel

#endif
