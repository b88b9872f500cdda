// Work storage of the clipper: growable arrays from mem_malloc that double
// their capacity, a point set with a grid over the coincidence scale, and an
// index of edges by their two end points.
//
// The procedure's lists are searched linearly and grow 16 entries at a time;
// on 10^5 points that is quadratic in comparisons and copies gigabytes. These
// give the same answers in amortised constant time: the grid returns the
// first (lowest) coinciding index, exactly as the linear search does.
#ifndef QELMATH_CLIP_CLIP_WORK_H
#define QELMATH_CLIP_CLIP_WORK_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "QELMemory.h"

namespace qel {
namespace clipwork {

// Array of trivially copyable T whose storage comes from mem_malloc and is
// given back on destruction. Every growing call reports a refused request by
// returning false and leaves the contents as they were.
template <class T>
class Buffer {
public:
    Buffer() = default;
    ~Buffer() { release(); }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;

    bool reserve(std::size_t n)
    {
        if (n <= cap_) return true;
        std::size_t want = cap_ * 2;
        if (want < n) want = n;
        if (want < 16) want = 16;
        const std::size_t limit = UINT32_MAX / sizeof(T);
        if (n > limit) return false;
        if (want > limit) want = limit;
        T* fresh = static_cast<T*>(mem_malloc(static_cast<std::uint32_t>(want * sizeof(T))));
        if (fresh == nullptr) return false;
        if (size_ > 0) std::memcpy(static_cast<void*>(fresh), data_, size_ * sizeof(T));
        if (data_ != nullptr) mem_free(data_);
        data_ = fresh;
        cap_ = want;
        return true;
    }
    bool push(const T& v)
    {
        const T value = v;   // v may live in this buffer's old block
        if (size_ == cap_ && !reserve(size_ + 1)) return false;
        data_[size_++] = value;
        return true;
    }
    // New entries are left unset.
    bool resize(std::size_t n)
    {
        if (!reserve(n)) return false;
        size_ = n;
        return true;
    }
    bool assign(std::size_t n, const T& v)
    {
        if (!resize(n)) return false;
        for (std::size_t i = 0; i < n; ++i) data_[i] = v;
        return true;
    }
    bool copy_from(const Buffer& o)
    {
        if (!resize(o.size_)) return false;
        if (o.size_ > 0) std::memcpy(static_cast<void*>(data_), o.data_, o.size_ * sizeof(T));
        return true;
    }
    void truncate(std::size_t n) { size_ = n; }
    void clear() { size_ = 0; }
    void release()
    {
        if (data_ != nullptr) mem_free(data_);
        data_ = nullptr;
        size_ = cap_ = 0;
    }
    std::size_t size() const { return size_; }
    T* data() { return data_; }
    const T* data() const { return data_; }
    T& operator[](std::size_t i) { return data_[i]; }
    const T& operator[](std::size_t i) const { return data_[i]; }

private:
    T* data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t cap_ = 0;
};

// Returned by the adding calls when memory ran out.
constexpr int kNoMemory = -2;

// Plane points without coinciding pairs. Points sit in cells of 1/256 (a
// power of two, so the cell of a coordinate is exact); two coinciding points
// are less than 0.001 apart and so lie in the same or neighbouring cells.
class PointSet {
public:
    int count() const { return static_cast<int>(xy_.size() / 2); }
    const double* at(int i) const { return xy_.data() + 2 * i; }
    // First (lowest) index whose point coincides with (x, y), or -1.
    int find(double x, double y) const;
    // Index that stands for (x, y): an existing coinciding point, or the
    // point appended; kNoMemory when memory ran out.
    int add(double x, double y);
    // Keeps the points whose keep flag is set, in order; newIndex receives
    // each old index's new one (-1 for dropped points). Leaves room for
    // `extra` further points.
    bool compact(const unsigned char* keep, Buffer<int>& newIndex, int extra = 0);
    // Room for this many points without regrowing.
    bool reserve(int points);
    const double* coords() const { return xy_.data(); }

private:
    // Cells are told apart by a 64-bit hash of their coordinates; cells that
    // share a hash share a chain, which only adds candidates to a search
    // that tests every candidate for coincidence anyway.
    struct Slot {
        std::uint64_t key;
        int head;   // newest point of the cell; -1 marks an empty slot
    };
    std::size_t slot(std::uint64_t key) const;
    bool grow(int atLeast = 0);
    void link(int i);

    Buffer<double> xy_;
    Buffer<int> next_;   // next point of the same cell
    Buffer<Slot> table_;
};

// Edges indexed by their unordered pair of end points; the edges of one pair
// are kept in increasing edge index.
class PairIndex {
public:
    bool insert(int a, int b, int edge);
    // Room for this many edges (and pairs) without regrowing.
    bool reserve(int edges);
    // Lowest edge of the pair {a, b} whose dead flag is clear, or -1.
    int first_live(int a, int b, const unsigned char* dead) const;

private:
    struct Slot {
        std::uint64_t key;
        int head, tail;   // head -1 marks an empty slot
    };
    static std::uint64_t key_of(int a, int b);
    std::size_t find_slot(std::uint64_t key) const;
    bool grow();

    Buffer<Slot> table_;
    Buffer<int> next_;   // next edge of the same pair, by edge index
    std::size_t used_ = 0;
};

}  // namespace clipwork
}  // namespace qel

#endif
