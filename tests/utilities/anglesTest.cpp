#include <zrBase/utilities/angles.h>

#include <zrBase/geometry/gdfVertex.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(AddAngle, BringsTheSumIntoTheCircle) {
  EXPECT_EQ(zrUtils::addAngle(350.0, 20.0), 10.0);
  EXPECT_EQ(zrUtils::addAngle(10.0, -20.0), 350.0);
  EXPECT_EQ(zrUtils::addAngle(100.0, 20.0), 120.0);
  EXPECT_EQ(zrUtils::addAngle(340.0, 20.0), 0.0);
  EXPECT_EQ(zrUtils::addAngle(-360.0, 0.0), 0.0);
  EXPECT_TRUE(std::isnan(zrUtils::addAngle(notANumber, 0.0)));
}

TEST(AddAngle, KeptAngleSumIsCorrectedOnce) {
  EXPECT_EQ(zrUtils::addAngle(-400.0, 0.0), -40.0);
  EXPECT_EQ(zrUtils::addAngle(700.0, 40.0), 380.0);
}

TEST(AddAngle, CorrectsBothWaysForAHairBelowNorth) {
  // 360 added to it rounds to 360, which the second correction takes back.
  EXPECT_EQ(zrUtils::addAngle(-1e-20, 0.0), 0.0);
}

TEST(BetweenAngles, TakesTheArcAcrossNorth) {
  EXPECT_TRUE(zrUtils::betweenAngles(5.0, 350.0, 10.0));
  EXPECT_TRUE(zrUtils::betweenAngles(355.0, 350.0, 10.0));
  EXPECT_TRUE(zrUtils::betweenAngles(0.0, 350.0, 10.0));
  EXPECT_TRUE(zrUtils::betweenAngles(360.0, 350.0, 10.0));
  EXPECT_FALSE(zrUtils::betweenAngles(180.0, 350.0, 10.0));
  EXPECT_FALSE(zrUtils::betweenAngles(361.0, 350.0, 10.0));
}

TEST(BetweenAngles, KeptArcExcludesItsStart) {
  EXPECT_FALSE(zrUtils::betweenAngles(350.0, 350.0, 10.0));
  EXPECT_TRUE(zrUtils::betweenAngles(10.0, 350.0, 10.0));
  EXPECT_FALSE(zrUtils::betweenAngles(20.0, 20.0, 70.0));
  EXPECT_TRUE(zrUtils::betweenAngles(70.0, 20.0, 70.0));
  // The arc starts at the same end whichever is named first.
  EXPECT_FALSE(zrUtils::betweenAngles(350.0, 10.0, 350.0));
  EXPECT_TRUE(zrUtils::betweenAngles(10.0, 10.0, 350.0));
  EXPECT_FALSE(zrUtils::betweenAngles(20.0, 70.0, 20.0));
  EXPECT_TRUE(zrUtils::betweenAngles(70.0, 70.0, 20.0));
}

TEST(BetweenAngles, KeptEqualEndsSpanTheCircle) {
  for (const double a : {0.0, 30.0, 29.0, 31.0, 200.0, 360.0, -30.0}) {
    EXPECT_TRUE(zrUtils::betweenAngles(a, 30.0, 30.0)) << a;
    EXPECT_TRUE(zrUtils::betweenAngles(a, -330.0, 30.0)) << a;
  }
  EXPECT_FALSE(zrUtils::betweenAngles(400.0, 30.0, 30.0));
}

TEST(BetweenAngles, RunsFromTheFirstOfTwoOppositeEnds) {
  EXPECT_TRUE(zrUtils::betweenAngles(90.0, 0.0, 180.0));
  EXPECT_FALSE(zrUtils::betweenAngles(270.0, 0.0, 180.0));
  EXPECT_FALSE(zrUtils::betweenAngles(90.0, 180.0, 0.0));
  EXPECT_TRUE(zrUtils::betweenAngles(270.0, 180.0, 0.0));
  // So here the order tells which end belongs to the arc.
  EXPECT_TRUE(zrUtils::betweenAngles(180.0, 0.0, 180.0));
  EXPECT_FALSE(zrUtils::betweenAngles(180.0, 180.0, 0.0));
  EXPECT_FALSE(zrUtils::betweenAngles(0.0, 0.0, 180.0));
  EXPECT_TRUE(zrUtils::betweenAngles(0.0, 180.0, 0.0));
}

TEST(BetweenAngles, TakesNorthAloneBetweenItsTwoNumbers) {
  // From 360 up to 0 in either order: nothing is above 360 and at most 360, and what is at most 0
  // and at least 0 is 0.
  for (const double a : {0.0, -0.0, -360.0}) {
    EXPECT_TRUE(zrUtils::betweenAngles(a, 0.0, 360.0)) << a;
    EXPECT_TRUE(zrUtils::betweenAngles(a, 360.0, 0.0)) << a;
  }
  for (const double a : {360.0, 359.0, 180.0, 1.0}) {
    EXPECT_FALSE(zrUtils::betweenAngles(a, 0.0, 360.0)) << a;
    EXPECT_FALSE(zrUtils::betweenAngles(a, 360.0, 0.0)) << a;
  }
}

TEST(BetweenAngles, TakesNegativeAnglesOneTurnOn) {
  EXPECT_TRUE(zrUtils::betweenAngles(-5.0, -10.0, 10.0));
  EXPECT_TRUE(zrUtils::betweenAngles(355.0, -10.0, 10.0));
}

TEST(BetweenAngles, KeptDirectionsAreRaisedOnce) {
  // -400 becomes -40, which is neither within 300 to 330 nor, across north, at least 0.
  EXPECT_FALSE(zrUtils::betweenAngles(-400.0, 300.0, 330.0));
  EXPECT_FALSE(zrUtils::betweenAngles(-400.0, 350.0, 10.0));
  // -370 becomes -10: the arc runs from -10 up to 10 as numbers, and 355 is above both.
  EXPECT_FALSE(zrUtils::betweenAngles(355.0, -370.0, 10.0));
  EXPECT_TRUE(zrUtils::betweenAngles(0.0, -370.0, 10.0));
  // -700 becomes -340: from 350 across north up to -340, which leaves what is above 350.
  EXPECT_FALSE(zrUtils::betweenAngles(10.0, 350.0, -700.0));
  EXPECT_TRUE(zrUtils::betweenAngles(355.0, 350.0, -700.0));
}

TEST(BetweenAngles, IsFalseForANaN) {
  EXPECT_FALSE(zrUtils::betweenAngles(notANumber, 350.0, 10.0));
  EXPECT_FALSE(zrUtils::betweenAngles(notANumber, 10.0, 350.0));
  EXPECT_FALSE(zrUtils::betweenAngles(notANumber, 10.0, 10.0));
}

/// Degrees clockwise from one direction to another, in [0, 360).
int clockwise(int from, int to) { return ((to - from) % 360 + 360) % 360; }

// By whole degrees along the arc, instead of by its two ends.
TEST(BetweenAngles, CountsAlongTheShorterArc) {
  for (int s = -360; s < 360; s += 15) {
    for (int e = -360; e < 360; e += 15) {
      const bool forward = clockwise(s, e) <= 180;
      const int start = forward ? s : e;
      const int length = forward ? clockwise(s, e) : clockwise(e, s);
      for (int a = -360; a < 360; a += 15) {
        const int along = clockwise(start, a);
        const bool between = length == 0 || (along > 0 && along <= length);
        ASSERT_EQ(zrUtils::betweenAngles(a, s, e), between) << a << ": " << s << ", " << e;
      }
    }
  }
}

TEST(MinimumAngleBetween, TakesTheShorterWay) {
  EXPECT_EQ(zrUtils::minimumAngleBetween(350.0, 10.0), 20.0);
  EXPECT_EQ(zrUtils::minimumAngleBetween(10.0, 350.0), 20.0);
  EXPECT_EQ(zrUtils::minimumAngleBetween(0.0, 180.0), 180.0);
  EXPECT_EQ(zrUtils::minimumAngleBetween(0.0, 181.0), 179.0);
  EXPECT_EQ(zrUtils::minimumAngleBetween(0.0, 360.0), 0.0);
  EXPECT_EQ(zrUtils::minimumAngleBetween(-100.0, 300.0), 40.0);
  EXPECT_TRUE(std::isnan(zrUtils::minimumAngleBetween(notANumber, 0.0)));
}

TEST(MinimumAngleBetween, KeptAngleDifferenceIsReducedOnce) {
  EXPECT_EQ(zrUtils::minimumAngleBetween(0.0, 800.0), -80.0);
  EXPECT_EQ(zrUtils::minimumClockwiseAngleBetween(0.0, 800.0), 80.0);
  EXPECT_EQ(zrUtils::minimumClockwiseAngleBetween(0.0, 920.0), 200.0);
}

TEST(MinimumClockwiseAngleBetween, TakesTheShorterWayWithItsSense) {
  EXPECT_EQ(zrUtils::minimumClockwiseAngleBetween(10.0, 350.0), -20.0);
  EXPECT_EQ(zrUtils::minimumClockwiseAngleBetween(350.0, 10.0), 20.0);
  EXPECT_EQ(zrUtils::minimumClockwiseAngleBetween(10.0, 40.0), 30.0);
  EXPECT_EQ(zrUtils::minimumClockwiseAngleBetween(40.0, 10.0), -30.0);
  EXPECT_EQ(zrUtils::minimumClockwiseAngleBetween(0.0, 360.0), 0.0);
}

TEST(MinimumClockwiseAngleBetween, KeptOppositeTurnGoesTowardsTheLarger) {
  EXPECT_EQ(zrUtils::minimumClockwiseAngleBetween(0.0, 180.0), 180.0);
  EXPECT_EQ(zrUtils::minimumClockwiseAngleBetween(180.0, 0.0), -180.0);
  EXPECT_EQ(zrUtils::minimumClockwiseAngleBetween(70.0, 70.0), 0.0);
  EXPECT_TRUE(std::signbit(zrUtils::minimumClockwiseAngleBetween(70.0, 70.0)));
}

RC_GTEST_PROP(MinimumClockwiseAngleBetween, TurnsOneDirectionIntoTheOther, ()) {
  const double a = *rc::gen::inRange(0, 360 * 64) / 64.0;
  const double b = *rc::gen::inRange(0, 360 * 64) / 64.0;
  const double turn = zrUtils::minimumClockwiseAngleBetween(a, b);
  RC_ASSERT(zrUtils::addAngle(a, turn) == b);
  RC_ASSERT(std::fabs(turn) == zrUtils::minimumAngleBetween(a, b));
  RC_ASSERT(std::fabs(turn) <= 180.0);
  RC_ASSERT(zrUtils::minimumClockwiseAngleBetween(b, a) == -turn);
}

TEST(ConvertAzimuthToStrike, SubtractsAQuarterTurn) {
  EXPECT_EQ(zrUtils::convertAzimuthToStrike(135.0, 30.0), 45.0);
  EXPECT_EQ(zrUtils::convertAzimuthToStrike(449.0, 30.0), 359.0);
  EXPECT_EQ(zrUtils::convertAzimuthToStrike(450.0, 30.0), 0.0);
  EXPECT_EQ(zrUtils::convertAzimuthToStrike(900.0, 30.0), 450.0);
  EXPECT_EQ(zrUtils::convertAzimuthToStrike(135.0, -1e-300), 45.0);
  EXPECT_EQ(zrUtils::convertAzimuthToStrike(135.0, notANumber), 45.0);
}

TEST(ConvertAzimuthToStrike, KeptNegativeStrikeStays) {
  EXPECT_EQ(zrUtils::convertAzimuthToStrike(45.0, 30.0), -45.0);
  EXPECT_EQ(zrUtils::convertAzimuthToStrike(0.0, 30.0), -90.0);
  EXPECT_EQ(zrUtils::convertAzimuthToStrike(-300.0, 30.0), -390.0);
}

TEST(ConvertStrikeToAzimuth, AddsAQuarterTurn) {
  EXPECT_EQ(zrUtils::convertStrikeToAzimuth(45.0, 30.0), 135.0);
  EXPECT_EQ(zrUtils::convertStrikeToAzimuth(269.0, 30.0), 359.0);
  EXPECT_EQ(zrUtils::convertStrikeToAzimuth(270.0, 30.0), 0.0);
  EXPECT_EQ(zrUtils::convertStrikeToAzimuth(350.0, 30.0), 80.0);
  EXPECT_EQ(zrUtils::convertStrikeToAzimuth(700.0, 30.0), 430.0);
  EXPECT_EQ(zrUtils::convertStrikeToAzimuth(-100.0, 30.0), -10.0);
  // Level is a dip of exactly 0.
  EXPECT_EQ(zrUtils::convertStrikeToAzimuth(45.0, 1e-300), 135.0);
  EXPECT_EQ(zrUtils::convertStrikeToAzimuth(45.0, -1e-300), 135.0);
  EXPECT_EQ(zrUtils::convertStrikeToAzimuth(45.0, notANumber), 135.0);
}

TEST(ConvertStrikeToAzimuth, KeptLevelPlaneHasAzimuthZero) {
  EXPECT_EQ(zrUtils::convertStrikeToAzimuth(45.0, 0.0), 0.0);
  EXPECT_EQ(zrUtils::convertStrikeToAzimuth(45.0, -0.0), 0.0);
  EXPECT_EQ(zrUtils::convertAzimuthToStrike(45.0, 0.0), 0.0);
}

TEST(DegreesToRads, TakesTheLibrarysFactor) {
  EXPECT_EQ(zrUtils::degreesToRads(1.0), 0.017453292519943295);
  EXPECT_EQ(zrUtils::degreesToRads(1.0), GDF_DEGREEStoRADIANS);
  EXPECT_EQ(zrUtils::degreesToRads(-90.0), -90.0 * 0.017453292519943295);
}

TEST(ClampedInverses, AreTheStandardOnesWithinTheRange) {
  for (const double x : {-1.0, -0.7, -0.0, 0.0, 0.3, 1.0}) {
    EXPECT_EQ(zrUtils::acos(x), std::acos(x)) << x;
    EXPECT_EQ(zrUtils::asin(x), std::asin(x)) << x;
  }
}

TEST(ClampedInverses, StopAtTheEndsOfTheRange) {
  for (const double x : {std::nextafter(1.0, 2.0), 1.5, 1e300}) {
    EXPECT_EQ(zrUtils::acos(x), 0.0) << x;
    EXPECT_EQ(zrUtils::acos(-x), std::acos(-1.0)) << x;
    EXPECT_EQ(zrUtils::asin(x), std::asin(1.0)) << x;
    EXPECT_EQ(zrUtils::asin(-x), std::asin(-1.0)) << x;
  }
  EXPECT_TRUE(std::isnan(zrUtils::acos(notANumber)));
  EXPECT_TRUE(std::isnan(zrUtils::asin(notANumber)));
}

}  // namespace
