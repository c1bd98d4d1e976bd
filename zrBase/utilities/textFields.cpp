#include <zrBase/utilities/textFields.h>

#include <zrBase/utilities/internal/plainText.h>

#include <cstddef>
#include <cstring>
#include <limits>
#include <string_view>

namespace zrStrUtils {

namespace {

/// Columns first to last, as far as the text has them.
std::string_view field(std::string_view text, int first, int last) {
  if (first < 1 || last < first) return {};
  const auto start = static_cast<std::size_t>(first) - 1;
  if (start >= text.size()) return {};
  return text.substr(start, static_cast<std::size_t>(last) - start);
}

/// The text up to its terminator or its last column, whichever comes first: a card of 80 columns
/// often has no terminator.
std::string_view upToColumn(const char* text, int last) {
  if (text == nullptr || last < 1) return {};
  const auto columns = static_cast<std::size_t>(last);
  const void* const terminator = std::memchr(text, '\0', columns);
  if (terminator == nullptr) return {text, columns};
  return {text, static_cast<std::size_t>(static_cast<const char*>(terminator) - text)};
}

void assignField(std::string_view text, int first, int last, std::string& out) {
  if (first < 1 || last < 1) return;
  const std::string_view found = field(text, first, last);
  // Nothing to point at: the text may be a null pointer.
  if (found.empty()) return out.clear();
  out.assign(found.data(), found.size());
}

}  // namespace

int getInt(const std::string& s, int first, int last) {
  return internal::leadingInt(field(s, first, last));
}

double getDouble(const std::string& s, int first, int last) {
  return internal::leadingDouble(field(s, first, last));
}

double getFloat(const std::string& s, int first, int last) { return getDouble(s, first, last); }

void getString(const std::string& s, int first, int last, std::string& out) {
  assignField(s, first, last, out);
}

int getIntFromChar(const char* s, int first, int last) {
  const int value = internal::leadingInt(field(upToColumn(s, last), first, last));
  // Kept on purpose (KeptExtremeIntFromCharIsZero): here, unlike in getInt, the two limits of int
  // stand for a number that does not fit, and none is what callers get; so -2147483648 and
  // 2147483647 cannot be read at all.
  const bool isLimit =
      value == std::numeric_limits<int>::max() || value == std::numeric_limits<int>::lowest();
  return isLimit ? 0 : value;
}

double getDoubleFromChar(const char* s, int first, int last) {
  return internal::leadingDouble(field(upToColumn(s, last), first, last));
}

double getFloatFromChar(const char* s, int first, int last) {
  return getDoubleFromChar(s, first, last);
}

void getStringFromChar(const char* s, int first, int last, std::string& out) {
  assignField(upToColumn(s, last), first, last, out);
}

}  // namespace zrStrUtils
