// num_CommonDivisor32, num_CommonDivisor64: greatest common divisor by
// Euclid's remainders in unsigned arithmetic of the operand width.
//
// (a, 0) gives a instead of dividing by zero, which keeps gcd(a, 0) = a and
// makes (0, 0) give 0. (0, b) gives b at the first remainder. For a, b > 0
// the order of the arguments does not matter.
#include <cstdint>

#include "QELMath.h"

namespace {

template <typename U>
U euclid(U a, U b)
{
    if (b == 0) return a;
    U r = a % b;
    while (r != 0) {
        a = b;
        b = r;
        r = a % b;
    }
    return b;
}

}  // namespace

QELMATH_API std::uint32_t num_CommonDivisor32(std::uint32_t a, std::uint32_t b)
{
    return euclid(a, b);
}

QELMATH_API std::uint64_t num_CommonDivisor64(std::uint64_t a, std::uint64_t b)
{
    return euclid(a, b);
}
