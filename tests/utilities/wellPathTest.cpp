#include <zrBase/utilities/wellPath.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <limits>

// Offsets below are (east, north, down).

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double radian = 0.017453292519943295;

using MethodFunction = void (*)(double, double, double, double&, double&, double&);

/// What comes back for an upper inclination and azimuth, a length, and a lower inclination and
/// azimuth.
gdfVertex interval(MethodFunction method, double upperInclination, double upperAzimuth,
                   double length, double inclination, double azimuth) {
  method(nan, upperInclination, upperAzimuth, length, inclination, azimuth);
  return {length, inclination, azimuth};
}

gdfVertex interval(int method, double upperInclination, double upperAzimuth, double length,
                   double inclination, double azimuth) {
  zrUtils::convertToXyz(nan, upperInclination, upperAzimuth, length, inclination, azimuth, method);
  return {length, inclination, azimuth};
}

gdfVertex straight(double inclination, double azimuth, double length) {
  zrUtils::convertToXyz(inclination, azimuth, length);
  return {inclination, azimuth, length};
}

gdfVertex measured(double x, double y, double z) {
  zrUtils::convertToMD(x, y, z);
  return {x, y, z};
}

const MethodFunction functions[] = {
    zrUtils::convertToXyzTangentialMethod, zrUtils::convertToXyzAverageAngle,
    zrUtils::convertToXyzBalanceTangential, zrUtils::convertToXyzMinimumCurvature,
    zrUtils::convertToXyzRadiusOfCurvature};

// The choice by number.

TEST(WellPathMethods, ComeByNumber) {
  for (int method = 0; method < 5; ++method) {
    EXPECT_EQ(interval(method, 12.5, 35.0, 87.5, 27.25, 80.0),
              interval(functions[method], 12.5, 35.0, 87.5, 27.25, 80.0));
  }
}

TEST(WellPathMethods, RunVerticallyBetweenTwoVerticalStations) {
  EXPECT_THAT(interval(3, 0.0, 0.0, 100.0, 0.0, 0.0), VertexIs("0 0 100"));
  EXPECT_THAT(interval(3, 0.0, 20.0, 100.0, 0.0, 300.0), VertexIs("0 0 100"));
  EXPECT_THAT(interval(4, -0.0, 20.0, 100.0, 0.0, 300.0), VertexIs("0 0 100"));
}

TEST(WellPathMethods, KeptVerticalIntervalComesBeforeTheMethod) {
  EXPECT_THAT(interval(7, 0.0, 10.0, 100.0, 0.0, 30.0), VertexIs("0 0 100"));
  EXPECT_THAT(interval(-1, 0.0, nan, 100.0, 0.0, nan), VertexIs("0 0 100"));
  // Exactly 0 only: next to it the tangential method has an offset.
  EXPECT_EQ(interval(0, 0.0, 0.0, 100.0, 1e-300, 90.0).x(), std::sin(1e-300 * radian) * 100.0);
}

TEST(WellPathMethods, KeptUnknownMethodLeavesLengthAndAngles) {
  EXPECT_THAT(interval(7, 10.0, 20.0, 100.0, 30.0, 40.0), VertexIs("100 30 40"));
  EXPECT_THAT(interval(5, 10.0, 20.0, 100.0, 0.0, 40.0), VertexIs("100 0 40"));
  EXPECT_THAT(interval(-1, 0.0, 20.0, 100.0, 30.0, 40.0), VertexIs("100 30 40"));
}

TEST(WellPathMethods, KeptUpperDepthIsNeverRead) {
  for (const double depth : {0.0, 1e300, -infinity, nan}) {
    for (int method = 0; method < 5; ++method) {
      double a = 87.5, b = 27.25, c = 80.0;
      zrUtils::convertToXyz(depth, 12.5, 35.0, a, b, c, method);
      EXPECT_EQ(gdfVertex(a, b, c), interval(method, 12.5, 35.0, 87.5, 27.25, 80.0));
    }
  }
}

// Worked out from the definitions with 50 digits: the arc and the curve on the cylinder by
// integrating their directions along the length, not by the formulae of the methods.
TEST(WellPathMethods, GiveTheOffsetsOfTheirDefinitions) {
  const char* building[] = {"39.4553058820578583 6.95703495911220057 77.7889998800019364",
                            "25.0886255050051938 15.9832171937751837 82.2881986581685492",
                            "25.1589819231207591 11.2352591392912249 81.607450251498053",
                            "25.424937736019069 11.3540271596604179 82.4701233054601408",
                            "24.3812925117211852 15.5325963792659955 82.061157127687338"};
  const char* climbing[] = {"-26.4906666467846705 -9.64181414529808989 -10.260604299770062",
                            "-20.710365812395643 -20.710365812395643 -6.49318841814308639",
                            "-18.3561131247164868 -18.8626591725919318 -6.4376382910999036",
                            "-19.6633483537005597 -20.2059682062200727 -6.89609632676384525",
                            "-20.0021965672922998 -20.0021965672922998 -6.47466112669275523"};
  for (int method = 0; method < 5; ++method) {
    SCOPED_TRACE(method);
    EXPECT_THAT(interval(method, 12.5, 35.0, 87.5, 27.25, 80.0),
                VertexNear(building[method], 1e-12));
    // Above level, so that the well climbs. The tangential method turns no sign there either.
    EXPECT_THAT(interval(method, 95.0, 200.0, 30.0, 110.0, 250.0),
                VertexNear(climbing[method], 1e-12));
  }
}

RC_GTEST_PROP(WellPathMethods, AgreeOnAStraightWell, ()) {
  const double inclination = *rc::gen::inRange(0, 180 * 8 + 1) / 8.0;
  const double azimuth = *rc::gen::inRange(0, 360 * 8 + 1) / 8.0;
  const double length = *rc::gen::inRange(0, 6400) / 64.0;
  const double reach = length * std::sin(inclination * radian);
  const gdfVertex expected(reach * std::sin(azimuth * radian), reach * std::cos(azimuth * radian),
                           length * std::cos(inclination * radian));
  for (const MethodFunction function : functions) {
    const gdfVertex offset = interval(function, inclination, azimuth, length, inclination, azimuth);
    RC_ASSERT(largestDifference({offset}, {expected}) <= 1e-12 * 100.0);
  }
}

// The straight segment.

TEST(StraightWellSegment, FollowsItsAngles) {
  EXPECT_THAT(straight(0.0, 0.0, 10.0), VertexIs("0 0 10"));
  EXPECT_THAT(straight(30.0, 90.0, 10.0), VertexNear("5 0 8.6602540378443865", 1e-14));
  EXPECT_THAT(straight(30.0, 0.0, 10.0), VertexNear("0 5 8.6602540378443865", 1e-14));
  EXPECT_THAT(straight(150.0, 180.0, 10.0), VertexNear("0 -5 -8.6602540378443865", 1e-14));
  // 3-4-5: the tangent of the azimuth is 3/4.
  const double azimuth = 36.86989764584402;
  EXPECT_THAT(straight(90.0, azimuth, 5.0), VertexNear("3 4 0", 1e-14));
  EXPECT_THAT(straight(90.0, 180.0 - azimuth, 5.0), VertexNear("3 -4 0", 1e-14));
  EXPECT_THAT(straight(90.0, 180.0 + azimuth, 5.0), VertexNear("-3 -4 0", 1e-14));
  EXPECT_THAT(straight(90.0, 360.0 - azimuth, 5.0), VertexNear("-3 4 0", 1e-14));
}

TEST(StraightWellSegment, TakesAFullCircleForNorth) {
  EXPECT_EQ(straight(30.0, 360.0, 10.0), straight(30.0, 0.0, 10.0));
}

TEST(StraightWellSegment, KeptAzimuthIsWorkedOnByQuadrants) {
  const double reach = std::sin(40.0 * radian) * 7.0;
  EXPECT_EQ(straight(40.0, 90.0, 7.0).y(), 0.0);
  EXPECT_EQ(straight(40.0, 180.0, 7.0).x(), 0.0);
  EXPECT_EQ(straight(40.0, 270.0, 7.0).y(), 0.0);
  EXPECT_EQ(straight(40.0, 360.0, 7.0).x(), 0.0);
  EXPECT_EQ(straight(40.0, 90.0, 7.0).x(), reach);
  EXPECT_EQ(straight(40.0, 180.0, 7.0).y(), -reach);
  EXPECT_EQ(straight(40.0, 270.0, 7.0).x(), -reach);
  // Azimuth 30 is worked on as 60 from the east, whose cosine is the larger by one last digit.
  ASSERT_NE(std::cos(60.0 * radian), std::sin(30.0 * radian));
  EXPECT_EQ(straight(40.0, 30.0, 7.0).x(), std::cos(60.0 * radian) * reach);
  EXPECT_EQ(straight(40.0, 120.0, 7.0).y(), -std::sin(30.0 * radian) * reach);
  EXPECT_EQ(straight(40.0, 210.0, 7.0).x(), -std::cos(60.0 * radian) * reach);
  EXPECT_EQ(straight(40.0, 300.0, 7.0).y(), std::sin(30.0 * radian) * reach);
}

TEST(StraightWellSegment, KeptAzimuthOffTheCircleGoesNowhere) {
  const double depth = std::cos(30.0 * radian) * 10.0;
  for (const double azimuth :
       {370.0, std::nextafter(360.0, 400.0), -1e-300, -90.0, infinity, nan}) {
    EXPECT_EQ(straight(30.0, azimuth, 10.0), gdfVertex(0.0, 0.0, depth)) << azimuth;
  }
  EXPECT_EQ(interval(0, 30.0, 10.0, 10.0, 30.0, 370.0), gdfVertex(0.0, 0.0, depth));
}

TEST(StraightWellSegment, KeptLevelSegmentHasNoDepth) {
  ASSERT_NE(std::cos(90.0 * radian), 0.0);
  EXPECT_THAT(straight(90.0, 90.0, 10.0), VertexIs("10 0 0"));
  // By way of 360 - 270; the sine is -1.
  EXPECT_THAT(straight(270.0, 90.0, 10.0), VertexIs("-10 0 0"));
  EXPECT_NE(straight(std::nextafter(90.0, 0.0), 90.0, 10.0).z(), 0.0);
}

TEST(StraightWellSegment, KeptInclinationOffTheCircleTurnsDepthRound) {
  // The cosines of -60, 400 and 300 are those of 60, 40 and 60.
  EXPECT_THAT(straight(-60.0, 90.0, 10.0), VertexNear("-8.6602540378443865 0 -5", 1e-14));
  EXPECT_THAT(straight(400.0, 90.0, 10.0),
              VertexNear("6.4278760968653933 0 -7.6604444311897804", 1e-13));
  EXPECT_THAT(straight(300.0, 90.0, 10.0), VertexNear("-8.6602540378443865 0 5", 1e-14));
  // 360 itself is held as 0, which is not negative.
  EXPECT_EQ(straight(360.0, 90.0, 10.0).z(), 10.0);
  // -90 is not 90: what the cosine leaves stays, mirrored.
  EXPECT_EQ(straight(-90.0, 90.0, 10.0).z(), -(std::cos(-90.0 * radian) * 10.0));
}

TEST(StraightWellSegment, SpreadsANaN) {
  const gdfVertex stray = straight(nan, 90.0, 10.0);
  EXPECT_TRUE(std::isnan(stray.x()));
  EXPECT_EQ(stray.y(), 0.0);
  EXPECT_TRUE(std::isnan(stray.z()));
}

TEST(PlaneWellSegment, IsSineAndCosine) {
  double inclination = 30.0, length = 10.0;
  zrUtils::convertToXyz(inclination, length);
  EXPECT_EQ(inclination, std::sin(30.0 * radian) * 10.0);
  EXPECT_EQ(length, std::cos(30.0 * radian) * 10.0);
}

TEST(PlaneWellSegment, KeptPlaneSegmentHasNoExactCases) {
  double inclination = 90.0, length = 10.0;
  zrUtils::convertToXyz(inclination, length);
  EXPECT_EQ(inclination, 10.0);
  EXPECT_EQ(length, std::cos(90.0 * radian) * 10.0);
  EXPECT_GT(length, 0.0);
  inclination = -60.0;
  length = 10.0;
  zrUtils::convertToXyz(inclination, length);
  EXPECT_NEAR(inclination, -8.6602540378443865, 1e-14);
  EXPECT_NEAR(length, 5.0, 1e-14);
}

// Back to angles and length.

TEST(ConvertToMD, LeavesThreeZeros) {
  EXPECT_THAT(measured(0.0, 0.0, 0.0), VertexIs("0 0 0"));
  EXPECT_TRUE(std::signbit(measured(0.0, 0.0, -0.0).z()));
  const gdfVertex negative = measured(-0.0, -0.0, 0.0);
  EXPECT_TRUE(std::signbit(negative.x()));
  EXPECT_TRUE(std::signbit(negative.y()));
  EXPECT_FALSE(std::signbit(negative.z()));
}

TEST(ConvertToMD, GivesVerticalOffsetsTheirInclination) {
  EXPECT_THAT(measured(0.0, 0.0, 5.0), VertexIs("0 0 5"));
}

TEST(ConvertToMD, KeptStraightUpHasNegativeLength) {
  EXPECT_THAT(measured(0.0, 0.0, -5.0), VertexIs("180 0 -5"));
  // A hair beside it the length is positive.
  EXPECT_EQ(measured(1e-9, 0.0, -5.0).z(), 5.0);
}

TEST(ConvertToMD, FollowsTheAxesOfTheMap) {
  EXPECT_THAT(measured(0.0, 2.0, 2.0), VertexNear("45 0 2.8284271247461903", 1e-14));
  EXPECT_THAT(measured(2.0, 0.0, 2.0), VertexNear("45 90 2.8284271247461903", 1e-14));
  EXPECT_THAT(measured(0.0, -2.0, 2.0), VertexNear("45 180 2.8284271247461903", 1e-14));
  EXPECT_THAT(measured(-2.0, 0.0, 2.0), VertexNear("45 270 2.8284271247461903", 1e-14));
  EXPECT_THAT(measured(0.0, 2.0, -2.0), VertexNear("135 0 2.8284271247461903", 1e-13));
  EXPECT_THAT(measured(-2.0, 0.0, -2.0), VertexNear("135 270 2.8284271247461903", 1e-13));
}

TEST(ConvertToMD, MakesALevelOffsetInclinationNinety) {
  EXPECT_THAT(measured(3.0, 4.0, 0.0), VertexNear("90 36.86989764584402 5", 1e-14));
  EXPECT_THAT(measured(3.0, -4.0, -0.0), VertexNear("90 143.13010235415598 5", 1e-13));
  for (const double reach : {7.0, -7.0}) {
    EXPECT_EQ(measured(reach, 0.0, 0.0), gdfVertex(90.0, reach > 0.0 ? 90.0 : 270.0, 7.0));
    EXPECT_EQ(measured(0.0, reach, -0.0), gdfVertex(90.0, reach > 0.0 ? 0.0 : 180.0, 7.0));
  }
}

TEST(ConvertToMD, FindsTheQuadrantOfTheAzimuth) {
  EXPECT_NEAR(measured(3.0, 4.0, 1.0).y(), 36.86989764584402, 1e-13);
  EXPECT_NEAR(measured(3.0, -4.0, 1.0).y(), 143.13010235415598, 1e-13);
  EXPECT_NEAR(measured(-3.0, -4.0, 1.0).y(), 216.86989764584402, 1e-13);
  EXPECT_NEAR(measured(-3.0, 4.0, 1.0).y(), 323.13010235415598, 1e-13);
}

TEST(ConvertToMD, KeptNaNBesideZeroHasNoLength) {
  EXPECT_THAT(measured(0.0, nan, 5.0), VertexIs("0 0 0"));
  EXPECT_THAT(measured(nan, 0.0, 5.0), VertexIs("0 0 0"));
  EXPECT_THAT(measured(0.0, nan, -5.0), VertexIs("180 0 0"));
  EXPECT_TRUE(std::isnan(measured(1.0, nan, 5.0).z()));
  EXPECT_TRUE(std::isnan(measured(0.0, 0.0, nan).z()));
}

RC_GTEST_PROP(ConvertToMD, UndoesTheStraightSegment, ()) {
  // Off the vertical, where the azimuth is lost, and off due north, which has two.
  const double inclination = *rc::gen::inRange(1, 180 * 8) / 8.0;
  const double azimuth = *rc::gen::inRange(1, 360 * 8) / 8.0;
  const double length = *rc::gen::inRange(1, 6400) / 64.0;
  const gdfVertex offset = straight(inclination, azimuth, length);
  const gdfVertex back = measured(offset.x(), offset.y(), offset.z());
  RC_ASSERT(largestDifference({back}, {{inclination, azimuth, length}}) <= 1e-11);
}

// Tangential, average angle, balanced tangential.

TEST(TangentialMethod, TakesTheLowerStationOnly) {
  const MethodFunction method = zrUtils::convertToXyzTangentialMethod;
  EXPECT_EQ(interval(method, 5.0, 300.0, 10.0, 40.0, 30.0), straight(40.0, 30.0, 10.0));
  EXPECT_EQ(interval(method, nan, nan, 10.0, 40.0, 30.0), straight(40.0, 30.0, 10.0));
  EXPECT_THAT(interval(method, 5.0, 300.0, 10.0, 90.0, 270.0), VertexIs("-10 0 0"));
}

TEST(AverageAngleMethod, RunsAtTheMeanAngles) {
  EXPECT_THAT(interval(zrUtils::convertToXyzAverageAngle, 20.0, 80.0, 10.0, 40.0, 100.0),
              VertexNear("5 0 8.6602540378443865", 1e-14));
}

TEST(AverageAngleMethod, KeptMeanAzimuthTakesNoNoticeOfNorth) {
  // 350 and 10 average to 180, so it goes south.
  EXPECT_THAT(interval(zrUtils::convertToXyzAverageAngle, 30.0, 350.0, 10.0, 30.0, 10.0),
              VertexNear("0 -5 8.6602540378443865", 1e-14));
}

RC_GTEST_PROP(BalancedTangentialMethod, IsHalfOfEachTangential, ()) {
  const double upperInclination = *rc::gen::inRange(0, 1440) / 8.0;
  const double upperAzimuth = *rc::gen::inRange(0, 2880) / 8.0;
  const double inclination = *rc::gen::inRange(0, 1440) / 8.0;
  const double azimuth = *rc::gen::inRange(0, 2880) / 8.0;
  const gdfVertex offset = interval(zrUtils::convertToXyzBalanceTangential, upperInclination,
                                    upperAzimuth, 40.0, inclination, azimuth);
  const gdfVertex halves =
      straight(upperInclination, upperAzimuth, 20.0) + straight(inclination, azimuth, 20.0);
  RC_ASSERT(largestDifference({offset}, {halves}) <= 1e-13 * 40.0);
}

}  // namespace
