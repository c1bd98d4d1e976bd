#include <zrBase/tools3d/vertexDistances.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <limits>

namespace {

constexpr double unset = 3.4028234663852886e+38;

gdfVertex drawVertex() {
  const auto coordinate = rc::gen::inRange(-256, 257);
  const int x = *coordinate;
  const int y = *coordinate;
  const int z = *coordinate;
  return gdfVertex(x / 64.0, y / 64.0, z / 64.0);
}

TEST(GetPerpendicularDistance, IsMeasuredInSpace) {
  EXPECT_EQ(zr3DTools::getPerpendicularDistance(vertex("0 0"), vertex("10 0"), vertex("5 3 4")),
            5.0);
}

TEST(GetPerpendicularDistance, KeptPerpendicularFootIsNotClamped) {
  EXPECT_EQ(zr3DTools::getPerpendicularDistance(vertex("0 0"), vertex("10 0"), vertex("20 3 4")),
            5.0);
  EXPECT_EQ(zr3DTools::getPerpendicularDistance(vertex("0 0"), vertex("10 0"), vertex("-7 0 2")),
            2.0);
}

TEST(GetPerpendicularDistance, MeasuresFromTheStartOfASegmentWithoutLength) {
  EXPECT_EQ(zr3DTools::getPerpendicularDistance(vertex("1 2 3"), vertex("1 2 3"), vertex("1 5 7")),
            5.0);
  EXPECT_EQ(zr3DTools::getPerpendicularDistance(vertex("0 0"), vertex("0.00001 0"), vertex("3 4")),
            5.0);
  EXPECT_EQ(zr3DTools::getPerpendicularDistance(vertex("0 0"), vertex("0.000011 0"), vertex("3 4")),
            4.0);
}

TEST(GetMinimumDistanceToSegment3D, IsPerpendicularWhereTheFootIsOnTheSegment) {
  const gdfVertex a = vertex("0 0");
  const gdfVertex b = vertex("10 0");
  EXPECT_EQ(zr3DTools::getMinimumDistanceToSegment(a, b, vertex("4 3 4")), 5.0);
  EXPECT_EQ(zr3DTools::getMinimumDistanceToSegment(a, b, vertex("10 5")), 5.0);
  EXPECT_EQ(zr3DTools::getMinimumDistanceToSegment(a, b, vertex("0 0 5")), 5.0);
}

TEST(GetMinimumDistanceToSegment3D, IsTheNearerEndElsewhere) {
  const gdfVertex a = vertex("0 0");
  const gdfVertex b = vertex("10 0");
  EXPECT_EQ(zr3DTools::getMinimumDistanceToSegment(a, b, vertex("13 0 4")), 5.0);
  EXPECT_EQ(zr3DTools::getMinimumDistanceToSegment(a, b, vertex("-3 4")), 5.0);
}

TEST(GetMinimumDistanceToSegment3D, KeptNoLengthInSpaceGivesNaN) {
  const gdfVertex a = vertex("1 2 3");
  EXPECT_TRUE(std::isnan(zr3DTools::getMinimumDistanceToSegment(a, a, vertex("4 6 3"))));
  EXPECT_TRUE(std::isnan(zr3DTools::getMinimumDistanceToSegment(a, a, a)));
}

TEST(GetMinimumDistanceToLine3D, IsTheSmallestOverTheSegments) {
  const VertexLine bent = line("0 0 0, 10 0 0, 10 10 0, 10 10 10");
  EXPECT_EQ(zr3DTools::getMinimumDistanceToLine(bent, vertex("12 5")), 2.0);
  EXPECT_EQ(zr3DTools::getMinimumDistanceToLine(bent, vertex("5 -1")), 1.0);
  EXPECT_EQ(zr3DTools::getMinimumDistanceToLine(bent, vertex("10 13 6")), 3.0);
}

TEST(GetMinimumDistanceToLine3D, PassesOverSegmentsWithoutLength) {
  EXPECT_EQ(zr3DTools::getMinimumDistanceToLine(line("0 0, 0 0, 10 0, 10 0"), vertex("5 2")), 2.0);
}

TEST(GetMinimumDistanceToLine3D, KeepsItsStartValueWhereNoSegmentCounts) {
  EXPECT_EQ(zr3DTools::getMinimumDistanceToLine(line("1 1"), vertex("1 1")), unset);
  EXPECT_EQ(zr3DTools::getMinimumDistanceToLine(line("1 1, 1 1"), vertex("1 1")), unset);
  EXPECT_EQ(zr3DTools::getMinimumDistanceToLine(VertexLine(), vertex("1 1")), unset);
}

// From the first segment's line it is 3, from the second's 2.
TEST(GetMaximumPerpendicularDistance, IsTheLargestOverTheSegments) {
  EXPECT_EQ(zr3DTools::getMaximumPerpendicularDistance(line("0 0, 10 0, 10 10"), vertex("12 3")),
            3.0);
}

TEST(GetMaximumPerpendicularDistance, MeasuresToInfiniteLines) {
  EXPECT_EQ(zr3DTools::getMaximumPerpendicularDistance(line("0 0, 10 0"), vertex("20 0")), 0.0);
}

TEST(GetMaximumPerpendicularDistance, IsZeroForFewerThanTwoVertices) {
  EXPECT_EQ(zr3DTools::getMaximumPerpendicularDistance(line("1 1"), vertex("5 5")), 0.0);
  EXPECT_EQ(zr3DTools::getMaximumPerpendicularDistance(VertexLine(), vertex("5 5")), 0.0);
}

RC_GTEST_PROP(GetMinimumDistanceToSegment3D, IsNoLessThanThePerpendicular, ()) {
  const gdfVertex a = drawVertex();
  const gdfVertex b = drawVertex();
  const gdfVertex p = drawVertex();
  RC_PRE(a != b);
  RC_ASSERT(zr3DTools::getMinimumDistanceToSegment(a, b, p) >=
            zr3DTools::getPerpendicularDistance(a, b, p) - 1e-9);
}

RC_GTEST_PROP(GetMinimumDistanceToSegment3D, IsTheSameFromEitherEnd, ()) {
  const gdfVertex a = drawVertex();
  const gdfVertex b = drawVertex();
  const gdfVertex p = drawVertex();
  RC_PRE(a != b);
  const double difference = zr3DTools::getMinimumDistanceToSegment(a, b, p) -
                            zr3DTools::getMinimumDistanceToSegment(b, a, p);
  RC_ASSERT(std::fabs(difference) <= 1e-12);
}

}  // namespace
