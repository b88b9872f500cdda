// Helpers shared by the linear-systems tests.
#ifndef QELMATH_TESTS_LINEAR_TEST_UTIL_H
#define QELMATH_TESTS_LINEAR_TEST_UTIL_H

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "foundation/cpu.h"

namespace lintest {

using Vec = std::vector<double>;

inline bool same_bits(const Vec& x, const Vec& y)
{
    return x.size() == y.size() &&
           (x.empty() || std::memcmp(x.data(), y.data(), x.size() * sizeof(double)) == 0);
}

inline std::uint64_t bits(double x)
{
    std::uint64_t u;
    std::memcpy(&u, &x, sizeof u);
    return u;
}

// Entries uniform in [-1, 1), some of them scaled to spread the magnitudes.
inline Vec random_matrix(std::mt19937_64& rng, std::size_t rows, std::size_t cols)
{
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    Vec a(rows * cols);
    for (double& x : a) x = u(rng);
    return a;
}

// Diagonally heavy and so well conditioned: random plus n on the diagonal.
inline Vec well_conditioned(std::mt19937_64& rng, std::size_t n)
{
    Vec a = random_matrix(rng, n, n);
    for (std::size_t i = 0; i < n; ++i) a[i * n + i] += (i % 2 ? -1.0 : 1.0) * double(n);
    return a;
}

// ||A x - b||_inf / (||A||_inf ||x||_inf), with A and b as given on entry.
inline double relative_residual(const Vec& a, const Vec& x, const Vec& b, std::size_t n)
{
    double rmax = 0.0, anorm = 0.0, xmax = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        double r = -b[i], row = 0.0;
        for (std::size_t j = 0; j < n; ++j) {
            r += a[i * n + j] * x[j];
            row += std::fabs(a[i * n + j]);
        }
        rmax = std::fmax(rmax, std::fabs(r));
        anorm = std::fmax(anorm, row);
        xmax = std::fmax(xmax, std::fabs(x[i]));
    }
    return rmax / (anorm * xmax);
}

// The vector widths to try; caps above the CPU's support fall back to it.
inline std::vector<qel::SimdLevel> levels()
{
    return {qel::SimdLevel::kBaseline, qel::SimdLevel::kAvx2, qel::SimdLevel::kAvx512};
}

// Restores the widest vector unit after a test that capped it.
class AtEveryWidth : public ::testing::Test {
protected:
    void TearDown() override { qel::cap_simd_level(qel::SimdLevel::kAvx512); }
};

}  // namespace lintest

#endif
