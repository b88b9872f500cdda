// What the fuzz targets share: doubles drawn to reach the edges of the
// number line, and the comparisons their checks need.
#ifndef QELMATH_FUZZ_INPUT_H
#define QELMATH_FUZZ_INPUT_H

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstdio>
#include <cstring>
#include <limits>
#include <vector>

namespace fuzzin {

// Small integers (ties, duplicates, points on one line or circle), raw bit
// patterns (NaN payloads, subnormals, infinities), powers of two with a
// small offset (extreme ratios next to ordinary values), and a few named
// edges.
inline double Value(FuzzedDataProvider& in)
{
    static const double edges[] = {0.0, -0.0, 1.0, -1.0, 0.5, 1e-300, 1e300,
                                   std::numeric_limits<double>::denorm_min(),
                                   std::numeric_limits<double>::min(),
                                   std::numeric_limits<double>::max(),
                                   std::numeric_limits<double>::infinity(),
                                   -std::numeric_limits<double>::infinity(),
                                   std::numeric_limits<double>::quiet_NaN(), 2.220446049250313e-16};
    switch (in.ConsumeIntegralInRange(0, 3)) {
    case 0: return in.ConsumeIntegralInRange(-8, 8);
    case 1: {
        const std::uint64_t bits = in.ConsumeIntegral<std::uint64_t>();
        double v;
        std::memcpy(&v, &bits, sizeof v);
        return v;
    }
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
    for (std::size_t i = 0; i < count; ++i) {
        if (std::isnan(a[i]) && std::isnan(b[i])) continue;
        if (std::memcmp(a + i, b + i, sizeof(double)) != 0) return false;
    }
    return true;
}

inline bool Same(const std::vector<double>& a, const std::vector<double>& b)
{
    return a.size() == b.size() && Same(a.data(), b.data(), a.size());
}

// A finding: say what broke and stop, so that libFuzzer keeps the input.
[[noreturn]] inline void Fail(const char* what)
{
    std::fprintf(stderr, "finding: %s\n", what);
    std::abort();
}

inline void Check(bool ok, const char* what)
{
    if (!ok) Fail(what);
}

}  // namespace fuzzin

#endif
