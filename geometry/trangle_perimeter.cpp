// TranglePerimeter: |P1P2| + |P2P3|, distances in space. Only these two
// sides are summed; the closing side P3P1 is not added.
#include "QELMath.h"

QELMATH_API double TranglePerimeter(double* const p1, double* const p2, double* const p3)
{
    return math_Distance(p1, p2) + math_Distance(p2, p3);
}
