// math_CosSin: cosine and sine of one angle, correctly rounded.
#include "QELMath.h"
#include "foundation/elementary.h"

QELMATH_API void math_CosSin(double angle, double* c, double* s)
{
    double sine, cosine;
    qel::sincos(angle, &sine, &cosine);
    *c = cosine;
    *s = sine;
}
