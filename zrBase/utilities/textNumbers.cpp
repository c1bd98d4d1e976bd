#include <zrBase/utilities/textNumbers.h>

#include <zrBase/utilities/internal/plainText.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zrStrUtils {

namespace {

/// What no field of measured numbers reaches.
constexpr double missingFromHere = 1000000000000.0;

bool isNumericText(std::string_view text) {
  // Kept on purpose (KeptNumericStringChecksCharactersOnly): no form is looked for, "e-+" passes.
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return internal::isDigit(c) || c == '+' || c == '-' || c == '.' || c == 'E' || c == 'e';
  });
}

/// Value of a hexadecimal digit, -1 for any other character.
int hexDigit(char c) {
  if (internal::isDigit(c)) return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

}  // namespace

bool isNumericChar(char c) {
  // Kept on purpose (KeptNumericCharTakesBlanksButNoExponent): isNumericString has it the other way
  // round. This one is asked for each character of a line, that one for a word cut out of it.
  return internal::isDigit(c) || c == '\t' || c == ' ' || c == '+' || c == '-' || c == '.';
}

bool isNumericString(const std::string& s) { return isNumericText(s); }

int hexStringToInt(const char* text) {
  const std::string_view digits = internal::viewOf(text);
  std::uint32_t value = 0;
  for (std::size_t position = 0; position < digits.size(); ++position) {
    const char c = digits[digits.size() - 1 - position];
    // Kept on purpose (KeptHexPrefixEndsTheReading): the letter alone is looked for, not "0x" at
    // the start; what stands before it does not count, digits or not.
    if (c == 'x' || c == 'X') break;
    const int digit = hexDigit(c);
    if (digit < 0) return 0;
    if (position < 8) value += static_cast<std::uint32_t>(digit) << (4 * position);
  }
  return static_cast<int>(value);
}

void intToHexString(std::string& s, int value) {
  char digits[8];
  char* start = digits + sizeof(digits);
  do {
    // Kept on purpose (KeptNegativeHexHoldsOnlyItsZeros): a remainder below 0 writes nothing, so of
    // a negative number only the zeros at its end are left.
    const int remainder = value % 16;
    if (remainder >= 0) *--start = "0123456789ABCDEF"[remainder];
    value /= 16;
  } while (value != 0);
  s.assign(start, digits + sizeof(digits));
}

int calculateDefaultPrecision(double low, double high) {
  double d = std::fabs(high - low);
  if (d == 0.0) {
    if (high == 0.0) return 2;
    // Kept on purpose (KeptNegativeValueHasEightDecimals): the value as it is, not its size, so
    // that a negative one lies below all limits.
    d = high;
  }
  if (d > 99998.0) return 0;
  if (d > 89.9) return 1;
  if (d > 48.9) return 2;
  if (d > 8.9) return 3;
  if (d > 0.8) return 4;
  if (d > 0.08) return 5;
  if (d > 0.008) return 6;
  // Kept on purpose (KeptSevenDecimalsDoNotOccur): from six they go to eight.
  return 8;
}

bool nullValue(const std::string& value, const std::string& null) {
  return nullValue(value, null, internal::leadingDouble(null));
}

bool nullValue(const std::string& value, const std::string& null, double n) {
  const std::string_view text = internal::trimmedRight(internal::trimmedLeft(value));
  if (text == null) return true;
  const double v = internal::leadingDouble(text);
  const bool isBeyondAll = std::fabs(v) >= missingFromHere;
  if (v == 0.0 || n == 0.0) {
    // Kept on purpose (KeptZeroIsNullOnlyAsTheSameText): 0 is also what a word reads as, so that
    // numbers are not compared here: "0.0" is no null value beside "0", any word is one.
    return !isNumericText(text) || isBeyondAll;
  }
  if (v == n || isBeyondAll) return true;
  // Kept on purpose (KeptLargeNullTakesAllBeyondIt): there is a limit of 100 towards 0 and none
  // away from it, so beside a null value of 99999 a depth of 120000 is missing too.
  if (n > 11000.0) return v > n - 100.0;
  if (n < -11000.0) return v < n + 100.0;
  return false;
}

}  // namespace zrStrUtils
