// The smallest enclosing circle at n = 10 .. 3000, points uniform in a disc
// and points on a circle (random angles): the fast search, the plain
// search it must agree with, and CGAL's Min_circle_2 (exact and double
// kernels) for scale. Each iteration works on a fresh copy, since the
// search reorders its input.
#include <cmath>
#include <random>
#include <vector>

#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <CGAL/Min_circle_2.h>
#include <CGAL/Min_circle_2_traits_2.h>
#include <CGAL/Simple_cartesian.h>
#include <benchmark/benchmark.h>

#include "QELMath.h"
#include "geometry/mec_reference.h"

namespace {

std::vector<double> make_points(int n, bool circle)
{
    std::mt19937_64 g(12345 + n + (circle ? 1 : 0));
    std::uniform_real_distribution<double> u(-1, 1);
    std::vector<double> pts;
    while (static_cast<int>(pts.size()) < 2 * n) {
        if (circle) {
            double a = 3.141592653589793 * u(g);
            pts.push_back(std::cos(a));
            pts.push_back(std::sin(a));
            continue;
        }
        double x = u(g), y = u(g);
        if (x * x + y * y > 1) continue;
        pts.push_back(x);
        pts.push_back(y);
    }
    return pts;
}

template <void (*Search)(double*, int, double*, double*)>
void run_search(benchmark::State& state, bool circle)
{
    int n = static_cast<int>(state.range(0));
    const std::vector<double> pts = make_points(n, circle);
    std::vector<double> work;
    double centre[2], radius = 0;
    for (auto _ : state) {
        state.PauseTiming();
        work = pts;
        state.ResumeTiming();
        Search(work.data(), n, centre, &radius);
        benchmark::DoNotOptimize(radius);
    }
    state.counters["radius"] = radius;
}

template <class Kernel>
void run_cgal(benchmark::State& state, bool circle)
{
    using MinCircle = CGAL::Min_circle_2<CGAL::Min_circle_2_traits_2<Kernel>>;
    int n = static_cast<int>(state.range(0));
    const std::vector<double> pts = make_points(n, circle);
    std::vector<typename Kernel::Point_2> p;
    for (int i = 0; i < n; ++i) p.emplace_back(pts[2 * i], pts[2 * i + 1]);
    double r2 = 0;
    for (auto _ : state) {
        MinCircle mc(p.begin(), p.end(), true);
        r2 = CGAL::to_double(mc.circle().squared_radius());
        benchmark::DoNotOptimize(r2);
    }
    state.counters["radius"] = std::sqrt(r2);
}

void Fast_Disc(benchmark::State& s) { run_search<MinimumRadiusCircleFromPoints>(s, false); }
void Fast_Circle(benchmark::State& s) { run_search<MinimumRadiusCircleFromPoints>(s, true); }
// A regular polygon closed by repeating its first point, as outlines come.
void Fast_ClosedPolygon(benchmark::State& state)
{
    int n = static_cast<int>(state.range(0));
    std::vector<double> pts;
    for (int i = 0; i < n - 1; ++i) {
        pts.push_back(std::cos(6.283185307179586 * i / (n - 1)));
        pts.push_back(std::sin(6.283185307179586 * i / (n - 1)));
    }
    pts.push_back(pts[0]);
    pts.push_back(pts[1]);
    std::vector<double> work;
    double centre[2], radius = 0;
    for (auto _ : state) {
        state.PauseTiming();
        work = pts;
        state.ResumeTiming();
        MinimumRadiusCircleFromPoints(work.data(), n, centre, &radius);
        benchmark::DoNotOptimize(radius);
    }
    state.counters["radius"] = radius;
}
// The outline of a square, n / 4 evenly spaced points per side: collinear
// runs that no hull test can clear.
void Fast_SquareOutline(benchmark::State& state)
{
    int n = static_cast<int>(state.range(0));
    std::vector<double> pts;
    int side = n / 4;
    for (int i = 0; i < side; ++i) {
        double t = -1 + 2.0 * i / side;
        double ring[4][2] = {{t, -1}, {1, t}, {-t, 1}, {-1, -t}};
        for (auto& p : ring) {
            pts.push_back(p[0]);
            pts.push_back(p[1]);
        }
    }
    std::vector<double> work;
    double centre[2], radius = 0;
    for (auto _ : state) {
        state.PauseTiming();
        work = pts;
        state.ResumeTiming();
        MinimumRadiusCircleFromPoints(work.data(), 4 * side, centre, &radius);
        benchmark::DoNotOptimize(radius);
    }
    state.counters["radius"] = radius;
}
void Plain_Disc(benchmark::State& s) { run_search<mecref::reference_mec>(s, false); }
void Plain_Circle(benchmark::State& s) { run_search<mecref::reference_mec>(s, true); }
void CgalExact_Disc(benchmark::State& s) { run_cgal<CGAL::Exact_predicates_exact_constructions_kernel>(s, false); }
void CgalExact_Circle(benchmark::State& s) { run_cgal<CGAL::Exact_predicates_exact_constructions_kernel>(s, true); }
void CgalDouble_Disc(benchmark::State& s) { run_cgal<CGAL::Simple_cartesian<double>>(s, false); }
void CgalDouble_Circle(benchmark::State& s) { run_cgal<CGAL::Simple_cartesian<double>>(s, true); }

}  // namespace

BENCHMARK(Fast_Disc)->Arg(10)->Arg(100)->Arg(1000)->Arg(3000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Fast_Circle)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
// Every circumcircle of 3000 points: minutes, one run.
BENCHMARK(Fast_Circle)->Arg(3000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Fast_ClosedPolygon)->Arg(101)->Arg(1001)->Arg(3001)->Unit(benchmark::kMicrosecond);
BENCHMARK(Fast_SquareOutline)->Arg(100)->Arg(400)->Arg(1000)->Arg(3000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Plain_Disc)->Arg(10)->Arg(100)->Unit(benchmark::kMicrosecond);
BENCHMARK(Plain_Disc)->Arg(1000)->Arg(3000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Plain_Circle)->Arg(10)->Arg(100)->Unit(benchmark::kMicrosecond);
BENCHMARK(CgalExact_Disc)->Arg(10)->Arg(100)->Arg(1000)->Arg(3000)->Unit(benchmark::kMicrosecond);
BENCHMARK(CgalExact_Circle)->Arg(10)->Arg(100)->Arg(1000)->Arg(3000)->Unit(benchmark::kMicrosecond);
BENCHMARK(CgalDouble_Disc)->Arg(10)->Arg(100)->Arg(1000)->Arg(3000)->Unit(benchmark::kMicrosecond);
BENCHMARK(CgalDouble_Circle)->Arg(10)->Arg(100)->Arg(1000)->Arg(3000)->Unit(benchmark::kMicrosecond);
