// Fast against plain search on larger sets; minutes of the plain search, so
// labelled long.
#include <gtest/gtest.h>

#include "geometry/mec_cases.h"

namespace {

using namespace mectest;

TEST(EnclosingCircleLong, MatchesPlainSearchOnLargerSets)
{
    std::mt19937_64 g(31337);
    for (int round = 0; round < 12; ++round) {
        ASSERT_TRUE(agrees(disc(g, 600, 1.0))) << round;
        ASSERT_TRUE(agrees(grid(g, 400, 20))) << round;
        ASSERT_TRUE(agrees(grid(g, 150, 3))) << round;
        ASSERT_TRUE(agrees(on_circle(g, 100, 1.0, false))) << round;
        ASSERT_TRUE(agrees(on_circle(g, 90, 1e3, true))) << round;
        Points mixed = disc(g, 200, 5.0);
        Points ring = on_circle(g, 60, 5.0, false);
        mixed.insert(mixed.end(), ring.begin(), ring.end());
        ASSERT_TRUE(agrees(mixed)) << round;
        ASSERT_TRUE(agrees(rectangle_outline(g, 40))) << round;
    }
}

}  // namespace
