// Geometry section: an arc from a bulge, a triangle with its circumscribed
// and inscribed circles, and the smallest circle around a point set.
#include <cmath>
#include <cstdio>
#include <vector>

#include "QELMath.h"
#include "demo.h"

namespace {

void arc_panel(demo::Picture& pic)
{
    double p1[3] = {0, 0, 0}, p2[3] = {4, 0, 0};
    double centre[3], radius, start, end;
    double bulge = 0.6;
    int code = Bulge2Arc(p1, p2, bulge, centre, &radius, &start, &end);
    std::printf("  Bulge2Arc (0,0)->(4,0), bulge %.1f: code %d, centre (%.4f, %.4f), r %.4f,"
                " angles %.4f..%.4f\n",
                bulge, code, centre[0], centre[1], radius, start, end);

    // The same arc back from three of its points.
    double mid[3];
    double a = start + 0.5 * (end - start + (end < start ? 6.283185307179586 : 0));
    mid[0] = centre[0] + radius * std::cos(a);
    mid[1] = centre[1] + radius * std::sin(a);
    mid[2] = 0;
    double c2[3], r2, s2, e2;
    int code2 = ThreePoints2Arc(p1, mid, p2, c2, &r2, &s2, &e2);
    std::printf("  ThreePoints2Arc through its middle: code %d, centre (%.4f, %.4f), r %.4f\n",
                code2, c2[0], c2[1], r2);

    demo::Panel& p = pic.panel("Bulge2Arc: bulge 0.6", -1, -3, 5, 3);
    p.line(p1[0], p1[1], p2[0], p2[1], "#999");
    p.arc(centre[0], centre[1], radius, start, end, "#06c");
    p.dot(centre[0], centre[1], "#06c");
    p.dot(p1[0], p1[1]);
    p.dot(p2[0], p2[1]);
    p.dot(mid[0], mid[1], "#090");
    p.text(p1[0], p1[1] - 0.4, "P1");
    p.text(p2[0], p2[1] - 0.4, "P2");
    p.text(-0.8, -2.5, "black: end points, blue: arc and centre,");
    p.text(-0.8, -2.85, "green: the arc's middle");
}

void triangle_panel(demo::Picture& pic)
{
    double a[3] = {0, 0, 0}, b[3] = {6, 0, 0}, c[3] = {1.5, 4, 0};
    double cc[3] = {0, 0, 0}, ic[3] = {0, 0, 0};
    double rc = TriangleCircumCircle(a, b, c, cc);
    double ri = TriangleInscribedCircle(a, b, c, ic);
    std::printf("  triangle (0,0) (6,0) (1.5,4): circumcircle (%.4f, %.4f) r %.4f,"
                " incircle (%.4f, %.4f) r %.4f, area %.4f\n",
                cc[0], cc[1], rc, ic[0], ic[1], ri, TrangleArea(a, b, c));
    double probe[3] = {2, 1, 0};
    std::printf("  PointIsInTriangle of (2, 1): %d\n", PointIsInTriangle(a, b, c, probe));

    demo::Panel& p = pic.panel("Triangle: circumscribed and inscribed circles", -1, -2.5, 7, 5.5);
    p.polygon({{a[0], a[1]}, {b[0], b[1]}, {c[0], c[1]}}, "#333", "#eef");
    p.circle(cc[0], cc[1], rc, "#c60");
    p.circle(ic[0], ic[1], ri, "#06c");
    p.dot(cc[0], cc[1], "#c60");
    p.dot(ic[0], ic[1], "#06c");
    p.dot(probe[0], probe[1], "#090");
    p.text(-0.8, -2.0, "orange: circumscribed, blue: inscribed,");
    p.text(-0.8, -2.4, "green: a point PointIsInTriangle finds inside");
}

void enclosing_panel(demo::Picture& pic)
{
    // A fixed, irregular cloud (a small linear congruential walk).
    std::vector<double> pts;
    unsigned s = 12345u;
    for (int i = 0; i < 40; ++i) {
        s = s * 1103515245u + 12345u;
        double x = ((s >> 8) % 1000) / 100.0;
        s = s * 1103515245u + 12345u;
        double y = ((s >> 8) % 700) / 100.0;
        pts.push_back(x);
        pts.push_back(y);
    }
    std::vector<double> shown = pts;
    double centre[2], radius;
    MinimumRadiusCircleFromPoints(pts.data(), 40, centre, &radius);
    std::printf("  smallest circle around 40 points: centre (%.4f, %.4f), r %.4f\n", centre[0],
                centre[1], radius);

    demo::Panel& p = pic.panel("Smallest enclosing circle of 40 points", centre[0] - radius - 0.5,
                               centre[1] - radius - 0.5, centre[0] + radius + 0.5,
                               centre[1] + radius + 0.5);
    p.circle(centre[0], centre[1], radius, "#c00");
    for (std::size_t i = 0; i < shown.size(); i += 2) p.dot(shown[i], shown[i + 1], "#333");
    p.dot(centre[0], centre[1], "#c00");
}

void run(demo::Picture& pic)
{
    arc_panel(pic);
    triangle_panel(pic);
    enclosing_panel(pic);
}

int reg = demo::add_section(60, "Plane geometry: arcs, triangles, the enclosing circle", &run);

}  // namespace
