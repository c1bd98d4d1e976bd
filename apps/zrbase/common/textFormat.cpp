#include "common/textFormat.h"

#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>

namespace textFormat {
namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && isBlank(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

std::string_view withoutPlus(std::string_view text) {
  const bool plusBeforeDigits = text.size() > 1 && text[0] == '+' && text[1] != '-';
  return plusBeforeDigits ? text.substr(1) : text;
}

template <typename T>
std::optional<T> parsed(std::string_view text) {
  const std::string_view digits = withoutPlus(trimmed(text));
  T value{};
  const char* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, value);
  if (digits.empty() || result.ec != std::errc() || result.ptr != end) {
    return std::nullopt;
  }
  return value;
}

}  // namespace

std::string fixed(double value, int decimals) {
  std::array<char, 400> buffer;  // the largest double has 309 digits before the point
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::fixed, decimals);
  std::string text(buffer.data(), result.ptr);
  const bool negativeZero = text[0] == '-' && text.find_first_not_of("-0.") == std::string::npos;
  return negativeZero ? text.substr(1) : text;
}

std::string shortest(double value) {
  std::array<char, 64> buffer;
  char* const end = buffer.data() + buffer.size();
  // Coordinates stay plain: without the format 500000 would become 5e+05.
  const double size = std::abs(value);
  const bool plain = size == 0.0 || (size >= 1e-6 && size < 1e17);
  const auto result = plain ? std::to_chars(buffer.data(), end, value, std::chars_format::fixed)
                            : std::to_chars(buffer.data(), end, value);
  return std::string(buffer.data(), result.ptr);
}

std::string jsonList(const std::vector<double>& values) {
  std::string text = "[";
  for (const double value : values) {
    text += (text.size() > 1 ? "," : "") + shortest(value);
  }
  return text + "]";
}

std::optional<double> number(std::string_view text) { return parsed<double>(text); }

std::optional<long long> wholeNumber(std::string_view text) { return parsed<long long>(text); }

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  for (;;) {
    const std::size_t end = text.find(separator);
    pieces.emplace_back(trimmed(text.substr(0, end)));
    if (end == std::string_view::npos) {
      return pieces;
    }
    text.remove_prefix(end + 1);
  }
}

std::string lowerCase(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'A' && c <= 'Z') {
      c = static_cast<char>(c - 'A' + 'a');
    }
  }
  return result;
}

std::string oneLine(std::string_view text) {
  std::string result;
  for (const char c : trimmed(text)) {
    const bool control = static_cast<unsigned char>(c) < 0x20;
    if (!isBlank(c) && !control) {
      result += c;
    } else if (!result.empty() && result.back() != ' ') {
      result += ' ';
    }
  }
  return result;
}

std::string counted(std::size_t count, const std::string& singular, const std::string& plural) {
  return std::to_string(count) + " " + (count == 1 ? singular : plural);
}

std::string fileEnding(const std::string& fileName) {
  return lowerCase(std::filesystem::path(fileName).extension().string());
}

}  // namespace textFormat
