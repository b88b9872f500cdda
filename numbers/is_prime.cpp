// num_IsPrime: primality of an unsigned 32-bit number.
//
// Below 65535 the answer is a binary search of the prime table (at most 13
// probes). From 65535 on, the number is screened by the odd primes below 256
// and then put to a strong probable-prime test to the bases 2, 7 and 61,
// which no composite below 4,759,123,141 passes, so the answer is exact for
// every 32-bit n and equals that of trial division by the table primes up to
// sqrt(n), at a small fraction of its cost.
//
// The modular arithmetic is Montgomery's, with R = 2^32: a product of two
// residues is one 32x32->64-bit multiplication and the reduction two more,
// with no division, and nothing wider than 64 bits, so it is the same on
// 32-bit and 64-bit targets. One 64-bit remainder per call forms R^2 mod n.
#include <array>
#include <cstdint>

#include "QELMath.h"
#include "numbers/tables.h"

namespace {

using u32 = std::uint32_t;
using u64 = std::uint64_t;

// p^-1 mod 2^32 for odd p by Newton's iteration: p * p = 1 mod 8 gives three
// correct bits, and each step doubles them (3, 6, 12, 24, 48).
constexpr u32 inverse_mod_2_32(u32 p)
{
    u32 x = p;
    for (int i = 0; i < 4; ++i) x *= 2u - p * x;
    return x;
}

// Divisibility without division: p divides n exactly when n * p^-1 mod 2^32
// lands among the multiples' images 0 .. floor((2^32 - 1) / p).
struct Screen {
    u32 inverse;
    u32 limit;
};

constexpr int kScreenCount = 53;   // the odd primes 3 .. 251

constexpr std::array<Screen, kScreenCount> make_screens()
{
    std::array<Screen, kScreenCount> screens{};
    int count = 0;
    for (u32 c = 3; count < kScreenCount; c += 2) {
        bool prime = true;
        for (u32 d = 3; d * d <= c; d += 2) {
            if (c % d == 0) {
                prime = false;
                break;
            }
        }
        if (prime) screens[count++] = Screen{inverse_mod_2_32(c), 0xFFFFFFFFu / c};
    }
    return screens;
}

constexpr std::array<Screen, kScreenCount> kScreens = make_screens();

// Residues modulo an odd n > 2 in Montgomery form x * 2^32 mod n.
struct Montgomery {
    u32 n;
    u32 n_inverse;   // n^-1 mod 2^32

    // t * 2^-32 mod n for t < n * 2^32. m is chosen so that t and m * n agree
    // in their low words; the difference of the high words is then the
    // exact quotient (t - m n) / 2^32, which lies in (-n, n).
    u32 reduce(u64 t) const
    {
        u32 m = static_cast<u32>(t) * n_inverse;
        u32 t_high = static_cast<u32>(t >> 32);
        u32 mn_high = static_cast<u32>((static_cast<u64>(m) * n) >> 32);
        u32 r = t_high - mn_high;
        return t_high < mn_high ? r + n : r;
    }

    u32 mul(u32 a, u32 b) const { return reduce(static_cast<u64>(a) * b); }
};

// Strong probable-prime test of odd n to base a (a < n): with n - 1 = d 2^s,
// d odd, n passes when a^d = 1 or a^(d 2^j) = -1 for some j < s.
bool strong_probable_prime(const Montgomery& mg, u32 one, u32 r2, u32 d, int s, u32 a)
{
    u32 minus_one = mg.n - one;
    u32 base = mg.mul(a, r2);   // a * 2^32 mod n

    // a^d, right to left: the squarings form one chain of dependent products
    // and the multiplications into the result another, so the two overlap;
    // the result takes each product through a mask rather than a branch on
    // the bits of d, which would be mispredicted half the time.
    u32 x = one;
    u32 power = base;
    for (u32 e = d; e != 0; e >>= 1) {
        u32 product = mg.mul(x, power);
        u32 take = 0u - (e & 1u);
        x = (product & take) | (x & ~take);
        power = mg.mul(power, power);
    }

    if (x == one || x == minus_one) return true;
    for (int j = 1; j < s; ++j) {
        x = mg.mul(x, x);
        if (x == minus_one) return true;
    }
    return false;
}

int table_search(u32 n)
{
    int lo = 0;
    int hi = qel::kPrimeCount - 1;
    while (lo <= hi) {
        int mid = (lo + hi) / 2;
        u32 p = qel::kPrimes[mid];
        if (n < p)
            hi = mid - 1;
        else if (n > p)
            lo = mid + 1;
        else
            return 1;
    }
    return 0;
}

}  // namespace

QELMATH_API int num_IsPrime(std::uint32_t n)
{
    if (n < 2) return 0;
    if (n < 65535) return table_search(n);

    // n >= 65535 exceeds every screening prime, so a divisor means composite.
    if ((n & 1u) == 0) return 0;
    for (const Screen& s : kScreens) {
        if (n * s.inverse <= s.limit) return 0;
    }

    u32 d = n - 1;
    int s = 0;
    while ((d & 1u) == 0) {
        d >>= 1;
        ++s;
    }

    Montgomery mg{n, inverse_mod_2_32(n)};
    u32 one = (0u - n) % n;                                       // 2^32 mod n
    u32 r2 = static_cast<u32>(static_cast<u64>(one) * one % n);  // 2^64 mod n
    if (!strong_probable_prime(mg, one, r2, d, s, 2)) return 0;
    if (!strong_probable_prime(mg, one, r2, d, s, 7)) return 0;
    if (!strong_probable_prime(mg, one, r2, d, s, 61)) return 0;
    return 1;
}
