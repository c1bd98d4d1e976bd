#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "bisectors/support/builtSet.h"
#include "support/geometryText.h"

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr double near = 1e-12;

zrFlowPath throughPoint(zr2DBisectorSet& set, const std::string& point, bool flipSide = false,
                        double height = unsetMark) {
  zrFlowPath path;
  EXPECT_TRUE(set.generateFlowPath(vertex(point), path, flipSide, height));
  return path;
}

zrFlowPath cleaned(const std::string& vertices, const std::vector<double>& slips) {
  zrFlowPath path;
  path.setFlow(line(vertices), slips);
  zr2DBisectorSet().removeZeroLengthSegments(path);
  return path;
}

/// The two roots of this template meet on its left at (5, 5), and a merged bisector goes on upward.
const char* const trough = "0 10, 0 0, 10 0, 10 10";

}  // namespace

TEST(FlowPathThroughPoint, RunsParallelToAStraightTemplate) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 20 0"), zre::sideLeft, 100.0);
  const zrFlowPath path = throughPoint(set, "5 3");
  EXPECT_THAT(path.getFlowLine(), LineIs("-5 3, 5 3, 10 3, 20 3"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, 0.0, 5.0, 15.0));
  EXPECT_EQ(path.getH(), 3.0);
  EXPECT_EQ(path.getL(), 0.0);
  EXPECT_THAT(path.getStartVector(), VertexIs("-1 0"));
  EXPECT_THAT(path.getEndVector(), VertexIs("1 0"));
}

TEST(FlowPathThroughPoint, HasANegativeHeightOnTheRight) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  const zrFlowPath path = throughPoint(set, "15 -3");
  EXPECT_THAT(path.getFlowLine(), LineIs("0 -3, 10 -3, 15 -3, 25 -3"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-15.0, -5.0, 0.0, 10.0));
  EXPECT_EQ(path.getH(), -3.0);
}

// Inside the right angle the bisector takes 3 off, outside it adds 3.
TEST(FlowPathThroughPoint, TurnsOnTheBisectorOfABend) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 10 10");
  const zrFlowPath inside = throughPoint(set, "5 3");
  EXPECT_THAT(inside.getFlowLine(), LineNear("-5 3, 5 3, 7 3, 7 13", near));
  EXPECT_THAT(inside.getSlipValues(),
              ElementsAre(-10.0, 0.0, DoubleNear(2.0, near), DoubleNear(12.0, near)));
  const zrFlowPath outside = throughPoint(set, "5 -3");
  EXPECT_THAT(outside.getFlowLine(), LineNear("-5 -3, 5 -3, 13 -3, 13 7", near));
  EXPECT_THAT(outside.getSlipValues(),
              ElementsAre(-10.0, 0.0, DoubleNear(8.0, near), DoubleNear(18.0, near)));
}

TEST(FlowPathThroughPoint, ExtendsBothEndsByTheLengthsOfTheEndSegments) {
  zr2DBisectorSet set = builtSet("0 0, 4 0, 20 0");
  const zrFlowPath path = throughPoint(set, "10 2");
  EXPECT_THAT(path.getFlowLine(), LineIs("0 2, 4 2, 10 2, 26 2"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, -6.0, 0.0, 16.0));
}

TEST(FlowPathThroughPoint, TakesItsLFromTheStartOfItsDomain) {
  zr2DBisectorSet set = builtSet("0 0 1, 10 0 2, 20 0 3, 30 0 4");
  EXPECT_EQ(throughPoint(set, "5 -3").getL(), 1.0);
  EXPECT_EQ(throughPoint(set, "15 -3").getL(), 2.0);
  EXPECT_EQ(throughPoint(set, "25 -3").getL(), 3.0);
}

TEST(FlowPathThroughPoint, OnATemplateVertexIsAnchoredThere) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  const zrFlowPath path = throughPoint(set, "10 0");
  EXPECT_THAT(path.getFlowLine(), LineIs("0 0, 10 0, 20 0"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, 0.0, 10.0));
  EXPECT_EQ(path.getH(), 0.0);
}

TEST(FlowPathThroughPoint, KeptPointOnTemplateIgnoresItsHeight) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  const zrFlowPath path = throughPoint(set, "5 0", false, 7.0);
  EXPECT_THAT(path.getFlowLine(), LineIs("0 0, 5 0, 10 0, 20 0"));
  EXPECT_EQ(path.getH(), 0.0);
}

TEST(FlowPathThroughPoint, KeepsTheSeedWhereAHeightIsGiven) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  const zrFlowPath path = throughPoint(set, "7 3", false, 7.0);
  EXPECT_THAT(path.getFlowLine(), LineIs("-3 3, 7 3, 10 7, 20 7"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, 0.0, 5.0, 15.0));
  EXPECT_EQ(path.getH(), 7.0);
}

// The side is the point's; of the given height the walk takes the size.
TEST(FlowPathThroughPoint, KeptHeightSignDoesNotChooseTheSide) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  const zrFlowPath path = throughPoint(set, "7 3", false, -7.0);
  EXPECT_THAT(path.getFlowLine(), LineIs("-3 3, 7 3, 10 7, 20 7"));
  EXPECT_EQ(path.getH(), -7.0);
}

TEST(FlowPathThroughPoint, OnlyTheExactMarkMeansThePointsOwnHeight) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  EXPECT_EQ(throughPoint(set, "7 3", false, unsetMark).getH(), 3.0);
  EXPECT_EQ(throughPoint(set, "7 3", false, -unsetMark).getH(), -unsetMark);
  EXPECT_EQ(throughPoint(set, "7 3", false, 3.4e+38).getH(), 3.4e+38);
}

TEST(FlowPathThroughPoint, ReplacesWhatThePathHeld) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  zrFlowPath path;
  path.setFlow(line("1 1, 2 2, 3 3"), {1.0, 2.0, 3.0});
  path.setId(4.0);
  EXPECT_TRUE(set.generateFlowPath(vertex("5 3"), path, false, unsetMark));
  EXPECT_THAT(path.getFlowLine(), LineIs("-5 3, 5 3, 10 3, 20 3"));
  EXPECT_EQ(path.getSlipValues().size(), 4u);
  EXPECT_EQ(path.getId(), 4.0);
}

TEST(FlowPathThroughPoint, MayBeGivenAVertexOfThePath) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  zrFlowPath path;
  path.getFlowLine() = line("5 3, 1 1");
  EXPECT_TRUE(set.generateFlowPath(path.getFlowLine()[0], path, false, unsetMark));
  EXPECT_THAT(path.getFlowLine(), LineIs("-5 3, 5 3, 10 3, 20 3"));
}

TEST(FlowPathThroughPoint, OfAnEmptyChainFailsWithAnEmptyPath) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  set.getRightBisectors().clear();
  zrFlowPath path;
  path.setFlow(line("1 1, 2 2"), {1.0, 2.0});
  path.setH(8.0);
  EXPECT_FALSE(set.generateFlowPath(vertex("5 -3"), path, false, unsetMark));
  EXPECT_THAT(path.getFlowLine(), IsEmpty());
  EXPECT_THAT(path.getSlipValues(), IsEmpty());
  EXPECT_EQ(path.getH(), 8.0);
  EXPECT_TRUE(set.generateFlowPath(vertex("5 3"), path, false, unsetMark));
}

// The seed on the bisector: the walk meets it again at once, and one of the two goes.
// The right chain belongs to the template (0,0) (2,0) (4,0), the left one to the five vertices
// before; the domain 2 that it gives is above 1, and the flip looks at it before it is fitted to
// the shorter template.
TEST(FlowPathThroughPoint, FlipsByTheDomainOfAChainLeftOver) {
  zr2DBisectorSet set;
  ASSERT_TRUE(
      set.generateBisectors(line("0 0, 1 0, 2 0, 3 0, 4 0"), vertex("-9 -9"), vertex("9 9")));
  set.expandBisectors();
  ASSERT_TRUE(set.generateBisectors(line("0 0, 2 0, 4 0"), zre::sideRight, 100.0));
  zrFlowPath path;
  ASSERT_TRUE(set.generateFlowPath(vertex("3.7 1"), path, true, 3.4028234663852886e+38));
  EXPECT_EQ(path.getH(), -1.0);
}

TEST(FlowPathThroughPoint, HoldsASeedOnABisectorOnce) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  const zrFlowPath path = throughPoint(set, "10 3");
  EXPECT_THAT(path.getFlowLine(), LineIs("0 3, 10 3, 20 3"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, 0.0, 10.0));
}

TEST(FlowPathThroughPoint, WalksOverMergedBisectors) {
  zr2DBisectorSet set = builtSet(trough);
  const zrFlowPath path = throughPoint(set, "3 12");
  EXPECT_EQ(path.getH(), 3.0);
  EXPECT_THAT(path.getFlowLine(), LineNear("3 22, 3 12, 3 3, 7 3, 7 13", 1e-9));
}

// (25, 3) lies in domain 2 on the left. Flipped, it is walked on the right from domain 0, over both
// bisectors. (15, 3), in domain 1, and (5, 3), in domain 0, are left as they are.
TEST(FlowPathThroughPoint, KeptFlipStartsAtDomainZero) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0, 30 0");
  const zrFlowPath flipped = throughPoint(set, "25 3", true);
  EXPECT_THAT(flipped.getFlowLine(), LineIs("15 3, 25 3, 10 -3, 20 -3, 30 -3"));
  EXPECT_EQ(flipped.getH(), -3.0);
  EXPECT_THAT(throughPoint(set, "25 3").getFlowLine(), LineIs("0 3, 10 3, 20 3, 25 3, 35 3"));
  EXPECT_THAT(throughPoint(set, "25 -3", true).getFlowLine(),
              LineIs("15 -3, 25 -3, 10 3, 20 3, 30 3"));
  EXPECT_EQ(throughPoint(set, "25 -3", true).getH(), 3.0);
  EXPECT_THAT(throughPoint(set, "15 3", true).getFlowLine(), LineIs("0 3, 10 3, 15 3, 20 3, 30 3"));
  EXPECT_THAT(throughPoint(set, "5 3", true).getFlowLine(), LineIs("-5 3, 5 3, 10 3, 20 3, 30 3"));
}

TEST(FlowPathOfShortTemplate, OfTwoVerticesIsStraight) {
  zr2DBisectorSet set = builtSet("0 0 5, 0 10 5");
  const zrFlowPath left = throughPoint(set, "-3 2 5");
  EXPECT_THAT(left.getFlowLine(), LineIs("-3 2 5, -3 3 5"));
  EXPECT_THAT(left.getSlipValues(), ElementsAre(0.0, 1.0));
  EXPECT_EQ(left.getH(), 3.0);
  EXPECT_EQ(left.getL(), 5.0);
  EXPECT_THAT(left.getEndVector(), VertexIs("0 1"));
  EXPECT_EQ(throughPoint(set, "3 2 5").getH(), -3.0);
}

TEST(FlowPathOfShortTemplate, OfNoVertexRunsAlongX) {
  zr2DBisectorSet set;
  zrFlowPath path;
  path.setL(6.0);
  path.setH(6.0);
  EXPECT_TRUE(set.generateFlowPath(vertex("2 3 4"), path, false, 9.0));
  EXPECT_THAT(path.getFlowLine(), LineIs("2 3 4, 3 3 4"));
  EXPECT_EQ(path.getH(), 0.0);
  EXPECT_EQ(path.getL(), 6.0);
}

TEST(FlowPathOfShortTemplate, OfALongerTemplateGoesByItsFirstSegment) {
  zr2DBisectorSet set = builtSet("0 0 2, 10 0 2, 10 10 2");
  zrFlowPath path;
  EXPECT_TRUE(set.generateFlowPathLessThan3Vertices(zre::sideRight, vertex("4 7 2"), path));
  EXPECT_THAT(path.getFlowLine(), LineIs("4 7 2, 5 7 2"));
  EXPECT_EQ(path.getH(), -7.0);
  EXPECT_EQ(path.getL(), 2.0);
  EXPECT_TRUE(set.generateFlowPathLessThan3Vertices(zre::sideNone, vertex("4 7 2"), path));
  EXPECT_EQ(path.getH(), 7.0);
}

TEST(FlowPathAlongTemplate, InsertsThePointAfterTheStartOfItsDomain) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  zrFlowPath path;
  path.setL(7.0);
  path.setH(7.0);
  path.getSlipValues() = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0};
  EXPECT_TRUE(set.generateFlowPathAlongInputLine(vertex("14 0"), path));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 0, 10 0, 14 0, 20 0"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-14.0, -4.0, 0.0, 6.0));
  EXPECT_EQ(path.getH(), 0.0);
  EXPECT_EQ(path.getL(), 7.0);
  EXPECT_THAT(path.getEndVector(), VertexIs("1 0"));
}

TEST(FlowPathAlongTemplate, MeasuresInSpace) {
  zr2DBisectorSet set = builtSet("0 0 0, 3 0 4, 6 0 8");
  zrFlowPath path;
  EXPECT_TRUE(set.generateFlowPathAlongInputLine(vertex("3 0 4"), path));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-5.0, 0.0, 5.0));
}

TEST(FlowPathAlongTemplate, IsAnchoredAtTheFirstOfEqualVertices) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 10 10, 10 0");
  zrFlowPath path;
  EXPECT_TRUE(set.generateFlowPathAlongInputLine(vertex("10 0"), path));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-10.0, 0.0, 10.0, 20.0));
}

// Equal means in z too: the same place at another height is inserted.
TEST(FlowPathAlongTemplate, ComparesVerticesInSpace) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  zrFlowPath path;
  EXPECT_TRUE(set.generateFlowPathAlongInputLine(vertex("5 0 2"), path));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 0, 5 0 2, 10 0, 20 0"));
}

TEST(FlowPathAlongTemplate, OfAnEmptyTemplateFailsWithAnEmptyPath) {
  zrFlowPath path;
  path.setFlow(line("1 1, 2 2"), {1.0, 2.0});
  zr2DBisectorSet set;
  EXPECT_FALSE(set.generateFlowPathAlongInputLine(vertex("1 1"), path));
  EXPECT_THAT(path.getFlowLine(), IsEmpty());
  EXPECT_THAT(path.getSlipValues(), IsEmpty());
}

TEST(RemoveZeroLengthSegments, KeptRepeatKeepsItsOwnSlip) {
  const zrFlowPath three = cleaned("1 1, 1 1, 1 1, 5 1", {1.0, 2.0, 3.0, 4.0});
  EXPECT_THAT(three.getFlowLine(), LineIs("1 1, 1 1, 5 1"));
  EXPECT_THAT(three.getSlipValues(), ElementsAre(2.0, 3.0, 4.0));
  const zrFlowPath two = cleaned("0 0, 1 1, 1 1, 5 1", {1.0, 2.0, 3.0, 4.0});
  EXPECT_THAT(two.getFlowLine(), LineIs("0 0, 1 1, 5 1"));
  EXPECT_THAT(two.getSlipValues(), ElementsAre(1.0, 3.0, 4.0));
}

TEST(RemoveZeroLengthSegments, TakesFourEqualVerticesAsTwoPairs) {
  const zrFlowPath path = cleaned("1 1, 1 1, 1 1, 1 1", {1.0, 2.0, 3.0, 4.0});
  EXPECT_THAT(path.getFlowLine(), LineIs("1 1, 1 1"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(2.0, 4.0));
}

TEST(RemoveZeroLengthSegments, ComparesInSpaceAndExactly) {
  EXPECT_EQ(cleaned("1 1 0, 1 1 1", {1.0, 2.0}).getFlowLine().size(), 2u);
  EXPECT_EQ(cleaned("1 1, 1 1.000000000001", {1.0, 2.0}).getFlowLine().size(), 2u);
  EXPECT_EQ(cleaned("1e-200 0, 0 0", {1.0, 2.0}).getFlowLine().size(), 1u);  // the square is 0
}

TEST(RemoveZeroLengthSegments, LeavesShortPathsAlone) {
  EXPECT_THAT(cleaned("", {}).getFlowLine(), IsEmpty());
  EXPECT_THAT(cleaned("", {1.0}).getSlipValues(), ElementsAre(1.0));
  EXPECT_THAT(cleaned("1 1", {1.0}).getFlowLine(), LineIs("1 1"));
}

TEST(RemoveZeroLengthSegments, ErasesNoSlipThatDoesNotExist) {
  const zrFlowPath few = cleaned("1 1, 1 1, 2 2, 3 3, 3 3", {1.0, 2.0});
  EXPECT_THAT(few.getFlowLine(), LineIs("1 1, 2 2, 3 3"));
  EXPECT_THAT(few.getSlipValues(), ElementsAre(2.0));
  EXPECT_THAT(cleaned("1 1, 1 1", {1.0}).getSlipValues(), IsEmpty());
  EXPECT_THAT(cleaned("1 1, 1 1", {1.0, 2.0, 3.0}).getSlipValues(), ElementsAre(2.0, 3.0));
}
