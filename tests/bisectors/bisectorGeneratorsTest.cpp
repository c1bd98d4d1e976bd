#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <zrBase/tools3d/zr3DTools.h>

#include "bisectors/support/chainComparison.h"
#include "bisectors/support/templateGenerators.h"
#include "support/geometryText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

const double half = 1.0 / std::sqrt(2.0);

/// Roots whose directions are exactly (0, 1) and (-1, 0), and meet in (0, 3), 2.4 from both outer
/// segments.
const char* const axisBends = "-4 3, 0 0, 4 3, 0 6";

/// What the left chain looks like after some passes made one by one.
Chain leftAfterPasses(const VertexLine& line, int passes, double reach) {
  zr2DBisectorSet set;
  set.generateBisectors(line, zre::sideRight, 0.0);
  Chain chain;
  set.generateRootBisectors(zre::sideLeft, chain);
  for (int i = 0; i < passes; ++i) set.generateAdditionalBisectors(zre::sideLeft, chain, reach);
  return chain;
}

TEST(GenerateBisectors, TwoVertexTemplateGivesTrueAndNoBisector) {
  zr2DBisectorSet set;
  EXPECT_TRUE(set.generateBisectors(line("0 0, 10 0"), zre::sideLeft, 100.0));
  EXPECT_TRUE(set.generateBisectors(line("0 0, 10 5"), vertex("-1 -1"), vertex("20 20")));
  EXPECT_TRUE(set.getLeftBisectors().empty());
  EXPECT_TRUE(set.getRightBisectors().empty());
  EXPECT_THAT(set.getTemplateLine(), LineIs("0 0, 10 5"));
  EXPECT_THAT(set.getBoundsFirst(), VertexIs("-1 -1"));
  EXPECT_THAT(set.getBoundsSecond(), VertexIs("20 20"));
}

TEST(GenerateBisectors, OneVertexTemplateGivesFalseAndChangesNothing) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 20 5"), vertex("0 0"), vertex("20 20"));
  for (const char* text : {"7 7", ""}) {
    EXPECT_FALSE(set.generateBisectors(line(text), zre::sideLeft, 1.0));
    EXPECT_FALSE(set.generateBisectors(line(text), vertex("5 5"), vertex("6 6")));
  }
  EXPECT_THAT(set.getTemplateLine(), LineIs("0 0, 10 0, 20 5"));
  EXPECT_THAT(set.getBoundsSecond(), VertexIs("20 20"));
  EXPECT_EQ(set.getLeftBisectors().size(), 1u);
  EXPECT_EQ(set.getRightBisectors().size(), 1u);
}

TEST(GenerateBisectors, ThreeVertexTemplateHasOneRootPerSideWhateverTheReach) {
  for (double reach : {0.0, 1.0, 1e300}) {
    zr2DBisectorSet set;
    EXPECT_TRUE(set.generateBisectors(line("0 0, 1 2, 3 3"), zre::sideLeft, reach));
    EXPECT_TRUE(set.generateBisectors(line("0 0, 1 2, 3 3"), zre::sideRight, reach));
    EXPECT_EQ(set.getLeftBisectors().size(), 1u);
    EXPECT_EQ(set.getRightBisectors().size(), 1u);
    EXPECT_TRUE(set.generateBisectors(line("0 0, 1 2, 3 3"), vertex("0 0"), gdfVertex(reach, 1)));
    EXPECT_EQ(set.getLeftBisectors().size(), 1u);
    EXPECT_EQ(set.getRightBisectors().size(), 1u);
  }
}

TEST(GenerateBisectors, RightAngleLeftRootPointsInsideAndRightRootTheOtherWay) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 10 10"), vertex("0 0"), vertex("10 10"));
  const zr2DBisector& left = set.getLeftBisectors().at(0);
  const zr2DBisector& right = set.getRightBisectors().at(0);
  EXPECT_EQ(left.getNormalVector(), gdfVertex(-half, half));
  EXPECT_EQ(right.getNormalVector(), gdfVertex(half, -half));
  EXPECT_THAT(left.getBase(), VertexIs("10 0"));
  EXPECT_THAT(right.getBase(), VertexIs("10 0"));
}

TEST(GenerateBisectors, StraightVertexTakesThePerpendicular) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 1 0, 2 0"), zre::sideLeft, 10.0);
  set.generateBisectors(line("0 0, 1 0, 2 0"), zre::sideRight, 10.0);
  EXPECT_THAT(set.getLeftBisectors().at(0).getNormalVector(), VertexIs("0 1"));
  EXPECT_THAT(set.getLeftBisectors().at(0).getTop(), VertexIs("1 1"));
  EXPECT_THAT(set.getRightBisectors().at(0).getNormalVector(), VertexIs("0 -1"));
}

TEST(GenerateBisectors, SideFormLeavesTheOtherChainAlone) {
  zr2DBisectorSet set;
  set.generateBisectors(line(axisBends), zre::sideLeft, 100.0);
  EXPECT_EQ(set.getLeftBisectors().size(), 3u);
  EXPECT_TRUE(set.getRightBisectors().empty());
  set.generateBisectors(line("0 0, 1 0, 2 1"), zre::sideRight, 100.0);
  EXPECT_EQ(set.getLeftBisectors().size(), 3u);
  EXPECT_EQ(set.getRightBisectors().size(), 1u);
}

// Height 3 over the segment along y, on the bisector of a right angle.
TEST(GenerateBisectors, SideFormReplacesAllThatIsKnownOfTheTemplate) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 20 0"), vertex("0 0"), vertex("9 9"));
  set.generateBisectors(line("0 0, 0 10, -10 10"), zre::sideLeft, 100.0);
  gdfVertex place;
  EXPECT_EQ(0, set.getVertexAtHeightOnBisectorChain(zre::sideLeft, set.getLeftBisectors(), 3.0, 0,
                                                    place));
  EXPECT_THAT(place, VertexNear("-3 7", 1e-14));
}

TEST(GenerateBisectors, AnySideButLeftBuildsTheRightChain) {
  for (zre::side side : {zre::sideOn, zre::sideRight, zre::sideNone}) {
    zr2DBisectorSet set;
    set.generateBisectors(line("0 0, 1 0, 2 0"), side, 10.0);
    EXPECT_TRUE(set.getLeftBisectors().empty());
    ASSERT_EQ(set.getRightBisectors().size(), 1u);
    EXPECT_THAT(set.getRightBisectors()[0].getNormalVector(), VertexIs("0 -1"));
  }
}

TEST(GenerateBisectors, ParallelRootsAddNothing) {
  const VertexLine straight = line("0 0, 1 0, 2 0, 3 0, 4 0");
  zr2DBisectorSet set;
  set.generateBisectors(straight, zre::sideLeft, 1e300);
  EXPECT_EQ(set.getLeftBisectors().size(), 3u);
  set.generateAdditionalBisectors(zre::sideLeft, set.getLeftBisectors(), 1e300);
  EXPECT_EQ(set.getLeftBisectors().size(), 3u);
}

TEST(GenerateBisectors, TwoRootsMeetInAMergedBisector) {
  zr2DBisectorSet set;
  set.generateBisectors(line(axisBends), zre::sideLeft, 100.0);
  const Chain& chain = set.getLeftBisectors();
  ASSERT_EQ(chain.size(), 3u);
  const zr2DBisector& merged = chain[2];
  EXPECT_THAT(merged.getBase(), VertexIs("0 3"));
  EXPECT_THAT(merged.getNormalVector(), VertexNear("-0.8 0.6", 1e-15));
  EXPECT_THAT(merged.getTop(), VertexNear("-0.8 3.6", 1e-15));
  EXPECT_EQ(linksOf(merged), "type 0, domains 0 2, above -1, from 0 1");
  EXPECT_EQ(linksOf(chain[0]), "type 1, domains 0 1, above 2, from 1");
  EXPECT_EQ(linksOf(chain[1]), "type 1, domains 1 2, above 2, from 2");
  for (std::size_t root : {0u, 1u}) EXPECT_THAT(chain[root].getTop(), VertexIs("0 3"));
  EXPECT_THAT(chain[0].getNormalVector(), VertexIs("0 1"));
  EXPECT_THAT(chain[1].getNormalVector(), VertexIs("-1 0"));
}

TEST(GenerateBisectors, MergeMustLieStrictlyWithinReachOfBothOuterSegments) {
  const VertexLine bends = line(axisBends);
  const double left = zr3DTools::getPerpendicularDistance(bends[0], bends[1], vertex("0 3"));
  const double right = zr3DTools::getPerpendicularDistance(bends[2], bends[3], vertex("0 3"));
  EXPECT_NEAR(left, 2.4, 1e-15);
  EXPECT_NEAR(right, 2.4, 1e-15);
  const double limit = std::max(left, right);
  zr2DBisectorSet set;
  set.generateBisectors(bends, zre::sideLeft, limit);
  EXPECT_EQ(set.getLeftBisectors().size(), 2u);
  set.generateBisectors(bends, zre::sideLeft, std::nextafter(limit, 3.0));
  EXPECT_EQ(set.getLeftBisectors().size(), 3u);
  set.generateBisectors(bends, zre::sideLeft, std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(set.getLeftBisectors().size(), 2u);
}

TEST(GenerateBisectors, ReachOfTheBoundsIsWidthPlusHeightWhicheverCornersAreGiven) {
  zr2DBisectorSet set;
  set.generateBisectors(line(axisBends), vertex("0 0"), vertex("1 1.25"));
  EXPECT_EQ(set.getLeftBisectors().size(), 2u);
  set.generateBisectors(line(axisBends), vertex("0 0"), vertex("1.25 1.25"));
  EXPECT_EQ(set.getLeftBisectors().size(), 3u);
  set.generateBisectors(line(axisBends), vertex("1.25 0"), vertex("0 1.25"));
  EXPECT_EQ(set.getLeftBisectors().size(), 3u);
}

TEST(GenerateBisectors, BothChainsComeBackFromTheShift) {
  zr2DBisectorSet set;
  set.generateBisectors(line("-3 5, 1 2, 5 5, 1 8"), vertex("-8 0"), vertex("8 16"));
  EXPECT_THAT(set.getTemplateLine(), LineIs("-3 5, 1 2, 5 5, 1 8"));
  EXPECT_THAT(set.getBoundsFirst(), VertexIs("-8 0"));
  EXPECT_THAT(set.getBoundsSecond(), VertexIs("8 16"));
  ASSERT_EQ(set.getLeftBisectors().size(), 3u);
  EXPECT_THAT(set.getLeftBisectors()[0].getBase(), VertexIs("1 2"));
  EXPECT_THAT(set.getLeftBisectors()[2].getBase(), VertexIs("1 5"));
  ASSERT_EQ(set.getRightBisectors().size(), 2u);
  EXPECT_THAT(set.getRightBisectors()[0].getTop(), VertexIs("1 1"));
  EXPECT_THAT(set.getRightBisectors()[1].getTop(), VertexIs("6 5"));
}

TEST(GenerateBisectors, BoundsMayBeTheSetsOwn) {
  zr2DBisectorSet set;
  ASSERT_TRUE(set.generateBisectors(line("0 0, 4 0"), vertex("-10 -20"), vertex("50 60")));
  ASSERT_TRUE(set.generateBisectors(line("0 0, 4 0"), set.getBoundsSecond(), set.getBoundsFirst()));
  EXPECT_THAT(set.getBoundsFirst(), VertexIs("50 60"));
  EXPECT_THAT(set.getBoundsSecond(), VertexIs("-10 -20"));
}

TEST(GenerateBisectors, ASecondCallReplacesWhatItBuilds) {
  zr2DBisectorSet set;
  set.generateBisectors(line(axisBends), vertex("0 0"), vertex("9 9"));
  set.generateBisectors(line("0 0, 1 0, 2 0"), vertex("0 0"), vertex("9 9"));
  EXPECT_EQ(set.getLeftBisectors().size(), 1u);
  EXPECT_EQ(set.getRightBisectors().size(), 1u);
}

TEST(GenerateBisectors, KeptOneSideFormLeavesLastBisector) {
  zr2DBisectorSet set;
  set.generateBisectors(line(axisBends), vertex("-9 -9"), vertex("9 9"));
  gdfVertex hit;
  set.getDomain(zre::sideLeft, vertex("4 3"), hit);
  ASSERT_EQ(set.getLastBisector(), 1);
  set.generateBisectors(line("0 0, 1 0, 2 0, 3 0"), zre::sideLeft, 10.0);
  EXPECT_EQ(set.getLastBisector(), 1);
  EXPECT_THAT(set.getBoundsFirst(), VertexIs("-9 -9"));
  EXPECT_THAT(set.getBoundsSecond(), VertexIs("9 9"));
  set.generateBisectors(line("0 0, 1 0"), vertex("-9 -9"), vertex("9 9"));
  EXPECT_EQ(set.getLastBisector(), -1);
}

TEST(GenerateBisectors, KeptTwoVertexTemplateKeepsOldChains) {
  zr2DBisectorSet set;
  set.generateBisectors(line(axisBends), vertex("0 0"), vertex("9 9"));
  EXPECT_TRUE(set.generateBisectors(line("0 0, 1 0"), zre::sideLeft, 5.0));
  EXPECT_EQ(set.getLeftBisectors().size(), 3u);
  EXPECT_TRUE(set.generateBisectors(line("0 0, 1 0"), vertex("0 0"), vertex("1 1")));
  EXPECT_EQ(set.getLeftBisectors().size(), 3u);
  EXPECT_EQ(set.getRightBisectors().size(), 2u);
  EXPECT_THAT(set.getTemplateLine(), LineIs("0 0, 1 0"));
}

// 0.1 + 0.3 is 0.4, and 0.4 - 0.1 is one step above 0.3; 0.3 - 0.1 + 0.1 would be 0.3 again.
TEST(GenerateBisectors, KeptShiftAddsTheMinimum) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0.1 0, 0.3 1, 0.5 0"), vertex("0.3 0"), vertex("1 1"));
  EXPECT_EQ(set.getTemplateLine()[1].x(), 0.30000000000000004);
  EXPECT_EQ(set.getBoundsFirst().x(), 0.30000000000000004);
  EXPECT_EQ(set.getLeftBisectors().at(0).getBase().x(), 0.30000000000000004);
  EXPECT_EQ(set.getRightBisectors().at(0).getBase().x(), 0.30000000000000004);
}

// Its merges retire one another for ever.
TEST(GenerateBisectors, KeptPassLimitsBoundTheMerging) {
  const VertexLine restless = line("4 11, 8 9, 5 6, 7 6, 0 3, 12 0, 9 9");
  const double reach = 1e06;
  zr2DBisectorSet set;
  ASSERT_TRUE(set.generateBisectors(restless, zre::sideLeft, reach));
  const std::size_t oneSideSize = set.getLeftBisectors().size();
  EXPECT_GT(oneSideSize, 1001u);
  EXPECT_LT(leftAfterPasses(restless, 1000, reach).size(), oneSideSize);
  EXPECT_EQ(leftAfterPasses(restless, 1001, reach).size(), oneSideSize);
  EXPECT_GT(leftAfterPasses(restless, 1002, reach).size(), oneSideSize);
  // Its least x and y are 0, so that the other form works on the same coordinates.
  ASSERT_TRUE(set.generateBisectors(restless, vertex("0 0"), gdfVertex(reach, 0)));
  const std::size_t bothSidesSize = set.getLeftBisectors().size();
  EXPECT_LT(leftAfterPasses(restless, 5000, reach).size(), bothSidesSize);
  EXPECT_EQ(leftAfterPasses(restless, 5001, reach).size(), bothSidesSize);
  EXPECT_GT(leftAfterPasses(restless, 5002, reach).size(), bothSidesSize);
}

TEST(GenerateRootBisectors, RootsNameTheirVertexAndTheDomainsBeside) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 10 10, 20 10 4"), zre::sideLeft, 0.0);
  Chain chain(7);
  set.generateRootBisectors(zre::sideRight, chain);
  ASSERT_EQ(chain.size(), 2u);
  EXPECT_EQ(linksOf(chain[0]), "type 1, domains 0 1, above -1, from 1");
  EXPECT_EQ(linksOf(chain[1]), "type 1, domains 1 2, above -1, from 2");
  for (const zr2DBisector& root : chain) {
    EXPECT_EQ(root.getTop(), root.getBase() + root.getNormalVector());
    EXPECT_THAT(root.getRealNormal(), VertexIs("0 0"));
    EXPECT_THAT(root.getRealTop(), VertexIs("0 0"));
  }
}

TEST(GenerateRootBisectors, FewerThanTwoVerticesClearTheChain) {
  const zr2DBisectorSet set;
  Chain chain(3);
  set.generateRootBisectors(zre::sideLeft, chain);
  EXPECT_TRUE(chain.empty());
  chain.resize(3);
  set.generateRootFBF_Bisectors(zre::sideLeft, chain);
  EXPECT_TRUE(chain.empty());
}

// A step of up to 1e-05 has no direction: the other arm is then the bisector, on either side.
TEST(GenerateRootBisectors, VertexTwiceGivesARootAlongTheOtherArm) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 3 4, 3 4, 9 4"), zre::sideLeft, 0.0);
  set.generateBisectors(line("0 0, 3 4, 3 4, 9 4"), zre::sideRight, 0.0);
  for (const Chain& chain : {set.getLeftBisectors(), set.getRightBisectors()}) {
    ASSERT_EQ(chain.size(), 2u);
    EXPECT_THAT(chain[0].getNormalVector(), VertexIs("-0.6 -0.8"));
    EXPECT_THAT(chain[1].getNormalVector(), VertexIs("1 0"));
  }
}

// Arms (0, 0.6, 0.8) and (-0.6, 0, 0.8) add up to (-0.6, 0.6, 1.6), and c is above 0.
TEST(GenerateRootBisectors, KeptRootFlipSparesHeight) {
  zr2DBisectorSet set;
  const VertexLine risingArms = line("-3 0 4, 0 0 0, 0 3 4");
  set.generateBisectors(risingArms, zre::sideLeft, 0.0);
  set.generateBisectors(risingArms, zre::sideRight, 0.0);
  const double length = std::sqrt(3.28);
  const gdfVertex left = set.getLeftBisectors().at(0).getNormalVector() * length;
  const gdfVertex right = set.getRightBisectors().at(0).getNormalVector() * length;
  EXPECT_THAT(left, VertexNear("-0.6 0.6 1.6", 1e-15));
  EXPECT_THAT(right, VertexNear("0.6 -0.6 1.6", 1e-15));
  // On a hairpin c is exactly 0.
  set.generateBisectors(line("0 0, 4 0, 0 0"), zre::sideLeft, 0.0);
  set.generateBisectors(line("0 0, 4 0, 0 0"), zre::sideRight, 0.0);
  EXPECT_THAT(set.getLeftBisectors().at(0).getNormalVector(), VertexIs("-1 0"));
  EXPECT_THAT(set.getRightBisectors().at(0).getNormalVector(), VertexIs("-1 0"));
}

TEST(GenerateRootFbfBisectors, KeptFbfRootIsMirroredInX) {
  zr2DBisectorSet set;
  set.generateBisectors(line("-10 0, 0 0, 0 10"), zre::sideLeft, 0.0);
  Chain chain(3);
  set.generateRootFBF_Bisectors(zre::sideLeft, chain);
  ASSERT_EQ(chain.size(), 1u);
  EXPECT_EQ(chain[0].getRealNormal(), gdfVertex(-half, half));
  EXPECT_EQ(chain[0].getNormalVector(), gdfVertex(half, half));
  EXPECT_EQ(chain[0].getTop(), gdfVertex(half, half));
  EXPECT_THAT(chain[0].getRealTop(), VertexIs("0 0"));
  EXPECT_EQ(linksOf(chain[0]), "type 1, domains 0 1, above -1, from 1");
  set.generateRootFBF_Bisectors(zre::sideRight, chain);
  EXPECT_EQ(chain.at(0).getRealNormal(), gdfVertex(half, -half));
  EXPECT_EQ(chain.at(0).getNormalVector(), gdfVertex(-half, -half));
}

TEST(GenerateRootFbfBisectors, ArmsThatLeadDownwardAreNotMirrored) {
  zr2DBisectorSet set;
  set.generateBisectors(line("-10 0, 0 0, 0 -10"), zre::sideLeft, 0.0);
  Chain chain;
  set.generateRootFBF_Bisectors(zre::sideLeft, chain);
  EXPECT_EQ(chain.at(0).getNormalVector(), gdfVertex(half, half));
  EXPECT_EQ(chain.at(0).getRealNormal(), gdfVertex(half, half));
}

// The arm (0.99999999995, 1e-05) has a length of exactly 1, so that its y stays 1e-05.
TEST(GenerateRootFbfBisectors, MirrorsOnlyAboveTheExactnessLimit) {
  gdfVertex arm = vertex("0.99999999995 1e-05");
  arm.normalise();
  ASSERT_EQ(arm.y(), 1e-05);
  zr2DBisectorSet set;
  Chain chain;
  set.generateBisectors(line("-1 0, 0 0, 0.99999999995 1e-05"), zre::sideLeft, 0.0);
  set.generateRootFBF_Bisectors(zre::sideLeft, chain);
  EXPECT_EQ(chain.at(0).getNormalVector(), chain.at(0).getRealNormal());
  EXPECT_LT(chain.at(0).getNormalVector().x(), 0.0);
  set.generateBisectors(line("-1 0, 0 0, 0.99999999995 1.1e-05"), zre::sideLeft, 0.0);
  set.generateRootFBF_Bisectors(zre::sideLeft, chain);
  EXPECT_EQ(chain.at(0).getNormalVector().x(), -chain.at(0).getRealNormal().x());
  EXPECT_EQ(chain.at(0).getNormalVector().y(), chain.at(0).getRealNormal().y());
  EXPECT_GT(chain.at(0).getNormalVector().x(), 0.0);
}

gdfVertex mirrored(const gdfVertex& v) { return {v.x(), -v.y(), v.z()}; }

// Not so in x, where a crossing exactly sideways is decided by x; nor with heights, whose products
// keep their sign.
RC_GTEST_PROP(GenerateBisectorsProperty, FlatTemplateMirroredInYSwapsTheChainsExactly, ()) {
  for (std::uint32_t seed : *templates::seeds(20)) {
    VertexLine template0 = templates::fromSeed(seed);
    for (gdfVertex& v : template0) v.z() = 0.0;
    VertexLine template1 = template0;
    std::transform(template0.begin(), template0.end(), template1.begin(), mirrored);
    zr2DBisectorSet set;
    set.generateBisectors(template0, zre::sideLeft, 1e04);
    set.generateBisectors(template1, zre::sideRight, 1e04);
    const Chain& left = set.getLeftBisectors();
    const Chain& right = set.getRightBisectors();
    RC_ASSERT(left.size() == right.size());
    for (std::size_t i = 0; i < left.size(); ++i) {
      RC_ASSERT(linksOf(left[i]) == linksOf(right[i]));
      RC_ASSERT(sameVertex(mirrored(left[i].getBase()), right[i].getBase()));
      RC_ASSERT(sameVertex(mirrored(left[i].getTop()), right[i].getTop()));
      RC_ASSERT(sameVertex(mirrored(left[i].getNormalVector()), right[i].getNormalVector()));
    }
  }
}

bool isCalm(const Chain& chain) {
  return std::all_of(chain.begin(), chain.end(), [](const zr2DBisector& b) {
    return b.getType() != 5 && b.getNoBaseConnections() <= 2;
  });
}

// Where bisectors overtake one another the place counts: ties are measured from the origin.
RC_GTEST_PROP(GenerateBisectorsProperty, ShiftBy64thsKeepsRootsAndTheLinksOfCalmChains, ()) {
  for (std::uint32_t seed : *templates::seeds(20)) {
    templates::Numbers numbers(seed);
    VertexLine here = templates::wander(numbers, numbers.between(3, 30));
    for (gdfVertex& v : here) {
      v = gdfVertex(std::round(v.x() * 64.0) / 64.0, std::round(v.y() * 64.0) / 64.0);
    }
    const gdfVertex shift(numbers.between(-640, 640) / 64.0, numbers.between(-640, 640) / 64.0);
    VertexLine there = here;
    for (gdfVertex& v : there) v += shift;
    zr2DBisectorSet set;
    set.generateBisectors(here, zre::sideLeft, 1e04);
    const Chain chainHere = set.getLeftBisectors();
    set.generateBisectors(there, zre::sideLeft, 1e04);
    const Chain& chainThere = set.getLeftBisectors();
    for (std::size_t i = 0; i + 2 < here.size(); ++i) {
      RC_ASSERT(chainHere[i].getBase() + shift == chainThere[i].getBase());
    }
    if (!isCalm(chainHere)) continue;
    RC_ASSERT(chainHere.size() == chainThere.size());
    for (std::size_t i = 0; i < chainHere.size(); ++i) {
      RC_ASSERT(linksOf(chainHere[i]) == linksOf(chainThere[i]));
    }
  }
}

}  // namespace
