// Fixed-point arithmetic of the elementary functions' slow paths.
//
// Two's complement over 32-bit words with carries through 64-bit sums;
// multiplication works on magnitudes (schoolbook, 8 x 8 words) and restores
// the sign. Conversion to double extracts 53 bits, a rounding bit and a sticky
// bit and rounds to nearest, ties to even, then scales by an exact power of
// two. Nothing here uses floating-point arithmetic except the final scaling
// and the exact decomposition of doubles.
#include "foundation/fixed_point.h"

#include "foundation/double_double.h"

namespace qel {
namespace fx {

namespace {

// Significand m (53 bits, integer) and exponent s with x = m * 2^s, for a
// finite nonzero x.
void decompose(double x, std::uint64_t& m, int& s)
{
    std::uint64_t u = dd::bits_of(x) & 0x7FFFFFFFFFFFFFFFull;
    int e = static_cast<int>(u >> 52);
    m = u & 0x000FFFFFFFFFFFFFull;
    if (e == 0) {
        s = -1074;
    } else {
        m |= 0x0010000000000000ull;
        s = e - 1075;
    }
}

}  // namespace

Fixed from_words(const std::uint32_t (&words)[kWords])
{
    Fixed r;
    for (int i = 0; i < kWords; ++i) r.w[i] = words[i];
    return r;
}

Fixed from_int(std::int32_t v)
{
    Fixed r{};
    r.w[0] = static_cast<std::uint32_t>(v);
    return r;
}

bool is_negative(const Fixed& a) { return (a.w[0] & 0x80000000u) != 0; }

bool is_zero(const Fixed& a)
{
    std::uint32_t any = 0;
    for (int i = 0; i < kWords; ++i) any |= a.w[i];
    return any == 0;
}

Fixed neg(const Fixed& a)
{
    Fixed r;
    std::uint64_t carry = 1;
    for (int i = kWords - 1; i >= 0; --i) {
        std::uint64_t t = static_cast<std::uint64_t>(~a.w[i]) + carry;
        r.w[i] = static_cast<std::uint32_t>(t);
        carry = t >> 32;
    }
    return r;
}

Fixed add(const Fixed& a, const Fixed& b)
{
    Fixed r;
    std::uint64_t carry = 0;
    for (int i = kWords - 1; i >= 0; --i) {
        std::uint64_t t = static_cast<std::uint64_t>(a.w[i]) + b.w[i] + carry;
        r.w[i] = static_cast<std::uint32_t>(t);
        carry = t >> 32;
    }
    return r;
}

Fixed sub(const Fixed& a, const Fixed& b) { return add(a, neg(b)); }

Fixed mul(const Fixed& a, const Fixed& b)
{
    bool negative = is_negative(a) != is_negative(b);
    Fixed x = is_negative(a) ? neg(a) : a;
    Fixed y = is_negative(b) ? neg(b) : b;
    // Product of the two 256-bit magnitudes, 16 words, most significant
    // first; the value's scale is 2^-448, so words 1..8 are the result.
    // Partial products that land wholly below word 9 (i + j >= 9) are left
    // out: together with their carries they are worth less than 8 units of
    // word 8, so the result stays within 2^-221 of the exact product.
    std::uint32_t p[2 * kWords] = {};
    for (int i = kWords - 1; i >= 0; --i) {
        std::uint64_t carry = 0;
        int j_last = 8 - i < kWords - 1 ? 8 - i : kWords - 1;
        for (int j = j_last; j >= 0; --j) {
            std::uint64_t t = static_cast<std::uint64_t>(x.w[i]) * y.w[j] + p[i + j + 1] + carry;
            p[i + j + 1] = static_cast<std::uint32_t>(t);
            carry = t >> 32;
        }
        p[i] = static_cast<std::uint32_t>(carry);
    }
    Fixed r;
    for (int i = 0; i < kWords; ++i) r.w[i] = p[i + 1];
    return negative ? neg(r) : r;
}

Fixed div_small(const Fixed& a, std::uint32_t d)
{
    // Long division by half words: with d < 2^16 every partial dividend
    // (rem * 2^16 + half) stays below 2^32, so 32-bit divisions suffice.
    bool negative = is_negative(a);
    Fixed x = negative ? neg(a) : a;
    Fixed r;
    std::uint32_t rem = 0;
    for (int i = 0; i < kWords; ++i) {
        std::uint32_t hi = (rem << 16) | (x.w[i] >> 16);
        std::uint32_t qh = hi / d;
        rem = hi - qh * d;
        std::uint32_t lo = (rem << 16) | (x.w[i] & 0xFFFFu);
        std::uint32_t ql = lo / d;
        rem = lo - ql * d;
        r.w[i] = (qh << 16) | ql;
    }
    return negative ? neg(r) : r;
}

Fixed from_double(double x)
{
    Fixed r{};
    if (x == 0.0) return r;
    std::uint64_t m;
    int s;
    decompose(x, m, s);
    // m * 2^s: the bit of weight 2^p has index kFracBits + p from the bottom.
    int low = kFracBits + s;  // index of m's bit 0
    if (low < 0) {            // bits below 2^-224 are dropped
        if (low <= -64) return r;
        m >>= -low;
        low = 0;
    }
    // Spread m over the (at most three) words it touches.
    int word = kWords - 1 - low / 32, shift = low % 32;
    std::uint64_t lo_part = m << shift;                          // bits 0..63 above the word's bottom
    std::uint32_t top_part = shift ? static_cast<std::uint32_t>(m >> (64 - shift)) : 0u;
    r.w[word] = static_cast<std::uint32_t>(lo_part);
    if (word - 1 >= 0) r.w[word - 1] = static_cast<std::uint32_t>(lo_part >> 32);
    if (word - 2 >= 0) r.w[word - 2] = top_part;
    return x < 0 ? neg(r) : r;
}

double to_double(const Fixed& a)
{
    bool negative = is_negative(a);
    Fixed x = negative ? neg(a) : a;
    int i = 0;
    while (i < kWords && x.w[i] == 0) ++i;
    if (i == kWords) return 0.0;
    // A 96-bit window from the leading nonzero word, normalised so that the
    // leading one sits at bit 63 of hi.
    std::uint64_t hi = static_cast<std::uint64_t>(x.w[i]) << 32;
    if (i + 1 < kWords) hi |= x.w[i + 1];
    std::uint32_t next = i + 2 < kWords ? x.w[i + 2] : 0u;
    int lead = 31 - 32 * i;  // weight exponent of bit 63 of hi
    while ((hi >> 63) == 0) {
        hi = (hi << 1) | (next >> 31);
        next <<= 1;
        --lead;
    }
    std::uint64_t m = hi >> 11;
    unsigned round = static_cast<unsigned>((hi >> 10) & 1u);
    bool sticky = (hi & 0x3FFu) != 0 || next != 0;
    for (int j = i + 3; j < kWords && !sticky; ++j) sticky = x.w[j] != 0;
    if (round && (sticky || (m & 1u))) ++m;  // m may become 2^53: still exact
    // value = m * 2^(lead - 52)
    double v = static_cast<double>(m) * dd::pow2(lead - 52);
    return negative ? -v : v;
}

Fixed ratio(double num, double den)
{
    std::uint64_t mn, md;
    int sn, sd;
    decompose(num, mn, sn);
    decompose(den, md, sd);
    // Quotient * 2^224 = floor(mn * 2^sh / md) with sh = sn - sd + 224; the
    // floor of a floor divided by an integer is the floor of the quotient.
    int sh = sn - sd + kFracBits;
    Fixed r{};
    if (sh < -64) return r;
    std::uint64_t dividend_top = mn;
    int extra = sh;  // zero bits appended below mn
    if (sh < 0) {
        dividend_top = mn >> (-sh);
        extra = 0;
    }
    // Long division over the bits of dividend_top followed by extra zeros,
    // eleven bits a step: the remainder stays below md < 2^53, so rem * 2^11
    // fits in 64 bits and each step's quotient digit is below 2^11.
    std::uint64_t rem = 0;
    int nbits = 64 + extra;
    for (int i = 0; i < nbits;) {
        int k = nbits - i < 11 ? nbits - i : 11;
        std::uint64_t chunk = 0;
        if (i < 64) {
            int avail = 64 - i < k ? 64 - i : k;  // bits still taken from dividend_top
            chunk = (dividend_top << i) >> (64 - avail);
            chunk <<= (k - avail);
        }
        rem = (rem << k) | chunk;
        std::uint64_t digit = rem / md;
        rem -= digit * md;
        // Shift the quotient left by k bits and append the digit.
        std::uint32_t carry = static_cast<std::uint32_t>(digit);
        for (int w = kWords - 1; w >= 0; --w) {
            std::uint32_t next = static_cast<std::uint32_t>(r.w[w] >> (32 - k));
            r.w[w] = (r.w[w] << k) | carry;
            carry = next;
        }
        i += k;
    }
    return r;
}

}  // namespace fx
}  // namespace qel
