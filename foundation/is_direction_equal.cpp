// math_IsDirection2dEqual, math_IsDirectionEqual: for two directions already
// known to be parallel, whether they run the same way. The sign of the
// product on the axis along which the first direction moves most decides;
// that axis is the best conditioned one. No tolerance is read.
//
// Axis precedence on equal extents: y, then x, then z.
#include <cmath>

#include "QELMath.h"

namespace {

int same_sense(const double* a1, const double* a2, const double* b1, const double* b2, int dims)
{
    int axis = std::fabs(a2[1] - a1[1]) >= std::fabs(a2[0] - a1[0]) ? 1 : 0;
    if (dims == 3 && std::fabs(a2[2] - a1[2]) > std::fabs(a2[axis] - a1[axis])) axis = 2;
    return (a2[axis] - a1[axis]) * (b2[axis] - b1[axis]) > 0 ? 1 : 0;
}

}  // namespace

QELMATH_API int math_IsDirection2dEqual(const double* a1, const double* a2, const double* b1,
                                        const double* b2)
{
    return same_sense(a1, a2, b1, b2, 2);
}

QELMATH_API int math_IsDirectionEqual(const double* a1, const double* a2, const double* b1,
                                      const double* b2)
{
    return same_sense(a1, a2, b1, b2, 3);
}
