#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "QELMath.h"

namespace {

const double kNaN = std::nan(""), kEps = 0x1p-52, kSentinel = -12345.678;

// Every function records where it was called, in order.
std::vector<double> g_at;
double constant3(double x) { g_at.push_back(x); return 3.0; }
double cubic(double x) { g_at.push_back(x); return x * x * x - 2.0 * x + 1.0; }
double rational(double x) { g_at.push_back(x); return 1.0 / (1.0 + x * x); }
double nan_at_one(double x) { g_at.push_back(x); return x == 1.0 ? kNaN : x; }
double infinite(double x) { g_at.push_back(x); return INFINITY; }
double two_less_square(double x) { g_at.push_back(x); return x * x - 2.0; }
double identity(double x) { g_at.push_back(x); return x; }
double tiny_at_one(double x) { g_at.push_back(x); return x == 1.0 ? kEps : -1.0; }

bool same(double x, double y) { return std::memcmp(&x, &y, sizeof x) == 0 || (x != x && y != y); }

using Routine = double (*)(double (*)(double), double, double, double);

// 1 / (1 + x^2) over [0.1, 2.3] approaches atan(2.3) - atan(0.1) =
// 1.0610003337622436; eps <= 0 runs a routine to its limit, and so does an
// integrand that is NaN or infinite somewhere.
TEST(Integration, GoldenValuesCallsAndLimits)
{
    const struct { Routine routine; double (*f)(double); double a, b, eps, expected; std::size_t calls; } rows[] = {
        // The weights sum to 2.0000000001; the first pass is compared with 1e35.
        {int_Gauss, constant3, 1.0, 4.0, 1e36, 9.00000000045, 5}, {int_Simpson, cubic, 0.0, 2.0, 1e-9, 2.0, 5},
        {int_Romberg, cubic, 0.0, 2.0, 1e-9, 2.0, 5}, {int_Gauss, rational, 0.1, 2.3, 1e-12, 1.0610003338148617, 180},
        {int_Chebyshev, rational, 0.1, 2.3, 1e-12, 1.0610003337569602, 1625}, {int_Romberg, rational, 0.1, 2.3, 1e-10, 1.061000333813319, 65},
        {int_Simpson, rational, 0.1, 2.3, 1e-10, 1.0610003337576328, 513}, {int_Romberg, rational, 0.1, 2.3, 0.0, 1.0610003337622438, 513},
        {int_Simpson, rational, 0.1, 2.3, -1.0, 1.0610003337622265, 1048577}, {int_Gauss, rational, 0.1, 2.3, 0.0, 1.0610003338152945, 2497500},
        {int_Romberg, rational, 0.0, 1.0, 1e300, 0x1.9111111111111p-1, 3}, {int_Simpson, rational, 0.0, 1.0, 1e300, 0x1.9111111111111p-1, 3},
        {int_Romberg, nan_at_one, 0.0, 1.0, 1e-9, kNaN, 513}, {int_Romberg, infinite, 0.0, 1.0, 1e-9, kNaN, 513},
        // Empty interval: the five-point rules call nothing, the others f(a)
        // three times, and with eps = 0 all levels.
        {int_Gauss, rational, 1.5, 1.5, 1e-9, 0.0, 0}, {int_Chebyshev, rational, 1.5, 1.5, 1e-9, 0.0, 0}, {int_Simpson, rational, 1.5, 1.5, 1e-9, 0.0, 3},
        {int_Romberg, rational, 1.5, 1.5, 1e-9, 0.0, 3}, {int_Romberg, rational, 1.5, 1.5, 0.0, 0.0, 513},
        // NaN tolerance gives 0 after no call, or after f(a) and f(b); a NaN
        // end stops the five-point rules at once.
        {int_Gauss, rational, 0.0, 1.0, kNaN, 0.0, 0}, {int_Chebyshev, rational, 0.0, 1.0, kNaN, 0.0, 0},
        {int_Romberg, rational, 0.25, 1.0, kNaN, 0.0, 2}, {int_Simpson, rational, 0.25, 1.0, kNaN, 0.0, 2},
        {int_Gauss, rational, kNaN, 1.0, 1e-9, kNaN, 0}, {int_Chebyshev, rational, 0.0, kNaN, 1e-9, kNaN, 0},
    };
    for (const auto& row : rows) {
        g_at.clear();
        double got = row.routine(row.f, row.a, row.b, row.eps);
        EXPECT_TRUE(same(got, row.expected)) << &row - rows << ": " << got;
        ASSERT_EQ(g_at.size(), row.calls) << &row - rows;
        if (row.routine == int_Romberg || row.routine == int_Simpson) { EXPECT_EQ(g_at[1], row.b); }
    }
}

// *x is untouched without a sign change and else holds the last chord point;
// the value and step tests are inclusive.
TEST(Chord, ResultWrittenValueAndCalls)
{
    const struct { double (*f)(double); double a, b, eps; int limit, ret; double x; std::size_t calls; } rows[] = {
        {two_less_square, 0.0, 2.0, 1e-12, 100, 1, 1.4142135623730481, 19},
        {two_less_square, 2.0, 3.0, 1e-12, 100, 0, kSentinel, 2},
        {identity, 0.0, 5.0, 1e-12, 100, 1, 0.0, 1}, {identity, -5.0, 0.0, 1e-12, 100, 1, 0.0, 2},   // f(b) is never called in the first
        {tiny_at_one, 1.0, 3.0, 1e-12, 100, 1, 1.0, 1},  // |f| = 2^-52 is a root
        {two_less_square, 0.0, 2.0, 1e-12, 0, 0, 1.0, 2}, {two_less_square, 0.0, 2.0, 1e-12, -3, 0, 1.0, 2},
        {two_less_square, 0.0, 2.0, 1e-12, 3, 0, 1.411764705882353, 5},  // 4/3, 7/5, 24/17
        {two_less_square, 0.0, 2.0, 0.0, 100, 1, 1.4142135623730949, 25},  // the point repeats
        {two_less_square, 0.0, 2.0, 0.0, 22, 0, 1.4142135623730949, 24},
    };
    for (const auto& row : rows) {
        g_at.clear();
        double x = kSentinel;
        EXPECT_EQ(solve_Chord(row.f, row.a, row.b, row.eps, &x, row.limit), row.ret) << &row - rows;
        EXPECT_TRUE(same(x, row.x) && g_at.size() == row.calls) << &row - rows << ": " << x;
    }
}

// The thresholds are the absolute 2^-52, inclusive; only the roots found are
// written. The small root comes from the product of the roots.
TEST(Equation, RootsCountsAndThresholds)
{
    const double up = std::nextafter(kEps, 1.0), s = kSentinel;
    const struct { double a, b, c; int n; double r0, r1; } rows[] = {
        {1, -3, 2, 2, 2, 1}, {1, 0, -4, 2, 2, -2}, {1, 2, 1, 1, -1, s}, {0, 2, -4, 1, 2, s}, {1, 0, 1, 0, s, s}, {0, 0, 5, 0, s, s},
        {kEps, kEps, 5, 0, s, s}, {1, 0, 2.5e-18, 0, s, s}, {1, 0, -2.5e-18, 1, -0.0, s}, {1, 0, -kEps / 4, 1, -0.0, s},
        {1, 0, -up / 4, 2, 7.4505805969238281e-09, -7.4505805969238298e-09}, {kEps, 2, -4, 1, 2, s}, {-kEps, 2, -4, 1, 2, s},
        {up, 2, -4, 2, -9007199254740992, 1.9999999999999996}, {1, -1e8, 1, 2, 1e8, 1e-8},
        {2, 1e8, 2, 2, -49999999.999999985, -2.0000000000000007e-08},
    };
    for (const auto& row : rows) {
        double r[2] = {s, s};
        EXPECT_EQ(solve_Equation(row.a, row.b, row.c, r), row.n) << &row - rows;
        EXPECT_TRUE(same(r[0], row.r0) && same(r[1], row.r1)) << &row - rows << ": " << r[0] << " " << r[1];
    }
}

TEST(Polynomial, HornerFromTheTopRoundingEachProduct)
{
    double k[3] = {1, 2, 3}, u = 1.0 + 0x1p-30, c[2] = {-(1.0 + 0x1p-29), u};
    EXPECT_TRUE(math_Polynomial(k, 3, 2.0) == 17.0 && math_Polynomial(k, 0, 2.0) + math_Polynomial(k, -4, 2.0) == 0.0);
    // A NaN point with one coefficient is never read; a fused multiply-add keeps 2^-60.
    EXPECT_TRUE(math_Polynomial(k, 1, kNaN) == 1.0 && math_Polynomial(c, 2, u) == 0.0);
}

}  // namespace
