// Two plain primality tests that num_IsPrime is checked and timed against:
// trial division by the table primes up to the truncated square root, and a
// deterministic strong probable-prime test to the bases 2, 7 and 61 with the
// modular product taken as a 64-bit remainder. Deliberately straightforward:
// no screening, no Montgomery arithmetic.
#ifndef QELMATH_TESTS_PRIME_REFERENCE_H
#define QELMATH_TESTS_PRIME_REFERENCE_H

#include <cmath>
#include <cstdint>

#include "numbers/tables.h"

namespace reference {

inline int trial_division_is_prime(std::uint32_t n)
{
    if (n < 2) return 0;
    if (n < 65535) {
        int lo = 0;
        int hi = qel::kPrimeCount - 1;
        while (lo <= hi) {
            int mid = (lo + hi) / 2;
            if (n < qel::kPrimes[mid])
                hi = mid - 1;
            else if (n > qel::kPrimes[mid])
                lo = mid + 1;
            else
                return 1;
        }
        return 0;
    }
    std::uint32_t r = static_cast<std::uint32_t>(std::sqrt(static_cast<double>(n)));
    for (int i = 0; i < qel::kPrimeCount; ++i) {
        std::uint32_t p = qel::kPrimes[i];
        if (p > r) return 1;
        if (n % p == 0) return 0;
    }
    return 1;
}

inline std::uint32_t mulmod(std::uint32_t a, std::uint32_t b, std::uint32_t n)
{
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(a) * b % n);
}

inline std::uint32_t powmod(std::uint32_t a, std::uint32_t e, std::uint32_t n)
{
    std::uint32_t result = 1 % n;
    std::uint32_t base = a % n;
    while (e != 0) {
        if (e & 1u) result = mulmod(result, base, n);
        base = mulmod(base, base, n);
        e >>= 1;
    }
    return result;
}

inline int miller_rabin_is_prime(std::uint32_t n)
{
    if (n < 2) return 0;
    if (n == 2 || n == 7 || n == 61) return 1;
    if (n % 2 == 0) return 0;
    std::uint32_t d = n - 1;
    int s = 0;
    while (d % 2 == 0) {
        d /= 2;
        ++s;
    }
    const std::uint32_t bases[3] = {2, 7, 61};
    for (std::uint32_t a : bases) {
        if (a % n == 0) continue;
        std::uint32_t x = powmod(a, d, n);
        if (x == 1 || x == n - 1) continue;
        bool witness = true;
        for (int j = 1; j < s; ++j) {
            x = mulmod(x, x, n);
            if (x == n - 1) {
                witness = false;
                break;
            }
        }
        if (witness) return 0;
    }
    return 1;
}

}  // namespace reference

#endif
