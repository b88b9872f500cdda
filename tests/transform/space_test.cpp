// Space builders: shears, mirrors, translation and the rotations.
#include <cmath>
#include <cstring>
#include <random>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "matrix_check.h"

using tcheck::apply;
using tcheck::bits;
using tcheck::M4;
using tcheck::P4;

namespace {

constexpr double kPi = 3.141592653589793;

void expect_point(const P4& p, double x, double y, double z, double w, double tol = 0.0)
{
    EXPECT_NEAR(p.x, x, tol);
    EXPECT_NEAR(p.y, y, tol);
    EXPECT_NEAR(p.z, z, tol);
    EXPECT_NEAR(p.w, w, tol);
}

TEST(TransformSpace, ShearsAddToTheCoordinateTheyName)
{
    M4 t;
    TransMatrixTanYZ3D(2.0, t.m);
    expect_point(apply(t, 0, 1, 0), 0, 1, 2, 1);
    expect_point(apply(t, 0, 0, 1), 0, 0, 1, 1);
    TransMatrixTanZY3D(2.0, t.m);  // y' = y + t*z
    expect_point(apply(t, 0, 0, 1), 0, 2, 1, 1);
    expect_point(apply(t, 0, 1, 0), 0, 1, 0, 1);
    TransMatrixTanXY3D(2.0, t.m);
    expect_point(apply(t, 0, 1, 0), 2, 1, 0, 1);
    TransMatrixTanXZ3D(2.0, t.m);
    expect_point(apply(t, 0, 0, 1), 2, 0, 1, 1);
    TransMatrixTanYX3D(2.0, t.m);
    expect_point(apply(t, 1, 0, 0), 1, 2, 0, 1);
    TransMatrixTanZX3D(2.0, t.m);
    expect_point(apply(t, 1, 0, 0), 1, 0, 2, 1);

    // Between them the six shears reach all six off-diagonal entries of the
    // linear block, each exactly once.
    void (*const shears[])(double, double (*)[4]) = {TransMatrixTanXY3D, TransMatrixTanXZ3D,
                                                     TransMatrixTanYX3D, TransMatrixTanYZ3D,
                                                     TransMatrixTanZX3D, TransMatrixTanZY3D};
    int reached[3][3] = {};
    for (auto shear : shears) {
        shear(5.0, t.m);
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                if (i != j && t.m[i][j] == 5.0) ++reached[i][j];
    }
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            if (i != j) {
                EXPECT_EQ(reached[i][j], 1) << i << "," << j;
            }
}

TEST(TransformSpace, MirrorsFlipOneAxisAndAreTheirOwnInverse)
{
    void (*const mirrors[])(double (*)[4]) = {TransMatrixMirror3DYZ, TransMatrixMirror3DXZ,
                                              TransMatrixMirror3DXY};
    for (int axis = 0; axis < 3; ++axis) {
        M4 t;
        mirrors[axis](t.m);
        P4 p = apply(t, 1.0, 2.0, 3.0);
        double want[3] = {1.0, 2.0, 3.0};
        want[axis] = -want[axis];
        expect_point(p, want[0], want[1], want[2], 1.0);
        M4 id = tcheck::mul(t, t), one;
        TransMatrixScale3D(1.0, 1.0, 1.0, one.m);
        EXPECT_EQ(std::memcmp(&id, &one, sizeof id), 0);
    }
}

TEST(TransformSpace, MoveShiftsPointsButNotDirections)
{
    M4 t;
    TransMatrixMove3D(1.0, 2.0, 3.0, t.m);
    expect_point(apply(t, 0, 0, 0), 1, 2, 3, 1);
    expect_point(apply(t, 4, 5, 6, 0.0), 4, 5, 6, 0);
    TransMatrixScale3D(2.0, -1.0, 0.5, t.m);
    expect_point(apply(t, 1, 1, 1), 2, -1, 0.5, 1);
}

TEST(TransformSpace, AxisRotationsTurnCounterClockwise)
{
    const double e = 1.3e-16;  // cos(pi/2) of the double pi/2 is 6.1e-17
    M4 t;
    TransMatrixRotate3DX(kPi / 2, t.m);
    expect_point(apply(t, 0, 1, 0), 0, 0, 1, 1, e);
    TransMatrixRotate3DY(kPi / 2, t.m);
    expect_point(apply(t, 0, 0, 1), 1, 0, 0, 1, e);
    TransMatrixRotate3DZ(kPi / 2, t.m);
    expect_point(apply(t, 1, 0, 0), 0, 1, 0, 1, e);
    // The sine and cosine are the correctly rounded ones of the double pi/2.
    EXPECT_EQ(t.m[0][1], 1.0);
    EXPECT_EQ(t.m[0][0], 0x1.1a62633145c07p-54);
    EXPECT_EQ(t.m[1][0], -1.0);
}

// About a coordinate axis the general rotation is the axis rotation by
// value (only the sign of a zero may differ, e.g. at theta = 0).
TEST(TransformSpace, RotationAboutACoordinateAxisIsTheAxisRotation)
{
    void (*const axis_rot[])(double, double (*)[4]) = {TransMatrixRotate3DX, TransMatrixRotate3DY,
                                                       TransMatrixRotate3DZ};
    const double angles[] = {0.0, 0.3, kPi / 2, 2.0, kPi, -1.25, 7.5};
    for (int axis = 0; axis < 3; ++axis)
        for (double theta : angles) {
            double u[3] = {0.0, 0.0, 0.0};
            u[axis] = 1.0;
            M4 g, r;
            TransMatrixRotate3DO(u[0], u[1], u[2], theta, g.m);
            axis_rot[axis](theta, r.m);
            for (int i = 0; i < 4; ++i)
                for (int j = 0; j < 4; ++j)
                    EXPECT_EQ(g.m[i][j], r.m[i][j])
                        << "axis " << axis << " theta " << theta << " at " << i << "," << j;
        }
}

TEST(TransformSpace, RotationAboutAnyUnitAxis)
{
    std::mt19937 gen(977);
    std::normal_distribution<double> n01;
    std::uniform_real_distribution<double> angle(-7.0, 7.0);
    for (int n = 0; n < 200; ++n) {
        double u[3] = {n01(gen), n01(gen), n01(gen)};
        double len = std::sqrt(u[0] * u[0] + u[1] * u[1] + u[2] * u[2]);
        for (double& c : u) c /= len;
        double theta = angle(gen);
        M4 r, back, zero;
        TransMatrixRotate3DO(u[0], u[1], u[2], theta, r.m);
        TransMatrixRotate3DO(u[0], u[1], u[2], -theta, back.m);
        TransMatrixRotate3DO(u[0], u[1], u[2], 0.0, zero.m);
        M4 id = tcheck::mul(r, back);
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) {
                double want = i == j ? 1.0 : 0.0;
                EXPECT_NEAR(id.m[i][j], want, 2e-15);  // turning back undoes it
                EXPECT_NEAR(zero.m[i][j], want, 4e-16);
                if (i < 3 && j < 3) {
                    EXPECT_NEAR(r.m[i][j], back.m[j][i], 4e-16);  // R^-1 = R^T
                }
            }
        // The axis stays put, and a vector across it turns the right way:
        // (u x v) . v' = sin theta for a unit v perpendicular to u.
        P4 a = apply(r, u[0], u[1], u[2], 0.0);
        expect_point(a, u[0], u[1], u[2], 0.0, 1e-15);
        double v[3] = {u[1], -u[0], 0.0};
        double vl = std::sqrt(v[0] * v[0] + v[1] * v[1]);
        for (double& c : v) c /= vl;
        P4 w = apply(r, v[0], v[1], v[2], 0.0);
        double uxv[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2],
                         u[0] * v[1] - u[1] * v[0]};
        EXPECT_NEAR(uxv[0] * w.x + uxv[1] * w.y + uxv[2] * w.z, std::sin(theta), 2e-15);
        EXPECT_NEAR(v[0] * w.x + v[1] * w.y + v[2] * w.z, std::cos(theta), 2e-15);
    }
}

// The axis (0.28, 0.96, 0) and theta = 1 separate the groupings:
// ux*ux*k + cs gives 0.5763426050880777 for T[0][0], and ux*(uy*k) gives
// 0.12356674018264403 for T[0][1]. sin 1 and cos 1 are correctly rounded.
TEST(TransformSpace, GeneralRotationEntriesFollowTheirGrouping)
{
    M4 t;
    TransMatrixRotate3DO(0.28, 0.96, 0.0, 1.0, t.m);
    EXPECT_EQ(t.m[0][0], 0x1.271660c04a1aep-1);
    EXPECT_EQ(t.m[0][1], 0x1.fa211e3f5316ap-4);
    EXPECT_EQ(t.m[1][0], 0x1.fa211e3f5316ap-4);
    EXPECT_EQ(t.m[0][2], -0x1.9d998db3be374p-1);
    EXPECT_EQ(t.m[2][0], 0x1.9d998db3be374p-1);
    EXPECT_EQ(t.m[1][1], 0x1.ed8c203b064ddp-1);
    EXPECT_EQ(t.m[1][2], 0x1.e2887aa70895dp-3);
    EXPECT_EQ(t.m[2][1], -0x1.e2887aa70895dp-3);
    EXPECT_EQ(t.m[2][2], 0x1.14a280fb5068cp-1);  // cos 1
}

}  // namespace
