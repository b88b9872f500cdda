// num_PermutationDword, num_PermutationQword, num_PermutationDouble: the
// falling product n (n-1) ... (n-m+1) of m factors.
//
// Each factor n - i is a signed 32-bit value: below -2^31 it wraps to the
// top of the range, as 32-bit arithmetic would give it. The 32-bit form
// multiplies modulo 2^32, the 64-bit form modulo 2^64 with the factor
// sign-extended, the double form in doubles rounded at every step with the
// factor converted exactly. m = 0 gives the empty product 1, m < 0 gives 0;
// m > n >= 0 meets the factor 0 (the double form then keeps the sign of the
// factors that follow: (3, 5) gives -0.0). There is no overflow check.
//
// All arithmetic on the factors is carried in 64-bit signed or unsigned
// integers, so nothing overflows a signed type. The loops stop as soon as
// the rest of the product is known, which bounds them near a thousand steps
// whatever m is:
//  - the integer products reach 0 and stay there: consecutive factors hold at
//    least one factor of 2 in every two (the wrap leaves their low 32 bits
//    consecutive), so 64 factors clear 32 bits and 128 clear 64;
//  - the double product grows by at least 2 per factor apart from the
//    factors 1 and -1 until it is 0 or infinite; after that only the count
//    of negative factors still to come (its sign) and whether the factor 0
//    is among them (infinity times 0 is NaN) can change it.
#include <cmath>
#include <cstdint>

#include "QELMath.h"

namespace {

using i64 = std::int64_t;
using u64 = std::uint64_t;

constexpr i64 kInt32Min = -2147483647 - 1;
constexpr i64 kTwo32 = 4294967296;

// The signed 32-bit value of n - i for an exact difference t = n - i, which
// lies in [-2^32 + 2, 2^31 - 1].
inline i64 factor32(i64 t)
{
    return t < kInt32Min ? t + kTwo32 : t;
}

// The rest of a double product p that is 0 or infinite, times the factors
// with exact values t_high down to t_low.
double finish(double p, i64 t_high, i64 t_low)
{
    if (t_high < t_low) return p;
    bool meets_zero = t_low <= 0 && 0 <= t_high;
    if (meets_zero && std::isinf(p)) return p * 0.0;
    // Exact values below -2^31 wrap to positive factors; the negative ones
    // are those in [-2^31, -1].
    i64 lo = t_low < kInt32Min ? kInt32Min : t_low;
    i64 hi = t_high < -1 ? t_high : -1;
    i64 negatives = hi >= lo ? hi - lo + 1 : 0;
    return (negatives & 1) ? -p : p;
}

}  // namespace

QELMATH_API std::uint32_t num_PermutationDword(int n, int m)
{
    if (m < 0) return 0;
    std::uint32_t p = 1;
    i64 t = n;
    for (int i = 0; i < m && p != 0; ++i, --t)
        p *= static_cast<std::uint32_t>(static_cast<u64>(factor32(t)));
    return p;
}

QELMATH_API std::uint64_t num_PermutationQword(int n, int m)
{
    if (m < 0) return 0;
    u64 p = 1;
    i64 t = n;
    for (int i = 0; i < m && p != 0; ++i, --t)
        p *= static_cast<u64>(factor32(t));
    return p;
}

QELMATH_API double num_PermutationDouble(int n, int m)
{
    if (m < 0) return 0.0;
    double p = 1.0;
    i64 t = n;
    const i64 t_last = static_cast<i64>(n) - m + 1;
    for (int i = 0; i < m; ++i, --t) {
        p = p * static_cast<double>(factor32(t));
        if (p == 0.0 || std::isinf(p)) return finish(p, t - 1, t_last);
    }
    return p;
}
