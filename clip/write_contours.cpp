// WriteContours: the clipper's output stage, shared by the general graph
// merge and the linear pass for the common case, so that both finish a chain
// of points into the same bits.
#include "clip/write_contours.h"

#include <cstddef>
#include <cstdint>

#include "QELMemory.h"
#include "clip/clip_work.h"
#include "clip/contour.h"

namespace qel {

int WriteContours(const double* xy, const int* chain, const int* ends, int k, int** outPts, int** outCounts)
{
    if (k <= 0) return -1;
    // Twice each chain's signed area, in the order of its points; a chain of
    // fewer than three points or without area is no contour.
    clipwork::Buffer<double> area;
    if (!area.resize(static_cast<std::size_t>(k))) return -1;
    int kept = 0;
    std::size_t total = 0, from = 0;
    for (int i = 0; i < k; ++i) {
        const std::size_t to = static_cast<std::size_t>(ends[i]);
        const int len = static_cast<int>(to - from);
        const int* ids = chain + from;
        area[static_cast<std::size_t>(i)] =
            len < 3 ? 0.0 : ContourShoelace(len, [&](int j) { return xy + 2 * static_cast<std::size_t>(ids[j]); });
        if (area[static_cast<std::size_t>(i)] != 0.0) {
            ++kept;
            total += static_cast<std::size_t>(len);
        }
        from = to;
    }
    if (kept == 0 || total > (UINT32_MAX / (2 * sizeof(int)))) return -1;
    int* counts = static_cast<int*>(mem_malloc(static_cast<std::uint32_t>(static_cast<std::size_t>(kept) * sizeof(int))));
    if (counts == nullptr) return -1;
    int* out = static_cast<int*>(mem_malloc(static_cast<std::uint32_t>(2 * total * sizeof(int))));
    if (out == nullptr) {
        mem_free(counts);
        return -1;
    }
    std::size_t w = 0;
    int c = 0;
    from = 0;
    for (int i = 0; i < k; ++i) {
        const std::size_t to = static_cast<std::size_t>(ends[i]);
        const int len = static_cast<int>(to - from);
        const int* ids = chain + from;
        const double a = area[static_cast<std::size_t>(i)];
        from = to;
        if (a == 0.0) continue;
        for (int j = 0; j < len; ++j) {
            const int at = (a < 0.0 && j > 0) ? len - j : j;
            const double* p = xy + 2 * static_cast<std::size_t>(ids[at]);
            out[w++] = RoundCoordinate(p[0]);
            out[w++] = RoundCoordinate(p[1]);
        }
        counts[c++] = len;
    }
    *outPts = out;
    *outCounts = counts;
    return kept;
}

}  // namespace qel
