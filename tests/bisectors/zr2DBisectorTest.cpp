#include <zrBase/bisectors/zr2DBisector.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/geometryText.h"

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::vector<int> connectionsOf(const zr2DBisector& bisector) {
  std::vector<int> connections;
  for (int i = 0; i < bisector.getNoBaseConnections(); ++i) {
    connections.push_back(bisector.getBaseConnection(i));
  }
  return connections;
}

/// A bisector with the connections 100, 101, ... of a given number.
zr2DBisector withConnections(int count) {
  zr2DBisector bisector;
  for (int i = 0; i < count; ++i) bisector.addBaseConnection(100 + i);
  return bisector;
}

std::vector<int> hundreds(int count) {
  std::vector<int> numbers;
  for (int i = 0; i < count; ++i) numbers.push_back(100 + i);
  return numbers;
}

/// Every field with a value of its own.
zr2DBisector distinctBisector() {
  zr2DBisector b = withConnections(3);
  b.setBase(vertex("1 2 3"));
  b.setTop(vertex("4 5 6"));
  b.setNormal(vertex("7 8 9"));
  b.setRealNormal(vertex("10 11 12"));
  b.setRealTop(vertex("13 14 15"));
  b.setType(5);
  b.setLeftDomain(16);
  b.setRightDomain(17);
  b.setTopConnect(18);
  return b;
}

void expectDistinctFields(const zr2DBisector& b) {
  EXPECT_THAT(b.getBase(), VertexIs("1 2 3"));
  EXPECT_THAT(b.getTop(), VertexIs("4 5 6"));
  EXPECT_THAT(b.getNormalVector(), VertexIs("7 8 9"));
  EXPECT_THAT(b.getRealNormal(), VertexIs("10 11 12"));
  EXPECT_THAT(b.getRealTop(), VertexIs("13 14 15"));
  EXPECT_EQ(b.getType(), 5);
  EXPECT_EQ(b.getLeftDomain(), 16);
  EXPECT_EQ(b.getRightDomain(), 17);
  EXPECT_EQ(b.getTopConnect(), 18);
}

}  // namespace

TEST(Bisector, StartsMergedOpenAndWithoutDomains) {
  const zr2DBisector b;
  EXPECT_EQ(b.getType(), 0);
  EXPECT_EQ(b.getNoBaseConnections(), 0);
  EXPECT_EQ(b.getTopConnect(), -1);
  EXPECT_EQ(b.getLeftDomain(), -1);
  EXPECT_EQ(b.getRightDomain(), -1);
  EXPECT_THAT(b.getBase(), VertexIs("0 0 0"));
  EXPECT_THAT(b.getTop(), VertexIs("0 0 0"));
  EXPECT_THAT(b.getNormalVector(), VertexIs("0 0 0"));
  EXPECT_THAT(b.getRealNormal(), VertexIs("0 0 0"));
  EXPECT_THAT(b.getRealTop(), VertexIs("0 0 0"));
}

TEST(Bisector, GivesBackWhatWasSet) {
  expectDistinctFields(distinctBisector());
  EXPECT_EQ(connectionsOf(distinctBisector()), hundreds(3));
}

TEST(Bisector, HandsOutCopiesOfItsEndsAndReferencesToItsDirections) {
  static_assert(std::is_same_v<decltype(std::declval<zr2DBisector>().getBase()), gdfVertex>);
  static_assert(std::is_same_v<decltype(std::declval<zr2DBisector>().getTop()), gdfVertex>);
  zr2DBisector b;
  const gdfVertex& normal = b.getNormalVector();
  const gdfVertex& realTop = b.getRealTop();
  b.setNormal(vertex("0 1"));
  b.setRealTop(vertex("5 6 7"));
  EXPECT_THAT(normal, VertexIs("0 1"));
  EXPECT_THAT(realTop, VertexIs("5 6 7"));
}

TEST(Bisector, SettersTakeTheirOwnField) {
  zr2DBisector b = distinctBisector();
  b.setNormal(b.getNormalVector());
  b.setRealNormal(b.getRealNormal());
  b.setRealTop(b.getRealTop());
  expectDistinctFields(b);
}

TEST(Bisector, TypeHoldsSixteenBits) {
  zr2DBisector b;
  static_assert(std::is_same_v<decltype(b.getType()), short>);
  b.setType(-32768);
  EXPECT_EQ(b.getType(), -32768);
  b.setType(32767);
  EXPECT_EQ(b.getType(), 32767);
}

TEST(Bisector, IndicesHoldThirtyTwoBits) {
  constexpr int least = std::numeric_limits<std::int32_t>::min();
  constexpr int most = std::numeric_limits<std::int32_t>::max();
  zr2DBisector b;
  b.setLeftDomain(least);
  b.setRightDomain(most);
  b.setTopConnect(most);
  b.addBaseConnection(least);
  EXPECT_EQ(b.getLeftDomain(), least);
  EXPECT_EQ(b.getRightDomain(), most);
  EXPECT_EQ(b.getTopConnect(), most);
  EXPECT_EQ(b.getBaseConnection(0), least);
}

TEST(BisectorVector, RunsFromBaseToTop) {
  zr2DBisector b;
  b.setBase(vertex("1 2 3"));
  b.setTop(vertex("4 6 3"));
  EXPECT_THAT(b.getVector(), VertexIs("3 4 0"));
  EXPECT_THAT(b.getNormalisedVector(), VertexIs("0.6 0.8 0"));
  EXPECT_THAT(b.getNormalVector(), VertexIs("0 0 0"));
}

TEST(BisectorVector, OfALengthUpToTheExactnessLimitIsNormalisedToNothing) {
  zr2DBisector b;
  b.setTop(vertex("0.00001 0"));
  EXPECT_THAT(b.getVector(), VertexIs("0.00001 0"));
  EXPECT_THAT(b.getNormalisedVector(), VertexIs("0 0"));
  b.setTop(vertex("0.00002 0"));
  EXPECT_THAT(b.getNormalisedVector(), VertexIs("1 0"));
}

TEST(BisectorNormal, IsCalculatedFromBaseAndTop) {
  zr2DBisector b;
  b.setNormal(vertex("9 9 9"));
  b.setBase(vertex("1 1 1"));
  b.setTop(vertex("1 -1 1"));
  b.calculateNormal();
  EXPECT_THAT(b.getNormalVector(), VertexIs("0 -1 0"));
  EXPECT_THAT(b.getTop(), VertexIs("1 -1 1"));
}

TEST(BisectorNormal, OfABisectorWithoutLengthIsZero) {
  zr2DBisector b;
  b.setNormal(vertex("9 9 9"));
  b.calculateNormal();
  EXPECT_THAT(b.getNormalVector(), VertexIs("0 0 0"));
}

TEST(BisectorRealNormalisedVector, OfADefaultBisectorIsTheZeroNormal) {
  const zr2DBisector b;
  EXPECT_THAT(b.getRealNormalisedVector(), VertexIs("0 0 0"));
  EXPECT_EQ(&b.getRealNormalisedVector(), &b.getNormalVector());
}

TEST(BisectorRealNormalisedVector, IsTheNormalWhereThereIsNoRealOne) {
  zr2DBisector b;
  b.setNormal(vertex("0 1"));
  EXPECT_THAT(b.getRealNormalisedVector(), VertexIs("0 1"));
  EXPECT_EQ(&b.getRealNormalisedVector(), &b.getNormalVector());
}

TEST(BisectorRealNormalisedVector, IsTheRealOneAsItStands) {
  zr2DBisector b;
  b.setNormal(vertex("0 1"));
  b.setRealNormal(vertex("3 4"));
  EXPECT_THAT(b.getRealNormalisedVector(), VertexIs("3 4"));
  EXPECT_EQ(&b.getRealNormalisedVector(), &b.getRealNormal());
}

// The test is for a length of exactly 0: a real normal far below the exactness limit still counts.
TEST(BisectorRealNormalisedVector, KeepsARealNormalHoweverShort) {
  zr2DBisector b;
  b.setNormal(vertex("0 1"));
  b.setRealNormal(vertex("1e-150 0"));
  EXPECT_THAT(b.getRealNormalisedVector(), VertexIs("1e-150 0"));
}

TEST(BisectorRealNormalisedVector, GoesByTheLengthNotByTheComponents) {
  zr2DBisector b;
  b.setNormal(vertex("0 1"));
  b.setRealNormal(vertex("1e-200 0"));  // its square underflows to 0
  EXPECT_THAT(b.getRealNormalisedVector(), VertexIs("0 1"));
}

TEST(BisectorRealNormalisedVector, KeepsARealNormalThatIsNoNumber) {
  zr2DBisector b;
  b.setNormal(vertex("0 1"));
  b.setRealNormal(gdfVertex(notANumber, 0.0, 0.0));
  EXPECT_EQ(&b.getRealNormalisedVector(), &b.getRealNormal());
}

TEST(BisectorConnections, AreAppendedInOrder) {
  for (int count = 0; count <= 9; ++count) {
    EXPECT_EQ(connectionsOf(withConnections(count)), hundreds(count));
  }
}

TEST(BisectorConnections, OfTwoCopiesAreSeparate) {
  for (int count = 0; count <= 5; ++count) {
    zr2DBisector original = withConnections(count);
    zr2DBisector copy(original);
    original.addBaseConnection(7);
    EXPECT_EQ(connectionsOf(copy), hundreds(count));
    copy.addBaseConnection(8);
    copy.addBaseConnection(9);
    EXPECT_EQ(original.getNoBaseConnections(), count + 1);
    EXPECT_EQ(original.getBaseConnection(count), 7);
    EXPECT_EQ(copy.getBaseConnection(count), 8);
  }
}

TEST(BisectorConnections, AreFreedAndGrowAgain) {
  for (int count = 0; count <= 5; ++count) {
    zr2DBisector b = withConnections(count);
    b.free();
    EXPECT_EQ(b.getNoBaseConnections(), 0);
    b.free();
    for (int i = 0; i < 4; ++i) b.addBaseConnection(100 + i);
    EXPECT_EQ(connectionsOf(b), hundreds(4));
  }
}

TEST(BisectorConnections, FreeingLeavesTheOtherFields) {
  zr2DBisector b = distinctBisector();
  b.free();
  EXPECT_EQ(b.getNoBaseConnections(), 0);
  expectDistinctFields(b);
}

TEST(BisectorConnections, AreReplacedByAssignment) {
  for (int from = 0; from <= 5; ++from) {
    for (int to = 0; to <= 5; ++to) {
      zr2DBisector source;
      for (int i = 0; i < from; ++i) source.addBaseConnection(100 + i);
      zr2DBisector target = withConnections(to);
      target = source;
      EXPECT_EQ(connectionsOf(target), hundreds(from));
      target.addBaseConnection(100 + from);
      EXPECT_EQ(connectionsOf(target), hundreds(from + 1));
      EXPECT_EQ(connectionsOf(source), hundreds(from));
    }
  }
}

TEST(BisectorCopy, TakesEveryField) {
  const zr2DBisector original = distinctBisector();
  const zr2DBisector copy(original);
  expectDistinctFields(copy);
  EXPECT_EQ(connectionsOf(copy), hundreds(3));
  zr2DBisector assigned;
  EXPECT_EQ(&(assigned = original), &assigned);
  expectDistinctFields(assigned);
  EXPECT_EQ(connectionsOf(assigned), hundreds(3));
}

TEST(BisectorCopy, OntoItselfChangesNothing) {
  zr2DBisector b = distinctBisector();
  const zr2DBisector& alias = b;
  b = alias;
  expectDistinctFields(b);
  EXPECT_EQ(connectionsOf(b), hundreds(3));
}

TEST(BisectorCopy, MovesKeepTheValues) {
  zr2DBisector original = distinctBisector();
  zr2DBisector moved(std::move(original));
  expectDistinctFields(moved);
  EXPECT_EQ(connectionsOf(moved), hundreds(3));
  zr2DBisector assigned = withConnections(4);
  assigned = std::move(moved);
  expectDistinctFields(assigned);
  EXPECT_EQ(connectionsOf(assigned), hundreds(3));
}

TEST(BisectorCopy, SurvivesAGrowingChain) {
  std::vector<zr2DBisector> chain;
  for (int i = 0; i < 100; ++i) chain.push_back(withConnections(i % 5));
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(connectionsOf(chain[static_cast<std::size_t>(i)]), hundreds(i % 5));
  }
}
