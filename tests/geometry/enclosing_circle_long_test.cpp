// Fast against plain search on larger sets; minutes of the plain search, so
// labelled long.
#include <gtest/gtest.h>

#include "geometry/mec_cases.h"

namespace {

using namespace mectest;

TEST(EnclosingCircleLong, MatchesPlainSearchOnLargerSets)
{
    std::mt19937_64 g(31337);
    for (int round = 0; round < 6; ++round) {
        ASSERT_TRUE(agrees(disc(g, 300, 1.0))) << round;
        ASSERT_TRUE(agrees(grid(g, 200, 12))) << round;
        ASSERT_TRUE(agrees(on_circle(g, 80, 1.0, false))) << round;
    }
}

}  // namespace
