// Scratch blocks: the one way the library takes temporary memory.
//
// Every block comes from mem_malloc and goes back through mem_free when the
// guard leaves scope, on every path. A request whose byte count does not fit
// the 32-bit size of mem_malloc is never made and counts as a failure; a null
// answer to a zero-byte request is not a failure, since nothing was needed.
#ifndef QELMATH_FOUNDATION_SCRATCH_H
#define QELMATH_FOUNDATION_SCRATCH_H

#include <cstddef>
#include <cstdint>

#include "QELMemory.h"

namespace qel {

template <class T>
class ScratchBlock {
public:
    // count elements of T; count may be zero (an empty block is still taken,
    // as the callers' contracts require).
    explicit ScratchBlock(std::size_t count)
    {
        if (count > UINT32_MAX / sizeof(T)) {
            failed_ = true;
            return;
        }
        bytes_ = static_cast<std::uint32_t>(count * sizeof(T));
        data_ = static_cast<T*>(mem_malloc(bytes_));
        failed_ = (data_ == nullptr && bytes_ != 0);
        taken_ = !failed_;
    }

    ~ScratchBlock() { release(); }

    ScratchBlock(const ScratchBlock&) = delete;
    ScratchBlock& operator=(const ScratchBlock&) = delete;

    // Gives the block back now, for callers whose contract fixes the order in
    // which several blocks are released.
    void release()
    {
        if (taken_) mem_free(data_);
        taken_ = false;
        data_ = nullptr;
    }

    bool failed() const { return failed_; }
    T* get() const { return data_; }
    T& operator[](std::size_t i) const { return data_[i]; }

private:
    T* data_ = nullptr;
    std::uint32_t bytes_ = 0;
    bool failed_ = false;
    // Whether mem_free is owed: a zero-byte request's answer goes back to
    // mem_free untouched, null or not; a failed request owes nothing.
    bool taken_ = false;
};

}  // namespace qel

#endif
