// The clipper on any rectangle and polygons of up to 64 integer points:
// small coordinates put vertices on sides and corners and edges along them,
// coordinates at the ends of the int range test the arithmetic's reach. The
// fast clipper must return the plain procedure's bits, contours of at least
// three points inside the rectangle, every block back, and under a failing
// allocator -1 with the outputs untouched, or the same result; a simple
// polygon's result must agree with the exact intersection.
#include <climits>

#include "QELMath.h"
#include "clip/clip_predicates.h"
#include "clip/plain_clip.h"
#include "fuzz_input.h"
#ifdef QEL_FUZZ_ORACLE
#include "clip/exact_oracle.h"
#endif

using fuzzin::Check;

namespace {

int Coordinate(FuzzedDataProvider& in, int kind)
{
    if (kind == 0) return in.ConsumeIntegralInRange(-3, 13);
    if (kind == 2) return in.ConsumeIntegral<int>();
    const int off = in.ConsumeIntegralInRange(0, 255);
    return in.ConsumeBool() ? INT_MIN + off : INT_MAX - off;
}

struct Result {
    int k = 0;
    std::vector<int> pts, counts;
    bool operator==(const Result& o) const { return k == o.k && pts == o.pts && counts == o.counts; }
};

// Clips and copies the result out, freeing the blocks; with no result the
// outputs must keep what they held.
template <class Clip>
Result Run(Clip clip, const int* r, std::vector<int> poly)
{
    static int untouched[2];
    int *pts = untouched, *counts = untouched + 1;
    Result out;
    out.k = clip(r[0], r[1], r[2], r[3], poly.data(), static_cast<int>(poly.size() / 2), &pts, &counts);
    if (out.k <= 0) {
        Check(pts == untouched && counts == untouched + 1, "an output written without a result");
        return out;
    }
    out.counts.assign(counts, counts + out.k);
    std::size_t total = 0;
    for (int c : out.counts) total += static_cast<std::size_t>(c);
    out.pts.assign(pts, pts + 2 * total);
    mem_free(pts);
    mem_free(counts);
    return out;
}

// A rectangle corner's crossings with the polygon's outline along several
// probe directions. The parity of the count must not depend on the direction
// for a point off the outline; the small integer directions put edge ends
// exactly on the probe line (the clipper's own direction, an irrational
// angle, almost never does), which is where the half-open rule for an end on
// the line is the whole difference between a right and a wrong parity.
void CheckProbeParity(const int* rect, const std::vector<int>& poly)
{
    static const double directions[][2] = {{0.5403023058681398, 0.8414709848078965}, {1, 0}, {0, 1}, {-1, 0},
                                           {1, 1}, {-1, 2}, {2, -1}, {-3, -1}};
    const std::size_t n = poly.size() / 2;
    for (int corner = 0; corner < 4 && n >= 2; ++corner) {
        const double s[2] = {double(rect[corner & 1 ? 2 : 0]), double(rect[corner & 2 ? 3 : 1])};
        bool onOutline = false;
        int parity[8] = {};
        for (std::size_t i = 0; i < n; ++i) {
            const double c[2] = {double(poly[2 * i]), double(poly[2 * i + 1])};
            const double d[2] = {double(poly[2 * ((i + 1) % n)]), double(poly[2 * ((i + 1) % n) + 1])};
            const double cs[2] = {c[0] - s[0], c[1] - s[1]}, ds[2] = {d[0] - s[0], d[1] - s[1]};
            onOutline = onOutline || (qel::CrossSign(cs[0], cs[1], ds[0], ds[1]) == 0 && cs[0] * ds[0] <= 0 && cs[1] * ds[1] <= 0);
            for (int k = 0; k < 8; ++k) parity[k] ^= qel::RayCrossesEdge(s, directions[k], c, d);
        }
        for (int k = 1; k < 8 && !onOutline; ++k) Check(parity[k] == parity[0], "the probe's parity depends on its direction");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider in(data, size);
    const int kind = in.ConsumeIntegralInRange(0, 3);   // 3: each coordinate its own kind
    const std::size_t failAt = in.ConsumeIntegralInRange(0, 12);
    auto coordinate = [&] { return Coordinate(in, kind == 3 ? in.ConsumeIntegralInRange(0, 2) : kind); };
    int rect[4];
    for (int& c : rect) c = coordinate();
    std::vector<int> poly;
    while (poly.size() < 128 && in.remaining_bytes() > 0) poly.push_back(coordinate());
    poly.resize(poly.size() & ~std::size_t{1});

    Result fast, plain, failed;
    const std::size_t requests = fuzzin::Counted([&] { fast = Run(ClipPolygonWithRect, rect, poly); });
    fuzzin::Counted([&] { plain = Run(plainclip::ClipPolygonWithRect, rect, poly); });
    Check(fast == plain, "fast and plain clippers differ");
    for (std::size_t c = 0, at = 0; c < fast.counts.size(); ++c) {
        Check(fast.counts[c] >= 3, "a contour of fewer than three points");
        for (int v = 0; v < fast.counts[c]; ++v, at += 2)
            Check(fast.pts[at] >= rect[0] && fast.pts[at] <= rect[2] && fast.pts[at + 1] >= rect[1] && fast.pts[at + 1] <= rect[3],
                  "a point outside the rectangle");
    }

#ifdef QEL_FUZZ_ORACLE
    // The contract holds up to 2^25 in magnitude, where the cross products
    // of coordinate differences are exact; beyond, a crossing of an edge
    // nearly parallel to a side can be off by more than the merging distance.
    bool inRange = rect[0] < rect[2] && rect[1] < rect[3];   // else -1, as documented
    for (int v : rect) inRange = inRange && v >= -(1 << 25) && v <= (1 << 25);
    for (int v : poly) inRange = inRange && v >= -(1 << 25) && v <= (1 << 25);
    cliporacle::Deviation deviation;
    const std::string why = inRange ? cliporacle::Check(rect[0], rect[1], rect[2], rect[3], poly, deviation) : "";
    if (!why.empty()) std::fprintf(stderr, "%s", why.c_str());
    Check(why.empty(), "the exact intersection disagrees");
#endif

    CheckProbeParity(rect, poly);
    if (failAt > 0) {
        fuzzin::Counted([&] { failed = Run(ClipPolygonWithRect, rect, poly); }, failAt);
        Check(failAt > requests ? failed == fast : failed.k == -1, "a failed request changed the result");
    }
    return 0;
}
