// Portable vector types of the matrix kernels (GCC/Clang vector extensions).
//
// Lane arithmetic is plain IEEE double arithmetic, so a kernel written on
// these types gives every lane the bits of the scalar expression, whatever
// the width. The helpers are always inlined, so they take the instruction set
// of the target-attributed function that uses them.
#ifndef QELMATH_MATRIX_SIMD_VEC_H
#define QELMATH_MATRIX_SIMD_VEC_H

#include <cstring>

// The helpers pass vectors by value; they are always inlined into functions
// of the matching target, so the ABI note GCC gives for them does not apply.
#if defined(__clang__)
#pragma clang diagnostic ignored "-Wpsabi"
#elif defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wpsabi"
#endif

namespace qel {
namespace simd {

typedef double v2d __attribute__((vector_size(16)));
typedef double v4d __attribute__((vector_size(32)));
typedef double v8d __attribute__((vector_size(64)));

#define QEL_ALWAYS_INLINE inline __attribute__((always_inline))

template <class V>
constexpr int lanes = static_cast<int>(sizeof(V) / sizeof(double));

template <class V>
QEL_ALWAYS_INLINE V load(const double* p)
{
    V v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

template <class V>
QEL_ALWAYS_INLINE void store(double* p, const V& v)
{
    std::memcpy(p, &v, sizeof v);
}

// Every lane x. Built lane by lane: adding x to a zero vector would turn -0.0
// into +0.0 and change the bits of later sums.
template <class V>
QEL_ALWAYS_INLINE V splat(double x)
{
    if constexpr (sizeof(V) == sizeof(double)) {
        return x;
    } else {
#if (defined(__x86_64__) || defined(__i386__)) && !defined(__clang__)
        // GCC at -O3 turns the lane-by-lane form below into a chain of
        // masked broadcasts; one broadcast from the register is what is meant.
        if constexpr (sizeof(V) == 64 || sizeof(V) == 32) {
            V v;
            __asm__("vbroadcastsd %1, %0" : "=v"(v) : "v"(x));
            return v;
        }
#endif
        V v;
        for (int i = 0; i < lanes<V>; ++i) v[i] = x;
        return v;
    }
}

// Every lane *p, loaded straight into the lanes. Left to itself the compiler
// likes to gather neighbouring scalars into one vector load and spread them
// with shuffles, which compete with the arithmetic for the vector pipes; a
// broadcast from memory uses the load ports only. (Clang checks the operand
// size against the template's own instruction set, so it takes the plain
// splat, which it compiles to the same broadcast.)
template <class V>
QEL_ALWAYS_INLINE V broadcast(const double* p)
{
#if (defined(__x86_64__) || defined(__i386__)) && !defined(__clang__)
    if constexpr (sizeof(V) == 64 || sizeof(V) == 32) {
        V v;
        __asm__("vbroadcastsd %1, %0" : "=v"(v) : "m"(*p));
        return v;
    }
#endif
    return splat<V>(*p);
}

}  // namespace simd
}  // namespace qel

#endif
