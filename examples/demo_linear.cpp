// Linear systems: a few small systems through each kind of solver.
#include <cstdio>

#include "QELMath.h"
#include "demo.h"

namespace {

void print_vector(const char* label, const double* x, int n)
{
    std::printf("  %-34s", label);
    for (int i = 0; i < n; ++i) std::printf(" %10.6f", x[i]);
    std::printf("\n");
}

void run(demo::Picture&)
{
    // One 3 x 3 system, four ways.
    const double a0[9] = {2, 1, -1, -3, -1, 2, -2, 1, 2};
    const double b0[3] = {8, -11, -3};
    double a[9], b[3];

    for (int i = 0; i < 9; ++i) a[i] = a0[i];
    for (int i = 0; i < 3; ++i) b[i] = b0[i];
    int r = linear_Gauss(a, b, 3);
    std::printf("  A = [2 1 -1; -3 -1 2; -2 1 2], b = (8, -11, -3): expect (2, 3, -1)\n");
    print_vector(r == 1 ? "Gauss, full pivoting:" : "Gauss: singular", b, 3);

    for (int i = 0; i < 9; ++i) a[i] = a0[i];
    for (int i = 0; i < 3; ++i) b[i] = b0[i];
    r = linear_Gauss3(a, b);
    print_vector(r == 1 ? "closed form for 3 unknowns:" : "Gauss3: singular", b, 3);

    for (int i = 0; i < 9; ++i) a[i] = a0[i];
    for (int i = 0; i < 3; ++i) b[i] = b0[i];
    r = linear_GaussJordan(a, b, 3, 1);
    print_vector(r == 1 ? "Gauss-Jordan:" : "Gauss-Jordan: singular", b, 3);

    for (int i = 0; i < 9; ++i) a[i] = a0[i];
    for (int i = 0; i < 3; ++i) b[i] = b0[i];
    r = linear_SparsenessGaussJordan(a, 3, b);
    print_vector(r == 1 ? "Gauss-Jordan skipping zeros:" : "sparse: singular", b, 3);

    // Gauss-Seidel needs a strictly diagonally dominant matrix.
    double d[9] = {4, -1, 0, -1, 4, -1, 0, -1, 4}, db[3] = {2, 4, 10}, x[3];
    r = linear_GaussSeidel(d, db, 3, x, 1e-12);
    std::printf("  Gauss-Seidel on [4 -1 0; -1 4 -1; 0 -1 4] x = (2, 4, 10): code %d\n", r);
    print_vector("  expect (1, 2, 3):", x, 3);
    double nd[4] = {1, 2, 3, 4}, nb[2] = {1, 1}, nx[2] = {9, 9};
    std::printf("  ... and on [1 2; 3 4] (not dominant): code %d\n",
                linear_GaussSeidel(nd, nb, 2, nx, 1e-12));

    // The same tridiagonal system in band and in tridiagonal storage.
    double band[15] = {2, -1, 0, -1, 2, -1, -1, 2, -1, -1, 2, -1, -1, 2, 0};
    double bb[5] = {1, 0, 0, 0, 1};
    r = linear_GaussBand(band, bb, 5, 1, 1);
    std::printf("  tridiagonal (2 on the diagonal, -1 beside it), b = (1, 0, 0, 0, 1)\n");
    print_vector(r == 2 ? "band solver (code 2):" : "band: singular", bb, 5);
    double tri[13] = {2, -1, -1, 2, -1, -1, 2, -1, -1, 2, -1, -1, 2};
    double tb[5] = {1, 0, 0, 0, 1};
    r = linear_TrianglePullup(tri, 5, tb);
    print_vector(r == 2 ? "Thomas sweep (code 2):" : "tridiagonal: singular", tb, 5);

    // A complex system: (1 + 2i) x0 + x1 = 2 + 2i, x0 + (2 - i) x1 = 3 - i.
    double ar[4] = {1, 1, 1, 2}, ai[4] = {2, 0, 0, -1}, br[2] = {2, 3}, bi[2] = {2, -1};
    r = linear_Gauss(ar, ai, 2, br, bi);
    std::printf("  complex 2 x 2 (code %d): x0 = %.6f%+.6fi, x1 = %.6f%+.6fi, expect 1, 1\n", r,
                br[0], bi[0], br[1], bi[1]);

    // Singular input is reported, not divided by.
    double s[4] = {1, 2, 2, 4}, sb[2] = {1, 2};
    std::printf("  [1 2; 2 4] is singular: linear_Gauss2 gives %d, b left as (%g, %g)\n",
                linear_Gauss2(s, sb), sb[0], sb[1]);
}

int reg = demo::add_section(40, "Linear systems", &run);

}  // namespace
