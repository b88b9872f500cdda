// TransMatrixMirror2D: reflection of the plane about the line a*x + b*y + c = 0,
// for row vectors p' = (x, y, 1) . T.
//
// The line need not be normalised: k = 1 / (a*a + b*b) is rounded once and
// multiplied into every entry that carries the line's scale, so scaling the
// line by a power of two leaves every entry unchanged (short of overflow). The
// diagonal is formed as (b - a)*(a + b)*k rather than (b*b - a*a)*k, which
// keeps it free of cancellation when |a| and |b| are close; T[1][1] is the
// exact negation of T[0][0], so the linear part has trace zero to the bit.
//
// Entries come out with the sign of zero their formula gives: the mirror in
// x = 2, (1, 0, -2), has T[0][1] = T[1][0] = -0.0. a = b = 0 is no line and
// gives infinite or NaN entries.
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixMirror2D(double a, double b, double c, double (* const T)[3])
{
    double k = 1.0 / (a * a + b * b);
    double diagonal = (b - a) * (a + b) * k;
    double cross = -(2.0 * a * b) * k;
    qel::clear3(T);
    T[0][0] = diagonal;
    T[0][1] = cross;
    T[1][0] = cross;
    T[1][1] = -diagonal;
    T[2][0] = -(2.0 * a * c) * k;
    T[2][1] = -(2.0 * b * c) * k;
    T[2][2] = 1.0;
}
