// Digests of lines, arcs, triangles and the enclosing circle. Points come
// on a grid of eighths, so that coincidences, collinear points and points on
// segments occur, and from a continuous range. Every output starts as a
// seeded sentinel, so what a function leaves unwritten counts as well.
#include "QELMath.h"
#include "digest.h"

namespace {

using namespace dg;

void point(Rng& r, double* p)
{
    bool grid = r.coin(2);
    p[0] = grid ? r.grid(-4, 4) : r.uni(-50, 50);
    p[1] = grid ? r.grid(-4, 4) : r.uni(-50, 50);
    p[2] = grid ? (r.coin(3) ? r.grid(-1, 1) : 0.0) : r.uni(-5, 5);
}

void copy(const double* from, double* to, int n) { for (int i = 0; i < n; ++i) to[i] = from[i]; }

// a, and b equal to it once in `same` calls.
void line(Rng& r, double* a, double* b, int same)
{
    point(r, a);
    if (r.coin(same)) copy(a, b, 3);
    else point(r, b);
}

// A point related to a and b: one of them, on the segment, on an extension
// or anywhere.
void related(Rng& r, const double* a, const double* b, double* p)
{
    int k = r.irange(0, 5);
    if (k == 5) return point(r, p);
    if (k < 2) return copy(k ? b : a, p, 3);
    double t = k == 2 ? r.irange(0, 8) / 8.0 : k == 3 ? -r.irange(1, 8) / 8.0 : 1 + r.irange(1, 8) / 8.0;
    for (int i = 0; i < 3; ++i) p[i] = a[i] + t * (b[i] - a[i]);
    if (r.coin(3)) p[1] += r.uni(-1e-4, 1e-4);
}

// p1, p2, p3 one after the other.
void triangle(Rng& r, double* t) { for (int i = 0; i < 3; ++i) point(r, t + 3 * i); }

// The point of the circle (c, radius) at angle a, at height z.
void on_circle(const double* c, double radius, double a, double z, double* q)
{
    double cs, sn;
    math_CosSin(a, &cs, &sn);
    q[0] = c[0] + radius * cs;
    q[1] = c[1] + radius * sn;
    q[2] = z;
}

void sentinel(Rng& r, double* p, int n) { r.fill(p, n, 100, 200); }

// The distance from p to the line through a and b, which once in six calls
// (nearly, in the plane) coincide.
template <class F>
void distance(Out& out, const char* label, int dims, F f)
{
    run(out, label, 40, [=](Rng& r, Digest& d) {
        double a[3], b[3], p[3];
        point(r, a); point(r, b);
        if (r.coin(6)) for (int i = 0; i < dims; ++i) b[i] = dims == 2 ? a[i] + r.uni(-1e-5, 1e-5) : a[i];
        related(r, a, b, p);
        d(f(p, a, b));
    });
}

template <class F>
void three_points(Out& out, const char* label, F f)
{
    run(out, label, 30, [=](Rng& r, Digest& d) {
        double t[9];
        triangle(r, t);
        d(f(t, t + 3, t + 6));
    });
}

void family(Out& out)
{
    run(out, "PointIsOnLine", 60, [](Rng& r, Digest& d) {
        double a[3], b[3], p[3];
        line(r, a, b, 8);
        related(r, a, b, p);
        d(PointIsOnLine(a, b, p));
    });
    run(out, "NormalizeLine", 40, [](Rng& r, Digest& d) {
        double a[3], b[3], c[3];
        line(r, a, b, 6);
        sentinel(r, c, 3);
        d(NormalizeLine(a, b, c));
        d.each(c, 3);
    });
    distance(out, "DistPoint2Line2d", 2, DistPoint2Line2d);
    distance(out, "DistPoint2Line", 3, DistPoint2Line);
    // Centre, then radius, start and end angles.
    run(out, "Bulge2Arc", 60, [](Rng& r, Digest& d) {
        double p1[3], p2[3], arc[6];
        point(r, p1); point(r, p2);
        int k = r.irange(0, 5);   // different heights, coinciding, or level
        if (k == 1) copy(p1, p2, 3);
        else p2[2] = k == 0 ? p1[2] + 1e-3 : p1[2];
        k = r.irange(0, 4);   // half circles and straight segments among them
        double bulge = k == 0 ? r.irange(-2, 2) * 0.5 : k == 1 ? r.uni(-1e-9, 1e-9)
                     : k == 2 ? r.uni(-1, 1) : r.uni(-4, 4);
        sentinel(r, arc, 6);
        d(Bulge2Arc(p1, p2, bulge, arc, arc + 3, arc + 4, arc + 5));
        d.each(arc, 6);
    });
    // Three points on a circle whose centre the caller supplies.
    run(out, "ThreePoints2Arc", 60, [](Rng& r, Digest& d) {
        double arc[6] = {r.grid(-4, 4), r.grid(-4, 4), 0}, p[9];
        double radius = r.coin(4) ? 0.0 : r.uni(0.5, 20);
        for (int i = 0; i < 9; i += 3) {
            double a = r.coin(3) ? r.irange(0, 7) * 0.7853981633974483 : r.uni(0, 6.283185307179586);
            double z = r.grid(-1, 1);
            on_circle(arc, radius, a, z, p + i);
        }
        if (r.coin(5)) copy(p, p + 6, 2);   // P3 on P1
        sentinel(r, arc + 3, 3);
        d(ThreePoints2Arc(p, p + 3, p + 6, arc, arc + 3, arc + 4, arc + 5));
        d.each(arc, 6);
    });
    run(out, "PointIsOnCircle", 40, [](Rng& r, Digest& d) {
        double c[3], p[3];
        point(r, c);
        double radius = r.uni(0.1, 10), scale = r.coin(2) ? 1.0 : r.uni(0.99, 1.01), a = r.uni(0, 6.283185307179586);
        on_circle(c, radius * scale, a, c[2], p);
        d(PointIsOnCircle(c, radius, p));
    });
    run(out, "TriangleCircumCircle", 40, [](Rng& r, Digest& d) {
        double t[9], c[3];
        point(r, t); point(r, t + 3);
        related(r, t, t + 3, t + 6);
        if (r.coin(2)) point(r, t + 6);
        sentinel(r, c, 3);
        d(TriangleCircumCircle(t, t + 3, t + 6, c));
        d.each(c, 3);
    });
    run(out, "PointIsInTriangle", 60, [](Rng& r, Digest& d) {
        double t[9], p[3];
        triangle(r, t);
        int k = r.irange(0, 3);
        if (k == 0) related(r, t, t + 3, p);
        else if (k == 1) for (int i = 0; i < 3; ++i) p[i] = (t[i] + t[3 + i] + t[6 + i]) / 3;
        else point(r, p);
        d(PointIsInTriangle(t, t + 3, t + 6, p));
    });
    three_points(out, "TranglePerimeter", TranglePerimeter);
    three_points(out, "TrangleArea", TrangleArea);
    run(out, "TriangleInscribedCircle", 30, [](Rng& r, Digest& d) {
        double t[9], c[3];
        triangle(r, t);
        sentinel(r, c, 3);
        d(TriangleInscribedCircle(t, t + 3, t + 6, c));
        d.each(c, 3);
    });
    run(out, "MinimumRadiusCircleFromPoints", 40, [](Rng& r, Digest& d) {
        int n = r.irange(-1, 12);
        double pts[24], c[2], radius = 123.5;
        bool grid = r.coin(2);
        for (double& x : pts) x = grid ? r.grid(-3, 3) : r.uni(-20, 20);
        sentinel(r, c, 2);
        MinimumRadiusCircleFromPoints(pts, n, c, &radius);
        d.each(pts, 24); d.each(c, 2);
        d(radius);
    });
}

int reg = dg::add_family(60, "geometry", &family);

}  // namespace
