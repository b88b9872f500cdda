// solve_Chord: a root of f in the bracket [a, b] by the chord method
// (regula falsi).
//
// An end whose value is within the machine epsilon 2^-52 of zero is the root
// at once (a is tried before f(b) is taken). Ends of one sign give 0 and
// leave *x untouched. Otherwise the chord's zero replaces the end of its own
// sign, at most maxIter times, until |f| <= 2^-52 at the current point or
// the chord point moves by at most eps; both tests are inclusive. On 0 after
// maxIter steps *x holds the last chord point. f is called at most
// maxIter + 2 times; a flat chord (fb = fa) is not tested for.
#include <cmath>
#include <limits>

#include "QELMath.h"

QELMATH_API int solve_Chord(double (*f)(double), double a, double b, double eps, double* x,
                            int maxIter)
{
    constexpr double tiny = std::numeric_limits<double>::epsilon();

    double fa = f(a);
    if (std::fabs(fa) <= tiny) {
        *x = a;
        return 1;
    }
    double fb = f(b);
    if (std::fabs(fb) <= tiny) {
        *x = b;
        return 1;
    }
    if (fa * fb > 0.0) return 0;

    double xa = a;
    double xb = b;
    double chord = xa - fa * (xb - xa) / (fb - fa);
    *x = chord;
    for (int iter = 0; iter < maxIter; ++iter) {
        const double xn = chord;
        const double fn = f(xn);
        if (std::fabs(fn) <= tiny) return 1;
        if (fa * fn > 0.0) {
            xa = xn;
            fa = fn;
        } else {
            xb = xn;
            fb = fn;
        }
        chord = xa - fa * (xb - xa) / (fb - fa);
        *x = chord;
        if (std::fabs(chord - xn) <= eps) return 1;
    }
    return 0;
}
