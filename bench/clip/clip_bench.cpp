// Clipping stars against a rectangle: the library against Boost.Geometry's
// intersection with a box (same input, cases interleaved so that both see
// the same machine load), and the plain transcription (linear lists) on
// small input. Three stars of 10, 10^3 and 10^5 vertices:
//   smooth        a wobbling circle; the rectangle cuts eight arcs off it
//   spiky         spikes alternate between 0.55 R and R; a centred
//                 rectangle cuts every spike
//   offcentre     the spiky star against a rectangle over one flank, so
//                 that it cuts the star into many separate pieces
// The per_vertex counter is the time per input vertex (s; "250n" = 250 ns).
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
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

constexpr double kR = 1.0e6;

enum Kind { kSmooth, kSpiky, kOffCentre };

std::vector<int> Star(Kind kind, int n)
{
    std::vector<int> p;
    for (int i = 0; i < n; ++i) {
        const double t = 6.283185307179586 * i / n;
        const double r = kind == kSmooth ? kR * (1.0 + 0.05 * std::sin(5.0 * t))
                                         : (i % 2 ? kR : 0.55 * kR) * (1.0 + 0.03 * std::sin(7.0 * t));
        p.push_back(static_cast<int>(std::lround(r * std::cos(t))));
        p.push_back(static_cast<int>(std::lround(r * std::sin(t))));
    }
    return p;
}

struct Rect {
    int x1, y1, x2, y2;
};

Rect RectFor(Kind kind)
{
    if (kind == kOffCentre) return Rect{200000, -400000, 1200000, 600000};
    return Rect{-750000, -750000, 750000, 750000};
}

void PerVertex(benchmark::State& state, int n, int contours)
{
    state.counters["per_vertex"] =
        benchmark::Counter(static_cast<double>(n), benchmark::Counter::kIsIterationInvariantRate |
                                                       benchmark::Counter::kInvert);
    state.counters["contours"] = contours;
}

void BM_Clip(benchmark::State& state, Kind kind, int n)
{
    std::vector<int> star = Star(kind, n);
    const Rect r = RectFor(kind);
    int contours = 0;
    for (auto _ : state) {
        int* pts = nullptr;
        int* counts = nullptr;
        contours = ClipPolygonWithRect(r.x1, r.y1, r.x2, r.y2, star.data(), n, &pts, &counts);
        if (contours > 0) {
            mem_free(pts);
            mem_free(counts);
        }
    }
    PerVertex(state, n, contours);
}

void BM_Plain(benchmark::State& state, Kind kind, int n)
{
    std::vector<int> star = Star(kind, n);
    const Rect r = RectFor(kind);
    int contours = 0;
    for (auto _ : state) {
        int* pts = nullptr;
        int* counts = nullptr;
        contours = plainclip::ClipPolygonWithRect(r.x1, r.y1, r.x2, r.y2, star.data(), n, &pts, &counts);
        if (contours > 0) {
            mem_free(pts);
            mem_free(counts);
        }
    }
    PerVertex(state, n, contours);
}

#ifdef QEL_BENCH_BOOST_GEOMETRY
namespace bg = boost::geometry;
using BPoint = bg::model::d2::point_xy<double>;
using BPolygon = bg::model::polygon<BPoint>;   // clockwise, closed

void BM_Boost(benchmark::State& state, Kind kind, int n)
{
    const std::vector<int> star = Star(kind, n);
    const Rect r = RectFor(kind);
    BPolygon poly;
    for (std::size_t i = star.size(); i >= 2; i -= 2) poly.outer().push_back(BPoint(star[i - 2], star[i - 1]));
    poly.outer().push_back(poly.outer().front());
    const bg::model::box<BPoint> box(BPoint(r.x1, r.y1), BPoint(r.x2, r.y2));
    std::size_t parts = 0;
    for (auto _ : state) {
        bg::model::multi_polygon<BPolygon> out;
        bg::intersection(poly, box, out);
        parts = out.size();
        benchmark::DoNotOptimize(out);
    }
    PerVertex(state, n, static_cast<int>(parts));
}
#endif

// Each case of the library is followed by the same case for Boost.Geometry.
int Register()
{
    const char* names[] = {"smooth", "spiky", "offcentre"};
    for (Kind kind : {kSmooth, kSpiky, kOffCentre})
        for (int n : {10, 1000, 100000}) {
            const std::string tag = std::string("/") + names[kind] + "/" + std::to_string(n);
            benchmark::RegisterBenchmark(("Clip" + tag).c_str(), BM_Clip, kind, n)
                ->Unit(benchmark::kMicrosecond);
#ifdef QEL_BENCH_BOOST_GEOMETRY
            benchmark::RegisterBenchmark(("Boost" + tag).c_str(), BM_Boost, kind, n)
                ->Unit(benchmark::kMicrosecond);
#endif
            // The plain procedure is quadratic: 10^5 vertices would take minutes.
            if (n <= 1000)
                benchmark::RegisterBenchmark(("Plain" + tag).c_str(), BM_Plain, kind, n)
                    ->Unit(benchmark::kMicrosecond);
        }
    return 0;
}

const int g_registered = Register();

}  // namespace
