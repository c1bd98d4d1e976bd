#include <zrBase/utilities/defaultColours.h>

#include <zrBase/utilities/defaultDatabase.h>

#include <cstdint>
#include <string>

namespace zrUtils {

bool loadDefaultColourList(std::vector<QColor>& out) {
  std::vector<std::string> names;
  std::vector<double> values;
  return loadDefaultStratColumn(names, out, values);
}

QColor getDefaultColourFromList(int i) {
  static std::vector<QColor> palette;
  if (palette.empty()) loadDefaultColourList(palette);
  if (palette.empty()) return Qt::white;
  // Kept on purpose (KeptPaletteStartsAtItsSeventhEntry): 0 gives entry 6, counted from 0; the six
  // before it come at the end of a round, and to those who ask for small negative numbers.
  const std::int64_t index = std::int64_t{i} + 6;
  if (index < 0) return Qt::white;
  return palette[static_cast<std::uint64_t>(index) % palette.size()];
}

}  // namespace zrUtils
