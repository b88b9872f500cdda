// Slow paths of atan and atan2, in 224-bit fixed point.
//
// Method: the ratio z in [0, 1] is formed exactly to 224 bits by binary long
// division of the significands; the double-double kernel's t0 ~ atan z,
// taken at z rounded to a double (relative error e0 < 2^-52), is refined by one Newton step on
// f(t) = sin t - z cos t:
//   t1 = t0 - (sin t0 - z cos t0) / (cos t0 + z sin t0),
// with sin and cos in fixed point (sin_cos_fixed) and the correction divided
// in double-double. As f'' = -f vanishes at the root, the step leaves an
// error of order e0^3 < 2^-155; the correction's relative error 2^-100 on a
// correction below 2^-51 |t| and the fixed-point steps (2^-210 absolute) keep
// the total below 2^-150 relative for every t >= 2^-57 handled here. The
// quadrant is then applied in fixed point (pi/2 - t, pi - t, pi/2 + t) and
// the result rounded to nearest once.
#include "foundation/atan_kernel.h"
#include "foundation/elementary_internal.h"

namespace qel {

namespace {

dd::DD to_dd(const fx::Fixed& a)
{
    double hi = fx::to_double(a);
    double lo = fx::to_double(fx::sub(a, fx::from_double(hi)));
    return dd::DD{hi, lo};
}

fx::Fixed from_dd(const dd::DD& a) { return fx::add(fx::from_double(a.hi), fx::from_double(a.lo)); }

// atan z for z in [0, 1].
fx::Fixed atan_fixed(const fx::Fixed& z)
{
    double zh = fx::to_double(z);
    fx::Fixed t0 = from_dd(atan_kernel(zh, 1.0, zh));
    fx::Fixed s, c;
    sin_cos_fixed(t0, &s, &c);
    dd::DD num = to_dd(fx::sub(s, fx::mul(z, c)));
    dd::DD den = to_dd(fx::add(c, fx::mul(z, s)));
    // num / den in double-double.
    double qh = num.hi / den.hi;
    double p, pe;
    dd::two_prod(qh, den.hi, p, pe);
    double ql = ((((num.hi - p) - pe) + num.lo) - qh * den.lo) / den.hi;
    return fx::sub(t0, from_dd(dd::DD{qh, ql}));
}

double with_sign(double v, bool negative) { return negative ? -v : v; }

}  // namespace

double atan_slow(double x)
{
    double ax = dd::abs(x);
    fx::Fixed r;
    if (ax <= 1.0)
        r = atan_fixed(fx::from_double(ax));
    else
        r = fx::sub(kPio2Fixed, atan_fixed(fx::ratio(1.0, ax)));
    return with_sign(fx::to_double(r), x < 0);
}

double atan2_slow(double y, double x)
{
    double ay = dd::abs(y), ax = dd::abs(x);
    fx::Fixed r;
    if (ay <= ax) {
        fx::Fixed t = atan_fixed(fx::ratio(ay, ax));
        r = x > 0 ? t : fx::sub(kPiFixed, t);
    } else {
        fx::Fixed t = atan_fixed(fx::ratio(ax, ay));
        r = x > 0 ? fx::sub(kPio2Fixed, t) : fx::add(kPio2Fixed, t);
    }
    return with_sign(fx::to_double(r), y < 0);
}

}  // namespace qel
