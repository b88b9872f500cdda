// What the fuzz targets share: doubles drawn to reach the edges of the
// number line, the comparisons their checks need, and calls under the
// counting allocator.
#ifndef QELMATH_FUZZ_INPUT_H
#define QELMATH_FUZZ_INPUT_H

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <vector>

#include "support/test_allocator.h"

namespace fuzzin {

inline double Bits(std::uint64_t bits) { double v; std::memcpy(&v, &bits, sizeof v); return v; }

// Small integers (ties, duplicates, points on one line or circle), raw bit
// patterns (NaN payloads, subnormals, infinities), powers of two with a
// small offset (extreme ratios next to ordinary values), and a few named
// edges.
inline double Value(FuzzedDataProvider& in)
{
    using L = std::numeric_limits<double>;
    static const double edges[] = {0.0, -0.0, 1.0, -1.0, 0.5, 1e-300, 1e300, L::denorm_min(), L::min(), L::max(),
                                   L::infinity(), -L::infinity(), L::quiet_NaN(), 2.220446049250313e-16};
    switch (in.ConsumeIntegralInRange(0, 3)) {
    case 0: return in.ConsumeIntegralInRange(-8, 8);
    case 1: return Bits(in.ConsumeIntegral<std::uint64_t>());
    case 2: {
        const double offset = in.ConsumeIntegralInRange(-4, 4);
        return std::ldexp(in.ConsumeBool() ? 1.0 : -1.0, in.ConsumeIntegralInRange(-1074, 1023)) + offset;
    }
    default: return edges[in.ConsumeIntegralInRange<std::size_t>(0, sizeof edges / sizeof edges[0] - 1)];
    }
}

inline std::vector<double> Values(FuzzedDataProvider& in, std::size_t count)
{
    std::vector<double> v(count);
    for (double& x : v) x = Value(in);
    return v;
}

// Bit for bit, except that any NaN equals any NaN: which payload a NaN
// carries through a vector unit is not part of any result.
inline bool Same(const double* a, const double* b, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        if (!(std::isnan(a[i]) && std::isnan(b[i])) && std::memcmp(a + i, b + i, sizeof(double)) != 0) return false;
    return true;
}

inline bool Same(const std::vector<double>& a, const std::vector<double>& b) { return a.size() == b.size() && Same(a.data(), b.data(), a.size()); }

// A finding: say what broke and stop, so that libFuzzer keeps the input.
inline void Check(bool ok, const char* what)
{
    if (!ok) std::fprintf(stderr, "finding: %s\n", what), std::abort();
}

// Runs call with request number failAt failing (0: none) and returns the
// number of requests it made; every block it took must be back.
template <class Call>
std::size_t Counted(Call call, std::size_t failAt = 0)
{
    const std::size_t live = testalloc::live();
    testalloc::reset();
    testalloc::fail_at(failAt);
    call();
    testalloc::fail_at(0);
    Check(testalloc::live() == live, failAt ? "a block was not given back after a failed request" : "a block was not given back");
    return testalloc::requests().size();
}

}  // namespace fuzzin

#endif
