// The fast clipper against the plain transcription on random polygons, and
// against exact intersection areas for orthogonal ones.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "QELMath.h"
#include "clip/clip_common_case.h"
#include "clip/clip_graph_merge.h"
#include "clip/plain_clip.h"
#include "clip/random_polygons.h"
#include "support/test_allocator.h"

namespace {

struct Result {
    int code = 0;
    std::vector<int> counts, pts;
    bool operator==(const Result& o) const { return code == o.code && counts == o.counts && pts == o.pts; }
};

template <class F>
Result Run(F clip, const clipcases::Case& c)
{
    int* pts = nullptr;
    int* counts = nullptr;
    Result r;
    r.code = clip(c.x1, c.y1, c.x2, c.y2, const_cast<int*>(c.pts.data()), static_cast<int>(c.pts.size() / 2),
                  &pts, &counts);
    if (r.code > 0) {
        r.counts.assign(counts, counts + r.code);
        int m = 0;
        for (int v : r.counts) m += v;
        r.pts.assign(pts, pts + 2 * m);
        mem_free(pts);
        mem_free(counts);
    }
    return r;
}

Result Fast(const clipcases::Case& c) { return Run(ClipPolygonWithRect, c); }
Result Plain(const clipcases::Case& c) { return Run(plainclip::ClipPolygonWithRect, c); }
Result CommonCase(const clipcases::Case& c) { return Run(qel::ClipCommonCase, c); }
Result Merge(const clipcases::Case& c) { return Run(qel::ClipByGraphMerge, c); }

std::string Describe(const clipcases::Case& c)
{
    std::string s = "rect " + std::to_string(c.x1) + " " + std::to_string(c.y1) + " " + std::to_string(c.x2) +
                    " " + std::to_string(c.y2) + " poly";
    for (int v : c.pts) s += " " + std::to_string(v);
    return s;
}

int g_clipped = 0;   // cases with contours, so that no suite is vacuous

void ExpectSame(const clipcases::Case& c)
{
    testalloc::Scope scope;
    const Result f = Fast(c);
    const Result p = Plain(c);
    ASSERT_TRUE(f == p) << Describe(c) << "\nfast code " << f.code << " plain code " << p.code;
    EXPECT_EQ(scope.leaked(), 0u);
    g_clipped += f.code > 0 ? 1 : 0;
}

TEST(ClipEquivalence, StarShapedAndConvex)
{
    g_clipped = 0;
    std::mt19937 rng(20261123);
    for (int i = 0; i < 1500; ++i) {
        clipcases::Case c;
        const int n = 3 + static_cast<int>(rng() % 40);
        const bool convex = (i % 3) == 0;
        c.pts = clipcases::Star(rng, n, convex ? 20.0 : 4.0, 20.0, 0.0, 0.0);
        clipcases::Disturb(rng, c.pts);
        clipcases::Rectangle(rng, -24, 24, c);
        ExpectSame(c);
        if (HasFatalFailure()) return;
    }
    EXPECT_GE(g_clipped, 500);
}

TEST(ClipEquivalence, OrthogonalWithNotchesAcrossTheSides)
{
    g_clipped = 0;
    std::mt19937 rng(7);
    for (int i = 0; i < 2000; ++i) {
        clipcases::Case c;
        c.pts = clipcases::Orthogonal(rng, 2 + static_cast<int>(rng() % 10), 12);
        clipcases::Disturb(rng, c.pts);
        clipcases::Rectangle(rng, -16, 16, c);
        ExpectSame(c);
        if (HasFatalFailure()) return;
    }
    EXPECT_GE(g_clipped, 500);
}

TEST(ClipEquivalence, TinyPolygonsOnTheRectangle)
{
    g_clipped = 0;
    // Few vertices in a small range: vertices on sides and corners, edges
    // along the sides, degenerate and self-touching polygons.
    std::mt19937 rng(99);
    std::uniform_int_distribution<int> v(-3, 3);
    for (int i = 0; i < 3000; ++i) {
        clipcases::Case c;
        const int n = 1 + static_cast<int>(rng() % 7);
        for (int k = 0; k < 2 * n; ++k) c.pts.push_back(v(rng));
        clipcases::Rectangle(rng, -2, 2, c);
        ExpectSame(c);
        if (HasFatalFailure()) return;
    }
    EXPECT_GE(g_clipped, 300);
}

TEST(ClipEquivalence, SpikyStarsAcrossAllSides)
{
    g_clipped = 0;
    // Many crossings per side: the outline is long and its points are
    // located one after the other along the sides.
    std::mt19937 rng(4242);
    for (int i = 0; i < 40; ++i) {
        clipcases::Case c;
        const int n = 100 + static_cast<int>(rng() % 300);
        c.pts = clipcases::Star(rng, n, 300.0, 1000.0, 0.0, 0.0);
        const int h = 450 + static_cast<int>(rng() % 300);
        c.x1 = -h + static_cast<int>(rng() % 50);
        c.y1 = -h;
        c.x2 = h;
        c.y2 = h - static_cast<int>(rng() % 50);
        ExpectSame(c);
        if (HasFatalFailure()) return;
    }
    EXPECT_GE(g_clipped, 40);
}

TEST(ClipEquivalence, LargeCoordinates)
{
    g_clipped = 0;
    // Far from the origin and spread wide: the skipping margins grow and
    // must still never skip a test that could succeed.
    std::mt19937 rng(555);
    for (int i = 0; i < 300; ++i) {
        clipcases::Case c;
        const double scale = (i % 2) ? 1.0e5 : 3.0e3;
        const double cx = (i % 3 == 0) ? 2.0e9 : -1.5e9;
        c.pts = clipcases::Star(rng, 3 + static_cast<int>(rng() % 30), 0.2 * scale, scale, cx, 1.0e9);
        clipcases::Disturb(rng, c.pts);
        const int h = static_cast<int>(0.6 * scale);
        c.x1 = static_cast<int>(cx) - h + static_cast<int>(rng() % 7);
        c.x2 = static_cast<int>(cx) + h;
        c.y1 = 1000000000 - h;
        c.y2 = 1000000000 + h - static_cast<int>(rng() % 7);
        ExpectSame(c);
        if (HasFatalFailure()) return;
    }
    EXPECT_GE(g_clipped, 100);
}

// The linear pass either declines or gives the graph merge's bits: true when
// it took the case.
bool PassAgrees(const clipcases::Case& c)
{
    testalloc::Scope scope;
    const Result f = CommonCase(c);
    EXPECT_EQ(scope.leaked(), 0u);
    if (f.code == qel::kNotCommonCase) return false;
    EXPECT_TRUE(f == Merge(c)) << Describe(c) << "\npass code " << f.code;
    return true;
}

TEST(ClipCommonCase, TakesCleanInputWithTheMergesBits)
{
    // Stars and orthogonal polygons of moderate size, in and around the
    // rectangle, some far from the origin: mostly the common case.
    std::mt19937 rng(2026);
    int taken = 0;
    for (int i = 0; i < 600; ++i) {
        clipcases::Case c;
        const double far = (i % 3 == 0) ? 3.0e6 : 0.0, scale = (i % 2) ? 1.0e4 : 300.0;
        c.pts = (i % 5 == 4) ? clipcases::Orthogonal(rng, 2 + static_cast<int>(rng() % 10), 40)
                             : clipcases::Star(rng, 3 + static_cast<int>(rng() % 60), 0.3 * scale, scale, far, -far);
        clipcases::Disturb(rng, c.pts);
        const int lo = (i % 5 == 4) ? -20 : static_cast<int>(-0.8 * scale), hi = -lo;
        clipcases::Rectangle(rng, lo, hi, c);
        if (i % 5 != 4) {
            c.x1 += static_cast<int>(far);
            c.x2 += static_cast<int>(far);
            c.y1 -= static_cast<int>(far);
            c.y2 -= static_cast<int>(far);
        }
        taken += PassAgrees(c) ? 1 : 0;
        if (HasFailure()) return;
    }
    EXPECT_GE(taken, 400);
}

TEST(ClipCommonCase, DeclinesAtItsBoundsAndAgreesJustInside)
{
    // Each row is a case at one of the pass's bounds and whether the pass
    // takes it; the taken ones must give the merge's bits.
    struct Row {
        const char* what;
        clipcases::Case c;
        bool taken;
    };
    const std::vector<Row> rows = {
        {"vertex on a side's line", {0, 0, 10, 10, {-5, 5, 5, 10, 15, 5, 5, -5}}, false},
        {"vertex one off a side's line", {0, 0, 10, 10, {-5, 5, 5, 9, 16, 5, 6, -5}}, true},
        {"vertices on sides' lines far beyond their ends", {0, 0, 10, 10, {-5, 5, 4, 15, 30, 20, 40, 10, 30, 0, 6, -5}}, true},
        {"vertex on a side's line, an edge from it tried on the side", {0, 0, 10, 10, {-5, 5, 20, 10, 16, 5, 6, -5}}, false},
        {"vertex on a corner", {0, 0, 10, 10, {-5, 5, 10, 10, 16, 5, 6, -5}}, false},
        {"edge through a corner", {0, 0, 10, 10, {-5, -5, 5, 5, 15, -5}}, false},
        {"corner 2.4e-3 from an edge", {0, 0, 10, 10, {-301, 302, 299, -300, 200, 201}}, true},
        {"corner 2.4e-3 from an edge that cuts it off", {0, 0, 10, 10, {-299, -300, 301, 302, 200, -300}}, true},
        {"corner 1.7e-3 from an edge", {0, 0, 10, 10, {-421, 422, 419, -420, 200, 201}}, false},
        {"spike crossing a side twice 1.0e-3 apart", {0, 0, 1000, 1000, {500, 500, 3, -500000, 4, -500000}}, false},
        {"spike crossing a side twice 1.2e-3 apart", {0, 0, 1000, 1000, {500, 500, 3, -400000, 4, -400000}}, true},
        {"polygon touching itself inside", {0, 0, 10, 10, {-5, 2, 5, 5, -5, 8, 15, 8, 5, 5, 15, 2}}, false},
        {"polygon touching itself outside", {0, 0, 10, 10, {-5, 2, 20, 5, -5, 8, 15, 8, 20, 5, 15, 2}}, true},
        {"coordinates at 2^24", {16777206, 0, 16777215, 10, {16777200, 5, 16777216, -5, 16777216, 15}}, true},
        {"coordinates beyond 2^24", {16777207, 0, 16777216, 10, {16777201, 5, 16777217, -5, 16777217, 15}}, false},
        {"rectangle inside, no crossing", {0, 0, 10, 10, {-50, -50, 50, -50, 3, 50}}, true},
        {"repeated and closing points", {0, 0, 10, 10, {-5, 5, -5, 5, 5, 16, 15, 5, 6, -5, -5, 5}}, true},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(PassAgrees(row.c), row.taken) << row.what;
        ExpectSame(row.c);
    }
}

// The results of a corpus kept apart from every tie, digested: a change of
// the tie rules must leave them alone.
std::uint64_t CorpusDigest(int cases, unsigned seed)
{
    std::mt19937 rng(seed);
    clipcases::Fnv h;
    g_clipped = 0;
    for (int i = 0; i < cases; ++i) {
        const clipcases::Case c = clipcases::KeptApart(rng);
        const Result f = Fast(c);
        h.mix(f.code);
        for (int v : f.counts) h.mix(v);
        for (int v : f.pts) h.mix(v);
        g_clipped += f.code > 0 ? 1 : 0;
        EXPECT_TRUE(f == Plain(c)) << Describe(c);
    }
    return h.h;
}

TEST(ClipCorpus, ResultsAwayFromTiesDoNotMove)
{
    EXPECT_EQ(CorpusDigest(3000, 2026), 0x0bf49e2852c5134aull);
    EXPECT_GE(g_clipped, 1000);
}

// Area of the orthogonal polygon p inside the rectangle, by unit cells.
long ExactArea(const clipcases::Case& c)
{
    const int n = static_cast<int>(c.pts.size() / 2);
    long area = 0;
    for (int x = c.x1; x < c.x2; ++x)
        for (int y = c.y1; y < c.y2; ++y) {
            const double px = x + 0.5, py = y + 0.5;
            bool in = false;
            for (int i = 0, j = n - 1; i < n; j = i++) {
                const double xi = c.pts[2 * i], yi = c.pts[2 * i + 1];
                const double xj = c.pts[2 * j], yj = c.pts[2 * j + 1];
                if ((yi > py) != (yj > py) && px < (xj - xi) * (py - yi) / (yj - yi) + xi) in = !in;
            }
            area += in ? 1 : 0;
        }
    return area;
}

TEST(ClipArea, OrthogonalPolygonsGiveTheExactAreaCounterClockwise)
{
    std::mt19937 rng(31337);
    int clipped = 0;
    for (int i = 0; i < 3000; ++i) {
        clipcases::Case c;
        c.pts = clipcases::Orthogonal(rng, 2 + static_cast<int>(rng() % 8), 10);
        clipcases::Disturb(rng, c.pts);
        clipcases::Rectangle(rng, -14, 14, c);
        const long exact = ExactArea(c);
        const Result r = Fast(c);
        long twice = 0;
        if (r.code > 0) {
            ++clipped;
            std::size_t at = 0;
            for (int m : r.counts) {
                long s = 0;
                for (int j = 0; j < m; ++j) {
                    const int k = (j + 1) % m;
                    s += static_cast<long>(r.pts[2 * (at + j)] - r.pts[2 * (at + k)]) *
                         (r.pts[2 * (at + j) + 1] + r.pts[2 * (at + k) + 1]);
                }
                ASSERT_GT(s, 0) << "clockwise contour: " << Describe(c);
                twice += s;
                at += static_cast<std::size_t>(m);
            }
        } else if (r.code == -2) {
            twice = 2 * exact;   // whole polygon inside: nothing to compare
        } else if (r.code == -3) {
            twice = 2L * (c.x2 - c.x1) * (c.y2 - c.y1);
        }
        ASSERT_EQ(twice, 2 * exact) << "code " << r.code << ": " << Describe(c);
    }
    EXPECT_GT(clipped, 1000);
}

}  // namespace
