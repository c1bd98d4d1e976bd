#include "colour/colourCommand.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

#include "colour/colourModel.h"
#include "colour/colourSheet.h"
#include "common/colourCells.h"
#include "common/commandError.h"
#include "common/tableOutputs.h"
#include "common/textFormat.h"

namespace {

const char* const kFooter =
    "A COLOUR is a word, red, green and blue as #RRGGBB, or a colour index, 1 to 255. A shell "
    "takes\n"
    "an unquoted # for a comment and cuts at blanks: write '#FF8000' and 'dark blue' in quotes.\n\n"
    "Words are those of the suite's files and those of a Motif display, in any case; where both\n"
    "know a word with a colour each, both are told. Blanks count in words of the suite, and not "
    "in\n"
    "those of Motif.\n\n"
    "Columns:\n"
    "  name        the word for this very colour, if there is one\n"
    "  words       whose word it is: suite, Motif or both\n"
    "  packed      65536 blue + 256 green + red, as the suite's files have it\n"
    "  hex         #RRGGBB\n"
    "  index       colour index with the nearest colour: black as well as white has 7, and a\n"
    "              grey gets a grey\n"
    "  its colour  of that index\n"
    "  H, S, V     hue in degrees (none for a grey), saturation and value from 0 to 1\n\n"
    "Each row has a swatch on a terminal, unless NO_COLOR is set. A .csv output has the columns\n"
    "given, name, words, packed, hex, index, index_hex, hue, saturation and value.\n\n"
    "Examples:\n"
    "  zrbase colour orange 'dark blue' '#B3E1B6' 42\n"
    "      two words, a colour by its components and one by its index\n"
    "  zrbase colour --list --picture words.png\n"
    "      all words, with a sheet of swatches\n"
    "  zrbase colour 1 2 3 4 5 6 -o pure.csv\n"
    "      the six pure colours as a table";

struct ColourOptions {
  std::vector<std::string> colours;
  bool list = false;
  TableOutputs outputs;
};

CLI::App* addParser(CLI::App& application, ColourOptions& options) {
  CLI::App* const command = application.add_subcommand(
      "colour", "Colours by word, #RRGGBB or index: packed, nearest index, HSV, swatches");
  command->footer(kFooter);
  command->add_option("COLOUR", options.colours, "word, '#RRGGBB' or colour index 1 to 255")
      ->type_name("TEXT");
  command->add_flag("--list", options.list, "all words instead");
  addTableOutputOptions(*command, "sheet of swatches", options.outputs);
  return command;
}

std::vector<NamedColour> askedFor(const ColourOptions& options) {
  if (options.list) {
    if (!options.colours.empty()) {
      throw CommandError("--list: tells all words, and goes without colours");
    }
    return listedColours();
  }
  if (options.colours.empty()) {
    throw CommandError("give a colour: a word, '#RRGGBB' in quotes or an index, or --list");
  }
  std::vector<NamedColour> colours;
  for (const std::string& text : options.colours) {
    for (const NamedColour& colour : coloursOf(text)) {
      colours.push_back(colour);
    }
  }
  return colours;
}

std::string orDash(const std::string& text) { return text.empty() ? "-" : text; }

void printTable(const std::vector<NamedColour>& colours) {
  std::vector<std::vector<std::string>> rows = {
      {"colour", "name", "words", "packed", "hex", "index", "its colour", "H", "S", "V"}};
  std::vector<int> swatches;
  for (const NamedColour& colour : colours) {
    const HueSaturationValue hsv = hueSaturationValue(colour.packed);
    rows.push_back({textFormat::oneLine(colour.given), orDash(colour.name), orDash(colour.words),
                    std::to_string(colour.packed), colourCells::hexText(colour.packed),
                    std::to_string(colourCells::nearestIndex(colour.packed)),
                    colourCells::nearestIndexHex(colour.packed),
                    hsv.isGrey() ? "-" : textFormat::fixed(hsv.hue, 1),
                    textFormat::fixed(hsv.saturation, 3), textFormat::fixed(hsv.value, 3)});
    swatches.push_back(colour.packed);
  }
  colourCells::writeTable(std::cout, rows, swatches);
}

std::string csvOf(const std::vector<NamedColour>& colours) {
  std::vector<std::vector<std::string>> rows = {{"given", "name", "words", "packed", "hex", "index",
                                                 "index_hex", "hue", "saturation", "value"}};
  for (const NamedColour& colour : colours) {
    const HueSaturationValue hsv = hueSaturationValue(colour.packed);
    rows.push_back({colour.given, colour.name, colour.words, std::to_string(colour.packed),
                    colourCells::hexText(colour.packed),
                    std::to_string(colourCells::nearestIndex(colour.packed)),
                    colourCells::nearestIndexHex(colour.packed),
                    hsv.isGrey() ? "" : textFormat::shortest(hsv.hue),
                    textFormat::shortest(hsv.saturation), textFormat::shortest(hsv.value)});
  }
  return csvText(rows);
}

void run(const ColourOptions& options) {
  checkTableOutputs(options.outputs);
  const std::vector<NamedColour> colours = askedFor(options);
  writeTableOutputs(options.outputs, csvOf(colours),
                    [&colours](const SafeOutput& picture) { drawColourSheet(picture, colours); });
  printTable(colours);
  if (!options.outputs.table.empty() || !options.outputs.picture.empty()) {
    std::cout << '\n';
  }
  printTableOutputs(options.outputs, textFormat::counted(colours.size(), "colour", "colours"));
}

}  // namespace

Command addColourCommand(CLI::App& application) {
  const auto options = std::make_shared<ColourOptions>();
  CLI::App* const parser = addParser(application, *options);
  return {parser, [options] { run(*options); }};
}
