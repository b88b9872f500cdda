#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;

std::uint64_t bits(double x)
{
    std::uint64_t u;
    std::memcpy(&u, &x, sizeof u);
    return u;
}

// The defining procedure, one turn per step.
double stepped(double a)
{
    if (a < 0)
        while (a < 0) a = a + kTwoPi;
    while (a >= kTwoPi) a = a - kTwoPi;
    return a;
}

double normalized(double a)
{
    math_NormalizeAngle(&a);
    return a;
}

TEST(NormalizeAngle, NamedCases)
{
    EXPECT_EQ(normalized(-kPi / 2), 3 * kPi / 2);
    EXPECT_EQ(normalized(kTwoPi), 0.0);
    EXPECT_EQ(bits(normalized(7 * kPi)), bits(stepped(7 * kPi)));
    EXPECT_NEAR(normalized(7 * kPi), kPi, 1e-15);
    EXPECT_EQ(normalized(-kTwoPi), 0.0);
    // A value that one step rounds up to exactly 2pi still ends in [0, 2pi).
    EXPECT_EQ(normalized(-1e-300), 0.0);
}

TEST(NormalizeAngle, ValuesInRangeKeepTheirBits)
{
    for (double a : {0.0, -0.0, 1e-310, 1.0, kPi, std::nextafter(kTwoPi, 0.0)})
        EXPECT_EQ(bits(normalized(a)), bits(a)) << a;
}

TEST(NormalizeAngle, NonFiniteAnglesAreLeftUnchanged)
{
    double inf = std::numeric_limits<double>::infinity();
    EXPECT_EQ(normalized(inf), inf);
    EXPECT_EQ(normalized(-inf), -inf);
    EXPECT_TRUE(std::isnan(normalized(std::nan(""))));
}

// Whole runs of steps are taken at once; every binade up to 2pi * 2^24 turns
// must still give the bits of the literal stepping.
TEST(NormalizeAngle, MatchesLiteralSteppingInEveryBinade)
{
    std::mt19937_64 rng(20261123);
    std::uniform_real_distribution<double> frac(0.0, 1.0);
    for (int e = -3; e <= 26; ++e) {
        for (int i = 0; i < 3; ++i) {
            double a = std::ldexp(1.0 + frac(rng), e);
            if (a > kTwoPi * 16777216.0) a = kTwoPi * 16777216.0;
            EXPECT_EQ(bits(normalized(a)), bits(stepped(a))) << a;
            EXPECT_EQ(bits(normalized(-a)), bits(stepped(-a))) << -a;
        }
        // Binade edges: the powers of two themselves and their neighbours.
        double p = std::ldexp(1.0, e);
        for (double a : {p, std::nextafter(p, 0.0), std::nextafter(p, 1e300)}) {
            EXPECT_EQ(bits(normalized(a)), bits(stepped(a))) << a;
            EXPECT_EQ(bits(normalized(-a)), bits(stepped(-a))) << -a;
        }
    }
}

// In [64, 128) the remainder of 2pi modulo the ulp is exactly half an ulp,
// so every step is a round-half-even tie that alternates with the parity.
TEST(NormalizeAngle, MatchesLiteralSteppingAtTheTieScale)
{
    std::mt19937_64 rng(7);
    for (int i = 0; i < 20000; ++i) {
        double a = 64.0 + static_cast<double>(rng() >> 11) * std::ldexp(1.0, -47);
        EXPECT_EQ(bits(normalized(a)), bits(stepped(a))) << a;
        EXPECT_EQ(bits(normalized(-a)), bits(stepped(-a))) << -a;
    }
    // Consecutive doubles at the bottom and top of the binade.
    double a = 64.0, b = 128.0;
    for (int i = 0; i < 2000; ++i) {
        EXPECT_EQ(bits(normalized(a)), bits(stepped(a)));
        EXPECT_EQ(bits(normalized(-b)), bits(stepped(-b)));
        a = std::nextafter(a, 1e9);
        b = std::nextafter(b, 0.0);
    }
}

// Where a step rounds back to the angle itself, the angle is reduced exactly
// first; the result is that of stepping from the exact remainder.
TEST(NormalizeAngle, StagnatingAnglesAreReducedExactly)
{
    for (double a : {1e17, -1e17, 1e300, -1e300, std::numeric_limits<double>::max()}) {
        double r = normalized(a);
        EXPECT_GE(r, 0.0) << a;
        EXPECT_LT(r, kTwoPi) << a;
        EXPECT_EQ(bits(r), bits(stepped(std::fmod(a, kTwoPi)))) << a;
    }
}

TEST(NormalizeAngle, LargeAnglesThatStillProgressAreStepped)
{
    // 1e15 is ~1.6e14 turns: far too many to step literally, but the result
    // must be an exact multiple of the binade's ulp away from the input and
    // inside one turn.
    double r = normalized(1e15);
    EXPECT_GE(r, 0.0);
    EXPECT_LT(r, kTwoPi);
    // Stepping from 2^56 progresses (the step towards zero lands in a finer
    // binade), so no reduction by fmod is allowed there.
    double big = std::ldexp(1.0, 56);
    EXPECT_NE(bits(normalized(big)), bits(stepped(std::fmod(big, kTwoPi))));
}

TEST(NormalizeAnglePair, OrdersTheArc)
{
    double a = 3 * kPi / 2, b = kPi / 2;
    math_NormalizeAngle(&a, &b);
    EXPECT_EQ(a, 3 * kPi / 2);
    EXPECT_EQ(b, kPi / 2 + kTwoPi);

    a = 3 * kPi / 2;
    b = -kPi / 2;
    math_NormalizeAngle(&a, &b);
    EXPECT_EQ(b, a);   // equal angles: zero sweep, no turn added

    a = -kPi / 2;
    math_NormalizeAngle(&a, nullptr);
    EXPECT_EQ(a, 3 * kPi / 2);
}

}  // namespace
