// linear_Gauss3: three equations in three unknowns.
//
// x0 comes from Cramer's rule with the minors of the first column (a true
// division by the determinant D); x1 and x2 then come from two of the
// equations, reduced by x0, by Cramer's rule with the reciprocal of their
// 2 x 2 minor: equations 0 and 1 when that minor exceeds 2^-52, else 0 and 2,
// else 1 and 2. |D| <= 2^-52 is singular: 0, b untouched.
//
// When D passes but no pair's minor does (a first column large enough to lift
// D over the threshold while every minor is tiny), the formulas cannot finish:
// the system is then solved afresh by full-pivoting elimination on a copy of
// a and b kept on the stack, giving 1 with the solution or 0 with b untouched.
// a is never written.
#include "QELMath.h"

#include <cmath>
#include <cstring>

#include "foundation/constants.h"
#include "linear/full_pivot.h"

QELMATH_API int linear_Gauss3(double* a, double* b)
{
    const double eps = qel::kPivotThreshold;
    const double a00 = a[0], a01 = a[1], a02 = a[2];
    const double a10 = a[3], a11 = a[4], a12 = a[5];
    const double a20 = a[6], a21 = a[7], a22 = a[8];

    const double m0 = a11 * a22 - a21 * a12;
    const double m1 = a01 * a22 - a21 * a02;
    const double m2 = a01 * a12 - a02 * a11;
    const double d = a00 * m0 - a10 * m1 + a20 * m2;
    if (std::fabs(d) <= eps) return 0;
    const double x0 = (b[0] * m0 - b[1] * m1 + b[2] * m2) / d;

    int p, q;
    double m;
    if (std::fabs(m2) > eps) {
        p = 0, q = 1, m = m2;
    } else if (std::fabs(m1) > eps) {
        p = 0, q = 2, m = m1;
    } else if (std::fabs(m0) > eps) {
        p = 1, q = 2, m = m0;
    } else {
        double ca[9], cb[3];
        int record[3];
        std::memcpy(ca, a, sizeof ca);
        std::memcpy(cb, b, sizeof cb);
        if (!qel::gauss_full_pivot(ca, cb, 3, record)) return 0;
        std::memcpy(b, cb, sizeof cb);
        return 1;
    }

    const double* ep = a + 3 * p;
    const double* eq = a + 3 * q;
    const double rp = b[p] - ep[0] * x0;
    const double rq = b[q] - eq[0] * x0;
    const double inv = 1.0 / m;
    const double x1 = (rp * eq[2] - ep[2] * rq) * inv;
    const double x2 = (ep[1] * rq - eq[1] * rp) * inv;
    b[0] = x0;
    b[1] = x1;
    b[2] = x2;
    return 1;
}
