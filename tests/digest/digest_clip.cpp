// Digest of the polygon clipper: simple polygons (vertices sorted by angle
// around a centre, some given clockwise) against rectangles that cut them,
// hold them or miss them. Both result arrays go back through mem_free.
#include "QELMath.h"
#include "digest.h"

namespace {

using namespace dg;

void family(Out& out)
{
    run(out, "ClipPolygonWithRect", 120, [](Rng& r, Digest& d) {
        int n = r.irange(1, 12), pts[24], cx = r.irange(20, 80), cy = r.irange(20, 80);
        bool clockwise = r.coin(2);
        double step = 6.283185307179586 / n;
        for (int i = 0; i < n; ++i) {
            double a = (clockwise ? n - i : i) * step + r.uni(0, step * 0.8), rad = r.uni(5, 40), c, s;
            math_CosSin(a, &c, &s);
            pts[2 * i] = cx + static_cast<int>(rad * c);
            pts[2 * i + 1] = cy + static_cast<int>(rad * s);
        }
        if (n >= 4 && r.coin(4)) {   // an axis-parallel box, sides on the grid
            int x0 = r.irange(0, 50), y0 = r.irange(0, 50), x1 = x0 + r.irange(1, 50), y1 = y0 + r.irange(1, 50);
            int box[8] = {x0, y0, x1, y0, x1, y1, x0, y1};
            for (int i = 0; i < 8; ++i) pts[i] = box[i];
            n = 4;
        }
        int x1 = r.irange(0, 90), y1 = r.irange(0, 90), x2 = x1 + r.irange(1, 60), y2 = y1 + r.irange(1, 60);
        int *out_pts = nullptr, *out_counts = nullptr, total = 0;
        int k = ClipPolygonWithRect(x1, y1, x2, y2, pts, n, &out_pts, &out_counts);
        d(k);
        for (int i = 0; i < k; ++i) total += out_counts[i];
        if (k >= 1) {
            d.each(out_counts, k); d.each(out_pts, 2 * total);
            mem_free(out_pts); mem_free(out_counts);
        } else {
            d(out_pts == nullptr && out_counts == nullptr);
        }
        d.each(pts, 2 * n);
    });
}

int reg = dg::add_family(70, "clip", &family);

}  // namespace
