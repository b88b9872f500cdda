// The tables re-derived from first principles, independently of the
// generator, and read back through the exported functions.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "numbers/tables.h"

namespace {

bool same_bits(double x, double y)
{
    return std::memcmp(&x, &y, sizeof x) == 0;
}

TEST(Tables, PrimesAreEveryPrimeBelow65536InOrder)
{
    std::vector<std::uint32_t> primes;
    for (std::uint32_t n = 2; n < 65536; ++n) {
        bool prime = true;
        for (std::uint32_t d = 2; d * d <= n; ++d) {
            if (n % d == 0) {
                prime = false;
                break;
            }
        }
        if (prime) primes.push_back(n);
    }
    ASSERT_EQ(primes.size(), static_cast<std::size_t>(qel::kPrimeCount));
    for (int i = 0; i < qel::kPrimeCount; ++i) ASSERT_EQ(qel::kPrimes[i], primes[i]) << i;
    EXPECT_EQ(qel::kPrimes[qel::kPrimeCount - 1], 65521);
}

TEST(Tables, FactorialsAreExactThenTheRunningDoubleProduct)
{
    std::uint64_t exact = 1;
    double running = 1.0;
    for (int n = 0; n <= 170; ++n) {
        if (n > 0) {
            if (n <= 20) exact *= static_cast<std::uint64_t>(n);
            running = running * n;
        }
        if (n <= 12) {
            ASSERT_EQ(qel::kFactorials.dword[n], exact) << n;
            ASSERT_EQ(num_FactorialDword(n), exact) << n;
        }
        if (n <= 20) {
            if (n > 12) {
                ASSERT_EQ(qel::kFactorials.qword[n - 13], exact) << n;
            }
            ASSERT_EQ(num_FactorialQword(n), exact) << n;
            ASSERT_EQ(static_cast<double>(exact), running) << n;   // exact in doubles
            ASSERT_TRUE(same_bits(num_FactorialDouble(n), running)) << n;
        } else {
            ASSERT_TRUE(same_bits(qel::kFactorials.real[n - 21], running)) << n;
            ASSERT_TRUE(same_bits(num_FactorialDouble(n), running)) << n;
        }
    }
    // Each piece ends at the last entry its type holds.
    EXPECT_GT(13ull * qel::kFactorials.dword[12], 0xFFFFFFFFull);
    EXPECT_GT(qel::kFactorials.qword[7], std::numeric_limits<std::uint64_t>::max() / 21);
    EXPECT_TRUE(std::isinf(running * 171));
    EXPECT_EQ(num_FactorialDouble(170), 7.257415615307994e306);
}

TEST(Tables, FibonacciNumbersAreExactThenTheRunningDoubleSum)
{
    std::uint64_t older = 0;   // F(0)
    std::uint64_t newer = 1;   // F(1), entry 0
    for (int n = 0; n <= 92; ++n) {
        if (n > 0) {
            std::uint64_t next = older + newer;
            older = newer;
            newer = next;
        }
        if (n <= 46) {
            ASSERT_EQ(num_FibonacciDword(n), newer) << n;
        } else {
            ASSERT_EQ(qel::kFibonacci.qword[n - 47], newer) << n;
        }
        ASSERT_EQ(num_FibonacciQword(n), newer) << n;
        ASSERT_TRUE(same_bits(num_FibonacciDouble(n), static_cast<double>(newer))) << n;
    }
    EXPECT_GT(static_cast<std::uint64_t>(num_FibonacciDword(45)) + num_FibonacciDword(46),
              0xFFFFFFFFull);
    EXPECT_LT(older + newer, newer);                                  // F(94) wraps

    double previous = static_cast<double>(older);   // entry 91
    double current = static_cast<double>(newer);    // entry 92
    for (int n = 93; n <= 1475; ++n) {
        double next = current + previous;
        previous = current;
        current = next;
        ASSERT_TRUE(same_bits(qel::kFibonacci.real[n - 93], current)) << n;
        ASSERT_TRUE(same_bits(num_FibonacciDouble(n), current)) << n;
    }
    EXPECT_TRUE(std::isinf(current + previous));
    EXPECT_EQ(num_FibonacciDouble(1475), 1.3069892237633987e308);
}

}  // namespace
