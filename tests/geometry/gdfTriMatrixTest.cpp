#include <zrBase/geometry/gdfTriMatrix.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <type_traits>

#include "support/geometryText.h"
#include "support/matrixText.h"

namespace {

const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double quarterTurn = std::acos(0.0);

const char* const identity = "1 0 0, 0 1 0, 0 0 1";
const char* const zeros = "0 0 0, 0 0 0, 0 0 0";
const char* const three = "1 2 3, 4 5 6, 7 8 10";  // determinant 2 + 4 - 9 = -3

const char* const quotientMessage =
    "Error: division by zero in gdfTriMatrix::operator / (double divisor)\n";
const char* const quotientInPlaceMessage =
    "Error: division by zero in gdfTriMatrix::operator /= (double divisor)\n";

double drawCoordinate() { return *rc::gen::inRange(-256, 256) / 64.0; }

gdfTriMatrix drawMatrix() {
  gdfTriMatrix m;
  for (int k = 0; k < 9; ++k) m(k / 3, k % 3) = drawCoordinate();
  return m;
}

gdfVertex drawVertex() {
  const double x = drawCoordinate();
  const double y = drawCoordinate();
  return gdfVertex(x, y, drawCoordinate());
}

}  // namespace

TEST(TriMatrixConstruction, DefaultIsTheIdentity) {
  EXPECT_THAT(gdfTriMatrix(), ElementsAreExactly(identity));
}

TEST(TriMatrixConstruction, IsAPlainRecord) {
  EXPECT_TRUE(std::is_trivially_copyable_v<gdfTriMatrix>);
  EXPECT_FALSE(std::is_polymorphic_v<gdfTriMatrix>);
}

TEST(TriMatrixConstruction, VerticesBecomeRows) {
  const gdfTriMatrix built(vertex("1 2 3"), vertex("4 5 6"), vertex("7 8 10"));
  EXPECT_THAT(built, ElementsAreExactly(three));
  gdfTriMatrix set;
  set.setTriMatrix(vertex("1 2 3"), vertex("4 5 6"), vertex("7 8 10"));
  EXPECT_THAT(set, ElementsAreExactly(three));
}

TEST(TriMatrixConstruction, CopiesAndAssigns) {
  const gdfTriMatrix original = triMatrix(three);
  const gdfTriMatrix copied(original);
  gdfTriMatrix assigned;
  assigned = original;
  EXPECT_THAT(copied, ElementsAreExactly(three));
  EXPECT_THAT(assigned, ElementsAreExactly(three));
}

TEST(TriMatrixElements, AreReadAndWrittenByRowAndColumn) {
  gdfTriMatrix m;
  m(0, 2) = 7.0;
  EXPECT_EQ(static_cast<const gdfTriMatrix&>(m)(0, 2), 7.0);
  EXPECT_THAT(m, ElementsAreExactly("1 0 7, 0 1 0, 0 0 1"));
}

TEST(TriMatrixElements, SetToIdentityAndZeroOverwrite) {
  gdfTriMatrix m = triMatrix(three);
  m.setToIdentity();
  EXPECT_THAT(m, ElementsAreExactly(identity));
  m.setToZero();
  EXPECT_THAT(m, ElementsAreExactly(zeros));
}

TEST(TriMatrixElements, KeptTriMatrixFreeDoesNothing) {
  gdfTriMatrix m = triMatrix(three);
  m.free();
  EXPECT_THAT(m, ElementsAreExactly(three));
}

TEST(TriMatrixElements, TransposeGivesANewMatrix) {
  const gdfTriMatrix m = triMatrix(three);
  EXPECT_THAT(m.transpose(), ElementsAreExactly("1 4 7, 2 5 8, 3 6 10"));
  EXPECT_THAT(m, ElementsAreExactly(three));
}

TEST(TriMatrixElements, DirectionsAreTheColumns) {
  const gdfTriMatrix m = triMatrix(three);
  EXPECT_THAT(m.e1Dir(), VertexIs("1 4 7"));
  EXPECT_THAT(m.e2Dir(), VertexIs("2 5 8"));
  EXPECT_THAT(m.e3Dir(), VertexIs("3 6 10"));
}

TEST(TriMatrixProduct, IsRowsByColumns) {
  EXPECT_THAT(triMatrix(three) * triMatrix("1 0 1, 0 2 0, 0 0 1"),
              ElementsAreExactly("1 4 4, 4 10 10, 7 16 17"));
}

TEST(TriMatrixProduct, InPlaceMayTakeItself) {
  gdfTriMatrix m = triMatrix(three);
  EXPECT_EQ(&(m *= m), &m);
  EXPECT_THAT(m, ElementsAreExactly("30 36 45, 66 81 102, 109 134 169"));
}

TEST(TriMatrixProduct, WithAVertexOnTheRightIsTheColumnForm) {
  EXPECT_THAT(triMatrix(three) * vertex("1 2 3"), VertexIs("14 32 53"));
}

TEST(TriMatrixProduct, PreMultIsTheRowForm) {
  EXPECT_THAT(triMatrix(three).preMult(vertex("1 2 3")), VertexIs("30 36 45"));
}

TEST(TriMatrixProduct, ScalarTakesAllNine) {
  gdfTriMatrix m = triMatrix(three);
  EXPECT_THAT(m * 2.0, ElementsAreExactly("2 4 6, 8 10 12, 14 16 20"));
  EXPECT_EQ(&(m *= 2.0), &m);
  EXPECT_THAT(m, ElementsAreExactly("2 4 6, 8 10 12, 14 16 20"));
}

TEST(TriMatrixSum, IsElementByElement) {
  gdfTriMatrix m = triMatrix(three);
  EXPECT_THAT(m + gdfTriMatrix(), ElementsAreExactly("2 2 3, 4 6 6, 7 8 11"));
  EXPECT_THAT(m - gdfTriMatrix(), ElementsAreExactly("0 2 3, 4 4 6, 7 8 9"));
  EXPECT_EQ(&(m += m), &m);
  EXPECT_THAT(m, ElementsAreExactly("2 4 6, 8 10 12, 14 16 20"));
  EXPECT_EQ(&(m -= m), &m);
  EXPECT_THAT(m, ElementsAreExactly(zeros));
}

TEST(TriMatrixQuotient, MultipliesByTheReciprocal) {
  gdfTriMatrix m = triMatrix(three);
  EXPECT_THAT(m / 4.0, ElementsAreExactly("0.25 0.5 0.75, 1 1.25 1.5, 1.75 2 2.5"));
  // 10 / 49 and 10 * (1 / 49) are different doubles.
  EXPECT_NE(10.0 / 49.0, 10.0 * (1.0 / 49.0));
  EXPECT_EQ((m / 49.0)(2, 2), 10.0 * (1.0 / 49.0));
  EXPECT_EQ(&(m /= 49.0), &m);
  EXPECT_EQ(m(2, 2), 10.0 * (1.0 / 49.0));
}

TEST(TriMatrixQuotient, KeptTriMatrixQuotientByZeroIsIdentity) {
  for (const double divisor : {0.0, -0.0, 1e-5, -1e-5, 5e-6}) {
    testing::internal::CaptureStderr();
    const gdfTriMatrix quotient = triMatrix(three) / divisor;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), quotientMessage);
    EXPECT_THAT(quotient, ElementsAreExactly(identity));
  }
}

TEST(TriMatrixQuotient, InPlaceByZeroLeavesTheMatrix) {
  for (const double divisor : {0.0, 1e-5, -1e-5}) {
    gdfTriMatrix m = triMatrix(three);
    testing::internal::CaptureStderr();
    EXPECT_EQ(&(m /= divisor), &m);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), quotientInPlaceMessage);
    EXPECT_THAT(m, ElementsAreExactly(three));
  }
}

TEST(TriMatrixQuotient, JustOutsideTheLimitDividesInSilence) {
  for (const double divisor : {1.0000001e-5, -1.0000001e-5}) {
    gdfTriMatrix m = triMatrix(three);
    testing::internal::CaptureStderr();
    const gdfTriMatrix quotient = m / divisor;
    m /= divisor;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(quotient(0, 0), 1.0 / divisor);
    EXPECT_EQ(m(0, 0), 1.0 / divisor);
  }
}

TEST(TriMatrixQuotient, NaNDivisorSpreadsInSilence) {
  gdfTriMatrix m = triMatrix(three);
  testing::internal::CaptureStderr();
  const gdfTriMatrix quotient = m / notANumber;
  m /= notANumber;
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_TRUE(std::isnan(quotient(1, 1)));
  EXPECT_TRUE(std::isnan(m(1, 1)));
}

TEST(CloseToZero, IsClosedAtBothEnds) {
  EXPECT_TRUE(triMatrix("1e-5 -1e-5 0, 0 0 0, 0 0 -1e-5").closeToZero());
  EXPECT_FALSE(triMatrix("0 0 0, 0 1.0000001e-5 0, 0 0 0").closeToZero());
  EXPECT_FALSE(triMatrix("0 0 0, 0 0 0, 0 0 -1.0000001e-5").closeToZero());
  EXPECT_FALSE(gdfTriMatrix().closeToZero());
}

TEST(CloseToZero, NaNIsNot) {
  gdfTriMatrix m = triMatrix(zeros);
  m(2, 1) = notANumber;
  EXPECT_FALSE(m.closeToZero());
}

// Of (0, 1) the minor is 4 * 10 - 6 * 7 = -2, and the cofactor has the other sign.
TEST(TriMatrixCoffactor, HasTheSign) {
  EXPECT_EQ(triMatrix(three).coffactor(0, 1), 2.0);
  EXPECT_EQ(triMatrix(three).coffactor(0, 0), 2.0);
  EXPECT_EQ(triMatrix(three).coffactor(2, 1), 6.0);
  EXPECT_EQ(triMatrix(three).coffactor(2, 2), -3.0);
}

TEST(TriMatrixDeterminant, ExpandsAlongTheFirstRow) {
  EXPECT_EQ(triMatrix(three).determinant(), -3.0);
  EXPECT_EQ(gdfTriMatrix().determinant(), 1.0);
  EXPECT_EQ(triMatrix("1 2 3, 4 5 6, 7 8 9").determinant(), 0.0);
}

TEST(TriMatrixInvert, DividesTheCofactorsByTheDeterminant) {
  const gdfTriMatrix m = triMatrix("2 1 0, 0 4 0, 0 0 1");
  EXPECT_THAT(m.invert(), ElementsAreExactly("0.5 -0.125 0, 0 0.25 0, 0 0 1"));
  gdfTriMatrix out = triMatrix(three);
  EXPECT_EQ(m.invert(out), 8.0);
  EXPECT_THAT(out, ElementsAreExactly("0.5 -0.125 0, 0 0.25 0, 0 0 1"));
}

// The diagonal (7, 7, 1) has the determinant 49 and the cofactor 49 at (2, 2): 49 * (1 / 49) is
// not 1.
TEST(TriMatrixInvert, DividesEachElement) {
  EXPECT_NE(49.0 * (1.0 / 49.0), 1.0);
  EXPECT_EQ(triMatrix("7 0 0, 0 7 0, 0 0 1").invert()(2, 2), 1.0);
}

TEST(TriMatrixInvert, KeptTriMatrixSingularInverseIsIdentity) {
  testing::internal::CaptureStderr();
  EXPECT_THAT(triMatrix(zeros).invert(), ElementsAreExactly(identity));
  EXPECT_THAT(triMatrix("1 2 3, 4 5 6, 7 8 9").invert(), ElementsAreExactly(identity));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(TriMatrixInvert, KeptTriMatrixSingularInverseLeavesOutput) {
  gdfTriMatrix out = triMatrix(three);
  testing::internal::CaptureStderr();
  EXPECT_EQ(triMatrix(zeros).invert(out), 0.0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_THAT(out, ElementsAreExactly(three));
}

TEST(TriMatrixInvert, TinyDeterminantIsNotZero) {
  EXPECT_THAT(triMatrix("1e-100 0 0, 0 1 0, 0 0 1").invert(),
              ElementsAreExactly("1e100 0 0, 0 1 0, 0 0 1"));
}

TEST(TriMatrixInvert, NaNDeterminantSpreads) {
  gdfTriMatrix m;
  m(0, 0) = notANumber;
  EXPECT_TRUE(std::isnan(m.invert()(1, 1)));
  gdfTriMatrix out;
  EXPECT_TRUE(std::isnan(m.invert(out)));
  EXPECT_TRUE(std::isnan(out(1, 1)));
}

TEST(TriMatrixInvert, OutputMayBeTheMatrixItself) {
  gdfTriMatrix m = triMatrix("2 1 0, 0 4 0, 0 0 1");
  EXPECT_EQ(m.invert(m), 8.0);
  EXPECT_THAT(m, ElementsAreExactly("0.5 -0.125 0, 0 0.25 0, 0 0 1"));
}

TEST(TriMatrixRotate, PairAboutEachAxisTurnsTheColumns) {
  gdfTriMatrix m = triMatrix(three);
  m.rotateX(0.0, 1.0);
  EXPECT_THAT(m, ElementsAreExactly("1 -3 2, 4 -6 5, 7 -10 8"));
  m = triMatrix(three);
  m.rotateY(0.0, 1.0);
  EXPECT_THAT(m, ElementsAreExactly("3 2 -1, 6 5 -4, 10 8 -7"));
  m = triMatrix(three);
  m.rotateZ(0.0, 1.0);
  EXPECT_THAT(m, ElementsAreExactly("-2 1 3, -5 4 6, -8 7 10"));
}

TEST(TriMatrixRotate, AngleIsInRadians) {
  gdfTriMatrix m = triMatrix(three);
  m.rotateX(quarterTurn);
  EXPECT_THAT(m, ElementsAreNear("1 -3 2, 4 -6 5, 7 -10 8", 1e-14));
  m = triMatrix(three);
  m.rotateY(quarterTurn);
  EXPECT_THAT(m, ElementsAreNear("3 2 -1, 6 5 -4, 10 8 -7", 1e-14));
  m = triMatrix(three);
  m.rotateZ(quarterTurn);
  EXPECT_THAT(m, ElementsAreNear("-2 1 3, -5 4 6, -8 7 10", 1e-14));
}

TEST(TriMatrixRotate, KeptTriMatrixRotationPairIsNotTested) {
  gdfTriMatrix m = triMatrix(three);
  m.rotateX(2.0, 0.0);
  EXPECT_THAT(m, ElementsAreExactly("1 4 6, 4 10 12, 7 16 20"));
  m = triMatrix(three);
  m.rotateY(1.0, 1.0);
  EXPECT_THAT(m, ElementsAreExactly("4 2 2, 10 5 2, 17 8 3"));
  m = triMatrix(three);
  m.rotateZ(0.0, 0.0);
  EXPECT_THAT(m, ElementsAreExactly("0 0 3, 0 0 6, 0 0 10"));
}

TEST(RotateToAxis, CarriesTheDirectionOntoThePositiveAxis) {
  for (const char* text : {"3 0 4", "-3 0 4", "0 3 -4", "1 2 2", "-2 -1 2", "2 -2 -1", "1 0 0",
                           "-1 0 0", "0 1 0", "0 -1 0"}) {
    const gdfVertex direction = vertex(text);
    const double length = direction.length();
    gdfTriMatrix toX;
    gdfTriMatrix toY;
    gdfTriMatrix toZ;
    toX.rotateToX(direction);
    toY.rotateToY(direction);
    toZ.rotateToZ(direction);
    EXPECT_TRUE(toX.preMult(direction).equal(gdfVertex(length, 0, 0), 1e-14)) << text;
    EXPECT_TRUE(toY.preMult(direction).equal(gdfVertex(0, length, 0), 1e-14)) << text;
    EXPECT_TRUE(toZ.preMult(direction).equal(gdfVertex(0, 0, length), 1e-14)) << text;
    EXPECT_NEAR(toX.determinant(), 1.0, 1e-14) << text;
    EXPECT_NEAR(toY.determinant(), 1.0, 1e-14) << text;
    EXPECT_NEAR(toZ.determinant(), 1.0, 1e-14) << text;
  }
}

TEST(RotateToAxis, ActsAfterWhatTheMatrixHolds) {
  gdfTriMatrix rotation;
  rotation.rotateToY(vertex("1 2 2"));
  gdfTriMatrix m = triMatrix(three);
  m.rotateToY(vertex("1 2 2"));
  const gdfTriMatrix product = triMatrix(three) * rotation;
  EXPECT_TRUE((m - product).closeToZero());
}

// (0, 0, 2) has no map part: rotateZ(0, 0) zeroes two columns, then the second turn carries the
// third column over: unchanged for z, into column 0 for x and into column 1 for y.
TEST(RotateToAxis, KeptTriMatrixRotateToAxisLosesVerticalColumns) {
  gdfTriMatrix m = triMatrix(three);
  m.rotateToZ(vertex("0 0 2"));
  EXPECT_THAT(m, ElementsAreExactly("0 0 3, 0 0 6, 0 0 10"));
  m = triMatrix(three);
  m.rotateToX(vertex("0 0 2"));
  EXPECT_THAT(m, ElementsAreExactly("3 0 0, 6 0 0, 10 0 0"));
  m = triMatrix(three);
  m.rotateToY(vertex("0 0 2"));
  EXPECT_THAT(m, ElementsAreExactly("0 3 0, 0 6 0, 0 10 0"));
}

TEST(RotateToAxis, StraightDownLosesTheSameColumns) {
  gdfTriMatrix m = triMatrix(three);
  m.rotateToZ(vertex("0 0 -2"));
  EXPECT_THAT(m, ElementsAreExactly("0 0 -3, 0 0 -6, 0 0 -10"));
}

// The zero vector normalises to itself: h = 1 with u = v = 0.
TEST(RotateToAxis, ZeroDirectionLosesTheColumnsToo) {
  gdfTriMatrix m = triMatrix(three);
  m.rotateToZ(vertex("0 0 0"));
  EXPECT_THAT(m, ElementsAreExactly("0 -3 0, 0 -6 0, 0 -10 0"));
  m = triMatrix(three);
  m.rotateToX(vertex("0 0 0"));
  EXPECT_THAT(m, ElementsAreExactly("0 0 3, 0 0 6, 0 0 10"));
  m = triMatrix(three);
  m.rotateToY(vertex("0 0 1e-5"));
  EXPECT_THAT(m, ElementsAreExactly("0 0 3, 0 0 6, 0 0 10"));
}

TEST(TriMatrixStream, ReadsNineNumbersRowByRow) {
  std::istringstream in("1 2 3\n4 5 6\n7 8 10\n");
  gdfTriMatrix m;
  in >> m;
  EXPECT_TRUE(in.good());
  EXPECT_THAT(m, ElementsAreExactly(three));
}

TEST(TriMatrixStream, WritesThreeLinesInTheStreamsFormat) {
  std::ostringstream out;
  out << triMatrix("1 2.5 -3, 4 5 6, 7 8 0.123456789");
  EXPECT_EQ(out.str(), "1 2.5 -3\n4 5 6\n7 8 0.123457\n");
}

RC_GTEST_PROP(TriMatrixProduct, RowFormIsTheColumnFormOfTheTransposed, ()) {
  const gdfTriMatrix m = drawMatrix();
  const gdfVertex v = drawVertex();
  RC_ASSERT(m.preMult(v) == m.transpose() * v);
}

RC_GTEST_PROP(TriMatrixProduct, ActsLeftFirstOnRowVectors, ()) {
  const gdfTriMatrix a = drawMatrix();
  const gdfTriMatrix b = drawMatrix();
  const gdfVertex v = drawVertex();
  RC_ASSERT(v * a * b == v * (a * b));
}

RC_GTEST_PROP(TriMatrixDeterminant, IsTheSumOverEachRowOfElementsByCofactors, ()) {
  const gdfTriMatrix m = drawMatrix();
  for (int r = 0; r < 3; ++r) {
    const double sum =
        m(r, 0) * m.coffactor(r, 0) + m(r, 1) * m.coffactor(r, 1) + m(r, 2) * m.coffactor(r, 2);
    RC_ASSERT(sum == m.determinant());
  }
}

RC_GTEST_PROP(TriMatrixInvert, ByTheMatrixIsTheIdentity, ()) {
  const gdfTriMatrix m = drawMatrix();
  RC_PRE(std::fabs(m.determinant()) > 0.5);
  RC_ASSERT((m * m.invert() - gdfTriMatrix()).closeToZero());
}
