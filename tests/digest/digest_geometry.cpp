// Digests of lines, arcs, triangles and the enclosing circle. Points come
// on a grid of eighths, so that coincidences, collinear points and points on
// segments occur, and from a continuous range.
#include "QELMath.h"
#include "digest.h"

namespace {

using dg::Digest;
using dg::Rng;

void point(Rng& r, double* p)
{
    if (r.coin(2)) {
        p[0] = r.grid(-4, 4);
        p[1] = r.grid(-4, 4);
        p[2] = r.coin(3) ? r.grid(-1, 1) : 0.0;
    } else {
        p[0] = r.uni(-50, 50);
        p[1] = r.uni(-50, 50);
        p[2] = r.uni(-5, 5);
    }
}

// A point related to a and b: one of them, on the segment, on an extension
// or anywhere.
void related(Rng& r, const double* a, const double* b, double* p)
{
    double t;
    switch (r.irange(0, 5)) {
    case 0: for (int i = 0; i < 3; ++i) p[i] = a[i]; return;
    case 1: for (int i = 0; i < 3; ++i) p[i] = b[i]; return;
    case 2: t = r.irange(0, 8) / 8.0; break;
    case 3: t = -r.irange(1, 8) / 8.0; break;
    case 4: t = 1 + r.irange(1, 8) / 8.0; break;
    default: point(r, p); return;
    }
    for (int i = 0; i < 3; ++i) p[i] = a[i] + t * (b[i] - a[i]);
    if (r.coin(3)) p[1] += r.uni(-1e-4, 1e-4);
}

void sentinel(Rng& r, double* p, int n) { r.fill(p, n, 100, 200); }

template <class F>
void three_points(std::vector<dg::Entry>& out, const char* label, F f)
{
    dg::run(out, label, 30, [=](Rng& r, Digest& d) {
        double p1[3], p2[3], p3[3];
        point(r, p1);
        point(r, p2);
        point(r, p3);
        d.d(f(p1, p2, p3));
    });
}

void family(std::vector<dg::Entry>& out)
{
    dg::run(out, "PointIsOnLine", 60, [](Rng& r, Digest& d) {
        double a[3], b[3], p[3];
        point(r, a);
        if (r.coin(8)) {
            for (int i = 0; i < 3; ++i) b[i] = a[i];
        } else {
            point(r, b);
        }
        related(r, a, b, p);
        d.i32(PointIsOnLine(a, b, p));
    });
    dg::run(out, "NormalizeLine", 40, [](Rng& r, Digest& d) {
        double a[3], b[3], c[3];
        point(r, a);
        if (r.coin(6)) {
            for (int i = 0; i < 3; ++i) b[i] = a[i];
        } else {
            point(r, b);
        }
        sentinel(r, c, 3);
        d.i32(NormalizeLine(a, b, c));
        d.ds(c, 3);
    });
    dg::run(out, "DistPoint2Line2d", 40, [](Rng& r, Digest& d) {
        double a[3], b[3], p[3];
        point(r, a);
        point(r, b);
        if (r.coin(6)) for (int i = 0; i < 2; ++i) b[i] = a[i] + r.uni(-1e-5, 1e-5);
        related(r, a, b, p);
        d.d(DistPoint2Line2d(p, a, b));
    });
    dg::run(out, "DistPoint2Line", 40, [](Rng& r, Digest& d) {
        double a[3], b[3], p[3];
        point(r, a);
        point(r, b);
        if (r.coin(6)) for (int i = 0; i < 3; ++i) b[i] = a[i];
        related(r, a, b, p);
        d.d(DistPoint2Line(p, a, b));
    });
    dg::run(out, "Bulge2Arc", 60, [](Rng& r, Digest& d) {
        double p1[3], p2[3], c[3], out3[3];
        point(r, p1);
        point(r, p2);
        switch (r.irange(0, 5)) {
        case 0: p2[2] = p1[2] + 1e-3; break;                        // different heights
        case 1: p2[0] = p1[0]; p2[1] = p1[1]; p2[2] = p1[2]; break;  // coincide
        default: p2[2] = p1[2]; break;
        }
        double bulge;
        switch (r.irange(0, 4)) {
        case 0: bulge = r.irange(-2, 2) * 0.5; break;
        case 1: bulge = r.uni(-1e-9, 1e-9); break;
        case 2: bulge = r.uni(-1, 1); break;
        default: bulge = r.uni(-4, 4); break;
        }
        sentinel(r, c, 3);
        sentinel(r, out3, 3);
        d.i32(Bulge2Arc(p1, p2, bulge, c, &out3[0], &out3[1], &out3[2]));
        d.ds(c, 3);
        d.ds(out3, 3);
    });
    dg::run(out, "ThreePoints2Arc", 60, [](Rng& r, Digest& d) {
        // Three points on a circle whose centre the caller supplies.
        double c[3] = {r.grid(-4, 4), r.grid(-4, 4), 0};
        double radius = r.coin(4) ? 0.0 : r.uni(0.5, 20);
        double p[3][3];
        for (auto& q : p) {
            double cs, sn;
            math_CosSin(r.coin(3) ? r.irange(0, 7) * 0.7853981633974483 : r.uni(0, 6.283185307179586),
                        &cs, &sn);
            q[0] = c[0] + radius * cs;
            q[1] = c[1] + radius * sn;
            q[2] = r.grid(-1, 1);
        }
        if (r.coin(5)) for (int i = 0; i < 2; ++i) p[2][i] = p[0][i];   // P3 on P1
        double out3[3];
        sentinel(r, out3, 3);
        d.i32(ThreePoints2Arc(p[0], p[1], p[2], c, &out3[0], &out3[1], &out3[2]));
        d.ds(c, 3);
        d.ds(out3, 3);
    });
    dg::run(out, "PointIsOnCircle", 40, [](Rng& r, Digest& d) {
        double c[3], p[3];
        point(r, c);
        double radius = r.uni(0.1, 10);
        double scale = r.coin(2) ? 1.0 : r.uni(0.99, 1.01);
        double cs, sn;
        math_CosSin(r.uni(0, 6.283185307179586), &cs, &sn);
        p[0] = c[0] + radius * scale * cs;
        p[1] = c[1] + radius * scale * sn;
        p[2] = c[2];
        d.i32(PointIsOnCircle(c, radius, p));
    });
    dg::run(out, "TriangleCircumCircle", 40, [](Rng& r, Digest& d) {
        double p1[3], p2[3], p3[3], c[3];
        point(r, p1);
        point(r, p2);
        related(r, p1, p2, p3);
        if (r.coin(2)) point(r, p3);
        sentinel(r, c, 3);
        d.d(TriangleCircumCircle(p1, p2, p3, c));
        d.ds(c, 3);
    });
    dg::run(out, "PointIsInTriangle", 60, [](Rng& r, Digest& d) {
        double p1[3], p2[3], p3[3], p[3];
        point(r, p1);
        point(r, p2);
        point(r, p3);
        switch (r.irange(0, 3)) {
        case 0: related(r, p1, p2, p); break;
        case 1:
            for (int i = 0; i < 3; ++i) p[i] = (p1[i] + p2[i] + p3[i]) / 3;
            break;
        default: point(r, p); break;
        }
        d.i32(PointIsInTriangle(p1, p2, p3, p));
    });
    three_points(out, "TranglePerimeter", TranglePerimeter);
    three_points(out, "TrangleArea", TrangleArea);
    dg::run(out, "TriangleInscribedCircle", 30, [](Rng& r, Digest& d) {
        double p1[3], p2[3], p3[3], c[3];
        point(r, p1);
        point(r, p2);
        point(r, p3);
        sentinel(r, c, 3);
        d.d(TriangleInscribedCircle(p1, p2, p3, c));
        d.ds(c, 3);
    });
    dg::run(out, "MinimumRadiusCircleFromPoints", 40, [](Rng& r, Digest& d) {
        int n = r.irange(-1, 12);
        double pts[24], c[2], radius;
        bool grid = r.coin(2);
        for (int i = 0; i < 24; ++i) pts[i] = grid ? r.grid(-3, 3) : r.uni(-20, 20);
        sentinel(r, c, 2);
        radius = 123.5;
        MinimumRadiusCircleFromPoints(pts, n, c, &radius);
        d.ds(pts, 24);
        d.ds(c, 2);
        d.d(radius);
    });
}

int reg = dg::add_family(60, "geometry", &family);

}  // namespace
