#include <zrBase/utilities/rounding.h>

#include <zrBase/geometry/gdfVertex.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <iomanip>
#include <iostream>
#include <limits>
#include <locale>
#include <string>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

constexpr double notSet = 3.4028234663852886e38;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int highestInt = std::numeric_limits<int>::max();
constexpr int lowestInt = std::numeric_limits<int>::min();

TEST(Fround, TakesHalvesAwayFromZero) {
  EXPECT_EQ(zrUtils::fround(-2.5), -3.0);
  EXPECT_EQ(zrUtils::fround(2.5), 3.0);
  EXPECT_EQ(zrUtils::fround(0.5), 1.0);
  EXPECT_EQ(zrUtils::fround(-0.5), -1.0);
  EXPECT_EQ(zrUtils::fround(2.4), 2.0);
  EXPECT_EQ(zrUtils::fround(-2.6), -3.0);
  EXPECT_EQ(zrUtils::fround(1e300), 1e300);
}

TEST(Fround, KeepsTheSignOfAZeroFromBelow) {
  EXPECT_EQ(zrUtils::fround(-0.3), 0.0);
  EXPECT_TRUE(std::signbit(zrUtils::fround(-0.3)));
  EXPECT_FALSE(std::signbit(zrUtils::fround(-0.0)));
  EXPECT_FALSE(std::signbit(zrUtils::fround(0.3)));
}

TEST(Fround, LeavesWhatIsNoNumberOrNotSet) {
  EXPECT_EQ(zrUtils::fround(notSet), notSet);
  EXPECT_EQ(zrUtils::fround(-notSet), -notSet);
  EXPECT_EQ(zrUtils::fround(infinity), infinity);
  EXPECT_EQ(zrUtils::fround(-infinity), -infinity);
  EXPECT_TRUE(std::isnan(zrUtils::fround(notANumber)));
}

TEST(Fround, KeptHalfIsAddedBeforeTheFloor) {
  EXPECT_EQ(zrUtils::fround(0.49999999999999994), 1.0);
  EXPECT_EQ(zrUtils::fround(-0.49999999999999994), -1.0);
  EXPECT_EQ(std::round(0.49999999999999994), 0.0);
  // 2^52 + 1: a half more lies between two doubles, and goes to the even one.
  EXPECT_EQ(zrUtils::fround(4503599627370497.0), 4503599627370498.0);
}

TEST(Round, TakesHalvesAwayFromZero) {
  EXPECT_EQ(zrUtils::round(2.5), 3);
  EXPECT_EQ(zrUtils::round(-2.5), -3);
  EXPECT_EQ(zrUtils::round(2.4), 2);
  EXPECT_EQ(zrUtils::round(-2.4), -2);
  EXPECT_EQ(zrUtils::round(-0.4), 0);
  EXPECT_EQ(zrUtils::round(0.49999999999999994), 1);
}

TEST(Round, SaturatesAtTheLimitsOfInt) {
  EXPECT_EQ(zrUtils::round(2147483646.5), highestInt);
  EXPECT_EQ(zrUtils::round(2147483646.4), highestInt - 1);
  EXPECT_EQ(zrUtils::round(1e10), highestInt);
  EXPECT_EQ(zrUtils::round(-1e10), lowestInt);
  EXPECT_EQ(zrUtils::round(infinity), highestInt);
  EXPECT_EQ(zrUtils::round(-infinity), lowestInt);
  EXPECT_EQ(zrUtils::round(notSet), highestInt);
  EXPECT_EQ(zrUtils::round(-notSet), lowestInt);
  EXPECT_EQ(zrUtils::round(notANumber), 0);
}

TEST(LongRound, KeptLongRoundSaturatesAsInt) {
  EXPECT_EQ(zrUtils::lround(3e9), 2147483647L);
  EXPECT_EQ(zrUtils::lround(-3e9), -2147483647L - 1L);
  EXPECT_EQ(zrUtils::lround(notSet), 2147483647L);
  EXPECT_EQ(zrUtils::lround(2.5), 3L);
  EXPECT_EQ(zrUtils::lround(-2.5), -3L);
}

RC_GTEST_PROP(Round, GivesTheNearestWholeNumberInAllThreeForms, ()) {
  const double value = *rc::gen::inRange(-640000, 640000) / 64.0;
  const int rounded = zrUtils::round(value);
  RC_ASSERT(std::fabs(value - rounded) <= 0.5);
  RC_ASSERT(zrUtils::fround(value) == rounded);
  RC_ASSERT(zrUtils::lround(value) == rounded);
  RC_ASSERT(zrUtils::round(-value) == -rounded);
}

TEST(EqualZero, KeptNumberAtTheToleranceIsNotZero) {
  EXPECT_FALSE(zrUtils::equalZero(1e-9, 1e-9));
  EXPECT_FALSE(zrUtils::equalZero(-1e-9, 1e-9));
  EXPECT_TRUE(gdfEqualZero(1e-9, 1e-9));
}

TEST(EqualZero, IsTrueStrictlyWithin) {
  EXPECT_TRUE(zrUtils::equalZero(0.0, 1e-9));
  EXPECT_TRUE(zrUtils::equalZero(0.9e-9, 1e-9));
  EXPECT_TRUE(zrUtils::equalZero(-0.9e-9, 1e-9));
  EXPECT_FALSE(zrUtils::equalZero(1.1e-9, 1e-9));
  EXPECT_FALSE(zrUtils::equalZero(0.0, 0.0));
  EXPECT_FALSE(zrUtils::equalZero(0.0, -1.0));
  EXPECT_FALSE(zrUtils::equalZero(notANumber, 1.0));
  EXPECT_FALSE(zrUtils::equalZero(0.0, notANumber));
}

/// The tolerance of a size, and the line that it writes.
struct Tolerance {
  double value;
  std::string message;
};

Tolerance toleranceOf(double model) {
  CaptureStderr();
  const double value = zrUtils::tolerance(model);
  return {value, GetCapturedStderr()};
}

TEST(Tolerance, GrowsTenfoldWithEachFactorOfSixteen) {
  EXPECT_EQ(toleranceOf(1.0).value, 1e-05);
  EXPECT_EQ(toleranceOf(16.0).value, 1e-05);
  EXPECT_EQ(toleranceOf(17.0).value, 1e-04);
  EXPECT_EQ(toleranceOf(256.0).value, 1e-04);
  EXPECT_EQ(toleranceOf(std::nextafter(256.0, 300.0)).value, 1e-03);
  EXPECT_EQ(toleranceOf(4096.0).value, 1e-03);
  EXPECT_EQ(toleranceOf(65536.0).value, 1e-02);
  EXPECT_EQ(toleranceOf(1048576.0).value, 1e-01);
  EXPECT_EQ(toleranceOf(16777216.0).value, 1.0);
  EXPECT_EQ(toleranceOf(16777217.0).value, 10.0);
  EXPECT_EQ(toleranceOf(1e10).value, 1000.0);
}

TEST(Tolerance, IsSmallestForSizesOfZeroAndBelow) {
  EXPECT_EQ(toleranceOf(0.0).value, 1e-05);
  EXPECT_EQ(toleranceOf(-1e6).value, 1e-05);
}

TEST(Tolerance, TakesWhatIsNotFiniteForTheLargestSize) {
  const double largest = toleranceOf(std::numeric_limits<double>::max()).value;
  // 255 sixteenths bring it down to 16, so 10 to the power 250 = 2 + 8 + 16 + 32 + 64 + 128. The
  // squares and products in this order, each rounded, end two digits above the nearest to 1e250.
  EXPECT_EQ(largest, 1.0000000000000004e+250);
  EXPECT_EQ(toleranceOf(infinity).value, largest);
  EXPECT_EQ(toleranceOf(-infinity).value, largest);
  EXPECT_EQ(toleranceOf(notANumber).value, largest);
}

TEST(Tolerance, KeptToleranceTellsOnStandardError) {
  EXPECT_EQ(toleranceOf(16.0).message, "model = 16 tolerance = 1e-05\n");
  EXPECT_EQ(toleranceOf(17.0).message, "model = 17 tolerance = 0.0001\n");
  EXPECT_EQ(toleranceOf(1234567.0).message, "model = 1.23457e+06 tolerance = 1\n");
  EXPECT_EQ(toleranceOf(-0.5).message, "model = -0.5 tolerance = 1e-05\n");
  EXPECT_EQ(toleranceOf(infinity).message, "model = inf tolerance = 1e+250\n");
}

TEST(Tolerance, WritesADecimalPointInEveryLocale) {
  struct DecimalComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale comma(std::locale::classic(), new DecimalComma);
  const std::locale globalBefore = std::locale::global(comma);
  const std::locale streamBefore = std::cerr.imbue(comma);
  const std::string message = toleranceOf(1234.5).message;
  std::cerr.imbue(streamBefore);
  std::locale::global(globalBefore);
  EXPECT_EQ(message, "model = 1234.5 tolerance = 0.001\n");
}

TEST(Tolerance, WritesTheSameWhateverTheStateOfTheStream) {
  const std::ios::fmtflags flags = std::cerr.flags();
  const std::streamsize precision = std::cerr.precision(2);
  std::cerr << std::fixed << std::showpos;
  const std::string message = toleranceOf(17.5).message;
  std::cerr.flags(flags);
  std::cerr.precision(precision);
  EXPECT_EQ(message, "model = 17.5 tolerance = 0.0001\n");
}

}  // namespace
