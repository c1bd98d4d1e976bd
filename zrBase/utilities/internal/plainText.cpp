#include <zrBase/utilities/internal/plainText.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <system_error>

namespace zrStrUtils::internal {

namespace {

/// Takes blanks and a sign off a text.
/// @return whether the sign is a minus
bool takeSign(std::string_view& text) {
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  if (text.empty() || (text.front() != '-' && text.front() != '+')) return false;
  const bool isNegative = text.front() == '-';
  text.remove_prefix(1);
  return isNegative;
}

/// Takes digits off a text.
std::string_view takeDigits(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
  const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(digits.size());
  return digits;
}

/// The exponent behind the digits of a number, 0 if there is none.
double exponentOf(std::string_view text) {
  if (text.empty() || (text.front() != 'e' && text.front() != 'E')) return 0.0;
  text.remove_prefix(1);
  // leadingInt passes white space over, but a number ends in front of an 'e' without a digit.
  if (!text.empty() && isSpace(text.front())) return 0.0;
  return leadingInt(text);
}

/// What stands for a number that no double holds, either too large or too near to 0; it has a digit
/// that is not 0.
double beyondRange(std::string_view text) {
  std::string_view whole = takeDigits(text);
  whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
  double magnitude = static_cast<double>(whole.size());
  if (!text.empty() && text.front() == '.') {
    text.remove_prefix(1);
    const std::string_view fraction = takeDigits(text);
    if (whole.empty()) magnitude = -static_cast<double>(fraction.find_first_not_of('0'));
  }
  return magnitude + exponentOf(text) > 0.0 ? std::numeric_limits<double>::infinity() : 0.0;
}

}  // namespace

int leadingInt(std::string_view text) {
  const bool isNegative = takeSign(text);
  // What follows is no digit: either nothing to read, or a second sign, which is not read.
  if (text.empty() || !isDigit(text.front())) return 0;
  // The minus goes with the digits: the lowest int has no positive counterpart.
  const char* const begin = isNegative ? text.data() - 1 : text.data();
  int value = 0;
  const auto result = std::from_chars(begin, text.data() + text.size(), value);
  if (result.ec == std::errc()) return value;
  return isNegative ? std::numeric_limits<int>::lowest() : std::numeric_limits<int>::max();
}

double leadingDouble(std::string_view text) {
  const bool isNegative = takeSign(text);
  const std::string_view afterPoint = !text.empty() && text.front() == '.' ? text.substr(1) : text;
  if (afterPoint.empty() || !isDigit(afterPoint.front())) return 0.0;
  double value = 0.0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc()) value = beyondRange(text);
  return isNegative ? -value : value;
}

}  // namespace zrStrUtils::internal
