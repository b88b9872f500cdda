// math_IsAngleEqual: each angle is reduced on its own into one turn, then the
// two are compared like math_IsRealEqual (relative to the reduced b).
//
// Reduction: r = |x|; whole turns k = trunc(r / 2pi) come off as r - k * 2pi,
// and a negative angle becomes 2pi - r, so a negative whole number of turns
// lands on 2pi, not 0. The turn count is a 32-bit integer while it fits; for
// larger angles it stays a truncated double, which keeps the result defined
// (an out-of-range float-to-int conversion would not be).
#include <cmath>

#include "QELMath.h"
#include "foundation/constants.h"

namespace {

double reduce_angle(double x)
{
    double r = std::fabs(x);
    if (r >= qel::kTwoPi) {
        double turns = r / qel::kTwoPi;
        double k = turns < 2147483648.0 ? static_cast<double>(static_cast<int>(turns))
                                        : std::trunc(turns);
        r = r - k * qel::kTwoPi;
    }
    if (x < 0) r = qel::kTwoPi - r;
    return r;
}

}  // namespace

QELMATH_API int math_IsAngleEqual(double a, double b)
{
    return math_IsRealEqual(reduce_angle(a), reduce_angle(b));
}
