#include <zrBase/geometry/gdfTransMatrix.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

#include "support/geometryText.h"
#include "support/matrixText.h"

namespace {

const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double quarterTurn = std::acos(0.0);

const char* const identity = "1 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 1";
const char* const zeros = "0 0 0 0, 0 0 0 0, 0 0 0 0, 0 0 0 0";
const char* const counting = "1 2 3 4, 5 6 7 8, 9 10 11 12, 13 14 15 16";
const char* const doubled = "2 4 6 8, 10 12 14 16, 18 20 22 24, 26 28 30 32";

const char* const quotientMessage =
    "Error: division by zero in gdfTransMatrix::operator / (double divisor)\n";
const char* const quotientInPlaceMessage =
    "Error: division by zero in gdfTransMatrix::operator /= (double divisor)\n";

gdfTransMatrix drawMatrix() {
  gdfTransMatrix m;
  for (int k = 0; k < 16; ++k) m(k / 4, k % 4) = *rc::gen::inRange(-64, 64) / 16.0;
  return m;
}

}  // namespace

TEST(TransMatrixProduct, IsRowsByColumns) {
  EXPECT_THAT(transMatrix(counting) * transMatrix("1 0 0 1, 0 2 0 0, 0 0 3 0, 0 0 0 4"),
              ElementsAreExactly("1 4 9 17, 5 12 21 37, 9 20 33 57, 13 28 45 77"));
}

TEST(TransMatrixProduct, InPlaceMayTakeItself) {
  gdfTransMatrix m = transMatrix(counting);
  EXPECT_EQ(&(m *= m), &m);
  EXPECT_THAT(m, ElementsAreExactly("90 100 110 120, 202 228 254 280, 314 356 398 440,"
                                    "426 484 542 600"));
}

TEST(TransMatrixProduct, ScalarTakesTheWeightToo) {
  gdfTransMatrix m = transMatrix(counting);
  EXPECT_THAT(m * 2.0, ElementsAreExactly(doubled));
  EXPECT_EQ(&(m *= 2.0), &m);
  EXPECT_THAT(m, ElementsAreExactly(doubled));
}

TEST(TransMatrixSum, IsElementByElement) {
  gdfTransMatrix m = transMatrix(counting);
  EXPECT_THAT(m + m, ElementsAreExactly(doubled));
  EXPECT_THAT(m - m, ElementsAreExactly(zeros));
  EXPECT_EQ(&(m += transMatrix(counting)), &m);
  EXPECT_THAT(m, ElementsAreExactly(doubled));
  EXPECT_EQ(&(m -= transMatrix(counting)), &m);
  EXPECT_THAT(m, ElementsAreExactly(counting));
}

TEST(TransMatrixQuotient, MultipliesByTheReciprocal) {
  gdfTransMatrix m = transMatrix(doubled);
  EXPECT_THAT(m / 2.0, ElementsAreExactly(counting));
  EXPECT_EQ((transMatrix(counting) / 49.0)(2, 1), 10.0 * (1.0 / 49.0));
  EXPECT_EQ(&(m /= 2.0), &m);
  EXPECT_THAT(m, ElementsAreExactly(counting));
  m /= 49.0;
  EXPECT_EQ(m(2, 1), 10.0 * (1.0 / 49.0));
}

TEST(TransMatrixQuotient, KeptTransMatrixQuotientByZeroIsIdentity) {
  for (const double divisor : {0.0, -0.0, 1e-5, -1e-5, 5e-6}) {
    testing::internal::CaptureStderr();
    const gdfTransMatrix quotient = transMatrix(counting) / divisor;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), quotientMessage);
    EXPECT_THAT(quotient, ElementsAreExactly(identity));
  }
}

TEST(TransMatrixQuotient, InPlaceByZeroLeavesTheMatrix) {
  for (const double divisor : {0.0, 1e-5, -1e-5}) {
    gdfTransMatrix m = transMatrix(counting);
    testing::internal::CaptureStderr();
    EXPECT_EQ(&(m /= divisor), &m);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), quotientInPlaceMessage);
    EXPECT_THAT(m, ElementsAreExactly(counting));
  }
}

TEST(TransMatrixQuotient, JustOutsideTheLimitDividesInSilence) {
  for (const double divisor : {1.0000001e-5, -1.0000001e-5}) {
    gdfTransMatrix m;
    testing::internal::CaptureStderr();
    const gdfTransMatrix quotient = m / divisor;
    m /= divisor;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(quotient(3, 3), 1.0 / divisor);
    EXPECT_EQ(m(3, 3), 1.0 / divisor);
  }
}

TEST(TransMatrixQuotient, NaNDivisorSpreadsInSilence) {
  gdfTransMatrix m;
  testing::internal::CaptureStderr();
  const gdfTransMatrix quotient = m / notANumber;
  m /= notANumber;
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_TRUE(std::isnan(quotient(0, 0)));
  EXPECT_TRUE(std::isnan(m(0, 0)));
}

TEST(TransMatrixTranslation, AddsToTheLastRow) {
  const char* const moved = "1 2 3 4, 5 6 7 8, 9 10 11 12, 14 16 18 16";
  const gdfTransMatrix m = transMatrix(counting);
  EXPECT_THAT(m + vertex("1 2 3"), ElementsAreExactly(moved));
  EXPECT_THAT(m.tXYZ(vertex("1 2 3")), ElementsAreExactly(moved));
  EXPECT_THAT(m, ElementsAreExactly(counting));
}

TEST(TransMatrixTranslation, InPlaceFormsAddToTheLastRow) {
  const char* const moved = "1 2 3 4, 5 6 7 8, 9 10 11 12, 14 16 18 16";
  gdfTransMatrix m = transMatrix(counting);
  EXPECT_EQ(&(m += vertex("1 2 3")), &m);
  EXPECT_THAT(m, ElementsAreExactly(moved));
  m = transMatrix(counting);
  m.translate(vertex("1 2 3"));
  EXPECT_THAT(m, ElementsAreExactly(moved));
  m = transMatrix(counting);
  m.translate(1.0, 2.0, 3.0);
  EXPECT_THAT(m, ElementsAreExactly(moved));
}

TEST(TransMatrixTranslation, MinusTakesFromTheLastRow) {
  const char* const moved = "1 2 3 4, 5 6 7 8, 9 10 11 12, 12 12 12 16";
  gdfTransMatrix m = transMatrix(counting);
  EXPECT_THAT(m - vertex("1 2 3"), ElementsAreExactly(moved));
  EXPECT_EQ(&(m -= vertex("1 2 3")), &m);
  EXPECT_THAT(m, ElementsAreExactly(moved));
}

TEST(TransMatrixScale, NewMatricesScaleColumnsWithTheTranslation) {
  const gdfTransMatrix m = transMatrix(counting);
  EXPECT_THAT(m.sX(2.0), ElementsAreExactly("2 2 3 4, 10 6 7 8, 18 10 11 12, 26 14 15 16"));
  EXPECT_THAT(m.sY(2.0), ElementsAreExactly("1 4 3 4, 5 12 7 8, 9 20 11 12, 13 28 15 16"));
  EXPECT_THAT(m.sZ(2.0), ElementsAreExactly("1 2 6 4, 5 6 14 8, 9 10 22 12, 13 14 30 16"));
  EXPECT_THAT(m.sXYZ(2.0), ElementsAreExactly("2 4 6 4, 10 12 14 8, 18 20 22 12, 26 28 30 16"));
  EXPECT_THAT(m.sXYZ(vertex("2 3 -1")),
              ElementsAreExactly("2 6 -3 4, 10 18 -7 8, 18 30 -11 12, 26 42 -15 16"));
  EXPECT_THAT(m, ElementsAreExactly(counting));
}

TEST(TransMatrixScale, InPlaceFormsDoTheSame) {
  gdfTransMatrix m = transMatrix(counting);
  m.scaleX(2.0);
  EXPECT_THAT(m, ElementsAreExactly("2 2 3 4, 10 6 7 8, 18 10 11 12, 26 14 15 16"));
  m = transMatrix(counting);
  m.scaleY(2.0);
  EXPECT_THAT(m, ElementsAreExactly("1 4 3 4, 5 12 7 8, 9 20 11 12, 13 28 15 16"));
  m = transMatrix(counting);
  m.scaleZ(2.0);
  EXPECT_THAT(m, ElementsAreExactly("1 2 6 4, 5 6 14 8, 9 10 22 12, 13 14 30 16"));
  m = transMatrix(counting);
  m.scaleXYZ(2.0);
  EXPECT_THAT(m, ElementsAreExactly("2 4 6 4, 10 12 14 8, 18 20 22 12, 26 28 30 16"));
  m = transMatrix(counting);
  m.scale(vertex("2 3 -1"));
  EXPECT_THAT(m, ElementsAreExactly("2 6 -3 4, 10 18 -7 8, 18 30 -11 12, 26 42 -15 16"));
}

TEST(TransMatrixScale, KeptTransMatrixThreeArgumentScaleOnlyPrints) {
  gdfTransMatrix m = transMatrix(counting);
  testing::internal::CaptureStderr();
  m.scale(vertex("1 2 3"), 2.0, vertex("4 5 6"));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "gdfTransMatrix::scale is not implemented\n");
  EXPECT_THAT(m, ElementsAreExactly(counting));
}

TEST(TransMatrixRotate, NewMatricesTurnColumnsWithTheTranslation) {
  const gdfTransMatrix m = transMatrix(counting);
  EXPECT_THAT(m.rX(quarterTurn),
              ElementsAreNear("1 -3 2 4, 5 -7 6 8, 9 -11 10 12, 13 -15 14 16", 1e-14));
  EXPECT_THAT(m.rY(quarterTurn),
              ElementsAreNear("3 2 -1 4, 7 6 -5 8, 11 10 -9 12, 15 14 -13 16", 1e-14));
  EXPECT_THAT(m.rZ(quarterTurn),
              ElementsAreNear("-2 1 3 4, -6 5 7 8, -10 9 11 12, -14 13 15 16", 1e-14));
  EXPECT_THAT(m, ElementsAreExactly(counting));
}

TEST(TransMatrixRotate, InPlaceFormsDoTheSame) {
  for (const double angle : {0.0, 0.3, -1.2, 4.0}) {
    const gdfTransMatrix m = transMatrix(counting);
    gdfTransMatrix turned = m;
    turned.rotateX(angle);
    EXPECT_TRUE(turned == m.rX(angle));
    turned = m;
    turned.rotateY(angle);
    EXPECT_TRUE(turned == m.rY(angle));
    turned = m;
    turned.rotateZ(angle);
    EXPECT_TRUE(turned == m.rZ(angle));
  }
}

TEST(TransMatrixRotate, PositiveAngleAboutZCarriesEastToNorth) {
  gdfTransMatrix m;
  m.rotateZ(quarterTurn);
  EXPECT_THAT(m.preMult(vertex("1 0 0")), VertexNear("0 1 0", 1e-15));
}

TEST(TransMatrixRotate, ActsAfterTheTranslationHeld) {
  gdfTransMatrix m;
  m.translate(1.0, 0.0, 0.0);
  m.rotateZ(quarterTurn);
  EXPECT_THAT(m.preMult(vertex("0 0 0")), VertexNear("0 1 0", 1e-15));
}

TEST(TransMatrixRotateAboutAxis, TurnsTheRightHandWay) {
  gdfTransMatrix aboutX;
  aboutX.rotate(vertex("5 0 0"), quarterTurn);
  EXPECT_THAT(aboutX.preMult(vertex("0 1 0")), VertexNear("0 0 1", 1e-15));
  gdfTransMatrix aboutY;
  aboutY.rotate(vertex("0 0.5 0"), quarterTurn);
  EXPECT_THAT(aboutY.preMult(vertex("0 0 1")), VertexNear("1 0 0", 1e-15));
  gdfTransMatrix aboutDown;
  aboutDown.rotate(vertex("0 0 -1"), quarterTurn);
  EXPECT_THAT(aboutDown.preMult(vertex("1 0 0")), VertexNear("0 -1 0", 1e-15));
}

// A third of a turn about (1, 1, 1) passes the axes on: x to y, y to z, z to x.
TEST(TransMatrixRotateAboutAxis, ThirdOfATurnAboutTheDiagonalPassesTheAxesOn) {
  gdfTransMatrix m;
  m.rotate(vertex("2 2 2"), quarterTurn * 4.0 / 3.0);
  EXPECT_THAT(m, ElementsAreNear("0 1 0 0, 0 0 1 0, 1 0 0 0, 0 0 0 1", 1e-15));
}

TEST(TransMatrixRotateAboutAxis, ZeroAxisCountsAsUp) {
  gdfTransMatrix m = transMatrix(counting);
  m.rotate(vertex("0 0 0"), 0.7);
  EXPECT_TRUE(m == transMatrix(counting).rZ(0.7));
}

TEST(SetRotateX90, OverwritesWithTheExactQuarterTurn) {
  gdfTransMatrix m = transMatrix(counting);
  m.setRotateX90();
  EXPECT_THAT(m, ElementsAreExactly("1 0 0 0, 0 0 1 0, 0 -1 0 0, 0 0 0 1"));
  EXPECT_THAT(gdfTransMatrix().rX(quarterTurn),
              ElementsAreNear("1 0 0 0, 0 0 1 0, 0 -1 0 0, 0 0 0 1", 1e-15));
}

TEST(SetRotateX90, OppositeIsItsInverse) {
  gdfTransMatrix forward;
  forward.setRotateX90();
  gdfTransMatrix back = transMatrix(counting);
  back.setRotateX_90();
  EXPECT_THAT(back, ElementsAreExactly("1 0 0 0, 0 0 -1 0, 0 1 0 0, 0 0 0 1"));
  EXPECT_TRUE((forward * back).isIdentity());
  EXPECT_TRUE(forward.invert() == back);
}

TEST(TransMatrixOverwrite, SetToIdentityAndZero) {
  gdfTransMatrix m = transMatrix(counting);
  m.setToIdentity();
  EXPECT_TRUE(m.isIdentity());
  m.setToZero();
  EXPECT_THAT(m, ElementsAreExactly(zeros));
}

TEST(TransMatrixTranspose, WorksInPlace) {
  gdfTransMatrix m = transMatrix(counting);
  m.transpose();
  EXPECT_THAT(m, ElementsAreExactly("1 5 9 13, 2 6 10 14, 3 7 11 15, 4 8 12 16"));
}

TEST(CoMatrix, TakesTheFollowingRowsAndColumnsInCyclicOrder) {
  const gdfTransMatrix m = transMatrix(counting);
  EXPECT_THAT(m.coMatrix(0, 0), ElementsAreExactly("6 7 8, 10 11 12, 14 15 16"));
  EXPECT_THAT(m.coMatrix(1, 2), ElementsAreExactly("12 9 10, 16 13 14, 4 1 2"));
  EXPECT_THAT(m.coMatrix(3, 3), ElementsAreExactly("1 2 3, 5 6 7, 9 10 11"));
}

// Without row 0 and column 1 there remain (3 0 0), (0 1 0), (0 0 1): 3, where the signed one is -3.
TEST(TransMatrixCoffactor, KeptTransMatrixCoffactorHasNoSign) {
  const gdfTransMatrix m = transMatrix("1 2 0 0, 3 4 0 0, 0 0 1 0, 0 0 0 1");
  EXPECT_EQ(m.coffactor(0, 1), 3.0);
  EXPECT_EQ(m.coffactor(1, 0), 2.0);
  EXPECT_EQ(m.coffactor(0, 0), 4.0);
}

TEST(TransMatrixDeterminant, ExpandsAlongTheFirstRow) {
  EXPECT_EQ(transMatrix("1 2 0 0, 3 4 0 0, 0 0 1 0, 0 0 0 1").determinant(), -2.0);
  EXPECT_EQ(transMatrix("2 0 0 1, 0 2 0 0, 0 0 4 0, 1 0 0 1").determinant(), 8.0);
  EXPECT_EQ(transMatrix(counting).determinant(), 0.0);
}

TEST(TransMatrixInvert, SuppliesTheSignItself) {
  EXPECT_THAT(transMatrix("1 2 0 0, 3 4 0 0, 0 0 1 0, 0 0 0 1").invert(),
              ElementsAreExactly("-2 1 0 0, 1.5 -0.5 0 0, 0 0 1 0, 0 0 0 1"));
}

TEST(TransMatrixInvert, DoesNotTakeTheMatrixToBeAffine) {
  EXPECT_THAT(transMatrix("2 0 0 1, 0 2 0 0, 0 0 4 0, 1 0 0 1").invert(),
              ElementsAreExactly("1 0 0 -1, 0 0.5 0 0, 0 0 0.25 0, -1 0 0 2"));
}

TEST(TransMatrixInvert, DividesEachElement) {
  EXPECT_EQ(transMatrix("7 0 0 0, 0 7 0 0, 0 0 1 0, 0 0 0 1").invert()(3, 3), 1.0);
}

TEST(TransMatrixInvert, KeptTransMatrixSingularInverseIsIdentity) {
  testing::internal::CaptureStderr();
  EXPECT_THAT(transMatrix(zeros).invert(), ElementsAreExactly(identity));
  EXPECT_THAT(transMatrix(counting).invert(), ElementsAreExactly(identity));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(TransMatrixInvert, TinyDeterminantIsNotZero) {
  EXPECT_THAT(transMatrix("1e-100 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 1").invert(),
              ElementsAreExactly("1e100 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 1"));
}

TEST(TransMatrixInvert, NaNDeterminantSpreads) {
  gdfTransMatrix m;
  m(0, 0) = notANumber;
  EXPECT_TRUE(std::isnan(m.invert()(1, 1)));
}

RC_GTEST_PROP(TransMatrixDeterminant, IsThatOfTheTransposed, ()) {
  const gdfTransMatrix m = drawMatrix();
  gdfTransMatrix transposed = m;
  transposed.transpose();
  RC_ASSERT(m.determinant() == transposed.determinant());
}

RC_GTEST_PROP(TransMatrixInvert, ByTheMatrixIsTheIdentity, ()) {
  const gdfTransMatrix m = drawMatrix();
  RC_PRE(std::fabs(m.determinant()) > 0.5);
  const gdfTransMatrix difference = m * m.invert() - gdfTransMatrix();
  for (const double element : elements(difference)) RC_ASSERT(std::fabs(element) < 1e-9);
}
