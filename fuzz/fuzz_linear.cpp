// Solvers, determinants, inverses and products on orders up to 6 with any
// doubles. Each call runs at every vector level and must give the same bits
// and result; then one of its scratch requests fails, and the call must give
// its documented failure with its arrays untouched (the real product must
// give the same bits without its scratch), and no block may stay behind.
#include <functional>

#include "QELMath.h"
#include "foundation/cpu.h"
#include "fuzz_input.h"
#include "support/test_allocator.h"

using fuzzin::Check;

namespace {

using Arrays = std::vector<std::vector<double>>;

struct Case {
    Arrays arrays;
    std::function<int(Arrays&)> call;
    bool sameWithoutScratch = false;   // else 0 and nothing written on failure
    bool empty = false;                // order 0: its own result, memory or not
};

std::size_t Count(int n) { return n > 0 ? static_cast<std::size_t>(n) : 0; }

Case Make(FuzzedDataProvider& in)
{
    const int n = in.ConsumeIntegralInRange(-1, 6);
    const int m = in.ConsumeIntegralInRange(0, 3);
    const std::size_t nn = Count(n) * Count(n), nm = Count(n) * Count(m);
    auto arrays = [&](std::initializer_list<std::size_t> sizes) {
        Arrays a;
        for (std::size_t s : sizes) a.push_back(fuzzin::Values(in, s));
        return a;
    };
    const int fixed = 2 + (n < 0 ? 0 : n % 3);   // 2, 3 or 4
    const std::size_t ff = static_cast<std::size_t>(fixed * fixed);
    switch (in.ConsumeIntegralInRange(0, 13)) {
    case 0: return {arrays({nn, Count(n)}), [n](Arrays& a) { return linear_Gauss(a[0].data(), a[1].data(), n); }};
    case 1:
        return {arrays({nn, nn, Count(n), Count(n)}), [n](Arrays& a) {
                    return linear_Gauss(a[0].data(), a[1].data(), n, a[2].data(), a[3].data());
                }};
    case 2:
        return {arrays({nn, nm}), [n, m](Arrays& a) { return linear_GaussJordan(a[0].data(), a[1].data(), n, m); }};
    case 3:
        return {arrays({nn, nn, nm, nm}), [n, m](Arrays& a) {
                    return linear_GaussJordan(a[0].data(), a[1].data(), a[2].data(), a[3].data(), n, m);
                }};
    case 4:
        return {arrays({nn, Count(n)}), [n](Arrays& a) { return linear_SparsenessGaussJordan(a[0].data(), n, a[1].data()); }};
    case 5: {
        const int h = in.ConsumeIntegralInRange(0, 6);
        return {arrays({Count(n) * static_cast<std::size_t>(2 * h + 1), nm}),
                [n, h, m](Arrays& a) { return linear_GaussBand(a[0].data(), a[1].data(), n, h, m); }};
    }
    case 6:
        return {arrays({n > 0 ? 3 * Count(n) - 2 : 0, Count(n)}),
                [n](Arrays& a) { return linear_TrianglePullup(a[0].data(), n, a[1].data()); }};
    case 7:
        return {arrays({nn, Count(n), Count(n), 1}), [n](Arrays& a) {
                    return linear_GaussSeidel(a[0].data(), a[1].data(), n, a[2].data(), a[3][0]);
                }};
    case 8:
        return {arrays({ff, static_cast<std::size_t>(fixed)}), [fixed](Arrays& a) {
                    return fixed == 2 ? linear_Gauss2(a[0].data(), a[1].data())
                                      : fixed == 3 ? linear_Gauss3(a[0].data(), a[1].data())
                                                   : linear_Gauss4(a[0].data(), a[1].data());
                }};
    case 9:
        return {arrays({nn, ff, 4}), [n, fixed](Arrays& a) {
                    a[2][0] = mt_Det(a[0].data(), n);
                    a[2][1] = fixed == 2 ? mt_Det2(a[1].data()) : fixed == 3 ? mt_Det3(a[1].data()) : mt_Det4(a[1].data());
                    return 1;
                }};
    case 10: return {arrays({nn}), [n](Arrays& a) { return mt_Inv(a[0].data(), n); }};
    case 11: return {arrays({nn, nn}), [n](Arrays& a) { return mt_Inv(a[0].data(), a[1].data(), n); }};
    case 12:
        return {arrays({ff}), [fixed](Arrays& a) {
                    return fixed == 2 ? mt_Inv2(a[0].data()) : fixed == 3 ? mt_Inv3(a[0].data()) : mt_Inv4(a[0].data());
                }};
    default: {
        const int rows = in.ConsumeIntegralInRange(0, 6), inner = n < 0 ? 0 : n, cols = in.ConsumeIntegralInRange(0, 6);
        const std::size_t a = Count(rows) * Count(inner), b = Count(inner) * Count(cols), c = Count(rows) * Count(cols);
        if (in.ConsumeBool())
            return {arrays({a, b, c}), [=](Arrays& x) {
                        mt_Mul(x[0].data(), x[1].data(), rows, inner, cols, x[2].data());
                        return 1;
                    }, true};
        return {arrays({a, a, b, b, c, c}), [=](Arrays& x) {
                    mt_Mul(x[0].data(), x[1].data(), x[2].data(), x[3].data(), rows, inner, cols, x[4].data(), x[5].data());
                    return 1;
                }, true};
    }
    }
}

bool Same(const Arrays& a, const Arrays& b)
{
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!fuzzin::Same(a[i], b[i])) return false;
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider in(data, size);
    const std::size_t failAt = in.ConsumeIntegralInRange(1, 4);
    Case c = Make(in);
    c.empty = c.arrays.empty() || c.arrays[0].empty();
    const std::size_t live = testalloc::live();

    Arrays widest = c.arrays;
    testalloc::reset();
    const int code = c.call(widest);
    const std::size_t requests = testalloc::requests().size();
    for (auto level : {qel::SimdLevel::kBaseline, qel::SimdLevel::kAvx2}) {
        Arrays narrow = c.arrays;
        qel::cap_simd_level(level);
        const int narrowCode = c.call(narrow);
        qel::cap_simd_level(qel::SimdLevel::kAvx512);
        Check(narrowCode == code && Same(narrow, widest), "vector levels differ");
    }
    Check(testalloc::live() == live, "a block was not given back");

    if (failAt <= requests && !c.empty) {
        Arrays starved = c.arrays;
        testalloc::reset();
        testalloc::fail_at(failAt);
        const int starvedCode = c.call(starved);
        testalloc::fail_at(0);
        if (c.sameWithoutScratch)
            Check(Same(starved, widest), "the product changed without its scratch");
        else if (getenv("FZDBG")) { fprintf(stderr,"code %d starved %d req %zu failAt %zu arrays %zu\n", code, starvedCode, requests, failAt, c.arrays.size()); for (auto& a: c.arrays){ for(double v:a) fprintf(stderr,"%a ",v); fprintf(stderr,"\n");} for (auto& a: starved){ for(double v:a) fprintf(stderr,"%a ",v); fprintf(stderr,"\n");} }
        if (!c.sameWithoutScratch)
            Check(starvedCode == 0 && Same(starved, c.arrays), "a failed request wrote or succeeded");
        Check(testalloc::live() == live, "a block was not given back after a failed request");
    }
    return 0;
}
