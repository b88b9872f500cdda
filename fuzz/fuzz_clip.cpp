// The clipper on any rectangle and polygons of up to 64 integer points:
// small coordinates put vertices on sides and corners and edges along them,
// coordinates at the ends of the int range test the arithmetic's reach. The
// fast clipper must return the plain procedure's bits, contours of at least
// three points inside the rectangle, every block back, and under a failing
// allocator -1 with the outputs untouched, or the same result; a simple
// polygon's result must agree with the exact intersection.
#include <climits>

#include "QELMath.h"
#include "clip/plain_clip.h"
#include "fuzz_input.h"
#include "support/test_allocator.h"
#ifdef QEL_FUZZ_ORACLE
#include "clip/exact_oracle.h"
#endif

using fuzzin::Check;

namespace {

int Coordinate(FuzzedDataProvider& in, int kind)
{
    switch (kind) {
    case 0: return in.ConsumeIntegralInRange(-3, 13);
    case 1: {
        const int off = in.ConsumeIntegralInRange(0, 255);
        return in.ConsumeBool() ? INT_MIN + off : INT_MAX - off;
    }
    default: return in.ConsumeIntegral<int>();
    }
}

struct Result {
    int k = 0;
    std::vector<int> pts, counts;
};

template <class Clip>
Result Run(Clip clip, const int* r, std::vector<int> poly)
{
    static int untouched[2];
    int* pts = untouched;
    int* counts = untouched + 1;
    Result out;
    out.k = clip(r[0], r[1], r[2], r[3], poly.data(), static_cast<int>(poly.size() / 2), &pts, &counts);
    if (out.k <= 0) Check(pts == untouched && counts == untouched + 1, "an output written without a result");
    if (out.k > 0) {
        out.counts.assign(counts, counts + out.k);
        std::size_t total = 0;
        for (int c : out.counts) total += static_cast<std::size_t>(c);
        out.pts.assign(pts, pts + 2 * total);
        mem_free(pts);
        mem_free(counts);
    }
    return out;
}

bool operator==(const Result& a, const Result& b) { return a.k == b.k && a.pts == b.pts && a.counts == b.counts; }

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

    const std::size_t live = testalloc::live();
    testalloc::reset();
    const Result fast = Run(ClipPolygonWithRect, rect, poly);
    const std::size_t requests = testalloc::requests().size();
    const Result plain = Run(plainclip::ClipPolygonWithRect, rect, poly);
    Check(fast == plain, "fast and plain clippers differ");
    Check(testalloc::live() == live, "a block was not given back");

    for (std::size_t c = 0, at = 0; c < fast.counts.size(); ++c) {
        Check(fast.counts[c] >= 3, "a contour of fewer than three points");
        for (int v = 0; v < fast.counts[c]; ++v, at += 2)
            Check(fast.pts[at] >= rect[0] && fast.pts[at] <= rect[2] && fast.pts[at + 1] >= rect[1] &&
                      fast.pts[at + 1] <= rect[3],
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
    if (inRange) {
        const std::string why = cliporacle::Check(rect[0], rect[1], rect[2], rect[3], poly, deviation);
        if (!why.empty()) std::fprintf(stderr, "%s", why.c_str());
        Check(why.empty(), "the exact intersection disagrees");
    }
#endif

    if (failAt > 0) {
        testalloc::reset();
        testalloc::fail_at(failAt);
        const Result failed = Run(ClipPolygonWithRect, rect, poly);
        testalloc::fail_at(0);
        Check(failAt > requests ? failed == fast : failed.k == -1, "a failed request changed the result");
        Check(testalloc::live() == live, "a block was not given back after a failed request");
    }
    return 0;
}
