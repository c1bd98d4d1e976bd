#include <zrBase/survey/zrSurveyCoordinates.h>

#include <gtest/gtest.h>

#include "support/geometryText.h"
#include "support/matrixText.h"
#include "survey/support/surveyPoints.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

constexpr const char* identity = "1 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 1";

/// Survey numbers are world positions, but for a stretch of the inline axis by highest / 100.
zrSurveyCoordinates stretchedGrid(double highest) {
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 100 0 100", "0 0 100 0");
  grid.Three().inlineNumber = highest;
  EXPECT_TRUE(grid.CalculateTransMatrices());
  return grid;
}

/// A grid none of whose fields holds its default.
zrSurveyCoordinates unusualGrid() {
  zrSurveyCoordinates grid;
  for (int t = 0; t < 5; ++t) grid.points.AddPoint(20.0 * t, 3.0, 8.0, 4.0 * t);
  grid.points.End();
  grid.points.inlineInterval = 3.0;
  EXPECT_TRUE(grid.CalculateSurveyCoordinates());
  EXPECT_TRUE(grid.CalculateTransMatrices());
  grid.setName("north");
  grid.SetLineType(static_cast<zrSurveyCoordinates::type>(7));
  grid.SetFaultFlags(false);
  grid.units.setXYUnits(GDF_UNIT_FEET);
  grid.points.AddStoredPoint(1.0, 2.0, 3.0, 4.0);
  return grid;
}

std::vector<double> numbersWithoutStream(const zrSurveyCoordinates& grid) {
  std::vector<double> all = {grid.Valid() ? 1.0 : 0.0,
                             grid.Partial() ? 1.0 : 0.0,
                             static_cast<double>(grid.LineType()),
                             grid.TwoFaultFlags() ? 1.0 : 0.0,
                             grid.InlineExtent(),
                             grid.XlineExtent(),
                             grid.InlineStep(),
                             grid.TraceStep(),
                             grid.inlineDistance(),
                             grid.xlineDistance(),
                             grid.RotationDegrees()};
  for (const gdfTransMatrix* matrix : {&grid.SurveyToWorld(), &grid.WorldToSurvey()}) {
    for (const double element : elements(*matrix)) all.push_back(element);
  }
  for (const zrSurveyPoint* p : {&grid.One(), &grid.Two(), &grid.Three()}) {
    for (const double number : numbersOf(*p)) all.push_back(number);
  }
  return all;
}

// What a new grid holds.

TEST(SurveyGrid, StartsWithCornersButWithoutAFit) {
  const zrSurveyCoordinates grid;
  EXPECT_EQ(grid.inlines(), 101);
  EXPECT_EQ(grid.xlines(), 101);
  EXPECT_TRUE(grid.DefaultsSet());
  EXPECT_FALSE(grid.Valid());
  EXPECT_THAT(grid.SurveyToWorld(), ElementsAreExactly(identity));
  EXPECT_THAT(grid.WorldToSurvey(), ElementsAreExactly(identity));
  EXPECT_THAT(grid.One(), PointIs("0 0 0 0"));
  EXPECT_THAT(grid.Two(), PointIs("0 100 1250 0"));
  EXPECT_THAT(grid.Three(), PointIs("100 0 0 1250"));
}

TEST(SurveyGrid, StartsWithItsDefaults) {
  const zrSurveyCoordinates grid;
  EXPECT_EQ(grid.name(), "");
  EXPECT_FALSE(grid.Partial());
  EXPECT_EQ(grid.LineType(), zrSurveyCoordinates::typeDefault);
  EXPECT_TRUE(grid.TwoFaultFlags());
  EXPECT_EQ(grid.InlineExtent(), 100.0);
  EXPECT_EQ(grid.XlineExtent(), 100.0);
  EXPECT_EQ(grid.InlineStep(), 1.0);
  EXPECT_EQ(grid.TraceStep(), 1.0);
  EXPECT_EQ(grid.inlineDistance(), 12.5);
  EXPECT_EQ(grid.xlineDistance(), 12.5);
  EXPECT_EQ(grid.RotationDegrees(), 0.0);
}

TEST(SurveyGrid, LineTypeIsA32BitTag) {
  EXPECT_TRUE((std::is_same_v<std::underlying_type_t<zrSurveyCoordinates::type>, std::int32_t>));
  EXPECT_EQ(zrSurveyCoordinates::typeDefault, 0);
  EXPECT_FALSE(std::is_polymorphic_v<zrSurveyCoordinates>);
  zrSurveyCoordinates grid;
  grid.SetLineType(static_cast<zrSurveyCoordinates::type>(-2));
  EXPECT_EQ(grid.LineType(), -2);
}

TEST(SurveyGrid, SetDefaultsSparesUnitsAndPoints) {
  zrSurveyCoordinates grid = unusualGrid();
  const std::vector<double> stream = numbersOf(grid.points);
  grid.SetDefaults();
  EXPECT_EQ(numbersWithoutStream(grid), numbersWithoutStream(zrSurveyCoordinates()));
  EXPECT_EQ(grid.name(), "");
  EXPECT_EQ(grid.units.getXUnits(), GDF_UNIT_FEET);
  EXPECT_EQ(numbersOf(grid.points), stream);
}

TEST(SurveyGrid, DefaultsSetComparesCornersOnly) {
  zrSurveyCoordinates grid;
  grid.setName("named");
  grid.SetFaultFlags(false);
  EXPECT_TRUE(grid.DefaultsSet());
  for (int corner = 0; corner < 3; ++corner) {
    for (double zrSurveyPoint::*field : {&zrSurveyPoint::inlineNumber, &zrSurveyPoint::traceNumber,
                                         &zrSurveyPoint::x, &zrSurveyPoint::y}) {
      zrSurveyCoordinates changed;
      zrSurveyPoint& p = corner == 0   ? changed.One()
                         : corner == 1 ? changed.Two()
                                       : changed.Three();
      p.*field += 1e-9;
      EXPECT_FALSE(changed.DefaultsSet()) << corner;
    }
  }
}

// Corners.

TEST(SurveyGrid, SetsCornersFieldByField) {
  zrSurveyCoordinates grid;
  grid.SetOne(1.0, 2.0, 3.0, 4.0);
  grid.SetTwo(5.0, 6.0, 7.0, 8.0);
  grid.SetThree(9.0, 10.0, 11.0, 12.0);
  EXPECT_THAT(std::as_const(grid).One(), PointIs("1 2 3 4"));
  EXPECT_THAT(std::as_const(grid).Two(), PointIs("5 6 7 8"));
  EXPECT_THAT(std::as_const(grid).Three(), PointIs("9 10 11 12"));
}

TEST(SurveyGrid, SetsCornersFromVerticesWithoutZ) {
  zrSurveyCoordinates grid;
  grid.SetOne(1.0, 2.0, vertex("3 4 99"));
  grid.SetTwo(5.0, 6.0, vertex("7 8 99"));
  grid.SetThree(9.0, 10.0, vertex("11 12 99"));
  EXPECT_THAT(grid.One(), PointIs("1 2 3 4"));
  EXPECT_THAT(grid.Two(), PointIs("5 6 7 8"));
  EXPECT_THAT(grid.Three(), PointIs("9 10 11 12"));
}

TEST(SurveyGrid, SetsCornersFromPointsAndByReference) {
  zrSurveyCoordinates grid = gridOf("1 2 3 4", "5 6 7 8", "9 10 11 12");
  EXPECT_THAT(grid.Two(), PointIs("5 6 7 8"));
  grid.Two().x = 70.0;
  EXPECT_THAT(grid.SurveyPoint(1), PointIs("5 6 70 8"));
}

TEST(SurveyGrid, SetsCornersByIndex) {
  zrSurveyCoordinates grid;
  grid.SetSurveyPoint(0, 1.0, 2.0, 3.0, 4.0);
  grid.SetSurveyPoint(1, 5.0, 6.0, 7.0, 8.0);
  grid.SetSurveyPoint(2, 9.0, 10.0, 11.0, 12.0);
  EXPECT_THAT(grid.SurveyPoint(0), PointIs("1 2 3 4"));
  EXPECT_THAT(grid.SurveyPoint(1), PointIs("5 6 7 8"));
  EXPECT_THAT(grid.SurveyPoint(2), PointIs("9 10 11 12"));
}

TEST(SurveyGrid, KeptUnknownCornerIndexGivesFirst) {
  zrSurveyCoordinates grid = gridOf("1 2 3 4", "5 6 7 8", "9 10 11 12");
  for (const int index : {7, 3, -1}) {
    EXPECT_THAT(grid.SurveyPoint(index), PointIs("1 2 3 4"));
    grid.SetSurveyPoint(index, 0.0, 0.0, 0.0, 0.0);
  }
  EXPECT_THAT(grid.One(), PointIs("1 2 3 4"));
  EXPECT_THAT(grid.Two(), PointIs("5 6 7 8"));
  EXPECT_THAT(grid.Three(), PointIs("9 10 11 12"));
}

TEST(SurveyGrid, KeptCornerSettersLeaveValid) {
  zrSurveyCoordinates grid = stretchedGrid(100.0);
  grid.SetOne(1.0, 1.0, 1.0, 1.0);
  grid.SetTwo(1.0, 1.0, vertex("1 1"));
  grid.SetThree(surveyPoint("1 1 1 1"));
  grid.SetSurveyPoint(1, 2.0, 2.0, 2.0, 2.0);
  EXPECT_TRUE(grid.Valid());
  gdfVertex v(5.0, 6.0, 0.0);
  grid.Survey2World(v);
  EXPECT_THAT(v, VertexIs("5 6")) << "the matrices lag behind";
}

TEST(SurveyGrid, CountsTruncateAndSaturate) {
  zrSurveyCoordinates grid = gridOf("10 20 0 0", "10 29.9 0 0", "4 20 0 0");
  EXPECT_EQ(grid.inlines(), -5);
  EXPECT_EQ(grid.xlines(), 10);
  grid.Three().inlineNumber = unsetNumber;
  EXPECT_EQ(grid.inlines(), std::numeric_limits<int>::max());
  grid.Two().traceNumber = -unsetNumber;
  EXPECT_EQ(grid.xlines(), std::numeric_limits<int>::min());
  grid.Two().traceNumber = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(grid.xlines(), 0);
}

// Mapping.

TEST(SurveyGrid, Survey2WorldIgnoresZ) {
  zrSurveyCoordinates grid;
  ASSERT_TRUE(grid.CalculateTransMatrices());
  double a = 100.0, b = 50.0, c = std::numeric_limits<double>::quiet_NaN();
  grid.Survey2World(a, b, c);
  EXPECT_THAT(gdfVertex(a, b, c), VertexNear("625 1250 0", 1e-9));
  EXPECT_EQ(c, 0.0);
  gdfVertex v(100.0, 50.0, 77.0);
  grid.Survey2World(v);
  EXPECT_EQ(v, gdfVertex(a, b, c));
}

TEST(SurveyGrid, World2SurveyLeavesNoZ) {
  zrSurveyCoordinates grid;
  ASSERT_TRUE(grid.CalculateTransMatrices());
  gdfVertex v = vertex("625 1250 77");
  grid.World2Survey(v);
  EXPECT_THAT(v, VertexNear("100 50 0", 1e-9));
  EXPECT_EQ(v.z(), 0.0);
  double x = 625.0, y = 1250.0, z = -3.0;
  grid.World2Survey(x, y, z);
  EXPECT_EQ(gdfVertex(x, y, z), v);
}

TEST(SurveyGrid, KeptWorldHeightEntersTheProduct) {
  const zrSurveyCoordinates grid = stretchedGrid(100.0);
  double x = 1.0, y = 2.0, z = std::numeric_limits<double>::quiet_NaN();
  grid.World2Survey(x, y, z);
  EXPECT_TRUE(std::isnan(x));
  EXPECT_TRUE(std::isnan(y));
  EXPECT_EQ(z, 0.0);
}

TEST(SurveyGrid, MapsByIdentityBeforeAFit) {
  const zrSurveyCoordinates grid;
  gdfVertex v = vertex("3 4 5");
  grid.World2Survey(v);
  EXPECT_THAT(v, VertexIs("3 4 0"));
  grid.Survey2World(v);
  EXPECT_THAT(v, VertexIs("3 4 0"));
}

// Equality and copies.

TEST(SurveyGrid, EqualWithinTwoNumbersOfTheOther) {
  const zrSurveyCoordinates plain;
  EXPECT_TRUE(plain.equal(stretchedGrid(101.9)));
  EXPECT_TRUE(plain == stretchedGrid(98.1));
  EXPECT_FALSE(plain.equal(stretchedGrid(102.0))) << "2 itself is too far";
  EXPECT_FALSE(plain == stretchedGrid(98.0));
}

TEST(SurveyGrid, EqualLooksAtTheOriginToo) {
  const zrSurveyCoordinates plain;
  zrSurveyCoordinates shifted = gridOf("0 0 -2 0", "0 100 -2 100", "100 0 98 0");
  ASSERT_TRUE(shifted.CalculateTransMatrices());
  EXPECT_FALSE(plain.equal(shifted));
  shifted = gridOf("0 0 0 1.5", "0 100 0 101.5", "100 0 100 1.5");
  ASSERT_TRUE(shifted.CalculateTransMatrices());
  EXPECT_TRUE(plain.equal(shifted));
  // Stretched about (100, 100): right there, and 3 off at (0, 0).
  zrSurveyCoordinates atOrigin = gridOf("-3 0 0 0", "-3 100 0 100", "100 0 100 0");
  ASSERT_TRUE(atOrigin.CalculateTransMatrices());
  EXPECT_FALSE(plain.equal(atOrigin));
}

TEST(SurveyGrid, KeptGridEqualityLooksAtTwoPlaces) {
  zrSurveyCoordinates plain;
  plain.setName("plain");
  zrSurveyCoordinates other = stretchedGrid(100.0);
  other.setName("other");
  EXPECT_TRUE(plain == other) << "the corners differ, and the name";
  const zrSurveyCoordinates wider = stretchedGrid(102.0);
  EXPECT_FALSE(plain == wider) << "102 against 100";
  EXPECT_TRUE(wider == plain) << "98.04 against 100";
}

TEST(SurveyGrid, KeptGridAssignmentSparesUnitsAndPoints) {
  const zrSurveyCoordinates source = unusualGrid();
  zrSurveyCoordinates target;
  target.points.AddStoredPoint(9.0, 9.0, 9.0, 9.0);
  const std::vector<double> stream = numbersOf(target.points);
  target = source;
  EXPECT_EQ(numbersWithoutStream(target), numbersWithoutStream(source));
  EXPECT_EQ(target.name(), "north");
  EXPECT_EQ(numbersOf(target.points), stream);
  EXPECT_EQ(target.units.getXUnits(), GDF_UNIT_METRES);

  zrSurveyCoordinates copied;
  copied.Copy(source);
  EXPECT_EQ(numbersWithoutStream(copied), numbersWithoutStream(source));
  EXPECT_TRUE(copied.points.storedPoints.empty());

  target = zrSurveyCoordinates();
  EXPECT_EQ(numbersOf(target.points), stream) << "from a temporary too";
}

TEST(SurveyGrid, CopyConstructorTakesAll) {
  const zrSurveyCoordinates source = unusualGrid();
  const zrSurveyCoordinates copied(source);
  EXPECT_EQ(numbersWithoutStream(copied), numbersWithoutStream(source));
  EXPECT_EQ(copied.name(), "north");
  EXPECT_EQ(numbersOf(copied.points), numbersOf(source.points));
  EXPECT_EQ(copied.units.getXRatio(), source.units.getXRatio());

  zrSurveyCoordinates given(source);
  const zrSurveyCoordinates taken(std::move(given));
  EXPECT_EQ(numbersOf(taken.points), numbersOf(source.points));
  EXPECT_EQ(taken.units.getXUnits(), GDF_UNIT_FEET);
}

TEST(SurveyGrid, AssignmentToItselfChangesNothing) {
  zrSurveyCoordinates grid = unusualGrid();
  const zrSurveyCoordinates before(grid);
  grid = *&grid;
  EXPECT_EQ(numbersWithoutStream(grid), numbersWithoutStream(before));
  EXPECT_EQ(grid.name(), "north");
}

}  // namespace
