#include <zrBase/clustering/KMterm.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int noLimit = 2147483647;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

KMterm withLimit(double a, double b, double c, double d) {
  return KMterm(a, b, c, d, 0.0, 0.0, 0, 0.0, 0, 0.0);
}

int limitOf(double a, double b, double c, double d, int k, int n) {
  return withLimit(a, b, c, d).getMaxTotStage(k, n);
}

TEST(KMtermTest, StartsWithZerosAndNoLimit) {
  const KMterm term;
  EXPECT_EQ(term.getMinConsecRDL(), 0.0);
  EXPECT_EQ(term.getMinAccumRDL(), 0.0);
  EXPECT_EQ(term.getMaxRunStage(), 0);
  EXPECT_EQ(term.getInitProbAccept(), 0.0);
  EXPECT_EQ(term.getTempRunLength(), 0);
  EXPECT_EQ(term.getTempReducFact(), 0.0);
  EXPECT_EQ(term.getMaxTotStage(10, 1000), noLimit);
}

TEST(KMtermTest, TakesItsFiguresInOrder) {
  const KMterm term(1.0, 2.0, 3.0, 1.0, 0.1, 0.2, 4, 0.5, 6, 0.7);
  EXPECT_EQ(term.getMinConsecRDL(), 0.1);
  EXPECT_EQ(term.getMinAccumRDL(), 0.2);
  EXPECT_EQ(term.getMaxRunStage(), 4);
  EXPECT_EQ(term.getInitProbAccept(), 0.5);
  EXPECT_EQ(term.getTempRunLength(), 6);
  EXPECT_EQ(term.getTempReducFact(), 0.7);
  // 1 + 2 * 5 + 3 * 7
  EXPECT_EQ(term.getMaxTotStage(5, 7), 32);
}

TEST(KMtermTest, SettersChangeTheirOwnFigure) {
  KMterm term;
  term.setMinConsecRDL(0.25);
  term.setMinAccumRDL(0.5);
  term.setMaxRunStage(3);
  term.setInitProbAccept(0.75);
  term.setTempRunLength(10);
  term.setTempReducFact(0.875);
  EXPECT_EQ(term.getMinConsecRDL(), 0.25);
  EXPECT_EQ(term.getMinAccumRDL(), 0.5);
  EXPECT_EQ(term.getMaxRunStage(), 3);
  EXPECT_EQ(term.getInitProbAccept(), 0.75);
  EXPECT_EQ(term.getTempRunLength(), 10);
  EXPECT_EQ(term.getTempReducFact(), 0.875);
}

TEST(KMtermTest, SetsEachCoefficientOfTheLimit) {
  KMterm term;
  term.setMaxTotStage(0, 100.0);
  term.setMaxTotStage(1, 2.0);
  term.setMaxTotStage(2, 0.5);
  term.setMaxTotStage(3, 2.0);
  // 100 + (2 * 3 + 0.5 * 8)^2
  EXPECT_EQ(term.getMaxTotStage(3, 8), 200);
}

TEST(KMtermTest, AssignmentAndCopyTakeAllFigures) {
  const KMterm term(1.0, 2.0, 3.0, 1.0, 0.1, 0.2, 4, 0.5, 6, 0.7);
  KMterm assigned;
  assigned = term;
  const KMterm copy(term);
  for (const KMterm& other : {assigned, copy}) {
    EXPECT_EQ(other.getMaxTotStage(5, 7), 32);
    EXPECT_EQ(other.getMinConsecRDL(), 0.1);
    EXPECT_EQ(other.getMinAccumRDL(), 0.2);
    EXPECT_EQ(other.getMaxRunStage(), 4);
    EXPECT_EQ(other.getInitProbAccept(), 0.5);
    EXPECT_EQ(other.getTempRunLength(), 6);
    EXPECT_EQ(other.getTempReducFact(), 0.7);
  }
}

// The limit of stages.

TEST(KMtermMaxTotStage, WithoutExponentTheFirstCoefficientCounts) {
  EXPECT_EQ(limitOf(100.0, 5.0, 5.0, 0.0, 10, 1000), 100);
  EXPECT_EQ(limitOf(100.75, 0.0, 0.0, 0.0, 10, 1000), 100);
  EXPECT_EQ(limitOf(100.0, 5.0, 5.0, -0.0, 10, 1000), 100);
}

TEST(KMtermMaxTotStage, SmallestExponentStillCounts) {
  // 5 + 10^1e-12, which is 6 and a little; an exponent of exactly 0 gives 5.
  EXPECT_EQ(limitOf(5.0, 1.0, 0.0, 1e-12, 10, 1000), 6);
  EXPECT_EQ(limitOf(5.0, 1.0, 0.0, -5e-324, 10, 1000), 6);
  EXPECT_EQ(limitOf(5.0, 1.0, 0.0, 0.0, 10, 1000), 5);
}

TEST(KMtermMaxTotStage, GrowsWithCentersAndPoints) {
  EXPECT_EQ(limitOf(0.0, 1.0, 0.0, 1.0, 10, 1000), 10);
  EXPECT_EQ(limitOf(0.0, 0.0, 1.0, 0.5, 10, 1024), 32);
  // 7 + (10 + 2 * 1000)^1
  EXPECT_EQ(limitOf(7.0, 1.0, 2.0, 1.0, 10, 1000), 2017);
  // 1 + (0.5 * 1)^-2 is 5, 1 + (2 * 5)^-1 is 1.1
  EXPECT_EQ(limitOf(1.0, 0.5, 0.0, -2.0, 1, 1), 5);
  EXPECT_EQ(limitOf(1.0, 2.0, 0.0, -1.0, 5, 1), 1);
}

TEST(KMtermMaxTotStage, KeptLimitOfZeroIsNoLimit) {
  EXPECT_EQ(limitOf(0.0, 1.0, 1.0, 0.0, 10, 1000), noLimit);
  EXPECT_EQ(limitOf(-1.0, 1.0, 1.0, 0.0, 10, 1000), noLimit);
  EXPECT_EQ(limitOf(nan, 1.0, 1.0, 0.0, 10, 1000), noLimit);
  EXPECT_EQ(limitOf(-10.0, 1.0, 0.0, 1.0, 10, 1000), noLimit);
  EXPECT_EQ(limitOf(-11.0, 1.0, 0.0, 1.0, 10, 1000), noLimit);
}

TEST(KMtermMaxTotStage, KeptLimitBelowOneStageIsZero) {
  EXPECT_EQ(limitOf(0.5, 0.0, 0.0, 0.0, 10, 1000), 0);
  EXPECT_EQ(limitOf(0.25, 1.0, 0.0, -2.0, 2, 1000), 0);
}

TEST(KMtermMaxTotStage, RootOfANegativeSumIsNoLimit) {
  EXPECT_EQ(limitOf(5.0, -1.0, 0.0, 0.5, 4, 1000), noLimit);
  EXPECT_EQ(limitOf(5.0, 1.0, 0.0, nan, 4, 1000), noLimit);
  // One to any power is one.
  EXPECT_EQ(limitOf(5.0, 1.0, 0.0, nan, 1, 1000), 6);
}

TEST(KMtermMaxTotStage, SaturatesAtTheHighestInt) {
  EXPECT_EQ(limitOf(1e300, 0.0, 0.0, 0.0, 10, 1000), noLimit);
  EXPECT_EQ(limitOf(infinity, 0.0, 0.0, 0.0, 10, 1000), noLimit);
  EXPECT_EQ(limitOf(2147483646.5, 0.0, 0.0, 0.0, 10, 1000), 2147483646);
  EXPECT_EQ(limitOf(0.0, 1.0, 1.0, 40.0, 10, 1000), noLimit);
}

TEST(KMtermMaxTotStage, AbsoluteLimitHoldsForAnySize) {
  KMterm term = withLimit(3.0, 7.0, 9.0, 2.0);
  term.setAbsMaxTotStage(50);
  EXPECT_EQ(term.getMaxTotStage(5, 100), 50);
  EXPECT_EQ(term.getMaxTotStage(1, 1), 50);
}

TEST(KMtermMaxTotStage, KeptAbsoluteLimitLeavesTwoCoefficients) {
  KMterm term = withLimit(3.0, 7.0, 9.0, 2.0);
  term.setAbsMaxTotStage(50);
  term.setMaxTotStage(3, 1.0);
  // 50 + 7 * 5 + 9 * 100
  EXPECT_EQ(term.getMaxTotStage(5, 100), 985);
}

/// Reaches what only derived classes can.
struct TermProbe : KMterm {
  using KMterm::maxStage;
};

TEST(KMtermMaxTotStage, IsComputedFromAnyFourCoefficients) {
  const double coefficients[] = {1.0, 2.0, 3.0, 1.0};
  EXPECT_EQ(TermProbe::maxStage(coefficients, 5, 7), 32);
}

}  // namespace
