// Transformation matrices: a unit cube seen through the principal views, two
// axonometric views and two perspectives, plus a few plane mappings.
#include <cstdio>

#include "QELMath.h"
#include "demo.h"

namespace {

const double kCube[8][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                            {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
const int kEdges[12][2] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6},
                           {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};

struct Drawn {
    double x, z;
};

// (x, y, z, 1) . T
void apply(const double p[3], double (*T)[4], double r[4])
{
    for (int j = 0; j < 4; ++j) r[j] = p[0] * T[0][j] + p[1] * T[1][j] + p[2] * T[2][j] + T[3][j];
}

// The drawing point (x'/w', z'/w') on the plane y = 0.
Drawn project(const double p[3], double (*T)[4])
{
    double r[4];
    apply(p, T, r);
    return {r[0] / r[3], r[2] / r[3]};
}

// The cube's edges through T, offset in the panel; the three edges from the
// origin in the axis colours (x red, y green, z blue).
void draw_cube(demo::Panel& panel, double (*T)[4], double ox, double oz)
{
    Drawn d[8];
    for (int i = 0; i < 8; ++i) d[i] = project(kCube[i], T);
    for (const auto& e : kEdges) {
        const char* colour = "#333";
        if (e[0] == 0 && e[1] == 1) colour = "#c22";
        if (e[0] == 3 && e[1] == 0) colour = "#2a2";
        if (e[0] == 0 && e[1] == 4) colour = "#22c";
        panel.line(d[e[0]].x + ox, d[e[0]].z + oz, d[e[1]].x + ox, d[e[1]].z + oz, colour);
    }
}

void run(demo::Picture& pic)
{
    double T[4][4];

    TransMatrixRotate3DZ(3.141592653589793 / 2, T);
    const double e1[3] = {1, 0, 0};
    double r4[4];
    apply(e1, T, r4);
    std::printf("Rotate3DZ(pi/2) takes (1, 0, 0) to (%.17g, %g, %g)\n", r4[0], r4[1], r4[2]);
    TransMatrixRotate3DO(0.6, 0.0, 0.8, 3.141592653589793, T);
    apply(e1, T, r4);
    std::printf("Rotate3DO about (0.6, 0, 0.8) by pi takes (1, 0, 0) to (%.17g, %.3g, %.17g)\n",
                r4[0], r4[1], r4[2]);

    double M[3][3];
    TransMatrixMirror2D(1, 0, -2, M);
    std::printf("Mirror2D in x = 2 takes (3, 5) to (%g, %g)\n", 3 * M[0][0] + 5 * M[1][0] + M[2][0],
                3 * M[0][1] + 5 * M[1][1] + M[2][1]);
    double G[3][3], V[3][3];
    TransMatrixCoordMapToGDI(100, 200, 0.5, 0.5, G);
    TransMatrixCoordMapToView(100, 200, 0.5, 0.5, V);
    double X = 10 * G[0][0] + 10 * G[1][0] + G[2][0], Y = 10 * G[0][1] + 10 * G[1][1] + G[2][1];
    std::printf("model (10, 10) -> device (%g, %g) -> model (%g, %g)\n", X, Y,
                X * V[0][0] + Y * V[1][0] + V[2][0], X * V[0][1] + Y * V[1][1] + V[2][1]);

    TransMatrixPerspective1(0, 0, 0, 0.5, T);
    const double r[3] = {1, 2, 1};
    Drawn q = project(r, T);
    std::printf("Perspective1(q = 0.5) draws (1, 2, 1) at (%g, %g)\n", q.x, q.z);

    // Principal views: front (V), top (H) below it, side (W) to its left.
    demo::Panel& views = pic.panel("Principal views V, H, W", -1.8, -1.9, 1.3, 1.2);
    TransMatrixViewV(T);
    draw_cube(views, T, 0, 0);
    TransMatrixViewH(0.5, T);
    draw_cube(views, T, 0, 0);
    TransMatrixViewW(0.5, T);
    draw_cube(views, T, 0, 0);
    views.text(0.4, 1.05, "front (V)");
    views.text(0.4, -1.75, "top (H)");
    views.text(-1.1, 1.05, "side (W)");
    std::printf("principal views: V at the origin, H %.1f below, W %.1f to the left\n", 0.5, 0.5);

    // Axonometric: isometric, dimetric and the oblique cabinet view.
    demo::Panel& axo = pic.panel("Isometric, dimetric, cabinet", -0.9, -1.5, 2.7, 2.1);
    TransMatrixAxisViewPE(T);
    draw_cube(axo, T, 0, 1.1);
    TransMatrixAxisViewP2(T);
    draw_cube(axo, T, 1.6, 1.1);
    TransMatrixAxisViewL2(T);
    draw_cube(axo, T, 0.7, -0.9);
    axo.text(-0.8, 0.1, "isometric");
    axo.text(1.9, 0.1, "dimetric");
    axo.text(1.8, -0.6, "cabinet");

    // Perspectives of the cube set in front of the picture plane: two
    // vanishing points (turned 30 degrees about z), then three (also tilted).
    demo::Panel& persp = pic.panel("Perspective, two and three points", -1.3, -1.1, 1.3, 1.5);
    const double theta = 0.5235987755982988, phi = 0.4363323129985824;
    TransMatrixPerspective2(-0.6, 0.0, 0.6, 0.8, theta, T);
    draw_cube(persp, T, -0.2, 0.0);
    TransMatrixPerspective3(0.6, -0.6, 0.6, 0.8, theta, phi, T);
    draw_cube(persp, T, 0.2, 0.0);
    std::printf("Perspective3 T[0][3] = q sin(theta) cos(phi) = %.17g\n", T[0][3]);
}

int reg = demo::add_section(80, "Transformation matrices", &run);

}  // namespace
