// SideLocator (see side_locator.h).
//
// Margins: mu bounds how far from a ray's line an edge end may lie and still
// take part in any predicate of that ray (coincidence radius, line band,
// rounding of line crossings, growing with the magnitude of the coordinates
// times the figure's size); near-side margins add the reach of PointOnSegment
// beyond an edge's box (up to 0.002 on its range axis, stretched by the
// edge's slope) and divide by the smaller of |cos L| and |sin L|. The ray
// crossings themselves are exact sign tests, for which these margins are
// generous.
#include "clip/side_locator.h"

#include <algorithm>
#include <cmath>

namespace qel {
namespace clipwork {

namespace {

double Larger(double a, double b) { return a < b ? b : a; }

// Outside its range widened by 0.002 on the range axis both range factors of
// PointOnSegment exceed 0.002 in size with opposite signs, and the point is
// no nearer the start than that: the test gives 0.
bool MayLieOn(double x, double y, const double* c, const double* d)
{
    double v = x, a = c[0], b = d[0];
    if (!(std::fabs(c[0] - d[0]) >= kAxis)) {
        v = y;
        a = c[1];
        b = d[1];
    }
    const double lo = a < b ? a : b, hi = a < b ? b : a;
    return v >= lo - 2e-3 && v <= hi + 2e-3;
}

}  // namespace

double SideLocator::wOf(const double* p) const
{
    return (p[0] - f_.minX) * f_.sinL - (p[1] - f_.minY) * f_.cosL;
}

bool SideLocator::init(const double* xy, int points, const int* ends, int edges, const ProbeFrame& f,
                       const double* rect)
{
    xy_ = xy;
    points_ = points;
    ends_ = ends;
    edges_ = edges;
    f_ = f;
    for (int i = 0; i < 4; ++i) rect_[i] = rect[i];
    mag_ = Larger(Larger(std::fabs(f.minX), std::fabs(f.maxX)), Larger(std::fabs(f.minY), std::fabs(f.maxY)));
    for (int i = 0; i < 4; ++i) mag_ = Larger(mag_, std::fabs(rect[i]));
    const double L = f.length;
    mu_ = 1e-3 + 1e-9 * (mag_ + L) + 1e-13 * (mag_ + L + 1.0) * (L + 1.0);
    tol_ = 1e-6 + 1e-12 * mag_;
    const double lean = std::fabs(f.sinL) < std::fabs(f.cosL) ? std::fabs(f.sinL) : std::fabs(f.cosL);
    sweepable_ = lean >= 1e-4 && points >= 2 && edges > 0;
    if (!sweepable_) return true;
    nearMargin_ = 2.0 * mu_ / lean;

    if (!mark_.assign(static_cast<std::size_t>(edges), 0) || !byW_.resize(2 * static_cast<std::size_t>(edges)))
        return false;
    for (int e = 0; e < edges; ++e) {
        byW_[2 * static_cast<std::size_t>(e)] = Key{wOf(xy + 2 * ends[2 * e]), e};
        byW_[2 * static_cast<std::size_t>(e) + 1] = Key{wOf(xy + 2 * ends[2 * e + 1]), e};
    }
    std::sort(byW_.data(), byW_.data() + 2 * static_cast<std::size_t>(edges),
              [](const Key& p, const Key& q) { return p.w < q.w || (p.w == q.w && p.edge < q.edge); });

    // Edges near each side, bucketed along it. An edge's reach: how far
    // beyond its box PointOnSegment can still hold, plus the near margin.
    const double band = 1e-6 + 1e-12 * (mag_ + L);
    if (!reach_.resize(static_cast<std::size_t>(edges))) return false;
    for (int e = 0; e < edges; ++e) {
        const double* c = xy + 2 * ends[2 * e];
        const double* d = xy + 2 * ends[2 * e + 1];
        const double dx = c[0] - d[0], dy = c[1] - d[1];
        const double len = std::sqrt(dx * dx + dy * dy);
        const double run = std::fabs(dx) >= kAxis ? std::fabs(dx) : std::fabs(dy);
        reach_[static_cast<std::size_t>(e)] = (run > 0.0 ? band + (2e-3 + band) * len / run : 0.0) + nearMargin_;
    }
    for (int s = 0; s < 4; ++s) {
        Side& side = sides_[s];
        side.axis = (s % 2 == 0) ? 0 : 1;
        const double fixedAt = (s == 0) ? rect[1] : (s == 1) ? rect[2] : (s == 2) ? rect[3] : rect[0];
        const double lo = side.axis == 0 ? rect[0] : rect[1];
        const double hi = side.axis == 0 ? rect[2] : rect[3];
        // Only the piece of an edge inside the slab along the side matters:
        // a long slanted edge is near the side over a short stretch.
        auto reachOf = [&](int e, double* alo, double* ahi) {
            const double* c = xy + 2 * ends[2 * e];
            const double* d = xy + 2 * ends[2 * e + 1];
            const double reach = reach_[static_cast<std::size_t>(e)];
            const int across = 1 - side.axis, along = side.axis;
            const double slabLo = fixedAt - reach - tol_, slabHi = fixedAt + reach + tol_;
            const double ca = c[across], da = d[across];
            if ((ca < slabLo && da < slabLo) || (ca > slabHi && da > slabHi)) return false;
            double t0 = 0.0, t1 = 1.0;
            const double span = da - ca;
            if (std::fabs(span) > 1e-9 * (std::fabs(ca) + std::fabs(da) + 1.0)) {
                double u0 = (slabLo - ca) / span, u1 = (slabHi - ca) / span;
                if (u0 > u1) {
                    const double t = u0;
                    u0 = u1;
                    u1 = t;
                }
                // Widened so that rounding of the parameters cannot cut the piece short.
                u0 -= 1e-9;
                u1 += 1e-9;
                if (u0 > t0) t0 = u0;
                if (u1 < t1) t1 = u1;
                if (t0 > t1) return false;
            }
            const double b0 = c[along] + t0 * (d[along] - c[along]);
            const double b1 = c[along] + t1 * (d[along] - c[along]);
            const double pad = reach + 1e-9 * (std::fabs(c[along]) + std::fabs(d[along]) + 1.0);
            *alo = (b0 < b1 ? b0 : b1) - pad;
            *ahi = (b0 < b1 ? b1 : b0) + pad;
            return !(*ahi < lo - nearMargin_ || *alo > hi + nearMargin_);
        };
        near_.clear();
        for (int e = 0; e < edges; ++e) {
            double alo, ahi;
            if (reachOf(e, &alo, &ahi) && !near_.push(Near{alo, ahi, e})) return false;
        }
        const int count = static_cast<int>(near_.size());
        side.buckets = count < 1 ? 1 : (count > (1 << 20) ? (1 << 20) : count);
        side.base = lo - nearMargin_;
        side.width = (hi - lo + 2.0 * nearMargin_) / side.buckets;
        if (!side.start.assign(static_cast<std::size_t>(side.buckets) + 1, 0)) return false;
        auto bucketOf = [&](double a) {
            const double k = std::floor((a - side.base) / side.width);
            if (!(k > 0.0)) return 0;
            if (k >= side.buckets - 1) return side.buckets - 1;
            return static_cast<int>(k);
        };
        for (int i = 0; i < count; ++i)
            for (int b = bucketOf(near_[static_cast<std::size_t>(i)].lo); b <= bucketOf(near_[static_cast<std::size_t>(i)].hi); ++b)
                ++side.start[static_cast<std::size_t>(b) + 1];
        for (int b = 0; b < side.buckets; ++b)
            side.start[static_cast<std::size_t>(b) + 1] += side.start[static_cast<std::size_t>(b)];
        if (!side.list.resize(static_cast<std::size_t>(side.start[static_cast<std::size_t>(side.buckets)])))
            return false;
        for (int i = 0; i < count; ++i) {
            const Near& nr = near_[static_cast<std::size_t>(i)];
            for (int b = bucketOf(nr.lo); b <= bucketOf(nr.hi); ++b)
                side.list[static_cast<std::size_t>(side.start[static_cast<std::size_t>(b)]++)] = nr.edge;
        }
        for (int b = side.buckets; b > 0; --b)
            side.start[static_cast<std::size_t>(b)] = side.start[static_cast<std::size_t>(b) - 1];
        side.start[0] = 0;
    }
    return true;
}

int SideLocator::sideOf(double x, double y) const
{
    const bool inX = x >= rect_[0] - tol_ && x <= rect_[2] + tol_;
    const bool inY = y >= rect_[1] - tol_ && y <= rect_[3] + tol_;
    if (inX && std::fabs(y - rect_[1]) <= tol_) return 0;
    if (inY && std::fabs(x - rect_[2]) <= tol_) return 1;
    if (inX && std::fabs(y - rect_[3]) <= tol_) return 2;
    if (inY && std::fabs(x - rect_[0]) <= tol_) return 3;
    return -1;
}

// The whole count for one point, every edge that can take part evaluated.
void SideLocator::full(const double* s)
{
    const double u[2] = {f_.cosL, f_.sinL};
    prevOnEdge_ = false;
    prevCrossings_ = 0;
    for (int k = 0; k < edges_; ++k) {
        const double* c = xy_ + 2 * ends_[2 * k];
        const double* d = xy_ + 2 * ends_[2 * k + 1];
        if (!prevOnEdge_ && MayLieOn(s[0], s[1], c, d) && PointOnSegment(s[0], s[1], c, d)) prevOnEdge_ = true;
        const double wc = (c[0] - s[0]) * f_.sinL - (c[1] - s[1]) * f_.cosL;
        const double wd = (d[0] - s[0]) * f_.sinL - (d[1] - s[1]) * f_.cosL;
        if ((wc > mu_ && wd > mu_) || (wc < -mu_ && wd < -mu_)) continue;
        prevCrossings_ += RayCrossesEdge(s, u, c, d);
    }
}

// Edges with an end in the strip [w0, w1] or near the side piece [a0, a1].
bool SideLocator::collect(int side, double w0, double w1, double a0, double a1)
{
    ++stamp_;
    picked_.clear();
    auto pick = [&](int e) {
        if (mark_[static_cast<std::size_t>(e)] == stamp_) return true;
        mark_[static_cast<std::size_t>(e)] = stamp_;
        return picked_.push(e);
    };
    // First key with w >= w0 - mu.
    int lo = 0, hi = 2 * edges_;
    while (lo < hi) {
        const int mid = lo + (hi - lo) / 2;
        if (byW_[static_cast<std::size_t>(mid)].w < w0 - mu_)
            lo = mid + 1;
        else
            hi = mid;
    }
    for (int i = lo; i < 2 * edges_ && byW_[static_cast<std::size_t>(i)].w <= w1 + mu_; ++i)
        if (!pick(byW_[static_cast<std::size_t>(i)].edge)) return false;
    const Side& sd = sides_[side];
    auto bucketOf = [&](double a) {
        const double k = std::floor((a - sd.base) / sd.width);
        if (!(k > 0.0)) return 0;
        if (k >= sd.buckets - 1) return sd.buckets - 1;
        return static_cast<int>(k);
    };
    for (int b = bucketOf(a0 - nearMargin_); b <= bucketOf(a1 + nearMargin_); ++b)
        for (int i = sd.start[static_cast<std::size_t>(b)]; i < sd.start[static_cast<std::size_t>(b) + 1]; ++i)
            if (!pick(sd.list[static_cast<std::size_t>(i)])) return false;
    return true;
}

int SideLocator::outside(double x, double y)
{
    if (points_ < 2 || OutsideProbeBox(f_, x, y)) {
        havePrev_ = false;
        return 1;
    }
    const double s[2] = {x, y};
    const double u[2] = {f_.cosL, f_.sinL};
    const int side = sweepable_ ? sideOf(x, y) : -1;
    if (havePrev_ && side >= 0 && side == prevSide_) {
        const int ax = sides_[side].axis;
        const double a0 = prevS_[ax] < s[ax] ? prevS_[ax] : s[ax];
        const double a1 = prevS_[ax] < s[ax] ? s[ax] : prevS_[ax];
        const double wp = wOf(prevS_), wn = wOf(s);
        if (!collect(side, wp < wn ? wp : wn, wp < wn ? wn : wp, a0, a1)) return kNoMemory;
        bool onEdge = false;
        for (std::size_t i = 0; i < picked_.size(); ++i) {
            const int k = picked_[i];
            const double* c = xy_ + 2 * ends_[2 * k];
            const double* d = xy_ + 2 * ends_[2 * k + 1];
            prevCrossings_ += RayCrossesEdge(s, u, c, d) - RayCrossesEdge(prevS_, u, c, d);
            if (!onEdge && PointOnSegment(x, y, c, d)) onEdge = true;
        }
        prevOnEdge_ = onEdge;
    } else {
        full(s);
    }
    havePrev_ = side >= 0;
    prevSide_ = side;
    prevS_[0] = s[0];
    prevS_[1] = s[1];
    if (prevOnEdge_) return 0;
    return (prevCrossings_ & 1) ? 0 : 1;
}

}  // namespace clipwork
}  // namespace qel
