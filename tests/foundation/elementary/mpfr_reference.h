// Correctly rounded references from MPFR and the argument generators of the
// elementary functions' tests.
#ifndef QELMATH_TESTS_ELEMENTARY_MPFR_REFERENCE_H
#define QELMATH_TESTS_ELEMENTARY_MPFR_REFERENCE_H

#include <mpfr.h>

#include <cstdint>
#include <cstring>
#include <random>

namespace ref {

enum class Fn { kSin, kCos, kAtan, kAtan2 };

// The function's value rounded once to the nearest double, subnormals
// included: MPFR evaluates in a 53-bit format whose exponent range is that of
// IEEE double, then mpfr_subnormalize rounds again with the ternary value,
// which keeps the single rounding.
inline double reference(Fn fn, double y, double x = 0.0)
{
    static const bool ranges = [] {
        mpfr_set_emin(-1073);
        mpfr_set_emax(1024);
        return true;
    }();
    (void)ranges;
    mpfr_t a, b, r;
    mpfr_init2(a, 53);
    mpfr_init2(b, 53);
    mpfr_init2(r, 53);
    mpfr_set_d(a, y, MPFR_RNDN);
    mpfr_set_d(b, x, MPFR_RNDN);
    int t = 0;
    switch (fn) {
    case Fn::kSin: t = mpfr_sin(r, a, MPFR_RNDN); break;
    case Fn::kCos: t = mpfr_cos(r, a, MPFR_RNDN); break;
    case Fn::kAtan: t = mpfr_atan(r, a, MPFR_RNDN); break;
    case Fn::kAtan2: t = mpfr_atan2(r, a, b, MPFR_RNDN); break;
    }
    mpfr_subnormalize(r, t, MPFR_RNDN);
    double v = mpfr_get_d(r, MPFR_RNDN);
    mpfr_clears(a, b, r, static_cast<mpfr_ptr>(nullptr));
    return v;
}

inline std::uint64_t bits(double v)
{
    std::uint64_t u;
    std::memcpy(&u, &v, sizeof u);
    return u;
}

inline double from_bits(std::uint64_t u)
{
    double v;
    std::memcpy(&v, &u, sizeof v);
    return v;
}

// Bitwise equality, every NaN equal to every NaN.
inline bool same(double a, double b) { return (a != a && b != b) || bits(a) == bits(b); }

// Argument families of the sweeps.
class Arguments {
public:
    explicit Arguments(std::uint64_t seed) : g_(seed) {}

    double sign(double v) { return (g_() & 1u) ? -v : v; }

    // |x| = m * 2^e with e uniform in [lo, hi]: log-uniform magnitudes.
    double log_uniform(int lo, int hi)
    {
        int e = lo + static_cast<int>(g_() % static_cast<std::uint64_t>(hi - lo + 1));
        std::uint64_t m = g_() & 0x000FFFFFFFFFFFFFull;
        if (e < -1022) {  // subnormal range: random significand bits below 2^e
            std::uint64_t u = m >> (-1022 - e);
            return sign(from_bits(u == 0 ? 1 : u));
        }
        return sign(from_bits((static_cast<std::uint64_t>(e + 1023) << 52) | m));
    }

    double uniform(double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(g_); }

    // A few ulps around the double nearest to k * pi/4 (k below 2^kbits).
    double near_pio4_multiple(int kbits)
    {
        std::uint64_t k = 1 + g_() % ((std::uint64_t{1} << kbits) - 1);
        double x = static_cast<double>(k) * 0x1.921fb54442d18p-1;
        std::int64_t steps = static_cast<std::int64_t>(g_() % 9) - 4;
        x = from_bits(bits(x) + static_cast<std::uint64_t>(steps));
        return sign(x);
    }

    // Any finite double, every bit pattern equally likely.
    double any_finite()
    {
        for (;;) {
            double v = from_bits(g_());
            if (v - v == 0.0) return v;
        }
    }

    std::uint64_t next() { return g_(); }

private:
    std::mt19937_64 g_;
};

}  // namespace ref

#endif
