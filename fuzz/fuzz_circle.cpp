// The smallest enclosing circle on up to 24 points of any doubles, at each
// vector level (the scalar level reaches the triple search's plain loop):
// centre, radius and the reordered array must be the plain search's bits,
// the circle must hold every finite point, and a failed request must leave
// the centre and radius unwritten and no block behind.
#include <algorithm>

#include "QELMath.h"
#include "foundation/cpu.h"
#include "fuzz_input.h"
#include "geometry/mec_reference.h"

using fuzzin::Check;

namespace {

// Points on the circle of radius 5 or 65 with integer coordinates: many
// cocircular quadruples, none diametrically placed by chance.
const int kOnCircle[][2] = {{5, 0}, {4, 3}, {3, 4}, {0, 5}, {-3, 4}, {-4, 3}, {-5, 0}, {-4, -3},
                            {-3, -4}, {0, -5}, {3, -4}, {4, -3}, {16, 63}, {33, 56}, {39, 52}, {25, 60}};

// A duplicate of an earlier point, a point on one of the circles, or any.
void Point(FuzzedDataProvider& in, std::vector<double>& pts)
{
    const int kind = in.ConsumeIntegralInRange(0, 3);
    if (kind == 0 && !pts.empty()) {
        const std::size_t i = 2 * in.ConsumeIntegralInRange<std::size_t>(0, pts.size() / 2 - 1);
        pts.insert(pts.end(), {pts[i], pts[i + 1]});
    } else if (kind <= 1) {
        const auto& p = kOnCircle[in.ConsumeIntegralInRange(0, 15)];
        const double scale = std::ldexp(1.0, in.ConsumeIntegralInRange(-30, 60));
        pts.insert(pts.end(), {p[0] * scale, p[1] * scale});
    } else {
        const double x = fuzzin::Value(in);
        pts.insert(pts.end(), {x, fuzzin::Value(in)});
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider in(data, size);
    const auto level = static_cast<qel::SimdLevel>(in.ConsumeIntegralInRange(0, 2));
    const std::size_t failAt = in.ConsumeIntegralInRange(0, 3);
    std::vector<double> pts;
    while (pts.size() < 48 && in.remaining_bytes() > 0) Point(in, pts);
    const int n = static_cast<int>(pts.size() / 2);

    std::vector<double> fast = pts, plain = pts, work = pts;
    double fc[2] = {-7, -7}, fr = -7, pc[2] = {-7, -7}, pr = -7, c[2] = {-7, -7}, r = -7;
    qel::cap_simd_level(level);
    fuzzin::Counted([&] { MinimumRadiusCircleFromPoints(fast.data(), n, fc, &fr); });
    qel::cap_simd_level(qel::SimdLevel::kAvx512);
    fuzzin::Counted([&] { mecref::reference_mec(plain.data(), n, pc, &pr); });
    Check(fuzzin::Same(fast, plain) && fuzzin::Same(fc, pc, 2) && fuzzin::Same(&fr, &pr, 1),
          "fast and plain enclosing circles differ");

    // Every finite point within the radius, up to the search's own slack,
    // the rounding of the centre and the distances, and the underflow of
    // squared distances below 1e-154 (the radius of two points 1e-300
    // apart is 0). Only for points no closer than 1e-6 of their extent: the
    // search takes a circumcircle without measuring its own three points,
    // and when two of them nearly coincide its centre can be far off, while
    // the pair circle that holds all may round to no less than the box's
    // and is then not taken.
    bool conditioned = n > 0 && std::isfinite(fr);
    double extent = 0;
    for (double v : pts) {
        conditioned = conditioned && std::isfinite(v) && std::fabs(v) < 1e150;
        extent = std::max(extent, std::fabs(v));
    }
    for (int i = 0; i < n && conditioned; ++i)
        for (int j = 0; j < i; ++j) {
            const double d = std::hypot(pts[2 * i] - pts[2 * j], pts[2 * i + 1] - pts[2 * j + 1]);
            conditioned = conditioned && (d == 0 || d >= 1e-6 * extent);
        }
    for (int i = 0; i < n && conditioned; ++i)
        Check(std::hypot(pts[2 * i] - fc[0], pts[2 * i + 1] - fc[1]) <= fr * (1 + 1e-9) + 1e-12 * extent + 1e-150,
              "a point outside the circle");

    if (failAt > 0 && n >= 3) {
        fuzzin::Counted([&] { MinimumRadiusCircleFromPoints(work.data(), n, c, &r); }, failAt);
        // Requests 1 and 2 are the candidate block and the flags.
        Check(failAt <= 2 ? (c[0] == -7 && c[1] == -7 && r == -7) : fuzzin::Same(&r, &fr, 1), "a failed request wrote a result");
    }
    return 0;
}
