#include "common/summaryText.h"

#include <algorithm>
#include <cstddef>
#include <ostream>

#include "common/textFormat.h"

namespace summaryText {
namespace {

constexpr std::size_t kHeadingWidth = 10;

// Characters of a UTF-8 text, so that a name with an accent does not shift its row.
std::size_t shownWidth(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

}  // namespace

void writeLine(std::ostream& out, const std::string& heading, const std::string& text) {
  const std::size_t width = std::max(kHeadingWidth, heading.size() + 1);
  out << heading << std::string(width - heading.size(), ' ') << text << '\n';
}

void writeSystem(std::ostream& out, const SpatialReference& model, const SpatialReference& stated) {
  const bool projected = stated && systemCode(stated) != systemCode(model);
  writeLine(out, "crs",
            systemLabel(model) + (projected ? ", projected from " + systemCode(stated) : ""));
}

void writeLeftOut(std::ostream& out, const std::string& file,
                  const std::vector<std::string>& leftOut) {
  if (leftOut.empty()) {
    return;
  }
  const std::string count = textFormat::counted(leftOut.size(), "bad feature", "bad features");
  writeLine(out, "left out", count + " of " + file);
  for (const std::string& each : leftOut) {
    writeLine(out, "", each);
  }
}

void writeTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths;
  for (const std::vector<std::string>& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], shownWidth(row[i]));
    }
  }
  for (const std::vector<std::string>& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string blanks(widths[i] - shownWidth(row[i]), ' ');
      out << (i == 0 ? row[i] + blanks : "  " + blanks + row[i]);
    }
    out << '\n';
  }
}

}  // namespace summaryText
