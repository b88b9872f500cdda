#include <cstring>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "foundation/cpu.h"
#include "plain_winograd.h"
#include "support/test_allocator.h"

namespace {

std::vector<double> random_matrix(std::mt19937_64& rng, int count)
{
    std::uniform_real_distribution<double> d(-2.0, 2.0);
    std::vector<double> v(count);
    for (double& x : v) x = d(rng);
    return v;
}

TEST(RealProduct, KernelKeepsTheBitsOfThePlainSchemeAtEveryVectorWidth)
{
    std::mt19937_64 rng(7);
    const int sizes[][3] = {{1, 1, 1}, {3, 8, 5}, {4, 16, 16}, {5, 17, 17}, {7, 9, 33},
                            {9, 130, 20}, {33, 135, 19}, {13, 300, 41}, {64, 64, 64}};
    for (qel::SimdLevel level : {qel::SimdLevel::kBaseline, qel::SimdLevel::kAvx2,
                                 qel::SimdLevel::kAvx512}) {
        qel::cap_simd_level(level);
        for (const auto& s : sizes) {
            const int m = s[0], n = s[1], k = s[2];
            auto a = random_matrix(rng, m * n);
            auto b = random_matrix(rng, n * k);
            std::vector<double> want(m * k), got(m * k);
            plain::winograd(a.data(), b.data(), m, n, k, want.data());
            mt_Mul(a.data(), b.data(), m, n, k, got.data());
            EXPECT_EQ(0, std::memcmp(want.data(), got.data(), want.size() * sizeof(double)))
                << m << "x" << n << "x" << k << " level " << static_cast<int>(level);
        }
    }
    qel::cap_simd_level(qel::SimdLevel::kAvx512);
}

}  // namespace
