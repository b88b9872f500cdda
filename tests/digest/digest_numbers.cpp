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
    dg::run(out, "num_FactorialDword", 30, [](Rng& r, Digest& d) { d.u32(num_FactorialDword(index(r))); });
    dg::run(out, "num_FactorialQword", 30, [](Rng& r, Digest& d) { d.u64(num_FactorialQword(index(r))); });
    dg::run(out, "num_FactorialDouble", 40, [](Rng& r, Digest& d) { d.d(num_FactorialDouble(index(r))); });
    dg::run(out, "num_FibonacciDword", 30, [](Rng& r, Digest& d) { d.u32(num_FibonacciDword(index(r))); });
    dg::run(out, "num_FibonacciQword", 30, [](Rng& r, Digest& d) { d.u64(num_FibonacciQword(index(r))); });
    dg::run(out, "num_FibonacciDouble", 40, [](Rng& r, Digest& d) { d.d(num_FibonacciDouble(index(r))); });
    dg::run(out, "num_PermutationDword", 40, [](Rng& r, Digest& d) {
        int n, m;
        pair(r, n, m);
        d.u32(num_PermutationDword(n, m));
    });
    dg::run(out, "num_PermutationQword", 40, [](Rng& r, Digest& d) {
        int n, m;
        pair(r, n, m);
        d.u64(num_PermutationQword(n, m));
    });
    dg::run(out, "num_PermutationDouble", 40, [](Rng& r, Digest& d) {
        int n, m;
        pair(r, n, m);
        if (r.coin(5)) m = r.irange(100, 200);   // into infinity
        d.d(num_PermutationDouble(n, m));
    });
    dg::run(out, "num_QPermutationDword", 40, [](Rng& r, Digest& d) {
        int n, m;
        pair(r, n, m);
        d.u32(num_QPermutationDword(n, m));
    });
    dg::run(out, "num_QPermutationQword", 40, [](Rng& r, Digest& d) {
        int n, m;
        pair(r, n, m);
        d.u64(num_QPermutationQword(n, m));
    });
    dg::run(out, "num_QPermutationDouble", 40, [](Rng& r, Digest& d) {
        int n, m;
        pair(r, n, m);
        d.d(num_QPermutationDouble(n, m));
    });
    dg::run(out, "num_CombinationDword", 40, [](Rng& r, Digest& d) {
        int n, m;
        pair(r, n, m);
        d.u32(num_CombinationDword(n, m));
    });
    dg::run(out, "num_CombinationQword", 40, [](Rng& r, Digest& d) {
        int n, m;
        pair(r, n, m);
        d.u64(num_CombinationQword(n, m));
    });
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
