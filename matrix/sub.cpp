// mt_Sub: element-wise difference of two matrices of one shape.
//
// Only the count m*n matters; the arrays are flat sequences. The count is the
// 32-bit wrap-around product of m and n (formed unsigned, so no overflow is
// undefined), and a count of zero or less writes nothing. Integers wrap
// around in 32 bits. The result may be the very same array as either operand;
// in the complex overload the real parts are finished before the imaginary
// parts are read, so cr may be ar or br, and ci may be ai, bi, ar or br.
#include "QELMath.h"
#include "matrix/elementwise.h"

QELMATH_API void mt_Sub(const int* a, const int* b, int m, int n, int* c)
{
    const int count = qel::element_count(m, n);
    for (int t = 0; t < count; ++t) c[t] = qel::wrap_sub(a[t], b[t]);
}

QELMATH_API void mt_Sub(const double* a, const double* b, int m, int n, double* c)
{
    const int count = qel::element_count(m, n);
    for (int t = 0; t < count; ++t) c[t] = a[t] - b[t];
}

QELMATH_API void mt_Sub(const double* ar, const double* ai, const double* br, const double* bi,
                        int m, int n, double* cr, double* ci)
{
    mt_Sub(ar, br, m, n, cr);
    mt_Sub(ai, bi, m, n, ci);
}
