// WriteContours: the clipper's output stage, shared by the general graph
// merge and the linear pass for the common case, so that both finish a chain
// of points into the same bits.
#include "clip/write_contours.h"

#include <cstddef>
#include <cstdint>

#include "QELMemory.h"
#include "clip/contour.h"

namespace qel {

int WriteContours(const double* xy, const int* chain, const int* ends, int k, int** outPts, int** outCounts)
{
    if (k <= 0) return -1;
    const std::size_t total = static_cast<std::size_t>(ends[k - 1]);
    if (total > (UINT32_MAX / (2 * sizeof(int)))) return -1;
    int* counts = static_cast<int*>(mem_malloc(static_cast<std::uint32_t>(static_cast<std::size_t>(k) * sizeof(int))));
    if (counts == nullptr) return -1;
    int* out = static_cast<int*>(mem_malloc(static_cast<std::uint32_t>(2 * total * sizeof(int))));
    if (out == nullptr) {
        mem_free(counts);
        return -1;
    }
    std::size_t w = 0, from = 0;
    for (int i = 0; i < k; ++i) {
        const std::size_t to = static_cast<std::size_t>(ends[i]);
        const int len = static_cast<int>(to - from);
        const int* ids = chain + from;
        const double area = ContourShoelace(len, [&](int j) { return xy + 2 * static_cast<std::size_t>(ids[j]); });
        for (int j = 0; j < len; ++j) {
            const int at = (area < 0.0 && j > 0) ? len - j : j;
            const double* p = xy + 2 * static_cast<std::size_t>(ids[at]);
            out[w++] = RoundCoordinate(p[0]);
            out[w++] = RoundCoordinate(p[1]);
        }
        counts[i] = len;
        from = to;
    }
    *outPts = out;
    *outCounts = counts;
    return k;
}

}  // namespace qel
