#include <zrBase/utilities/textNumbers.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "utilities/support/decimalComma.h"

using namespace std::string_literals;
using zrStrUtils::calculateDefaultPrecision;
using zrStrUtils::hexStringToInt;
using zrStrUtils::isNumericChar;
using zrStrUtils::isNumericString;
using zrStrUtils::nullValue;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::string hexOf(int value) {
  std::string text = "what was there before";
  zrStrUtils::intToHexString(text, value);
  return text;
}

TEST(IsNumericChar, KnowsItsCharactersByTheirCodes) {
  const std::string numeric = "0123456789\t +-.";
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    EXPECT_EQ(isNumericChar(c), numeric.find(c) != std::string::npos) << code;
  }
}

TEST(IsNumericChar, KeptNumericCharTakesBlanksButNoExponent) {
  EXPECT_TRUE(isNumericChar(' '));
  EXPECT_TRUE(isNumericChar('\t'));
  EXPECT_FALSE(isNumericString(" "));
  EXPECT_FALSE(isNumericString("1\t2"));
  EXPECT_FALSE(isNumericChar('E'));
  EXPECT_FALSE(isNumericChar('e'));
  EXPECT_TRUE(isNumericString("E"));
  EXPECT_TRUE(isNumericString("e"));
}

TEST(IsNumericString, KnowsItsCharactersByTheirCodes) {
  const std::string numeric = "0123456789+-.Ee";
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    const bool isNumeric = numeric.find(c) != std::string::npos;
    EXPECT_EQ(isNumericString(std::string(1, c)), isNumeric) << code;
    EXPECT_EQ(isNumericString("12"s + c + "34"), isNumeric) << code;
  }
}

TEST(IsNumericString, IsFalseForAnEmptyText) { EXPECT_FALSE(isNumericString("")); }

TEST(IsNumericString, TakesNumbers) {
  for (const char* text : {"0", "-12.5", "+1.5E-3", "1e10"}) EXPECT_TRUE(isNumericString(text));
  for (const char* text : {" 1", "1 ", "1,5", "1D3", "0x1", "nan"}) {
    EXPECT_FALSE(isNumericString(text)) << text;
  }
}

TEST(IsNumericString, KeptNumericStringChecksCharactersOnly) {
  EXPECT_TRUE(isNumericString("e-+"));
  EXPECT_TRUE(isNumericString("1.2.3"));
  EXPECT_TRUE(isNumericString("-"));
}

TEST(HexStringToInt, ReadsDigitsOfEitherCase) {
  EXPECT_EQ(hexStringToInt("0"), 0);
  EXPECT_EQ(hexStringToInt("9"), 9);
  EXPECT_EQ(hexStringToInt("A"), 10);
  EXPECT_EQ(hexStringToInt("f"), 15);
  EXPECT_EQ(hexStringToInt("1F"), 31);
  EXPECT_EQ(hexStringToInt("fA0"), 4000);
  EXPECT_EQ(hexStringToInt("12345678"), 0x12345678);
  EXPECT_EQ(hexStringToInt("abcdef"), 0xABCDEF);
  EXPECT_EQ(hexStringToInt("7FFFFFFF"), INT_MAX);
}

TEST(HexStringToInt, PassesOverThePrefix) {
  EXPECT_EQ(hexStringToInt("0x1F"), 31);
  EXPECT_EQ(hexStringToInt("0X1f"), 31);
  EXPECT_EQ(hexStringToInt("x"), 0);
  EXPECT_EQ(hexStringToInt("0x"), 0);
}

TEST(HexStringToInt, KeptHexPrefixEndsTheReading) {
  EXPECT_EQ(hexStringToInt("x1F"), 31);
  EXPECT_EQ(hexStringToInt("12x1F"), 31);
  EXPECT_EQ(hexStringToInt("no number 0x1F"), 31);
  EXPECT_EQ(hexStringToInt("1xGG"), 0);
  EXPECT_EQ(hexStringToInt("1Fx"), 0);
  EXPECT_EQ(hexStringToInt("x1x2"), 2);
}

TEST(HexStringToInt, IsZeroWithAnyOtherCharacter) {
  for (const char* text :
       {"1G", "G1", "-1F", "1F ", " 1F", "1.F", "@1", "`1", "/1", ":1", "\xFF"}) {
    EXPECT_EQ(hexStringToInt(text), 0) << text;
  }
}

TEST(HexStringToInt, IsZeroForAnEmptyText) {
  EXPECT_EQ(hexStringToInt(""), 0);
  EXPECT_EQ(hexStringToInt(nullptr), 0);
}

TEST(HexStringToInt, CountsModuloTwoToTheThirtyTwo) {
  EXPECT_EQ(hexStringToInt("FFFFFFFF"), -1);
  EXPECT_EQ(hexStringToInt("80000000"), INT_MIN);
  EXPECT_EQ(hexStringToInt("FFFFFFF0"), -16);
  EXPECT_EQ(hexStringToInt("100000000"), 0);
  EXPECT_EQ(hexStringToInt("F00000001F"), 31);
  EXPECT_EQ(hexStringToInt(std::string(1000, 'F').c_str()), -1);
  EXPECT_EQ(hexStringToInt(("G" + std::string(1000, 'F')).c_str()), 0);
}

TEST(IntToHexString, WritesUpperCaseDigits) {
  EXPECT_EQ(hexOf(0), "0");
  EXPECT_EQ(hexOf(9), "9");
  EXPECT_EQ(hexOf(10), "A");
  EXPECT_EQ(hexOf(15), "F");
  EXPECT_EQ(hexOf(16), "10");
  EXPECT_EQ(hexOf(31), "1F");
  EXPECT_EQ(hexOf(0xABCDEF), "ABCDEF");
  EXPECT_EQ(hexOf(INT_MAX), "7FFFFFFF");
}

TEST(IntToHexString, KeptNegativeHexHoldsOnlyItsZeros) {
  EXPECT_EQ(hexOf(-1), "");
  EXPECT_EQ(hexOf(-15), "");
  EXPECT_EQ(hexOf(-16), "0");
  EXPECT_EQ(hexOf(-32), "0");
  EXPECT_EQ(hexOf(-256), "00");
  // -257 is -16 times 16 and -1; -16 is -1 times 16 and 0.
  EXPECT_EQ(hexOf(-257), "0");
  EXPECT_EQ(hexOf(INT_MIN), "0000000");
}

TEST(IntToHexString, IsReadBackByHexStringToInt) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> number(0, INT_MAX);
  for (int i = 0; i < 2000; ++i) {
    const int value = number(random) >> (i % 31);
    EXPECT_EQ(hexStringToInt(hexOf(value).c_str()), value);
  }
}

TEST(CalculateDefaultPrecision, TakesTheDistanceOfTheLimits) {
  EXPECT_EQ(calculateDefaultPrecision(0, 10), 3);
  EXPECT_EQ(calculateDefaultPrecision(10, 0), 3);
  EXPECT_EQ(calculateDefaultPrecision(-1000, -990), 3);
  EXPECT_EQ(calculateDefaultPrecision(-50000, 50000), 0);
}

TEST(CalculateDefaultPrecision, HasStrictBounds) {
  const double bounds[] = {99998.0, 89.9, 48.9, 8.9, 0.8, 0.08, 0.008};
  const int above[] = {0, 1, 2, 3, 4, 5, 6};
  const int at[] = {1, 2, 3, 4, 5, 6, 8};
  for (int i = 0; i < 7; ++i) {
    EXPECT_EQ(calculateDefaultPrecision(0.0, std::nextafter(bounds[i], infinity)), above[i]);
    EXPECT_EQ(calculateDefaultPrecision(0.0, bounds[i]), at[i]);
    EXPECT_EQ(calculateDefaultPrecision(0.0, -bounds[i]), at[i]);
  }
}

TEST(CalculateDefaultPrecision, IsTwoForTwoZeros) {
  EXPECT_EQ(calculateDefaultPrecision(0, 0), 2);
  EXPECT_EQ(calculateDefaultPrecision(0.0, -0.0), 2);
}

TEST(CalculateDefaultPrecision, TakesTheValueWhereTheLimitsAreEqual) {
  EXPECT_EQ(calculateDefaultPrecision(100, 100), 1);
  EXPECT_EQ(calculateDefaultPrecision(0.5, 0.5), 5);
  EXPECT_EQ(calculateDefaultPrecision(1e-300, 1e-300), 8);
}

TEST(CalculateDefaultPrecision, KeptNegativeValueHasEightDecimals) {
  EXPECT_EQ(calculateDefaultPrecision(-100, -100), 8);
  EXPECT_EQ(calculateDefaultPrecision(-1e6, -1e6), 8);
}

TEST(CalculateDefaultPrecision, KeptSevenDecimalsDoNotOccur) {
  EXPECT_EQ(calculateDefaultPrecision(0, 0.0081), 6);
  EXPECT_EQ(calculateDefaultPrecision(0, 0.0079), 8);
  for (double d = 1e6; d > 1e-12; d *= 0.9) EXPECT_NE(calculateDefaultPrecision(0, d), 7);
}

TEST(CalculateDefaultPrecision, IsEightForWhatIsNoNumber) {
  EXPECT_EQ(calculateDefaultPrecision(notANumber, 1), 8);
  EXPECT_EQ(calculateDefaultPrecision(1, notANumber), 8);
  EXPECT_EQ(calculateDefaultPrecision(infinity, infinity), 8);
  EXPECT_EQ(calculateDefaultPrecision(0, infinity), 0);
  EXPECT_EQ(calculateDefaultPrecision(-infinity, 0), 0);
}

TEST(NullValue, IsTheSameText) {
  EXPECT_TRUE(nullValue(" -999.25 ", "-999.25"));
  EXPECT_TRUE(nullValue("\t\"-999.25\"\r", "-999.25"));
  EXPECT_TRUE(nullValue("n/a", "n/a"));
  EXPECT_TRUE(nullValue("", ""));
  EXPECT_TRUE(nullValue(" \" ", ""));
  EXPECT_TRUE(nullValue("0", "0"));
}

TEST(NullValue, IsTheSameNumber) {
  EXPECT_TRUE(nullValue("-999.250", "-999.25"));
  EXPECT_TRUE(nullValue("-9.9925e2", "-999.25"));
  EXPECT_TRUE(nullValue("-999.25 m", "-999.25"));
  EXPECT_TRUE(nullValue("-999.25", " -999.25 "));
  EXPECT_FALSE(nullValue("-999.26", "-999.25"));
  EXPECT_FALSE(nullValue("999.25", "-999.25"));
}

TEST(NullValue, IsWithinAHundredOfALargeNull) {
  EXPECT_TRUE(nullValue("99999", "99990"));
  EXPECT_TRUE(nullValue("99900", "99990"));
  EXPECT_FALSE(nullValue("99890", "99990"));
  EXPECT_TRUE(nullValue("99890.1", "99990"));
  EXPECT_TRUE(nullValue("-99890.1", "-99990"));
  EXPECT_FALSE(nullValue("-99890", "-99990"));
  EXPECT_FALSE(nullValue("99990", "-99990"));
  EXPECT_FALSE(nullValue("-99990", "99990"));
}

TEST(NullValue, IsLargeOnlyBeyondElevenThousand) {
  EXPECT_FALSE(nullValue("10999", "11000"));
  EXPECT_FALSE(nullValue("20000", "11000"));
  EXPECT_TRUE(nullValue("10950", "11000.5"));
  EXPECT_FALSE(nullValue("-10999", "-11000"));
  EXPECT_TRUE(nullValue("-10950", "-11000.5"));
}

TEST(NullValue, KeptLargeNullTakesAllBeyondIt) {
  EXPECT_TRUE(nullValue("120000", "99999"));
  EXPECT_TRUE(nullValue("-120000", "-99999"));
}

TEST(NullValue, IsAnythingFromATrillion) {
  for (const char* value : {"1e12", "-1e12", "1000000000000", "1e400", "-1e400", "1e30 m"}) {
    EXPECT_TRUE(nullValue(value, "-999.25")) << value;
    EXPECT_TRUE(nullValue(value, "0")) << value;
  }
  EXPECT_FALSE(nullValue("999999999999", "-999.25"));
  EXPECT_FALSE(nullValue("999999999999", "0"));
}

TEST(NullValue, IsAWordBesideAnyNull) {
  EXPECT_TRUE(nullValue("abc", "0"));
  EXPECT_TRUE(nullValue("abc", "-999.25"));
  EXPECT_TRUE(nullValue("", "-999.25"));
  EXPECT_TRUE(nullValue("inf", "-999.25"));
  EXPECT_TRUE(nullValue("nan", "-999.25"));
  EXPECT_TRUE(nullValue("0x1F", "-999.25"));
  EXPECT_TRUE(nullValue("5 m", "0"));
  EXPECT_TRUE(nullValue("5 m", "none"));
  EXPECT_FALSE(nullValue("5 m", "-999.25"));
}

TEST(NullValue, KeptZeroIsNullOnlyAsTheSameText) {
  EXPECT_FALSE(nullValue("0.0", "0"));
  EXPECT_FALSE(nullValue("-0", "0"));
  EXPECT_FALSE(nullValue("0", "-999.25"));
  EXPECT_FALSE(nullValue("5", "0"));
  EXPECT_FALSE(nullValue("5", "none"));
  // Made of the right characters, so no word, though it reads as 0.
  EXPECT_FALSE(nullValue("e-+", "0"));
  EXPECT_FALSE(nullValue(".", "-999.25"));
}

TEST(NullValue, EndsItsNumbersAtANulByte) {
  EXPECT_TRUE(
      nullValue("-999.25\0"
                "1"s,
                "-999.25"));
  EXPECT_TRUE(nullValue("\0"s, "-999.25"));
}

TEST(NullValue, TakesTheNumberOfTheNullValueAsGiven) {
  EXPECT_TRUE(nullValue("-999.25", "none", -999.25));
  EXPECT_TRUE(nullValue("none", "none", -999.25));
  EXPECT_FALSE(nullValue("-999", "-999.0", -999.25));
  EXPECT_TRUE(nullValue("99999", "none", 99990.0));
  EXPECT_TRUE(nullValue("abc", "", 0.0));
  EXPECT_FALSE(nullValue("5", "none", notANumber));
  EXPECT_TRUE(nullValue("1e12", "none", notANumber));
  EXPECT_FALSE(nullValue("5", "none", infinity));
  EXPECT_FALSE(nullValue("5", "none", -infinity));
  EXPECT_FALSE(nullValue("-0", "none", -0.0));
}

TEST(NullValue, ReadsADecimalPointInEveryLocale) {
  const DecimalComma comma;
  ASSERT_TRUE(DecimalComma::holds());
  EXPECT_TRUE(nullValue("-999.250", "-999.25"));
  EXPECT_FALSE(nullValue("-999.5", "-999.25"));
}

TEST(HexStrings, AreTheSameInEveryLocale) {
  const DecimalComma comma;
  ASSERT_TRUE(DecimalComma::holds());
  EXPECT_EQ(hexOf(1234567), "12D687");
  EXPECT_EQ(hexStringToInt("12D687"), 1234567);
}

/// The rules in their order, with the functions of C, which the tests run in the C locale.
bool nullByTheRules(const std::string& value, const std::string& null) {
  std::string t = value;
  const std::string blanks = " \t\n\v\f\r\"";
  while (!t.empty() && blanks.find(t.front()) != std::string::npos) t.erase(t.begin());
  while (!t.empty() && blanks.find(t.back()) != std::string::npos) t.pop_back();
  if (t == null) return true;
  const double v = std::atof(t.c_str());
  const double n = std::atof(null.c_str());
  const bool isNumeric = !t.empty() && t.find_first_not_of("0123456789+-.Ee") == std::string::npos;
  if (v == 0.0 || n == 0.0) {
    if (!isNumeric) return true;
    return std::fabs(v) >= 1000000000000.0;
  }
  if (v == n) return true;
  if (std::fabs(v) >= 1000000000000.0) return true;
  if (n > 11000.0) return v > n - 100.0;
  if (n < -11000.0) return v < n + 100.0;
  return false;
}

TEST(NullValue, FollowsItsRulesOnRandomTexts) {
  std::mt19937 random(11);
  const std::string pieces[] = {"0",    "-",   "99999", "99900", "11000",  "10901",
                                "-999", ".25", "e3",    "1e12",  " ",      "\"",
                                "m",    "5",   "12000", "+",     "-12000", "-11901"};
  std::uniform_int_distribution<std::size_t> piece(0, std::size(pieces) - 1);
  std::uniform_int_distribution<int> count(0, 3);
  int nulls = 0;
  for (int i = 0; i < 10000; ++i) {
    std::string value;
    std::string null;
    for (int k = count(random); k > 0; --k) value += pieces[piece(random)];
    for (int k = count(random) / 2 + 1; k > 0; --k) null += pieces[piece(random)];
    const bool expected = nullByTheRules(value, null);
    ASSERT_EQ(nullValue(value, null), expected) << "'" << value << "', '" << null << "'";
    ASSERT_EQ(nullValue(value, null, std::atof(null.c_str())), expected);
    if (expected) ++nulls;
  }
  EXPECT_GT(nulls, 1000);
  EXPECT_LT(nulls, 9000);
}

}  // namespace
