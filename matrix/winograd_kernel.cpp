// Register-blocked kernel of the real product's pair terms.
//
// Every element keeps its own sequence of operations: its running value gets
// one block sum ((t0 + t1) + t2) + t3 per block of four pairs, blocks in
// increasing order. Only independent elements are computed together: a tile
// of MR rows by NV vectors of columns of b lives in registers while the inner
// index runs, so each loaded element of a and b serves many elements of c.
//
// Cache blocking splits the pairs into chunks of kChunkPairs (a multiple of
// four, so no block straddles two chunks); the running values go back to c
// between chunks, which does not change them. For each chunk the rows 2p and
// 2p + 1 of a panel of columns of b are packed side by side into a small
// buffer on the stack, zero-padded at the right edge: the padded lanes
// compute values nobody keeps. No heap memory is taken.
#include "matrix/winograd_kernel.h"

#include <cstring>

#include "foundation/cpu.h"
#include "matrix/simd_vec.h"

#if defined(__aarch64__) && defined(__ARM_NEON)
#include <arm_neon.h>
#endif

namespace qel {

namespace {

using simd::load;
using simd::splat;
using simd::store;

constexpr std::size_t kChunkPairs = 32;

// c (MR rows of stride ldc, NV vectors wide) += the block sums of `blocks`
// blocks. a points at a[i0][2 p0] (row stride lda); bp at the packed panel,
// pair by pair: NV vectors of b[2p+1] then NV vectors of b[2p].
template <class V, int MR, int NV>
QEL_ALWAYS_INLINE void tile(const double* a, std::size_t lda, const double* bp,
                            std::size_t blocks, double* c, std::size_t ldc)
{
    constexpr int W = simd::lanes<V>;
    constexpr int NR = NV * W;
    V acc[MR][NV];
#pragma GCC unroll 8
    for (int r = 0; r < MR; ++r)
#pragma GCC unroll 8
        for (int v = 0; v < NV; ++v) acc[r][v] = load<V>(c + r * ldc + v * W);

    for (std::size_t blk = 0; blk < blocks; ++blk) {
        V sum[MR][NV];
#pragma GCC unroll 4
        for (int q = 0; q < 4; ++q) {
            const std::size_t p = blk * 4 + static_cast<std::size_t>(q);
            const double* bq = bp + p * 2 * NR;
            V odd[NV], even[NV];
#pragma GCC unroll 8
            for (int v = 0; v < NV; ++v) {
                odd[v] = load<V>(bq + v * W);
                even[v] = load<V>(bq + NR + v * W);
            }
#pragma GCC unroll 8
            for (int r = 0; r < MR; ++r) {
                const V x0 = simd::broadcast<V>(a + r * lda + 2 * p);
                const V x1 = simd::broadcast<V>(a + r * lda + 2 * p + 1);
#pragma GCC unroll 8
                for (int v = 0; v < NV; ++v) {
                    const V t = (x0 + odd[v]) * (x1 + even[v]);
                    sum[r][v] = (q == 0) ? t : sum[r][v] + t;
                }
            }
        }
#pragma GCC unroll 8
        for (int r = 0; r < MR; ++r)
#pragma GCC unroll 8
            for (int v = 0; v < NV; ++v) acc[r][v] = acc[r][v] + sum[r][v];
    }

#pragma GCC unroll 8
    for (int r = 0; r < MR; ++r)
#pragma GCC unroll 8
        for (int v = 0; v < NV; ++v) store(c + r * ldc + v * W, acc[r][v]);
}

// A tile whose columns run past the right edge of c: works on a copy of the
// valid part, padded to the full width.
template <class V, int MR, int NV>
QEL_ALWAYS_INLINE void edge_tile(const double* a, std::size_t lda, const double* bp,
                                 std::size_t blocks, double* c, std::size_t ldc,
                                 std::size_t cols)
{
    constexpr int NR = NV * simd::lanes<V>;
    double buf[MR * NR] = {};
    for (int r = 0; r < MR; ++r) std::memcpy(buf + r * NR, c + r * ldc, cols * sizeof(double));
    tile<V, MR, NV>(a, lda, bp, blocks, buf, NR);
    for (int r = 0; r < MR; ++r) std::memcpy(c + r * ldc, buf + r * NR, cols * sizeof(double));
}

template <class V, int MR, int NV>
QEL_ALWAYS_INLINE void block_sums(const double* a, const double* b, std::size_t m,
                                  std::size_t n, std::size_t k, std::size_t pairs, double* c)
{
    constexpr std::size_t NR = static_cast<std::size_t>(NV * simd::lanes<V>);
    alignas(64) double panel[kChunkPairs * 2 * NR];

    for (std::size_t p0 = 0; p0 < pairs; p0 += kChunkPairs) {
        const std::size_t chunk = (pairs - p0 < kChunkPairs) ? pairs - p0 : kChunkPairs;
        const std::size_t blocks = chunk / 4;
        for (std::size_t j0 = 0; j0 < k; j0 += NR) {
            const std::size_t cols = (k - j0 < NR) ? k - j0 : NR;
            for (std::size_t p = 0; p < chunk; ++p) {
                const double* even_row = b + 2 * (p0 + p) * k + j0;
                const double* odd_row = even_row + k;
                double* dst = panel + p * 2 * NR;
                std::memcpy(dst, odd_row, cols * sizeof(double));
                std::memcpy(dst + NR, even_row, cols * sizeof(double));
                for (std::size_t j = cols; j < NR; ++j) dst[j] = dst[NR + j] = 0.0;
            }
            const double* a_chunk = a + 2 * p0;
            std::size_t i = 0;
            if (cols == NR) {
                for (; i + MR <= m; i += MR)
                    tile<V, MR, NV>(a_chunk + i * n, n, panel, blocks, c + i * k + j0, k);
                for (; i < m; ++i)
                    tile<V, 1, NV>(a_chunk + i * n, n, panel, blocks, c + i * k + j0, k);
            } else {
                for (; i + MR <= m; i += MR)
                    edge_tile<V, MR, NV>(a_chunk + i * n, n, panel, blocks, c + i * k + j0, k,
                                         cols);
                for (; i < m; ++i)
                    edge_tile<V, 1, NV>(a_chunk + i * n, n, panel, blocks, c + i * k + j0, k,
                                        cols);
            }
        }
    }
}

// Tile shapes: the scheme is bound by additions (three per pair term and
// element against one multiplication), so wide tiles that reuse each loaded
// row of b across several vectors of columns win; two rows by four vectors
// for AVX-512 and one row by four vectors for the narrower units were the
// fastest of the shapes measured at n = 1024, with 32 pairs per chunk keeping
// the packed panel in the first-level cache.
#if defined(__x86_64__) || defined(__i386__)
__attribute__((target("avx512f"))) void block_sums_avx512(const double* a, const double* b,
                                                          std::size_t m, std::size_t n,
                                                          std::size_t k, std::size_t pairs,
                                                          double* c)
{
    block_sums<simd::v8d, 2, 4>(a, b, m, n, k, pairs, c);
}

__attribute__((target("avx2"))) void block_sums_avx2(const double* a, const double* b,
                                                     std::size_t m, std::size_t n, std::size_t k,
                                                     std::size_t pairs, double* c)
{
    block_sums<simd::v4d, 1, 4>(a, b, m, n, k, pairs, c);
}
#endif

// AArch64 always has NEON, whose lane arithmetic on float64x2_t is the plain
// fadd and fmul (with contraction off the compiler never fuses them into
// fmla). Its 32 registers hold a tile of two rows by four vectors with the
// loaded rows of b and both broadcasts of a beside it (28 registers), so each
// loaded vector of b serves two rows; chosen by that count, not measured, as
// no ARM machine is at hand.
#if defined(__aarch64__) && defined(__ARM_NEON)
void block_sums_baseline(const double* a, const double* b, std::size_t m, std::size_t n,
                         std::size_t k, std::size_t pairs, double* c)
{
    block_sums<float64x2_t, 2, 4>(a, b, m, n, k, pairs, c);
}
#else
void block_sums_baseline(const double* a, const double* b, std::size_t m, std::size_t n,
                         std::size_t k, std::size_t pairs, double* c)
{
    block_sums<simd::v2d, 1, 4>(a, b, m, n, k, pairs, c);
}
#endif

}  // namespace

void winograd_block_sums(const double* a, const double* b, std::size_t m, std::size_t n,
                         std::size_t k, std::size_t pairs, double* c)
{
    if (pairs == 0 || m == 0 || k == 0) return;
#if defined(__x86_64__) || defined(__i386__)
    switch (simd_level()) {
    case SimdLevel::kAvx512:
        block_sums_avx512(a, b, m, n, k, pairs, c);
        return;
    case SimdLevel::kAvx2:
        block_sums_avx2(a, b, m, n, k, pairs, c);
        return;
    default:
        break;
    }
#endif
    block_sums_baseline(a, b, m, n, k, pairs, c);
}

}  // namespace qel
