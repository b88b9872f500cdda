// Plane builders: the mirror, the shears and the device mappings.
#include <climits>
#include <cmath>
#include <cstring>
#include <random>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "matrix_check.h"

using tcheck::apply;
using tcheck::bits;
using tcheck::M3;

namespace {

TEST(TransformPlane, MirrorInAxisParallelAndDiagonalLines)
{
    M3 t;
    TransMatrixMirror2D(1.0, 0.0, -2.0, t.m);  // x = 2
    EXPECT_EQ(t.m[0][0], -1.0);
    EXPECT_EQ(t.m[1][1], 1.0);
    EXPECT_EQ(t.m[2][0], 4.0);
    EXPECT_EQ(t.m[2][2], 1.0);
    // -(2*1*0)*1: the formula's zero is negative, the cleared ones positive.
    EXPECT_EQ(bits(t.m[0][1]), bits(-0.0));
    EXPECT_EQ(bits(t.m[2][1]), 0u);  // -(2*0*-2) = +0
    EXPECT_EQ(bits(t.m[0][2]), 0u);
    tcheck::P2 p = apply(t, 3.0, 5.0);
    EXPECT_EQ(p.x, 1.0);
    EXPECT_EQ(p.y, 5.0);

    TransMatrixMirror2D(1.0, -1.0, 0.0, t.m);  // y = x
    EXPECT_EQ(t.m[0][1], 1.0);
    EXPECT_EQ(t.m[1][0], 1.0);
    EXPECT_EQ(t.m[0][0], 0.0);
    EXPECT_EQ(t.m[1][1], 0.0);
    p = apply(t, 3.0, -7.0);
    EXPECT_EQ(p.x, -7.0);
    EXPECT_EQ(p.y, 3.0);

    // Scaling the line by a power of two changes no bit.
    M3 u;
    TransMatrixMirror2D(0.3, 0.7, 1.1, t.m);
    TransMatrixMirror2D(0.3 * 1024, 0.7 * 1024, 1.1 * 1024, u.m);
    EXPECT_EQ(std::memcmp(&t, &u, sizeof t), 0);
}

// The line 0.1x + 0.3y + 0.7 = 0 separates the groupings: (b*b - a*a)*k gives
// 0.7999999999999998 and (b-a)*((a+b)*k) 0.7999999999999999 for T[0][0];
// -(2a)*(b*k) gives -0.6000000000000001 for T[0][1]; dividing by a*a + b*b
// instead of multiplying by k gives -1.3999999999999997 and
// -4.199999999999999 in the last row.
TEST(TransformPlane, MirrorEntriesFollowTheirGrouping)
{
    M3 t;
    TransMatrixMirror2D(0.1, 0.3, 0.7, t.m);
    EXPECT_EQ(t.m[0][0], 0x1.999999999999ap-1);  // 0.8
    EXPECT_EQ(bits(t.m[1][1]), bits(-t.m[0][0]));
    EXPECT_EQ(t.m[0][1], -0x1.3333333333333p-1);  // -0.6
    EXPECT_EQ(t.m[1][0], t.m[0][1]);
    EXPECT_EQ(t.m[2][0], -0x1.6666666666666p+0);  // -1.4
    EXPECT_EQ(t.m[2][1], -0x1.0cccccccccccdp+2);  // -4.2
}

TEST(TransformPlane, MirrorTwiceIsTheIdentityWithinRounding)
{
    std::mt19937 gen(20240611);
    std::uniform_real_distribution<double> coef(-10.0, 10.0);
    for (int n = 0; n < 200; ++n) {
        double a = coef(gen), b = coef(gen), c = coef(gen);
        M3 t;
        TransMatrixMirror2D(a, b, c, t.m);
        M3 r = tcheck::mul(t, t);
        // The translation scales with the line's distance from the origin.
        double reach = 1.0 + std::fabs(c) / std::sqrt(a * a + b * b);
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                EXPECT_NEAR(r.m[i][j], i == j ? 1.0 : 0.0, 8e-16 * reach)
                    << a << " " << b << " " << c << " at " << i << "," << j;
        // A point on the line stays where it is.
        double x = -a * c / (a * a + b * b), y = -b * c / (a * a + b * b);
        tcheck::P2 p = apply(t, x, y);
        EXPECT_NEAR(p.x, x, 4e-15 * reach);
        EXPECT_NEAR(p.y, y, 4e-15 * reach);
    }
}

TEST(TransformPlane, ShearsMoveOneCoordinateOnly)
{
    M3 t;
    TransMatrixTanX2D(0.5, t.m);
    tcheck::P2 p = apply(t, 0.0, 2.0);
    EXPECT_EQ(p.x, 1.0);
    EXPECT_EQ(p.y, 2.0);
    p = apply(t, 3.0, 0.0);
    EXPECT_EQ(p.x, 3.0);
    EXPECT_EQ(p.y, 0.0);
    TransMatrixTanY2D(0.5, t.m);
    p = apply(t, 2.0, 0.0);
    EXPECT_EQ(p.x, 2.0);
    EXPECT_EQ(p.y, 1.0);
    p = apply(t, 0.0, 3.0);
    EXPECT_EQ(p.x, 0.0);
    EXPECT_EQ(p.y, 3.0);
}

TEST(TransformPlane, DeviceMappingAndBackAreInverse)
{
    M3 g, v;
    TransMatrixCoordMapToGDI(100, 200, 0.5, 0.5, g.m);
    TransMatrixCoordMapToView(100, 200, 0.5, 0.5, v.m);
    tcheck::P2 p = apply(g, 10.0, 10.0);
    EXPECT_EQ(p.x, 120.0);
    EXPECT_EQ(p.y, 180.0);
    p = apply(v, 120.0, 180.0);
    EXPECT_EQ(p.x, 10.0);
    EXPECT_EQ(p.y, 10.0);

    // Scales that are no powers of two: the product is the identity up to
    // the rounding of 1/sx and 1/sy.
    const int origins[][2] = {{0, 0}, {640, -480}, {-37, 1025}, {INT_MAX, INT_MIN}};
    for (const auto& o : origins) {
        TransMatrixCoordMapToGDI(o[0], o[1], 0.3, 7.0, g.m);
        TransMatrixCoordMapToView(o[0], o[1], 0.3, 7.0, v.m);
        M3 gv = tcheck::mul(g, v), vg = tcheck::mul(v, g);
        for (int i = 0; i < 2; ++i)
            for (int j = 0; j < 2; ++j) {
                EXPECT_NEAR(gv.m[i][j], i == j ? 1.0 : 0.0, 4e-16);
                EXPECT_NEAR(vg.m[i][j], i == j ? 1.0 : 0.0, 4e-16);
            }
        // Device points come back to within the rounding of the shift.
        double scale = 1.0 + std::fabs(static_cast<double>(o[0])) + std::fabs(static_cast<double>(o[1]));
        tcheck::P2 m = apply(v, 5.0 + o[0], o[1] - 3.0);
        tcheck::P2 d = apply(g, m.x, m.y);
        EXPECT_NEAR(d.x, 5.0 + o[0], 4e-16 * scale);
        EXPECT_NEAR(d.y, o[1] - 3.0, 4e-16 * scale);
    }
}

TEST(TransformPlane, DeviceMappingEntriesAtTheIntegerLimits)
{
    M3 t;
    TransMatrixCoordMapToGDI(INT_MIN, INT_MAX, 3.0, 7.0, t.m);
    EXPECT_EQ(t.m[2][0], -2147483648.0);
    EXPECT_EQ(t.m[2][1], 2147483647.0);
    EXPECT_EQ(t.m[0][0], 0x1.5555555555555p-2);   // 1/3 rounded
    EXPECT_EQ(t.m[1][1], -0x1.2492492492492p-3);  // -1/7 rounded

    // INT_MIN has no 32-bit negation; the shift is still exactly 2^31*sx.
    TransMatrixCoordMapToView(INT_MIN, INT_MIN, 0.5, 0.25, t.m);
    EXPECT_EQ(t.m[2][0], 1073741824.0);
    EXPECT_EQ(t.m[2][1], -536870912.0);
    TransMatrixCoordMapToView(INT_MAX, 0, 0.5, 0.25, t.m);
    EXPECT_EQ(t.m[2][0], -1073741823.5);
    // x0 = 0 is negated as an integer: +0.0, not -0.0, before the scale.
    TransMatrixCoordMapToView(0, 0, 0.5, 0.25, t.m);
    EXPECT_EQ(bits(t.m[2][0]), 0u);
    EXPECT_EQ(bits(t.m[2][1]), 0u);
    EXPECT_EQ(t.m[1][1], -0.25);
}

}  // namespace
