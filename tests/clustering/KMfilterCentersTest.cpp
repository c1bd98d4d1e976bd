#include <zrBase/clustering/KMfilterCenters.h>

#include <zrBase/clustering/KCtree.h>

#include <gtest/gtest.h>

#include "clustering/naiveClustering.h"

#include <cfloat>
#include <limits>
#include <string>
#include <vector>

namespace {

using naive::Point;
using naive::Points;

const Points fourOnALine = {{0.0}, {1.0}, {10.0}, {13.0}};
const char* buildingLine = "rabriol: WARNING----->Building kc-tree<-------------WARNING\n";

// Construction.

TEST(KMfilterCenters, StartsStaleAndSilent) {
  Data data(fourOnALine);
  const Caught caught;
  Filter centers(2, data, 0.75);
  EXPECT_FALSE(centers.isValid());
  EXPECT_EQ(centers.getK(), 2);
  EXPECT_EQ(caught.output.str(), "");
}

TEST(KMfilterCenters, BuildsAMissingTreeWithAWarning) {
  KMdata data(1, 4);
  fill(data, fourOnALine);
  const Caught caught;
  const KMfilterCenters centers(2, data, 1.0);
  EXPECT_NE(data.getKcTree(), nullptr);
  EXPECT_EQ(caught.errors.str(), buildingLine);
  EXPECT_EQ(caught.output.str(), buildingLine);
}

TEST(KMfilterCenters, SilenceMeansNothingButTheTreeWarning) {
  KMdata data(1, 4);
  fill(data, fourOnALine);
  const Caught caught(KM_STAT_SILENT);
  Filter centers(2, data, 1.0);
  centers.genRandom();
  centers.getDist(true);
  centers.lloyd1Stage();
  centers.swap1Stage();
  centers.swapOneCenter(false);
  std::vector<int> closest(4);
  centers.getAssignments(closest.data(), nullptr);
  EXPECT_EQ(caught.output.str(), buildingLine);
  EXPECT_EQ(caught.errors.str(), buildingLine);
}

TEST(KMfilterCenters, RebuildsALostTreeBeforeAPass) {
  Data data(fourOnALine);
  Filter centers(1, data, 1.0);
  data.resize(1, 2);
  data[0][0] = 4.0;
  data[1][0] = 6.0;
  centers[0][0] = 5.0;
  {
    const Caught caught;
    EXPECT_EQ(centers.getDist(true), 2.0);
    EXPECT_EQ(caught.output.str(), buildingLine);
    EXPECT_EQ(centers.getWeights(true)[0], 2);
    EXPECT_EQ(caught.output.str(), buildingLine);
  }
  data.resize(1, 2);
  data[0][0] = data[1][0] = 9.0;
  const Caught caught;
  double distances[2] = {};
  centers.getAssignments(nullptr, distances);
  EXPECT_EQ(caught.errors.str(), buildingLine);
  EXPECT_EQ(distances[1], 16.0);
}

// Statistics.

TEST(KMfilterCenters, OneCenterGetsEverything) {
  Data data({{0.0, 1.0}, {2.0, 3.0}, {4.0, 8.0}});
  Filter centers(1, data, 1.0);
  place(centers, {{2.0, 4.0}});
  EXPECT_EQ(centers.getWeights(true)[0], 3);
  EXPECT_EQ(centers.getSums(true)[0][0], 6.0);
  EXPECT_EQ(centers.getSums(true)[0][1], 12.0);
  EXPECT_EQ(centers.getSumSqs(true)[0], 1.0 + 13.0 + 80.0);
  // |p - c|^2: 4 + 9, 0 + 1, 4 + 16.
  EXPECT_DOUBLE_EQ(centers.getDists(true)[0], 34.0);
  EXPECT_DOUBLE_EQ(centers.getDist(true), 34.0);
  EXPECT_DOUBLE_EQ(centers.getAvgDist(true), 34.0 / 3);
}

TEST(KMfilterCenters, StatisticsBelongToTheNearestCenter) {
  Data data(fourOnALine);
  Filter centers(2, data, 1.0);
  place(centers, {{2.0}, {10.0}});
  EXPECT_EQ(centers.getWeights(true)[0], 2);
  EXPECT_EQ(centers.getWeights(true)[1], 2);
  EXPECT_EQ(centers.getSums(true)[0][0], 1.0);
  EXPECT_EQ(centers.getSums(true)[1][0], 23.0);
  EXPECT_EQ(centers.getSumSqs(true)[1], 269.0);
  EXPECT_EQ(centers.getDists(true)[0], 5.0);
  EXPECT_EQ(centers.getDists(true)[1], 9.0);
  EXPECT_EQ(centers.getDist(true), 14.0);
}

TEST(KMfilterCenters, DistanceIsTheLargestDoubleBeforeTheFirstPass) {
  Data data(fourOnALine);
  Filter centers(2, data, 1.0);
  EXPECT_EQ(centers.getDist(false), DBL_MAX);
  EXPECT_EQ(centers.getAvgDist(false), DBL_MAX / 4);
}

TEST(KMfilterCenters, OfEqualCentersTheFirstWins) {
  Data data(fourOnALine);
  Filter centers(3, data, 1.0);
  place(centers, {{1.0}, {1.0}, {1.0}});
  EXPECT_EQ(centers.getWeights(true)[0], 4);
  EXPECT_EQ(centers.getWeights(true)[1], 0);
  EXPECT_EQ(centers.getWeights(true)[2], 0);
}

TEST(KMfilterCenters, ACandidateIsPrunedWhenNormIsAtLeastTwoDot) {
  // The cell is [0, 4] and its middle, 2, a center. For the center 6 the corner is 4, norm 4 * 4
  // and dot (4 - 2) * 4; for -2 the corner is 0, norm 16 and dot (0 - 2) * -4: both are dropped,
  // though each is as near to one point, and stands earlier in the list.
  Data data({{0.0}, {4.0}});
  for (const Points& places : {Points{{6.0}, {2.0}}, Points{{6.0}, {-2.0}, {2.0}}}) {
    const int last = static_cast<int>(places.size()) - 1;
    Filter centers(last + 1, data, 1.0);
    place(centers, places);
    EXPECT_EQ(centers.getWeights(true)[last], 2);
    EXPECT_EQ(centers.getSums(true)[last][0], 4.0);
    int closest[2] = {-1, -1};
    centers.getAssignments(closest, nullptr);
    EXPECT_EQ(closest[0], last);
    EXPECT_EQ(closest[1], last);
    // The same by the walk of the nodes themselves.
    int all[] = {0, 1, 2};
    data.getKcTree()->getRoot()->filterCandidates(all, last + 1);
    EXPECT_EQ(centers.getWeights(false)[last], 2);
  }
}

TEST(KMfilterCenters, KeptMovedPointKeepsItsFormerNorm) {
  // The cell is [1, 10]. 2 is (first) closest to its middle, 5.5; neither 9 (norm 49, dot 8 * 7)
  // nor 9.5 (norm 56.25, dot 8 * 7.5) is dropped, so that both leaves have to choose.
  for (const Points& places : {Points{{2.0}, {9.0}}, Points{{2.0}, {9.0}, {9.5}}}) {
    Data data({{1.0}, {10.0}});
    const int k = static_cast<int>(places.size());
    Filter centers(k, data, 1.0);
    place(centers, places);
    data[1][0] = 6.0;
    EXPECT_EQ(centers.getWeights(true)[1], 1) << "6 is nearest to 9";
    EXPECT_EQ(centers.getSums(true)[1][0], 6.0) << "where the point is";
    EXPECT_EQ(centers.getSumSqs(true)[1], 100.0) << "where it was";
    EXPECT_EQ(centers.getDists(true)[1], 100.0 - 2 * 54.0 + 81.0);
    // The same by the walk of the nodes themselves, on statistics set to 0.
    centers.getAssignments(nullptr, nullptr);
    int all[] = {0, 1, 2};
    data.getKcTree()->getRoot()->filterCandidates(all, k);
    EXPECT_EQ(centers.getSums(false)[1][0], 6.0);
    EXPECT_EQ(centers.getSumSqs(false)[1], 100.0);
  }
}

TEST(KMfilterCenters, KeptDistortionMayComeOutBelowZero) {
  const double a = 1e8 + 0.1, b = 1e8 + 0.2, c = 1e8 + 0.4;
  Data data({{a}, {b}, {c}});
  Filter centers(1, data, 1.0);
  const double mean = (a + b + c) / 3;
  centers[0][0] = mean;
  // About 0.047 by rights; but the three terms are near 3e16 and 6e16, where doubles are 4 or 8
  // apart.
  const double written = (a * a + b * b + c * c) - 2 * (mean * (a + b + c)) + 3 * (mean * mean);
  ASSERT_EQ(written, -8.0);
  EXPECT_EQ(centers.getDists(true)[0], -8.0);
  EXPECT_EQ(centers.getDist(true), -8.0);
  EXPECT_EQ(centers.getAvgDist(true), -8.0 / 3);
}

TEST(KMfilterCenters, AreLazy) {
  Data data(fourOnALine);
  Filter centers(2, data, 1.0);
  place(centers, {{0.0}, {10.0}});
  EXPECT_EQ(centers.getDist(true), 10.0);
  EXPECT_TRUE(centers.isValid());
  centers.lloyd1Stage();
  EXPECT_FALSE(centers.isValid());
  EXPECT_EQ(centers[0][0], 0.5);
  EXPECT_EQ(centers[1][0], 11.5);
  EXPECT_EQ(centers.getDist(false), 10.0) << "stale";
  EXPECT_EQ(centers.getDist(true), 5.0);
  // A center written by hand is not noticed.
  centers[0][0] = 100.0;
  EXPECT_EQ(centers.getDist(true), 5.0);
  centers.invalidate();
  EXPECT_EQ(centers.getDist(true), 11.5 * 11.5 + 10.5 * 10.5 + 1.5 * 1.5 * 2);
  centers[0][0] = 0.5;
  centers.invalidate();
  centers.validate();
  EXPECT_GT(centers.getDist(true), 200.0) << "said to be valid";
}

TEST(KMfilterCenters, AnEmptyCenterStaysWhereItIs) {
  Data data(fourOnALine);
  Filter centers(3, data, 1.0);
  place(centers, {{0.0}, {500.0}, {11.0}});
  centers.moveToCentroid();
  EXPECT_EQ(centers[1][0], 500.0);
  EXPECT_EQ(centers.getWeights(false)[1], 0);
  EXPECT_EQ(centers.getDists(false)[1], 0.0);
  EXPECT_EQ(centers[0][0], 0.5);
  EXPECT_EQ(centers[2][0], 11.5);
}

TEST(KMfilterCenters, DampingOfZeroLeavesCentersAndDropsValidity) {
  Data data(fourOnALine);
  Filter centers(2, data, 0.0);
  place(centers, {{3.0}, {10.0}});
  centers.getDist(true);
  centers.lloyd1Stage();
  EXPECT_EQ(centers[0][0], 3.0);
  EXPECT_EQ(centers[1][0], 10.0);
  EXPECT_FALSE(centers.isValid());
}

TEST(KMfilterCenters, DampingGoesPartOfTheWay) {
  Data data(fourOnALine);
  Filter centers(2, data, 0.25);
  place(centers, {{2.5}, {10.0}});
  centers.lloyd1Stage();
  EXPECT_EQ(centers[0][0], 0.25 * 0.5 + 0.75 * 2.5);
  EXPECT_EQ(centers[1][0], 0.25 * 11.5 + 0.75 * 10.0);
}

TEST(KMfilterCenters, MoveFollowsTheWrittenOrderOfArithmetic) {
  Data data({{0.1}, {0.2}, {0.4}});
  Filter centers(1, data, 0.7);
  centers[0][0] = 0.9;
  const double sum = (0.1 + 0.2) + 0.4;
  EXPECT_EQ(centers.getSums(true)[0][0], sum);
  const double written = 0.7 * sum / 3 + (1 - 0.7) * 0.9;
  ASSERT_NE(written, 0.7 * (sum / 3) + (1 - 0.7) * 0.9) << "the centroid is not formed first";
  centers.lloyd1Stage();
  EXPECT_EQ(centers[0][0], written);
}

// Assignments.

TEST(KMfilterCenters, AssignsEveryPoint) {
  Data data({{10.0}, {0.0}, {13.0}, {1.0}});
  Filter centers(2, data, 1.0);
  place(centers, {{12.0}, {1.0}});
  int closest[4] = {};
  double distances[4] = {};
  centers.getAssignments(closest, distances);
  EXPECT_EQ(std::vector<int>(closest, closest + 4), (std::vector<int>{0, 1, 0, 1}));
  EXPECT_EQ(std::vector<double>(distances, distances + 4),
            (std::vector<double>{4.0, 1.0, 1.0, 0.0}));
}

TEST(KMfilterCenters, AssignsIntoOneArrayAlone) {
  Data data({{10.0}, {0.0}});
  Filter centers(2, data, 1.0);
  place(centers, {{12.0}, {1.0}});
  int closest[2] = {-1, -1};
  centers.getAssignments(closest, nullptr);
  EXPECT_EQ(closest[0], 0);
  EXPECT_EQ(closest[1], 1);
  double distances[2] = {};
  centers.getAssignments(nullptr, distances);
  EXPECT_EQ(distances[0], 4.0);
  EXPECT_EQ(distances[1], 1.0);
  centers.getDist(true);
  centers.getAssignments(nullptr, nullptr);
  EXPECT_EQ(centers.getWeights(true)[0], 0);
}

TEST(KMfilterCenters, AssignsPointsAsTheyAre) {
  Data data(fourOnALine);
  Filter centers(1, data, 1.0);
  centers[0][0] = 0.0;
  data[2][0] = 20.0;
  double distances[4] = {};
  centers.getAssignments(nullptr, distances);
  EXPECT_EQ(distances[2], 400.0);
  // The sums are those of the tree.
  EXPECT_EQ(centers.getSums(true)[0][0], 24.0);
}

TEST(KMfilterCenters, DistancesEndAtTheLargestDouble) {
  Data data(fourOnALine);
  Filter centers(2, data, 1.0);
  place(centers, {{1e200}, {-1e200}});
  int closest[4] = {7, 7, 7, 7};
  double distances[4] = {};
  centers.getAssignments(closest, distances);
  EXPECT_EQ(closest[3], 0);
  EXPECT_EQ(distances[3], DBL_MAX);
}

TEST(KMfilterCenters, KeptAssignmentsClearTheStatistics) {
  Data data(fourOnALine);
  Filter centers(2, data, 1.0);
  place(centers, {{0.0}, {10.0}});
  EXPECT_EQ(centers.getDist(true), 10.0);
  int closest[4] = {};
  centers.getAssignments(closest, nullptr);
  EXPECT_EQ(centers.getWeights(false)[0], 0);
  EXPECT_EQ(centers.getSums(false)[1][0], 0.0);
  EXPECT_EQ(centers.getSumSqs(false)[1], 0.0);
  // They still count as valid, so asking with force brings nothing back.
  EXPECT_TRUE(centers.isValid());
  EXPECT_EQ(centers.getWeights(true)[0], 0);
  EXPECT_EQ(centers.getSums(true)[1][0], 0.0);
  // Distortions are not cleared.
  EXPECT_EQ(centers.getDists(true)[1], 9.0);
  EXPECT_EQ(centers.getDist(true), 10.0);
  centers.lloyd1Stage();
  EXPECT_EQ(centers[1][0], 10.0) << "no center has points";
  EXPECT_EQ(centers.getWeights(true)[0], 2);
}

// Copies.

TEST(KMfilterCenters, CopiesHaveStatisticsOfTheirOwn) {
  Data data(fourOnALine);
  Filter centers(2, data, 0.5);
  place(centers, {{0.0}, {10.0}});
  centers.getDist(true);
  Filter copy(centers);
  EXPECT_TRUE(copy.isValid());
  centers[0][0] = 77.0;
  centers.invalidate();
  centers.getDist(true);
  EXPECT_EQ(copy[0][0], 0.0);
  EXPECT_EQ(copy.getDist(true), 10.0);
  EXPECT_EQ(copy.getWeights(true)[0], 2);
  EXPECT_NE(copy.getSums(false), centers.getSums(false));
  copy.lloyd1Stage();
  EXPECT_EQ(copy[1][0], 0.5 * 11.5 + 0.5 * 10.0) << "with the damping";
}

TEST(KMfilterCenters, AssignmentCopiesEverything) {
  Data data(fourOnALine);
  Data plane({{0.0, 0.0}, {1.0, 1.0}});
  Filter centers(2, data, 0.5);
  place(centers, {{0.0}, {10.0}});
  centers.getDist(true);
  Filter same(2, data, 1.0);
  double** const sums = same.getSums(false);
  same = centers;
  EXPECT_EQ(same.getSums(false), sums) << "the storage fits";
  EXPECT_EQ(same.getDist(false), 10.0);
  Filter more(5, plane, 1.0);
  more = centers;
  EXPECT_EQ(more.getK(), 2);
  EXPECT_EQ(&more.getData(), &data);
  EXPECT_TRUE(more.isValid());
  EXPECT_EQ(more.getSums(false)[1][0], 23.0);
  more = more;
  EXPECT_EQ(more.getDists(false)[1], 9.0);
}

TEST(KMfilterCenters, ResizeMakesRoomForTheStatistics) {
  Data data(fourOnALine);
  Filter centers(1, data, 1.0);
  centers.getDist(true);
  centers.resize(4);
  EXPECT_FALSE(centers.isValid());
  place(centers, fourOnALine);
  EXPECT_EQ(centers.getDist(true), 0.0);
  EXPECT_EQ(centers.getWeights(true)[3], 1);
  centers.resize(4);
  EXPECT_FALSE(centers.isValid());
  EXPECT_EQ(centers[3][0], 13.0);
}

}  // namespace
