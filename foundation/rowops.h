// Row kernels shared by the elimination solvers, the determinant and the
// inversions.
//
// Each element's operations are exactly those of the scalar loop, so results
// are the same bits whatever vector unit runs them (no FMA anywhere). On x86
// every kernel comes in an SSE2, an AVX2 and an AVX-512 variant, and the free
// functions pick one through qel::simd_level() on each call; AArch64 always
// runs the NEON variant, and any other CPU the plain C++ loops. row_kernels()
// hands out the whole set at once for a solver that calls them many times.
//
// Searches return the first index (in increasing order) whose magnitude is
// greatest, as a scan that only replaces its best on a strictly greater
// element would. Elements whose magnitude is not a number never win. With
// count == 0, or when no element compares greater than 0.0, they return count
// and store 0.0.
#ifndef QELMATH_FOUNDATION_ROWOPS_H
#define QELMATH_FOUNDATION_ROWOPS_H

#include <cstddef>

namespace qel {

// dst[j] = dst[j] - f * src[j] for j = 0 .. count-1.
void row_update(double* dst, const double* src, double f, std::size_t count);

// The same update, fused with the search for the largest magnitude among the
// updated elements: returns the index of the first j (in increasing order)
// whose |dst[j]| is greatest, and stores that magnitude in *mag. Elements that
// are not numbers never win. With count == 0, or when no element compares
// greater than 0.0, returns count and stores 0.0.
std::size_t row_update_argmax(double* dst, const double* src, double f, std::size_t count,
                              double* mag);

// The search alone: first index of the greatest |row[j]|, as above.
std::size_t row_argmax(const double* row, std::size_t count, double* mag);

// row[j] = row[j] / p for j = 0 .. count-1 (a true division, not a product
// with 1/p).
void row_divide(double* row, double p, std::size_t count);

// Complex rows are kept as separate arrays of real and imaginary parts.
// Products take three real multiplications; w = w - u*v with the multiplier
// u = (ur, ui) and the row element v = (vr, vi) is evaluated as
//   wr = (wr - ur*vr) + ui*vi
//   wi = (ur*vr + (wi - (ur + ui)*(vr + vi))) + ui*vi
// in exactly that grouping.
void crow_update(double* dr, double* di, const double* sr, const double* si, double ur,
                 double ui, std::size_t count);

// The complex update fused with the search for the greatest squared modulus
// re*re + im*im of the updated elements (same rules as row_update_argmax).
std::size_t crow_update_argmax(double* dr, double* di, const double* sr, const double* si,
                               double ur, double ui, std::size_t count, double* mag);

// The search alone on squared moduli.
std::size_t crow_argmax(const double* re, const double* im, std::size_t count, double* mag);

// Division of every element by a pivot p = (pr, pi) whose squared modulus is s:
//   re = (pr*xr + pi*xi) / s
//   im = (((pr - pi)*(xr + xi) - pr*xr) + pi*xi) / s
void crow_divide(double* re, double* im, double pr, double pi, double s, std::size_t count);

// One set of kernels, all of one vector width.
struct RowKernels {
    void (*update)(double*, const double*, double, std::size_t);
    std::size_t (*update_argmax)(double*, const double*, double, std::size_t, double*);
    std::size_t (*argmax)(const double*, std::size_t, double*);
    void (*divide)(double*, double, std::size_t);
    void (*cupdate)(double*, double*, const double*, const double*, double, double,
                    std::size_t);
    std::size_t (*cupdate_argmax)(double*, double*, const double*, const double*, double,
                                  double, std::size_t, double*);
    std::size_t (*cargmax)(const double*, const double*, std::size_t, double*);
    void (*cdivide)(double*, double*, double, double, double, std::size_t);
};

// The kernels for the current qel::simd_level().
const RowKernels& row_kernels();

}  // namespace qel

#endif
