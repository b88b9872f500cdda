// The library's own elementary functions.
//
// Every sine, cosine and arc tangent the library computes goes through these,
// never through the runtime's <cmath>, so that results do not depend on the
// platform's math library. sqrt and fabs are IEEE basic operations and may be
// taken from <cmath> directly.
//
// Each result is the exact value rounded to the nearest double (ties to
// even), for every double argument, and so the same bits on every platform,
// compiler and optimisation level: the evaluation uses only IEEE additions,
// multiplications, divisions and integer operations, with no fused
// multiply-add and no extended precision. Special cases follow C99: odd
// functions keep the sign of zero, sin and cos of an infinity are NaN, atan
// of +-infinity is +-pi/2 rounded, and atan2 follows the C99 table for zeros
// and infinities (atan2(+-0, -0) = +-pi, atan2(+-0, +0) = +-0, ...). NaN in
// gives NaN out.
#ifndef QELMATH_FOUNDATION_ELEMENTARY_H
#define QELMATH_FOUNDATION_ELEMENTARY_H

namespace qel {

double sin(double x);
double cos(double x);
// Both at once; *s and *c receive exactly sin(x) and cos(x).
void sincos(double x, double* s, double* c);
double atan(double x);
// The angle of the point (x, y) in [-pi, pi].
double atan2(double y, double x);

}  // namespace qel

#endif
