#include <zrBase/clustering/KMdata.h>

#include <zrBase/clustering/KCtree.h>
#include <zrBase/clustering/kmPoints.h>

#include <gtest/gtest.h>

#include "clustering/naiveClustering.h"

#include <cstdlib>
#include <type_traits>
#include <vector>

namespace {

using naive::Point;
using naive::Points;

const Points threePoints = {{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}, {7.0, 8.0, 9.0}};

TEST(KMdata, StartsFullAndWithoutATree) {
  KMdata data(3, 5);
  EXPECT_EQ(data.getDim(), 3);
  EXPECT_EQ(data.getNPts(), 5);
  EXPECT_EQ(data.getKcTree(), nullptr);
  EXPECT_EQ(data.getPts()[4], data.getPts()[0] + 12);
  EXPECT_TRUE(std::is_polymorphic<KMdata>::value);
  EXPECT_TRUE(std::has_virtual_destructor<KMdata>::value);
}

TEST(KMdata, GivesItsRows) {
  KMdata data(3, 3);
  fill(data, threePoints);
  const KMdata& readOnly = data;
  EXPECT_EQ(data[1], data.getPts()[1]);
  EXPECT_EQ(readOnly[1][2], 6.0);
  data[1][2] = 60.0;
  EXPECT_EQ(readOnly[1][2], 60.0);
}

TEST(KMdata, BuildsItsTreeAnew) {
  Data data(threePoints);
  int n = 0;
  EXPECT_EQ(NodePeek::nDataOf(*data.getKcTree()->getRoot()), 3);
  data.setNPts(2);
  data.buildKcTree();
  n = NodePeek::nDataOf(*data.getKcTree()->getRoot());
  EXPECT_EQ(n, 2);
}

TEST(KMdata, KeptSetNPtsLeavesTreeAndPoints) {
  Data data(threePoints);
  KCtree* const tree = data.getKcTree();
  double** const pts = data.getPts();
  data.setNPts(1);
  EXPECT_EQ(data.getNPts(), 1);
  EXPECT_EQ(data.getKcTree(), tree);
  EXPECT_EQ(data.getPts(), pts);
  EXPECT_EQ(data[2][0], 7.0);
  EXPECT_EQ(NodePeek::nDataOf(*tree->getRoot()), 3);
}

TEST(KMdataResize, KeptResizeToTheSameSizeDropsTheTree) {
  Data data(threePoints);
  double** const pts = data.getPts();
  data.resize(3, 3);
  EXPECT_EQ(data.getKcTree(), nullptr);
  EXPECT_EQ(data.getPts(), pts);
  EXPECT_EQ(data[2][2], 9.0);
}

TEST(KMdataResize, KeptResizeLeavesTheCapacityFigure) {
  Data data(threePoints);
  data.resize(2, 10);
  EXPECT_EQ(data.capacity(), 3);
  EXPECT_EQ(data.getDim(), 2);
  EXPECT_EQ(data.getNPts(), 10);
  EXPECT_EQ(data.getKcTree(), nullptr);
  EXPECT_EQ(data[9], data[0] + 18);
}

TEST(KMdataResize, ComparesWithThePointsInUse) {
  Data data(threePoints);
  data.setNPts(2);
  data.resize(3, 2);
  EXPECT_EQ(data[2][2], 9.0) << "nothing was allocated anew";
  data.resize(3, 3);
  EXPECT_EQ(data.getNPts(), 3);
}

TEST(KMdataResize, TakesASetWithoutPoints) {
  KMdata data(2, 0);
  EXPECT_EQ(data.getNPts(), 0);
  data.resize(3, 2);
  data.resize(3, 0);
  data.buildKcTree();
  EXPECT_EQ(NodePeek::nDataOf(*data.getKcTree()->getRoot()), 0);
}

TEST(KMdata, PrintsAllCoordinates) {
  KMdata data(3, 3);
  fill(data, threePoints);
  data.setNPts(2);
  const Caught caught;
  data.print(true);
  data.print(false);
  EXPECT_EQ(caught.output.str(),
            "  (Data_Points:\n"
            "    0\t[        1        2        3 ]\n"
            "    1\t[        4        5        6 ]\n"
            "  )\n"
            "  (Data_Points:\n"
            "    0\t       1        2        3\n"
            "    1\t       4        5        6\n"
            "  )\n");
}

// Samples.

/// n points on a line, each with its index as coordinate.
Points numbered(int n) {
  Points points;
  for (int i = 0; i < n; ++i) points.push_back({static_cast<double>(i)});
  return points;
}

bool centerIsThePointOfOneDraw() {
  std::vector<double> reference;
  {
    ReferenceGenerator generator;
    for (int i = 0; i < 50; ++i) reference.push_back(generator.drawInt(10));
  }
  Data data(numbered(10));
  bool same = true;
  for (int i = 0; i < 50; ++i) {
    double sample = -1.0;
    data.sampleCtr(&sample);
    same = same && sample == reference[i];
  }
  return same;
}

TEST(KMdataSampleDeathTest, CenterIsThePointOfOneDraw) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(endWith(centerIsThePointOfOneDraw()), testing::ExitedWithCode(0), "");
}

TEST(KMdataSample, WithoutDuplicatesEveryPointComesOnce) {
  Data data(numbered(12));
  double** sample = kmAllocPts(12, 1);
  for (int times = 0; times < 20; ++times) {
    data.sampleCtrs(sample, 12, false);
    std::vector<int> seen(12, 0);
    for (int i = 0; i < 12; ++i) ++seen[static_cast<std::size_t>(sample[i][0])];
    ASSERT_EQ(seen, std::vector<int>(12, 1));
  }
  kmDeallocPts(sample);
}

TEST(KMdataSample, WithDuplicatesEachIsOneDraw) {
  Data data(numbered(2));
  double** sample = kmAllocPts(200, 1);
  data.sampleCtrs(sample, 200, true);
  int ones = 0;
  for (int i = 0; i < 200; ++i) ones += sample[i][0] == 1.0 ? 1 : 0;
  EXPECT_GT(ones, 50);
  EXPECT_LT(ones, 150);
  kmDeallocPts(sample);
}

TEST(KMdataSample, KeptSampledPointsMayCoincide) {
  // Two points at one place, and two centers wanted: both indices are drawn, both centers agree.
  Data data(Points(2, {5.0}));
  double** sample = kmAllocPts(2, 1);
  data.sampleCtrs(sample, 2, false);
  EXPECT_EQ(sample[0][0], 5.0);
  EXPECT_EQ(sample[1][0], 5.0);
  kmDeallocPts(sample);
}

TEST(KMdataSample, OfNoneDrawsNothing) {
  Data data(numbered(3));
  data.sampleCtrs(nullptr, 0, false);
  EXPECT_EQ(data.getNPts(), 3);
}

TEST(KMdata, SamplingCanBeReplaced) {
  struct Chosen : KMdata {
    using KMdata::KMdata;
    void sampleCtr(double* sample) override { sample[0] = 42.0; }
  };
  Chosen chosen(1, 1);
  KMdata& data = chosen;
  double sample = 0.0;
  data.sampleCtr(&sample);
  EXPECT_EQ(sample, 42.0);
}

}  // namespace
