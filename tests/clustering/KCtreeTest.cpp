#include <zrBase/clustering/KCtree.h>

#include <zrBase/clustering/KMfilterCenters.h>

#include <gtest/gtest.h>

#include "clustering/naiveClustering.h"

#include <cmath>
#include <iostream>
#include <type_traits>
#include <vector>

namespace {

using naive::Point;
using naive::Points;

KCnode& rootOf(const KMdata& data) { return *data.getKcTree()->getRoot(); }
KCsplit& asSplit(KCnode& node) { return dynamic_cast<KCsplit&>(node); }
bool isLeaf(KCnode& node) { return dynamic_cast<KCleaf*>(&node) != nullptr; }

/// Points of one coordinate each.
Points onALine(const std::vector<double>& coordinates) {
  Points points;
  for (double x : coordinates) points.push_back({x});
  return points;
}

/// Indices of all points, in the order of the leaves.
void collectIndices(KCnode& node, std::vector<int>& indices) {
  if (isLeaf(node)) {
    const int* const bucket = LeafPeek::bucketOf(dynamic_cast<KCleaf&>(node));
    indices.insert(indices.end(), bucket, bucket + NodePeek::nDataOf(node));
    return;
  }
  collectIndices(*SplitPeek::lowOf(asSplit(node)), indices);
  collectIndices(*SplitPeek::highOf(asSplit(node)), indices);
}

int depthOf(KCnode& node) {
  if (isLeaf(node)) return 0;
  return 1 + std::max(depthOf(*SplitPeek::lowOf(asSplit(node))),
                      depthOf(*SplitPeek::highOf(asSplit(node))));
}

TEST(KCtreeDeathTest, MissingPointsEndTheProcess) {
  EXPECT_EXIT(
      {
        kmOut = &std::cerr;
        const KCtree tree(nullptr, 3, 2, 0, nullptr, nullptr);
      },
      testing::ExitedWithCode(1), "ERROR------->Points must be supplied to construct tree.<");
}

TEST(KCtree, OnePointMakesALeaf) {
  const Data data({{3.0, -4.0}});
  KCnode& root = rootOf(data);
  ASSERT_TRUE(isLeaf(root));
  EXPECT_EQ(NodePeek::nDataOf(root), 1);
  EXPECT_EQ(NodePeek::sumOf(root)[1], -4.0);
  EXPECT_EQ(NodePeek::sumSqOf(root), 25.0);
  EXPECT_EQ(NodePeek::bndLoOf(root)[0], 3.0);
  EXPECT_EQ(NodePeek::bndHiOf(root)[0], 3.0);
}

TEST(KCtree, NoPointsMakeAnEmptyLeaf) {
  KMdata data(2, 0);
  data.buildKcTree();
  KCnode& root = rootOf(data);
  ASSERT_TRUE(isLeaf(root));
  EXPECT_EQ(NodePeek::nDataOf(root), 0);
  EXPECT_EQ(NodePeek::sumSqOf(root), 0.0);
  Filter centers(3, data, 1.0);
  EXPECT_EQ(centers.getDist(true), 0.0);
  EXPECT_EQ(centers.getWeights(true)[0], 0);
  double untouched[] = {1.0, 2.0};
  double* box[] = {NodePeek::bndLoOf(root), NodePeek::bndHiOf(root)};
  root.sampleInNode(untouched, box);
  EXPECT_EQ(untouched[1], 2.0);
}

TEST(KCtree, EqualPointsAreDividedEvenly) {
  const Data data(Points(8, {5.0, 6.0}));
  KCsplit& root = asSplit(rootOf(data));
  EXPECT_EQ(SplitPeek::cutValOf(root), 5.0);
  EXPECT_EQ(NodePeek::nDataOf(*SplitPeek::lowOf(root)), 4);
  EXPECT_EQ(depthOf(root), 3);
  // An odd number: the low side gets n / 2, 3 of 7; then 1 of 3 and 2 of 4.
  const Data odd(Points(7, {5.0}));
  EXPECT_EQ(NodePeek::nDataOf(*SplitPeek::lowOf(asSplit(rootOf(odd)))), 3);
  EXPECT_EQ(depthOf(rootOf(odd)), 3);
}

TEST(KCtree, CutsTheMiddleOfTheLongestSide) {
  // The box is [2, 9] x [0, 4]. The cut at 5.5 leaves (2, 0), (4, 4) and (3, 1) low.
  const Data data({{2.0, 0.0}, {9.0, 1.0}, {4.0, 4.0}, {8.0, 2.0}, {3.0, 1.0}});
  KCsplit& root = asSplit(rootOf(data));
  EXPECT_EQ(SplitPeek::cutDimOf(root), 0);
  EXPECT_EQ(SplitPeek::cutValOf(root), 5.5);
  EXPECT_EQ(SplitPeek::cutLoOf(root), 2.0);
  EXPECT_EQ(SplitPeek::cutHiOf(root), 9.0);
  EXPECT_EQ(NodePeek::sumOf(root)[0], 26.0);
  EXPECT_EQ(NodePeek::sumOf(root)[1], 8.0);
  EXPECT_EQ(NodePeek::sumSqOf(root), 4.0 + 82.0 + 32.0 + 68.0 + 10.0);
  // Low cell [2, 5.5] x [0, 4]: the longest side is y now, cut at 2.
  KCsplit& low = asSplit(*SplitPeek::lowOf(root));
  EXPECT_EQ(NodePeek::nDataOf(low), 3);
  EXPECT_EQ(NodePeek::bndHiOf(low)[0], 5.5);
  EXPECT_EQ(SplitPeek::cutDimOf(low), 1);
  EXPECT_EQ(SplitPeek::cutValOf(low), 2.0);
  EXPECT_EQ(NodePeek::nDataOf(*SplitPeek::lowOf(low)), 2);
  // High cell [5.5, 9] x [0, 4]: y again, cut at 2. (8, 2) lies at the cut, so it is not below it.
  KCsplit& high = asSplit(*SplitPeek::highOf(root));
  EXPECT_EQ(SplitPeek::cutValOf(high), 2.0);
  std::vector<int> indices;
  collectIndices(high, indices);
  EXPECT_EQ(indices, (std::vector<int>{1, 3}));
}

TEST(KCtree, AmongLongestSidesTheWidestSpreadIsCut) {
  // Both sides of the box are 8 long, and the points reach over both: the lower dimension wins.
  const Data tie({{0.0, 0.0}, {8.0, 8.0}});
  EXPECT_EQ(SplitPeek::cutDimOf(asSplit(rootOf(tie))), 0);
  // In a given box of 10 x 9.995 both count as longest; 10 x 9.98 is too unlike.
  Points points = {{4.0, 1.0}, {5.0, 9.0}};
  const Data data(points);
  double lo[] = {0.0, 0.0};
  double hi[] = {10.0, 9.995};
  const KCtree alike(data.getPts(), 2, 2, 0, lo, hi);
  EXPECT_EQ(SplitPeek::cutDimOf(asSplit(*alike.getRoot())), 1);
  hi[1] = 9.98;
  const KCtree unlike(data.getPts(), 2, 2, 0, lo, hi);
  EXPECT_EQ(SplitPeek::cutDimOf(asSplit(*unlike.getRoot())), 0);
}

TEST(KCtree, CutSlidesDownToTheNearestPoint) {
  // The middle, 50, lies above all points: the cut is at 3, and that point is split off.
  const Data data(onALine({1.0, 3.0, 2.0}));
  double lo[] = {0.0};
  double hi[] = {100.0};
  const KCtree tree(data.getPts(), 3, 1, 0, lo, hi);
  KCsplit& root = asSplit(*tree.getRoot());
  EXPECT_EQ(SplitPeek::cutValOf(root), 3.0);
  EXPECT_EQ(SplitPeek::cutHiOf(root), 100.0);
  ASSERT_TRUE(isLeaf(*SplitPeek::highOf(root)));
  EXPECT_EQ(NodePeek::sumOf(*SplitPeek::highOf(root))[0], 3.0);
  EXPECT_EQ(NodePeek::bndLoOf(*SplitPeek::highOf(root))[0], 3.0);
  EXPECT_EQ(NodePeek::nDataOf(*SplitPeek::lowOf(root)), 2);
}

TEST(KCtree, CutSlidesUpToTheNearestPoint) {
  const Data data(onALine({2.0, 3.0, 1.0}));
  double lo[] = {-100.0};
  double hi[] = {4.0};
  const KCtree tree(data.getPts(), 3, 1, 0, lo, hi);
  KCsplit& root = asSplit(*tree.getRoot());
  EXPECT_EQ(SplitPeek::cutValOf(root), 1.0);
  ASSERT_TRUE(isLeaf(*SplitPeek::lowOf(root)));
  EXPECT_EQ(NodePeek::sumOf(*SplitPeek::lowOf(root))[0], 1.0);
  EXPECT_EQ(NodePeek::bndHiOf(*SplitPeek::lowOf(root))[0], 1.0);
}

TEST(KCtree, CutThatSlidSplitsOffOneOfCoincidentPoints) {
  // The cut slides to 3, where one point lies below and three not above: n - 1 are low all the
  // same, where an even division gives 1. The sweep exchanges the first point and the last.
  const Data data(onALine({3.0, 3.0, 1.0}));
  double lo[] = {0.0};
  double hi[] = {100.0};
  const KCtree down(data.getPts(), 3, 1, 0, lo, hi);
  EXPECT_EQ(SplitPeek::cutValOf(asSplit(*down.getRoot())), 3.0);
  EXPECT_EQ(NodePeek::nDataOf(*SplitPeek::lowOf(asSplit(*down.getRoot()))), 2);
  std::vector<int> indices;
  collectIndices(*down.getRoot(), indices);
  EXPECT_EQ(indices, (std::vector<int>{2, 1, 0}));
  // Up to 1, where none lies below and three not above: 1 is low, where an even division gives 2.
  const Data other(onALine({3.0, 1.0, 1.0, 1.0}));
  lo[0] = -100.0;
  hi[0] = 4.0;
  const KCtree up(other.getPts(), 4, 1, 0, lo, hi);
  EXPECT_EQ(SplitPeek::cutValOf(asSplit(*up.getRoot())), 1.0);
  EXPECT_EQ(NodePeek::nDataOf(*SplitPeek::lowOf(asSplit(*up.getRoot()))), 1);
  indices.clear();
  collectIndices(*up.getRoot(), indices);
  EXPECT_EQ(indices, (std::vector<int>{3, 1, 2, 0}));
}

TEST(KCtree, TakesEachGivenSideOfTheBox) {
  const Data data(onALine({1.0, 3.0}));
  double lo[] = {-7.0};
  double hi[] = {7.0};
  const KCtree low(data.getPts(), 2, 1, 0, lo, nullptr);
  const KCtree high(data.getPts(), 2, 1, 10, nullptr, hi);
  lo[0] = hi[0] = 0.0;
  EXPECT_EQ(NodePeek::bndLoOf(*low.getRoot())[0], -7.0);
  EXPECT_EQ(NodePeek::bndHiOf(*low.getRoot())[0], 3.0);
  EXPECT_EQ(NodePeek::bndLoOf(*high.getRoot())[0], 1.0);
  EXPECT_EQ(NodePeek::bndHiOf(*high.getRoot())[0], 7.0);
}

TEST(KCtree, HoldsMorePointsThanItNeedsTo) {
  struct Open : KCtree {
    using KCtree::KCtree;
    int capacity() const { return maxPts; }
    int first() const { return pidx[0]; }
  };
  const Data data(onALine({1.0, 3.0}));
  const Open roomy(data.getPts(), 2, 1, 10, nullptr, nullptr);
  const Open tight(data.getPts(), 2, 1, 1, nullptr, nullptr);
  EXPECT_EQ(roomy.capacity(), 10);
  EXPECT_EQ(tight.capacity(), 2);
  EXPECT_EQ(tight.first(), 0);
}

TEST(KCtree, StandsOnPointsOfManyScales) {
  std::vector<double> coordinates;
  for (int i = 0; i < 1000; ++i) coordinates.push_back(std::ldexp(1.0, -i));
  const Data data(onALine(coordinates));
  EXPECT_GT(depthOf(rootOf(data)), 900);
  std::vector<int> indices;
  collectIndices(rootOf(data), indices);
  ASSERT_EQ(indices.size(), 1000u);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(indices[static_cast<std::size_t>(i)], 999 - i);
}

TEST(KCnode, IsAnAbstractBase) {
  EXPECT_TRUE(std::is_abstract<KCnode>::value);
  EXPECT_TRUE(std::has_virtual_destructor<KCnode>::value);
  EXPECT_FALSE(std::is_polymorphic<KCtree>::value);
}

TEST(KCnode, KeptSecondCollectStatsAddsSumsAgain) {
  const Data data(onALine({1.0, 3.0}));
  int n = 0;
  double* sum = nullptr;
  double sumSq = 0.0;
  rootOf(data).collectStats(n, sum, sumSq);
  // The leaves tell 1 + 1 and 3 + 3 now, and squares of 1 and 9; the root had 4 and 10.
  EXPECT_EQ(n, 2);
  EXPECT_EQ(sum, NodePeek::sumOf(rootOf(data)));
  EXPECT_EQ(sum[0], 4.0 + 2.0 + 6.0);
  EXPECT_EQ(sumSq, 10.0 + 1.0 + 9.0);
  SplitPeek::lowOf(asSplit(rootOf(data)))->collectStats(n, sum, sumSq);
  EXPECT_EQ(n, 1);
  EXPECT_EQ(sum[0], 3.0);
  EXPECT_EQ(sumSq, 1.0);
}

TEST(KCnode, StandsAloneWhenMadeByHand) {
  const Data data(onALine({1.0, 3.0}));
  int indices[] = {0, 1};
  const double lo[] = {0.0};
  const double middle[] = {2.0};
  const double hi[] = {4.0};
  KCsplit split(1, lo, hi, 0, 2.0, 0.0, 4.0, new KCleaf(1, lo, middle, 1, indices),
                new KCleaf(1, middle, hi, 1, indices + 1));
  int n = 0;
  double* sum = nullptr;
  double sumSq = 0.0;
  split.collectStats(n, sum, sumSq);
  EXPECT_EQ(n, 2);
  EXPECT_EQ(sum[0], 4.0);
  EXPECT_EQ(sumSq, 10.0);
  EXPECT_EQ(NodePeek::bndHiOf(*SplitPeek::lowOf(split))[0], 2.0);
}

TEST(KCnode, KeptLeafAddsItsWholeSumOfSquaresForEachPoint) {
  Data data(onALine({1.0, 4.0}));
  Filter centers(2, data, 1.0);
  place(centers, {{1.0}, {2.6}});
  centers.getAssignments(nullptr, nullptr);  // begins a pass, with all statistics 0
  int indices[] = {0, 1};
  const double lo[] = {0.0};
  const double hi[] = {5.0};
  KCleaf leaf(1, lo, hi, 2, indices);
  int n = 0;
  double* sum = nullptr;
  double sumSq = 0.0;
  leaf.collectStats(n, sum, sumSq);
  EXPECT_EQ(n, 2);
  EXPECT_EQ(sum[0], 5.0);
  EXPECT_EQ(sumSq, 17.0);
  int candidates[] = {0, 1};
  leaf.filterCandidates(candidates, 2);
  for (int j = 0; j < 2; ++j) {
    EXPECT_EQ(centers.getWeights(false)[j], 1);
    EXPECT_EQ(centers.getSums(false)[j][0], data[j][0]);
    EXPECT_EQ(centers.getSumSqs(false)[j], 17.0) << "not the 1 or 16 of its point";
  }
}

// Printing.

TEST(KCnodePrint, WritesTheHighSideFirst) {
  const Data data({{0.0, 0.5}, {4.0, 1.0}});
  const Caught caught;
  rootOf(data).printNode(0);
  EXPECT_EQ(caught.output.str(),
            "    .Leaf n=1 <1> sm=[        4        1 ] ss=17\n"
            "    Split cd=0 cv=     2 nd=2 sm=[        4      1.5 ] ss=17.25\n"
            "    .Leaf n=1 <0> sm=[        0      0.5 ] ss=0.25\n");
}

TEST(KCnodePrint, StartsAtTheLevelGiven) {
  const Data data(onALine({1.0}));
  const Caught caught;
  rootOf(data).printNode(3);
  EXPECT_EQ(caught.output.str(), "    ...Leaf n=1 <0> sm=[        1 ] ss=1\n");
}

TEST(KCnodePrint, WritesAnEmptyLeaf) {
  KMdata data(1, 0);
  data.buildKcTree();
  const Caught caught;
  rootOf(data).printNode(0);
  EXPECT_EQ(caught.output.str(), "    Leaf n=0 <> sm=[        0 ] ss=0\n");
}

TEST(KCnodePrint, KeptPrintNodeLeavesPrecisionOfFour) {
  const Data data(onALine({1.23456789, 3.45678912}));
  Caught caught;
  rootOf(data).printNode(0);
  // The leaf before the first split still has six digits.
  EXPECT_EQ(caught.output.str(),
            "    .Leaf n=1 <1> sm=[  3.45679 ] ss=11.9494\n"
            "    Split cd=0 cv= 2.346 nd=2 sm=[    4.691 ] ss=13.47\n"
            "    .Leaf n=1 <0> sm=[    1.235 ] ss=1.524\n");
  EXPECT_EQ(caught.output.precision(), 4);
}

// Samples.

TEST(KCnodeSample, OfALeafIsItsPoint) {
  const Data data({{3.0, 4.0}});
  double sample[2] = {};
  double lo[] = {0.0, 0.0};
  double hi[] = {10.0, 10.0};
  double* box[] = {lo, hi};
  rootOf(data).sampleInNode(sample, box);
  EXPECT_EQ(sample[0], 3.0);
  EXPECT_EQ(sample[1], 4.0);
}

/// The walk of a sample in the tree of the points 0 and 4, 2 and 8, in the box [0, 8] of one
/// dimension.
double expectedSample(ReferenceGenerator& generator) {
  const auto inBox = [&](double lo, double hi) {
    return generator.draw() * ((hi + (hi - lo)) - (lo - (hi - lo))) + (lo - (hi - lo));
  };
  // The root holds 0, 2 | 4, 8, cut at 4; its low child is cut at 2, its high one at 6.
  const int drawn = generator.drawInt(7);
  if (drawn == 0) return inBox(0.0, 8.0);
  const bool isLow = drawn <= 3;
  const int next = generator.drawInt(3);
  if (next == 0) return isLow ? inBox(0.0, 4.0) : inBox(4.0, 8.0);
  generator.drawInt(1);
  return isLow ? (next <= 1 ? 0.0 : 2.0) : (next <= 1 ? 4.0 : 8.0);
}

bool walksByNumberOfPoints() {
  const Data data(onALine({0.0, 4.0, 2.0, 8.0}));
  double lo = 0.0;
  double hi = 8.0;
  double* box[] = {&lo, &hi};
  std::vector<double> samples(3000);
  bool isRestored = true;
  for (double& sample : samples) {
    rootOf(data).sampleInNode(&sample, box);
    isRestored = isRestored && lo == 0.0 && hi == 8.0;
  }
  ReferenceGenerator generator;
  bool same = true;
  for (double sample : samples) same = same && sample == expectedSample(generator);
  return same && isRestored;
}

TEST(KCnodeSampleDeathTest, WalksByNumberOfPoints) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(endWith(walksByNumberOfPoints()), testing::ExitedWithCode(0), "");
}

}  // namespace
