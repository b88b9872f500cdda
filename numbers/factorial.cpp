// num_FactorialDword, num_FactorialQword, num_FactorialDouble: n! read from
// the factorial table, each width serving the entries it holds exactly (12!
// in 32 bits, 20! in 64 bits) and the double form everything up to 170!, the
// last finite double. Out of range, negative n included, the result is 1.
// The double form converts the integer pieces exactly and returns the double
// piece as stored: the running product rounded at every step, which is not
// the correctly rounded n! for every n.
#include <cstdint>

#include "QELMath.h"
#include "numbers/tables.h"

QELMATH_API std::uint32_t num_FactorialDword(int n)
{
    if (n < 0 || n > qel::kFactorialDwordLast) return 1;
    return qel::kFactorials.dword[n];
}

QELMATH_API std::uint64_t num_FactorialQword(int n)
{
    if (n < 0 || n > qel::kFactorialQwordLast) return 1;
    if (n <= qel::kFactorialDwordLast) return qel::kFactorials.dword[n];
    return qel::kFactorials.qword[n - (qel::kFactorialDwordLast + 1)];
}

QELMATH_API double num_FactorialDouble(int n)
{
    if (n < 0 || n > qel::kFactorialDoubleLast) return 1.0;
    if (n <= qel::kFactorialDwordLast) return static_cast<double>(qel::kFactorials.dword[n]);
    if (n <= qel::kFactorialQwordLast)
        return static_cast<double>(qel::kFactorials.qword[n - (qel::kFactorialDwordLast + 1)]);
    return qel::kFactorials.real[n - (qel::kFactorialQwordLast + 1)];
}
