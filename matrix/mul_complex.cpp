// mt_Mul, complex: (cr, ci) (m x k) = (ar, ai) (m x n) . (br, bi) (n x k).
//
// Each term takes three real multiplications: with x = ar[i][l],
// y = ai[i][l], u = br[l][j], v = bi[l][j], P1 = x u, P2 = y v and
// S = (x + y)(u + v), the real term is P1 - P2 and the imaginary term
// (S - P1) - P2. Both parts start from 0; the terms are summed in blocks of
// four, ((t0 + t1) + t2) + t3 added to the running value, and the one to
// three remaining terms are summed in index order and added last. n = 0
// writes zeros; negative dimensions write nothing. No memory is taken, and
// the result must not overlap any operand.
//
// Elements are independent, so a tile of rows by vectors of columns is
// carried through the inner index at once, every lane doing the scalar
// element's operations; the inner index runs in chunks of whole blocks so
// that the rows of b a chunk needs stay in cache for every row of a.
#include <cstddef>

#include "QELMath.h"
#include "foundation/cpu.h"
#include "matrix/simd_vec.h"

namespace {

using qel::simd::load;
using qel::simd::splat;
using qel::simd::store;

struct Operands {
    const double* ar;
    const double* ai;
    const double* br;
    const double* bi;
    std::size_t n;
    std::size_t k;
};

constexpr std::size_t kChunk = 64;   // inner indices per pass, a multiple of four

// Running values of a tile of MR rows by NV vectors of columns, carried
// through the inner indices l0 .. l1 - 1. The tile starts from 0 at l0 = 0
// and from what c holds otherwise; chunks end on block boundaries except the
// last, which ends with the remaining one to three terms.
template <class V, int MR, int NV>
QEL_ALWAYS_INLINE void tile(const Operands& o, std::size_t i, std::size_t j, std::size_t l0,
                            std::size_t l1, double* cr, double* ci)
{
    constexpr std::size_t W = static_cast<std::size_t>(qel::simd::lanes<V>);
    V accr[MR][NV], acci[MR][NV];
#pragma GCC unroll 4
    for (int r = 0; r < MR; ++r)
#pragma GCC unroll 4
        for (int v = 0; v < NV; ++v) {
            const std::size_t at = (i + r) * o.k + j + v * W;
            accr[r][v] = l0 == 0 ? splat<V>(0.0) : load<V>(cr + at);
            acci[r][v] = l0 == 0 ? splat<V>(0.0) : load<V>(ci + at);
        }

    std::size_t l = l0;
    while (l < l1) {
        // A block of four, or the remaining terms after the last block.
        const std::size_t terms = (l1 - l >= 4) ? 4 : l1 - l;
        // Set by the first term, which every block has (l < l1); the zeros
        // only tell the compiler so.
        V sumr[MR][NV] = {}, sumi[MR][NV] = {};
        for (std::size_t q = 0; q < terms; ++q, ++l) {
            V u[NV], w[NV], uw[NV];
#pragma GCC unroll 4
            for (int v = 0; v < NV; ++v) {
                u[v] = load<V>(o.br + l * o.k + j + v * W);
                w[v] = load<V>(o.bi + l * o.k + j + v * W);
                uw[v] = u[v] + w[v];
            }
#pragma GCC unroll 4
            for (int r = 0; r < MR; ++r) {
                const double xs = o.ar[(i + r) * o.n + l];
                const double ys = o.ai[(i + r) * o.n + l];
                const V x = splat<V>(xs), y = splat<V>(ys), xy = splat<V>(xs + ys);
#pragma GCC unroll 4
                for (int v = 0; v < NV; ++v) {
                    const V p1 = x * u[v];
                    const V p2 = y * w[v];
                    const V s = xy * uw[v];
                    const V re = p1 - p2;
                    const V im = (s - p1) - p2;
                    sumr[r][v] = q == 0 ? re : sumr[r][v] + re;
                    sumi[r][v] = q == 0 ? im : sumi[r][v] + im;
                }
            }
        }
#pragma GCC unroll 4
        for (int r = 0; r < MR; ++r)
#pragma GCC unroll 4
            for (int v = 0; v < NV; ++v) {
                accr[r][v] = accr[r][v] + sumr[r][v];
                acci[r][v] = acci[r][v] + sumi[r][v];
            }
    }

#pragma GCC unroll 4
    for (int r = 0; r < MR; ++r)
#pragma GCC unroll 4
        for (int v = 0; v < NV; ++v) {
            const std::size_t at = (i + r) * o.k + j + v * W;
            store(cr + at, accr[r][v]);
            store(ci + at, acci[r][v]);
        }
}

// Rows i0 .. i0 + rows - 1 (rows <= MR handled as MR or one by one).
template <class V, int MR, int NV>
QEL_ALWAYS_INLINE void row_band(const Operands& o, std::size_t i, std::size_t l0, std::size_t l1,
                                double* cr, double* ci)
{
    constexpr std::size_t NR = static_cast<std::size_t>(NV * qel::simd::lanes<V>);
    std::size_t j = 0;
    for (; j + NR <= o.k; j += NR) tile<V, MR, NV>(o, i, j, l0, l1, cr, ci);
    for (; j < o.k; ++j) tile<double, MR, 1>(o, i, j, l0, l1, cr, ci);
}

template <class V, int MR, int NV>
QEL_ALWAYS_INLINE void product(const Operands& o, std::size_t m, double* cr, double* ci)
{
    if (o.n == 0) {
        for (std::size_t t = 0; t < m * o.k; ++t) cr[t] = ci[t] = 0.0;
        return;
    }
    const std::size_t blocked = o.n - o.n % 4;
    for (std::size_t l0 = 0; l0 < o.n; l0 += kChunk) {
        // The chunk holding the last block also takes the remaining terms.
        const std::size_t l1 = (l0 + kChunk < blocked) ? l0 + kChunk : o.n;
        std::size_t i = 0;
        for (; i + MR <= m; i += MR) row_band<V, MR, NV>(o, i, l0, l1, cr, ci);
        for (; i < m; ++i) row_band<V, 1, NV>(o, i, l0, l1, cr, ci);
        if (l1 == o.n) break;
    }
}

// Tile shapes as measured at n = 64 and 256: three rows by two vectors for
// AVX-512, two by two for the narrower units; each loaded vector of b and
// its u + v serve every row of the tile.
#if defined(__x86_64__) || defined(__i386__)
__attribute__((target("avx512f"))) void product_avx512(const Operands& o, std::size_t m,
                                                       double* cr, double* ci)
{
    product<qel::simd::v8d, 3, 2>(o, m, cr, ci);
}

__attribute__((target("avx2"))) void product_avx2(const Operands& o, std::size_t m, double* cr,
                                                  double* ci)
{
    product<qel::simd::v4d, 2, 2>(o, m, cr, ci);
}
#endif

}  // namespace

QELMATH_API void mt_Mul(const double* ar, const double* ai, const double* br, const double* bi,
                        int m, int n, int k, double* cr, double* ci)
{
    if (m < 0 || n < 0 || k < 0) return;
    const Operands o{ar, ai, br, bi, static_cast<std::size_t>(n), static_cast<std::size_t>(k)};
    const std::size_t rows = static_cast<std::size_t>(m);
#if defined(__x86_64__) || defined(__i386__)
    switch (qel::simd_level()) {
    case qel::SimdLevel::kAvx512:
        product_avx512(o, rows, cr, ci);
        return;
    case qel::SimdLevel::kAvx2:
        product_avx2(o, rows, cr, ci);
        return;
    default:
        break;
    }
#endif
    product<qel::simd::v2d, 2, 2>(o, rows, cr, ci);
}
