// Vectors written in place, the angle normalisation against its defining
// procedure, and the tolerance setters and comparisons at their boundaries.
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

constexpr double kTwoPi = 6.283185307179586, kInf = HUGE_VAL;

std::uint64_t bits(double x) { std::uint64_t u; std::memcpy(&u, &x, 8); return u; }

// Outputs may be their inputs.
TEST(Vectors, WrittenInPlace)
{
    double a[3] = {1, 2, 3}, b[3] = {4, 5, 6}, p[3] = {1, 2, 3};
    VectorCrossProduct(a, b, b);
    VectorCrossProduct(a, b, a);  // (1, 2, 3) x (-3, 6, -3)
    math_Polar(p, 0.0, 2.0, p);
    const double want[3][3] = {{-3, 6, -3}, {-24, -6, 12}, {3, 2, 3}}, *got[3] = {b, a, p};
    for (int v = 0; v < 9; ++v) EXPECT_EQ(got[v / 3][v % 3], want[v / 3][v % 3]) << v;
}

// The defining procedure: one turn per step.
double stepped(double a)
{
    while (a < 0) a = a + kTwoPi;
    while (a >= kTwoPi) a = a - kTwoPi;
    return a;
}
double normalized(double a) { return math_NormalizeAngle(&a), a; }

// Runs of steps are taken at once: every binade up to 2pi * 2^24 turns, its
// edges, and [64, 128), where 2pi modulo the ulp is half an ulp and every
// step a tie, must give the bits of the literal stepping. Where a step
// rounds back to the angle itself, the angle is first reduced exactly.
TEST(NormalizeAngle, MatchesLiteralStepping)
{
    std::mt19937_64 rng(20261123);
    std::vector<double> as = {0.0, -0.0, 1e-310, kTwoPi, -kTwoPi, std::nextafter(kTwoPi, 0.0), -1e-300};
    for (int e = -3; e <= 26; ++e) {
        double p = std::ldexp(1.0, e);
        for (double a : {p, std::nextafter(p, 0.0), std::nextafter(p, 1e300), p * (1 + (rng() >> 11) * 0x1p-53)})
            as.push_back(std::min(a, kTwoPi * 16777216.0));
    }
    for (int i = 0; i < 4000; ++i) as.push_back(64.0 + static_cast<double>(rng() >> 11) * 0x1p-47);
    for (double a : as)
        for (double s : {a, -a}) EXPECT_EQ(bits(normalized(s)), bits(stepped(s))) << s;
    for (double a : {1e17, -1e17, 1e300, -1e300, DBL_MAX})
        EXPECT_EQ(bits(normalized(a)), bits(stepped(std::fmod(a, kTwoPi)))) << a;
    double big = std::ldexp(1.0, 56);  // stepping progresses here: no reduction
    EXPECT_NE(bits(normalized(big)), bits(stepped(std::fmod(big, kTwoPi))));
    for (double a : {kInf, -kInf, std::nan("")}) EXPECT_EQ(bits(normalized(a)), bits(a));
    double a = 3 * kTwoPi / 4, b = kTwoPi / 4, c = -kTwoPi / 4;  // the pair form orders the arc
    math_NormalizeAngle(&a, &b);
    math_NormalizeAngle(&c, &a);  // equal angles: zero sweep, no turn added
    math_NormalizeAngle(&a, nullptr);
    EXPECT_TRUE(b == kTwoPi / 4 + kTwoPi && a == c);
}

// Comparisons exactly at the tolerance and just beyond, with both the real
// and the point tolerance set to tol. f: z IsRealZero(p), r IsRealEqual(p, q),
// g IsAngleEqual, p IsPoint2dEqual, P IsPointEqual, d/D IsDirection(2d)Equal
// of the directions from the origin to p and to q, n NormalizeVector(p),
// which leaves vectors of squared length within the real tolerance alone.
struct Row { char f; double tol, p[3], q[3]; int want; };

const double kNext = std::nextafter(1e-9, 1.0);
const Row kRows[] = {
    {'z', 1e-9, {1e-9}, {}, 1}, {'z', 1e-9, {-1e-9}, {}, 1}, {'z', 1e-9, {kNext}, {}, 0}, {'z', 1e-9, {-kNext}, {}, 0},
    {'z', -1, {0}, {}, 0}, {'z', NAN, {5}, {}, 1},  // stored unchecked: both comparisons with NaN fail
    {'n', 1e-9, {0, 0, 3e-5}, {0, 0, 3e-5}, 0}, {'n', 1e-9, {0, 0, 3.2e-5}, {0, 0, 1}, 1},  // 9e-10, 1.024e-9
    {'r', 1e-9, {5e-10}, {0}, 1}, {'r', 1e-9, {0}, {5e-9}, 0}, {'r', 1e-9, {1e-9}, {1e-9}, 1}, {'r', 1e-9, {NAN}, {1}, 0},
    {'r', 1e-9, {1e-9}, {2e-9}, 0}, {'r', 1e-9, {2e-9}, {1e-9}, 0},  // relative to the second argument
    {'r', 0.25, {1.25}, {1}, 1}, {'r', 0.25, {1.25 + 0x1p-52}, {1}, 0}, {'r', 1e-9, {1e-6}, {1.01e-6}, 0}, {'g', 1e-9, {kTwoPi}, {0}, 1},
    {'g', 1e-9, {0}, {-kTwoPi}, 0}, {'g', 1e-9, {-1.5}, {kTwoPi - 1.5}, 1}, {'g', 1e-9, {1e-12}, {kTwoPi - 1e-12}, 0},
    {'g', 1e-9, {5 * kTwoPi + 1}, {1}, 1}, {'g', 1e-9, {kInf}, {0}, 0},
    {'g', 1e-9, {kTwoPi * 4294967296.0}, {0}, 1},  // beyond 2^31 turns: no int wrap
    {'P', 1e-9, {1000}, {1000 + 1e-7}, 0}, {'p', 1e-9, {1e-6}, {1.0001e-6}, 0}, {'p', 1e-9, {1, 2, 3}, {1, 2, 4}, 1},
    {'P', 1e-9, {1, 2, 3}, {1, 2, 3.001}, 0}, {'P', 0, {1}, {1}, 0}, {'P', 0, {0}, {0}, 1}, {'p', 0.5, {1.5}, {1}, 0},
    {'p', 0.5, {1.5 - 0x1p-52}, {1}, 1}, {'p', 0.5, {2.5}, {2}, 1}, {'p', 0.5, {2.5 + 0x1p-51}, {2}, 0}, {'d', 0, {1, 1}, {2, 3}, 1},
    {'d', 0, {1, 1}, {-1, -1}, 0}, {'d', 0, {}, {2, 3}, 0}, {'d', 0, {1, 1}, {}, 0},
    {'d', 0, {1, 1}, {5, 0}, 0}, {'D', 0, {1, 0, 1}, {1, 0, -1}, 1}, {'D', 0, {1, 0, 2}, {1, 0, -1}, 0},  // ties: y, x
};

TEST(Tolerances, ComparisonsAtTheirBoundaries)
{
    for (const Row& r : kRows) {
        math_SetDoubleTolerance(r.tol), math_SetPointTolerance(r.tol), math_SetVectorTolerance(1.0);  // the last read by no operation
        double p[3] = {r.p[0], r.p[1], r.p[2]}, q[3] = {r.q[0], r.q[1], r.q[2]}, o[3] = {0, 0, 0};
        int got = r.f == 'z' ? math_IsRealZero(p[0]) : r.f == 'r' ? math_IsRealEqual(p[0], q[0]) : r.f == 'g' ? math_IsAngleEqual(p[0], q[0])
                : r.f == 'p' ? math_IsPoint2dEqual(p, q) : r.f == 'P' ? math_IsPointEqual(p, q) : r.f == 'd' ? math_IsDirection2dEqual(o, p, o, q)
                : r.f == 'D' ? math_IsDirectionEqual(o, p, o, q) : NormalizeVector(p);
        EXPECT_EQ(got, r.want) << "row " << &r - kRows;
        EXPECT_TRUE(r.f != 'n' || (p[0] == q[0] && p[1] == q[1] && p[2] == q[2])) << "row " << &r - kRows;
    }
    math_SetDoubleTolerance(1e-9), math_SetPointTolerance(1e-9), math_SetVectorTolerance(1e-9);
}

}  // namespace
