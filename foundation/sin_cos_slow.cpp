// Slow paths of sine and cosine, in 224-bit fixed point.
//
// Method: Payne-Hanek reduction to r = x - k*pi/2 in fixed point (error below
// 2^-218, see reduce_pio2.cpp), then the Taylor series of sin r and cos r on
// |r| <= pi/4 summed until the terms vanish (about 27 terms each). Each
// product errs by less than 2^-221 and each quotient by less than 2^-224,
// and the terms shrink, so the sums are within 2^-212 of sin r and cos r. As |r| >= 2^-62 for every
// double argument (|x| >= 2^-27 here), the result is within 2^-150 of its
// magnitude, and is rounded to nearest once. No known double argument of
// sine or cosine needs more than 2^-126 to round correctly.
#include "foundation/elementary_internal.h"
#include "foundation/reduce_pio2.h"

namespace qel {

void sin_cos_fixed(const fx::Fixed& r, fx::Fixed* s, fx::Fixed* c)
{
    bool negative = fx::is_negative(r);
    fx::Fixed a = negative ? fx::neg(r) : r;
    fx::Fixed a2 = fx::mul(a, a);
    if (s) {
        fx::Fixed term = a, sum = a;
        for (std::uint32_t n = 1;; ++n) {
            term = fx::div_small(fx::mul(term, a2), (2 * n) * (2 * n + 1));
            if (fx::is_zero(term)) break;
            sum = (n & 1u) ? fx::sub(sum, term) : fx::add(sum, term);
        }
        *s = negative ? fx::neg(sum) : sum;
    }
    if (c) {
        fx::Fixed term = fx::from_int(1), sum = fx::from_int(1);
        for (std::uint32_t n = 1;; ++n) {
            term = fx::div_small(fx::mul(term, a2), (2 * n - 1) * (2 * n));
            if (fx::is_zero(term)) break;
            sum = (n & 1u) ? fx::sub(sum, term) : fx::add(sum, term);
        }
        *c = sum;
    }
}

namespace {

// sin(x) when shift == 0, cos(x) = sin(x + pi/2) when shift == 1.
double sin_quadrant_slow(double x, int shift)
{
    fx::Fixed r;
    int k = (reduce_pio2_fixed(x, r) + shift) & 3;
    fx::Fixed v;
    if (k & 1)
        sin_cos_fixed(r, nullptr, &v);
    else
        sin_cos_fixed(r, &v, nullptr);
    if (k & 2) v = fx::neg(v);
    return fx::to_double(v);
}

}  // namespace

double sin_slow(double x) { return sin_quadrant_slow(x, 0); }
double cos_slow(double x) { return sin_quadrant_slow(x, 1); }

}  // namespace qel
