// A plain transcription of the enclosing-circle search, step by step and
// without any shortcut, against which the fast implementation is checked
// (and benchmarked). It calls the exported triangle functions exactly where
// the search uses them and takes the same two scratch blocks.
#ifndef QELMATH_TESTS_MEC_REFERENCE_H
#define QELMATH_TESTS_MEC_REFERENCE_H

#include <cmath>
#include <cstdint>
#include <utility>

#include "QELMath.h"

namespace mecref {

inline void reference_mec(double* pts, int n, double* centre, double* radius)
{
    if (n <= 0) return;
    if (n == 1) {
        centre[0] = pts[0];
        centre[1] = pts[1];
        *radius = 0;
        return;
    }
    if (n == 2) {
        centre[0] = (pts[0] + pts[2]) * 0.5;
        centre[1] = (pts[1] + pts[3]) * 0.5;
        *radius = 0.5 * math_Distance2d(pts, pts + 2);
        return;
    }

    double* cand = static_cast<double*>(mem_malloc(static_cast<std::uint32_t>(2 * sizeof(double) * n)));
    if (cand == nullptr) return;

    // Extreme points to the front.
    double sx = 0, sy = 0;
    for (int i = 0; i < n; ++i) {
        sx += pts[2 * i];
        sy += pts[2 * i + 1];
    }
    double cx = sx / n, cy = sy / n;
    double s1 = 0, s2 = 0, s3 = 0, s4 = 0;
    int i1 = 0, i2 = 0, i3 = 0, i4 = 0;
    for (int i = 0; i < n; ++i) {
        double x = pts[2 * i], y = pts[2 * i + 1];
        if (x >= cx && y >= cy) {
            double s = (x - cx) + (y - cy);
            if (s > s1) { s1 = s; i1 = i; }
        } else if (x < cx && y >= cy) {
            double s = (cx - x) + (y - cy);
            if (s > s2) { s2 = s; i2 = i; }
        } else if (x < cx && y < cy) {
            double s = (cx - x) + (cy - y);
            if (s > s3) { s3 = s; i3 = i; }
        } else if (x >= cx && y < cy) {
            double s = (x - cx) + (cy - y);
            if (s > s4) { s4 = s; i4 = i; }
        }
    }
    auto swap_pts = [pts](int a, int b) {
        std::swap(pts[2 * a], pts[2 * b]);
        std::swap(pts[2 * a + 1], pts[2 * b + 1]);
    };
    swap_pts(0, i1);
    if (i2 == 0) i2 = i1;
    if (i3 == 0) i3 = i1;
    if (i4 == 0) i4 = i1;
    swap_pts(1, i2);
    if (i3 == 1) i3 = i2;
    if (i4 == 1) i4 = i2;
    swap_pts(2, i3);
    if (i4 == 2) i4 = i3;
    if (n >= 4) swap_pts(3, i4);

    // The filter.
    int* flag = static_cast<int*>(mem_malloc(static_cast<std::uint32_t>(sizeof(int) * n)));
    if (flag == nullptr) {
        mem_free(cand);
        return;
    }
    for (int i = 0; i < n; ++i) flag[i] = 0;
    for (int i = 0; i < n; ++i) {
        if (flag[i]) continue;
        for (int j = i + 1; j < n; ++j) {
            if (flag[j]) continue;
            for (int k = j + 1; k < n; ++k) {
                if (flag[k]) continue;
                for (int p = 0; p < n; ++p) {
                    if (p == i || p == j || p == k) continue;
                    int r = PointIsInTriangle(pts + 2 * i, pts + 2 * j, pts + 2 * k, pts + 2 * p);
                    bool on_vertex = (pts[2 * p] == pts[2 * i] && pts[2 * p + 1] == pts[2 * i + 1]) ||
                                     (pts[2 * p] == pts[2 * j] && pts[2 * p + 1] == pts[2 * j + 1]) ||
                                     (pts[2 * p] == pts[2 * k] && pts[2 * p + 1] == pts[2 * k + 1]);
                    if (r == 1 || (r == 0 && on_vertex)) flag[p] = 1;
                }
            }
        }
    }
    int m = 0;
    for (int i = 0; i < n; ++i) {
        if (flag[i]) continue;
        cand[2 * m] = pts[2 * i];
        cand[2 * m + 1] = pts[2 * i + 1];
        ++m;
    }
    mem_free(flag);

    // The bounding box.
    double xmin = cand[0], xmax = cand[0], ymin = cand[1], ymax = cand[1];
    for (int i = 1; i < m; ++i) {
        if (cand[2 * i] < xmin) xmin = cand[2 * i];
        if (cand[2 * i] > xmax) xmax = cand[2 * i];
        if (cand[2 * i + 1] < ymin) ymin = cand[2 * i + 1];
        if (cand[2 * i + 1] > ymax) ymax = cand[2 * i + 1];
    }
    centre[0] = 0.5 * (xmin + xmax);
    centre[1] = 0.5 * (ymin + ymax);
    double R = (centre[0] - xmin) * (centre[0] - xmin) + (centre[1] - ymin) * (centre[1] - ymin);
    *radius = R;

    const double slack = 1.0 + 1e-12;
    // Pairs.
    double v = 0;
    bool taken = false;
    for (int i = 0; i < m; ++i) {
        for (int j = i + 1; j < m; ++j) {
            double c[2] = {(cand[2 * i] + cand[2 * j]) * 0.5, (cand[2 * j + 1] + cand[2 * i + 1]) * 0.5};
            double r2 = (cand[2 * i + 1] - c[1]) * (cand[2 * i + 1] - c[1]) +
                        (cand[2 * i] - c[0]) * (cand[2 * i] - c[0]);
            if (r2 <= v) continue;
            bool inside = true;
            for (int k = 0; k < m; ++k) {
                if (k == i || k == j) continue;
                double dx = cand[2 * k] - c[0], dy = cand[2 * k + 1] - c[1];
                if (dx * dx + dy * dy > r2 * slack) {
                    inside = false;
                    break;
                }
            }
            if (!inside) {
                v = r2;
                continue;
            }
            if (r2 < R) {
                centre[0] = c[0];
                centre[1] = c[1];
                R = r2;
                taken = true;
            }
        }
    }
    if (taken) {
        *radius = std::sqrt(R);
        mem_free(cand);
        return;
    }
    // Triples.
    for (int i = 0; i < m; ++i) {
        for (int j = i + 1; j < m; ++j) {
            for (int k = j + 1; k < m; ++k) {
                double c[2];
                double r = TriangleCircumCircle(cand + 2 * i, cand + 2 * j, cand + 2 * k, c);
                double r2 = r * r;
                if (!(v < r2)) continue;
                bool inside = true;
                for (int q = 0; q < m; ++q) {
                    if (q == i || q == j || q == k) continue;
                    double dx = cand[2 * q] - c[0], dy = cand[2 * q + 1] - c[1];
                    if (dx * dx + dy * dy > r2 * slack) {
                        inside = false;
                        break;
                    }
                }
                if (inside && R > r2) {
                    centre[0] = c[0];
                    centre[1] = c[1];
                    R = r2;
                }
            }
        }
    }
    *radius = std::sqrt(R);
    mem_free(cand);
}

}  // namespace mecref

#endif
