// Scratch requests of the solvers: sizes, every block given back on every
// path, a failing allocator, and the solvers that take nothing.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "QELMath.h"
#include "support/test_allocator.h"
#include "test_util.h"

namespace {

using lintest::same_bits;
using lintest::Vec;

Vec regular(int n)
{
    Vec a(std::size_t(n) * n, 0.5);
    for (int i = 0; i < n; ++i) a[i * n + i] = 4.0 + i;
    return a;
}

// A solver that takes a column record, with arrays for order n: a regular
// matrix (imaginary parts, where there are any, of 0.25) or a zero one.
struct Allocating {
    const char* name;
    std::size_t a_size, b_size;  // per n*n and per n
    std::function<int(int n, double* a, double* b)> call;

    void make(int n, bool singular, Vec& a, Vec& b) const
    {
        a = singular ? Vec(std::size_t(n) * n, 0.0) : regular(n);
        a.resize(a_size * n * n, singular ? 0.0 : 0.25);
        b = Vec(b_size * n, 1.0);
    }
};

std::vector<Allocating> allocating()
{
    return {
        {"Gauss", 1, 1, [](int n, double* a, double* b) { return linear_Gauss(a, b, n); }},
        {"Gauss complex", 2, 2,
         [](int n, double* a, double* b) { return linear_Gauss(a, a + n * n, n, b, b + n); }},
        {"GaussJordan", 1, 2,
         [](int n, double* a, double* b) { return linear_GaussJordan(a, b, n, 2); }},
        {"GaussJordan complex", 2, 4,
         [](int n, double* a, double* b) {
             return linear_GaussJordan(a, a + n * n, b, b + 2 * n, n, 2);
         }},
        {"SparsenessGaussJordan", 1, 1,
         [](int n, double* a, double* b) { return linear_SparsenessGaussJordan(a, n, b); }},
    };
}

TEST(Scratch, OneBlockOfNIntsGivenBackOnEveryPath)
{
    for (const Allocating& f : allocating()) {
        for (int n : {0, 1, 5}) {
            for (bool singular : {false, true}) {
                Vec a, b;
                f.make(n, singular, a, b);
                testalloc::Scope scope;
                int r = f.call(n, a.data(), b.data());
                EXPECT_EQ(r, (singular && n > 0) ? 0 : 1) << f.name << " n " << n;
                EXPECT_EQ(testalloc::requests(), std::vector<std::uint32_t>{std::uint32_t(4 * n)})
                    << f.name << " n " << n;
                EXPECT_EQ(testalloc::frees(), 1u) << f.name;
                EXPECT_EQ(scope.leaked(), 0u) << f.name;
            }
        }
    }
}

TEST(Scratch, FailedRequestReturnsZeroAndTouchesNothing)
{
    for (const Allocating& f : allocating()) {
        Vec a, b;
        f.make(4, false, a, b);
        const Vec a_in = a, b_in = b;
        testalloc::Scope scope;
        testalloc::fail_at(1);
        EXPECT_EQ(f.call(4, a.data(), b.data()), 0) << f.name;
        testalloc::fail_at(0);
        EXPECT_EQ(testalloc::requests().size(), 1u) << f.name;
        EXPECT_EQ(scope.leaked(), 0u) << f.name;
        EXPECT_TRUE(same_bits(a, a_in)) << f.name;
        EXPECT_TRUE(same_bits(b, b_in)) << f.name;
        // The same call succeeds once memory is there.
        EXPECT_EQ(f.call(4, a.data(), b.data()), 1) << f.name;
    }
}

TEST(Scratch, NegativeOrdersTakeNothingAndTouchNothing)
{
    testalloc::Scope scope;
    double a[4] = {1, 2, 3, 4}, b[4] = {5, 6, 7, 8};
    EXPECT_EQ(linear_Gauss(a, b, -1), 0);
    EXPECT_EQ(linear_Gauss(a, a + 2, -3, b, b + 2), 0);
    EXPECT_EQ(linear_GaussJordan(a, b, -1, 1), 0);
    EXPECT_EQ(linear_GaussJordan(a, b, 2, -1), 0);
    EXPECT_EQ(linear_GaussJordan(a, a + 2, b, b + 2, -1, 1), 0);
    EXPECT_EQ(linear_GaussJordan(a, a + 2, b, b + 2, 1, -1), 0);
    EXPECT_EQ(linear_SparsenessGaussJordan(a, -2, b), 0);
    EXPECT_TRUE(testalloc::requests().empty());
    EXPECT_EQ(Vec(a, a + 4), (Vec{1, 2, 3, 4}));
    EXPECT_EQ(Vec(b, b + 4), (Vec{5, 6, 7, 8}));
}

TEST(Scratch, ClosedFormsBandTridiagonalAndSeidelTakeNothing)
{
    testalloc::Scope scope;
    testalloc::fail_from(1);  // any request would fail loudly
    Vec a2{2, 1, 1, 3}, b2{1, 1};
    EXPECT_EQ(linear_Gauss2(a2.data(), b2.data()), 1);
    Vec a3{1e10, 0, 0, 0, 1e-10, 0, 0, 0, 1e-10}, b3{1, 1, 1};  // the fallback path
    EXPECT_EQ(linear_Gauss3(a3.data(), b3.data()), 1);
    Vec a4(16, 0.0), b4{1, 2, 3, 4};
    for (int i = 0; i < 4; ++i) a4[i * 5] = 1.0;  // the fallback path
    EXPECT_EQ(linear_Gauss4(a4.data(), b4.data()), 1);
    Vec band{2, 1, 0, 1, 2, 0}, bb{1, 1};
    EXPECT_EQ(linear_GaussBand(band.data(), bb.data(), 2, 1, 1), 2);
    Vec tri{2, 1, 1, 2}, tb{1, 1};
    EXPECT_EQ(linear_TrianglePullup(tri.data(), 2, tb.data()), 2);
    Vec gs{4, 1, 1, 4}, gb{1, 1}, gx(2);
    EXPECT_EQ(linear_GaussSeidel(gs.data(), gb.data(), 2, gx.data(), 1e-12), 1);
    EXPECT_TRUE(testalloc::requests().empty());
    testalloc::fail_from(0);
}

}  // namespace
