// A counting allocator that stands in for QELMemory in the test programs.
//
// It records the size of every request, counts the blocks still live, and can
// make the k-th request (counted from 1 after reset) return null, so that tests
// can check the request sizes a function makes, that every block goes back on
// every path, and what a function does when memory runs out.
#ifndef QELMATH_TEST_ALLOCATOR_H
#define QELMATH_TEST_ALLOCATOR_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace testalloc {

// Forgets all recorded requests and any planned failure. Blocks still live
// stay counted.
void reset();

// Sizes of every request since the last reset, in call order.
std::vector<std::uint32_t> requests();

// Blocks handed out and not yet given back (across resets).
std::size_t live();

// Number of mem_free calls since the last reset (null pointers included).
std::size_t frees();

// Makes request number k (1-based, counted from the last reset) return null;
// 0 switches failure off. Requests after the failing one succeed again.
void fail_at(std::size_t k);

// Makes every request from number k on return null; 0 switches it off.
void fail_from(std::size_t k);

// RAII scope: resets on entry and reports whether the scope leaked.
class Scope {
public:
    Scope();
    ~Scope();
    std::size_t leaked() const;   // blocks taken inside the scope still live

private:
    std::size_t live_at_start_;
};

}  // namespace testalloc

#endif
