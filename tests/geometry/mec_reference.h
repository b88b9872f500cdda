// The enclosing-circle search written out plainly, step by step and without
// any shortcut: the oracle the fast implementation must match bit for bit
// (and the baseline of its benchmark). It calls the exported triangle
// functions exactly where the search does and takes the same two blocks.
#pragma once
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "QELMath.h"

namespace mecref {

inline void reference_mec(double* pts, int n, double* centre, double* radius)
{
    if (n == 1) centre[0] = pts[0], centre[1] = pts[1], *radius = 0;
    if (n == 2) centre[0] = (pts[0] + pts[2]) * 0.5, centre[1] = (pts[1] + pts[3]) * 0.5, *radius = 0.5 * math_Distance2d(pts, pts + 2);
    double* cand = n < 3 ? nullptr : static_cast<double*>(mem_malloc(static_cast<std::uint32_t>(16 * n)));
    if (cand == nullptr) return;

    // The point farthest (in x + y distance) from the mean in each quadrant,
    // counter-clockwise from the upper right, goes to the front.
    double sx = 0, sy = 0, best[4] = {0, 0, 0, 0};
    int at[4] = {0, 0, 0, 0};
    for (int i = 0; i < n; ++i) sx += pts[2 * i], sy += pts[2 * i + 1];
    for (int i = 0; i < n; ++i) {   // a NaN anywhere makes s NaN: no quadrant
        const double x = pts[2 * i], y = pts[2 * i + 1], s = std::fabs(x - sx / n) + std::fabs(y - sy / n);
        const int q = x >= sx / n ? (y >= sy / n ? 0 : 3) : (y >= sy / n ? 1 : 2);
        if (s > best[q]) best[q] = s, at[q] = i;
    }
    for (int k = 0; k < std::min(n, 4); ++k) {
        std::swap(pts[2 * k], pts[2 * at[k]]), std::swap(pts[2 * k + 1], pts[2 * at[k] + 1]);
        for (int l = k + 1; l < 4; ++l) at[l] = at[l] == k ? at[k] : at[l];
    }

    // Set aside every point inside a triangle of others or on an exactly
    // equal vertex of one.
    int* flag = static_cast<int*>(mem_malloc(static_cast<std::uint32_t>(sizeof(int) * n)));
    if (flag == nullptr) return mem_free(cand);
    std::fill(flag, flag + n, 0);
    auto same = [pts](int a, int b) { return pts[2 * a] == pts[2 * b] && pts[2 * a + 1] == pts[2 * b + 1]; };
    for (int i = 0; i < n; ++i)
        for (int j = i + 1; j < n && !flag[i]; ++j)
            for (int k = j + 1; k < n && !flag[j]; ++k)
                for (int p = 0; p < n && !flag[k]; ++p) {
                    if (p == i || p == j || p == k) continue;
                    int r = PointIsInTriangle(pts + 2 * i, pts + 2 * j, pts + 2 * k, pts + 2 * p);
                    if (r == 1 || (r == 0 && (same(p, i) || same(p, j) || same(p, k)))) flag[p] = 1;
                }
    int m = 0;
    for (int i = 0; i < n; ++i)
        if (!flag[i]) cand[2 * m] = pts[2 * i], cand[2 * m + 1] = pts[2 * i + 1], ++m;
    mem_free(flag);

    // The bounding box's circle (its squared radius is what remains written
    // if nothing better is found), then pairs, then triples.
    auto d2 = [](const double* p, const double* c) { return (p[0] - c[0]) * (p[0] - c[0]) + (p[1] - c[1]) * (p[1] - c[1]); };
    double lo[2] = {cand[0], cand[1]}, hi[2] = {cand[0], cand[1]}, v = 0;
    for (int i = 1; i < m; ++i)
        for (int a = 0; a < 2; ++a) lo[a] = std::min(lo[a], cand[2 * i + a]), hi[a] = std::max(hi[a], cand[2 * i + a]);
    centre[0] = 0.5 * (lo[0] + hi[0]), centre[1] = 0.5 * (lo[1] + hi[1]);
    double R = d2(centre, lo);
    *radius = R;
    auto holds = [cand, m, d2](const double* c, double r2, int i, int j, int k) {
        for (int q = 0; q < m; ++q)
            if (q != i && q != j && q != k && d2(cand + 2 * q, c) > r2 * (1.0 + 1e-12)) return false;
        return true;
    };
    bool taken = false;   // v: the largest pair circle that failed
    for (int i = 0; i < m; ++i)
        for (int j = i + 1; j < m; ++j) {
            double c[2] = {(cand[2 * i] + cand[2 * j]) * 0.5, (cand[2 * j + 1] + cand[2 * i + 1]) * 0.5};
            const double r2 = d2(cand + 2 * i, c);   // y and x terms in either order: the sum is the same
            if (r2 > v && !holds(c, r2, i, j, -1)) v = r2;
            else if (r2 > v && r2 < R) centre[0] = c[0], centre[1] = c[1], R = r2, taken = true;
        }
    for (int i = 0; i < m && !taken; ++i)
        for (int j = i + 1; j < m; ++j)
            for (int k = j + 1; k < m; ++k) {
                double c[2], r = TriangleCircumCircle(cand + 2 * i, cand + 2 * j, cand + 2 * k, c);
                if (v < r * r && holds(c, r * r, i, j, k) && R > r * r) centre[0] = c[0], centre[1] = c[1], R = r * r;
            }
    *radius = std::sqrt(R);
    mem_free(cand);
}

}  // namespace mecref
