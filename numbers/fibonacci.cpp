// num_FibonacciDword, num_FibonacciQword, num_FibonacciDouble: entry n of
// the Fibonacci table, F(n + 1) with F(1) = F(2) = 1 (so 1, 1, 2, 3, 5, ...
// for n = 0, 1, 2, ...). The 32-bit form serves n <= 46 (F(47) =
// 2971215073), the 64-bit form n <= 92 (F(93) = 12200160415121876738), the
// double form n <= 1475, whose entry 1.3069892237633987e308 is the last
// finite one. Out of range, negative n included, the result is 0.
// The double form rounds the exact entries to nearest on conversion (from
// entry 78 on they exceed 2^53) and returns the rest as stored: the
// recurrence continued in doubles, rounded at every step.
#include <cstdint>

#include "QELMath.h"
#include "numbers/tables.h"

QELMATH_API std::uint32_t num_FibonacciDword(int n)
{
    if (n < 0 || n > qel::kFibonacciDwordLast) return 0;
    return qel::kFibonacci.dword[n];
}

QELMATH_API std::uint64_t num_FibonacciQword(int n)
{
    if (n < 0 || n > qel::kFibonacciQwordLast) return 0;
    if (n <= qel::kFibonacciDwordLast) return qel::kFibonacci.dword[n];
    return qel::kFibonacci.qword[n - (qel::kFibonacciDwordLast + 1)];
}

QELMATH_API double num_FibonacciDouble(int n)
{
    if (n < 0 || n > qel::kFibonacciDoubleLast) return 0.0;
    if (n <= qel::kFibonacciDwordLast) return static_cast<double>(qel::kFibonacci.dword[n]);
    if (n <= qel::kFibonacciQwordLast)
        return static_cast<double>(qel::kFibonacci.qword[n - (qel::kFibonacciDwordLast + 1)]);
    return qel::kFibonacci.real[n - (qel::kFibonacciQwordLast + 1)];
}
