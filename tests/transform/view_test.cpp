// View and projection builders: principal, axonometric, oblique and
// perspective views onto the plane y = 0.
#include <cmath>
#include <cstring>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "matrix_check.h"

using tcheck::apply;
using tcheck::bits;
using tcheck::M4;
using tcheck::P4;

namespace {

void expect_point(const P4& p, double x, double z, double w, double tol = 0.0)
{
    EXPECT_NEAR(p.x, x, tol);
    EXPECT_EQ(p.y, 0.0);
    EXPECT_NEAR(p.z, z, tol);
    EXPECT_NEAR(p.w, w, tol);
}

void expect_equal_values(const M4& a, const M4& b, const char* what)
{
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_EQ(a.m[i][j], b.m[i][j]) << what << " at " << i << "," << j;
}

TEST(TransformView, PrincipalViewsLayOutFrontTopAndSide)
{
    M4 t;
    TransMatrixViewV(t.m);
    expect_point(apply(t, 1, 2, 3), 1, 3, 1);
    TransMatrixViewH(10.0, t.m);
    expect_point(apply(t, 1, 2, 3), 1, -12, 1);
    TransMatrixViewW(10.0, t.m);
    expect_point(apply(t, 1, 2, 3), -12, 3, 1);
}

TEST(TransformView, AxonometricViewIsATurnAndATiltWithDepthDropped)
{
    M4 v, a;
    TransMatrixViewV(v.m);
    TransMatrixAxisView(0.0, 0.0, a.m);
    expect_equal_values(a, v, "AxisView(0, 0)");

    const double angles[][2] = {{0.7, 0.4}, {3.141592653589793 / 4, 0.6154797086703874},
                                {-2.0, 1.25}, {5.5, -0.3}};
    for (const auto& ab : angles) {
        M4 rz, rx;
        TransMatrixRotate3DZ(ab[0], rz.m);
        TransMatrixRotate3DX(-ab[1], rx.m);
        M4 p = tcheck::mul(rz, rx);
        for (int i = 0; i < 4; ++i) p.m[i][1] = 0.0;
        TransMatrixAxisView(ab[0], ab[1], a.m);
        // Each entry of the product is one product plus zeros: equal values.
        expect_equal_values(a, p, "AxisView against Rotate3DZ . Rotate3DX");
    }
}

// The fixed views hold the three-decimal numbers, which lie within 5e-4 of
// the coefficients of the exact isometric and dimetric angles.
TEST(TransformView, FixedAxonometricViewsHoldTheirThreeDecimalCoefficients)
{
    M4 t, exact;
    TransMatrixAxisViewPE(t.m);
    EXPECT_EQ(t.m[0][0], 0.707);
    EXPECT_EQ(t.m[1][0], -0.707);
    EXPECT_EQ(t.m[0][2], -0.408);
    EXPECT_EQ(t.m[1][2], -0.408);
    EXPECT_EQ(t.m[2][2], 0.816);
    TransMatrixAxisView(3.141592653589793 / 4, std::asin(1.0 / std::sqrt(3.0)), exact.m);
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_NEAR(t.m[i][j], exact.m[i][j], 5e-4);

    TransMatrixAxisViewP2(t.m);
    EXPECT_EQ(t.m[0][0], 0.935);
    EXPECT_EQ(t.m[1][0], -0.354);
    EXPECT_EQ(t.m[0][2], -0.118);
    EXPECT_EQ(t.m[1][2], -0.312);
    EXPECT_EQ(t.m[2][2], 0.943);
    // sin(alpha) for cos(alpha) = 0.935 is 0.35465, so the stored -0.354 in
    // T[1][0] is 6.5e-4 off; the other entries are within 5e-4.
    TransMatrixAxisView(std::acos(0.935), std::asin(1.0 / 3.0), exact.m);
    EXPECT_NEAR(t.m[1][0], exact.m[1][0], 6.5e-4);
    exact.m[1][0] = t.m[1][0];
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_NEAR(t.m[i][j], exact.m[i][j], 5e-4);
}

TEST(TransformView, ObliqueViewDrawsDepthAlongItsVector)
{
    M4 t, l;
    TransMatrixAxisViewL2(t.m);
    expect_point(apply(t, 0, 1, 0), -0.354, -0.354, 1);
    TransMatrixAxisViewL(-0.354, -0.354, l.m);
    EXPECT_EQ(std::memcmp(&t, &l, sizeof t), 0);
    TransMatrixAxisViewL(0.5, 0.25, l.m);
    expect_point(apply(l, 1, 2, 3), 2, 3.5, 1);
}

TEST(TransformView, OneVanishingPoint)
{
    M4 t, v;
    TransMatrixPerspective1(0.0, 0.0, 0.0, 0.5, t.m);
    P4 p = apply(t, 1, 2, 1);
    expect_point(p, 1, 1, 2);
    EXPECT_EQ(p.x / p.w, 0.5);
    EXPECT_EQ(p.z / p.w, 0.5);
    // Receding lines x = const, z = const meet at the origin of the drawing.
    p = apply(t, 3, 1e12, -2);
    EXPECT_NEAR(p.x / p.w, 0.0, 1e-11);
    EXPECT_NEAR(p.z / p.w, 0.0, 1e-11);

    // q = 0: the front view followed by the shifts.
    TransMatrixPerspective1(4.0, -5.0, 6.0, 0.0, t.m);
    TransMatrixViewV(v.m);
    v.m[3][0] = 4.0;
    v.m[3][2] = -5.0;
    expect_equal_values(t, v, "Perspective1 with q = 0");
    expect_point(apply(t, 1, 9, 2), 5, -3, 1);
}

TEST(TransformView, FewerAnglesGiveTheSimplerPerspectives)
{
    const double args[][4] = {{0.0, 0.0, 0.0, 0.5}, {1.5, 2.5, 0.2, 0.3}, {-3.0, 0.25, -7.0, 0.01}};
    const double thetas[] = {0.0, 0.7, -2.5, 3.141592653589793};
    for (const auto& a : args) {
        M4 p1, p2, p3;
        TransMatrixPerspective1(a[0], a[1], a[2], a[3], p1.m);
        TransMatrixPerspective2(a[0], a[1], a[2], a[3], 0.0, p2.m);
        expect_equal_values(p2, p1, "Perspective2 with theta = 0");
        for (double theta : thetas) {
            TransMatrixPerspective2(a[0], a[1], a[2], a[3], theta, p2.m);
            TransMatrixPerspective3(a[0], a[1], a[2], a[3], theta, 0.0, p3.m);
            expect_equal_values(p3, p2, "Perspective3 with phi = 0");
        }
    }
}

M4 step_q(double q)
{
    M4 t{};
    t.m[0][0] = 1.0;
    t.m[1][3] = q;
    t.m[2][2] = 1.0;
    t.m[3][3] = 1.0;
    return t;
}

// The builders are the products of the basic matrices; a product of four
// rounds some entries in another order, so compare within an ulp or two.
TEST(TransformView, PerspectivesAreTheirProducts)
{
    const double dx = 1.5, dz = -2.5, dy = 0.2, q = 0.3, theta = 0.7, phi = -0.4;
    M4 move, rz, rx, got;
    TransMatrixMove3D(dx, dy, dz, move.m);
    TransMatrixRotate3DZ(theta, rz.m);
    TransMatrixRotate3DX(phi, rx.m);
    const M4 pq = step_q(q);

    M4 want = tcheck::mul(move, pq);
    TransMatrixPerspective1(dx, dz, dy, q, got.m);
    expect_equal_values(got, want, "Perspective1");

    want = tcheck::mul(tcheck::mul(rz, move), pq);
    TransMatrixPerspective2(dx, dz, dy, q, theta, got.m);
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_NEAR(got.m[i][j], want.m[i][j], 2.3e-16) << i << "," << j;

    want = tcheck::mul(tcheck::mul(tcheck::mul(rz, rx), move), pq);
    TransMatrixPerspective3(dx, dz, dy, q, theta, phi, got.m);
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_NEAR(got.m[i][j], want.m[i][j], 2.3e-16) << i << "," << j;
}

// q = 0.3, theta = 1, phi = 0.5: forming q*(sin theta*cos phi), as the matrix
// product does, gives 0.22153807878123863 for T[0][3]; the builder forms
// (q*sin theta)*cos phi. sin and cos of 1 and 0.5 are correctly rounded.
TEST(TransformView, PerspectiveEntriesFollowTheirGrouping)
{
    M4 t;
    TransMatrixPerspective3(1.0, 2.0, 0.1, 0.3, 1.0, 0.5, t.m);
    EXPECT_EQ(t.m[0][3], 0x1.c5b5c1997904ep-3);
    EXPECT_EQ(t.m[1][3], 0x1.2352e69cc2450p-3);
    EXPECT_EQ(t.m[2][3], -0x1.268f1df6036c3p-3);
    EXPECT_EQ(t.m[0][2], 0x1.9d1ad5c62be1bp-2);
    EXPECT_EQ(t.m[3][3], 0x1.07ae147ae147bp+0);
    EXPECT_EQ(t.m[2][2], 0x1.c1528065b7d50p-1);  // cos 0.5
    EXPECT_EQ(t.m[1][0], -0x1.aed548f090ceep-1);  // -sin 1
}

}  // namespace
