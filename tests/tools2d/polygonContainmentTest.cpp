#include <zrBase/tools2d/polygonContainment.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double tolerance = 1e-05;
const char* const closedSquare = "0 0, 1 0, 1 1, 0 1, 0 0";
const char* const openSquare = "0 0, 1 0, 1 1, 0 1";

bool inside(const char* polygon, const gdfVertex& p, double step = 10.0,
            double hitTolerance = tolerance) {
  return zr2DTools::vertexInsidePolygon(line(polygon), p, step, hitTolerance);
}

TEST(VertexInsidePolygon, IsTrueAtTheCentreOfASquare) {
  EXPECT_TRUE(inside(closedSquare, {0.5, 0.5}));
  EXPECT_TRUE(inside("0 0, 0 1, 1 1, 1 0, 0 0", {0.5, 0.5}));
}

TEST(VertexInsidePolygon, IsFalseOnAllSidesOfASquare) {
  for (const gdfVertex& p : line("2 0.5, -0.5 0.5, 0.5 -3, 0.5 1.5, 0.25 -0.25, -0.25 1.125")) {
    EXPECT_FALSE(inside(closedSquare, p)) << toText(p);
  }
}

TEST(VertexInsidePolygon, CompletesAnOpenRing) {
  EXPECT_TRUE(inside(openSquare, {0.5, 0.5}));
  EXPECT_TRUE(inside(openSquare, {0.125, 0.25}));
  for (const gdfVertex& p : line("2 0.5, -0.5 0.5, 0.5 -3, 0.25 -0.25")) {
    EXPECT_FALSE(inside(openSquare, p)) << toText(p);
  }
}

TEST(VertexInsidePolygon, IsFalseForFewerThanTwoVertices) {
  EXPECT_FALSE(inside("", {0, 0}));
  EXPECT_FALSE(inside("0 0", {0, 0}));
}

TEST(VertexInsidePolygon, FindsOnlyTheEastSideOfASquareInside) {
  // From the east side both segments leave the square: one crossing each, at the vertex itself.
  EXPECT_TRUE(inside(closedSquare, {1, 0.25}));
  // From the west side the first one also leaves through the top, from the top the second one
  // through the east side.
  EXPECT_FALSE(inside(closedSquare, {0, 0.25}));
  EXPECT_FALSE(inside(closedSquare, {0.25, 0}));
  EXPECT_FALSE(inside(closedSquare, {0.25, 1}));
}

TEST(VertexInsidePolygon, KeptInsideNeedsOddCountsFromBothSides) {
  // Top: 1 and 2 crossings. Bottom: 2 and 1.
  EXPECT_FALSE(inside(closedSquare, {0.25, 1}));
  EXPECT_FALSE(inside(closedSquare, {0.25, 0}));
  // With a step too short: the first segment ends outside, the second, or neither, within.
  EXPECT_FALSE(inside("0 0, 10 0, 10 10, 0 10, 0 0", {5, 9}, 1.0));
  EXPECT_FALSE(inside("0 0, 10 0, 10 10, 0 10, 0 0", {8, 5}, 1.0));
}

TEST(VertexInsidePolygon, CountsACornerOnceOnlyWithATolerance) {
  // The first segment leaves through the corner (1, 1).
  EXPECT_TRUE(inside(closedSquare, {0.75, 0.5}));
  EXPECT_FALSE(inside(closedSquare, {0.75, 0.5}, 10.0, 0.0));
}

TEST(VertexInsidePolygon, TakesNoHeightIntoAccount) {
  EXPECT_TRUE(inside("0 0 5, 1 0 5, 1 1 5, 0 1 5, 0 0 5", {0.5, 0.5, -70}));
}

TEST(VertexInsidePolygonWithExtent, RejectsStrictlyOutsideTheExtent) {
  const VertexLine square = line(closedSquare);
  const auto insideWithin = [&square](double minX, double maxX, double minY, double maxY) {
    return zr2DTools::vertexInsidePolygon(square, {0.5, 0.5}, 10.0, minX, maxX, minY, maxY,
                                          tolerance);
  };
  EXPECT_TRUE(insideWithin(0, 1, 0, 1));
  EXPECT_TRUE(insideWithin(0.5, 0.5, 0.5, 0.5));
  EXPECT_FALSE(insideWithin(0.75, 1, 0, 1));
  EXPECT_FALSE(insideWithin(0, 0.25, 0, 1));
  EXPECT_FALSE(insideWithin(0, 1, 0.75, 1));
  EXPECT_FALSE(insideWithin(0, 1, 0, 0.25));
}

TEST(VertexInsidePolygonWithExtent, StillAsksThePolygon) {
  EXPECT_FALSE(
      zr2DTools::vertexInsidePolygon(line(closedSquare), {3, 3}, 10.0, 0, 5, 0, 5, tolerance));
}

RC_GTEST_PROP(VertexInsidePolygon, IsRightForBoxesOffTheirSides, (int x, int y)) {
  // At odd 64ths off a grid of whole numbers no side or corner is met.
  const gdfVertex p((x % 320) + 1.0 / 64.0, (y % 320) + 3.0 / 64.0);
  const bool expected = p.x() > -100 && p.x() < 150 && p.y() > -50 && p.y() < 200;
  RC_ASSERT(inside("-100 -50, 150 -50, 150 200, -100 200", p, 4096.0) == expected);
}

constexpr double step = 100.0;
const char* const large = "0 0, 10 0, 10 10, 0 10, 0 0";
const char* const middle = "1 1, 8 1, 8 8, 1 8, 1 1";
const char* const small = "2 2, 4 2, 4 4, 2 4, 2 2";
const char* const elsewhere = "20 0, 30 0, 30 10, 20 10, 20 0";

TEST(IdentifyInnerOuterPolygons, MovesASquareThatLiesInsideAnother) {
  for (const VertexLineList& list :
       {VertexLineList{line(large), line(small)}, VertexLineList{line(small), line(large)}}) {
    VertexLineList polygons = list;
    VertexLineList inner;
    EXPECT_TRUE(zr2DTools::identifyInnerOuterPolygons(polygons, inner, step, tolerance));
    EXPECT_THAT(polygons, ElementsAre(LineIs(large)));
    EXPECT_THAT(inner, ElementsAre(LineIs(small)));
  }
}

TEST(IdentifyInnerOuterPolygons, LeavesDisjointSquares) {
  VertexLineList polygons{line(large), line(elsewhere)};
  VertexLineList inner;
  EXPECT_FALSE(zr2DTools::identifyInnerOuterPolygons(polygons, inner, step, tolerance));
  EXPECT_THAT(polygons, ElementsAre(LineIs(large), LineIs(elsewhere)));
  EXPECT_THAT(inner, IsEmpty());
}

TEST(IdentifyInnerOuterPolygons, LeavesPolygonsThatOverlap) {
  VertexLineList polygons{line(large), line("5 5, 15 5, 15 15, 5 15, 5 5")};
  VertexLineList inner;
  EXPECT_FALSE(zr2DTools::identifyInnerOuterPolygons(polygons, inner, step, tolerance));
  EXPECT_EQ(polygons.size(), 2u);
}

TEST(IdentifyInnerOuterPolygons, MovesOnesNestedTwoDeepFromTheBack) {
  VertexLineList polygons{line(large), line(elsewhere), line(middle), line(small)};
  VertexLineList inner;
  EXPECT_TRUE(zr2DTools::identifyInnerOuterPolygons(polygons, inner, step, tolerance));
  EXPECT_THAT(polygons, ElementsAre(LineIs(large), LineIs(elsewhere)));
  EXPECT_THAT(inner, ElementsAre(LineIs(small), LineIs(middle)));
}

TEST(IdentifyInnerOuterPolygons, LooksAtVerticesAlone) {
  // The upper side runs over the gap of the U.
  const char* const across = "1 9, 9 9, 9 1, 1 1, 1 9";
  VertexLineList polygons{line("0 0, 10 0, 10 10, 8 10, 8 2, 2 2, 2 10, 0 10, 0 0"), line(across)};
  VertexLineList inner;
  EXPECT_TRUE(zr2DTools::identifyInnerOuterPolygons(polygons, inner, step, tolerance));
  EXPECT_THAT(inner, ElementsAre(LineIs(across)));
}

TEST(IdentifyInnerOuterPolygons, KeptInnerListDecidesTheResult) {
  VertexLineList polygons{line(large), line(elsewhere)};
  VertexLineList inner{line(small)};
  EXPECT_TRUE(zr2DTools::identifyInnerOuterPolygons(polygons, inner, step, tolerance));
  EXPECT_EQ(polygons.size(), 2u);
  EXPECT_THAT(inner, ElementsAre(LineIs(small)));
}

TEST(IdentifyInnerOuterPolygons, KeptPolygonWithoutVerticesIsInner) {
  for (const VertexLineList& list :
       {VertexLineList{line(large), line("")}, VertexLineList{line(""), line(large)}}) {
    VertexLineList polygons = list;
    VertexLineList inner;
    EXPECT_TRUE(zr2DTools::identifyInnerOuterPolygons(polygons, inner, step, tolerance));
    EXPECT_THAT(polygons, ElementsAre(LineIs(large)));
    EXPECT_THAT(inner, ElementsAre(IsEmpty()));
  }
  VertexLineList alone{line("")};
  VertexLineList inner;
  EXPECT_FALSE(zr2DTools::identifyInnerOuterPolygons(alone, inner, step, tolerance));
}

TEST(IdentifyInnerOuterPolygons, KeptNestingLooksAtThoseStillListed) {
  // Each lies inside the other. The last one moves, and the first is left with nothing around it.
  VertexLineList polygons{line(""), line("")};
  VertexLineList inner;
  EXPECT_TRUE(zr2DTools::identifyInnerOuterPolygons(polygons, inner, step, tolerance));
  EXPECT_EQ(polygons.size(), 1u);
  EXPECT_EQ(inner.size(), 1u);
}

TEST(IdentifyInnerOuterPolygons, FindsNothingInAnEmptyList) {
  VertexLineList polygons;
  VertexLineList inner;
  EXPECT_FALSE(zr2DTools::identifyInnerOuterPolygons(polygons, inner, step, tolerance));
}

}  // namespace
