// ClipPolygonWithRect: documented cases, the touching and near-edge cases
// that the procedure's own steps get wrong, result codes, rounding, and memory.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "QELMath.h"
#include "clip/contour.h"
#include "support/test_allocator.h"

namespace {

struct Clipped {
    int code;
    std::vector<int> counts, pts;
};

Clipped Clip(int x1, int y1, int x2, int y2, std::vector<int> poly)
{
    int* pts = reinterpret_cast<int*>(0x1);
    int* counts = reinterpret_cast<int*>(0x2);
    Clipped c;
    c.code = ClipPolygonWithRect(x1, y1, x2, y2, poly.data(), static_cast<int>(poly.size() / 2), &pts, &counts);
    if (c.code > 0) {
        c.counts.assign(counts, counts + c.code);
        int m = 0;
        for (int v : c.counts) m += v;
        c.pts.assign(pts, pts + 2 * m);
        mem_free(pts);
        mem_free(counts);
    } else {
        EXPECT_EQ(pts, reinterpret_cast<int*>(0x1));
        EXPECT_EQ(counts, reinterpret_cast<int*>(0x2));
    }
    return c;
}

const std::vector<int> kSquare = {0, 0, 10, 0, 10, 10, 0, 10};

TEST(ClipPolygonWithRect, SquareAgainstRectangles)
{
    Clipped c = Clip(5, 5, 15, 15, kSquare);
    ASSERT_EQ(c.code, 1);
    EXPECT_EQ(c.counts, std::vector<int>({4}));
    EXPECT_EQ(c.pts, std::vector<int>({10, 10, 5, 10, 5, 5, 10, 5}));
    c = Clip(5, 5, 15, 15, {0, 0, 0, 10, 10, 10, 10, 0});   // clockwise
    ASSERT_EQ(c.code, 1);
    EXPECT_EQ(c.pts, std::vector<int>({10, 10, 5, 10, 5, 5, 10, 5}));

    c = Clip(2, 2, 8, 8, kSquare);
    ASSERT_EQ(c.code, 1);
    EXPECT_EQ(c.pts, std::vector<int>({2, 2, 8, 2, 8, 8, 2, 8}));

    EXPECT_EQ(Clip(0, 0, 10, 10, kSquare).code, -2);
    EXPECT_EQ(Clip(-5, -5, 20, 20, kSquare).code, -2);
    EXPECT_EQ(Clip(20, 20, 30, 30, kSquare).code, -1);
    EXPECT_EQ(Clip(10, 0, 20, 10, kSquare).code, -1);
}

TEST(ClipPolygonWithRect, Triangles)
{
    Clipped c = Clip(5, -5, 15, 5, {0, 0, 20, 0, 10, 20});
    ASSERT_EQ(c.code, 1);
    EXPECT_EQ(c.pts, std::vector<int>({5, 0, 15, 0, 15, 5, 5, 5}));
    c = Clip(22, 19, 32, 58, {69, 52, 50, 62, 12, 58});
    ASSERT_EQ(c.code, 1);
    EXPECT_EQ(c.pts, std::vector<int>({22, 57, 32, 56, 32, 58, 22, 58}));
}

TEST(ClipPolygonWithRect, TouchingAndNearEdgeCases)
{
    const struct {
        const char* what;
        int rect[4];
        std::vector<int> poly, counts, pts;
        int code;
    } rows[] = {
        {"apex on a side becomes a contour vertex, no zero-length edge", {0, 0, 10, 10}, {5, 0, 12, 6, -2, 6},
         {5}, {5, 0, 10, 4, 10, 6, 0, 6, 0, 4}, 1},
        {"edge along a side enters the outline", {3, -25, 7, -13},
         {8, -16, 8, -21, 3, -21, 3, -16, 1, -16, 1, -25, 19, -25, 19, -16}, {4}, {3, -25, 7, -25, 7, -21, 3, -21}, 1},
        {"corner on the extension of an edge splices no spike", {6, 0, 7, 13},
         {-12, -13, -10, -13, 5, -11, 11, -6, 11, 6, 4, 11, -5, 5}, {4}, {7, 9, 6, 10, 6, 0, 7, 0}, 1},
        {"probe ray near a vertex", {-13, 2, -8, 7}, {-11, 1, -11, 3, -14, 3, -14, 1},
         {4}, {-11, 3, -13, 3, -13, 2, -11, 2}, 1},
        {"notch across a side is not bridged", {-5, -5, 35, 10}, {0, 0, 30, 0, 30, 20, 20, 20, 20, 5, 10, 5, 10, 20, 0, 20},
         {8}, {0, 0, 30, 0, 30, 10, 20, 10, 20, 5, 10, 5, 10, 10, 0, 10}, 1},
        {"edge along a side is not doubled", {-7, -7, 3, 3}, {-17, -17, 3, -17, 3, 3, -17, 3},
         {4}, {3, 3, -7, 3, -7, -7, 3, -7}, 1},
        {"rectangle inside a triangle is the contour", {-1, -1, 1, 1}, {-100, -100, 100, -100, 0, 100},
         {4}, {-1, -1, 1, -1, 1, 1, -1, 1}, 1},
        {"pieces touching at a vertex on a side stay two", {0, -20, 20, 20}, {0, 0, 4, 2, -4, 6, 4, -10},
         {3, 3}, {4, 2, 0, 4, 0, 0, 4, -10, 0, 0, 0, -2}, 2},
        {"corner 5e-5 from an edge, inside", {0, 0, 10, 10}, {0, 0, 200000, -1, -1000, 1000},
         {4}, {0, 0, 10, 0, 10, 10, 0, 10}, 1},
        {"sliver touching a piece at a vertex on a side", {0, 0, 10, 10}, {-5, 5, 13317, 0, 0, 5, 5, 15},
         {4, 3}, {10, 5, 0, 5, 0, 5, 10, 5, 0, 5, 3, 10, 0, 10}, 2},
        {"crossing computed 2.2e-6 outside the box at 5e8", {522133279, -16441569, 522133503, 520093976},
         {536870911, 522133279, 522133279, 0, 0, 0}, {4},
         {522133503, 507800427, 522133279, 507800209, 522133279, 0, 522133503, 7936}, 1},
        {"two points and no area is no contour", {0, 0, 10, 10}, {-5, 5, 20, 5}, {}, {}, -1},
        {"rounding collapses a thin piece onto a repeated vertex", {-5, -5, 35, 18},
         {0, 0, 33554462, 33686018, 33686018, 33686018}, {3}, {0, 0, 18, 18, 18, 18}, 1},
        {"edge entering 2.8e-4 from the corner at the side's end", {7, -8, 11, 3}, {5, 0, -3, -4, 0, -77212, 11, -6, 9, -3},
         {5}, {9, -3, 7, -1, 7, -8, 11, -8, 11, -6}, 1},
        {"crossing 7.7e-5 outside the corner at the side's start", {-3, -8, 0, -4},
         {4, 6, -3, 11, -11299, -2511, -7, -4, -13055, -26111, -1, -4}, {3}, {-3, -8, -1, -4, -3, -4}, 1},
        {"edge passing 9.9e-4 outside a corner is no crossing", {9, -6, 12, 3},
         {13, 1, 44338, 0, 3486, 4648, 14460, 36151, -3, 14, -76087, 47554, -54548, -27274, -6, -10, -5, -12, -1,
          -5, 0, -54503, 9, 0},
         {4}, {9, 0, 12, 1, 12, 3, 9, 3}, 1},
        {"every corner on an edge of a notch around the rectangle", {3, 3, 9, 4},
         {12, -1, 1, -1, 1, 6, 2, 6, 2, 7, 3, 7, 3, 1, 4, 1, 4, 2, 7, 2, 7, 0, 9, 0, 9, 9, 12, 9}, {}, {}, -1},
        {"a chain back at its own point closes there, its tail dropped", {8, -7, 10, -4},
         {10, 7, 2, 14, -3, -2, -22311, -55779, 0, -2, 11785, -31426, 3, -4, 22394, -13436, 13, -2}, {4},
         {8, -7, 10, -7, 10, -4, 8, -4}, 1},
        {"a corner inside a vanished sliver is not the rectangle inside", {-3, 7, 5, 9},
         {9, 1, 50668, 7238, 6, 2, 0, 6, -1, 2, -12651, 31628, -626, 939, -3, 0, -14, -4, -6, -2, -7, -11}, {}, {}, -1},
    };
    for (const auto& r : rows) {
        const Clipped c = Clip(r.rect[0], r.rect[1], r.rect[2], r.rect[3], r.poly);
        EXPECT_EQ(c.code, r.code) << r.what;
        EXPECT_EQ(c.counts, r.counts) << r.what;
        EXPECT_EQ(c.pts, r.pts) << r.what;
    }
}

TEST(ClipPolygonWithRect, RoundsHalvesUp)
{
    EXPECT_EQ(qel::RoundCoordinate(2.5), 3);
    EXPECT_EQ(qel::RoundCoordinate(2.49), 2);
    EXPECT_EQ(qel::RoundCoordinate(-2.5), -2);
    EXPECT_EQ(qel::RoundCoordinate(-2.7), -3);
    EXPECT_EQ(qel::RoundCoordinate(-7.0), -7);
    EXPECT_EQ(qel::RoundCoordinate(3e9), 2147483647);
    EXPECT_EQ(qel::RoundCoordinate(-3e9), -2147483647 - 1);
    // The edge from (-3, -1) to (-2, 1) crosses y = 0 at x = -2.5.
    const Clipped c = Clip(-10, 0, 10, 10, {-3, -1, 4, -1, 4, 1, -2, 1});
    ASSERT_EQ(c.code, 1);
    EXPECT_EQ(c.pts, std::vector<int>({4, 1, -2, 1, -2, 0, 4, 0}));
}

TEST(ClipPolygonWithRect, BadArgumentsTakeNothing)
{
    testalloc::Scope scope;
    EXPECT_EQ(Clip(0, 0, 10, 10, {}).code, -1);
    int dummy[2] = {1, 1};
    int* p = nullptr;
    int* q = nullptr;
    EXPECT_EQ(ClipPolygonWithRect(0, 0, 10, 10, dummy, -4, &p, &q), -1);
    EXPECT_EQ(Clip(5, 0, 5, 10, kSquare).code, -1);
    EXPECT_EQ(Clip(6, 0, 5, 10, kSquare).code, -1);
    EXPECT_EQ(Clip(0, 3, 10, 3, kSquare).code, -1);
    EXPECT_TRUE(testalloc::requests().empty());
    EXPECT_EQ(p, nullptr);
}

TEST(ClipPolygonWithRect, OnePointAndCoincidingPoints)
{
    EXPECT_EQ(Clip(0, 0, 10, 10, {5, 5}).code, -2);
    EXPECT_EQ(Clip(0, 0, 10, 10, {50, 5, 50, 5}).code, -1);
    EXPECT_EQ(Clip(0, 0, 10, 10, {0, 0, 0, 0, 0, 0}).code, -1);   // touches a corner only
    EXPECT_EQ(Clip(0, 0, 10, 10, {5, 5, 5, 5, 5, 5}).code, -2);
}

TEST(ClipPolygonWithRect, OnlyTheResultArraysOutliveTheCall)
{
    testalloc::Scope scope;
    std::vector<int> star;
    for (int i = 0; i < 64; ++i) {
        const int r = (i % 2) ? 40 : 15;
        const int dx[8] = {1, 1, 0, -1, -1, -1, 0, 1}, dy[8] = {0, 1, 1, 1, 0, -1, -1, -1};
        star.push_back(r * dx[i % 8] + i % 5);
        star.push_back(r * dy[i % 8] + i % 3);
    }
    int* pts = nullptr;
    int* counts = nullptr;
    const int k = ClipPolygonWithRect(-20, -20, 20, 20, star.data(), 64, &pts, &counts);
    ASSERT_GE(k, 1);
    EXPECT_EQ(scope.leaked(), 2u);
    mem_free(pts);
    mem_free(counts);
    EXPECT_EQ(scope.leaked(), 0u);
}

void EveryRequestMayFail(int x1, int y1, int x2, int y2, std::vector<int> poly)
{
    std::size_t total = 0;
    {
        testalloc::Scope scope;
        int* pts = nullptr;
        int* counts = nullptr;
        const int k = ClipPolygonWithRect(x1, y1, x2, y2, poly.data(), static_cast<int>(poly.size() / 2), &pts, &counts);
        ASSERT_GE(k, 1);
        total = testalloc::requests().size();
        mem_free(pts);
        mem_free(counts);
    }
    ASSERT_GT(total, 5u);
    for (std::size_t f = 1; f <= total; ++f) {
        testalloc::Scope scope;
        testalloc::fail_at(f);
        int* pts = reinterpret_cast<int*>(0x10);
        int* counts = reinterpret_cast<int*>(0x20);
        EXPECT_EQ(ClipPolygonWithRect(x1, y1, x2, y2, poly.data(), static_cast<int>(poly.size() / 2), &pts, &counts), -1)
            << "request " << f;
        EXPECT_EQ(pts, reinterpret_cast<int*>(0x10));
        EXPECT_EQ(counts, reinterpret_cast<int*>(0x20));
        EXPECT_EQ(scope.leaked(), 0u) << "request " << f;
    }
    testalloc::Scope scope;
    testalloc::fail_from(1);
    int* pts = nullptr;
    int* counts = nullptr;
    EXPECT_EQ(ClipPolygonWithRect(x1, y1, x2, y2, poly.data(), static_cast<int>(poly.size() / 2), &pts, &counts), -1);
    EXPECT_EQ(scope.leaked(), 0u);
}

TEST(ClipPolygonWithRect, FailingAllocatorAtEveryRequest)
{
    EveryRequestMayFail(5, 5, 15, 15, kSquare);
    EveryRequestMayFail(-5, -5, 35, 10, {0, 0, 30, 0, 30, 20, 20, 20, 20, 5, 10, 5, 10, 20, 0, 20});
    std::vector<int> comb;
    for (int i = 0; i < 30; ++i) {
        comb.push_back(2 * i);
        comb.push_back(i % 2 ? 10 : 2);
    }
    comb.push_back(60);
    comb.push_back(-5);
    comb.push_back(0);
    comb.push_back(-5);
    EveryRequestMayFail(1, 0, 50, 6, comb);
}

}  // namespace
