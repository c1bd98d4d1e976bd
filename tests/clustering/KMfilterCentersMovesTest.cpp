#include <zrBase/clustering/KMfilterCenters.h>

#include <zrBase/clustering/KCtree.h>

#include <gtest/gtest.h>

#include "clustering/naiveClustering.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

using naive::Point;
using naive::Points;

const Points fourOnALine = {{0.0}, {1.0}, {10.0}, {13.0}};

// Random moves.

TEST(KMfilterCenters, RandomCentersArePointsDrawnOnce) {
  Data data(fourOnALine);
  Filter centers(4, data, 1.0);
  centers.getDist(true);
  centers.genRandom();
  EXPECT_FALSE(centers.isValid());
  double total = 0.0;
  for (int j = 0; j < 4; ++j) total += centers[j][0];
  EXPECT_EQ(total, 24.0);
}

bool swapDrawsTheCenterBeforeThePoint() {
  Data data(fourOnALine);
  Filter centers(3, data, 1.0);
  place(centers, {{-1.0}, {-2.0}, {-3.0}});
  std::vector<Point> seen;
  for (int i = 0; i < 50; ++i) {
    centers.swap1Stage();
    seen.push_back({centers[0][0], centers[1][0], centers[2][0]});
  }
  ReferenceGenerator generator;
  Point expected = {-1.0, -2.0, -3.0};
  bool same = true;
  for (const Point& after : seen) {
    const int replaced = generator.drawInt(3);
    expected[replaced] = fourOnALine[generator.drawInt(4)][0];
    same = same && after == expected;
  }
  return same;
}

TEST(KMfilterCentersDeathTest, SwapDrawsTheCenterBeforeThePoint) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(endWith(swapDrawsTheCenterBeforeThePoint()), testing::ExitedWithCode(0), "");
}

bool swapWithoutDuplicatesDrawsUntilThePointIsNew() {
  Data data(fourOnALine);
  Filter centers(3, data, 1.0);
  place(centers, {{0.0}, {1.0}, {10.0}});
  std::vector<Point> seen;
  for (int i = 0; i < 50; ++i) {
    centers.swapOneCenter(false);
    seen.push_back({centers[0][0], centers[1][0], centers[2][0]});
  }
  ReferenceGenerator generator;
  Point expected = {0.0, 1.0, 10.0};
  bool same = true;
  for (const Point& after : seen) {
    const int replaced = generator.drawInt(3);
    double point = 0.0;
    do {
      point = fourOnALine[generator.drawInt(4)][0];
    } while (point == expected[0] || point == expected[1] || point == expected[2]);
    expected[replaced] = point;
    same = same && after == expected;
  }
  return same;
}

TEST(KMfilterCentersDeathTest, SwapWithoutDuplicatesDrawsUntilThePointIsNew) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(endWith(swapWithoutDuplicatesDrawsUntilThePointIsNew()), testing::ExitedWithCode(0),
              "");
}

bool wholeSearchIsTheSameFromEveryProcessStart() {
  Points points;
  for (int i = 0; i < 200; ++i) points.push_back({(i * 37 % 101) / 8.0, (i * 53 % 97) / 4.0});
  Data data(points);
  Filter centers(6, data, 1.0);
  centers.genRandom();
  std::vector<double> found;
  for (int i = 0; i < 20; ++i) {
    centers.swap1Stage();
    centers.lloyd1Stage();
    found.push_back(centers.getDist(true));
  }

  ReferenceGenerator generator;
  Points expected;
  std::vector<int> drawn;
  for (int j = 0; j < 6; ++j) {
    int index = generator.drawInt(200);
    while (std::find(drawn.begin(), drawn.end(), index) != drawn.end()) {
      index = generator.drawInt(200);
    }
    drawn.push_back(index);
    expected.push_back(points[index]);
  }
  const naive::Tree tree(points);
  bool same = true;
  for (double distortion : found) {
    const int replaced = generator.drawInt(6);
    expected[replaced] = points[generator.drawInt(200)];
    naive::Clustering before = naive::Passes(tree, points, expected).result;
    for (int j = 0; j < 6; ++j) {
      for (int d = 0; d < 2 && before.weights[j] > 0; ++d) {
        expected[j][d] = 1.0 * before.sums[j][d] / before.weights[j] + 0.0 * expected[j][d];
      }
    }
    const naive::Clustering after = naive::Passes(tree, points, expected).result;
    double total = 0.0;
    for (int j = 0; j < 6; ++j) {
      double cc = 0.0, cs = 0.0;
      for (int d = 0; d < 2; ++d) {
        cc += expected[j][d] * expected[j][d];
        cs += expected[j][d] * after.sums[j][d];
      }
      total += after.sumSqs[j] - 2 * cs + after.weights[j] * cc;
    }
    same = same && distortion == total;
  }
  return same;
}

TEST(KMfilterCentersDeathTest, WholeSearchIsTheSameFromEveryProcessStart) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(endWith(wholeSearchIsTheSameFromEveryProcessStart()), testing::ExitedWithCode(0), "");
}

// Printing.

TEST(KMfilterCentersPrint, KeptFilterCentersPrintTakesNoArgument) {
  Data data(fourOnALine);
  Filter centers(2, data, 1.0);
  place(centers, {{0.0}, {10.0}});
  centers.getDist(true);
  const Caught caught;
  const KMcenters& base = centers;
  centers.print(true);
  base.print(false);
  const std::string lines =
      "       0\t[        0 ] dist =        1\n"
      "       1\t[       10 ] dist =        9\n";
  EXPECT_EQ(caught.output.str(), lines + lines);
}

TEST(KMfilterCentersPrint, LevelOfCentersTellsEachChange) {
  Data data(Points(2, {5.0}));
  const Caught caught(KM_STAT_CENTERS);
  Filter centers(1, data, 1.0);
  const std::string atOrigin = "       0\t[        0 ] dist =        0\n";
  const std::string atPoint = "       0\t[        5 ] dist =        0\n";
  EXPECT_EQ(caught.output.str(), atOrigin);
  centers.genRandom();
  EXPECT_EQ(caught.output.str(), atOrigin + atPoint);
  centers.lloyd1Stage();
  EXPECT_EQ(caught.output.str(), atOrigin + atPoint + atPoint);
  centers.swap1Stage();
  EXPECT_EQ(caught.output.str(),
            atOrigin + atPoint + atPoint + "\tswapping: [        5 ]<-->Center[0]\n" + atPoint);
}

TEST(KMfilterCentersPrint, LevelOfSwapsTellsSwapsAlone) {
  Data data({{5.0, 6.0}});
  const Caught caught(KM_STAT_SWAPS);
  Filter centers(1, data, 1.0);
  centers.genRandom();
  centers.lloyd1Stage();
  centers.swap1Stage();
  EXPECT_EQ(caught.output.str(), "\tswapping: [        5        6 ]<-->Center[0]\n");
}

TEST(KMfilterCentersPrint, LevelOfStagesTellsNothingHere) {
  Data data(Points(1, {5.0}));
  const Caught caught(KM_STAT_STAGES);
  Filter centers(1, data, 1.0);
  centers.genRandom();
  centers.swap1Stage();
  EXPECT_EQ(caught.output.str(), "");
}

}  // namespace
