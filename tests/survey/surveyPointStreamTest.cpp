#include <zrBase/survey/zrSurveyCoordinatePoints.h>

#include <gtest/gtest.h>

#include "survey/support/surveyPoints.h"

#include <string>
#include <type_traits>

namespace {

/// What a new object makes of "inline trace, inline trace, ...".
zrSurveyCoordinatePoints streamed(const std::string& text) {
  zrSurveyCoordinatePoints points;
  addPoints(points, text);
  return points;
}

zrSurveyCoordinatePoints stored(const std::string& text) {
  zrSurveyCoordinatePoints points;
  storePoints(points, text);
  return points;
}

TEST(SurveyStream, StartsUnset) {
  const zrSurveyCoordinatePoints points;
  EXPECT_EQ(points.inlineInterval, unsetNumber);
  EXPECT_EQ(points.traceInterval, unsetNumber);
  EXPECT_EQ(points.lastInline, unsetNumber);
  EXPECT_EQ(points.lastTrace, unsetNumber);
  EXPECT_EQ(points.minInline, unsetNumber);
  EXPECT_EQ(points.minTrace, unsetNumber);
  EXPECT_TRUE(points.recalculated);
  EXPECT_TRUE(points.storedPoints.empty());
  EXPECT_THAT(points.longestRowStart, PointIs("unset"));
  EXPECT_THAT(points.columnEnd, PointIs("unset"));
  EXPECT_TRUE(std::has_virtual_destructor_v<zrSurveyCoordinatePoints>);
}

// Steps.

TEST(SurveyStream, IntervalsAreOneWithoutPoints) {
  const zrSurveyCoordinatePoints points;
  EXPECT_EQ(points.InlineInterval(), 1.0);
  EXPECT_EQ(points.TraceInterval(), 1.0);
}

TEST(SurveyStream, InlineIntervalIsTheSmallestStep) {
  const zrSurveyCoordinatePoints points = streamed("10 1, 10 2, 12 1");
  EXPECT_EQ(points.inlineInterval, 2.0);
  EXPECT_EQ(points.InlineInterval(), 2.0);
  EXPECT_EQ(streamed("10 1, 15 1, 12 2").inlineInterval, 3.0) << "downwards too";
}

TEST(SurveyStream, FirstPointMakesNoStep) {
  const zrSurveyCoordinatePoints points = streamed("10 5");
  EXPECT_EQ(points.inlineInterval, unsetNumber);
  EXPECT_EQ(points.traceInterval, unsetNumber);
  EXPECT_EQ(points.lastInline, 10.0);
  EXPECT_EQ(points.lastTrace, 5.0);
}

TEST(SurveyStream, KeptRowExtensionWritesWholeSpan) {
  EXPECT_EQ(streamed("7 10, 7 20").traceInterval, 10.0);
  EXPECT_EQ(streamed("7 10, 7 20, 7 12").traceInterval, 8.0);
  // 21 goes on from 20 by 1, and 21 - 10 is written.
  EXPECT_EQ(streamed("7 10, 7 20, 7 12, 7 21").traceInterval, 11.0);
}

TEST(SurveyStream, RowExtendedDownwardsWritesItsStep) {
  // The step 30 to 11 is 19; but 11 lies 1 below the start of the row.
  const zrSurveyCoordinatePoints points = streamed("7 12, 7 30, 7 11");
  EXPECT_EQ(points.traceInterval, 1.0);
  EXPECT_THAT(points.rowStart, PointIs("7 11 110 70"));
  EXPECT_THAT(points.rowEnd, PointIs("7 30 300 70"));
}

TEST(SurveyStream, KeptColumnStepGoesToTraceInterval) {
  const zrSurveyCoordinatePoints upwards = streamed("10 7, 30 7, 12 7, 31 7");
  EXPECT_EQ(upwards.inlineInterval, 18.0);
  EXPECT_EQ(upwards.traceInterval, 21.0);
  const zrSurveyCoordinatePoints downwards = streamed("12 7, 30 7, 11 7");
  EXPECT_EQ(downwards.inlineInterval, 18.0);
  EXPECT_EQ(downwards.traceInterval, 1.0);
  // The trace interval, 0.5 by then, has no say: it rises.
  EXPECT_EQ(streamed("10 6.5, 10 7, 30 7, 12 7").traceInterval, 0.5);
  EXPECT_EQ(streamed("10 6.5, 10 7, 30 7, 12 7, 31 7").traceInterval, 21.0);
  EXPECT_EQ(streamed("12 6.5, 12 7, 30 7").traceInterval, 0.5);
  EXPECT_EQ(streamed("12 6.5, 12 7, 30 7, 11 7").traceInterval, 1.0);
  // And a step that is not below the inline interval is not written, however high it is.
  EXPECT_EQ(streamed("10 7, 11 7").traceInterval, unsetNumber);
  EXPECT_EQ(streamed("11 7, 10 7").traceInterval, unsetNumber);
}

TEST(SurveyStream, ColumnExtendedDownwardsStartsThere) {
  zrSurveyCoordinatePoints points = streamed("12 7, 30 7, 11 7");
  EXPECT_THAT(points.columnStart, PointIs("11 7 70 110"));
  EXPECT_THAT(points.columnEnd, PointIs("30 7 70 300"));
  // From 11 to 30 are 19, more than the 18 of the next column.
  addPoints(points, "10 8, 28 8, 1 9");
  EXPECT_THAT(points.longestColumnStart, PointIs("11 7 70 110"));
  EXPECT_THAT(points.longestColumnEnd, PointIs("30 7 70 300"));
}

// Rows, columns and extremes.

TEST(SurveyStream, RowHoldsLowestAndHighestTrace) {
  const zrSurveyCoordinatePoints points = streamed("7 3, 7 1, 7 2");
  EXPECT_THAT(points.rowStart, PointIs("7 1 10 70"));
  EXPECT_THAT(points.rowEnd, PointIs("7 3 30 70"));
  EXPECT_THAT(points.longestRowStart, PointIs("unset")) << "not finished";
}

TEST(SurveyStream, LongestRowIsTheLongestFinishedOne) {
  zrSurveyCoordinatePoints points = streamed("1 1, 1 2, 2 1, 2 4, 3 1, 3 9");
  EXPECT_THAT(points.longestRowStart, PointIs("2 1 10 20"));
  EXPECT_THAT(points.longestRowEnd, PointIs("2 4 40 20"));
  points.End();
  EXPECT_THAT(points.longestRowStart, PointIs("3 1 10 30"));
  EXPECT_THAT(points.longestRowEnd, PointIs("3 9 90 30"));
}

TEST(SurveyStream, EqualRowsKeepTheEarlier) {
  zrSurveyCoordinatePoints points = streamed("1 1, 1 5, 2 2, 2 6, 3 1, 3 5");
  points.End();
  EXPECT_THAT(points.longestRowStart, PointIs("1 1 10 10"));
  EXPECT_THAT(points.longestRowEnd, PointIs("1 5 50 10"));
}

TEST(SurveyStream, KeptInterruptedRowStartsAnew) {
  zrSurveyCoordinatePoints points = streamed("1 1, 1 3, 2 1, 2 2, 1 4, 1 5");
  points.End();
  EXPECT_THAT(points.longestRowStart, PointIs("1 1 10 10"));
  EXPECT_THAT(points.longestRowEnd, PointIs("1 3 30 10"));
}

TEST(SurveyStream, RowsAreComparedExactly) {
  const zrSurveyCoordinatePoints points = streamed("1 1, 1.0000000000000002 2");
  EXPECT_THAT(points.rowStart.traceNumber, 2.0);
}

TEST(SurveyStream, LongestColumnIsTheLongestFinishedOne) {
  const zrSurveyCoordinatePoints points = streamed("1 1, 2 1, 1 2, 5 2, 3 2, 1 3");
  EXPECT_THAT(points.longestColumnStart, PointIs("1 2 20 10"));
  EXPECT_THAT(points.longestColumnEnd, PointIs("5 2 20 50"));
  EXPECT_THAT(points.columnStart, PointIs("1 3 30 10"));
}

TEST(SurveyStream, EqualColumnsKeepTheEarlier) {
  const zrSurveyCoordinatePoints points = streamed("1 1, 3 1, 2 2, 4 2, 1 3");
  EXPECT_THAT(points.longestColumnStart, PointIs("1 1 10 10"));
}

TEST(SurveyStream, KeptEndComparesColumnsByTrace) {
  zrSurveyCoordinatePoints points = streamed("1 1, 2 1, 1 2, 5 2");
  points.End();
  // The column of trace 2 is the longer one, and the last.
  EXPECT_THAT(points.longestColumnStart, PointIs("1 1 10 10"));
  EXPECT_THAT(points.longestColumnEnd, PointIs("2 1 10 20"));
  points.columnEnd.traceNumber = 3.0;
  points.End();
  EXPECT_THAT(points.longestColumnEnd, PointIs("5 3 20 50")) << "a span of 1 in trace";
}

TEST(SurveyStream, KeptFreshStreamIsNotSeeded) {
  EXPECT_FALSE(zrSurveyCoordinatePoints().firstPoint);
  const zrSurveyCoordinatePoints points = streamed("2 1, 2 2, 2 3, 1 1, 1 2, 1 3, 3 1, 3 2, 3 3");
  EXPECT_THAT(points.minInlinePoint, PointIs("1 1 10 10"));
  EXPECT_THAT(points.maxInlinePoint, PointIs("unset"));
  EXPECT_THAT(points.minTracePoint, PointIs("2 1 10 20"));
  EXPECT_THAT(points.maxTracePoint, PointIs("unset"));
}

TEST(SurveyStream, SeedBecomesAllTrackingPoints) {
  zrSurveyCoordinatePoints points = streamed("1 1, 1 2, 2 1");
  points.firstPoint = true;
  points.AddPoint(70.0, 80.0, 5.0, 6.0);
  EXPECT_FALSE(points.firstPoint);
  for (const zrSurveyPoint& p :
       {points.longestRowStart, points.longestRowEnd, points.minInlinePoint, points.maxInlinePoint,
        points.longestColumnStart, points.longestColumnEnd, points.minTracePoint,
        points.maxTracePoint, points.rowStart, points.rowEnd, points.columnStart,
        points.columnEnd}) {
    EXPECT_THAT(p, PointIs("5 6 70 80"));
  }
}

TEST(SurveyStream, SeededStreamFindsAllExtremes) {
  zrSurveyCoordinatePoints points;
  points.firstPoint = true;
  addPoints(points, "2 1, 2 2, 2 3, 1 1, 1 2, 1 3, 3 1, 3 2, 3 3");
  EXPECT_THAT(points.minInlinePoint, PointIs("1 1 10 10"));
  EXPECT_THAT(points.maxInlinePoint, PointIs("3 1 10 30"));
  EXPECT_THAT(points.minTracePoint, PointIs("2 1 10 20"));
  EXPECT_THAT(points.maxTracePoint, PointIs("2 3 30 20"));
}

TEST(SurveyStream, KeptSeedLeavesLastNumbers) {
  zrSurveyCoordinatePoints points;
  points.firstPoint = true;
  addPoints(points, "10 5");
  EXPECT_EQ(points.lastInline, unsetNumber);
  EXPECT_EQ(points.lastTrace, unsetNumber);
  addPoints(points, "12 9");
  EXPECT_EQ(points.inlineInterval, unsetNumber) << "the step from the seed is not seen";
  EXPECT_EQ(points.traceInterval, unsetNumber);
  addPoints(points, "15 14");
  EXPECT_EQ(points.inlineInterval, 3.0);
  EXPECT_EQ(points.traceInterval, 5.0);
}

// Stored points.

TEST(SurveyStore, KeepsRecordsAndBounds) {
  const zrSurveyCoordinatePoints points = stored("5 7, 3 9, 4 8");
  ASSERT_EQ(points.storedPoints.size(), 3u);
  EXPECT_THAT(points.storedPoints[1], PointIs("3 9 90 30"));
  EXPECT_EQ(points.minInline, 3.0);
  EXPECT_EQ(points.maxInline, 5.0);
  EXPECT_EQ(points.minTrace, 7.0);
  EXPECT_EQ(points.maxTrace, 9.0);
}

TEST(SurveyStore, LeavesTheTrackingAlone) {
  const zrSurveyCoordinatePoints points = stored("5 7, 3 9");
  EXPECT_EQ(points.lastInline, unsetNumber);
  EXPECT_THAT(points.rowStart, PointIs("unset"));
  EXPECT_THAT(points.minInlinePoint, PointIs("unset"));
}

TEST(SurveyStore, KeptStoredMaximaStartAtZero) {
  const zrSurveyCoordinatePoints points = stored("-5 -7, -3 -9");
  EXPECT_EQ(points.minInline, -5.0);
  EXPECT_EQ(points.maxInline, 0.0);
  EXPECT_EQ(points.minTrace, -9.0);
  EXPECT_EQ(points.maxTrace, 0.0);
}

TEST(SurveyStore, ArgumentsMayReferIntoTheStore) {
  zrSurveyCoordinatePoints points = stored("5 7");
  for (int k = 0; k < 100; ++k) {
    const zrSurveyPoint& first = points.storedPoints.front();
    points.AddStoredPoint(first.x, first.y, first.inlineNumber, first.traceNumber);
  }
  ASSERT_EQ(points.storedPoints.size(), 101u);
  for (const zrSurveyPoint& p : points.storedPoints) EXPECT_THAT(p, PointIs("5 7 70 50"));
}

// Recalculation.

TEST(SurveyRecalculation, ChangesNothingWithoutStoredPoints) {
  zrSurveyCoordinatePoints points = streamed("1 1, 1 2, 2 1");
  points.recalculated = false;
  points.minInline = 3.0;
  const std::vector<double> before = numbersOf(points);
  EXPECT_FALSE(points.RecalculateCoordinates());
  EXPECT_EQ(numbersOf(points), before);
}

TEST(SurveyRecalculation, KeptRecalculationShrinksAgain) {
  zrSurveyCoordinatePoints points = stored("0 0, 100 100");
  points.inlineInterval = 1.0;
  points.traceInterval = 1.0;
  ASSERT_TRUE(points.RecalculateCoordinates());
  EXPECT_EQ(points.minInline, 20.0);
  EXPECT_EQ(points.maxInline, 80.0);
  ASSERT_TRUE(points.RecalculateCoordinates());
  EXPECT_EQ(points.minInline, 32.0);
  EXPECT_EQ(points.maxInline, 68.0);
  EXPECT_EQ(points.minTrace, 32.0);
  EXPECT_EQ(points.maxTrace, 68.0);
  EXPECT_EQ(points.storedPoints.size(), 2u);
}

TEST(SurveyRecalculation, UnsetIntervalGivesAFifthToo) {
  zrSurveyCoordinatePoints points = stored("0 0, 100 100");
  ASSERT_TRUE(points.RecalculateCoordinates());
  EXPECT_NEAR(points.minInline, 20.0, 1e-12);
  EXPECT_NEAR(points.maxTrace, 80.0, 1e-12);
}

TEST(SurveyRecalculation, MarginIsNotRoundedToLines) {
  zrSurveyCoordinatePoints points = stored("0 0, 8 8");
  points.inlineInterval = 4.0;
  ASSERT_TRUE(points.RecalculateCoordinates());
  // (8 / 4) * 0.2 * 4, not a whole number of steps.
  EXPECT_NEAR(points.minInline, 1.6, 1e-15);
  EXPECT_NEAR(points.maxInline, 6.4, 1e-15);
}

TEST(SurveyRecalculation, TakesPointsOnTheBounds) {
  zrSurveyCoordinatePoints points =
      stored("0 0, 2 2, 8 2, 2 8, 8 8, 1.9 5, 8.1 5, 5 1.9, 5 8.1, 10 10");
  points.inlineInterval = 1.0;
  points.traceInterval = 1.0;
  ASSERT_TRUE(points.RecalculateCoordinates());
  EXPECT_EQ(points.minInline, 2.0);
  EXPECT_EQ(points.maxTrace, 8.0);
  EXPECT_THAT(points.minInlinePoint, PointIs("2 2 20 20"));
  EXPECT_THAT(points.maxInlinePoint, PointIs("8 2 20 80"));
  EXPECT_THAT(points.minTracePoint, PointIs("2 2 20 20"));
  EXPECT_THAT(points.maxTracePoint, PointIs("2 8 80 20"));
  EXPECT_EQ(points.lastInline, 8.0);
  EXPECT_EQ(points.lastTrace, 8.0);
}

TEST(SurveyRecalculation, OneInlineHasNoMarginAcrossIt) {
  zrSurveyCoordinatePoints points = stored("50 0, 50 3, 50 5, 50 7, 50 10");
  ASSERT_TRUE(points.RecalculateCoordinates());
  EXPECT_EQ(points.minInline, 50.0);
  EXPECT_EQ(points.maxInline, 50.0);
  // Traces 3, 5, 7 lie within 2 to 8.
  EXPECT_THAT(points.rowStart, PointIs("50 3 30 500"));
  EXPECT_THAT(points.rowEnd, PointIs("50 7 70 500"));
}

TEST(SurveyRecalculation, KeptRecalculationKeepsIntervals) {
  zrSurveyCoordinatePoints points = streamed("1 1, 1.5 1.25, 2 2");
  EXPECT_EQ(points.inlineInterval, 0.5);
  EXPECT_EQ(points.traceInterval, 0.25);
  storePoints(points, "0 0, 4 4, 6 6, 10 10");
  ASSERT_TRUE(points.RecalculateCoordinates());
  EXPECT_EQ(points.inlineInterval, 0.5);
  EXPECT_EQ(points.traceInterval, 0.25);
}

TEST(SurveyRecalculation, WaitsForASeedWhenNothingLiesInside) {
  zrSurveyCoordinatePoints points = streamed("1 1, 1 2, 2 1");
  storePoints(points, "0 0, 100 100");
  points.recalculated = false;
  ASSERT_TRUE(points.RecalculateCoordinates());
  EXPECT_TRUE(points.firstPoint);
  EXPECT_TRUE(points.recalculated);
  EXPECT_EQ(points.lastInline, unsetNumber);
  EXPECT_EQ(points.lastTrace, unsetNumber);
  EXPECT_THAT(points.rowStart, PointIs("unset"));
  EXPECT_THAT(points.minTracePoint, PointIs("unset"));
  EXPECT_THAT(points.columnEnd, PointIs("unset"));
}

TEST(SurveyStream, CopiesEveryField) {
  zrSurveyCoordinatePoints points = streamed("1 1, 1 4, 2 2, 3 2, 3 3");
  storePoints(points, "0 0, 5 5");
  points.firstPoint = true;
  points.recalculated = false;
  const zrSurveyCoordinatePoints copied(points);
  EXPECT_EQ(numbersOf(copied), numbersOf(points));
  zrSurveyCoordinatePoints assigned;
  assigned = points;
  EXPECT_EQ(numbersOf(assigned), numbersOf(points));
}

}  // namespace
