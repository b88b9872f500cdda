// Digests of the prime test, common divisors and the counting functions.
#include "QELMath.h"
#include "digest.h"

namespace {

using dg::Digest;
using dg::Rng;

// Indices around and beyond every table boundary, negatives included.
int index(Rng& r)
{
    switch (r.irange(0, 3)) {
    case 0: return r.irange(-3, 25);
    case 1: return r.irange(40, 100);
    case 2: return r.irange(160, 180);
    default: return r.irange(1460, 1480);
    }
}

// (n, m) pairs for the permutation forms: small, wrapping and out of range.
void pair(Rng& r, int& n, int& m)
{
    n = r.coin(6) ? r.irange(-5, -1) : r.irange(0, 120);
    m = r.coin(8) ? r.irange(-3, 0) : r.irange(1, 40);
}

template <class F>
void indexed(std::vector<dg::Entry>& out, const char* label, int calls, F f)
{
    dg::run(out, label, calls, [=](Rng& r, Digest& d) { d.put(f(index(r))); });
}

template <class F>
void pairs(std::vector<dg::Entry>& out, const char* label, F f)
{
    dg::run(out, label, 40, [=](Rng& r, Digest& d) {
        int n, m;
        pair(r, n, m);
        d.put(f(n, m));
    });
}

void family(std::vector<dg::Entry>& out)
{
    dg::run(out, "num_IsPrime", 200, [](Rng& r, Digest& d) {
        std::uint32_t n;
        switch (r.irange(0, 2)) {
        case 0: n = static_cast<std::uint32_t>(r.irange(0, 1000)); break;
        case 1: n = static_cast<std::uint32_t>(r.next()); break;
        default: n = 0xffffffffu - static_cast<std::uint32_t>(r.irange(0, 200)); break;
        }
        d.i32(num_IsPrime(n));
    });
    dg::run(out, "num_CommonDivisor32", 80, [](Rng& r, Digest& d) {
        std::uint32_t g = static_cast<std::uint32_t>(r.irange(1, 5000));
        std::uint32_t a = r.coin(6) ? 0u : g * static_cast<std::uint32_t>(r.irange(0, 100000));
        std::uint32_t b = r.coin(2) ? g * static_cast<std::uint32_t>(r.irange(0, 100000))
                                    : static_cast<std::uint32_t>(r.next());
        d.u32(num_CommonDivisor32(a, b));
    });
    dg::run(out, "num_CommonDivisor64", 80, [](Rng& r, Digest& d) {
        std::uint64_t g = r.next() >> 40;
        std::uint64_t a = r.coin(6) ? 0u : g * (r.next() >> 30);
        std::uint64_t b = r.coin(2) ? g * (r.next() >> 28) : r.next();
        d.u64(num_CommonDivisor64(a, b));
    });
    indexed(out, "num_FactorialDword", 30, num_FactorialDword);
    indexed(out, "num_FactorialQword", 30, num_FactorialQword);
    indexed(out, "num_FactorialDouble", 40, num_FactorialDouble);
    indexed(out, "num_FibonacciDword", 30, num_FibonacciDword);
    indexed(out, "num_FibonacciQword", 30, num_FibonacciQword);
    indexed(out, "num_FibonacciDouble", 40, num_FibonacciDouble);
    pairs(out, "num_PermutationDword", num_PermutationDword);
    pairs(out, "num_PermutationQword", num_PermutationQword);
    dg::run(out, "num_PermutationDouble", 40, [](Rng& r, Digest& d) {
        int n, m;
        pair(r, n, m);
        if (r.coin(5)) m = r.irange(100, 200);   // into infinity
        d.d(num_PermutationDouble(n, m));
    });
    pairs(out, "num_QPermutationDword", num_QPermutationDword);
    pairs(out, "num_QPermutationQword", num_QPermutationQword);
    pairs(out, "num_QPermutationDouble", num_QPermutationDouble);
    pairs(out, "num_CombinationDword", num_CombinationDword);
    pairs(out, "num_CombinationQword", num_CombinationQword);
    dg::run(out, "num_CombinationDouble", 40, [](Rng& r, Digest& d) {
        int n, m;
        pair(r, n, m);
        if (r.coin(4)) {
            n = r.irange(100, 400);
            m = r.irange(0, 180);
        }
        d.d(num_CombinationDouble(n, m));
    });
}

int reg = dg::add_family(20, "numbers", &family);

}  // namespace
