// The enclosing circle against CGAL's Min_circle_2 on an exact kernel: the
// smallest circle, computed without rounding, must agree to 1e-9 wherever no
// two points lie closer than 1e-6.
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <CGAL/Min_circle_2.h>
#include <CGAL/Min_circle_2_traits_2.h>

#include <gtest/gtest.h>

#include "geometry/mec_cases.h"

namespace {

using namespace mectest;

using Kernel = CGAL::Exact_predicates_exact_constructions_kernel;
using MinCircle = CGAL::Min_circle_2<CGAL::Min_circle_2_traits_2<Kernel>>;

Circle exact_circle(const Points& pts)
{
    std::vector<Kernel::Point_2> p;
    for (std::size_t i = 0; i + 1 < pts.size(); i += 2) p.emplace_back(pts[i], pts[i + 1]);
    MinCircle mc(p.begin(), p.end(), true);
    const auto& c = mc.circle();
    return {CGAL::to_double(c.center().x()), CGAL::to_double(c.center().y()),
            std::sqrt(CGAL::to_double(c.squared_radius()))};
}

bool well_separated(const Points& pts)
{
    for (std::size_t i = 0; i + 1 < pts.size(); i += 2)
        for (std::size_t j = i + 2; j + 1 < pts.size(); j += 2)
            if (std::hypot(pts[i] - pts[j], pts[i + 1] - pts[j + 1]) < 1e-6) return false;
    return true;
}

::testing::AssertionResult matches_exact(const Points& pts)
{
    Points work = pts;
    Circle c = fast(work);
    Circle e = exact_circle(pts);
    double tol = 1e-9 * e.r;
    if (std::fabs(c.r - e.r) > tol || std::hypot(c.cx - e.cx, c.cy - e.cy) > tol)
        return ::testing::AssertionFailure()
               << "got (" << c.cx << ", " << c.cy << ", " << c.r << ") exact (" << e.cx << ", "
               << e.cy << ", " << e.r << ") n = " << pts.size() / 2;
    return ::testing::AssertionSuccess();
}

TEST(EnclosingCircleExact, AgreesWithExactSmallestCircle)
{
    std::mt19937_64 g(5150);
    std::uniform_int_distribution<int> size(3, 60);
    int compared = 0;
    for (int round = 0; round < 500; ++round) {
        int n = size(g);
        std::vector<Points> sets = {disc(g, n, 1.0),
                                    disc(g, n, 1e4),
                                    on_circle(g, std::min(n, 40), 2.0, false),
                                    on_circle(g, std::min(n, 40), 2.0, true),
                                    cocircular_integers(g, n),
                                    rotated_rectangle(g, n % 7),
                                    grid(g, n, 20)};
        for (const Points& s : sets) {
            if (!well_separated(s)) continue;
            ASSERT_TRUE(matches_exact(s)) << round;
            ++compared;
        }
    }
    EXPECT_GT(compared, 2000);
}

// The two faults that the slack and the exact-vertex rule remove.
TEST(EnclosingCircleExact, RegularPolygonsAndRectangles)
{
    std::mt19937_64 g(11);
    for (int round = 0; round < 300; ++round) {
        int n = 4 + round % 9;
        ASSERT_TRUE(matches_exact(on_circle(g, n, 1.0 + round, true))) << round;
        ASSERT_TRUE(matches_exact(rotated_rectangle(g, 0))) << round;
    }
}

}  // namespace
