#include <zrBase/utilities/zrUnits.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "support/geometryText.h"

namespace {

constexpr double inch = 0.025399999961392;
constexpr double foot = 0.304799999536704;
constexpr double mile = 1609.2693916961698;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

bool isPositiveZero(double value) { return value == 0.0 && !std::signbit(value); }

// User units and metres.

TEST(UnitConversion, MultipliesByTheRatioOfItsAxis) {
  const zrUnits units(2, 3, 0, 128);
  EXPECT_EQ(units.u2m(10.0), 10.0 * foot);
  EXPECT_EQ(units.convertX(10.0), 10.0 * foot);
  EXPECT_EQ(units.convertY(10.0), 10.0 * mile);
  EXPECT_EQ(units.u2mZ(10.0), -10.0 * inch);
  EXPECT_EQ(units.convertZ(10.0), -10.0 * inch);
}

TEST(UnitConversion, DividesByTheRatioOfItsAxis) {
  const zrUnits units(2, 3, 0, 128);
  EXPECT_EQ(units.m2u(10.0), 10.0 / foot);
  EXPECT_EQ(units.rconvertX(10.0), 10.0 / foot);
  EXPECT_EQ(units.rconvertY(10.0), 10.0 / mile);
  EXPECT_EQ(units.m2uZ(10.0), 10.0 / -inch);
  EXPECT_EQ(units.rconvertZ(10.0), 10.0 / -inch);
}

TEST(UnitConversion, RoundsOnceByDividing) {
  // Not by a product with the inverse ratio, which these values tell apart.
  static_assert(17.0 / foot != 17.0 * (1.0 / foot));
  static_assert(17.0 / mile != 17.0 * (1.0 / mile));
  static_assert(11.0 / inch != 11.0 * (1.0 / inch));
  const zrUnits units(2, 3, 0, 64);
  EXPECT_EQ(units.m2u(17.0), 17.0 / foot);
  EXPECT_EQ(units.rconvertX(17.0), 17.0 / foot);
  EXPECT_EQ(units.rconvertY(17.0), 17.0 / mile);
  EXPECT_EQ(units.m2uZ(11.0), 11.0 / inch);
  EXPECT_EQ(units.rconvertZ(11.0), 11.0 / inch);
  const gdfVertex expected(17.0 / foot, 17.0 / mile, 11.0 / inch);
  gdfVertex v(17.0, 17.0, 11.0);
  units.m2u(v);
  EXPECT_EQ(v, expected);
  double x = 17.0, y = 17.0, z = 11.0;
  units.rconvert(x, y, z);
  EXPECT_EQ(gdfVertex(x, y, z), expected);
}

TEST(UnitConversion, ConvertsThreeCoordinatesInPlace) {
  const zrUnits units(5, 9, 6, 128);
  double x = 3.0, y = 4.0, z = 5.0;
  units.u2m(x, y, z);
  EXPECT_THAT(gdfVertex(x, y, z), VertexIs("3000 0.4 -5000"));
  units.convert(x, y, z);
  EXPECT_THAT(gdfVertex(x, y, z), VertexNear("3000000 0.04 5000000", 1e-12));
  x = 3000.0, y = 0.5, z = 5000.0;
  units.m2u(x, y, z);
  EXPECT_THAT(gdfVertex(x, y, z), VertexIs("3 5 -5"));
  x = 6000.0, y = 0.5, z = -5000.0;
  units.rconvert(x, y, z);
  EXPECT_THAT(gdfVertex(x, y, z), VertexIs("6 5 5"));
}

TEST(UnitConversion, ConvertsAVertexInPlace) {
  const zrUnits units(5, 9, 6, 128);
  gdfVertex v(3.0, 4.0, 5.0);
  units.u2m(v);
  EXPECT_THAT(v, VertexIs("3000 0.4 -5000"));
  v = vertex("1 10 -2");
  units.convert(v);
  EXPECT_THAT(v, VertexIs("1000 1 2000"));
  units.m2u(v);
  EXPECT_THAT(v, VertexIs("1 10 -2"));
  v = vertex("2000 1 -3000");
  units.rconvert(v);
  EXPECT_THAT(v, VertexIs("2 10 3"));
}

TEST(UnitConversion, UsesSuppliedRatios) {
  zrUnits units;
  units.setXYUnits(8, 2.5);
  units.setZUnits(8, -4.0);
  gdfVertex v = vertex("2 4 8");
  units.u2m(v);
  EXPECT_THAT(v, VertexIs("5 10 -32"));
  units.m2u(v);
  EXPECT_THAT(v, VertexIs("2 4 8"));
}

TEST(UnitConversion, ReadsAllBeforeItWrites) {
  const zrUnits units(5, 5, 5, 128);
  double shared = 2.0;
  units.u2m(shared, shared, shared);
  EXPECT_EQ(shared, -2000.0);
  units.m2u(shared, shared, shared);
  EXPECT_EQ(shared, 2.0);
}

// Products and quotients by a power of two are exact.
RC_GTEST_PROP(UnitConversion, ThereAndBackIsTheSameForRatiosOfTwo, (int power, bool depth)) {
  zrUnits units;
  const double ratio = std::ldexp(1.0, power % 16);
  units.setXYUnits(8, ratio);
  units.setZUnits(8, depth ? -ratio : ratio);
  const double value = *rc::gen::inRange(-6400, 6400) / 64.0;
  RC_ASSERT(units.m2u(units.u2m(value)) == value);
  RC_ASSERT(units.rconvertY(units.convertY(value)) == value);
  RC_ASSERT(units.m2uZ(units.u2mZ(value)) == value);
}

// Measured depths.

TEST(UnitMeasuredDepth, KeptMeasuredDepthTakesTheCodeForItsFactor) {
  EXPECT_EQ(zrUnits(0, 0, 1, 64).u2mMd(12.5), 12.5);
  EXPECT_EQ(zrUnits(0, 0, 1, 64).m2uMd(12.5), 12.5);
  EXPECT_EQ(zrUnits(0, 0, 2, 64).u2mMd(12.5), 25.0);
  EXPECT_EQ(zrUnits(0, 0, 2, 64).m2uMd(12.5), 6.25);
  EXPECT_EQ(zrUnits(0, 0, 5, 64).u2mMd(12.5), 62.5);
  EXPECT_EQ(zrUnits(0, 0, 9, 64).m2uMd(18.0), 2.0);
  EXPECT_EQ(zrUnits(0, 0, 0x82, 64).u2mMd(2.0), 260.0);
}

TEST(UnitMeasuredDepth, TakesNoSignOfDepth) {
  EXPECT_EQ(zrUnits(1, 1, 2, 128).u2mMd(-3.0), -6.0);
  EXPECT_EQ(zrUnits(1, 1, 2, 128).m2uMd(3.0), 1.5);
}

TEST(UnitMeasuredDepth, TakesTheSizeOfANegativeCode) {
  EXPECT_EQ(zrUnits(1, 1, -4, 64).u2mMd(3.0), 12.0);
  EXPECT_EQ(zrUnits(1, 1, -4, 64).m2uMd(3.0), 0.75);
  const int lowest = std::numeric_limits<int>::min();
  EXPECT_EQ(zrUnits(1, 1, lowest, 64).u2mMd(1.0), 2147483648.0);
}

TEST(UnitMeasuredDepth, ReadsNoSuppliedRatio) {
  zrUnits units;
  units.setZUnits(8, 2.5);
  EXPECT_EQ(units.u2mMd(3.0), 24.0);
  EXPECT_EQ(units.m2uMd(24.0), 3.0);
}

TEST(UnitMeasuredDepth, VanishesInInches) {
  const zrUnits units(1, 1, 0, 64);
  EXPECT_TRUE(isPositiveZero(units.u2mMd(5.0)));
  EXPECT_TRUE(isPositiveZero(units.u2mMd(-5.0)));
  EXPECT_EQ(units.m2uMd(5.0), infinity);
  EXPECT_EQ(units.m2uMd(-5.0), -infinity);
  EXPECT_TRUE(std::isnan(units.m2uMd(0.0)));
  EXPECT_TRUE(std::isnan(units.u2mMd(infinity)));
}

TEST(UnitMeasuredDepth, GivesAPositiveZero) {
  const zrUnits units(1, 1, 2, 64);
  EXPECT_TRUE(isPositiveZero(units.u2mMd(-0.0)));
  EXPECT_TRUE(isPositiveZero(units.m2uMd(-0.0)));
  // Too small for a double once halved.
  EXPECT_TRUE(isPositiveZero(units.m2uMd(-std::numeric_limits<double>::denorm_min())));
  EXPECT_TRUE(std::isnan(units.u2mMd(notANumber)));
}

// Swap between two codes.

TEST(UnitSwap, LeavesAValueInItsUnit) {
  const zrUnits units;
  EXPECT_EQ(units.unitSwap(2, 2, 3.0), 3.0);
  for (int code = -1; code <= 10; ++code) EXPECT_EQ(units.unitSwap(code, code, 0.7), 0.7) << code;
}

TEST(UnitSwap, TakesAllUnitsToMetres) {
  const zrUnits units;
  EXPECT_EQ(units.unitSwap(0, 1, 7.0), 7.0 * inch);
  EXPECT_EQ(units.unitSwap(2, 1, 7.0), 7.0 * foot);
  EXPECT_EQ(units.unitSwap(3, 1, 7.0), 7.0 * mile);
  EXPECT_EQ(units.unitSwap(5, 1, 7.0), 7000.0);
  EXPECT_EQ(units.unitSwap(6, 1, 7.0), 7000.0);
  EXPECT_EQ(units.unitSwap(9, 1, 7.0), 7.0 * 0.1);
  for (const int from : {4, 7, 8, 10, -1, 0x42}) EXPECT_EQ(units.unitSwap(from, 1, 7.0), 7.0);
}

TEST(UnitSwap, TakesMetresToAllUnits) {
  const zrUnits units;
  EXPECT_EQ(units.unitSwap(1, 0, 7.0), 7.0 * 39.3700788);
  EXPECT_EQ(units.unitSwap(1, 2, 7.0), 7.0 * 3.2808399);
  EXPECT_EQ(units.unitSwap(1, 3, 7.0), 7.0 * 0.0006214);
  // By factors of their own: the ratios would give other last digits.
  static_assert(11.0 * 39.3700788 != 11.0 / inch);
  static_assert(17.0 * 3.2808399 != 17.0 / foot);
  static_assert(17.0 * 0.0006214 != 17.0 / mile);
  EXPECT_EQ(units.unitSwap(1, 0, 11.0), 11.0 * 39.3700788);
  EXPECT_EQ(units.unitSwap(1, 2, 17.0), 17.0 * 3.2808399);
  EXPECT_EQ(units.unitSwap(1, 3, 17.0), 17.0 * 0.0006214);
  EXPECT_EQ(units.unitSwap(1, 6, 7.0), 7.0 * 0.001);
  for (const int to : {4, 7, 8, 10, -1, 0x42}) EXPECT_EQ(units.unitSwap(1, to, 7.0), 7.0);
}

TEST(UnitSwap, KeptSwapCrossesKilometresAndDecimetres) {
  const zrUnits units;
  EXPECT_EQ(units.unitSwap(1, 5, 3.0), 30.0);
  EXPECT_EQ(units.unitSwap(1, 9, 3.0), 3.0 * 0.001);
  // There and back multiplies by 10000, or divides by as much.
  EXPECT_EQ(units.unitSwap(5, 1, units.unitSwap(1, 5, 3.0)), 30000.0);
  EXPECT_DOUBLE_EQ(units.unitSwap(9, 1, units.unitSwap(1, 9, 3.0)), 0.0003);
}

TEST(UnitSwap, GoesByWayOfMetres) {
  const zrUnits units;
  EXPECT_EQ(units.unitSwap(0, 2, 7.0), 7.0 * inch * 3.2808399);
  EXPECT_EQ(units.unitSwap(3, 5, 7.0), 7.0 * mile * 10.0);
  EXPECT_EQ(units.unitSwap(6, 9, 7.0), 7000.0 * 0.001);
}

TEST(UnitSwap, ReadsNoSuppliedRatio) {
  zrUnits units(2, 2, 2, 128);
  units.setXYUnits(8, 2.5);
  units.setZUnits(8, 2.5);
  EXPECT_EQ(units.unitSwap(8, 1, 7.0), 7.0);
  EXPECT_EQ(units.unitSwap(1, 8, 7.0), 7.0);
}

// Map scales.

TEST(ConvertScale, TakesInchesByItsTable) {
  EXPECT_EQ(zrUnits::convertScale(50000.0, 0, 1), 1000.0);
  EXPECT_EQ(zrUnits::convertScale(50000.0, 0, 7), 1000.0);
  EXPECT_EQ(zrUnits::convertScale(50000.0, 0, 2), 5000.0);
  EXPECT_EQ(zrUnits::convertScale(50000.0, 0, 3), 1.0);
  EXPECT_EQ(zrUnits::convertScale(50000.0, 0, 5), 2.0);
  EXPECT_EQ(zrUnits::convertScale(50000.0, 0, 6), 2.0);
}

TEST(ConvertScale, TakesMetresAndMillisecondsByItsTable) {
  for (const int from : {1, 7}) {
    EXPECT_EQ(zrUnits::convertScale(50000.0, from, 0), 2500000.0);
    EXPECT_EQ(zrUnits::convertScale(50000.0, from, 2), 250000.0);
    EXPECT_EQ(zrUnits::convertScale(50000.0, from, 3), 25.0);
    EXPECT_EQ(zrUnits::convertScale(50000.0, from, 5), 50.0);
    EXPECT_EQ(zrUnits::convertScale(50000.0, from, 6), 50.0);
  }
  EXPECT_EQ(zrUnits::convertScale(50000.0, 1, 7), 50000.0);
  EXPECT_EQ(zrUnits::convertScale(50000.0, 7, 1), 50000.0);
}

TEST(ConvertScale, TakesFeetByItsTable) {
  EXPECT_EQ(zrUnits::convertScale(50000.0, 2, 0), 500000.0);
  EXPECT_EQ(zrUnits::convertScale(50000.0, 2, 1), 10000.0);
  EXPECT_EQ(zrUnits::convertScale(50000.0, 2, 7), 10000.0);
  EXPECT_EQ(zrUnits::convertScale(50000.0, 2, 3), 10.0);
  EXPECT_EQ(zrUnits::convertScale(50000.0, 2, 5), 20.0);
  EXPECT_EQ(zrUnits::convertScale(50000.0, 2, 6), 20.0);
}

TEST(ConvertScale, TakesMilesByItsTable) {
  EXPECT_EQ(zrUnits::convertScale(500.0, 3, 0), 25000000.0);
  EXPECT_EQ(zrUnits::convertScale(500.0, 3, 1), 1000000.0);
  EXPECT_EQ(zrUnits::convertScale(500.0, 3, 7), 1000000.0);
  EXPECT_EQ(zrUnits::convertScale(500.0, 3, 2), 2500000.0);
  EXPECT_EQ(zrUnits::convertScale(500.0, 3, 5), 1000.0);
  EXPECT_EQ(zrUnits::convertScale(500.0, 3, 6), 1000.0);
}

TEST(ConvertScale, TakesKilometresAndSecondsByItsTable) {
  for (const int from : {5, 6}) {
    EXPECT_EQ(zrUnits::convertScale(500.0, from, 0), 12500000.0);
    EXPECT_EQ(zrUnits::convertScale(500.0, from, 1), 500000.0);
    EXPECT_EQ(zrUnits::convertScale(500.0, from, 7), 500000.0);
    EXPECT_EQ(zrUnits::convertScale(500.0, from, 2), 1250000.0);
    EXPECT_EQ(zrUnits::convertScale(500.0, from, 3), 250.0);
  }
  EXPECT_EQ(zrUnits::convertScale(500.0, 5, 6), 500.0);
  EXPECT_EQ(zrUnits::convertScale(500.0, 6, 5), 500.0);
}

TEST(ConvertScale, KeptScaleKnowsNoDecimetres) {
  for (const int code : {9, 4, 8, 10, -1, 0x42}) {
    for (int other = 0; other <= 9; ++other) {
      EXPECT_EQ(zrUnits::convertScale(500.0, code, other), 500.0) << code << " to " << other;
      EXPECT_EQ(zrUnits::convertScale(500.0, other, code), 500.0) << other << " to " << code;
    }
  }
}

TEST(ConvertScale, KeptScaleIsCutDownWithoutAConversion) {
  EXPECT_EQ(zrUnits::convertScale(2600.0, 1, 1), 2600.0);
  EXPECT_EQ(zrUnits::convertScale(2650.0, 1, 1), 2600.0);
  EXPECT_EQ(zrUnits::convertScale(150.0, 1, 1), 150.0);
  EXPECT_EQ(zrUnits::convertScale(160.0, 1, 1), 150.0);
  EXPECT_EQ(zrUnits::convertScale(-1.7, 1, 1), -1.7);
  EXPECT_EQ(zrUnits::convertScale(160.0, 8, 4), 150.0);
}

/// The value in one unit, cut down.
double cutDown(double value) { return zrUnits::convertScale(value, 1, 1); }

TEST(ConvertScale, HasStrictLimitsOnTheWholePart) {
  EXPECT_EQ(cutDown(1001.0), 1000.0);
  EXPECT_EQ(cutDown(1199.0), 1100.0);
  EXPECT_EQ(cutDown(1000.0), 1000.0);
  EXPECT_EQ(cutDown(1000.9), 1000.0);
  EXPECT_EQ(cutDown(999.0), 975.0);
  EXPECT_EQ(cutDown(101.0), 100.0);
  EXPECT_EQ(cutDown(100.0), 100.0);
  EXPECT_EQ(cutDown(100.9), 100.0);
  EXPECT_EQ(cutDown(99.0), 90.0);
  EXPECT_EQ(cutDown(51.0), 50.0);
  EXPECT_EQ(cutDown(50.9), 50.0);
  EXPECT_EQ(cutDown(49.9), 49.0);
  EXPECT_EQ(cutDown(11.0), 11.0);
  EXPECT_EQ(cutDown(10.9), 10.5);
  EXPECT_EQ(cutDown(2.0), 2.0);
  EXPECT_EQ(cutDown(2.49), 2.0);
  EXPECT_EQ(cutDown(2.7), 2.5);
  EXPECT_EQ(cutDown(1.99), 1.99);
  EXPECT_EQ(cutDown(0.3), 0.3);
}

TEST(ConvertScale, CutsTowardsZero) {
  EXPECT_EQ(cutDown(-2650.0), -2600.0);
  EXPECT_EQ(cutDown(-160.0), -150.0);
  EXPECT_EQ(cutDown(-59.0), -50.0);
  EXPECT_EQ(cutDown(-11.9), -11.0);
  EXPECT_EQ(cutDown(-2.7), -2.5);
}

TEST(ConvertScale, SaturatesItsQuotients) {
  EXPECT_EQ(cutDown(1e11), 1e11);
  EXPECT_EQ(cutDown(1e12), 214748364700.0);
  EXPECT_EQ(cutDown(-1e12), -214748364800.0);
  EXPECT_EQ(cutDown(infinity), 214748364700.0);
  EXPECT_EQ(cutDown(-infinity), -214748364800.0);
  EXPECT_TRUE(std::isnan(cutDown(notANumber)));
}

/// The rules in their plainest form: one condition after the other, in 64-bit integers.
double plainScale(double value, int from, int to) {
  const bool fromMetres = from == 1 || from == 7, toMetres = to == 1 || to == 7;
  const bool fromKilometres = from == 5 || from == 6, toKilometres = to == 5 || to == 6;
  double v = value;
  if (from == 0 && toMetres) v = value / 50.0;
  if (from == 0 && to == 2) v = value / 10.0;
  if (from == 0 && to == 3) v = value / 50000.0;
  if (from == 0 && toKilometres) v = value / 25000.0;
  if (fromMetres && to == 0) v = value * 50.0;
  if (fromMetres && to == 2) v = value * 5.0;
  if (fromMetres && to == 3) v = value / 2000.0;
  if (fromMetres && toKilometres) v = value / 1000.0;
  if (from == 2 && to == 0) v = value * 10.0;
  if (from == 2 && toMetres) v = value / 5.0;
  if (from == 2 && to == 3) v = value / 5000.0;
  if (from == 2 && toKilometres) v = value / 2500.0;
  if (from == 3 && to == 0) v = value * 50000.0;
  if (from == 3 && toMetres) v = value * 2000.0;
  if (from == 3 && to == 2) v = value * 5000.0;
  if (from == 3 && toKilometres) v = value * 2.0;
  if (fromKilometres && to == 0) v = value * 25000.0;
  if (fromKilometres && toMetres) v = value * 1000.0;
  if (fromKilometres && to == 2) v = value * 2500.0;
  if (fromKilometres && to == 3) v = value * 0.5;
  const std::int64_t whole = static_cast<std::int64_t>(v);
  const std::int64_t size = whole < 0 ? -whole : whole;
  if (size > 1000) return static_cast<double>(static_cast<std::int64_t>(v / 100.0) * 100);
  if (size > 100) return static_cast<double>(static_cast<std::int64_t>(v / 25.0) * 25);
  if (size > 50) return static_cast<double>(static_cast<std::int64_t>(v / 10.0) * 10);
  if (size > 10) return static_cast<double>(whole);
  if (size > 1) return static_cast<double>(static_cast<std::int64_t>(v * 2.0)) * 0.5;
  return v;
}

TEST(ConvertScale, FollowsTheRulesOnRandomValues) {
  std::mt19937 random(20240229);
  std::uniform_real_distribution<double> exponent(-3.0, 6.0);
  std::uniform_int_distribution<int> code(-1, 10);
  for (int i = 0; i < 20000; ++i) {
    const double value = std::pow(10.0, exponent(random)) * (i % 2 == 0 ? 1.0 : -1.0);
    const int from = code(random);
    const int to = code(random);
    ASSERT_EQ(zrUnits::convertScale(value, from, to), plainScale(value, from, to))
        << value << " from " << from << " to " << to;
  }
}

}  // namespace
