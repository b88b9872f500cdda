// Digests of the transformation matrix builders. Every matrix starts filled
// with seeded values, so entries a builder leaves alone count as well.
// Arguments are drawn into variables first: the order in which a call's
// arguments are evaluated differs between compilers.
#include "QELMath.h"
#include "digest.h"

namespace {

using dg::Digest;
using dg::Rng;

double value(Rng& r)
{
    switch (r.irange(0, 3)) {
    case 0: return r.grid(-4, 4);
    case 1: return r.uni(-10, 10);
    case 2: return r.uni(-1e3, 1e3);
    default: return r.irange(-8, 8) * 0.39269908169872414;   // multiples of pi/8
    }
}

template <class Build>
void plane(std::vector<dg::Entry>& out, const char* label, Build build)
{
    dg::run(out, label, 30, [=](Rng& r, Digest& d) {
        double T[3][3];
        r.fill(&T[0][0], 9, -1, 1);
        build(r, T);
        d.ds(&T[0][0], 9);
    });
}

template <class Build>
void space(std::vector<dg::Entry>& out, const char* label, Build build)
{
    dg::run(out, label, 30, [=](Rng& r, Digest& d) {
        double T[4][4];
        r.fill(&T[0][0], 16, -1, 1);
        build(r, T);
        d.ds(&T[0][0], 16);
    });
}

using M3 = double (*)[3];
using M4 = double (*)[4];

void family(std::vector<dg::Entry>& out)
{
    plane(out, "TransMatrixMirror2D", [](Rng& r, M3 T) {
        double a = value(r), b = value(r);
        if (r.coin(5)) a = 0;
        if (r.coin(5)) b = 0;
        double c = value(r);
        TransMatrixMirror2D(a, b, c, T);
    });
    plane(out, "TransMatrixTanX2D", [](Rng& r, M3 T) { TransMatrixTanX2D(value(r), T); });
    plane(out, "TransMatrixTanY2D", [](Rng& r, M3 T) { TransMatrixTanY2D(value(r), T); });
    plane(out, "TransMatrixCoordMapToGDI", [](Rng& r, M3 T) {
        int x0 = r.irange(-2000, 2000), y0 = r.irange(-2000, 2000);
        double sx = r.uni(0.01, 10), sy = r.uni(0.01, 10);
        TransMatrixCoordMapToGDI(x0, y0, sx, sy, T);
    });
    plane(out, "TransMatrixCoordMapToView", [](Rng& r, M3 T) {
        int x0 = r.irange(-2000, 2000), y0 = r.irange(-2000, 2000);
        double sx = r.uni(0.01, 10), sy = r.uni(0.01, 10);
        TransMatrixCoordMapToView(x0, y0, sx, sy, T);
    });
    space(out, "TransMatrixScale3D", [](Rng& r, M4 T) {
        double sx = value(r), sy = value(r), sz = value(r);
        TransMatrixScale3D(sx, sy, sz, T);
    });
    space(out, "TransMatrixTanXY3D", [](Rng& r, M4 T) { TransMatrixTanXY3D(value(r), T); });
    space(out, "TransMatrixTanXZ3D", [](Rng& r, M4 T) { TransMatrixTanXZ3D(value(r), T); });
    space(out, "TransMatrixTanYX3D", [](Rng& r, M4 T) { TransMatrixTanYX3D(value(r), T); });
    space(out, "TransMatrixTanYZ3D", [](Rng& r, M4 T) { TransMatrixTanYZ3D(value(r), T); });
    space(out, "TransMatrixTanZX3D", [](Rng& r, M4 T) { TransMatrixTanZX3D(value(r), T); });
    space(out, "TransMatrixTanZY3D", [](Rng& r, M4 T) { TransMatrixTanZY3D(value(r), T); });
    space(out, "TransMatrixMirror3DXY", [](Rng&, M4 T) { TransMatrixMirror3DXY(T); });
    space(out, "TransMatrixMirror3DXZ", [](Rng&, M4 T) { TransMatrixMirror3DXZ(T); });
    space(out, "TransMatrixMirror3DYZ", [](Rng&, M4 T) { TransMatrixMirror3DYZ(T); });
    space(out, "TransMatrixMove3D", [](Rng& r, M4 T) {
        double dx = value(r), dy = value(r), dz = value(r);
        TransMatrixMove3D(dx, dy, dz, T);
    });
    space(out, "TransMatrixRotate3DX", [](Rng& r, M4 T) { TransMatrixRotate3DX(value(r), T); });
    space(out, "TransMatrixRotate3DY", [](Rng& r, M4 T) { TransMatrixRotate3DY(value(r), T); });
    space(out, "TransMatrixRotate3DZ", [](Rng& r, M4 T) { TransMatrixRotate3DZ(value(r), T); });
    space(out, "TransMatrixRotate3DO", [](Rng& r, M4 T) {
        double u[3] = {r.uni(-1, 1), r.uni(-1, 1), r.uni(-1, 1)};
        if (r.coin(3)) NormalizeVector(u);
        if (r.coin(6)) u[0] = u[1] = 0;
        double theta = value(r);
        TransMatrixRotate3DO(u[0], u[1], u[2], theta, T);
    });
    space(out, "TransMatrixViewV", [](Rng&, M4 T) { TransMatrixViewV(T); });
    space(out, "TransMatrixViewH", [](Rng& r, M4 T) { TransMatrixViewH(value(r), T); });
    space(out, "TransMatrixViewW", [](Rng& r, M4 T) { TransMatrixViewW(value(r), T); });
    space(out, "TransMatrixAxisView", [](Rng& r, M4 T) {
        double a = value(r), b = value(r);
        TransMatrixAxisView(a, b, T);
    });
    space(out, "TransMatrixAxisViewPE", [](Rng&, M4 T) { TransMatrixAxisViewPE(T); });
    space(out, "TransMatrixAxisViewP2", [](Rng&, M4 T) { TransMatrixAxisViewP2(T); });
    space(out, "TransMatrixAxisViewL", [](Rng& r, M4 T) {
        double a = value(r), b = value(r);
        TransMatrixAxisViewL(a, b, T);
    });
    space(out, "TransMatrixAxisViewL2", [](Rng&, M4 T) { TransMatrixAxisViewL2(T); });
    space(out, "TransMatrixPerspective1", [](Rng& r, M4 T) {
        double dx = value(r), dz = value(r), dy = value(r), q = r.uni(0.5, 50);
        TransMatrixPerspective1(dx, dz, dy, q, T);
    });
    space(out, "TransMatrixPerspective2(theta)", [](Rng& r, M4 T) {
        double dx = value(r), dz = value(r), dy = value(r), q = r.uni(0.5, 50), theta = value(r);
        TransMatrixPerspective2(dx, dz, dy, q, theta, T);
    });
    space(out, "TransMatrixPerspective3(theta,phi)", [](Rng& r, M4 T) {
        double dx = value(r), dz = value(r), dy = value(r), q = r.uni(0.5, 50);
        double theta = value(r), phi = value(r);
        TransMatrixPerspective3(dx, dz, dy, q, theta, phi, T);
    });
    space(out, "TransMatrixPerspective2", [](Rng& r, M4 T) {
        double dx = value(r), dz = value(r), dy = value(r), q = r.uni(0.5, 50);
        TransMatrixPerspective2(dx, dz, dy, q, T);
    });
    space(out, "TransMatrixPerspective3", [](Rng& r, M4 T) {
        double dx = value(r), dz = value(r), dy = value(r), q = r.uni(0.5, 50);
        TransMatrixPerspective3(dx, dz, dy, q, T);
    });
}

int reg = dg::add_family(80, "transform", &family);

}  // namespace
