// ClipPolygonWithRect: a table of touching, near-edge, huge-coordinate and
// zero-area cases, the contract's boundaries, memory, and random corpora held
// to the plain procedure's bits, to the exact intersection and, where the
// linear pass takes them, to the graph merge's bits.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

#include "QELMath.h"
#include "clip/clip_common_case.h"
#include "clip/clip_graph_merge.h"
#include "clip/plain_clip.h"
#include "foundation/elementary.h"
#include "support/test_allocator.h"
#ifdef QEL_CLIP_ORACLE
#include "clip/exact_oracle.h"
#endif

namespace {

int Fast(int x1, int y1, int x2, int y2, const int* p, int n, int** o, int** c) { return ClipPolygonWithRect(x1, y1, x2, y2, const_cast<int*>(p), n, o, c); }

// The result as the code, the counts and the points. Nothing is written to
// the outputs unless contours come back, and then only the two arrays
// outlive the call, asked for last: the counts, then the points.
std::vector<int> Clip(const int* r, const std::vector<int>& poly, int (*clip)(int, int, int, int, const int*, int, int**, int**) = Fast)
{
    int *const untouched = reinterpret_cast<int*>(0x10), *pts = untouched, *counts = untouched;
    const std::size_t live = testalloc::live();
    const int k = clip(r[0], r[1], r[2], r[3], poly.data(), static_cast<int>(poly.size() / 2), &pts, &counts);
    EXPECT_EQ(testalloc::live(), live + (k > 0 ? 2 : 0));
    EXPECT_TRUE(k > 0 || (pts == untouched && counts == untouched));
    if (k <= 0) return {k};
    const int m = std::accumulate(counts, counts + k, 0);
    std::vector<int> o = {k};
    o.insert(o.end(), counts, counts + k);
    o.insert(o.end(), pts, pts + 2 * m);
    const std::vector<std::uint32_t> sizes = testalloc::requests();
    EXPECT_TRUE(sizes.size() >= 2 && sizes.end()[-2] == 4u * k && sizes.back() == 8u * m);
    mem_free(pts), mem_free(counts);
    return o;
}

// The callers of the linear pass hand it valid arguments only.
bool Valid(const int* r, const std::vector<int>& poly) { return !poly.empty() && r[0] < r[2] && r[1] < r[3]; }

// The fast clipper's result, held to the plain procedure's bits and, where
// the linear pass takes the case, the pass to the graph merge's bits.
std::vector<int> Judge(const int* r, const std::vector<int>& poly, bool* taken)
{
    testalloc::Scope scope;
    const std::vector<int> o = Clip(r, poly), pass = Valid(r, poly) ? Clip(r, poly, qel::ClipCommonCase) : std::vector<int>{qel::kNotCommonCase};
    EXPECT_EQ(o, Clip(r, poly, plainclip::ClipPolygonWithRect));
    *taken = pass[0] != qel::kNotCommonCase;
    EXPECT_TRUE(!*taken || pass == Clip(r, poly, qel::ClipByGraphMerge));
    EXPECT_EQ(scope.leaked(), 0u);
    return o;
}

enum Pass { kAny, kDeclines, kTakes };

struct Row {
    const char* what;
    int r[4];
    std::vector<int> poly, want;   // want: code, counts, points; none: only the plain procedure's bits are known
    Pass pass = kAny;
};

const std::vector<int> kSquare = {0, 0, 10, 0, 10, 10, 0, 10};

TEST(ClipPolygonWithRect, Cases)
{
    const Row rows[] = {
        {"square over a corner", {5, 5, 15, 15}, kSquare, {1, 4, 10, 10, 5, 10, 5, 5, 10, 5}},
        {"square on the rectangle", {0, 0, 10, 10}, kSquare, {-2}},
        {"square inside", {-5, -5, 20, 20}, kSquare, {-2}},
        {"square sharing a side", {10, 0, 20, 10}, kSquare, {-1}},
        {"apex on a side, no zero-length edge", {0, 0, 10, 10}, {5, 0, 12, 6, -2, 6}, {1, 5, 5, 0, 10, 4, 10, 6, 0, 6, 0, 4}},
        {"edge along a side", {3, -25, 7, -13}, {8, -16, 8, -21, 3, -21, 3, -16, 1, -16, 1, -25, 19, -25, 19, -16}, {1, 4, 3, -25, 7, -25, 7, -21, 3, -21}},
        {"notch across a side", {-5, -5, 35, 10}, {0, 0, 30, 0, 30, 20, 20, 20, 20, 5, 10, 5, 10, 20, 0, 20}, {1, 8, 0, 0, 30, 0, 30, 10, 20, 10, 20, 5, 10, 5, 10, 10, 0, 10}},
        {"rectangle inside a triangle", {-1, -1, 1, 1}, {-100, -100, 100, -100, 0, 100}, {1, 4, -1, -1, 1, -1, 1, 1, -1, 1}},
        {"two triangles touching at a vertex", {0, -20, 20, 20}, {0, 0, 4, 2, -4, 6, 4, -10}, {2, 3, 3, 4, 2, 0, 4, 0, 0, 4, -10, 0, 0, 0, -2}},
        {"corner 5e-5 from an edge, inside", {0, 0, 10, 10}, {0, 0, 200000, -1, -1000, 1000}, {1, 4, 0, 0, 10, 0, 10, 10, 0, 10}},
        {"sliver touching a piece", {0, 0, 10, 10}, {-5, 5, 13317, 0, 0, 5, 5, 15}, {2, 4, 3, 10, 5, 0, 5, 0, 5, 10, 5, 0, 5, 3, 10, 0, 10}},
        {"crossing 2.2e-6 outside at 5e8", {522133279, -16441569, 522133503, 520093976}, {536870911, 522133279, 522133279, 0, 0, 0},
         {1, 4, 522133503, 507800427, 522133279, 507800209, 522133279, 0, 522133503, 7936}},
        {"two points, no area", {0, 0, 10, 10}, {-5, 5, 20, 5}, {-1}},
        {"thin piece rounded onto a repeated vertex", {-5, -5, 35, 18}, {0, 0, 33554462, 33686018, 33686018, 33686018}, {1, 3, 0, 0, 18, 18, 18, 18}},
        {"edge entering 2.8e-4 from a side's end", {7, -8, 11, 3}, {5, 0, -3, -4, 0, -77212, 11, -6, 9, -3}, {1, 5, 9, -3, 7, -1, 7, -8, 11, -8, 11, -6}},
        {"crossing 7.7e-5 before a side's start", {-3, -8, 0, -4}, {4, 6, -3, 11, -11299, -2511, -7, -4, -13055, -26111, -1, -4}, {1, 3, -3, -8, -1, -4, -3, -4}},
        {"chain back at its own point", {8, -7, 10, -4}, {10, 7, 2, 14, -3, -2, -22311, -55779, 0, -2, 11785, -31426, 3, -4, 22394, -13436, 13, -2},
         {1, 4, 8, -7, 10, -7, 10, -4, 8, -4}},
        {"corner inside a vanished sliver", {-3, 7, 5, 9}, {9, 1, 50668, 7238, 6, 2, 0, 6, -1, 2, -12651, 31628, -626, 939, -3, 0, -14, -4, -6, -2, -7, -11}, {-1}},
        {"crossing at x = -2.5 rounds up", {-10, 0, 10, 10}, {-3, -1, 4, -1, 4, 1, -2, 1}, {1, 4, 4, 1, -2, 1, -2, 0, 4, 0}},
        {"outline points on pinched edges", {-1, -2, 1, 2}, {0, 1, 0, -2, -2, -1, 3, 1, -1, -3, -1, 3, 0, 0, -1, 0}, {}},
        {"midpoints along a crossed side", {-1, -1, 2, 2}, {-2, -3, -1, 2, 0, 0, 2, 0, 1, 1, 2, 3, 2, -1, -3, 1}, {}},
        {"no points", {0, 0, 10, 10}, {}, {-1}},
        {"x1 = x2", {5, 0, 5, 10}, kSquare, {-1}},
        {"y1 = y2", {0, 3, 10, 3}, kSquare, {-1}},
        {"three equal points inside", {0, 0, 10, 10}, {5, 5, 5, 5, 5, 5}, {-2}},
        // At the linear pass's bounds: whether it takes the case.
        {"vertex on a side's line", {0, 0, 10, 10}, {-5, 5, 5, 10, 15, 5, 5, -5}, {}, kDeclines},
        {"vertex one off a side's line", {0, 0, 10, 10}, {-5, 5, 5, 9, 16, 5, 6, -5}, {}, kTakes},
        {"corner 2.4e-3 from an edge", {0, 0, 10, 10}, {-301, 302, 299, -300, 200, 201}, {}, kTakes},
        {"corner 1.7e-3 from an edge", {0, 0, 10, 10}, {-421, 422, 419, -420, 200, 201}, {}, kDeclines},
        {"spike crossing a side twice 1.0e-3 apart", {0, 0, 1000, 1000}, {500, 500, 3, -500000, 4, -500000}, {}, kDeclines},
        {"spike crossing a side twice 1.2e-3 apart", {0, 0, 1000, 1000}, {500, 500, 3, -400000, 4, -400000}, {}, kTakes},
        {"coordinates at 2^24", {16777206, 0, 16777215, 10}, {16777200, 5, 16777216, -5, 16777216, 15}, {}, kTakes},
        {"coordinates beyond 2^24", {16777207, 0, 16777216, 10}, {16777201, 5, 16777217, -5, 16777217, 15}, {}, kDeclines},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        bool taken;
        const std::vector<int> o = Judge(row.r, row.poly, &taken);
        EXPECT_TRUE(row.pass == kAny || taken == (row.pass == kTakes));
        EXPECT_TRUE(row.want.empty() || o == row.want) << "code " << o[0];
        testalloc::reset();
        Clip(row.r, row.poly);
        const std::size_t total = testalloc::requests().size();
        EXPECT_TRUE(total == 0 || Valid(row.r, row.poly));   // bad arguments take nothing
        // Every request may fail: -1, the outputs untouched, nothing kept.
        for (std::size_t f = 1; o[0] > 0 && f <= total; ++f) {
            testalloc::reset(), testalloc::fail_at(f);
            EXPECT_EQ(Clip(row.r, row.poly)[0], -1) << "request " << f;
        }
    }
    int* p = nullptr;   // a negative count: -1 at once
    testalloc::reset();
    EXPECT_TRUE(Fast(0, 0, 10, 10, kSquare.data(), -4, &p, &p) == -1 && p == nullptr && testalloc::requests().empty());
    Clip(rows[0].r, kSquare);
    EXPECT_EQ(testalloc::requests(), std::vector<std::uint32_t>({576, 128, 64, 192, 384, 128, 384, 80, 192, 64, 64, 128, 4, 32}));
}

std::mt19937 g;
int Draw(int lo, int hi) { return lo + static_cast<int>(g() % static_cast<unsigned>(hi - lo + 1)); }
double Real(double lo, double hi) { return lo + (hi - lo) * (g() / 4294967296.0); }

// Star-shaped about the origin: a vertex in each of n equal angles, at random radii.
std::vector<int> Star(int n, double rmin, double rmax)
{
    std::vector<int> p;
    for (int i = 0; i < n; ++i) {
        const double t = (i + Real(0, 1)) * 6.283185307179586 / n, r = Real(rmin, rmax);
        p.insert(p.end(), {static_cast<int>(std::lround(r * qel::cos(t))), static_cast<int>(std::lround(r * qel::sin(t)))});
    }
    return p;
}

// Columns of random heights on y = 0, turned by a multiple of 90 degrees:
// edges along the sides, notches across them.
std::vector<int> Orthogonal(int columns)
{
    std::vector<int> p = {0, 0, 0, 0};
    // Each height differs from the last; the last column ends where the bottom edge starts.
    for (int i = 0, x = 0, h = 0; i < columns; ++i) h = (h + Draw(0, 10)) % 12 + 1, p.insert(p.end(), {x, h, p[0] = x += Draw(1, 4), h});
    for (int t = Draw(0, 3); t > 0; --t)
        for (std::size_t i = 0; i < p.size(); i += 2) p[i] = -std::exchange(p[i + 1], p[i]);
    return p;
}

// The kinds of input: 0 touching (vertices on sides and corners), 1 aligned,
// 2 sliver (vertices thrown far out: long thin spikes), 3 pinch (a side
// through a vertex), 4 stars. Half of the aligned ones (which run clockwise)
// and stars get repeated points and now and then a closing point.
Row Make(int kind)
{
    Row c{};
    const int n = 4 + Draw(0, 14), span = std::vector<int>{2, 14, 12, 22, 24}[static_cast<std::size_t>(kind)];
    if (kind == 0) c.poly.resize(2 * static_cast<std::size_t>(Draw(1, 8)));
    for (int& v : c.poly) v = Draw(-3, 3);
    if (kind == 1) c.poly = Orthogonal(Draw(2, 10));
    if (kind >= 2) c.poly = kind == 4 ? Star(Draw(3, 40), Draw(0, 2) ? 4 : 20, 20) : kind == 2 ? Star(n, 2, 15) : Star(n, 3, 20);
    for (std::size_t i = 0; kind == 2 && i < c.poly.size(); i += 2) {
        const double s = g() % 3 ? 1.0 : Real(1e3, 1e5) / std::hypot(c.poly[i], c.poly[i + 1] + 0.5);
        for (std::size_t a = i; a < i + 2; ++a) c.poly[a] = static_cast<int>(std::lround(c.poly[a] * s));
    }
    for (int a = 0; a < 2; ++a) c.r[a] = Draw(-span, span - 1), c.r[a + 2] = Draw(c.r[a] + 1, span);
    const int v = Draw(0, n - 1), side = Draw(0, 3);   // for a pinch: the side through vertex v
    if (kind == 3) c.r[side] = c.poly[2 * static_cast<std::size_t>(v) + side % 2], c.r[(side + 2) % 4] = c.r[side] + (side < 2 ? 1 : -1) * Draw(1, 20);
    if (kind % 3 != 1 || g() % 2) return c;
    std::vector<int> q;
    for (std::size_t i = 0; i < c.poly.size(); i += 2)
        for (int k = g() % 8 ? 1 : 2; k > 0; --k) q.insert(q.end(), {c.poly[i], c.poly[i + 1]});
    if (g() % 8 == 0) q.insert(q.end(), {q[0], q[1]});
    c.poly.swap(q);
    return c;
}

// A star round the origin and a rectangle with nothing for a tolerance to
// decide: distinct vertices off the sides' lines, every vertex and corner at
// least 0.01 from each edge it is not an end of. Integers only, sorted in a
// total order, so that every platform draws the same polygons.
Row KeptApart()
{
    for (;;) {
        Row c{};
        std::vector<std::pair<int, int>> v(static_cast<std::size_t>(Draw(3, 30)));
        for (auto& p : v) do p = {Draw(-60, 60), Draw(-60, 60)}; while (p.first * p.first + p.second * p.second < 25);
        auto lower = [](std::pair<int, int> p) { return p.second < 0 || (p.second == 0 && p.first < 0); };
        std::sort(v.begin(), v.end(), [&](auto a, auto b) {   // by angle, then by point
            const int cross = a.first * b.second - a.second * b.first;
            return lower(a) != lower(b) ? lower(b) : cross != 0 ? cross > 0 : a < b;
        });
        if (g() % 2) std::reverse(v.begin(), v.end());
        for (auto& p : v) c.poly.insert(c.poly.end(), {p.first, p.second});
        for (int a = 0; a < 2; ++a) c.r[a] = Draw(-50, 49), c.r[a + 2] = Draw(c.r[a] + 1, 50);
        const std::size_t n = v.size();
        const int corners[4][2] = {{c.r[0], c.r[1]}, {c.r[2], c.r[1]}, {c.r[2], c.r[3]}, {c.r[0], c.r[3]}};
        bool apart = std::adjacent_find(v.begin(), v.end()) == v.end() && v.front() != v.back();
        for (std::size_t e = 0; e < n && apart; ++e) {
            const auto a = v[e], b = v[(e + 1) % n];
            auto far = [&](int x, int y) {   // at least 0.01 from the edge a-b
                const double dx = b.first - a.first, dy = b.second - a.second;
                const double t = std::clamp(((x - a.first) * dx + (y - a.second) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
                const double ex = a.first + t * dx - x, ey = a.second + t * dy - y;
                return ex * ex + ey * ey >= 1e-4;
            };
            apart = a.first != c.r[0] && a.first != c.r[2] && a.second != c.r[1] && a.second != c.r[3];
            for (std::size_t i = 0; i < n && apart; ++i) apart = i == e || i == (e + 1) % n || far(v[i].first, v[i].second);
            for (int k = 0; k < 4 && apart; ++k) apart = far(corners[k][0], corners[k][1]);
        }
        if (apart) return c;
    }
}

// The rules for touching and near-edge input change nothing away from ties:
// these digests of results were taken before the rules were made.
TEST(ClipPolygonWithRect, ResultsAwayFromTiesAsBeforeTheTieRules)
{
    g.seed(2026);
    std::uint64_t h = 0xcbf29ce484222325ull;
    int clipped = 0;
    for (int i = 0; i < 10 * QEL_CLIP_CASES && !HasFailure(); ++i) {
        const Row c = KeptApart();
        bool taken;
        const std::vector<int> o = Judge(c.r, c.poly, &taken);
        for (int v : o) h = (h ^ static_cast<std::uint32_t>(v)) * 0x100000001b3ull;
        clipped += o[0] > 0;
    }
    EXPECT_EQ(h, QEL_CLIP_CASES == 300 ? 0x840d2fdff81e0de1ull : 0x489360ad11af9ab0ull);
    EXPECT_GE(clipped, 3 * QEL_CLIP_CASES);
}

// The fast clipper gives the plain procedure's bits and keeps nothing; the
// linear pass declines or gives the graph merge's bits; a simple polygon's
// result agrees with the exact intersection.
TEST(ClipPolygonWithRect, RandomCorpora)
{
    for (int kind = 0; kind < 5 && !HasFailure(); ++kind) {
        int clipped = 0, taken = 0;
        for (int i = 0; i < QEL_CLIP_CASES && !HasFailure(); ++i) {
            const Row c = Make(kind);
            SCOPED_TRACE(testing::Message() << "rect " << testing::PrintToString(c.r) << " poly " << testing::PrintToString(c.poly));
            bool took;
            clipped += Judge(c.r, c.poly, &took)[0] > 0, taken += took;
#ifdef QEL_CLIP_ORACLE
            cliporacle::Deviation dev;
            EXPECT_EQ(cliporacle::Check(c.r[0], c.r[1], c.r[2], c.r[3], c.poly, dev), "");
#endif
        }
        EXPECT_TRUE(clipped >= QEL_CLIP_CASES / 5 && (kind < 4 || taken >= QEL_CLIP_CASES / 3)) << kind << ": " << clipped << " clipped, " << taken << " taken";
    }
}

}  // namespace
