// linear_SparsenessGaussJordan: A x = b by Gauss-Jordan elimination with full
// pivoting that skips negligible entries.
//
// The steps are those of the real Gauss-Jordan solver with one right-hand
// side, except that an entry of magnitude at most 2^-52 counts as zero
// without being cleared: a negligible pivot-row entry is neither divided by
// the pivot nor used to update its column, and a row whose multiplier is
// negligible is left alone, b included (b[k] itself is always divided). The
// pivot test is the same threshold: a best magnitude at most 2^-52 means
// singular, 0 with a and b partially reduced.
//
// The pivot row's columns that take part are listed once per step (in the
// column record's entries for later steps, not yet in use), so a negligible
// column costs one test per step and a negligible multiplier one test per
// row, not an update per element. The column record, n ints, is
// taken first and given back before every return; a failed request returns 0
// with nothing touched. A negative n returns 0 and touches nothing; n = 0
// takes and gives back an empty block and returns 1.
#include "QELMath.h"

#include <cmath>
#include <cstddef>
#include <utility>

#include "foundation/constants.h"
#include "foundation/rowops.h"
#include "foundation/scratch.h"

namespace {

int solve(double* a, std::size_t n, double* b, int* record)
{
    const qel::RowKernels& kern = qel::row_kernels();
    const double eps = qel::kPivotThreshold;

    for (std::size_t k = 0; k < n; ++k) {
        double best = 0.0;
        std::size_t r = k, q = k;
        for (std::size_t i = k; i < n; ++i) {
            double mag;
            std::size_t j = kern.argmax(a + i * n + k, n - k, &mag);
            if (mag > best) {
                best = mag;
                r = i;
                q = k + j;
            }
        }
        if (best <= eps) return 0;

        record[k] = static_cast<int>(q);
        if (q != k) {
            for (std::size_t i = 0; i < n; ++i) std::swap(a[i * n + k], a[i * n + q]);
        }
        double* pivot = a + k * n;
        if (r != k) {
            double* rowr = a + r * n;
            for (std::size_t j = k; j < n; ++j) std::swap(pivot[j], rowr[j]);
            std::swap(b[k], b[r]);
        }

        const double p = pivot[k];
        for (std::size_t j = k + 1; j < n; ++j) {
            if (std::fabs(pivot[j]) > eps) pivot[j] = pivot[j] / p;
        }
        b[k] = b[k] / p;

        // The columns that take part, judged on the scaled pivot row, listed
        // in the part of the column record later steps have not reached yet.
        int* live = record + k + 1;
        std::size_t count = 0;
        for (std::size_t j = k + 1; j < n; ++j) {
            if (std::fabs(pivot[j]) > eps) live[count++] = static_cast<int>(j);
        }

        for (std::size_t i = 0; i < n; ++i) {
            if (i == k) continue;
            double* row = a + i * n;
            const double factor = row[k];
            if (!(std::fabs(factor) > eps)) continue;
            for (std::size_t c = 0; c < count; ++c) {
                const std::size_t j = static_cast<std::size_t>(live[c]);
                row[j] = row[j] - pivot[j] * factor;
            }
            b[i] = b[i] - factor * b[k];
        }
    }

    for (std::size_t k = n; k-- > 0;) {
        std::size_t q = static_cast<std::size_t>(record[k]);
        if (q != k) std::swap(b[k], b[q]);
    }
    return 1;
}

}  // namespace

QELMATH_API int linear_SparsenessGaussJordan(double* a, int n, double* b)
{
    if (n < 0) return 0;
    qel::ScratchBlock<int> record(static_cast<std::size_t>(n));
    if (record.failed()) return 0;
    if (n == 0) return 1;
    return solve(a, static_cast<std::size_t>(n), b, record.get());
}
