// solve_Equation: the real roots of a x^2 + b x + c = 0.
//
// All thresholds are the absolute machine epsilon 2^-52. |a| within it
// makes the equation linear (one root -c / b, or none when |b| is within it
// too). Otherwise the discriminant D = b b - a c 4 decides: D < 0 gives no
// root, 0 <= D <= 2^-52 the double root -b / (a + a), and above that the
// larger-magnitude root q / (2a), with q = -b - sqrt(D) for b > 0 and
// sqrt(D) - b for b <= 0, so that no nearly equal numbers are subtracted;
// the second root follows from the product of the roots, c / (a x1).
// Nothing is written for 0 roots, only roots[0] for one.
#include <cmath>
#include <limits>

#include "QELMath.h"

QELMATH_API int solve_Equation(double a, double b, double c, double* roots)
{
    constexpr double tiny = std::numeric_limits<double>::epsilon();

    if (std::fabs(a) <= tiny) {
        if (std::fabs(b) <= tiny) return 0;
        roots[0] = -c / b;
        return 1;
    }

    const double d = b * b - a * c * 4.0;
    if (d < 0.0) return 0;
    if (std::fabs(d) <= tiny) {
        roots[0] = -b / (a + a);
        return 1;
    }

    const double q = b > 0.0 ? -b - std::sqrt(d) : std::sqrt(d) - b;
    roots[0] = q / (2.0 * a);
    roots[1] = c / (a * roots[0]);
    return 2;
}
