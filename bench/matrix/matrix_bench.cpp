// The real product, the determinant and the inverse, side by side with
// OpenBLAS dgemm, Eigen's FullPivLU and a plain transcription of the product.
//
// Figures are GFLOP/s-equivalents: 2 n^3 for a real product of order n, 8 n^3
// for a complex one, 2/3 n^3 for a determinant and 2 n^3 for an inverse,
// whatever the method really spends. The second argument of the library's
// product cases caps the vector unit: 0 baseline SSE2, 1 AVX2, 2 AVX-512.
// For OpenBLAS at its best on one core run with
//   OPENBLAS_CORETYPE=SkylakeX OPENBLAS_NUM_THREADS=1
#include <cblas.h>

#include <Eigen/Dense>
#include <complex>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include "QELMath.h"
#include "foundation/cpu.h"
#include "matrix/plain_winograd.h"  // tests/matrix

namespace {

std::vector<double> random_matrix(std::size_t count, unsigned seed)
{
    std::mt19937_64 rng(seed);
    std::uniform_real_distribution<double> d(-1.0, 1.0);
    std::vector<double> v(count);
    for (double& x : v) x = d(rng);
    return v;
}

void set_flops(benchmark::State& state, double per_iteration)
{
    state.counters["GFLOPS"] = benchmark::Counter(per_iteration * 1e-9 * state.iterations(),
                                                  benchmark::Counter::kIsRate);
}

void Mul_Library(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    qel::cap_simd_level(static_cast<qel::SimdLevel>(state.range(1)));
    auto a = random_matrix(std::size_t(n) * n, 1), b = random_matrix(std::size_t(n) * n, 2);
    std::vector<double> c(std::size_t(n) * n);
    for (auto _ : state) {
        mt_Mul(a.data(), b.data(), n, n, n, c.data());
        benchmark::DoNotOptimize(c.data());
    }
    set_flops(state, 2.0 * n * n * n);
    qel::cap_simd_level(qel::SimdLevel::kAvx512);
}

void Mul_Plain(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    auto a = random_matrix(std::size_t(n) * n, 1), b = random_matrix(std::size_t(n) * n, 2);
    std::vector<double> c(std::size_t(n) * n);
    for (auto _ : state) {
        plain::winograd(a.data(), b.data(), n, n, n, c.data());
        benchmark::DoNotOptimize(c.data());
    }
    set_flops(state, 2.0 * n * n * n);
}

void Mul_OpenBLAS(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    auto a = random_matrix(std::size_t(n) * n, 1), b = random_matrix(std::size_t(n) * n, 2);
    std::vector<double> c(std::size_t(n) * n);
    for (auto _ : state) {
        cblas_dgemm(CblasRowMajor, CblasNoTrans, CblasNoTrans, n, n, n, 1.0, a.data(), n,
                    b.data(), n, 0.0, c.data(), n);
        benchmark::DoNotOptimize(c.data());
    }
    set_flops(state, 2.0 * n * n * n);
}

// Complex product: 8 n^3 flops for an ordinary complex product of order n.
void MulComplex_Library(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    qel::cap_simd_level(static_cast<qel::SimdLevel>(state.range(1)));
    const std::size_t count = std::size_t(n) * n;
    auto ar = random_matrix(count, 1), ai = random_matrix(count, 2);
    auto br = random_matrix(count, 3), bi = random_matrix(count, 4);
    std::vector<double> cr(count), ci(count);
    for (auto _ : state) {
        mt_Mul(ar.data(), ai.data(), br.data(), bi.data(), n, n, n, cr.data(), ci.data());
        benchmark::DoNotOptimize(cr.data());
    }
    set_flops(state, 8.0 * n * n * n);
    qel::cap_simd_level(qel::SimdLevel::kAvx512);
}

void MulComplex_Eigen(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    using M = Eigen::Matrix<std::complex<double>, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
    M a = M::Random(n, n), b = M::Random(n, n), c(n, n);
    for (auto _ : state) {
        c.noalias() = a * b;
        benchmark::DoNotOptimize(c.data());
    }
    set_flops(state, 8.0 * n * n * n);
}

// Well-conditioned input: random entries plus a dominant diagonal.
std::vector<double> test_matrix(int n)
{
    auto a = random_matrix(std::size_t(n) * n, 3);
    for (int i = 0; i < n; ++i) a[std::size_t(i) * n + i] += n;
    return a;
}

void Det_Library(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    const auto a0 = test_matrix(n);
    std::vector<double> a(a0.size());
    for (auto _ : state) {
        a = a0;
        benchmark::DoNotOptimize(mt_Det(a.data(), n));
    }
    set_flops(state, 2.0 / 3.0 * n * n * n);
}

void Det_EigenFullPivLU(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    const auto a0 = test_matrix(n);
    using M = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
    for (auto _ : state) {
        M a = Eigen::Map<const M>(a0.data(), n, n);
        Eigen::FullPivLU<M> lu(a);
        benchmark::DoNotOptimize(lu.determinant());
    }
    set_flops(state, 2.0 / 3.0 * n * n * n);
}

void Inv_Library(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    const auto a0 = test_matrix(n);
    std::vector<double> a(a0.size());
    for (auto _ : state) {
        a = a0;
        benchmark::DoNotOptimize(mt_Inv(a.data(), n));
    }
    set_flops(state, 2.0 * n * n * n);
}

void Inv_EigenFullPivLU(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    const auto a0 = test_matrix(n);
    using M = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
    M inv(n, n);
    for (auto _ : state) {
        M a = Eigen::Map<const M>(a0.data(), n, n);
        Eigen::FullPivLU<M> lu(a);
        inv = lu.inverse();
        benchmark::DoNotOptimize(inv.data());
    }
    set_flops(state, 2.0 * n * n * n);
}

}  // namespace

BENCHMARK(Mul_Library)->ArgsProduct({{64, 256, 1024}, {2}})->Unit(benchmark::kMillisecond);
BENCHMARK(Mul_Library)->ArgsProduct({{1024}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK(Mul_Plain)->Arg(64)->Arg(256)->Arg(1024)->Unit(benchmark::kMillisecond);
BENCHMARK(Mul_OpenBLAS)->Arg(64)->Arg(256)->Arg(1024)->Unit(benchmark::kMillisecond);
BENCHMARK(MulComplex_Library)->ArgsProduct({{64, 256}, {0, 1, 2}})->Unit(benchmark::kMillisecond);
BENCHMARK(MulComplex_Eigen)->Arg(64)->Arg(256)->Unit(benchmark::kMillisecond);
BENCHMARK(Det_Library)->Arg(64)->Arg(512)->Unit(benchmark::kMillisecond);
BENCHMARK(Det_EigenFullPivLU)->Arg(64)->Arg(512)->Unit(benchmark::kMillisecond);
BENCHMARK(Inv_Library)->Arg(64)->Arg(512)->Unit(benchmark::kMillisecond);
BENCHMARK(Inv_EigenFullPivLU)->Arg(64)->Arg(512)->Unit(benchmark::kMillisecond);
