// The variants behind foundation/rowops.h, one table per vector width.
#ifndef QELMATH_FOUNDATION_ROWOPS_IMPL_H
#define QELMATH_FOUNDATION_ROWOPS_IMPL_H

#include "foundation/rowops.h"

#if defined(__x86_64__) || defined(__i386__) || defined(_M_X64) || defined(_M_IX86)
#define QELMATH_ROWOPS_X86 1
#elif defined(__aarch64__) && defined(__ARM_NEON)
#define QELMATH_ROWOPS_NEON 1
#endif

namespace qel {

// Plain loops: the definition every other variant reproduces bit for bit.
extern const RowKernels kRowKernelsPortable;

#ifdef QELMATH_ROWOPS_X86
extern const RowKernels kRowKernelsSse2;
extern const RowKernels kRowKernelsAvx2;
extern const RowKernels kRowKernelsAvx512;
#endif

#ifdef QELMATH_ROWOPS_NEON
extern const RowKernels kRowKernelsNeon;
#endif

}  // namespace qel

#endif
