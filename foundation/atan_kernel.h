// Double-double kernel of the arc tangent on [0, 1], and of its complement.
//
// Method: for z = a/b in [0, 1] and c = j/256 the nearest table point to z,
//   atan z = atan c + atan u,   u = (a - c b) / (b + c a),   |u| <= 2^-9,
// and atan u = u + u^3 (-1/3 + u^2/5 - u^4/7 + u^6/9), whose next term is
// below 2^-93 |u|. Working on a and b directly spares the division a/b in
// double-double (atan2 hands its arguments, atan hands (x, 1) or (1, x)).
// The numerator is exact up to one rounding of its tail (2^-105 |a|, below
// 2^-104 of the result), the denominator likewise, and the quotient is a
// double-double through the exact remainder (relative error below 2^-101).
//
// Error bound (relative to the result y): the cubic part has magnitude at
// most u^2/3 <= 2^-19.6 of |u| and is computed from u rounded once (2^-53),
// u^2 (2^-52), the series' coefficients and Horner steps and two products
// (relative 2^-49.9 together): 2^-69.5 |u|; |u| <= |y| (for j = 0, u = z
// and y >= 0.9999 z; for j >= 1, y >= atan(2^-9) > 2^-9.01 while
// |u| <= 2^-9). The quotient and its operands add 2^-100 |y|, the table
// 2^-106 |y|, the final sums 2^-104 |y|. Total below 2^-69.4 |y|;
// kAtanKernelError = 2^-68 keeps a margin of more than two, and the tests
// measure the kernel against MPFR (2^-69.8 at worst over two million
// arguments).
//
// The complement pi/2 - atan z (kComplement, for arguments above 1) is
// (pi/2 - atan c) - atan u with the tabulated pi/2 - atan c: the same
// absolute errors, now against a result of at least pi/4 >= atan z, so the
// same relative bound holds.
#ifndef QELMATH_FOUNDATION_ATAN_KERNEL_H
#define QELMATH_FOUNDATION_ATAN_KERNEL_H

#include "foundation/elementary_internal.h"

namespace qel {

template <bool kComplement = false>
inline dd::DD atan_kernel(double a, double b, double z)
{
    constexpr double kA3 = -0x1.5555555555555p-2;  // -1/3
    constexpr double kA5 = 0x1.999999999999ap-3;   // 1/5
    constexpr double kA7 = -0x1.2492492492492p-3;  // -1/7
    constexpr double kA9 = 0x1.c71c71c71c71cp-4;   // 1/9

    double shifted = z * 256.0 + 0x1.8p52;  // rounds to the nearest j
    int j = static_cast<int>(dd::bits_of(shifted) & 0x1FFu);
    double c = (shifted - 0x1.8p52) * 0x1p-8;
    double uh, ul;
    if (j == 0) {
        // u = a / b itself (atan of small ratios, of large arguments).
        double inv = 1.0 / b;
        uh = a * inv;
        double m, me;
        dd::two_prod(uh, b, m, me);
        ul = ((a - m) - me) * inv;  // a - m is exact
    } else {
        // u = (a - c b) / (b + c a), numerator and denominator as
        // double-doubles (c has 8 bits: c b and c a split exactly by
        // two_prod_short).
        double p, pe;
        dd::two_prod_short(c, b, p, pe);
        double nh, ne;
        dd::two_sum(a, -p, nh, ne);
        double nl = ne - pe;
        double q, qe;
        dd::two_prod_short(c, a, q, qe);
        double dh, de;
        dd::fast_two_sum(b, q, dh, de);  // b >= c a
        double dl = de + qe;
        double inv = 1.0 / dh;
        uh = nh * inv;
        double m, me;
        dd::two_prod(uh, dh, m, me);
        ul = ((((nh - m) - me) + nl) - uh * dl) * inv;  // nh - m is exact
    }

    // The series takes u rounded once (uh alone may be 2^-51 off: it is a
    // product with a rounded reciprocal).
    double u = uh + ul;
    double u2 = u * u;
    double u4 = u2 * u2;
    double tail = ul + u * (u2 * ((kA3 + u2 * kA5) + u4 * (kA7 + u2 * kA9)));
    dd::DD y;
    double s, e;
    const double* row = kAtanTable[j];
    if (kComplement) {
        // (pi/2 - atan c) - uh exactly by fast_two_sum, as pi/2 - atan c >=
        // pi/4 exceeds |uh|.
        dd::fast_two_sum(row[2], -uh, s, e);
        dd::fast_two_sum(s, e + (row[3] - tail), y.hi, y.lo);
    } else {
        // atan c + uh exactly by fast_two_sum: |uh| <= 2^-9 + 2^-20 (z is
        // within 2^-20 of a/b) lies below atan c >= atan(2^-8) for j >= 1,
        // and atan c is 0 for j = 0.
        dd::fast_two_sum(row[0], uh, s, e);
        dd::fast_two_sum(s, e + (row[1] + tail), y.hi, y.lo);
    }
    return y;
}

}  // namespace qel

#endif
