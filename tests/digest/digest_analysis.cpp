// Digests of the quadratures, the chord method, the quadratic equation and
// polynomial evaluation. The integrands use only exact arithmetic, sqrt and
// the library's own correctly rounded sine and cosine, so they give the same
// bits everywhere.
#include <cmath>

#include "QELMath.h"
#include "digest.h"

namespace {

using dg::Digest;
using dg::Rng;

double cubic(double x) { return x * x * x - 2 * x + 1; }
double bell(double x) { return 1 / (1 + x * x); }
double root(double x) { return std::sqrt(x * x + 1); }
double wave(double x)
{
    double c, s;
    math_CosSin(x, &c, &s);
    return s + 0.5 * c;
}
double quadric(double x) { return ((x * x - 3) * x + 0.5) * x - 0.25; }

double (*const integrands[])(double) = {cubic, bell, root, wave, quadric};

// Calls of the integrand are counted too: how often a rule samples f is
// part of its definition.
int g_calls = 0;
double (*g_f)(double) = nullptr;
double counted(double x)
{
    ++g_calls;
    return g_f(x);
}

template <class Rule>
void quadrature(Rng& r, Digest& d, Rule rule)
{
    g_f = integrands[r.irange(0, 4)];
    g_calls = 0;
    double a = r.grid(-3, 3), b = r.coin(8) ? a : r.grid(-3, 3);
    double eps = r.coin(10) ? 1e-4 : (r.coin(2) ? 1e-7 : 1e-10);
    d.d(rule(&counted, a, b, eps));
    d.i32(g_calls);
}

void family(std::vector<dg::Entry>& out)
{
    dg::run(out, "int_Chebyshev", 20, [](Rng& r, Digest& d) { quadrature(r, d, int_Chebyshev); });
    dg::run(out, "int_Gauss", 20, [](Rng& r, Digest& d) { quadrature(r, d, int_Gauss); });
    dg::run(out, "int_Romberg", 20, [](Rng& r, Digest& d) { quadrature(r, d, int_Romberg); });
    dg::run(out, "int_Simpson", 20, [](Rng& r, Digest& d) { quadrature(r, d, int_Simpson); });
    dg::run(out, "solve_Chord", 30, [](Rng& r, Digest& d) {
        g_f = r.coin(2) ? cubic : quadric;
        g_calls = 0;
        double a = r.grid(-3, 3), b = r.grid(-3, 3);
        double eps = r.coin(2) ? 1e-12 : 1e-6;
        int max_iter = r.irange(0, 60);
        double x = 99;
        d.i32(solve_Chord(&counted, a, b, eps, &x, max_iter));
        d.d(x);
        d.i32(g_calls);
    });
    dg::run(out, "solve_Equation", 60, [](Rng& r, Digest& d) {
        double a = r.coin(5) ? r.uni(-1e-16, 1e-16) : r.grid(-4, 4);
        double b = r.coin(5) ? 0.0 : r.grid(-4, 4);
        double c = r.coin(3) ? r.uni(-5, 5) : r.grid(-4, 4);
        if (a != 0 && r.coin(4)) c = b * b / (4 * a);   // a double root, or nearly
        double roots[2] = {7, 7};
        d.i32(solve_Equation(a, b, c, roots));
        d.ds(roots, 2);
    });
    dg::run(out, "math_Polynomial", 40, [](Rng& r, Digest& d) {
        double k[12];
        r.fill(k, 12, -3, 3);
        int n = r.irange(-1, 12);
        double x = r.uni(-2, 2);
        d.d(math_Polynomial(k, n, x));
    });
}

int reg = dg::add_family(30, "analysis", &family);

}  // namespace
