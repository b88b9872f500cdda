// atan2, correctly rounded to nearest for every pair of doubles.
//
// Method: with a = |y| and b = |x|, the angle is t = atan(a/b) when a <= b,
// else pi/2 - atan(b/a); pi - t mirrors it for x < 0; y's sign is applied
// last. Both operands are scaled by one power of two into [2^-600, 2^500]
// (exact: the ratio is at least 2^-57 there) and handed as a pair to the
// double-double kernel (atan_kernel.h), so the ratio is never rounded. Every
// combination adds a double-double constant to a value no larger than the
// result, so err = (2^-68 + 2^-100)(1 + 2^-20) |result| bounds it. When the
// rounding test fails the fixed-point slow path decides (atan_slow.cpp).
//
// Extreme ratios are decided exactly:
// - x > 0 and q = a/b < 2^-54: atan q = q - q^3/3 + ... lies below q by less
//   than 2^-109 q, closer than any double or midpoint can be to the rational
//   q unless it equals it (a - m b is a multiple of 2^-105 a or more, so the
//   distance is at least 2^-107 q), so the result is q rounded to
//   nearest with ties toward zero: binary long division of the significands
//   gives the quotient, its rounding bit and its sticky bit, subnormal
//   results included.
// - x < 0 and a/b < 2^-54: pi - q rounds to pi's double (pi exceeds it by
//   2^-52.9, half a spacing is 2^-52); a > 2^62 b: pi/2 -+ q rounds to pi/2's
//   double likewise.
//
// Special cases (C99): atan2(+-0, x) = +-0 for x > 0 or x = +0, +-pi for
// x < 0 or x = -0; atan2(y, +-0) = +-pi/2 for y != 0; atan2(+-inf, +inf) =
// +-pi/4, atan2(+-inf, -inf) = +-3pi/4, atan2(+-inf, finite) = +-pi/2;
// atan2(y, +inf) = +-0 and atan2(y, -inf) = +-pi for finite y; NaN in, NaN
// out.
#include "foundation/elementary.h"
#include "foundation/atan_kernel.h"
#include "foundation/elementary_internal.h"

namespace qel {

namespace {

constexpr double kPio4 = 0x1.921fb54442d18p-1;
constexpr double k3Pio4 = 0x1.2d97c7f3321d2p+1;

// Binary exponent of a finite nonzero double (floor of log2 |x|).
int exponent_of(double x)
{
    std::uint64_t u = dd::bits_of(x) & 0x7FFFFFFFFFFFFFFFull;
    int e = static_cast<int>(u >> 52);
    if (e != 0) return e - 1023;
    std::uint64_t m = u;  // subnormal: find the leading bit
    int lead = 51;
    while (((m >> lead) & 1u) == 0) --lead;
    return lead - 1074;
}

// Integer significand normalised to 53 bits and its exponent: x = m * 2^s.
void significand(double x, std::uint64_t& m, int& s)
{
    std::uint64_t u = dd::bits_of(x) & 0x7FFFFFFFFFFFFFFFull;
    int e = static_cast<int>(u >> 52);
    m = u & 0x000FFFFFFFFFFFFFull;
    if (e != 0) {
        m |= 0x0010000000000000ull;
        s = e - 1075;
        return;
    }
    s = -1074;
    while ((m >> 52) == 0) {
        m <<= 1;
        --s;
    }
}

// a / b rounded to nearest with ties toward zero, for positive finite a, b
// with a / b < 2^-54.
double ratio_ties_toward_zero(double a, double b)
{
    std::uint64_t ma, mb;
    int sa, sb;
    significand(a, ma, sa);
    significand(b, mb, sb);
    int e = sa - sb - (ma < mb ? 1 : 0);        // floor(log2(a / b))
    int g = e >= -1022 ? e - 53 : -1075;        // log2 of half the spacing
    int shift = sa - sb - g;                    // quotient = ma 2^shift / mb
    // Long division of ma * 2^shift by mb; shift <= 54.
    std::uint64_t top = ma;
    bool sticky = false;
    int extra = shift;
    if (shift < 0) {
        if (shift <= -60) return 0.0 * a;      // below a quarter of 2^-1074
        std::uint64_t dropped = ma & ((std::uint64_t{1} << (-shift)) - 1);
        sticky = dropped != 0;
        top = ma >> (-shift);
        extra = 0;
    }
    std::uint64_t q = 0, rem = 0;
    for (int i = 0; i < 64 + extra; ++i) {
        unsigned bit = i < 64 ? static_cast<unsigned>((top >> (63 - i)) & 1u) : 0u;
        rem = (rem << 1) | bit;
        q <<= 1;
        if (rem >= mb) {
            rem -= mb;
            q |= 1u;
        }
    }
    sticky = sticky || rem != 0;
    std::uint64_t n = q >> 1;
    if ((q & 1u) && sticky) ++n;  // above the midpoint: up; at it: down
    // n * 2^(g + 1), through n * 2^-52 (exact) and an exact power of two.
    double v = static_cast<double>(n) * 0x1p-52;
    int scale = g + 1 + 52;
    return scale >= -1022 ? v * dd::pow2(scale) : (v * 0x1p-1022) * dd::pow2(scale + 1022);
}

}  // namespace

bool atan2_fast(double y, double x, double* out)
{
    double a = dd::abs(y), b = dd::abs(x);
    bool swap = a > b;
    double num = swap ? b : a, den = swap ? a : b;
    // One power of two for both (exact, both stay normal).
    if (den > 0x1p500) {
        num *= 0x1p-600;
        den *= 0x1p-600;
    } else if (den < 0x1p-500) {
        num *= 0x1p600;
        den *= 0x1p600;
    }
    dd::DD t = atan_kernel(num, den, num / den);
    dd::DD r;
    if (!swap)
        r = x > 0 ? t : dd::add(kPiDD, dd::DD{-t.hi, -t.lo});
    else
        r = dd::add(kPio2DD, x > 0 ? dd::DD{-t.hi, -t.lo} : t);
    double err = dd::abs(r.hi) * ((kAtanKernelError + 0x1p-100) * (1.0 + 0x1p-20));
    if (!dd::rounds_to_hi(r.hi, r.lo, err)) return false;
    *out = y < 0 ? -r.hi : r.hi;
    return true;
}

double atan2(double y, double x)
{
    if (y != y || x != x) return y + x;
    double a = dd::abs(y), b = dd::abs(x);
    bool x_negative = (dd::bits_of(x) >> 63) != 0;
    if (y == 0.0) return x_negative ? dd::copy_sign(kPiDD.hi, y) : y;
    if (x == 0.0) return dd::copy_sign(kPio2DD.hi, y);
    constexpr double kMax = 0x1.fffffffffffffp+1023;
    if (a > kMax) {
        if (b > kMax) return dd::copy_sign(x_negative ? k3Pio4 : kPio4, y);
        return dd::copy_sign(kPio2DD.hi, y);
    }
    if (b > kMax) return x_negative ? dd::copy_sign(kPiDD.hi, y) : dd::copy_sign(0.0, y);

    int d = exponent_of(y) - exponent_of(x);  // a/b lies in (2^(d-1), 2^(d+1))
    if (d < -55) {
        if (x_negative) return dd::copy_sign(kPiDD.hi, y);
        return dd::copy_sign(ratio_ties_toward_zero(a, b), y);
    }
    if (d > 63) return dd::copy_sign(kPio2DD.hi, y);
    double r;
    if (atan2_fast(y, x, &r)) return r;
    return atan2_slow(y, x);
}

}  // namespace qel
