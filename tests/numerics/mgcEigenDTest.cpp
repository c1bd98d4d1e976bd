#include <zrBase/numerics/mgcEigen.h>
#include <zrBase/numerics/mgcEigenD.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <sstream>

#include "numerics/support/eigenMatrices.h"

// What the two solvers share is tested on mgcEigen; here is where they differ, and that they agree.

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

class EigenD : public testing::Test {
 protected:
  void SetUp() override { mgcEigen::error = mgcEigenD::error = 0; }
  void TearDown() override { mgcEigen::error = mgcEigenD::error = 0; }
};

TEST_F(EigenD, KeptReportLeavesTheErrorWord) {
  mgcEigenD::error = 5;
  std::ostringstream stream;
  mgcEigenD::Report(stream);
  EXPECT_EQ(mgcEigenD::error, 5U);
  EXPECT_EQ(stream.str(), "");
}

TEST_F(EigenD, HasAnErrorWordOfItsOwn) {
  { const mgcEigenD solver(1); }
  EXPECT_EQ(mgcEigenD::error, mgcEigenD::invalid_size);
  EXPECT_EQ(mgcEigen::error, 0U);
  mgcEigen solver(2);
  fill(solver, {{nan, nan}, {nan, nan}});
  solver.EigenStuff();
  EXPECT_EQ(mgcEigen::error, mgcEigen::ql_exceeded);
  EXPECT_EQ(mgcEigenD::error, 1U);
  std::ostringstream stream;
  mgcEigen::Report(stream);
  EXPECT_EQ(mgcEigenD::error, 1U);
}

TEST_F(EigenD, HasStaticDataOfItsOwn) {
  EXPECT_NE(&mgcEigen::verbose, &mgcEigenD::verbose);
  EXPECT_NE(&mgcEigen::message, &mgcEigenD::message);
  EXPECT_EQ(mgcEigenD::verbose, 0);
  for (int i = 0; i < 3; ++i) EXPECT_STREQ(mgcEigenD::message[i], mgcEigen::message[i]);
}

TEST_F(EigenD, SizeOneHasNoStorage) {
  const mgcEigenD solver(1);
  EXPECT_EQ(mgcEigenD::error, 1U);
  EXPECT_EQ(solver.Eigenvalue(), nullptr);
  EXPECT_EQ(solver.Eigenvector(), nullptr);
}

TEST_F(EigenD, DiagonalTwoIsDoneAtOnce) {
  mgcEigenD solver(2);
  fill(solver, diagonal({3, 5}));
  solver.EigenStuff();
  EXPECT_EQ(mgcEigenD::error, 0U);
  EXPECT_EQ(valuesOf(solver, 2), (std::vector<double>{3, 5}));
  EXPECT_EQ(matrixOf(solver, 2), diagonal({1, 1}));
}

TEST_F(EigenD, GivesTheNormalOfAFlatCloudInItsLastColumn) {
  // Scatter of (2, 0, 2), (-2, 0, -2), (0, 1, 0), (0, -1, 0): the plane x = z, whose normal is
  // (1, 0, -1) / sqrt(2) but for its sense.
  mgcEigenD solver(3);
  fill(solver, {{8, 0, 8}, {0, 2, 0}, {8, 0, 8}});
  solver.DecrSortEigenStuff3();
  EXPECT_NEAR(solver.Eigenvalue(0), 16.0, 1e-14);
  EXPECT_NEAR(solver.Eigenvalue(1), 2.0, 1e-14);
  EXPECT_NEAR(solver.Eigenvalue(2), 0.0, 1e-14);
  EXPECT_NEAR(solver.Eigenvector(0, 2), -solver.Eigenvector(2, 2), 1e-15);
  EXPECT_NEAR(solver.Eigenvector(1, 2), 0.0, 1e-15);
}

RC_GTEST_PROP(EigenDLaws, AgreesWithItsTwinToTheBit, (std::uint32_t seed)) {
  const int n = *rc::gen::inRange(2, 31);
  const Square m = randomSymmetric(n, seed);
  mgcEigen one(n);
  mgcEigenD other(n);
  fill(one, m);
  fill(other, m);
  one.DecrSortEigenStuff();
  other.DecrSortEigenStuff();
  RC_ASSERT(valuesOf(one, n) == valuesOf(other, n));
  RC_ASSERT(matrixOf(one, n) == matrixOf(other, n));
}

}  // namespace
