// The counting tables: primes below 65536, factorials and Fibonacci numbers.
// Each counting table is one logical table in three consecutive pieces, one
// per result width, so that every width reads exactly the entries it can
// hold. The data lives in numbers/tables.cpp, which is written by
// numbers/tables/make_tables.cpp and never edited by hand.
#ifndef QELMATH_NUMBERS_TABLES_H
#define QELMATH_NUMBERS_TABLES_H

#include <cstdint>

namespace qel {

// The 6542 primes below 65536 in ascending order (2 .. 65521). 65521 is the
// largest prime not above sqrt(2^32 - 1), so the list holds a divisor of
// every composite 32-bit number.
constexpr int kPrimeCount = 6542;
extern const std::uint16_t kPrimes[kPrimeCount];

// Entry n is n!, 0 <= n <= 170: exact through 12! in 32 bits and through
// 20! in 64 bits; from 21! on, the running product in doubles rounded to
// nearest at every step (not always the correctly rounded n!).
struct FactorialTable {
    std::uint32_t dword[13];   // 0! .. 12!
    std::uint64_t qword[8];    // 13! .. 20!
    double real[150];          // 21! .. 170!
};
constexpr int kFactorialDwordLast = 12;
constexpr int kFactorialQwordLast = 20;
constexpr int kFactorialDoubleLast = 170;
extern const FactorialTable kFactorials;

// Entry n is F(n + 1) with F(1) = F(2) = 1, 0 <= n <= 1475: exact through
// F(47) in 32 bits and F(93) in 64 bits; from entry 93 on, the recurrence
// continued in doubles from the 64-bit entries rounded to double.
struct FibonacciTable {
    std::uint32_t dword[47];   // entries 0 .. 46
    std::uint64_t qword[46];   // entries 47 .. 92
    double real[1383];         // entries 93 .. 1475
};
constexpr int kFibonacciDwordLast = 46;
constexpr int kFibonacciQwordLast = 92;
constexpr int kFibonacciDoubleLast = 1475;
extern const FibonacciTable kFibonacci;

}  // namespace qel

#endif
