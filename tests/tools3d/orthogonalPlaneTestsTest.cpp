#include <zrBase/tools3d/orthogonalPlaneTests.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <limits>
#include <utility>

// Points in a plane square to a coordinate plane.

namespace {

/// Result and normal of a test; the normal starts as "-1 -2 -3".
using Answer = std::pair<bool, gdfVertex>;
const Answer refused(false, {-1, -2, -3});

Answer ofXY(const VertexLine& points, double tolerance) {
  Answer answer = refused;
  answer.first = zr3DTools::isPointsPlaneOrthogonalToXYPlane(points, tolerance, answer.second);
  return answer;
}

Answer ofXZ(const VertexLine& points, double tolerance) {
  Answer answer = refused;
  answer.first = zr3DTools::isPointsPlaneOrthogonalToXZPlane(points, tolerance, answer.second);
  return answer;
}

Answer ofYZ(const VertexLine& points, double tolerance) {
  Answer answer = refused;
  answer.first = zr3DTools::isPointsPlaneOrthogonalToYZPlane(points, tolerance, answer.second);
  return answer;
}

// Steps of 3 along one axis and 4 along the other, so that the unit vector is (0.6, 0.8).

TEST(PointsPlaneOrthogonalToXYPlane, TurnsTheDirectionToTheRight) {
  const Answer answer = ofXY(line("1 1 7, 4 5 -2, 7 9 30, -2 -3 0"), 0.01);
  EXPECT_TRUE(answer.first);
  EXPECT_THAT(answer.second, VertexNear("0.8 -0.6 0", 1e-15));
}

TEST(PointsPlaneOrthogonalToXZPlane, TurnsTheDirectionInItsView) {
  const Answer answer = ofXZ(line("1 7 1, 4 -2 5, 7 30 9, -2 0 -3"), 0.01);
  EXPECT_TRUE(answer.first);
  EXPECT_THAT(answer.second, VertexNear("0.8 0 -0.6", 1e-15));
}

TEST(PointsPlaneOrthogonalToYZPlane, TurnsTheDirectionInItsView) {
  const Answer answer = ofYZ(line("7 1 1, -2 4 5, 30 7 9, 0 -2 -3"), 0.01);
  EXPECT_TRUE(answer.first);
  EXPECT_THAT(answer.second, VertexNear("0 0.8 -0.6", 1e-15));
}

TEST(PointsPlaneOrthogonal, DropsOneCoordinateEach) {
  // Straight in map view alone.
  const VertexLine upright = line("0 0 0, 1 1 4, 2 2 -3, 3 3 8");
  EXPECT_TRUE(ofXY(upright, 0.01).first);
  EXPECT_EQ(ofXZ(upright, 0.01), refused);
  EXPECT_EQ(ofYZ(upright, 0.01), refused);
}

TEST(PointsPlaneOrthogonalToXYPlane, KeptNormalTurnsWithTheOrderOfPoints) {
  EXPECT_EQ(ofXY(line("0 0, 0 5, 0 9"), 0.01), Answer(true, {1, 0, 0}));
  EXPECT_EQ(ofXY(line("0 9, 0 5, 0 0"), 0.01), Answer(true, {-1, 0, 0}));
  EXPECT_EQ(ofXZ(line("0 0 9, 0 1 5, 0 0 0"), 0.01), Answer(true, {-1, 0, 0}));
  EXPECT_EQ(ofYZ(line("1 9 0, 0 5 0, 0 0 0"), 0.01), Answer(true, {0, 0, 1}));
}

TEST(PointsPlaneOrthogonal, TwoPointsPassAndLeaveTheNormal) {
  EXPECT_EQ(ofXY(line("0 0 0, 3 4 5"), 0.01), Answer(true, {-1, -2, -3}));
  EXPECT_EQ(ofXZ(line("0 0 0, 3 4 5"), 0.01), Answer(true, {-1, -2, -3}));
  EXPECT_EQ(ofYZ(line("0 0 0, 3 4 5"), 0.01), Answer(true, {-1, -2, -3}));
}

TEST(PointsPlaneOrthogonal, KeptFewerThanThreePointsPassUnseen) {
  // Over one place, where three points are refused.
  EXPECT_EQ(ofXY(line("1 2 3, 1 2 3"), 0.01), Answer(true, {-1, -2, -3}));
  EXPECT_EQ(ofXZ(line("1 2 3"), 0.01), Answer(true, {-1, -2, -3}));
  EXPECT_EQ(ofYZ({}, -1.0), Answer(true, {-1, -2, -3}));
}

TEST(PointsPlaneOrthogonal, KeptPointsOverOnePlaceAreRefused) {
  EXPECT_EQ(ofXY(line("1 2 3, 1 2 4, 1 2 9"), 0.01), refused);
  EXPECT_EQ(ofXZ(line("1 3 2, 1 4 2, 1 9 2"), 0.01), refused);
  EXPECT_EQ(ofYZ(line("3 1 2, 4 1 2, 9 1 2"), 0.01), refused);
  // Nor is there a direction among points closer than the tolerance.
  EXPECT_EQ(ofXY(line("1 2, 1.25 2.25, 0.75 1.75"), 0.5), refused);
}

TEST(PointsPlaneOrthogonal, TakesAPointAtTheToleranceForDistant) {
  EXPECT_EQ(ofXY(line("0 0, 0.5 0, 0.25 0"), 0.5), Answer(true, {0, -1, 0}));
  EXPECT_EQ(ofXY(line("0 0, 0.4375 0, 0.25 0"), 0.5), refused);
  EXPECT_EQ(ofXZ(line("0 0 0, 0 0 -0.5, 0 0 0"), 0.5), Answer(true, {-1, 0, 0}));
}

TEST(PointsPlaneOrthogonal, LooksForTheDistantPointByCoordinate) {
  // The second point is 0.6 from the origin, but less than 0.5 in x and in y.
  EXPECT_EQ(ofXY(line("0 0, 0.4375 0.4375, 0 8"), 0.5), Answer(true, {1, 0, 0}));
}

TEST(PointsPlaneOrthogonal, AllowsTheToleranceBesideTheLine) {
  EXPECT_EQ(ofXY(line("0 0, 8 0, 4 0.5, 16 -0.5"), 0.5), Answer(true, {0, -1, 0}));
  EXPECT_EQ(ofXY(line("0 0, 8 0, 4 0.5625"), 0.5), refused);
  EXPECT_EQ(ofXY(line("0 0, 8 0, -4 -0.5625"), 0.5), refused);
}

TEST(PointsPlaneOrthogonal, KeptFirstDistantPointSetsTheDirection) {
  // All lie within 0.25 of the x axis, but the first step runs up at 1 in 4.
  const VertexLine points = line("0 0, 1 0.25, 100 0");
  EXPECT_EQ(ofXY(points, 0.5), refused);
  // The same points with the far one first.
  EXPECT_EQ(ofXY(line("0 0, 100 0, 1 0.25"), 0.5), Answer(true, {0, -1, 0}));
}

TEST(PointsPlaneOrthogonal, KeptZeroToleranceTakesTheNextPoint) {
  // One place three times: the offset has no direction, and no point is off it.
  EXPECT_EQ(ofXY(line("1 2 3, 1 2 4, 1 2 9"), 0.0), Answer(true, {0, 0, 0}));
  // The second point is over the first, so the third is measured from there.
  EXPECT_EQ(ofXY(line("0 0 0, 0 0 1, 0 5 0"), 0.0), refused);
  EXPECT_EQ(ofXY(line("0 0 0, 0 5 0, 0 0 1"), 0.0), Answer(true, {1, 0, 0}));
}

TEST(PointsPlaneOrthogonal, NegativeToleranceRefusesAll) {
  EXPECT_EQ(ofXY(line("0 0, 0 5, 0 9"), -0.5), refused);
  EXPECT_EQ(ofXZ(line("0 0, 0 0, 0 0"), -0.5), refused);
}

TEST(PointsPlaneOrthogonal, HasNoDirectionWithinTheExactnessLimit) {
  // 5e-06 is distant enough for the tolerance but too short for a direction: distances are those
  // from the origin.
  EXPECT_EQ(ofXY(line("0 0 0, 5e-06 0 1, 0 5e-06 2"), 5e-06), Answer(true, {0, 0, 0}));
  EXPECT_EQ(ofXY(line("0 0 0, 5e-06 0 1, 3 0 2"), 5e-06), refused);
}

TEST(PointsPlaneOrthogonal, NaNIsNeitherDistantNorFar) {
  // Not distant: the direction is that of the next point.
  EXPECT_EQ(ofXY(line("0 0, nan 0, 0 4"), 0.01), Answer(true, {1, 0, 0}));
  EXPECT_FALSE(ofXY(line("0 0, nan 0, 0 0"), 0.01).first);
  // By its other coordinate it is; the direction is NaN, and nothing is farther than the tolerance
  // from such a line.
  const Answer answer = ofXY(line("0 0, nan 1, 5 5"), 0.01);
  EXPECT_TRUE(answer.first);
  EXPECT_TRUE(std::isnan(answer.second.x()));
  // Not far: the line is known already.
  EXPECT_EQ(ofXY(line("0 0, 0 4, nan 1, 0 9"), 0.01), Answer(true, {1, 0, 0}));
  // In the dropped coordinate it is not looked at.
  EXPECT_EQ(ofXY(line("0 0 nan, 0 4 nan, 0 9 1"), 0.01), Answer(true, {1, 0, 0}));
  // With a NaN for the tolerance no point is distant.
  EXPECT_FALSE(ofXY(line("0 0, 0 4, 7 7"), std::nan("")).first);
}

TEST(PointsPlaneOrthogonal, NormalMayBeOneOfThePointsAndHoldTheTolerance) {
  VertexLine points = line("0 0 0.5, 0 4 1, 0 8 1");
  EXPECT_TRUE(
      zr3DTools::isPointsPlaneOrthogonalToXYPlane(points, points.front().z(), points.front()));
  EXPECT_THAT(points, LineIs("1 0 0, 0 4 1, 0 8 1"));
}

/// Points k/64 on a small grid, so that rows of three come up all the time.
VertexLine gridPoints() {
  const auto coordinate = rc::gen::map(rc::gen::inRange(-3, 4), [](int k) { return k / 64.0; });
  VertexLine points;
  const int count = *rc::gen::inRange(3, 6);
  for (int i = 0; i < count; ++i) points.emplace_back(*coordinate, *coordinate, *coordinate);
  return points;
}

VertexLine mapped(VertexLine points, gdfVertex (*map)(const gdfVertex&)) {
  for (gdfVertex& point : points) point = map(point);
  return points;
}

RC_GTEST_PROP(PointsPlaneOrthogonal, ViewsDifferByNameAlone, ()) {
  const VertexLine points = gridPoints();
  const double tolerance = *rc::gen::inRange(0, 4) / 64.0;
  const Answer xy = ofXY(points, tolerance);
  // y and z change places.
  const Answer xz = ofXZ(
      mapped(points, [](const gdfVertex& v) { return gdfVertex(v.x(), v.z(), v.y()); }), tolerance);
  // x and y move on to y and z.
  const Answer yz = ofYZ(
      mapped(points, [](const gdfVertex& v) { return gdfVertex(v.z(), v.x(), v.y()); }), tolerance);
  RC_CLASSIFY(xy.first, "in one line");
  RC_ASSERT(xz.first == xy.first);
  RC_ASSERT(yz.first == xy.first);
  if (!xy.first) return;
  const gdfVertex& n = xy.second;
  RC_ASSERT(xz.second == gdfVertex(n.x(), 0.0, n.y()));
  RC_ASSERT(yz.second == gdfVertex(0.0, n.x(), n.y()));
}

RC_GTEST_PROP(PointsPlaneOrthogonal, HeightsAreFreeInMapView, ()) {
  VertexLine points = gridPoints();
  const Answer before = ofXY(points, 0.01);
  for (gdfVertex& point : points) point.z() = *rc::gen::inRange(-1000, 1000);
  RC_ASSERT(ofXY(points, 0.01) == before);
}

}  // namespace
