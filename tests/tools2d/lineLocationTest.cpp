#include <zrBase/tools2d/lineLocation.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

namespace {

constexpr double tolerance = 1e-05;
constexpr double unset = 3.4028234663852886e38;

/// getLineSegmentContaining as one number: the index, or "no" with the index that was left, as -200
/// - index.
int containing(const char* text, const gdfVertex& p, bool allowBeforeStart = true,
               bool allowBeyondEnd = true, double maxDistance = unset) {
  int index = 42;
  const bool found = zr2DTools::getLineSegmentContaining(line(text), p, index, allowBeforeStart,
                                                         allowBeyondEnd, maxDistance);
  return found ? index : -200 - index;
}
constexpr int noSegment = -198;

const char* const straight = "0 0, 10 0, 20 0";

TEST(SideOfLine, IsThatOfTheSegmentBesideTheVertex) {
  const VertexLine corner = line("0 0, 10 0, 10 10");
  EXPECT_EQ(zr2DTools::getSideOfLine(corner, {5, 1}, tolerance), zre::sideLeft);
  EXPECT_EQ(zr2DTools::getSideOfLine(corner, {5, -1}, tolerance), zre::sideRight);
  EXPECT_EQ(zr2DTools::getSideOfLine(corner, {11, 8}, tolerance), zre::sideRight);
  EXPECT_EQ(zr2DTools::getSideOfLine(corner, {10, 4}, tolerance), zre::sideOn);
}

TEST(SideOfLine, RunsOnPastBothEnds) {
  EXPECT_EQ(zr2DTools::getSideOfLine(line(straight), {-3, 1}, tolerance), zre::sideLeft);
  EXPECT_EQ(zr2DTools::getSideOfLine(line(straight), {-3, -1}, tolerance), zre::sideRight);
  EXPECT_EQ(zr2DTools::getSideOfLine(line(straight), {23, 1}, tolerance), zre::sideLeft);
  EXPECT_EQ(zr2DTools::getSideOfLine(line(straight), {23, -1}, tolerance), zre::sideRight);
}

TEST(SideOfLine, IsNoneForFewerThanTwoVertices) {
  EXPECT_EQ(zr2DTools::getSideOfLine(line("0 0"), {0, 0}, tolerance), zre::sideNone);
  EXPECT_EQ(zr2DTools::getSideOfLine(line(""), {0, 0}, tolerance), zre::sideNone);
}

TEST(SideOfLine, IsNoneBeyondTheEndOfATwoVertexLineAlone) {
  EXPECT_EQ(zr2DTools::getSideOfLine(line("0 0, 1 0"), {2, 1}, tolerance), zre::sideNone);
  EXPECT_EQ(zr2DTools::getSideOfLine(line("0 0, 1 0"), {-1, 1}, tolerance), zre::sideLeft);
}

TEST(SideOfLine, IsOnAtAVertexThatIsDoubled) {
  EXPECT_EQ(zr2DTools::getSideOfLine(line("0 0, 10 0, 10 0, 20 0"), {10, 0}, 0.0), zre::sideOn);
}

TEST(LineSegmentContaining, FindsTheSegmentBesideTheVertex) {
  EXPECT_EQ(containing(straight, {5, 3}), 0);
  EXPECT_EQ(containing(straight, {15, -3}), 1);
  EXPECT_EQ(containing("0 0, 10 0", {5, 3}), 0);
}

TEST(LineSegmentContaining, KeepsTheFirstOfEquallyCloseSegments) {
  EXPECT_EQ(containing(straight, {10, 3}), 0);
}

TEST(LineSegmentContaining, TakesTheCloserOfTwoSectors) {
  // (10, 0) is a right angle turned left; outside it both sectors reach to the mitre only, and far
  // in the bend of a U the sectors of both arms overlap.
  EXPECT_EQ(containing("0 0, 100 0, 100 10, 0 10", {50, 2}), 0);
  EXPECT_EQ(containing("0 0, 10 0, 10 10", {12, -1}), 1);
  EXPECT_EQ(containing("0 0, 10 0, 10 10", {11, -2}), 0);
}

TEST(LineSegmentContaining, IsBeforeTheStartOnlyWhereAllowed) {
  EXPECT_EQ(containing(straight, {-5, 1}, false, true), noSegment);
  EXPECT_EQ(containing(straight, {-5, 1}, true, false), -1);
  EXPECT_EQ(containing(straight, {0, 1}, false, false), 0);
}

TEST(LineSegmentContaining, IsBeyondTheEndOnlyWhereAllowed) {
  EXPECT_EQ(containing(straight, {25, 1}, true, false), noSegment);
  EXPECT_EQ(containing(straight, {25, 1}, false, true), 2);
  EXPECT_EQ(containing(straight, {20, 1}, false, false), 1);
}

TEST(LineSegmentContaining, KeptTwoVertexLineStopsAtItsEnd) {
  EXPECT_EQ(containing("0 0, 10 0", {12, 1}, true, true), noSegment);
  EXPECT_EQ(containing("0 0, 10 0", {-2, 1}, true, true), -1);
  EXPECT_EQ(containing("0 0, 10 0", {10, 1}, false, false), 0);
}

TEST(LineSegmentContaining, LooksStrictlyWithinTheDistance) {
  EXPECT_EQ(containing(straight, {5, 3}, true, true, 3.0), noSegment);
  EXPECT_EQ(containing(straight, {5, 3}, true, true, 3.5), 0);
  EXPECT_EQ(containing(straight, {5, 0}, true, true, 0.0), noSegment);
}

TEST(LineSegmentContaining, KeptZeroLengthSegmentAnswersAtOnce) {
  const char* const doubled = "0 0, 10 0, 10 0, 20 0";
  EXPECT_EQ(containing(doubled, {10, 0}, false, false, 0.0), 1);
  // Over segment 0, which was found before with the distance 0.
  EXPECT_EQ(containing(doubled, {10, 0}), 1);
  // Equality is in space.
  EXPECT_EQ(containing(doubled, {10, 0, 5}), 0);
}

TEST(LineSegmentContaining, CarriesTheMitreOverASegmentWithoutLength) {
  EXPECT_EQ(containing("0 0, 10 0, 10 0, 20 0", {12, 1}), 2);
  EXPECT_EQ(containing("0 0, 10 0, 10 0, 20 0", {8, 1}), 0);
}

TEST(LineSegmentContaining, MakesAMitreOfOneDirectionBesideASegmentWithoutLength) {
  // The segment before the upright has no direction, so the plane at its top is level: (13, 9) lies
  // below it. With the direction of the first segment it would slope and give the vertex to the
  // top.
  EXPECT_EQ(containing("0 0, 10 0, 10 0, 10 10, 0 10", {13, 9}), 2);
}

TEST(LineSegmentContaining, StartsWithoutAMitreAfterALeadingDouble) {
  // No plane was made yet, so that nothing bounds the first true segment towards its start.
  EXPECT_EQ(containing("0 0, 0 0, 10 0", {-4, 1}, false, false), 1);
}

TEST(LineSegmentContaining, KeptMitreLagsOneVertex) {
  // The mitre of vertex 2 would run from (10, 10) to the south-west and give (6, 8) to the top,
  // segment 2. The plane that stands there has the normal of vertex 1 and runs to the north-west,
  // so that (6, 8) belongs to the upright.
  EXPECT_EQ(containing("0 0, 10 0, 10 10, 0 10", {6, 8}), 1);
}

TEST(LineSegmentContaining, MeasuresInSpace) {
  // In the map (1, 0) lies beside the line; in space it lies below the plane at its start.
  EXPECT_EQ(containing("0 0 0, 10 0 10", {1, 0, -5}, true, true), -1);
  EXPECT_EQ(containing("0 0 0, 10 0 10", {1, 0, -5}, false, true), noSegment);
  // 3 in the map, 5 in space.
  EXPECT_EQ(containing(straight, {5, 3, 4}, true, true, 4.0), noSegment);
  EXPECT_EQ(containing(straight, {5, 3, 4}, true, true, 5.5), 0);
}

TEST(LineSegmentContaining, LeavesTheIndexAloneForFewerThanTwoVertices) {
  EXPECT_EQ(containing("0 0", {0, 0}), -242);
  EXPECT_EQ(containing("", {0, 0}), -242);
}

TEST(LineSegmentContaining, FindsNothingForANaN) {
  EXPECT_EQ(containing(straight, vertex("nan 1")), noSegment);
}

RC_GTEST_PROP(LineSegmentContaining, IsTheSameAfterAnExactShift, (bool before, bool beyond)) {
  const auto drawn = [] {
    const double x = *rc::gen::inRange(-8, 9);
    return gdfVertex(x, *rc::gen::inRange(-8, 9), *rc::gen::inRange(0, 3));
  };
  VertexLine original;
  for (int i = *rc::gen::inRange(0, 8); i > 0; --i) original.push_back(drawn());
  const gdfVertex p = drawn();
  const gdfVertex shift(*rc::gen::inRange(-640, 640) / 64.0, *rc::gen::inRange(-640, 640) / 64.0);
  VertexLine shifted = original;
  for (gdfVertex& v : shifted) v += shift;
  int index = -9;
  int shiftedIndex = -9;
  RC_ASSERT(
      zr2DTools::getLineSegmentContaining(original, p, index, before, beyond, unset) ==
      zr2DTools::getLineSegmentContaining(shifted, p + shift, shiftedIndex, before, beyond, unset));
  RC_ASSERT(index == shiftedIndex);
  RC_ASSERT(zr2DTools::getSideOfLine(original, p, tolerance) ==
            zr2DTools::getSideOfLine(shifted, p + shift, tolerance));
}

/// Result and length of lengthAlong2D.
using Along = std::pair<int, double>;
Along along(const char* text, const gdfVertex& p, bool extend = false) {
  double length = 42.0;
  const int result = zr2DTools::lengthAlong2D(line(text), p, length, extend);
  return {result, length};
}

TEST(LengthAlong2D, MeasuresToTheFootOfThePerpendicular) {
  EXPECT_EQ(along(straight, {12, 1}), Along(1, 12.0));
  EXPECT_EQ(along(straight, {3, -4, 99}), Along(0, 3.0));
  EXPECT_EQ(along("0 0, 3 4, 9 4", {5, 5}), Along(1, 7.0));
}

TEST(LengthAlong2D, GivesTheLowerIndexBetweenTwoVertices) {
  EXPECT_EQ(along(straight, {5, 0}), Along(0, 5.0));
  EXPECT_EQ(along(straight, {15, 0}), Along(1, 15.0));
}

TEST(LengthAlong2D, TakesAVertexAtItsOwnIndex) {
  EXPECT_EQ(along(straight, {0, 0}), Along(0, 0.0));
  EXPECT_EQ(along(straight, {10, 0, 99}), Along(1, 10.0));
  EXPECT_EQ(along(straight, {20, 0}), Along(2, 20.0));
  EXPECT_EQ(along("4 4", {4, 4}), Along(0, 0.0));
}

TEST(LengthAlong2D, KeptLastEqualVertexIsTaken) {
  EXPECT_EQ(along("0 0, 10 0, 10 0, 20 0", {10, 0}), Along(2, 10.0));
  EXPECT_EQ(along("0 0, 3 0, 3 4, 0 0", {0, 0}), Along(3, 12.0));
}

TEST(LengthAlong2D, KeptLeastOffsetFromSegmentStartWins) {
  // Feet: (9.5, 0) is 9.5 from its segment's start, (10, 2) is 2, (9.5, 10) is 0.5 and wins, though
  // it is the farthest from the vertex of the three.
  EXPECT_EQ(along("0 0, 10 0, 10 10, 0 10", {9.5, 2}), Along(2, 20.5));
}

TEST(LengthAlong2D, KeepsTheFirstOfEqualOffsets) {
  // (10, 1) and (9, 10) are both 1 from the starts of their segments.
  EXPECT_EQ(along("0 0, 10 0, 10 10, 0 10", {9, 1}), Along(1, 11.0));
}

TEST(LengthAlong2D, ReachesAsFarAsTheSegmentIsLong) {
  EXPECT_EQ(along("0 0, 10 0", {5, 10}), Along(0, 5.0));
  EXPECT_EQ(along("0 0, 10 0", {5, 10.25}), Along(-1, 0.0));
}

TEST(LengthAlong2D, GivesMinusOneWithoutAProjection) {
  EXPECT_EQ(along(straight, {-3, 5}), Along(-1, 0.0));
  EXPECT_EQ(along(straight, {24, 1}), Along(-1, 0.0));
  EXPECT_EQ(along("", {0, 0}), Along(-1, 0.0));
  EXPECT_EQ(along("4 4", {4, 5}), Along(-1, 0.0));
}

TEST(LengthAlong2D, RunsOnBeforeTheStartWithNegativeLength) {
  EXPECT_EQ(along("0 0, 10 0", {-3, 5}, true), Along(0, -3.0));
}

TEST(LengthAlong2D, RunsOnBeyondTheEndWithMinusTwo) {
  EXPECT_EQ(along("0 0, 10 0", {14, 1}, true), Along(-2, 14.0));
  EXPECT_EQ(along("0 0, 10 0, 10 10", {11, 15}, true), Along(-2, 25.0));
}

TEST(LengthAlong2D, ExtendsByTenThousandTimesTheEndSegment) {
  EXPECT_EQ(along("0 0, 1 0", {-10000, 3}, true), Along(0, -10000.0));
  EXPECT_EQ(along("0 0, 1 0", {-10001, 3}, true), Along(-1, 0.0));
  EXPECT_EQ(along("0 0, 1 0", {10001, 3}, true), Along(-2, 10001.0));
  EXPECT_EQ(along("0 0, 1 0", {10002, 3}, true), Along(-1, 0.0));
}

TEST(LengthAlong2D, ExtendsOnlyWhenNoSegmentTookTheVertex) {
  EXPECT_EQ(along("0 0, 10 0, 10 10", {-2, 5}, true), Along(0, -2.0));
  EXPECT_EQ(along("0 0, 10 0, 10 10", {2, 5}, true), Along(0, 2.0));
}

TEST(LengthAlong2D, KeptStartExtensionIsTriedFirst) {
  // Feet on the extensions: (-2, 0), 5 away, and (1, 5), only 3 away.
  EXPECT_EQ(along("0 0, 1 0, 1 1", {-2, 5}, true), Along(0, -2.0));
}

TEST(LengthAlong2D, GivesMinusOneWhereNoExtensionReaches) {
  EXPECT_EQ(along("0 0, 10 0, 10 10", {12, -2}, true), Along(-1, 0.0));
  EXPECT_EQ(along("", {0, 0}, true), Along(-1, 0.0));
  EXPECT_EQ(along("4 4", {4, 5}, true), Along(-1, 0.0));
}

TEST(LengthAlong2D, LengthMayBeACoordinateOfTheVertexOrTheLine) {
  gdfVertex p(12, 1);
  EXPECT_EQ(zr2DTools::lengthAlong2D(line(straight), p, p.x(), false), 1);
  EXPECT_THAT(p, VertexIs("12 1"));
  gdfVertex before(5, 3);
  EXPECT_EQ(zr2DTools::lengthAlong2D(line(straight), before, before.y(), false), 0);
  EXPECT_THAT(before, VertexIs("5 5"));
  VertexLine ownLength = line(straight);
  EXPECT_EQ(zr2DTools::lengthAlong2D(ownLength, {12, 1}, ownLength[1].x(), false), 1);
  EXPECT_THAT(ownLength, LineIs("0 0, 12 0, 20 0"));
}

int crossings(const char* text, const gdfVertex& a, const gdfVertex& b,
              double withTolerance = tolerance) {
  return zr2DTools::getNumberIntersections(line(text), a, b, withTolerance);
}

const char* const closedSquare = "0 0, 10 0, 10 10, 0 10, 0 0";
const char* const openSquare = "0 0, 10 0, 10 10, 0 10";

TEST(NumberIntersections, CountsCrossingsOfARing) {
  EXPECT_EQ(crossings(closedSquare, {5, -5}, {5, 5}), 1);
  EXPECT_EQ(crossings(closedSquare, {5, -5}, {5, 15}), 2);
  EXPECT_EQ(crossings(closedSquare, {-5, 5}, {5, 5}), 1);
  EXPECT_EQ(crossings(closedSquare, {2, 2}, {5, 5}), 0);
}

TEST(NumberIntersections, IsZeroForFewerThanTwoVertices) {
  EXPECT_EQ(crossings("", {5, -5}, {5, 5}), 0);
  EXPECT_EQ(crossings("5 0", {5, -5}, {5, 5}), 0);
}

TEST(NumberIntersections, CountsACornerOnce) {
  EXPECT_EQ(crossings(closedSquare, {5, -10}, {15, 10}), 1);
}

TEST(NumberIntersections, CountsACornerTwiceWithoutTolerance) {
  EXPECT_EQ(crossings(closedSquare, {5, -10}, {15, 10}, 0.0), 2);
}

TEST(NumberIntersections, CountsTheClosingVertexOnce) {
  EXPECT_EQ(crossings(closedSquare, {-5, 10}, {5, -10}), 1);
  // Both the closing vertex and the corner across from it: the last crossing repeats the first, not
  // the one before.
  EXPECT_EQ(crossings(closedSquare, {-5, -5}, {15, 15}), 2);
}

TEST(NumberIntersections, ComparesCrossingsWithTheHeightsOfTheLine) {
  // The corner stands twice, at two heights.
  EXPECT_EQ(crossings("0 0, 10 0 0, 10 0 5, 10 10 5, 0 10, 0 0", {5, -10}, {15, 10}), 2);
}

TEST(NumberIntersections, KeptOpenLineIsCompletedToRing) {
  EXPECT_EQ(crossings("0 10, 5 0, 10 10", {5, 15}, {5, 5}), 1);
  EXPECT_EQ(crossings(openSquare, {-5, 5}, {5, 5}), 1);
}

TEST(NumberIntersections, CountsATwoVertexLineOnce) {
  EXPECT_EQ(crossings("0 0, 10 0", {5, -5}, {5, 5}), 1);
}

TEST(NumberIntersections, KeptCompletingSegmentComparesExactly) {
  // (9.75, 9.5) on the right arm and (9.75, 10) on the open side lie within the tolerance of each
  // other.
  EXPECT_EQ(crossings("0 10, 5 0, 10 10", {9.75, 5}, {9.75, 15}, 1.0), 2);
  EXPECT_EQ(crossings("0 10, 5 0, 10 10, 0 10", {9.75, 5}, {9.75, 15}, 1.0), 1);
}

TEST(NumberIntersections, KeptCompletingSegmentIgnoresFirstHit) {
  // Through (0, 0), then (10, 10), then (0, 0) again on the side that is missing. Closed, it
  // counts 2.
  EXPECT_EQ(crossings(openSquare, {-5, -5}, {15, 15}), 3);
}

}  // namespace
