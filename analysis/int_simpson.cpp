// int_Simpson: integral of f over [a, b] by trapezoid halving, each new
// trapezoid value T2 turned into the Simpson value (4 T2 - T) / 3, until two
// successive values differ by less than eps, absolutely. The first Simpson
// value is compared with the one-panel trapezoid value.
//
// The halvings stop after the 20th (2^20 panels, 1,048,577 values of f at
// most), returning the latest Simpson value: without that bound an eps of 0
// or below, or one that rounding never lets the differences reach, would
// run until the panel count overflowed. f(a) is evaluated before f(b). A
// NaN eps gives 0 after those two calls; a = b gives 0 after three calls,
// all at a, for any eps > 0.
#include <cmath>

#include "QELMath.h"
#include "analysis/trapezoid.h"

namespace {

constexpr int kMaxHalvings = 20;

}  // namespace

QELMATH_API double int_Simpson(double (*f)(double), double a, double b, double eps)
{
    double h = b - a;
    const double fa = f(a);
    const double fb = f(b);
    double trapezoid = (h * (fa + fb)) * 0.5;
    double previous = trapezoid;
    long m = 1;
    if (std::isnan(eps)) return 0.0;

    double simpson = previous;
    for (int halving = 1; halving <= kMaxHalvings; ++halving) {
        const double sum = qel::midpoint_sum(f, a, h, m);
        m = 2 * m;
        const double halved = (trapezoid + h * sum) * 0.5;
        simpson = (4.0 * halved - trapezoid) / 3.0;
        const double change = std::fabs(simpson - previous);
        trapezoid = halved;
        previous = simpson;
        h = h / 2.0;
        if (change < eps) return simpson;
    }
    return simpson;
}
