#include <zrBase/tools2d/sideTests.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

// Sides of vectors and segments, the distance from a segment's line, the compass angle of a step.

namespace {

zre::side sideOfVector(const std::string& text, double tolerance = 0.0) {
  const VertexLine v = line(text);
  return zr2DTools::getSideOfVector(v.at(0), v.at(1), v.at(2), tolerance);
}

zre::side sideOfSegment(const std::string& text, double tolerance = 0.0) {
  const VertexLine v = line(text);
  return zr2DTools::getSideOfSegment(v.at(0), v.at(1), v.at(2), tolerance);
}

TEST(Side, HasItsFourValues) {
  EXPECT_EQ(static_cast<int>(zre::sideOn), 0);
  EXPECT_EQ(static_cast<int>(zre::sideLeft), 1);
  EXPECT_EQ(static_cast<int>(zre::sideRight), 2);
  EXPECT_EQ(static_cast<int>(zre::sideNone), 3);
}

TEST(SideOfVector, WestOfATripNorthIsLeft) {
  EXPECT_EQ(sideOfVector("0 0, 0 1, -1 5"), zre::sideLeft);
  EXPECT_EQ(sideOfVector("0 0, 0 1, 1 5"), zre::sideRight);
  EXPECT_EQ(sideOfVector("0 0, 0 1, 0 5"), zre::sideOn);
  EXPECT_EQ(sideOfVector("0 0, 0 1, 0 -5"), zre::sideOn);
  EXPECT_EQ(sideOfVector("0 0, 1 0, 5 1"), zre::sideLeft);
  EXPECT_EQ(sideOfVector("0 0, 1 0, 5 -1"), zre::sideRight);
  EXPECT_EQ(sideOfVector("3 3, -1 -1, 4 3"), zre::sideLeft);
}

// w = (-1, 0) and (1, 0), the measure is 0.5 and -0.5.
TEST(SideOfVector, MeasureAtTheToleranceIsOn) {
  EXPECT_EQ(sideOfVector("0 0, 0 0.5, -7 0", 0.5), zre::sideOn);
  EXPECT_EQ(sideOfVector("0 0, 0 0.5, 7 0", 0.5), zre::sideOn);
  EXPECT_EQ(sideOfVector("0 0, 0 0.5, -7 0", 0.4999), zre::sideLeft);
  EXPECT_EQ(sideOfVector("0 0, 0 0.5, 7 0", 0.4999), zre::sideRight);
}

TEST(SideOfVector, WayToTheVertexIsNormalisedTheVectorIsNot) {
  EXPECT_EQ(sideOfVector("0 0, 0 1, -700 0", 2.0), zre::sideOn);
  EXPECT_EQ(sideOfVector("0 0, 0 10, -0.01 0", 2.0), zre::sideLeft);
}

TEST(SideOfVector, VertexAtTheOriginIsOn) {
  EXPECT_EQ(sideOfVector("5 5, 0 1, 5 5", 0.0), zre::sideOn);
  // A way of 1e-05 or less has no direction.
  EXPECT_EQ(sideOfVector("0 0, 0 1, -1e-05 0", 0.0), zre::sideOn);
  EXPECT_EQ(sideOfVector("0 0, 0 1, -2e-05 0", 0.0), zre::sideLeft);
}

// Straight ahead and climbing: no offset in the map, but w.z v.z = 1/sqrt(2).
TEST(SideOfVector, KeptSideMeasureAddsProductOfHeights) {
  EXPECT_EQ(sideOfVector("0 0 0, 1 0 1, 5 0 5", 0.7), zre::sideLeft);
  EXPECT_EQ(sideOfVector("0 0 0, 1 0 1, 5 0 5", 0.71), zre::sideOn);
  EXPECT_EQ(sideOfVector("0 0 0, 1 0 1, 5 0 -5", 0.7), zre::sideRight);
  // Only one of the two with a height: the product vanishes.
  EXPECT_EQ(sideOfVector("0 0 0, 1 0 0, 5 0 5"), zre::sideOn);
}

// The height shortens the map part of the normalised way: (0, 3, 4) / 5.
TEST(SideOfVector, WayIsNormalisedInSpace) {
  EXPECT_EQ(sideOfVector("0 0 0, 1 0 0, 0 3 4", 0.59), zre::sideLeft);
  EXPECT_EQ(sideOfVector("0 0 0, 1 0 0, 0 3 4", 0.61), zre::sideOn);
}

TEST(SideOfVector, NaNIsOn) { EXPECT_EQ(sideOfVector("0 0, 0 1, nan 5"), zre::sideOn); }

TEST(SideOfSegment, TellsSidesAlongTheSegment) {
  EXPECT_EQ(sideOfSegment("0 0, 0 10, -1 5"), zre::sideLeft);
  EXPECT_EQ(sideOfSegment("0 0, 0 10, 1 5"), zre::sideRight);
  EXPECT_EQ(sideOfSegment("0 0, 0 10, 0 5"), zre::sideOn);
  EXPECT_EQ(sideOfSegment("0 0, 0 10, 0 50"), zre::sideOn);
  EXPECT_EQ(sideOfSegment("0 0, 0 10, -1 50"), zre::sideLeft);
  EXPECT_EQ(sideOfSegment("0 10, 0 0, -1 5"), zre::sideRight);
}

// The measure is the sine of the angle at the start, whatever the length: 1/sqrt(2) here.
TEST(SideOfSegment, SegmentIsNormalised) {
  EXPECT_EQ(sideOfSegment("0 0, 0 1000, -1 1", 0.7), zre::sideLeft);
  EXPECT_EQ(sideOfSegment("0 0, 0 1000, -1 1", 0.71), zre::sideOn);
}

// A tolerance below 0 would put everything else left.
TEST(SideOfSegment, KeptEndsAreOnAtFixedCloseness) {
  for (const double tolerance : {-1.0, 0.0, 1e-12, 1.0}) {
    EXPECT_EQ(sideOfSegment("0 0, 0 10, -0.000001 0", tolerance), zre::sideOn);
    EXPECT_EQ(sideOfSegment("0 0, 0 10, -0.000001 10", tolerance), zre::sideOn);
    EXPECT_EQ(sideOfSegment("0 0, 0 10, 0.000001 10.000001", tolerance), zre::sideOn);
  }
  EXPECT_EQ(sideOfSegment("0 0, 0 10, 0 5", -1.0), zre::sideLeft);
}

TEST(SideOfSegment, ClosenessToAnEndIsAnOpenBoxInSpace) {
  EXPECT_EQ(sideOfSegment("0 0, 0 10, -1e-05 10"), zre::sideLeft);
  EXPECT_EQ(sideOfSegment("0 0, 0 10, -0.9e-05 10"), zre::sideOn);
  EXPECT_EQ(sideOfSegment("0 0, 0 10, -0.9e-05 10 1"), zre::sideLeft);
}

TEST(SideOfSegment, SegmentWithoutLengthHasNoSides) {
  EXPECT_EQ(sideOfSegment("3 3, 3 3, 9 1"), zre::sideOn);
}

double distance(const std::string& text) {
  const VertexLine v = line(text);
  return zr2DTools::getDistanceFromVertexToSegment(v.at(0), v.at(1), v.at(2));
}

TEST(DistanceFromVertexToSegment, IsThePerpendicular) {
  EXPECT_EQ(distance("0 0, 10 0, 3 4"), 4.0);
  EXPECT_EQ(distance("0 0, 10 0, 3 -4"), 4.0);
  EXPECT_EQ(distance("0 0, 10 0, 3 0"), 0.0);
  EXPECT_NEAR(distance("0 0, 3 4, 4 -3"), 5.0, 1e-12);
}

TEST(DistanceFromVertexToSegment, KeptSegmentDistanceIsToTheInfiniteLine) {
  EXPECT_EQ(distance("0 0, 10 0, 50 4"), 4.0);
  EXPECT_EQ(distance("0 0, 10 0, -50 4"), 4.0);
  EXPECT_EQ(distance("0 0, 10 0, 50 0"), 0.0);
}

TEST(DistanceFromVertexToSegment, IsMeasuredInSpace) {
  EXPECT_EQ(distance("0 0 0, 10 0 0, 3 3 4"), 5.0);
  EXPECT_EQ(distance("0 0 0, 0 0 10, 3 4 50"), 5.0);
}

TEST(DistanceFromVertexToSegment, EqualEndsGiveMinusOne) {
  EXPECT_EQ(distance("3 3 3, 3 3 3, 9 9 9"), -1.0);
  EXPECT_EQ(distance("3 3 3, 3 3 3, 3 3 3"), -1.0);
  EXPECT_EQ(distance("3 3 3, 3 3 4, 6 7 9"), 5.0);  // equal in the map only
}

double angle(const std::string& text) {
  const VertexLine v = line(text);
  return zr2DTools::angle(v.at(0), v.at(1));
}

TEST(Angle, KeptAngleOfNorthAndSouthIsReversed) {
  EXPECT_EQ(angle("0 0, 0 1"), 180.0);
  EXPECT_EQ(angle("0 0, 0 -1"), 0.0);
  // A hair off north is next to 0 or 360, a hair off south next to 180.
  EXPECT_NEAR(angle("0 0, 1e-09 1"), 0.0, 1e-6);
  EXPECT_NEAR(angle("0 0, -1e-09 1"), 360.0, 1e-6);
  EXPECT_NEAR(angle("0 0, 1e-09 -1"), 180.0, 1e-6);
  EXPECT_NEAR(angle("0 0, -1e-09 -1"), 180.0, 1e-6);
}

TEST(Angle, NoStepIsZero) { EXPECT_EQ(angle("3 4, 3 4"), 0.0); }

TEST(Angle, EastAndWestAreExact) {
  EXPECT_EQ(angle("0 0, 7 0"), 90.0);
  EXPECT_EQ(angle("0 0, -7 0"), 270.0);
}

TEST(Angle, IsAnAzimuthBetweenTheAxes) {
  EXPECT_NEAR(angle("0 0, 1 1"), 45.0, 1e-12);
  EXPECT_NEAR(angle("0 0, 1 -1"), 135.0, 1e-12);
  EXPECT_NEAR(angle("0 0, -1 -1"), 225.0, 1e-12);
  EXPECT_NEAR(angle("0 0, -1 1"), 315.0, 1e-12);
  EXPECT_NEAR(angle("10 20 5, 11 21.7320508075688772 9"), 30.0, 1e-12);
}

// The quotient of y by x loses the 1e-20: 270 + 90.
TEST(Angle, LeastStepWestOfNorthRoundsUpToFullTurn) { EXPECT_EQ(angle("0 0, -1e-20 1"), 360.0); }

/// k/64 in the map.
rc::Gen<gdfVertex> mapVertex() {
  const auto coordinate = rc::gen::map(rc::gen::inRange(-64, 65), [](int k) { return k / 64.0; });
  return rc::gen::apply([](double x, double y) { return gdfVertex(x, y); }, coordinate, coordinate);
}

rc::Gen<gdfVertex> spaceVertex() {
  return rc::gen::apply([](const gdfVertex& v, int z) { return gdfVertex(v.x(), v.y(), z / 64.0); },
                        mapVertex(), rc::gen::inRange(-64, 65));
}

zre::side opposite(zre::side side) {
  if (side == zre::sideLeft) return zre::sideRight;
  if (side == zre::sideRight) return zre::sideLeft;
  return side;
}

RC_GTEST_PROP(SideProperty, OppositeVectorOrMirroredVertexGivesTheOppositeSide, ()) {
  const gdfVertex o = *spaceVertex(), v = *spaceVertex(), p = *spaceVertex();
  const double tolerance = *rc::gen::element(0.0, 1e-09, 0.25);
  const zre::side side = zr2DTools::getSideOfVector(o, v, p, tolerance);
  RC_ASSERT(zr2DTools::getSideOfVector(o, -v, p, tolerance) == opposite(side));
  RC_ASSERT(zr2DTools::getSideOfVector(o, v, o - (p - o), tolerance) == opposite(side));
}

RC_GTEST_PROP(SideProperty, StaysUnderAShift, ()) {
  const gdfVertex a = *spaceVertex(), b = *spaceVertex(), p = *spaceVertex(),
                  shift = *spaceVertex();
  const double tolerance = *rc::gen::element(0.0, 1e-09, 0.25);
  RC_ASSERT(zr2DTools::getSideOfVector(a, b, p, tolerance) ==
            zr2DTools::getSideOfVector(a + shift, b, p + shift, tolerance));
  RC_ASSERT(zr2DTools::getSideOfSegment(a, b, p, tolerance) ==
            zr2DTools::getSideOfSegment(a + shift, b + shift, p + shift, tolerance));
}

// In 64ths the area is exact, and unless it is 0 the measure is 1e-4 or more.
RC_GTEST_PROP(SideProperty, OfASegmentIsTheSignOfTheArea, ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex(), p = *mapVertex();
  const double area = (b.x() - a.x()) * (p.y() - a.y()) - (b.y() - a.y()) * (p.x() - a.x());
  const zre::side expected = area > 0.0 ? zre::sideLeft : area < 0.0 ? zre::sideRight : zre::sideOn;
  RC_ASSERT(zr2DTools::getSideOfSegment(a, b, p, 1e-09) == expected);
  RC_ASSERT(zr2DTools::getSideOfSegment(b, a, p, 1e-09) == opposite(expected));
}

RC_GTEST_PROP(DistanceProperty, IsThatOfTheSwappedSegmentAndOfTheShiftedOne, ()) {
  const gdfVertex a = *spaceVertex(), b = *spaceVertex(), p = *spaceVertex(),
                  shift = *spaceVertex();
  const double distance = zr2DTools::getDistanceFromVertexToSegment(a, b, p);
  RC_ASSERT(std::fabs(distance - zr2DTools::getDistanceFromVertexToSegment(b, a, p)) < 1e-12);
  RC_ASSERT(distance == zr2DTools::getDistanceFromVertexToSegment(a + shift, b + shift, p + shift));
}

// Off the y axis the step and the way back differ by 180, and the angle is the azimuth of the
// difference.
RC_GTEST_PROP(AngleProperty, IsAnAzimuthOffTheYAxis, ()) {
  const gdfVertex a = *mapVertex(), b = *mapVertex();
  RC_PRE(a.x() != b.x());
  const double there = zr2DTools::angle(a, b);
  RC_ASSERT(std::fabs(std::fabs(there - zr2DTools::angle(b, a)) - 180.0) < 1e-11);
  RC_ASSERT(std::fabs(there - (b - a).vectorAzimuth()) < 1e-11);
}

}  // namespace
