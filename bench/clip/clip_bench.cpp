// Clipping a star-shaped polygon whose spikes cross every side of a centred
// rectangle: the library against the plain transcription (linear lists) and
// against Boost.Geometry's intersection.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "QELMath.h"
#include "clip/plain_clip.h"

#ifdef QEL_BENCH_BOOST_GEOMETRY
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/multi_polygon.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#endif

namespace {

// n vertices alternating between radii 0.55 R and R (with a deterministic
// wobble), R = 10^6; the rectangle [-0.75 R, 0.75 R]^2 cuts every spike.
std::vector<int> Star(int n)
{
    const double R = 1.0e6;
    std::vector<int> p;
    for (int i = 0; i < n; ++i) {
        const double t = 6.283185307179586 * i / n;
        const double r = (i % 2 ? R : 0.55 * R) * (1.0 + 0.03 * std::sin(7.0 * t));
        p.push_back(static_cast<int>(std::lround(r * std::cos(t))));
        p.push_back(static_cast<int>(std::lround(r * std::sin(t))));
    }
    return p;
}

constexpr int kHalf = 750000;

void BM_ClipPolygonWithRect(benchmark::State& state)
{
    std::vector<int> star = Star(static_cast<int>(state.range(0)));
    int contours = 0;
    for (auto _ : state) {
        int* pts = nullptr;
        int* counts = nullptr;
        contours = ClipPolygonWithRect(-kHalf, -kHalf, kHalf, kHalf, star.data(), static_cast<int>(state.range(0)),
                                       &pts, &counts);
        if (contours > 0) {
            mem_free(pts);
            mem_free(counts);
        }
    }
    state.counters["contours"] = contours;
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ClipPolygonWithRect)->RangeMultiplier(10)->Range(10, 100000)->Unit(benchmark::kMicrosecond)->Complexity();

void BM_PlainTranscription(benchmark::State& state)
{
    std::vector<int> star = Star(static_cast<int>(state.range(0)));
    int contours = 0;
    for (auto _ : state) {
        int* pts = nullptr;
        int* counts = nullptr;
        contours = plainclip::ClipPolygonWithRect(-kHalf, -kHalf, kHalf, kHalf, star.data(),
                                                  static_cast<int>(state.range(0)), &pts, &counts);
        if (contours > 0) {
            mem_free(pts);
            mem_free(counts);
        }
    }
    state.counters["contours"] = contours;
}
// The plain procedure is quadratic; 10^5 vertices would take minutes.
BENCHMARK(BM_PlainTranscription)->RangeMultiplier(10)->Range(10, 10000)->Unit(benchmark::kMicrosecond);

#ifdef QEL_BENCH_BOOST_GEOMETRY
namespace bg = boost::geometry;
using BPoint = bg::model::d2::point_xy<double>;
using BPolygon = bg::model::polygon<BPoint>;   // clockwise, closed

void BM_BoostGeometryIntersection(benchmark::State& state)
{
    const std::vector<int> star = Star(static_cast<int>(state.range(0)));
    BPolygon poly;
    for (std::size_t i = star.size(); i >= 2; i -= 2) poly.outer().push_back(BPoint(star[i - 2], star[i - 1]));
    poly.outer().push_back(poly.outer().front());
    const bg::model::box<BPoint> box(BPoint(-kHalf, -kHalf), BPoint(kHalf, kHalf));
    std::size_t parts = 0;
    for (auto _ : state) {
        bg::model::multi_polygon<BPolygon> out;
        bg::intersection(poly, box, out);
        parts = out.size();
        benchmark::DoNotOptimize(out);
    }
    state.counters["contours"] = static_cast<double>(parts);
}
BENCHMARK(BM_BoostGeometryIntersection)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMicrosecond);
#endif

}  // namespace
