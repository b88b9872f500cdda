// Digests of the quadratures, the chord method, the quadratic equation and
// polynomial evaluation. The integrands use only exact arithmetic, sqrt and
// the library's own correctly rounded sine and cosine, so they give the same
// bits everywhere.
#include <cmath>

#include "QELMath.h"
#include "digest.h"

namespace {

using namespace dg;

double cubic(double x) { return x * x * x - 2 * x + 1; }
double bell(double x) { return 1 / (1 + x * x); }
double root(double x) { return std::sqrt(x * x + 1); }
double wave(double x) { double c, s; math_CosSin(x, &c, &s); return s + 0.5 * c; }
double quadric(double x) { return ((x * x - 3) * x + 0.5) * x - 0.25; }

// Calls of the integrand are counted too: how often a rule samples f is
// part of its definition.
int g_calls = 0;
double (*g_f)(double) = nullptr;
double counted(double x) { ++g_calls; return g_f(x); }

template <class Rule>
void quadrature(Out& out, const char* label, Rule rule)
{
    run(out, label, 20, [=](Rng& r, Digest& d) {
        double (*const integrands[])(double) = {cubic, bell, root, wave, quadric};
        g_f = integrands[r.irange(0, 4)];
        g_calls = 0;
        double a = r.grid(-3, 3), b = r.coin(8) ? a : r.grid(-3, 3);
        double eps = r.coin(10) ? 1e-4 : (r.coin(2) ? 1e-7 : 1e-10);
        double v = rule(&counted, a, b, eps);   // before g_calls is read
        d(v, g_calls);
    });
}

void family(Out& out)
{
    quadrature(out, "int_Chebyshev", int_Chebyshev);
    quadrature(out, "int_Gauss", int_Gauss);
    quadrature(out, "int_Romberg", int_Romberg);
    quadrature(out, "int_Simpson", int_Simpson);
    run(out, "solve_Chord", 30, [](Rng& r, Digest& d) {
        g_f = r.coin(2) ? cubic : quadric;
        g_calls = 0;
        double a = r.grid(-3, 3), b = r.grid(-3, 3), eps = r.coin(2) ? 1e-12 : 1e-6, x = 99;
        int max_iter = r.irange(0, 60), code = solve_Chord(&counted, a, b, eps, &x, max_iter);
        d(code, x, g_calls);
    });
    run(out, "solve_Equation", 60, [](Rng& r, Digest& d) {
        double a = r.coin(5) ? r.uni(-1e-16, 1e-16) : r.grid(-4, 4), b = r.coin(5) ? 0.0 : r.grid(-4, 4);
        double c = r.coin(3) ? r.uni(-5, 5) : r.grid(-4, 4), roots[2] = {7, 7};
        if (a != 0 && r.coin(4)) c = b * b / (4 * a);   // a double root, or nearly
        d(solve_Equation(a, b, c, roots));
        d.each(roots, 2);
    });
    run(out, "math_Polynomial", 40, [](Rng& r, Digest& d) {
        double k[12];
        r.fill(k, 12, -3, 3);
        int n = r.irange(-1, 12);
        d(math_Polynomial(k, n, r.uni(-2, 2)));
    });
}

int reg = dg::add_family(30, "analysis", &family);

}  // namespace
