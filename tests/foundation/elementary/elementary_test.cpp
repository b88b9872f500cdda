// The elementary functions: C special cases, tiny arguments, tie rules and
// stored correctly rounded values (among them arguments only the slow path
// can decide), which run everywhere; with MPFR (QEL_WITH_MPFR) also sweeps
// over every range of arguments, of the functions and of their slow paths on
// their own, zero mismatches allowed. The long sweep (label long) runs them
// with QEL_SWEEP_SCALE times more arguments.
#include <gtest/gtest.h>
#ifdef QEL_WITH_MPFR
#include <mpfr.h>
#endif

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>

#include "foundation/double_double.h"
#include "foundation/elementary.h"
#include "foundation/elementary_internal.h"
#include "foundation/fixed_point.h"

#ifndef QEL_SWEEP_SCALE
#define QEL_SWEEP_SCALE 1
#endif

namespace {

std::uint64_t bits(double v) { std::uint64_t u; std::memcpy(&u, &v, 8); return u; }

bool same(double a, double b) { return (a != a && b != b) || bits(a) == bits(b); }

// f: s sin, c cos, a atan, t atan2(y, x); the upper case letters also ask
// the fast path to leave the decision to the slow one.
double eval(char f, bool slow, double y, double x)
{
    double r;
    switch (f | 0x20) {
    case 's': return slow ? qel::sin_slow(y) : f == 'S' && qel::sin_fast(y, &r) ? NAN : qel::sin(y);
    case 'c': return slow ? qel::cos_slow(y) : f == 'C' && qel::cos_fast(y, &r) ? NAN : qel::cos(y);
    case 'a': return slow ? qel::atan_slow(y) : f == 'A' && qel::atan_fast(y, &r) ? NAN : qel::atan(y);
    default: return slow ? qel::atan2_slow(y, x) : f == 'T' && qel::atan2_fast(y, x, &r) ? NAN : qel::atan2(y, x);
    }
}

constexpr double kInf = HUGE_VAL, kMax = 0x1.fffffffffffffp+1023, kMin = 0x1p-1074, kPio4 = 0x1.921fb54442d18p-1;
constexpr double kPio2 = 0x1.921fb54442d18p+0, kPi = 0x1.921fb54442d18p+1, k3Pio4 = 0x1.2d97c7f3321d2p+1;

struct Golden { char f; double y, x, want; };

const Golden kGolden[] = {
    {'s', 0.0, 0, 0.0}, {'s', -0.0, 0, -0.0}, {'c', -0.0, 0, 1.0}, {'s', kInf, 0, NAN}, {'c', -kInf, 0, NAN}, {'s', NAN, 0, NAN}, {'c', NAN, 0, NAN},
    {'a', NAN, 0, NAN}, {'a', -0.0, 0, -0.0}, {'a', kInf, 0, kPio2}, {'a', -kInf, 0, -kPio2}, {'a', kMax, 0, kPio2}, {'a', 0x1p60, 0, kPio2},
    {'a', -1.0, 0, -kPio4},
    // Thresholds of the tiny-argument forms: x itself, or 1, up to 2^-27.
    {'s', kMin, 0, kMin}, {'s', -0x1.fffffffffffffp-28, 0, -0x1.fffffffffffffp-28}, {'c', 0x1.fffffffffffffp-28, 0, 1.0},
    {'a', -0x1.8p-1070, 0, -0x1.8p-1070}, {'a', 0x1.fffffffffffffp-28, 0, 0x1.fffffffffffffp-28}, {'a', 0x1p-26, 0, 0x1.fffffffffffffp-27},
    {'s', 0x1p-26, 0, 0x1p-26}, {'c', 0x1p-26, 0, 0x1.fffffffffffffp-1},
    // C99 atan2: zeros, infinities, NaN, diagonals.
    {'t', 0.0, 0.0, 0.0}, {'t', -0.0, 0.0, -0.0}, {'t', 0.0, -0.0, kPi}, {'t', -0.0, -0.0, -kPi}, {'t', -0.0, 3, -0.0}, {'t', 0.0, -3, kPi},
    {'t', -0.0, -3, -kPi}, {'t', 2, -0.0, kPio2}, {'t', -2, 0.0, -kPio2}, {'t', -kMin, -0.0, -kPio2}, {'t', kInf, kInf, kPio4},
    {'t', -kInf, kInf, -kPio4}, {'t', kInf, -kInf, k3Pio4}, {'t', -kInf, -kInf, -k3Pio4}, {'t', kInf, 5, kPio2}, {'t', -kInf, -5, -kPio2},
    {'t', -5, kInf, -0.0}, {'t', 5, -kInf, kPi}, {'t', -5, -kInf, -kPi}, {'t', NAN, 1, NAN}, {'t', 1, NAN, NAN}, {'t', kInf, NAN, NAN},
    {'t', -7.5, -7.5, -k3Pio4}, {'t', kMax, kMax, kPio4}, {'t', kMin, kMin, kPio4}, {'t', 0x1p-1000, -1e300, kPi}, {'t', -1e300, 0x1p-1000, -kPio2},
    // Tiny ratios with x > 0 round the exact quotient, ties toward zero:
    // 3 * 2^-1075 is a midpoint, and atan lies just below it.
    {'t', 0x1.8p-1014, 0x1p60, kMin}, {'t', -0x1.8p-1014, 0x1p60, -kMin}, {'t', 0x1.8000000000001p-1014, 0x1p60, 0x1p-1073},
    {'t', 0x1.3p-800, 0x1p200, 0x1.3p-1000}, {'t', 1.0, 0x1p80, 0x1p-80}, {'t', 0x1p-1000, 0x1p100, 0.0}, {'t', 0x1p-1020, 0x1p55, 0.0},
    {'t', -0x1p-1020, 0x1p54, -kMin}, {'t', 1.0, 0x1.8p61, 0x1.5555555555555p-62},
    // Correctly rounded values (MPFR, once); upper case: the fast path's rounding test fails.
    {'S', 0x1.99d0b9ecb7282p+1, 0, -0x1.ebf5577c296bap-5}, {'S', -0x1.ca6dbc9bc7d4p+1, 0, 0x1.b40d4f14ce5b9p-2},
    {'S', 0x1.cb21c80b40e9p+0, 0, 0x1.f35b7c18478b6p-1}, {'S', 0x1.49aa48151a5bp+1, 0, 0x1.1299ef24eae5cp-1},
    {'C', 0x1.27c9191c02b09p+12, 0, 0x1.e8364f99b4df5p-3}, {'C', 0x1.511761fe276f9p-3, 0, 0x1.f91486efc57d7p-1},
    {'C', 0x1.85ff6ad6c41c1p+15, 0, 0x1.f5efb9ee96c01p-1}, {'A', 0x1.769d43558734ep+14, 0, 0x1.921cf97f0ab8bp+0},
    {'A', -0x1.591f3d80e09dcp+20, 0, -0x1.921fa965fc274p+0}, {'A', -0x1.0f15ae6b7a497p-4, 0, -0x1.0eb09f5876683p-4},
    {'A', -0x1.418798d1626c6p+18, 0, -0x1.921f824f6b1ecp+0}, {'T', -0x1.4fc4979d617ep-2, 0x1.364b0078556b8p+0, -0x1.0e8ab6f7087e6p-2},
    {'T', 0x1.46f44488bce5cp+1, 0x1.1aaf1a442cbecp+1, 0x1.b73d1a7721933p-1},
    {'T', -0x1.ebfe30d443f9ap+1, -0x1.f9866438cbc4p-2, -0x1.b2d33168a70cbp+0}, {'T', 0x1.895bdb73c04ecp+0, 0x1.67b3f7ad81eecp+0, 0x1.a8fdadd8750cp-1},
    {'s', kPio2, 0, 1.0}, {'c', kPio2, 0, 0x1.1a62633145c07p-54}, {'s', kPi, 0, 0x1.1a62633145c07p-53}, {'s', 0x1.6ac5b262ca1ffp+849, 0, 1.0},
    {'c', 0x1.6ac5b262ca1ffp+849, 0, -0x1.14ae72e6ba22fp-61}, {'s', kMax, 0, 0x1.452fc98b34e97p-8}, {'c', kMax, 0, -0x1.fffe62ecfab75p-1},
    {'s', 0x1.921fbp+19, 0, -0x1.4f8bacd318edp-3}, {'c', 0x1.921f9cccccccdp+19, 0, 0x1.717ee7912c609p-1},
    {'a', 0x1.921fbp+19, 0, 0x1.921fa0e5121f7p+0}, {'s', 0x1.2a05f2p+33, 0, -0x1.f334c7896a4e3p-2},
    {'c', 0x1.0f0cf064dd592p+73, 0, 0x1.0be2cef01c8f4p-1}, {'a', 0x1.5b5f0c0b4fffp-2, 0, 0x1.4ee5a67362a03p-2},
};

TEST(Elementary, SpecialAndStoredValues)
{
    for (const Golden& g : kGolden) {
        EXPECT_TRUE(same(eval(g.f, false, g.y, g.x), g.want)) << g.f << std::hexfloat << " (" << g.y << ", " << g.x << ")";
        const bool slow_too = (g.f | 0x20) != 'a' && (g.f | 0x20) != 't' && std::fabs(g.y) >= 0x1p-27 && std::isfinite(g.y);
        EXPECT_TRUE(!slow_too || same(eval(g.f, true, g.y, g.x), g.want)) << g.f << " slow " << std::hexfloat << g.y;
    }
}

// The fixed-point helpers round to nearest even (1 + 2^-53 is a tie; a
// sticky bit at 2^-220 breaks it upward), and ratio truncates at 2^-224.
TEST(Elementary, FixedPointHelpers)
{
    using namespace qel::fx;
    const Fixed one = from_int(1), tie = add(one, from_double(0x1p-53)), above = add(tie, from_double(0x1p-220)), third = ratio(1.0, 3.0);
    const Fixed in[] = {from_double(0.1), from_double(-3.25), from_double(0x1p-200), tie, add(one, from_double(0x1.8p-52)), above, sub(Fixed{}, above),
        mul(from_double(1.5), from_double(-2.25)), div_small(from_double(-7.5), 3), ratio(0x1p-1074, 0x1.8p-1073), ratio(0x1.5p-100, 1), ratio(5, 5),
        sub(one, add(add(third, third), third)), Fixed{}};
    const double want[] = {0.1, -3.25, 0x1p-200, 1.0, 0x1.0000000000002p+0, 0x1.0000000000001p+0, -0x1.0000000000001p+0, -3.375, -2.5, 1.0 / 3.0,
        0x1.5p-100, 1.0, 0x1p-224, 0.0};
    for (int i = 0; i < 14; ++i) EXPECT_EQ(bits(to_double(in[i])), bits(want[i])) << i;
    // The rounding test: exactly half a spacing away is undecided; below a
    // power of two the spacing halves; subnormal spacings are never decided.
    EXPECT_TRUE(qel::dd::rounds_to_hi(1.5, 0x1p-54, 0x1p-60) && qel::dd::rounds_to_hi(1.0, -0x1p-56, 0x1p-60));
    EXPECT_FALSE(qel::dd::rounds_to_hi(1.5, 0x1p-53, 0.0) || qel::dd::rounds_to_hi(1.5, 0x1p-54, 0x1p-54));
    EXPECT_FALSE(qel::dd::rounds_to_hi(1.0, -0x1p-54, 0.0) || qel::dd::rounds_to_hi(0x1p-1030, 0.0, 0.0));
}

#ifdef QEL_WITH_MPFR
// f(y) or atan2(y, x) rounded once to the nearest double, subnormals
// included: MPFR rounds in a 53-bit format with the exponent range of IEEE
// double, and mpfr_subnormalize rounds again with the ternary value, which
// keeps the single rounding.
double reference(char f, double y, double x)
{
    [[maybe_unused]] static const bool ranges = mpfr_set_emin(-1073) == 0 && mpfr_set_emax(1024) == 0;
    mpfr_t a, b, r;
    mpfr_inits2(53, a, b, r, static_cast<mpfr_ptr>(nullptr));
    mpfr_set_d(a, y, MPFR_RNDN), mpfr_set_d(b, x, MPFR_RNDN);
    int t = f == 's' ? mpfr_sin(r, a, MPFR_RNDN) : f == 'c' ? mpfr_cos(r, a, MPFR_RNDN) : f == 'a' ? mpfr_atan(r, a, MPFR_RNDN) : mpfr_atan2(r, a, b, MPFR_RNDN);
    const double v = (mpfr_subnormalize(r, t, MPFR_RNDN), mpfr_get_d(r, MPFR_RNDN));
    mpfr_clears(a, b, r, static_cast<mpfr_ptr>(nullptr));
    return v;
}

// Argument families: |v| = m 2^e with e uniform in [lo, hi] (subnormals
// below -1022), uniform in [lo, hi], a few ulps around k pi/4 with k < 2^lo,
// any finite double; for y of atan2 also x (1 + lo u) and x 2^(lo..hi).
enum Kind { kLog, kUniform, kNearPio4, kAny, kNear, kGap };

double draw(std::mt19937_64& g, Kind kind, double lo, double hi)
{
    std::uint64_t u = g(), m = u & 0xFFFFFFFFFFFFFull;
    int e = static_cast<int>(lo) + static_cast<int>(g() % static_cast<std::uint64_t>(hi - lo + 1));
    if (kind == kUniform) return std::uniform_real_distribution<double>(lo, hi)(g);
    if (kind == kLog) u = e < -1022 ? std::max<std::uint64_t>(1, m >> (-1022 - e)) : (std::uint64_t(e + 1023) << 52) | m;
    if (kind == kNearPio4) u = bits(static_cast<double>(1 + g() % ((std::uint64_t{1} << e) - 1)) * kPio4) + g() % 9 - 4;
    while (kind == kAny && (u >> 52 & 0x7ff) == 0x7ff) u = g();
    double v;   // the bits of u
    return std::memcpy(&v, &u, sizeof v), (g() & 1) ? -v : v;
}

// fns: each function of the row sees the same arguments; slow: the slow path
// on its own, also where the fast path decides; y from ky, x (atan2) from kx.
struct Sweep { const char* fns; bool slow; Kind ky; double ylo, yhi; long count; Kind kx = kLog; double xlo = 0, xhi = 0; };

const Sweep kSweeps[] = {
    {"sca", false, kLog, -1074, -20, 6000}, {"sca", false, kLog, -30, 0, 12000}, {"sca", false, kUniform, -4, 4, 24000},
    {"sc", false, kNearPio4, 10, 10, 12000}, {"sc", false, kNearPio4, 21, 21, 12000}, {"sc", false, kNearPio4, 60, 60, 12000},
    {"sc", false, kUniform, -1647099, 1647099, 12000}, {"sc", false, kLog, 19, 73, 12000}, {"sc", false, kLog, 73, 1023, 12000},
    {"sca", false, kAny, 0, 0, 12000}, {"a", false, kUniform, 1 - 1e-6, 1 + 1e-6, 12000}, {"a", false, kLog, 0, 70, 12000},
    {"t", false, kUniform, -4, 4, 12000, kUniform, -4, 4}, {"t", false, kNear, 1e-3, 0, 12000, kLog, -40, 40},
    {"t", false, kGap, -90, 90, 24000, kLog, -1000, 1000}, {"t", false, kLog, -1074, -1000, 12000, kLog, -1074, -1000},
    {"t", false, kLog, -1074, -900, 12000, kLog, -100, 100}, {"t", false, kAny, 0, 0, 12000, kAny}, {"sca", true, kUniform, 0.5, 4, 300},
    {"sc", true, kNearPio4, 30, 30, 300}, {"sca", true, kLog, -27, 59, 600}, {"sc", true, kLog, 60, 1023, 300},
    {"t", true, kGap, -20, 20, 600, kLog, -20, 20},
};

TEST(Elementary, FunctionsAndSlowPathsAreCorrectlyRounded)
{
    std::mt19937_64 g(101);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    for (const Sweep& s : kSweeps) {
        long mismatches = 0;
        for (long n = 0; n < s.count * QEL_SWEEP_SCALE; ++n) {
            double x = s.fns[0] == 't' ? draw(g, s.kx, s.xlo, s.xhi) : 0;
            double y = s.ky == kNear ? x * (1 + s.ylo * u(g)) : s.ky != kGap ? draw(g, s.ky, s.ylo, s.yhi)
                     : std::ldexp(draw(g, kLog, 0, 0), std::ilogb(x) + static_cast<int>(draw(g, kUniform, s.ylo, s.yhi)));
            for (const char* f = s.fns; *f; ++f) {
                double got = eval(*f, s.slow, y, x), want = reference(*f, y, x);
                if (!same(got, want) && ++mismatches <= 5)
                    ADD_FAILURE() << *f << (s.slow ? " slow" : "") << std::hexfloat << " (" << y << ", " << x << ") = " << got << ", MPFR " << want;
            }
        }
        EXPECT_EQ(mismatches, 0) << "sweep " << &s - kSweeps;
    }
}
#endif

}  // namespace
