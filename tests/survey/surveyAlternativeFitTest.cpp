#include <zrBase/survey/zrSurveyCoordinates.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"
#include "support/matrixText.h"
#include "survey/support/surveyGrids.h"
#include "survey/support/surveyPoints.h"

#include <cmath>

namespace {

TEST(SurveyAlternativeFit, CarriesAGridOfEitherHand) {
  for (const double inlineDistance : {12.5, -12.5}) {
    for (const double degrees : {0.0, 30.0, 100.0, 190.0, 280.0}) {
      zrSurveyCoordinates grid = turnedGrid(degrees, inlineDistance, 25.0, vertex("5000 7000"));
      const zrSurveyCoordinates given = grid;
      grid.CalculateTransMatrices1();
      EXPECT_TRUE(grid.Valid());
      for (int corner = 0; corner < 3; ++corner) {
        const zrSurveyPoint& p = given.SurveyPoint(corner);
        const gdfVertex world(p.x, p.y);
        EXPECT_LT(worldOf(grid, p.inlineNumber, p.traceNumber).distance(world), 1e-8);
        EXPECT_LT(surveyOf(grid, world).distance(gdfVertex(p.inlineNumber, p.traceNumber)), 1e-9);
        EXPECT_EQ(numbersOf(grid.SurveyPoint(corner)), numbersOf(p)) << "corners stay";
      }
    }
  }
}

TEST(SurveyAlternativeFit, DefaultCornersGiveALeftHandedGrid) {
  zrSurveyCoordinates grid;
  grid.CalculateTransMatrices1();
  // Scales 12.5 and -12.5, then a quarter turn.
  EXPECT_THAT(grid.SurveyToWorld(),
              ElementsAreNear("0 12.5 0 0, 12.5 0 0 0, 0 0 1 0, 0 0 0 1", 1e-13));
  EXPECT_THAT(grid.WorldToSurvey(),
              ElementsAreNear("0 0.08 0 0, 0.08 0 0 0, 0 0 1 0, 0 0 0 1", 1e-15));
}

TEST(SurveyAlternativeFit, TurnBelowZeroGoesOnToTheFullTurn) {
  // World = (trace, -inline): the inline axis runs south. Three quarters of a turn, as a double,
  // fall short of it by 1.84e-16, a quarter of a turn backwards by 6.1e-17.
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 1 1 0", "1 0 0 -1");
  grid.CalculateTransMatrices1();
  EXPECT_NEAR(grid.SurveyToWorld()(0, 0), -1.8369701987210297e-16, 1e-25);
  EXPECT_NEAR(grid.SurveyToWorld()(1, 1), -1.8369701987210297e-16, 1e-25);
  EXPECT_NEAR(grid.WorldToSurvey()(0, 0), -1.8369701987210297e-16, 1e-25);
  EXPECT_EQ(grid.SurveyToWorld()(0, 1), -1.0);
}

TEST(SurveyAlternativeFit, NoTurnStaysAtZero) {
  // World = (inline, trace). A full turn, as a double, has a sine of -2.4e-16.
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 1 0 1", "1 0 1 0");
  grid.CalculateTransMatrices1();
  EXPECT_THAT(grid.SurveyToWorld(), ElementsAreExactly("1 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 1"));
}

TEST(SurveyAlternativeFit, AxesThatFallTogetherAreNotLeftHanded) {
  // World = (inline + trace, 0): the axes span nothing, and the trace scale stays positive.
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 1 1 0", "1 0 1 0");
  grid.CalculateTransMatrices1();
  EXPECT_THAT(grid.SurveyToWorld(), ElementsAreExactly("1 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 1"));
  EXPECT_THAT(grid.WorldToSurvey(), ElementsAreExactly("1 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 1"));
}

TEST(SurveyAlternativeFit, KeptAlternativeFitSparesRotation) {
  zrSurveyCoordinates grid = turnedGrid(30.0, 12.5, 25.0);
  ASSERT_TRUE(grid.CalculateTransMatrices());
  const double rotation = grid.RotationDegrees();
  const double inlineDistance = grid.inlineDistance();
  const double xlineDistance = grid.xlineDistance();
  grid.SetTwo(10.0, 120.0, 777.0, 888.0);
  grid.CalculateTransMatrices1();
  EXPECT_EQ(grid.RotationDegrees(), rotation);
  EXPECT_EQ(grid.inlineDistance(), inlineDistance);
  EXPECT_EQ(grid.xlineDistance(), xlineDistance);
}

TEST(SurveyAlternativeFit, KeptAlternativeFitHasNoShear) {
  // World = (inline + trace / 2, trace): the trace axis keeps its length sqrt(1.25), not its slant.
  zrSurveyCoordinates grid = gridOf("0 0 0 0", "0 100 50 100", "100 0 100 0");
  grid.CalculateTransMatrices1();
  EXPECT_THAT(worldOf(grid, 100.0, 0.0), VertexNear("100 0 0", 1e-12));
  EXPECT_THAT(worldOf(grid, 0.0, 100.0), VertexNear("0 111.80339887498949 0", 1e-12));
}

TEST(SurveyAlternativeFit, KeptAlternativeFitIsAlwaysValid) {
  // Three corners on one inline: the identity stands for the inverse, and the world positions of
  // the corners for the coefficients, x = 1 + 3 inline + 0 trace, y = 2 + 4 inline + 5 trace.
  zrSurveyCoordinates grid = gridOf("0 0 1 2", "0 1 3 4", "0 2 0 5");
  grid.CalculateTransMatrices1();
  EXPECT_TRUE(grid.Valid());
  EXPECT_THAT(worldOf(grid, 0.0, 0.0), VertexNear("1 2 0", 1e-12));
  EXPECT_THAT(worldOf(grid, 1.0, 0.0), VertexNear("4 6 0", 1e-12));
  EXPECT_THAT(worldOf(grid, 0.0, 1.0), VertexNear("-3 5 0", 1e-12));

  grid = gridOf("0 0 7 7", "0 1 0 0", "0 2 0 0");
  grid.CalculateTransMatrices1();
  EXPECT_TRUE(grid.Valid());
  EXPECT_FALSE(grid.WorldToSurvey().valid()) << "scales of 0";
}

// Laws of both fits.

RC_GTEST_PROP(SurveyFitLaws, RoundTripsInAnyTurn, ()) {
  const double degrees = *rc::gen::inRange(-5700, 5700) / 64.0;
  const double inlineDistance =
      *rc::gen::inRange(64, 3200) / 64.0 * (*rc::gen::arbitrary<bool>() ? 1.0 : -1.0);
  const double traceDistance = *rc::gen::inRange(64, 3200) / 64.0;
  const gdfVertex origin(*rc::gen::inRange(0, 700000), *rc::gen::inRange(0, 7000000));
  zrSurveyCoordinates grid = turnedGrid(degrees, inlineDistance, traceDistance, origin);
  RC_ASSERT(grid.CalculateTransMatrices());
  RC_ASSERT(std::fabs(grid.RotationDegrees() - degrees) < 1e-6);
  const gdfVertex world =
      origin + gdfVertex(*rc::gen::inRange(-9000, 9000), *rc::gen::inRange(-9000, 9000));
  const gdfVertex survey = surveyOf(grid, world);
  RC_ASSERT(worldOf(grid, survey.x(), survey.y()).distance(world) < 1e-5);

  zrSurveyCoordinates alternative = grid;
  alternative.CalculateTransMatrices1();
  RC_ASSERT(alternative == grid);
  RC_ASSERT(surveyOf(alternative, world).distance(survey) < 1e-5);
}

}  // namespace
