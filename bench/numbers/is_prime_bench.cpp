// num_IsPrime against a plain strong probable-prime test to the bases 2, 7
// and 61 (64-bit remainders, no screening) and against trial division by
// the table primes, on the same inputs in the same run: uniformly random
// 32-bit numbers, and random primes above 2^31 (the slowest case for all).
#include <cstdint>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include "QELMath.h"
#include "numbers/prime_reference.h"

namespace {

constexpr std::size_t kInputs = 4096;

const std::vector<std::uint32_t>& random_numbers()
{
    static const std::vector<std::uint32_t> numbers = [] {
        std::mt19937 rng(12345u);
        std::vector<std::uint32_t> v(kInputs);
        for (auto& n : v) n = rng();
        return v;
    }();
    return numbers;
}

const std::vector<std::uint32_t>& random_large_primes()
{
    static const std::vector<std::uint32_t> primes = [] {
        std::mt19937 rng(678u);
        std::vector<std::uint32_t> v;
        while (v.size() < kInputs) {
            std::uint32_t n = rng() | 0x80000001u;
            if (reference::miller_rabin_is_prime(n)) v.push_back(n);
        }
        return v;
    }();
    return primes;
}

template <int (*Test)(std::uint32_t)>
void run(benchmark::State& state, const std::vector<std::uint32_t>& inputs)
{
    for (auto _ : state) {
        int count = 0;
        for (std::uint32_t n : inputs) count += Test(n);
        benchmark::DoNotOptimize(count);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(inputs.size()));
}

void IsPrime_Random(benchmark::State& s) { run<num_IsPrime>(s, random_numbers()); }
void PlainMillerRabin_Random(benchmark::State& s)
{
    run<reference::miller_rabin_is_prime>(s, random_numbers());
}
void TrialDivision_Random(benchmark::State& s)
{
    run<reference::trial_division_is_prime>(s, random_numbers());
}
void IsPrime_LargePrimes(benchmark::State& s) { run<num_IsPrime>(s, random_large_primes()); }
void PlainMillerRabin_LargePrimes(benchmark::State& s)
{
    run<reference::miller_rabin_is_prime>(s, random_large_primes());
}
void TrialDivision_LargePrimes(benchmark::State& s)
{
    run<reference::trial_division_is_prime>(s, random_large_primes());
}

}  // namespace

BENCHMARK(IsPrime_Random);
BENCHMARK(PlainMillerRabin_Random);
BENCHMARK(TrialDivision_Random);
BENCHMARK(IsPrime_LargePrimes);
BENCHMARK(PlainMillerRabin_LargePrimes);
BENCHMARK(TrialDivision_LargePrimes);
