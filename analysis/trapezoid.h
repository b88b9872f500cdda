// Trapezoid halving shared by int_Romberg and int_Simpson: the sum of f at
// the midpoints a + (i + 0.5) h of the current panels, taken in order of i,
// which turns the trapezoid value T of step h into (T + h S) * 0.5, that of
// step h / 2.
#ifndef QELMATH_ANALYSIS_TRAPEZOID_H
#define QELMATH_ANALYSIS_TRAPEZOID_H

namespace qel {

inline double midpoint_sum(double (*f)(double), double a, double h, long panels)
{
    double sum = 0.0;
    for (long i = 0; i < panels; ++i) sum = sum + f(a + (static_cast<double>(i) + 0.5) * h);
    return sum;
}

}  // namespace qel

#endif
