// The counting functions and the prime test against small independent
// references: a sieve, the running products and sums, the falling product
// taken factor by factor, and trial division (prime_reference.h, shared with
// the benchmarks).
#include <climits>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "prime_reference.h"

namespace {

bool same(double x, double y) { return (x != x && y != y) || (x == y && std::signbit(x) == std::signbit(y)); }

// Below 2^24 against a sieve, which also gives the prime table; above, around
// 65521^2, 2^31 and the top of the range, random numbers, products of two
// primes above 256 (kPrimes[54] = 257), and composites with no factor below 256 that pass the
// strong test to base 2, to 2 and 61, to 2 and 7 (only the strong tests
// themselves refuse them), against trial division.
TEST(IsPrime, AgreesWithASieveAndTrialDivision)
{
    std::vector<char> composite(1u << 24, 0);
    std::vector<std::uint32_t> primes, ns = {280601u, 390937u, 458989u, 514447u, 916327u, 2205967u, 2269093u, 2284453u, 25326001u, 3215031751u, 4294836225u, 4292870399u};
    for (std::uint32_t n = 0; n < composite.size(); ++n) {
        composite[n] |= n < 2;
        for (std::uint32_t q = n * n; !composite[n] && n < 4096 && q < composite.size(); q += n) composite[q] = 1;
        if (!composite[n] && n < 65536) primes.push_back(n);
        EXPECT_EQ(num_IsPrime(n), !composite[n]) << n;
    }
    ASSERT_EQ(primes, std::vector<std::uint32_t>(qel::kPrimes, qel::kPrimes + qel::kPrimeCount));
    for (std::uint64_t lo : {4293001441ull - 30000, 2147483648ull - 30000, 4294967296ull - 60000})
        for (std::uint64_t n = lo; n < lo + 60000 && n <= UINT32_MAX; ++n) ns.push_back(static_cast<std::uint32_t>(n));
    std::mt19937 rng(20260101u);
    for (int i = 0; i < 200000; ++i) ns.push_back(rng());
    for (int i = 0; i < 20000; ++i) ns.push_back(static_cast<std::uint32_t>(std::uint64_t{qel::kPrimes[54 + rng() % 6488]} * qel::kPrimes[54 + rng() % 6488]));
    for (std::uint32_t n : ns) EXPECT_EQ(num_IsPrime(n), reference::trial_division_is_prime(n)) << n;
}

// Every entry of each width against the exact running product and sum, then
// the same continued in doubles, to the last finite entry (the next sum or
// product is infinite); below 0 and past the width's last entry factorials
// are 1 and Fibonacci numbers 0.
TEST(Tables, FactorialsAndFibonacciNumbersOfEveryWidth)
{
    std::uint64_t f = 1, older = 0, newer = 1;
    double fd = 1.0, prev = 0.0, cur = 1.0;
    for (int n = -1; n <= 1476; ++n) {
        if (n > 0) {
            f *= n <= 20 ? static_cast<std::uint64_t>(n) : 1u, fd = fd * n;
            std::uint64_t next = older + newer;
            double d = n <= 92 ? static_cast<double>(next) : cur + prev;
            older = newer, newer = next, prev = cur, cur = d;
        }
        EXPECT_EQ(num_FactorialDword(n), n <= 12 ? f : 1u) << n;
        EXPECT_EQ(num_FactorialQword(n), n <= 20 ? f : 1u) << n;
        EXPECT_TRUE(same(num_FactorialDouble(n), n <= 170 ? fd : 1.0)) << n;
        EXPECT_EQ(num_FibonacciDword(n), n >= 0 && n <= 46 ? newer : 0u) << n;
        EXPECT_EQ(num_FibonacciQword(n), n >= 0 && n <= 92 ? newer : 0u) << n;
        EXPECT_TRUE(same(num_FibonacciDouble(n), n >= 0 && n <= 1475 ? cur : 0.0)) << n;
    }
}

// The falling product factor by factor to the end, the factor n - i wrapped
// to a signed 32-bit value. (The circular counts and the combinations divide
// it by m and by m!: the digest covers them on every kind of pair.)
void expect_counts(int n, int m)
{
    std::uint32_t pd = m >= 0;
    std::uint64_t pq = pd;
    double pr = pd;
    for (int i = 0; i < m; ++i) {
        const std::uint32_t bits = static_cast<std::uint32_t>(n) - static_cast<std::uint32_t>(i);
        const std::int64_t factor = bits >= 0x80000000u ? static_cast<std::int64_t>(bits) - 4294967296LL : bits;
        pd *= bits, pq *= static_cast<std::uint64_t>(factor), pr = pr * static_cast<double>(factor);
    }
    EXPECT_EQ(num_PermutationDword(n, m), pd) << n << ", " << m;
    EXPECT_EQ(num_PermutationQword(n, m), pq) << n << ", " << m;
    EXPECT_TRUE(same(num_PermutationDouble(n, m), pr)) << n << ", " << m << ": " << num_PermutationDouble(n, m);
}

// Small and signed n, n near both ends of the int range (factors wrap from
// -2^31 to 2^31 - 1), counts that take the integer products to 0 and the
// double one to 0, -0, infinity or NaN; 2^31 - 1 factors finish at once.
TEST(Counting, PermutationsMatchTheFullProduct)
{
    for (int n : {0, 1, 2, 3, 7, 20, 25, 33, 40, 100, 170, 171, 200, 1000, -1, -2, -3, -7, -100, 65536, INT_MAX, INT_MAX - 1, INT_MIN + 1, INT_MIN, INT_MIN + 3})
        for (int m : {INT_MIN, -2, -1, 0, 1, 2, 3, 5, 10, 12, 13, 20, 21, 31, 32, 33, 50, 63, 64, 65, 127, 128, 129, 170, 171, 172, 300, 1000, 1100, 5000})
            expect_counts(n, m);
    for (auto nm : {std::make_pair(INT_MIN + 1000, 3000), {1500, 3001}, {-1, 200000}, {2, 1000001}}) expect_counts(nm.first, nm.second);
    const double huge[][2] = {{5, -0.0}, {4, 0.0}, {200, NAN}, {-1, -HUGE_VAL}, {-3, HUGE_VAL}, {INT_MAX, HUGE_VAL}};
    for (const auto& h : huge) EXPECT_TRUE(same(num_PermutationDouble(static_cast<int>(h[0]), INT_MAX), h[1])) << h[0];
    EXPECT_TRUE(num_PermutationDword(5, INT_MAX) == 0 && num_PermutationQword(INT_MIN, INT_MAX) == 0);
}

// Both widths share one procedure; the digest covers it on non-zero operands.
TEST(Counting, CommonDivisorsWithZeroOperands)
{
    const std::uint32_t rows[][3] = {{0, 0, 0}, {7, 0, 7}, {0, 7, 7}, {4294967295u, 65535, 65535}, {7, 1, 1}};
    for (const auto& r : rows) EXPECT_EQ(num_CommonDivisor32(r[0], r[1]), r[2]) << r[0] << ", " << r[1];
}

}  // namespace
