#include <zrBase/utilities/textFields.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "utilities/support/decimalComma.h"

using namespace std::string_literals;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// The field as a string; "left alone" where the call does not touch its output.
std::string fieldOf(const std::string& text, int first, int last) {
  std::string out = "left alone";
  zrStrUtils::getString(text, first, last, out);
  return out;
}

std::string fieldOfChars(const char* text, int first, int last) {
  std::string out = "left alone";
  zrStrUtils::getStringFromChar(text, first, last, out);
  return out;
}

/// The whole of a text as a number.
double doubleOf(const std::string& text) {
  return zrStrUtils::getDouble(text, 1, static_cast<int>(text.size()));
}

int intOf(const std::string& text) {
  return zrStrUtils::getInt(text, 1, static_cast<int>(text.size()));
}

TEST(GetInt, ReadsTheNumberAmongItsBlanks) { EXPECT_EQ(zrStrUtils::getInt("  12  ", 1, 6), 12); }

TEST(GetInt, CutsALastColumnBeyondTheEnd) {
  EXPECT_EQ(zrStrUtils::getInt("12", 1, 99), 12);
  EXPECT_EQ(zrStrUtils::getInt("12", 2, INT_MAX), 2);
}

TEST(GetInt, IsZeroForAFieldBeyondTheText) {
  EXPECT_EQ(zrStrUtils::getInt("12", 3, 4), 0);
  EXPECT_EQ(zrStrUtils::getInt("", 1, 1), 0);
  EXPECT_EQ(zrStrUtils::getInt("12", INT_MAX, INT_MAX), 0);
}

TEST(GetInt, IsZeroForAColumnBelowOne) {
  EXPECT_EQ(zrStrUtils::getInt("12", 0, 1), 0);
  EXPECT_EQ(zrStrUtils::getInt("12", -1, 2), 0);
  EXPECT_EQ(zrStrUtils::getInt("12", 1, 0), 0);
  EXPECT_EQ(zrStrUtils::getInt("12", INT_MIN, INT_MIN), 0);
}

TEST(GetInt, IsZeroWhereTheLastColumnLiesBeforeTheFirst) {
  EXPECT_EQ(zrStrUtils::getInt("1234", 3, 2), 0);
  EXPECT_EQ(zrStrUtils::getInt("1234", INT_MAX, 1), 0);
}

TEST(GetInt, TakesBothEndsOfTheField) {
  EXPECT_EQ(zrStrUtils::getInt("123456", 2, 4), 234);
  EXPECT_EQ(zrStrUtils::getInt("123456", 6, 6), 6);
  EXPECT_EQ(zrStrUtils::getInt("123456", 1, 1), 1);
}

TEST(GetInt, ReadsBlanksASignAndDigits) {
  EXPECT_EQ(intOf(" \t\n\v\f\r-12"), -12);
  EXPECT_EQ(intOf("+12"), 12);
  EXPECT_EQ(intOf("0012"), 12);
  EXPECT_EQ(intOf("12.9"), 12);
  EXPECT_EQ(intOf("12 34"), 12);
  EXPECT_EQ(intOf("0x1F"), 0);
  EXPECT_EQ(intOf("1e3"), 1);
}

TEST(GetInt, IsZeroForWhatIsNoNumber) {
  for (const char* text : {"abc", "-", "+", "+-5", "-+5", "--5", "- 5", ".5", " ", "\"5\""}) {
    EXPECT_EQ(intOf(text), 0) << text;
  }
}

TEST(GetInt, SaturatesAtTheLimitsOfInt) {
  EXPECT_EQ(intOf("2147483647"), INT_MAX);
  EXPECT_EQ(intOf("2147483648"), INT_MAX);
  EXPECT_EQ(intOf("-2147483648"), INT_MIN);
  EXPECT_EQ(intOf("-2147483649"), INT_MIN);
  EXPECT_EQ(intOf("+" + std::string(400, '9')), INT_MAX);
  EXPECT_EQ(intOf("-" + std::string(400, '9')), INT_MIN);
}

TEST(GetInt, EndsAtAByteThatIsNoDigit) {
  EXPECT_EQ(intOf("12\0"
                  "34"s),
            12);
  EXPECT_EQ(intOf("\0"
                  "34"s),
            0);
  EXPECT_EQ(intOf("12\xE4"), 12);
  // A no-break space of Latin-1 is no blank.
  EXPECT_EQ(intOf("\xA0"
                  "12"),
            0);
}

TEST(GetDouble, ReadsFieldsOfACard) {
  const std::string card = "WELL   12.5-3.25E2 7";
  EXPECT_EQ(zrStrUtils::getDouble(card, 5, 11), 12.5);
  EXPECT_EQ(zrStrUtils::getDouble(card, 12, 18), -325.0);
  EXPECT_EQ(zrStrUtils::getDouble(card, 12, 16), -3.25);
  EXPECT_EQ(zrStrUtils::getDouble(card, 20, 80), 7.0);
  EXPECT_EQ(zrStrUtils::getDouble(card, 21, 80), 0.0);
  EXPECT_EQ(zrStrUtils::getDouble(card, 0, 11), 0.0);
  EXPECT_EQ(zrStrUtils::getDouble(card, 9, 0), 0.0);
  EXPECT_EQ(zrStrUtils::getDouble(card, 9, 8), 0.0);
}

TEST(GetDouble, EndsBeforeAnExponentWithoutDigitsBeyondItsRangeToo) {
  const std::string tiny = "0." + std::string(400, '0') + "1e";
  EXPECT_EQ(doubleOf(tiny + " 900"), 0.0);
  EXPECT_EQ(doubleOf(tiny + "900"), std::numeric_limits<double>::infinity());
  const std::string huge = std::string(400, '9') + "e";
  EXPECT_EQ(doubleOf(huge + " -900"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(doubleOf(huge + "-900"), 0.0);
}

TEST(GetDouble, ReadsTheLongestNumber) {
  EXPECT_EQ(doubleOf(".5"), 0.5);
  EXPECT_EQ(doubleOf("5."), 5.0);
  EXPECT_EQ(doubleOf("-.5e1x"), -5.0);
  EXPECT_EQ(doubleOf("1e"), 1.0);
  EXPECT_EQ(doubleOf("1e+"), 1.0);
  EXPECT_EQ(doubleOf("1e+-2"), 1.0);
  EXPECT_EQ(doubleOf("1.2.3"), 1.2);
  EXPECT_EQ(doubleOf("1,5"), 1.0);
  EXPECT_EQ(doubleOf("1D3"), 1.0);
  EXPECT_EQ(doubleOf("0.1"), 0.1);
  EXPECT_EQ(doubleOf("\t +1E-2"), 0.01);
}

TEST(GetDouble, ReadsDecimalFormsOnly) {
  for (const char* text : {"inf", "-inf", "INFINITY", "nan", "NAN(1)", "0x1F", "0X.8p1"}) {
    EXPECT_EQ(doubleOf(text), 0.0) << text;
  }
  for (const char* text : {".", "-", "+.", "e5", ".e5", "-.e5", "+-5", "--5", "", " "}) {
    EXPECT_EQ(doubleOf(text), 0.0) << text;
    EXPECT_FALSE(std::signbit(doubleOf(text))) << text;
  }
}

TEST(GetDouble, KeepsTheSignOfZero) {
  EXPECT_TRUE(std::signbit(doubleOf("-0")));
  EXPECT_FALSE(std::signbit(doubleOf("0")));
}

TEST(GetDouble, IsInfiniteOrZeroBeyondTheRangeOfADouble) {
  EXPECT_EQ(doubleOf("1e400"), infinity);
  EXPECT_EQ(doubleOf("-1e400"), -infinity);
  EXPECT_EQ(doubleOf("1e99999999999999999999"), infinity);
  EXPECT_EQ(doubleOf("1e-400"), 0.0);
  EXPECT_TRUE(std::signbit(doubleOf("-1e-400")));
  EXPECT_EQ(doubleOf("1e-99999999999999999999"), 0.0);
  EXPECT_EQ(doubleOf("0e99999999999999999999"), 0.0);
  EXPECT_EQ(doubleOf(std::string(400, '9')), infinity);
  EXPECT_EQ(doubleOf("000" + std::string(400, '9') + ".5"), infinity);
  EXPECT_EQ(doubleOf("0." + std::string(400, '0') + "1"), 0.0);
  EXPECT_EQ(doubleOf("." + std::string(400, '0') + "1e1"), 0.0);
  EXPECT_EQ(doubleOf("0." + std::string(400, '0') + "1e401"), 1.0);
  EXPECT_EQ(doubleOf("0." + std::string(400, '0') + "1e900"), infinity);
  EXPECT_EQ(doubleOf("1" + std::string(400, '0') + "e-400"), 1.0);
  EXPECT_EQ(doubleOf("1" + std::string(400, '0') + "e-900"), 0.0);
  EXPECT_EQ(doubleOf("4.9e-324"), std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(doubleOf("1e-324"), 0.0);
}

TEST(GetFloat, IsTheSameAsGetDouble) {
  EXPECT_EQ(zrStrUtils::getFloat("x0.1", 2, 4), 0.1);
  EXPECT_EQ(zrStrUtils::getFloat("1e300", 1, 5), 1e300);
  EXPECT_EQ(zrStrUtils::getFloat("1", 0, 5), 0.0);
  EXPECT_EQ(zrStrUtils::getFloatFromChar("x0.1", 2, 4), 0.1);
  EXPECT_EQ(zrStrUtils::getFloatFromChar("1", 2, 4), 0.0);
}

TEST(GetString, LeavesItsOutputForAColumnBelowOne) {
  EXPECT_EQ(fieldOf("abc", 0, 2), "left alone");
  EXPECT_EQ(fieldOf("abc", 1, 0), "left alone");
  EXPECT_EQ(fieldOf("abc", 5, 0), "left alone");
  EXPECT_EQ(fieldOf("", -1, -1), "left alone");
}

TEST(GetString, EmptiesItsOutputForAFieldBeyondTheText) {
  EXPECT_EQ(fieldOf("abc", 4, 5), "");
  EXPECT_EQ(fieldOf("", 1, 1), "");
}

TEST(GetString, IsEmptyWhereTheLastColumnLiesBeforeTheFirst) {
  EXPECT_EQ(fieldOf("abc", 3, 2), "");
  EXPECT_EQ(fieldOf("abc", 9, 1), "");
}

TEST(GetString, TakesBothEndsAndTheBlanks) {
  EXPECT_EQ(fieldOf(" a b ", 1, 5), " a b ");
  EXPECT_EQ(fieldOf(" a b ", 2, 4), "a b");
  EXPECT_EQ(fieldOf(" a b ", 5, 99), " ");
  EXPECT_EQ(fieldOf("a\0b\xFF"s, 2, 4), "\0b\xFF"s);
}

TEST(GetString, TakesTheTextItselfAsItsOutput) {
  std::string text = "WELL 12 and more than a short string holds";
  zrStrUtils::getString(text, 6, 27, text);
  EXPECT_EQ(text, "12 and more than a sho");
  zrStrUtils::getString(text, 1, 2, text);
  EXPECT_EQ(text, "12");
  zrStrUtils::getStringFromChar(text.c_str(), 2, 9, text);
  EXPECT_EQ(text, "2");
}

TEST(GetIntFromChar, ReadsLikeGetInt) {
  EXPECT_EQ(zrStrUtils::getIntFromChar("  12  ", 1, 6), 12);
  EXPECT_EQ(zrStrUtils::getIntFromChar("12", 1, 99), 12);
  EXPECT_EQ(zrStrUtils::getIntFromChar("12", 3, 4), 0);
  EXPECT_EQ(zrStrUtils::getIntFromChar("12", 0, 1), 0);
  EXPECT_EQ(zrStrUtils::getIntFromChar("12", 2, 1), 0);
  EXPECT_EQ(zrStrUtils::getIntFromChar("12", INT_MAX, INT_MAX), 0);
  EXPECT_EQ(zrStrUtils::getIntFromChar("12", INT_MIN, 2), 0);
  EXPECT_EQ(zrStrUtils::getIntFromChar("-2147483647", 1, 11), -2147483647);
}

TEST(GetIntFromChar, KeptExtremeIntFromCharIsZero) {
  EXPECT_EQ(zrStrUtils::getIntFromChar("2147483647", 1, 10), 0);
  EXPECT_EQ(zrStrUtils::getIntFromChar("-2147483648", 1, 11), 0);
  EXPECT_EQ(zrStrUtils::getIntFromChar("99999999999", 1, 11), 0);
  EXPECT_EQ(zrStrUtils::getIntFromChar("-99999999999", 1, 12), 0);
  EXPECT_EQ(zrStrUtils::getInt("2147483647", 1, 10), INT_MAX);
  EXPECT_EQ(zrStrUtils::getInt("-99999999999", 1, 12), INT_MIN);
}

TEST(GetDoubleFromChar, ReadsLikeGetDouble) {
  EXPECT_EQ(zrStrUtils::getDoubleFromChar("WELL   12.5", 5, 11), 12.5);
  EXPECT_EQ(zrStrUtils::getDoubleFromChar("WELL   12.5", 5, 10), 12.0);
  EXPECT_EQ(zrStrUtils::getDoubleFromChar("2147483647", 1, 10), 2147483647.0);
  EXPECT_EQ(zrStrUtils::getDoubleFromChar("1", 2, 3), 0.0);
  EXPECT_EQ(zrStrUtils::getDoubleFromChar("1", 0, 3), 0.0);
}

TEST(GetStringFromChar, TreatsItsOutputLikeGetString) {
  EXPECT_EQ(fieldOfChars("abc", 2, 3), "bc");
  EXPECT_EQ(fieldOfChars("abc", 2, 99), "bc");
  EXPECT_EQ(fieldOfChars("abc", 0, 2), "left alone");
  EXPECT_EQ(fieldOfChars("abc", 2, 0), "left alone");
  EXPECT_EQ(fieldOfChars("abc", 4, 5), "");
  EXPECT_EQ(fieldOfChars("abc", 3, 2), "");
}

TEST(FieldsOfChars, NeedNoTerminatorBehindTheLastColumn) {
  // On the heap and exactly as long as the card, so that a sanitizer sees a read beyond it.
  std::vector<char> card(80, ' ');
  std::memcpy(card.data() + 76, "1234", 4);
  EXPECT_EQ(zrStrUtils::getIntFromChar(card.data(), 77, 80), 1234);
  EXPECT_EQ(zrStrUtils::getDoubleFromChar(card.data(), 78, 80), 234.0);
  EXPECT_EQ(fieldOfChars(card.data(), 75, 80), "  1234");
}

TEST(FieldsOfChars, TakeANullPointerForAnEmptyText) {
  EXPECT_EQ(zrStrUtils::getIntFromChar(nullptr, 1, 4), 0);
  EXPECT_EQ(zrStrUtils::getDoubleFromChar(nullptr, 1, 4), 0.0);
  EXPECT_EQ(fieldOfChars(nullptr, 1, 4), "");
  EXPECT_EQ(fieldOfChars(nullptr, 0, 4), "left alone");
}

TEST(Fields, AreReadWithADecimalPointInEveryLocale) {
  const DecimalComma comma;
  ASSERT_TRUE(DecimalComma::holds());
  EXPECT_EQ(zrStrUtils::getDouble("1.5", 1, 3), 1.5);
  EXPECT_EQ(zrStrUtils::getDouble("1,5", 1, 3), 1.0);
  EXPECT_EQ(zrStrUtils::getDoubleFromChar("1.5e1", 1, 5), 15.0);
  EXPECT_EQ(zrStrUtils::getInt("1.000", 1, 5), 1);
}

/// The field as a string of its own, read by the functions of C, which the tests run in the C
/// locale.
struct ByTheCLibrary {
  static std::string field(const std::string& text, int first, int last) {
    if (first < 1 || last < 1 || first > static_cast<int>(text.size())) return "";
    std::string out;
    for (int column = first; column <= last && column <= static_cast<int>(text.size()); ++column) {
      out += text[static_cast<std::size_t>(column - 1)];
    }
    return out;
  }
  static double decimal(const std::string& text) { return std::strtod(text.c_str(), nullptr); }
  static int whole(const std::string& text) {
    const long value = std::strtol(text.c_str(), nullptr, 10);
    if (value > INT_MAX) return INT_MAX;
    return value < INT_MIN ? INT_MIN : static_cast<int>(value);
  }
};

TEST(Fields, AgreeWithTheCLibraryOnRandomCards) {
  std::mt19937 random(20240301);
  const std::string alphabet = "0011223456789+-..eE  \t,x\"\0"s;
  std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
  std::uniform_int_distribution<std::size_t> length(0, 24);
  std::uniform_int_distribution<int> column(-1, 26);
  int notZero = 0;
  for (int i = 0; i < 20000; ++i) {
    std::string card(length(random), ' ');
    for (char& c : card) c = alphabet[letter(random)];
    // A hexadecimal form is where the C library reads more.
    if (card.find("0x") != std::string::npos) continue;
    const int first = column(random);
    const int last = column(random);
    const std::string field = ByTheCLibrary::field(card, first, last);
    const double expected = ByTheCLibrary::decimal(field);
    const double decimal = zrStrUtils::getDouble(card, first, last);
    ASSERT_EQ(std::memcmp(&decimal, &expected, sizeof(double)), 0) << "'" << field << "'";
    ASSERT_EQ(zrStrUtils::getInt(card, first, last), ByTheCLibrary::whole(field)) << field;
    if (expected != 0.0) ++notZero;
    // As a character string the card ends at its first NUL.
    const std::string chars = ByTheCLibrary::field(card.c_str(), first, last);
    ASSERT_EQ(zrStrUtils::getDoubleFromChar(card.c_str(), first, last),
              ByTheCLibrary::decimal(chars));
    ASSERT_EQ(fieldOf(card, first, last), first < 1 || last < 1 ? "left alone" : field);
    ASSERT_EQ(fieldOfChars(card.c_str(), first, last),
              first < 1 || last < 1 ? "left alone" : chars);
  }
  EXPECT_GT(notZero, 2000);
}

}  // namespace
