#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "bisectors/support/builtSet.h"
#include "support/geometryText.h"

using testing::DoubleNear;
using testing::ElementsAre;

namespace {

constexpr double near = 1e-9;

const char* const straight = "0 0, 10 0, 20 0, 30 0";

zrFlowPath angular(zr2DBisectorSet& set, const std::string& point, double probeLength, double angle,
                   bool flipSide = false) {
  zrFlowPath path;
  EXPECT_TRUE(set.generateAngularFlowPath(vertex(point), path, probeLength, flipSide, angle));
  return path;
}

/// What a projection gives back.
struct Projection {
  bool isMet;
  gdfVertex place = vertex("7 8 9");
  double distance = 1.0;
  int index = 5;
};

Projection ontoChain(const zr2DBisectorSet& set, zre::side side, const std::string& point,
                     const std::string& direction, int index, double probeLength, double angle) {
  Projection p;
  p.isMet = set.projectToBisectorChain(side, vertex(point), vertex(direction), index, p.place,
                                       p.distance, p.index, probeLength, angle);
  return p;
}

Projection ontoLine(const std::string& vertices, const std::string& point,
                    const std::string& direction, int index, double angle) {
  Projection p;
  p.isMet = zr2DBisectorSet().projectToTemplateLine(
      line(vertices), vertex(point), vertex(direction), index, p.place, p.distance, p.index, angle);
  return p;
}

}  // namespace

// From (12, 3) in domain 1 over the bisectors at x = 20 and x = 30, and one unit on along the last
// segment, (10, 0, 1) of length sqrt(101).
TEST(AngularFlowPath, StepsFromBisectorToBisector) {
  zr2DBisectorSet set = builtSet("0 0 5, 10 0 6, 20 0 7, 30 0 8, 40 0 9");
  const zrFlowPath path = angular(set, "12 3 6", 50.0, 0.0);
  EXPECT_THAT(path.getFlowLine(),
              LineNear("12 3 6, 20 3 6, 30 3 6, 30.99503719020999 3 6.099503719020999", near));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(0.0, 8.0, 18.0, unsetMark));
  EXPECT_EQ(path.getL(), 6.0);
  EXPECT_EQ(set.getOffBisectors(), 0);
}

TEST(AngularFlowPath, TurnsClockwise) {
  zr2DBisectorSet set = builtSet(straight);
  const zrFlowPath down = angular(set, "15 9", 50.0, 45.0);
  EXPECT_THAT(down.getFlowLine(), LineNear("15 9, 20 4, 21 4", near));
  EXPECT_THAT(down.getSlipValues(), ElementsAre(0.0, DoubleNear(std::sqrt(50.0), near), unsetMark));
  EXPECT_THAT(angular(set, "15 9", 50.0, -45.0).getFlowLine(),
              LineNear("15 9, 20 14, 21 14", near));
}

TEST(AngularFlowPath, HasTheHeightOfItsPoint) {
  zr2DBisectorSet set = builtSet(straight);
  EXPECT_EQ(angular(set, "15 3", 50.0, 0.0).getH(), 3.0);
  EXPECT_EQ(angular(set, "15 -3", 50.0, 0.0).getH(), -3.0);
}

// From domain 0 the bisector at x = 10 is passed over: the first probe asks the one at x = 20.
TEST(AngularFlowPath, KeptAngularWalkStartsAtDomainOne) {
  zr2DBisectorSet set = builtSet(straight);
  const zrFlowPath path = angular(set, "5 3", 50.0, 0.0);
  EXPECT_THAT(path.getFlowLine(), LineIs("5 3, 20 3, 21 3"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(0.0, 15.0, unsetMark));
  EXPECT_EQ(path.getL(), 0.0);
}

// The probe of 1 meets no bisector; the one at 45 degrees comes down on the template at (18, 0).
TEST(AngularFlowPath, KeptPathOffBisectorsHasOneSlipLess) {
  zr2DBisectorSet set = builtSet(straight);
  const zrFlowPath path = angular(set, "15 3", 1.0, 45.0);
  EXPECT_THAT(path.getFlowLine(), LineNear("15 3, 18 0", near));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(0.0));
  EXPECT_FALSE(path.valid());
  EXPECT_EQ(set.getOffBisectors(), 1);
}

TEST(AngularFlowPath, OffTheBisectorsAndTheTemplateIsItsPointAlone) {
  zr2DBisectorSet set = builtSet(straight);
  const zrFlowPath path = angular(set, "15 3", 1.0, 0.0);
  EXPECT_THAT(path.getFlowLine(), LineIs("15 3"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(0.0));
  EXPECT_EQ(set.getOffBisectors(), 1);
}

TEST(AngularFlowPath, ClearsTheMarkOfAPathOffTheBisectors) {
  zr2DBisectorSet set = builtSet(straight);
  angular(set, "15 3", 1.0, 0.0);
  set.setFlowPathMode(1);
  zrFlowPath other;
  set.generateFlowPath(3.0, other);
  EXPECT_EQ(set.getOffBisectors(), 1);
  angular(set, "15 3", 50.0, 0.0);
  EXPECT_EQ(set.getOffBisectors(), 0);
}

TEST(AngularFlowPath, InTheLastDomainOnlyGoesOn) {
  zr2DBisectorSet set = builtSet(straight);
  EXPECT_THAT(angular(set, "25 3", 50.0, 45.0).getFlowLine(), LineIs("25 3, 26 3"));
}

// A template of one bend ends at once: domain 0 counts as 1, and that is the last.
TEST(AngularFlowPath, OfOneBendOnlyGoesOn) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0");
  EXPECT_THAT(angular(set, "5 3", 50.0, 0.0).getFlowLine(), LineIs("5 3, 6 3"));
}

TEST(AngularFlowPath, GoesOnByAUnitAlongTheLastSegment) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0, 20 8");
  EXPECT_THAT(angular(set, "15 -3", 50.0, 0.0).getFlowLine(),
              LineNear("15 -3, 23 -3, 23 -2", near));
}

TEST(AngularFlowPath, KeptAngularPathIsAppendedTo) {
  zr2DBisectorSet set = builtSet(straight);
  zrFlowPath path;
  path.setFlow(line("0 1, 0 2"), {4.0, 5.0});
  EXPECT_TRUE(set.generateAngularFlowPath(vertex("15 3"), path, 50.0, false, 0.0));
  EXPECT_THAT(path.getFlowLine(), LineIs("0 1, 0 2, 15 3, 20 3, 21 3"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(4.0, 5.0, 0.0, 5.0, unsetMark));
  EXPECT_THAT(path.getEndVector(), VertexIs("0 1"));
}

// Two bisectors at one place are met one after the other, the second at distance 0.
TEST(AngularFlowPath, KeepsRepeatedVertices) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0, 30 0, 40 0");
  set.getLeftBisectors()[2].setBase(vertex("20 0"));
  set.getLeftBisectors()[2].setTop(vertex("20 400"));
  const zrFlowPath path = angular(set, "15 3", 50.0, 0.0);
  EXPECT_THAT(path.getFlowLine(), LineIs("15 3, 20 3, 20 3, 21 3"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(0.0, 5.0, 5.0, unsetMark));
}

// (25, 3) is in domain 2: flipped, it starts from domain 0 (so 1) on the right, whose bisector at
// x = 20 does not lie ahead. (15, 3), in domain 1, is not flipped.
TEST(AngularFlowPath, FlipsAsTheWalkThroughAPoint) {
  zr2DBisectorSet set = builtSet(straight);
  const zrFlowPath flipped = angular(set, "25 3", 50.0, 0.0, true);
  EXPECT_EQ(flipped.getH(), -3.0);
  EXPECT_THAT(flipped.getFlowLine(), LineIs("25 3"));
  EXPECT_EQ(set.getOffBisectors(), 1);
  EXPECT_THAT(angular(set, "15 3", 50.0, 0.0, true).getFlowLine(), LineIs("15 3, 20 3, 21 3"));
}

// On the template the sign of the angle picks the chain. The bases belong to both.
TEST(AngularFlowPath, OnTheTemplateTakesTheSideOfItsAngle) {
  zr2DBisectorSet set = builtSet(straight);
  set.getLeftBisectors()[1].setTop(vertex("20 1"));
  EXPECT_THAT(angular(set, "15 0", 50.0, 30.0).getFlowLine(),
              LineNear("15 0, 20 -2.886751345948129, 21 -2.886751345948129", near));
  const zrFlowPath left = angular(set, "15 0", 50.0, -30.0);
  EXPECT_EQ(set.getOffBisectors(), 1);
  EXPECT_EQ(left.getH(), 0.0);
}

TEST(AngularFlowPath, OfShortTemplatesIsStraightAndReplacesThePath) {
  zr2DBisectorSet two = builtSet("0 0 4, 0 10 4");
  zrFlowPath path;
  path.setFlow(line("1 1, 3 1"), {4.0, 5.0});
  EXPECT_TRUE(two.generateAngularFlowPath(vertex("3 2 4"), path, 50.0, true, 30.0));
  EXPECT_THAT(path.getFlowLine(), LineIs("3 1 4, 3 2 4, 3 3 4"));
  EXPECT_THAT(path.getSlipValues(), ElementsAre(-unsetMark, 0.0, unsetMark));
  EXPECT_EQ(path.getH(), -3.0);
  EXPECT_EQ(path.getL(), 4.0);
  EXPECT_THAT(path.getEndVector(), VertexIs("1 0"));
  zr2DBisectorSet none;
  EXPECT_TRUE(none.generateAngularFlowPath(vertex("3 2 4"), path, 50.0, true, 30.0));
  EXPECT_THAT(path.getFlowLine(), LineIs("2 2 4, 3 2 4, 4 2 4"));
  EXPECT_EQ(path.getH(), 0.0);
  EXPECT_EQ(path.getL(), 4.0);
}

TEST(ProjectToBisectorChain, OfNoIndexMeetsNothing) {
  const zr2DBisectorSet set = builtSet(straight);
  const Projection p = ontoChain(set, zre::sideLeft, "5 3", "1 0", -1, 50.0, 0.0);
  EXPECT_FALSE(p.isMet);
  EXPECT_EQ(p.index, -1);
  EXPECT_EQ(p.distance, unsetMark);
  EXPECT_THAT(p.place, VertexIs("7 8 9"));
}

TEST(ProjectToBisectorChain, MeetsTheBisectorsAboveItsIndexOnly) {
  const zr2DBisectorSet set = builtSet(straight);
  const Projection p = ontoChain(set, zre::sideLeft, "5 3", "1 0", 1, 50.0, 0.0);
  EXPECT_TRUE(p.isMet);
  EXPECT_EQ(p.index, 1);
  EXPECT_EQ(p.distance, 15.0);
  EXPECT_THAT(p.place, VertexIs("20 3"));
}

// From (6, 4) to the left: the merged bisector at x = 5 begins at (5, 5), the root is met at (4,
// 4).
TEST(ProjectToBisectorChain, TakesTheNearestOnTheClimb) {
  zr2DBisectorSet set = builtSet("0 10, 0 0, 10 0, 10 10");
  const Projection below = ontoChain(set, zre::sideLeft, "6 4", "-1 0", 0, 50.0, 0.0);
  EXPECT_EQ(below.index, 0);
  EXPECT_THAT(below.place, VertexNear("4 4", near));
  const Projection above = ontoChain(set, zre::sideLeft, "6 7", "-1 0", 0, 50.0, 0.0);
  EXPECT_EQ(above.index, 2);
  EXPECT_THAT(above.place, VertexNear("5 7", near));
  set.getLeftBisectors()[2].setBase(vertex("2 0"));
  set.getLeftBisectors()[2].setTop(vertex("2 50"));
  EXPECT_EQ(ontoChain(set, zre::sideLeft, "6 4", "-1 0", 0, 50.0, 0.0).index, 0);
  EXPECT_EQ(ontoChain(set, zre::sideLeft, "1 4", "1 0", 0, 50.0, 0.0).index, 2);
}

TEST(ProjectToBisectorChain, ReachesAsFarAsItsProbe) {
  const zr2DBisectorSet set = builtSet(straight);
  EXPECT_TRUE(ontoChain(set, zre::sideLeft, "5 3", "1 0", 0, 5.0, 0.0).isMet);
  EXPECT_FALSE(ontoChain(set, zre::sideLeft, "5 3", "1 0", 0, 4.75, 0.0).isMet);
  EXPECT_FALSE(ontoChain(set, zre::sideLeft, "5 3", "1 0", 0, 0.0, 0.0).isMet);
  EXPECT_FALSE(ontoChain(set, zre::sideLeft, "5 3", "1 0", 0, -50.0, 0.0).isMet);
}

// A probe without length still meets a bisector that it stands on.
TEST(ProjectToBisectorChain, WithoutReachMeetsWhatItStandsOn) {
  const zr2DBisectorSet set = builtSet(straight);
  const Projection p = ontoChain(set, zre::sideLeft, "10 3", "1 0", 0, -1.0, 0.0);
  EXPECT_TRUE(p.isMet);
  EXPECT_EQ(p.distance, 0.0);
}

// Unturned, a direction of length 2 reaches twice as far; turned, it is brought to length 1.
TEST(ProjectToBisectorChain, KeptOnlyATurnedDirectionIsNormalised) {
  const zr2DBisectorSet set = builtSet(straight);
  EXPECT_TRUE(ontoChain(set, zre::sideLeft, "5 3", "2 0", 0, 3.0, 0.0).isMet);
  EXPECT_FALSE(ontoChain(set, zre::sideLeft, "5 3", "2 0", 0, 3.0, 360.0).isMet);
  EXPECT_TRUE(ontoChain(set, zre::sideLeft, "5 3", "0 2", 0, 6.0, 90.0).isMet);
}

TEST(ProjectToBisectorChain, KeptAngleChoosesTheChainOfNoSide) {
  const zr2DBisectorSet set = builtSet(straight);
  for (zre::side side : {zre::sideOn, zre::sideNone}) {
    EXPECT_GT(ontoChain(set, side, "5 0", "1 0", 0, 50.0, -30.0).place.y(), 2.0);
    EXPECT_LT(ontoChain(set, side, "5 0", "1 0", 0, 50.0, 30.0).place.y(), -2.0);
    EXPECT_FALSE(ontoChain(set, side, "5 3", "1 0", 0, 50.0, 0.0).isMet);
    EXPECT_TRUE(ontoChain(set, side, "5 -3", "1 0", 0, 50.0, 0.0).isMet);
  }
}

// The z of the crossing is the probe's: that of the point.
TEST(ProjectToBisectorChain, CarriesTheHeightOfThePoint) {
  const zr2DBisectorSet set = builtSet(straight);
  const Projection p = ontoChain(set, zre::sideLeft, "5 3 8", "1 0 5", 0, 50.0, 0.0);
  EXPECT_THAT(p.place, VertexIs("10 3 8"));
  EXPECT_EQ(p.distance, 5.0);
}

TEST(ProjectToTemplateLine, KeptTemplateProbeTakesFirstInLineOrder) {
  const Projection p = ontoLine("20 -5, 20 5, 10 5, 10 -5", "0 0", "1 0", 7, 0.0);
  EXPECT_TRUE(p.isMet);
  EXPECT_THAT(p.place, VertexIs("20 0"));
  EXPECT_EQ(p.distance, 20.0);
  EXPECT_EQ(p.index, 7);
}

TEST(ProjectToTemplateLine, KeptTemplateProbeReachesTenThousandUnits) {
  EXPECT_TRUE(ontoLine("10000 -5, 10000 5", "0 0", "1 0", 0, 0.0).isMet);
  EXPECT_FALSE(ontoLine("10000.5 -5, 10000.5 5", "0 0", "1 0", 0, 0.0).isMet);
  EXPECT_TRUE(ontoLine("20000 -5, 20000 5", "0 0", "2 0", 0, 0.0).isMet);
}

TEST(ProjectToTemplateLine, WithoutACrossingGivesMinusOne) {
  const Projection p = ontoLine("20 -5, 20 5", "0 0", "-1 0", 7, 0.0);
  EXPECT_FALSE(p.isMet);
  EXPECT_EQ(p.index, -1);
  EXPECT_EQ(p.distance, unsetMark);
  EXPECT_THAT(p.place, VertexIs("7 8 9"));
  EXPECT_FALSE(ontoLine("", "0 0", "1 0", 7, 0.0).isMet);
}

TEST(ProjectToTemplateLine, TurnsClockwiseAndKeepsTheHeightOfThePoint) {
  EXPECT_THAT(ontoLine("-5 -20 1, 5 -20 3", "0 0 4", "1 0", 7, 90.0).place,
              VertexNear("0 -20 4", near));
}
