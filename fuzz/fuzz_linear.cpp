// Solvers, determinants, inverses and products on orders up to 6 with any
// doubles. Each call runs at every vector level and must give the same bits
// and result; then one of its scratch requests fails, and the call must give
// its documented failure with its arrays untouched (the real product must
// give the same bits without its scratch), and no block may stay behind.
#include <algorithm>
#include <functional>

#include "QELMath.h"
#include "foundation/cpu.h"
#include "fuzz_input.h"

using fuzzin::Check;

namespace {

using Arrays = std::vector<std::vector<double>>;
using P = const std::vector<double*>&;

struct Case {
    Arrays arrays;
    std::function<int(P)> call;
    bool sameWithoutScratch;   // else 0 and nothing written on failure

    int Run(Arrays& a) const { std::vector<double*> p; for (auto& v : a) p.push_back(v.data()); return call(p); }
};

std::size_t Count(int n) { return n > 0 ? static_cast<std::size_t>(n) : 0; }

Case Make(FuzzedDataProvider& in)
{
    const int n = in.ConsumeIntegralInRange(-1, 6), m = in.ConsumeIntegralInRange(0, 3);
    const int fixed = 2 + (n < 0 ? 0 : n % 3);   // 2, 3 or 4
    const std::size_t N = Count(n), nn = N * N, nm = N * Count(m), F = Count(fixed), ff = F * F;
    // The arrays are drawn after the call's own numbers.
    auto make = [&](std::initializer_list<std::size_t> sizes, std::function<int(P)> call, bool same = false) {
        Case c{{}, std::move(call), same};
        for (std::size_t s : sizes) c.arrays.push_back(fuzzin::Values(in, s));
        return c;
    };
    switch (in.ConsumeIntegralInRange(0, 13)) {
    case 0: return make({nn, N}, [n](P p) { return linear_Gauss(p[0], p[1], n); });
    case 1: return make({nn, nn, N, N}, [n](P p) { return linear_Gauss(p[0], p[1], n, p[2], p[3]); });
    case 2: return make({nn, nm}, [n, m](P p) { return linear_GaussJordan(p[0], p[1], n, m); });
    case 3: return make({nn, nn, nm, nm}, [n, m](P p) { return linear_GaussJordan(p[0], p[1], p[2], p[3], n, m); });
    case 4: return make({nn, N}, [n](P p) { return linear_SparsenessGaussJordan(p[0], n, p[1]); });
    case 5: {
        const int h = in.ConsumeIntegralInRange(0, 6);
        return make({N * Count(2 * h + 1), nm}, [n, h, m](P p) { return linear_GaussBand(p[0], p[1], n, h, m); });
    }
    case 6: return make({n > 0 ? 3 * N - 2 : 0, N}, [n](P p) { return linear_TrianglePullup(p[0], n, p[1]); });
    case 7: return make({nn, N, N, 1}, [n](P p) { return linear_GaussSeidel(p[0], p[1], n, p[2], p[3][0]); });
    case 8: return make({ff, F}, [fixed](P p) { return (fixed == 2 ? linear_Gauss2 : fixed == 3 ? linear_Gauss3 : linear_Gauss4)(p[0], p[1]); });
    case 9:
        return make({nn, ff, 4}, [n, fixed](P p) {
            p[2][0] = mt_Det(p[0], n);
            p[2][1] = (fixed == 2 ? mt_Det2 : fixed == 3 ? mt_Det3 : mt_Det4)(p[1]);
            return 1;
        });
    case 10: return make({nn}, [n](P p) { return mt_Inv(p[0], n); });
    case 11: return make({nn, nn}, [n](P p) { return mt_Inv(p[0], p[1], n); });
    case 12: return make({ff}, [fixed](P p) { return (fixed == 2 ? mt_Inv2 : fixed == 3 ? mt_Inv3 : mt_Inv4)(p[0]); });
    default: {
        const int rows = in.ConsumeIntegralInRange(0, 6), inner = n < 0 ? 0 : n, cols = in.ConsumeIntegralInRange(0, 6);
        const std::size_t a = Count(rows) * N, b = N * Count(cols), c = Count(rows) * Count(cols);
        if (in.ConsumeBool()) return make({a, b, c}, [=](P p) { return mt_Mul(p[0], p[1], rows, inner, cols, p[2]), 1; }, true);
        return make({a, a, b, b, c, c}, [=](P p) { return mt_Mul(p[0], p[1], p[2], p[3], rows, inner, cols, p[4], p[5]), 1; }, true);
    }
    }
}

bool Same(const Arrays& a, const Arrays& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), [](auto& x, auto& y) { return fuzzin::Same(x, y); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider in(data, size);
    const std::size_t failAt = in.ConsumeIntegralInRange(1, 4);
    const Case c = Make(in);
    Arrays widest = c.arrays, starved = c.arrays;
    int code = 0, other = 0;
    const std::size_t requests = fuzzin::Counted([&] { code = c.Run(widest); });
    for (auto level : {qel::SimdLevel::kBaseline, qel::SimdLevel::kAvx2}) {
        Arrays narrow = c.arrays;
        qel::cap_simd_level(level);
        fuzzin::Counted([&] { other = c.Run(narrow); });
        qel::cap_simd_level(qel::SimdLevel::kAvx512);
        Check(other == code && Same(narrow, widest), "vector levels differ");
    }
    // Order 0 gives its own result, memory or not.
    if (failAt > requests || c.arrays[0].empty()) return 0;
    fuzzin::Counted([&] { other = c.Run(starved); }, failAt);
    if (c.sameWithoutScratch) Check(Same(starved, widest), "the product changed without its scratch");
    else Check(other == 0 && Same(starved, c.arrays), "a failed request wrote or succeeded");
    return 0;
}
