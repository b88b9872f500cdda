// Double-double kernel of sine and cosine on |r| <= pi/4.
//
// Method: with a = i/256 the nearest table point to |r| and t = |r| - a
// (|t| <= 2^-9, exact as a double-double),
//   sin r = sin a + (sin a * C + cos a * S)
//   cos r = cos a + (cos a * C - sin a * S)
// where S = sin t and C = cos t - 1 come from their Taylor series:
//   S = t + t^3 (-1/6 + t^2/120 - t^4/5040 + t^6/362880)   (next term below
//       2^-105 |t|)
//   C = -t^2/2 + t^4 (1/24 - t^2/720 + t^4/40320)          (next below 2^-97)
// and sin a, cos a are tabulated to 106 bits.
//
// Error bound (relative to the result y): the cubic part of S has magnitude
// at most t^2/6 <= 2^-18.6 of |t| and is computed with about six roundings
// and t^2 rounded once (relative 2^-50 together): 2^-68.6 of |t|, and |t| is
// at most |y| (i = 0, y ~ t) or at most |y| (i >= 1: |r| >= 2^-9 so
// |y| >= 2^-9.1 while |t| <= 2^-9) - so 2^-68.4 |y|. C is a double-double
// whose low part (2^-36 at most) carries 2^-89. The products sin a * C and
// cos a * S add at most 2^-71 |y| and 2^-72 |y|, the tables 2^-105, the
// final sums 2^-104. Total below 2^-67.6 |y|; kSinCosKernelError = 2^-66
// keeps a margin of three, and the tests measure the kernel against MPFR.
#include "foundation/elementary_internal.h"

namespace qel {

namespace {

constexpr double kS3 = -0x1.5555555555555p-3;  // -1/6
constexpr double kS5 = 0x1.1111111111111p-7;   // 1/120
constexpr double kS7 = -0x1.a01a01a01a01ap-13; // -1/5040
constexpr double kS9 = 0x1.71de3a556c734p-19;  // 1/362880
constexpr double kC4 = 0x1.5555555555555p-5;   // 1/24
constexpr double kC6 = -0x1.6c16c16c16c17p-10; // -1/720
constexpr double kC8 = 0x1.a01a01a01a01ap-16;  // 1/40320

}  // namespace

void sin_cos_kernel(double rh, double rl, dd::DD* s, dd::DD* c)
{
    bool negative = rh < 0;
    if (negative) {
        rh = -rh;
        rl = -rl;
    }
    int i = static_cast<int>(rh * 256.0 + 0.5);
    const double* row = kSinCosTable[i];
    // t = r - a exactly: rh - a is exact (Sterbenz, or a == 0).
    double th, tl;
    dd::two_sum(rh - i * 0x1p-8, rl, th, tl);

    // t^2 as a double-double (2 th tl carries the tail), then S and C.
    double t2, t2e;
    dd::two_prod(th, th, t2, t2e);
    t2e += 2.0 * th * tl;
    double sin_tail = tl + th * (t2 * (kS3 + t2 * (kS5 + t2 * (kS7 + t2 * kS9)))); // S = th + sin_tail
    double ch = -0.5 * t2;                                                           // exact
    double cl = -0.5 * t2e + (t2 * t2) * (kC4 + t2 * (kC6 + t2 * kC8));             // C = ch + cl

    double sa_h = row[0], sa_l = row[1], ca_h = row[2], ca_l = row[3];
    if (s) {
        // sin a + cos a * S + sin a * C
        double p, pe;
        dd::two_prod(ca_h, th, p, pe);
        double y, ye;
        dd::two_sum(sa_h, p, y, ye);
        double lo = ye + (sa_l + (pe + (ca_h * sin_tail + ca_l * th) + sa_h * (ch + cl)));
        dd::fast_two_sum(y, lo, s->hi, s->lo);
        if (negative) {
            s->hi = -s->hi;
            s->lo = -s->lo;
        }
    }
    if (c) {
        // cos a - sin a * S + cos a * C
        double p, pe;
        dd::two_prod(sa_h, th, p, pe);
        double q, qe;
        dd::two_prod(ca_h, ch, q, qe);
        double d, de;
        dd::two_sum(q, -p, d, de);
        double y, ye;
        dd::two_sum(ca_h, d, y, ye);
        double lo = ye + (ca_l + ((de + (qe - pe)) + (ca_h * cl + ca_l * ch) - (sa_h * sin_tail + sa_l * th)));
        dd::fast_two_sum(y, lo, c->hi, c->lo);
    }
}

}  // namespace qel
