#include <zrBase/tools3d/planePlaneIntersection.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <cstddef>
#include <limits>

// Two planes: whether they are parallel, and the line in which they meet.

namespace {

constexpr double tolerance = 1e-05;

TEST(ParallelPlanes, KeptParallelComparesSquaredCrossProduct) {
  // The cross product has the length 0.001, its square is 1e-06.
  EXPECT_TRUE(zr3DTools::parallelPlanes({1, 0, 0}, {1, 0, 0.001}, 1e-05));
  EXPECT_FALSE(zr3DTools::parallelPlanes({1, 0, 0}, {1, 0, 0.001}, 1e-07));
  // The same planes, under longer normals.
  EXPECT_FALSE(zr3DTools::parallelPlanes({10, 0, 0}, {10, 0, 0.01}, 1e-05));
}

TEST(ParallelPlanes, IsClosed) {
  EXPECT_TRUE(zr3DTools::parallelPlanes({1, 0, 0}, {1, 0, 0.5}, 0.25));
  EXPECT_FALSE(zr3DTools::parallelPlanes({1, 0, 0}, {1, 0, 0.625}, 0.25));
  EXPECT_TRUE(zr3DTools::parallelPlanes({1, 2, 3}, {2, 4, 6}, 0.0));
}

TEST(ParallelPlanes, TakesOppositeAndZeroNormalsAsParallel) {
  EXPECT_TRUE(zr3DTools::parallelPlanes({1, 2, 3}, {-1, -2, -3}, 0.0));
  EXPECT_TRUE(zr3DTools::parallelPlanes({0, 0, 0}, {1, 2, 3}, 0.0));
}

TEST(ParallelPlanes, IsFalseWithANaN) {
  EXPECT_FALSE(zr3DTools::parallelPlanes(vertex("nan 0 0"), {1, 0, 0}, 1e300));
}

/// The line in which two planes meet; both vertices start as "-1 -2 -3".
struct Meeting {
  bool result = false;
  gdfVertex point{-1, -2, -3};
  gdfVertex direction{-1, -2, -3};
};

Meeting meet(double d1, const gdfVertex& n1, double d2, const gdfVertex& n2,
             double withTolerance = tolerance) {
  Meeting m;
  m.result = zr3DTools::planePlaneIntersect(d1, n1, d2, n2, m.point, m.direction, withTolerance);
  return m;
}

void expectMeeting(const Meeting& m, const char* point, const char* direction) {
  EXPECT_TRUE(m.result);
  EXPECT_THAT(m.point, VertexIs(point));
  EXPECT_THAT(m.direction, VertexIs(direction));
}

TEST(PlanePlaneIntersect, CutsALineAlongYWhereYIsZero) {
  expectMeeting(meet(1.0, {0, 0, 1}, 2.0, {1, 0, 0}), "2 0 1", "0 1 0");
}

TEST(PlanePlaneIntersect, CutsALineAlongZWhereZIsZero) {
  expectMeeting(meet(3.0, {1, 0, 0}, 4.0, {0, 1, 0}), "3 4 0", "0 0 1");
}

TEST(PlanePlaneIntersect, CutsALineAlongXWhereXIsZero) {
  expectMeeting(meet(5.0, {0, 1, 0}, 6.0, {0, 0, 1}), "0 5 6", "1 0 0");
}

TEST(PlanePlaneIntersect, LeavesTheDirectionAsLongAsTheNormalsMakeIt) {
  expectMeeting(meet(2.0, {0, 0, 2}, 6.0, {3, 0, 0}), "2 0 1", "0 6 0");
}

TEST(PlanePlaneIntersect, ChoosesByAbsoluteValue) {
  // The planes swapped, so that the direction turns round.
  expectMeeting(meet(2.0, {1, 0, 0}, 1.0, {0, 0, 1}), "2 0 1", "0 -1 0");
  // (1, 0, 0) ^ (0, -2, 1) = (0, -1, -2): z is the longest. -2 y = 8.
  expectMeeting(meet(3.0, {1, 0, 0}, 8.0, {0, -2, 1}), "3 -4 0", "0 -1 -2");
}

TEST(PlanePlaneIntersect, KeptTiedDirectionIsCutAtX) {
  // (1, 0, -1) ^ (0, 1, -1) = (1, 1, 1). With x = 0: z = -2, y = 1.
  expectMeeting(meet(2.0, {1, 0, -1}, 3.0, {0, 1, -1}), "0 1 -2", "1 1 1");
  // (1, 0, 0) ^ (0, 1, -1) = (0, 1, 1): no x to cut at.
  const Meeting m = meet(2.0, {1, 0, 0}, 3.0, {0, 1, -1});
  EXPECT_TRUE(m.result);
  EXPECT_THAT(m.direction, VertexIs("0 1 1"));
  EXPECT_EQ(m.point.x(), 0.0);
  // x of the direction is 0 * -1 - 0 * 1, a negative 0; y and z are -2 divided by it.
  EXPECT_EQ(m.point.y(), std::numeric_limits<double>::infinity());
  EXPECT_EQ(m.point.z(), std::numeric_limits<double>::infinity());
  EXPECT_FALSE(m.point.valid());
}

TEST(PlanePlaneIntersect, LeavesTheOutputsAloneForParallelPlanes) {
  const Meeting m = meet(1.0, {1, 0, 0}, 1.0, {1, 0, 0.001});
  EXPECT_FALSE(m.result);
  EXPECT_THAT(m.point, VertexIs("-1 -2 -3"));
  EXPECT_THAT(m.direction, VertexIs("-1 -2 -3"));
}

TEST(PlanePlaneIntersect, OutputsMayBeTheNormals) {
  gdfVertex n1(0, 0, 1);
  gdfVertex n2(1, 0, 0);
  EXPECT_TRUE(zr3DTools::planePlaneIntersect(1.0, n1, 2.0, n2, n2, n1, tolerance));
  EXPECT_THAT(n2, VertexIs("2 0 1"));
  EXPECT_THAT(n1, VertexIs("0 1 0"));
}

RC_GTEST_PROP(PlanePlaneIntersect, PointLiesOnBothPlanesAndOnTheCutOfTheLongestComponent, ()) {
  const auto drawn = [] {
    const int x = *rc::gen::inRange(-8, 9);
    const int y = *rc::gen::inRange(-8, 9);
    return gdfVertex(x, y, *rc::gen::inRange(-8, 9));
  };
  const gdfVertex n1 = drawn(), n2 = drawn();
  const double d1 = *rc::gen::inRange(-64, 65) / 64.0;
  const double d2 = *rc::gen::inRange(-64, 65) / 64.0;
  const Meeting m = meet(d1, n1, d2, n2, 0.0);
  const gdfVertex along = n1 ^ n2;
  RC_ASSERT(m.result == (along != gdfVertex()));
  if (!m.result) return;
  RC_ASSERT(m.direction == along);
  const double x = std::fabs(along.x()), y = std::fabs(along.y()), z = std::fabs(along.z());
  const int cut = z > y && z > x ? 2 : y > z && y > x ? 1 : 0;
  RC_ASSERT(m.point[static_cast<std::size_t>(cut)] == 0.0);
  if (along[static_cast<std::size_t>(cut)] == 0.0) {
    RC_ASSERT(!m.point.valid());
    return;
  }
  RC_ASSERT(std::fabs(m.point * n1 - d1) < 1e-12);
  RC_ASSERT(std::fabs(m.point * n2 - d2) < 1e-12);
}

RC_GTEST_PROP(PlanePlaneIntersect, SwappedPlanesTurnTheDirectionRound, ()) {
  const auto drawn = [] {
    const int x = *rc::gen::inRange(-8, 9);
    const int y = *rc::gen::inRange(-8, 9);
    return gdfVertex(x, y, *rc::gen::inRange(-8, 9)) / 7.0;
  };
  const gdfVertex n1 = drawn(), n2 = drawn();
  const Meeting m = meet(1.3, n1, -0.7, n2);
  const Meeting swapped = meet(-0.7, n2, 1.3, n1);
  RC_ASSERT(m.result == swapped.result);
  RC_PRE(m.result && m.point.valid());
  RC_ASSERT(swapped.direction == -m.direction);
  RC_ASSERT(swapped.point == m.point);
}

}  // namespace
