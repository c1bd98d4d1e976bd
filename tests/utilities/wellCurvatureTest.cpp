#include <zrBase/utilities/wellPath.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <limits>

// The two methods that bend: minimum curvature and radius of curvature. Offsets are (east, north,
// down).

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double radian = 0.017453292519943295;
constexpr double pi = 3.141592653589793;

/// Two stations, angles in degrees, and the length between them.
struct Interval {
  double upperInclination;
  double upperAzimuth;
  double length;
  double inclination;
  double azimuth;
};

using MethodFunction = void (*)(double, double, double, double&, double&, double&);

gdfVertex by(MethodFunction method, const Interval& i) {
  double a = i.length, b = i.inclination, c = i.azimuth;
  method(0.0, i.upperInclination, i.upperAzimuth, a, b, c);
  return {a, b, c};
}

gdfVertex averageAngle(const Interval& i) { return by(zrUtils::convertToXyzAverageAngle, i); }
gdfVertex balanced(const Interval& i) { return by(zrUtils::convertToXyzBalanceTangential, i); }
gdfVertex minimumCurvature(const Interval& i) {
  return by(zrUtils::convertToXyzMinimumCurvature, i);
}
gdfVertex radiusOfCurvature(const Interval& i) {
  return by(zrUtils::convertToXyzRadiusOfCurvature, i);
}

gdfVertex direction(double inclination, double azimuth) {
  const double reach = std::sin(inclination);
  return {reach * std::sin(azimuth), reach * std::cos(azimuth), std::cos(inclination)};
}

/// Integral of a direction over 0 to 1, by Simpson's rule.
template <class Direction>
gdfVertex integral(Direction direction) {
  constexpr int steps = 400;
  gdfVertex sum = direction(0.0) + direction(1.0);
  for (int k = 1; k < steps; ++k) {
    sum += direction(static_cast<double>(k) / steps) * (k % 2 == 1 ? 4.0 : 2.0);
  }
  return sum / (3.0 * steps);
}

/// Two stations with doglegs that neither vanish nor come near a right angle.
Interval anyInterval() {
  Interval i{};
  i.upperInclination = *rc::gen::inRange(8, 900) / 8.0;
  i.upperAzimuth = *rc::gen::inRange(320, 2560) / 8.0;
  i.length = *rc::gen::inRange(64, 6400) / 64.0;
  i.inclination = i.upperInclination + *rc::gen::inRange(1, 300) / 8.0;
  i.azimuth = i.upperAzimuth + *rc::gen::inRange(-300, 0) / 8.0;
  return i;
}

// Minimum curvature.

TEST(MinimumCurvature, IsTheArcOfACircleInAVerticalPlane) {
  // From 10 to 50 degrees towards azimuth 0: radius R = 100 / (40 degrees in radians), the depth
  // is R (sin 50 - sin 10), the reach R (cos 10 - cos 50).
  const double radius = 100.0 / (40.0 * radian);
  const gdfVertex offset = minimumCurvature({10.0, 0.0, 100.0, 50.0, 0.0});
  EXPECT_EQ(offset.x(), 0.0);
  EXPECT_NEAR(offset.y(), radius * (std::cos(10.0 * radian) - std::cos(50.0 * radian)), 1e-12);
  EXPECT_NEAR(offset.z(), radius * (std::sin(50.0 * radian) - std::sin(10.0 * radian)), 1e-12);
}

TEST(MinimumCurvature, IsTheArcOfACircleInALevelPlane) {
  // A level well that turns from east to azimuth 150, a dogleg of 60 degrees: the chord is as long
  // as the radius and points towards azimuth 120.
  const double radius = 100.0 / (60.0 * radian);
  const gdfVertex offset = minimumCurvature({90.0, 90.0, 100.0, 90.0, 150.0});
  EXPECT_NEAR(offset.x(), radius * std::sin(120.0 * radian), 1e-12);
  EXPECT_NEAR(offset.y(), radius * std::cos(120.0 * radian), 1e-12);
  EXPECT_NEAR(offset.z(), 0.0, 1e-13);
}

RC_GTEST_PROP(MinimumCurvature, IsTheArcOfACircleInAnyPlane, ()) {
  const Interval i = anyInterval();
  const gdfVertex upper = direction(i.upperInclination * radian, i.upperAzimuth * radian);
  const gdfVertex lower = direction(i.inclination * radian, i.azimuth * radian);
  const double dogleg = std::acos(upper * lower);
  RC_PRE(std::fabs(std::cos(dogleg)) > 0.02);
  const gdfVertex arc = integral([&](double s) {
    return (upper * std::sin((1.0 - s) * dogleg) + lower * std::sin(s * dogleg)) / std::sin(dogleg);
  });
  RC_ASSERT(largestDifference({minimumCurvature(i)}, {arc * i.length}) <= 1e-8 * i.length);
}

TEST(MinimumCurvature, BendsShortOnAHalfCircle) {
  // From straight down to straight up: half a circle of length 100 has the diameter 200 / pi.
  EXPECT_THAT(minimumCurvature({0.0, 0.0, 100.0, 180.0, 90.0}),
              VertexNear("63.66197723675814 0 0", 1e-8));
}

TEST(MinimumCurvature, FollowsAStraightIntervalByAverageAngle) {
  const Interval slanted{33.0, 77.0, 100.0, 33.0, 77.0};
  EXPECT_EQ(minimumCurvature(slanted), averageAngle(slanted));
  EXPECT_NEAR(minimumCurvature(slanted).length(), 100.0, 1e-12);
}

TEST(MinimumCurvature, TakesEqualAnglesBeforeAnythingElse) {
  // Between two vertical stations an infinite azimuth spreads only where both share it.
  const Interval shared{0.0, infinity, 100.0, 0.0, infinity};
  EXPECT_TRUE(std::isnan(minimumCurvature(shared).x()));
  EXPECT_EQ(minimumCurvature(shared).z(), 100.0);
}

TEST(MinimumCurvature, StaysFiniteBetweenOppositeDirections) {
  // Their cosine rounds to a hair below -1.
  const double a = 13.25 * radian, b = 166.75 * radian;
  ASSERT_LT(std::cos(b - a) - (1.0 - std::cos(180.0 * radian)) * std::sin(a) * std::sin(b), -1.0);
  EXPECT_TRUE(minimumCurvature({13.25, 0.0, 100.0, 166.75, 180.0}).valid());
}

TEST(MinimumCurvature, IgnoresTheAzimuthOfAVerticalStation) {
  EXPECT_EQ(minimumCurvature({0.0, 0.0, 100.0, 20.0, 300.0}),
            minimumCurvature({0.0, 300.0, 100.0, 20.0, 300.0}));
}

TEST(MinimumCurvature, CrossesNorthByTheShorterWay) {
  // A small dogleg on either side of north stays north.
  const gdfVertex offset = minimumCurvature({30.0, 350.0, 100.0, 30.0, 10.0});
  EXPECT_NEAR(offset.x(), 0.0, 1e-12);
  EXPECT_GT(offset.y(), 49.0);
}

TEST(MinimumCurvature, KeptNearRightDoglegTakesAverageAngle) {
  const Interval right{0.0, 40.0, 100.0, 90.0, 40.0};
  EXPECT_EQ(minimumCurvature(right), averageAngle(right));
  // Strict bounds on the cosine: 89.43 degrees has 0.00995, 89.42 has 0.01012; 90.57 and 90.58 are
  // their mirror images.
  for (const double inclination : {89.43, 90.57}) {
    const Interval within{0.0, 40.0, 100.0, inclination, 40.0};
    EXPECT_EQ(minimumCurvature(within), averageAngle(within));
  }
  for (const double inclination : {89.42, 90.58}) {
    const Interval outside{0.0, 40.0, 100.0, inclination, 40.0};
    EXPECT_GT(minimumCurvature(outside).distance(averageAngle(outside)), 1.0);
  }
  // A level right turn across north, from 315 to 45, goes off to the south.
  EXPECT_THAT(minimumCurvature({90.0, 315.0, 100.0, 90.0, 45.0}), VertexNear("0 -100 0", 1e-12));
}

TEST(MinimumCurvature, KeptNoDoglegAcrossNorthTurnsSouth) {
  EXPECT_THAT(minimumCurvature({30.0, 0.0, 100.0, 30.0, 360.0}),
              VertexNear("0 -50 86.602540378443865", 1e-12));
  // A difference of a millionth of a degree has a cosine that rounds to 1 too.
  EXPECT_LT(minimumCurvature({30.0, 359.9999999, 100.0, 30.0, 0.0000001}).y(), -49.0);
  EXPECT_GT(minimumCurvature({30.0, 359.99, 100.0, 30.0, 0.01}).y(), 49.0);
}

TEST(MinimumCurvature, RunsVerticallyBetweenTwoVerticalStations) {
  EXPECT_THAT(minimumCurvature({0.0, 0.0, 100.0, 0.0, 90.0}), VertexIs("0 0 100"));
}

TEST(MinimumCurvature, KeptGuardedVerticalWithStrayAzimuth) {
  EXPECT_THAT(minimumCurvature({0.0, nan, 100.0, 0.0, 90.0}), VertexIs("0 0 100"));
  EXPECT_THAT(minimumCurvature({0.0, 10.0, 100.0, 0.0, infinity}), VertexIs("0 0 100"));
  EXPECT_TRUE(std::isnan(minimumCurvature({0.0, nan, 100.0, 1.0, 90.0}).x()));
  EXPECT_TRUE(std::isnan(minimumCurvature({0.0, nan, 100.0, 1.0, 90.0}).z()));
}

// Radius of curvature.

RC_GTEST_PROP(RadiusOfCurvature, IsTheCurveOnItsCylinder, ()) {
  const Interval i = anyInterval();
  RC_PRE(i.azimuth != i.upperAzimuth);
  const double first = i.upperInclination * radian;
  const double build = i.inclination * radian - first;
  const double turn = (i.azimuth - i.upperAzimuth) * radian;
  // Inclination grows evenly along the well, azimuth evenly along its level reach.
  const auto reach = [&](double s) { return std::cos(first) - std::cos(first + s * build); };
  const gdfVertex curve = integral([&](double s) {
    return direction(first + s * build, i.upperAzimuth * radian + turn * reach(s) / reach(1.0));
  });
  RC_ASSERT(largestDifference({radiusOfCurvature(i)}, {curve * i.length}) <= 1e-8 * i.length);
}

TEST(RadiusOfCurvature, IsAQuarterHelixOfKnownRadii) {
  // From straight down to level while the azimuth turns from north to east. The section is a
  // quarter circle of length 100, radius r = 200 / pi: that is the depth and the level reach. The
  // reach is a quarter circle in the map: radius 2 r / pi, to the east and to the north.
  const double radius = 200.0 / pi;
  const gdfVertex offset = radiusOfCurvature({0.0, 0.0, 100.0, 90.0, 90.0});
  EXPECT_NEAR(offset.x(), 2.0 * radius / pi, 1e-12);
  EXPECT_NEAR(offset.y(), 2.0 * radius / pi, 1e-12);
  EXPECT_NEAR(offset.z(), radius, 1e-12);
}

TEST(RadiusOfCurvature, NearsTheHelixOfEqualInclinations) {
  // A helix of inclination 60 that turns by 90 degrees: level reach 100 sin 60 on a quarter circle.
  const double radius = 100.0 * std::sin(60.0 * radian) / (pi / 2.0);
  const gdfVertex offset = radiusOfCurvature({60.0 - 1e-4, 0.0, 100.0, 60.0 + 1e-4, 90.0});
  EXPECT_NEAR(offset.x(), radius, 1e-6);
  EXPECT_NEAR(offset.y(), radius, 1e-6);
  EXPECT_NEAR(offset.z(), 50.0, 1e-6);
}

TEST(RadiusOfCurvature, KeptPlaneArcTakesBalancedTangential) {
  const Interval helix{60.0, 0.0, 100.0, 60.0, 90.0};
  EXPECT_EQ(radiusOfCurvature(helix), balanced(helix));
  const Interval planeArc{10.0, 40.0, 100.0, 50.0, 40.0};
  EXPECT_EQ(radiusOfCurvature(planeArc), balanced(planeArc));
  // The chord of the balanced tangential is 100 cos(20 degrees), that of the arc is longer.
  EXPECT_NEAR(radiusOfCurvature(planeArc).length(), 93.96926207859084, 1e-11);
  EXPECT_GT(radiusOfCurvature({10.0, 40.0, 100.0, 50.0, 40.001}).length(), 97.9);
  // The last digit of an angle is enough for the formula. In radians both inclinations are one step
  // of 2^-52 apart; their cosines differ by 2^-52 too, their sines by half of that. What is left is
  // 100 / (pi / 2) to the east and to the north, and a depth of 100 / 2.
  EXPECT_THAT(radiusOfCurvature({60.0, 0.0, 100.0, std::nextafter(60.0, 90.0), 90.0}),
              VertexNear("63.66197723675813 63.66197723675813 50", 1e-12));
  // The same of the azimuths: with the radius 100 / (40 degrees in radians) of the section its
  // level reach to the east, half of that to the north, and its depth.
  const double radius = 100.0 / (40.0 * radian);
  const double reach = radius * (std::cos(10.0 * radian) - std::cos(50.0 * radian));
  const double depth = radius * (std::sin(50.0 * radian) - std::sin(10.0 * radian));
  const gdfVertex offset = radiusOfCurvature({10.0, 60.0, 100.0, 50.0, std::nextafter(60.0, 90.0)});
  EXPECT_NEAR(offset.x(), reach, 1e-12);
  EXPECT_NEAR(offset.y(), reach / 2.0, 1e-12);
  EXPECT_NEAR(offset.z(), depth, 1e-12);
}

TEST(RadiusOfCurvature, KeptTurnNeverCrossesNorth) {
  // 340 degrees anticlockwise close all but 20 of a circle: the end is near the beginning.
  const gdfVertex around = radiusOfCurvature({89.0, 350.0, 100.0, 91.0, 10.0});
  EXPECT_LT(around.length(), 10.0);
  EXPECT_GT(radiusOfCurvature({89.0, -10.0, 100.0, 91.0, 10.0}).length(), 99.0);
}

}  // namespace
