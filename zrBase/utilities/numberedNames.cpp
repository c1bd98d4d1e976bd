#include <zrBase/utilities/numberedNames.h>

#include <zrBase/utilities/internal/plainText.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>

namespace zrStrUtils {

namespace {

/// The index with three digits or more, the sign counted as one: "007", "-07", "1234".
struct Digits {
  explicit Digits(int index) { std::snprintf(text.data(), text.size(), "%03d", index); }
  std::array<char, 16> text;
};

/// The text behind the last low line; empty without one.
std::string_view tailOf(std::string_view name) {
  const std::size_t lowLine = name.rfind('_');
  return lowLine == std::string_view::npos ? std::string_view() : name.substr(lowLine + 1);
}

int indexOf(std::string_view name) { return internal::leadingInt(tailOf(name)); }

}  // namespace

void addUniqueNameIndex(std::string& name, int index) {
  const std::string_view tail = tailOf(name);
  // Kept on purpose (KeptTailThatBeginsWithANumberGoesWhole): "well_2nd" loses its letters too; 0
  // and below are no numbers of a name and stay.
  if (internal::leadingInt(tail) >= 1) {
    name.resize(name.size() - tail.size());
  } else if (name.empty() || name.back() != '_') {
    name += '_';
  }
  name += Digits(index).text.data();
}

void addUniqueNameIndex(QString& name, int index) {
  // Kept on purpose (KeptQStringNameKeepsItsNumber): "well_002" becomes "well_002_003" here and
  // "well_003" in the form for std::string. Names that are saved depend on which form made them.
  if (!name.endsWith('_')) name += '_';
  name += Digits(index).text.data();
}

int getUniqueNameIndex(const std::string& name) { return indexOf(name); }

int getUniqueNameIndex(const QString& name) { return indexOf(name.toStdString()); }

int getUniqueNameIndex(const char* name) { return indexOf(internal::viewOf(name)); }

}  // namespace zrStrUtils
