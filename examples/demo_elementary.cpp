// Demonstration: sine, cosine and the direction angle are correctly rounded,
// so these digits are the same on every platform.
#include <cstdio>

#include "QELMath.h"
#include "demo.h"

namespace {

void run(demo::Picture&)
{
    std::printf("Sine and cosine, correctly rounded (the same bits everywhere):\n");
    const double angles[] = {3.141592653589793 / 2, 3.141592653589793, 1.0, 1e22, 1.7976931348623157e308};
    for (double a : angles) {
        double c, s;
        math_CosSin(a, &c, &s);
        std::printf("  angle %-24.17g cos %-24.17g sin %.17g\n", a, c, s);
    }
    std::printf("Direction angles from the origin (two-argument arc tangent):\n");
    double origin[3] = {0, 0, 0};
    const double targets[][2] = {{1, 1}, {-1, 0}, {0, -1}, {-3, 4}, {1e-300, -1}};
    for (const auto& t : targets) {
        double q[3] = {t[0], t[1], 0};
        std::printf("  to (%g, %g): %.17g\n", t[0], t[1], math_Angle(origin, q));
    }
}

int reg = demo::add_section(10, "Correctly rounded trigonometry", &run);

}  // namespace
