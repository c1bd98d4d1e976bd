#include <zrBase/utilities/zrUnits.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// The three texts of a code, as "Feet|ft|feet". What a call leaves alone reads "-".
std::string textsOf(int code) {
  const zrUnits units;
  std::string text = "-";
  std::string shortText = "-";
  std::string xmlText = "-";
  units.getTextUnits(code, text);
  units.getShortTextUnits(code, shortText);
  units.getXmlTextUnits(code, xmlText);
  return text + "|" + shortText + "|" + xmlText;
}

TEST(UnitText, NamesEachUnit) {
  EXPECT_EQ(textsOf(0), "Inches|in|inches");
  EXPECT_EQ(textsOf(1), "Metres|m|metres");
  EXPECT_EQ(textsOf(2), "Feet|ft|feet");
  EXPECT_EQ(textsOf(3), "Miles|miles|miles");
  EXPECT_EQ(textsOf(5), "Kilometres|km|kilometres");
  EXPECT_EQ(textsOf(6), "Seconds|secs|seconds");
  EXPECT_EQ(textsOf(7), "Millisecs|msecs|millisecs");
  EXPECT_EQ(textsOf(9), "Decimetres|dm|decimetres");
}

TEST(UnitText, KeptUnitWithoutTextLeavesTheString) {
  for (const int code : {4, 8, 10, -1, 0x42, 0x82}) EXPECT_EQ(textsOf(code), "-|-|-") << code;
}

TEST(UnitText, ReplacesWhatTheStringHeld) {
  std::string text = "a much longer text than the label";
  zrUnits().getShortTextUnits(1, text);
  EXPECT_EQ(text, "m");
}

TEST(UnitText, NamesTheUnitsOfXAndZ) {
  const zrUnits units(2, 3, 7, 64);
  std::string x;
  std::string z;
  units.getXTextUnits(x);
  units.getZTextUnits(z);
  EXPECT_EQ(x + "|" + z, "Feet|Millisecs");
  units.getXShortTextUnits(x);
  units.getZShortTextUnits(z);
  EXPECT_EQ(x + "|" + z, "ft|msecs");
  units.getXmlXTextUnits(x);
  units.getXmlZTextUnits(z);
  EXPECT_EQ(x + "|" + z, "feet|millisecs");
}

/// What is expected of a word: the code that isTextUnit writes, its answer, and textToUnit.
struct Word {
  const char* word;
  int written;
  bool answer;
  int unit;
};

void expectWord(const Word& expected) {
  const zrUnits units;
  int code = -77;
  EXPECT_EQ(units.isTextUnit(expected.word, code), expected.answer) << expected.word;
  EXPECT_EQ(code, expected.written) << expected.word;
  EXPECT_EQ(units.textToUnit(expected.word), expected.unit) << expected.word;
}

TEST(UnitWords, GiveTheirCodes) {
  const std::vector<Word> words = {
      {"DECIMETRES", 9, true, 9}, {"DECIMETRE", 9, true, 9},    {"DM", 9, true, 9},
      {"KILOMETRES", 5, true, 5}, {"KILOMETRE", 5, true, 5},    {"KILO", 5, true, 5},
      {"KM", 5, true, 5},         {"INCHES", 0, true, 0},       {"INCH", 0, true, 0},
      {"IN", 0, true, 0},         {"FEET", 2, true, 2},         {"FOOT", 2, true, 2},
      {"FT", 2, true, 2},         {"MILES", 3, true, 3},        {"MILE", 3, true, 3},
      {"ML", 3, true, 3},         {"SECONDS", 6, true, 6},      {"SECOND", 6, true, 6},
      {"SEC", 6, true, 6},        {"MILLISECONDS", 7, true, 7}, {"MILLISECOND", 7, true, 7},
      {"MSEC", 7, true, 7},
  };
  for (const Word& word : words) expectWord(word);
}

TEST(UnitWords, CarryFlagsOfElevationAndDepth) {
  const std::vector<Word> words = {
      {"ELEVATION_DECIMETRES", 73, true, 73}, {"DEPTH_DECIMETRES", 137, true, 137},
      {"ELEVATION_KILOMETRES", 69, true, 69}, {"DEPTH_KILOMETRES", 133, true, 133},
      {"ELEVATION_INCHES", 64, true, 64},     {"DEPTH_INCHES", 128, true, 128},
      {"ELEVATION_FEET", 66, true, 66},       {"DEPTH_FEET", 130, true, 130},
      {"ELEVATION_MILES", 67, true, 67},      {"DEPTH_MILES", 131, true, 131},
  };
  for (const Word& word : words) expectWord(word);
  EXPECT_EQ(zrUnits().textToUnit("ELEVATION_FEET"), 0x42);
  EXPECT_EQ(zrUnits().textToUnit("DEPTH_FEET"), 0x82);
}

TEST(UnitWords, KeptMetreWordsAnswerFalse) {
  const std::vector<Word> words = {
      {"METRES", 1, false, 1},
      {"METRE", 1, false, 1},
      {"M", 1, false, 1},
      {"ELEVATION_METRES", 65, false, 1},
      {"DEPTH_METRES", 129, false, 1},
  };
  for (const Word& word : words) expectWord(word);
}

TEST(UnitWords, AreComparedWholeAndInTheirCase) {
  for (const char* word : {"",
                           " ",
                           "Metres",
                           "metres",
                           "METRES ",
                           " METRES",
                           "METER",
                           "MM",
                           "m",
                           "Feet",
                           "FEE",
                           "FEETS",
                           "KILOM",
                           "MILLI",
                           "ELEVATION_",
                           "DEPTH_",
                           "DEPTH_FOOT",
                           "DEPTH_FT",
                           "ELEVATION_M",
                           "DEPTH_KM",
                           "DEPTH_SECONDS",
                           "ELEVATION_MILLISECONDS",
                           "ELEVATION_DEPTH_FEET"}) {
    expectWord({word, -77, false, 1});
  }
}

}  // namespace
