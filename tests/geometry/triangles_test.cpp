#include <cmath>

#include <gtest/gtest.h>

#include "QELMath.h"

namespace {

TEST(TriangleCircumCircle, RightTriangleAndCollinear)
{
    double a[3] = {0, 0, 0}, b[3] = {2, 0, 0}, c[3] = {0, 2, 0}, centre[3] = {9, 9, 9};
    EXPECT_EQ(TriangleCircumCircle(a, b, c, centre), std::sqrt(2.0));
    EXPECT_EQ(centre[0], 1);
    EXPECT_EQ(centre[1], 1);
    EXPECT_EQ(centre[2], 9);

    double d[3] = {1, 0, 0}, e[3] = {4, 0, 0};
    EXPECT_EQ(TriangleCircumCircle(a, d, e, centre), 4);
    EXPECT_EQ(centre[0], 2);
    EXPECT_EQ(centre[1], 0);
    // Degenerate: the box's full diagonal, not half of it.
    double f[3] = {3, 4, 0};
    EXPECT_EQ(TriangleCircumCircle(a, f, f, centre), 5);
    EXPECT_EQ(centre[0], 1.5);
    EXPECT_EQ(centre[1], 2);
}

TEST(PointIsInTriangle, InsideOutsideVertex)
{
    double a[3] = {0, 0, 0}, b[3] = {10, 0, 0}, c[3] = {0, 10, 0};
    double in[3] = {2, 2, 0}, box[3] = {6, 6, 0}, far[3] = {11, 1, 0}, at[3] = {0, 0, 0},
           near[3] = {0.00001, 0, 0};
    EXPECT_EQ(PointIsInTriangle(a, b, c, in), 1);
    EXPECT_EQ(PointIsInTriangle(a, b, c, box), -1);
    EXPECT_EQ(PointIsInTriangle(a, b, c, far), -1);
    EXPECT_EQ(PointIsInTriangle(a, b, c, at), 0);
    EXPECT_EQ(PointIsInTriangle(a, b, c, near), 0);
    // Either orientation finds the inside.
    EXPECT_EQ(PointIsInTriangle(a, c, b, in), 1);
}

TEST(PointIsInTriangle, EdgePointFollowsOrientation)
{
    double a[3] = {0, 0, 0}, b[3] = {10, 0, 0}, c[3] = {0, 10, 0}, e[3] = {5, 0, 0};
    EXPECT_EQ(PointIsInTriangle(a, b, c, e), -1);
    EXPECT_EQ(PointIsInTriangle(a, c, b, e), 1);
}

TEST(TranglePerimeter, TwoSidesInSpace)
{
    double a[3] = {0, 0, 0}, b[3] = {3, 0, 0}, c[3] = {3, 4, 0};
    EXPECT_EQ(TranglePerimeter(a, b, c), 7);
    double d[3] = {3, 0, 12};
    EXPECT_EQ(TranglePerimeter(a, b, d), 15);
}

TEST(TrangleArea, AreaInSpace)
{
    double a[3] = {0, 0, 0}, b[3] = {3, 0, 0}, c[3] = {3, 4, 0};
    EXPECT_EQ(TrangleArea(a, b, c), 6);
    double d[3] = {1, 1, 1}, e[3] = {1, 3, 1}, f[3] = {1, 1, 5};
    EXPECT_EQ(TrangleArea(d, e, f), 4);
    double g[3] = {2, 2, 2};
    EXPECT_EQ(TrangleArea(a, d, g), 0);
}

TEST(TriangleInscribedCircle, IncentreAndRadius)
{
    double a[3] = {0, 0, 7}, b[3] = {3, 0, 7}, c[3] = {0, 4, 7}, centre[3] = {9, 9, 9};
    EXPECT_EQ(TriangleInscribedCircle(a, b, c, centre), 1);
    EXPECT_EQ(centre[0], 1);
    EXPECT_EQ(centre[1], 1);
    EXPECT_EQ(centre[2], 9);
    // Works in the plane: z does not enter.
    double cz[3] = {0, 4, -50};
    EXPECT_EQ(TriangleInscribedCircle(a, b, cz, centre), 1);

    // Collinear: radius 0, centre inside the segment.
    double d[3] = {4, 0, 0}, e[3] = {1, 0, 0};
    EXPECT_EQ(TriangleInscribedCircle(a, d, e, centre), 0);
    EXPECT_EQ(centre[1], 0);

    // All three within the tolerance: P1 and radius 0.
    double p[3] = {5, 6, 0}, q[3] = {5 + 1e-10, 6, 0};
    centre[0] = centre[1] = 9;
    EXPECT_EQ(TriangleInscribedCircle(p, q, p, centre), 0);
    EXPECT_EQ(centre[0], 5);
    EXPECT_EQ(centre[1], 6);
}

}  // namespace
