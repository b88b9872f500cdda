// Time per call of qel::sin, cos, sincos, atan, atan2 and of the runtime's
// functions on the same arguments (4096 per batch, fixed seed), by range.
// Compare pairs from one run: the machine may be loaded.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "foundation/elementary.h"

namespace {

constexpr int kCount = 4096;

std::vector<double> arguments(double lo, double hi, unsigned seed)
{
    std::mt19937_64 g(seed);
    std::uniform_real_distribution<double> d(lo, hi);
    std::vector<double> v(kCount);
    for (double& x : v) x = d(g);
    return v;
}

// Ranges: 0: [-pi, pi], 1: [-1e3, 1e3], 2: [-1e6, 1e6] (beyond the
// Cody-Waite bound in part), 3: [-1e22, 1e22].
const std::vector<double>& range(int which)
{
    static const std::vector<double> r[4] = {arguments(-3.141592653589793, 3.141592653589793, 1),
                                             arguments(-1e3, 1e3, 2), arguments(-1e6, 1e6, 3),
                                             arguments(-1e22, 1e22, 4)};
    return r[which];
}

template <double (*F)(double)>
void unary(benchmark::State& state)
{
    const std::vector<double>& v = range(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        double acc = 0;
        for (double x : v) acc += F(x);
        benchmark::DoNotOptimize(acc);
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}

double std_sin(double x) { return std::sin(x); }
double std_cos(double x) { return std::cos(x); }
double std_atan(double x) { return std::atan(x); }
double qel_sincos(double x)
{
    double s, c;
    qel::sincos(x, &s, &c);
    return s + c;
}
double std_sincos(double x) { return std::sin(x) + std::cos(x); }

BENCHMARK(unary<qel::sin>)->Name("qel_sin")->DenseRange(0, 3);
BENCHMARK(unary<std_sin>)->Name("std_sin")->DenseRange(0, 3);
BENCHMARK(unary<qel::cos>)->Name("qel_cos")->DenseRange(0, 3);
BENCHMARK(unary<std_cos>)->Name("std_cos")->DenseRange(0, 3);
BENCHMARK(unary<qel_sincos>)->Name("qel_sincos")->DenseRange(0, 3);
BENCHMARK(unary<std_sincos>)->Name("std_sin_plus_cos")->DenseRange(0, 3);
BENCHMARK(unary<qel::atan>)->Name("qel_atan")->DenseRange(0, 3);
BENCHMARK(unary<std_atan>)->Name("std_atan")->DenseRange(0, 3);

template <double (*F)(double, double)>
void binary(benchmark::State& state)
{
    const std::vector<double>& y = range(1);
    const std::vector<double>& x = range(0);
    for (auto _ : state) {
        double acc = 0;
        for (int i = 0; i < kCount; ++i) acc += F(y[i], x[i]);
        benchmark::DoNotOptimize(acc);
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}

double std_atan2(double y, double x) { return std::atan2(y, x); }

BENCHMARK(binary<qel::atan2>)->Name("qel_atan2");
BENCHMARK(binary<std_atan2>)->Name("std_atan2");

}  // namespace
