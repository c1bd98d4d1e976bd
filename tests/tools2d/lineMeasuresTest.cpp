#include <zrBase/tools2d/lineMeasures.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "support/geometryText.h"

namespace {

constexpr double unset = 3.4028234663852886e38;

VertexLine drawnLine(int vertices) {
  VertexLine drawn;
  for (int i = 0; i < vertices; ++i) {
    drawn.emplace_back(*rc::gen::inRange(-320, 321) / 64.0, *rc::gen::inRange(-320, 321) / 64.0);
  }
  return drawn;
}

TEST(CalcLength, SumsSegmentsInThePlane) {
  EXPECT_EQ(zr2DTools::calcLength(line("0 0 0, 3 4 100, 3 10 -7")), 11.0);
}

TEST(CalcLength, IsZeroForFewerThanTwoVertices) {
  EXPECT_EQ(zr2DTools::calcLength(line("")), 0.0);
  EXPECT_EQ(zr2DTools::calcLength(line("3 4")), 0.0);
  EXPECT_EQ(zr2DTools::calcLength(line(""), 0, 1), 0.0);
  EXPECT_EQ(zr2DTools::calcLength(line("3 4"), 0, 0), 0.0);
}

TEST(CalcLength, MeasuresFromVertexToVertex) {
  const VertexLine steps = line("0 0, 1 0 9, 3 0, 6 0");
  EXPECT_EQ(zr2DTools::calcLength(steps, 1, 3), 5.0);
  EXPECT_EQ(zr2DTools::calcLength(steps, 0, 3), 6.0);
  EXPECT_EQ(zr2DTools::calcLength(steps, 2, 3), 3.0);
}

TEST(CalcLength, IsZeroForStretchesOutOfRange) {
  const VertexLine steps = line("0 0, 1 0, 3 0, 6 0");
  EXPECT_EQ(zr2DTools::calcLength(steps, 2, 2), 0.0);
  EXPECT_EQ(zr2DTools::calcLength(steps, 2, 1), 0.0);
  EXPECT_EQ(zr2DTools::calcLength(steps, -1, 2), 0.0);
  EXPECT_EQ(zr2DTools::calcLength(steps, -3, -1), 0.0);
  EXPECT_EQ(zr2DTools::calcLength(steps, 0, 4), 0.0);
}

RC_GTEST_PROP(CalcLength, WholeLineIsTheStretchFromFirstToLastVertex, ()) {
  const VertexLine drawn = drawnLine(*rc::gen::inRange(2, 9));
  RC_ASSERT(zr2DTools::calcLength(drawn) ==
            zr2DTools::calcLength(drawn, 0, static_cast<int>(drawn.size()) - 1));
}

TEST(CalculateMinMax, GivesTheExtentInXAndY) {
  double minX = 0.0;
  double maxX = 0.0;
  double minY = 0.0;
  double maxY = 0.0;
  EXPECT_TRUE(zr2DTools::calculateMinMax(line("3 1 50, -2 7 -50, 5 -4"), minX, maxX, minY, maxY));
  EXPECT_EQ(minX, -2.0);
  EXPECT_EQ(maxX, 5.0);
  EXPECT_EQ(minY, -4.0);
  EXPECT_EQ(maxY, 7.0);
}

TEST(CalculateMinMax, AcceptsOneVertex) {
  double minX = 0.0;
  double maxX = 0.0;
  double minY = 0.0;
  double maxY = 0.0;
  EXPECT_TRUE(zr2DTools::calculateMinMax(line("-3 8"), minX, maxX, minY, maxY));
  EXPECT_EQ(minX, -3.0);
  EXPECT_EQ(maxX, -3.0);
  EXPECT_EQ(minY, 8.0);
  EXPECT_EQ(maxY, 8.0);
}

TEST(CalculateMinMax, LeavesOutputsAloneForAnEmptyLine) {
  double minX = 1.0;
  double maxX = 2.0;
  double minY = 3.0;
  double maxY = 4.0;
  EXPECT_FALSE(zr2DTools::calculateMinMax(line(""), minX, maxX, minY, maxY));
  EXPECT_EQ(minX, 1.0);
  EXPECT_EQ(maxX, 2.0);
  EXPECT_EQ(minY, 3.0);
  EXPECT_EQ(maxY, 4.0);
}

TEST(CalculateMinMax, OutputsMayLieInTheLine) {
  VertexLine corners = line("3 1, -2 7, 5 -4");
  EXPECT_TRUE(zr2DTools::calculateMinMax(corners, corners[0].x(), corners[0].y(), corners[1].x(),
                                         corners[1].y()));
  EXPECT_THAT(corners, LineIs("-2 5, -4 7, 5 -4"));
}

TEST(MinimumDistanceToSegment, IsToTheFootWhereThatLiesOnTheSegment) {
  EXPECT_EQ(zr2DTools::getMinimumDistanceToSegment({0, 0}, {10, 0}, {4, 3}), 3.0);
  EXPECT_EQ(zr2DTools::getMinimumDistanceToSegment({0, 0}, {10, 0}, {4, 0}), 0.0);
  EXPECT_EQ(zr2DTools::getMinimumDistanceToSegment({0, 0}, {10, 0}, {10, -2}), 2.0);
}

TEST(MinimumDistanceToSegment, IsToTheNearerEndBeyondTheEnds) {
  EXPECT_EQ(zr2DTools::getMinimumDistanceToSegment({0, 0}, {10, 0}, {13, 4}), 5.0);
  EXPECT_EQ(zr2DTools::getMinimumDistanceToSegment({0, 0}, {10, 0}, {-3, -4}), 5.0);
}

TEST(MinimumDistanceToSegment, IgnoresHeights) {
  EXPECT_EQ(zr2DTools::getMinimumDistanceToSegment({0, 0, 70}, {10, 0, -20}, {4, 3, 500}), 3.0);
  EXPECT_EQ(zr2DTools::getMinimumDistanceToSegment({0, 0, 70}, {10, 0, -20}, {13, 4, 500}), 5.0);
}

TEST(MinimumDistanceToSegment, KeptDistanceToZeroLengthSegmentIsNaN) {
  EXPECT_TRUE(std::isnan(zr2DTools::getMinimumDistanceToSegment({1, 1}, {1, 1}, {4, 5})));
  EXPECT_TRUE(std::isnan(zr2DTools::getMinimumDistanceToSegment({1, 1}, {1, 1}, {1, 1})));
  // Without length in the plane is enough.
  EXPECT_TRUE(std::isnan(zr2DTools::getMinimumDistanceToSegment({1, 1, 0}, {1, 1, 8}, {4, 5})));
}

RC_GTEST_PROP(MinimumDistanceToSegment, IsTheSameFromBothEnds, ()) {
  const VertexLine drawn = drawnLine(3);
  RC_PRE(drawn[0] != drawn[1]);
  RC_ASSERT(zr2DTools::getMinimumDistanceToSegment(drawn[0], drawn[1], drawn[2]) ==
            zr2DTools::getMinimumDistanceToSegment(drawn[1], drawn[0], drawn[2]));
}

TEST(MinimumDistanceToLine, IsTheSmallestOfItsSegments) {
  const VertexLine hook = line("0 0, 10 0, 10 10, 0 10");
  EXPECT_EQ(zr2DTools::getMinimumDistanceToLine(hook, {7, 5}), 3.0);
  EXPECT_EQ(zr2DTools::getMinimumDistanceToLine(hook, {4, 8, 99}), 2.0);
  EXPECT_EQ(zr2DTools::getMinimumDistanceToLine(hook, {-3, -4}), 5.0);
}

TEST(MinimumDistanceToLine, PassesOverSegmentsWithoutLength) {
  EXPECT_EQ(zr2DTools::getMinimumDistanceToLine(line("0 0, 0 0, 10 0, 10 0"), {13, 4}), 5.0);
  EXPECT_EQ(zr2DTools::getMinimumDistanceToLine(line("2 2, 2 2"), {2, 2}), unset);
}

TEST(MinimumDistanceToLine, KeptDistanceToLoneVertexIsUnset) {
  EXPECT_EQ(zr2DTools::getMinimumDistanceToLine(line("2 2"), {2, 3}), unset);
  EXPECT_EQ(zr2DTools::getMinimumDistanceToLine(line("2 2"), {2, 2}), unset);
}

TEST(DownSampleAngle, KeptDownSampleAngleIsNeverFound) {
  double angle = 42.0;
  EXPECT_FALSE(zr2DTools::getDownSampleAngle(line("0 0, 10 0, 10 10"), 1, angle));
  EXPECT_EQ(angle, 42.0);
}

}  // namespace
