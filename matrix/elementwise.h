// Helpers of the element-wise sums and products: 32-bit wrap-around
// arithmetic done through unsigned types, where it is defined.
#ifndef QELMATH_MATRIX_ELEMENTWISE_H
#define QELMATH_MATRIX_ELEMENTWISE_H

#include <cstdint>

namespace qel {

// Converting back to int is modular since C++20 and on every compiler this
// library supports before that.
inline int wrap_to_int(std::uint32_t v) { return static_cast<int>(v); }

inline int wrap_add(int x, int y)
{
    return wrap_to_int(static_cast<std::uint32_t>(x) + static_cast<std::uint32_t>(y));
}

inline int wrap_sub(int x, int y)
{
    return wrap_to_int(static_cast<std::uint32_t>(x) - static_cast<std::uint32_t>(y));
}

inline int wrap_mul(int x, int y)
{
    return wrap_to_int(static_cast<std::uint32_t>(x) * static_cast<std::uint32_t>(y));
}

// The element count m*n of the sums, as a 32-bit wrap-around product.
inline int element_count(int m, int n) { return wrap_mul(m, n); }

}  // namespace qel

#endif
