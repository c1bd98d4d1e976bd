#include <zrBase/tools2d/polygonRepair.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "support/geometryText.h"

namespace {

constexpr double tolerance = 1e-05;

/// What conditionPolygon makes of a ring, where the result is the expected one.
VertexLine conditioned(const char* text, bool expected = true, double given = tolerance) {
  VertexLine polygon = line(text);
  EXPECT_EQ(zr2DTools::conditionPolygon(polygon, given), expected);
  return polygon;
}

TEST(ConditionPolygon, InsertsTheCrossingOfAFigureOfEightOnce) {
  EXPECT_THAT(conditioned("0 0, 10 10, 10 0, 0 10, 0 0"),
              LineIs("0 0, 5 5, 10 10, 10 0, 0 10, 0 0"));
}

TEST(ConditionPolygon, TakesTheHeightOfTheLaterSide) {
  EXPECT_THAT(conditioned("0 0 70, 10 10 80, 10 0 2, 0 10 4, 0 0 70"),
              LineIs("0 0 70, 5 5 3, 10 10 80, 10 0 2, 0 10 4, 0 0 70"));
}

TEST(ConditionPolygon, OnlySnapsTheClosureOfATriangle) {
  EXPECT_THAT(conditioned("0 0, 10 0, 0 10, 0.000001 0"), LineIs("0 0, 10 0, 0 10, 0 0"));
}

TEST(ConditionPolygon, SnapsStrictlyWithinTheToleranceInSpace) {
  EXPECT_THAT(conditioned("0 0, 10 0, 0 10, 0.125 0", true, 0.125),
              LineIs("0 0, 10 0, 0 10, 0.125 0"));
  EXPECT_THAT(conditioned("0 0, 10 0, 0 10, 0 0 5"), LineIs("0 0, 10 0, 0 10, 0 0 5"));
}

TEST(ConditionPolygon, LeavesAnOpenRingOpen) {
  EXPECT_THAT(conditioned("0 0, 10 0, 10 10, 0 10"), LineIs("0 0, 10 0, 10 10, 0 10"));
}

TEST(ConditionPolygon, IsFalseForFewerThanThreeVerticesAfterTheRemoval) {
  EXPECT_THAT(conditioned("", false), LineIs(""));
  EXPECT_THAT(conditioned("0 0, 10 0", false), LineIs("0 0, 10 0"));
  EXPECT_THAT(conditioned("0 0, 0 0, 10 0", false), LineIs("0 0, 10 0"));
  EXPECT_THAT(conditioned("0 0, 10 0, 10 10"), LineIs("0 0, 10 0, 10 10"));
}

TEST(ConditionPolygon, KeptOnlyEarlierSideGetsTheCrossing) {
  const VertexLine polygon = conditioned("0 0, 10 10, 10 0, 0 10, 0 0");
  // Not "... 10 0, 5 5, 0 10 ...", which would name the crossing twice.
  EXPECT_EQ(std::count(polygon.begin(), polygon.end(), vertex("5 5")), 1);
  EXPECT_THAT(polygon[1], VertexIs("5 5"));
}

TEST(ConditionPolygon, KeptRingCrossingsAreFoundExactly) {
  // The third side stops short of the first by the tolerance, which would let it through and count
  // (5, 5) as a vertex of its own.
  const char* const hook = "0 0, 10 10, 0 10, 4.875 5.125, 0 4";
  EXPECT_THAT(conditioned(hook, true, 0.125), LineIs(hook));
}

TEST(ConditionPolygon, KeptTouchEndsTheSearchOfASide) {
  // The first side is touched at (8, 0), by a side with a lower number than the one that crosses it
  // at (4, 0).
  const char* const touched = "0 0, 10 0, 10 5, 8 0, 8 5, 4 5, 4 -5, -5 -5";
  EXPECT_THAT(conditioned(touched), LineIs(touched));
  EXPECT_THAT(conditioned("0 0, 10 0, 10 5, 8 1, 8 5, 4 5, 4 -5, -5 -5"),
              LineIs("0 0, 4 0, 10 0, 10 5, 8 1, 8 5, 4 5, 4 -5, -5 -5"));
}

TEST(ConditionPolygon, KeptConditioningReachIsThatOfTheStart) {
  // The last side crosses the third, at (5, 2). The vertex at (5, 0) pushes it out of reach.
  EXPECT_THAT(conditioned("0 0, 10 0, 10 2, 0 2, -1 -1, 5 -1, 5 1, 5 3"),
              LineIs("0 0, 5 0, 10 0, 10 2, 0 2, -1 -1, 5 -1, 5 1, 5 3"));
  EXPECT_THAT(conditioned("6 0, 10 0, 10 2, 0 2, -1 -1, 5 -1, 5 1, 5 3"),
              LineIs("6 0, 10 0, 10 2, 5 2, 0 2, -1 -1, 5 -1, 5 1, 5 3"));
}

TEST(ConditionPolygon, KeptFirstSideIsNeverComparedWithTheLast) {
  const char* const crossed = "0 0, 10 0, 10 5, 5 5, 5 -5";
  EXPECT_THAT(conditioned(crossed), LineIs(crossed));
}

TEST(ConditionPolygon, KeptGrowthLimitLeavesTheRingHalfDone) {
  // Without a tolerance every hit counts as new, the inserted vertex itself included. Ten vertices
  // may grow while there are no more than fifteen; the sixteen then are too many.
  EXPECT_THAT(
      conditioned("0 0, 10 10, 10 0, 0 10, -1 10, -2 10, -3 10, -4 10, -5 10, 0 0", false, 0.0),
      LineIs("0 0, 5 5, 5 5, 5 5, 5 5, 5 5, 5 5, 10 10, 10 0, 0 10, -1 10, -2 10, -3 10, -4 10, "
             "-5 10, 0 0"));
}

TEST(TidyIntersectingPolygons, AddsTwoVerticesToEachOfTwoSquaresOverlappingAtACorner) {
  VertexLine first = line("0 0, 10 0, 10 10, 0 10, 0 0");
  VertexLine second = line("5 5, 15 5, 15 15, 5 15, 5 5");
  EXPECT_TRUE(zr2DTools::tidyIntersectingPolygons(first, second, tolerance));
  const char* const tidyFirst = "0 0, 10 0, 10 5, 10 10, 5 10, 0 10, 0 0";
  const char* const tidySecond = "5 5, 10 5, 15 5, 15 15, 5 15, 5 10, 5 5";
  EXPECT_THAT(first, LineIs(tidyFirst));
  EXPECT_THAT(second, LineIs(tidySecond));

  EXPECT_FALSE(zr2DTools::tidyIntersectingPolygons(first, second, tolerance));
  EXPECT_THAT(first, LineIs(tidyFirst));
  EXPECT_THAT(second, LineIs(tidySecond));
}

TEST(TidyIntersectingPolygons, KeptSharedNodeHasTwoHeights) {
  VertexLine first = line("10 0 0, 10 10 10");
  VertexLine second = line("5 5 20, 15 5 40");
  EXPECT_TRUE(zr2DTools::tidyIntersectingPolygons(first, second, tolerance));
  EXPECT_THAT(first, LineIs("10 0 0, 10 5 5, 10 10 10"));
  EXPECT_THAT(second, LineIs("5 5 20, 10 5 30, 15 5 40"));
}

TEST(TidyIntersectingPolygons, KeptNodesFollowTheOtherPolygon) {
  VertexLine first = line("0 0, 10 0");
  VertexLine second = line("2 -1, 2 1, 8 1, 8 -1, 5 -1, 5 1");
  EXPECT_TRUE(zr2DTools::tidyIntersectingPolygons(first, second, tolerance));
  EXPECT_THAT(first, LineIs("0 0, 2 0, 8 0, 5 0, 10 0"));
  EXPECT_THAT(second, LineIs("2 -1, 2 0, 2 1, 8 1, 8 0, 8 -1, 5 -1, 5 0, 5 1"));
}

TEST(TidyIntersectingPolygons, GivesATouchedSideItsVertexAlone) {
  VertexLine first = line("0 0, 10 0");
  VertexLine second = line("5 0, 5 5");
  EXPECT_TRUE(zr2DTools::tidyIntersectingPolygons(first, second, tolerance));
  EXPECT_THAT(first, LineIs("0 0, 5 0, 10 0"));
  EXPECT_THAT(second, LineIs("5 0, 5 5"));

  VertexLine touching = line("5 0, 5 5");
  VertexLine touched = line("0 0, 10 0");
  EXPECT_TRUE(zr2DTools::tidyIntersectingPolygons(touching, touched, tolerance));
  EXPECT_THAT(touching, LineIs("5 0, 5 5"));
  EXPECT_THAT(touched, LineIs("0 0, 5 0, 10 0"));
}

TEST(TidyIntersectingPolygons, IsFalseForFewerThanTwoVertices) {
  VertexLine first = line("0 0");
  VertexLine second = line("-1 0, 1 0");
  EXPECT_FALSE(zr2DTools::tidyIntersectingPolygons(first, second, tolerance));
  EXPECT_FALSE(zr2DTools::tidyIntersectingPolygons(second, first, tolerance));
  VertexLine empty;
  EXPECT_FALSE(zr2DTools::tidyIntersectingPolygons(empty, second, tolerance));
  EXPECT_THAT(second, LineIs("-1 0, 1 0"));
}

TEST(TidyIntersectingPolygons, KnowsNoSideBetweenLastAndFirstVertex) {
  VertexLine open = line("0 0, 10 0, 10 10, 0 10");
  VertexLine second = line("-5 5, 5 5");
  EXPECT_FALSE(zr2DTools::tidyIntersectingPolygons(open, second, tolerance));
}

}  // namespace
