// Matrix products, sums, determinants and inverses: the plain schemes' bits
// at every vector width, what is written and taken at the size edges, and
// the pivot rules' ties and thresholds.
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "foundation/cpu.h"
#include "linear/reference.h"
#include "support/test_allocator.h"

namespace {

using Vec = std::vector<double>;
constexpr double kEps = 2.220446049250313e-16;
constexpr double kSentinel = -7.25;
const qel::SimdLevel kLevels[] = {qel::SimdLevel::kBaseline, qel::SimdLevel::kAvx2, qel::SimdLevel::kAvx512};

Vec random(std::mt19937_64& rng, std::size_t count)
{
    std::uniform_real_distribution<double> d(-2.0, 2.0);
    Vec v(count);
    for (double& x : v) x = d(rng);
    return v;
}

bool same(const double* x, const double* y, std::size_t n) { return std::memcmp(x, y, n * sizeof(double)) == 0; }

// An output with four sentinels on either side.
struct Guarded {
    Vec cells;
    explicit Guarded(std::size_t count) : cells(count + 8, kSentinel) {}
    double* out() { return cells.data() + 4; }
    bool intact() const { return Vec(cells.begin(), cells.begin() + 4) == Vec(4, kSentinel) && Vec(cells.end() - 4, cells.end()) == Vec(4, kSentinel); }
};

// The complex product term by term: three multiplications, blocked sums.
void plain_complex(const Vec& ar, const Vec& ai, const Vec& br, const Vec& bi, int m, int n, int k, Vec& cr, Vec& ci)
{
    for (int i = 0; i < m; ++i)
        for (int j = 0; j < k; ++j) {
            Vec tr(n), ti(n);
            for (int l = 0; l < n; ++l) {
                const double x = ar[i * n + l], y = ai[i * n + l], u = br[l * k + j], v = bi[l * k + j];
                const double p1 = x * u, p2 = y * v, s = (x + y) * (u + v);
                tr[l] = p1 - p2, ti[l] = (s - p1) - p2;
            }
            cr[i * k + j] = plain::blocked_sum(tr), ci[i * k + j] = plain::blocked_sum(ti);
        }
}

TEST(AtEveryWidth, ProductsKeepThePlainSchemesBits)
{
    // Row counts around every tile height, inner sizes odd and even around
    // the blocks of four, column counts around every panel width.
    const int sizes[][3] = {{1, 1, 1}, {3, 8, 5}, {4, 16, 16}, {5, 17, 17}, {7, 9, 33}, {9, 130, 20},
                            {33, 135, 19}, {13, 300, 41}, {2, 65, 17}, {1, 7, 70}, {70, 10, 1}, {6, 20, 33}};
    std::mt19937_64 rng(7);
    for (qel::SimdLevel level : kLevels) {
        qel::cap_simd_level(level);
        for (const auto& s : sizes) {
            const int m = s[0], n = s[1], k = s[2];
            SCOPED_TRACE(::testing::Message() << m << "x" << n << "x" << k << " level " << int(level));
            Vec a = random(rng, m * n), b = random(rng, n * k), want(m * k), ai = random(rng, m * n), bi = random(rng, n * k), wr(m * k), wi(m * k);
            Guarded got(want.size()), gr(wr.size()), gi(wi.size());
            plain::winograd(a.data(), b.data(), m, n, k, want.data());
            mt_Mul(a.data(), b.data(), m, n, k, got.out());
            EXPECT_TRUE(same(want.data(), got.out(), want.size()) && got.intact());
            plain_complex(a, ai, b, bi, m, n, k, wr, wi);
            mt_Mul(a.data(), ai.data(), b.data(), bi.data(), m, n, k, gr.out(), gi.out());
            EXPECT_TRUE(same(wr.data(), gr.out(), wr.size()) && same(wi.data(), gi.out(), wi.size()) && gr.intact() && gi.intact());
        }
    }
    qel::cap_simd_level(qel::SimdLevel::kAvx512);
}

TEST(RealProduct, FactorRequestsAndTheSameBitsWithoutThem)
{
    std::mt19937_64 rng(11);
    const int m = 7, n = 13, k = 9;
    Vec a = random(rng, m * n), b = random(rng, n * k);
    Guarded want(m * k);
    for (int failing = 0; failing <= 3; ++failing) {   // none, the row, the column, both
        Guarded got(m * k);
        testalloc::Scope scope;
        failing == 3 ? testalloc::fail_from(1) : testalloc::fail_at(failing);
        mt_Mul(a.data(), b.data(), m, n, k, (failing ? got : want).out());
        testalloc::fail_from(0);
        EXPECT_TRUE(testalloc::requests() == (std::vector<std::uint32_t>{8 * m, 8 * k}) && scope.leaked() == 0);
        EXPECT_TRUE(failing == 0 || want.cells == got.cells) << "failing " << failing;
    }
}

TEST(Products, SizeEdges)
{
    // An empty inner size writes -0 (real) and +0 (complex); empty outer
    // sizes write nothing but still take the factors; negative sizes take
    // and write nothing.
    Guarded r(6), cr(4), ci(4);
    testalloc::Scope scope;
    mt_Mul(nullptr, nullptr, 2, 0, 3, r.out());
    mt_Mul(nullptr, nullptr, nullptr, nullptr, 2, 0, 2, cr.out(), ci.out());
    const double neg[6] = {-0.0, -0.0, -0.0, -0.0, -0.0, -0.0}, pos[4] = {};
    EXPECT_TRUE(same(r.out(), neg, 6) && same(cr.out(), pos, 4) && same(ci.out(), pos, 4));
    const double x[4] = {1, 2, 3, 4};
    Guarded none(0);
    mt_Mul(x, x, 0, 2, 2, none.out());
    EXPECT_EQ(testalloc::requests(), (std::vector<std::uint32_t>{16, 24, 0, 16}));
    testalloc::reset();
    r.out()[0] = kSentinel;
    const int big[2] = {INT_MAX, INT_MIN}, two[2] = {2, 3};
    int w = 5, z[2] = {5, 5};
    for (const auto& s : {std::vector<int>{-1, 2, 2}, {2, -2, 2}, {2, 2, -3}}) {
        mt_Mul(x, x, s[0], s[1], s[2], r.out());
        mt_Mul(x, x, x, x, s[0], s[1], s[2], cr.out(), ci.out());
        mt_Mul(big, two, s[0], s[1], s[2], &w);
    }
    EXPECT_TRUE(testalloc::requests().empty());
    EXPECT_TRUE(r.out()[0] == kSentinel && r.intact() && none.intact() && cr.intact() && w == 5 && scope.leaked() == 0);

    // Integers wrap around in 32 bits; an empty inner size writes zeros.
    mt_Mul(big, two, 1, 2, 1, &w);   // 2 (2^31 - 1) - 3 * 2^31
    mt_Mul(big, two, 1, 0, 2, z);
    EXPECT_TRUE(w == INT_MAX - 1 && z[0] == 0 && z[1] == 0);
    // A sum's count is the wrapped product of its sizes: 2^32 is none, (-1)(-1) one.
    double p[2] = {1, 2}, q[2] = {10, 20}, s[2] = {kSentinel, kSentinel};
    mt_Add(p, q, 65536, 65536, s), mt_Add(p, q, -1, 2, s), mt_Sub(p, q, -1, -1, s);
    EXPECT_TRUE(s[0] == -9.0 && s[1] == kSentinel);
    int ip[1] = {INT_MAX}, iq[1] = {1}, is[1] = {0};
    EXPECT_EQ((mt_Add(ip, iq, 1, 1, is), is[0]), INT_MIN);
}

TEST(AtEveryWidth, DeterminantAndInversesAgreeAcrossWidths)
{
    std::mt19937_64 rng(4);
    for (int n : {2, 3, 5, 8, 9, 16, 17, 33, 70}) {
        const Vec a = random(rng, std::size_t(n) * n), ai = random(rng, std::size_t(n) * n);
        Vec first;
        for (qel::SimdLevel level : kLevels) {
            qel::cap_simd_level(level);
            Vec d = a, v = a, vr = a, vi = ai;
            Vec got{mt_Det(d.data(), n), double(mt_Inv(v.data(), n)), double(mt_Inv(vr.data(), vi.data(), n))};
            for (const Vec* x : {&v, &vr, &vi}) got.insert(got.end(), x->begin(), x->end());
            if (first.empty()) first = got;
            EXPECT_TRUE(got.size() == first.size() && same(got.data(), first.data(), got.size())) << n;
        }
        // The inverse is one: a * inv is the identity to rounding.
        double worst = 0;
        for (int i = 0; i < n * n; ++i) {   // row i / n, column i % n
            double s = 0;
            for (int l = 0; l < n; ++l) s += a[i / n * n + l] * first[3 + l * n + i % n];
            worst = std::fmax(worst, std::fabs(s - (i / n == i % n)));
        }
        EXPECT_TRUE(first[1] == 1 && first[2] == 1 && worst < 1e-9) << n;
    }
    qel::cap_simd_level(qel::SimdLevel::kAvx512);
}

TEST(Determinant, PivotRulesAndWhatIsLeft)
{
    struct Row { Vec a; double det; Vec left; };   // left: the matrix afterwards; empty: not checked
    const double below = std::nextafter(kEps, 0.0);
    const Row rows[] = {
        {{1, 2, 3, 4}, -2.0, {4, 3, 2, -0.5}},
        // Ties go to the first element met: the -2 at (0, 1) before the 2.
        {{1, -2, 2, 1}, 5.0, {-2, 1, 1, 2.5}}, {{kEps, 0, 0, kEps}, kEps * kEps, {}},
        // Below the threshold: stopped after the search, nothing exchanged.
        {{below, 0, 0, below}, 0.0, {below, 0, 0, below}}, {{0, 0, 0, 3}, 0.0, {3, 0, 0, 0}}, {{1, 2, 3, 2, 4, 6, 1, 1, 1}, 0.0, {}},
        {{1e-300}, 1e-300, {}}, {{-0.0}, -0.0, {}}, {{}, 1.0, {}},
    };
    for (const Row& r : rows) {
        Vec a = r.a;
        const double d = mt_Det(a.data(), a.size() == 9 ? 3 : a.size() == 4 ? 2 : int(a.size()));
        EXPECT_TRUE(d == r.det && std::signbit(d) == std::signbit(r.det)) << r.a.size() << " " << d;
        EXPECT_TRUE(r.left.empty() || a == r.left) << r.det;
    }
    EXPECT_FALSE(std::signbit(mt_Det(nullptr, -3)));
}

TEST(Inversion, ThresholdsRecordsAndExchanges)
{
    const double above = std::nextafter(kEps, 1.0);
    double t[4] = {kEps, 0, 0, kEps}, u[4] = {above, 0, 0, above};
    EXPECT_TRUE(mt_Inv(t, 2) == 0 && mt_Inv(u, 2) == 1 && u[0] == 1.0 / above);
    double tie[4] = {1, -1, -1, 1};   // ties to (0, 0); the second step finds 0
    EXPECT_TRUE(mt_Inv(tie, 2) == 0 && Vec(tie, tie + 4) == (Vec{1, -1, 1, 0}));
    double ex[9] = {0, 0, 2, 0, 4, 0, 8, 0, 0};   // exchanges undone
    EXPECT_TRUE(mt_Inv(ex, 3) == 1 && Vec(ex, ex + 9) == (Vec{0, 0, 0.125, 0, 0.25, 0, 0.5, 0, 0}));
    // Complex: the squared modulus exactly at 2^-52 passes.
    double br = std::ldexp(1.0, -26), bi = 0, sr = 1.4e-8, si = 0;
    EXPECT_TRUE(mt_Inv(&br, &bi, 1) == 1 && br == std::ldexp(1.0, 26) && mt_Inv(&sr, &si, 1) == 0);
    double zr[4] = {0, 0, 2, 0}, zi[4] = {0, 1, 0, 0};   // inverse [[0, 0.5], [-i, 0]]
    EXPECT_TRUE(mt_Inv(zr, zi, 2) == 1 && Vec(zr, zr + 4) == (Vec{0, 0.5, 0, 0}) && Vec(zi, zi + 4) == (Vec{0, 0, -1, 0}));

    // One record block of 2n ints, back on every path; without it, nothing
    // is inverted or touched.
    testalloc::Scope scope;
    double a[9] = {2, 1, 0, 1, 3, 1, 0, 1, 4}, s[9] = {1, 2, 3, 2, 4, 6, 1, 1, 1}, ar[4] = {1, 0, 0, 1}, ai[4] = {0, 0, 0, 0};
    const Vec a_in(a, a + 9);
    EXPECT_TRUE(mt_Inv(s, 3) == 0 && mt_Inv(ar, ai, 2) == 1 && mt_Inv(nullptr, 0) == 1 && mt_Inv(nullptr, -2) == 1 && mt_Inv(nullptr, nullptr, -2) == 1);
    EXPECT_EQ(testalloc::requests(), (std::vector<std::uint32_t>{24, 16, 0}));
    testalloc::fail_from(1);
    EXPECT_TRUE(mt_Inv(a, 3) == 0 && mt_Inv(zr, zi, 2) == 0);
    testalloc::fail_from(0);
    EXPECT_TRUE(Vec(a, a + 9) == a_in && zr[1] == 0.5 && scope.leaked() == 0);
}

TEST(ClosedForms, ThresholdsAndSingularCasesUntouched)
{
    double z2[4] = {1, 2, 0, 0}, z3[9] = {1, 2, 3, 0, 0, 0, 4, 5, 6}, z4[16] = {1, 2, 3, 4, 5, 6, 7, 8, 0, 0, 0, 0, 1, 0, 0, 1};
    EXPECT_TRUE(mt_Inv2(z2) == 0 && mt_Inv3(z3) == 0 && mt_Inv4(z4) == 0);
    EXPECT_TRUE(z2[1] == 2 && z3[8] == 6 && z4[15] == 1);
    double e2[4] = {kEps, 0, 0, 1}, f2[4] = {std::nextafter(kEps, 1.0), 0, 0, 1};   // |det| at the threshold is refused
    EXPECT_TRUE(mt_Inv2(e2) == 0 && mt_Inv2(f2) == 1);
}

}  // namespace
