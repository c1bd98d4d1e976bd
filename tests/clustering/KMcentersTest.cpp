#include <zrBase/clustering/KMcenters.h>

#include <gtest/gtest.h>

#include "clustering/naiveClustering.h"

#include <vector>

namespace {

using naive::Points;

const Points fourPoints = {{0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};
const Points twoCenters = {{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}};

TEST(KMcenters, ReferToTheirData) {
  Data data(fourPoints);
  KMcenters centers(2, data);
  EXPECT_EQ(centers.getK(), 2);
  EXPECT_EQ(centers.getDim(), 3);
  EXPECT_EQ(centers.getNPts(), 4);
  EXPECT_EQ(&centers.getData(), &data);
  EXPECT_EQ(centers.getDataPts(), data.getPts());
  EXPECT_EQ(centers[1], centers.getCtrPts()[1]);
  EXPECT_EQ(centers[1], centers[0] + 3);
  data.setNPts(2);
  EXPECT_EQ(centers.getNPts(), 2);
}

TEST(KMcenters, CopiesHaveCentersOfTheirOwn) {
  Data data(fourPoints);
  KMcenters centers(2, data);
  place(centers, twoCenters);
  const KMcenters copy(centers);
  centers[1][2] = -6.0;
  EXPECT_EQ(copy[1][2], 6.0);
  EXPECT_EQ(copy.getK(), 2);
  EXPECT_EQ(&copy.getData(), &data);
}

TEST(KMcenters, AssignmentReusesStorageThatFits) {
  Data data(fourPoints);
  Data otherData(Points(7, {2.0, 2.0, 2.0}));
  KMcenters centers(2, data);
  place(centers, twoCenters);
  KMcenters fitting(2, otherData);
  double** const before = fitting.getCtrPts();
  fitting = centers;
  EXPECT_EQ(fitting.getCtrPts(), before);
  EXPECT_EQ(fitting[1][1], 5.0);
  EXPECT_EQ(&fitting.getData(), &data);
  fitting = fitting;
  EXPECT_EQ(fitting[1][1], 5.0);
}

TEST(KMcenters, AssignmentAllocatesForAnotherShape) {
  Data data(fourPoints);
  Data flat({{0.0}, {1.0}});
  KMcenters centers(2, data);
  place(centers, twoCenters);
  KMcenters more(5, data);
  more = centers;
  EXPECT_EQ(more.getK(), 2);
  EXPECT_EQ(more[1][2], 6.0);
  KMcenters flatter(2, flat);
  flatter = centers;
  EXPECT_EQ(flatter.getDim(), 3);
  EXPECT_EQ(flatter[1][2], 6.0);
}

TEST(KMcenters, ResizeKeepsTheCentersOfAnEqualNumber) {
  Data data(fourPoints);
  KMcenters centers(2, data);
  place(centers, twoCenters);
  centers.resize(2);
  EXPECT_EQ(centers[1][2], 6.0);
  centers.resize(3);
  EXPECT_EQ(centers.getK(), 3);
  EXPECT_EQ(centers[2], centers[0] + 6);
  centers.resize(0);
  EXPECT_EQ(centers.getK(), 0);
}

TEST(KMcenters, KeptCentersPrintFancyAsWidth) {
  Data data(fourPoints);
  KMcenters centers(2, data);
  place(centers, twoCenters);
  const Caught caught;
  centers.print(true);
  centers.print(false);
  EXPECT_EQ(caught.output.str(),
            "  (Center_Points:\n"
            "    0\t[        1 ]\n"
            "    1\t[        4 ]\n"
            "  )\n"
            "  (Center_Points:\n"
            "    0\t[  ]\n"
            "    1\t[  ]\n"
            "  )\n");
}

}  // namespace
