// Digests of the tolerance comparisons, angles, distances and vectors. The
// generators pick their case with a chain of conditionals, so only the
// chosen case draws from the Rng.
#include "QELMath.h"
#include "digest.h"

namespace {

using namespace dg;

// A value near `ref`: equal, one tolerance-sized step off, or far off, so
// that both answers of every comparison occur.
double near(Rng& r, double ref)
{
    int k = r.irange(0, 4);
    return k == 0 ? ref : k == 1 ? ref * (1 + r.uni(-2e-9, 2e-9)) : k == 2 ? ref + r.uni(-2e-9, 2e-9)
         : k == 3 ? -ref : r.uni(-10, 10);
}

double any_scale(Rng& r)
{
    int k = r.irange(0, 3);
    return k == 0 ? r.uni(-1e-8, 1e-8) : k == 1 ? r.uni(-1, 1) : k == 2 ? r.uni(-1e6, 1e6) : r.grid(-4, 4);
}

double angle(Rng& r)
{
    int k = r.irange(0, 5);
    return k == 0 ? r.uni(-7, 7) : k == 1 ? r.uni(-100, 100) : k == 2 ? r.uni(-1e6, 1e6)
         : k == 3 ? r.grid(-8, 8) * 0.7853981633974483 : k == 4 ? r.uni(-1e12, 1e12)
         : r.irange(-4, 4) * 6.283185307179586;
}

void point(Rng& r, double* p) { for (int i = 0; i < 3; ++i) p[i] = any_scale(r); }

// q anywhere, p near it coordinate by coordinate.
void near_pair(Rng& r, double* p, double* q)
{
    point(r, q);
    for (int i = 0; i < 3; ++i) p[i] = r.coin(3) ? r.uni(-5, 5) : near(r, q[i]);
}

void normalize(Rng& r, Digest& d, bool tiny)
{
    double v[3];
    point(r, v);
    if (tiny && r.coin(5)) v[0] = v[1] = v[2] = r.uni(-1e-6, 1e-6);
    d(NormalizeVector(v));
    d.each(v, 3);
}

void restore_defaults() { math_SetDoubleTolerance(1e-9); math_SetPointTolerance(1e-9); math_SetVectorTolerance(1e-9); }

// A setter is read back through the comparisons (and, for the vector
// tolerance, NormalizeVector); the defaults are put back afterwards so later
// functions see the state they expect.
template <class F>
void tolerance_setter(Out& out, const char* label, F set, bool vector)
{
    run(out, label, 20, [=](Rng& r, Digest& d) {
        int k = r.irange(0, 3);
        set(k == 0 ? 1e-9 : k == 1 ? r.uni(0, 1e-3) : k == 2 ? r.uni(1e-12, 1e-6) : 0.0);
        for (int i = 0; i < 4; ++i) {
            double x = any_scale(r) * 1e-3, p[3], q[3];
            near_pair(r, p, q);
            d(math_IsRealZero(x), math_IsRealEqual(1 + x, 1), math_IsPointEqual(p, q), math_IsPoint2dEqual(p, q));
        }
        if (vector) normalize(r, d, false);
        restore_defaults();
    });
}

void apart(Rng& r, double* p, double* q) { point(r, p); point(r, q); }

// Rows of one shape: a function of two points drawn apart or near each
// other, a comparison of two directions given by point pairs.
template <class F>
void two_points(Out& out, const char* label, void (*draw)(Rng&, double*, double*), F f)
{
    run(out, label, 40, [=](Rng& r, Digest& d) {
        double p[3], q[3];
        draw(r, p, q);
        d(f(p, q));
    });
}

template <class F>
void directions(Out& out, const char* label, F f)
{
    run(out, label, 40, [=](Rng& r, Digest& d) {
        double a[12];
        for (double& x : a) x = r.grid(-3, 3);
        d(f(a, a + 3, a + 6, a + 9));
    });
}

void family(Out& out)
{
    restore_defaults();
    tolerance_setter(out, "math_SetDoubleTolerance", math_SetDoubleTolerance, false);
    tolerance_setter(out, "math_SetPointTolerance", math_SetPointTolerance, false);
    tolerance_setter(out, "math_SetVectorTolerance", math_SetVectorTolerance, true);
    run(out, "math_IsRealZero", 40,
        [](Rng& r, Digest& d) { d(math_IsRealZero(r.coin(2) ? r.uni(-3e-9, 3e-9) : any_scale(r))); });
    run(out, "math_IsRealEqual", 40, [](Rng& r, Digest& d) {
        double b = any_scale(r), a = near(r, b);
        d(math_IsRealEqual(a, b));
    });
    run(out, "math_IsAngleEqual", 40, [](Rng& r, Digest& d) {
        double a = angle(r), b = r.coin(2) ? a + r.irange(-3, 3) * 6.283185307179586 : near(r, a);
        d(math_IsAngleEqual(a, b));
    });
    two_points(out, "math_IsPoint2dEqual", near_pair, math_IsPoint2dEqual);
    two_points(out, "math_IsPointEqual", near_pair, math_IsPointEqual);
    directions(out, "math_IsDirection2dEqual", math_IsDirection2dEqual);
    directions(out, "math_IsDirectionEqual", math_IsDirectionEqual);
    run(out, "math_NormalizeAngle(a)", 60, [](Rng& r, Digest& d) {
        double a = angle(r);
        math_NormalizeAngle(&a); d(a);
    });
    run(out, "math_NormalizeAngle(a,b)", 60, [](Rng& r, Digest& d) {
        double a = angle(r), b = angle(r);
        math_NormalizeAngle(&a, r.coin(8) ? nullptr : &b); d(a, b);
    });
    run(out, "math_Radian2Degree", 40, [](Rng& r, Digest& d) { d(math_Radian2Degree(angle(r))); });
    run(out, "math_Degree2Radian", 40,
        [](Rng& r, Digest& d) { d(math_Degree2Radian(r.coin(2) ? r.uni(-720, 720) : r.irange(-8, 8) * 45.0)); });
    run(out, "math_CosSin", 80, [](Rng& r, Digest& d) {
        double c = 7, s = 7;
        math_CosSin(angle(r), &c, &s); d(c, s);
    });
    // In place or into a separate point; the destination is what is digested.
    run(out, "math_Polar", 40, [](Rng& r, Digest& d) {
        double p[3], o[3];
        point(r, p); r.fill(o, 3, -9, 9);
        double a = angle(r), len = r.uni(-10, 10), *dst = r.coin(3) ? p : o;
        math_Polar(p, a, len, dst); d.each(dst, 3);
    });
    two_points(out, "math_Angle", apart, math_Angle);
    two_points(out, "math_Distance", apart, math_Distance);
    two_points(out, "math_Distance2d", apart, math_Distance2d);
    two_points(out, "math_Distance2", apart, math_Distance2);
    two_points(out, "math_Distance2d2", apart, math_Distance2d2);
    // The product may be written over either factor.
    run(out, "VectorCrossProduct", 40, [](Rng& r, Digest& d) {
        double a[3], b[3], o[3];
        point(r, a); point(r, b); r.fill(o, 3, -9, 9);
        double* dst[] = {o, a, b}, *c = dst[r.irange(0, 2)];
        VectorCrossProduct(a, b, c); d.each(c, 3);
    });
    two_points(out, "VectorDotProduct", apart, VectorDotProduct);
    run(out, "NormalizeVector", 40, [](Rng& r, Digest& d) { normalize(r, d, true); });
}

int reg = dg::add_family(10, "foundation", &family);

}  // namespace
