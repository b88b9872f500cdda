// The tolerance state and its setters. Values are stored as given: zero,
// negative, infinite and NaN tolerances included.
#include "QELMath.h"
#include "foundation/tolerance.h"

namespace qel {

ToleranceState g_tolerance;

}  // namespace qel

QELMATH_API void math_SetDoubleTolerance(double t)
{
    qel::g_tolerance.real.store(t, std::memory_order_relaxed);
}

QELMATH_API void math_SetPointTolerance(double t)
{
    qel::g_tolerance.point.store(t, std::memory_order_relaxed);
    qel::g_tolerance.point_squared.store(t * t, std::memory_order_relaxed);
}

QELMATH_API void math_SetVectorTolerance(double t)
{
    qel::g_tolerance.vector.store(t, std::memory_order_relaxed);
    qel::g_tolerance.vector_squared.store(t * t, std::memory_order_relaxed);
}
