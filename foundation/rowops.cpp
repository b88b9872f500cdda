// Row kernels: the plain definitions and the run-time choice of variant.
//
// The loops here are the reference: the vector variants compute every element
// with the same operations in the same grouping and only change how many
// elements are in flight at once. The searches scan in increasing index and
// replace their best only on a strictly greater magnitude, so the first of
// equal magnitudes wins and a magnitude that is not a number (for which every
// comparison is false) never does.
#include "foundation/rowops.h"

#include <cmath>

#include "foundation/cpu.h"
#include "foundation/rowops_impl.h"

namespace qel {

namespace {

void update_plain(double* dst, const double* src, double f, std::size_t count)
{
    for (std::size_t j = 0; j < count; ++j) dst[j] = dst[j] - f * src[j];
}

std::size_t update_argmax_plain(double* dst, const double* src, double f, std::size_t count,
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

std::size_t argmax_plain(const double* row, std::size_t count, double* mag)
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

void divide_plain(double* row, double p, std::size_t count)
{
    for (std::size_t j = 0; j < count; ++j) row[j] = row[j] / p;
}

void cupdate_plain(double* dr, double* di, const double* sr, const double* si, double ur,
                   double ui, std::size_t count)
{
    const double us = ur + ui;
    for (std::size_t j = 0; j < count; ++j) {
        double p = ur * sr[j];
        double q = ui * si[j];
        double s = us * (sr[j] + si[j]);
        dr[j] = (dr[j] - p) + q;
        di[j] = (p + (di[j] - s)) + q;
    }
}

std::size_t cupdate_argmax_plain(double* dr, double* di, const double* sr, const double* si,
                                 double ur, double ui, std::size_t count, double* mag)
{
    const double us = ur + ui;
    double best = 0.0;
    std::size_t at = count;
    for (std::size_t j = 0; j < count; ++j) {
        double p = ur * sr[j];
        double q = ui * si[j];
        double s = us * (sr[j] + si[j]);
        double wr = (dr[j] - p) + q;
        double wi = (p + (di[j] - s)) + q;
        dr[j] = wr;
        di[j] = wi;
        double m = wr * wr + wi * wi;
        if (m > best) {
            best = m;
            at = j;
        }
    }
    *mag = best;
    return at;
}

std::size_t cargmax_plain(const double* re, const double* im, std::size_t count, double* mag)
{
    double best = 0.0;
    std::size_t at = count;
    for (std::size_t j = 0; j < count; ++j) {
        double m = re[j] * re[j] + im[j] * im[j];
        if (m > best) {
            best = m;
            at = j;
        }
    }
    *mag = best;
    return at;
}

void cdivide_plain(double* re, double* im, double pr, double pi, double s, std::size_t count)
{
    const double pd = pr - pi;
    for (std::size_t j = 0; j < count; ++j) {
        double xr = re[j];
        double xi = im[j];
        double a = pr * xr;
        double b = pi * xi;
        re[j] = (a + b) / s;
        im[j] = ((pd * (xr + xi) - a) + b) / s;
    }
}

}  // namespace

const RowKernels kRowKernelsPortable = {
    update_plain,        update_argmax_plain,  argmax_plain,  divide_plain,
    cupdate_plain,       cupdate_argmax_plain, cargmax_plain, cdivide_plain,
};

const RowKernels& row_kernels()
{
#ifdef QELMATH_ROWOPS_X86
    switch (simd_level()) {
    case SimdLevel::kAvx512: return kRowKernelsAvx512;
    case SimdLevel::kAvx2: return kRowKernelsAvx2;
    case SimdLevel::kBaseline: break;
    }
    return kRowKernelsSse2;
#elif defined(QELMATH_ROWOPS_NEON)
    return kRowKernelsNeon;
#else
    return kRowKernelsPortable;
#endif
}

void row_update(double* dst, const double* src, double f, std::size_t count)
{
    row_kernels().update(dst, src, f, count);
}

std::size_t row_update_argmax(double* dst, const double* src, double f, std::size_t count,
                              double* mag)
{
    return row_kernels().update_argmax(dst, src, f, count, mag);
}

std::size_t row_argmax(const double* row, std::size_t count, double* mag)
{
    return row_kernels().argmax(row, count, mag);
}

void row_divide(double* row, double p, std::size_t count)
{
    row_kernels().divide(row, p, count);
}

void crow_update(double* dr, double* di, const double* sr, const double* si, double ur,
                 double ui, std::size_t count)
{
    row_kernels().cupdate(dr, di, sr, si, ur, ui, count);
}

std::size_t crow_update_argmax(double* dr, double* di, const double* sr, const double* si,
                               double ur, double ui, std::size_t count, double* mag)
{
    return row_kernels().cupdate_argmax(dr, di, sr, si, ur, ui, count, mag);
}

std::size_t crow_argmax(const double* re, const double* im, std::size_t count, double* mag)
{
    return row_kernels().cargmax(re, im, count, mag);
}

void crow_divide(double* re, double* im, double pr, double pi, double s, std::size_t count)
{
    row_kernels().cdivide(re, im, pr, pi, s, count);
}

}  // namespace qel
