// The enclosing circle against CGAL's Min_circle_2 on an exact kernel: the
// smallest circle computed without rounding must agree to 1e-9. (Distinct
// points closer than the tolerance would not: none of these sets has any.)
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <CGAL/Min_circle_2.h>
#include <CGAL/Min_circle_2_traits_2.h>

#include "geometry/mec_cases.h"

namespace {

using namespace mectest;
using Kernel = CGAL::Exact_predicates_exact_constructions_kernel;

TEST(EnclosingCircleExact, AgreesWithExactSmallestCircle)
{
    std::mt19937_64 g(5150);
    for (int round = 0; round < 500; ++round) {
        int n = 3 + round % 58;
        for (Points s : {disc(g, n, 1.0), disc(g, n, 1e4), on_circle(g, std::min(n, 40), 2.0, false),
                         on_circle(g, 4 + round % 9, 1.0 + round, true), grid(g, n, 8, true),
                         rectangle(g, n % 7, false), rectangle(g, 0, false), grid(g, n, 20)}) {
            std::vector<Kernel::Point_2> p;
            for (std::size_t i = 0; i < s.size(); i += 2) p.emplace_back(s[i], s[i + 1]);
            const auto e = CGAL::Min_circle_2<CGAL::Min_circle_2_traits_2<Kernel>>(p.begin(), p.end(), true).circle();
            const double r = std::sqrt(CGAL::to_double(e.squared_radius()));
            const Circle c = fast(s);
            ASSERT_TRUE(std::fabs(c.r - r) <= 1e-9 * r) << round << ": " << c.r << " exact " << r;
            ASSERT_TRUE(std::hypot(c.cx - CGAL::to_double(e.center().x()), c.cy - CGAL::to_double(e.center().y())) <= 1e-9 * r) << round;
        }
    }
}

}  // namespace
