#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "prime_reference.h"

namespace {

// Primality of every n in [lo, lo + count) by a sieve segment: crossed off
// by every prime up to 65536, which covers all n < 2^32.
std::vector<char> sieve_segment(std::uint64_t lo, std::uint32_t count)
{
    std::vector<char> prime(count, 1);
    std::vector<char> small(65536, 1);
    for (std::uint32_t p = 2; p < 65536; ++p) {
        if (!small[p]) continue;
        for (std::uint32_t q = p * p; q < 65536; q += p) small[q] = 0;
        std::uint64_t first = (lo + p - 1) / p * p;
        if (first < static_cast<std::uint64_t>(p) * p) first = static_cast<std::uint64_t>(p) * p;
        for (std::uint64_t m = first; m < lo + count; m += p) prime[m - lo] = 0;
    }
    for (std::uint64_t n = lo; n < 2 && n < lo + count; ++n) prime[n - lo] = 0;
    return prime;
}

void expect_window(std::uint64_t lo, std::uint32_t count)
{
    std::vector<char> prime = sieve_segment(lo, count);
    int wrong = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        std::uint32_t n = static_cast<std::uint32_t>(lo + i);
        if (num_IsPrime(n) != prime[i] && ++wrong <= 5) ADD_FAILURE() << "n = " << n;
    }
    EXPECT_EQ(wrong, 0) << "window from " << lo;
}

TEST(IsPrime, NamedBoundaries)
{
    EXPECT_EQ(num_IsPrime(0), 0);
    EXPECT_EQ(num_IsPrime(1), 0);
    EXPECT_EQ(num_IsPrime(2), 1);
    EXPECT_EQ(num_IsPrime(3), 1);
    EXPECT_EQ(num_IsPrime(4), 0);
    EXPECT_EQ(num_IsPrime(65521), 1);   // last table entry
    EXPECT_EQ(num_IsPrime(65534), 0);   // decided by the table
    EXPECT_EQ(num_IsPrime(65535), 0);   // 3 * 5 * 17 * 257, first number past the table
    EXPECT_EQ(num_IsPrime(65536), 0);
    EXPECT_EQ(num_IsPrime(65537), 1);
    EXPECT_EQ(num_IsPrime(4293001441u), 0);   // 65521^2
    EXPECT_EQ(num_IsPrime(4294967291u), 1);   // largest 32-bit prime
    EXPECT_EQ(num_IsPrime(4294967295u), 0);
    EXPECT_EQ(num_IsPrime(2147483647u), 1);   // 2^31 - 1
}

TEST(IsPrime, RejectsStrongPseudoprimesWithoutSmallFactors)
{
    // Composites with no prime factor below 256 (so past the screening) that
    // pass the strong test to base 2, to bases 2 and 61, to bases 2 and 7;
    // then squares and near-squares of large primes, and Carmichael numbers.
    const std::uint32_t composites[] = {
        280601u,  390937u,  458989u,     514447u,     916327u,     2205967u,
        2269093u, 2284453u, 25326001u,   3215031751u, 4293001441u, 4294836225u,
        4292870399u /* 65521 * 65519 */, 561u, 41041u, 825265u, 321197185u,
    };
    for (std::uint32_t n : composites) {
        EXPECT_EQ(num_IsPrime(n), 0) << n;
        EXPECT_EQ(reference::trial_division_is_prime(n), 0) << n;
    }
}

TEST(IsPrime, AgreesWithASieveBelow2To24)
{
    const std::uint32_t limit = 1u << 24;
    std::vector<char> composite(limit, 0);
    composite[0] = composite[1] = 1;
    for (std::uint32_t p = 2; p * p < limit; ++p) {
        if (composite[p]) continue;
        for (std::uint32_t q = p * p; q < limit; q += p) composite[q] = 1;
    }
    int wrong = 0;
    for (std::uint32_t n = 0; n < limit; ++n) {
        if (num_IsPrime(n) != !composite[n] && ++wrong <= 5) ADD_FAILURE() << "n = " << n;
    }
    EXPECT_EQ(wrong, 0);
}

TEST(IsPrime, AgreesWithASieveInWindowsUpTo2To32)
{
    expect_window(65000, 2000);                          // around the table's end
    expect_window(4293001441u - 50000, 100000);          // around 65521^2
    expect_window(2147483648u - 100000, 200000);         // around 2^31
    expect_window(4294967296u - 300000, 300000);         // the top of the range
}

TEST(IsPrime, AgreesWithPlainTestsOnRandom32BitNumbers)
{
    std::mt19937 rng(20260101u);
    int wrong = 0;
    for (int i = 0; i < 1000000; ++i) {
        std::uint32_t n = rng();
        int expected = reference::miller_rabin_is_prime(n);
        if (i < 100000) {
            ASSERT_EQ(reference::trial_division_is_prime(n), expected) << n;
        }
        if (num_IsPrime(n) != expected && ++wrong <= 5) ADD_FAILURE() << "n = " << n;
    }
    EXPECT_EQ(wrong, 0);
}

TEST(IsPrime, OddNumbersWithOnlyLargeFactorsAgreeWithTrialDivision)
{
    // Random products of two primes above 256: every one passes the
    // screening and must be refused by the strong tests themselves.
    std::mt19937 rng(7u);
    std::uniform_int_distribution<int> pick(54, qel::kPrimeCount - 1);   // kPrimes[54] = 257
    for (int i = 0; i < 20000; ++i) {
        std::uint64_t p = qel::kPrimes[pick(rng)];
        std::uint64_t q = qel::kPrimes[pick(rng)];
        std::uint32_t n = static_cast<std::uint32_t>(p * q);
        ASSERT_EQ(num_IsPrime(n), 0) << p << " * " << q;
    }
}

}  // namespace
