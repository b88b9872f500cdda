// Digests of the tolerance comparisons, angles, distances and vectors.
#include "QELMath.h"
#include "digest.h"

namespace {

using dg::Digest;
using dg::Rng;

// A value near `ref`: equal, one tolerance-sized step off, or far off, so
// that both answers of every comparison occur.
double near(Rng& r, double ref)
{
    switch (r.irange(0, 4)) {
    case 0: return ref;
    case 1: return ref * (1 + r.uni(-2e-9, 2e-9));
    case 2: return ref + r.uni(-2e-9, 2e-9);
    case 3: return -ref;
    default: return r.uni(-10, 10);
    }
}

double any_scale(Rng& r)
{
    switch (r.irange(0, 3)) {
    case 0: return r.uni(-1e-8, 1e-8);
    case 1: return r.uni(-1, 1);
    case 2: return r.uni(-1e6, 1e6);
    default: return r.grid(-4, 4);
    }
}

void point(Rng& r, double* p)
{
    for (int i = 0; i < 3; ++i) p[i] = any_scale(r);
}

void near_point(Rng& r, const double* q, double* p)
{
    for (int i = 0; i < 3; ++i) p[i] = r.coin(3) ? r.uni(-5, 5) : near(r, q[i]);
}

// Probes read back through the comparisons after a setter; the defaults are
// put back afterwards so later functions see the state they expect.
void probe_tolerances(Rng& r, Digest& d)
{
    for (int k = 0; k < 4; ++k) {
        double x = any_scale(r) * 1e-3;
        d.i32(math_IsRealZero(x));
        d.i32(math_IsRealEqual(1 + x, 1));
        double p[3], q[3];
        point(r, q);
        near_point(r, q, p);
        d.i32(math_IsPointEqual(p, q));
        d.i32(math_IsPoint2dEqual(p, q));
    }
}

void restore_defaults()
{
    math_SetDoubleTolerance(1e-9);
    math_SetPointTolerance(1e-9);
    math_SetVectorTolerance(1e-9);
}

double tolerance_value(Rng& r)
{
    switch (r.irange(0, 3)) {
    case 0: return 1e-9;
    case 1: return r.uni(0, 1e-3);
    case 2: return r.uni(1e-12, 1e-6);
    default: return 0.0;
    }
}

double angle(Rng& r)
{
    switch (r.irange(0, 5)) {
    case 0: return r.uni(-7, 7);
    case 1: return r.uni(-100, 100);
    case 2: return r.uni(-1e6, 1e6);
    case 3: return r.grid(-8, 8) * 0.7853981633974483;
    case 4: return r.uni(-1e12, 1e12);
    default: return r.irange(-4, 4) * 6.283185307179586;
    }
}

// Rows of one shape: a function of two points, a comparison of a point with
// one near it, a comparison of two directions given by point pairs.
template <class F>
void two_points(std::vector<dg::Entry>& out, const char* label, F f)
{
    dg::run(out, label, 40, [=](Rng& r, Digest& d) {
        double p[3], q[3];
        point(r, p);
        point(r, q);
        d.d(f(p, q));
    });
}

template <class F>
void near_points(std::vector<dg::Entry>& out, const char* label, F f)
{
    dg::run(out, label, 40, [=](Rng& r, Digest& d) {
        double p[3], q[3];
        point(r, q);
        near_point(r, q, p);
        d.i32(f(p, q));
    });
}

template <class F>
void directions(std::vector<dg::Entry>& out, const char* label, F f)
{
    dg::run(out, label, 40, [=](Rng& r, Digest& d) {
        double a1[3], a2[3], b1[3], b2[3];
        for (double* p : {a1, a2, b1, b2})
            for (int i = 0; i < 3; ++i) p[i] = r.grid(-3, 3);
        d.i32(f(a1, a2, b1, b2));
    });
}

template <class F>
void tolerance_setter(std::vector<dg::Entry>& out, const char* label, F set)
{
    dg::run(out, label, 20, [=](Rng& r, Digest& d) {
        set(tolerance_value(r));
        probe_tolerances(r, d);
        restore_defaults();
    });
}

void family(std::vector<dg::Entry>& out)
{
    restore_defaults();
    tolerance_setter(out, "math_SetDoubleTolerance", math_SetDoubleTolerance);
    tolerance_setter(out, "math_SetPointTolerance", math_SetPointTolerance);
    dg::run(out, "math_SetVectorTolerance", 20, [](Rng& r, Digest& d) {
        math_SetVectorTolerance(tolerance_value(r));
        probe_tolerances(r, d);
        double v[3];
        point(r, v);
        d.i32(NormalizeVector(v));
        d.ds(v, 3);
        restore_defaults();
    });
    dg::run(out, "math_IsRealZero", 40, [](Rng& r, Digest& d) {
        d.i32(math_IsRealZero(r.coin(2) ? r.uni(-3e-9, 3e-9) : any_scale(r)));
    });
    dg::run(out, "math_IsRealEqual", 40, [](Rng& r, Digest& d) {
        double b = any_scale(r);
        d.i32(math_IsRealEqual(near(r, b), b));
    });
    dg::run(out, "math_IsAngleEqual", 40, [](Rng& r, Digest& d) {
        double a = angle(r);
        double b = r.coin(2) ? a + r.irange(-3, 3) * 6.283185307179586 : near(r, a);
        d.i32(math_IsAngleEqual(a, b));
    });
    near_points(out, "math_IsPoint2dEqual", math_IsPoint2dEqual);
    near_points(out, "math_IsPointEqual", math_IsPointEqual);
    directions(out, "math_IsDirection2dEqual", math_IsDirection2dEqual);
    directions(out, "math_IsDirectionEqual", math_IsDirectionEqual);
    dg::run(out, "math_NormalizeAngle(a)", 60, [](Rng& r, Digest& d) {
        double a = angle(r);
        math_NormalizeAngle(&a);
        d.d(a);
    });
    dg::run(out, "math_NormalizeAngle(a,b)", 60, [](Rng& r, Digest& d) {
        double a = angle(r), b = angle(r);
        math_NormalizeAngle(&a, r.coin(8) ? nullptr : &b);
        d.d(a);
        d.d(b);
    });
    dg::run(out, "math_Radian2Degree", 40, [](Rng& r, Digest& d) { d.d(math_Radian2Degree(angle(r))); });
    dg::run(out, "math_Degree2Radian", 40, [](Rng& r, Digest& d) {
        d.d(math_Degree2Radian(r.coin(2) ? r.uni(-720, 720) : r.irange(-8, 8) * 45.0));
    });
    dg::run(out, "math_CosSin", 80, [](Rng& r, Digest& d) {
        double c = 7, s = 7;
        math_CosSin(angle(r), &c, &s);
        d.d(c);
        d.d(s);
    });
    // In place or into a separate point; the destination is what is digested.
    dg::run(out, "math_Polar", 40, [](Rng& r, Digest& d) {
        double p[3], o[3];
        point(r, p);
        r.fill(o, 3, -9, 9);
        double a = angle(r), len = r.uni(-10, 10);
        double* dst = r.coin(3) ? p : o;
        math_Polar(p, a, len, dst);
        d.ds(dst, 3);
    });
    two_points(out, "math_Angle", math_Angle);
    two_points(out, "math_Distance", math_Distance);
    two_points(out, "math_Distance2d", math_Distance2d);
    two_points(out, "math_Distance2", math_Distance2);
    two_points(out, "math_Distance2d2", math_Distance2d2);
    // The product may be written over either factor.
    dg::run(out, "VectorCrossProduct", 40, [](Rng& r, Digest& d) {
        double a[3], b[3], o[3];
        point(r, a);
        point(r, b);
        r.fill(o, 3, -9, 9);
        double* dst[] = {o, a, b};
        double* c = dst[r.irange(0, 2)];
        VectorCrossProduct(a, b, c);
        d.ds(c, 3);
    });
    two_points(out, "VectorDotProduct", VectorDotProduct);
    dg::run(out, "NormalizeVector", 40, [](Rng& r, Digest& d) {
        double v[3];
        point(r, v);
        if (r.coin(5)) v[0] = v[1] = v[2] = r.uni(-1e-6, 1e-6);
        d.i32(NormalizeVector(v));
        d.ds(v, 3);
    });
}

int reg = dg::add_family(10, "foundation", &family);

}  // namespace
