// Digests of the transformation matrix builders. Every matrix starts filled
// with seeded values, so entries a builder leaves alone count as well.
// Arguments are drawn into variables first: the order in which a call's
// arguments are evaluated differs between compilers.
#include <utility>

#include "QELMath.h"
#include "digest.h"

namespace {

using namespace dg;
using M3 = double (*)[3];
using M4 = double (*)[4];

// Exact, moderate, large, or a multiple of pi/8.
double value(Rng& r)
{
    int k = r.irange(0, 3);
    return k == 0 ? r.grid(-4, 4) : k == 1 ? r.uni(-10, 10) : k == 2 ? r.uni(-1e3, 1e3)
                  : r.irange(-8, 8) * 0.39269908169872414;
}

template <int Size, class Build>
void matrix(Out& out, const char* label, Build build)
{
    run(out, label, 30, [=](Rng& r, Digest& d) {
        double T[Size][Size];
        r.fill(&T[0][0], Size * Size, -1, 1);
        build(r, T);
        d.each(&T[0][0], Size * Size);
    });
}

template <class F, class M, std::size_t... I>
void call(F f, const double* v, M T, std::index_sequence<I...>) { f(v[I]..., T); }

// Builders whose arguments are all doubles, drawn in order as `args` says,
// one letter each: q a viewing distance, v any other value.
template <int Size, std::size_t N, class F>
void row(Out& out, const char* label, const char (&args)[N], F f)
{
    const char* a = args;
    matrix<Size>(out, label, [=](Rng& r, double (*T)[Size]) {
        double v[N];
        for (std::size_t i = 0; i + 1 < N; ++i) v[i] = a[i] == 'q' ? r.uni(0.5, 50) : value(r);
        call(f, v, T, std::make_index_sequence<N - 1>());
    });
}

template <class F>
void coord_map(Out& out, const char* label, F f)
{
    matrix<3>(out, label, [=](Rng& r, M3 T) {
        int x0 = r.irange(-2000, 2000), y0 = r.irange(-2000, 2000);
        double sx = r.uni(0.01, 10), sy = r.uni(0.01, 10);
        f(x0, y0, sx, sy, T);
    });
}

void family(Out& out)
{
    matrix<3>(out, "TransMatrixMirror2D", [](Rng& r, M3 T) {
        double a = value(r), b = value(r), a0 = r.coin(5) ? 0 : a, b0 = r.coin(5) ? 0 : b, c = value(r);
        TransMatrixMirror2D(a0, b0, c, T);
    });
    row<3>(out, "TransMatrixTanX2D", "v", TransMatrixTanX2D);
    row<3>(out, "TransMatrixTanY2D", "v", TransMatrixTanY2D);
    coord_map(out, "TransMatrixCoordMapToGDI", TransMatrixCoordMapToGDI);
    coord_map(out, "TransMatrixCoordMapToView", TransMatrixCoordMapToView);
    row<4>(out, "TransMatrixScale3D", "vvv", TransMatrixScale3D);
    row<4>(out, "TransMatrixTanXY3D", "v", TransMatrixTanXY3D);
    row<4>(out, "TransMatrixTanXZ3D", "v", TransMatrixTanXZ3D);
    row<4>(out, "TransMatrixTanYX3D", "v", TransMatrixTanYX3D);
    row<4>(out, "TransMatrixTanYZ3D", "v", TransMatrixTanYZ3D);
    row<4>(out, "TransMatrixTanZX3D", "v", TransMatrixTanZX3D);
    row<4>(out, "TransMatrixTanZY3D", "v", TransMatrixTanZY3D);
    row<4>(out, "TransMatrixMirror3DXY", "", TransMatrixMirror3DXY);
    row<4>(out, "TransMatrixMirror3DXZ", "", TransMatrixMirror3DXZ);
    row<4>(out, "TransMatrixMirror3DYZ", "", TransMatrixMirror3DYZ);
    row<4>(out, "TransMatrixMove3D", "vvv", TransMatrixMove3D);
    row<4>(out, "TransMatrixRotate3DX", "v", TransMatrixRotate3DX);
    row<4>(out, "TransMatrixRotate3DY", "v", TransMatrixRotate3DY);
    row<4>(out, "TransMatrixRotate3DZ", "v", TransMatrixRotate3DZ);
    matrix<4>(out, "TransMatrixRotate3DO", [](Rng& r, M4 T) {
        double u[3] = {r.uni(-1, 1), r.uni(-1, 1), r.uni(-1, 1)};
        if (r.coin(3)) NormalizeVector(u);
        if (r.coin(6)) u[0] = u[1] = 0;
        double theta = value(r);
        TransMatrixRotate3DO(u[0], u[1], u[2], theta, T);
    });
    row<4>(out, "TransMatrixViewV", "", TransMatrixViewV);
    row<4>(out, "TransMatrixViewH", "v", TransMatrixViewH);
    row<4>(out, "TransMatrixViewW", "v", TransMatrixViewW);
    row<4>(out, "TransMatrixAxisView", "vv", TransMatrixAxisView);
    row<4>(out, "TransMatrixAxisViewPE", "", TransMatrixAxisViewPE);
    row<4>(out, "TransMatrixAxisViewP2", "", TransMatrixAxisViewP2);
    row<4>(out, "TransMatrixAxisViewL", "vv", TransMatrixAxisViewL);
    row<4>(out, "TransMatrixAxisViewL2", "", TransMatrixAxisViewL2);
    row<4>(out, "TransMatrixPerspective1", "vvvq", TransMatrixPerspective1);
    row<4>(out, "TransMatrixPerspective2(theta)", "vvvqv", [](auto... a) { TransMatrixPerspective2(a...); });
    row<4>(out, "TransMatrixPerspective3(theta,phi)", "vvvqvv", [](auto... a) { TransMatrixPerspective3(a...); });
    row<4>(out, "TransMatrixPerspective2", "vvvq", [](auto... a) { TransMatrixPerspective2(a...); });
    row<4>(out, "TransMatrixPerspective3", "vvvq", [](auto... a) { TransMatrixPerspective3(a...); });
}

int reg = dg::add_family(80, "transform", &family);

}  // namespace
