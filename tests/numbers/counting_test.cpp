#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

const double kInf = std::numeric_limits<double>::infinity();

bool same_double(double x, double y)
{
    if (std::isnan(x) || std::isnan(y)) return std::isnan(x) && std::isnan(y);
    return std::memcmp(&x, &y, sizeof x) == 0;
}

// The falling product taken factor by factor to the end, with the factor
// n - i wrapped to a signed 32-bit value through unsigned arithmetic.
struct Products {
    std::uint32_t dword = 1;
    std::uint64_t qword = 1;
    double real = 1.0;
};

Products plain_products(int n, int m)
{
    Products p;
    for (int i = 0; i < m; ++i) {
        std::uint32_t bits = static_cast<std::uint32_t>(n) - static_cast<std::uint32_t>(i);
        std::int64_t factor = bits >= 0x80000000u ? static_cast<std::int64_t>(bits) - 4294967296LL
                                                  : static_cast<std::int64_t>(bits);
        p.dword *= bits;
        p.qword *= static_cast<std::uint64_t>(factor);
        p.real = p.real * static_cast<double>(factor);
    }
    return p;
}

void expect_plain(int n, int m)
{
    Products p = plain_products(n, m);
    EXPECT_EQ(num_PermutationDword(n, m), p.dword) << n << ", " << m;
    EXPECT_EQ(num_PermutationQword(n, m), p.qword) << n << ", " << m;
    EXPECT_TRUE(same_double(num_PermutationDouble(n, m), p.real))
        << n << ", " << m << ": " << num_PermutationDouble(n, m) << " vs " << p.real;
}

TEST(Factorial, RangesOfTheThreeWidths)
{
    EXPECT_EQ(num_FactorialDword(0), 1u);
    EXPECT_EQ(num_FactorialDword(12), 479001600u);
    EXPECT_EQ(num_FactorialDword(13), 1u);
    EXPECT_EQ(num_FactorialDword(-1), 1u);
    EXPECT_EQ(num_FactorialDword(INT_MIN), 1u);
    EXPECT_EQ(num_FactorialQword(12), 479001600u);
    EXPECT_EQ(num_FactorialQword(20), 2432902008176640000ull);
    EXPECT_EQ(num_FactorialQword(21), 1u);
    EXPECT_EQ(num_FactorialQword(-5), 1u);
    EXPECT_EQ(num_FactorialDouble(20), 2432902008176640000.0);
    EXPECT_EQ(num_FactorialDouble(170), 7.257415615307994e306);
    EXPECT_EQ(num_FactorialDouble(171), 1.0);
    EXPECT_EQ(num_FactorialDouble(-1), 1.0);
    EXPECT_EQ(num_FactorialDouble(INT_MAX), 1.0);
}

TEST(Fibonacci, RangesOfTheThreeWidths)
{
    EXPECT_EQ(num_FibonacciDword(0), 1u);
    EXPECT_EQ(num_FibonacciDword(1), 1u);
    EXPECT_EQ(num_FibonacciDword(2), 2u);
    EXPECT_EQ(num_FibonacciDword(3), 3u);
    EXPECT_EQ(num_FibonacciDword(46), 2971215073u);
    EXPECT_EQ(num_FibonacciDword(47), 0u);
    EXPECT_EQ(num_FibonacciDword(-1), 0u);
    EXPECT_EQ(num_FibonacciQword(46), 2971215073u);
    EXPECT_EQ(num_FibonacciQword(47), 4807526976ull);
    EXPECT_EQ(num_FibonacciQword(92), 12200160415121876738ull);
    EXPECT_EQ(num_FibonacciQword(93), 0u);
    EXPECT_EQ(num_FibonacciQword(INT_MIN), 0u);
    EXPECT_EQ(num_FibonacciDouble(92), 12200160415121876738.0);   // rounded on conversion
    EXPECT_EQ(num_FibonacciDouble(1475), 1.3069892237633987e308);
    EXPECT_EQ(num_FibonacciDouble(1476), 0.0);
    EXPECT_EQ(num_FibonacciDouble(-1), 0.0);
}

TEST(Permutation, NamedCases)
{
    EXPECT_EQ(num_PermutationDword(10, 3), 720u);
    EXPECT_EQ(num_PermutationDword(5, 0), 1u);
    EXPECT_EQ(num_PermutationDword(3, 5), 0u);
    EXPECT_EQ(num_PermutationDword(20, 10), 427674624u);
    EXPECT_EQ(num_PermutationQword(20, 10), 670442572800ull);
    EXPECT_EQ(num_PermutationDouble(20, 10), 670442572800.0);
    EXPECT_EQ(num_PermutationDouble(5, 0), 1.0);
    // The factor 0 and then -1: an odd count of negative factors after it.
    double minus_zero = num_PermutationDouble(3, 5);
    EXPECT_EQ(minus_zero, 0.0);
    EXPECT_TRUE(std::signbit(minus_zero));
    EXPECT_FALSE(std::signbit(num_PermutationDouble(3, 6)));
    // Negative n: all factors negative.
    EXPECT_EQ(num_PermutationQword(-3, 3), static_cast<std::uint64_t>(0) - 60);
    EXPECT_EQ(num_PermutationDword(-3, 3), 0u - 60u);
    EXPECT_EQ(num_PermutationDouble(-3, 3), -60.0);
}

TEST(Permutation, NegativeCountGivesZero)
{
    for (int m : {-1, -2, INT_MIN}) {
        EXPECT_EQ(num_PermutationDword(10, m), 0u);
        EXPECT_EQ(num_PermutationQword(10, m), 0u);
        EXPECT_TRUE(same_double(num_PermutationDouble(10, m), 0.0));
        EXPECT_EQ(num_QPermutationDword(10, m), 0u);
        EXPECT_EQ(num_QPermutationQword(10, m), 0u);
        EXPECT_TRUE(same_double(num_QPermutationDouble(10, m), 0.0));
        EXPECT_EQ(num_CombinationDword(10, m), 0u);
        EXPECT_EQ(num_CombinationQword(10, m), 0u);
        EXPECT_TRUE(same_double(num_CombinationDouble(10, m), 0.0));
    }
}

TEST(Permutation, MatchesTheFullProductEverywhere)
{
    // Small and signed n, n near both ends of the int range (factors wrap
    // from -2^31 to 2^31 - 1), and counts long enough for the integer
    // products to reach 0 and the double product 0, infinity or NaN.
    const int ns[] = {0, 1, 2, 3, 7, 20, 33, 100, 170, 171, 200, 1000, -1, -2, -7, -100,
                      65536, 2147483647, 2147483646, -2147483647, INT_MIN, INT_MIN + 3};
    const int ms[] = {0, 1, 2, 3, 5, 12, 13, 20, 21, 31, 32, 33, 63, 64, 65, 127, 128, 129,
                      170, 171, 172, 300, 1000, 1100, 5000};
    for (int n : ns)
        for (int m : ms) expect_plain(n, m);
    // Long runs through the wrap and through zero.
    expect_plain(INT_MIN + 1000, 3000);
    expect_plain(1500, 3001);
    expect_plain(-1, 200000);
    expect_plain(2, 1000001);
}

TEST(Permutation, HugeCountsFinishAtOnce)
{
    // 5 .. 1, 0, then 2^31 - 7 negative factors: an odd count after the zero.
    double p = num_PermutationDouble(5, INT_MAX);
    EXPECT_EQ(p, 0.0);
    EXPECT_TRUE(std::signbit(p));
    EXPECT_FALSE(std::signbit(num_PermutationDouble(4, INT_MAX)));
    EXPECT_EQ(num_PermutationDword(5, INT_MAX), 0u);
    EXPECT_EQ(num_PermutationQword(INT_MIN, INT_MAX), 0u);
    // 200! overflows before the factor 0 comes: infinity times 0.
    EXPECT_TRUE(std::isnan(num_PermutationDouble(200, INT_MAX)));
    // Negative factors only: -1 .. -(2^31 - 1), an odd count.
    EXPECT_EQ(num_PermutationDouble(-1, INT_MAX), -kInf);
    // -3 .. -2^31 (an even count), then the wrap to the positive 2^31 - 1.
    EXPECT_EQ(num_PermutationDouble(-3, INT_MAX), kInf);
    EXPECT_EQ(num_PermutationDouble(INT_MAX, INT_MAX), kInf);
}

TEST(QPermutation, DividesByTheCount)
{
    EXPECT_EQ(num_QPermutationDword(5, 3), 20u);
    EXPECT_EQ(num_QPermutationQword(5, 3), 20u);
    EXPECT_EQ(num_QPermutationDouble(5, 3), 20.0);
    EXPECT_EQ(num_QPermutationDword(5, 0), 0u);
    EXPECT_EQ(num_QPermutationQword(5, 0), 0u);
    EXPECT_EQ(num_QPermutationDouble(5, 0), kInf);
    EXPECT_EQ(num_QPermutationDouble(-5, 0), kInf);
    // The quotient is of the wrapped count: 427674624 / 10, truncated.
    EXPECT_EQ(num_QPermutationDword(20, 10), 42767462u);
    EXPECT_EQ(num_QPermutationQword(20, 10), 67044257280ull);
    // A negative product as unsigned: (2^64 - 60) / 3.
    EXPECT_EQ(num_QPermutationQword(-3, 3), (static_cast<std::uint64_t>(0) - 60) / 3);
    EXPECT_EQ(num_QPermutationDouble(7, 2), 21.0);
}

TEST(Combination, DividesByTheWidthsFactorial)
{
    EXPECT_EQ(num_CombinationDword(10, 3), 120u);
    EXPECT_EQ(num_CombinationDword(20, 10), 117u);   // the product wrapped
    EXPECT_EQ(num_CombinationQword(20, 10), 184756u);
    EXPECT_EQ(num_CombinationDword(7, 0), 1u);
    EXPECT_EQ(num_CombinationDouble(7, 0), 1.0);
    EXPECT_EQ(num_CombinationDouble(100, 50), 1.008913445455642e+29);
    // Beyond the width's factorial range the divisor is 1.
    EXPECT_EQ(num_CombinationDword(30, 13), num_PermutationDword(30, 13));
    EXPECT_EQ(num_CombinationQword(40, 21), num_PermutationQword(40, 21));
    EXPECT_EQ(num_CombinationQword(25, 13), 5200300u);   // 13! from the second piece
    EXPECT_TRUE(same_double(num_CombinationDouble(200, 171), num_PermutationDouble(200, 171)));
    EXPECT_EQ(num_CombinationDouble(171, 170), kInf);   // 171 ... 2 overflows first
    EXPECT_EQ(num_CombinationDouble(3, 5), 0.0);
    EXPECT_TRUE(std::signbit(num_CombinationDouble(3, 5)));
}

TEST(CommonDivisor, EuclidAndZeroOperands)
{
    EXPECT_EQ(num_CommonDivisor32(12, 18), 6u);
    EXPECT_EQ(num_CommonDivisor32(18, 12), 6u);
    EXPECT_EQ(num_CommonDivisor32(0, 7), 7u);
    EXPECT_EQ(num_CommonDivisor32(7, 1), 1u);
    EXPECT_EQ(num_CommonDivisor32(7, 0), 7u);
    EXPECT_EQ(num_CommonDivisor32(0, 0), 0u);
    EXPECT_EQ(num_CommonDivisor32(4294967295u, 65535u), 65535u);
    EXPECT_EQ(num_CommonDivisor32(4294967291u, 4294967279u), 1u);
    // Consecutive Fibonacci numbers take the most steps; gcd(F(i), F(j)) = F(gcd(i, j)).
    EXPECT_EQ(num_CommonDivisor32(num_FibonacciDword(46), num_FibonacciDword(45)), 1u);
    EXPECT_EQ(num_CommonDivisor64(num_FibonacciQword(91), num_FibonacciQword(45)),
              num_FibonacciQword(45));
    EXPECT_EQ(num_CommonDivisor64(1ull << 40, (1ull << 36) * 3), 1ull << 36);
    EXPECT_EQ(num_CommonDivisor64(0, 1ull << 63), 1ull << 63);
    EXPECT_EQ(num_CommonDivisor64(1ull << 63, 0), 1ull << 63);
    EXPECT_EQ(num_CommonDivisor64(0, 0), 0u);
    EXPECT_EQ(num_CommonDivisor64(18446744073709551615ull, 4294967295ull), 4294967295ull);
}

}  // namespace
