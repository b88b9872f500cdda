// The enclosing circle against CGAL's Min_circle_2 on an exact kernel: the
// smallest circle computed without rounding must agree to 1e-9 wherever no
// two points lie closer than 1e-6.
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <CGAL/Min_circle_2.h>
#include <CGAL/Min_circle_2_traits_2.h>

#include "geometry/mec_cases.h"

namespace {

using namespace mectest;
using Kernel = CGAL::Exact_predicates_exact_constructions_kernel;

::testing::AssertionResult matches_exact(const Points& pts)
{
    std::vector<Kernel::Point_2> p;
    for (std::size_t i = 0; i < pts.size(); i += 2) {
        for (std::size_t j = i + 2; j < pts.size(); j += 2)
            if (std::hypot(pts[i] - pts[j], pts[i + 1] - pts[j + 1]) < 1e-6) return ::testing::AssertionSuccess();
        p.emplace_back(pts[i], pts[i + 1]);
    }
    const auto e = CGAL::Min_circle_2<CGAL::Min_circle_2_traits_2<Kernel>>(p.begin(), p.end(), true).circle();
    double ex = CGAL::to_double(e.center().x()), ey = CGAL::to_double(e.center().y());
    double er = std::sqrt(CGAL::to_double(e.squared_radius()));
    Points work = pts;
    Circle c = fast(work);
    if (std::fabs(c.r - er) <= 1e-9 * er && std::hypot(c.cx - ex, c.cy - ey) <= 1e-9 * er)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "got (" << c.cx << ", " << c.cy << ", " << c.r << ") exact (" << ex
                                         << ", " << ey << ", " << er << ") n = " << pts.size() / 2;
}

TEST(EnclosingCircleExact, AgreesWithExactSmallestCircle)
{
    std::mt19937_64 g(5150);
    for (int round = 0; round < 500; ++round) {
        int n = 3 + round % 58;
        for (const Points& s : {disc(g, n, 1.0), disc(g, n, 1e4), on_circle(g, std::min(n, 40), 2.0, false),
                                on_circle(g, 4 + round % 9, 1.0 + round, true), grid(g, n, 8, true),
                                rectangle(g, n % 7, false), rectangle(g, 0, false), grid(g, n, 20)})
            ASSERT_TRUE(matches_exact(s)) << round;
    }
}

}  // namespace
