#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "bisectors/support/builtSet.h"
#include "support/geometryText.h"

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

zrFlowPath atHeight(zr2DBisectorSet& set, double height, int mode) {
  set.setFlowPathMode(mode);
  zrFlowPath path;
  EXPECT_TRUE(set.generateFlowPath(height, path));
  return path;
}

/// Climbs the left chain of a set; gives the index, and the place met.
int climb(zr2DBisectorSet& set, double height, int index, gdfVertex& place) {
  return set.getVertexAtHeightOnBisectorChain(zre::sideLeft, set.getLeftBisectors(), height, index,
                                              place);
}

const char* const straight = "0 0, 10 0, 20 0, 30 0";

/// Two roots that meet on the left at (5, 5), and a merged bisector that goes on upward, parallel
/// to the outer segments.
const char* const trough = "0 10, 0 0, 10 0, 10 10";

}  // namespace

TEST(FlowPathAtHeight, OfAnyModeRunsFromStartToEnd) {
  zr2DBisectorSet set = builtSet(straight);
  for (int mode : {0, 1, -1, 7}) {
    EXPECT_THAT(atHeight(set, 3.0, mode).getFlowLine(), LineIs("0 3, 10 3, 20 3, 30 3"));
    EXPECT_THAT(atHeight(set, -3.0, mode).getFlowLine(), LineIs("0 -3, 10 -3, 20 -3, 30 -3"));
  }
}

TEST(FlowPathAtHeight, WithSlipsHasSlipZeroAtTheFirstBisector) {
  zr2DBisectorSet set = builtSet(straight);
  const zrFlowPath path = atHeight(set, -3.0, 1);
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, 0.0, 10.0, 20.0));
  EXPECT_TRUE(path.valid());
  EXPECT_EQ(path.getH(), -3.0);
  EXPECT_THAT(path.getStartVector(), VertexIs("-1 0"));
  EXPECT_THAT(path.getEndVector(), VertexIs("1 0"));
}

TEST(FlowPathAtHeight, TakesItsLFromTheTemplatesStart) {
  zr2DBisectorSet set = builtSet("0 0 4, 10 0 5, 20 0 6");
  EXPECT_EQ(atHeight(set, 3.0, 0).getL(), 4.0);
  EXPECT_EQ(atHeight(set, 3.0, 1).getL(), 4.0);
}

// The end steps: the first slip becomes -5, then the last one, which in this mode is the first, and
// 15 make 10.
TEST(FlowPathAtHeight, KeptModeZeroLeavesTwoSlips) {
  zr2DBisectorSet set = builtSet("0 0, 5 0, 10 0, 25 0");
  EXPECT_EQ(set.getFlowPathMode(), 0);
  zrFlowPath path;
  EXPECT_TRUE(set.generateFlowPath(3.0, path));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 3, 5 3, 10 3, 25 3"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-5.0, 10.0));
  EXPECT_FALSE(path.valid());
}

TEST(FlowPathAtHeight, ZeroIsTheTemplateFromItsFirstVertex) {
  zr2DBisectorSet set = builtSet(straight);
  zrFlowPath path;
  path.setL(4.0);
  path.getSlipValues() = {9.0};
  EXPECT_TRUE(set.generateFlowPath(0.0, path));
  EXPECT_THAT(path.getFlowLine(), LineIs(straight));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(0.0, 10.0, 20.0, 30.0));
  EXPECT_EQ(path.getH(), 0.0);
  EXPECT_EQ(path.getL(), 4.0);
  EXPECT_TRUE(set.generateFlowPath(-0.0, path));
}

TEST(FlowPathAtHeight, FailsForTwoVerticesWhereAPointHasItsPath) {
  zr2DBisectorSet set = builtSet("0 0, 10 0");
  zrFlowPath path;
  path.setFlow(line("1 1, 2 2"), {1.0, 2.0});
  EXPECT_FALSE(set.generateFlowPath(3.0, path));
  EXPECT_FALSE(set.generateFlowPath(0.0, path));
  EXPECT_THAT(path.getFlowLine(), LineIs("1 1, 2 2"));
  EXPECT_TRUE(set.generateFlowPath(vertex("5 3"), path, false, unsetMark));
}

TEST(FlowPathAtHeight, OfAnEmptyChainFailsWithThePathUntouched) {
  zr2DBisectorSet set = builtSet(straight);
  set.getLeftBisectors().clear();
  zrFlowPath path;
  path.setFlow(line("1 1, 2 2"), {1.0, 2.0});
  EXPECT_FALSE(set.generateFlowPath(3.0, path));
  EXPECT_THAT(path.getFlowLine(), LineIs("1 1, 2 2"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(1.0, 2.0));
  EXPECT_EQ(path.getH(), 0.0);
}

// A path is to come with no slips; what it brings stays in front, and its first one is overwritten.
TEST(FlowPathAtHeight, KeptSlipsOfAnEarlierPathStay) {
  zr2DBisectorSet set = builtSet(straight);
  set.setFlowPathMode(1);
  zrFlowPath path;
  path.setFlow(line("1 1, 2 2"), {7.0, 8.0});
  EXPECT_TRUE(set.generateFlowPath(3.0, path));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 3, 10 3, 20 3, 30 3"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, 8.0, 0.0, 0.0, 10.0, 20.0));
}

TEST(FlowPathAtHeight, FollowsTheSkeletonAboveAMerge) {
  zr2DBisectorSet set = builtSet(trough);
  for (int mode : {0, 1}) {
    EXPECT_THAT(atHeight(set, 3.0, mode).getFlowLine(), LineNear("3 13, 3 3, 7 3, 7 13", 1e-9));
  }
  // Above the merge one bisector is left, and it rises along its own domain: mode 1 goes 2 along it
  // from (5, 5), mode 0 divides 2 by nothing.
  EXPECT_THAT(atHeight(set, 7.0, 1).getFlowLine(), LineNear("5 17, 5 7, 5 17", 1e-9));
  EXPECT_FALSE(atHeight(set, 7.0, 0).getFlowLine()[1].valid());
}

TEST(FlowPathAtHeight, WithoutAnyVertexIsEmptiedAndFails) {
  zr2DBisectorSet set = builtSet(straight);
  for (zr2DBisector& b : set.getLeftBisectors()) b.setLeftDomain(-1);
  for (int mode : {0, 1}) {
    set.setFlowPathMode(mode);
    zrFlowPath path;
    EXPECT_FALSE(set.generateFlowPath(3.0, path));
    EXPECT_THAT(path.getFlowLine(), IsEmpty());
    EXPECT_THAT(path.getSlipValues(), IsEmpty());
    EXPECT_EQ(path.getH(), 3.0);
  }
}

// A bisector over segment 1, which runs up at x = 10, is met in the step of vertex 0. Its base (4,
// 4) lies 6 over segment 1, but -4 over (0, 0) in that direction: mode 1 goes 8 + 4 along it, not 8
// - 6; mode 0 finds a base below 0.
TEST(FlowPathAtHeight, KeptHeightIsMeasuredFromTheStepsVertex) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 10 10, 20 10");
  zr2DBisector b;
  b.setBase(vertex("4 4"));
  b.setNormal(vertex("-1 0"));
  b.setLeftDomain(1);
  b.setRightDomain(2);
  set.getLeftBisectors() = {b};
  EXPECT_THAT(atHeight(set, 8.0, 1).getFlowLine(), LineIs("-18 4, -8 4, 2 4"));
  set.setFlowPathMode(0);
  zrFlowPath path;
  EXPECT_FALSE(set.generateFlowPath(8.0, path));
  gdfVertex place;
  EXPECT_EQ(climb(set, 8.0, 0, place), 0);
  EXPECT_THAT(place, VertexIs("2 4"));
}

TEST(FlowPathAtHeight, KeptUnguardedDivisionByRise) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  set.getLeftBisectors()[0].setNormal(vertex("1 0"));
  const zrFlowPath unguarded = atHeight(set, 3.0, 0);
  ASSERT_EQ(unguarded.getFlowLine().size(), 3u);
  EXPECT_EQ(unguarded.getFlowLine()[1].x(), std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(unguarded.getFlowLine()[1].y()));
  EXPECT_THAT(atHeight(set, 3.0, 1).getFlowLine(), LineIs("3 0, 13 0, 23 0"));
}

// The third root has no direction: its step adds no vertex, but the length of the step before.
TEST(FlowPathAtHeight, KeptSlipIsCountedWithoutAVertex) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0, 30 0, 40 0");
  set.getLeftBisectors()[2].setNormal(gdfVertex(notANumber, 0.0, 0.0));
  const zrFlowPath path = atHeight(set, 3.0, 1);
  EXPECT_THAT(path.getFlowLine(), LineIs("0 3, 10 3, 20 3, 30 3"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, 0.0, 10.0, 20.0, 30.0));
}

// Without a first vertex the second one is measured from the placeholder at the origin.
TEST(FlowPathAtHeight, MeasuresAnEarlyStepFromTheOrigin) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0, 30 0");
  set.getLeftBisectors()[0].setNormal(gdfVertex(notANumber, 0.0, 0.0));
  const zrFlowPath path = atHeight(set, 21.0, 1);
  EXPECT_THAT(path.getFlowLine(), LineIs("10 21, 20 21, 30 21"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, 0.0, 29.0, 39.0));
}

TEST(FlowPathAtHeight, OfModeZeroEndsOnAPlaceThatIsNoNumber) {
  zr2DBisectorSet set = builtSet(straight);
  set.getLeftBisectors()[1].setNormal(gdfVertex(notANumber, 0.0, 0.0));
  EXPECT_THAT(atHeight(set, 3.0, 0).getFlowLine(), LineIs("0 3, 10 3, 20 3"));
}

// A merged bisector and its root both reach the height over vertex 1; the one nearer to (10, 3) is
// taken, and one of another left domain is not looked at.
TEST(FlowPathAtHeight, OfModeZeroTakesTheNearestOfOneDomain) {
  zr2DBisectorSet set = builtSet(straight);
  auto& chain = set.getLeftBisectors();
  zr2DBisector nearer = chain[1];
  nearer.setType(0);
  nearer.setBase(vertex("17 1"));
  nearer.setRightDomain(3);
  zr2DBisector otherDomain = nearer;
  otherDomain.setBase(vertex("11 1"));
  otherDomain.setLeftDomain(0);
  chain[1].setTopConnect(2);
  nearer.setTopConnect(3);
  nearer.setTop(vertex("17 9"));
  chain.push_back(nearer);
  chain.push_back(otherDomain);
  EXPECT_THAT(atHeight(set, 3.0, 0).getFlowLine(), LineIs("0 3, 10 3, 17 3, 27 3"));
  EXPECT_THAT(atHeight(set, 3.0, 1).getFlowLine(), LineIs("0 3, 10 3, 20 3, 30 3"));
}

// The place must lie strictly inside a bisector that goes on; an open one has no end.
TEST(FlowPathAtHeight, OfModeZeroNeedsAPlaceStrictlyInside) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  zr2DBisector& root = set.getLeftBisectors()[0];
  root.setTop(vertex("10 3"));
  root.setTopConnect(0);
  set.setFlowPathMode(0);
  zrFlowPath path;
  EXPECT_FALSE(set.generateFlowPath(3.0, path));
  EXPECT_THAT(atHeight(set, 2.0, 0).getFlowLine(), LineIs("0 2, 10 2, 20 2"));
  EXPECT_THAT(atHeight(set, 3.0, 1).getFlowLine(), LineIs("0 3, 10 3, 20 3"));
}

// The first place falls on the origin, where the walk counts itself to stand: nothing is added, and
// it goes on all the same. A later repeat ends it.
TEST(FlowPathAtHeight, KeptFirstPlaceAtTheOriginGoesOn) {
  zr2DBisectorSet set = builtSet("-10 -3, 0 -3, 10 -3, 20 -3, 30 -3");
  EXPECT_THAT(atHeight(set, 3.0, 0).getFlowLine(), LineIs("0 0, 10 0, 20 0, 30 0"));
  EXPECT_THAT(atHeight(set, 3.0, 1).getFlowLine(), LineIs("-10 0, 0 0, 10 0, 20 0, 30 0"));
  set.getLeftBisectors()[2].setBase(vertex("10 -3"));
  EXPECT_THAT(atHeight(set, 3.0, 0).getFlowLine(), LineIs("0 0, 10 0, 20 0"));
}

// Links in a circle between vertices 0 and 1: the placeholder and 5000 vertices, then the end.
// Steps at vertex 0 add no slip, the 2500 others 10 each.
TEST(FlowPathAtHeight, KeptPathEndsAtFiveThousandVertices) {
  zr2DBisectorSet set = builtSet(straight);
  set.getLeftBisectors()[1].setRightDomain(0);
  const zrFlowPath slips = atHeight(set, 3.0, 1);
  EXPECT_EQ(slips.getFlowLine().size(), 5002u);
  EXPECT_EQ(slips.getSlipValues().size(), 5002u);
  EXPECT_EQ(slips.getSlipValues()[5000], 25000.0);
  EXPECT_EQ(atHeight(set, 3.0, 0).getFlowLine().size(), 5002u);
}

TEST(VertexAtHeight, IsOnTheRootBelowAMergeAndOnTheMergedOneAbove) {
  zr2DBisectorSet set = builtSet(trough);
  gdfVertex place;
  EXPECT_EQ(climb(set, 3.0, 0, place), 0);
  EXPECT_THAT(place, VertexNear("3 3", 1e-9));
  EXPECT_EQ(climb(set, -3.0, 1, place), 1);
  EXPECT_THAT(place, VertexNear("7 3", 1e-9));
  EXPECT_EQ(climb(set, 7.0, 0, place), 2);
  EXPECT_THAT(place, VertexNear("5 7", 1e-9));
}

TEST(VertexAtHeight, OfNoIndexIsMinusOne) {
  zr2DBisectorSet set = builtSet(straight);
  gdfVertex place = vertex("1 2 3");
  EXPECT_EQ(climb(set, 3.0, -1, place), -1);
  EXPECT_THAT(place, VertexIs("1 2 3"));
}

TEST(VertexAtHeight, OfABisectorWithoutALeftDomainIsMinusOne) {
  zr2DBisectorSet set = builtSet(straight);
  set.getLeftBisectors()[0].setLeftDomain(-1);
  gdfVertex place = vertex("1 2 3");
  EXPECT_EQ(climb(set, 3.0, 0, place), -1);
  EXPECT_THAT(place, VertexIs("1 2 3"));
}

TEST(VertexAtHeight, OfAnOpenBisectorHasNoUpperEnd) {
  zr2DBisectorSet set = builtSet(straight);
  gdfVertex place;
  EXPECT_EQ(climb(set, 1e+30, 0, place), 0);
  EXPECT_THAT(place, VertexIs("10 1e+30"));
}

// A root stands on the template: its base counts as height 0 wherever it is.
TEST(VertexAtHeight, KeptRootHeightStartsAtZero) {
  zr2DBisectorSet set = builtSet(straight);
  zr2DBisector& b = set.getLeftBisectors()[0];
  b.setBase(vertex("10 2"));
  gdfVertex place;
  EXPECT_EQ(climb(set, 3.0, 0, place), 0);
  EXPECT_THAT(place, VertexIs("10 5"));
  b.setType(0);
  EXPECT_EQ(climb(set, 3.0, 0, place), 0);
  EXPECT_THAT(place, VertexIs("10 3"));
}

TEST(VertexAtHeight, GoesTheHeightItselfAlongItsDomain) {
  zr2DBisectorSet set = builtSet(straight);
  set.getLeftBisectors()[0].setNormal(vertex("1 0"));
  gdfVertex place;
  EXPECT_EQ(climb(set, 3.0, 0, place), 0);
  EXPECT_THAT(place, VertexIs("13 0"));
}

// A segment that rises by 4 over 3: the normal of its domain keeps the rise, 0.8, on both sides, so
// that a direction with a rise of its own gains height by it.
TEST(VertexAtHeight, KeptDomainNormalKeepsSegmentRise) {
  zr2DBisectorSet set = builtSet("0 0 0, 3 0 4, 6 0 8");
  gdfVertex place;
  set.getLeftBisectors()[0].setNormal(vertex("0 0.6 0.8"));
  EXPECT_EQ(climb(set, 3.0, 0, place), 0);
  EXPECT_THAT(place, VertexNear("3 1.8 6.4", 1e-12));
  set.getRightBisectors()[0].setNormal(vertex("0 -0.6 0.8"));
  EXPECT_EQ(
      set.getVertexAtHeightOnBisectorChain(zre::sideRight, set.getRightBisectors(), 3.0, 0, place),
      0);
  EXPECT_THAT(place, VertexNear("3 -1.8 6.4", 1e-12));
}
