// Gauss-Jordan elimination, real and complex, and its sparse variant.
#include <cmath>
#include <cstddef>
#include <random>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "reference.h"
#include "test_util.h"

namespace {

using lintest::same_bits;
using lintest::Vec;

constexpr double kEps = 2.220446049250313e-16;

class GaussJordan : public lintest::AtEveryWidth {};

TEST_F(GaussJordan, SameBitsAsThePlainTranscriptionAtEveryWidth)
{
    std::uniform_int_distribution<int> small(-2, 2);
    for (qel::SimdLevel level : lintest::levels()) {
        qel::cap_simd_level(level);
        std::mt19937_64 rng(21);
        for (std::size_t n = 1; n <= 40; n += (n < 12 ? 1 : 9)) {
            for (std::size_t m : {0u, 1u, 3u, 9u}) {
                Vec a = lintest::random_matrix(rng, n, n);
                if (m == 3)
                    for (double& x : a) x = small(rng);
                Vec b = lintest::random_matrix(rng, n, m);
                Vec ra = a, rb = b;
                int want = ref::gauss_jordan(ra.data(), rb.data(), n, m);
                int got = linear_GaussJordan(a.data(), b.data(), int(n), int(m));
                ASSERT_EQ(got, want) << "n " << n << " m " << m;
                if (want == 1) {
                    EXPECT_TRUE(same_bits(b, rb)) << "n " << n << " m " << m;
                }
            }
        }
    }
}

TEST_F(GaussJordan, ComplexSameBitsAsThePlainTranscriptionAtEveryWidth)
{
    for (qel::SimdLevel level : lintest::levels()) {
        qel::cap_simd_level(level);
        std::mt19937_64 rng(22);
        for (std::size_t n = 1; n <= 30; n += (n < 10 ? 1 : 10)) {
            for (std::size_t m : {0u, 1u, 5u}) {
                Vec ar = lintest::random_matrix(rng, n, n), ai = lintest::random_matrix(rng, n, n);
                Vec br = lintest::random_matrix(rng, n, m), bi = lintest::random_matrix(rng, n, m);
                Vec rar = ar, rai = ai, rbr = br, rbi = bi;
                int want = ref::cgauss_jordan(rar.data(), rai.data(), rbr.data(), rbi.data(), n, m);
                int got = linear_GaussJordan(ar.data(), ai.data(), br.data(), bi.data(), int(n),
                                             int(m));
                ASSERT_EQ(got, want);
                if (want == 1) {
                    EXPECT_TRUE(same_bits(br, rbr) && same_bits(bi, rbi)) << n << m;
                }
            }
        }
    }
}

TEST(GaussJordanReal, OrderZeroAndNoRightHandSides)
{
    double a = 7.0, b = 9.0;
    EXPECT_EQ(linear_GaussJordan(&a, &b, 0, 3), 1);
    EXPECT_EQ(a, 7.0);
    EXPECT_EQ(b, 9.0);

    // m = 0: the matrix is reduced, b never written.
    Vec m2{2, 1, 1, 3};
    double sentinel = 42.0;
    EXPECT_EQ(linear_GaussJordan(m2.data(), &sentinel, 2, 0), 1);
    EXPECT_EQ(sentinel, 42.0);
    Vec singular{1, 2, 2, 4};
    EXPECT_EQ(linear_GaussJordan(singular.data(), &sentinel, 2, 0), 0);
    EXPECT_EQ(sentinel, 42.0);
}

TEST(GaussJordanReal, OneByOneThreshold)
{
    double a = kEps, b = 1.0;
    EXPECT_EQ(linear_GaussJordan(&a, &b, 1, 1), 0);
    a = -3e-16, b = 1.0;
    EXPECT_EQ(linear_GaussJordan(&a, &b, 1, 1), 1);
    EXPECT_EQ(b, 1.0 / -3e-16);
    double ar = 1.49e-8, ai = 0, br = 1, bi = 0;
    EXPECT_EQ(linear_GaussJordan(&ar, &ai, &br, &bi, 1, 1), 0);
    ar = 1.5e-8, ai = 0, br = 1, bi = 0;
    EXPECT_EQ(linear_GaussJordan(&ar, &ai, &br, &bi, 1, 1), 1);
}

TEST(GaussJordanReal, IdentityRightHandSideGivesTheInverse)
{
    std::mt19937_64 rng(23);
    const std::size_t n = 9;
    Vec a0 = lintest::well_conditioned(rng, n), a = a0, x(n * n, 0.0);
    for (std::size_t i = 0; i < n; ++i) x[i * n + i] = 1.0;
    ASSERT_EQ(linear_GaussJordan(a.data(), x.data(), int(n), int(n)), 1);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j) {
            double s = 0.0;
            for (std::size_t k = 0; k < n; ++k) s += a0[i * n + k] * x[k * n + j];
            EXPECT_NEAR(s, i == j ? 1.0 : 0.0, 1e-14);
        }
}

TEST(GaussJordanReal, ReversedIdentityExchangesAtEveryStep)
{
    const int n = 6, m = 2;
    Vec a(n * n, 0.0), b(n * m);
    for (int i = 0; i < n; ++i) {
        a[i * n + (n - 1 - i)] = 1.0;
        b[i * m] = i;
        b[i * m + 1] = 10 + i;
    }
    ASSERT_EQ(linear_GaussJordan(a.data(), b.data(), n, m), 1);
    for (int i = 0; i < n; ++i) {
        EXPECT_EQ(b[i * m], n - 1 - i);
        EXPECT_EQ(b[i * m + 1], 10 + n - 1 - i);
    }
}

TEST(GaussJordanReal, OneRightHandSideAgreesWithGaussAndResidualIsSmall)
{
    std::mt19937_64 rng(24);
    for (std::size_t n : {1u, 5u, 60u, 200u}) {
        Vec a0 = lintest::well_conditioned(rng, n), b0 = lintest::random_matrix(rng, n, 1);
        Vec a = a0, x = b0, ga = a0, gx = b0;
        ASSERT_EQ(linear_GaussJordan(a.data(), x.data(), int(n), 1), 1);
        ASSERT_EQ(linear_Gauss(ga.data(), gx.data(), int(n)), 1);
        for (std::size_t i = 0; i < n; ++i) EXPECT_NEAR(x[i], gx[i], 1e-14);
        EXPECT_LT(lintest::relative_residual(a0, x, b0, n), 1e-15 * double(n));
    }
}

// --- sparse ---------------------------------------------------------------

// Mostly zeros, some entries below the threshold, a strong diagonal.
Vec sparse_matrix(std::mt19937_64& rng, std::size_t n)
{
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    std::uniform_int_distribution<int> kind(0, 9);
    Vec a(n * n, 0.0);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j) {
            int k = kind(rng);
            if (i == j) a[i * n + j] = 4.0 + u(rng);
            else if (k < 2) a[i * n + j] = u(rng);
            else if (k == 2) a[i * n + j] = 1e-17 * u(rng);
            else if (k == 3) a[i * n + j] = kEps;
        }
    return a;
}

class Sparse : public lintest::AtEveryWidth {};

TEST_F(Sparse, SameBitsAsThePlainTranscriptionAtEveryWidth)
{
    for (qel::SimdLevel level : lintest::levels()) {
        qel::cap_simd_level(level);
        std::mt19937_64 rng(31);
        for (std::size_t n = 1; n <= 50; n += (n < 10 ? 1 : 8)) {
            Vec a = sparse_matrix(rng, n), b = lintest::random_matrix(rng, n, 1);
            Vec ra = a, rb = b;
            int want = ref::sparse_gauss_jordan(ra.data(), n, rb.data());
            ASSERT_EQ(linear_SparsenessGaussJordan(a.data(), int(n), b.data()), want);
            if (want == 1) {
                EXPECT_TRUE(same_bits(b, rb)) << n;
                EXPECT_TRUE(same_bits(a, ra)) << n;
            }
        }
    }
}

TEST(SparseGaussJordan, NegligibleEntriesAreNeitherScaledNorUsed)
{
    Vec a{4, 1e-17, 2, 3}, b{4, 5};
    ASSERT_EQ(linear_SparsenessGaussJordan(a.data(), 2, b.data()), 1);
    EXPECT_EQ(b, (Vec{1, 1}));
    EXPECT_EQ(a[1], 1e-17);  // not divided by the pivot 4
    EXPECT_EQ(a[3], 3.0);    // its column never updated
    // An entry equal to the threshold is negligible too.
    a = {4, kEps, 2, 3}, b = {4, 5};
    ASSERT_EQ(linear_SparsenessGaussJordan(a.data(), 2, b.data()), 1);
    EXPECT_EQ(a[1], kEps);
}

TEST(SparseGaussJordan, DiagonalAndDenseCases)
{
    Vec d{2, 0, 0, 0, 5, 0, 0, 0, -8}, b{1, 1, 1};
    ASSERT_EQ(linear_SparsenessGaussJordan(d.data(), 3, b.data()), 1);
    EXPECT_EQ(b, (Vec{1.0 / 2, 1.0 / 5, 1.0 / -8}));

    // No negligible entry anywhere: the same bits as Gauss-Jordan.
    std::mt19937_64 rng(32);
    Vec a = lintest::random_matrix(rng, 12, 12), x = lintest::random_matrix(rng, 12, 1);
    Vec ga = a, gx = x;
    ASSERT_EQ(linear_SparsenessGaussJordan(a.data(), 12, x.data()), 1);
    ASSERT_EQ(linear_GaussJordan(ga.data(), gx.data(), 12, 1), 1);
    EXPECT_TRUE(same_bits(x, gx));

    Vec zero(4, 1e-17);
    double z[2] = {1, 1};
    EXPECT_EQ(linear_SparsenessGaussJordan(zero.data(), 2, z), 0);
    double e = 5.0;
    EXPECT_EQ(linear_SparsenessGaussJordan(nullptr, 0, &e), 1);
    EXPECT_EQ(e, 5.0);
}

}  // namespace
