// Point grid and edge-pair index of the clipper (see clip_work.h).
//
// Both are open-addressing tables with linear probing, kept at most half
// full, with a multiplicative hash of the key. The point grid's search visits
// the 3 x 3 cells around the query and keeps the lowest coinciding index, so
// it answers exactly as a linear search in index order.
#include "clip/clip_work.h"

#include <cmath>

#include "clip/point_list.h"

namespace qel {
namespace clipwork {

namespace {

// Cells are centred on multiples of 1/256, so integer points sit in the
// middle of theirs. Exact: scaling by a power of two and adding one half.
std::int64_t CellOf(double v)
{
    // Coordinates of the clipper stay far inside the clamp, which only keeps
    // the conversion defined.
    double c = std::floor(v * 256.0 + 0.5);
    if (!(c > -4.0e18)) c = -4.0e18;
    if (c > 4.0e18) c = 4.0e18;
    return static_cast<std::int64_t>(c);
}

std::uint64_t Mix(std::uint64_t h)
{
    h ^= h >> 31;
    h *= 0x9E3779B97F4A7C15ull;
    h ^= h >> 29;
    return h;
}

}  // namespace

static std::uint64_t CellKey(std::int64_t cx, std::int64_t cy)
{
    return Mix(Mix(static_cast<std::uint64_t>(cx)) ^ (static_cast<std::uint64_t>(cy) * 0xC2B2AE3D27D4EB4Full));
}

std::size_t PointSet::slot(std::uint64_t key) const
{
    const std::size_t mask = table_.size() - 1;
    for (std::size_t h = static_cast<std::size_t>(key) & mask;; h = (h + 1) & mask) {
        const Slot& s = table_[h];
        if (s.head < 0 || s.key == key) return h;
    }
}

// A neighbouring cell can hold a coinciding point only when the query lies
// within 0.001 (0.256 cells) of the common border; 0.26 leaves room for the
// rounding of the squared distance.
void Reach(double v, std::int64_t* lo, std::int64_t* hi)
{
    const double scaled = v * 256.0 + 0.5;
    const double c = std::floor(scaled);
    const double frac = scaled - c;
    const std::int64_t k = CellOf(v);
    *lo = (frac < 0.26) ? k - 1 : k;
    *hi = (frac > 0.74) ? k + 1 : k;
}

int PointSet::find(double x, double y) const
{
    if (table_.size() == 0) return -1;
    std::int64_t x0, x1, y0, y1;
    Reach(x, &x0, &x1);
    Reach(y, &y0, &y1);
    int best = -1;
    for (std::int64_t i = x0; i <= x1; ++i)
        for (std::int64_t j = y0; j <= y1; ++j) {
            for (int p = table_[slot(CellKey(i, j))].head; p >= 0; p = next_[static_cast<std::size_t>(p)])
                if ((best < 0 || p < best) && PointsCoincide(x, y, at(p))) best = p;
        }
    return best;
}

void PointSet::link(int i)
{
    const double* p = at(i);
    const std::uint64_t key = CellKey(CellOf(p[0]), CellOf(p[1]));
    Slot& s = table_[slot(key)];
    s.key = key;
    next_[static_cast<std::size_t>(i)] = s.head;
    s.head = i;
}

bool PointSet::reserve(int points)
{
    if (!xy_.reserve(2 * static_cast<std::size_t>(points)) || !next_.reserve(static_cast<std::size_t>(points)))
        return false;
    return grow(points);
}

bool PointSet::grow(int atLeast)
{
    std::size_t n = 16;
    const std::size_t want = static_cast<std::size_t>(count() > atLeast ? count() : atLeast) + 1;
    while (n < 2 * want) n *= 2;
    table_.clear();
    if (!table_.assign(n, Slot{0, -1})) return false;
    for (int i = 0; i < count(); ++i) link(i);
    return true;
}

int PointSet::add(double x, double y)
{
    const int found = find(x, y);
    if (found >= 0) return found;
    const int i = count();
    if (!xy_.reserve(xy_.size() + 2) || !next_.resize(static_cast<std::size_t>(i) + 1))
        return kNoMemory;
    xy_.push(x);
    xy_.push(y);
    if (2 * (static_cast<std::size_t>(i) + 1) > table_.size()) {
        if (!grow()) {
            xy_.truncate(xy_.size() - 2);
            next_.truncate(static_cast<std::size_t>(i));
            return kNoMemory;
        }
        return i;   // grow() linked every point, the new one included
    }
    link(i);
    return i;
}

bool PointSet::compact(const unsigned char* keep, Buffer<int>& newIndex, int extra)
{
    const int n = count();
    if (!newIndex.resize(static_cast<std::size_t>(n))) return false;
    int m = 0;
    for (int i = 0; i < n; ++i) {
        if (!keep[i]) {
            newIndex[static_cast<std::size_t>(i)] = -1;
            continue;
        }
        newIndex[static_cast<std::size_t>(i)] = m;
        xy_[2 * static_cast<std::size_t>(m)] = xy_[2 * static_cast<std::size_t>(i)];
        xy_[2 * static_cast<std::size_t>(m) + 1] = xy_[2 * static_cast<std::size_t>(i) + 1];
        ++m;
    }
    xy_.truncate(2 * static_cast<std::size_t>(m));
    next_.truncate(static_cast<std::size_t>(m));
    return grow(m + extra);
}

std::uint64_t PairIndex::key_of(int a, int b)
{
    const std::uint32_t lo = static_cast<std::uint32_t>(a < b ? a : b);
    const std::uint32_t hi = static_cast<std::uint32_t>(a < b ? b : a);
    return (static_cast<std::uint64_t>(lo) << 32) | hi;
}

std::size_t PairIndex::find_slot(std::uint64_t key) const
{
    const std::size_t mask = table_.size() - 1;
    for (std::size_t h = static_cast<std::size_t>(Mix(key)) & mask;; h = (h + 1) & mask) {
        const Slot& s = table_[h];
        if (s.head < 0 || s.key == key) return h;
    }
}

bool PairIndex::reserve(int edges)
{
    if (!next_.reserve(static_cast<std::size_t>(edges))) return false;
    if (used_ != 0) return true;
    std::size_t n = 16;
    while (n < 2 * static_cast<std::size_t>(edges) + 2) n *= 2;
    return n <= table_.size() || table_.assign(n, Slot{0, -1, -1});
}

bool PairIndex::grow()
{
    std::size_t n = table_.size() < 16 ? 16 : 2 * table_.size();
    Buffer<Slot> old;
    if (!old.copy_from(table_)) return false;
    table_.clear();
    if (!table_.assign(n, Slot{0, -1, -1})) return false;
    for (std::size_t i = 0; i < old.size(); ++i)
        if (old[i].head >= 0) table_[find_slot(old[i].key)] = old[i];
    return true;
}

bool PairIndex::insert(int a, int b, int edge)
{
    if (!next_.resize(static_cast<std::size_t>(edge) + 1)) return false;
    if (2 * (used_ + 1) > table_.size() && !grow()) return false;
    const std::uint64_t key = key_of(a, b);
    Slot& s = table_[find_slot(key)];
    next_[static_cast<std::size_t>(edge)] = -1;
    if (s.head < 0) {
        s.key = key;
        s.head = s.tail = edge;
        ++used_;
    } else {
        next_[static_cast<std::size_t>(s.tail)] = edge;
        s.tail = edge;
    }
    return true;
}

int PairIndex::first_live(int a, int b, const unsigned char* dead) const
{
    if (table_.size() == 0) return -1;
    const Slot& s = table_[find_slot(key_of(a, b))];
    for (int e = s.head; e >= 0; e = next_[static_cast<std::size_t>(e)])
        if (!dead[e]) return e;
    return -1;
}

}  // namespace clipwork
}  // namespace qel
