#include <zrBase/tools3d/planeFit.h>

#include <gtest/gtest.h>

#include "support/geometryText.h"

#include <zrBase/tools3d/orthogonalPlaneTests.h>

#include <cmath>
#include <numeric>
#include <vector>

// Plane fits on small clouds whose answer can be worked out by hand. Random clouds are in
// planeFitScatterTest.cpp.

namespace {

/// Both outputs of a fit; the start values show what was not written.
struct Fit {
  gdfVertex centre{-1, -2, -3};
  gdfVertex normal{-4, -5, -6};
  double result = -7.0;
};

Fit fitPlain(const VertexLine& points) {
  Fit fit;
  fit.result = zr3DTools::lsOrthogonalPlaneFit(points, fit.centre, fit.normal);
  return fit;
}

Fit fitIndexed(const VertexLine& points, const std::vector<int>& indices) {
  Fit fit;
  fit.result = zr3DTools::lsOrthogonalPlaneFit(points, indices, fit.centre, fit.normal);
  return fit;
}

Fit fitWithFlag(const VertexLine& points, bool orthogonal) {
  Fit fit;
  fit.result = zr3DTools::lsOrthogonalPlaneFit(points, orthogonal, fit.centre, fit.normal);
  return fit;
}

std::vector<int> allIndices(const VertexLine& points) {
  std::vector<int> indices(points.size());
  std::iota(indices.begin(), indices.end(), 0);
  return indices;
}

/// The four fits of one cloud.
std::vector<Fit> allFits(const VertexLine& points) {
  return {fitPlain(points), fitIndexed(points, allIndices(points)), fitWithFlag(points, true),
          fitWithFlag(points, false)};
}

/// Unit length, and along a direction in either sense.
void expectParallel(const gdfVertex& normal, const gdfVertex& direction) {
  EXPECT_NEAR(normal.length(), 1.0, 1e-14);
  EXPECT_NEAR((normal ^ direction).length(), 0.0, 1e-14 * direction.length()) << toText(normal);
}

/// Around the z axis, on z = 2x + 3y.
VertexLine slopingSquare() { return line("-1 -1 -5, 1 -1 -1, -1 1 1, 1 1 5"); }

VertexLine shifted(VertexLine points, const gdfVertex& by) {
  for (gdfVertex& point : points) point += by;
  return points;
}

// All fits.

TEST(LsOrthogonalPlaneFit, GivesTheVerticalForAHorizontalCloud) {
  for (const Fit& fit : allFits(line("0 0 5, 4 0 5, 4 2 5, 0 2 5"))) {
    EXPECT_THAT(fit.centre, VertexIs("2 1 5"));
    EXPECT_THAT(fit.normal, VertexIs("0 0 1"));
  }
}

TEST(LsOrthogonalPlaneFit, GivesTheVerticalForASinglePoint) {
  for (const Fit& fit : allFits(line("3 4 5"))) {
    EXPECT_THAT(fit.centre, VertexIs("3 4 5"));
    EXPECT_THAT(fit.normal, VertexIs("0 0 1"));
  }
  for (const Fit& fit : allFits(line("nan nan nan"))) EXPECT_THAT(fit.normal, VertexIs("0 0 1"));
}

TEST(LsOrthogonalPlaneFit, GivesTheAxisForCloudsFlatInXOrY) {
  for (const Fit& fit : allFits(line("0 7 0, 4 7 1, 4 7 9, 3 7 3"))) {
    EXPECT_THAT(fit.normal, VertexIs("0 1 0"));
  }
  for (const Fit& fit : allFits(line("7 0 0, 7 4 1, 7 4 9, 7 3 3"))) {
    EXPECT_THAT(fit.normal, VertexIs("1 0 0"));
  }
}

TEST(LsOrthogonalPlaneFit, PrefersZToTheOtherCoordinates) {
  for (const Fit& fit : allFits(line("7 0 2, 7 4 2, 7 1 2"))) {
    EXPECT_THAT(fit.normal, VertexIs("0 0 1"));
  }
}

TEST(LsOrthogonalPlaneFit, LeavesBothOutputsForAnEmptyList) {
  for (const Fit& fit : allFits({})) {
    EXPECT_EQ(fit.result, 0.0);
    EXPECT_THAT(fit.centre, VertexIs("-1 -2 -3"));
    EXPECT_THAT(fit.normal, VertexIs("-4 -5 -6"));
  }
}

TEST(LsOrthogonalPlaneFit, KeptFitResultIsAlwaysZero) {
  // A cloud that no plane fits, one that is flat, and one that is upright.
  for (const char* const points : {"0 0 0, 5 1 7, 2 9 3, 4 4 4, 8 0 1", "0 0 5, 4 0 5, 4 2 5",
                                   "0 0 0, 1 1 4, 2 2 -3, 3 3 9", "0 0 0, 1 2 3"}) {
    for (const Fit& fit : allFits(line(points))) EXPECT_EQ(fit.result, 0.0) << points;
  }
}

TEST(LsOrthogonalPlaneFit, TakesOutputsFromAmongThePoints) {
  for (int method = 0; method < 4; ++method) {
    VertexLine points = slopingSquare();
    const Fit expected = allFits(points)[static_cast<std::size_t>(method)];
    if (method == 0) {
      zr3DTools::lsOrthogonalPlaneFit(points, points[0], points[2]);
    } else if (method == 1) {
      zr3DTools::lsOrthogonalPlaneFit(points, allIndices(points), points[0], points[2]);
    } else {
      zr3DTools::lsOrthogonalPlaneFit(points, method == 2, points[0], points[2]);
    }
    EXPECT_EQ(points[0], expected.centre) << method;
    EXPECT_EQ(points[2], expected.normal) << method;
  }
}

// The overloads without a flag: tolerance 0.001, then the eigenvector.

TEST(LsOrthogonalPlaneFit, FindsTheNormalOfPointsInASlopingPlane) {
  // The vectors (1, 2, 0) and (-4, 2, 5) are square to (2, -1, 2) and to each other.
  const VertexLine points = line("11 22 30, 9 18 30, 6 22 35, 14 18 25");
  for (const Fit& fit :
       {fitPlain(points), fitIndexed(points, {3, 1, 0, 2}), fitWithFlag(points, true)}) {
    EXPECT_THAT(fit.centre, VertexIs("10 20 30"));
    expectParallel(fit.normal, {2, -1, 2});
  }
}

TEST(LsOrthogonalPlaneFit, TakesAThousandthForFlat) {
  EXPECT_THAT(fitPlain(line("0 0 5, 4 0 5.0005, 4 2 4.9995, 0 2 5")).normal, VertexIs("0 0 1"));
  // Closed: 0.001 itself is flat, the next double is not. The plane is then z = 0.00025 x.
  VertexLine points = line("0 0 0, 4 0 0.001, 4 2 0.001, 0 2 0");
  EXPECT_THAT(fitPlain(points).normal, VertexIs("0 0 1"));
  points[1].z() = points[2].z() = std::nextafter(0.001, 1.0);
  EXPECT_NEAR(std::fabs(fitPlain(points).normal.x()), 0.00025, 1e-9);
  // The same in y and in x.
  EXPECT_THAT(fitPlain(line("0 0 0, 4 0.001 0, 4 -0.001 2, 0 0 2")).normal, VertexIs("0 1 0"));
  EXPECT_THAT(fitPlain(line("0 0 0, 0.001 4 0, -0.001 4 2, 0 0 2")).normal, VertexIs("1 0 0"));
}

TEST(LsOrthogonalPlaneFit, KeptFlatnessIsMeasuredFromTheFirstPoint) {
  // z runs over 0.0018 in both, but from the first point over 0.0009 in the one alone.
  EXPECT_THAT(fitPlain(line("0 0 0, 4 0 0.0009, 4 2 -0.0009")).normal, VertexIs("0 0 1"));
  // Through all three: z = 0.000225 x - 0.0009 y.
  expectParallel(fitPlain(line("4 2 -0.0009, 0 0 0, 4 0 0.0009")).normal, {-0.000225, 0.0009, 1});
}

TEST(LsOrthogonalPlaneFit, TakesUprightCloudsToTheSolverWithoutAFlag) {
  // In the plane x = y: scatter alike in x and y, with no rise of z along it.
  const VertexLine points = line("-2 -2 1, 2 2 1, -2 -2 -1, 2 2 -1");
  expectParallel(fitPlain(points).normal, {1, -1, 0});
}

TEST(LsOrthogonalPlaneFitIndexed, TakesEachPointAsOftenAsItIsListed) {
  const VertexLine points = line("0 0 0, 4 0 8, 0 4 8, 100 -50 70");
  const Fit fit = fitIndexed(points, {1, 1, 0, 2, 1, 0});
  EXPECT_THAT(fit.centre, VertexNear("2 0.6666666666666666 5.333333333333333", 1e-15));
  // z = 2x + 2y.
  expectParallel(fit.normal, {2, 2, -1});
}

TEST(LsOrthogonalPlaneFitIndexed, KeptIndexedFitTestsTheWholeListForFlatness) {
  // The indexed points are flat within 0.0005, but the last of the list is not.
  const VertexLine points = line("0 0 1, 4 0 1.0005, 4 2 1.0005, 0 2 1, 0 0 2");
  const Fit fit = fitIndexed(points, {0, 1, 2, 3});
  EXPECT_NEAR(std::fabs(fit.normal.x()), 0.000125, 1e-9);
  EXPECT_THAT(fitPlain({points.begin(), points.end() - 1}).normal, VertexIs("0 0 1"));
}

TEST(LsOrthogonalPlaneFitIndexed, SolvesForAHorizontalPartOfAnUnevenList) {
  const VertexLine points = line("0 0 1, 4 0 1, 4 2 1, 0 2 1, 0 0 2");
  const Fit fit = fitIndexed(points, {0, 1, 2, 3});
  EXPECT_THAT(fit.centre, VertexIs("2 1 1"));
  EXPECT_NEAR(std::fabs(fit.normal.z()), 1.0, 1e-15);
}

TEST(LsOrthogonalPlaneFitIndexed, KeptEmptyIndexListGivesCentreNaN) {
  for (const char* const points : {"0 0 0, 4 0 5, 0 4 7", "0 1 0, 4 1 5, 3 1 9"}) {
    const gdfVertex centre = fitIndexed(line(points), {}).centre;
    EXPECT_TRUE(std::isnan(centre.x()) && std::isnan(centre.y()) && std::isnan(centre.z()));
  }
  // Of no scatter at all the solver's third vector is the vertical.
  EXPECT_THAT(fitIndexed(line("0 0 0, 4 0 5, 0 4 7"), {}).normal, VertexIs("0 0 1"));
  EXPECT_THAT(fitIndexed(line("0 1 0, 4 1 5, 3 1 9"), {}).normal, VertexIs("0 1 0"));
}

TEST(LsOrthogonalPlaneFitIndexed, LeavesBothOutputsWithoutPoints) {
  const Fit fit = fitIndexed({}, {0, 1});
  EXPECT_THAT(fit.centre, VertexIs("-1 -2 -3"));
  EXPECT_THAT(fit.normal, VertexIs("-4 -5 -6"));
}

TEST(LsOrthogonalPlaneFitIndexed, IsChosenByAVectorAndNotByAFlag) {
  const VertexLine points = line("0 0 0, 3 0 0, 0 6 0");
  gdfVertex centre;
  gdfVertex normal;
  zr3DTools::lsOrthogonalPlaneFit(points, std::vector<int>{1}, centre, normal);
  EXPECT_THAT(centre, VertexIs("3 0 0"));
  zr3DTools::lsOrthogonalPlaneFit(points, {1, 1}, centre, normal);
  EXPECT_THAT(centre, VertexIs("3 0 0"));
  zr3DTools::lsOrthogonalPlaneFit(points, true, centre, normal);
  EXPECT_THAT(centre, VertexIs("1 2 0"));
  // One number in braces is a flag.
  centre = gdfVertex();
  zr3DTools::lsOrthogonalPlaneFit(points, {1}, centre, normal);
  EXPECT_THAT(centre, VertexIs("1 2 0"));
}

// With the flag: tolerance 0.01, upright clouds, then the method.

TEST(LsOrthogonalPlaneFitWithFlag, TakesAHundredthForFlat) {
  // Closed: 0.01 itself is flat, the next double is not. The plane is then z = 0.0025 x, and
  // straight seen along y.
  VertexLine points = line("0 0 0, 4 0 0.01, 4 2 0.01, 0 2 0");
  EXPECT_THAT(fitWithFlag(points, true).normal, VertexIs("0 0 1"));
  EXPECT_THAT(fitWithFlag(points, false).normal, VertexIs("0 0 1"));
  points[1].z() = points[2].z() = std::nextafter(0.01, 1.0);
  EXPECT_THAT(fitWithFlag(points, true).normal, VertexNear("0.0025 0 -1", 1e-5));
  EXPECT_THAT(fitWithFlag(line("0 0 0, 4 0.01 0, 4 -0.01 2, 0 0 2"), true).normal,
              VertexIs("0 1 0"));
  EXPECT_THAT(fitWithFlag(line("0 0 0, 0.01 4 0, -0.01 4 2, 0 0 2"), true).normal,
              VertexIs("1 0 0"));
}

TEST(LsOrthogonalPlaneFitWithFlag, KeptFitWithFlagPrefersXToY) {
  const VertexLine above = line("1 2 0, 1 2 5, 1 2 9");
  EXPECT_THAT(fitWithFlag(above, true).normal, VertexIs("1 0 0"));
  EXPECT_THAT(fitWithFlag(above, false).normal, VertexIs("1 0 0"));
  EXPECT_THAT(fitPlain(above).normal, VertexIs("0 1 0"));
}

TEST(LsOrthogonalPlaneFitWithFlag, KeptNaNDoesNotBreakConstancy) {
  const VertexLine points = line("0 0 0, 1 1 nan, 2 5 0");
  EXPECT_THAT(fitWithFlag(points, true).normal, VertexIs("0 0 1"));
  EXPECT_TRUE(std::isnan(fitWithFlag(points, true).centre.z()));
  EXPECT_THAT(fitWithFlag(line("0 0 0, nan 1 4, 0 5 9"), true).normal, VertexIs("1 0 0"));
  EXPECT_THAT(fitWithFlag(line("0 0 0, 1 nan 4, 5 0 9"), true).normal, VertexIs("0 1 0"));
  // Not flat, and solved for.
  EXPECT_FALSE(fitPlain(points).normal.valid());
}

TEST(LsOrthogonalPlaneFitWithFlag, TakesTheNormalOfAnUprightPlane) {
  const VertexLine points = line("0 0 0, 1 1 4, 2 2 -3, 3 3 9");
  gdfVertex expected;
  ASSERT_TRUE(zr3DTools::isPointsPlaneOrthogonalToXYPlane(points, 0.01, expected));
  for (const bool orthogonal : {true, false}) {
    const Fit fit = fitWithFlag(points, orthogonal);
    EXPECT_THAT(fit.centre, VertexIs("1.5 1.5 2.5"));
    EXPECT_THAT(fit.normal, VertexNear("0.7071067811865476 -0.7071067811865476 0", 1e-15));
    // The very bits of the test: no eigenvector comes so close.
    EXPECT_EQ(fit.normal, expected);
  }
}

TEST(LsOrthogonalPlaneFitWithFlag, TakesTheNormalsOfTheOtherViews) {
  // z = y along x, then z = x along y.
  EXPECT_THAT(fitWithFlag(line("0 0 0, 4 1 1, -3 2 2, 9 3 3"), false).normal,
              VertexNear("0 0.7071067811865476 -0.7071067811865476", 1e-15));
  EXPECT_THAT(fitWithFlag(line("0 0 0, 1 4 1, 2 -3 2, 3 9 3"), false).normal,
              VertexNear("0.7071067811865476 0 -0.7071067811865476", 1e-15));
}

TEST(LsOrthogonalPlaneFitWithFlag, LooksAlongZThenXThenY) {
  // Straight in every view.
  EXPECT_THAT(fitWithFlag(line("0 0 0, 3 4 5, 6 8 10"), true).normal,
              VertexNear("0.8 -0.6 0", 1e-15));
  // The last point is 0.0075 off in x and in y, 0.0106 in map view.
  EXPECT_THAT(fitWithFlag(line("0 0 0, 0.02 0.02 100, 0.0475 0.0325 200"), true).normal,
              VertexNear("0 1 -0.0002", 1e-7));
}

TEST(LsOrthogonalPlaneFitWithFlag, KeptTwoSlopingPointsLeaveTheNormal) {
  for (const bool orthogonal : {true, false}) {
    const Fit fit = fitWithFlag(line("0 0 0, 4 6 8"), orthogonal);
    EXPECT_THAT(fit.centre, VertexIs("2 3 4"));
    EXPECT_THAT(fit.normal, VertexIs("-4 -5 -6"));
  }
}

TEST(LsOrthogonalPlaneFitWithFlag, KeptLinearFitOfCentredCloudIsItsGradient) {
  // The matrix is diag(4, 4, 1), the right-hand side (8, 12, 0).
  EXPECT_LE(
      (fitWithFlag(slopingSquare(), false).normal - gdfVertex(2, 3, 0) / std::sqrt(13.0)).length(),
      1e-15);
  expectParallel(fitWithFlag(slopingSquare(), true).normal, {2, 3, -1});
}

TEST(LsOrthogonalPlaneFitWithFlag, KeptLinearFitMixesCentredAndRawSums) {
  // The rows (4, 0, 20), (0, 4, 28), (20, 28, 1) with (8, 12, 0): c = 124/295, a = 2 - 5c = -30/295
  // and b = 3 - 7c = 17/295.
  const Fit fit = fitWithFlag(shifted(slopingSquare(), {5, 7, 0}), false);
  EXPECT_LE((fit.normal - gdfVertex(-30, 17, 124) / std::sqrt(16565.0)).length(), 1e-14);
}

TEST(LsOrthogonalPlaneFitWithFlag, KeptNearlySingularLinearFitIsVertical) {
  // On z = x + y, with the rows (4, 0, 0), (0, 4, 2), (0, 2, 1).
  const VertexLine points = line("-1 -0.5 -1.5, 1 -0.5 0.5, -1 1.5 0.5, 1 1.5 2.5");
  EXPECT_THAT(fitWithFlag(points, false).normal, VertexIs("0 0 1"));
  // A little aside the determinant is 4 * (4 - Sy * Sy): with Sy = 2 + 2^-31 about -7.5e-9 counts
  // as singular, with Sy = 2 + 2^-30 about -1.5e-8 does not.
  const double step = std::ldexp(1.0, -33);
  EXPECT_THAT(fitWithFlag(shifted(points, {0, step, 0}), false).normal, VertexIs("0 0 1"));
  EXPECT_LT(fitWithFlag(shifted(points, {0, 2 * step, 0}), false).normal.z(), 0.95);
}

TEST(LsOrthogonalPlaneFitWithFlag, KeptLinearFitThatOverflowsIsVertical) {
  VertexLine points = slopingSquare();
  for (gdfVertex& point : points) point *= 1e100;
  EXPECT_THAT(fitWithFlag(points, false).normal, VertexIs("0 0 1"));
}

TEST(LsOrthogonalPlaneFitWithFlag, KeptTinyInverseOfALinearFitIsVertical) {
  // Sums of about 1e28 in every place but the last: no element of the inverse reaches 1e-26, though
  // it is an inverse as good as any.
  VertexLine points;
  for (const double east : {-1e14, 1e14}) {
    for (const double north : {-1e14, 1e14}) {
      points.emplace_back(1e28 + east, 1e28 + north, 2.0 * east + 3.0 * north);
    }
  }
  EXPECT_THAT(fitWithFlag(points, false).normal, VertexIs("0 0 1"));
}

TEST(LsOrthogonalPlaneFit, KeptNormalMayPointDown) {
  // Scatter sums Sxx = 18, Syy = Szz = 10, Syz = 6, no others: the smallest value is 4, and the
  // rotation of the solver turns (0, 1, -1) downwards, as it turns the vectors of (2 1, 1 2).
  const VertexLine points = line("3 0 0, -3 0 0, 0 2 2, 0 -2 -2, 0 1 -1, 0 -1 1");
  EXPECT_THAT(fitPlain(points).normal,
              VertexNear("0 0.7071067811865476 -0.7071067811865476", 1e-15));
  EXPECT_THAT(fitWithFlag(points, true).normal,
              VertexNear("0 0.7071067811865476 -0.7071067811865476", 1e-15));
}

TEST(LsOrthogonalPlaneFitWithFlag, GivesTheVerticalForALinearFitWithoutSlope) {
  // The saddle z = xy: (Sxz, Syz, Sz) is (0, 0, 0).
  EXPECT_THAT(fitWithFlag(line("-1 -1 1, 1 -1 -1, -1 1 -1, 1 1 1"), false).normal,
              VertexIs("0 0 1"));
}

// Average normals.

TEST(CalcAverageNormal, GivesZerosForAnEmptyList) {
  EXPECT_THAT(zr3DTools::calcAverageNormal({}), VertexIs("0 0 0"));
  EXPECT_THAT(zr3DTools::calcAverageNormal({}, {}), VertexIs("0 0 0"));
}

TEST(CalcAverageNormal, IsTheOrthogonalFit) {
  EXPECT_EQ(zr3DTools::calcAverageNormal(slopingSquare()),
            fitWithFlag(slopingSquare(), true).normal);
  const VertexLine points = shifted(slopingSquare(), {5, 7, 9});
  EXPECT_EQ(zr3DTools::calcAverageNormal(points, {0, 1, 2, 3}), fitPlain(points).normal);
}

TEST(CalcAverageNormal, SnapsOntoTheAxis) {
  // Seen along y the way from the first point to the second rises at 1 in 10: (0.0995, 0, -0.995).
  EXPECT_THAT(zr3DTools::calcAverageNormal(line("-1 -1 -0.1, 1 -1 0.1, 1 1 0.1, -1 1 -0.1")),
              VertexIs("0 0 -1"));
  EXPECT_THAT(zr3DTools::calcAverageNormal(line("1 -1 0.1, -1 -1 -0.1, 1 1 0.1, -1 1 -0.1")),
              VertexIs("0 0 1"));
  const gdfVertex normal =
      zr3DTools::calcAverageNormal(line("-1 -1 -0.1, 1 -1 0.1, 1 1 0.1, -1 1 -0.1"), {0, 1, 2, 3});
  EXPECT_EQ(gdfVertex(normal.x(), normal.y(), std::fabs(normal.z())), gdfVertex(0, 0, 1));
}

TEST(CalcAverageNormal, KeptIndexedAverageNormalIsTheFitWithoutFlag) {
  // Two sloping points leave the normal of the one at its start, and are solved for in the other.
  const VertexLine two = line("0 0 0, 1 2 3");
  EXPECT_THAT(zr3DTools::calcAverageNormal(two), VertexIs("0 0 0"));
  const gdfVertex normal = zr3DTools::calcAverageNormal(two, {0, 1});
  EXPECT_NEAR(normal.length(), 1.0, 1e-14);
  EXPECT_NEAR(normal * gdfVertex(1, 2, 3), 0.0, 1e-14);
}

TEST(CleanNormal, SnapsOntoEachAxis) {
  const auto cleaned = [](const char* text) {
    gdfVertex normal = vertex(text);
    zr3DTools::cleanNormal(normal);
    return normal;
  };
  EXPECT_THAT(cleaned("0.1 0.1 0.985"), VertexIs("0 0 1"));
  EXPECT_THAT(cleaned("0.1 0.1 -0.985"), VertexIs("0 0 -1"));
  EXPECT_THAT(cleaned("0.985 0.1 0.1"), VertexIs("1 0 0"));
  EXPECT_THAT(cleaned("0.1 0.985 0.1"), VertexIs("0 1 0"));
  EXPECT_THAT(cleaned("-0.985 0.1 0.1"), VertexIs("-1 0 0"));
  EXPECT_THAT(cleaned("0.1 -0.985 0.1"), VertexIs("0 -1 0"));
  // Nothing else is touched, nor scaled; the limit itself is outside.
  EXPECT_THAT(cleaned("0.5 0.5 0.7"), VertexIs("0.5 0.5 0.7"));
  EXPECT_THAT(cleaned("0.98 -0.98 0.98"), VertexIs("0.98 -0.98 0.98"));
  EXPECT_THAT(cleaned("-0.98 0.98 -0.98"), VertexIs("-0.98 0.98 -0.98"));
  EXPECT_THAT(cleaned("nan -0.99 nan"), VertexIs("0 -1 0"));
}

TEST(CleanNormal, KeptSnapTestsZFirstThenPositiveSides) {
  const auto cleaned = [](gdfVertex normal) {
    zr3DTools::cleanNormal(normal);
    return normal;
  };
  EXPECT_EQ(cleaned({9, 9, 1}), gdfVertex(0, 0, 1));
  EXPECT_EQ(cleaned({9, 9, -1}), gdfVertex(0, 0, -1));
  EXPECT_EQ(cleaned({2, 9, 0}), gdfVertex(1, 0, 0));
  EXPECT_EQ(cleaned({-9, 2, 0}), gdfVertex(0, 1, 0));
  EXPECT_EQ(cleaned({-2, -9, 0}), gdfVertex(-1, 0, 0));
}

}  // namespace
