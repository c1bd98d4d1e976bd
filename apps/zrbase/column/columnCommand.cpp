#include "column/columnCommand.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iostream>
#include <memory>

#include "column/columnFile.h"
#include "column/columnPicture.h"
#include "common/colourCells.h"
#include "common/commandError.h"
#include "common/optionValues.h"
#include "common/summaryText.h"
#include "common/tableOutputs.h"
#include "common/textFormat.h"

namespace {

const char* const kFooter =
    "FILE is a default database: the line '2DLoom Database 4.2', a line that is passed over, and\n"
    "then a unit a line, as its name, a tab or two blanks, five numbers and a colour, 65536 blue "
    "+\n"
    "256 green + red:\n"
    "  Upper Jurassic    0.39 0.56 1500 0.5 161.5    15655859\n"
    "Lines that begin with # are comments; ten empty lines end the column. Without FILE the "
    "suite's\n"
    "own is read, data/DefaultDatabase.txt beside the folder of the program.\n\n"
    "The value of a unit is its fifth number. Lines that are passed over, or not read to their "
    "end,\n"
    "are told on the standard error stream.\n\n"
    "Table: unit, value, packed colour, hex as #RRGGBB, colour index with the nearest colour and\n"
    "the colour of that index; each row has a swatch on a terminal, unless NO_COLOR is set. A "
    ".csv\n"
    "output has the columns name, value, packed, hex, index and index_hex.\n\n"
    "Picture: boxes of one height in the order of the file. Values that ascend from unit to unit\n"
    "stand at the bases, others beside the boxes.\n\n"
    "Examples:\n"
    "  zrbase column DefaultDatabase.txt\n"
    "      the units as a table\n"
    "  zrbase column --picture column.svg\n"
    "      the suite's own units, drawn\n"
    "  zrbase column basin.txt --title 'North basin' -o basin.csv --picture basin.png\n"
    "      a database of one's own, as table and picture";

constexpr std::size_t kMostWarnings = 10;

struct ColumnOptions {
  std::string file;
  std::string title = "Stratigraphic column";
  TableOutputs outputs;
};

CLI::App* addParser(CLI::App& application, ColumnOptions& options) {
  CLI::App* const command = application.add_subcommand(
      "column", "The stratigraphic column of a default database, as table and picture");
  command->footer(kFooter);
  command->add_option("FILE", options.file, "default database; the suite's own if not given")
      ->type_name("FILE");
  command->add_option("--title", options.title, "title of the picture (Stratigraphic column)")
      ->type_name("TEXT");
  addTableOutputOptions(*command, "drawn column", options.outputs);
  return command;
}

std::string fileToRead(const ColumnOptions& options) {
  if (!options.file.empty()) {
    return options.file;
  }
  std::string file = defaultColumnFile();
  if (!std::filesystem::exists(file)) {
    throw CommandError("no FILE given, and the suite's own " + file + " does not exist");
  }
  return file;
}

std::vector<std::string> colourCellsOf(const ColumnUnit& unit) {
  return {std::to_string(unit.packed), colourCells::hexText(unit.packed),
          std::to_string(colourCells::nearestIndex(unit.packed)),
          colourCells::nearestIndexHex(unit.packed)};
}

void printTable(const std::vector<ColumnUnit>& units) {
  std::vector<std::vector<std::string>> rows = {
      {"unit", "value", "packed", "hex", "index", "its colour"}};
  std::vector<int> swatches;
  for (const ColumnUnit& unit : units) {
    rows.push_back({textFormat::oneLine(unit.name), textFormat::shortest(unit.value)});
    const std::vector<std::string> cells = colourCellsOf(unit);
    rows.back().insert(rows.back().end(), cells.begin(), cells.end());
    swatches.push_back(unit.packed);
  }
  colourCells::writeTable(std::cout, rows, swatches);
}

std::string csvOf(const std::vector<ColumnUnit>& units) {
  std::vector<std::vector<std::string>> rows = {
      {"name", "value", "packed", "hex", "index", "index_hex"}};
  for (const ColumnUnit& unit : units) {
    rows.push_back({unit.name, textFormat::shortest(unit.value)});
    const std::vector<std::string> cells = colourCellsOf(unit);
    rows.back().insert(rows.back().end(), cells.begin(), cells.end());
  }
  return csvText(rows);
}

void printWarnings(const std::string& file, const std::vector<std::string>& warnings) {
  const std::string start = "zrbase column: warning: " + file + ": ";
  for (std::size_t i = 0; i < std::min(warnings.size(), kMostWarnings); ++i) {
    std::cerr << textFormat::oneLine(start + warnings[i]) << '\n';
  }
  if (warnings.size() > kMostWarnings) {
    std::cerr << start << "and "
              << textFormat::counted(warnings.size() - kMostWarnings, "more line", "more lines")
              << '\n';
  }
}

void run(const ColumnOptions& options) {
  checkTableOutputs(options.outputs);
  const std::string file = fileToRead(options);
  optionValues::refuseOverwritingInput(options.outputs.table, file);
  optionValues::refuseOverwritingInput(options.outputs.picture, file);
  const ColumnFile column = readColumn(file);
  writeTableOutputs(options.outputs, csvOf(column.units), [&](const SafeOutput& picture) {
    drawColumnPicture(picture, column.units, options.title,
                      std::filesystem::path(file).filename().string());
  });
  printWarnings(file, column.warnings);
  printTable(column.units);
  std::cout << '\n';
  summaryText::writeLine(std::cout, "column",
                         file + ": " + textFormat::counted(column.units.size(), "unit", "units") +
                             (valuesAscend(column.units) ? ", values ascend" : ""));
  printTableOutputs(options.outputs, textFormat::counted(column.units.size(), "unit", "units"));
}

}  // namespace

Command addColumnCommand(CLI::App& application) {
  const auto options = std::make_shared<ColumnOptions>();
  CLI::App* const parser = addParser(application, *options);
  return {parser, [options] { run(*options); }};
}
