// Reduction of an argument by pi/2 for sine and cosine: x = k * pi/2 + r with
// |r| <= pi/4 (a hair more where the quotient's rounding decides), k taken
// modulo 4.
#ifndef QELMATH_FOUNDATION_REDUCE_PIO2_H
#define QELMATH_FOUNDATION_REDUCE_PIO2_H

#include <cstdint>

#include "foundation/double_double.h"
#include "foundation/fixed_point.h"

namespace qel {

constexpr int kTwoOverPiWordCount = 48;
extern const std::uint32_t kTwoOverPiWords[kTwoOverPiWordCount];

// Arguments below this bound take the Cody-Waite reduction; it keeps the
// quotient k at most 2^20, so k times each 33-bit piece of pi/2 is exact.
constexpr double kCodyWaiteLimit = 1647099.0;  // < 2^20 * pi/2

// 2/pi rounded, and pi/2 = kCwP1 + kCwP2 + kCwP3 + 1.0e-37 with kCwP1 and
// kCwP2 of at most 33 bits (see reduce_pio2.cpp for the error analysis).
constexpr double kCwTwoOverPi = 0x1.45f306dc9c883p-1;
constexpr double kCwP1 = 0x1.921fb544p+0;
constexpr double kCwP2 = 0x1.0b4611a6p-34;
constexpr double kCwP3 = 0x1.3198a2e037073p-69;

// Cody-Waite reduction in double-double for finite |x| < kCodyWaiteLimit.
// Returns k mod 4; r.hi + r.lo is x - k*pi/2 within 2^-100 + 2^-100 |r|.
// The pair is left unnormalised (a two_sum saved), as the kernel only adds
// r.lo into its tail: |r.lo| <= 2^-53 |r.hi| + 2^-48.7. Then the kernel's
// roundings of partial sums that hold r.lo (at most six, each 2^-53 of
// |r.lo| + 2^-18 |y|) cost up to 2^-98.4 more in absolute terms beyond its
// relative bound, so kCodyWaiteAbsError, the absolute error that the
// rounding test charges to this reduction, is 2^-100 + 2^-98.4 < 2^-98.
// Inline: it is most of the cost of a sine of a moderate argument.
constexpr double kCodyWaiteAbsError = 0x1p-98;
inline int reduce_pio2_cody_waite(double x, dd::DD& r)
{
    double shifted = x * kCwTwoOverPi + 0x1.8p52;  // k in the low bits
    double kd = shifted - 0x1.8p52;
    double a = x - kd * kCwP1;
    double s, e;
    dd::two_sum(a, -(kd * kCwP2), s, e);
    r.hi = s;
    r.lo = e - kd * kCwP3;
    return static_cast<int>(dd::bits_of(shifted) & 3u);  // k mod 4, two's complement bits
}

// The same with four pieces of pi/2: within kCodyWaitePreciseAbsError +
// 2^-100 |r|.
constexpr double kCodyWaitePreciseAbsError = 0x1p-130;
int reduce_pio2_cody_waite_precise(double x, dd::DD& r);

// Payne-Hanek reduction for any finite x: returns k mod 4 and the reduced
// argument in fixed point, within 2^-218 absolute.
int reduce_pio2_fixed(double x, fx::Fixed& r);

// Payne-Hanek reduction to double-double for finite |x| >= 1: returns k mod 4;
// r.hi + r.lo is within 2^-100 |r| of x - k*pi/2.
int reduce_pio2_huge(double x, dd::DD& r);

}  // namespace qel

#endif
