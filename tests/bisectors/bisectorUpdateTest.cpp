#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bisectors/support/chainText.h"
#include "support/geometryText.h"

#include <cmath>
#include <limits>

namespace {

const double half = 1.0 / std::sqrt(2.0);

zr2DBisectorSet setOver(const std::string& templateLine) {
  zr2DBisectorSet set;
  set.generateBisectors(line(templateLine), zre::sideRight, 0.0);
  set.getRightBisectors().clear();
  return set;
}

/// A left chain of open FBF bisectors at x = 0, 10, 20, ...: unmirrored ones lead straight up, and
/// mirrored ones up to the right with the real direction up to the left.
zr2DBisectorSet fbfSet(int count, bool isMirrored) {
  zr2DBisectorSet set;
  for (int i = 0; i < count; ++i) {
    zr2DBisector b;
    const gdfVertex normal = isMirrored ? vertex("0.6 0.8") : vertex("0 1");
    b.setBase(gdfVertex(10.0 * i, 0.0));
    b.setTop(b.getBase() + normal);
    b.setNormal(normal);
    b.setRealNormal(isMirrored ? vertex("-0.6 0.8") : normal);
    b.setRealTop(gdfVertex(10.0 * i, 100.0));
    b.setType(1);
    b.setLeftDomain(i);
    b.setRightDomain(i + 1);
    b.addBaseConnection(i + 1);
    set.getLeftBisectors().push_back(b);
  }
  return set;
}

VertexLine basesOf(const Chain& chain) {
  VertexLine bases;
  for (const zr2DBisector& b : chain) bases.push_back(b.getBase());
  return bases;
}

VertexLine topsOf(const Chain& chain) {
  VertexLine tops;
  for (const zr2DBisector& b : chain) tops.push_back(b.getTop());
  return tops;
}

VertexLine realTopsOf(const Chain& chain) {
  VertexLine tops;
  for (const zr2DBisector& b : chain) tops.push_back(b.getRealTop());
  return tops;
}

TEST(CalculateNewTop, WithoutADomainNothingChanges) {
  const zr2DBisectorSet set = setOver("0 0, 1 0, 2 0, 3 0");
  for (bool isLeft : {true, false}) {
    zr2DBisector b = bisector("5 5, 6 5", isLeft ? -1 : 0, isLeft ? 1 : -1);
    EXPECT_THAT(set.calculateNewTop(zre::sideLeft, b), VertexIs("0 0"));
    EXPECT_THAT(b.getTop(), VertexIs("6 5"));
    EXPECT_THAT(b.getNormalVector(), VertexIs("1 0"));
  }
}

TEST(CalculateNewTop, GivesTheTopBetweenTheTwoSegments) {
  const zr2DBisectorSet set = setOver("0 10, 0 0, 10 0, 10 10");
  zr2DBisector b = bisector("5 5, 5 4", 0, 2);
  EXPECT_THAT(set.calculateNewTop(zre::sideLeft, b), VertexIs("5 6"));
  EXPECT_THAT(b.getTop(), VertexIs("5 6"));
  EXPECT_THAT(b.getNormalVector(), VertexIs("0 1"));
  EXPECT_EQ(linksOf(b), "type 0, domains 0 2, above -1, from");
}

TEST(CalculateNewTop, TheSideChoosesTheSignOnAWideBend) {
  const zr2DBisectorSet set = setOver("0 0, 1 0, 2 0, 3 0");
  zr2DBisector b = bisector("5 5, 6 5", 0, 2);
  EXPECT_THAT(set.calculateNewTop(zre::sideLeft, b), VertexIs("5 6"));
  EXPECT_THAT(set.calculateNewTop(zre::sideRight, b), VertexIs("5 4"));
  EXPECT_THAT(set.calculateNewTop(zre::sideOn, b), VertexIs("5 4"));
}

TEST(CalculateNewTop, NotANumberInTheTopChangesNothing) {
  const zr2DBisectorSet set = setOver("0 0, 1 0, 2 0, 3 0");
  zr2DBisector b = bisector("5 5, 6 5", 0, 2);
  b.setBase(vertex("5 5 nan"));
  EXPECT_THAT(set.calculateNewTop(zre::sideLeft, b), VertexIs("0 0"));
  EXPECT_THAT(b.getTop(), VertexIs("6 5"));
}

// The arms (0, 1) and (1, 0) of a right angle: their sum serves on both sides alike.
TEST(CalculateNewTop, KeptMergedDirectionHasNoSignTest) {
  const zr2DBisectorSet set = setOver("10 0, 0 0, 0 10");
  for (zre::side side : {zre::sideLeft, zre::sideRight}) {
    zr2DBisector b = bisector("5 5, 6 5", 0, 1);
    set.calculateNewTop(side, b);
    EXPECT_EQ(b.getNormalVector(), gdfVertex(half, half));
  }
}

TEST(ExpandBisectors, EqualBoundsPutTheTopOnTheBaseAtHeightZero) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0 5, 10 0 5, 20 0 5"), vertex("3 3"), vertex("3 3"));
  set.expandBisectors();
  EXPECT_THAT(set.getLeftBisectors().at(0).getTop(), VertexIs("10 0 0"));
  EXPECT_THAT(set.getRightBisectors().at(0).getTop(), VertexIs("10 0 0"));
  EXPECT_THAT(set.getLeftBisectors()[0].getBase(), VertexIs("10 0 5"));
}

TEST(ExpandBisectors, PushesOpenOnesOutByWidthPlusHeight) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 20 0"), vertex("30 7"), vertex("0 -5"));
  set.expandBisectors(zre::sideLeft);
  EXPECT_THAT(set.getLeftBisectors().at(0).getTop(), VertexIs("10 42"));
  EXPECT_THAT(set.getLeftBisectors()[0].getRealTop(), VertexIs("10 42"));
  EXPECT_THAT(set.getRightBisectors().at(0).getTop(), VertexIs("10 -1"));
  set.expandBisectors(zre::sideNone);
  EXPECT_THAT(set.getRightBisectors()[0].getTop(), VertexIs("10 -42"));
  EXPECT_THAT(set.getLeftBisectors()[0].getNormalVector(), VertexIs("0 1"));
}

TEST(ExpandBisectors, RealTopFollowsTheRealNormal) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 20 0"), vertex("0 0"), vertex("60 40"));
  zr2DBisector& root = set.getLeftBisectors().at(0);
  root.setRealNormal(vertex("-0.6 0.8"));
  set.expandBisectors();
  EXPECT_THAT(root.getTop(), VertexIs("10 100"));
  EXPECT_THAT(root.getRealTop(), VertexIs("-50 80"));
}

TEST(ExpandBisectors, WithoutAnyDirectionTheRealTopStays) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 20 0"), vertex("0 0"), vertex("60 40"));
  zr2DBisector& root = set.getLeftBisectors().at(0);
  root.setNormal(vertex("0 0"));
  root.setRealTop(vertex("7 7"));
  set.expandBisectors();
  EXPECT_THAT(root.getTop(), VertexIs("10 0"));
  EXPECT_THAT(root.getRealTop(), VertexIs("7 7"));
  // A length that is a NaN counts as a direction, but is not above 0.
  root.setNormal(vertex("0 1"));
  root.setRealNormal(vertex("nan 0"));
  set.expandBisectors();
  EXPECT_THAT(root.getTop(), VertexIs("10 100"));
  EXPECT_THAT(root.getRealTop(), VertexIs("7 7"));
}

TEST(ExpandBisectors, LeavesConnectedAndRetiredOnesAlone) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 20 0, 30 0"), vertex("0 0"), vertex("60 40"));
  set.getLeftBisectors().at(0).setTopConnect(1);
  set.getLeftBisectors().at(1).setType(5);
  set.expandBisectors();
  EXPECT_THAT(topsOf(set.getLeftBisectors()), LineIs("10 1, 20 1"));
  EXPECT_THAT(realTopsOf(set.getLeftBisectors()), LineIs("0 0, 0 0"));
}

TEST(ExpandBisectors, KeptExpandedTopIsFlat) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0 5, 10 0 5, 20 0 5"), vertex("0 0"), vertex("60 40"));
  set.getLeftBisectors().at(0).setRealNormal(vertex("0 0.6 0.8"));
  set.expandBisectors();
  EXPECT_THAT(set.getLeftBisectors()[0].getTop(), VertexIs("10 100 0"));
  EXPECT_THAT(set.getLeftBisectors()[0].getRealTop(), VertexIs("10 60 0"));
}

TEST(Offset, MovesTemplateBoundsBasesAndTops) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 20 0"), vertex("0 0"), vertex("60 40"));
  set.getRightBisectors().at(0).setType(5);
  set.Offset(vertex("1 2 3"));
  EXPECT_THAT(set.getTemplateLine(), LineIs("1 2 3, 11 2 3, 21 2 3"));
  EXPECT_THAT(set.getBoundsFirst(), VertexIs("1 2 3"));
  EXPECT_THAT(set.getBoundsSecond(), VertexIs("61 42 3"));
  EXPECT_THAT(set.getLeftBisectors().at(0).getBase(), VertexIs("11 2 3"));
  EXPECT_THAT(set.getLeftBisectors()[0].getTop(), VertexIs("11 3 3"));
  EXPECT_THAT(set.getRightBisectors()[0].getBase(), VertexIs("11 2 3"));
  EXPECT_THAT(set.getRightBisectors()[0].getTop(), VertexIs("11 1 3"));
}

TEST(Offset, ByOneOfTheSetsOwnVerticesMovesAllTheSame) {
  zr2DBisectorSet set;
  set.generateBisectors(line("1 2, 11 2, 21 2"), vertex("4 4"), vertex("60 40"));
  set.Offset(set.getTemplateLine()[0]);
  EXPECT_THAT(set.getTemplateLine(), LineIs("2 4, 12 4, 22 4"));
  EXPECT_THAT(set.getLeftBisectors().at(0).getBase(), VertexIs("12 4"));
  set.Offset(set.getBoundsFirst());
  EXPECT_THAT(set.getBoundsSecond(), VertexIs("66 48"));
}

TEST(Offset, KeptOffsetLeavesRealTop) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 20 0"), vertex("0 0"), vertex("60 40"));
  zr2DBisector& root = set.getLeftBisectors().at(0);
  root.setRealNormal(vertex("-0.6 0.8"));
  root.setRealTop(vertex("7 8 9"));
  set.Offset(vertex("1 2 3"));
  EXPECT_THAT(root.getRealTop(), VertexIs("7 8 9"));
  EXPECT_THAT(root.getNormalVector(), VertexIs("0 1"));
  EXPECT_THAT(root.getRealNormal(), VertexIs("-0.6 0.8"));
}

TEST(UpdateFbfBisectors, ChainOfTwoStaysAsItIs) {
  zr2DBisectorSet set = fbfSet(2, false);
  set.UpdateFBF_Bisectors(zre::sideLeft, 5.0);
  EXPECT_THAT(basesOf(set.getLeftBisectors()), LineIs("0 0, 10 0"));
}

TEST(UpdateFbfBisectors, UnmirroredOneBecomesAPairOneWidthApart) {
  zr2DBisectorSet set = fbfSet(4, false);
  set.UpdateFBF_Bisectors(zre::sideLeft, 4.0);
  EXPECT_THAT(basesOf(set.getLeftBisectors()), LineIs("0 0, 10 0, 14 0, 20 0, 24 0, 30 0"));
  EXPECT_THAT(topsOf(set.getLeftBisectors()), LineIs("0 1, 10 1, 14 1, 20 1, 24 1, 30 1"));
}

TEST(UpdateFbfBisectors, UnmirroredMoveStopsAtTheNextBase) {
  zr2DBisectorSet set = fbfSet(3, false);
  set.UpdateFBF_Bisectors(zre::sideLeft, 20.0);
  EXPECT_THAT(basesOf(set.getLeftBisectors()), LineIs("0 0, 10 0, 20 0, 20 0"));
}

TEST(UpdateFbfBisectors, KeptUpdateRenumbersNothing) {
  zr2DBisectorSet set = fbfSet(3, false);
  set.UpdateFBF_Bisectors(zre::sideLeft, 4.0);
  ASSERT_EQ(set.getLeftBisectors().size(), 4u);
  EXPECT_EQ(linksOf(set.getLeftBisectors()[1]), "type 1, domains 1 2, above -1, from 2");
  EXPECT_EQ(linksOf(set.getLeftBisectors()[2]), "type 1, domains 1 2, above -1, from 2");
  EXPECT_EQ(linksOf(set.getLeftBisectors()[3]), "type 1, domains 2 3, above -1, from 3");
}

TEST(UpdateFbfBisectors, KeptUnmirroredMoveLeavesRealTop) {
  zr2DBisectorSet set = fbfSet(3, false);
  set.UpdateFBF_Bisectors(zre::sideLeft, 4.0);
  EXPECT_THAT(realTopsOf(set.getLeftBisectors()), LineIs("0 100, 10 100, 10 100, 20 100"));
}

TEST(UpdateFbfBisectors, ZeroRealNormalCountsAsUnmirrored) {
  zr2DBisectorSet set = fbfSet(3, false);
  set.getLeftBisectors()[1].setRealNormal(vertex("0 0"));
  set.UpdateFBF_Bisectors(zre::sideLeft, 4.0);
  EXPECT_THAT(basesOf(set.getLeftBisectors()), LineIs("0 0, 10 0, 14 0, 20 0"));
}

TEST(UpdateFbfBisectors, MirroredOneWithinTheDistanceStaysAndIsCopied) {
  zr2DBisectorSet set = fbfSet(3, true);
  set.UpdateFBF_Bisectors(zre::sideLeft, 4.0);
  EXPECT_THAT(basesOf(set.getLeftBisectors()), LineIs("0 0, 10 0, 14 0, 20 0"));
  EXPECT_THAT(topsOf(set.getLeftBisectors()), LineIs("0.6 0.8, 10.6 0.8, 14.6 0.8, 20.6 0.8"));
  EXPECT_THAT(realTopsOf(set.getLeftBisectors()), LineIs("0 100, 10 100, 14 100, 20 100"));
  // A width of exactly the distance still stays.
  set = fbfSet(3, true);
  set.UpdateFBF_Bisectors(zre::sideLeft, 10.0);
  EXPECT_THAT(basesOf(set.getLeftBisectors()), LineIs("0 0, 10 0, 20 0, 20 0"));
}

TEST(UpdateFbfBisectors, KeptMirroredMoveIsNotStopped) {
  zr2DBisectorSet set = fbfSet(3, true);
  set.UpdateFBF_Bisectors(zre::sideLeft, 14.0);
  EXPECT_THAT(basesOf(set.getLeftBisectors()), LineIs("0 0, 14 0, 24 0, 20 0"));
  EXPECT_THAT(realTopsOf(set.getLeftBisectors()), LineIs("0 100, 14 100, 24 100, 20 100"));
}

TEST(UpdateFbfBisectors, MovesTowardsTheNextBaseNotAlongTheBisector) {
  for (bool isMirrored : {false, true}) {
    zr2DBisectorSet set = fbfSet(3, isMirrored);
    set.getLeftBisectors()[2].setBase(vertex("16 8"));
    set.UpdateFBF_Bisectors(zre::sideLeft, 5.0);
    EXPECT_THAT(basesOf(set.getLeftBisectors()), LineNear("0 0, 10 0, 13 4, 16 8", 1e-14));
  }
}

TEST(UpdateFbfBisectors, KeptRetiredInnerOnesLeaveTheUpdate) {
  zr2DBisectorSet set = fbfSet(4, false);
  for (std::size_t i : {0u, 1u, 3u}) set.getLeftBisectors()[i].setType(5);
  set.UpdateFBF_Bisectors(zre::sideLeft, 4.0);
  EXPECT_THAT(basesOf(set.getLeftBisectors()), LineIs("0 0, 20 0, 24 0, 30 0"));
}

TEST(UpdateFbfBisectors, WidthThatIsNotANumberMovesByIt) {
  zr2DBisectorSet set = fbfSet(3, true);
  set.UpdateFBF_Bisectors(zre::sideLeft, std::numeric_limits<double>::quiet_NaN());
  ASSERT_EQ(set.getLeftBisectors().size(), 3u);
  EXPECT_TRUE(std::isnan(set.getLeftBisectors()[1].getBase().x()));
}

TEST(UpdateFbfBisectors, WithoutASideBothChainsWiden) {
  zr2DBisectorSet set = fbfSet(3, false);
  set.getRightBisectors() = fbfSet(4, true).getLeftBisectors();
  set.UpdateFBF_Bisectors(zre::sideRight, 4.0);
  EXPECT_EQ(set.getLeftBisectors().size(), 3u);
  EXPECT_EQ(set.getRightBisectors().size(), 6u);
  set.UpdateFBF_Bisectors(1.0);
  EXPECT_EQ(set.getLeftBisectors().size(), 4u);
  EXPECT_EQ(set.getRightBisectors().size(), 10u);
}

}  // namespace
