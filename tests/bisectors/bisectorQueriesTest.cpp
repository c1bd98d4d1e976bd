#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bisectors/support/chainText.h"
#include "support/geometryText.h"

namespace {

/// A straight template along x with roots at x = 10 and 20, pushed out, within -50 to 50.
zr2DBisectorSet straightSet() {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 20 0, 30 0"), vertex("-50 -50"), vertex("50 50"));
  set.expandBisectors();
  return set;
}

/// A set without a template, whose left chain holds these bisectors, within 0 to 100.
zr2DBisectorSet setWith(const Chain& chain) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 1 0"), vertex("0 0"), vertex("100 100"));
  set.getLeftBisectors() = chain;
  return set;
}

int domainAt(zr2DBisectorSet& set, zre::side side, const std::string& p) {
  gdfVertex hit;
  return set.getDomain(side, vertex(p), hit);
}

TEST(GetSide, VertexOfTheTemplateIsOnItWithAnyTolerance) {
  const VertexLine bend = line("0 0, 10 0, 10 10 4");
  for (double tolerance : {-5.0, 0.0, 1e-05, 1e30}) {
    for (const gdfVertex& v : bend) {
      EXPECT_EQ(zr2DBisectorSet::getSide(bend, v, tolerance), zre::sideOn);
    }
  }
}

// At a height off the vertex it is no vertex of the line: the side test goes on, and its 1e-05
// around the ends does not hold either.
TEST(GetSide, AnyOtherVertexIsTestedAgainstTheLine) {
  const VertexLine bend = line("0 0, 10 0, 10 10");
  EXPECT_EQ(zr2DBisectorSet::getSide(bend, vertex("5 1"), 0.0), zre::sideLeft);
  EXPECT_EQ(zr2DBisectorSet::getSide(bend, vertex("5 -1"), 0.0), zre::sideRight);
  EXPECT_EQ(zr2DBisectorSet::getSide(bend, vertex("5 0"), 0.0), zre::sideOn);
  EXPECT_EQ(zr2DBisectorSet::getSide(line("0 0"), vertex("5 0"), 0.0), zre::sideNone);
  EXPECT_EQ(zr2DBisectorSet::getSide(line("0 0"), vertex("0 0"), 0.0), zre::sideOn);
  EXPECT_EQ(zr2DBisectorSet::getSide(line(""), vertex("0 0"), 0.0), zre::sideNone);
}

// From (0, 0) the direction to (8, 6) is (0.8, 0.6): its measure is 0.6.
TEST(GetSide, MemberUsesTheTemplateAndTheToleranceOfTheSet) {
  for (double tolerance : {0.5, 0.7}) {
    zr2DBisectorSet set(tolerance);
    set.generateBisectors(line("0 0, 10 0, 20 0"), zre::sideLeft, 0.0);
    EXPECT_EQ(set.getSide(vertex("8 6")), tolerance < 0.6 ? zre::sideLeft : zre::sideOn);
    EXPECT_EQ(set.getSide(vertex("8 -6")), tolerance < 0.6 ? zre::sideRight : zre::sideOn);
    EXPECT_EQ(set.getSide(vertex("10 0")), zre::sideOn);
  }
}

TEST(GetDomain, PointOnABaseIsDecidedWithoutProbing) {
  zr2DBisectorSet set;
  set.generateBisectors(line("0 0, 10 0, 20 0, 30 0"), vertex("90 90"), vertex("90 90"));
  gdfVertex hit = vertex("7 7 7");
  EXPECT_EQ(set.getDomain(zre::sideLeft, vertex("20 0"), hit), 1);
  EXPECT_THAT(hit, VertexIs("7 7 7"));
  EXPECT_EQ(set.getLastBisector(), 1);
  EXPECT_EQ(set.getDomain(zre::sideRight, vertex("10 0"), hit), 1);
  EXPECT_EQ(set.getLastBisector(), 0);
}

// The first base within 1e-05 in every coordinate ends the search, before nearer ones are met.
TEST(GetDomain, BaseCountsStrictlyWithin1em05) {
  zr2DBisectorSet set =
      setWith({bisector("50 40, 50 60", 0, 1), bisector("60 50.000009, 60 60", 2, 3)});
  EXPECT_EQ(domainAt(set, zre::sideLeft, "60.000009 50"), 3);
  EXPECT_EQ(set.getLastBisector(), 1);
  EXPECT_EQ(domainAt(set, zre::sideLeft, "60.00002 50"), 1);
  EXPECT_EQ(set.getLastBisector(), 0);
}

TEST(GetDomain, KeptRetiredBaseStillDecides) {
  Chain chain = {bisector("50 40, 50 60", 0, 1), bisector("60 40, 60 60", 2, 3)};
  chain[1].setType(5);
  zr2DBisectorSet set = setWith(chain);
  EXPECT_EQ(domainAt(set, zre::sideLeft, "61 50"), 1);
  EXPECT_EQ(domainAt(set, zre::sideLeft, "60 40"), 2);
  EXPECT_EQ(set.getLastBisector(), 1);
}

TEST(GetDomain, NearestBisectorMetByTheProbesDecides) {
  zr2DBisectorSet set = straightSet();
  gdfVertex hit;
  EXPECT_EQ(set.getDomain(zre::sideLeft, vertex("5 3"), hit), 0);
  EXPECT_THAT(hit, VertexIs("10 3"));
  EXPECT_EQ(set.getDomain(zre::sideLeft, vertex("14 3"), hit), 1);
  EXPECT_THAT(hit, VertexIs("10 3"));
  EXPECT_EQ(set.getDomain(zre::sideLeft, vertex("16 3"), hit), 1);
  EXPECT_THAT(hit, VertexIs("20 3"));
  EXPECT_EQ(set.getDomain(zre::sideLeft, vertex("25 3"), hit), 2);
  EXPECT_EQ(set.getDomain(zre::sideRight, vertex("5 -3"), hit), 0);
  EXPECT_EQ(set.getDomain(zre::sideRight, vertex("15 -3"), hit), 1);
  EXPECT_EQ(set.getDomain(zre::sideRight, vertex("25 -3"), hit), 2);
}

TEST(GetDomain, OfEquallyNearOnesTheFirstStays) {
  zr2DBisectorSet set = straightSet();
  gdfVertex hit;
  EXPECT_EQ(set.getDomain(zre::sideLeft, vertex("15 3"), hit), 1);
  EXPECT_EQ(set.getLastBisector(), 0);
  EXPECT_THAT(hit, VertexIs("10 3"));
}

TEST(GetDomain, VerticalProbeMeetsLevelBisectors) {
  zr2DBisectorSet set = setWith({bisector("40 50, 60 50", 0, 1)});
  gdfVertex hit;
  EXPECT_EQ(set.getDomain(zre::sideLeft, vertex("45 58"), hit), 0);
  EXPECT_THAT(hit, VertexIs("45 50"));
  EXPECT_EQ(set.getDomain(zre::sideLeft, vertex("45 42"), hit), 1);
  EXPECT_EQ(domainAt(set, zre::sideLeft, "75 42"), 1);
}

TEST(GetDomain, HeightOfThePointCountsInTheDistanceAndTheHitLiesAtZero) {
  zr2DBisectorSet set = straightSet();
  gdfVertex hit;
  EXPECT_EQ(set.getDomain(zre::sideLeft, vertex("5 3 8"), hit), 0);
  EXPECT_THAT(hit, VertexIs("10 3 0"));
}

TEST(GetDomain, PointOnABisectorTakesTheSidesOwnDomain) {
  zr2DBisectorSet set = straightSet();
  EXPECT_EQ(domainAt(set, zre::sideLeft, "10 5"), 0);
  EXPECT_EQ(domainAt(set, zre::sideRight, "10 -5"), 1);
}

TEST(GetDomain, OnTheTemplateTheLeftChainServesAndWithoutASideTheRightOne) {
  zr2DBisectorSet set = straightSet();
  set.getLeftBisectors()[0].setLeftDomain(7);
  EXPECT_EQ(domainAt(set, zre::sideOn, "5 3"), 7);
  EXPECT_EQ(domainAt(set, zre::sideLeft, "5 3"), 7);
  // Any side but right reads the domains as on the left: left of the downward root is x above 10.
  EXPECT_EQ(domainAt(set, zre::sideNone, "5 -3"), 1);
  EXPECT_EQ(domainAt(set, zre::sideRight, "5 -3"), 0);
}

// The template goes up at x = 10 between the point and the bisector at x = 5.
TEST(GetDomain, BisectorBehindTheTemplateIsNotAccepted) {
  zr2DBisectorSet set;
  set.generateBisectors(line("10 0, 10 40"), vertex("0 0"), vertex("40 40"));
  set.getLeftBisectors() = {bisector("5 10, 5 30", 3, 4), bisector("30 10, 30 30", 5, 6)};
  EXPECT_EQ(domainAt(set, zre::sideLeft, "12 20"), 5);
  EXPECT_EQ(domainAt(set, zre::sideLeft, "8 20"), 4);
  // On the template itself nothing lies strictly between.
  EXPECT_EQ(domainAt(set, zre::sideLeft, "10 20"), 4);
}

// Only the crossing nearest to the probe's start is known: from the left bound that is x = 10, so
// that the second wall, at x = 20, hides nothing.
TEST(GetDomain, KeptOnlyCrossingNearestToProbeStartHides) {
  zr2DBisectorSet set;
  set.generateBisectors(line("10 0, 10 40"), vertex("0 0"), vertex("60 60"));
  const VertexLine twoWalls = line("10 0, 10 40, 20 40, 20 0");
  set.generateBisectors(twoWalls, zre::sideLeft, 0.0);
  set.getLeftBisectors() = {bisector("15 10, 15 30", 3, 4)};
  EXPECT_EQ(domainAt(set, zre::sideLeft, "25 20"), 4);
  EXPECT_EQ(set.getLastBisector(), 0);
  // Before any hit the last bisector is asked: here that is none.
  zr2DBisectorSet other;
  other.generateBisectors(line("10 0, 10 40"), vertex("60 60"), vertex("0 0"));
  other.generateBisectors(twoWalls, zre::sideLeft, 0.0);
  other.getLeftBisectors() = {bisector("15 10, 15 30", 3, 4)};
  EXPECT_EQ(domainAt(other, zre::sideLeft, "25 20"), 0);
  EXPECT_EQ(other.getLastBisector(), -1);
}

TEST(GetDomain, DomainOfMinusOneIsZero) {
  zr2DBisectorSet set = setWith({bisector("50 40, 50 60", -1, 3)});
  EXPECT_EQ(domainAt(set, zre::sideLeft, "45 50"), 0);
  EXPECT_EQ(domainAt(set, zre::sideLeft, "55 50"), 3);
}

TEST(GetDomain, EmptyChainWithoutALastBisectorIsZero) {
  zr2DBisectorSet set;
  gdfVertex hit = vertex("7 7 7");
  EXPECT_EQ(set.getDomain(zre::sideLeft, vertex("1 1"), hit), 0);
  EXPECT_THAT(hit, VertexIs("7 7 7"));
  EXPECT_EQ(set.getLastBisector(), -1);
}

TEST(GetDomain, HitMayBeThePointItself) {
  zr2DBisectorSet set = straightSet();
  gdfVertex p = vertex("25 3");
  EXPECT_EQ(set.getDomain(zre::sideLeft, p, p), 2);
  EXPECT_THAT(p, VertexIs("20 3"));
}

TEST(GetDomain, KeptDomainFallsBackOnLastBisector) {
  zr2DBisectorSet set = straightSet();
  EXPECT_EQ(domainAt(set, zre::sideLeft, "25 3"), 2);
  ASSERT_EQ(set.getLastBisector(), 1);
  // Below everything on the left side, and beyond the ends of the right chain.
  EXPECT_EQ(domainAt(set, zre::sideLeft, "25 -3"), 2);
  EXPECT_EQ(domainAt(set, zre::sideLeft, "5 -3"), 1);
  EXPECT_EQ(domainAt(set, zre::sideRight, "25 3"), 2);
  EXPECT_EQ(domainAt(set, zre::sideRight, "5 3"), 1);
  EXPECT_EQ(set.getLastBisector(), 1);
  // An index beyond a shorter chain gives 0, and is kept.
  set.getRightBisectors().resize(1);
  EXPECT_EQ(domainAt(set, zre::sideRight, "25 3"), 0);
  EXPECT_EQ(set.getLastBisector(), 1);
  set.getRightBisectors().clear();
  EXPECT_EQ(domainAt(set, zre::sideRight, "25 3"), 0);
}

TEST(Symetric, WithoutABendIsFalse) {
  const zr2DBisectorSet set;
  for (const char* text : {"", "0 0", "0 0, 1 1", "0 0, 1 0, 2 0, 3 0", "0 0, 0 1, 0 2, 0 5",
                           "0 0, -1 -1, -2 -2, -4 -4"}) {
    VertexLine straight = line(text);
    EXPECT_FALSE(set.symetric(straight)) << text;
    EXPECT_THAT(straight, LineIs(text));
  }
}

TEST(Symetric, EqualBendsOnEitherSideOfABendLeaveTheLine) {
  const zr2DBisectorSet set;
  for (const char* text : {"0 0, 1 0, 2 1", "0 0, 1 0, 1 1, 2 1, 2 2, 3 2"}) {
    VertexLine bent = line(text);
    EXPECT_TRUE(set.symetric(bent)) << text;
    EXPECT_THAT(bent, LineIs(text));
  }
}

// Bends of 90 and, since a step due north counts as one due south, 135 degrees.
TEST(Symetric, UnequalBendsAreFalse) {
  const zr2DBisectorSet set;
  VertexLine bent = line("0 0, 1 0, 1 1, 0 2");
  EXPECT_FALSE(set.symetric(bent));
  EXPECT_THAT(bent, LineIs("0 0, 1 0, 1 1, 0 2"));
}

TEST(Symetric, KeptSymmetricPairMovesOneVertex) {
  const zr2DBisectorSet set;
  VertexLine trough = line("0 1, 1 0, 2 0, 3 1");
  EXPECT_TRUE(set.symetric(trough));
  EXPECT_THAT(trough, LineIs("0 1, 1.01 0.01, 2 0, 3 1"));
  VertexLine peak = line("0 0, 1 1, 2 1, 3 0");
  EXPECT_TRUE(set.symetric(peak));
  EXPECT_THAT(peak, LineIs("0 0, 1.01 1.01, 2 1, 3 0"));
  VertexLine step = line("0 0, 1 0, 2 1, 3 1");
  EXPECT_TRUE(set.symetric(step));
  EXPECT_THAT(step, LineIs("0 0, 1 0, 2 1, 3 1"));
}

}  // namespace
