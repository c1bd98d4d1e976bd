#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "bisectors/support/builtSet.h"
#include "support/geometryText.h"

// Where a point stands over the template: heights, and the length along it.

namespace {

constexpr double near = 1e-9;

const char* const straight = "0 0, 10 0, 20 0, 30 0";

struct BaseLine {
  bool result = false;
  double height = -7.0;
  double length = -8.0;
  int domain = -9;
};

BaseLine baseLineOf(zr2DBisectorSet& set, const std::string& point) {
  BaseLine b;
  b.result = set.calculateHeightAndLengthOnBaseLine(vertex(point), b.height, b.length, b.domain);
  return b;
}

/// Built as by builtSet, with the bounds' first x at a value: probes along x begin there.
zr2DBisectorSet builtFrom(const std::string& templateLine, double firstX) {
  zr2DBisectorSet set;
  set.generateBisectors(line(templateLine), gdfVertex(firstX, -100.0), vertex("100 100"));
  set.expandBisectors();
  return set;
}

}  // namespace

TEST(CalculateH, IsPositiveOnTheLeftAndNegativeOnTheRight) {
  zr2DBisectorSet set = builtSet(straight);
  EXPECT_EQ(set.calculateH(vertex("15 3")), 3.0);
  EXPECT_EQ(set.calculateH(vertex("15 -3")), -3.0);
  EXPECT_EQ(set.calculateH(vertex("15 0")), 0.0);
  EXPECT_EQ(set.calculateH(vertex("20 0")), 0.0);
}

TEST(CalculateH, MeasuresFromTheSegmentOfTheDomain) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 10 10");
  EXPECT_EQ(set.calculateH(vertex("7 6")), 3.0);
  EXPECT_EQ(set.calculateH(vertex("2 1")), 1.0);
  EXPECT_EQ(set.calculateH(vertex("13 6")), -3.0);
}

// Beyond an end the height is the distance from the segment's line, not from its end.
TEST(CalculateH, IsMeasuredFromTheInfiniteLine) {
  zr2DBisectorSet set = builtSet(straight);
  EXPECT_EQ(set.calculateH(vertex("-40 3")), 3.0);
}

TEST(CalculateH, OfATemplateWithoutASegmentIsZero) {
  zr2DBisectorSet set;
  EXPECT_EQ(set.calculateH(vertex("1 2 3")), 0.0);
  set = builtSet("0 0, 10 0");
  EXPECT_EQ(set.calculateH(vertex("5 3")), 3.0);
  EXPECT_EQ(set.calculateH(vertex("5 -3")), -3.0);
}

TEST(GetRootBisectorHeight, IsTheLengthOfTheBisectorAndNeverNegative) {
  zr2DBisectorSet set = builtSet(straight);
  set.getRightBisectors()[1].setTop(vertex("20 -7"));
  EXPECT_EQ(set.getRootBisectorHeight(vertex("15 3"), 1), 400.0);
  EXPECT_EQ(set.getRootBisectorHeight(vertex("15 -3"), 1), 7.0);
  EXPECT_EQ(set.getRootBisectorHeight(vertex("15 -3"), 0), 400.0);
}

TEST(GetRootBisectorHeight, KeptRootHeightOnTemplateReadsRightChain) {
  zr2DBisectorSet set = builtSet(straight);
  set.getRightBisectors()[1].setTop(vertex("20 -7"));
  EXPECT_EQ(set.getRootBisectorHeight(vertex("15 0"), 1), 7.0);
}

TEST(GetRootBisectorHeight, OfAnIndexOutsideTheChainIsZero) {
  const zr2DBisectorSet set = builtSet(straight);
  EXPECT_EQ(set.getRootBisectorHeight(vertex("15 3"), 2), 0.0);
  EXPECT_EQ(set.getRootBisectorHeight(vertex("15 3"), -1), 0.0);
  EXPECT_EQ(zr2DBisectorSet().getRootBisectorHeight(vertex("15 3"), 0), 0.0);
}

TEST(HeightAndLengthOnBaseLine, KeptPointOnTemplateWritesNoHeight) {
  zr2DBisectorSet set = builtSet(straight);
  const BaseLine b = baseLineOf(set, "15 0");
  EXPECT_TRUE(b.result);
  EXPECT_EQ(b.height, -7.0);
  EXPECT_EQ(b.length, -8.0);
  EXPECT_EQ(b.domain, -9);
}

TEST(HeightAndLengthOnBaseLine, OfDomainZeroIsFalseAndWritesTheDomainAlone) {
  zr2DBisectorSet set = builtSet(straight);
  const BaseLine b = baseLineOf(set, "5 3");
  EXPECT_FALSE(b.result);
  EXPECT_EQ(b.height, -7.0);
  EXPECT_EQ(b.length, -8.0);
  EXPECT_EQ(b.domain, 0);
}

// A chain of another template: its domains lie beyond the last segment.
TEST(HeightAndLengthOnBaseLine, OfADomainBeyondTheLastIsFalse) {
  zr2DBisectorSet set = builtSet(straight);
  for (zr2DBisector& b : set.getLeftBisectors()) b.setLeftDomain(3);
  for (zr2DBisector& b : set.getLeftBisectors()) b.setRightDomain(3);
  const BaseLine b = baseLineOf(set, "15 3");
  EXPECT_FALSE(b.result);
  EXPECT_EQ(b.domain, 3);
}

// The bisector at x = 20 is met at (20, 3), 3 from the end of domain 1; the one at x = 10 at
// (10, 3), sqrt(109) from it. On the right the same, without a sign.
TEST(HeightAndLengthOnBaseLine, KeptBaseLineHeightIsDistanceToSegmentEnd) {
  zr2DBisectorSet set = builtSet(straight);
  for (const char* point : {"18 3", "18 -3"}) {
    const BaseLine b = baseLineOf(set, point);
    EXPECT_TRUE(b.result);
    EXPECT_EQ(b.domain, 1);
    EXPECT_EQ(b.height, 3.0);
    EXPECT_EQ(b.length, 20.0);
  }
  const BaseLine nearerToStart = baseLineOf(set, "12 3");
  EXPECT_EQ(nearerToStart.domain, 1);
  EXPECT_EQ(nearerToStart.height, std::sqrt(109.0));
  EXPECT_EQ(nearerToStart.length, 10.0);
}

// Segments along (1, 0), (3, 4), (1, 0): the right root at (10, 0) runs along (1, -2) and is met at
// (11, -2). Up from there, across the first segment, the foot on the second is (11, 4/3).
TEST(HeightAndLengthOnBaseLine, MeasuresToTheFootAcrossThePreviousSegment) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 16 8, 26 8");
  const BaseLine b = baseLineOf(set, "13 -2");
  EXPECT_TRUE(b.result);
  EXPECT_EQ(b.domain, 1);
  EXPECT_NEAR(b.height, std::sqrt(125.0), near);
  EXPECT_NEAR(b.length, 10.0 + 5.0 / 3.0, near);
}

// The mirror image: the foot lies the other way, and the second try finds it.
TEST(HeightAndLengthOnBaseLine, TriesTheOppositeDirectionToo) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 16 -8, 26 -8");
  const BaseLine b = baseLineOf(set, "13 2");
  EXPECT_TRUE(b.result);
  EXPECT_EQ(b.domain, 1);
  EXPECT_NEAR(b.height, std::sqrt(125.0), near);
  EXPECT_NEAR(b.length, 10.0 + 5.0 / 3.0, near);
}

// The foot is searched along y, parallel to segment 1 at x = 10: there is none. The hit at (7, 3)
// is nearer to (10, 0), at length 10, and gets 20; the one at (7, 13) is nearer to (10, 10) and
// gets 10.
TEST(HeightAndLengthOnBaseLine, KeptNearerVertexTakesFartherLength) {
  zr2DBisectorSet set = builtFrom("0 0, 10 0, 10 10, 20 10", 9.0);
  const BaseLine nearerToStart = baseLineOf(set, "7 6");
  EXPECT_TRUE(nearerToStart.result);
  EXPECT_EQ(nearerToStart.domain, 1);
  EXPECT_NEAR(nearerToStart.height, std::sqrt(58.0), near);
  EXPECT_EQ(nearerToStart.length, 20.0);
  const BaseLine nearerToEnd = baseLineOf(set, "7 12");
  EXPECT_TRUE(nearerToEnd.result);
  EXPECT_EQ(nearerToEnd.domain, 1);
  EXPECT_NEAR(nearerToEnd.height, std::sqrt(18.0), near);
  EXPECT_EQ(nearerToEnd.length, 10.0);
}

// A hit half way between both ends counts as nearer to the start.
TEST(HeightAndLengthOnBaseLine, OfAHitHalfWayTakesTheLengthToTheEnd) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 10 10, 20 10");
  for (zr2DBisector& b : set.getLeftBisectors()) {
    b.setBase(vertex("2 5"));
    b.setTop(vertex("4 5"));
    b.setNormal(vertex("0 -1"));
    b.setLeftDomain(1);
    b.setRightDomain(1);
  }
  const BaseLine b = baseLineOf(set, "3 6");
  EXPECT_TRUE(b.result);
  EXPECT_EQ(b.domain, 1);
  EXPECT_EQ(b.length, 20.0);
}

// Where no probe meets a bisector the last one found serves; the hit stays at the origin.
TEST(HeightAndLengthOnBaseLine, KeptBaseLineWithoutHitMeasuresFromTheOrigin) {
  zr2DBisectorSet set = builtSet(straight);
  EXPECT_EQ(baseLineOf(set, "18 3").domain, 1);
  const BaseLine b = baseLineOf(set, "18 500");
  EXPECT_TRUE(b.result);
  EXPECT_EQ(b.domain, 1);
  EXPECT_EQ(b.height, 20.0);
  EXPECT_EQ(b.length, 20.0);
}
