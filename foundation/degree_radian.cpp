// math_Radian2Degree, math_Degree2Radian: multiplied first, divided second,
// with the stored pi.
#include "QELMath.h"
#include "foundation/constants.h"

QELMATH_API double math_Radian2Degree(double x)
{
    return (x * 180.0) / qel::kPi;
}

QELMATH_API double math_Degree2Radian(double x)
{
    return (x * qel::kPi) / 180.0;
}
