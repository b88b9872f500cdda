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
// Elements of a row are independent, so a vector of columns is carried
// through the whole inner index at once; every lane does the scalar
// element's operations.
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

// One complex term for lanes of columns: adds to (tr, ti), or starts them.
template <class V>
QEL_ALWAYS_INLINE void term(double x, double y, double xy, const double* u_at,
                            const double* v_at, V& tr, V& ti, bool first)
{
    const V u = load<V>(u_at);
    const V v = load<V>(v_at);
    const V p1 = splat<V>(x) * u;
    const V p2 = splat<V>(y) * v;
    const V s = splat<V>(xy) * (u + v);
    const V re = p1 - p2;
    const V im = (s - p1) - p2;
    tr = first ? re : tr + re;
    ti = first ? im : ti + im;
}

// Columns j .. j + lanes - 1 of row i.
template <class V>
QEL_ALWAYS_INLINE void columns(const Operands& o, std::size_t i, std::size_t j, double* cr,
                               double* ci)
{
    const double* x = o.ar + i * o.n;
    const double* y = o.ai + i * o.n;
    V accr = splat<V>(0.0), acci = splat<V>(0.0);
    std::size_t l = 0;
    for (; l + 4 <= o.n; l += 4) {
        V tr, ti;
        for (int q = 0; q < 4; ++q) {
            const std::size_t at = (l + q) * o.k + j;
            term<V>(x[l + q], y[l + q], x[l + q] + y[l + q], o.br + at, o.bi + at, tr, ti, q == 0);
        }
        accr = accr + tr;
        acci = acci + ti;
    }
    if (l < o.n) {
        V tr, ti;
        for (bool first = true; l < o.n; ++l, first = false) {
            const std::size_t at = l * o.k + j;
            term<V>(x[l], y[l], x[l] + y[l], o.br + at, o.bi + at, tr, ti, first);
        }
        accr = accr + tr;
        acci = acci + ti;
    }
    store(cr + i * o.k + j, accr);
    store(ci + i * o.k + j, acci);
}

template <class V>
QEL_ALWAYS_INLINE void product(const Operands& o, std::size_t m, double* cr, double* ci)
{
    constexpr std::size_t W = static_cast<std::size_t>(qel::simd::lanes<V>);
    for (std::size_t i = 0; i < m; ++i) {
        std::size_t j = 0;
        for (; j + W <= o.k; j += W) columns<V>(o, i, j, cr, ci);
        for (; j < o.k; ++j) columns<double>(o, i, j, cr, ci);
    }
}

#if defined(__x86_64__) || defined(__i386__)
__attribute__((target("avx512f"))) void product_avx512(const Operands& o, std::size_t m,
                                                       double* cr, double* ci)
{
    product<qel::simd::v8d>(o, m, cr, ci);
}

__attribute__((target("avx2"))) void product_avx2(const Operands& o, std::size_t m, double* cr,
                                                  double* ci)
{
    product<qel::simd::v4d>(o, m, cr, ci);
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
    product<qel::simd::v2d>(o, rows, cr, ci);
}
