#include <zrBase/clustering/kmServices.h>

#include <zrBase/clustering/kmPoints.h>
#include <zrBase/clustering/kmRandom.h>

#include <gtest/gtest.h>

#include "clustering/naiveClustering.h"

#include <cmath>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <limits>
#include <locale>
#include <vector>

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// Globals and reports.

TEST(ClusteringGlobals, StandForTheStandardStreamsAndSilence) {
  EXPECT_EQ(kmStatLev, KM_STAT_SILENT);
  EXPECT_EQ(kmOut, &std::cout);
  EXPECT_EQ(kmErr, &std::cerr);
  EXPECT_EQ(kmIn, &std::cin);
}

TEST(ClusteringGlobals, LevelsAreNumbers) {
  EXPECT_EQ(static_cast<int>(KM_STAT_SILENT), 0);
  EXPECT_EQ(static_cast<int>(KM_STAT_STAGES), 5);
  EXPECT_EQ(static_cast<int>(KM_STAT_SWAPS), 6);
  EXPECT_EQ(static_cast<int>(KM_STAT_CENTERS), 7);
  EXPECT_EQ(static_cast<int>(KMwarn), 0);
  EXPECT_EQ(static_cast<int>(KMabort), 1);
}

TEST(KmError, KeptReportGoesToBothStreams) {
  const Caught caught;
  kmError("mind the gap", KMwarn);
  const char* line = "rabriol: WARNING----->mind the gap<-------------WARNING\n";
  EXPECT_EQ(caught.errors.str(), line);
  EXPECT_EQ(caught.output.str(), line);
  // Both lines come too where the two are one stream.
  kmErr = kmOut;
  kmError("again", KMwarn);
  const std::string again = "rabriol: WARNING----->again<-------------WARNING\n";
  EXPECT_EQ(caught.output.str(), line + again + again);
}

TEST(KmError, TakesAnyLevelButAbortAsAWarning) {
  const Caught caught;
  kmError("a", 2);
  kmError("b", -1);
  EXPECT_EQ(caught.output.str(),
            "rabriol: WARNING----->a<-------------WARNING\n"
            "rabriol: WARNING----->b<-------------WARNING\n");
}

TEST(KmErrorDeathTest, AbortEndsTheProcessWithStatusOne) {
  EXPECT_EXIT(
      {
        kmOut = &std::cerr;
        kmError("no way", KMabort);
      },
      testing::ExitedWithCode(1),
      "^rabriol: ERROR------->no way<-------------ERROR\n"
      "rabriol: ERROR------->no way<-------------ERROR\n$");
}

// Printing.

TEST(KmPrintPt, SetsFieldsOfEight) {
  const Caught caught;
  const double p[] = {1.0, -2.5, 123456789.0};
  kmPrintPt(p, 3, false);
  EXPECT_EQ(caught.output.str(), "       1     -2.5 1.23457e+08");
}

TEST(KmPrintPt, PutsBracketsWhenFancy) {
  const Caught caught;
  const double p[] = {1.0, 0.125};
  kmPrintPt(p, 2, true);
  kmPrintPt(p, 0, true);
  kmPrintPt(p, 0, false);
  EXPECT_EQ(caught.output.str(), "[        1    0.125 ][  ]");
}

TEST(KmPrintPts, WritesOneNumberedLinePerPoint) {
  const Caught caught;
  double first[] = {1.0, 2.0};
  double second[] = {3.0, 4.0};
  double* pts[] = {first, second};
  kmPrintPts("Some", pts, 2, 2, true);
  kmPrintPts("None", pts, 0, 2, false);
  EXPECT_EQ(caught.output.str(),
            "  (Some:\n"
            "    0\t[        1        2 ]\n"
            "    1\t[        3        4 ]\n"
            "  )\n"
            "  (None:\n"
            "  )\n");
}

/// A decimal comma and grouped digits, as the locale of many applications has them.
struct CommaLocale : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(KmPrintPt, WritesFiguresOfTheCLocale) {
  Caught caught;
  caught.output.imbue(std::locale(std::locale::classic(), new CommaLocale));
  caught.output << std::setprecision(9);
  const double p[] = {1234567.5};
  kmPrintPt(p, 1, false);
  EXPECT_EQ(caught.output.str(), "1234567.5");
  // The stream itself keeps its locale and its precision.
  caught.output << 12345.5;
  EXPECT_EQ(caught.output.str(), "1234567.512.345,5");
}

// Points.

TEST(ClusteringPoints, AllocateCopyAndFree) {
  double* p = kmAllocPt(3, 1.5);
  EXPECT_EQ(std::vector<double>(p, p + 3), (std::vector<double>{1.5, 1.5, 1.5}));
  p[1] = 7.0;
  double* q = kmAllocCopyPt(3, p);
  p[1] = 8.0;
  EXPECT_EQ(std::vector<double>(q, q + 3), (std::vector<double>{1.5, 7.0, 1.5}));
  kmCopyPt(3, p, q);
  EXPECT_EQ(q[1], 8.0);
  kmDeallocPt(p);
  kmDeallocPt(q);
  EXPECT_EQ(p, nullptr);
  EXPECT_EQ(q, nullptr);
  kmDeallocPt(p);
}

TEST(ClusteringPoints, ArraysHaveTheirRowsInOneBlock) {
  double** pts = kmAllocPts(4, 3);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(pts[i], pts[0] + 3 * i);
    for (int d = 0; d < 3; ++d) pts[i][d] = 10 * i + d;
  }
  double** copy = kmAllocCopyPts(4, 3, pts);
  EXPECT_NE(copy[0], pts[0]);
  EXPECT_EQ(copy[3][2], 32.0);
  pts[2][1] = -1.0;
  kmCopyPts(3, 3, pts, copy);
  EXPECT_EQ(copy[2][1], -1.0);
  kmDeallocPts(pts);
  kmDeallocPts(copy);
  EXPECT_EQ(pts, nullptr);
  EXPECT_EQ(copy, nullptr);
  kmDeallocPts(pts);
}

TEST(ClusteringPoints, AnArrayOfNoPointsIsAnArray) {
  double** pts = kmAllocPts(0, 3);
  EXPECT_NE(pts, nullptr);
  kmDeallocPts(pts);
  EXPECT_EQ(pts, nullptr);
}

TEST(KmDist2, AddsSquaresInTheOrderOfDimensions) {
  const double p[] = {1.0, 2.0, 3.0};
  const double q[] = {4.0, 6.0, 3.0};
  EXPECT_EQ(kmDist2(3, p, q), 25.0);
  EXPECT_EQ(kmDist2(1, p, q), 9.0);
  EXPECT_EQ(kmDist2(0, p, q), 0.0);
  // Beside 2^54 a single 1 is lost, and again the next one; a 2 is half of the spacing, a 3 is not.
  const double origin[] = {0.0, 0.0, 0.0, 0.0};
  const double largeFirst[] = {134217728.0, 1.0, 1.0, 1.0};
  const double largeLast[] = {1.0, 1.0, 1.0, 134217728.0};
  EXPECT_EQ(kmDist2(4, largeFirst, origin), 18014398509481984.0);
  EXPECT_EQ(kmDist2(4, largeLast, origin), 18014398509481988.0);
}

TEST(KmEqualPts, ComparesExactly) {
  const double p[] = {1.0, 0.0};
  const double same[] = {1.0, -0.0};
  const double near[] = {1.0, 5e-324};
  const double none[] = {1.0, nan};
  EXPECT_TRUE(kmEqualPts(2, p, same));
  EXPECT_FALSE(kmEqualPts(2, p, near));
  EXPECT_TRUE(kmEqualPts(1, p, near));
  EXPECT_FALSE(kmEqualPts(2, none, none));
  EXPECT_TRUE(kmEqualPts(0, p, none));
}

// Random numbers. The generator is a state of the process: these tests run in a process of their
// own, where nothing was drawn before.

constexpr int manyDraws = 500000;

TEST(KmRan0DeathTest, KeptGeneratorStartsAlikeInEveryProcess) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        std::srand(77);
        std::vector<double> drawn;
        for (int i = 0; i < manyDraws; ++i) drawn.push_back(kmRan0());
        ReferenceGenerator reference;
        bool same = true;
        for (double value : drawn) same = same && value == reference.draw();
        endWith(same);
      },
      testing::ExitedWithCode(0), "");
}

TEST(KmRan0DeathTest, KeptHighestValueTakesTheSpareEntry) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        std::vector<double> drawn;
        for (int i = 0; i < manyDraws; ++i) drawn.push_back(kmRan0());
        // After the first 1.0 the held value is the maximum: the next draw is the spare entry, 0.
        std::size_t i = 0;
        while (i + 1 < drawn.size() && drawn[i] != 1.0) ++i;
        ReferenceGenerator reference;
        for (int j = 0; j < manyDraws; ++j) reference.draw();
        endWith(i + 1 < drawn.size() && drawn[i + 1] == 0.0 && reference.spareVisits > 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(KmRanIntDeathTest, TruncatesAndFoldsTheTop) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        std::vector<int> drawn;
        for (int i = 0; i < manyDraws; ++i) drawn.push_back(kmRanInt(10));
        ReferenceGenerator reference;
        bool same = true;
        for (int value : drawn) {
          const double u = reference.draw();
          same = same && value == (u == 1.0 ? 9 : static_cast<int>(u * 10));
        }
        endWith(same && reference.spareVisits > 0);
      },
      testing::ExitedWithCode(0), "");
}

TEST(KmRanUnifDeathTest, ScalesOneDraw) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        std::vector<double> drawn;
        for (int i = 0; i < 1000; ++i) drawn.push_back(kmRanUnif(-3.0, 5.5));
        ReferenceGenerator reference;
        bool same = true;
        for (double value : drawn) same = same && value == reference.draw() * 8.5 + -3.0;
        endWith(same);
      },
      testing::ExitedWithCode(0), "");
}

TEST(KmRanInt, OfOneIsAlwaysZero) {
  for (int i = 0; i < 100000; ++i) ASSERT_EQ(kmRanInt(1), 0);
}

TEST(KmRanInt, OfNoneIsAlwaysMinusOne) {
  // trunc(u * 0) is 0 for every u, which equals n, and so n - 1 is given.
  for (int i = 0; i < 100000; ++i) ASSERT_EQ(kmRanInt(0), -1);
}

TEST(KmRanInt, StaysBelowItsBound) {
  std::vector<int> seen(7, 0);
  for (int i = 0; i < 100000; ++i) {
    const int drawn = kmRanInt(7);
    ASSERT_GE(drawn, 0);
    ASSERT_LT(drawn, 7);
    ++seen[static_cast<std::size_t>(drawn)];
  }
  for (int count : seen) EXPECT_NEAR(count, 100000 / 7.0, 1000);
}

TEST(KmRanUnif, ReachesFromLowToHigh) {
  for (int i = 0; i < 1000; ++i) {
    const double drawn = kmRanUnif(2.0, 3.0);
    ASSERT_GE(drawn, 2.0);
    ASSERT_LE(drawn, 3.0);
  }
  EXPECT_EQ(kmRanUnif(4.0, 4.0), 4.0);
}

}  // namespace
