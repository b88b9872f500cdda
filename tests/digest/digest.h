// Result digests: every family runs a fixed, seeded set of calls and folds
// the bits of each result and of everything the call wrote into one 64-bit
// digest per function. The same digests must come out of every build on
// every platform.
//
// A family is a table, one row per function: label, number of calls, and
// the call (draw the arguments, call, digest what came back). The Rng draws
// fix the inputs, so a row's draws keep their order and count for good:
// reordering two of them changes that function's golden line.
#ifndef QELMATH_DIGEST_H
#define QELMATH_DIGEST_H

#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

namespace dg {

// splitmix64: tiny, and the same sequence everywhere.
class Rng {
public:
    explicit Rng(std::uint64_t seed) : s_(seed) {}
    std::uint64_t next()
    {
        std::uint64_t z = (s_ += 0x9e3779b97f4a7c15ull);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ull;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebull;
        return z ^ (z >> 31);
    }
    // Uniform in [lo, hi): 53 random bits scaled (exactly), one rounding per step.
    double uni(double lo, double hi) { return lo + (hi - lo) * (static_cast<double>(next() >> 11) * 0x1p-53); }
    // Uniform integer in [lo, hi].
    int irange(int lo, int hi)
    {
        std::uint64_t span = static_cast<std::uint64_t>(static_cast<std::int64_t>(hi) - lo) + 1u;
        return static_cast<int>(static_cast<std::int64_t>(lo) + static_cast<std::int64_t>(next() % span));
    }
    // A value on a grid of eighths: exact, and ties and coincidences occur.
    double grid(int lo, int hi) { return irange(lo * 8, hi * 8) / 8.0; }
    bool coin(int one_in) { return next() % static_cast<std::uint64_t>(one_in) == 0; }
    void fill(double* p, int n, double lo, double hi) { for (int i = 0; i < n; ++i) p[i] = uni(lo, hi); }
    // Matrix entries: all exact and small (one time in three), or all continuous.
    void reals(double* p, int n)
    {
        bool exact = coin(3);
        for (int i = 0; i < n; ++i) p[i] = exact ? grid(-4, 4) : uni(-10, 10);
    }

private:
    std::uint64_t s_;
};

// FNV-1a over the little-endian bytes of each value, so the digest does not
// depend on the host's byte order or type sizes: a double's bits, an
// integer's 4 or 8 bytes. Every NaN counts as one value: the promise is
// about numbers, and a NaN's sign and payload are not part of it.
class Digest {
public:
    template <class T>
    void put(T v)
    {
        if constexpr (std::is_floating_point<T>::value) {
            std::uint64_t bits = 0x7ff8000000000000ull;
            double x = v;
            if (x == x) std::memcpy(&bits, &x, sizeof bits);
            bytes(bits, 8);
        } else {
            bytes(static_cast<std::uint64_t>(v), sizeof(T) == 8 ? 8 : 4);
        }
    }
    // d(a, b, ...) digests its arguments left to right. They are evaluated in
    // no fixed order, so a call whose side effects another argument reads
    // goes into a variable first.
    template <class... T>
    void operator()(T... v) { (put(v), ...); }
    template <class T>
    void each(const T* p, int n) { for (int i = 0; i < n; ++i) put(p[i]); }
    std::uint64_t value() const { return h_; }

private:
    void bytes(std::uint64_t v, int n)
    {
        for (int i = 0; i < n; ++i) h_ = (h_ ^ ((v >> (8 * i)) & 0xffu)) * 0x100000001b3ull;
    }
    std::uint64_t h_ = 0xcbf29ce484222325ull;
};

struct Entry { std::string label; int calls; std::uint64_t digest; };
using Out = std::vector<Entry>;

// Runs `calls` calls of one function under a seed drawn from its label (so
// that adding a function never changes another's inputs) and records the
// digest. `body(rng, digest)` makes one call.
template <class Body>
void run(Out& out, const char* label, int calls, Body body)
{
    std::uint64_t seed = 0x51ed2701u;
    for (const char* c = label; *c; ++c) seed = (seed ^ static_cast<unsigned char>(*c)) * 0x100000001b3ull;
    Rng rng(seed);
    Digest digest;
    for (int i = 0; i < calls; ++i) body(rng, digest);
    out.push_back({label, calls, digest.value()});
}

// A family registers the function that records its entries.
using FamilyFn = void (*)(Out&);
int add_family(int rank, const char* name, FamilyFn fn);

}  // namespace dg

#endif
