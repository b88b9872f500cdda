// int_Gauss: integral of f over [a, b] by the five-point Gauss-Legendre rule
// on 1, 2, 3, ... panels until two passes agree to eps relative to |I| + 1
// (see analysis/five_point.h). Each term is value times weight and the
// estimate is (h * S) * 0.5. A NaN eps gives 0 before any call of f; a = b
// gives 0 without a call. The stored ten-digit weights sum to 2.0000000001,
// so every result carries a relative excess of about 5e-11: a constant 3
// over [1, 4] gives 9.00000000045.
#include "QELMath.h"
#include "analysis/five_point.h"

namespace {

struct GaussRule {
    static constexpr const double* nodes = qel::kGaussNodes;
    static double term(int k, double value) { return value * qel::kGaussWeights[k]; }
    static double estimate(double h, double sum) { return (h * sum) * 0.5; }
};

}  // namespace

QELMATH_API double int_Gauss(double (*f)(double), double a, double b, double eps)
{
    return qel::five_point_integral<GaussRule>(f, a, b, eps);
}
