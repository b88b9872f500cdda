// The elementary functions against MPFR: tables, kernel error bounds, and
// sweeps over every range of arguments with zero mismatches allowed. Every
// argument whose fast path leaves the decision to the slow path is counted
// and compared like the others. The build's long sweep runs the same sweeps
// with QEL_SWEEP_SCALE times more arguments.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

#include "foundation/elementary.h"
#include "foundation/atan_kernel.h"
#include "foundation/elementary_internal.h"
#include "foundation/reduce_pio2.h"
#include "foundation/sin_cos_kernel.h"
#include "mpfr_reference.h"

#ifndef QEL_SWEEP_SCALE
#define QEL_SWEEP_SCALE 1
#endif

namespace {

using ref::Fn;

constexpr long kScale = QEL_SWEEP_SCALE;

// ---------------------------------------------------------------- tables

// The high-precision value v as successive 32-bit fraction words.
std::vector<std::uint32_t> fraction_words(mpfr_t v, int count)
{
    mpfr_t t;
    mpfr_init2(t, 4000);
    mpfr_frac(t, v, MPFR_RNDN);
    std::vector<std::uint32_t> w;
    for (int i = 0; i < count; ++i) {
        mpfr_mul_2ui(t, t, 32, MPFR_RNDN);
        w.push_back(static_cast<std::uint32_t>(mpfr_get_ui(t, MPFR_RNDZ)));
        mpfr_frac(t, t, MPFR_RNDN);
    }
    mpfr_clear(t);
    return w;
}

TEST(ElementaryTables, TwoOverPiAndPiWordsMatchMpfr)
{
    mpfr_t v;
    mpfr_init2(v, 4000);
    mpfr_const_pi(v, MPFR_RNDN);
    mpfr_ui_div(v, 2, v, MPFR_RNDN);
    std::vector<std::uint32_t> w = fraction_words(v, qel::kTwoOverPiWordCount);
    for (int i = 0; i < qel::kTwoOverPiWordCount; ++i) EXPECT_EQ(qel::kTwoOverPiWords[i], w[i]) << i;

    mpfr_const_pi(v, MPFR_RNDN);
    std::vector<std::uint32_t> pi = fraction_words(v, qel::fx::kWords - 1);
    mpfr_div_2ui(v, v, 1, MPFR_RNDN);
    std::vector<std::uint32_t> pio2 = fraction_words(v, qel::fx::kWords - 1);
    EXPECT_EQ(qel::kPiFixed.w[0], 3u);
    EXPECT_EQ(qel::kPio2Fixed.w[0], 1u);
    for (int i = 1; i < qel::fx::kWords; ++i) {
        EXPECT_EQ(qel::kPiFixed.w[i], pi[i - 1]) << i;
        EXPECT_EQ(qel::kPio2Fixed.w[i], pio2[i - 1]) << i;
    }
    mpfr_clear(v);
}

// hi + lo must be v rounded to 106 bits with hi = v rounded to 53 bits.
void expect_double_double(mpfr_t v, double hi, double lo, const char* what, int index)
{
    mpfr_t t;
    mpfr_init2(t, 4000);
    EXPECT_EQ(ref::bits(hi), ref::bits(mpfr_get_d(v, MPFR_RNDN))) << what << " " << index;
    mpfr_sub_d(t, v, hi, MPFR_RNDN);
    EXPECT_EQ(ref::bits(lo), ref::bits(mpfr_get_d(t, MPFR_RNDN))) << what << " " << index;
    mpfr_clear(t);
}

TEST(ElementaryTables, SineCosineAndArcTangentAnchorsMatchMpfr)
{
    mpfr_t a, v;
    mpfr_init2(a, 4000);
    mpfr_init2(v, 4000);
    for (int i = 0; i < qel::kSinCosTableSize; ++i) {
        mpfr_set_ui(a, static_cast<unsigned long>(i), MPFR_RNDN);
        mpfr_div_2ui(a, a, 8, MPFR_RNDN);
        mpfr_sin(v, a, MPFR_RNDN);
        expect_double_double(v, qel::kSinCosTable[i][0], qel::kSinCosTable[i][1], "sin", i);
        mpfr_cos(v, a, MPFR_RNDN);
        expect_double_double(v, qel::kSinCosTable[i][2], qel::kSinCosTable[i][3], "cos", i);
    }
    for (int j = 0; j < qel::kAtanTableSize; ++j) {
        mpfr_set_ui(a, static_cast<unsigned long>(j), MPFR_RNDN);
        mpfr_div_2ui(a, a, 8, MPFR_RNDN);
        mpfr_atan(v, a, MPFR_RNDN);
        expect_double_double(v, qel::kAtanTable[j][0], qel::kAtanTable[j][1], "atan", j);
        mpfr_const_pi(a, MPFR_RNDN);
        mpfr_div_2ui(a, a, 1, MPFR_RNDN);
        mpfr_sub(v, a, v, MPFR_RNDN);
        expect_double_double(v, qel::kAtanTable[j][2], qel::kAtanTable[j][3], "pi/2 - atan", j);
    }
    mpfr_const_pi(v, MPFR_RNDN);
    expect_double_double(v, qel::kPiDD.hi, qel::kPiDD.lo, "pi", 0);
    mpfr_div_2ui(v, v, 1, MPFR_RNDN);
    expect_double_double(v, qel::kPio2DD.hi, qel::kPio2DD.lo, "pi/2", 0);
    mpfr_clears(a, v, static_cast<mpfr_ptr>(nullptr));
}

// ------------------------------------------------------- kernel bounds

// |(hi + lo) - f(arg)| / |f(arg)| in high precision.
double relative_error(int (*f)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t), double ah, double al, qel::dd::DD y)
{
    mpfr_t a, exact, got;
    mpfr_inits2(400, a, exact, got, static_cast<mpfr_ptr>(nullptr));
    mpfr_set_d(a, ah, MPFR_RNDN);
    mpfr_add_d(a, a, al, MPFR_RNDN);
    f(exact, a, MPFR_RNDN);
    mpfr_set_d(got, y.hi, MPFR_RNDN);
    mpfr_add_d(got, got, y.lo, MPFR_RNDN);
    mpfr_sub(got, got, exact, MPFR_RNDN);
    mpfr_div(got, got, exact, MPFR_RNDN);
    double e = std::fabs(mpfr_get_d(got, MPFR_RNDN));
    mpfr_clears(a, exact, got, static_cast<mpfr_ptr>(nullptr));
    return e;
}

// |(hi + lo) - atan(a/b)| / atan(a/b) in high precision.
double relative_error_ratio(double a, double b, qel::dd::DD y)
{
    mpfr_t exact, got, bb;
    mpfr_inits2(400, exact, got, bb, static_cast<mpfr_ptr>(nullptr));
    mpfr_set_d(exact, a, MPFR_RNDN);
    mpfr_set_d(bb, b, MPFR_RNDN);
    mpfr_atan2(exact, exact, bb, MPFR_RNDN);
    mpfr_set_d(got, y.hi, MPFR_RNDN);
    mpfr_add_d(got, got, y.lo, MPFR_RNDN);
    mpfr_sub(got, got, exact, MPFR_RNDN);
    mpfr_div(got, got, exact, MPFR_RNDN);
    double e = std::fabs(mpfr_get_d(got, MPFR_RNDN));
    mpfr_clears(exact, got, bb, static_cast<mpfr_ptr>(nullptr));
    return e;
}

// The measured error stays below half the bound the rounding test relies on (the bounds are derived in the kernels' files).
TEST(ElementaryKernels, ErrorsStayWellInsideTheirBounds)
{
    ref::Arguments args(11);
    double worst_sin = 0, worst_cos = 0, worst_atan = 0;
    for (long n = 0; n < 20000 * kScale; ++n) {
        double rh = args.uniform(-0.78539816, 0.78539816);
        if (n % 3 == 0) rh = std::ldexp(rh, -static_cast<int>(args.next() % 40));
        double rl = rh * args.uniform(-0x1p-53, 0x1p-53);
        qel::dd::DD s = qel::sin_cos_kernel(rh, rl, 0), c = qel::sin_cos_kernel(rh, rl, 1);
        worst_sin = std::max(worst_sin, relative_error(mpfr_sin, rh, rl, s));
        worst_cos = std::max(worst_cos, relative_error(mpfr_cos, rh, rl, c));
        double zh = std::fabs(args.uniform(0, 1));
        if (n % 3 == 0) zh = std::ldexp(zh, -static_cast<int>(args.next() % 60));
        if (zh == 0) continue;
        // The kernel takes z as a pair (a, b); compare with atan of a/b.
        double b = std::ldexp(args.uniform(1, 2), static_cast<int>(args.next() % 200) - 100);
        double a = zh * b;
        if (a > b) a = b;
        worst_atan = std::max(worst_atan, relative_error_ratio(a, b, qel::atan_kernel(a, b, a / b)));
        // The complement pi/2 - atan(a/b) is atan2(b, a).
        worst_atan = std::max(worst_atan, relative_error_ratio(b, a, qel::atan_kernel<true>(a, b, a / b)));
    }
    std::printf("kernel errors: sin 2^%.2f cos 2^%.2f atan 2^%.2f\n", std::log2(worst_sin),
                std::log2(worst_cos), std::log2(worst_atan));
    EXPECT_LT(worst_sin, qel::kSinKernelError / 2);
    EXPECT_LT(worst_cos, qel::kCosKernelError / 2);
    EXPECT_LT(worst_atan, qel::kAtanKernelError / 2);
}

// ---------------------------------------------------------------- sweeps

struct Tally {
    long checked = 0;
    long slow = 0;
    long mismatches = 0;
};

// Compares f with MPFR on count arguments from gen; counts the arguments
// that the fast path hands to the slow path.
void sweep_unary(const char* name, Fn fn, double (*f)(double), bool (*fast)(double, double*),
                 const std::function<double()>& gen, long count, Tally& total)
{
    Tally t;
    for (long n = 0; n < count; ++n) {
        double x = gen();
        double got = f(x);
        double want = ref::reference(fn, x);
        ++t.checked;
        double ax = std::fabs(x);
        double dummy;
        bool fast_domain = ax >= 0x1p-27 && (fn != Fn::kAtan || ax <= 0x1p60);
        if (fast_domain && !fast(x, &dummy)) ++t.slow;
        if (!ref::same(got, want)) {
            if (t.mismatches < 10)
                ADD_FAILURE() << name << "(" << std::hexfloat << x << ") = " << got << ", MPFR " << want;
            ++t.mismatches;
        }
    }
    total.checked += t.checked;
    total.slow += t.slow;
    total.mismatches += t.mismatches;
}

void report(const char* what, const Tally& t)
{
    std::printf("%s: %ld arguments, %ld decided by the slow path (%.2e), %ld mismatches\n", what, t.checked,
                t.slow, static_cast<double>(t.slow) / static_cast<double>(t.checked), t.mismatches);
}

void sweep_sin_or_cos(const char* name, Fn fn, double (*f)(double), bool (*fast)(double, double*))
{
    ref::Arguments a(fn == Fn::kSin ? 101 : 202);
    Tally t;
    long n = 12000 * kScale;
    sweep_unary(name, fn, f, fast, [&] { return a.log_uniform(-1074, -20); }, n / 2, t);   // tiny, subnormal
    sweep_unary(name, fn, f, fast, [&] { return a.log_uniform(-30, 0); }, n, t);          // small
    sweep_unary(name, fn, f, fast, [&] { return a.uniform(-4, 4); }, 2 * n, t);           // around 1
    sweep_unary(name, fn, f, fast, [&] { return a.near_pio4_multiple(10); }, n, t);       // k pi/4
    sweep_unary(name, fn, f, fast, [&] { return a.near_pio4_multiple(21); }, n, t);
    sweep_unary(name, fn, f, fast, [&] { return a.near_pio4_multiple(60); }, n, t);
    sweep_unary(name, fn, f, fast, [&] { return a.uniform(-1647099.0, 1647099.0); }, n, t); // Cody-Waite
    sweep_unary(name, fn, f, fast, [&] { return a.log_uniform(19, 73); }, n, t);          // up to 1e22
    sweep_unary(name, fn, f, fast, [&] { return a.log_uniform(73, 1023); }, n, t);        // up to max
    sweep_unary(name, fn, f, fast, [&] { return a.any_finite(); }, n, t);
    report(name, t);
    EXPECT_EQ(t.mismatches, 0);
}

TEST(ElementarySweep, SineMatchesMpfrEverywhere) { sweep_sin_or_cos("sin", Fn::kSin, qel::sin, qel::sin_fast); }
TEST(ElementarySweep, CosineMatchesMpfrEverywhere) { sweep_sin_or_cos("cos", Fn::kCos, qel::cos, qel::cos_fast); }

TEST(ElementarySweep, ArcTangentMatchesMpfrEverywhere)
{
    ref::Arguments a(303);
    Tally t;
    long n = 12000 * kScale;
    auto f = qel::atan;
    auto fast = qel::atan_fast;
    sweep_unary("atan", Fn::kAtan, f, fast, [&] { return a.log_uniform(-1074, -20); }, n / 2, t);
    sweep_unary("atan", Fn::kAtan, f, fast, [&] { return a.log_uniform(-30, 0); }, n, t);
    sweep_unary("atan", Fn::kAtan, f, fast, [&] { return a.uniform(-4, 4); }, 2 * n, t);
    sweep_unary("atan", Fn::kAtan, f, fast, [&] { return a.sign(1.0 + a.uniform(-1e-6, 1e-6)); }, n, t);
    sweep_unary("atan", Fn::kAtan, f, fast, [&] { return a.log_uniform(0, 70); }, n, t);
    sweep_unary("atan", Fn::kAtan, f, fast, [&] { return a.any_finite(); }, n, t);
    report("atan", t);
    EXPECT_EQ(t.mismatches, 0);
}

TEST(ElementarySweep, TwoArgumentArcTangentMatchesMpfrEverywhere)
{
    ref::Arguments a(404);
    Tally t;
    long n = 12000 * kScale;
    auto check = [&](double y, double x) {
        double got = qel::atan2(y, x);
        double want = ref::reference(Fn::kAtan2, y, x);
        ++t.checked;
        double dummy;
        int d = std::ilogb(y) - std::ilogb(x);
        if (y != 0 && x != 0 && d >= -55 && d <= 63 && !qel::atan2_fast(y, x, &dummy)) ++t.slow;
        if (!ref::same(got, want)) {
            if (t.mismatches < 10)
                ADD_FAILURE() << "atan2(" << std::hexfloat << y << ", " << x << ") = " << got << ", MPFR " << want;
            ++t.mismatches;
        }
    };
    for (long i = 0; i < n; ++i) check(a.uniform(-4, 4), a.uniform(-4, 4));  // every quadrant
    for (long i = 0; i < n; ++i) {                                            // ratios near 1
        double x = a.log_uniform(-40, 40);
        check(a.sign(std::fabs(x) * (1 + a.uniform(-1e-3, 1e-3))), x);
    }
    for (long i = 0; i < 2 * n; ++i) {  // exponent differences up to +-90, all scales
        double x = a.log_uniform(-1000, 1000);
        int d = static_cast<int>(a.next() % 181) - 90;
        int e = std::max(-1074, std::min(1023, std::ilogb(x) + d));
        check(a.log_uniform(e, e), x);
    }
    for (long i = 0; i < n; ++i) check(a.log_uniform(-1074, -1000), a.log_uniform(-1074, -1000));  // subnormal
    for (long i = 0; i < n; ++i) check(a.log_uniform(-1074, -900), a.sign(a.log_uniform(-100, 100)));
    for (long i = 0; i < n; ++i) check(a.any_finite(), a.any_finite());
    report("atan2", t);
    EXPECT_EQ(t.mismatches, 0);
}

// The slow paths on their own, also where the fast path would have decided:
// they must agree with MPFR on arguments of every kind.
TEST(ElementarySweep, SlowPathsAgreeWithMpfrOnTheirOwn)
{
    ref::Arguments a(505);
    long mismatches = 0;
    for (long i = 0; i < 600 * kScale; ++i) {
        double x;
        switch (i % 4) {
        case 0: x = a.uniform(-4, 4); break;
        case 1: x = a.log_uniform(-27, 0); break;
        case 2: x = a.near_pio4_multiple(30); break;
        default: x = a.log_uniform(0, 1023); break;
        }
        if (std::fabs(x) < 0x1p-27) continue;
        mismatches += !ref::same(qel::sin_slow(x), ref::reference(Fn::kSin, x));
        mismatches += !ref::same(qel::cos_slow(x), ref::reference(Fn::kCos, x));
        if (std::fabs(x) <= 0x1p60) mismatches += !ref::same(qel::atan_slow(x), ref::reference(Fn::kAtan, x));
        double y = a.sign(a.log_uniform(-20, 20));
        int d = std::ilogb(y) - std::ilogb(x);
        if (d >= -55 && d <= 63) mismatches += !ref::same(qel::atan2_slow(y, x), ref::reference(Fn::kAtan2, y, x));
    }
    EXPECT_EQ(mismatches, 0);
}

}  // namespace
