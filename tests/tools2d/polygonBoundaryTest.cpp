#include <zrBase/tools2d/polygonBoundary.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/geometryText.h"

namespace {

constexpr double tolerance = 1e-05;

// Nine vertices and a length of 80, so that a step is 80 / 9.
const char* const frame = "0 0, 10 0, 20 0, 20 10, 20 20, 10 20, 0 20, 0 10, 0 0";

/// What completePolygon adds to a polygon, behind its own vertices.
void expectAdded(const std::string& boundary, const std::string& polygon,
                 const std::string& added) {
  VertexLine completed = line(polygon);
  EXPECT_TRUE(zr2DTools::completePolygon(line(boundary), completed, tolerance));
  EXPECT_THAT(completed, LineIs(polygon + ", " + added));
}

void expectLeftOpen(const std::string& boundary, const std::string& polygon) {
  VertexLine open = line(polygon);
  EXPECT_FALSE(zr2DTools::completePolygon(line(boundary), open, tolerance));
  EXPECT_THAT(open, LineIs(polygon));
}

TEST(CompletePolygon, AddsTheOneVertexBetweenNeighbouringSegments) {
  expectAdded(frame, "15 2, 15 6, 10 8, 5 6, 5 2", "10 0, 15 2");
}

TEST(CompletePolygon, GoesBackOnTheBoundaryWhereThatIsShort) {
  expectAdded(frame, "5 2, 5 6, 10 8, 15 6, 15 2", "20 0, 10 0, 5 2");
}

TEST(CompletePolygon, GoesOnOverTheEndOfTheBoundaryWhereThatIsShort) {
  // The boundary's last and first vertices are equal in plan: the second of them goes.
  expectAdded(frame, "15 2, 14 6, 10 10, 6 14, 5 18", "0 20, 0 10, 0 0, 15 2");
}

TEST(CompletePolygon, GoesForwardOnTheBoundaryWhereThatIsShort) {
  expectAdded(frame, "18 15, 14 14, 10 10, 6 6, 5 2", "10 0, 20 0, 18 15");
}

TEST(CompletePolygon, KeptBackwardArcStopsAtFirstBoundaryVertex) {
  // Not "10 0, 0 0, 0 10, 0 20, 5 18".
  expectAdded(frame, "5 18, 6 14, 6 10, 6 6, 5 2", "10 0, 0 0, 5 18");
}

TEST(CompletePolygon, ClosesAPolygonThatRunsOverTheBoundary) {
  expectAdded(frame, "15 -2, 15 6, 10 8, 5 6, 5 -2", "10 0, 15 -2");
}

TEST(CompletePolygon, LeavesPolygonsWithCloseEnds) {
  expectLeftOpen(frame, "12 2, 15 6, 10 8, 5 6, 8 2");
}

TEST(CompletePolygon, LeavesAPolygonWhoseEndDoesNotReachTheBoundary) {
  expectLeftOpen(frame, "15 12, 15 14, 10 16, 5 6, 5 2");
  expectLeftOpen(frame, "5 2, 5 6, 10 16, 15 14, 15 12");
}

TEST(CompletePolygon, NeedsFiveVerticesOfBoth) {
  expectLeftOpen(frame, "15 2, 15 6, 5 6, 5 2");
  expectLeftOpen("0 0, 20 0, 20 20, 0 20", "15 2, 15 6, 10 8, 5 6, 5 2");
  expectLeftOpen("", "");
}

TEST(CompletePolygon, KeptStepDividesByVertexCount) {
  // The ends are 9.5 apart: more than 80 / 9, less than the mean segment of 80 / 8.
  expectAdded(frame, "14.5 2, 14.5 6, 10 8, 5 6, 5 2", "10 0, 14.5 2");
}

TEST(CompletePolygon, KeptClosenessOfEndsIsMeasuredInSpace) {
  expectAdded(frame, "12 2 0, 15 6 0, 10 8 0, 5 6 50, 8 2 50", "10 0 0, 12 2 0");
}

TEST(CompletePolygon, KeptLaterBoundaryHitReplacesEarlier) {
  // The end that is carried on downwards from (2, 4) meets segments 0 and 2, the other segment 4.
  const char* const folded = "0 0, 20 0, 20 -4, -4 -4, -4 20, 20 20";
  expectAdded(folded, "2 4, 2 8, 10 10, 16 12, 16 18", "20 20, 0 0, 20 0, 2 4");
  expectAdded(folded, "16 18, 16 12, 10 10, 2 8, 2 4", "-4 -4, 16 18");
}

TEST(CompletePolygon, StopsAtTheSegmentThatMakesBothEndsKnown) {
  // The same fold, but the other end meets segment 0 as well: segment 2 is not reached.
  const char* const folded = "0 0, 20 0, 20 -4, -4 -4, -4 20, 20 20";
  expectAdded(folded, "2 4, 2 8, 10 10, 19 8, 19 4", "20 0, 2 4");
}

TEST(CompletePolygon, TestsBothEndsOnTheLastSegment) {
  // Segment 0 meets the last side alone, segment 2 both: it is the segment of both ends.
  const char* const folded = "0 0, 20 0, 20 -4, -4 -4, -4 20, 20 20";
  expectAdded(folded, "18 -3, 18 -1, 9 -1, 2 8, 2 4", "-4 -4, 18 -3");
}

TEST(CompletePolygon, ClosesEndsThatLieExactlyOneStepApart) {
  // A length of 64 over eight vertices is a step of 8.
  expectAdded("0 0, 16 0, 16 16, 0 16, 0 8, 0 4, 0 2, 0 0", "4 2, 4 6, 8 10, 12 6, 12 2",
              "16 0, 4 2");
}

TEST(CompletePolygon, TakesThePolygonAsItsOwnBoundary) {
  VertexLine own = line("0 0, 0 6, 6 6, 6 0, 12 0, 12 6");
  EXPECT_TRUE(zr2DTools::completePolygon(own, own, tolerance));
  EXPECT_THAT(own, LineIs("0 0, 0 6, 6 6, 6 0, 12 0, 12 6, 12 0, 12 6, 0 0"));
}

/// combineBoundaries on texts, with a result that held something before.
struct Combination {
  VertexLine result = line("7 7 7");
  bool touching = false;
  int crossings = 0;

  Combination(const char* first, const char* second, double ignored = 0.0) {
    crossings = zr2DTools::combineBoundaries(line(first), line(second), result, ignored, tolerance,
                                             touching);
  }
};

// Its longest stretch lies between its crossings with x = 5 and with x = 25.
const char* const tower = "0 0, 10 0, 10 40, 20 40, 20 0, 30 0";

TEST(CombineBoundaries, JoinsTheStretchBetweenCrossingsAndAnArc) {
  const Combination joined(tower, "5 5, 5 -5, 15 -6, 25 -5, 25 5");
  EXPECT_EQ(joined.crossings, 2);
  EXPECT_FALSE(joined.touching);
  EXPECT_THAT(joined.result, LineIs("5 0, 10 0, 10 40, 20 40, 25 0, 25 -5, 15 -6, 5 -5"));
}

TEST(CombineBoundaries, KeptCollapsedRingStillReplacesTheResult) {
  // Two crossings, but every vertex of the ring lies within 100 of the one before it.
  VertexLine result = line("7 7 7, 8 8 8");
  bool touching = false;
  EXPECT_EQ(zr2DTools::combineBoundaries(line(tower), line("5 5, 5 -5, 15 -6, 25 -5, 25 5"), result,
                                         0.0, 100.0, touching),
            0);
  EXPECT_THAT(result, LineIs("5 0"));
}

TEST(CombineBoundaries, JoinsTheStretchPastBothEnds) {
  const Combination joined("0 0, 10 0, 10 10, 0 10, 0 0", "5 5, 15 5, 15 15, 5 15, 5 5");
  EXPECT_EQ(joined.crossings, 2);
  EXPECT_THAT(joined.result, LineIs("5 10, 0 10, 0 0, 10 5, 5 5, 15 5, 15 15"));
}

TEST(CombineBoundaries, KeptStretchLeavesOutItsLastVertex) {
  // (20, 0) starts the segment that is crossed at (25, 0).
  const Combination between(tower, "5 5, 5 -5, 15 -6, 25 -5, 25 5");
  EXPECT_THAT(between.result, testing::Not(testing::Contains(VertexIs("20 0"))));
  // (10, 0) starts the segment that is crossed at (10, 5).
  const Combination past("0 0, 10 0, 10 10, 0 10, 0 0", "5 5, 15 5, 15 15, 5 15, 5 5");
  EXPECT_THAT(past.result, testing::Not(testing::Contains(VertexIs("10 0"))));
}

TEST(CombineBoundaries, KeptLongerWayRoundTheSecondBoundary) {
  // Segments 0 and 3 of a boundary of five vertices: three vertices lie between, one elsewhere.
  const Combination backward(tower, "5 5, 5 -5, 15 -6, 25 -5, 25 5");
  EXPECT_THAT(backward.result, LineIs("5 0, 10 0, 10 40, 20 40, 25 0, 25 -5, 15 -6, 5 -5"));
  const Combination forward(tower, "25 5, 25 -5, 15 -6, 5 -5, 5 5");
  EXPECT_THAT(forward.result, LineIs("5 0, 10 0, 10 40, 20 40, 25 0, 25 5, 25 -5, 15 -6"));
  // Segments 1 and 4 of eight vertices: the way over the ends is the longer one.
  const Combination over(tower, "4 9, 5 5, 5 -5, 15 -6, 25 -5, 25 5, 26 9, 27 9");
  EXPECT_THAT(over.result, LineIs("5 0, 10 0, 10 40, 20 40, 25 0, 25 -5, 25 5, 26 9, 27 9, 4 9"));
}

TEST(CombineBoundaries, KeptLastArcBeginsAtTheStartCrossing) {
  // From (25, 0) the ring jumps to the boundary's vertices behind (5, 0).
  const Combination joined(tower, "24 9, 25 5, 25 -5, 15 -6, 5 -5, 5 5, 4 9, 3 9");
  EXPECT_THAT(joined.result, LineIs("5 0, 10 0, 10 40, 20 40, 25 0, 5 -5, 5 5, 4 9, 3 9, 24 9"));
}

TEST(CombineBoundaries, KeptStretchesAreMeasuredBetweenVertices) {
  // The crossings at 99 and 101 are 2 apart, the vertices that start their segments 100.
  const Combination joined("0 0, 100 0, 110 0, 120 0", "99 5, 99 -5, 101 -5, 101 5");
  EXPECT_EQ(joined.crossings, 2);
  EXPECT_THAT(joined.result, LineIs("99 0, 101 0, 101 -5, 101 5"));
}

TEST(CombineBoundaries, PrefersTheStretchPastTheEndsAmongEquals) {
  const Combination joined("0 0, 10 0, 20 0", "5 5, 5 -5, 15 -5, 15 5");
  EXPECT_EQ(joined.crossings, 2);
  EXPECT_THAT(joined.result, LineIs("15 0, 20 0, 5 0, 15 -5, 15 5"));
}

TEST(CombineBoundaries, PrefersTheEarlierOfEqualStretches) {
  // Crossed at 5, 15 and 25, on the segments 0, 1 and 2: both stretches are 10 long, as is the one
  // past the ends. Without the last vertex that is 0 long.
  const Combination past("0 0, 10 0, 20 0, 30 0", "5 5, 5 -5, 15 -5, 15 5, 25 5, 25 -5");
  EXPECT_EQ(past.crossings, 3);
  EXPECT_THAT(past.result.front(), VertexIs("25 0"));
  const Combination first("0 0, 10 0, 20 0, 25.5 0", "5 5, 5 -5, 15 -5, 15 5, 25 5, 25 -5");
  EXPECT_EQ(first.crossings, 3);
  EXPECT_THAT(first.result.front(), VertexIs("5 0"));
}

TEST(CombineBoundaries, TakesTheHeightsOfTheSecondAtItsCrossings) {
  const Combination joined("0 0 9, 10 0 9, 20 0 9", "5 5 1, 5 -5 3, 15 -5 5, 15 5 9");
  EXPECT_THAT(joined.result, LineIs("15 0 7, 20 0 9, 5 0 2, 15 -5 5, 15 5 9"));
}

TEST(CombineBoundaries, IsZeroForASingleCrossing) {
  const Combination single("0 0, 10 0, 20 0", "5 5, 5 -5");
  EXPECT_EQ(single.crossings, 0);
  EXPECT_FALSE(single.touching);
  EXPECT_THAT(single.result, LineIs("7 7 7"));
}

TEST(CombineBoundaries, IsZeroForSharedEndPointsAlone) {
  const Combination shared("0 0, 10 0", "10 0, 20 5");
  EXPECT_EQ(shared.crossings, 0);
  EXPECT_TRUE(shared.touching);
  EXPECT_THAT(shared.result, LineIs("7 7 7"));
}

TEST(CombineBoundaries, ComparesEndPointsInSpace) {
  EXPECT_FALSE(Combination("0 0, 10 0", "10 0 1, 20 5").touching);
}

TEST(CombineBoundaries, IsZeroForFewerThanTwoVertices) {
  EXPECT_EQ(Combination("0 0", "0 0, 1 1").crossings, 0);
  EXPECT_FALSE(Combination("0 0", "0 0, 1 1").touching);
  EXPECT_EQ(Combination("0 0, 1 1", "").crossings, 0);
}

TEST(CombineBoundaries, KeptOneCrossingForEachSegment) {
  // A straight side through a whole boundary: two crossings, but one segment.
  EXPECT_EQ(Combination("0 0, 30 0", "5 5, 5 -5, 15 -5, 15 5").crossings, 0);
  // Of the crossings at 15 and 5 the one on the lower-numbered segment stays.
  const Combination joined("0 0, 20 0, 40 0", "15 5, 15 -5, 5 -5, 5 5, 30 5, 30 -5");
  EXPECT_EQ(joined.crossings, 2);
  EXPECT_THAT(joined.result, LineIs("30 0, 40 0, 15 0, 15 5, 15 -5, 5 -5, 5 5"));
}

TEST(CombineBoundaries, KeptTouchingIsOnlyEverSet) {
  bool touching = true;
  VertexLine result;
  zr2DTools::combineBoundaries(line("0 0, 10 0"), line("50 50, 60 60"), result, 0.0, tolerance,
                               touching);
  EXPECT_TRUE(touching);
  EXPECT_TRUE(Combination("0 0, 10 0, 20 0, 25 9", "25 9, 5 5, 5 -5, 15 -5, 15 5").touching);
}

TEST(CombineBoundaries, KeptFourthArgumentHasNoEffect) {
  const char* const arc = "5 5, 5 -5, 15 -6, 25 -5, 25 5";
  const VertexLine expected = Combination(tower, arc).result;
  for (const double ignored : {1.0, -1e9, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(Combination(tower, arc, ignored).result, expected);
  }
}

TEST(CombineBoundaries, MayWriteItsResultToAnInput) {
  VertexLine boundary = line(tower);
  bool touching = false;
  EXPECT_EQ(zr2DTools::combineBoundaries(boundary, line("5 5, 5 -5, 15 -6, 25 -5, 25 5"), boundary,
                                         0.0, tolerance, touching),
            2);
  EXPECT_THAT(boundary, LineIs("5 0, 10 0, 10 40, 20 40, 25 0, 25 -5, 15 -6, 5 -5"));
}

}  // namespace
