// The enclosing circle: small sets pinned, the plain search (mec_reference.h)
// matched bit for bit on random sets of every shape, and, in the long build
// with CGAL, the exact smallest circle.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "foundation/cpu.h"
#include "geometry/mec_reference.h"
#include "support/test_allocator.h"
#ifdef QEL_MEC_EXACT
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <CGAL/Min_circle_2.h>
#include <CGAL/Min_circle_2_traits_2.h>
#endif

namespace {

using Points = std::vector<double>;
struct Circle { double cx, cy, r; bool operator==(const Circle& o) const { return cx == o.cx && cy == o.cy && r == o.r; } };

template <void (*Search)(double*, int, double*, double*) = MinimumRadiusCircleFromPoints>
Circle fast(Points& pts)
{
    double c[3] = {-7, -7, -7};
    return Search(pts.data(), static_cast<int>(pts.size() / 2), c, c + 2), Circle{c[0], c[1], c[2]};
}

// Both run on copies: outputs and reordered arrays equal to the bit, and the
// same requests made.
inline ::testing::AssertionResult agrees(const Points& pts)
{
    Points a = pts, b = pts;
    const Circle f = (testalloc::reset(), fast(a));
    const auto requests = testalloc::requests();
    const Circle p = (testalloc::reset(), fast<mecref::reference_mec>(b));
    if (!std::memcmp(&f, &p, sizeof f) && !std::memcmp(a.data(), b.data(), 8 * a.size()) && requests == testalloc::requests())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "fast radius " << f.r << ", plain " << p.r << ", n = " << pts.size() / 2;
}

inline Points disc(std::mt19937_64& g, int n, double scale, Points pts = {})
{
    std::uniform_real_distribution<double> u(-1, 1);
    for (double x = u(g), y = u(g); static_cast<int>(pts.size()) < 2 * n; x = u(g), y = u(g))
        if (x * x + y * y <= 1) pts.insert(pts.end(), {x * scale, y * scale});
    return pts;
}

// On a circle around a random centre, at random or evenly spaced angles.
inline Points on_circle(std::mt19937_64& g, int n, double r, bool regular, Points pts = {})
{
    std::uniform_real_distribution<double> u(0, 6.283185307179586), off(-100, 100);
    const double ox = off(g), oy = off(g), phase = u(g);
    for (int i = 0; i < n; ++i) {
        double a = regular ? phase + i * 6.283185307179586 / n : u(g);
        pts.insert(pts.end(), {ox + r * std::cos(a), oy + r * std::sin(a)});
    }
    return pts;
}

// Small integers: many collinear triples and exact duplicates. With
// on_ring, lattice points of x^2 + y^2 = 25 or 65 only.
inline Points grid(std::mt19937_64& g, int n, int side, bool on_ring = false, Points pts = {})
{
    std::uniform_int_distribution<int> u(-side, side);
    const int r2 = g() & 1 ? 65 : 25;
    for (int x = u(g), y = u(g); static_cast<int>(pts.size()) < 2 * n; x = u(g), y = u(g))
        if (!on_ring || x * x + y * y == r2) pts.insert(pts.end(), {double(x), double(y)});
    return pts;
}

// A rectangle turned by a random angle with points inside, or an upright
// outline with points along its sides, in random order.
inline Points rectangle(std::mt19937_64& g, int extra, bool outline, Points pts = {})
{
    std::uniform_real_distribution<double> u(0, 3.141592653589793), side(0.1, 10), in(-0.5, 0.5);
    double a = outline ? 0 : u(g), w = side(g), h = side(g), c = std::cos(a), s = std::sin(a);
    std::vector<std::pair<double, double>> p = {{-w / 2, -h / 2}, {w / 2, -h / 2}, {w / 2, h / 2}, {-w / 2, h / 2}};
    for (double i = 0, t = -0.5; i < extra; ++i, t = i / extra - 0.5)
        if (outline) p.insert(p.end(), {{t * w, -h / 2}, {w / 2, t * h}, {-t * w, h / 2}, {-w / 2, -t * h}});
        else p.push_back({in(g) * w, in(g) * h});
    std::shuffle(p.begin() + (outline ? 0 : 4), p.end(), g);
    for (auto& q : p) pts.insert(pts.end(), {c * q.first - s * q.second, s * q.first + c * q.second});
    return pts;
}

// Small sets with their circle and reordered array pinned, and sets that
// fuzzing or review found; each must also match the plain search.
TEST(EnclosingCircle, PinnedCirclesAndRegressions)
{
    const struct { Points pts; Circle want; Points reordered; } rows[] = {
        {{3, 4}, {3, 4, 0}, {3, 4}}, {{0, 0, 4, 0}, {2, 0, 2}, {0, 0, 4, 0}},
        {{0, 0, 4, 0, 2, 1}, {2, 0, 2}, {2, 1, 0, 0, 4, 0}}, {{0, 0, 4, 0, 2, 3}, {2, 0.8333333333333334, 2.1666666666666665}, {2, 3, 0, 0, 4, 0}},
        {{0, 0, 10, 0, 10, 10, 0, 10, 5, 5}, {5, 5, 7.0710678118654755}, {10, 10, 0, 10, 0, 0, 10, 0, 5, 5}},
        // On x^2 + y^2 = 13, none opposite: without the slack every triple
        // fails by a rounding and the box's circle (sqrt(15.25)) stays.
        {{-3, -2, -3, 2, 2, -3, 2, 3}, {0, 0, 3.6055512754639891}, {}},
        // (10, 5 + 3e-5) is within the tolerance of the vertex (10, 5) but
        // 1.2e-11 outside the circle of the other three: it stays a candidate.
        {{0, 0, 10, 5, 0, 10, 10, 5 + 3e-5, 3, 3}, {3.750000000045, 5.0000000000000009, 6.2500000000269997}, {}},
        {{0, 0, 10, 0, 0, 10, 10, 0, 3, 3}, {5, 5, 7.0710678118654755}, {}},   // a duplicate vertex is set aside
        // The duplicate set aside leaves filter scratch past the candidates:
        // the vector triple loop must stop at the last candidate.
        {{1, 2, -4, 4, 1, 2, -1, 1, -2, -1}, {-1.9285714285714286, 1.9285714285714286, 2.9294423792014115}, {1, 2, -4, 4, -2, -1, -1, 1, 1, 2}},
        // Collinear far beyond the spread across: a point between two others
        // sees them almost straight behind one another.
        {{0, 0x1p76, 0, 30, 0, 0x1p76 - 0x1p23, 218600626, -672783360, 0, 0}, {0, 0x1p75, 0x1p75}, {}},
        {{0, 0x1p55, 0, 0, 5.0000000000000036, 16, 0, 0x1p55 - 4}, {2.5000000000000018, 0x1p54 + 8, 0x1.ffffffffffffcp+53}, {}},
        // The pair circle that would enclose all three rounds to no less
        // than the box's, so it is never taken, and the circle through all
        // three (two of them 1.4e-7 apart, the third 8.7e9 away) rounds to
        // one that leaves the near two out: kept as the search computes it.
        {{0x1.4p-23, 0, 0x1.4p-28, 0, 0x1p31, 8455716864}, {0, 0x1p33, 0x1.007fe00ff607p+31}, {}},
    };
    for (const auto& row : rows) {
        Points p = row.pts;
        const Circle c = fast(p);
        EXPECT_TRUE(agrees(row.pts) && c == row.want && (row.reordered.empty() || p == row.reordered)) << &row - rows;
    }
}

// No point, or a failed k-th request: nothing written, nothing left taken;
// the extreme points are moved to the front before the second request. (The
// sizes requested otherwise are compared with the plain search's.)
TEST(EnclosingCircle, NothingWrittenWithoutPointsOrMemory)
{
    const Points square = {0, 0, 10, 0, 10, 10, 0, 10, 5, 5}, moved = {10, 10, 0, 10, 0, 0, 10, 0, 5, 5};
    for (int k : {-3, 0, 1, 2}) {   // k <= 0: the count given
        Points pts = square;
        testalloc::Scope scope;
        testalloc::fail_at(std::size_t(std::max(k, 0)));
        double centre[2] = {-7, -8}, radius = -9;
        MinimumRadiusCircleFromPoints(pts.data(), k > 0 ? 5 : k, centre, &radius);
        testalloc::fail_at(0);
        EXPECT_TRUE(centre[0] == -7 && centre[1] == -8 && radius == -9 && scope.leaked() == 0) << k;
        EXPECT_TRUE(testalloc::requests().size() == std::size_t(std::max(k, 0)) && testalloc::frees() == std::size_t(std::max(k - 1, 0))) << k;
        EXPECT_EQ(pts, k == 2 ? moved : square) << k;
    }
}

// Random sets of every shape, with the vector unit and without, at extreme
// scales (where the shortcuts' error bounds give up), with NaN and infinity,
// and under other tolerances: fast and plain must agree to the bit.
TEST(EnclosingCircle, MatchesPlainSearch)
{
    std::mt19937_64 g(20261123);
    std::uniform_real_distribution<double> u(0, 1);
    for (int round = 0; round < 120 * QEL_MEC_ROUNDS; ++round) {   // the build sets 1, or 20 when long
        int n = 3 + round / 2 % 32;
        qel::cap_simd_level(round % 2 ? qel::SimdLevel::kBaseline : qel::SimdLevel::kAvx512);
        math_SetDoubleTolerance(round % 5 == 4 ? std::vector<double>{0.0, -1.0, 1e-3, 10.0}[round / 5 % 4] : 1e-9);
        double scale = round % 3 ? 1.0 : std::vector<double>{1e-300, 1e-150, 1e150, 1e300}[round / 3 % 4];
        std::vector<Points> sets = {disc(g, n, scale), disc(g, n, 1e6), grid(g, n, 4), grid(g, n, 1), grid(g, n, 8, true),
                                    on_circle(g, n + 5, scale * 3, false), on_circle(g, n + 5, 1e-3, true), rectangle(g, n % 5, false),
                                    rectangle(g, 1 + n / 4, true), disc(g, 10, 1.0), on_circle(g, 8, 1.0, false), {}};
        // A ring around a disc, a point just inside a vertex and a closed
        // outline, NaN and infinity, collinear runs on a chord, a sliver.
        Points &dent = sets[6], &chord = sets[10];
        sets[1] = on_circle(g, 20, 2.0, false, sets[1]);
        dent.insert(dent.end(), {dent[4] * (1 - 1e-6), dent[5] * (1 - 1e-6), dent[0], dent[1]});
        sets[9][4] = round % 3 ? INFINITY : std::nan(""), sets[9][7] = round % 4 ? sets[9][7] : -INFINITY;
        for (int i = 0; i < n; ++i) {
            chord.insert(chord.end(), {chord[0] + (chord[2] - chord[0]) * i / n, chord[1] + (chord[3] - chord[1]) * i / n});
            double t = u(g);
            sets[11].insert(sets[11].end(), {t, 3 * t + (i % 3 ? 0 : 1e-14 * u(g))});
        }
        for (const Points& s : sets) ASSERT_TRUE(agrees(s)) << "round " << round << " set " << &s - sets.data();
    }
    qel::cap_simd_level(qel::SimdLevel::kAvx512), math_SetDoubleTolerance(1e-9);
}

#ifdef QEL_MEC_EXACT
// The enclosing circle against CGAL's Min_circle_2 on an exact kernel: the
// smallest circle computed without rounding must agree to 1e-9. (Distinct
// points closer than the tolerance would not: none of these sets has any.)
using Kernel = CGAL::Exact_predicates_exact_constructions_kernel;

TEST(EnclosingCircleExact, AgreesWithExactSmallestCircle)
{
    std::mt19937_64 g(5150);
    for (int round = 0; round < 500; ++round) {
        int n = 3 + round % 58;
        for (Points s : {disc(g, n, 1.0), disc(g, n, 1e4), on_circle(g, std::min(n, 40), 2.0, false),
                         on_circle(g, 4 + round % 9, 1.0 + round, true), grid(g, n, 8, true),
                         rectangle(g, n % 7, false), rectangle(g, 0, false), grid(g, n, 20)}) {
            std::vector<Kernel::Point_2> p;
            for (std::size_t i = 0; i < s.size(); i += 2) p.emplace_back(s[i], s[i + 1]);
            const auto e = CGAL::Min_circle_2<CGAL::Min_circle_2_traits_2<Kernel>>(p.begin(), p.end(), true).circle();
            const double r = std::sqrt(CGAL::to_double(e.squared_radius()));
            const Circle c = fast(s);
            ASSERT_TRUE(std::fabs(c.r - r) <= 1e-9 * r) << round << ": " << c.r << " exact " << r;
            ASSERT_TRUE(std::hypot(c.cx - CGAL::to_double(e.center().x()), c.cy - CGAL::to_double(e.center().y())) <= 1e-9 * r) << round;
        }
    }
}
#endif

}  // namespace
