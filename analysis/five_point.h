// The composite five-point driver behind int_Chebyshev and int_Gauss.
//
// Pass after pass it splits [a, b] into 1, 2, 3, ... equal panels, starting
// afresh each time, and stops when two successive estimates agree to eps
// relative to the estimate's size plus one, or when the step shrinks to a
// thousandth of the interval. The points and sums are written with the
// grouping that defines the result to the last bit: the point of node t in
// the panel from x is (h t + (x + (x + h))) * 0.5, each panel's five terms
// are summed in node order into a panel sum, and the panel sums are added in
// panel order.
//
// The step test is met at 1000 panels at the latest: 0.001 rounds upwards,
// so |0.001 L| is never below the rounded |L / 1000|. The last pass has 999
// panels and f is evaluated at most 5 (1 + ... + 999) = 2,497,500 times.
// The loop is bounded by that count as well, which only matters for a NaN
// interval, where the step test can never fire; such an interval gives NaN
// without a call of f.
#ifndef QELMATH_ANALYSIS_FIVE_POINT_H
#define QELMATH_ANALYSIS_FIVE_POINT_H

#include <cmath>

#include "analysis/nodes.h"

namespace qel {

// Rule supplies nodes[], term(k, f(x)) and estimate(h, S).
template <typename Rule>
double five_point_integral(double (*f)(double), double a, double b, double eps)
{
    if (std::isnan(eps)) return 0.0;

    const double length = b - a;
    if (std::isnan(length)) return length;
    const double h_min = std::fabs(0.001 * length);
    double h = length;
    double previous = 1e35;
    double result = 0.0;

    for (int panels = 1; panels < 1000; ++panels) {
        if (std::fabs(h) <= h_min) return result;

        double sum = 0.0;
        for (int i = 1; i <= panels; ++i) {
            const double left = static_cast<double>(i - 1) * h + a;
            double panel = 0.0;
            for (int k = 0; k < kRuleNodes; ++k) {
                const double x = (h * Rule::nodes[k] + (left + (left + h))) * 0.5;
                panel = panel + Rule::term(k, f(x));
            }
            sum = sum + panel;
        }

        const double estimate = Rule::estimate(h, sum);
        const double change = std::fabs(estimate - previous) / (std::fabs(estimate) + 1.0);
        previous = estimate;
        h = length / static_cast<double>(panels + 1);
        if (change < eps) return estimate;
        result = estimate;
    }
    return result;
}

}  // namespace qel

#endif
