#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

// Every integrand records where it was called, in order.
std::vector<double> g_points;
bool g_record = true;
long g_calls = 0;

void note(double x)
{
    ++g_calls;
    if (g_record) g_points.push_back(x);
}

double constant3(double x)
{
    note(x);
    return 3.0;
}

double cubic(double x)
{
    note(x);
    return x * x * x - 2.0 * x + 1.0;
}

double rational(double x)
{
    note(x);
    return 1.0 / (1.0 + x * x);
}

using Routine = double (*)(double (*)(double), double, double, double);

class Integration : public ::testing::Test {
protected:
    void SetUp() override
    {
        g_points.clear();
        g_calls = 0;
        g_record = true;
    }
};

bool same_bits(double x, double y)
{
    return std::memcmp(&x, &y, sizeof x) == 0;
}

// Golden results; values of 1 / (1 + x^2) over [0.1, 2.3] approach
// atan(2.3) - atan(0.1) = 1.0610003337622436.
TEST_F(Integration, FivePointRulesOnAConstant)
{
    // The stored Gauss weights sum to 2.0000000001.
    EXPECT_EQ(int_Gauss(constant3, 1.0, 4.0, 1e-9), 9.00000000045);
    EXPECT_EQ(g_calls, 15);
    g_calls = 0;
    EXPECT_EQ(int_Chebyshev(constant3, 1.0, 4.0, 1e-9), 9.000000000000002);
    EXPECT_EQ(g_calls, 15);
}

TEST_F(Integration, FivePointPointsAndPanelOrder)
{
    const double a = 0.1;
    const double b = 2.3;
    const double nodes[5] = {-0.8324975, -0.3745414, 0.0, 0.3745414, 0.8324975};
    g_record = true;
    int_Chebyshev(rational, a, b, 1e-12);
    ASSERT_EQ(g_calls, 1625);   // 1 + 2 + ... + 25 panels

    std::size_t at = 0;
    const double length = b - a;
    for (int panels = 1; panels <= 25; ++panels) {
        const double h = panels == 1 ? length : length / panels;
        for (int i = 1; i <= panels; ++i) {
            const double left = static_cast<double>(i - 1) * h + a;
            for (double t : nodes) {
                const double x = (h * t + (left + (left + h))) * 0.5;
                ASSERT_TRUE(same_bits(g_points[at], x))
                    << "pass " << panels << " panel " << i << " node " << t;
                ++at;
            }
        }
    }
}

TEST_F(Integration, GoldenValuesAndCallCounts)
{
    struct Case {
        Routine routine;
        double (*f)(double);
        double a, b, eps;
        double expected;
        long calls;
    };
    const Case cases[] = {
        {int_Gauss, cubic, 0.0, 2.0, 1e-9, 2.0000000000999423, 15},
        {int_Chebyshev, cubic, 0.0, 2.0, 1e-9, 2.0000000021730315, 50},
        {int_Simpson, cubic, 0.0, 2.0, 1e-9, 2.0, 5},   // exact for cubics
        {int_Romberg, cubic, 0.0, 2.0, 1e-9, 2.0, 5},
        {int_Gauss, rational, 0.1, 2.3, 1e-12, 1.0610003338148617, 180},
        {int_Chebyshev, rational, 0.1, 2.3, 1e-12, 1.0610003337569602, 1625},
        {int_Romberg, rational, 0.1, 2.3, 1e-10, 1.061000333813319, 65},
        {int_Simpson, rational, 0.1, 2.3, 1e-10, 1.0610003337576328, 513},
        // eps = 0 runs every routine to its limit.
        {int_Romberg, rational, 0.1, 2.3, 0.0, 1.0610003337622438, 513},
        {int_Simpson, rational, 0.1, 2.3, 0.0, 1.0610003337622265, 1048577},
        {int_Simpson, rational, 0.1, 2.3, -1.0, 1.0610003337622265, 1048577},
        {int_Gauss, rational, 0.1, 2.3, 0.0, 1.0610003338152945, 2497500},
    };
    g_record = false;
    for (const Case& c : cases) {
        g_calls = 0;
        double forward = c.routine(c.f, c.a, c.b, c.eps);
        EXPECT_TRUE(same_bits(forward, c.expected))
            << &c - cases << ": " << forward << " vs " << c.expected;
        EXPECT_EQ(g_calls, c.calls) << &c - cases;
        // Swapping the ends negates the result, up to the rounding of the
        // points, which are not mirror images of each other.
        if (c.calls < 100000) {
            double backward = c.routine(c.f, c.b, c.a, c.eps);
            EXPECT_NEAR(backward, -forward, 1e-15 * std::fabs(forward)) << &c - cases;
        }
    }
}

TEST_F(Integration, RombergAndSimpsonPointOrder)
{
    const double a = 0.1;
    const double b = 2.3;
    int_Romberg(rational, a, b, 0.0);
    ASSERT_EQ(g_points.size(), 513u);
    EXPECT_TRUE(same_bits(g_points[0], a));
    EXPECT_TRUE(same_bits(g_points[1], b));
    std::size_t at = 2;
    double h = b - a;
    for (long m = 1; m <= 256; m *= 2, h = h / 2.0) {
        for (long i = 0; i < m; ++i, ++at)
            ASSERT_TRUE(same_bits(g_points[at], a + (static_cast<double>(i) + 0.5) * h)) << m;
    }

    g_points.clear();
    int_Simpson(rational, a, b, 1e-10);
    ASSERT_EQ(g_points.size(), 513u);
    at = 2;
    h = b - a;
    for (long m = 1; m <= 256; m *= 2, h = h / 2.0) {
        for (long i = 0; i < m; ++i, ++at)
            ASSERT_TRUE(same_bits(g_points[at], a + (static_cast<double>(i) + 0.5) * h)) << m;
    }
}

TEST_F(Integration, EmptyInterval)
{
    for (Routine r : {int_Chebyshev, int_Gauss}) {
        g_points.clear();
        g_calls = 0;
        EXPECT_TRUE(same_bits(r(rational, 1.5, 1.5, 1e-9), 0.0));
        EXPECT_EQ(g_calls, 0);
    }
    for (Routine r : {int_Romberg, int_Simpson}) {
        g_points.clear();
        g_calls = 0;
        EXPECT_EQ(r(rational, 1.5, 1.5, 1e-9), 0.0);
        EXPECT_EQ(g_points, std::vector<double>({1.5, 1.5, 1.5}));
    }
}

TEST_F(Integration, NaNToleranceGivesZero)
{
    for (Routine r : {int_Chebyshev, int_Gauss}) {
        g_points.clear();
        g_calls = 0;
        EXPECT_TRUE(same_bits(r(rational, 0.0, 1.0, kNaN), 0.0));
        EXPECT_EQ(g_calls, 0);
    }
    for (Routine r : {int_Romberg, int_Simpson}) {
        g_points.clear();
        g_calls = 0;
        EXPECT_TRUE(same_bits(r(rational, 0.25, 1.0, kNaN), 0.0));
        EXPECT_EQ(g_points, std::vector<double>({0.25, 1.0}));   // f(a) before f(b)
    }
}

TEST_F(Integration, NaNIntervalEndsTheFivePointRulesAtOnce)
{
    for (Routine r : {int_Chebyshev, int_Gauss}) {
        g_calls = 0;
        EXPECT_TRUE(std::isnan(r(rational, kNaN, 1.0, 1e-9)));
        EXPECT_TRUE(std::isnan(r(rational, 0.0, kNaN, 1e-9)));
        EXPECT_EQ(g_calls, 0);
    }
}

TEST_F(Integration, HugeToleranceStopsAfterTheFirstPassOrLevel)
{
    g_record = false;
    // The first pass is compared with 1e35, so only a larger eps ends it.
    EXPECT_EQ(int_Gauss(constant3, 1.0, 4.0, 1e36), 9.00000000045);
    EXPECT_EQ(g_calls, 5);
    g_calls = 0;
    int_Romberg(rational, 0.0, 1.0, 1e300);
    EXPECT_EQ(g_calls, 3);
    g_calls = 0;
    int_Simpson(rational, 0.0, 1.0, 1e300);
    EXPECT_EQ(g_calls, 3);
}

}  // namespace
