// Double-double kernel of the arc tangent on [0, 1].
//
// Method: with b = j/128 the nearest table point to z,
//   atan z = atan b + atan u,   u = (z - b) / (1 + z b),   |u| <= 2^-8,
// and atan u = u + u^3 (-1/3 + u^2/5 - u^4/7 + u^6/9), whose next term is
// below 2^-83 |u|. z - b is exact (Sterbenz, or b == 0); 1 + z b and the
// quotient are formed in double-double (relative error below 2^-102).
//
// Error bound (relative to the result y): the cubic part has magnitude at
// most u^2/3 <= 2^-17.6 of |u| and is computed from u^2 rounded once and five
// more roundings (relative 2^-50.4): 2^-68 |u|; |u| <= |y| (for j = 0, u = z
// and y >= 0.9999 z; for j >= 1, y >= atan(2^-8) > 2^-8.01 while
// |u| <= 2^-8). The double-double quotient adds 2^-101 |u|, the table
// 2^-106 |y|, the final sums 2^-104 |y|. Total below 2^-67.8 |y|;
// kAtanKernelError = 2^-65 keeps a margin of more than six, and the tests
// measure the kernel against MPFR.
#include "foundation/elementary_internal.h"

namespace qel {

namespace {

constexpr double kA3 = -0x1.5555555555555p-2;  // -1/3
constexpr double kA5 = 0x1.999999999999ap-3;   // 1/5
constexpr double kA7 = -0x1.2492492492492p-3;  // -1/7
constexpr double kA9 = 0x1.c71c71c71c71cp-4;   // 1/9

}  // namespace

dd::DD atan_kernel(double zh, double zl)
{
    int j = static_cast<int>(zh * 128.0 + 0.5);
    double b = j * 0x1p-7;
    double uh, ul;
    if (j == 0) {
        uh = zh;
        ul = zl;
    } else {
        double nh, nl;
        dd::two_sum(zh - b, zl, nh, nl);  // numerator z - b, exact
        double p, pe;
        dd::two_prod(zh, b, p, pe);
        double dh, dl;
        dd::fast_two_sum(1.0, p, dh, dl);  // 1 >= z b
        dl += pe + zl * b;                  // denominator 1 + z b
        uh = nh / dh;
        double q, qe;
        dd::two_prod(uh, dh, q, qe);
        ul = ((((nh - q) - qe) + nl) - uh * dl) / dh;
    }
    double u2 = uh * uh;
    double tail = ul + uh * (u2 * (kA3 + u2 * (kA5 + u2 * (kA7 + u2 * kA9))));
    dd::DD y;
    double s, e;
    dd::two_sum(kAtanTable[j][0], uh, s, e);
    dd::fast_two_sum(s, e + (kAtanTable[j][1] + tail), y.hi, y.lo);
    return y;
}

}  // namespace qel
