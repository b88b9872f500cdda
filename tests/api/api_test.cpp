// The shipped library as a user sees it: linked dynamically, memory from the
// real QELMemory.
#include <gtest/gtest.h>

#include <utility>

#include "QELMath.h"

TEST(SharedLibrary, CallsResolveThroughTheExportedApi)
{
    double v[3] = {0, 3, 4};
    EXPECT_TRUE(NormalizeVector(v) == 1 && v[1] == 0.6000000000000001 && v[2] == 0.8);
}

TEST(SharedLibrary, MemoryLibraryHandsOutAndTakesBackBlocks)
{
    void *p = mem_malloc(0), *q = mem_malloc(64);
    ASSERT_TRUE(p != nullptr && q != nullptr);
    static_cast<unsigned char*>(q)[63] = 1;
    mem_free(p), mem_free(q), mem_free(nullptr);
}

// The named result codes are the values the functions return (the list is
// evaluated in order: the solvers write their arguments).
TEST(SharedLibrary, NamedResultCodes)
{
    double singular[4] = {1, 2, 2, 4}, regular[4] = {2, 0, 0, 4}, b[2] = {1, 1}, band[2] = {2, 4}, bb[2] = {1, 1}, x[2];
    double notDominant[4] = {1, 2, 2, 1}, a[3] = {0, 0, 0}, e[3] = {4, 0, 0}, p[3] = {2, 0, 0}, q[3] = {9, 0, 0}, o[3] = {2, 1, 0};
    double c[3], r, s, t, inner[3] = {2, 0.25, 0};
    int square[8] = {0, 0, 1, 0, 1, 1, 0, 1}, *pts = nullptr, *counts = nullptr;
    const std::pair<int, int> rows[] = {{linear_Gauss(singular, b, 2), QEL_SINGULAR}, {linear_Gauss(regular, b, 2), QEL_SOLVED},
        {linear_GaussBand(band, bb, 2, 0, 1), QEL_SOLVED_BAND}, {linear_GaussSeidel(notDominant, b, 2, x, 1e-12), QEL_NOT_DOMINANT},
        {PointIsOnLine(a, e, p), QEL_ON_SEGMENT}, {PointIsOnLine(a, e, q), QEL_BEYOND_B}, {PointIsOnLine(a, a, p), QEL_LINE_DEGENERATE},
        {Bulge2Arc(a, e, 0.0, c, &r, &s, &t), QEL_BULGE_ZERO}, {ThreePoints2Arc(a, p, e, c, &r, &s, &t), QEL_ARC_DEGENERATE},
        {PointIsOnCircle(a, 2.0, p), QEL_ON_CIRCLE}, {PointIsOnCircle(a, 9.0, p), QEL_INSIDE_CIRCLE},
        {PointIsInTriangle(a, e, o, o), QEL_AT_VERTEX}, {PointIsInTriangle(a, e, o, q), QEL_OUTSIDE_TRIANGLE},
        {PointIsInTriangle(a, e, o, inner), QEL_INSIDE_TRIANGLE}, {ClipPolygonWithRect(5, 5, 9, 9, square, 4, &pts, &counts), QEL_CLIP_NOTHING},
        {ClipPolygonWithRect(-1, -1, 2, 2, square, 4, &pts, &counts), QEL_CLIP_POLYGON_INSIDE}};
    for (const auto& row : rows) EXPECT_EQ(row.first, row.second) << &row - rows;
}
