#include <zrBase/tools2d/nearestIntersection.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <zrBase/tools2d/lineIntersection.h>

#include "support/geometryText.h"

namespace {

constexpr double tolerance = 1e-05;

// The segment x = 5, from y = -5 to y = 15, crosses it at (5, 0) in segment 0 and at (5, 10) in
// segment 2.
const char* const bracket = "0 0, 10 0, 10 10, 0 10";

TEST(NearestLineSegmentIntersect, TakesTheSmallestDistance) {
  gdfVertex out;
  int index = 42;
  EXPECT_TRUE(zr2DTools::getNearestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15}, {5, 9},
                                                        out, index, tolerance));
  EXPECT_THAT(out, VertexIs("5 10"));
  EXPECT_EQ(index, 2);
  EXPECT_TRUE(zr2DTools::getNearestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15}, {5, 1},
                                                        out, index, tolerance));
  EXPECT_THAT(out, VertexIs("5 0"));
  EXPECT_EQ(index, 0);
}

TEST(NearestLineSegmentIntersect, DropsTheIndexInItsShortForm) {
  gdfVertex out;
  EXPECT_TRUE(zr2DTools::getNearestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15}, {5, 9},
                                                        out, tolerance));
  EXPECT_THAT(out, VertexIs("5 10"));
}

TEST(NearestLineSegmentIntersect, KeepsTheEarlierSegmentOnATie) {
  gdfVertex out;
  int index = 42;
  EXPECT_TRUE(zr2DTools::getNearestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15}, {5, 5},
                                                        out, index, tolerance));
  EXPECT_THAT(out, VertexIs("5 0"));
  EXPECT_EQ(index, 0);
}

TEST(NearestLineSegmentIntersect, KeptNearestHitIsMeasuredInSpace) {
  // Heights at the crossings are 5 and 15. In the map the reference is at the first one, but 15
  // below it.
  gdfVertex out;
  int index = 42;
  EXPECT_TRUE(zr2DTools::getNearestLineSegmentIntersect(line(bracket), {5, -5, 0}, {5, 15, 20},
                                                        {5, 0, 20}, out, index, tolerance));
  EXPECT_THAT(out, VertexIs("5 10 15"));
  EXPECT_EQ(index, 2);
}

TEST(NearestLineSegmentIntersect, LeavesOutputsAloneOnAMiss) {
  gdfVertex out(7, 8, 9);
  int index = 42;
  EXPECT_FALSE(zr2DTools::getNearestLineSegmentIntersect(line(bracket), {20, 0}, {20, 5}, {0, 0},
                                                         out, index, tolerance));
  EXPECT_FALSE(zr2DTools::getNearestLineSegmentIntersect(line("5 0"), {5, -5}, {5, 5}, {0, 0}, out,
                                                         index, tolerance));
  EXPECT_FALSE(
      zr2DTools::getNearestLineSegmentIntersect(line(""), {5, -5}, {5, 5}, {0, 0}, out, tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
  EXPECT_EQ(index, 42);
}

TEST(NearestLineSegmentIntersect, TakesNoCrossingAtOrBeyondTheStartValue) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getNearestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15},
                                                         vertex("inf 0"), out, tolerance));
  EXPECT_FALSE(zr2DTools::getNearestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15}, {1e39, 0},
                                                         out, tolerance));
  EXPECT_FALSE(zr2DTools::getNearestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15},
                                                         vertex("nan 0"), out, tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
}

TEST(NearestLineSegmentIntersect, OutputMayBeTheReference) {
  gdfVertex reference(5, 9);
  EXPECT_TRUE(zr2DTools::getNearestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15}, reference,
                                                        reference, tolerance));
  EXPECT_THAT(reference, VertexIs("5 10"));
}

TEST(FarthestLineSegmentIntersect, TakesTheLargestDistance) {
  gdfVertex out;
  EXPECT_TRUE(zr2DTools::getFarthestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15}, {5, 9},
                                                         out, tolerance));
  EXPECT_THAT(out, VertexIs("5 0"));
  EXPECT_TRUE(zr2DTools::getFarthestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15}, {5, 1},
                                                         out, tolerance));
  EXPECT_THAT(out, VertexIs("5 10"));
}

TEST(FarthestLineSegmentIntersect, KeepsTheEarlierSegmentOnATie) {
  gdfVertex out;
  EXPECT_TRUE(zr2DTools::getFarthestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15}, {5, 5},
                                                         out, tolerance));
  EXPECT_THAT(out, VertexIs("5 0"));
}

TEST(FarthestLineSegmentIntersect, AcceptsAnInfiniteDistanceButNoNaN) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getFarthestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15},
                                                          vertex("nan 0"), out, tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
  EXPECT_TRUE(zr2DTools::getFarthestLineSegmentIntersect(line(bracket), {5, -5}, {5, 15},
                                                         vertex("inf 0"), out, tolerance));
  EXPECT_THAT(out, VertexIs("5 0"));
}

TEST(FarthestLineSegmentIntersect, LeavesOutputAloneOnAMiss) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getFarthestLineSegmentIntersect(line(bracket), {20, 0}, {20, 5}, {0, 0},
                                                          out, tolerance));
  EXPECT_FALSE(zr2DTools::getFarthestLineSegmentIntersect(line("5 0"), {5, -5}, {5, 5}, {0, 0}, out,
                                                          tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
}

// Crossings, in the order they are found: (2, 0), (8, 0), (2, 5), (8, 5), all at the height of the
// second line.
const char* const lyingU = "0 0, 10 0, 10 5, 0 5";
const char* const standingU = "2 -5 7, 2 15 7, 8 15 7, 8 -5 7";

TEST(NearestLineLineIntersect, TakesTheSmallestDistance) {
  gdfVertex out;
  EXPECT_TRUE(zr2DTools::getNearestLineLineIntersect(line(lyingU), line(standingU), {7, 6}, out,
                                                     tolerance));
  EXPECT_THAT(out, VertexIs("8 5 7"));
}

TEST(NearestLineLineIntersect, KeepsTheFirstPairOnATie) {
  gdfVertex out;
  // All four are equally far from the middle; from the right half the two on the right are.
  EXPECT_TRUE(zr2DTools::getNearestLineLineIntersect(line(lyingU), line(standingU), {5, 2.5}, out,
                                                     tolerance));
  EXPECT_THAT(out, VertexIs("2 0 7"));
  EXPECT_TRUE(zr2DTools::getNearestLineLineIntersect(line(lyingU), line(standingU), {6, 2.5}, out,
                                                     tolerance));
  EXPECT_THAT(out, VertexIs("8 0 7"));
}

TEST(FarthestLineLineIntersect, TakesTheLargestDistanceAndTheFirstOnATie) {
  gdfVertex out;
  EXPECT_TRUE(zr2DTools::getFarthestLineLineIntersect(line(lyingU), line(standingU), {3, 1}, out,
                                                      tolerance));
  EXPECT_THAT(out, VertexIs("8 5 7"));
  EXPECT_TRUE(zr2DTools::getFarthestLineLineIntersect(line(lyingU), line(standingU), {5, 2.5}, out,
                                                      tolerance));
  EXPECT_THAT(out, VertexIs("2 0 7"));
}

TEST(NearestLineLineIntersect, LeavesOutputAloneOnAMiss) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getNearestLineLineIntersect(line(lyingU), line("20 0, 20 9"), {0, 0}, out,
                                                      tolerance));
  EXPECT_FALSE(zr2DTools::getFarthestLineLineIntersect(line(lyingU), line("20 0, 20 9"), {0, 0},
                                                       out, tolerance));
  EXPECT_FALSE(
      zr2DTools::getNearestLineLineIntersect(line("2 0"), line(standingU), {0, 0}, out, tolerance));
  EXPECT_FALSE(
      zr2DTools::getFarthestLineLineIntersect(line(lyingU), line(""), {0, 0}, out, tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
}

// The nearest and the farthest of two lines are the smallest and the largest distance in the list
// of all crossings.
RC_GTEST_PROP(NearestLineLineIntersect, AgreesWithTheListOfAllCrossings, ()) {
  const auto drawnLine = [] {
    VertexLine drawn;
    for (int i = 0; i < 6; ++i) {
      const double x = *rc::gen::inRange(-12, 13) / 4.0;
      const double y = *rc::gen::inRange(-12, 13) / 4.0;
      drawn.emplace_back(x, y, *rc::gen::inRange(0, 3));
    }
    return drawn;
  };
  const VertexLine a = drawnLine();
  const VertexLine b = drawnLine();
  const gdfVertex reference(0.25, -0.5, 1.0);
  VertexLine all;
  gdfVertex nearest;
  gdfVertex farthest;
  const bool any = zr2DTools::getLineLineIntersect(a, b, all, tolerance);
  RC_ASSERT(zr2DTools::getNearestLineLineIntersect(a, b, reference, nearest, tolerance) == any);
  RC_ASSERT(zr2DTools::getFarthestLineLineIntersect(a, b, reference, farthest, tolerance) == any);
  for (const gdfVertex& hit : all) {
    RC_ASSERT(nearest.distance(reference) <= hit.distance(reference));
    RC_ASSERT(farthest.distance(reference) >= hit.distance(reference));
  }
}

// Going east from (0, 5): uprights at x = 8 and x = 4 ahead, one at x = -20 behind.
const char* const uprights = "8 0, 8 10, 4 10, 4 0, -20 0, -20 10";

TEST(NearestVectorLineIntersect, TakesTheNearestAhead) {
  gdfVertex out;
  EXPECT_TRUE(
      zr2DTools::getNearestVectorLineIntersect({0, 5, 3}, {1, 0}, line(uprights), out, tolerance));
  EXPECT_THAT(out, VertexIs("4 5 3"));
}

TEST(NearestVectorLineIntersect, HoldsBackRejectedCandidates) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getNearestVectorLineIntersect({0, 5}, {1, 0}, line("-4 0, -4 10"), out,
                                                        tolerance));
  EXPECT_FALSE(
      zr2DTools::getNearestVectorLineIntersect({0, 5}, {1, 0}, line("0 5"), out, tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
}

TEST(NearestVectorLineIntersect, OutputMayBeTheOrigin) {
  gdfVertex origin(0, 5);
  EXPECT_TRUE(
      zr2DTools::getNearestVectorLineIntersect(origin, {1, 0}, line(uprights), origin, tolerance));
  EXPECT_THAT(origin, VertexIs("4 5"));
}

TEST(FarthestVectorLineIntersect, KeptFarthestVectorHitMayLieBehind) {
  gdfVertex out;
  EXPECT_TRUE(
      zr2DTools::getFarthestVectorLineIntersect({0, 5, 3}, {1, 0}, line(uprights), out, tolerance));
  EXPECT_THAT(out, VertexIs("-20 5 3"));
}

TEST(FarthestVectorLineIntersect, TakesTheFarthestAhead) {
  gdfVertex out;
  EXPECT_TRUE(zr2DTools::getFarthestVectorLineIntersect(
      {0, 5}, {1, 0}, line("4 0, 4 10, 8 10, 8 0, 6 0, 6 10"), out, tolerance));
  EXPECT_THAT(out, VertexIs("8 5"));
}

TEST(FarthestVectorLineIntersect, KeptFarthestVectorHitMayBeScratch) {
  gdfVertex out(7, 8, 9);
  EXPECT_TRUE(
      zr2DTools::getFarthestVectorLineIntersect({0, 9}, {1, 0}, line("0 9, 0 19"), out, tolerance));
  EXPECT_THAT(out, VertexIs("0 0 0"));
  // With a tolerance of 4 the first segment leaves the rejected (20, 9), the next three count as
  // parallel, and the last starts at the origin.
  EXPECT_TRUE(zr2DTools::getFarthestVectorLineIntersect(
      {0, 9}, {1, 0}, line("20 -20, 20 0, 12 3, 6 6, 0 9, 0 19"), out, 4.0));
  EXPECT_THAT(out, VertexIs("20 9"));
}

TEST(FarthestVectorLineIntersect, HoldsBackRejectedCandidates) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getFarthestVectorLineIntersect({0, 5}, {1, 0}, line("20 0, 20 2"), out,
                                                         tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
}

TEST(NearestBiVectorLineIntersect, KeptNearestBiVectorHitIsTheLast) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getNearestBiVectorLineIntersect(
      {0, 5}, {1, 0}, line("4 0, 4 10, 8 10, 8 0"), out, tolerance));
  EXPECT_THAT(out, VertexIs("8 5"));
}

TEST(FarthestBiVectorLineIntersect, KeptFarthestBiVectorHitIsTheLast) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getFarthestBiVectorLineIntersect(
      {0, 5}, {1, 0}, line("8 0, 8 10, 4 10, 4 0"), out, tolerance));
  EXPECT_THAT(out, VertexIs("4 5"));
}

TEST(NearestBiVectorLineIntersect, LeavesOutputAloneOnAMiss) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getNearestBiVectorLineIntersect({0, 5}, {1, 0}, line("20 0, 20 2"), out,
                                                          tolerance));
  EXPECT_FALSE(zr2DTools::getFarthestBiVectorLineIntersect({0, 5}, {1, 0}, line("20 0, 20 2"), out,
                                                           tolerance));
  EXPECT_FALSE(
      zr2DTools::getNearestBiVectorLineIntersect({0, 5}, {1, 0}, line("0 5"), out, tolerance));
  EXPECT_FALSE(
      zr2DTools::getFarthestBiVectorLineIntersect({0, 5}, {1, 0}, line(""), out, tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
}

TEST(NearestBiVectorLineIntersect, FromTheStartOfASegmentGivesTheScratchVertex) {
  gdfVertex nearest(7, 8, 9);
  gdfVertex farthest(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getNearestBiVectorLineIntersect({0, 9}, {1, 0}, line("0 9, 0 19"),
                                                          nearest, tolerance));
  EXPECT_FALSE(zr2DTools::getFarthestBiVectorLineIntersect({0, 9}, {1, 0}, line("0 9, 0 19"),
                                                           farthest, tolerance));
  EXPECT_THAT(nearest, VertexIs("0 0 0"));
  EXPECT_THAT(farthest, VertexIs("0 0 0"));
}

TEST(NearestBiVectorLineIntersect, OutputMayBeTheOrigin) {
  gdfVertex origin(0, 1);
  EXPECT_FALSE(zr2DTools::getNearestBiVectorLineIntersect(
      origin, {1, 1}, line("4 0, 4 10, 8 10, 8 0"), origin, tolerance));
  EXPECT_THAT(origin, VertexIs("8 9"));
}

}  // namespace
