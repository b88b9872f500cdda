// The library's own elementary functions.
//
// Every sine, cosine and arc tangent the library computes goes through these,
// never through the runtime's <cmath>, so that results do not depend on the
// platform's math library. sqrt and fabs are IEEE basic operations and may be
// taken from <cmath> directly.
#ifndef QELMATH_FOUNDATION_ELEMENTARY_H
#define QELMATH_FOUNDATION_ELEMENTARY_H

namespace qel {

double sin(double x);
double cos(double x);
// Both at once; *s and *c receive exactly sin(x) and cos(x).
void sincos(double x, double* s, double* c);
double atan(double x);
double atan2(double y, double x);

}  // namespace qel

#endif
