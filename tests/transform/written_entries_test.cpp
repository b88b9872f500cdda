// What every builder writes: the whole matrix (entries it does not name are
// +0.0 whatever the array held), or, for the four-number perspective
// overloads, three entries and nothing else.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "matrix_check.h"

using tcheck::bits;
using tcheck::from_bits;

namespace {

// Arguments chosen so that every entry a builder names is non-zero: a named
// entry that came out zero would point at a misplaced write.
struct Space {
    const char* name;
    void (*build)(double (*)[4]);
    const char* named;  // 16 flags, row after row
};

struct Plane {
    const char* name;
    void (*build)(double (*)[3]);
    const char* named;  // 9 flags
};

const Space kSpace[] = {
    {"Scale3D", [](double (*T)[4]) { TransMatrixScale3D(2.5, -3.0, 0.75, T); },
     "1000" "0100" "0010" "0001"},
    {"TanXY3D", [](double (*T)[4]) { TransMatrixTanXY3D(0.3, T); }, "1000" "1100" "0010" "0001"},
    {"TanXZ3D", [](double (*T)[4]) { TransMatrixTanXZ3D(0.3, T); }, "1000" "0100" "1010" "0001"},
    {"TanYX3D", [](double (*T)[4]) { TransMatrixTanYX3D(0.3, T); }, "1100" "0100" "0010" "0001"},
    {"TanYZ3D", [](double (*T)[4]) { TransMatrixTanYZ3D(0.3, T); }, "1000" "0110" "0010" "0001"},
    {"TanZX3D", [](double (*T)[4]) { TransMatrixTanZX3D(0.3, T); }, "1010" "0100" "0010" "0001"},
    {"TanZY3D", [](double (*T)[4]) { TransMatrixTanZY3D(0.3, T); }, "1000" "0100" "0110" "0001"},
    {"Mirror3DXY", [](double (*T)[4]) { TransMatrixMirror3DXY(T); }, "1000" "0100" "0010" "0001"},
    {"Mirror3DXZ", [](double (*T)[4]) { TransMatrixMirror3DXZ(T); }, "1000" "0100" "0010" "0001"},
    {"Mirror3DYZ", [](double (*T)[4]) { TransMatrixMirror3DYZ(T); }, "1000" "0100" "0010" "0001"},
    {"Move3D", [](double (*T)[4]) { TransMatrixMove3D(1.5, -2.0, 4.0, T); },
     "1000" "0100" "0010" "1111"},
    {"Rotate3DX", [](double (*T)[4]) { TransMatrixRotate3DX(0.7, T); }, "1000" "0110" "0110" "0001"},
    {"Rotate3DY", [](double (*T)[4]) { TransMatrixRotate3DY(0.7, T); }, "1010" "0100" "1010" "0001"},
    {"Rotate3DZ", [](double (*T)[4]) { TransMatrixRotate3DZ(0.7, T); }, "1100" "1100" "0010" "0001"},
    {"Rotate3DO", [](double (*T)[4]) { TransMatrixRotate3DO(0.36, 0.48, 0.8, 0.7, T); },
     "1110" "1110" "1110" "0001"},
    {"ViewV", [](double (*T)[4]) { TransMatrixViewV(T); }, "1000" "0000" "0010" "0001"},
    {"ViewH", [](double (*T)[4]) { TransMatrixViewH(10.0, T); }, "1000" "0010" "0000" "0011"},
    {"ViewW", [](double (*T)[4]) { TransMatrixViewW(10.0, T); }, "0000" "1000" "0010" "1001"},
    {"AxisView", [](double (*T)[4]) { TransMatrixAxisView(0.7, 0.4, T); },
     "1010" "1010" "0010" "0001"},
    {"AxisViewPE", [](double (*T)[4]) { TransMatrixAxisViewPE(T); }, "1010" "1010" "0010" "0001"},
    {"AxisViewP2", [](double (*T)[4]) { TransMatrixAxisViewP2(T); }, "1010" "1010" "0010" "0001"},
    {"AxisViewL", [](double (*T)[4]) { TransMatrixAxisViewL(-0.5, -0.25, T); },
     "1000" "1010" "0010" "0001"},
    {"AxisViewL2", [](double (*T)[4]) { TransMatrixAxisViewL2(T); }, "1000" "1010" "0010" "0001"},
    {"Perspective1", [](double (*T)[4]) { TransMatrixPerspective1(1.5, 2.5, 0.2, 0.3, T); },
     "1000" "0001" "0010" "1011"},
    {"Perspective2", [](double (*T)[4]) { TransMatrixPerspective2(1.5, 2.5, 0.2, 0.3, 0.7, T); },
     "1001" "1001" "0010" "1011"},
    {"Perspective3",
     [](double (*T)[4]) { TransMatrixPerspective3(1.5, 2.5, 0.2, 0.3, 0.7, 0.4, T); },
     "1011" "1011" "0011" "1011"},
};

const Plane kPlane[] = {
    {"Mirror2D", [](double (*T)[3]) { TransMatrixMirror2D(0.3, 0.7, 1.1, T); }, "110" "110" "111"},
    {"TanX2D", [](double (*T)[3]) { TransMatrixTanX2D(0.5, T); }, "100" "110" "001"},
    {"TanY2D", [](double (*T)[3]) { TransMatrixTanY2D(0.5, T); }, "110" "010" "001"},
    {"CoordMapToGDI", [](double (*T)[3]) { TransMatrixCoordMapToGDI(100, -200, 0.5, 3.0, T); },
     "100" "010" "111"},
    {"CoordMapToView", [](double (*T)[3]) { TransMatrixCoordMapToView(100, -200, 0.5, 3.0, T); },
     "100" "010" "111"},
};

// Two previous contents that share no bit pattern with each other or with
// any result: a signalling-NaN payload, and large values of both signs.
const std::uint64_t kJunkA = 0x7ff4dead0000beefull;
double junk_b(int i) { return (i % 2 ? -1.0 : 1.0) * 1e300 * (i + 1); }

TEST(TransformWrites, FullBuildersOverwriteEveryEntryAndLeaveUnnamedOnesPlusZero)
{
    for (const Space& b : kSpace) {
        SCOPED_TRACE(b.name);
        double a[4][4], c[4][4];
        for (int i = 0; i < 16; ++i) {
            a[i / 4][i % 4] = from_bits(kJunkA + static_cast<std::uint64_t>(i));
            c[i / 4][i % 4] = junk_b(i);
        }
        b.build(a);
        b.build(c);
        EXPECT_EQ(std::memcmp(a, c, sizeof a), 0) << "result depends on the old contents";
        for (int i = 0; i < 16; ++i) {
            double v = a[i / 4][i % 4];
            if (b.named[i] == '1')
                EXPECT_TRUE(v != 0.0 && std::isfinite(v)) << "named entry " << i << " = " << v;
            else
                EXPECT_EQ(bits(v), 0u) << "unnamed entry " << i << " = " << v;
        }
    }
    for (const Plane& b : kPlane) {
        SCOPED_TRACE(b.name);
        double a[3][3], c[3][3];
        for (int i = 0; i < 9; ++i) {
            a[i / 3][i % 3] = from_bits(kJunkA + static_cast<std::uint64_t>(i));
            c[i / 3][i % 3] = junk_b(i);
        }
        b.build(a);
        b.build(c);
        EXPECT_EQ(std::memcmp(a, c, sizeof a), 0) << "result depends on the old contents";
        for (int i = 0; i < 9; ++i) {
            double v = a[i / 3][i % 3];
            if (b.named[i] == '1')
                EXPECT_TRUE(v != 0.0 && std::isfinite(v)) << "named entry " << i << " = " << v;
            else
                EXPECT_EQ(bits(v), 0u) << "unnamed entry " << i << " = " << v;
        }
    }
}

// Cleared entries are +0.0 even where a builder's own arguments are signed
// zeros; the named entries keep the sign their formula gives.
TEST(TransformWrites, SignedZeroArgumentsOnlyReachTheNamedEntries)
{
    double t[4][4];
    TransMatrixMove3D(-0.0, -0.0, -0.0, t);
    EXPECT_EQ(bits(t[3][0]), bits(-0.0));
    EXPECT_EQ(bits(t[3][1]), bits(-0.0));
    EXPECT_EQ(bits(t[3][2]), bits(-0.0));
    EXPECT_EQ(bits(t[0][3]), 0u);
    TransMatrixViewH(0.0, t);
    EXPECT_EQ(bits(t[3][2]), bits(-0.0));  // the shift is -d
    TransMatrixViewW(0.0, t);
    EXPECT_EQ(bits(t[3][0]), bits(-0.0));
    TransMatrixRotate3DZ(0.0, t);
    EXPECT_EQ(bits(t[1][0]), bits(-0.0));  // -sin 0
    EXPECT_EQ(bits(t[0][1]), 0u);
}

using Shift = void (*)(double, double, double, double, double (*)[4]);

TEST(TransformWrites, FourNumberPerspectivesTouchOnlyTheThreeShiftEntries)
{
    const Shift overloads[] = {static_cast<Shift>(&TransMatrixPerspective2),
                               static_cast<Shift>(&TransMatrixPerspective3)};
    const double inf = std::numeric_limits<double>::infinity();
    const double before[16] = {from_bits(0x7ff4000000000001ull), -0.0, 1e-310, -inf,
                               3.5, from_bits(0xfff8000000001234ull), -7.25, 0.0,
                               inf, 1e300, -0.0, 2.0,
                               from_bits(0x7ff0000000000002ull), from_bits(0x8000000000000001ull),
                               -1e-300, 42.0};
    for (Shift shift : overloads) {
        double t[4][4];
        std::memcpy(t, before, sizeof t);
        shift(1.25, -0.0, 0.1, 0.3, t);
        for (int i = 0; i < 16; ++i) {
            if (i == 12 || i == 14 || i == 15) continue;
            EXPECT_EQ(bits(t[i / 4][i % 4]), bits(before[i])) << "entry " << i;
        }
        double p1[4][4];
        TransMatrixPerspective1(1.25, -0.0, 0.1, 0.3, p1);
        EXPECT_EQ(bits(t[3][0]), bits(1.25));
        EXPECT_EQ(bits(t[3][2]), bits(-0.0));
        EXPECT_EQ(bits(t[3][3]), bits(p1[3][3]));
        EXPECT_EQ(bits(t[3][3]), bits(1.03));  // 0.1*0.3 + 1 rounds to the double 1.03
    }
}

// On a matrix made by the full builder with the same q, the overload gives
// exactly what the full builder gives for the new shifts: q*dy + 1 and
// dy*q + 1 are the same number.
TEST(TransformWrites, FourNumberPerspectivesReshiftAFullMatrix)
{
    double a[4][4], b[4][4];
    TransMatrixPerspective2(1.0, 2.0, 3.0, 0.3, 0.7, a);
    TransMatrixPerspective2(-4.5, 0.125, 0.7, 0.3, a);
    TransMatrixPerspective2(-4.5, 0.125, 0.7, 0.3, 0.7, b);
    EXPECT_EQ(std::memcmp(a, b, sizeof a), 0);

    TransMatrixPerspective3(1.0, 2.0, 3.0, 0.3, 0.7, 0.4, a);
    TransMatrixPerspective3(-4.5, 0.125, 0.7, 0.3, a);
    TransMatrixPerspective3(-4.5, 0.125, 0.7, 0.3, 0.7, 0.4, b);
    EXPECT_EQ(std::memcmp(a, b, sizeof a), 0);

    // With another q only the shift row follows; the q already in the
    // projective column stays.
    TransMatrixPerspective3(1.0, 2.0, 3.0, 0.3, 0.7, 0.4, a);
    double column[4] = {a[0][3], a[1][3], a[2][3]};
    TransMatrixPerspective3(0.0, 0.0, 2.0, 0.5, a);
    EXPECT_EQ(a[3][3], 2.0);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(bits(a[i][3]), bits(column[i]));
}

}  // namespace
