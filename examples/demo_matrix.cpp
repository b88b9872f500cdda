// Matrix algebra: a product by the inner-product scheme, a determinant and
// an inverse, with the identity recovered from the product of the two.
#include <cmath>
#include <cstdio>

#include "QELMath.h"
#include "demo.h"

namespace {

void print_matrix(const char* title, const double* m, int rows, int cols)
{
    std::printf("  %s\n", title);
    for (int i = 0; i < rows; ++i) {
        std::printf("   ");
        for (int j = 0; j < cols; ++j) std::printf(" %10.6g", m[i * cols + j]);
        std::printf("\n");
    }
}

void run(demo::Picture&)
{
    const double a[4] = {1, 2, 3, 4}, b[4] = {5, 6, 7, 8};
    double c[4];
    mt_Mul(a, b, 2, 2, 2, c);
    std::printf("  [1 2; 3 4] . [5 6; 7 8] by row and column factors (2, 12 and 35, 48):\n");
    print_matrix("product", c, 2, 2);

    const double m[9] = {4, -2, 1, 3, 6, -4, 2, 1, 8};
    double work[9], inv[9], check[9];
    for (int t = 0; t < 9; ++t) work[t] = inv[t] = m[t];
    std::printf("  det by full pivoting %.17g, closed form %.17g\n", mt_Det(work, 3), mt_Det3(m));
    if (mt_Inv(inv, 3) == 1) {
        print_matrix("inverse by Gauss-Jordan", inv, 3, 3);
        mt_Mul33x33(m, inv, check);
        double worst = 0;
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j) worst = std::fmax(worst, std::fabs(check[i * 3 + j] - (i == j)));
        std::printf("  largest deviation of m . inverse from the identity: %.3g\n", worst);
    }
    double singular[4] = {1, 2, 2, 4};
    std::printf("  [1 2; 2 4]: mt_Inv2 returns %d and leaves the matrix as it was\n", mt_Inv2(singular));
}

int reg = demo::add_section(50, "Matrix algebra", &run);

}  // namespace
