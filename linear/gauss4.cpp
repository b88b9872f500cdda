// linear_Gauss4: four equations in four unknowns.
//
// x0 and x1 come from Cramer's rule along the first column (each 3 x 3 minor
// expanded like the determinant of linear_Gauss3, multiplied by 1/D); then
// equations 0+1 and 2+3 are added, x0 and x1 moved to the right, and the two
// combined equations give x2 and x3 by Cramer's rule with 1/d2. |D| <= 2^-52
// is singular: 0, b untouched.
//
// The combined equations can be singular for a regular matrix (the identity
// is one): when |d2| <= 2^-52 the system is solved afresh by full-pivoting
// elimination on a copy of a and b kept on the stack, giving 1 with the
// solution or 0 with b untouched. a is never written.
#include "QELMath.h"

#include <cmath>
#include <cstring>

#include "foundation/constants.h"
#include "linear/full_pivot.h"

namespace {

// Determinant of the 3 x 3 matrix of rows r0, r1, r2 and columns c0, c1, c2
// of the 4 x 4 a, expanded along its first column.
double minor3(const double* a, int r0, int r1, int r2, int c0, int c1, int c2)
{
    const double c00 = a[4 * r0 + c0], c01 = a[4 * r0 + c1], c02 = a[4 * r0 + c2];
    const double c10 = a[4 * r1 + c0], c11 = a[4 * r1 + c1], c12 = a[4 * r1 + c2];
    const double c20 = a[4 * r2 + c0], c21 = a[4 * r2 + c1], c22 = a[4 * r2 + c2];
    return c00 * (c11 * c22 - c21 * c12) - c10 * (c01 * c22 - c21 * c02) +
           c20 * (c01 * c12 - c02 * c11);
}

}  // namespace

QELMATH_API int linear_Gauss4(double* a, double* b)
{
    const double eps = qel::kPivotThreshold;

    const double mm0 = minor3(a, 1, 2, 3, 1, 2, 3);
    const double mm1 = minor3(a, 0, 2, 3, 1, 2, 3);
    const double mm2 = minor3(a, 0, 1, 3, 1, 2, 3);
    const double mm3 = minor3(a, 0, 1, 2, 1, 2, 3);
    const double nn0 = minor3(a, 1, 2, 3, 0, 2, 3);
    const double nn1 = minor3(a, 0, 2, 3, 0, 2, 3);
    const double nn2 = minor3(a, 0, 1, 3, 0, 2, 3);
    const double nn3 = minor3(a, 0, 1, 2, 0, 2, 3);

    const double d = a[0] * mm0 - a[4] * mm1 + a[8] * mm2 - a[12] * mm3;
    if (std::fabs(d) <= eps) return 0;
    const double inv = 1.0 / d;
    const double x0 = (b[0] * mm0 - b[1] * mm1 + b[2] * mm2 - b[3] * mm3) * inv;
    const double x1 = (-b[0] * nn0 + b[1] * nn1 - b[2] * nn2 + b[3] * nn3) * inv;

    const double s = (b[0] + b[1]) - (a[0] + a[4]) * x0 - (a[1] + a[5]) * x1;
    const double t = (b[2] + b[3]) - (a[8] + a[12]) * x0 - (a[9] + a[13]) * x1;
    const double u2 = a[2] + a[6], u3 = a[3] + a[7];
    const double v2 = a[10] + a[14], v3 = a[11] + a[15];
    const double d2 = u2 * v3 - u3 * v2;
    if (std::fabs(d2) <= eps) {
        double ca[16], cb[4];
        int record[4];
        std::memcpy(ca, a, sizeof ca);
        std::memcpy(cb, b, sizeof cb);
        if (!qel::gauss_full_pivot(ca, cb, 4, record)) return 0;
        std::memcpy(b, cb, sizeof cb);
        return 1;
    }
    const double inv2 = 1.0 / d2;
    const double x2 = (s * v3 - u3 * t) * inv2;
    const double x3 = (u2 * t - v2 * s) * inv2;
    b[0] = x0;
    b[1] = x1;
    b[2] = x2;
    b[3] = x3;
    return 1;
}
