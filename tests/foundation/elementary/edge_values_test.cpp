// The elementary functions without a reference library: the C special cases,
// tiny and subnormal arguments, symmetries, sincos against sin and cos, the
// fixed-point helpers, and stored correctly rounded values (computed once
// with MPFR), among them arguments that only the slow path can decide. This
// suite also runs where MPFR is not available (cross builds).
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>

#include "foundation/elementary.h"
#include "foundation/elementary_internal.h"

namespace {

std::uint64_t bits(double v)
{
    std::uint64_t u;
    std::memcpy(&u, &v, sizeof u);
    return u;
}

#define EXPECT_BITS(got, want) EXPECT_EQ(bits(got), bits(want)) << std::hexfloat << (got) << " vs " << (want)

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kPio2 = 0x1.921fb54442d18p+0;
constexpr double kPi = 0x1.921fb54442d18p+1;
constexpr double kPio4 = 0x1.921fb54442d18p-1;
constexpr double k3Pio4 = 0x1.2d97c7f3321d2p+1;
constexpr double kMinSub = 0x1p-1074;
constexpr double kMax = 0x1.fffffffffffffp+1023;

bool is_nan(double v) { return v != v; }

TEST(ElementarySpecial, SineAndCosineOfZerosInfinitiesAndNaN)
{
    EXPECT_BITS(qel::sin(0.0), 0.0);
    EXPECT_BITS(qel::sin(-0.0), -0.0);
    EXPECT_BITS(qel::cos(0.0), 1.0);
    EXPECT_BITS(qel::cos(-0.0), 1.0);
    for (double x : {kInf, -kInf, kNaN}) {
        EXPECT_TRUE(is_nan(qel::sin(x)));
        EXPECT_TRUE(is_nan(qel::cos(x)));
        double s = 0, c = 0;
        qel::sincos(x, &s, &c);
        EXPECT_TRUE(is_nan(s) && is_nan(c));
    }
    double s = 1, c = 0;
    qel::sincos(-0.0, &s, &c);
    EXPECT_BITS(s, -0.0);
    EXPECT_BITS(c, 1.0);
}

TEST(ElementarySpecial, TinyAndSubnormalArgumentsKeepTheirBits)
{
    for (double x : {kMinSub, 0x1.8p-1070, 0x0.fffffffffffffp-1022, 0x1p-1022, 1e-300, 1e-20, 0x1.fffffffffffffp-28}) {
        EXPECT_BITS(qel::sin(x), x);
        EXPECT_BITS(qel::sin(-x), -x);
        EXPECT_BITS(qel::atan(x), x);
        EXPECT_BITS(qel::atan(-x), -x);
        EXPECT_BITS(qel::cos(x), 1.0);
    }
    // Just above the thresholds the cubic term starts to count.
    EXPECT_BITS(qel::atan(0x1p-26), 0x1.fffffffffffffp-27);
    EXPECT_BITS(qel::sin(0x1p-26), 0x1p-26);
    EXPECT_BITS(qel::cos(0x1p-26), 0x1.fffffffffffffp-1);
}

TEST(ElementarySpecial, ArcTangentLimits)
{
    EXPECT_BITS(qel::atan(0.0), 0.0);
    EXPECT_BITS(qel::atan(-0.0), -0.0);
    EXPECT_BITS(qel::atan(kInf), kPio2);
    EXPECT_BITS(qel::atan(-kInf), -kPio2);
    EXPECT_BITS(qel::atan(kMax), kPio2);
    EXPECT_BITS(qel::atan(0x1p60), 0x1.921fb54442d18p+0);
    EXPECT_BITS(qel::atan(1.0), kPio4);
    EXPECT_BITS(qel::atan(-1.0), -kPio4);
    EXPECT_TRUE(is_nan(qel::atan(kNaN)));
}

TEST(ElementarySpecial, TwoArgumentArcTangentFollowsC99)
{
    // Zeros.
    EXPECT_BITS(qel::atan2(0.0, 0.0), 0.0);
    EXPECT_BITS(qel::atan2(-0.0, 0.0), -0.0);
    EXPECT_BITS(qel::atan2(0.0, -0.0), kPi);
    EXPECT_BITS(qel::atan2(-0.0, -0.0), -kPi);
    EXPECT_BITS(qel::atan2(0.0, 3.0), 0.0);
    EXPECT_BITS(qel::atan2(-0.0, 3.0), -0.0);
    EXPECT_BITS(qel::atan2(0.0, -3.0), kPi);
    EXPECT_BITS(qel::atan2(-0.0, -3.0), -kPi);
    EXPECT_BITS(qel::atan2(2.0, 0.0), kPio2);
    EXPECT_BITS(qel::atan2(2.0, -0.0), kPio2);
    EXPECT_BITS(qel::atan2(-2.0, 0.0), -kPio2);
    EXPECT_BITS(qel::atan2(-kMinSub, -0.0), -kPio2);
    // Infinities.
    EXPECT_BITS(qel::atan2(kInf, kInf), kPio4);
    EXPECT_BITS(qel::atan2(-kInf, kInf), -kPio4);
    EXPECT_BITS(qel::atan2(kInf, -kInf), k3Pio4);
    EXPECT_BITS(qel::atan2(-kInf, -kInf), -k3Pio4);
    EXPECT_BITS(qel::atan2(kInf, 5.0), kPio2);
    EXPECT_BITS(qel::atan2(-kInf, -5.0), -kPio2);
    EXPECT_BITS(qel::atan2(5.0, kInf), 0.0);
    EXPECT_BITS(qel::atan2(-5.0, kInf), -0.0);
    EXPECT_BITS(qel::atan2(5.0, -kInf), kPi);
    EXPECT_BITS(qel::atan2(-5.0, -kInf), -kPi);
    // NaN.
    EXPECT_TRUE(is_nan(qel::atan2(kNaN, 1.0)));
    EXPECT_TRUE(is_nan(qel::atan2(1.0, kNaN)));
    EXPECT_TRUE(is_nan(qel::atan2(kInf, kNaN)));
    // Diagonals and axes.
    EXPECT_BITS(qel::atan2(1.0, 1.0), kPio4);
    EXPECT_BITS(qel::atan2(-7.5, -7.5), -k3Pio4);
    EXPECT_BITS(qel::atan2(kMax, kMax), kPio4);
    EXPECT_BITS(qel::atan2(kMinSub, kMinSub), kPio4);
    EXPECT_BITS(qel::atan2(0x1p-1000, -1e300), kPi);
    EXPECT_BITS(qel::atan2(-1e300, 0x1p-1000), -kPio2);
}

// Tiny ratios with x > 0 round the exact quotient, ties toward zero.
TEST(ElementarySpecial, TinyRatiosRoundTheQuotientWithTiesTowardZero)
{
    // 3 * 2^-1075 lies halfway between 2^-1074 and 2^-1073: atan lies just
    // below, so 2^-1074 (plain division would round to even, 2^-1073).
    EXPECT_BITS(qel::atan2(0x1.8p-1014, 0x1p60), kMinSub);
    EXPECT_BITS(qel::atan2(-0x1.8p-1014, 0x1p60), -kMinSub);
    // Just above that midpoint: up.
    EXPECT_BITS(qel::atan2(0x1.8000000000001p-1014, 0x1p60), 0x1p-1073);
    // Exactly representable quotients are kept.
    EXPECT_BITS(qel::atan2(0x1.3p-800, 0x1p200), 0x1.3p-1000);
    EXPECT_BITS(qel::atan2(1.0, 0x1p80), 0x1p-80);
    // Quotients below half the smallest subnormal vanish; at one half, zero.
    EXPECT_BITS(qel::atan2(0x1p-1000, 0x1p100), 0.0);
    EXPECT_BITS(qel::atan2(0x1p-1020, 0x1p55), 0.0);
    EXPECT_BITS(qel::atan2(-0x1p-1020, 0x1p54), -kMinSub);
    EXPECT_BITS(qel::atan2(1.0, 3.0 * 0x1p60), 0x1.5555555555555p-62);
}

TEST(ElementarySpecial, SymmetriesHoldBitForBit)
{
    for (double x : {0.3, 1.0, 2.5, 10.0, 1e6, 1e22, 0x1.921fb54442d18p+0, kMax}) {
        EXPECT_BITS(qel::sin(-x), -qel::sin(x));
        EXPECT_BITS(qel::cos(-x), qel::cos(x));
        EXPECT_BITS(qel::atan(-x), -qel::atan(x));
        EXPECT_BITS(qel::atan2(-x, 1.5), -qel::atan2(x, 1.5));
        EXPECT_BITS(qel::atan2(-x, -1.5), -qel::atan2(x, -1.5));
    }
}

TEST(ElementarySpecial, SincosGivesExactlySinAndCos)
{
    for (int i = -2000; i <= 2000; ++i) {
        double x = i * 0.01234567 + (i % 7) * 1e5;
        double s = 0, c = 0;
        qel::sincos(x, &s, &c);
        EXPECT_BITS(s, qel::sin(x));
        EXPECT_BITS(c, qel::cos(x));
    }
}

// Correctly rounded values computed once with MPFR; the first groups are
// arguments on which the fast path's rounding test fails.
TEST(ElementaryGolden, StoredValues)
{
    static const double slow_sin[][2] = {
        {0x1.99d0b9ecb7282p+1, -0x1.ebf5577c296bap-5},
        {-0x1.ca6dbc9bc7d4p+1, 0x1.b40d4f14ce5b9p-2},
        {0x1.cb21c80b40e9p+0, 0x1.f35b7c18478b6p-1},
        {0x1.49aa48151a5bp+1, 0x1.1299ef24eae5cp-1},
    };
    static const double slow_cos[][2] = {
        {0x1.27c9191c02b09p+12, 0x1.e8364f99b4df5p-3},
        {0x1.511761fe276f9p-3, 0x1.f91486efc57d7p-1},
        {0x1.85ff6ad6c41c1p+15, 0x1.f5efb9ee96c01p-1},
    };
    static const double slow_atan[][2] = {
        {0x1.769d43558734ep+14, 0x1.921cf97f0ab8bp+0},
        {-0x1.591f3d80e09dcp+20, -0x1.921fa965fc274p+0},
        {-0x1.0f15ae6b7a497p-4, -0x1.0eb09f5876683p-4},
        {-0x1.418798d1626c6p+18, -0x1.921f824f6b1ecp+0},
    };
    static const double slow_atan2[][3] = {
        {-0x1.4fc4979d617ep-2, 0x1.364b0078556b8p+0, -0x1.0e8ab6f7087e6p-2},
        {0x1.46f44488bce5cp+1, 0x1.1aaf1a442cbecp+1, 0x1.b73d1a7721933p-1},
        {-0x1.ebfe30d443f9ap+1, -0x1.f9866438cbc4p-2, -0x1.b2d33168a70cbp+0},
        {0x1.895bdb73c04ecp+0, 0x1.67b3f7ad81eecp+0, 0x1.a8fdadd8750cp-1},
    };
    // x, sin x, cos x, atan x
    static const double values[][4] = {
        {0x1p+0, 0x1.aed548f090ceep-1, 0x1.14a280fb5068cp-1, 0x1.921fb54442d18p-1},
        {0x1p-1, 0x1.eaee8744b05fp-2, 0x1.c1528065b7d5p-1, 0x1.dac670561bb4fp-2},
        {0x1.921fb54442d18p+0, 0x1p+0, 0x1.1a62633145c07p-54, 0x1.00fe987ed02ffp+0},
        {0x1.921fb54442d18p+1, 0x1.1a62633145c07p-53, -0x1p+0, 0x1.433b8a322ddd3p+0},
        {0x1.921fb54442d18p+2, -0x1.1a62633145c07p-52, 0x1p+0, 0x1.69b8154baf42ep+0},
        {0x1.921fb54442d18p-1, 0x1.6a09e667f3bccp-1, 0x1.6a09e667f3bcdp-1, 0x1.54e04c05d06ap-1},
        {0x1.6ac5b262ca1ffp+849, 0x1p+0, -0x1.14ae72e6ba22fp-61, 0x1.921fb54442d18p+0},
        {0x1.0f0cf064dd592p+73, -0x1.b453ab76bf397p-1, 0x1.0be2cef01c8f4p-1, 0x1.921fb54442d18p+0},
        {0x1.fffffffffffffp+1023, 0x1.452fc98b34e97p-8, -0x1.fffe62ecfab75p-1, 0x1.921fb54442d18p+0},
        {0x1.7e43c8800759cp+996, -0x1.a2c16b010e385p-1, -0x1.2699022adc4c1p-1, 0x1.921fb54442d18p+0},
        {0x1.921fbp+19, -0x1.4f8bacd318edp-3, 0x1.f914ccf71fcccp-1, 0x1.921fa0e5121f7p+0},
        {0x1.921f9cccccccdp+19, -0x1.626cbd3ac3578p-1, 0x1.717ee7912c609p-1, 0x1.921fa0e511267p+0},
        {0x1p-26, 0x1p-26, 0x1.fffffffffffffp-1, 0x1.fffffffffffffp-27},
        {0x1.0000000000001p-26, 0x1.0000000000001p-26, 0x1.fffffffffffffp-1, 0x1.0000000000001p-26},
        {0x1p-27, 0x1p-27, 0x1p+0, 0x1p-27},
        {0x1.8p+1, 0x1.210386db6d55bp-3, -0x1.fae04be85e5d2p-1, 0x1.3fc176b7a856p+0},
        {0x1.9p+6, -0x1.03425b78c4db8p-1, 0x1.b981dbf665fdfp-1, 0x1.8f905eb2def22p+0},
        {0x1.2a05f2p+33, -0x1.f334c7896a4e3p-2, 0x1.bf098901c931ap-1, 0x1.921fb543d4dep+0},
        {0x1p+1023, 0x1.205248cbdb76p-1, -0x1.a719f26c232bfp-1, 0x1.921fb54442d18p+0},
        {-0x1.4p+1, -0x1.326af0dcfcab1p-1, -0x1.9a2f7ef858b7dp-1, -0x1.30b6d796a4da8p+0},
        {0x1.5b5f0c0b4fffp-2, 0x1.54bf428ec543fp-2, 0x1.e2d25edbf8aa2p-1, 0x1.4ee5a67362a03p-2},
    };
    double unused;
    for (const auto& v : slow_sin) {
        EXPECT_FALSE(qel::sin_fast(v[0], &unused));
        EXPECT_BITS(qel::sin(v[0]), v[1]);
    }
    for (const auto& v : slow_cos) {
        EXPECT_FALSE(qel::cos_fast(v[0], &unused));
        EXPECT_BITS(qel::cos(v[0]), v[1]);
    }
    for (const auto& v : slow_atan) {
        EXPECT_FALSE(qel::atan_fast(v[0], &unused));
        EXPECT_BITS(qel::atan(v[0]), v[1]);
    }
    for (const auto& v : slow_atan2) {
        EXPECT_FALSE(qel::atan2_fast(v[0], v[1], &unused));
        EXPECT_BITS(qel::atan2(v[0], v[1]), v[2]);
    }
    for (const auto& v : values) {
        EXPECT_BITS(qel::sin(v[0]), v[1]);
        EXPECT_BITS(qel::cos(v[0]), v[2]);
        EXPECT_BITS(qel::atan(v[0]), v[3]);
        EXPECT_BITS(qel::sin_slow(v[0]), v[1]);
        EXPECT_BITS(qel::cos_slow(v[0]), v[2]);
    }
}

TEST(ElementaryFixedPoint, ConversionsRoundToNearestEven)
{
    using namespace qel::fx;
    EXPECT_BITS(to_double(from_double(0.1)), 0.1);
    EXPECT_BITS(to_double(from_double(-3.25)), -3.25);
    EXPECT_BITS(to_double(from_double(0x1p-200)), 0x1p-200);
    // 1 + 2^-53 is a tie: to even (1); 1 + 3 * 2^-53: to even (1 + 2^-51).
    Fixed one = from_int(1);
    EXPECT_BITS(to_double(add(one, from_double(0x1p-53))), 1.0);
    EXPECT_BITS(to_double(add(one, from_double(0x1.8p-52))), 0x1.0000000000002p+0);
    // A sticky bit far below breaks the tie upward.
    EXPECT_BITS(to_double(add(add(one, from_double(0x1p-53)), from_double(0x1p-220))), 0x1.0000000000001p+0);
    EXPECT_BITS(to_double(sub(Fixed{}, add(add(one, from_double(0x1p-53)), from_double(0x1p-220)))),
                -0x1.0000000000001p+0);
    EXPECT_BITS(to_double(Fixed{}), 0.0);
}

TEST(ElementaryFixedPoint, ProductsQuotientsAndRatios)
{
    using namespace qel::fx;
    EXPECT_BITS(to_double(mul(from_double(1.5), from_double(-2.25))), -3.375);
    EXPECT_BITS(to_double(mul(from_double(-0.75), from_double(-0.75))), 0.5625);
    EXPECT_BITS(to_double(div_small(from_double(-7.5), 3)), -2.5);
    EXPECT_BITS(to_double(ratio(1.0, 3.0)), 1.0 / 3.0);
    EXPECT_BITS(to_double(ratio(0x1p-1074, 0x1.8p-1073)), 1.0 / 3.0);
    EXPECT_BITS(to_double(ratio(5.0, 5.0)), 1.0);
    EXPECT_BITS(to_double(ratio(0x1.5p-100, 0x1p0)), 0x1.5p-100);
    // 1/3 truncated at 2^-224: three times it falls short of 1 by 2^-224.
    Fixed third = ratio(1.0, 3.0);
    Fixed sum = add(add(third, third), third);
    Fixed deficit = sub(from_int(1), sum);
    EXPECT_BITS(to_double(deficit), 0x1p-224);
}

TEST(ElementaryFixedPoint, RoundingTestRespectsHalfSpacings)
{
    using qel::dd::rounds_to_hi;
    EXPECT_TRUE(rounds_to_hi(1.5, 0x1p-54, 0x1p-60));
    EXPECT_FALSE(rounds_to_hi(1.5, 0x1p-53, 0.0));           // exactly half a spacing
    EXPECT_FALSE(rounds_to_hi(1.5, 0x1p-54, 0x1p-54));
    // Below a power of two the spacing halves.
    EXPECT_TRUE(rounds_to_hi(1.0, -0x1p-56, 0x1p-60));
    EXPECT_FALSE(rounds_to_hi(1.0, -0x1p-54, 0.0));
    EXPECT_FALSE(rounds_to_hi(0x1p-1030, 0.0, 0.0));         // subnormal spacing: never decided here
}

}  // namespace
