#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bisectors/support/chainText.h"
#include "support/geometryText.h"

namespace {

/// A straight template of four segments from x = 0 to 4, and its roots at x = 1, 2 and 3: they lead
/// up on the left side and down on the right one, and the last segment has number 3.
struct Straight {
  explicit Straight(zre::side rootSide) : side(rootSide) {
    set.generateBisectors(line("0 0, 1 0, 2 0, 3 0, 4 0"), side, 0.0);
    set.generateRootBisectors(side, chain);
  }

  /// Puts a merged bisector on a root, which keeps the long top it is given.
  void putOnRoot(std::size_t root, const std::string& rootTop, const zr2DBisector& above) {
    chain[root].setTop(vertex(rootTop));
    chain[root].setTopConnect(static_cast<int>(chain.size()));
    chain.push_back(above);
    chain.back().addBaseConnection(static_cast<int>(root));
  }

  zr2DBisectorSet set;
  zre::side side;
  Chain chain;
};

Chain axisRoots(const zr2DBisectorSet& set) {
  Chain chain;
  set.generateRootBisectors(zre::sideLeft, chain);
  return chain;
}

/// Roots at (0, 0) upward and at (4, 3) towards (-1, 0), which meet in (0, 3).
zr2DBisectorSet axisSet() {
  zr2DBisectorSet set;
  set.generateBisectors(line("-4 3, 0 0, 4 3, 0 6"), zre::sideLeft, 0.0);
  return set;
}

TEST(IsSideOK, AheadIsTrueAndBehindIsFalse) {
  const zr2DBisectorSet set;
  const zr2DBisector b = bisector("2 0, 2 1", 0, 1);
  EXPECT_TRUE(set.isSideOK(b, vertex("9 0.5")));
  EXPECT_FALSE(set.isSideOK(b, vertex("-9 -0.5")));
}

TEST(IsSideOK, HeightCounts) {
  const zr2DBisectorSet set;
  const zr2DBisector rising = bisector("2 0 0, 2 1 1", 0, 1);
  EXPECT_TRUE(set.isSideOK(rising, vertex("2 -1 5")));
  EXPECT_FALSE(set.isSideOK(rising, vertex("2 1 -5")));
}

TEST(IsSideOK, KeptSidewaysCrossingIsDecidedByX) {
  const zr2DBisectorSet set;
  const zr2DBisector b = bisector("2 0, 2 1", 0, 1);
  EXPECT_TRUE(set.isSideOK(b, vertex("1 0")));
  EXPECT_FALSE(set.isSideOK(b, vertex("3 0")));
  EXPECT_FALSE(set.isSideOK(b, vertex("2 0")));
  EXPECT_TRUE(set.isSideOK(bisector("2 0, 2 -1", 0, 1), vertex("1 0")));
  const zr2DBisector alongX = bisector("2 0, 3 0", 0, 1);
  EXPECT_FALSE(set.isSideOK(alongX, vertex("2 7")));
}

TEST(GetIntersectionVertex, CrossesInfiniteLinesAtTheHeightOfTheFirstBase) {
  const zr2DBisectorSet set;
  gdfVertex crossing;
  EXPECT_TRUE(set.getIntersectionVertex(bisector("0 0 3, 0 1 3", 0, 1),
                                        bisector("4 -2 9, 5 -2 9", 0, 1), crossing));
  EXPECT_THAT(crossing, VertexIs("0 -2 3"));
}

// The determinant of (1, 0) and (1, y) is y.
TEST(GetIntersectionVertex, ParallelsHaveNoCrossingBelowADeterminantOfABillionth) {
  const zr2DBisectorSet set;
  gdfVertex crossing = vertex("7 7 7");
  const zr2DBisector alongX = bisector("0 0, 1 0", 0, 1);
  EXPECT_FALSE(set.getIntersectionVertex(alongX, bisector("0 1, 1 1", 0, 1), crossing));
  zr2DBisector nearly = bisector("0 0, 1 0", 0, 1);
  nearly.setTop(vertex("1 9e-10"));
  EXPECT_FALSE(set.getIntersectionVertex(alongX, nearly, crossing));
  EXPECT_THAT(crossing, VertexIs("7 7 7"));
  nearly.setTop(vertex("1 1e-09"));
  EXPECT_TRUE(set.getIntersectionVertex(alongX, nearly, crossing));
}

TEST(GetBisectorSide, IndexOutsideTheChainHasNoSide) {
  const Straight left(zre::sideLeft);
  EXPECT_EQ(left.set.getBisectorSide(left.side, left.chain, -1, vertex("1 1")), zre::sideNone);
  EXPECT_EQ(left.set.getBisectorSide(left.side, left.chain, 3, vertex("1 1")), zre::sideNone);
}

TEST(GetBisectorSide, TellsTheSideOfTheRoot) {
  const Straight left(zre::sideLeft);
  const auto side = [&](const char* p) {
    return left.set.getBisectorSide(left.side, left.chain, 0, vertex(p));
  };
  EXPECT_EQ(side("0.5 9"), zre::sideLeft);
  EXPECT_EQ(side("1.5 -9"), zre::sideRight);
  EXPECT_EQ(side("1 5"), zre::sideOn);
}

// (3, 6) is 2 from the root's line but 5.4 from its top, and 3 from the bisector above.
// The square of 1e155 is no finite number, so the way to such a vertex is normalised to nothing.
TEST(GetBisectorSide, VertexWhoseDistanceOverflowsIsOn) {
  const Straight left(zre::sideLeft);
  const auto side = [&](const char* p) {
    return left.set.getBisectorSide(left.side, left.chain, 0, vertex(p));
  };
  EXPECT_EQ(side("1 1e155"), zre::sideOn);
  // Sideways it is farther than an unset distance, and no bisector is near.
  EXPECT_EQ(side("1e155 1"), zre::sideNone);
}

TEST(GetBisectorSide, NearestIsMeasuredToTheStretchFromBaseToTop) {
  Straight left(zre::sideLeft);
  left.putOnRoot(0, "1 1", bisector("6 4, 6 9", 0, 2));
  EXPECT_EQ(left.set.getBisectorSide(left.side, left.chain, 0, vertex("3 6")), zre::sideLeft);
  left.chain[0].setTop(vertex("1 9"));
  EXPECT_EQ(left.set.getBisectorSide(left.side, left.chain, 0, vertex("3 6")), zre::sideRight);
}

TEST(GetBisectorSide, OfEquallyNearOnesTheLowerDecides) {
  Straight left(zre::sideLeft);
  left.putOnRoot(0, "1 9", bisector("3 0, 3 9", 0, 2));
  EXPECT_EQ(left.set.getBisectorSide(left.side, left.chain, 0, vertex("2 5")), zre::sideRight);
  EXPECT_EQ(left.set.getBisectorSide(left.side, left.chain, 3, vertex("2 5")), zre::sideLeft);
}

TEST(GetBisectorSide, KeptRetiredOnClimbLeavesNoSide) {
  Straight left(zre::sideLeft);
  left.putOnRoot(0, "1 1", bisector("90 90, 90 91", 0, 2));
  EXPECT_EQ(left.set.getBisectorSide(left.side, left.chain, 0, vertex("0.5 0")), zre::sideLeft);
  left.chain[3].setType(5);
  EXPECT_EQ(left.set.getBisectorSide(left.side, left.chain, 0, vertex("0.5 0")), zre::sideNone);
}

TEST(GetBisectorSide, KeptSideGoesByStoredNormal) {
  Straight left(zre::sideLeft);
  left.chain[0].setNormal(vertex("0 -1"));
  EXPECT_EQ(left.set.getBisectorSide(left.side, left.chain, 0, vertex("0.5 5")), zre::sideRight);
}

TEST(GetBisectorSide, KeptBisectorSideIgnoresItsSide) {
  const Straight left(zre::sideLeft);
  for (zre::side side : {zre::sideOn, zre::sideLeft, zre::sideRight, zre::sideNone}) {
    EXPECT_EQ(left.set.getBisectorSide(side, left.chain, 0, vertex("0.5 1")), zre::sideLeft);
    EXPECT_EQ(left.set.getBisectorSide(side, left.chain, 0, vertex("1.5 1")), zre::sideRight);
  }
}

// The two left roots merge, then what they made merges with the third root, half way between the
// arms at x = 0 and x = 10.
TEST(GenerateAdditionalBisectors, BisectorsOfAPassAreTriedInTheNextOne) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 10, 0 0, 4 -1, 10 0, 10 10"), zre::sideLeft, 0.0);
  Chain chain = axisRoots(set);
  set.generateAdditionalBisectors(zre::sideLeft, chain, 1e6);
  ASSERT_EQ(chain.size(), 4u);
  EXPECT_EQ(linksOf(chain[3]), "type 0, domains 0 2, above -1, from 0 1");
  set.generateAdditionalBisectors(zre::sideLeft, chain, 1e6);
  ASSERT_EQ(chain.size(), 5u);
  EXPECT_EQ(linksOf(chain[4]), "type 0, domains 0 3, above -1, from 3 2");
  EXPECT_NEAR(chain[4].getBase().x(), 5.0, 1e-12);
  EXPECT_EQ(chain[3].getTopConnect(), 4);
  set.generateAdditionalBisectors(zre::sideLeft, chain, 1e6);
  EXPECT_EQ(chain.size(), 5u);
}

TEST(GenerateAdditionalBisectors, SkipsConnectedRetiredAndLastOnes) {
  const zr2DBisectorSet set = axisSet();
  Chain chain = axisRoots(set);
  chain[0].setType(5);
  set.generateAdditionalBisectors(zre::sideLeft, chain, 100.0);
  EXPECT_EQ(chain.size(), 2u);
  chain = axisRoots(set);
  chain[0].setRightDomain(2);
  set.generateAdditionalBisectors(zre::sideLeft, chain, 100.0);
  EXPECT_EQ(chain.size(), 2u);
  chain = axisRoots(set);
  set.generateAdditionalBisectors(zre::sideLeft, chain, 100.0);
  ASSERT_EQ(chain.size(), 3u);
  set.generateAdditionalBisectors(zre::sideLeft, chain, 100.0);
  EXPECT_EQ(chain.size(), 3u);
}

TEST(GenerateAdditionalBisectors, CrossingMustLieAheadOfBoth) {
  const zr2DBisectorSet set = axisSet();
  Chain chain = axisRoots(set);
  chain[0].setTop(vertex("0 -1"));
  set.generateAdditionalBisectors(zre::sideLeft, chain, 100.0);
  EXPECT_EQ(chain.size(), 2u);
  chain = axisRoots(set);
  chain[1].setTop(vertex("5 3"));
  set.generateAdditionalBisectors(zre::sideLeft, chain, 100.0);
  EXPECT_EQ(chain.size(), 2u);
}

TEST(GenerateAdditionalBisectors, OuterDomainsThatAreOneLeaveTheInnerOnes) {
  const zr2DBisectorSet set = axisSet();
  Chain chain = axisRoots(set);
  chain[0].setLeftDomain(2);
  chain[1].setLeftDomain(0);
  set.generateAdditionalBisectors(zre::sideLeft, chain, 100.0);
  ASSERT_EQ(chain.size(), 3u);
  EXPECT_EQ(linksOf(chain[2]), "type 0, domains 0 1, above -1, from 0 1");
}

TEST(GenerateAdditionalBisectors, WithoutACommonDomainNothingIsAdded) {
  const zr2DBisectorSet set = axisSet();
  Chain chain = axisRoots(set);
  chain[1].setLeftDomain(0);
  set.generateAdditionalBisectors(zre::sideLeft, chain, 100.0);
  EXPECT_EQ(chain.size(), 2u);
  EXPECT_EQ(chain[0].getTopConnect(), -1);
}

TEST(MagicAdd, AppendsAndConnectsWhatEndsAtItsBase) {
  Straight left(zre::sideLeft);
  zr2DBisector merged = bisector("1 4, 1 5", 0, 3);
  merged.addBaseConnection(0);
  merged.addBaseConnection(2);
  left.set.magicAdd(left.side, left.chain, merged);
  ASSERT_EQ(left.chain.size(), 4u);
  EXPECT_EQ(linksOf(left.chain[3]), "type 0, domains 0 3, above -1, from 0 2");
  EXPECT_THAT(left.chain[3].getTop(), VertexIs("1 5"));
  EXPECT_EQ(linksOf(left.chain[0]), "type 1, domains 0 1, above 3, from 1");
  EXPECT_THAT(left.chain[0].getTop(), VertexIs("1 4"));
  EXPECT_THAT(left.chain[2].getTop(), VertexIs("1 4"));
  EXPECT_THAT(left.chain[2].getNormalVector(),
              VertexNear("-0.4472135954999579 0.8944271909999159", 1e-15));
  EXPECT_EQ(left.chain[1].getTopConnect(), -1);
}

TEST(MagicAdd, RefusesABaseBeyondTheNeighboursOnEitherSide) {
  Straight left(zre::sideLeft);
  zr2DBisector beforeLeft = bisector("0.5 4, 0.5 5", 1, 3);
  left.set.magicAdd(left.side, left.chain, beforeLeft);
  EXPECT_EQ(left.chain.size(), 3u);
  zr2DBisector onLeft = bisector("1 4, 1 5", 1, 3);
  left.set.magicAdd(left.side, left.chain, onLeft);
  EXPECT_EQ(left.chain.size(), 4u);
  zr2DBisector afterRight = bisector("3.5 4, 3.5 5", 0, 2);
  left.set.magicAdd(left.side, left.chain, afterRight);
  EXPECT_EQ(left.chain.size(), 4u);
  zr2DBisector onRight = bisector("3 4, 3 5", 0, 2);
  left.set.magicAdd(left.side, left.chain, onRight);
  EXPECT_EQ(left.chain.size(), 5u);
}

TEST(MagicAdd, RefusesOnTheRightSideByTheOtherHand) {
  Straight right(zre::sideRight);
  zr2DBisector beforeLeft = bisector("0.5 -4, 0.5 -5", 1, 3);
  right.set.magicAdd(right.side, right.chain, beforeLeft);
  EXPECT_EQ(right.chain.size(), 3u);
  zr2DBisector between = bisector("1.5 -4, 1.5 -5", 1, 3);
  right.set.magicAdd(right.side, right.chain, between);
  EXPECT_EQ(right.chain.size(), 4u);
  zr2DBisector afterRight = bisector("3.5 -4, 3.5 -5", 0, 2);
  right.set.magicAdd(right.side, right.chain, afterRight);
  EXPECT_EQ(right.chain.size(), 4u);
}

TEST(MagicAdd, KeptRefusalTreatsNoSideUnequally) {
  Straight left(zre::sideLeft);
  left.chain[0].setType(5);
  zr2DBisector withoutLeft = bisector("2 4, 2 5", 1, 3);
  left.set.magicAdd(left.side, left.chain, withoutLeft);
  EXPECT_EQ(left.chain.size(), 4u);
  Straight other(zre::sideLeft);
  other.chain[2].setType(5);
  zr2DBisector withoutRight = bisector("2 4, 2 5", 0, 2);
  other.set.magicAdd(other.side, other.chain, withoutRight);
  EXPECT_EQ(other.chain.size(), 3u);
}

TEST(MagicAdd, KeptOvertakenBisectorIsRetired) {
  Straight left(zre::sideLeft);
  left.putOnRoot(0, "1 90", bisector("2.5 9, 2.5 10", 0, 2));
  zr2DBisector merged = bisector("2 4, 2 5", 1, 3);
  left.set.magicAdd(left.side, left.chain, merged);
  ASSERT_EQ(left.chain.size(), 5u);
  EXPECT_EQ(linksOf(left.chain[3]), "type 5, domains 0 2, above -1, from");
  EXPECT_EQ(linksOf(left.chain[0]), "type 1, domains 0 1, above -1, from 1");
  EXPECT_THAT(left.chain[0].getTop(), VertexIs("1 1"));
  EXPECT_EQ(linksOf(left.chain[4]), "type 0, domains 1 3, above -1, from");
}

TEST(MagicAdd, LeavesANeighbourOnItsOwnSideOfTheLine) {
  Straight left(zre::sideLeft);
  left.putOnRoot(0, "1 90", bisector("2 9, 2 10", 0, 2));
  zr2DBisector merged = bisector("2 4, 2 5", 1, 3);
  left.set.magicAdd(left.side, left.chain, merged);
  EXPECT_EQ(linksOf(left.chain.at(3)), "type 0, domains 0 2, above -1, from 0");
}

// The line runs from (2, 4) to the point (0, 1): (4, 7) lies on it, and (2.00005, 6), which is no
// more than 5e-05 from the new bisector itself, does not.
TEST(MagicAdd, KeptTieMeasuresAgainstDifferenceVector) {
  Straight left(zre::sideLeft);
  left.putOnRoot(0, "1 90", bisector("4 7, 4 8", 0, 2));
  zr2DBisector merged = bisector("2 4, 2 5", 1, 3);
  left.set.magicAdd(left.side, left.chain, merged);
  ASSERT_EQ(left.chain.size(), 5u);
  EXPECT_EQ(linksOf(left.chain[3]), "type 0, domains 0 3, above -1, from 0 4");
  EXPECT_EQ(linksOf(left.chain[4]), "type 0, domains 1 3, above 3, from");
  EXPECT_THAT(left.chain[4].getTop(), VertexIs("4 7"));

  Straight other(zre::sideLeft);
  other.putOnRoot(0, "1 90", bisector("2.00005 6, 2.00005 7", 0, 2));
  zr2DBisector near = bisector("2 4, 2 5", 1, 3);
  other.set.magicAdd(other.side, other.chain, near);
  ASSERT_EQ(other.chain.size(), 5u);
  EXPECT_EQ(other.chain[3].getType(), 5);
  EXPECT_EQ(other.chain[4].getTopConnect(), -1);
}

// (0, 1) lies on the line from (2, 4) to the point (0, 1), and left of the new bisector.
TEST(MagicAdd, TiesARightNeighbourAndRetiresWhatStoodAboveIt) {
  Straight left(zre::sideLeft);
  left.putOnRoot(2, "3 90", bisector("0 1, 0 2", 2, 3));
  left.chain[3].setTopConnect(4);
  left.chain.push_back(bisector("0 80, 0 90", 0, 3));
  left.chain[4].addBaseConnection(3);
  zr2DBisector merged = bisector("2 4, 2 5", 0, 2);
  left.set.magicAdd(left.side, left.chain, merged);
  ASSERT_EQ(left.chain.size(), 6u);
  EXPECT_EQ(linksOf(left.chain[3]), "type 0, domains 2 2, above -1, from 2 5");
  EXPECT_EQ(linksOf(left.chain[4]), "type 5, domains 0 3, above -1, from");
  EXPECT_EQ(linksOf(left.chain[5]), "type 0, domains 0 2, above 3, from");
  EXPECT_EQ(left.chain[2].getTopConnect(), 3);
  // The caller's bisector comes back with the tie.
  EXPECT_EQ(merged.getTopConnect(), 3);
  EXPECT_THAT(merged.getTop(), VertexIs("0 1"));
}

TEST(MergeWithLeftBisector, KeptTieWritesRightDomainOnBothSides) {
  for (bool isLeft : {true, false}) {
    Straight left(zre::sideLeft);
    left.chain.push_back(bisector("2 4, 5 8", 0, 2));
    left.chain[3].setTopConnect(1);
    zr2DBisector merged = bisector("2 1, 2 2", 1, 3);
    int index = 3;
    if (isLeft) {
      left.set.mergeWithLeftBisector(left.side, left.chain, index, merged);
    } else {
      left.set.mergeWithRightBisector(left.side, left.chain, index, merged);
    }
    EXPECT_EQ(index, 1);
    EXPECT_EQ(merged.getTopConnect(), 3);
    EXPECT_THAT(merged.getTop(), VertexIs("2 4"));
    EXPECT_EQ(linksOf(left.chain[3]), "type 0, domains 0 3, above -1, from");
    EXPECT_THAT(left.chain[3].getTop(), VertexIs("2 5"));
    EXPECT_THAT(left.chain[3].getNormalVector(), VertexIs("0 1"));
  }
}

TEST(RemoveAllConnectionsAbove, MinusOneDoesNothing) {
  Straight left(zre::sideLeft);
  left.set.removeAllConnectionsAbove(left.chain, -1);
  EXPECT_EQ(linksOf(left.chain[0]), "type 1, domains 0 1, above -1, from 1");
}

TEST(RemoveAllConnectionsAbove, RetiresUpwardAndReopensBelow) {
  Straight left(zre::sideLeft);
  left.putOnRoot(0, "1 8", bisector("1 8, 5 8", 0, 2));
  left.chain[3].setTopConnect(4);
  left.chain.push_back(bisector("5 8, 5 20", 0, 3));
  left.chain[4].addBaseConnection(3);
  left.chain[4].addBaseConnection(2);
  left.chain[2].setTopConnect(4);
  left.chain[2].setTop(vertex("6 4"));
  left.set.removeAllConnectionsAbove(left.chain, 3);
  ASSERT_EQ(left.chain.size(), 5u);
  EXPECT_EQ(linksOf(left.chain[0]), "type 1, domains 0 1, above -1, from 1");
  EXPECT_THAT(left.chain[0].getTop(), VertexIs("1 1"));
  EXPECT_EQ(linksOf(left.chain[2]), "type 1, domains 2 3, above -1, from 3");
  EXPECT_THAT(left.chain[2].getNormalVector(), VertexIs("0.6 0.8"));
  EXPECT_THAT(left.chain[2].getTop(), VertexIs("3.6 0.8"));
  // Reopened by the one above it, though retired itself.
  EXPECT_EQ(linksOf(left.chain[3]), "type 5, domains 0 2, above -1, from");
  EXPECT_THAT(left.chain[3].getTop(), VertexIs("2 8"));
  EXPECT_EQ(linksOf(left.chain[4]), "type 5, domains 0 3, above -1, from");
  EXPECT_THAT(left.chain[4].getTop(), VertexIs("5 20"));
}

TEST(RemoveAllConnectionsAbove, RootsSurviveWithTheirConnection) {
  Straight left(zre::sideLeft);
  left.putOnRoot(0, "1 8", bisector("1 8, 5 8", 0, 2));
  left.set.removeAllConnectionsAbove(left.chain, 0);
  EXPECT_EQ(linksOf(left.chain[0]), "type 1, domains 0 1, above -1, from 1");
  EXPECT_EQ(linksOf(left.chain[3]), "type 5, domains 0 2, above -1, from");
}

TEST(RemoveAllConnectionsAbove, CircleOfDamagedLinksEnds) {
  Straight left(zre::sideLeft);
  left.chain[0].setTopConnect(1);
  left.chain[1].setTopConnect(0);
  left.set.removeAllConnectionsAbove(left.chain, 0);
  EXPECT_EQ(left.chain.size(), 3u);
  EXPECT_EQ(left.set.getBisectorSide(left.side, left.chain, 0, vertex("0.5 1")), zre::sideLeft);
  left.set.generateAdditionalBisectors(left.side, left.chain, 100.0);
  EXPECT_EQ(left.chain.size(), 3u);
}

}  // namespace
