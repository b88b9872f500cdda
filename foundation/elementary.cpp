// Sine, cosine and arc tangents.
#include "foundation/elementary.h"

#include <cmath>

namespace qel {

double sin(double x) { return std::sin(x); }
double cos(double x) { return std::cos(x); }

void sincos(double x, double* s, double* c)
{
    *s = qel::sin(x);
    *c = qel::cos(x);
}

double atan(double x) { return std::atan(x); }
double atan2(double y, double x) { return std::atan2(y, x); }

}  // namespace qel
