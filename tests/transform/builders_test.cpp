// The transformation builders: which entries each one writes (the others are
// +0.0 whatever the array held, or, for the four-number perspective
// overloads, left alone), the bits of entries whose grouping of products
// defines them, and degenerate arguments (signed zeros, the integer limits).
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

std::uint64_t bits(double v) { std::uint64_t u; std::memcpy(&u, &v, 8); return u; }

// named: N*N flags, row after row, or nullptr where the arguments make some
// named entries zero. golden: (row-major index, bits) of entries whose
// grouping the arguments separate, e.g. Mirror2D(0.1, 0.3, 0.7): (b*b - a*a)*k
// gives 0.7999999999999998 where (b-a)*((a+b)*k) gives 0.7999999999999999.
template <int N>
struct Builder { void (*build)(double (*)[N]); const char* named; std::vector<std::pair<int, double>> golden = {}; };

const Builder<4> kSpace[] = {
    {[](auto T) { TransMatrixScale3D(2.5, -3.0, 0.75, T); }, "1000010000100001"}, {[](auto T) { TransMatrixTanXY3D(0.3, T); }, "1000110000100001"},
    {[](auto T) { TransMatrixTanXZ3D(0.3, T); }, "1000010010100001"}, {[](auto T) { TransMatrixTanYX3D(0.3, T); }, "1100010000100001"},
    {[](auto T) { TransMatrixTanYZ3D(0.3, T); }, "1000011000100001"}, {[](auto T) { TransMatrixTanZX3D(0.3, T); }, "1010010000100001"},
    {[](auto T) { TransMatrixTanZY3D(0.3, T); }, "1000010001100001"}, {[](auto T) { TransMatrixMirror3DXY(T); }, "1000010000100001", {{10, -1.0}}},
    {[](auto T) { TransMatrixMirror3DXZ(T); }, "1000010000100001", {{5, -1.0}}},
    {[](auto T) { TransMatrixMirror3DYZ(T); }, "1000010000100001", {{0, -1.0}}},
    {[](auto T) { TransMatrixMove3D(1.5, -2.0, 4.0, T); }, "1000010000101111"},
    {[](auto T) { TransMatrixMove3D(-0.0, -0.0, -0.0, T); }, nullptr, {{12, -0.0}, {13, -0.0}, {14, -0.0}, {3, 0.0}}},
    {[](auto T) { TransMatrixRotate3DX(0.7, T); }, "1000011001100001"}, {[](auto T) { TransMatrixRotate3DY(0.7, T); }, "1010010010100001"},
    {[](auto T) { TransMatrixRotate3DZ(0x1.921fb54442d18p+0, T); }, "1100110000100001", {{0, 0x1.1a62633145c07p-54}, {1, 1.0}, {4, -1.0}}},
    {[](auto T) { TransMatrixRotate3DZ(0.0, T); }, nullptr, {{4, -0.0}, {1, 0.0}}},
    // ux*ux*k + c and ux*(uy*k); sin 1 and cos 1 correctly rounded.
    {[](auto T) { TransMatrixRotate3DO(0.28, 0.96, 0.0, 1.0, T); }, "1110111011100001",
     {{0, 0x1.271660c04a1aep-1}, {1, 0x1.fa211e3f5316ap-4}, {4, 0x1.fa211e3f5316ap-4}, {2, -0x1.9d998db3be374p-1}, {8, 0x1.9d998db3be374p-1},
      {5, 0x1.ed8c203b064ddp-1}, {6, 0x1.e2887aa70895dp-3}, {9, -0x1.e2887aa70895dp-3}, {10, 0x1.14a280fb5068cp-1}}},
    {[](auto T) { TransMatrixViewV(T); }, "1000000000100001"}, {[](auto T) { TransMatrixViewH(10.0, T); }, "1000001000000011", {{14, -10.0}}},
    {[](auto T) { TransMatrixViewH(0.0, T); }, nullptr, {{14, -0.0}}}, {[](auto T) { TransMatrixViewW(10.0, T); }, "0000100000101001", {{12, -10.0}}},
    {[](auto T) { TransMatrixViewW(0.0, T); }, nullptr, {{12, -0.0}}}, {[](auto T) { TransMatrixAxisView(0.7, 0.4, T); }, "1010101000100001"},
    {[](auto T) { TransMatrixAxisViewPE(T); }, "1010101000100001"}, {[](auto T) { TransMatrixAxisViewP2(T); }, "1010101000100001"},
    {[](auto T) { TransMatrixAxisViewL(-0.5, -0.25, T); }, "1000101000100001"}, {[](auto T) { TransMatrixAxisViewL2(T); }, "1000101000100001"},
    {[](auto T) { TransMatrixPerspective1(1.5, 2.5, 0.2, 0.3, T); }, "1000000100101011"},
    {[](auto T) { TransMatrixPerspective2(1.5, 2.5, 0.2, 0.3, 0.7, T); }, "1001100100101011"},
    // (q*sin theta)*cos phi; q*(sin theta*cos phi) would give 0.22153807878123863.
    {[](auto T) { TransMatrixPerspective3(1.0, 2.0, 0.1, 0.3, 1.0, 0.5, T); }, "1011101100111011", {{3, 0x1.c5b5c1997904ep-3},
      {7, 0x1.2352e69cc2450p-3}, {11, -0x1.268f1df6036c3p-3}, {2, 0x1.9d1ad5c62be1bp-2}, {15, 0x1.07ae147ae147bp+0}, {10, 0x1.c1528065b7d50p-1}}},
};

const Builder<3> kPlane[] = {
    {[](auto T) { TransMatrixMirror2D(0.1, 0.3, 0.7, T); }, "110110111", {{0, 0x1.999999999999ap-1}, {4, -0x1.999999999999ap-1},
      {1, -0x1.3333333333333p-1}, {3, -0x1.3333333333333p-1}, {6, -0x1.6666666666666p+0}, {7, -0x1.0cccccccccccdp+2}}},
    // x = 2: -(2*1*0) is -0.0, -(2*0*-2) is +0.0.
    {[](auto T) { TransMatrixMirror2D(1.0, 0.0, -2.0, T); }, nullptr, {{0, -1.0}, {4, 1.0}, {6, 4.0}, {8, 1.0}, {1, -0.0}, {7, 0.0}}},
    {[](auto T) { TransMatrixTanX2D(0.5, T); }, "100110001", {{3, 0.5}}}, {[](auto T) { TransMatrixTanY2D(0.5, T); }, "110010001", {{1, 0.5}}},
    {[](auto T) { TransMatrixCoordMapToGDI(INT_MIN, INT_MAX, 3.0, 7.0, T); }, "100010111",
     {{0, 0x1.5555555555555p-2}, {4, -0x1.2492492492492p-3}, {6, -2147483648.0}, {7, 2147483647.0}}},
    // -INT_MIN has no int: the shift is still exactly 2^31 * sx.
    {[](auto T) { TransMatrixCoordMapToView(INT_MIN, INT_MIN, 0.5, 0.25, T); }, "100010111", {{6, 1073741824.0}, {7, -536870912.0}, {4, -0.25}}},
    {[](auto T) { TransMatrixCoordMapToView(INT_MAX, 0, 0.5, 0.25, T); }, nullptr, {{6, -1073741823.5}, {7, 0.0}}},
};

// Two earlier contents that share no bits with each other or with a result:
// signalling-NaN payloads, and huge values of both signs.
template <int N>
void expect_builder(const Builder<N>& b, int row)
{
    SCOPED_TRACE(::testing::Message() << "row " << row << " of " << N << " x " << N);
    double a[N][N], c[N][N];
    for (int i = 0; i < N * N; ++i) {
        std::uint64_t junk = 0x7ff4dead0000beefull + static_cast<std::uint64_t>(i);
        std::memcpy(&a[i / N][i % N], &junk, sizeof junk);
        c[i / N][i % N] = (i % 2 ? -1e300 : 1e300) * (i + 1);
    }
    b.build(a), b.build(c);
    EXPECT_EQ(std::memcmp(a, c, sizeof a), 0) << "result depends on the old contents";
    for (int i = 0; b.named && i < N * N; ++i) {
        const double v = a[i / N][i % N];
        EXPECT_TRUE(b.named[i] == '1' ? v != 0.0 && std::isfinite(v) : bits(v) == 0) << "entry " << i << " = " << v << ", named " << b.named[i];
    }
    for (const auto& g : b.golden)
        EXPECT_EQ(bits(a[g.first / N][g.first % N]), bits(g.second)) << "entry " << g.first;
}

TEST(TransformBuilders, WrittenEntriesAndGoldenBits)
{
    for (const auto& b : kSpace) expect_builder(b, int(&b - kSpace));
    for (const auto& b : kPlane) expect_builder(b, int(&b - kPlane));
}

using Shift = void (*)(double, double, double, double, double (*)[4]);

// The four-number overloads write T[3][0], T[3][2] and T[3][3] only: 1.25,
// -0.0 and 0.1*0.3 + 1, which rounds to the double 1.03.
TEST(TransformBuilders, FourNumberPerspectivesWriteOnlyTheShiftRow)
{
    for (Shift shift : {static_cast<Shift>(&TransMatrixPerspective2), static_cast<Shift>(&TransMatrixPerspective3)}) {
        double t[4][4], want[16];
        for (int i = 0; i < 16; ++i) want[i] = t[i / 4][i % 4] = i == 5 ? -0.0 : -1e300 * (i + 1);
        want[12] = 1.25, want[14] = -0.0, want[15] = 1.03;
        shift(1.25, -0.0, 0.1, 0.3, t);
        for (int i = 0; i < 16; ++i) EXPECT_EQ(bits(t[i / 4][i % 4]), bits(want[i])) << i;
    }
}

}  // namespace
