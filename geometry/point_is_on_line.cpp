// PointIsOnLine: where p lies against the line through a and b, in space.
//
// Method: coincidence first (point tolerance, all three coordinates), then
// the three triangle-inequality defects of the distances |PA|, |PB|, |AB|,
// each against the double tolerance. The defect is absolute, not scaled by
// |AB|, so the accepted distance from the line grows like the square root of
// the segment's length.
//
// Codes, first that holds: 1 p is a, 2 p is b, -3 a and b coincide (no line),
// 0 on the segment, -1 beyond a, -2 beyond b, 3 off the line.
#include "QELMath.h"

QELMATH_API int PointIsOnLine(double* const a, double* const b, double* const p)
{
    if (math_IsPointEqual(a, p)) return 1;
    if (math_IsPointEqual(b, p)) return 2;
    if (math_IsPointEqual(a, b)) return -3;

    double ab = math_Distance(a, b);
    double pa = math_Distance(p, a);
    double pb = math_Distance(p, b);
    if (math_IsRealZero(pb + pa - ab)) return 0;
    if (math_IsRealZero(pa + ab - pb)) return -1;
    if (math_IsRealZero(pb + ab - pa)) return -2;
    return 3;
}
