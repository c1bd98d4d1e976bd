#include <zrBase/survey/zrSurveyCoordinates.h>

#include <gtest/gtest.h>

#include "support/geometryText.h"
#include "survey/support/surveyGrids.h"
#include "survey/support/surveyPoints.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <fstream>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

// The corners of a real 3D survey in the North Sea, three of the four: inlines 100 to 750, traces
// 300 to 1250, bins of 25 m.
//
//     world                    750 o- - - - - -o 750, 1250
//       north ^                    |           |
//             |                    |           |
//             +-> east    100, 300 o-----------o 100, 1250

namespace {

std::vector<zrSurveyPoint> corners() {
  std::ifstream file(ZRBASE_EXAMPLE_DATA "/corners.csv");
  std::vector<zrSurveyPoint> points;
  std::string row;
  std::getline(file, row);
  EXPECT_EQ(row.substr(0, 20), "inline,crossline,x,y");
  while (std::getline(file, row)) {
    std::replace(row.begin(), row.end(), ',', ' ');
    std::istringstream numbers(row);
    numbers.imbue(std::locale::classic());
    zrSurveyPoint p;
    numbers >> p.inlineNumber >> p.traceNumber >> p.x >> p.y;
    EXPECT_FALSE(numbers.fail()) << row;
    points.push_back(p);
  }
  return points;
}

zrSurveyCoordinates gridOfCorners(int first, int second, int third) {
  const std::vector<zrSurveyPoint> points = corners();
  zrSurveyCoordinates grid;
  if (points.size() != 3) {
    ADD_FAILURE() << "three corners are expected";
    return grid;
  }
  grid.SetOne(points[static_cast<std::size_t>(first)]);
  grid.SetTwo(points[static_cast<std::size_t>(second)]);
  grid.SetThree(points[static_cast<std::size_t>(third)]);
  return grid;
}

zrSurveyCoordinates fittedGrid() {
  zrSurveyCoordinates grid = gridOfCorners(0, 1, 2);
  EXPECT_TRUE(grid.CalculateTransMatrices());
  return grid;
}

TEST(RealSurvey, HasItsBinSizesAndCounts) {
  const zrSurveyCoordinates grid = fittedGrid();
  EXPECT_TRUE(grid.Valid());
  // Along the first inline: (23740.74, 663.51) m over 950 traces, 23750.0101 m long.
  EXPECT_NEAR(grid.xlineDistance(), 25.0000107, 1e-7);
  // Across it: (-453.71, 16243.28) m over 650 inlines, 16249.6151 m at right angles to the inline.
  EXPECT_NEAR(grid.inlineDistance(), 24.9994079, 1e-6);
  EXPECT_EQ(grid.inlines(), 651);
  EXPECT_EQ(grid.xlines(), 951);
}

TEST(RealSurvey, IsTurnedByTheDirectionOfItsInlines) {
  // Inlines run along atan(663.51 / 23740.74) = 1.60089 degrees in the world, 90 in survey numbers.
  EXPECT_NEAR(fittedGrid().RotationDegrees(), 1.60089 - 90.0, 1e-5);
}

TEST(RealSurvey, FirstTwoCornersAreMetAndTheThirdNearly) {
  const zrSurveyCoordinates grid = fittedGrid();
  EXPECT_THAT(surveyOf(grid, vertex("605835.52 6073556.38")), VertexNear("100 300 0", 1e-6));
  EXPECT_THAT(surveyOf(grid, vertex("629576.26 6074219.89")), VertexNear("100 1250 0", 1e-6));
  // The crossline leans 0.2597 m in 16 km off the right angle: 0.01039 traces.
  EXPECT_THAT(surveyOf(grid, vertex("629122.55 6090463.17")), VertexNear("750 1250.01039 0", 1e-5));
}

TEST(RealSurvey, CornersAreMovedToTheRectangle) {
  const zrSurveyCoordinates grid = fittedGrid();
  EXPECT_THAT(grid.One(), PointNear("100 300 605835.52 6073556.38", 1e-6));
  EXPECT_THAT(grid.Two(), PointNear("100 1250 629576.26 6074219.89", 1e-6));
  // The fourth corner, One + third - Two, less those 0.2597 m along the inline.
  EXPECT_THAT(grid.Three(), PointNear("750 300 605381.5504 6089799.6527", 1e-3));
}

TEST(RealSurvey, RoundTripsOverTheWholeGrid) {
  const zrSurveyCoordinates grid = fittedGrid();
  for (double i = 100.0; i <= 750.0; i += 13.0) {
    for (double t = 300.0; t <= 1250.0; t += 19.0) {
      const gdfVertex world = worldOf(grid, i, t);
      ASSERT_LT(surveyOf(grid, world).distance(gdfVertex(i, t)), 1e-6);
      const gdfVertex off = world + gdfVertex(7.25, -3.5);
      const gdfVertex survey = surveyOf(grid, off);
      ASSERT_LT(worldOf(grid, survey.x(), survey.y()).distance(off), 1e-5);
    }
  }
}

TEST(RealSurvey, OrderOfTheCornersHardlyMatters) {
  const zrSurveyCoordinates grid = fittedGrid();
  for (const auto& order :
       {std::array<int, 3>{0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}}) {
    zrSurveyCoordinates other = gridOfCorners(order[0], order[1], order[2]);
    ASSERT_TRUE(other.CalculateTransMatrices());
    EXPECT_TRUE(grid == other);
    // Where the crosslines come first it is the inlines that lean.
    EXPECT_NEAR(other.One().x, 605835.52, 0.3);
    EXPECT_NEAR(other.One().y, 6073556.38, 0.5);
  }
}

TEST(RealSurvey, AlternativeFitAgreesWithinTheLean) {
  const zrSurveyCoordinates grid = fittedGrid();
  zrSurveyCoordinates alternative = gridOfCorners(0, 1, 2);
  alternative.CalculateTransMatrices1();
  EXPECT_TRUE(alternative == grid);
  for (const zrSurveyPoint& p : corners()) {
    EXPECT_LT(worldOf(alternative, p.inlineNumber, p.traceNumber).distance(gdfVertex(p.x, p.y)),
              0.5);
  }
}

TEST(RealSurvey, StreamOfItsTracesGivesItsGridBack) {
  const zrSurveyCoordinates grid = fittedGrid();
  zrSurveyCoordinates streamed;
  for (double i = 100.0; i <= 750.0; i += 10.0) {
    for (double t = 300.0; t <= 1250.0; t += 5.0) {
      const gdfVertex world = worldOf(grid, i, t);
      streamed.points.AddStoredPoint(world.x(), world.y(), i, t);
    }
  }
  ASSERT_TRUE(streamed.RecalculateSurveyCoordinates());
  EXPECT_FALSE(streamed.Partial());
  EXPECT_EQ(streamed.InlineStep(), 10.0);
  EXPECT_EQ(streamed.TraceStep(), 5.0);
  // Inlines 100 + 130 to 750 - 130 and traces 300 + 190 to 1250 - 190, give or take the lines on
  // the bounds.
  EXPECT_NEAR(streamed.One().inlineNumber, 230.0, 10.0);
  EXPECT_NEAR(streamed.Two().traceNumber, 1060.0, 5.0);
  EXPECT_TRUE(streamed == grid);
  EXPECT_NEAR(streamed.RotationDegrees(), grid.RotationDegrees(), 1e-8);
  EXPECT_NEAR(streamed.inlineDistance(), grid.inlineDistance(), 1e-8);
  EXPECT_LT(worldOf(streamed, 750.0, 1250.0).distance(worldOf(grid, 750.0, 1250.0)), 1e-4);
}

}  // namespace
