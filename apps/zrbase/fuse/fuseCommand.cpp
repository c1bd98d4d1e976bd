#include "fuse/fuseCommand.h"

#include <zrBase/tools2d/lineMeasures.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <memory>

#include "common/commandError.h"
#include "common/commandOptions.h"
#include "common/lineFeatures.h"
#include "common/metricInput.h"
#include "common/optionValues.h"
#include "common/safeOutput.h"
#include "common/summaryText.h"
#include "common/textFormat.h"
#include "fuse/lineChains.h"

namespace {

const char* const kFooter =
    R"(Lines whose ends match are chained into longer ones. Two ends match when they differ by less
than --tolerance (metres) in x, in y and in z. A chain runs in the direction of its first line in
the file, others are turned round where need be. Where more than two lines meet, the first in the
file goes on and the others stay chains of their own. At a junction one vertex is kept, the earlier
along the chain; all other vertices stay. A line whose own ends match is closed and is left as it
is; so is a line that nothing joins.

Longitudes and latitudes are projected to the UTM zone (WGS 84) of the middle of LINES, unless
--crs names another system in metres.

Output: layer chains, with the number of the chain (from 0), how many lines it is made of, their
fids in the order along it (12.1 for a part of several), the name where all have the same, the
number of vertices, the length in plan, and whether its ends match (closed, 1 or 0).

Examples:
  zrbase fuse segments.geojson --tolerance 0.5 -o faults.gpkg
      pieces that end within half a metre of each other become faults
  zrbase fuse contours.gpkg --layer top --tolerance 0.01 --skip-bad -o contours.geojson
      contours of a layer, cut at the edges of map sheets, made whole)";

struct FuseOptions {
  InputOptions lines;
  std::string tolerance;
  std::string output;
};

CLI::App* addParser(CLI::App& application, FuseOptions& options) {
  CLI::App* const command =
      application.add_subcommand("fuse", "Lines chained end to end into longer ones");
  command->footer(kFooter);
  addInputOptions(*command, "LINES", "lines", options.lines);
  command
      ->add_option("--tolerance", options.tolerance,
                   "ends match where they differ by less, in each coordinate")
      ->type_name("T")
      ->required();
  addOutputOption(*command, options.output);
  return command;
}

// Nothing is closer than 0: fusing with it would leave every line alone.
double toleranceOf(const FuseOptions& options) {
  const double tolerance = optionValues::numberFromZero("--tolerance", options.tolerance);
  if (tolerance == 0.0) {
    throw CommandError("--tolerance: '" + textFormat::oneLine(options.tolerance) +
                       "' is not above 0");
  }
  return tolerance;
}

std::string fidsOf(const LineChain& chain, const std::vector<InputLine>& lines) {
  std::string text;
  for (const std::size_t member : chain.members) {
    text += (text.empty() ? "" : ",") + lines[member].label();
  }
  return text;
}

std::string commonName(const LineChain& chain, const std::vector<InputLine>& lines) {
  const std::string& first = lines[chain.members.front()].name;
  const bool same = std::all_of(chain.members.begin(), chain.members.end(),
                                [&](std::size_t member) { return lines[member].name == first; });
  return same ? first : "";
}

void writeChains(const SafeOutput& output, const MetricLines& input,
                 const std::vector<LineChain>& chains) {
  const std::vector<LayerModel> layers = {{"chains",
                                           wkbLineString,
                                           {{"chain", OFTInteger},
                                            {"lines", OFTInteger},
                                            {"fids", OFTString},
                                            {"name", OFTString},
                                            {"vertices", OFTInteger},
                                            {"length", OFTReal},
                                            {"closed", OFTInteger}}}};
  VectorOutput file(output, "chains", layers, anyElevation(input.lines), input.model);
  for (std::size_t i = 0; i < chains.size(); ++i) {
    const LineChain& chain = chains[i];
    const OGRFeatureUniquePtr feature = file.newFeature("chains");
    feature->SetField("chain", static_cast<int>(i));
    feature->SetField("lines", static_cast<int>(chain.members.size()));
    feature->SetField("fids", fidsOf(chain, input.lines).c_str());
    const std::string name = commonName(chain, input.lines);
    if (!name.empty()) {
      feature->SetField("name", name.c_str());
    }
    feature->SetField("vertices", static_cast<int>(chain.vertices.size()));
    feature->SetField("length", zr2DTools::calcLength(chain.vertices));
    feature->SetField("closed", chain.closed ? 1 : 0);
    file.add("chains", *feature, file.lineOf(chain.vertices));
  }
  file.finish();
}

void printSummary(const FuseOptions& options, const MetricLines& input,
                  const std::vector<LineChain>& chains) {
  const auto joined = std::count_if(chains.begin(), chains.end(), [](const LineChain& chain) {
    return chain.members.size() > 1;
  });
  const auto closed = std::count_if(chains.begin(), chains.end(),
                                    [](const LineChain& chain) { return chain.closed; });
  summaryText::writeLine(std::cout, "lines",
                         textFormat::counted(input.lines.size(), "line", "lines") + " became " +
                             std::to_string(chains.size()));
  summaryText::writeLine(
      std::cout, "chains",
      std::to_string(joined) + " of several lines, " + std::to_string(closed) + " closed");
  summaryText::writeSystem(std::cout, input.model, input.stated);
  writeInputNotes(std::cout, input);
  summaryText::writeLeftOut(std::cout, options.lines.file, input.leftOut);
  summaryText::writeLine(std::cout, "output",
                         options.output + ": chains " + std::to_string(chains.size()));
  std::cout << std::flush;
}

void run(const FuseOptions& options) {
  const double tolerance = toleranceOf(options);
  outputDriver(options.output);
  optionValues::refuseOverwritingInput(options.output, options.lines.file);
  const MetricLines input = readMetricLines(options.lines);
  SafeOutput output(options.output);
  const std::vector<LineChain> chains = chainLines(input.lines, tolerance);
  writeChains(output, input, chains);
  output.commit();
  printSummary(options, input, chains);
}

}  // namespace

Command addFuseCommand(CLI::App& application) {
  const auto options = std::make_shared<FuseOptions>();
  CLI::App* const parser = addParser(application, *options);
  return {parser, [options] { run(*options); }};
}
