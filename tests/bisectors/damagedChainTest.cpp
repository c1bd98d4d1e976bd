#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "bisectors/support/builtSet.h"
#include "bisectors/support/templateGenerators.h"
#include "support/geometryText.h"

// Chains with links that lead nowhere: no walk may read outside its lists or go on for ever. Sizes
// are looked at, not places: a path on such a chain means nothing.

namespace {

using templates::Numbers;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The walks at a height stop at 5000 vertices, the angular one after 5000 steps to spare.
constexpr std::size_t mostVertices = 5200;
constexpr std::size_t mostSlipsPerVertex = 30;

int drawLink(Numbers& numbers, int size) {
  switch (numbers.below(8)) {
    case 0:
      return -1;
    case 1:
      return -2;
    case 2:
      return std::numeric_limits<int>::min();
    case 3:
      return std::numeric_limits<int>::max();
    case 4:
      return size + numbers.below(4);
    default:
      return numbers.below(size + 1);
  }
}

void damage(std::vector<zr2DBisector>& chain, Numbers& numbers) {
  const int size = static_cast<int>(chain.size());
  for (zr2DBisector& b : chain) {
    if (numbers.below(3) == 0) b.setTopConnect(drawLink(numbers, size));
    if (numbers.below(3) == 0) b.setLeftDomain(drawLink(numbers, size));
    if (numbers.below(3) == 0) b.setRightDomain(drawLink(numbers, size));
    if (numbers.below(8) == 0) b.setType(static_cast<short>(numbers.below(3) * 5 / 2));
    if (numbers.below(12) == 0) b.setNormal(gdfVertex(notANumber, 0.0, 0.0));
    if (numbers.below(12) == 0) b.setTop(gdfVertex(notANumber, notANumber, 0.0));
    if (numbers.below(12) == 0) b.setBase(gdfVertex(0.0, std::numeric_limits<double>::infinity()));
  }
}

gdfVertex drawPlace(Numbers& numbers) {
  return {numbers.between(-256, 256) / 8.0, numbers.between(-256, 256) / 8.0,
          numbers.below(4) == 0 ? 1.0 : 0.0};
}

/// Calls every operation on a set; gives the size of the longest path.
std::size_t callAll(zr2DBisectorSet& set, const gdfVertex& p, double height, double angle,
                    bool flips) {
  std::size_t longest = 0;
  const auto look = [&longest](const zrFlowPath& path) {
    longest = std::max(longest, path.getFlowLine().size());
    // A step of the walk with slips that finds no number adds a slip and no vertex.
    longest = std::max(longest, path.getSlipValues().size() / mostSlipsPerVertex);
    path.getVertex(0.5);
    path.getVertex(-1e+9, 0.1);
  };
  zrFlowPath point, own, along, straight, angular;
  set.generateFlowPath(p, point, flips, height);
  set.generateFlowPath(p, own, flips, unsetMark);
  set.generateFlowPathAlongInputLine(p, along);
  set.generateFlowPathLessThan3Vertices(zre::sideRight, p, straight);
  set.generateAngularFlowPath(p, angular, 100.0, flips, angle);
  for (const zrFlowPath& path : {point, own, along, straight, angular}) look(path);
  for (int mode : {0, 1}) {
    zrFlowPath atHeight;
    set.setFlowPathMode(mode);
    set.generateFlowPath(height, atHeight);
    look(atHeight);
  }
  for (int index : {-1, 0, 1, 1000000, -1000000}) {
    for (zre::side side : {zre::sideOn, zre::sideLeft, zre::sideRight, zre::sideNone}) {
      gdfVertex out;
      double distance = 0.0;
      int outIndex = 0;
      set.getVertexAtHeightOnBisectorChain(side, set.getRightBisectors(), height, index, out);
      set.projectToBisectorChain(side, p, vertex("1 0"), index, out, distance, outIndex, 9.0,
                                 angle);
      set.getRootBisectorHeight(p, index);
    }
  }
  double length = 0.0;
  int domain = 0;
  set.calculateHeightAndLengthOnBaseLine(p, height, length, domain);
  set.calculateH(p);
  return longest;
}

std::size_t callAll(zr2DBisectorSet& set, Numbers& numbers) {
  const double heights[] = {0.0, 1.0, -1.0, 1e+30, numbers.between(-64, 64) / 8.0};
  return callAll(set, drawPlace(numbers), heights[numbers.below(5)], numbers.between(-8, 8) * 22.5,
                 numbers.below(2) == 0);
}

VertexLine drawTemplate(Numbers& numbers) {
  VertexLine line = templates::anyShape(numbers, numbers.between(2, 12));
  for (gdfVertex& v : line) v *= 2.0;
  return line;
}

}  // namespace

RC_GTEST_PROP(DamagedChain, EndsEveryWalk, ()) {
  testing::internal::CaptureStderr();
  std::size_t longest = 0;
  for (std::uint32_t seed : *templates::seeds(8)) {
    Numbers numbers(seed);
    zr2DBisectorSet set;
    set.generateBisectors(drawTemplate(numbers), vertex("-40 -40"), vertex("40 40"));
    if (numbers.below(2) == 0) set.expandBisectors();
    damage(set.getLeftBisectors(), numbers);
    damage(set.getRightBisectors(), numbers);
    for (int i = 0; i < 4; ++i) longest = std::max(longest, callAll(set, numbers));
  }
  testing::internal::GetCapturedStderr();
  RC_ASSERT(longest <= mostVertices);
}

// One side is built anew for a shorter template; the other keeps the chain of the longer one.
RC_GTEST_PROP(DamagedChain, OfALongerTemplateIsRead, ()) {
  testing::internal::CaptureStderr();
  std::size_t longest = 0;
  for (std::uint32_t seed : *templates::seeds(8)) {
    Numbers numbers(seed);
    zr2DBisectorSet set;
    set.generateBisectors(templates::zigzag(numbers, 30), vertex("-80 -80"), vertex("80 80"));
    set.expandBisectors();
    const zre::side side = numbers.below(2) == 0 ? zre::sideLeft : zre::sideRight;
    set.generateBisectors(drawTemplate(numbers), side, 100.0);
    for (int i = 0; i < 4; ++i) longest = std::max(longest, callAll(set, numbers));
  }
  testing::internal::GetCapturedStderr();
  RC_ASSERT(longest <= mostVertices);
}

TEST(DamagedChain, OfTheOtherSidesTemplateIsReadAfterTheOneSideForm) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0, 30 0, 40 0, 50 0");
  EXPECT_TRUE(set.generateBisectors(line("0 0, 10 0, 20 0"), zre::sideLeft, 100.0));
  zrFlowPath path;
  EXPECT_TRUE(set.generateFlowPath(vertex("45 -3"), path, false, unsetMark));
  EXPECT_TRUE(path.valid());
  EXPECT_EQ(path.getH(), -3.0);
}

TEST(DamagedChain, OfANegativeDomainGivesAPath) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0, 30 0");
  for (zr2DBisector& b : set.getLeftBisectors()) b.setLeftDomain(-7);
  for (zr2DBisector& b : set.getLeftBisectors()) b.setRightDomain(-7);
  zrFlowPath path;
  EXPECT_TRUE(set.generateFlowPath(vertex("15 3"), path, false, unsetMark));
  EXPECT_TRUE(path.valid());
  zrFlowPath angular;
  EXPECT_TRUE(set.generateAngularFlowPath(vertex("15 3"), angular, 50.0, false, 0.0));
}

TEST(DamagedChain, OfLinksInACircleEndsTheClimb) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0, 30 0");
  for (zr2DBisector& b : set.getLeftBisectors()) b.setTop(b.getBase());
  set.getLeftBisectors()[0].setTopConnect(1);
  set.getLeftBisectors()[1].setTopConnect(0);
  gdfVertex place = vertex("1 2 3");
  EXPECT_EQ(
      set.getVertexAtHeightOnBisectorChain(zre::sideLeft, set.getLeftBisectors(), 3.0, 0, place),
      -1);
  EXPECT_THAT(place, VertexIs("1 2 3"));
  zrFlowPath path;
  EXPECT_TRUE(set.generateFlowPath(vertex("25 3"), path, false, unsetMark));
  EXPECT_THAT(path.getFlowLine(), LineIs("15 3, 25 3, 35 3"));
  set.setFlowPathMode(1);
  EXPECT_FALSE(set.generateFlowPath(3.0, path));
}

TEST(DamagedChain, OfDomainsInACircleEndsTheWalk) {
  zr2DBisectorSet set = builtSet("0 0, 10 0, 20 0, 30 0, 40 0");
  for (zr2DBisector& b : set.getLeftBisectors()) b.setRightDomain(b.getLeftDomain());
  zrFlowPath path;
  EXPECT_TRUE(set.generateFlowPath(vertex("5 3"), path, false, unsetMark));
  EXPECT_TRUE(path.valid());
  EXPECT_LE(path.getFlowLine().size(), mostVertices);
  zrFlowPath angular;
  EXPECT_TRUE(set.generateAngularFlowPath(vertex("12 3"), angular, 50.0, false, 0.0));
  EXPECT_LE(angular.getFlowLine().size(), mostVertices);
}
