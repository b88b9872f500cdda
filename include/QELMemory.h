/*
 * QELMemory: the memory library every QELMath allocation goes through.
 *
 * A thin layer over the C heap, kept as its own shared library so that an
 * application (or a test) can put its own allocator in its place without
 * rebuilding QELMath.
 */
#ifndef QELMEMORY_H
#define QELMEMORY_H

#include <stdint.h>

#if defined(_WIN32)
#  if defined(QELMEMORY_BUILDING)
#    define QELMEMORY_API __declspec(dllexport)
#  elif defined(QELMEMORY_NO_DLLIMPORT)
#    define QELMEMORY_API
#  else
#    define QELMEMORY_API __declspec(dllimport)
#  endif
#else
#  define QELMEMORY_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Returns a block of at least `size` bytes, or null when the heap is
 * exhausted. A zero-byte request returns a block that mem_free accepts. */
QELMEMORY_API void* mem_malloc(uint32_t size);

/* Gives back a block from mem_malloc; null is accepted and ignored. */
QELMEMORY_API void mem_free(void* p);

#ifdef __cplusplus
}
#endif

#endif
