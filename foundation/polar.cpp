// math_Polar: the point at distance r from p in direction angle, in the xy
// plane. Everything is read before anything is written, so out may be p.
#include "QELMath.h"

QELMATH_API void math_Polar(double* const p, double angle, double r, double* const out)
{
    double c, s;
    math_CosSin(angle, &c, &s);
    double x = r * c + p[0];
    double y = r * s + p[1];
    double z = p[2];
    out[0] = x;
    out[1] = y;
    out[2] = z;
}
