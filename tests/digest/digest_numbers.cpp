// Digests of the prime test, common divisors and the counting functions.
#include "QELMath.h"
#include "digest.h"

namespace {

using namespace dg;

// Indices around and beyond every table boundary, negatives included.
int index(Rng& r)
{
    int k = r.irange(0, 3);
    return k == 0 ? r.irange(-3, 25) : k == 1 ? r.irange(40, 100) : k == 2 ? r.irange(160, 180) : r.irange(1460, 1480);
}

template <class F>
void indexed(Out& out, const char* label, int calls, F f)
{
    run(out, label, calls, [=](Rng& r, Digest& d) { d(f(index(r))); });
}

void as_drawn(Rng&, int&, int&) {}

// (n, m) pairs for the permutation forms: small, wrapping and out of range;
// `more` moves some of them further for the forms that answer in doubles.
template <class F, class More = void (*)(Rng&, int&, int&)>
void pairs(Out& out, const char* label, F f, More more = as_drawn)
{
    run(out, label, 40, [=](Rng& r, Digest& d) {
        int n = r.coin(6) ? r.irange(-5, -1) : r.irange(0, 120);
        int m = r.coin(8) ? r.irange(-3, 0) : r.irange(1, 40);
        more(r, n, m);
        d(f(n, m));
    });
}

void family(Out& out)
{
    run(out, "num_IsPrime", 200, [](Rng& r, Digest& d) {
        int k = r.irange(0, 2);   // small, any, or just below 2^32
        std::uint64_t n = k == 0 ? r.irange(0, 1000) : k == 1 ? r.next() : 0xffffffffu - r.irange(0, 200);
        d(num_IsPrime(static_cast<std::uint32_t>(n)));
    });
    run(out, "num_CommonDivisor32", 80, [](Rng& r, Digest& d) {
        // Multiples of a common g (or zero) against each other or anything.
        std::uint32_t g = static_cast<std::uint32_t>(r.irange(1, 5000));
        std::uint32_t a = r.coin(6) ? 0u : g * static_cast<std::uint32_t>(r.irange(0, 100000));
        std::uint32_t b = r.coin(2) ? g * static_cast<std::uint32_t>(r.irange(0, 100000))
                                    : static_cast<std::uint32_t>(r.next());
        d(num_CommonDivisor32(a, b));
    });
    run(out, "num_CommonDivisor64", 80, [](Rng& r, Digest& d) {
        std::uint64_t g = r.next() >> 40, a = r.coin(6) ? 0u : g * (r.next() >> 30);
        std::uint64_t b = r.coin(2) ? g * (r.next() >> 28) : r.next();
        d(num_CommonDivisor64(a, b));
    });
    indexed(out, "num_FactorialDword", 30, num_FactorialDword);
    indexed(out, "num_FactorialQword", 30, num_FactorialQword);
    indexed(out, "num_FactorialDouble", 40, num_FactorialDouble);
    indexed(out, "num_FibonacciDword", 30, num_FibonacciDword);
    indexed(out, "num_FibonacciQword", 30, num_FibonacciQword);
    indexed(out, "num_FibonacciDouble", 40, num_FibonacciDouble);
    pairs(out, "num_PermutationDword", num_PermutationDword);
    pairs(out, "num_PermutationQword", num_PermutationQword);
    pairs(out, "num_PermutationDouble", num_PermutationDouble, [](Rng& r, int&, int& m) {
        if (r.coin(5)) m = r.irange(100, 200);   // into infinity
    });
    pairs(out, "num_QPermutationDword", num_QPermutationDword);
    pairs(out, "num_QPermutationQword", num_QPermutationQword);
    pairs(out, "num_QPermutationDouble", num_QPermutationDouble);
    pairs(out, "num_CombinationDword", num_CombinationDword);
    pairs(out, "num_CombinationQword", num_CombinationQword);
    pairs(out, "num_CombinationDouble", num_CombinationDouble, [](Rng& r, int& n, int& m) {
        if (r.coin(4)) { n = r.irange(100, 400); m = r.irange(0, 180); }
    });
}

int reg = dg::add_family(20, "numbers", &family);

}  // namespace
