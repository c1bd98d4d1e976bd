#include <zrBase/numerics/mgcEigen.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <type_traits>
#include <vector>

#include "numerics/support/eigenMatrices.h"
#include "numerics/support/eigenReference.h"

namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
const double half = std::sqrt(0.5);

using Solution = void (mgcEigen::*)();

/// A solver of its own for each test, with the error word clear before and after.
class Eigen : public testing::Test {
 protected:
  void SetUp() override { mgcEigen::error = 0; }
  void TearDown() override { mgcEigen::error = 0; }
};

/// Reaches the operations that are kept for derived classes.
struct Inside : mgcEigen {
  using mgcEigen::mgcEigen;
  using symmetricEigenSolver<mgcEigen>::Number;
};

auto near(const std::vector<double>& values) { return Pointwise(DoubleNear(1e-15), values); }

// Small cases, worked by hand.

TEST_F(Eigen, SizeTwoTurnsByTheTie) {
  // d = (2, 2), e = 1: the shift is 1, f and g are both 1, and the tie gives cs = sn = sqrt(1/2).
  mgcEigen solver(2);
  fill(solver, {{2, 1}, {1, 2}});
  solver.EigenStuff2();
  EXPECT_THAT(valuesOf(solver, 2), near({1, 3}));
  EXPECT_THAT(vectorOf(solver, 2, 0), near({half, -half}));
  EXPECT_THAT(vectorOf(solver, 2, 1), near({half, half}));
}

TEST_F(Eigen, DiagonalThreeStaysInInputOrderUntilSorted) {
  const Square m = diagonal({3, 1, 2});
  mgcEigen solver(3);
  fill(solver, m);
  solver.EigenStuff3();
  EXPECT_THAT(valuesOf(solver, 3), ElementsAre(3, 1, 2));
  EXPECT_EQ(matrixOf(solver, 3), diagonal({1, 1, 1}));
  fill(solver, m);
  solver.DecrSortEigenStuff3();
  EXPECT_THAT(valuesOf(solver, 3), ElementsAre(3, 2, 1));
  EXPECT_EQ(matrixOf(solver, 3), (Square{{1, 0, 0}, {0, 0, 1}, {0, 1, 0}}));
  fill(solver, m);
  solver.IncrSortEigenStuff3();
  EXPECT_THAT(valuesOf(solver, 3), ElementsAre(1, 2, 3));
  EXPECT_EQ(matrixOf(solver, 3), (Square{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}));
}

// ell = 1, b = 0, c = 1, q = -1: T has d = (2, 2, 3), e = (1, 0), and Q swaps y and z.
TEST_F(Eigen, KeptEigenvectorsMayBeLeftHanded) {
  mgcEigen solver(3);
  fill(solver, {{2, 0, 1}, {0, 3, 0}, {1, 0, 2}});
  solver.EigenStuff3();
  EXPECT_THAT(valuesOf(solver, 3), near({1, 3, 3}));
  EXPECT_THAT(vectorOf(solver, 3, 0), near({half, 0, -half}));
  EXPECT_THAT(vectorOf(solver, 3, 1), near({half, 0, half}));
  EXPECT_THAT(vectorOf(solver, 3, 2), near({0, 1, 0}));
}

TEST_F(Eigen, EqualValuesBehindTheLargestTakeTheOrderOfTheSwap) {
  mgcEigen solver(3);
  fill(solver, diagonal({1, 1, 2}));
  solver.DecrSortEigenStuff3();
  EXPECT_THAT(valuesOf(solver, 3), ElementsAre(2, 1, 1));
  EXPECT_EQ(matrixOf(solver, 3), (Square{{0, 0, 1}, {0, 1, 0}, {1, 0, 0}}));
}

TEST_F(Eigen, OfEqualValuesTheFirstFoundWins) {
  mgcEigen solver(3);
  fill(solver, diagonal({1, 2, 2}));
  solver.DecrSortEigenStuff3();
  // The first 2 changes places with the 1, then the second one does.
  EXPECT_EQ(matrixOf(solver, 3), (Square{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}));
  fill(solver, diagonal({1, 2, 2}));
  solver.IncrSortEigenStuff3();
  EXPECT_EQ(matrixOf(solver, 3), diagonal({1, 1, 1}));
}

TEST_F(Eigen, SizeFourAroundAnEigenvectorOfTheLowerBlock) {
  // u = (0, 1, 0) is an eigenvector of diag(5, 2, 7): s = (-1, 0, 0), r = (0, 0, 1), and T has
  // d = (2, 2, 5, 7), e = (1, 0, 0).
  mgcEigen solver(4);
  fill(solver, with(diagonal({2, 5, 2, 7}), 0, 2, 1));
  solver.EigenStuff4();
  EXPECT_THAT(valuesOf(solver, 4), near({1, 3, 5, 7}));
  EXPECT_THAT(vectorOf(solver, 4, 0), near({half, 0, -half, 0}));
  EXPECT_THAT(vectorOf(solver, 4, 1), near({half, 0, half, 0}));
  EXPECT_THAT(vectorOf(solver, 4, 2), ElementsAre(0, -1, 0, 0));
  EXPECT_THAT(vectorOf(solver, 4, 3), ElementsAre(0, 0, 0, 1));
}

TEST_F(Eigen, SizeFourAroundAnEigenvectorAlongTheFirstAxis) {
  // The squares of u's tiny second component vanish: len and h are 0, and the axes stay.
  mgcEigen solver(4);
  fill(solver, with(with(diagonal({2, 2, 3, 4}), 0, 1, 1), 0, 2, 1e-200));
  solver.EigenStuff4();
  EXPECT_THAT(valuesOf(solver, 4), near({1, 3, 3, 4}));
  EXPECT_THAT(vectorOf(solver, 4, 2), ElementsAre(0, 0, 1, 0));
  EXPECT_THAT(vectorOf(solver, 4, 3), ElementsAre(0, 0, 0, 1));
}

TEST_F(Eigen, SizeFourWithATridiagonalFirstRow) {
  // The lower block is reduced as a 3x3: b = 0, c = 1, q = -1, d = (1, 2, 2, 3), e = (0, 1, 0).
  mgcEigen solver(4);
  fill(solver, with(diagonal({1, 2, 3, 2}), 1, 3, 1));
  solver.EigenStuff4();
  EXPECT_THAT(valuesOf(solver, 4), near({1, 1, 3, 3}));
  EXPECT_THAT(vectorOf(solver, 4, 0), ElementsAre(1, 0, 0, 0));
  EXPECT_THAT(vectorOf(solver, 4, 1), near({0, half, 0, -half}));
  EXPECT_THAT(vectorOf(solver, 4, 2), near({0, half, 0, half}));
  EXPECT_THAT(vectorOf(solver, 4, 3), near({0, 0, 1, 0}));
}

TEST_F(Eigen, TridiagonalSizeFourIsLeftAsItIs) {
  mgcEigen solver(4);
  fill(solver, diagonal({4, 3, 2, 1}));
  solver.EigenStuff4();
  EXPECT_THAT(valuesOf(solver, 4), ElementsAre(4, 3, 2, 1));
  EXPECT_EQ(matrixOf(solver, 4), diagonal({1, 1, 1, 1}));
}

// Every size against the definition of the eigen problem, and against the plain reference.

RC_GTEST_PROP(EigenLaws, PairsSolveTheProblemAndStandSquare, (std::uint32_t seed)) {
  const int n = *rc::gen::inRange(2, 31);
  const Square m = randomSymmetric(n, seed);
  const Solution solution =
      *rc::gen::element<Solution>(&mgcEigen::EigenStuff, &mgcEigen::DecrSortEigenStuff,
                                  &mgcEigen::IncrSortEigenStuff, &mgcEigen::EigenStuffN);
  mgcEigen::error = 0;
  mgcEigen solver(n);
  fill(solver, m);
  (solver.*solution)();
  RC_ASSERT(mgcEigen::error == 0U);
  RC_ASSERT(residual(solver, m) < 1e-11);
  RC_ASSERT(skewness(solver, n) < 1e-13);
}

RC_GTEST_PROP(EigenLaws, SortsGiveEitherOrder, (std::uint32_t seed)) {
  const int n = *rc::gen::inRange(2, 31);
  const Square m = randomSymmetric(n, seed);
  mgcEigen decreasing(n), increasing(n);
  fill(decreasing, m);
  fill(increasing, m);
  decreasing.DecrSortEigenStuff();
  increasing.IncrSortEigenStuff();
  for (int i = 0; i < n; ++i) {
    RC_ASSERT(decreasing.Eigenvalue(i) == increasing.Eigenvalue(n - 1 - i));
    if (i > 0) RC_ASSERT(decreasing.Eigenvalue(i - 1) >= decreasing.Eigenvalue(i));
  }
}

/// Runs a solution and compares it with the reference to the bit.
void expectSame(const Square& m, Solution solution, const eigenReference::Solution& expected) {
  const int n = static_cast<int>(m.size());
  mgcEigen::error = 0;
  mgcEigen solver(n);
  fill(solver, m);
  (solver.*solution)();
  EXPECT_EQ(valuesOf(solver, n), expected.d);
  EXPECT_EQ(matrixOf(solver, n), expected.q);
  EXPECT_EQ(mgcEigen::error == 0U, expected.converged);
}

void expectFamily(const Square& m, const std::vector<Solution>& plainDecreasingIncreasing,
                  const eigenReference::Solution& plain) {
  eigenReference::Solution decreasing = plain, increasing = plain;
  eigenReference::sort(decreasing, 1.0);
  eigenReference::sort(increasing, -1.0);
  expectSame(m, plainDecreasingIncreasing[0], plain);
  expectSame(m, plainDecreasingIncreasing[1], decreasing);
  expectSame(m, plainDecreasingIncreasing[2], increasing);
}

void expectAllFamilies(const Square& m) {
  using E = mgcEigen;
  const eigenReference::Solution bySize = eigenReference::solve(m);
  expectFamily(m, {&E::EigenStuff, &E::DecrSortEigenStuff, &E::IncrSortEigenStuff}, bySize);
  expectFamily(m, {&E::EigenStuffN, &E::DecrSortEigenStuffN, &E::IncrSortEigenStuffN},
               eigenReference::solveN(m));
  if (m.size() == 2) {
    expectFamily(m, {&E::EigenStuff2, &E::DecrSortEigenStuff2, &E::IncrSortEigenStuff2}, bySize);
  } else if (m.size() == 3) {
    expectFamily(m, {&E::EigenStuff3, &E::DecrSortEigenStuff3, &E::IncrSortEigenStuff3}, bySize);
  } else if (m.size() == 4) {
    expectFamily(m, {&E::EigenStuff4, &E::DecrSortEigenStuff4, &E::IncrSortEigenStuff4}, bySize);
  }
}

TEST_F(Eigen, AgreesWithTheReferenceToTheBit) {
  for (int n = 2; n <= 12; ++n) {
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
      SCOPED_TRACE(testing::Message() << "size " << n << ", seed " << seed);
      expectAllFamilies(randomSymmetric(n, seed));
    }
  }
}

TEST_F(Eigen, AgreesWithTheReferenceOnSparseAndRepeatingMatrices) {
  // Zeros, equal elements and whole blocks of them: every branch on an exact 0 is taken.
  for (int n = 2; n <= 6; ++n) {
    for (std::uint32_t seed = 0; seed < 400; ++seed) {
      SCOPED_TRACE(testing::Message() << "size " << n << ", seed " << seed);
      Square m = randomSymmetric(n, seed);
      for (auto& row : m) {
        for (double& value : row) value = std::fabs(value) < 6.0 ? 0.0 : std::trunc(value / 4.0);
      }
      expectAllFamilies(m);
    }
  }
}

// Parts of a solution.

TEST_F(Eigen, ReduceAndIterateMakeTheGeneralSolution) {
  const Square m = randomSymmetric(7, 3);
  mgcEigen whole(7), parts(7);
  fill(whole, m);
  whole.EigenStuffN();
  fill(parts, m);
  parts.Reduce();
  EXPECT_EQ(parts.Tsubdiag(6), 0.0);
  const Square q = matrixOf(parts, 7);
  for (int i = 0; i < 7; ++i) {
    for (int j = 0; j < 7; ++j) {
      double sum = 0.0;
      for (int k = 0; k < 7; ++k) {
        sum += q[i][k] * parts.Tdiag(k) * q[j][k];
        if (k < 6) sum += (q[i][k] * q[j][k + 1] + q[i][k + 1] * q[j][k]) * parts.Tsubdiag(k);
      }
      EXPECT_NEAR(sum, m[i][j], 1e-12);
    }
  }
  parts.QLAlgorithm();
  EXPECT_EQ(valuesOf(parts, 7), valuesOf(whole, 7));
  EXPECT_EQ(matrixOf(parts, 7), matrixOf(whole, 7));
}

TEST_F(Eigen, IterationTakesATridiagonalMatrixThatWasFilledIn) {
  mgcEigen solver(2);
  fill(solver, diagonal({1, 1}));
  solver.Tdiag(0) = solver.Tdiag(1) = 2.0;
  solver.Tsubdiag(0) = 1.0;
  solver.Tsubdiag(1) = 0.0;
  solver.QLAlgorithm();
  EXPECT_THAT(valuesOf(solver, 2), near({1, 3}));
  EXPECT_THAT(vectorOf(solver, 2, 0), near({half, -half}));
}

TEST_F(Eigen, MatrixCopiesRowsAndGivesTheSolver) {
  double first[] = {1, 2};
  double second[] = {3, 4};
  double* rows[] = {first, second};
  mgcEigen solver(2);
  mgcEigen& same = solver.Matrix(rows);
  EXPECT_EQ(&same, &solver);
  first[0] = 9;
  EXPECT_EQ(matrixOf(solver, 2), (Square{{1, 2}, {3, 4}}));
}

TEST_F(Eigen, ArraysAndElementsAreTheSame) {
  mgcEigen solver(3);
  fill(solver, randomSymmetric(3, 5));
  solver.DecrSortEigenStuff();
  const mgcEigen& constant = solver;
  const double* const values = constant.Eigenvalue();
  const double** const vectors = constant.Eigenvector();
  for (int row = 0; row < 3; ++row) {
    EXPECT_EQ(values[row], constant.Eigenvalue(row));
    for (int col = 0; col < 3; ++col) {
      EXPECT_EQ(vectors[row][col], constant.Eigenvector(row, col));
      EXPECT_EQ(vectors[row][col], solver.Matrix(row, col));
    }
  }
}

// Which triangle is read.

TEST_F(Eigen, ClosedFormsReadTheUpperTriangle) {
  for (int n = 2; n <= 4; ++n) {
    const Square m = randomSymmetric(n, 11);
    Square upper = m;
    for (int row = 0; row < n; ++row) {
      for (int col = 0; col < row; ++col) upper[row][col] = nan;
    }
    expectSame(upper, &mgcEigen::EigenStuff, eigenReference::solve(m));
  }
}

TEST_F(Eigen, KeptGeneralReductionReadsLowerTriangle) {
  for (int n = 2; n <= 9; ++n) {
    const Square m = randomSymmetric(n, 12);
    Square lower = m;
    for (int row = 0; row < n; ++row) {
      for (int col = row + 1; col < n; ++col) lower[row][col] = nan;
    }
    expectSame(lower, &mgcEigen::EigenStuffN, eigenReference::solveN(m));
  }
}

// Failures.

TEST_F(Eigen, NaNEverywhereEndsInTheFlag) {
  for (int n = 2; n <= 30; ++n) {
    for (const Solution solution : {&mgcEigen::EigenStuff, &mgcEigen::EigenStuffN,
                                    &mgcEigen::DecrSortEigenStuff, &mgcEigen::IncrSortEigenStuff}) {
      mgcEigen::error = 0;
      mgcEigen solver(n);
      fill(solver, Square(n, std::vector<double>(n, nan)));
      (solver.*solution)();
      EXPECT_EQ(mgcEigen::error, mgcEigen::ql_exceeded) << n;
      EXPECT_TRUE(std::isnan(solver.Eigenvalue(0))) << n;
    }
  }
}

// A NaN beside the diagonal spoils two values in the first pass and one more in each that follows:
// 31 in all. The two that are left of 33 are sorted all the same.
TEST_F(Eigen, KeptSortRunsAfterTheIterationGaveUp) {
  std::vector<double> values(33);
  for (int i = 0; i < 33; ++i) values[i] = i;
  const Square m = with(diagonal(values), 0, 1, nan);
  mgcEigen solver(33);
  fill(solver, m);
  solver.EigenStuff();
  EXPECT_EQ(mgcEigen::error, mgcEigen::ql_exceeded);
  EXPECT_TRUE(std::isnan(solver.Eigenvalue(30)));
  EXPECT_EQ(solver.Eigenvalue(31), 31.0);
  EXPECT_EQ(solver.Eigenvalue(32), 32.0);
  for (const Solution solution : {&mgcEigen::DecrSortEigenStuff, &mgcEigen::DecrSortEigenStuffN}) {
    fill(solver, m);
    (solver.*solution)();
    EXPECT_TRUE(std::isnan(solver.Eigenvalue(30)));
    EXPECT_EQ(solver.Eigenvalue(31), 32.0);
    EXPECT_EQ(solver.Eigenvalue(32), 31.0);
    EXPECT_EQ(solver.Eigenvector(32, 31), 1.0);
    EXPECT_EQ(solver.Eigenvector(31, 32), 1.0);
  }
}

TEST_F(Eigen, KeptVanishingRotationIsNotSkipped) {
  // d = (0, 0, 1), e = (smallest, 2^-30): in the second step of the first pass sn * e[0] underflows
  // to 0, while g is 2^-30 - 2^-30.
  const double smallest = std::numeric_limits<double>::denorm_min();
  mgcEigen solver(3);
  fill(solver, with(with(diagonal({0, 0, 1}), 0, 1, smallest), 1, 2, std::ldexp(1.0, -30)));
  solver.EigenStuff3();
  EXPECT_EQ(mgcEigen::error, mgcEigen::ql_exceeded);
  EXPECT_TRUE(std::isnan(solver.Eigenvalue(0)));
}

TEST_F(Eigen, KeptCornerIsComparedWithZeroExactly) {
  mgcEigen solver(3);
  fill(solver, with(diagonal({1, 2, 3}), 0, 2, 1e-200));
  solver.EigenStuff3();
  EXPECT_EQ(mgcEigen::error, mgcEigen::ql_exceeded);
  mgcEigen::error = 0;
  // -0 is 0.
  fill(solver, with(diagonal({1, 2, 3}), 0, 2, -0.0));
  solver.EigenStuff3();
  EXPECT_EQ(mgcEigen::error, 0U);
  EXPECT_THAT(valuesOf(solver, 3), ElementsAre(1, 2, 3));
}

TEST_F(Eigen, KeptCornersOfSizeFourAreComparedWithZeroExactly) {
  // The square of m02 underflows: the length that everything is divided by comes out 0.
  mgcEigen solver(4);
  fill(solver, with(diagonal({1, 2, 3, 4}), 0, 2, 1e-200));
  solver.EigenStuff4();
  EXPECT_EQ(mgcEigen::error, mgcEigen::ql_exceeded);
  EXPECT_TRUE(std::isnan(solver.Eigenvalue(0)));
}

TEST_F(Eigen, KeptCornerOfTheLowerBlockIsComparedWithZeroExactly) {
  // The first row is free; below it m13 underflows as the corner of size three does.
  mgcEigen solver(4);
  fill(solver, with(diagonal({1, 2, 3, 4}), 1, 3, 1e-200));
  solver.EigenStuff4();
  EXPECT_EQ(mgcEigen::error, mgcEigen::ql_exceeded);
  EXPECT_DOUBLE_EQ(solver.Eigenvalue(0), 1.0);
  EXPECT_TRUE(std::isnan(solver.Eigenvalue(1)));
}

TEST_F(Eigen, KeptShortestCrossProductStillGivesTheBasis) {
  // u = (1, 1, 1) / sqrt(3), A u = (2, 2, 2 + e) / sqrt(3) with e = 2^-40: u x A u = e / 3 (1, -1,
  // 0). So short a vector still is a direction, and (0, 1, -1, 0) an eigenvector to the value 2,
  // since the first row weighs its two elements alike. A basis chosen by the axes would be off by
  // 5e-4.
  Square m = with(with(with(diagonal({2, 2, 2, 2}), 0, 1, 1), 0, 2, 1), 0, 3, 1);
  m[3][3] += std::ldexp(1.0, -40);
  mgcEigen solver(4);
  fill(solver, m);
  solver.EigenStuff4();
  EXPECT_NEAR(solver.Eigenvalue(3), 2.0, 1e-15);
  const std::vector<double> v = vectorOf(solver, 4, 3);
  EXPECT_NEAR(v[0], 0.0, 1e-6);
  EXPECT_NEAR(std::fabs(v[1]), half, 1e-6);
  EXPECT_NEAR(v[2], -v[1], 1e-6);
  EXPECT_NEAR(v[3], 0.0, 1e-6);
}

TEST_F(Eigen, SizesBelowTwoRaiseTheFlagAndTakeNoStorage) {
  for (const int size : {1, 0, -1, std::numeric_limits<int>::min()}) {
    mgcEigen::error = 0;
    const mgcEigen solver(size);
    EXPECT_EQ(mgcEigen::error, mgcEigen::invalid_size) << size;
    EXPECT_EQ(solver.Eigenvalue(), nullptr) << size;
    EXPECT_EQ(solver.Eigenvector(), nullptr) << size;
  }
}

TEST_F(Eigen, FlagsGatherOverInstances) {
  { const mgcEigen solver(0); }
  mgcEigen solver(2);
  EXPECT_EQ(mgcEigen::error, 1U);
  fill(solver, {{nan, nan}, {nan, nan}});
  solver.EigenStuff();
  EXPECT_EQ(mgcEigen::error, 5U);
  fill(solver, diagonal({1, 2}));
  solver.EigenStuff();
  EXPECT_EQ(mgcEigen::error, 5U);
}

TEST_F(Eigen, KeptReportClearsWithoutWriting) {
  mgcEigen::error = 7;
  std::ostringstream stream;
  mgcEigen::Report(stream);
  EXPECT_EQ(mgcEigen::error, 0U);
  EXPECT_EQ(stream.str(), "");
}

TEST_F(Eigen, FlagsHaveTheirTexts) {
  EXPECT_EQ(mgcEigen::invalid_size, 1U);
  EXPECT_EQ(mgcEigen::allocation_failed, 2U);
  EXPECT_EQ(mgcEigen::ql_exceeded, 4U);
  EXPECT_EQ(mgcEigen::verbose, 0);
  EXPECT_STREQ(mgcEigen::message[Inside::Number(mgcEigen::invalid_size)], "invalid matrix size");
  EXPECT_STREQ(mgcEigen::message[Inside::Number(mgcEigen::allocation_failed)], "allocation failed");
  EXPECT_STREQ(mgcEigen::message[Inside::Number(mgcEigen::ql_exceeded)],
               "QL algorithm - exceeded maximum iterations");
}

TEST_F(Eigen, NumberIsThePositionOfTheHighestFlag) {
  EXPECT_EQ(Inside::Number(0), -1);
  EXPECT_EQ(Inside::Number(1), 0);
  EXPECT_EQ(Inside::Number(7), 2);
  EXPECT_EQ(Inside::Number(0xFFFFFFFFU), 31);
}

TEST_F(Eigen, CannotBeCopied) {
  EXPECT_FALSE(std::is_copy_constructible<mgcEigen>::value);
  EXPECT_FALSE(std::is_copy_assignable<mgcEigen>::value);
}

}  // namespace
