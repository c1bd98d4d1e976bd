#include <zrBase/geometry/internal/saturatingCast.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

using gdfInternal::toInt;
using gdfInternal::toUnsigned;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(SaturatingCast, TruncatesTowardZero) {
  EXPECT_EQ(toInt(2.999), 2);
  EXPECT_EQ(toInt(-2.999), -2);
  EXPECT_EQ(toInt(-0.5), 0);
  EXPECT_EQ(toUnsigned(2.999), 2u);
  EXPECT_EQ(toUnsigned(4294967294.5), 4294967294u);
}

TEST(SaturatingCast, StopsAtTheLimitsOfInt) {
  EXPECT_EQ(toInt(2147483646.5), 2147483646);
  EXPECT_EQ(toInt(2147483647.0), 2147483647);
  EXPECT_EQ(toInt(2147483648.0), 2147483647);
  EXPECT_EQ(toInt(infinity), 2147483647);
  EXPECT_EQ(toInt(-2147483647.5), -2147483647);
  EXPECT_EQ(toInt(-2147483648.0), std::numeric_limits<int>::min());
  EXPECT_EQ(toInt(-1e300), std::numeric_limits<int>::min());
  EXPECT_EQ(toInt(-infinity), std::numeric_limits<int>::min());
}

TEST(SaturatingCast, StopsAtTheLimitsOfUnsigned) {
  EXPECT_EQ(toUnsigned(-0.5), 0u);
  EXPECT_EQ(toUnsigned(-7.0), 0u);
  EXPECT_EQ(toUnsigned(4294967295.0), 4294967295u);
  EXPECT_EQ(toUnsigned(1e300), 4294967295u);
  EXPECT_EQ(toUnsigned(infinity), 4294967295u);
}

TEST(SaturatingCast, GivesZeroForNaN) {
  EXPECT_EQ(toInt(notANumber), 0);
  EXPECT_EQ(toInt(-notANumber), 0);
  EXPECT_EQ(toUnsigned(notANumber), 0u);
}

TEST(SaturatingCast, IsUsableInConstantExpressions) {
  static_assert(toInt(1e10) == 2147483647);
  static_assert(toUnsigned(3.7) == 3u);
  constexpr int whole = toInt(-3.7);
  EXPECT_EQ(whole, -3);
}

}  // namespace
