// Double-double arithmetic and the bit-level helpers of the elementary
// functions.
//
// A double-double is an unevaluated sum hi + lo of two doubles. The error-free
// transformations below are built from IEEE additions and multiplications in
// round-to-nearest only: no fused multiply-add (the products are split by
// Veltkamp's method), no extended precision, so every step gives the same bits
// on every platform.
//
//   two_sum(a, b)       s + e == a + b exactly (Knuth), any a, b.
//   fast_two_sum(a, b)  the same, provided |a| >= |b| or a == 0 (Dekker).
//   two_prod(a, b)      p + e == a * b exactly (Dekker), provided no
//                       intermediate overflows or underflows: |a|, |b| below
//                       2^995 and the product's exponent above -969.
#ifndef QELMATH_FOUNDATION_DOUBLE_DOUBLE_H
#define QELMATH_FOUNDATION_DOUBLE_DOUBLE_H

#include <cstdint>
#include <cstring>

namespace qel {
namespace dd {

struct DD {
    double hi;
    double lo;
};

inline std::uint64_t bits_of(double x)
{
    std::uint64_t u;
    std::memcpy(&u, &x, sizeof u);
    return u;
}

inline double from_bits(std::uint64_t u)
{
    double x;
    std::memcpy(&x, &u, sizeof x);
    return x;
}

inline double abs(double x) { return from_bits(bits_of(x) & 0x7FFFFFFFFFFFFFFFull); }

// x with the sign of s.
inline double copy_sign(double x, double s)
{
    return from_bits((bits_of(x) & 0x7FFFFFFFFFFFFFFFull) | (bits_of(s) & 0x8000000000000000ull));
}

// 2^e for -1022 <= e <= 1023, exactly.
inline double pow2(int e) { return from_bits(static_cast<std::uint64_t>(e + 1023) << 52); }

inline void two_sum(double a, double b, double& s, double& e)
{
    s = a + b;
    double bb = s - a;
    e = (a - (s - bb)) + (b - bb);
}

inline void fast_two_sum(double a, double b, double& s, double& e)
{
    s = a + b;
    e = b - (s - a);
}

inline void split(double a, double& hi, double& lo)
{
    double c = 134217729.0 * a;  // 2^27 + 1
    hi = c - (c - a);
    lo = a - hi;
}

inline void two_prod(double a, double b, double& p, double& e)
{
    p = a * b;
    double ah, al, bh, bl;
    split(a, ah, al);
    split(b, bh, bl);
    e = ((ah * bh - p) + ah * bl + al * bh) + al * bl;
}

// two_prod with b already split into bh + bl (saves a split when one factor
// meets several others).
inline void two_prod_split(double a, double b, double bh, double bl, double& p, double& e)
{
    p = a * b;
    double ah, al;
    split(a, ah, al);
    e = ((ah * bh - p) + ah * bl + al * bh) + al * bl;
}

// two_prod with both factors already split.
inline void two_prod_presplit(double a, double ah, double al, double b, double bh, double bl, double& p,
                              double& e)
{
    p = a * b;
    e = ((ah * bh - p) + ah * bl + al * bh) + al * bl;
}

// two_prod for a factor c of at most 26 significant bits (its split is c + 0).
inline void two_prod_short(double c, double b, double& p, double& e)
{
    p = c * b;
    double bh, bl;
    split(b, bh, bl);
    e = (c * bh - p) + c * bl;
}

// (a.hi + a.lo) * (b.hi + b.lo), relative error below 2^-102 for normalised
// operands (the al*bl term and two roundings of the cross terms).
inline DD mul(DD a, DD b)
{
    double p, e;
    two_prod(a.hi, b.hi, p, e);
    e += a.hi * b.lo + a.lo * b.hi;
    DD r;
    fast_two_sum(p, e, r.hi, r.lo);
    return r;
}

// (a.hi + a.lo) * b for a double b, relative error below 2^-103.
inline DD mul(DD a, double b)
{
    double p, e;
    two_prod(a.hi, b, p, e);
    e += a.lo * b;
    DD r;
    fast_two_sum(p, e, r.hi, r.lo);
    return r;
}

// Sum of two double-doubles; the error is below 2^-103 of |a| + |b| (the
// tails are added in one rounding each).
inline DD add(DD a, DD b)
{
    double s, e;
    two_sum(a.hi, b.hi, s, e);
    e += a.lo + b.lo;
    DD r;
    fast_two_sum(s, e, r.hi, r.lo);
    return r;
}

// Whether hi + lo, known to within an absolute error err, certainly rounds to
// hi: the whole interval [lo - err, lo + err] must lie strictly inside the
// half spacings of the doubles around hi. Below a power of two the spacing
// halves; the test then uses the smaller half spacing on both sides. hi must
// be a normal double. |lo| + err is computed with one rounding (relative error
// 2^-53), which the factor (1 - 2^-20) on the limit absorbs.
inline bool rounds_to_hi(double hi, double lo, double err)
{
    std::uint64_t u = bits_of(hi) & 0x7FFFFFFFFFFFFFFFull;
    int e = static_cast<int>(u >> 52);  // biased exponent of hi
    // Half the spacing above |hi|: 2^(e - 1023 - 53).
    int h = e - 1023 - 53;
    if ((u & 0x000FFFFFFFFFFFFFull) == 0) --h;
    if (h < -1022) return false;
    double limit = pow2(h) * (1.0 - 0x1p-20);
    return abs(lo) + err < limit;
}

}  // namespace dd
}  // namespace qel

#endif
