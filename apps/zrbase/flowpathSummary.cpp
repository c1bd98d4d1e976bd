#include "flowpathSummary.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <string>

#include "textFormat.h"

namespace {

using Row = std::array<std::string, 6>;

std::string templateName(const TemplateLine& source) {
  return source.label() + (source.name.empty() ? "" : " " + source.name);
}

// Characters of a UTF-8 text, so that a name with an accent does not shift its row.
std::size_t shownWidth(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

std::vector<Row> tableRows(const std::vector<TemplateModel>& models) {
  std::vector<Row> rows = {{"template", "vertices", "roots", "merged", "paths", "time [ms]"}};
  std::array<std::size_t, 4> sums{};
  double milliseconds = 0.0;
  for (const TemplateModel& model : models) {
    const std::array<std::size_t, 4> counts = {model.source.vertices.size(), model.roots,
                                               model.merged, model.paths.size()};
    Row row = {
        templateName(model.source), "", "", "", "", textFormat::fixed(model.milliseconds, 2)};
    for (std::size_t i = 0; i < counts.size(); ++i) {
      row[i + 1] = std::to_string(counts[i]);
      sums[i] += counts[i];
    }
    milliseconds += model.milliseconds;
    rows.push_back(row);
  }
  if (models.size() > 1) {
    rows.push_back({"all " + std::to_string(models.size()), std::to_string(sums[0]),
                    std::to_string(sums[1]), std::to_string(sums[2]), std::to_string(sums[3]),
                    textFormat::fixed(milliseconds, 2)});
  }
  return rows;
}

}  // namespace

void writeSummaryTable(std::ostream& out, const std::vector<TemplateModel>& models) {
  const std::vector<Row> rows = tableRows(models);
  std::array<std::size_t, 6> widths{};
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], shownWidth(row[i]));
    }
  }
  for (const Row& row : rows) {
    out << row[0] << std::string(widths[0] - shownWidth(row[0]), ' ');
    for (std::size_t i = 1; i < row.size(); ++i) {
      out << "  " << std::string(widths[i] - shownWidth(row[i]), ' ') << row[i];
    }
    out << '\n';
  }
  for (const TemplateModel& model : models) {
    for (const std::string& note : model.notes) {
      out << "template " << templateName(model.source) << ": " << note << '\n';
    }
  }
}
