// num_CombinationDword, num_CombinationQword, num_CombinationDouble: the
// permutation count of the same width divided by m! from the factorial
// table of that width.
//
// When m! is beyond the width's table (m > 12, m > 20, m > 170) the divisor
// is 1 and the permutation count itself is returned; the integer forms are
// therefore exact only while n (n-1) ... (n-m+1) fits their width: (20, 10)
// gives 117 in 32 bits, where the product has wrapped, and 184756 in 64
// bits. m < 0 gives 0 in every form.
#include <cstdint>

#include "QELMath.h"

QELMATH_API std::uint32_t num_CombinationDword(int n, int m)
{
    if (m < 0) return 0;
    return num_PermutationDword(n, m) / num_FactorialDword(m);
}

QELMATH_API std::uint64_t num_CombinationQword(int n, int m)
{
    if (m < 0) return 0;
    return num_PermutationQword(n, m) / num_FactorialQword(m);
}

QELMATH_API double num_CombinationDouble(int n, int m)
{
    if (m < 0) return 0.0;
    return num_PermutationDouble(n, m) / num_FactorialDouble(m);
}
