#include <zrBase/utilities/zrUnits.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

namespace {

constexpr double inch = 2.5399999961392e-2;
constexpr double foot = 3.04799999536704e-1;
constexpr double mile = 1.6092693916961698e3;

void expectCodes(const zrUnits& units, int x, int y, int z, int direction) {
  EXPECT_EQ(units.getXUnits(), x);
  EXPECT_EQ(units.getYUnits(), y);
  EXPECT_EQ(units.getZUnits(), z);
  EXPECT_EQ(units.getZDirection(), direction);
}

void expectRatios(const zrUnits& units, double x, double y, double z) {
  EXPECT_EQ(units.getXRatio(), x);
  EXPECT_EQ(units.getYRatio(), y);
  EXPECT_EQ(units.getZRatio(), z);
}

// Construction, copies, equality.

TEST(Units, AreMetresUpAtFirst) {
  const zrUnits units;
  expectCodes(units, 1, 1, 1, 64);
  expectRatios(units, 1.0, 1.0, 1.0);
  EXPECT_TRUE(units.inElevation());
}

TEST(Units, TakeCodesAndADirection) {
  const zrUnits units(2, 3, 0, 128);
  expectCodes(units, 2, 3, 0, 128);
  expectRatios(units, foot, mile, -inch);
}

TEST(Units, ArePlainRecords) {
  EXPECT_TRUE(std::is_trivially_copyable_v<zrUnits>);
  EXPECT_FALSE(std::is_polymorphic_v<zrUnits>);
  zrUnits units;
  EXPECT_EQ(&units.getUnits(), &units);
}

TEST(Units, CopySuppliedRatios) {
  zrUnits custom(8, 8, 8, 128);
  custom.setXYUnits(8, 2.5);
  custom.setZUnits(8, 7.0);
  zrUnits assigned;
  assigned = custom;
  expectCodes(assigned, 8, 8, 8, 128);
  expectRatios(assigned, 2.5, 2.5, 7.0);
  zrUnits set;
  set.setUnits(custom);
  expectCodes(set, 8, 8, 8, 128);
  expectRatios(set, 2.5, 2.5, 7.0);
}

TEST(Units, AreEqualByCodesAndDirection) {
  const zrUnits units(1, 2, 3, 64);
  EXPECT_TRUE(units.equal(zrUnits(1, 2, 3, 64)));
  EXPECT_FALSE(units.equal(zrUnits(0, 2, 3, 64)));
  EXPECT_FALSE(units.equal(zrUnits(1, 0, 3, 64)));
  EXPECT_FALSE(units.equal(zrUnits(1, 2, 0, 64)));
  EXPECT_FALSE(units.equal(zrUnits(1, 2, 3, 128)));
  // 0 and 64 both mean elevation, and differ.
  EXPECT_FALSE(units.equal(zrUnits(1, 2, 3, 0)));
}

TEST(Units, KeptEqualUnitsIgnoreTheirRatios) {
  zrUnits one(8, 8, 8, 64);
  zrUnits other(8, 8, 8, 64);
  one.setXYUnits(8, 2.5);
  one.setZUnits(8, 4.0);
  other.setXYUnits(8, 3.5);
  EXPECT_TRUE(one.equal(other));
}

// Ratios of the codes.

TEST(UnitsSetRatio, LooksTheTableUp) {
  zrUnits units;
  EXPECT_EQ(units.setRatio(1), 1.0);
  EXPECT_EQ(units.setRatio(4), 1.0);
  EXPECT_EQ(units.setRatio(5), 1000.0);
  EXPECT_EQ(units.setRatio(6), 1000.0);
  EXPECT_EQ(units.setRatio(7), 1.0);
  EXPECT_EQ(units.setRatio(8), 1.0);
  EXPECT_EQ(units.setRatio(9), 0.1);
}

TEST(UnitsSetRatio, KeptFootAndMileAreNotInternational) {
  zrUnits units;
  EXPECT_EQ(units.setRatio(0), inch);
  EXPECT_EQ(units.setRatio(2), foot);
  EXPECT_EQ(units.setRatio(3), mile);
  EXPECT_NE(units.setRatio(0), 0.0254);
  EXPECT_NE(units.setRatio(2), 0.3048);
  EXPECT_NE(units.setRatio(3), 1609.344);
}

TEST(UnitsSetRatio, GivesOneOutsideTheTable) {
  zrUnits units;
  for (const int code : {10, 11, 0x40, 0x42, 0x82, -1, -2, std::numeric_limits<int>::max(),
                         std::numeric_limits<int>::min()}) {
    EXPECT_EQ(units.setRatio(code), 1.0) << code;
  }
}

TEST(UnitsSetRatio, KeptSetRatioStoresNothing) {
  zrUnits units(2, 2, 2, 128);
  EXPECT_EQ(units.setRatio(5), 1000.0);
  expectCodes(units, 2, 2, 2, 128);
  expectRatios(units, foot, foot, -foot);
}

// Setters.

TEST(UnitsSetUnits, NegatesTheRatioOfZInDepthAlone) {
  zrUnits units;
  units.setUnits(5, 9, 2, 128);
  expectRatios(units, 1000.0, 0.1, -foot);
  units.setUnits(5, 9, 2, 64);
  expectRatios(units, 1000.0, 0.1, foot);
  units.setUnits(5, 9, 2, 129);
  expectCodes(units, 5, 9, 2, 129);
  expectRatios(units, 1000.0, 0.1, foot);
}

TEST(UnitsSetUnits, TakesWords) {
  zrUnits units;
  units.setUnits("FEET", "FEET", "FEET", 128);
  expectCodes(units, 2, 2, 2, 128);
  EXPECT_EQ(units.getZRatio(), -0.304799999536704);
  EXPECT_LT(units.u2mZ(10.0), 0.0);
}

TEST(UnitsSetUnits, TakesUnknownWordsForMetres) {
  zrUnits units(2, 2, 2, 64);
  units.setUnits("feet", "", "FEET ", 64);
  expectCodes(units, 1, 1, 1, 64);
  expectRatios(units, 1.0, 1.0, 1.0);
}

TEST(UnitsSetUnits, KeptFlaggedWordIsStoredAsItsCode) {
  zrUnits units;
  units.setUnits("ELEVATION_MILES", "DEPTH_METRES", "DEPTH_FEET", 64);
  expectCodes(units, 0x43, 1, 0x82, 64);
  expectRatios(units, 1.0, 1.0, 1.0);
  EXPECT_TRUE(units.inElevation());
  std::string text = "as before";
  units.getZTextUnits(text);
  EXPECT_EQ(text, "as before");
}

TEST(UnitsSetXUnits, LeavesTheOtherAxes) {
  zrUnits units(1, 1, 8, 64);
  units.setZUnits(8, 2.5);
  units.setXUnits(3);
  expectCodes(units, 3, 1, 8, 64);
  expectRatios(units, mile, 1.0, 2.5);
}

TEST(UnitsSetYUnits, LeavesTheOtherAxes) {
  zrUnits units(1, 1, 8, 64);
  units.setZUnits(8, 2.5);
  units.setYUnits(0);
  expectCodes(units, 1, 0, 8, 64);
  expectRatios(units, 1.0, inch, 2.5);
}

TEST(UnitsSetXYUnits, StoresBoth) {
  zrUnits units(1, 1, 2, 128);
  units.setXYUnits(9);
  expectCodes(units, 9, 9, 2, 128);
  expectRatios(units, 0.1, 0.1, -foot);
  EXPECT_EQ(units.getXYUnits(), 9);
}

TEST(UnitsSetXYUnits, DropsSuppliedRatios) {
  zrUnits units;
  units.setXYUnits(8, 2.5);
  expectRatios(units, 2.5, 2.5, 1.0);
  units.setXYUnits(8);
  expectRatios(units, 1.0, 1.0, 1.0);
}

TEST(UnitsSetXYUnits, KeptMapUnitsRebuildTheZRatio) {
  zrUnits units(1, 1, 8, 128);
  units.setZUnits(8, 2.5);
  units.setXYUnits(2);
  expectRatios(units, foot, foot, -1.0);
  // Not so the form with a ratio.
  units.setZUnits(8, 2.5);
  units.setXYUnits(2, 9.0);
  expectRatios(units, foot, foot, 2.5);
  units.setXYUnits(8, 9.0);
  expectRatios(units, 9.0, 9.0, 2.5);
}

TEST(UnitsSetXYUnits, IgnoresTheRatioOfAKnownUnit) {
  zrUnits units;
  units.setXYUnits(5, 2.5);
  expectCodes(units, 5, 5, 1, 64);
  expectRatios(units, 1000.0, 1000.0, 1.0);
  units.setXYUnits(4, 2.5);
  expectRatios(units, 1.0, 1.0, 1.0);
}

TEST(UnitsSetZUnits, TakesTheSignOfTheDirection) {
  zrUnits units(1, 1, 1, 128);
  units.setZUnits(5);
  expectCodes(units, 1, 1, 5, 128);
  expectRatios(units, 1.0, 1.0, -1000.0);
  units.setZUnits(2, 2.5);
  expectRatios(units, 1.0, 1.0, -foot);
  units.setZUnits(8);
  expectRatios(units, 1.0, 1.0, -1.0);
}

TEST(UnitsSetZUnits, KeptSuppliedZRatioTakesNoSign) {
  zrUnits units(1, 1, 1, 128);
  units.setZUnits(8, 2.5);
  expectCodes(units, 1, 1, 8, 128);
  EXPECT_EQ(units.getZRatio(), 2.5);
  units.setZUnits(8, -2.5);
  EXPECT_EQ(units.getZRatio(), -2.5);
}

TEST(UnitsSetZDirection, KeptZDirectionDropsTheSuppliedRatio) {
  zrUnits units(1, 1, 1, 128);
  units.setZUnits(8, 2.5);
  units.setZDirection(128);
  EXPECT_EQ(units.getZRatio(), -1.0);
  units.setZUnits(8, 2.5);
  units.setZDirection(64);
  EXPECT_EQ(units.getZRatio(), 1.0);
}

TEST(UnitsSetZDirection, FlipsTheRatio) {
  zrUnits units(8, 1, 2, 64);
  units.setXYUnits(8, 2.5);
  units.setZDirection(128);
  expectRatios(units, 2.5, 2.5, -foot);
  EXPECT_TRUE(units.inDepth());
  units.setZDirection(7);
  expectCodes(units, 8, 8, 2, 7);
  expectRatios(units, 2.5, 2.5, foot);
  EXPECT_FALSE(units.inDepth());
}

// Queries.

TEST(UnitsQueries, TellEachAxis) {
  const zrUnits units(0, 2, 3, 128);
  EXPECT_EQ(units.getXUnits(), 0);
  EXPECT_EQ(units.getXYUnits(), 0);
  EXPECT_EQ(units.getYUnits(), 2);
  EXPECT_EQ(units.getZUnits(), 3);
  EXPECT_EQ(units.getXRatio(), inch);
  EXPECT_EQ(units.getYRatio(), foot);
  EXPECT_EQ(units.getZRatio(), -mile);
}

TEST(UnitsQueries, TakeAllButDepthForElevation) {
  EXPECT_TRUE(zrUnits(1, 1, 1, 128).inDepth());
  EXPECT_FALSE(zrUnits(1, 1, 1, 128).inElevation());
  for (const int direction : {64, 0, 1, 127, 129, 192, -128}) {
    EXPECT_FALSE(zrUnits(1, 1, 1, direction).inDepth()) << direction;
    EXPECT_TRUE(zrUnits(1, 1, 1, direction).inElevation()) << direction;
  }
}

TEST(UnitsQueries, KnowTimeByTheCodeOfZ) {
  for (int code = -1; code <= 10; ++code) {
    EXPECT_EQ(zrUnits(6, 7, code, 64).inTime(), code == 6 || code == 7) << code;
  }
}

std::string directionText(int direction) {
  std::string text = "as before";
  zrUnits(1, 1, 1, direction).getZDirectionXmlText(text);
  return text;
}

std::string typeText(int zCode, int direction) {
  std::string text = "as before";
  zrUnits(1, 1, zCode, direction).getZTypeXmlText(text);
  return text;
}

TEST(UnitsXmlText, TellsTheDirection) {
  EXPECT_EQ(directionText(64), "positive");
  EXPECT_EQ(directionText(128), "negative");
}

TEST(UnitsXmlText, KeptUnknownDirectionReadsNegative) {
  EXPECT_EQ(directionText(0), "negative");
  EXPECT_EQ(directionText(192), "negative");
  EXPECT_TRUE(zrUnits(1, 1, 1, 0).inElevation());
}

TEST(UnitsXmlText, KeptDepthReadsElevation) {
  EXPECT_EQ(typeText(1, 128), "elevation");
  EXPECT_EQ(typeText(1, 64), "elevation");
  EXPECT_EQ(typeText(6, 64), "time");
  EXPECT_EQ(typeText(7, 128), "time");
}

}  // namespace
