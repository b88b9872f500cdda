// PointList: unique insertion by linear search, storage in growth steps of 16
// points, each step a fresh block with the old one copied and given back.
// A full list grows before it searches, so AddPoint of a point already present
// may still take a block; the list itself never changes on a refused request.
#include "clip/point_list.h"

#include <cstring>

#include "QELMemory.h"

namespace qel {

bool GrowWorkStorage(void** storage, std::int32_t* capacity, std::int32_t count,
                     std::uint32_t entryBytes)
{
    const std::uint64_t newCapacity = static_cast<std::uint64_t>(*capacity) + kGrowthStep;
    const std::uint64_t bytes = newCapacity * entryBytes;
    if (newCapacity > INT32_MAX || bytes > UINT32_MAX) return false;
    void* fresh = mem_malloc(static_cast<std::uint32_t>(bytes));
    if (fresh == nullptr) return false;
    if (count > 0) std::memcpy(fresh, *storage, static_cast<std::size_t>(count) * entryBytes);
    if (*storage != nullptr) mem_free(*storage);
    *storage = fresh;
    *capacity = static_cast<std::int32_t>(newCapacity);
    return true;
}

int PointList::GetPoint(int i, double* x, double* y) const
{
    if (i < 0 || i >= count_) return -1;
    *x = storage_[2 * i];
    *y = storage_[2 * i + 1];
    return i;
}

int PointList::FindPoint(double x, double y) const
{
    for (std::int32_t i = 0; i < count_; ++i)
        if (PointsCoincide(x, y, storage_ + 2 * i)) return i;
    return -1;
}

int PointList::AddPoint(double x, double y)
{
    if (count_ == capacity_) {
        void* block = storage_;
        if (!GrowWorkStorage(&block, &capacity_, count_, 2 * sizeof(double))) return -1;
        storage_ = static_cast<double*>(block);
    }
    const int found = FindPoint(x, y);
    if (found >= 0) return found;
    storage_[2 * count_] = x;
    storage_[2 * count_ + 1] = y;
    return count_++;
}

int PointList::RemoveAt(int i)
{
    if (i < 0 || i >= count_) return -1;
    std::memmove(storage_ + 2 * i, storage_ + 2 * (i + 1),
                 static_cast<std::size_t>(count_ - 1 - i) * 2 * sizeof(double));
    --count_;
    return 1;
}

int PointList::RemovePoint(double x, double y) { return RemoveAt(FindPoint(x, y)); }

int PointList::GetBounds(double* minX, double* minY, double* maxX, double* maxY) const
{
    if (count_ == 0) return 0;
    double x0 = storage_[0], x1 = storage_[0], y0 = storage_[1], y1 = storage_[1];
    for (std::int32_t i = 1; i < count_; ++i) {
        const double x = storage_[2 * i], y = storage_[2 * i + 1];
        if (x < x0) x0 = x;
        if (x > x1) x1 = x;
        if (y < y0) y0 = y;
        if (y > y1) y1 = y;
    }
    *minX = x0;
    *minY = y0;
    *maxX = x1;
    *maxY = y1;
    return 1;
}

void PointList::Release()
{
    if (capacity_ == 0) return;
    count_ = 0;
    capacity_ = 0;
    mem_free(storage_);
    storage_ = nullptr;
}

}  // namespace qel
