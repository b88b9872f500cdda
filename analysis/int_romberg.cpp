// int_Romberg: integral of f over [a, b] by trapezoid halving with
// Richardson extrapolation, one row of the tableau kept in T[0..9].
//
// Level k (1 .. 9) adds the m = 2^(k-1) midpoints, extrapolates the new
// trapezoid value through the row with factors 4^j and stops when the last
// extrapolation moved the value by less than eps, absolutely. After level 9
// (512 panels, 513 values of f) it returns the last extrapolated value.
// f(a) is evaluated before f(b). A NaN eps gives 0 after those two calls;
// a = b gives 0 after three calls, all at a, for any eps > 0.
#include <cmath>

#include "QELMath.h"
#include "analysis/trapezoid.h"

QELMATH_API double int_Romberg(double (*f)(double), double a, double b, double eps)
{
    double h = b - a;
    const double fa = f(a);
    const double fb = f(b);
    double row[10];
    row[0] = (h * (fa + fb)) * 0.5;
    long m = 1;
    double result = 0.0;
    if (std::isnan(eps)) return 0.0;

    for (int k = 1; k <= 9; ++k) {
        const double sum = qel::midpoint_sum(f, a, h, m);
        double v = (row[0] + h * sum) * 0.5;
        double q = 1.0;
        for (int j = 1; j <= k; ++j) {
            q = 4.0 * q;
            const double w = (q * v - row[j - 1]) / (q - 1.0);
            row[j - 1] = v;
            v = w;
            result = v;
        }
        // row[k - 1] holds this level's value before its last extrapolation.
        const double change = std::fabs(v - row[k - 1]);
        row[k] = v;
        h = h / 2.0;
        m = 2 * m;
        if (change < eps) return v;
    }
    return result;
}
