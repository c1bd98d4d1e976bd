#include <zrBase/utilities/numberedNames.h>

#include <gtest/gtest.h>

#include <QString>

#include <climits>
#include <string>

#include "utilities/support/decimalComma.h"

using namespace std::string_literals;

namespace {

std::string numbered(std::string name, int index) {
  zrStrUtils::addUniqueNameIndex(name, index);
  return name;
}

std::string numberedQString(const char* name, int index) {
  QString text = QString::fromUtf8(name);
  zrStrUtils::addUniqueNameIndex(text, index);
  return text.toStdString();
}

/// The index by all three forms, which have to agree.
int indexOf(const char* name) {
  const int index = zrStrUtils::getUniqueNameIndex(name);
  EXPECT_EQ(zrStrUtils::getUniqueNameIndex(std::string(name)), index) << name;
  EXPECT_EQ(zrStrUtils::getUniqueNameIndex(QString::fromUtf8(name)), index) << name;
  return index;
}

TEST(AddUniqueNameIndex, AppendsALowLineAndTheDigits) {
  EXPECT_EQ(numbered("well", 3), "well_003");
  EXPECT_EQ(numbered("", 3), "_003");
  EXPECT_EQ(numberedQString("well", 3), "well_003");
  EXPECT_EQ(numberedQString("", 3), "_003");
}

TEST(AddUniqueNameIndex, AppendsTheDigitsToALowLineAtTheEnd) {
  EXPECT_EQ(numbered("well_", 3), "well_003");
  EXPECT_EQ(numbered("well_002_", 3), "well_002_003");
  EXPECT_EQ(numbered("_", 3), "_003");
  EXPECT_EQ(numberedQString("well_", 3), "well_003");
  EXPECT_EQ(numberedQString("well_002_", 3), "well_002_003");
  EXPECT_EQ(numberedQString("_", 3), "_003");
}

TEST(AddUniqueNameIndex, ReplacesANumber) {
  EXPECT_EQ(numbered("well_002", 3), "well_003");
  EXPECT_EQ(numbered("well_1_2", 3), "well_1_003");
  EXPECT_EQ(numbered("_7", 3), "_003");
  EXPECT_EQ(numbered("well_99999999999", 3), "well_003");
}

TEST(AddUniqueNameIndex, AppendsToATailThatIsNoNumber) {
  EXPECT_EQ(numbered("old_well", 3), "old_well_003");
  EXPECT_EQ(numbered("2_well", 3), "2_well_003");
  EXPECT_EQ(numbered("well_000", 3), "well_000_003");
  EXPECT_EQ(numbered("well_-5", 3), "well_-5_003");
  EXPECT_EQ(numberedQString("old_well", 3), "old_well_003");
}

TEST(AddUniqueNameIndex, KeptTailThatBeginsWithANumberGoesWhole) {
  EXPECT_EQ(numbered("well_2nd", 3), "well_003");
  EXPECT_EQ(numbered("well_ 12 old", 3), "well_003");
  EXPECT_EQ(numbered("well_+1.5", 3), "well_003");
}

TEST(AddUniqueNameIndex, KeptQStringNameKeepsItsNumber) {
  EXPECT_EQ(numberedQString("well_002", 3), "well_002_003");
  EXPECT_EQ(numberedQString("well_2nd", 3), "well_2nd_003");
  EXPECT_EQ(numberedQString("_7", 3), "_7_003");
  EXPECT_EQ(numbered("well_002", 3), "well_003");
}

TEST(AddUniqueNameIndex, WritesThreeDigitsOrMore) {
  EXPECT_EQ(numbered("w", 0), "w_000");
  EXPECT_EQ(numbered("w", 42), "w_042");
  EXPECT_EQ(numbered("w", 999), "w_999");
  EXPECT_EQ(numbered("w", 1000), "w_1000");
  EXPECT_EQ(numbered("w", -7), "w_-07");
  EXPECT_EQ(numbered("w", INT_MAX), "w_2147483647");
  EXPECT_EQ(numbered("w", INT_MIN), "w_-2147483648");
  EXPECT_EQ(numberedQString("w", 42), "w_042");
  EXPECT_EQ(numberedQString("w", -7), "w_-07");
  EXPECT_EQ(numberedQString("w", INT_MIN), "w_-2147483648");
}

TEST(AddUniqueNameIndex, LeavesOtherBytesAlone) {
  EXPECT_EQ(numbered("S\xFC"
                     "d\0_1"s,
                     3),
            "S\xFC"
            "d\0_003"s);
  EXPECT_EQ(numberedQString("S\xC3\xBC"
                            "d",
                            3),
            "S\xC3\xBC"
            "d_003");
}

TEST(GetUniqueNameIndex, ReadsWhatFollowsTheLastLowLine) {
  EXPECT_EQ(indexOf("well_002"), 2);
  EXPECT_EQ(indexOf("well_1_12"), 12);
  EXPECT_EQ(indexOf("_7"), 7);
  EXPECT_EQ(indexOf("well_2nd"), 2);
  EXPECT_EQ(indexOf("well_ +4"), 4);
  EXPECT_EQ(indexOf("well_-5"), -5);
  EXPECT_EQ(indexOf("well_99999999999"), INT_MAX);
  EXPECT_EQ(indexOf("well_-99999999999"), INT_MIN);
}

TEST(GetUniqueNameIndex, IsZeroWithoutANumber) {
  EXPECT_EQ(indexOf("well"), 0);
  EXPECT_EQ(indexOf("well12"), 0);
  EXPECT_EQ(indexOf("well_"), 0);
  EXPECT_EQ(indexOf("12_"), 0);
  EXPECT_EQ(indexOf("12_well"), 0);
  EXPECT_EQ(indexOf("_"), 0);
  EXPECT_EQ(indexOf(""), 0);
  // An Arabic-Indic digit two is no digit here.
  EXPECT_EQ(indexOf("well_\xD9\xA2"), 0);
}

TEST(GetUniqueNameIndex, TakesANullPointerForAnEmptyName) {
  EXPECT_EQ(zrStrUtils::getUniqueNameIndex(static_cast<const char*>(nullptr)), 0);
}

TEST(GetUniqueNameIndex, FindsTheIndexThatWasAdded) {
  for (const char* name : {"well", "well_", "well_12", "old_well", ""}) {
    for (const int index : {-1000, -1, 0, 1, 12, 4711, INT_MAX, INT_MIN}) {
      EXPECT_EQ(indexOf(numbered(name, index).c_str()), index) << name;
      EXPECT_EQ(indexOf(numberedQString(name, index).c_str()), index) << name;
    }
  }
}

TEST(NumberedNames, AreTheSameInEveryLocale) {
  const DecimalComma comma;
  ASSERT_TRUE(DecimalComma::holds());
  EXPECT_EQ(numbered("w", 1234567), "w_1234567");
  EXPECT_EQ(numberedQString("w", 1234567), "w_1234567");
  EXPECT_EQ(indexOf("w_1.234"), 1);
}

}  // namespace
