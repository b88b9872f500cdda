// PointList: a growable list of plane points (doubles) that never holds two
// coinciding points when filled through AddPoint.
//
// Two points coincide when the sum of the squares of their x and y
// differences is below 1e-6: points closer than 0.001 are one point. Storage
// comes from mem_malloc and grows by 16 points at a time: a new block of the
// new capacity is taken, the points are copied and the old block given back.
// Lookup is linear; the clipper puts a grid in front of it where it matters.
#ifndef QELMATH_CLIP_POINT_LIST_H
#define QELMATH_CLIP_POINT_LIST_H

#include <cstdint>

namespace qel {

// Squared distance below which two points are one.
constexpr double kCoincidence = 1e-6;
// Entries added to a work list's storage whenever it is full.
constexpr std::int32_t kGrowthStep = 16;

// 1 when (x, y) and p lie within the coincidence threshold, else 0.
inline int PointsCoincide(double x, double y, const double* p)
{
    const double dy = y - p[1];
    const double dx = x - p[0];
    return (dy * dy + dx * dx < kCoincidence) ? 1 : 0;
}

class PointList {
public:
    PointList() = default;
    ~PointList() { Release(); }
    PointList(const PointList&) = delete;
    PointList& operator=(const PointList&) = delete;

    std::int32_t Count() const { return count_; }
    // -1 for a bad index (nothing written), else writes point i and returns i.
    int GetPoint(int i, double* x, double* y) const;
    // First index whose point coincides with (x, y), or -1.
    int FindPoint(double x, double y) const;
    // Index of the point that stands for (x, y) after the call; -1 when the
    // storage had to grow and no memory was left (the list is unchanged).
    int AddPoint(double x, double y);
    int RemoveAt(int i);
    int RemovePoint(double x, double y);
    // 0 for an empty list (nothing written), else the extremes and 1.
    int GetBounds(double* minX, double* minY, double* maxX, double* maxY) const;
    void Clear() { count_ = 0; }
    void Release();

    std::int32_t Capacity() const { return capacity_; }
    const double* Data() const { return storage_; }

private:
    std::int32_t count_ = 0;
    std::int32_t capacity_ = 0;
    double* storage_ = nullptr;
};

// Grows a block of `count` entries of `entryBytes` bytes by one growth step:
// takes the new block, copies, gives the old one back. False (and nothing
// changed) when the request cannot be made or is refused.
bool GrowWorkStorage(void** storage, std::int32_t* capacity, std::int32_t count,
                     std::uint32_t entryBytes);

}  // namespace qel

#endif
