// The shipped library as a user sees it: linked dynamically, memory from the
// real QELMemory.
#include <gtest/gtest.h>

#include "QELMath.h"

TEST(SharedLibrary, CallsResolveThroughTheExportedApi)
{
    double v[3] = {0, 3, 4};
    EXPECT_EQ(NormalizeVector(v), 1);
    EXPECT_EQ(v[1], 0.6000000000000001);
    EXPECT_EQ(v[2], 0.8);
}

TEST(SharedLibrary, MemoryLibraryHandsOutAndTakesBackBlocks)
{
    void* p = mem_malloc(0);
    ASSERT_NE(p, nullptr);
    mem_free(p);
    void* q = mem_malloc(64);
    ASSERT_NE(q, nullptr);
    static_cast<unsigned char*>(q)[63] = 1;
    mem_free(q);
    mem_free(nullptr);
}

// The named result codes are the values the functions return.
TEST(SharedLibrary, NamedResultCodes)
{
    double singular[4] = {1, 2, 2, 4}, regular[4] = {2, 0, 0, 4}, b[2] = {1, 1};
    EXPECT_EQ(linear_Gauss(singular, b, 2), QEL_SINGULAR);
    EXPECT_EQ(linear_Gauss(regular, b, 2), QEL_SOLVED);
    double band[2] = {2, 4}, bb[2] = {1, 1}, x[2];
    EXPECT_EQ(linear_GaussBand(band, bb, 2, 0, 1), QEL_SOLVED_BAND);
    double notDominant[4] = {1, 2, 2, 1};
    EXPECT_EQ(linear_GaussSeidel(notDominant, b, 2, x, 1e-12), QEL_NOT_DOMINANT);
    double a[3] = {0, 0, 0}, e[3] = {4, 0, 0}, p[3] = {2, 0, 0}, q[3] = {9, 0, 0}, o[3] = {2, 1, 0};
    EXPECT_EQ(PointIsOnLine(a, e, p), QEL_ON_SEGMENT);
    EXPECT_EQ(PointIsOnLine(a, e, q), QEL_BEYOND_B);
    EXPECT_EQ(PointIsOnLine(a, a, p), QEL_LINE_DEGENERATE);
    double c[3], r, s, t;
    EXPECT_EQ(Bulge2Arc(a, e, 0.0, c, &r, &s, &t), QEL_BULGE_ZERO);
    EXPECT_EQ(ThreePoints2Arc(a, p, e, c, &r, &s, &t), QEL_ARC_DEGENERATE);
    EXPECT_EQ(PointIsOnCircle(a, 2.0, p), QEL_ON_CIRCLE);
    EXPECT_EQ(PointIsOnCircle(a, 9.0, p), QEL_INSIDE_CIRCLE);
    EXPECT_EQ(PointIsInTriangle(a, e, o, o), QEL_AT_VERTEX);
    EXPECT_EQ(PointIsInTriangle(a, e, o, q), QEL_OUTSIDE_TRIANGLE);
    double inner[3] = {2, 0.25, 0};
    EXPECT_EQ(PointIsInTriangle(a, e, o, inner), QEL_INSIDE_TRIANGLE);
    int square[8] = {0, 0, 1, 0, 1, 1, 0, 1};
    int *pts = nullptr, *counts = nullptr;
    EXPECT_EQ(ClipPolygonWithRect(5, 5, 9, 9, square, 4, &pts, &counts), QEL_CLIP_NOTHING);
    EXPECT_EQ(ClipPolygonWithRect(-1, -1, 2, 2, square, 4, &pts, &counts), QEL_CLIP_POLYGON_INSIDE);
}
