#include <zrBase/geometry/gdfVertex.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <string>

// Rotations in radians, and azimuths, strikes, dips and plunges in degrees clockwise from north.

namespace {

constexpr double pi = 3.141592653589793;
constexpr double close = 1e-12;

TEST(VertexRotation, IsExactOnTheAxes) {
  EXPECT_EQ(vertex("2 0 7").rotation(), 0.0);
  EXPECT_EQ(vertex("0 2 7").rotation(), pi / 2.0);
  EXPECT_EQ(vertex("-2 0 7").rotation(), pi);
  EXPECT_EQ(vertex("0 -2 7").rotation(), -pi / 2.0);
  EXPECT_EQ(vertex("2 0").rotationDegrees(), 0.0);
  EXPECT_EQ(vertex("0 2").rotationDegrees(), 90.0);
  EXPECT_EQ(vertex("-2 0").rotationDegrees(), 180.0);
  EXPECT_EQ(vertex("0 -2").rotationDegrees(), -90.0);
}

TEST(VertexRotation, IsCounterclockwiseFromEastBetweenTheAxes) {
  EXPECT_NEAR(vertex("1 1").rotation(), pi / 4.0, close);
  EXPECT_NEAR(vertex("-1 1").rotation(), 3.0 * pi / 4.0, close);
  EXPECT_NEAR(vertex("-1 -1").rotation(), -3.0 * pi / 4.0, close);
  EXPECT_NEAR(vertex("1 -1").rotation(), -pi / 4.0, close);
  EXPECT_NEAR(vertex("1 1").rotationDegrees(), 45.0, close);
  EXPECT_NEAR(vertex("-1 1").rotationDegrees(), 135.0, close);
  EXPECT_NEAR(vertex("-1 -1").rotationDegrees(), -135.0, close);
  EXPECT_NEAR(vertex("1 -1").rotationDegrees(), -45.0, close);
}

// A bare arc tangent tells -0.0 from 0.0 and would give -pi and pi here.
TEST(VertexRotation, SignOfAZeroPlaysNoPart) {
  EXPECT_EQ(gdfVertex(-1.0, -0.0).rotation(), pi);
  EXPECT_EQ(gdfVertex(-1.0, -0.0).rotationDegrees(), 180.0);
  EXPECT_EQ(gdfVertex(-0.0, 0.0).rotation(), pi / 2.0);
  EXPECT_EQ(gdfVertex(-0.0, -0.0).rotationDegrees(), 90.0);
}

TEST(VertexRotation, KeptRotationOfZeroVectorIsNorth) {
  EXPECT_EQ(gdfVertex().rotation(), pi / 2.0);
  EXPECT_EQ(gdfVertex().rotationDegrees(), 90.0);
}

TEST(VertexRotateAroundZAxis, PositiveAngleTurnsClockwiseSeenFromAbove) {
  gdfVertex north(0.0, 1.0, 7.0);
  north.rotateAroundZAxis(pi / 2.0);
  EXPECT_THAT(north, VertexNear("1 0 7", close));
  gdfVertex east(1.0, 0.0, 7.0);
  east.rotateAroundZAxis(pi / 2.0);
  EXPECT_THAT(east, VertexNear("0 -1 7", close));
  gdfVertex back(3.0, 4.0, 7.0);
  back.rotateAroundZAxis(-pi / 2.0);
  EXPECT_THAT(back, VertexNear("-4 3 7", close));
}

TEST(VertexRotateAroundZAxis, ByZeroIsExactAndLeavesHeight) {
  gdfVertex v(3.0, 4.0, 7.0);
  v.rotateAroundZAxis(0.0);
  EXPECT_THAT(v, VertexIs("3 4 7"));
}

RC_GTEST_PROP(VertexRotateAroundZAxis, AddsItsAngleToTheAzimuth, ()) {
  const double azimuth = *rc::gen::inRange(0, 360);
  const double turn = *rc::gen::inRange(0, 360);
  gdfVertex v;
  v.setVectorAzimuthPlunge(azimuth, 0.0);
  v.rotateAroundZAxis(turn * GDF_DEGREEStoRADIANS);
  const double difference = v.vectorAzimuth() - std::fmod(azimuth + turn, 360.0);
  RC_ASSERT(std::fabs(std::remainder(difference, 360.0)) < 1e-9);
}

TEST(VertexTilt, IsTheAngleFromStraightUp) {
  EXPECT_EQ(vertex("0 0 3").tilt(), 0.0);
  EXPECT_NEAR(vertex("3 4 5").tilt(), pi / 4.0, close);
  EXPECT_NEAR(vertex("3 4 0").tilt(), pi / 2.0, close);
  EXPECT_NEAR(vertex("0 3 -3").tilt(), 3.0 * pi / 4.0, close);
  EXPECT_NEAR(vertex("0 0 -3").tilt(), pi, close);
}

TEST(VertexTilt, OfTheZeroVectorIsZeroWhateverItsSigns) {
  EXPECT_EQ(gdfVertex().tilt(), 0.0);
  EXPECT_EQ(gdfVertex(0.0, 0.0, -0.0).tilt(), 0.0);  // atan2(0, -0.0) is pi
}

// The test is on the square: 1e-200 squared is 0.
TEST(VertexTilt, MapPartWhoseSquareVanishesCountsAsZero) {
  EXPECT_EQ(gdfVertex(1e-200, 0.0, 0.0).tilt(), 0.0);
}

struct PlaneRow {
  const char* normal;
  double azimuth;
  double strike;
  double dip;
};

class PlaneOfNormal : public testing::TestWithParam<PlaneRow> {};

TEST_P(PlaneOfNormal, HasDipAzimuthStrikeAndDip) {
  const gdfVertex normal = vertex(GetParam().normal);
  EXPECT_NEAR(normal.planeAzimuth(), GetParam().azimuth, close);
  EXPECT_NEAR(normal.planeStrike(), GetParam().strike, close);
  EXPECT_NEAR(normal.planeDip(), GetParam().dip, close);
}

// A plane dips where the upward normal leans; strike is 90 degrees to the left of that.
INSTANTIATE_TEST_SUITE_P(Upward, PlaneOfNormal,
                         testing::Values(PlaneRow{"0 0 1", 0.0, 0.0, 0.0},
                                         PlaneRow{"0 1 1", 0.0, 270.0, 45.0},
                                         PlaneRow{"1 1 1.4142135623730951", 45.0, 315.0, 45.0},
                                         PlaneRow{"1 0 1", 90.0, 0.0, 45.0},
                                         PlaneRow{"1 -1 1.4142135623730951", 135.0, 45.0, 45.0},
                                         PlaneRow{"0 -1 1", 180.0, 90.0, 45.0},
                                         PlaneRow{"-1 -1 1.4142135623730951", 225.0, 135.0, 45.0},
                                         PlaneRow{"-1 0 1", 270.0, 180.0, 45.0},
                                         PlaneRow{"-1 1 1.4142135623730951", 315.0, 225.0, 45.0}));
INSTANTIATE_TEST_SUITE_P(Level, PlaneOfNormal,
                         testing::Values(PlaneRow{"0 1 0", 0.0, 270.0, 90.0},
                                         PlaneRow{"1 0 0", 90.0, 0.0, 90.0},
                                         PlaneRow{"0 -1 0", 180.0, 90.0, 90.0},
                                         PlaneRow{"-1 0 0", 270.0, 180.0, 90.0}));
INSTANTIATE_TEST_SUITE_P(Downward, PlaneOfNormal,
                         testing::Values(PlaneRow{"0 0 -1", 180.0, 180.0, 0.0},
                                         PlaneRow{"0 1 -1", 180.0, 90.0, 45.0},
                                         PlaneRow{"1 0 -1", 270.0, 180.0, 45.0},
                                         PlaneRow{"0 -1 -1", 0.0, 270.0, 45.0},
                                         PlaneRow{"-1 0 -1", 90.0, 0.0, 45.0},
                                         PlaneRow{"1 1 -1.4142135623730951", 225.0, 135.0, 45.0}));

TEST(PlaneAzimuth, OfVerticalNormalsTellsUpFromDown) {
  EXPECT_EQ(vertex("0 0 -1").planeAzimuth(), 180.0);
  EXPECT_EQ(vertex("0 0 1").planeAzimuth(), 0.0);
  EXPECT_EQ(gdfVertex(0.0, 0.0, -0.0).planeAzimuth(), 0.0);
}

TEST(PlaneAzimuth, FullTurnOfADownwardNormalComesBackToZero) {
  EXPECT_EQ(vertex("0 -1 -1").planeAzimuth(), 0.0);  // 270 + 90, less 360
}

// One addition of 360 and no more: -1.4e-14 + 360 is 360 in doubles.
TEST(PlaneAzimuth, KeptWrapMayRoundUpToFullTurn) {
  EXPECT_EQ(gdfVertex(-2.2e-16, 1.0, 1.0).planeAzimuth(), 360.0);
}

TEST(PlaneDip, KeptPlaneDipOfZeroVectorIs180) {
  EXPECT_EQ(gdfVertex().planeDip(), 180.0);
  EXPECT_EQ(gdfVertex(0.0, 0.0, -0.0).planeDip(), 180.0);
}

TEST(VertexAngles, OfTheZeroVector) {
  const gdfVertex zero;
  EXPECT_EQ(zero.rotation(), pi / 2.0);
  EXPECT_EQ(zero.rotationDegrees(), 90.0);
  EXPECT_EQ(zero.vectorAzimuth(), 0.0);
  EXPECT_EQ(zero.planeAzimuth(), 0.0);
  EXPECT_EQ(zero.planeStrike(), 0.0);
  EXPECT_EQ(zero.tilt(), 0.0);
  EXPECT_EQ(zero.vectorDip(), 0.0);
  EXPECT_EQ(zero.planeDip(), 180.0);
}

TEST(SetPlaneNormal, FromDipAzimuthAndDip) {
  gdfVertex v;
  v.setPlaneNormalWithAzimDip(0.0, 0.0);
  EXPECT_THAT(v, VertexIs("0 0 1"));
  v.setPlaneNormalWithAzimDip(90.0, 30.0);
  EXPECT_THAT(v, VertexNear("0.5 0 0.8660254037844386", close));
  v.setPlaneNormalWithAzimDip(180.0, 30.0);
  EXPECT_THAT(v, VertexNear("0 -0.5 0.8660254037844386", close));
  v.setPlaneNormalWithAzimDip(0.0, 120.0);
  EXPECT_THAT(v, VertexNear("0 0.8660254037844386 -0.5", close));
}

TEST(SetPlaneNormal, FromStrikeDipsToTheRightOfStrike) {
  gdfVertex v;
  v.setPlaneNormalWithStrikeDip(0.0, 30.0);  // strike north, dip east
  EXPECT_THAT(v, VertexNear("0.5 0 0.8660254037844386", close));
  v.setPlaneNormalWithStrikeDip(90.0, 30.0);  // strike east, dip south
  EXPECT_THAT(v, VertexNear("0 -0.5 0.8660254037844386", close));
  v.setPlaneNormalWithStrikeDip(270.0, 30.0);  // strike west, dip north
  EXPECT_THAT(v, VertexNear("0 0.5 0.8660254037844386", close));
}

TEST(SetPlaneNormal, AzimuthComesBackFromAnUprightPlane) {
  for (int azimuth = 0; azimuth < 360; ++azimuth) {
    gdfVertex v;
    v.setPlaneNormalWithAzimDip(azimuth, 90.0);
    // A rounded 0 may come back as a hair below 360.
    EXPECT_NEAR(std::remainder(v.planeAzimuth() - azimuth, 360.0), 0.0, 1e-9) << azimuth;
  }
}

RC_GTEST_PROP(SetPlaneNormal, AnglesComeBack, ()) {
  const double azimuth = *rc::gen::inRange(1, 64 * 360) / 64.0;
  const double dip = *rc::gen::inRange(64, 64 * 90) / 64.0;
  gdfVertex v;
  v.setPlaneNormalWithAzimDip(azimuth, dip);
  RC_ASSERT(std::fabs(std::remainder(v.planeAzimuth() - azimuth, 360.0)) < 1e-9);
  RC_ASSERT(std::fabs(v.planeDip() - dip) < 1e-9);
  RC_ASSERT(std::fabs((-v).planeDip() - dip) < 1e-9);
  RC_ASSERT(std::fabs(std::remainder((-v).planeAzimuth() - azimuth, 360.0)) < 1e-9);
  RC_ASSERT(std::fabs(v.length() - 1.0) < close);
  v.setPlaneNormalWithStrikeDip(azimuth, dip);
  RC_ASSERT(std::fabs(std::remainder(v.planeStrike() - azimuth, 360.0)) < 1e-9);
  RC_ASSERT(std::fabs(v.planeDip() - dip) < 1e-9);
}

TEST(SetVectorAzimuthPlunge, PositivePlungePointsDown) {
  gdfVertex v;
  v.setVectorAzimuthPlunge(0.0, 30.0);
  EXPECT_THAT(v, VertexNear("0 0.8660254037844386 -0.5", close));
  v.setVectorAzimuthPlunge(90.0, -30.0);
  EXPECT_THAT(v, VertexNear("0.8660254037844386 0 0.5", close));
  v.setVectorAzimuthPlunge(0.0, -90.0);
  EXPECT_THAT(v, VertexIs("0 0 1"));
  v.setVectorAzimuthPlunge(270.0, 0.0);
  EXPECT_THAT(v, VertexNear("-1 0 0", close));
}

TEST(VectorAzimuth, IsExactOnTheAxes) {
  EXPECT_EQ(vertex("0 1 0").vectorAzimuth(), 0.0);
  EXPECT_EQ(vertex("1 0 0").vectorAzimuth(), 90.0);
  EXPECT_EQ(vertex("0 -1 0").vectorAzimuth(), 180.0);
  EXPECT_EQ(vertex("-1 0 0").vectorAzimuth(), 270.0);
  EXPECT_EQ(vertex("0 0 5").vectorAzimuth(), 0.0);
  EXPECT_EQ(vertex("0 0 -5").vectorAzimuth(), 0.0);
  EXPECT_EQ(gdfVertex(-1.0, -0.0, 0.0).vectorAzimuth(), 270.0);
}

TEST(VectorAzimuth, IsClockwiseFromNorthBetweenTheAxes) {
  EXPECT_NEAR(vertex("1 1 9").vectorAzimuth(), 45.0, close);
  EXPECT_NEAR(vertex("1 -1 -9").vectorAzimuth(), 135.0, close);
  EXPECT_NEAR(vertex("-1 -1 9").vectorAzimuth(), 225.0, close);
  EXPECT_NEAR(vertex("-1 1 -9").vectorAzimuth(), 315.0, close);
}

TEST(VectorDip, IsPositiveDownward) {
  EXPECT_NEAR(vertex("1 0 -1").vectorDip(), 45.0, close);
  EXPECT_NEAR(vertex("3 4 5").vectorDip(), -45.0, close);
  EXPECT_EQ(vertex("0 0 -2").vectorDip(), 90.0);
  EXPECT_EQ(vertex("0 0 2").vectorDip(), -90.0);
}

TEST(VectorDip, OfALevelVectorIsZero) {
  EXPECT_EQ(vertex("3 4 0").vectorDip(), 0.0);
  EXPECT_EQ(vertex("0 1 0").vectorDip(), 0.0);
  EXPECT_EQ(gdfVertex(1.0, 0.0, -0.0).vectorDip(), 0.0);
}

RC_GTEST_PROP(SetVectorAzimuthPlunge, AnglesComeBack, ()) {
  const double azimuth = *rc::gen::inRange(0, 64 * 360) / 64.0;
  const double plunge = *rc::gen::inRange(-64 * 89, 64 * 89) / 64.0;
  gdfVertex v;
  v.setVectorAzimuthPlunge(azimuth, plunge);
  RC_ASSERT(std::fabs(std::remainder(v.vectorAzimuth() - azimuth, 360.0)) < 1e-9);
  RC_ASSERT(std::fabs(v.vectorDip() - plunge) < 1e-9);
}

}  // namespace
