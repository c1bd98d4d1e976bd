#include "common/colourCells.h"

#include <unistd.h>
#include <zrBase/utilities/colourIndex.h>
#include <zrBase/utilities/colours.h>

#include <cstddef>
#include <cstdlib>
#include <ostream>
#include <sstream>

#include "common/summaryText.h"

namespace colourCells {
namespace {

constexpr int kNearestOfAll = 0;  // mode: by distance, not by the hue alone

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string swatch(int packed) {
  return "\033[48;2;" + std::to_string(zrUtils::getRed(packed)) + ";" +
         std::to_string(zrUtils::getGreen(packed)) + ";" +
         std::to_string(zrUtils::getBlue(packed)) + "m    \033[0m  ";
}

}  // namespace

std::string hexText(int packed) {
  const char* const digits = "0123456789ABCDEF";
  std::string text = "#";
  for (const int byte :
       {zrUtils::getRed(packed), zrUtils::getGreen(packed), zrUtils::getBlue(packed)}) {
    text += digits[byte / 16];
    text += digits[byte % 16];
  }
  return text;
}

int nearestIndex(int packed) {
  return zrUtils::ColorRefToAcad(static_cast<unsigned int>(packed), kNearestOfAll);
}

std::string nearestIndexHex(int packed) {
  return hexText(static_cast<int>(zrUtils::AcadToColorRef(nearestIndex(packed))));
}

bool terminalShowsColours() {
  return isatty(STDOUT_FILENO) == 1 && environment("NO_COLOR").empty() &&
         environment("TERM") != "dumb";
}

void writeTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows,
                const std::vector<int>& colours) {
  if (!terminalShowsColours()) {
    summaryText::writeTable(out, rows);
    return;
  }
  std::stringstream table;
  summaryText::writeTable(table, rows);
  std::string line;
  for (std::size_t row = 0; std::getline(table, line); ++row) {
    const bool coloured = row > 0 && row <= colours.size();
    out << (coloured ? swatch(colours[row - 1]) : "      ") << line << '\n';
  }
}

}  // namespace colourCells
