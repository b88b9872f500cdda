// Argument reduction by pi/2.
//
// Cody-Waite (|x| < 1647099): k = nearest integer to x * 2/pi, then
//   r = x - k*P1 - k*P2 - k*P3
// with pi/2 = P1 + P2 + P3 + 1.0e-37, P1 and P2 of at most 33 bits. As
// |k| <= 2^20 the products k*P1 and k*P2 are exact, x - k*P1 is exact
// (Sterbenz: x lies within a factor 2 of k*P1 for k != 0), and the next
// subtraction is exact through two_sum. What remains: k * 1.0e-37 < 2^-102,
// the rounding of k*P3 (below 2^-101, as |k*P3| < 2^-48) and of the tail
// (2^-104 |r|). So |error| < 2^-100 + 2^-100 |r|. The result is the pair
// (s, tail) with s = x - k*P1 - k*P2 rounded: |tail| <= ulp(s)/2 + |k*P3|
// (1 + 2^-53) < 2^-53 |s| + 2^-48; it is not renormalised (see the kernel).
//
// The precise variant subtracts pi/2 in four pieces, P1..P3 of at most 33
// bits and P4 rounded (pi/2 = P1 + ... + P4 + 7.4e-49): k*P3 is exact too,
// k * 7.4e-49 < 2^-140 and the rounding of k*P4 is below 2^-136, so
// |error| < 2^-130 + 2^-100 |r|. The fast path falls back on it when a tiny
// result (an argument near a multiple of pi/2) cannot be decided with the
// 2^-100 of the short variant.
//
// Payne-Hanek (any x): write x = m * 2^s with m an integer below 2^53. Bits
// of 2/pi with weights 2^(2 - s) and up contribute only multiples of 4 to
// x * 2/pi, which drop out modulo 4; so the product of m by the window of
// 2/pi from weight 2^1 down to 2^-352 (after scaling by 2^s) gives k mod 4
// and the fraction of a quarter turn, in integer arithmetic, with error below
// m * 2^-352 < 2^-299. The smallest distance of a double to a multiple of
// pi/2 is about 2^-61 (x = 6381956970095103 * 2^797), so even then the
// fraction keeps more than 200 correct bits.
#include "foundation/reduce_pio2.h"

#include "foundation/elementary_internal.h"

namespace qel {

namespace {

constexpr double kP3Short = 0x1.3198a2ep-69;  // 29 bits
constexpr double kP4 = 0x1.b839a252049c1p-104;

// Fraction words of the window (11 words, 352 bits below the point).
constexpr int kWindowWords = 11;

inline std::uint32_t two_over_pi_word(int k)
{
    return (k >= 0 && k < kTwoOverPiWordCount) ? kTwoOverPiWords[k] : 0u;
}

// 32 bits of 2/pi starting with the bit of weight 2^-p (p may be <= 0: 2/pi
// has no bits of weight 1 or more).
std::uint32_t two_over_pi_bits(int p)
{
    int b = p - 1;
    if (b < 0) {
        if (b <= -32) return 0u;
        return two_over_pi_word(0) >> (-b);
    }
    int k = b / 32;
    int o = b % 32;
    std::uint64_t v = (static_cast<std::uint64_t>(two_over_pi_word(k)) << 32) | two_over_pi_word(k + 1);
    return static_cast<std::uint32_t>(v >> (32 - o));
}

// x * 2/pi reduced to the nearest multiple of 1: returns k mod 4 and the
// fraction f in [-1/2, 1/2] as a fixed-point number (|x| taken; the caller
// applies the sign).
int quarter_turns(double ax, fx::Fixed& f)
{
    std::uint64_t u = dd::bits_of(ax);
    int e = static_cast<int>(u >> 52);
    std::uint64_t m = u & 0x000FFFFFFFFFFFFFull;
    int s;
    if (e == 0) {
        s = -1074;
    } else {
        m |= 0x0010000000000000ull;
        s = e - 1075;
    }
    // Window A = (2/pi * 2^s) mod 4: word 0 holds weights 2^31 .. 2^0.
    std::uint32_t a[kWindowWords + 1];
    for (int i = 0; i <= kWindowWords; ++i) a[i] = two_over_pi_bits(s - 31 + 32 * i);
    a[0] &= 3u;
    // R = m * A modulo 4, m = mh * 2^32 + ml.
    std::uint32_t ml = static_cast<std::uint32_t>(m);
    std::uint32_t mh = static_cast<std::uint32_t>(m >> 32);
    std::uint32_t r[kWindowWords + 1];
    std::uint64_t carry = 0;
    for (int i = kWindowWords; i >= 0; --i) {
        std::uint64_t t = static_cast<std::uint64_t>(ml) * a[i] + carry;
        r[i] = static_cast<std::uint32_t>(t);
        carry = t >> 32;
    }
    carry = 0;
    for (int i = kWindowWords - 1; i >= 0; --i) {
        std::uint64_t t = static_cast<std::uint64_t>(mh) * a[i + 1] + r[i] + carry;
        r[i] = static_cast<std::uint32_t>(t);
        carry = t >> 32;
    }
    int k = static_cast<int>(r[0] & 3u);
    for (int i = 1; i < fx::kWords; ++i) f.w[i] = r[i];
    f.w[0] = 0;
    if (r[1] & 0x80000000u) {  // fraction >= 1/2: round k up, f = F - 1
        f.w[0] = 0xFFFFFFFFu;
        k = (k + 1) & 3;
    }
    return k;
}

}  // namespace

int reduce_pio2_cody_waite_precise(double x, dd::DD& r)
{
    double shifted = x * kCwTwoOverPi + 0x1.8p52;
    double kd = shifted - 0x1.8p52;
    double a = x - kd * kCwP1;
    double s, e;
    dd::two_sum(a, -(kd * kCwP2), s, e);
    double s2, e2;
    dd::two_sum(s, -(kd * kP3Short), s2, e2);
    double t = (e + e2) - kd * kP4;
    dd::two_sum(s2, t, r.hi, r.lo);
    return static_cast<int>(dd::bits_of(shifted) & 3u);
}

int reduce_pio2_fixed(double x, fx::Fixed& r)
{
    fx::Fixed f;
    int k = quarter_turns(dd::abs(x), f);
    r = fx::mul(f, kPio2Fixed);
    if (x < 0) {
        r = fx::neg(r);
        k = (4 - k) & 3;
    }
    return k;
}

int reduce_pio2_huge(double x, dd::DD& r)
{
    fx::Fixed f;
    int k = quarter_turns(dd::abs(x), f);
    // f to double-double by integer operations: the first 106 bits from the
    // leading one, as two 53-bit integers (exact as doubles). The bits beyond
    // are dropped: relative error below 2^-105.
    bool negative = fx::is_negative(f);
    if (negative) f = fx::neg(f);
    int i = 1;
    while (i < fx::kWords && f.w[i] == 0) ++i;  // |f| >= 2^-62: i <= 2
    std::uint64_t w0 = f.w[i], w1 = i + 1 < fx::kWords ? f.w[i + 1] : 0u;
    std::uint64_t w2 = i + 2 < fx::kWords ? f.w[i + 2] : 0u, w3 = i + 3 < fx::kWords ? f.w[i + 3] : 0u;
    std::uint64_t top = (w0 << 32) | w1, low = (w2 << 32) | w3;
    int lead = -32 * i + 31;  // weight exponent of bit 63 of top
    int lz = __builtin_clzll(top);  // top != 0: w0 is the leading nonzero word
    if (lz > 0) {
        top = (top << lz) | (low >> (64 - lz));
        low <<= lz;
        lead -= lz;
    }
    std::uint64_t m1 = top >> 11;
    std::uint64_t m2 = ((top & 0x7FFu) << 42) | (low >> 22);
    double fh = static_cast<double>(m1) * dd::pow2(lead - 52);
    double fl = static_cast<double>(m2) * dd::pow2(lead - 105);
    if (negative) {
        fh = -fh;
        fl = -fl;
    }
    r = dd::mul(dd::DD{fh, fl}, kPio2DD);
    if (x < 0) {
        r.hi = -r.hi;
        r.lo = -r.lo;
        k = (4 - k) & 3;
    }
    return k;
}

}  // namespace qel
