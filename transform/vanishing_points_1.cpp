// TransMatrixPerspective1: central projection with one vanishing point onto
// the plane y = 0, the product Move3D(dx, dy, dz) . Pq, where Pq keeps x and
// z, drops y and puts w' = q*y + w. A point goes to (x + dx, 0, z + dz) with
// w' = (y + dy)*q + 1: for q > 0, depth shrinks the drawing towards the
// vanishing point at the origin, and the eye sits where y + dy = -1/q.
// q = 0 is the parallel front view shifted by (dx, dz).
//
// The shifts come in the order x, z, y. T[3][3] is dy*q + 1 as written, one
// rounding in the product and one in the sum.
#include "QELMath.h"
#include "transform/fill.h"

QELMATH_API void TransMatrixPerspective1(double dx, double dz, double dy, double q,
                                         double (* const T)[4])
{
    qel::clear4(T);
    T[0][0] = 1.0;
    T[1][3] = q;
    T[2][2] = 1.0;
    T[3][0] = dx;
    T[3][2] = dz;
    T[3][3] = dy * q + 1.0;
}
