// Time per solve of linear_Gauss and linear_GaussJordan (one right-hand
// side) at n = 8, 64, 256 and 1000, next to a plain transcription of the
// same elimination and Eigen's FullPivLU. Every iteration copies the matrix
// and right-hand side first (the solvers destroy them; FullPivLU copies the
// matrix itself), so the copy is in every figure alike.
#include <cstddef>
#include <cstring>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#ifdef QELMATH_BENCH_EIGEN
#include <Eigen/Dense>
#endif

#include "QELMath.h"
#include "foundation/cpu.h"
#include "linear/reference.h"

namespace {

struct System {
    std::vector<double> a, b;
};

System make_system(std::size_t n)
{
    std::mt19937_64 rng(12345);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    System s{std::vector<double>(n * n), std::vector<double>(n)};
    for (double& x : s.a) x = u(rng);
    for (double& x : s.b) x = u(rng);
    return s;
}

#ifndef QELMATH_BENCH_EIGEN_ONLY

void run_gauss(benchmark::State& state, qel::SimdLevel level)
{
    const std::size_t n = static_cast<std::size_t>(state.range(0));
    const System s = make_system(n);
    std::vector<double> a(n * n), b(n);
    qel::cap_simd_level(level);
    for (auto _ : state) {
        std::memcpy(a.data(), s.a.data(), n * n * sizeof(double));
        std::memcpy(b.data(), s.b.data(), n * sizeof(double));
        int r = linear_Gauss(a.data(), b.data(), static_cast<int>(n));
        benchmark::DoNotOptimize(r);
        benchmark::DoNotOptimize(b.data());
    }
    qel::cap_simd_level(qel::SimdLevel::kAvx512);
}

void BM_Gauss(benchmark::State& state) { run_gauss(state, qel::SimdLevel::kAvx512); }
void BM_Gauss_Avx2(benchmark::State& state) { run_gauss(state, qel::SimdLevel::kAvx2); }
void BM_Gauss_Sse2(benchmark::State& state) { run_gauss(state, qel::SimdLevel::kBaseline); }

void BM_GaussJordan(benchmark::State& state)
{
    const std::size_t n = static_cast<std::size_t>(state.range(0));
    const System s = make_system(n);
    std::vector<double> a(n * n), b(n);
    for (auto _ : state) {
        std::memcpy(a.data(), s.a.data(), n * n * sizeof(double));
        std::memcpy(b.data(), s.b.data(), n * sizeof(double));
        int r = linear_GaussJordan(a.data(), b.data(), static_cast<int>(n), 1);
        benchmark::DoNotOptimize(r);
        benchmark::DoNotOptimize(b.data());
    }
}

// The elimination written out step by step: separate pivot search, column
// exchanges on every row, scalar loops.
void BM_Gauss_PlainTranscription(benchmark::State& state)
{
    const std::size_t n = static_cast<std::size_t>(state.range(0));
    const System s = make_system(n);
    std::vector<double> a(n * n), b(n);
    for (auto _ : state) {
        std::memcpy(a.data(), s.a.data(), n * n * sizeof(double));
        std::memcpy(b.data(), s.b.data(), n * sizeof(double));
        int r = ref::gauss(a.data(), b.data(), n);
        benchmark::DoNotOptimize(r);
        benchmark::DoNotOptimize(b.data());
    }
}

BENCHMARK(BM_Gauss)->Arg(8)->Arg(64)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Gauss_Avx2)->Arg(8)->Arg(64)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Gauss_Sse2)->Arg(8)->Arg(64)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Gauss_PlainTranscription)
    ->Arg(8)->Arg(64)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_GaussJordan)->Arg(8)->Arg(64)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond);

#endif

#ifdef QELMATH_BENCH_EIGEN

void BM_Eigen_FullPivLU(benchmark::State& state)
{
    const std::size_t n = static_cast<std::size_t>(state.range(0));
    const System s = make_system(n);
    const Eigen::Index en = static_cast<Eigen::Index>(n);
    Eigen::Map<const Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>> a(
        s.a.data(), en, en);
    Eigen::Map<const Eigen::VectorXd> b(s.b.data(), en);
    Eigen::VectorXd x(en);
    for (auto _ : state) {
        Eigen::FullPivLU<Eigen::MatrixXd> lu(a);
        x = lu.solve(b);
        benchmark::DoNotOptimize(x.data());
    }
}

BENCHMARK(BM_Eigen_FullPivLU)->Arg(8)->Arg(64)->Arg(256)->Arg(1000)->Unit(benchmark::kMicrosecond);

#endif

}  // namespace
