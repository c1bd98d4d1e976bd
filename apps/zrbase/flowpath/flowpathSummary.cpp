#include "flowpath/flowpathSummary.h"

#include <array>
#include <ostream>
#include <string>

#include "common/summaryText.h"
#include "common/textFormat.h"

namespace {

using Row = std::vector<std::string>;

std::string templateName(const InputLine& source) {
  return source.label() + (source.name.empty() ? "" : " " + source.name);
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
  summaryText::writeTable(out, tableRows(models));
  for (const TemplateModel& model : models) {
    for (const std::string& note : model.notes) {
      out << "template " << templateName(model.source) << ": " << note << '\n';
    }
  }
}
