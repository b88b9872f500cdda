// Two plain primality tests that num_IsPrime is checked and timed against:
// trial division by the table primes up to the square root, and a
// deterministic strong probable-prime test to the bases 2, 7 and 61 with the
// modular product taken as a 64-bit remainder. Deliberately straightforward.
#pragma once
#include <cstdint>
#include <initializer_list>

#include "numbers/tables.h"

namespace reference {

inline int trial_division_is_prime(std::uint32_t n)
{
    for (int i = 0; i < qel::kPrimeCount; ++i) {
        std::uint32_t p = qel::kPrimes[i];
        if (p * p > n) return n >= 2;   // 65521^2 < 2^32: no wrap
        if (n % p == 0) return n == p;
    }
    return 1;
}

inline int miller_rabin_is_prime(std::uint32_t n)
{
    if (n < 2 || n % 2 == 0 || n == 7 || n == 61) return n == 2 || n == 7 || n == 61;
    std::uint32_t d = n - 1, s = 0;
    for (; d % 2 == 0; d /= 2) ++s;
    for (std::uint64_t a : {2u, 7u, 61u}) {
        std::uint64_t x = 1, b = a;
        for (std::uint32_t e = d; e != 0; e >>= 1, b = b * b % n)
            if (e & 1u) x = x * b % n;
        bool pass = x == 1 || x == n - 1;
        for (std::uint32_t j = 1; j < s && !pass; ++j) pass = (x = x * x % n) == n - 1;
        if (!pass) return 0;
    }
    return 1;
}

}  // namespace reference
