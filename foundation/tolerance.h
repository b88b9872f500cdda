// The tolerance state: the library's only mutable state.
//
// Five process-wide doubles, statically initialised. They are atomics only so
// that concurrent setters and readers are not a data race in C++ terms; every
// access is relaxed, which on x86 is the same plain move as an ordinary double.
// A point or vector setter stores the tolerance and then its square as two
// separate stores, exactly as documented for callers.
#ifndef QELMATH_FOUNDATION_TOLERANCE_H
#define QELMATH_FOUNDATION_TOLERANCE_H

#include <atomic>

namespace qel {

struct ToleranceState {
    std::atomic<double> real{1e-9};
    std::atomic<double> point{1e-9};
    std::atomic<double> vector{1e-9};
    std::atomic<double> point_squared{1e-18};
    std::atomic<double> vector_squared{1e-18};
};

extern ToleranceState g_tolerance;

inline double real_tolerance() { return g_tolerance.real.load(std::memory_order_relaxed); }
inline double point_tolerance() { return g_tolerance.point.load(std::memory_order_relaxed); }
inline double point_tolerance_squared()
{
    return g_tolerance.point_squared.load(std::memory_order_relaxed);
}

}  // namespace qel

#endif
