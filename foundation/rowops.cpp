#include "foundation/rowops.h"

#include <cmath>

#include "foundation/cpu.h"

namespace qel {

// A strict comparison keeps the first of equal magnitudes, matching a scan
// that only replaces its best on a strictly greater element.
void row_update(double* dst, const double* src, double f, std::size_t count)
{
    for (std::size_t j = 0; j < count; ++j) dst[j] = dst[j] - f * src[j];
}

std::size_t row_update_argmax(double* dst, const double* src, double f, std::size_t count,
                              double* mag)
{
    double best = 0.0;
    std::size_t at = count;
    for (std::size_t j = 0; j < count; ++j) {
        double v = dst[j] - f * src[j];
        dst[j] = v;
        double m = std::fabs(v);
        if (m > best) {
            best = m;
            at = j;
        }
    }
    *mag = best;
    return at;
}

std::size_t row_argmax(const double* row, std::size_t count, double* mag)
{
    double best = 0.0;
    std::size_t at = count;
    for (std::size_t j = 0; j < count; ++j) {
        double m = std::fabs(row[j]);
        if (m > best) {
            best = m;
            at = j;
        }
    }
    *mag = best;
    return at;
}

}  // namespace qel
