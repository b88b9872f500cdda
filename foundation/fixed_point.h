// Signed fixed-point numbers of 256 bits for the slow paths of the
// elementary functions: one 32-bit integer word (two's complement) and seven
// fraction words, so a resolution of 2^-224 on values in [-2^31, 2^31).
//
// Built from 32-bit words and 64-bit intermediate products only, so that the
// same code runs on 32-bit targets (no 128-bit integers) and gives the same
// bits everywhere. Quotients truncate toward zero in magnitude (at most
// 2^-224 of absolute error); products leave out the partial products far
// below the last word (at most 2^-221).
#ifndef QELMATH_FOUNDATION_FIXED_POINT_H
#define QELMATH_FOUNDATION_FIXED_POINT_H

#include <cstdint>

namespace qel {
namespace fx {

constexpr int kWords = 8;       // w[0] integer word, w[1..7] fraction
constexpr int kFracBits = 224;  // 32 * (kWords - 1)

struct Fixed {
    std::uint32_t w[kWords];  // most significant first
};

Fixed from_words(const std::uint32_t (&words)[kWords]);
Fixed from_int(std::int32_t v);
// Exact for |x| < 2^31 when x is a multiple of 2^-224; otherwise the bits
// below 2^-224 are dropped (truncation toward zero in magnitude).
Fixed from_double(double x);

bool is_negative(const Fixed& a);
Fixed neg(const Fixed& a);
Fixed add(const Fixed& a, const Fixed& b);
Fixed sub(const Fixed& a, const Fixed& b);
Fixed mul(const Fixed& a, const Fixed& b);
// Magnitude-wise division by a positive integer below 2^16.
Fixed div_small(const Fixed& a, std::uint32_t d);
bool is_zero(const Fixed& a);

// a rounded to the nearest double (ties to even); a must be 0 or have
// magnitude at least 2^-1000.
double to_double(const Fixed& a);

// The quotient num / den, truncated, for finite positive doubles with
// num <= den (so the quotient lies in (0, 1]). Computed by long division of
// the significands, eleven bits a step.
Fixed ratio(double num, double den);

}  // namespace fx
}  // namespace qel

#endif
