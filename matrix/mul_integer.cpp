// mt_Mul, integer: c (m x k) = a (m x n) . b (n x k) in 32-bit wrap-around
// arithmetic.
//
// Products and sums wrap like the integer sums; since wrap-around addition is
// associative the terms may be gathered row by row (l outside j), which lets
// the inner loop run along contiguous rows of b and c. Negative dimensions
// write nothing; n = 0 writes zeros. No scratch memory.
#include <cstddef>
#include <cstdint>

#include "QELMath.h"
#include "matrix/elementwise.h"

QELMATH_API void mt_Mul(const int* a, const int* b, int m, int n, int k, int* c)
{
    if (m < 0 || n < 0 || k < 0) return;
    const std::size_t rows = static_cast<std::size_t>(m);
    const std::size_t inner = static_cast<std::size_t>(n);
    const std::size_t cols = static_cast<std::size_t>(k);
    for (std::size_t i = 0; i < rows; ++i) {
        int* ci = c + i * cols;
        for (std::size_t j = 0; j < cols; ++j) ci[j] = 0;
        const int* ai = a + i * inner;
        for (std::size_t l = 0; l < inner; ++l) {
            const std::uint32_t x = static_cast<std::uint32_t>(ai[l]);
            const int* bl = b + l * cols;
            for (std::size_t j = 0; j < cols; ++j) {
                const std::uint32_t sum = static_cast<std::uint32_t>(ci[j]) +
                                          x * static_cast<std::uint32_t>(bl[j]);
                ci[j] = qel::wrap_to_int(sum);
            }
        }
    }
}
