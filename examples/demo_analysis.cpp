// Numerical analysis: the four quadrature rules on one integral, the chord
// method drawn on its curve, the quadratic equation and Horner's scheme.
#include <cmath>
#include <cstdio>
#include <utility>
#include <vector>

#include "QELMath.h"
#include "demo.h"

namespace {

int g_calls = 0;
std::vector<double> g_chord_points;

double bell(double x)
{
    ++g_calls;
    return 4.0 / (1.0 + x * x);   // integrates to pi over [0, 1]
}

double two_less_square(double x)
{
    g_chord_points.push_back(x);
    return x * x - 2.0;
}

void run(demo::Picture& pic)
{
    std::printf("  integral of 4 / (1 + x^2) over [0, 1] (pi = 3.14159265358979312):\n");
    struct Rule {
        const char* name;
        double (*integrate)(double (*)(double), double, double, double);
    };
    const Rule rules[] = {{"Simpson  ", int_Simpson},
                          {"Romberg  ", int_Romberg},
                          {"Gauss    ", int_Gauss},
                          {"Chebyshev", int_Chebyshev}};
    for (const Rule& r : rules) {
        g_calls = 0;
        double v = r.integrate(bell, 0.0, 1.0, 1e-10);
        std::printf("    %s %.17g  (%d values of f)\n", r.name, v, g_calls);
    }

    double x = 0.0;
    int ok = solve_Chord(two_less_square, 0.0, 2.0, 1e-14, &x, 100);
    std::printf("  chord method on x^2 - 2 over [0, 2]: %d, x = %.17g after %zu values\n", ok, x,
                g_chord_points.size());

    double roots[2];
    int count = solve_Equation(1.0, -1e8, 1.0, roots);
    std::printf("  x^2 - 1e8 x + 1 = 0: %d roots, %.17g and %.17g\n", count, roots[0], roots[1]);
    double k[4] = {-2.0, 0.0, 0.0, 1.0};
    std::printf("  x^3 - 2 at x = 1.2599210498948732: %.3g\n",
                math_Polynomial(k, 4, 1.2599210498948732));

    // The curve and the first chord points closing in on sqrt(2).
    demo::Panel& p = pic.panel("chord method on x^2 - 2", -0.1, -2.2, 2.1, 2.2);
    p.line(-0.1, 0.0, 2.1, 0.0, "#999");
    double quad[3] = {-2.0, 0.0, 1.0};
    for (int i = 0; i < 40; ++i) {
        double xa = i * 0.05;
        double xb = xa + 0.05;
        p.line(xa, math_Polynomial(quad, 3, xa), xb, math_Polynomial(quad, 3, xb));
    }
    for (std::size_t i = 0; i < g_chord_points.size() && i < 8; ++i) {
        double xi = g_chord_points[i];
        double yi = math_Polynomial(quad, 3, xi);
        p.line(xi, 0.0, xi, yi, "#c60");
        p.dot(xi, yi);
    }
    p.line(0.0, -2.2, 0.0, 2.2, "#999");
    p.text(2.0, 0.1, "x");
    p.text(0.05, 2.05, "f(x)");
    const double root = std::sqrt(2.0);
    p.dot(root, 0.0, "#090");
    p.text(root + 0.05, -0.3, "root sqrt 2");
    p.text(0.45, -1.6, "orange: points of f");
    p.text(0.45, -1.9, "taken by solve_Chord");
}

int reg = demo::add_section(30, "Numerical analysis", &run);

}  // namespace
