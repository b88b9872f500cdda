// MinimumRadiusCircleFromPoints: the smallest circle around n plane points.
//
// The result is defined by an exhaustive search: four extreme points are
// swapped to the front; every point inside a triangle of still unflagged
// points, or exactly on one of its vertices, is flagged, triangles taken in
// lexicographic order of their indices; the bounding box of the rest (the
// candidates) gives a first circle; every pair of candidates, in order,
// is tried as a diameter; only when no pair circle encloses all, every
// triple is tried through its circumcircle. A candidate lies outside a circle
// when its squared distance exceeds r^2 (1 + 1e-12): without that slack four
// or more points on the optimal circle, none diametrically opposite, make
// every triple fail by a rounding. The later of two equal circles never
// replaces the earlier.
//
// This file reaches exactly that result, bit for bit, with far less work:
//  - Filter. Only points that some triangle can still flag are tested. A
//    point p is safe when the directions from p to all other unflagged
//    points, leaving out those within the tolerance of p (a triangle on such
//    a vertex gives 0), lie in a cone of less than pi - 1e-9 (up to 2e-13
//    rad) and none is exactly p: seen from p, the vertices of any later
//    triangle then lie in one half-turn, no angle difference wraps and the
//    angle sum stays near 0. The cone of a vertex of the hull of the
//    unflagged points is spanned by its hull neighbours; other points grow
//    theirs over all directions. The check uses relative error bounds of the
//    floating cross products; a point that fails it is simply tested. Both
//    proofs are repeated over the shrinking unflagged set whenever the
//    triangles tested since have cost a few times as much (a duplicate of a
//    vertex, once flagged, no longer spoils it). Once no testable point is
//    left the remaining triangles cannot change anything and the filter
//    stops.
//  - Point in triangle. After the exact box and vertex tests, three cross
//    products whose angles are provably at least 1e-9 away from 0 and pi
//    decide inside/outside exactly as the angle sum would; only the
//    remaining cases evaluate the arc tangents.
//  - Searches. Whether a circle encloses the others does not depend on the
//    order in which they are tested, so the last point found outside is
//    tested first. A triple is only tested when it could change the result:
//    v < r^2 < R. Its circumcircle is screened four third points at a time
//    with AVX2 where the CPU has it (the same operations, no FMA: the same
//    bits); only the points that pass go through the scalar step.
// Points on one circle remain the hard case: nothing is filtered and the
// triple search evaluates every circumcircle, since the winner among
// rounding-level ties is only known after all of them.
//
// Scratch: 2n doubles (the candidates; work space of the filter before
// that), then n 32-bit flags, released before the candidate block. When a
// request fails nothing is written (the array may already be reordered) and
// what was taken is given back.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "QELMath.h"
#include "foundation/cpu.h"
#include "foundation/elementary.h"
#include "foundation/scratch.h"
#include "foundation/tolerance.h"
#include "geometry/triangle_core.h"

// The triple search has an AVX2 variant (no FMA: the same bits). Not on
// Windows, where GCC cannot align the stack for 32-byte spills.
#if (defined(__x86_64__) || defined(__i386__)) && !defined(_WIN32) && \
    (defined(__GNUC__) || defined(__clang__))
#define QEL_MEC_AVX2 1
#include <immintrin.h>
#else
#define QEL_MEC_AVX2 0
#endif

namespace {

// Squared distances above r^2 times this are outside.
constexpr double kSlack = 1.0 + 1e-12;

// Flag states. A point proven safe is never flagged.
constexpr std::int32_t kOpen = 0;
constexpr std::int32_t kFlagged = 1;
constexpr std::int32_t kSafe = 2;

// Error-bounded cross products are only trusted between these magnitudes of
// their bound |a|_1 |b|_1: no overflow, and underflow below any margin used.
constexpr double kBoundLow = 0x1p-900;
constexpr double kBoundHigh = 0x1p1000;
// Coordinates beyond this are left to the plain tests.
constexpr double kCoordLimit = 0x1p500;

inline double cross(double ax, double ay, double bx, double by) { return ax * by - ay * bx; }
inline double norm1(double x, double y) { return std::fabs(x) + std::fabs(y); }
inline bool bound_usable(double b) { return b >= kBoundLow && b <= kBoundHigh; }

inline double X(const double* pts, int i) { return pts[2 * static_cast<std::size_t>(i)]; }
inline double Y(const double* pts, int i) { return pts[2 * static_cast<std::size_t>(i) + 1]; }
inline const double* P(const double* pts, int i) { return pts + 2 * static_cast<std::size_t>(i); }

void swap_points(double* pts, int a, int b)
{
    std::swap(pts[2 * static_cast<std::size_t>(a)], pts[2 * static_cast<std::size_t>(b)]);
    std::swap(pts[2 * static_cast<std::size_t>(a) + 1], pts[2 * static_cast<std::size_t>(b) + 1]);
}

// The point of greatest score in each quadrant about the centroid to
// positions 0..3; indices still pointing at a vacated slot follow the swap.
void extremes_to_front(double* pts, int n)
{
    double sx = 0, sy = 0;
    for (int i = 0; i < n; ++i) {
        sx += X(pts, i);
        sy += Y(pts, i);
    }
    double cx = sx / n, cy = sy / n;

    double best[4] = {0, 0, 0, 0};
    int idx[4] = {0, 0, 0, 0};
    for (int i = 0; i < n; ++i) {
        double x = X(pts, i), y = Y(pts, i);
        int q;
        double score;
        if (x >= cx && y >= cy) {
            q = 0;
            score = (x - cx) + (y - cy);
        } else if (x < cx && y >= cy) {
            q = 1;
            score = (cx - x) + (y - cy);
        } else if (x < cx && y < cy) {
            q = 2;
            score = (cx - x) + (cy - y);
        } else if (x >= cx && y < cy) {
            q = 3;
            score = (x - cx) + (cy - y);
        } else {
            continue;
        }
        if (score > best[q]) {
            best[q] = score;
            idx[q] = i;
        }
    }

    swap_points(pts, 0, idx[0]);
    for (int q = 1; q < 4; ++q)
        if (idx[q] == 0) idx[q] = idx[0];
    swap_points(pts, 1, idx[1]);
    for (int q = 2; q < 4; ++q)
        if (idx[q] == 1) idx[q] = idx[1];
    swap_points(pts, 2, idx[2]);
    if (idx[3] == 2) idx[3] = idx[2];
    if (n >= 4) swap_points(pts, 3, idx[3]);
}

// --- Filter ---------------------------------------------------------------

// Whether x, seen from p as u = x - p, is within the double tolerance of p
// exactly as the vertex test of the point-in-triangle test decides it. A
// triangle with such a vertex never flags p unless p is exactly on a vertex.
inline bool near_vertex(double ux, double uy, double tol)
{
    double d2 = ux * ux + uy * uy;
    return !(d2 > tol) && !(d2 < -tol);
}

// Whether no triangle of other unflagged points can ever flag p, given two
// points q and r whose directions from p bound a cone that should hold every
// other unflagged point (see the file comment for the bounds). Flagged points
// never again make a triangle, and points within the tolerance of p only
// make triangles that give 0, so neither counts; an exact duplicate of p
// spoils it.
//
// The cone runs counter-clockwise from a to b, opening theta < pi. The two
// cross products, each allowed -1e-13 |.|_1 |.|_1 for rounding, accept u at
// an angle phi from a with sin(phi) >= -d and sin(theta - phi) >= -d
// (d <= 2e-13 after the norms' ratio): phi in [-d, theta + d], the cone and
// its rim, but also phi in [theta + pi - d, pi + d], the rim of the opposite
// cone, which is not empty once theta <= 2d. Such a cone is what a point sees
// whose neighbours lie almost straight behind one another, as on a line
// through p at coordinates far beyond the distances across it (points at
// 2^76 and 2^76 - 2^23 beside one at 2^28): p then lies between them, on the
// edge of a later triangle, and must be tested. The dot products tell the two
// apart: in the cone max(cos(phi), cos(theta - phi)) >= cos(theta / 2)
// >= sin(5e-10), a million times the dot's rounding of 2^-52 |.|_1 |.|_1, so no
// point of the cone is refused; on the opposite rim both cosines are below
// -cos(3d) and both dots are negative.
bool cone_is_safe(const double* pts, int n, const std::int32_t* flag, double tol, int p, int q,
                  int r)
{
    double px = X(pts, p), py = Y(pts, p);
    double ax = X(pts, q) - px, ay = Y(pts, q) - py;
    double bx = X(pts, r) - px, by = Y(pts, r) - py;
    double apex = cross(ax, ay, bx, by);
    if (apex < 0) {
        std::swap(ax, bx);
        std::swap(ay, by);
        apex = -apex;
    }
    double na = norm1(ax, ay), nb = norm1(bx, by);
    double b0 = na * nb;
    // Open by at least 1e-9 less than a half-turn, or narrower than a
    // quarter-turn, where a small apex is no doubt.
    if (!bound_usable(b0)) return false;
    if (!(apex >= 1e-9 * b0) && !(ax * bx + ay * by >= 0.1 * b0)) return false;

    for (int x = 0; x < n; ++x) {
        if (x == p || flag[x] == kFlagged) continue;
        double ux = X(pts, x) - px, uy = Y(pts, x) - py;
        if (ux == 0 && uy == 0) return false;
        if (near_vertex(ux, uy, tol)) continue;
        double nu = norm1(ux, uy);
        double b1 = na * nu, b2 = nu * nb;
        if (!bound_usable(b1) || !bound_usable(b2)) return false;
        if (!(cross(ax, ay, ux, uy) >= -1e-13 * b1)) return false;
        if (!(cross(ux, uy, bx, by) >= -1e-13 * b2)) return false;
        if (!(ax * ux + ay * uy > 0) && !(ux * bx + uy * by > 0)) return false;
    }
    return true;
}

// The same for a point that is no hull vertex: the cone is grown over the
// directions to the other unflagged points, then checked as above. With
// fewer than three points beyond the tolerance every triangle has a vertex
// within it, and p is safe as long as nothing duplicates it exactly.
bool point_is_safe(const double* pts, int n, const std::int32_t* flag, double tol, int p)
{
    double px = X(pts, p), py = Y(pts, p);
    double ax = 0, ay = 0, bx = 0, by = 0;
    int q = -1, r = -1, far = 0;
    for (int x = 0; x < n; ++x) {
        if (x == p || flag[x] == kFlagged) continue;
        double ux = X(pts, x) - px, uy = Y(pts, x) - py;
        if (ux == 0 && uy == 0) return false;
        if (near_vertex(ux, uy, tol)) continue;
        ++far;
        if (q < 0) {
            ax = bx = ux;
            ay = by = uy;
            q = r = x;
            continue;
        }
        double ca = cross(ax, ay, ux, uy), cb = cross(ux, uy, bx, by);
        if (ca >= 0 && cb >= 0) continue;
        if (ca < 0) {
            if (!(cross(ux, uy, bx, by) > 0)) return false;
            ax = ux;
            ay = uy;
            q = x;
        } else {
            if (!(cross(ax, ay, ux, uy) > 0)) return false;
            bx = ux;
            by = uy;
            r = x;
        }
    }
    if (far < 3) return true;
    return q != r && cone_is_safe(pts, n, flag, tol, p, q, r);
}

// Monotone chain over the indices sorted in order[0..n); the chain (at most n
// indices) goes to chain[]. lower: left to right below, else right to left
// above. Returns its length.
int hull_chain(const double* pts, int n, const double* order, double* chain, bool lower)
{
    int k = 0;
    for (int s = 0; s < n; ++s) {
        int i = static_cast<int>(order[lower ? s : n - 1 - s]);
        while (k >= 2) {
            int a = static_cast<int>(chain[k - 2]), b = static_cast<int>(chain[k - 1]);
            double t = cross(X(pts, b) - X(pts, a), Y(pts, b) - Y(pts, a),
                             X(pts, i) - X(pts, a), Y(pts, i) - Y(pts, a));
            if (t > 0) break;
            --k;
        }
        chain[k++] = i;
    }
    return k;
}

// Marks the vertices of the hull of the unflagged points that can never be
// flagged as kSafe. work holds 2n doubles. Returns a measure of the work
// done, in point visits.
double mark_safe_hull_vertices(const double* pts, int n, double tol, double* work,
                               std::int32_t* flag)
{
    double* order = work;
    int u = 0;
    for (int i = 0; i < n; ++i) {
        if (flag[i] == kFlagged) continue;
        double x = X(pts, i), y = Y(pts, i);
        if (!(std::fabs(x) <= kCoordLimit) || !(std::fabs(y) <= kCoordLimit)) return n;
        order[u++] = i;
    }
    double* chain = work + u;
    std::sort(order, order + u, [pts](double a, double b) {
        int i = static_cast<int>(a), j = static_cast<int>(b);
        if (X(pts, i) != X(pts, j)) return X(pts, i) < X(pts, j);
        if (Y(pts, i) != Y(pts, j)) return Y(pts, i) < Y(pts, j);
        return i < j;
    });
    double visits = 4.0 * u + 1;
    auto certify = [&](int p, int q, int r) {
        visits += n;
        if (flag[p] == kOpen && cone_is_safe(pts, n, flag, tol, p, q, r)) flag[p] = kSafe;
    };

    int len = hull_chain(pts, u, order, chain, true);
    if (len < 2) return visits;
    int left_next = static_cast<int>(chain[1]);
    int right_prev = static_cast<int>(chain[len - 2]);
    for (int t = 1; t + 1 < len; ++t)
        certify(static_cast<int>(chain[t]), static_cast<int>(chain[t - 1]),
                static_cast<int>(chain[t + 1]));
    len = hull_chain(pts, u, order, chain, false);
    if (len < 2) return visits;
    for (int t = 1; t + 1 < len; ++t)
        certify(static_cast<int>(chain[t]), static_cast<int>(chain[t - 1]),
                static_cast<int>(chain[t + 1]));
    certify(static_cast<int>(order[u - 1]), right_prev, static_cast<int>(chain[1]));
    certify(static_cast<int>(order[0]), static_cast<int>(chain[len - 2]), left_next);
    return visits;
}

struct Triangle {
    const double* v[3];
    double xmin, xmax, ymin, ymax;
};

// Whether the filter flags p for triangle t: PointIsInTriangle gives 1, or 0
// with p exactly on a vertex. Same decisions as qel::point_in_triangle; the
// arc tangents are only evaluated when the cross products cannot decide.
bool flags_point(const Triangle& t, const double* p, double tol)
{
    double px = p[0], py = p[1];
    if (px < t.xmin || px > t.xmax || py < t.ymin || py > t.ymax) return false;

    double u[3][2];
    for (int s = 0; s < 3; ++s) {
        u[s][0] = t.v[s][0] - px;
        u[s][1] = t.v[s][1] - py;
    }
    for (int s = 0; s < 3; ++s) {
        double d2 = u[s][0] * u[s][0] + u[s][1] * u[s][1];
        if (!(d2 > tol) && !(d2 < -tol)) {
            // At a vertex by the tolerance: flagged only on exact equality.
            for (int e = 0; e < 3; ++e)
                if (t.v[e][0] == px && t.v[e][1] == py) return true;
            return false;
        }
    }

    int sign = 0;
    bool decided = true;
    for (int s = 0; s < 3 && decided; ++s) {
        const double* a = u[s];
        const double* b = u[(s + 1) % 3];
        double o = cross(a[0], a[1], b[0], b[1]);
        double bound = norm1(a[0], a[1]) * norm1(b[0], b[1]);
        if (!bound_usable(bound) || !(std::fabs(o) >= 1e-9 * bound)) {
            decided = false;
            break;
        }
        int so = o > 0 ? 1 : -1;
        if (s == 0) sign = so;
        else if (so != sign) sign = 0;
    }
    if (decided) return sign != 0;

    double a1 = qel::atan2(u[0][1], u[0][0]);
    double a2 = qel::atan2(u[1][1], u[1][0]);
    double a3 = qel::atan2(u[2][1], u[2][0]);
    double sum = qel::wrap_turn(a1 - a2) + qel::wrap_turn(a2 - a3) + qel::wrap_turn(a3 - a1);
    return std::fabs(sum) > 1.0;
}

// The points a triangle can still flag, into open[]; returns their number.
int collect_open(const std::int32_t* flag, int n, double* open)
{
    int count = 0;
    for (int p = 0; p < n; ++p)
        if (flag[p] == kOpen) open[count++] = p;
    return count;
}

// The filter, on flag[] (all kOpen on entry); work holds 2n doubles.
//
// Safety is proven again over the unflagged points once the triangles tested
// since have cost a few times as much as the proof did: a vertex that had an
// exact duplicate, or a point that was inside the hull of points flagged
// since, may have become safe. The hull vertices are checked first and
// cheaply; the remaining testable points one by one, at n visits each.
void filter(const double* pts, int n, double* work, std::int32_t* flag)
{
    double tol = qel::real_tolerance();
    double hull_cost = mark_safe_hull_vertices(pts, n, tol, work, flag);
    double* open = work;
    int open_count = collect_open(flag, n, open);
    if (open_count == 0) return;

    double spent_hull = 0, spent_open = 0;
    bool hull_stale = false, open_stale = true;
    for (int i = 0; i < n; ++i) {
        if (flag[i] == kFlagged) continue;
        for (int j = i + 1; j < n; ++j) {
            if (flag[j] == kFlagged) continue;
            for (int k = j + 1; k < n; ++k) {
                if (flag[k] == kFlagged) continue;
                Triangle t;
                t.v[0] = P(pts, i);
                t.v[1] = P(pts, j);
                t.v[2] = P(pts, k);
                t.xmin = t.xmax = t.v[0][0];
                t.ymin = t.ymax = t.v[0][1];
                for (int s = 1; s < 3; ++s) {
                    if (t.v[s][0] < t.xmin) t.xmin = t.v[s][0];
                    if (t.v[s][0] > t.xmax) t.xmax = t.v[s][0];
                    if (t.v[s][1] < t.ymin) t.ymin = t.v[s][1];
                    if (t.v[s][1] > t.ymax) t.ymax = t.v[s][1];
                }
                spent_hull += open_count + 4;
                spent_open += open_count + 4;
                int kept = 0;
                for (int s = 0; s < open_count; ++s) {
                    int p = static_cast<int>(open[s]);
                    if (p != i && p != j && p != k && flags_point(t, P(pts, p), tol)) {
                        flag[p] = kFlagged;
                        hull_stale = open_stale = true;
                        continue;
                    }
                    open[kept++] = p;
                }
                open_count = kept;
                if (hull_stale && spent_hull > 4 * hull_cost) {
                    hull_cost = mark_safe_hull_vertices(pts, n, tol, work, flag);
                    open_count = collect_open(flag, n, open);
                    spent_hull = 0;
                    hull_stale = false;
                }
                if (open_stale && spent_open > 4.0 * open_count * n) {
                    for (int s = 0; s < open_count; ++s) {
                        int p = static_cast<int>(open[s]);
                        if (point_is_safe(pts, n, flag, tol, p)) flag[p] = kSafe;
                    }
                    open_count = collect_open(flag, n, open);
                    spent_open = 0;
                    open_stale = false;
                }
                if (open_count == 0) return;
            }
        }
    }
}

// --- Searches ---------------------------------------------------------------

// Whether every candidate but the excluded ones lies within r^2 (1 + 1e-12)
// of c. last_out remembers the last point found outside, which is likely to
// be outside the next circle too.
bool encloses(const double* cand, int m, double cx, double cy, double r2, int ex1, int ex2,
              int ex3, int* last_out)
{
    double limit = r2 * kSlack;
    int first = *last_out;
    if (first != ex1 && first != ex2 && first != ex3) {
        double dx = X(cand, first) - cx, dy = Y(cand, first) - cy;
        if (dx * dx + dy * dy > limit) return false;
    }
    for (int k = 0; k < m; ++k) {
        if (k == ex1 || k == ex2 || k == ex3) continue;
        double dx = X(cand, k) - cx, dy = Y(cand, k) - cy;
        if (dx * dx + dy * dy > limit) {
            *last_out = k;
            return false;
        }
    }
    return true;
}

// The search over all triples. The terms of TriangleCircumCircle that do not
// involve P3 are computed once per pair; the rest, per third point, is
// exactly its sequence of operations.
struct TripleSearch {
    const double* c;
    int m;
    double tol, v, R, best_x, best_y;
    int last_out;

    // Per pair (i, j).
    const double* p1 = nullptr;
    const double* p2 = nullptr;
    double d12x = 0, d12y = 0, s1 = 0, k12 = 0;

    void set_pair(int i, int j)
    {
        p1 = P(c, i);
        p2 = P(c, j);
        d12x = p1[0] - p2[0];
        d12y = p1[1] - p2[1];
        s1 = p1[0] * p1[0] + p1[1] * p1[1];
        k12 = 0.5 * ((s1 - p2[0] * p2[0]) - p2[1] * p2[1]);
    }

    void step(int i, int j, int k)
    {
        const double* p3 = P(c, k);
        double d13x = p1[0] - p3[0], d13y = p1[1] - p3[1];
        double k13 = 0.5 * ((s1 - p3[0] * p3[0]) - p3[1] * p3[1]);
        double det = d12y * d13x - d12x * d13y;
        double cc[2], r;
        if (det > tol || det < -tol) {
            cc[0] = (d12y * k13 - d13y * k12) / det;
            cc[1] = (k13 * d12x - k12 * d13x) / (d12x * d13y - d12y * d13x);
            double dx = cc[0] - p1[0], dy = cc[1] - p1[1];
            r = std::sqrt(dx * dx + dy * dy);
        } else {
            r = qel::circumcircle(p1, p2, p3, cc);
        }
        double r2 = r * r;
        if (!(v < r2) || !(R > r2)) return;
        if (!encloses(c, m, cc[0], cc[1], r2, i, j, k, &last_out)) return;
        best_x = cc[0];
        best_y = cc[1];
        R = r2;
    }

#if QEL_MEC_AVX2
    // Four third points k..k+3 at once, the same operations lane by lane:
    // returns a bit per point (bit b for k + b) that may change the search
    // (v < r^2 < R, or a degenerate triangle), to be run through step().
    __attribute__((target("avx2"))) unsigned screen4(int k) const
    {
        __m256d a = _mm256_loadu_pd(c + 2 * static_cast<std::size_t>(k));
        __m256d b = _mm256_loadu_pd(c + 2 * static_cast<std::size_t>(k) + 4);
        // Lanes in the order k, k+2, k+1, k+3.
        __m256d x3 = _mm256_unpacklo_pd(a, b);
        __m256d y3 = _mm256_unpackhi_pd(a, b);
        __m256d p1x = _mm256_set1_pd(p1[0]), p1y = _mm256_set1_pd(p1[1]);
        __m256d vd12x = _mm256_set1_pd(d12x), vd12y = _mm256_set1_pd(d12y);
        __m256d vk12 = _mm256_set1_pd(k12), vs1 = _mm256_set1_pd(s1);
        __m256d d13x = _mm256_sub_pd(p1x, x3), d13y = _mm256_sub_pd(p1y, y3);
        __m256d k13 = _mm256_mul_pd(
            _mm256_set1_pd(0.5),
            _mm256_sub_pd(_mm256_sub_pd(vs1, _mm256_mul_pd(x3, x3)), _mm256_mul_pd(y3, y3)));
        __m256d det = _mm256_sub_pd(_mm256_mul_pd(vd12y, d13x), _mm256_mul_pd(vd12x, d13y));
        __m256d cx = _mm256_div_pd(
            _mm256_sub_pd(_mm256_mul_pd(vd12y, k13), _mm256_mul_pd(d13y, vk12)), det);
        __m256d cy = _mm256_div_pd(
            _mm256_sub_pd(_mm256_mul_pd(k13, vd12x), _mm256_mul_pd(vk12, d13x)),
            _mm256_sub_pd(_mm256_mul_pd(vd12x, d13y), _mm256_mul_pd(vd12y, d13x)));
        __m256d dx = _mm256_sub_pd(cx, p1x), dy = _mm256_sub_pd(cy, p1y);
        __m256d r = _mm256_sqrt_pd(_mm256_add_pd(_mm256_mul_pd(dx, dx), _mm256_mul_pd(dy, dy)));
        __m256d r2 = _mm256_mul_pd(r, r);
        __m256d vtol = _mm256_set1_pd(tol);
        __m256d regular = _mm256_or_pd(_mm256_cmp_pd(det, vtol, _CMP_GT_OQ),
                                       _mm256_cmp_pd(det, _mm256_sub_pd(_mm256_setzero_pd(), vtol),
                                                     _CMP_LT_OQ));
        __m256d useful = _mm256_and_pd(_mm256_cmp_pd(_mm256_set1_pd(v), r2, _CMP_LT_OQ),
                                       _mm256_cmp_pd(_mm256_set1_pd(R), r2, _CMP_GT_OQ));
        __m256d run = _mm256_or_pd(_mm256_andnot_pd(regular, _mm256_castsi256_pd(
                                                                 _mm256_set1_epi64x(-1))),
                                   useful);
        unsigned lanes = static_cast<unsigned>(_mm256_movemask_pd(run));
        // Lane bits 0..3 stand for k, k+2, k+1, k+3.
        return (lanes & 1u) | ((lanes & 2u) << 1) | ((lanes & 4u) >> 1) | (lanes & 8u);
    }

    __attribute__((target("avx2"))) void run_avx2()
    {
        for (int i = 0; i < m; ++i) {
            for (int j = i + 1; j < m; ++j) {
                set_pair(i, j);
                int k = j + 1;
                for (; k + 4 <= m; k += 4) {
                    unsigned bits = screen4(k);
                    for (int b = 0; b < 4; ++b)
                        if (bits & (1u << b)) step(i, j, k + b);
                }
                for (; k < m; ++k) step(i, j, k);
            }
        }
    }
#endif

    void run()
    {
#if QEL_MEC_AVX2
        if (qel::simd_level() >= qel::SimdLevel::kAvx2) {
            run_avx2();
            return;
        }
#endif
        for (int i = 0; i < m; ++i) {
            for (int j = i + 1; j < m; ++j) {
                set_pair(i, j);
                for (int k = j + 1; k < m; ++k) step(i, j, k);
            }
        }
    }
};

}  // namespace

QELMATH_API void MinimumRadiusCircleFromPoints(double* pts, int n, double* centre, double* radius)
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

    std::size_t count = static_cast<std::size_t>(n);
    qel::ScratchBlock<double> cand(2 * count);
    if (cand.failed()) return;
    extremes_to_front(pts, n);

    int m = 0;
    {
        qel::ScratchBlock<std::int32_t> flag(count);
        if (flag.failed()) return;
        for (int i = 0; i < n; ++i) flag[i] = kOpen;
        filter(pts, n, cand.get(), flag.get());
        for (int i = 0; i < n; ++i) {
            if (flag[i] == kFlagged) continue;
            cand[2 * static_cast<std::size_t>(m)] = X(pts, i);
            cand[2 * static_cast<std::size_t>(m) + 1] = Y(pts, i);
            ++m;
        }
    }
    const double* c = cand.get();

    // The bounding box's circle.
    double xmin = X(c, 0), xmax = xmin, ymin = Y(c, 0), ymax = ymin;
    for (int i = 1; i < m; ++i) {
        double x = X(c, i), y = Y(c, i);
        if (x < xmin) xmin = x;
        if (x > xmax) xmax = x;
        if (y < ymin) ymin = y;
        if (y > ymax) ymax = y;
    }
    double bx = 0.5 * (xmin + xmax), by = 0.5 * (ymin + ymax);
    double best_x = bx, best_y = by;
    double R = (bx - xmin) * (bx - xmin) + (by - ymin) * (by - ymin);

    // Pairs as diameters. v is the largest r^2 of a pair circle that
    // failed, a lower bound below which no circle can enclose all.
    double v = 0;
    bool pair_taken = false;
    int last_out = 0;
    for (int i = 0; i < m; ++i) {
        double xi = X(c, i), yi = Y(c, i);
        for (int j = i + 1; j < m; ++j) {
            double xj = X(c, j), yj = Y(c, j);
            double cx = (xi + xj) * 0.5, cy = (yj + yi) * 0.5;
            double r2 = (yi - cy) * (yi - cy) + (xi - cx) * (xi - cx);
            if (r2 <= v) continue;
            if (!encloses(c, m, cx, cy, r2, i, j, -1, &last_out)) {
                v = r2;
                continue;
            }
            if (r2 < R) {
                best_x = cx;
                best_y = cy;
                R = r2;
                pair_taken = true;
            }
        }
    }

    // Circumcircles, only when no pair circle encloses all.
    if (!pair_taken) {
        TripleSearch t{c, m, qel::real_tolerance(), v, R, best_x, best_y, last_out};
        t.run();
        R = t.R;
        best_x = t.best_x;
        best_y = t.best_y;
    }

    centre[0] = best_x;
    centre[1] = best_y;
    *radius = std::sqrt(R);
}
