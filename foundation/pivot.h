// Full pivoting's shared pieces: the search of a whole square matrix for its
// pivot, and exchanges of whole rows and columns.
#ifndef QELMATH_FOUNDATION_PIVOT_H
#define QELMATH_FOUNDATION_PIVOT_H

#include <cstddef>
#include <utility>

#include "foundation/rowops.h"

namespace qel {

struct Pivot {
    double magnitude = 0.0;
    std::size_t row = 0;
    std::size_t col = 0;
};

// The first element of greatest magnitude met scanning row by row, left to
// right, with a strictly greater comparison (ties go to the smallest row,
// then the smallest column; NaN never wins). An all-zero matrix gives
// magnitude 0 at (0, 0).
inline Pivot search_pivot(const double* a, std::size_t order)
{
    Pivot best;
    for (std::size_t i = 0; i < order; ++i) {
        double mag;
        const std::size_t j = row_argmax(a + i * order, order, &mag);
        if (mag > best.magnitude) {
            best.magnitude = mag;
            best.row = i;
            best.col = j;
        }
    }
    return best;
}

// The same search on squared moduli re*re + im*im of a complex matrix kept
// as separate arrays of real and imaginary parts.
inline Pivot search_pivot_complex(const double* re, const double* im, std::size_t order)
{
    Pivot best;
    for (std::size_t i = 0; i < order; ++i) {
        double mag;
        const std::size_t j = crow_argmax(re + i * order, im + i * order, order, &mag);
        if (mag > best.magnitude) {
            best.magnitude = mag;
            best.row = i;
            best.col = j;
        }
    }
    return best;
}

inline void swap_rows(double* a, std::size_t order, std::size_t r1, std::size_t r2)
{
    double* x = a + r1 * order;
    double* y = a + r2 * order;
    for (std::size_t j = 0; j < order; ++j) std::swap(x[j], y[j]);
}

inline void swap_columns(double* a, std::size_t order, std::size_t c1, std::size_t c2)
{
    for (std::size_t i = 0; i < order; ++i) std::swap(a[i * order + c1], a[i * order + c2]);
}

}  // namespace qel

#endif
