// Double-double kernel of sine and cosine on |r| <= pi/4.
//
// Method: with a = i/256 the nearest table point to |r| and t = |r| - a
// (|t| <= 2^-9, exact as the unevaluated sum th + tl),
//   sin r = sin a + (cos a * S + sin a * C)
//   cos r = cos a + (-sin a * S + cos a * C)
// where S = sin t and C = cos t - 1 come from their Taylor series:
//   S = t + t^3 (-1/6 + t^2/120 - t^4/5040)   (next term below 2^-90 |t|)
//   C = t^2 (-1/2 + t^2/24 - t^4/720)          (next below 2^-87)
// and sin a, cos a are tabulated to 106 bits.
//
// Error bound of sin r (relative to the result y): the cubic part of S has
// magnitude at most t^2/6 <= 2^-18.6 of |t| and is computed from t rounded
// once, with about six more roundings (relative 2^-50 together): 2^-68.6 of |t|,
// and |t| is at most |y| (i = 0: y ~ t; i >= 1: |r| >= 2^-9 so
// |y| >= 2^-9.1 while |t| <= 2^-9), so 2^-68.4 |y|. C (at most 2^-19) is
// off by 2^-51 of itself (t rounded once, and the polynomial), so
// sin a * C adds 2^-69 |y| (sin a <= 2 |y|); cos a * th is exact and added
// to sin a exactly; the remaining tail (at most 2^-19 |y| + 2^-52 |y|) is
// summed with relative error 2^-51: 2^-70 |y|; the tables add 2^-105, the
// truncated series 2^-87. The product Q * th is taken as the exact
// q_hh * th_hi plus q_hh * th_lo + q_hl * th (Q = q_hh + q_hl split in the
// table): |q_hl| <= 2^-26 |Q| and the two roundings of that correction cost
// 2^-77 |Q th| <= 2^-77 |y|. Total below 2^-67.3 |y|: kSinKernelError =
// 2^-67.
//
// Error bound of cos r (y >= 0.7): C's error (2^-70) times cos a, the
// rounding of the tail sum (at most 2^-19 in magnitude: 2^-70), the absolute
// error of S (2^-79.6) times sin a, the rounded correction of the product
// -sin a * th (2^-77 * 2^-9) and the truncated series (2^-87) give less than
// 2^-68.6 |y|: kCosKernelError = 2^-68.
//
// The tests measure both against MPFR.
#ifndef QELMATH_FOUNDATION_SIN_COS_KERNEL_H
#define QELMATH_FOUNDATION_SIN_COS_KERNEL_H

#include "foundation/elementary_internal.h"

namespace qel {

inline dd::DD sin_cos_kernel(double rh, double rl, int which)
{
    constexpr double kS3 = -0x1.5555555555555p-3;   // -1/6
    constexpr double kS5 = 0x1.1111111111111p-7;    // 1/120
    constexpr double kS7 = -0x1.a01a01a01a01ap-13;  // -1/5040
    constexpr double kC4 = 0x1.5555555555555p-5;    // 1/24
    constexpr double kC6 = -0x1.6c16c16c16c17p-10;  // -1/720

    // Work on |r|; sin is odd, cos even. Sign flips are exact bit operations
    // rather than branches: the quadrants come in random order.
    std::uint64_t r_sign = dd::bits_of(rh) & 0x8000000000000000ull;
    rh = dd::from_bits(dd::bits_of(rh) ^ r_sign);
    rl = dd::from_bits(dd::bits_of(rl) ^ r_sign);
    // a = i/256 nearest to rh, by the rounding of an addition (i < 2^12, read
    // from the low bits), which keeps int conversions off the critical path.
    double shifted = rh * 256.0 + 0x1.8p52;
    int i = static_cast<int>(dd::bits_of(shifted) & 0xFFFu);
    const double* row = kSinCosTable[i];
    // t = th + tl exactly: rh - a is exact (Sterbenz, or a == 0); tl = rl.
    // The polynomials take t rounded once (relative error 2^-53).
    double th = rh - (shifted - 0x1.8p52) * 0x1p-8, tl = rl;
    double t = th + tl;
    double th_hi, th_lo;
    dd::split(th, th_hi, th_lo);

    double t2 = t * t;
    double t4 = t2 * t2;
    double sin_tail = tl + t * (t2 * ((kS3 + t2 * kS5) + t4 * kS7));  // S = th + sin_tail
    double cv = t2 * ((-0.5 + t2 * kC4) + t4 * kC6);                    // C

    // y = P + Q * S + P * C with (P, Q) = (sin a, cos a) for sin r and
    // (cos a, -sin a) for cos r; Q * th is exact.
    std::uint64_t q_sign = static_cast<std::uint64_t>(which) << 63;
    double p_h = row[2 * which], p_l = row[2 * which + 1];
    double q_h = dd::from_bits(dd::bits_of(row[2 - 2 * which]) ^ q_sign);
    double q_l = dd::from_bits(dd::bits_of(row[3 - 2 * which]) ^ q_sign);
    double q_hh = dd::from_bits(dd::bits_of(row[6 - 2 * which]) ^ q_sign);
    double q_hl = dd::from_bits(dd::bits_of(row[7 - 2 * which]) ^ q_sign);
    // Q * th = m + me: m = q_hh * th_hi is exact (26 bits by 26 bits), and so
    // is q_hh * th_lo (26 by 27); only q_hl * th, at most 2^-26 of the
    // product, is rounded. P + m is exact through fast_two_sum, as |m| <=
    // 2^-9 (1 + 2^-25) lies below |P| >= sin(2^-8), or P == 0 (i = 0).
    double m = q_hh * th_hi;
    double me = q_hh * th_lo + q_hl * th;
    double y, ye;
    dd::fast_two_sum(p_h, m, y, ye);
    double lo = ye + (p_l + ((me + (p_h + p_l) * cv) + (q_h * sin_tail + q_l * th)));
    dd::DD out;
    dd::fast_two_sum(y, lo, out.hi, out.lo);
    std::uint64_t out_sign = which == 0 ? r_sign : 0u;
    out.hi = dd::from_bits(dd::bits_of(out.hi) ^ out_sign);
    out.lo = dd::from_bits(dd::bits_of(out.lo) ^ out_sign);
    return out;
}

}  // namespace qel

#endif
