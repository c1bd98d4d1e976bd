#include <zrBase/survey/zrSurveyCoordinates.h>

#include <gtest/gtest.h>

#include "support/geometryText.h"
#include "support/matrixText.h"
#include "survey/support/surveyGrids.h"
#include "survey/support/surveyPoints.h"

#include <array>
#include <cmath>
#include <limits>
#include <string>

namespace {

constexpr const char* identity = "1 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 1";
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr const char* missMessage = "Invalid or inconsistant survey data detected\n";

/// What a fit said: its result, and what it wrote to the standard error stream.
struct FitResult {
  bool success;
  std::string message;
};

FitResult fit(zrSurveyCoordinates& grid) {
  testing::internal::CaptureStderr();
  const bool success = grid.CalculateTransMatrices();
  return {success, testing::internal::GetCapturedStderr()};
}

#define EXPECT_FIT(grid, expectedSuccess, expectedMessage) \
  do {                                                     \
    const FitResult result = fit(grid);                    \
    EXPECT_EQ(result.success, expectedSuccess);            \
    EXPECT_EQ(result.message, expectedMessage);            \
    EXPECT_EQ((grid).Valid(), expectedSuccess);            \
  } while (false)

// The fit.

TEST(SurveyFit, DefaultCornersGiveTheirMatrices) {
  zrSurveyCoordinates grid;
  EXPECT_FIT(grid, true, "");
  // k = 100 / 1250: world x becomes traces, world y inlines.
  EXPECT_THAT(grid.WorldToSurvey(),
              ElementsAreNear("0 0.08 0 0, 0.08 0 0 0, 0 0 1 0, 0 0 0 1", 1e-15));
  EXPECT_THAT(grid.SurveyToWorld(),
              ElementsAreNear("0 12.5 0 0, 12.5 0 0 0, 0 0 1 0, 0 0 0 1", 1e-13));
  EXPECT_EQ(grid.RotationDegrees(), -90.0);
}

TEST(SurveyFit, KeptDefaultCornersAreNotReset) {
  zrSurveyCoordinates grid = turnedGrid(0.0, 40.0, 30.0);
  EXPECT_FIT(grid, true, "");
  EXPECT_NEAR(grid.inlineDistance(), 40.0, 1e-11);
  grid.SetOne(zrSurveyCoordinates().One());
  grid.SetTwo(zrSurveyCoordinates().Two());
  grid.SetThree(zrSurveyCoordinates().Three());
  EXPECT_FIT(grid, true, "");
  EXPECT_TRUE(grid.DefaultsSet());
  EXPECT_NEAR(grid.inlineDistance(), 40.0, 1e-11) << "of the fit before";
  EXPECT_NEAR(grid.xlineDistance(), 30.0, 1e-11);
}

TEST(SurveyFit, CarriesCornersBothWays) {
  for (const double inlineDistance : {12.5, -12.5}) {
    zrSurveyCoordinates grid = turnedGrid(37.0, inlineDistance, 25.0, vertex("600000 6000000"));
    const zrSurveyCoordinates given = grid;
    EXPECT_FIT(grid, true, "");
    for (int corner = 0; corner < 3; ++corner) {
      const zrSurveyPoint& p = given.SurveyPoint(corner);
      EXPECT_LT(worldOf(grid, p.inlineNumber, p.traceNumber).distance(gdfVertex(p.x, p.y)), 1e-6);
      const gdfVertex numbers(p.inlineNumber, p.traceNumber);
      EXPECT_LT(surveyOf(grid, gdfVertex(p.x, p.y)).distance(numbers), 1e-7);
    }
    EXPECT_NEAR(grid.inlineDistance(), 12.5, 1e-7);
    EXPECT_NEAR(grid.xlineDistance(), 25.0, 1e-7);
  }
}

TEST(SurveyFit, RotationIsTheTurnOfTheFirstTwoCorners) {
  zrSurveyCoordinates grid = turnedGrid(30.0, 12.5, 25.0);
  EXPECT_FIT(grid, true, "");
  EXPECT_NEAR(grid.RotationDegrees(), 30.0, 1e-12);
  grid = turnedGrid(30.0, 50.0, 1.0);
  EXPECT_FIT(grid, true, "");
  EXPECT_NEAR(grid.RotationDegrees(), 30.0, 1e-12);
  grid = turnedGrid(-30.0, -12.5, 25.0);
  EXPECT_FIT(grid, true, "");
  EXPECT_NEAR(grid.RotationDegrees(), -30.0, 1e-12) << "left-handed";
}

TEST(SurveyFit, KeptGridRotationIsNotWrapped) {
  // Survey direction -90 degrees, world direction 180.
  zrSurveyCoordinates grid = gridOf("0 100 0 0", "0 0 -100 0", "100 100 0 100");
  EXPECT_FIT(grid, true, "");
  EXPECT_NEAR(grid.RotationDegrees(), 270.0, 1e-12);
  // Survey direction 180, world direction -90.
  grid = gridOf("100 0 0 0", "0 0 0 -100", "100 100 100 0");
  EXPECT_FIT(grid, true, "");
  EXPECT_NEAR(grid.RotationDegrees(), -270.0, 1e-12);
}

TEST(SurveyFit, StretchesTheTraceAxisWhenTheFirstTwoShareATrace) {
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "100 0 1000 0", "50 100 500 400");
  EXPECT_FIT(grid, true, "");
  EXPECT_THAT(worldOf(grid, 10.0, 10.0), VertexNear("100 40 0", 1e-12));
  EXPECT_NEAR(grid.inlineDistance(), 10.0, 1e-13);
  EXPECT_NEAR(grid.xlineDistance(), 4.0, 1e-13);
  EXPECT_EQ(grid.RotationDegrees(), 0.0);
}

// Rejection without a message.

TEST(SurveyFit, RejectsCornersOnOneInline) {
  zrSurveyCoordinates grid = gridOf("5 0 0 0", "5 100 100 0", "5 50 0 100");
  EXPECT_FIT(grid, false, "");
}

TEST(SurveyFit, RejectsCornersOnOneTrace) {
  zrSurveyCoordinates grid = gridOf("0 5 0 0", "100 5 100 0", "50 5 0 100");
  EXPECT_FIT(grid, false, "");
}

TEST(SurveyFit, RejectsCoincidingCorners) {
  for (const auto& [one, two, three] : {
           std::array<const char*, 3>{"0 0 0 0", "0 0 100 0", "100 0 0 100"},
           std::array<const char*, 3>{"0 0 0 0", "0 100 100 0", "0 100 0 100"},
           std::array<const char*, 3>{"0 0 0 0", "0 100 100 0", "0 0 0 100"},
           std::array<const char*, 3>{"0 0 7 7", "0 100 7 7", "100 0 0 100"},
           std::array<const char*, 3>{"0 0 0 0", "0 100 7 7", "100 0 7 7"},
           std::array<const char*, 3>{"0 0 7 7", "0 100 100 0", "100 0 7 7"},
       }) {
    zrSurveyCoordinates grid = gridOf(one, two, three);
    EXPECT_FIT(grid, false, "");
    EXPECT_THAT(grid.One(), PointIs(one));
    EXPECT_THAT(grid.Two(), PointIs(two));
    EXPECT_THAT(grid.Three(), PointIs(three));
  }
}

TEST(SurveyFit, RejectionLeavesTheMatricesAndClearsValid) {
  zrSurveyCoordinates grid;
  EXPECT_FIT(grid, true, "");
  const gdfTransMatrix before = grid.SurveyToWorld();
  grid.Two() = grid.One();
  EXPECT_FIT(grid, false, "");
  EXPECT_TRUE(grid.SurveyToWorld() == before);
  EXPECT_EQ(grid.RotationDegrees(), -90.0);
}

TEST(SurveyFit, RejectionIsExact) {
  // A hair apart in the world is apart: the fit goes on, and the third corner fits.
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 100 0 1e-9", "100 0 1e-9 0");
  EXPECT_FIT(grid, true, "");
}

// The order of the corners.

TEST(SurveyFit, SaysThatCornersShareNoNumber) {
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "1 100 100 0", "100 1 0 100");
  EXPECT_FIT(grid, false, "Invalidate survey coordinates\n");
  EXPECT_THAT(grid.Two(), PointIs("1 100 100 0"));
  EXPECT_THAT(grid.SurveyToWorld(), ElementsAreExactly(identity));
}

TEST(SurveyFit, NaNsShareNoNumber) {
  zrSurveyCoordinates grid;
  grid.One().inlineNumber = notANumber;
  grid.Three().traceNumber = 1.0;
  EXPECT_FIT(grid, false, "Invalidate survey coordinates\n");
}

TEST(SurveyFit, CornersComeBackInOrder) {
  // The default corners, the one of the inline axis first.
  zrSurveyCoordinates grid = gridOf("100 0 0 1250", "0 100 1250 0", "0 0 0 0");
  EXPECT_FIT(grid, true, "");
  EXPECT_THAT(grid.One(), PointIs("0 0 0 0")) << "what Three held";
  EXPECT_THAT(grid.Two(), PointIs("0 100 1250 0"));
  EXPECT_THAT(grid.Three(), PointIs("100 0 0 1250"));
}

TEST(SurveyFit, KeptFailedFitLeavesCornersSwapped) {
  struct Row {
    const char* corners[3];  ///< survey numbers
    const char* order;       ///< by the numbers that the corners came in with
  };
  for (const Row& row : {
           Row{{"0 0", "0 100", "100 0"}, "123"},    // one and two on an inline
           Row{{"0 0", "100 0", "0 100"}, "123"},    // on a trace; one and three on an inline
           Row{{"100 0", "0 100", "0 0"}, "321"},    // two and three on an inline, one and three
                                                     // on a trace
           Row{{"0 0", "100 100", "0 100"}, "132"},  // one and three on an inline, two and three
                                                     // on a trace
           Row{{"0 10", "50 0", "100 0"}, "321"},    // two and three on a trace
           Row{{"0 0", "50 10", "100 0"}, "132"},    // one and three on a trace
       }) {
    // Places that no grid of right angles has.
    const std::string given[3] = {row.corners[0] + std::string(" 0 0"),
                                  row.corners[1] + std::string(" 100 0"),
                                  row.corners[2] + std::string(" 70 60")};
    zrSurveyCoordinates grid = gridOf(given[0], given[1], given[2]);
    EXPECT_FIT(grid, false, missMessage);
    for (int corner = 0; corner < 3; ++corner) {
      EXPECT_THAT(grid.SurveyPoint(corner), PointIs(given[row.order[corner] - '1'])) << row.order;
    }
  }
}

// The checks at the end.

TEST(SurveyFit, KeptThirdCornerMayMissByFive) {
  // World and survey numbers agree but for the third corner, sheared along its axis.
  for (const double miss : {5.0, -5.0}) {
    zrSurveyCoordinates inTrace = gridOf("0 0 0 0", "0 100 0 100", "100 0 100 0");
    inTrace.Three().y = miss;
    EXPECT_FIT(inTrace, true, "");
    EXPECT_THAT(inTrace.Three(), PointIs("100 0 100 0")) << "where the matrix has it";
    zrSurveyCoordinates inInline = gridOf("0 0 0 0", "100 0 100 0", "0 100 0 100");
    inInline.Three().x = miss;
    EXPECT_FIT(inInline, true, "");

    inTrace = gridOf("0 0 0 0", "0 100 0 100", "100 0 100 0");
    inTrace.Three().y = miss * 1.0001;
    EXPECT_FIT(inTrace, false, missMessage);
    inInline = gridOf("0 0 0 0", "100 0 100 0", "0 100 0 100");
    inInline.Three().x = miss * 1.0001;
    EXPECT_FIT(inInline, false, missMessage);
  }
  // What is not a number lies neither above nor below.
  zrSurveyCoordinates inTrace = gridOf("0 0 0 0", "0 100 0 100", "100 0 100 0");
  inTrace.Three().traceNumber = notANumber;
  EXPECT_FIT(inTrace, true, "");
  zrSurveyCoordinates inInline = gridOf("0 0 0 0", "100 0 100 0", "0 100 0 100");
  inInline.Three().inlineNumber = notANumber;
  EXPECT_FIT(inInline, true, "");
}

TEST(SurveyFit, KeptInconsistantSurveyMessage) {
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 100 0 200", "100 0 100 50");
  EXPECT_FIT(grid, false, "Invalid or inconsistant survey data detected\n");
  EXPECT_THAT(grid.Three(), PointIs("100 0 100 50"));
}

TEST(SurveyFit, KeptFailedFitLeavesMatricesAsTheyGot) {
  // k = 0.5, fx = 2, and the third corner misses by 25.
  constexpr const char* toSurvey = "1 0 0 0, 0 0.5 0 0, 0 0 1 0, 0 0 0 1";
  constexpr const char* toWorld = "1 0 0 0, 0 2 0 0, 0 0 1 0, 0 0 0 1";
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 100 0 200", "100 0 100 50");
  EXPECT_FIT(grid, false, missMessage);
  EXPECT_THAT(grid.WorldToSurvey(), ElementsAreExactly(toSurvey));
  EXPECT_THAT(grid.SurveyToWorld(), ElementsAreExactly(toWorld));
  // No two corners share a number, then two coincide: neither comes to the matrices.
  grid.Three() = surveyPoint("100 7 100 50");
  grid.Two() = surveyPoint("1 100 0 200");
  EXPECT_FIT(grid, false, "Invalidate survey coordinates\n");
  EXPECT_THAT(grid.WorldToSurvey(), ElementsAreExactly(toSurvey));
  EXPECT_THAT(grid.SurveyToWorld(), ElementsAreExactly(toWorld));
  grid.Two() = grid.One();
  EXPECT_FIT(grid, false, "");
  EXPECT_THAT(grid.WorldToSurvey(), ElementsAreExactly(toSurvey));
  EXPECT_THAT(grid.SurveyToWorld(), ElementsAreExactly(toWorld));
}

TEST(SurveyFit, RejectsMatricesThatAreNotFinite) {
  // The third corner lies on the line through the first two, and no stretch takes it off.
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 100 0 100", "100 0 0 50");
  EXPECT_FIT(grid, false, "");
  EXPECT_FALSE(grid.SurveyToWorld().valid());
  EXPECT_EQ(grid.RotationDegrees(), 0.0);
}

TEST(SurveyFit, KeptOnlySurveyToWorldIsTested) {
  // k = 1e300, and the stretch 1e296 takes worldToSurvey beyond all numbers, while its opposite
  // fades to 0. The third corner comes out as a NaN then, which is neither above nor below.
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 1e150 1e-150 0", "1e300 0 0 -1e-296");
  EXPECT_FIT(grid, true, "");
  EXPECT_TRUE(grid.SurveyToWorld().valid());
  EXPECT_FALSE(grid.WorldToSurvey().valid());
  EXPECT_EQ(grid.RotationDegrees(), -90.0);
}

TEST(SurveyFit, KeptWayBackIsTheStepsUndone) {
  // k = 5 and fx = 5: 0.2 * 0.2 lies above 0.04, the double next to 1 / 25.
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 100 0 20", "500 0 20 0");
  EXPECT_FIT(grid, true, "");
  EXPECT_EQ(grid.WorldToSurvey()(0, 0), 25.0);
  EXPECT_EQ(grid.SurveyToWorld()(0, 0), 0.2 * 0.2);
  EXPECT_NE(grid.SurveyToWorld()(0, 0), 0.04);
  EXPECT_EQ(grid.SurveyToWorld()(1, 1), 0.2);
  // k = 1e-200, so that the determinant fades to 0.
  grid = gridOf("0 0 0 0", "0 1e-100 0 1e100", "1e-100 0 1e100 0");
  EXPECT_FIT(grid, true, "");
  EXPECT_NEAR(grid.SurveyToWorld()(0, 0) / 1e200, 1.0, 1e-12);
  EXPECT_NEAR(grid.SurveyToWorld()(1, 1) / 1e200, 1.0, 1e-12);
}

// resetPoints.

TEST(SurveyFit, CornersBecomeTheBoundingRectangle) {
  // World = (2 trace, 3 inline); the corners run from the far end, the third in the middle.
  zrSurveyCoordinates grid = gridOf("20 300 600 60", "20 100 200 60", "10 200 400 30");
  EXPECT_FIT(grid, true, "");
  EXPECT_THAT(grid.One(), PointNear("10 100 200 30", 1e-11));
  EXPECT_THAT(grid.Two(), PointNear("10 300 600 30", 1e-11));
  EXPECT_THAT(grid.Three(), PointNear("20 100 200 60", 1e-11));
  EXPECT_NEAR(grid.inlineDistance(), 3.0, 1e-12);
  EXPECT_NEAR(grid.xlineDistance(), 2.0, 1e-12);
  EXPECT_EQ(grid.inlines(), 11);
  EXPECT_EQ(grid.xlines(), 201);
}

TEST(SurveyFit, ResetTakesTheMatrixAsItIs) {
  zrSurveyCoordinates grid = gridOf("4 1 9 9", "2 5 9 9", "3 3 9 9");
  grid.resetPoints();
  EXPECT_THAT(grid.One(), PointIs("2 1 2 1"));
  EXPECT_THAT(grid.Two(), PointIs("2 5 2 5"));
  EXPECT_THAT(grid.Three(), PointIs("4 1 4 1"));
  EXPECT_EQ(grid.inlineDistance(), 1.0);
  EXPECT_EQ(grid.xlineDistance(), 1.0);
  EXPECT_FALSE(grid.Valid());
}

TEST(SurveyFit, CornerNumberThatIsNotANumberIsNoExtreme) {
  // World and survey numbers agree, and the NaN stands last.
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 100 0 100", "100 0 100 0");
  grid.SetThree(100.0, notANumber, 100.0, 0.0);
  EXPECT_FIT(grid, true, "");
  EXPECT_THAT(grid.One(), PointIs("0 0 0 0"));
  EXPECT_THAT(grid.Two(), PointIs("0 100 0 100"));
  EXPECT_THAT(grid.Three(), PointIs("100 0 100 0"));
  EXPECT_EQ(grid.inlineDistance(), 1.0);
  EXPECT_EQ(grid.xlineDistance(), 1.0);
  EXPECT_EQ(grid.xlines(), 101);

  // In the middle, by the identity, in either axis.
  zrSurveyCoordinates inTrace = gridOf("1 50 0 0", "1 0 0 0", "3 10 0 0");
  inTrace.Two().traceNumber = notANumber;
  inTrace.resetPoints();
  EXPECT_THAT(inTrace.One(), PointIs("1 10 1 10"));
  EXPECT_THAT(inTrace.Two(), PointIs("1 50 1 50"));
  zrSurveyCoordinates inInline = gridOf("50 1 0 0", "0 1 0 0", "10 3 0 0");
  inInline.Two().inlineNumber = notANumber;
  inInline.resetPoints();
  EXPECT_THAT(inInline.One(), PointIs("10 1 10 1"));
  EXPECT_THAT(inInline.Three(), PointIs("50 1 50 1"));
  // Last, below the first corner: the other extreme is the first.
  inInline.SetOne(50.0, 1.0, 0.0, 0.0);
  inInline.SetTwo(10.0, 3.0, 0.0, 0.0);
  inInline.SetThree(notANumber, 1.0, 0.0, 0.0);
  inInline.resetPoints();
  EXPECT_THAT(inInline.One(), PointIs("10 1 10 1"));
  EXPECT_THAT(inInline.Three(), PointIs("50 1 50 1"));
}

TEST(SurveyFit, FirstCornerThatIsNotANumberIsBothExtremes) {
  zrSurveyCoordinates grid = gridOf("1 0 0 0", "1 50 0 0", "3 10 0 0");
  grid.One().traceNumber = notANumber;
  grid.resetPoints();
  EXPECT_TRUE(std::isnan(grid.One().traceNumber));
  EXPECT_TRUE(std::isnan(grid.Two().traceNumber));
  EXPECT_TRUE(std::isnan(grid.xlineDistance()));
  EXPECT_EQ(grid.One().inlineNumber, 1.0);
  EXPECT_EQ(grid.Three().inlineNumber, 3.0);
}

TEST(SurveyFit, KeptFlatCornersGiveNoDistance) {
  zrSurveyCoordinates grid = gridOf("4 1 0 0", "4 5 0 0", "4 3 0 0");
  grid.resetPoints();
  EXPECT_TRUE(std::isnan(grid.inlineDistance()));
  EXPECT_EQ(grid.xlineDistance(), 1.0);
  grid = gridOf("1 4 0 0", "5 4 0 0", "3 4 0 0");
  grid.resetPoints();
  EXPECT_EQ(grid.inlineDistance(), 1.0);
  EXPECT_TRUE(std::isnan(grid.xlineDistance()));
}

}  // namespace
