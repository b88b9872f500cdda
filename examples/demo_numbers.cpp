// Number theory and combinatorics: the prime test, common divisors and the
// counting tables in their three widths.
#include <cinttypes>
#include <cstdint>
#include <cstdio>

#include "QELMath.h"
#include "demo.h"

namespace {

void run(demo::Picture&)
{
    // The primes just below 2^32, found by the prime test alone.
    std::printf("  largest 32-bit primes:");
    int found = 0;
    for (std::uint32_t n = 4294967295u; found < 4; --n) {
        if (num_IsPrime(n)) {
            std::printf(" %" PRIu32, n);
            ++found;
        }
    }
    std::printf("\n  65521^2 = 4293001441 is prime? %d; 65537 is prime? %d\n",
                num_IsPrime(4293001441u), num_IsPrime(65537u));
    std::printf("  gcd(F(92), F(46)) = %" PRIu64 " = F(46)\n",
                num_CommonDivisor64(num_FibonacciQword(91), num_FibonacciQword(45)));

    std::printf("  12! = %" PRIu32 ", 20! = %" PRIu64 ", 170! = %.16g\n",
                num_FactorialDword(12), num_FactorialQword(20), num_FactorialDouble(170));
    std::printf("  F(47) = %" PRIu32 ", F(93) = %" PRIu64 ", F(1476) = %.17g\n",
                num_FibonacciDword(46), num_FibonacciQword(92), num_FibonacciDouble(1475));
    std::printf("  C(20, 10): %" PRIu32 " in 32 bits (the product wrapped), %" PRIu64
                " in 64 bits, %.17g in doubles\n",
                num_CombinationDword(20, 10), num_CombinationQword(20, 10),
                num_CombinationDouble(20, 10));
    std::printf("  C(100, 50) = %.6e; circular arrangements of 5 out of 8: %" PRIu32 "\n",
                num_CombinationDouble(100, 50), num_QPermutationDword(8, 5));
}

int reg = demo::add_section(20, "Number theory and combinatorics", &run);

}  // namespace
