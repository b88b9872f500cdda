#include <cmath>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

const double kEps = 2.220446049250313e-16;
const double kSentinel = -12345.678;

int g_calls = 0;
double g_last = 0.0;

double two_less_square(double x)
{
    ++g_calls;
    g_last = x;
    return x * x - 2.0;
}

double linear_root_at_zero(double x)
{
    ++g_calls;
    g_last = x;
    return x;
}

double tiny_at_one(double x)
{
    ++g_calls;
    g_last = x;
    return x == 1.0 ? kEps : -1.0;
}

TEST(Chord, FindsSquareRootOfTwo)
{
    g_calls = 0;
    double x = kSentinel;
    EXPECT_EQ(solve_Chord(two_less_square, 0.0, 2.0, 1e-12, &x, 100), 1);
    EXPECT_NEAR(x, std::sqrt(2.0), 1e-12);
    EXPECT_LE(g_calls, 102);
}

TEST(Chord, NoSignChangeLeavesXUntouched)
{
    g_calls = 0;
    double x = kSentinel;
    EXPECT_EQ(solve_Chord(two_less_square, 2.0, 3.0, 1e-12, &x, 100), 0);
    EXPECT_EQ(x, kSentinel);
    EXPECT_EQ(g_calls, 2);
}

TEST(Chord, RootAtAnEnd)
{
    g_calls = 0;
    double x = kSentinel;
    EXPECT_EQ(solve_Chord(linear_root_at_zero, 0.0, 5.0, 1e-12, &x, 100), 1);
    EXPECT_EQ(x, 0.0);
    EXPECT_EQ(g_calls, 1);   // b is never evaluated
    g_calls = 0;
    EXPECT_EQ(solve_Chord(linear_root_at_zero, -5.0, 0.0, 1e-12, &x, 100), 1);
    EXPECT_EQ(x, 0.0);
    EXPECT_EQ(g_calls, 2);
    // The value test is inclusive: |f| = 2^-52 counts as a root.
    g_calls = 0;
    EXPECT_EQ(solve_Chord(tiny_at_one, 1.0, 3.0, 1e-12, &x, 100), 1);
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(g_calls, 1);
}

TEST(Chord, IterationLimit)
{
    // maxIter = 0: the first chord point, 0 - (-2)(2 - 0) / (2 - (-2)) = 1.
    for (int limit : {0, -3}) {
        g_calls = 0;
        double x = kSentinel;
        EXPECT_EQ(solve_Chord(two_less_square, 0.0, 2.0, 1e-12, &x, limit), 0);
        EXPECT_EQ(x, 1.0);
        EXPECT_EQ(g_calls, 2);
    }
    // Three steps from there: the chord points 4/3, 7/5 and 24/17, each
    // replacing the lower end; *x holds the last one.
    g_calls = 0;
    double x = kSentinel;
    EXPECT_EQ(solve_Chord(two_less_square, 0.0, 2.0, 1e-12, &x, 3), 0);
    EXPECT_EQ(g_calls, 5);
    EXPECT_EQ(g_last, 7.0 / 5.0);
    EXPECT_NEAR(x, 24.0 / 17.0, 1e-15);
}

TEST(Chord, StepTestIsInclusive)
{
    // With eps = 0 only a step of exactly 0 ends the search: x^2 - 2 never
    // comes within 2^-52 of zero, and on the 23rd step the chord point
    // repeats.
    g_calls = 0;
    double x = kSentinel;
    EXPECT_EQ(solve_Chord(two_less_square, 0.0, 2.0, 0.0, &x, 100), 1);
    EXPECT_EQ(g_calls, 25);
    EXPECT_EQ(x, 1.4142135623730949);
    g_calls = 0;
    EXPECT_EQ(solve_Chord(two_less_square, 0.0, 2.0, 0.0, &x, 22), 0);
    EXPECT_EQ(g_calls, 24);
}

TEST(Equation, NamedCases)
{
    double r[2] = {kSentinel, kSentinel};
    EXPECT_EQ(solve_Equation(1, -3, 2, r), 2);
    EXPECT_EQ(r[0], 2.0);
    EXPECT_EQ(r[1], 1.0);
    EXPECT_EQ(solve_Equation(1, 0, -4, r), 2);   // b = 0 takes sqrt(D) - b
    EXPECT_EQ(r[0], 2.0);
    EXPECT_EQ(r[1], -2.0);

    r[0] = r[1] = kSentinel;
    EXPECT_EQ(solve_Equation(1, 2, 1, r), 1);
    EXPECT_EQ(r[0], -1.0);
    EXPECT_EQ(r[1], kSentinel);
    EXPECT_EQ(solve_Equation(0, 2, -4, r), 1);
    EXPECT_EQ(r[0], 2.0);
    EXPECT_EQ(r[1], kSentinel);

    r[0] = kSentinel;
    EXPECT_EQ(solve_Equation(1, 0, 1, r), 0);
    EXPECT_EQ(solve_Equation(0, 0, 5, r), 0);
    EXPECT_EQ(solve_Equation(kEps, kEps, 5, r), 0);
    EXPECT_EQ(r[0], kSentinel);
    EXPECT_EQ(r[1], kSentinel);
}

TEST(Equation, ThresholdsAreAbsoluteAndInclusive)
{
    double r[2] = {kSentinel, kSentinel};
    // D = 0 - (1 * c) * 4 for a = 1, b = 0.
    EXPECT_EQ(solve_Equation(1, 0, 2.5e-18, r), 0);    // D = -1e-17
    EXPECT_EQ(r[0], kSentinel);
    EXPECT_EQ(solve_Equation(1, 0, -2.5e-18, r), 1);   // D = 1e-17
    EXPECT_EQ(r[0], 0.0);
    EXPECT_EQ(r[1], kSentinel);
    EXPECT_EQ(solve_Equation(1, 0, -kEps / 4, r), 1);   // D = 2^-52 exactly
    EXPECT_EQ(solve_Equation(1, 0, -std::nextafter(kEps, 1.0) / 4, r), 2);
    EXPECT_DOUBLE_EQ(r[0], -r[1]);
    // |a| = 2^-52 is linear, the next double up is a quadratic.
    EXPECT_EQ(solve_Equation(kEps, 2, -4, r), 1);
    EXPECT_EQ(r[0], 2.0);
    EXPECT_EQ(solve_Equation(-kEps, 2, -4, r), 1);
    EXPECT_EQ(solve_Equation(std::nextafter(kEps, 1.0), 2, -4, r), 2);
}

TEST(Equation, SmallRootThroughTheProductOfRoots)
{
    // x^2 - 1e8 x + 1 = 0: roots near 1e8 and 1e-8. The cancelling form
    // (-b - sqrt(D)) / 2a would lose the small root's digits.
    double r[2];
    ASSERT_EQ(solve_Equation(1, -1e8, 1, r), 2);
    EXPECT_DOUBLE_EQ(r[0], 1e8);
    EXPECT_DOUBLE_EQ(r[1], 1e-8);
    // b > 0 takes q = -b - sqrt(D).
    ASSERT_EQ(solve_Equation(2, 1e8, 2, r), 2);
    EXPECT_DOUBLE_EQ(r[0], -5e7);
    EXPECT_DOUBLE_EQ(r[1], -2e-8);
}

TEST(Polynomial, HornerFromTheTop)
{
    double k[3] = {1, 2, 3};
    EXPECT_EQ(math_Polynomial(k, 3, 2.0), 17.0);
    EXPECT_EQ(math_Polynomial(k, 0, 2.0), 0.0);
    EXPECT_EQ(math_Polynomial(k, -4, 2.0), 0.0);
    EXPECT_EQ(math_Polynomial(k, 1, std::numeric_limits<double>::quiet_NaN()), 1.0);
    EXPECT_EQ(math_Polynomial(k, 2, -0.5), 0.0);
    // Each step rounds r * x before adding: a fused multiply-add would keep
    // the 2^-60 of (1 + 2^-30)^2 and give 2^-60 instead of 0.
    const double u = 1.0 + std::ldexp(1.0, -30);
    double c[2] = {-(1.0 + std::ldexp(1.0, -29)), u};
    EXPECT_EQ(math_Polynomial(c, 2, u), 0.0);
}

}  // namespace
