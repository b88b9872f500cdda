// Row-times-matrix kernel shared by the fixed-size products.
//
// Row p (S values) times the S x S matrix m: element j is the sum of
// p[l] m[l][j] over l = 0 .. S-1, left to right, stored as soon as it is
// formed. The result must not overlap p or m.
#ifndef QELMATH_MATRIX_FIXED_ROWS_H
#define QELMATH_MATRIX_FIXED_ROWS_H

namespace qel {

template <int S>
inline void row_times(const double* p, const double* m, double* out)
{
    for (int j = 0; j < S; ++j) {
        double s = p[0] * m[j];
        for (int l = 1; l < S; ++l) s = s + p[l] * m[l * S + j];
        out[j] = s;
    }
}

// n rows of S values, four rows per pass and then the one to three left;
// rows are independent, so the passes only shape the loop.
template <int S>
inline void rows_times(const double* a, int n, const double* m, double* c)
{
    int i = 0;
    for (; i + 4 <= n; i += 4) {
        row_times<S>(a + i * S, m, c + i * S);
        row_times<S>(a + (i + 1) * S, m, c + (i + 1) * S);
        row_times<S>(a + (i + 2) * S, m, c + (i + 2) * S);
        row_times<S>(a + (i + 3) * S, m, c + (i + 3) * S);
    }
    for (; i < n; ++i) row_times<S>(a + i * S, m, c + i * S);
}

}  // namespace qel

#endif
