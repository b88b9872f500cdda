// Demonstration: tolerances, angles and vectors.
#include <cstdio>

#include "QELMath.h"
#include "demo.h"

namespace {

void run(demo::Picture& picture)
{
    std::printf("math_IsRealEqual(1000, 1000.0000005) = %d (relative, not absolute)\n",
                math_IsRealEqual(1000, 1000.0000005));
    double a = -3.141592653589793 / 2, big = 1e15;
    math_NormalizeAngle(&a);
    math_NormalizeAngle(&big);
    std::printf("-pi/2 normalised: %.17g; 1e15 normalised: %.17g\n", a, big);
    double v[3] = {0, 3, 4};
    NormalizeVector(v);
    std::printf("unit vector of (0, 3, 4): (%.17g, %.17g, %.17g)\n", v[0], v[1], v[2]);

    // A star of polar points around the origin.
    demo::Panel& panel = picture.panel("Polar points", -1.2, -1.2, 1.2, 1.2);
    double centre[3] = {0, 0, 0};
    for (int i = 0; i < 12; ++i) {
        double p[3];
        double angle = math_Degree2Radian(30.0 * i);
        math_Polar(centre, angle, i % 2 ? 0.5 : 1.0, p);
        panel.line(0, 0, p[0], p[1], "#36c");
        panel.dot(p[0], p[1]);
    }
}

const int registered = demo::add_section(10, "Tolerances, angles and vectors", &run);

}  // namespace
