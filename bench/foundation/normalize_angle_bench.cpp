// math_NormalizeAngle: cost by magnitude of the angle. The stepping it
// reproduces takes one step per turn; the run-taking keeps the cost near
// constant up to 1e15 and beyond.
#include <benchmark/benchmark.h>

#include <cmath>

#include "QELMath.h"

static void BM_NormalizeAngle(benchmark::State& state)
{
    double magnitude = std::pow(10.0, static_cast<double>(state.range(0)));
    double angles[8];
    for (int i = 0; i < 8; ++i) angles[i] = (i % 2 ? -1.0 : 1.0) * magnitude * (1.0 + 0.1 * i);
    for (auto _ : state) {
        for (double a : angles) {
            math_NormalizeAngle(&a);
            benchmark::DoNotOptimize(a);
        }
    }
    state.SetItemsProcessed(state.iterations() * 8);
}
BENCHMARK(BM_NormalizeAngle)->DenseRange(0, 15, 3)->Arg(17)->Arg(300);

// The literal stepping, for scale at small magnitudes.
static void BM_LiteralStepping(benchmark::State& state)
{
    double magnitude = std::pow(10.0, static_cast<double>(state.range(0)));
    const double two_pi = 6.283185307179586;
    for (auto _ : state) {
        double a = -magnitude;
        while (a < 0) a = a + two_pi;
        benchmark::DoNotOptimize(a);
    }
}
BENCHMARK(BM_LiteralStepping)->DenseRange(0, 6, 3);
