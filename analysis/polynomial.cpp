// math_Polynomial: k[0] + k[1] x + ... + k[n-1] x^(n-1) by Horner's scheme
// from the highest coefficient down, r = r x + k[i], each step rounded as
// written (no fused multiply-add). n <= 0 gives 0; n = 1 gives k[0] for any
// x.
#include "QELMath.h"

QELMATH_API double math_Polynomial(double* k, int n, double x)
{
    if (n <= 0) return 0.0;
    double r = k[n - 1];
    for (int i = n - 2; i >= 0; --i) r = r * x + k[i];
    return r;
}
