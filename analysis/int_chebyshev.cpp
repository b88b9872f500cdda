// int_Chebyshev: integral of f over [a, b] by Chebyshev's five-point
// equal-weight rule on 1, 2, 3, ... panels until two passes agree to eps
// relative to |I| + 1 (see analysis/five_point.h). The estimate is
// (h * 0.2) * S, S the sum of all values: the equal weights 2/5 times the
// half-step h / 2. A NaN eps gives 0 before any call of f; a = b gives 0
// without a call. The nodes carry seven digits, so the rule is exact only
// for low degrees up to that accuracy.
#include "QELMath.h"
#include "analysis/five_point.h"

namespace {

struct ChebyshevRule {
    static constexpr const double* nodes = qel::kChebyshevNodes;
    static double term(int, double value) { return value; }
    static double estimate(double h, double sum) { return (h * 0.2) * sum; }
};

}  // namespace

QELMATH_API double int_Chebyshev(double (*f)(double), double a, double b, double eps)
{
    return qel::five_point_integral<ChebyshevRule>(f, a, b, eps);
}
