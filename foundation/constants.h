// Constants every family shares, with their exact bits.
#ifndef QELMATH_FOUNDATION_CONSTANTS_H
#define QELMATH_FOUNDATION_CONSTANTS_H

namespace qel {

// pi and 2pi as stored doubles: 0x400921FB54442D18 and 0x401921FB54442D18.
constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;

// Absolute threshold against which the solvers, determinants and inversions
// judge a pivot: 2^-52, 0x3CB0000000000000. Fixed; not a tolerance.
constexpr double kPivotThreshold = 2.220446049250313e-16;

}  // namespace qel

#endif
