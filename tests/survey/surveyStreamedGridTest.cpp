#include <zrBase/survey/zrSurveyCoordinates.h>

#include <gtest/gtest.h>

#include "support/matrixText.h"
#include "survey/support/surveyPoints.h"

#include <string>
#include <utility>
#include <vector>

namespace {

constexpr const char* identity = "1 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 1";

/// A stream with these ends of its longest row and these extremes of inline.
zrSurveyCoordinates rowGrid(const char* start, const char* end, const char* lowest,
                            const char* highest) {
  zrSurveyCoordinates grid;
  grid.points.longestRowStart = surveyPoint(start);
  grid.points.longestRowEnd = surveyPoint(end);
  grid.points.minInlinePoint = surveyPoint(lowest);
  grid.points.maxInlinePoint = surveyPoint(highest);
  return grid;
}

/// The same with the longest column and the extremes of trace.
zrSurveyCoordinates columnGrid(const char* start, const char* end, const char* lowest,
                               const char* highest) {
  zrSurveyCoordinates grid;
  grid.points.longestColumnStart = surveyPoint(start);
  grid.points.longestColumnEnd = surveyPoint(end);
  grid.points.minTracePoint = surveyPoint(lowest);
  grid.points.maxTracePoint = surveyPoint(highest);
  return grid;
}

/// Stores a survey of inlines and traces 0, step, ... up to last, each inline after the other.
void storeRows(zrSurveyCoordinatePoints& points, double last, double inlineStep, double traceStep) {
  for (double i = 0.0; i <= last; i += inlineStep) {
    for (double t = 0.0; t <= last; t += traceStep) points.AddStoredPoint(10 * t, 10 * i, i, t);
  }
}

void storeColumns(zrSurveyCoordinatePoints& points, double last) {
  for (double t = 0.0; t <= last; t += 1.0) {
    for (double i = 0.0; i <= last; i += 1.0) points.AddStoredPoint(10 * t, 10 * i, i, t);
  }
}

// Corners from the stream.

TEST(SurveyFromStream, ChangesNothingWithoutAStream) {
  zrSurveyCoordinates grid = gridOf("1 2 3 4", "5 6 7 8", "9 10 11 12");
  EXPECT_FALSE(grid.CalculateSurveyCoordinates());
  EXPECT_FALSE(grid.Valid());
  EXPECT_FALSE(grid.Partial());
  EXPECT_THAT(grid.One(), PointIs("1 2 3 4"));
}

TEST(SurveyFromStream, TakesRowAndFurtherExtreme) {
  zrSurveyCoordinates grid = rowGrid("10 1 5 6", "10 9 7 8", "7 4 1 2", "12 3 3 4");
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  EXPECT_THAT(grid.One(), PointIs("10 1 5 6"));
  EXPECT_THAT(grid.Two(), PointIs("10 9 7 8"));
  EXPECT_THAT(grid.Three(), PointIs("7 4 1 2"));
  EXPECT_FALSE(grid.Partial());
  grid = rowGrid("10 1 5 6", "10 9 7 8", "8 4 1 2", "13 3 3 4");
  EXPECT_TRUE(grid.CalculateSurveyCoordinates()) << "nothing of the stream is assigned";
  EXPECT_THAT(grid.Three(), PointIs("7 4 1 2"));
}

TEST(SurveyFromStream, EquallyFarExtremesGiveTheHighest) {
  zrSurveyCoordinates row = rowGrid("10 1 5 6", "10 9 7 8", "8 4 1 2", "12 3 3 4");
  EXPECT_TRUE(row.CalculateSurveyCoordinates());
  EXPECT_THAT(row.Three(), PointIs("12 3 3 4"));
  zrSurveyCoordinates column = columnGrid("1 10 5 6", "9 10 7 8", "4 8 1 2", "3 12 3 4");
  EXPECT_TRUE(column.CalculateSurveyCoordinates());
  EXPECT_THAT(column.Three(), PointIs("3 12 3 4"));
}

TEST(SurveyFromStream, TakesColumnWhereTheRowHasOneTrace) {
  zrSurveyCoordinates grid = columnGrid("1 10 5 6", "9 10 7 8", "4 7 1 2", "3 12 3 4");
  grid.points.longestRowStart = surveyPoint("10 1 5 6");
  grid.points.longestRowEnd = surveyPoint("11 1 7 8");
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  EXPECT_THAT(grid.One(), PointIs("1 10 5 6"));
  EXPECT_THAT(grid.Two(), PointIs("9 10 7 8"));
  EXPECT_THAT(grid.Three(), PointIs("4 7 1 2"));
}

TEST(SurveyFromStream, NeedsTwoEndsThatDiffer) {
  zrSurveyCoordinates grid = columnGrid("1 10 5 6", "1 11 7 8", "4 7 1 2", "3 12 3 4");
  EXPECT_FALSE(grid.CalculateSurveyCoordinates()) << "one inline";
  grid = columnGrid("1 10 5 6", "unset", "4 7 1 2", "3 12 3 4");
  EXPECT_FALSE(grid.CalculateSurveyCoordinates());
  zrSurveyCoordinates unsetField = columnGrid("1 10 5 6", "9 10 7 8", "4 7 1 2", "3 12 3 4");
  unsetField.points.longestColumnEnd.y = unsetNumber;
  EXPECT_FALSE(unsetField.CalculateSurveyCoordinates());
  EXPECT_TRUE(unsetField.DefaultsSet());
  EXPECT_FALSE(unsetField.Valid());
}

TEST(SurveyFromStream, RowWithAnUnsetFieldIsPassedOver) {
  zrSurveyCoordinates grid = columnGrid("1 10 5 6", "9 10 7 8", "4 7 1 2", "3 12 3 4");
  grid.points.longestRowStart = surveyPoint("10 1 5 6");
  grid.points.longestRowEnd = surveyPoint("10 9 7 8");
  grid.points.longestRowEnd.x = unsetNumber;
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  EXPECT_THAT(grid.One(), PointIs("1 10 5 6"));
}

TEST(SurveyFromStream, KeptPartialStreamKeepsThirdCorner) {
  for (const auto& [lowest, highest] : std::vector<std::pair<const char*, const char*>>{
           {"10 4 1 2", "10 3 3 4"}, {"7 4 1 2", "unset"}, {"unset", "12 3 3 4"}}) {
    zrSurveyCoordinates row = rowGrid("10 1 5 6", "10 9 7 8", lowest, highest);
    EXPECT_TRUE(row.CalculateSurveyCoordinates());
    EXPECT_TRUE(row.Partial());
    EXPECT_THAT(row.Two(), PointIs("10 9 7 8"));
    EXPECT_THAT(row.Three(), PointIs("100 0 0 1250"));
  }
  zrSurveyCoordinates column = columnGrid("1 10 5 6", "9 10 7 8", "4 10 1 2", "3 10 3 4");
  EXPECT_TRUE(column.CalculateSurveyCoordinates());
  EXPECT_TRUE(column.Partial());
  EXPECT_THAT(column.Three(), PointIs("100 0 0 1250"));
}

TEST(SurveyFromStream, OneExtremeAwayFromTheRowIsEnough) {
  zrSurveyCoordinates grid = rowGrid("10 1 5 6", "10 9 7 8", "10 4 1 2", "12 3 3 4");
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  EXPECT_FALSE(grid.Partial());
  EXPECT_THAT(grid.Three(), PointIs("12 3 3 4"));
}

TEST(SurveyFromStream, KeptPartialIsNotTakenBack) {
  zrSurveyCoordinates grid = rowGrid("10 1 5 6", "10 9 7 8", "unset", "12 3 3 4");
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  grid.points.minInlinePoint = surveyPoint("7 4 1 2");
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  EXPECT_THAT(grid.Three(), PointIs("7 4 1 2"));
  EXPECT_TRUE(grid.Partial());
  grid.SetDefaults();
  EXPECT_FALSE(grid.Partial());
}

TEST(SurveyFromStream, KeptStreamedCornersCountAsValid) {
  zrSurveyCoordinates grid = rowGrid("10 1 5 6", "10 9 7 8", "7 4 1 2", "12 3 3 4");
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  EXPECT_TRUE(grid.Valid());
  EXPECT_THAT(grid.SurveyToWorld(), ElementsAreExactly(identity));
}

TEST(SurveyFromStream, ScalesWorldPositionsByTheUnits) {
  zrSurveyCoordinates grid = rowGrid("10 1 5 6", "10 9 7 8", "7 4 1 2", "12 3 3 4");
  grid.units.setXUnits(GDF_UNIT_KILOMETRES);
  grid.units.setYUnits(GDF_UNIT_FEET);
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  EXPECT_EQ(grid.One().x, 5.0 * 1000.0);
  EXPECT_EQ(grid.One().y, 6.0 * 0.304799999536704);
  EXPECT_EQ(grid.Two().y, 8.0 * 0.304799999536704);
  EXPECT_EQ(grid.Three().x, 1000.0);
  EXPECT_EQ(grid.Three().inlineNumber, 7.0) << "numbers stay";
  EXPECT_THAT(grid.points.longestRowStart, PointIs("10 1 5 6"));
}

TEST(SurveyFromStream, TakesStepsFromTheIntervals) {
  zrSurveyCoordinates grid = rowGrid("10 1 5 6", "10 9 7 8", "7 4 1 2", "12 3 3 4");
  grid.points.inlineInterval = 3.0;
  grid.points.traceInterval = 4.0;
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  EXPECT_EQ(grid.InlineStep(), 3.0);
  EXPECT_EQ(grid.TraceStep(), 4.0);
  grid.points.inlineInterval = unsetNumber;
  grid.points.traceInterval = unsetNumber;
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  EXPECT_EQ(grid.InlineStep(), 1.0);
  EXPECT_EQ(grid.TraceStep(), 1.0);
}

TEST(SurveyFromStream, CompleteGridStreamedAtOnceIsPartial) {
  zrSurveyCoordinates grid;
  addPoints(grid.points, "1 1, 1 2, 1 3, 2 1, 2 2, 2 3, 3 1, 3 2, 3 3");
  grid.points.End();
  EXPECT_THAT(grid.points.maxInlinePoint, PointIs("unset"));
  EXPECT_THAT(grid.points.maxTracePoint, PointIs("unset"));
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  EXPECT_TRUE(grid.Partial());
  EXPECT_THAT(grid.One(), PointIs("1 1 10 10"));
  EXPECT_THAT(grid.Two(), PointIs("1 3 30 10"));
  EXPECT_THAT(grid.Three(), PointIs("100 0 0 1250"));
}

// Recalculation.

TEST(SurveyRecalculatedGrid, FitsTheInnerPartOfRows) {
  zrSurveyCoordinates grid;
  storeRows(grid.points, 24.0, 2.0, 3.0);
  ASSERT_TRUE(grid.RecalculateSurveyCoordinates());
  // 4.8 to 19.2: inlines 6 to 18, traces 6 to 18.
  EXPECT_TRUE(grid.Valid());
  EXPECT_FALSE(grid.Partial());
  EXPECT_THAT(grid.One(), PointNear("6 6 60 60", 1e-11));
  EXPECT_THAT(grid.Two(), PointNear("6 18 180 60", 1e-11));
  EXPECT_THAT(grid.Three(), PointNear("18 6 60 180", 1e-11));
  EXPECT_EQ(grid.InlineStep(), 2.0);
  EXPECT_EQ(grid.TraceStep(), 3.0);
  EXPECT_NEAR(grid.inlineDistance(), 10.0, 1e-12);
  EXPECT_EQ(grid.RotationDegrees(), -90.0);
  EXPECT_EQ(grid.points.storedPoints.size(), 117u);
}

TEST(SurveyRecalculatedGrid, FitsTheInnerPartOfColumns) {
  zrSurveyCoordinates grid;
  storeColumns(grid.points, 12.0);
  ASSERT_TRUE(grid.RecalculateSurveyCoordinates());
  // 2.4 to 9.6, and the first two corners share a trace: world east along the traces.
  EXPECT_THAT(grid.One(), PointNear("3 3 30 30", 1e-11));
  EXPECT_THAT(grid.Two(), PointNear("3 9 90 30", 1e-11));
  EXPECT_THAT(grid.Three(), PointNear("9 3 30 90", 1e-11));
  EXPECT_EQ(grid.RotationDegrees(), 90.0) << "inlines run north";
}

TEST(SurveyRecalculatedGrid, KeptRecalculationForgetsTheGridFirst) {
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 100 0 100", "100 0 100 0");
  ASSERT_TRUE(grid.CalculateTransMatrices());
  grid.setName("north");
  addPoints(grid.points, "1 1, 1 2, 2 1");
  EXPECT_FALSE(grid.RecalculateSurveyCoordinates());
  EXPECT_TRUE(grid.DefaultsSet());
  EXPECT_FALSE(grid.Valid());
  EXPECT_EQ(grid.name(), "");
  EXPECT_THAT(grid.SurveyToWorld(), ElementsAreExactly(identity));
}

TEST(SurveyRecalculatedGrid, KeptRecalculationFitsDefaultCorners) {
  zrSurveyCoordinates grid;
  storePoints(grid.points, "50 50");
  EXPECT_TRUE(grid.RecalculateSurveyCoordinates()) << "one point is no grid";
  EXPECT_TRUE(grid.Valid());
  EXPECT_TRUE(grid.DefaultsSet());
  EXPECT_EQ(grid.RotationDegrees(), -90.0);
}

TEST(SurveyRecalculatedGrid, KeptRecalculationLeavesLastRunOpen) {
  zrSurveyCoordinates grid;
  storePoints(grid.points, "0 0, 100 100, 40 40, 40 50, 60 40, 60 50, 60 60, 60 70");
  ASSERT_TRUE(grid.RecalculateSurveyCoordinates());
  // The row of inline 60 is the longer one, and the last.
  EXPECT_THAT(grid.Two(), PointNear("40 50 500 400", 1e-10));
  EXPECT_EQ(grid.xlines(), 11);
}

TEST(SurveyRecalculatedGrid, KeptClearedStoreKeepsBounds) {
  zrSurveyCoordinates grid;
  storePoints(grid.points, "5 7, 3 9");
  addPoints(grid.points, "1 1, 1 2");
  grid.ClearStoredSurveyCoordinates();
  EXPECT_TRUE(grid.points.storedPoints.empty());
  EXPECT_EQ(grid.points.minInline, 3.0);
  EXPECT_EQ(grid.points.maxInline, 5.0);
  EXPECT_EQ(grid.points.minTrace, 7.0);
  EXPECT_EQ(grid.points.maxTrace, 9.0);
  EXPECT_THAT(grid.points.rowEnd, PointIs("1 2 20 10"));
}

}  // namespace
