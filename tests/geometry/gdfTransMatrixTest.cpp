#include <zrBase/geometry/gdfTransMatrix.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <type_traits>
#include <utility>

#include "support/geometryText.h"
#include "support/matrixText.h"

namespace {

const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double infinity = std::numeric_limits<double>::infinity();

const char* const identity = "1 0 0 0, 0 1 0 0, 0 0 1 0, 0 0 0 1";
const char* const counting = "1 2 3 4, 5 6 7 8, 9 10 11 12, 13 14 15 16";
// Row form on (1, 1, 1): 3, 6, 11 and the weight 4.
const char* const rowProjective = "2 0 0 1, 0 4 0 0, 0 0 8 0, 1 2 3 3";
// Column form on (1, 1, 1): 3, 4, 8 and the weight 8.
const char* const columnProjective = "2 0 0 1, 0 4 0 0, 0 0 8 0, 1 2 3 2";

/// The const comparison, whatever the operands are.
bool reportedDifferent(const gdfTransMatrix& a, const gdfTransMatrix& b) { return a != b; }

/// The counting matrix with storage element k raised by one.
gdfTransMatrix changedAt(int k) {
  gdfTransMatrix m = transMatrix(counting);
  m(k / 4, k % 4) += 1.0;
  return m;
}

}  // namespace

TEST(TransMatrixConstruction, DefaultIsTheIdentity) {
  EXPECT_THAT(gdfTransMatrix(), ElementsAreExactly(identity));
}

TEST(TransMatrixConstruction, GlobalIdentityEqualsTheDefault) {
  EXPECT_TRUE(I_Trans == gdfTransMatrix());
  EXPECT_TRUE(I_Trans.isIdentity());
  EXPECT_TRUE(gdfTransMatrix().isIdentity());
  EXPECT_THAT(I_Trans, ElementsAreExactly(identity));
}

TEST(TransMatrixConstruction, IsAPlainRecord) {
  EXPECT_TRUE(std::is_trivially_copyable_v<gdfTransMatrix>);
  EXPECT_FALSE(std::is_polymorphic_v<gdfTransMatrix>);
}

TEST(TransMatrixConstruction, CopiesArraysAndRowPointers) {
  const double fixed[4][4] = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}};
  double open[4][4] = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}};
  double(*const rows)[4] = open;
  EXPECT_THAT(gdfTransMatrix(fixed), ElementsAreExactly(counting));
  EXPECT_THAT(gdfTransMatrix(open), ElementsAreExactly(counting));
  EXPECT_THAT(gdfTransMatrix(rows), ElementsAreExactly(counting));
  gdfTransMatrix other(rows);
  EXPECT_THAT(gdfTransMatrix(other.getMatrix()), ElementsAreExactly(counting));
}

TEST(TransMatrixConstruction, TuplesBecomeRows) {
  const gdfTransMatrix built(tuple("1 2 3 4"), tuple("5 6 7 8"), tuple("9 10 11 12"),
                             tuple("13 14 15 16"));
  EXPECT_THAT(built, ElementsAreExactly(counting));
  gdfTransMatrix set;
  set.setTransMatrix(tuple("1 2 3 4"), tuple("5 6 7 8"), tuple("9 10 11 12"), tuple("13 14 15 16"));
  EXPECT_THAT(set, ElementsAreExactly(counting));
}

TEST(TransMatrixConstruction, CopiesAndAssigns) {
  const gdfTransMatrix original = transMatrix(counting);
  const gdfTransMatrix copied(original);
  gdfTransMatrix assigned;
  assigned = original;
  EXPECT_THAT(copied, ElementsAreExactly(counting));
  EXPECT_THAT(assigned, ElementsAreExactly(counting));
}

TEST(TransMatrixElements, AreReadAndWrittenByRowAndColumn) {
  gdfTransMatrix m;
  m(0, 3) = 7.0;
  EXPECT_EQ(std::as_const(m)(0, 3), 7.0);
  m.getMatrix()[3][1] = 5.0;
  EXPECT_EQ(std::as_const(m).getMatrix()[3][1], 5.0);
  EXPECT_THAT(m, ElementsAreExactly("1 0 0 7, 0 1 0 0, 0 0 1 0, 0 5 0 1"));
}

TEST(TransMatrixElements, KeptTransMatrixFreeDoesNothing) {
  gdfTransMatrix m = transMatrix(counting);
  m.free();
  EXPECT_THAT(m, ElementsAreExactly(counting));
}

// On (1, 2, 3): 1 + 10 + 27 + 13, 2 + 12 + 30 + 14, 3 + 14 + 33 + 15.
TEST(TransMatrixRowForm, PreMultAddsTheTranslationAndDoesNotDivide) {
  EXPECT_THAT(transMatrix(counting).preMult(vertex("1 2 3")), VertexIs("51 58 65"));
}

TEST(TransMatrixRowForm, KeptTransMatrixParallelAndRotationTranslate) {
  EXPECT_THAT(transMatrix(counting).parallel(vertex("1 2 3")), VertexIs("51 58 65"));
  EXPECT_THAT(transMatrix(counting).preMultRot(vertex("1 2 3")), VertexIs("51 58 65"));
}

TEST(TransMatrixRowForm, PreMultdDividesByTheWeight) {
  EXPECT_THAT(transMatrix(rowProjective).preMultd(vertex("1 1 1")), VertexIs("0.75 1.5 2.75"));
}

// The weight 49 divides as a reciprocal: 49 * (1 / 49) is not 1.
TEST(TransMatrixRowForm, PreMultdMultipliesByOneReciprocal) {
  gdfTransMatrix m;
  m(3, 3) = 49.0;
  EXPECT_NE(49.0 * (1.0 / 49.0), 1.0);
  EXPECT_EQ(m.preMultd(vertex("49 0 0")).x(), 49.0 * (1.0 / 49.0));
  EXPECT_EQ((m * vertex("49 0 0")).x(), 49.0 * (1.0 / 49.0));
}

TEST(TransMatrixRowForm, KeptTransMatrixZeroWeightIsNotCaught) {
  gdfTransMatrix m;
  m(3, 3) = 0.0;
  const gdfVertex row = m.preMultd(vertex("1 -1 0"));
  EXPECT_EQ(row.x(), infinity);
  EXPECT_EQ(row.y(), -infinity);
  EXPECT_TRUE(std::isnan(row.z()));
  const gdfVertex column = m * vertex("1 -1 0");
  EXPECT_EQ(column.x(), infinity);
  EXPECT_EQ(column.y(), -infinity);
  EXPECT_TRUE(std::isnan(column.z()));
}

TEST(TransMatrixRowForm, InPlaceFormsReadAllBeforeTheyWrite) {
  gdfVertex v = vertex("1 2 3");
  transMatrix(counting).qPreMult(v);
  EXPECT_THAT(v, VertexIs("51 58 65"));
  v = vertex("1 1 1");
  transMatrix(rowProjective).qPreMultD(v);
  EXPECT_THAT(v, VertexIs("0.75 1.5 2.75"));
}

TEST(TransMatrixRowForm, LooseCoordinatesAreReadBeforeTheyAreWritten) {
  double x = 1.0;
  double y = 2.0;
  double z = 3.0;
  transMatrix(counting).qPreMult(x, y, z);
  EXPECT_EQ(x, 51.0);
  EXPECT_EQ(y, 58.0);
  EXPECT_EQ(z, 65.0);
}

TEST(TransMatrixRowForm, TransformTakesEveryVertexWithoutDividing) {
  VertexLine vertices = line("1 2 3, 0 0 0, 1 0 0");
  transMatrix(counting).transform(vertices);
  EXPECT_THAT(vertices, LineIs("51 58 65, 13 14 15, 14 16 18"));
}

TEST(TransMatrixRowForm, TransformLeavesAnEmptyLineEmpty) {
  VertexLine vertices;
  transMatrix(counting).transform(vertices);
  EXPECT_TRUE(vertices.empty());
}

TEST(TransMatrixColumnForm, StarDividesByTheWeight) {
  EXPECT_THAT(transMatrix(columnProjective) * vertex("1 1 1"), VertexIs("0.375 0.5 1"));
}

// On (1, 2, 3): 1 + 4 + 9 + 4, 5 + 12 + 21 + 8, 9 + 20 + 33 + 12.
TEST(TransMatrixColumnForm, PercentDoesNotDivide) {
  EXPECT_THAT(transMatrix(counting) % vertex("1 2 3"), VertexIs("18 46 74"));
}

TEST(TransMatrixColumnForm, TupleTakesAllFourComponents) {
  EXPECT_THAT(transMatrix(counting) * tuple("1 2 3 4"), ElementsAreExactly("30 70 110 150"));
}

TEST(TransMatrixTuplePreMult, KeptTransMatrixTuplePreMultReadsM22) {
  EXPECT_THAT(transMatrix(counting).preMult(tuple("0 0 1 0")), ElementsAreExactly("11 10 11 12"));
  EXPECT_THAT(transMatrix(counting).preMult(tuple("1 2 3 4")),
              ElementsAreExactly("96 100 110 120"));
}

TEST(TransMatrixTuplePreMult, VertexFormHasNoSuchAsymmetry) {
  EXPECT_THAT(transMatrix(counting).preMult(vertex("0 0 1")), VertexIs("22 24 26"));
}

TEST(TransMatrixEqual, IsExact) {
  EXPECT_TRUE(transMatrix(counting) == transMatrix(counting));
  for (int k = 0; k < 16; ++k) EXPECT_FALSE(transMatrix(counting) == changedAt(k)) << k;
}

TEST(TransMatrixEqual, NaNMakesItFalse) {
  gdfTransMatrix m;
  m(2, 2) = notANumber;
  EXPECT_FALSE(m == m);
}

TEST(TransMatrixUnequal, SeesTenElementsEachOnItsOwn) {
  for (const int k : {0, 1, 2, 5, 6, 9, 10, 13, 14, 15}) {
    EXPECT_TRUE(reportedDifferent(transMatrix(counting), changedAt(k))) << k;
  }
  EXPECT_FALSE(reportedDifferent(transMatrix(counting), transMatrix(counting)));
}

TEST(TransMatrixUnequal, KeptTransMatrixUnequalJoinsRowEndAndRowStart) {
  for (const int k : {3, 4, 7, 8, 11, 12}) {
    EXPECT_FALSE(reportedDifferent(transMatrix(counting), changedAt(k))) << k;
    EXPECT_FALSE(transMatrix(counting) == changedAt(k)) << k;
  }
  for (const int k : {3, 7, 11}) {
    gdfTransMatrix both = changedAt(k);
    both((k + 1) / 4, (k + 1) % 4) += 1.0;
    EXPECT_TRUE(reportedDifferent(transMatrix(counting), both)) << k;
  }
}

// A difference in one element of each of two pairs fills neither pair.
TEST(TransMatrixUnequal, HalvesOfTwoPairsDoNotAddUp) {
  gdfTransMatrix m = changedAt(3);
  m(2, 0) += 1.0;
  EXPECT_FALSE(reportedDifferent(transMatrix(counting), m));
}

TEST(TransMatrixUnequal, NaNCountsAsDifferent) {
  gdfTransMatrix m;
  m(2, 2) = notANumber;
  EXPECT_TRUE(reportedDifferent(m, m));
  gdfTransMatrix half;
  half(0, 3) = notANumber;
  EXPECT_FALSE(reportedDifferent(half, half));
  half(1, 0) = notANumber;
  EXPECT_TRUE(reportedDifferent(half, half));
}

TEST(TransMatrixUnequal, KeptTransMatrixUnequalOnNonConstIsTrue) {
  gdfTransMatrix m;
  EXPECT_TRUE(m != m);
  EXPECT_TRUE(m != I_Trans);
  EXPECT_TRUE(gdfTransMatrix() != I_Trans);
  EXPECT_FALSE(std::as_const(m) != m);
}

TEST(TransMatrixLess, KeptTransMatrixLessIsAlwaysTrue) {
  gdfTransMatrix m;
  gdfTransMatrix other = transMatrix(counting);
  EXPECT_TRUE(m < m);
  EXPECT_TRUE(m < other);
  EXPECT_TRUE(other < m);
}

TEST(IsIdentity, IsExactInEveryElement) {
  for (int k = 0; k < 16; ++k) {
    gdfTransMatrix m;
    m(k / 4, k % 4) += 1e-15;
    EXPECT_FALSE(m.isIdentity()) << k;
  }
  gdfTransMatrix negativeZero;
  negativeZero(0, 1) = -0.0;
  EXPECT_TRUE(negativeZero.isIdentity());
}

TEST(TransMatrixValid, AsksEveryElementToBeFinite) {
  EXPECT_TRUE(transMatrix(counting).valid());
  for (int k = 0; k < 16; ++k) {
    for (const double bad : {notANumber, infinity, -infinity}) {
      gdfTransMatrix m;
      m(k / 4, k % 4) = bad;
      EXPECT_FALSE(m.valid()) << k;
    }
  }
}

TEST(TransMatrixStream, ReadsSixteenNumbersRowByRow) {
  std::istringstream in("1 2 3 4 5 6 7 8\n9 10 11 12 13 14 15 16 ");
  gdfTransMatrix m;
  in >> m;
  EXPECT_TRUE(in.good());
  EXPECT_THAT(m, ElementsAreExactly(counting));
}

TEST(TransMatrixStream, WritesFourLinesInTheStreamsFormat) {
  std::ostringstream out;
  out << transMatrix("1 2.5 -3 4, 5 6 7 8, 9 10 11 12, 13 14 15 0.123456789");
  EXPECT_EQ(out.str(), "1 2.5 -3 4\n5 6 7 8\n9 10 11 12\n13 14 15 0.123457\n");
}

RC_GTEST_PROP(TransMatrixUnequal, TrueOnlyWhereEqualIsFalse, ()) {
  gdfTransMatrix a;
  gdfTransMatrix b;
  for (int k = 0; k < 16; ++k) {
    a(k / 4, k % 4) = *rc::gen::inRange(0, 10) == 0 ? 1.0 : 0.0;
    b(k / 4, k % 4) = *rc::gen::inRange(0, 10) == 0 ? 1.0 : 0.0;
  }
  RC_ASSERT(!(reportedDifferent(a, b) && a == b));
  RC_ASSERT(reportedDifferent(a, b) == reportedDifferent(b, a));
}
