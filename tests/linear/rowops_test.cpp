// The row kernels at every vector width against their scalar definitions,
// bit for bit, including the search's tie and NaN rules.
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "foundation/rowops.h"
#include "test_util.h"

namespace {

using lintest::Vec;
using lintest::same_bits;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

struct Found {
    std::size_t at;
    double mag;
};

Found scan(const Vec& m)
{
    Found f{m.size(), 0.0};
    for (std::size_t j = 0; j < m.size(); ++j)
        if (m[j] > f.mag) f = {j, m[j]};
    return f;
}

// Rows of several shapes: random, with repeated greatest magnitudes spread
// over different lanes, with NaNs and infinities, all zero, signed zeros.
Vec make_row(std::mt19937_64& rng, std::size_t count, int kind)
{
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    Vec r(count);
    for (double& x : r) x = u(rng);
    if (count == 0) return r;
    std::uniform_int_distribution<std::size_t> pos(0, count - 1);
    switch (kind) {
    case 1:  // ties of the greatest magnitude, both signs
        for (int t = 0; t < 4; ++t) r[pos(rng)] = (t % 2 ? -2.0 : 2.0);
        break;
    case 2:  // NaNs, one possibly ahead of the greatest
        for (int t = 0; t < 3; ++t) r[pos(rng)] = kNaN;
        break;
    case 3:  // infinities tie with each other
        r[pos(rng)] = -kInf;
        r[pos(rng)] = kInf;
        break;
    case 4:  // nothing above zero
        for (std::size_t j = 0; j < count; ++j) r[j] = (j % 3 == 0) ? -0.0 : 0.0;
        break;
    case 5:  // all NaN
        for (double& x : r) x = kNaN;
        break;
    default: break;
    }
    return r;
}

std::vector<std::size_t> counts()
{
    std::vector<std::size_t> c;
    for (std::size_t n = 0; n <= 40; ++n) c.push_back(n);
    for (std::size_t n : {63u, 64u, 65u, 127u, 1000u}) c.push_back(n);
    return c;
}

class RowKernels : public lintest::AtEveryWidth {};

TEST_F(RowKernels, RealUpdateAndSearchMatchTheScalarLoopsAtEveryWidth)
{
    for (qel::SimdLevel level : lintest::levels()) {
        qel::cap_simd_level(level);
        std::mt19937_64 rng(7);
        for (std::size_t count : counts()) {
            for (int kind = 0; kind < 6; ++kind) {
                Vec dst = make_row(rng, count, kind);
                Vec src = make_row(rng, count, kind == 4 ? 0 : kind);
                const double f = kind == 4 ? 0.0 : -0.75;

                Vec want = dst, mags(count);
                for (std::size_t j = 0; j < count; ++j) {
                    want[j] = want[j] - f * src[j];
                    mags[j] = std::fabs(want[j]);
                }
                Found expect = scan(mags);

                Vec plain = dst;
                qel::row_update(plain.data(), src.data(), f, count);
                EXPECT_TRUE(same_bits(plain, want)) << "count " << count << " kind " << kind;

                Vec fused = dst;
                double mag = -1.0;
                std::size_t at = qel::row_update_argmax(fused.data(), src.data(), f, count, &mag);
                EXPECT_TRUE(same_bits(fused, want));
                EXPECT_EQ(at, expect.at) << "level " << int(level) << " count " << count
                                         << " kind " << kind;
                EXPECT_EQ(lintest::bits(mag), lintest::bits(expect.mag));

                Vec abs_dst(count);
                for (std::size_t j = 0; j < count; ++j) abs_dst[j] = std::fabs(dst[j]);
                Found search = scan(abs_dst);
                at = qel::row_argmax(dst.data(), count, &mag);
                EXPECT_EQ(at, search.at);
                EXPECT_EQ(lintest::bits(mag), lintest::bits(search.mag));

                Vec quot = dst, qwant = dst;
                for (double& x : qwant) x = x / 3.0;
                qel::row_divide(quot.data(), 3.0, count);
                EXPECT_TRUE(same_bits(quot, qwant));
            }
        }
    }
}

TEST_F(RowKernels, FirstOfEqualMagnitudesWinsAcrossLanes)
{
    for (qel::SimdLevel level : lintest::levels()) {
        qel::cap_simd_level(level);
        for (std::size_t first = 0; first < 20; ++first) {
            Vec row(37, 0.5);
            row[first] = -3.0;
            for (std::size_t j = first + 1; j < 37; j += 3) row[j] = 3.0;
            double mag;
            EXPECT_EQ(qel::row_argmax(row.data(), row.size(), &mag), first);
            EXPECT_EQ(mag, 3.0);
        }
        Vec nan_first{kNaN, 1.0, kNaN, 1.0, 0.5};
        double mag;
        EXPECT_EQ(qel::row_argmax(nan_first.data(), nan_first.size(), &mag), 1u);
        Vec zeros(19, -0.0);
        EXPECT_EQ(qel::row_argmax(zeros.data(), zeros.size(), &mag), 19u);
        EXPECT_EQ(lintest::bits(mag), 0u);
    }
}

TEST_F(RowKernels, ComplexKernelsMatchTheirGroupingsAtEveryWidth)
{
    const double ur = 0.3125, ui = -1.75;
    const double pr = -0.625, pi = 1.375, ps = pr * pr + pi * pi;
    for (qel::SimdLevel level : lintest::levels()) {
        qel::cap_simd_level(level);
        std::mt19937_64 rng(11);
        for (std::size_t count : counts()) {
            for (int kind = 0; kind < 6; ++kind) {
                Vec dr = make_row(rng, count, kind), di = make_row(rng, count, kind % 3);
                Vec sr = make_row(rng, count, 0), si = make_row(rng, count, 0);

                Vec wr = dr, wi = di, mags(count);
                for (std::size_t j = 0; j < count; ++j) {
                    wr[j] = (wr[j] - ur * sr[j]) + ui * si[j];
                    wi[j] = (ur * sr[j] + (wi[j] - (ur + ui) * (sr[j] + si[j]))) + ui * si[j];
                    mags[j] = wr[j] * wr[j] + wi[j] * wi[j];
                }
                Found expect = scan(mags);

                Vec xr = dr, xi = di;
                qel::crow_update(xr.data(), xi.data(), sr.data(), si.data(), ur, ui, count);
                EXPECT_TRUE(same_bits(xr, wr));
                EXPECT_TRUE(same_bits(xi, wi));

                xr = dr, xi = di;
                double mag = -1.0;
                std::size_t at = qel::crow_update_argmax(xr.data(), xi.data(), sr.data(),
                                                         si.data(), ur, ui, count, &mag);
                EXPECT_TRUE(same_bits(xr, wr));
                EXPECT_TRUE(same_bits(xi, wi));
                EXPECT_EQ(at, expect.at) << "count " << count << " kind " << kind;
                EXPECT_EQ(lintest::bits(mag), lintest::bits(expect.mag));

                Vec sq(count);
                for (std::size_t j = 0; j < count; ++j) sq[j] = dr[j] * dr[j] + di[j] * di[j];
                Found search = scan(sq);
                at = qel::crow_argmax(dr.data(), di.data(), count, &mag);
                EXPECT_EQ(at, search.at);
                EXPECT_EQ(lintest::bits(mag), lintest::bits(search.mag));

                Vec qr = dr, qi = di;
                for (std::size_t j = 0; j < count; ++j) {
                    qr[j] = (pr * dr[j] + pi * di[j]) / ps;
                    qi[j] = ((pr - pi) * (dr[j] + di[j]) - pr * dr[j] + pi * di[j]) / ps;
                }
                xr = dr, xi = di;
                qel::crow_divide(xr.data(), xi.data(), pr, pi, ps, count);
                EXPECT_TRUE(same_bits(xr, qr));
                EXPECT_TRUE(same_bits(xi, qi));
            }
        }
    }
}

TEST_F(RowKernels, CapChoosesTheLevel)
{
    qel::cap_simd_level(qel::SimdLevel::kBaseline);
    EXPECT_EQ(qel::simd_level(), qel::SimdLevel::kBaseline);
    qel::cap_simd_level(qel::SimdLevel::kAvx512);
    EXPECT_GE(static_cast<int>(qel::simd_level()), static_cast<int>(qel::SimdLevel::kBaseline));
}

}  // namespace
