#include "common/tableOutputs.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

#include "common/commandError.h"
#include "common/summaryText.h"
#include "common/textFormat.h"
#include "drawing/pictureFile.h"

namespace {

std::string csvCell(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) {
    return text;
  }
  std::string quoted = "\"";
  for (const char c : text) {
    quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  }
  return quoted + "\"";
}

}  // namespace

void addTableOutputOptions(CLI::App& command, const std::string& shows, TableOutputs& outputs) {
  command.add_option("-o,--output", outputs.table, "table: .csv")->type_name("FILE");
  command.add_option("--picture", outputs.picture, shows + ": .svg or .png")->type_name("FILE");
}

void checkTableOutputs(const TableOutputs& outputs) {
  if (!outputs.table.empty() && textFormat::fileEnding(outputs.table) != ".csv") {
    throw CommandError(outputs.table + ": unknown ending for the output: .csv");
  }
  if (!outputs.picture.empty()) {
    pictureFormat(outputs.picture);
  }
}

void writeTableOutputs(const TableOutputs& outputs, const std::string& table,
                       const std::function<void(const SafeOutput&)>& drawPicture) {
  std::unique_ptr<SafeOutput> output;
  std::unique_ptr<SafeOutput> picture;
  if (!outputs.table.empty()) {
    output = std::make_unique<SafeOutput>(outputs.table);
    output->write(table.data(), table.size());
  }
  if (!outputs.picture.empty()) {
    picture = std::make_unique<SafeOutput>(outputs.picture);
    drawPicture(*picture);
  }
  if (output) {
    output->commit();
  }
  if (picture) {
    picture->commit();
  }
}

void printTableOutputs(const TableOutputs& outputs, const std::string& counted) {
  if (!outputs.table.empty()) {
    summaryText::writeLine(std::cout, "output", outputs.table + ": " + counted);
  }
  if (!outputs.picture.empty()) {
    summaryText::writeLine(std::cout, "picture", outputs.picture);
  }
  std::cout << std::flush;
}

std::string csvText(const std::vector<std::vector<std::string>>& rows) {
  std::string text;
  for (const std::vector<std::string>& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      text += (i == 0 ? "" : ",") + csvCell(row[i]);
    }
    text += '\n';
  }
  return text;
}
