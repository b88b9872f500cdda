// Small helpers shared by the transformation tests: products and point
// mappings in the row-vector convention, and bit-level comparison.
#ifndef QELMATH_TESTS_TRANSFORM_MATRIX_CHECK_H
#define QELMATH_TESTS_TRANSFORM_MATRIX_CHECK_H

#include <cstdint>
#include <cstring>

namespace tcheck {

inline std::uint64_t bits(double v)
{
    std::uint64_t u;
    std::memcpy(&u, &v, sizeof u);
    return u;
}

inline double from_bits(std::uint64_t u)
{
    double v;
    std::memcpy(&v, &u, sizeof v);
    return v;
}

struct M4 {
    double m[4][4];
};

struct M3 {
    double m[3][3];
};

// A . B, plain row-by-column sums in index order.
inline M4 mul(const M4& a, const M4& b)
{
    M4 r{};
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            double s = 0.0;
            for (int k = 0; k < 4; ++k) s += a.m[i][k] * b.m[k][j];
            r.m[i][j] = s;
        }
    return r;
}

inline M3 mul(const M3& a, const M3& b)
{
    M3 r{};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) {
            double s = 0.0;
            for (int k = 0; k < 3; ++k) s += a.m[i][k] * b.m[k][j];
            r.m[i][j] = s;
        }
    return r;
}

// (x, y, z, w) . T
struct P4 {
    double x, y, z, w;
};

inline P4 apply(const M4& t, double x, double y, double z, double w = 1.0)
{
    const double p[4] = {x, y, z, w};
    double r[4];
    for (int j = 0; j < 4; ++j)
        r[j] = p[0] * t.m[0][j] + p[1] * t.m[1][j] + p[2] * t.m[2][j] + p[3] * t.m[3][j];
    return {r[0], r[1], r[2], r[3]};
}

struct P2 {
    double x, y;
};

// (x, y, 1) . T
inline P2 apply(const M3& t, double x, double y)
{
    return {x * t.m[0][0] + y * t.m[1][0] + t.m[2][0], x * t.m[0][1] + y * t.m[1][1] + t.m[2][1]};
}

}  // namespace tcheck

#endif
