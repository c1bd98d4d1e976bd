#ifndef ZRBASE_UTILITIES_INTERNAL_PLAINTEXT_H
#define ZRBASE_UTILITIES_INTERNAL_PLAINTEXT_H

#include <string_view>

/// Reading of plain text as the C locale has it, whatever locale the application has set. Nothing
/// here allocates, and a text needs no terminator.
namespace zrStrUtils::internal {

/// Space, tab, line feed, vertical tab, form feed and carriage return; no byte above 127.
constexpr bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Whether trimming takes a character off the ends of a text.
constexpr bool isTrimmed(char c) {
  // Kept on purpose (KeptDoubleQuoteCountsAsBlank): it goes with the blanks wherever text is
  // trimmed, so that the quoted words of a table come out bare; single quotes stay.
  return isSpace(c) || c == '"';
}

constexpr std::string_view trimmedLeft(std::string_view text) {
  while (!text.empty() && isTrimmed(text.front())) text.remove_prefix(1);
  return text;
}

constexpr std::string_view trimmedRight(std::string_view text) {
  while (!text.empty() && isTrimmed(text.back())) text.remove_suffix(1);
  return text;
}

/// The view of a text that ends at its terminator; a null pointer is an empty text.
constexpr std::string_view viewOf(const char* text) {
  return text != nullptr ? std::string_view(text) : std::string_view();
}

/// The whole number that a text begins with: blanks, a sign, digits. 0 if there is none; beyond the
/// limits of int the limit.
int leadingInt(std::string_view text);

/// The decimal number that a text begins with: blanks, a sign, digits with a point, an exponent. 0
/// if there is none; what is too large for a double is infinite, what is too small 0. Hexadecimal
/// forms, infinities and NaNs in words are not read.
double leadingDouble(std::string_view text);

}  // namespace zrStrUtils::internal

#endif  // ZRBASE_UTILITIES_INTERNAL_PLAINTEXT_H
