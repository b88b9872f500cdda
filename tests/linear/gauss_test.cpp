// Gaussian elimination, real and complex, and the closed forms for 2, 3 and
// 4 unknowns.
#include <cmath>
#include <complex>
#include <cstddef>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "reference.h"
#include "test_util.h"

namespace {

using lintest::bits;
using lintest::same_bits;
using lintest::Vec;

constexpr double kEps = 2.220446049250313e-16;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Matrices whose entries come from a few integers, so that many magnitudes
// tie and the first-met rule decides most pivots.
Vec tied_matrix(std::mt19937_64& rng, std::size_t n)
{
    std::uniform_int_distribution<int> d(-3, 3);
    Vec a(n * n);
    for (double& x : a) x = d(rng);
    return a;
}

class Gauss : public lintest::AtEveryWidth {};

TEST_F(Gauss, SameBitsAsThePlainTranscriptionAtEveryWidth)
{
    for (qel::SimdLevel level : lintest::levels()) {
        qel::cap_simd_level(level);
        std::mt19937_64 rng(1);
        for (std::size_t n = 1; n <= 70; n += (n < 20 ? 1 : 7)) {
            for (int shape = 0; shape < 3; ++shape) {
                Vec a = shape == 0 ? lintest::random_matrix(rng, n, n) : tied_matrix(rng, n);
                if (shape == 2 && n > 2) a[n + 1] = kNaN;  // never a pivot
                Vec b = lintest::random_matrix(rng, n, 1);
                Vec ra = a, rb = b;
                const int want = ref::gauss(ra.data(), rb.data(), n);
                const int got = linear_Gauss(a.data(), b.data(), static_cast<int>(n));
                ASSERT_EQ(got, want) << "n " << n << " shape " << shape;
                if (want == 1) {
                    EXPECT_TRUE(same_bits(b, rb)) << "n " << n << " shape " << shape;
                    EXPECT_TRUE(same_bits(a, ra)) << "n " << n << " shape " << shape;
                }
            }
        }
    }
}

TEST(GaussReal, OneUnknown)
{
    double a = 4.0, b = 2.0;
    EXPECT_EQ(linear_Gauss(&a, &b, 1), 1);
    EXPECT_EQ(b, 0.5);
    a = kEps, b = 1.0;
    EXPECT_EQ(linear_Gauss(&a, &b, 1), 0);
    a = -kEps, b = 1.0;
    EXPECT_EQ(linear_Gauss(&a, &b, 1), 0);
    a = std::nextafter(kEps, 1.0), b = 1.0;
    EXPECT_EQ(linear_Gauss(&a, &b, 1), 1);
}

TEST(GaussReal, SingularPathsReturnZero)
{
    Vec zero(9, 0.0), b{1, 2, 3};
    EXPECT_EQ(linear_Gauss(zero.data(), b.data(), 3), 0);
    // Rank one: the second pivot vanishes.
    Vec rank1{1, 2, 3, 2, 4, 6, 3, 6, 9};
    b = {1, 2, 3};
    EXPECT_EQ(linear_Gauss(rank1.data(), b.data(), 3), 0);
    // Regular until the last diagonal element, which is tested on its own.
    Vec last{2, 0, 0, 1e-17};
    b = {1, 1};
    EXPECT_EQ(linear_Gauss(last.data(), b.data(), 2), 0);
    // A last element that is not a number passes that test.
    Vec nan_last{2, 0, 0, kNaN};
    b = {1, 1};
    EXPECT_EQ(linear_Gauss(nan_last.data(), b.data(), 2), 1);
    EXPECT_TRUE(std::isnan(b[1]));
}

TEST(GaussReal, ExchangesLeaveTheUnknownsInTheCallersOrder)
{
    Vec a{0, 1, 1, 0}, b{3, 5};
    ASSERT_EQ(linear_Gauss(a.data(), b.data(), 2), 1);
    EXPECT_EQ(b, (Vec{5, 3}));
    // The largest entry off the diagonal: columns and rows both exchanged.
    a = {1, 2, 3, 4}, b = {5, 6};
    ASSERT_EQ(linear_Gauss(a.data(), b.data(), 2), 1);
    EXPECT_EQ(b, (Vec{-4, 4.5}));
    // Reversed identity of order 5: an exchange at every step.
    Vec rev(25, 0.0);
    for (int i = 0; i < 5; ++i) rev[i * 5 + (4 - i)] = 1.0;
    b = {1, 2, 3, 4, 5};
    ASSERT_EQ(linear_Gauss(rev.data(), b.data(), 5), 1);
    EXPECT_EQ(b, (Vec{5, 4, 3, 2, 1}));
}

TEST(GaussReal, EqualMagnitudesMakeNoExchangeAtTheFirstStep)
{
    // All magnitudes 1: the pivot is (0, 0); the transcription fixes what
    // the reduced matrix then holds.
    Vec a{1, -1, 1, -1, 1, 1, 1, 1, -1}, b{1, 2, 3};
    Vec ra = a, rb = b;
    ASSERT_EQ(ref::gauss(ra.data(), rb.data(), 3), 1);
    ASSERT_EQ(linear_Gauss(a.data(), b.data(), 3), 1);
    EXPECT_TRUE(same_bits(a, ra));
    EXPECT_EQ(a[0], 1.0);
    EXPECT_TRUE(same_bits(b, rb));
}

TEST(GaussReal, SmallResidualOnWellConditionedSystemsUpTo200)
{
    std::mt19937_64 rng(3);
    for (std::size_t n : {2u, 3u, 7u, 16u, 50u, 101u, 200u}) {
        Vec a0 = lintest::well_conditioned(rng, n);
        Vec b0 = lintest::random_matrix(rng, n, 1);
        Vec a = a0, x = b0;
        ASSERT_EQ(linear_Gauss(a.data(), x.data(), static_cast<int>(n)), 1);
        EXPECT_LT(lintest::relative_residual(a0, x, b0, n), 1e-15 * double(n)) << n;
    }
}

// --- closed forms ------------------------------------------------------------

TEST(Gauss2, CramerWithTheReciprocal)
{
    Vec a{1, 1, 1, 4}, b{6, 1};
    ASSERT_EQ(linear_Gauss2(a.data(), b.data()), 1);
    // 23 * (1/3) and -5 * (1/3): a true division would round differently.
    EXPECT_EQ(bits(b[0]), 0x401eaaaaaaaaaaaau);
    EXPECT_EQ(bits(b[1]), 0xbffaaaaaaaaaaaaau);
    EXPECT_EQ(a, (Vec{1, 1, 1, 4}));
}

TEST(Gauss2, ThresholdIsInclusive)
{
    Vec a{kEps, 0, 0, 1}, b{1, 2};
    EXPECT_EQ(linear_Gauss2(a.data(), b.data()), 0);
    EXPECT_EQ(b, (Vec{1, 2}));
    a = {2.3e-16, 0, 0, 1};
    EXPECT_EQ(linear_Gauss2(a.data(), b.data()), 1);
    a = {1, 2, 2, 4}, b = {1, 2};
    EXPECT_EQ(linear_Gauss2(a.data(), b.data()), 0);
    EXPECT_EQ(b, (Vec{1, 2}));
}

TEST(Gauss3, GoldenBitsAndChoiceOfEquations)
{
    Vec a{4, 1, 2, 1, 5, 3, 2, 1, 6}, b{1, 2, 3};
    const Vec a_in = a;
    ASSERT_EQ(linear_Gauss3(a.data(), b.data()), 1);
    EXPECT_EQ(bits(b[0]), 0xbf96c16c16c16c17u);
    EXPECT_EQ(bits(b[1]), 0x3fbc71c71c71c71bu);
    EXPECT_EQ(bits(b[2]), 0x3fdf49f49f49f49du);
    EXPECT_TRUE(same_bits(a, a_in));

    // Minor of equations 0 and 1 vanishes: equations 0 and 2 are used.
    a = {2, 0, 1, 1, 0, 3, 5, 1, 1}, b = {1, 2, 3};
    ASSERT_EQ(linear_Gauss3(a.data(), b.data()), 1);
    EXPECT_EQ(bits(b[0]), 0x3fc999999999999au);
    EXPECT_EQ(bits(b[1]), 0x3ff6666666666666u);
    EXPECT_EQ(bits(b[2]), 0x3fe3333333333333u);

    // First row (a00, 0, 0): equations 1 and 2.
    a = {2, 0, 0, 0, 3, 0, 0, 0, 4}, b = {1, 2, 3};
    ASSERT_EQ(linear_Gauss3(a.data(), b.data()), 1);
    EXPECT_EQ(b[0], 0.5);
    EXPECT_EQ(b[1], 8.0 * (1.0 / 12.0));
    EXPECT_EQ(b[2], 0.75);
}

TEST(Gauss3, SingularLeavesBUnchanged)
{
    Vec a{1, 2, 3, 2, 4, 6, 1, 1, 1}, b{1, 2, 3};
    EXPECT_EQ(linear_Gauss3(a.data(), b.data()), 0);
    EXPECT_EQ(b, (Vec{1, 2, 3}));
}

TEST(Gauss3, TinyMinorsFallBackToElimination)
{
    // D = 1e10 * 1e-20 passes the threshold but no 2 x 2 minor does.
    Vec a{1e10, 0, 0, 0, 1e-10, 0, 0, 0, 1e-10}, b{1, 2, 3};
    const Vec a_in = a;
    Vec ra = a, rb = b;
    ASSERT_EQ(ref::gauss(ra.data(), rb.data(), 3), 1);
    ASSERT_EQ(linear_Gauss3(a.data(), b.data()), 1);
    EXPECT_TRUE(same_bits(b, rb));
    EXPECT_TRUE(same_bits(a, a_in));
    EXPECT_EQ(b[0], 1e-10);

    // The elimination can still find a pivot below the threshold: b untouched.
    a = {100, 0, 0, 0, 1e-17, 0, 0, 0, 1}, b = {1, 2, 3};
    EXPECT_EQ(linear_Gauss3(a.data(), b.data()), 0);
    EXPECT_EQ(b, (Vec{1, 2, 3}));
    EXPECT_EQ(a[4], 1e-17);
}

TEST(Gauss4, GoldenBits)
{
    Vec a{5, 1, 2, 0, 1, 6, 1, 2, 2, 1, 7, 1, 0, 2, 1, 8}, b{1, 2, 3, 4};
    const Vec a_in = a;
    ASSERT_EQ(linear_Gauss4(a.data(), b.data()), 1);
    EXPECT_EQ(bits(b[0]), 0x3fa3f4072ee3ddaeu);
    EXPECT_EQ(bits(b[1]), 0x3fc0761f86af307du);
    EXPECT_EQ(bits(b[2]), 0x3fd5a635dfacfe9au);
    EXPECT_EQ(bits(b[3]), 0x3fdb3c7553347a1du);
    EXPECT_TRUE(same_bits(a, a_in));
}

TEST(Gauss4, SingularCombinedEquationsFallBackToElimination)
{
    Vec id(16, 0.0);
    for (int i = 0; i < 4; ++i) id[i * 5] = 1.0;
    Vec b{1.5, -2, 3.25, 4};
    ASSERT_EQ(linear_Gauss4(id.data(), b.data()), 1);
    EXPECT_EQ(b, (Vec{1.5, -2, 3.25, 4}));

    // Combined equations singular, elimination finds a pivot below the
    // threshold: 0 and b untouched, although D passed.
    Vec a{1e3, 0, 0, 0, 0, 1e3, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1e-17};
    b = {1, 2, 3, 4};
    EXPECT_EQ(linear_Gauss4(a.data(), b.data()), 0);
    EXPECT_EQ(b, (Vec{1, 2, 3, 4}));
}

TEST(Gauss4, SingularLeavesBUnchanged)
{
    Vec a{1, 2, 3, 4, 2, 4, 6, 8, 0, 1, 0, 1, 1, 0, 1, 0}, b{1, 2, 3, 4};
    EXPECT_EQ(linear_Gauss4(a.data(), b.data()), 0);
    EXPECT_EQ(b, (Vec{1, 2, 3, 4}));
}

TEST(ClosedForms, AgreeWithEliminationOnRegularSystems)
{
    std::mt19937_64 rng(5);
    for (int trial = 0; trial < 200; ++trial) {
        for (std::size_t n : {2u, 3u, 4u}) {
            Vec a = lintest::random_matrix(rng, n, n);
            Vec b = lintest::random_matrix(rng, n, 1);
            Vec ea = a, eb = b, cb = b;
            ASSERT_EQ(linear_Gauss(ea.data(), eb.data(), static_cast<int>(n)), 1);
            int r = n == 2 ? linear_Gauss2(a.data(), cb.data())
                           : n == 3 ? linear_Gauss3(a.data(), cb.data())
                                    : linear_Gauss4(a.data(), cb.data());
            ASSERT_EQ(r, 1);
            double scale = 0.0;
            for (double x : eb) scale = std::fmax(scale, std::fabs(x));
            for (std::size_t i = 0; i < n; ++i)
                EXPECT_NEAR(cb[i], eb[i], 1e-9 * scale) << "n " << n << " trial " << trial;
        }
    }
}

// --- complex ---------------------------------------------------------------

TEST_F(Gauss, ComplexSameBitsAsThePlainTranscriptionAtEveryWidth)
{
    for (qel::SimdLevel level : lintest::levels()) {
        qel::cap_simd_level(level);
        std::mt19937_64 rng(2);
        for (std::size_t n = 1; n <= 45; n += (n < 12 ? 1 : 11)) {
            for (int shape = 0; shape < 2; ++shape) {
                Vec ar = shape ? tied_matrix(rng, n) : lintest::random_matrix(rng, n, n);
                Vec ai = shape ? tied_matrix(rng, n) : lintest::random_matrix(rng, n, n);
                Vec br = lintest::random_matrix(rng, n, 1), bi = lintest::random_matrix(rng, n, 1);
                Vec rar = ar, rai = ai, rbr = br, rbi = bi;
                int want = ref::cgauss(rar.data(), rai.data(), n, rbr.data(), rbi.data());
                int got = linear_Gauss(ar.data(), ai.data(), static_cast<int>(n), br.data(),
                                       bi.data());
                ASSERT_EQ(got, want) << "n " << n;
                if (want == 1) {
                    EXPECT_TRUE(same_bits(br, rbr) && same_bits(bi, rbi)) << "n " << n;
                    EXPECT_TRUE(same_bits(ar, rar) && same_bits(ai, rai)) << "n " << n;
                }
            }
        }
    }
}

TEST(GaussComplex, PivotTestOnTheSquaredModulus)
{
    double ar = 1.49e-8, ai = 0.0, br = 1.0, bi = 0.0;
    EXPECT_EQ(linear_Gauss(&ar, &ai, 1, &br, &bi), 0);
    ar = 1.5e-8, ai = 0.0, br = 1.0, bi = 0.0;
    EXPECT_EQ(linear_Gauss(&ar, &ai, 1, &br, &bi), 1);
    ar = 1e-8, ai = 1e-8, br = 1.0, bi = 0.0;
    EXPECT_EQ(linear_Gauss(&ar, &ai, 1, &br, &bi), 0);
    // (1 + 2i) x = 5: x = 1 - 2i, exactly through the conjugate.
    ar = 1, ai = 2, br = 5, bi = 0;
    ASSERT_EQ(linear_Gauss(&ar, &ai, 1, &br, &bi), 1);
    EXPECT_EQ(br, 1.0);
    EXPECT_EQ(bi, -2.0);
    Vec zr(4, 0.0), zi(4, 0.0), vr{1, 1}, vi{0, 0};
    EXPECT_EQ(linear_Gauss(zr.data(), zi.data(), 2, vr.data(), vi.data()), 0);
}

TEST(GaussComplex, OffDiagonalPivotKeepsTheCallersOrder)
{
    // [[0, i], [2, 0]] x = [1, 4]: x = [2, -i].
    Vec ar{0, 0, 2, 0}, ai{0, 1, 0, 0}, br{1, 4}, bi{0, 0};
    ASSERT_EQ(linear_Gauss(ar.data(), ai.data(), 2, br.data(), bi.data()), 1);
    EXPECT_EQ(br, (Vec{2, 0}));
    EXPECT_EQ(bi, (Vec{0, -1}));
}

TEST(GaussComplex, RealDataAgreesWithTheRealSolverAndResidualIsSmall)
{
    std::mt19937_64 rng(4);
    for (std::size_t n : {3u, 20u, 120u}) {
        Vec a = lintest::well_conditioned(rng, n), b = lintest::random_matrix(rng, n, 1);
        Vec ra = a, rb = b, ci(n * n, 0.0), cr = a, xr = b, xi(n, 0.0);
        ASSERT_EQ(linear_Gauss(ra.data(), rb.data(), static_cast<int>(n)), 1);
        ASSERT_EQ(linear_Gauss(cr.data(), ci.data(), static_cast<int>(n), xr.data(), xi.data()), 1);
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_NEAR(xr[i], rb[i], 1e-13);
            EXPECT_EQ(xi[i], 0.0);
        }
        // A genuinely complex system: residual through std::complex.
        Vec mr = lintest::well_conditioned(rng, n), mi = lintest::random_matrix(rng, n, n);
        Vec vr = lintest::random_matrix(rng, n, 1), vi = lintest::random_matrix(rng, n, 1);
        Vec wr = mr, wi = mi, sr = vr, si = vi;
        ASSERT_EQ(linear_Gauss(wr.data(), wi.data(), static_cast<int>(n), sr.data(), si.data()), 1);
        double worst = 0.0;
        for (std::size_t i = 0; i < n; ++i) {
            std::complex<double> r(-vr[i], -vi[i]);
            for (std::size_t j = 0; j < n; ++j)
                r += std::complex<double>(mr[i * n + j], mi[i * n + j]) *
                     std::complex<double>(sr[j], si[j]);
            worst = std::fmax(worst, std::abs(r));
        }
        EXPECT_LT(worst, 1e-12 * double(n)) << n;
    }
}

}  // namespace
