// mt_Inv, complex: in-place inverse of an n x n complex matrix (real parts
// ar, imaginary parts ai) by Gauss-Jordan elimination with full pivoting.
//
// The steps are those of the real inversion on pairs of elements. The pivot
// search compares squared moduli ar^2 + ai^2 (no square root), strictly
// greater in row-major order; a largest squared modulus below 2^-52 is
// singular (the bound itself is accepted, so pivots of modulus below 2^-26
// are refused). With d that squared modulus the pivot's reciprocal is
// (ar / d, -ai / d). Every complex product x * y takes three real
// multiplications: p = xr yr, q = xi yi, s = (xr + xi)(yr + yi), real part
// p - q, imaginary part (s - p) - q; the pivot column is written negated
// directly as (q - p, (p + q) - s). Exchanges and their undoing act on both
// arrays.
//
// The pivot record (2n ints) is one scratch block released on every path.
// Results as for the real inversion: 1 inverted; 0 singular (the arrays hold
// the completed steps) or record not had (arrays untouched); n = 0 takes and
// gives back an empty block and returns 1; n < 0 returns 1 and takes nothing.
#include <cstddef>
#include <utility>

#include "QELMath.h"
#include "foundation/constants.h"
#include "foundation/pivot.h"
#include "foundation/scratch.h"

namespace {

// dst -= x * y over a run of columns, x from row k and y = a[i][k] fixed.
void reduce(double* __restrict dr, double* __restrict di, const double* __restrict xr,
            const double* __restrict xi, double yr, double yi, std::size_t count)
{
    const double ysum = yr + yi;
    for (std::size_t j = 0; j < count; ++j) {
        const double p = xr[j] * yr;
        const double q = xi[j] * yi;
        const double s = (xr[j] + xi[j]) * ysum;
        dr[j] = dr[j] - (p - q);
        di[j] = di[j] - ((s - p) - q);
    }
}

}  // namespace

QELMATH_API int mt_Inv(double* ar, double* ai, int n)
{
    if (n < 0) return 1;
    const std::size_t order = static_cast<std::size_t>(n);
    qel::ScratchBlock<int> record(2 * order);
    if (record.failed()) return 0;
    int* pivot_rows = record.get();
    int* pivot_cols = record.get() + order;

    for (std::size_t k = 0; k < order; ++k) {
        double d = 0.0;
        std::size_t pivot_row = k, pivot_col = k;
        for (std::size_t i = k; i < order; ++i)
            for (std::size_t j = k; j < order; ++j) {
                const double re = ar[i * order + j];
                const double im = ai[i * order + j];
                const double mod2 = re * re + im * im;
                if (mod2 > d) {
                    d = mod2;
                    pivot_row = i;
                    pivot_col = j;
                }
            }
        if (d < qel::kPivotThreshold) return 0;
        pivot_rows[k] = static_cast<int>(pivot_row);
        pivot_cols[k] = static_cast<int>(pivot_col);
        if (pivot_row != k) {
            qel::swap_rows(ar, order, k, pivot_row);
            qel::swap_rows(ai, order, k, pivot_row);
        }
        if (pivot_col != k) {
            qel::swap_columns(ar, order, k, pivot_col);
            qel::swap_columns(ai, order, k, pivot_col);
        }

        double* rk = ar + k * order;
        double* ik = ai + k * order;
        const double pr = rk[k] / d;
        const double pi = -ik[k] / d;
        rk[k] = pr;
        ik[k] = pi;
        const double psum = pr + pi;
        for (std::size_t j = 0; j < order; ++j) {
            if (j == k) continue;
            const double p = rk[j] * pr;
            const double q = ik[j] * pi;
            const double s = (rk[j] + ik[j]) * psum;
            rk[j] = p - q;
            ik[j] = (s - p) - q;
        }

        for (std::size_t i = 0; i < order; ++i) {
            if (i == k) continue;
            double* ri = ar + i * order;
            double* ii = ai + i * order;
            const double yr = ri[k];
            const double yi = ii[k];
            reduce(ri, ii, rk, ik, yr, yi, k);
            reduce(ri + k + 1, ii + k + 1, rk + k + 1, ik + k + 1, yr, yi, order - k - 1);
            const double p = yr * pr;
            const double q = yi * pi;
            const double s = (yr + yi) * psum;
            ri[k] = q - p;
            ii[k] = (p + q) - s;
        }
    }

    for (std::size_t k = order; k-- > 0;) {
        const std::size_t col = static_cast<std::size_t>(pivot_cols[k]);
        const std::size_t row = static_cast<std::size_t>(pivot_rows[k]);
        if (col != k) {
            qel::swap_rows(ar, order, k, col);
            qel::swap_rows(ai, order, k, col);
        }
        if (row != k) {
            qel::swap_columns(ar, order, k, row);
            qel::swap_columns(ai, order, k, row);
        }
    }
    return 1;
}
