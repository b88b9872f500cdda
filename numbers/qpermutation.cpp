// num_QPermutationDword, num_QPermutationQword, num_QPermutationDouble:
// circular permutations, the permutation count of the same width divided by
// m (truncated in the integer forms).
//
// m < 0 gives 0 in every form. m = 0 would divide by zero: the integer forms
// give 0, the double form keeps the quotient 1 / 0 = +infinity.
#include <cstdint>
#include <limits>

#include "QELMath.h"

QELMATH_API std::uint32_t num_QPermutationDword(int n, int m)
{
    if (m <= 0) return 0;
    return num_PermutationDword(n, m) / static_cast<std::uint32_t>(m);
}

QELMATH_API std::uint64_t num_QPermutationQword(int n, int m)
{
    if (m <= 0) return 0;
    return num_PermutationQword(n, m) / static_cast<std::uint64_t>(m);
}

QELMATH_API double num_QPermutationDouble(int n, int m)
{
    if (m < 0) return 0.0;
    if (m == 0) return std::numeric_limits<double>::infinity();
    return num_PermutationDouble(n, m) / static_cast<double>(m);
}
