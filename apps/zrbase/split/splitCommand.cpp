#include "split/splitCommand.h"

#include <zrBase/tools2d/lineMeasures.h>

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

#include "common/commandOptions.h"
#include "common/lineFeatures.h"
#include "common/metricInput.h"
#include "common/optionValues.h"
#include "common/progressLine.h"
#include "common/safeOutput.h"
#include "common/summaryText.h"
#include "common/textFormat.h"
#include "split/lineSplitter.h"

namespace {

const char* const kFooter =
    R"(Each line of LINES is cut, in plan, wherever a line or a polygon outline of the second file
crosses it. A line that nothing crosses comes through whole, and no length is lost: the pieces of
a line follow each other from its start to its end. A piece keeps the heights of its line; at a cut
they are interpolated between the vertices beside it.

A crossing within --tolerance (metres) of a vertex cuts at that vertex, and crossings within it of
each other are one; at the own ends of a line there is nothing to cut. Stretches that run along
each other are no crossing. A line is not cut by a copy of itself, so both files may be the same.

Longitudes and latitudes are projected to the UTM zone (WGS 84) of the middle of LINES, unless
--crs names another system in metres. A second file that states no system is in that of the work.

Output: layer pieces, with fid, part and name of the source, number of the piece (from 0), how
many pieces the line came to, and length in plan.

Examples:
  zrbase split faults.geojson --with rivers.gpkg -o pieces.gpkg
      every fault cut where a river crosses it
  zrbase split map.gpkg --layer horizons --with map.gpkg --with-layer faults -o out.gpkg
      one layer cut by another of the same file
  zrbase split faults.shp --with faults.shp --tolerance 5 -o out.geojson
      faults cut by each other; a crossing within 5 m of a vertex cuts at that vertex)";

struct SplitOptions {
  InputOptions lines;
  InputOptions with;
  std::string tolerance = "0.001";
  std::string output;
};

struct SplitCounts {
  std::size_t pieces = 0;
  std::size_t crossings = 0;
  std::size_t cutLines = 0;
};

CLI::App* addParser(CLI::App& application, SplitOptions& options) {
  CLI::App* const command =
      application.add_subcommand("split", "Lines cut at their crossings with others");
  command->footer(kFooter);
  addInputOptions(*command, "LINES", "lines", options.lines);
  command->add_option("--with", options.with.file, "vector file of the lines that cut")
      ->type_name("FILE")
      ->required();
  command
      ->add_option("--with-layer", options.with.layer,
                   "its layer; the first one with polygons or lines otherwise")
      ->type_name("NAME");
  command
      ->add_option("--tolerance", options.tolerance,
                   "distance within which places are the same (0.001)")
      ->type_name("T");
  addOutputOption(*command, options.output);
  return command;
}

std::vector<SplitLine> splitAll(const std::vector<InputLine>& lines, const LineSplitter& splitter) {
  ProgressLine progress("zrbase split: line", lines.size());
  std::vector<SplitLine> splits;
  for (const InputLine& line : lines) {
    splits.push_back(splitter.split(line.vertices));
    progress.show(splits.size());
  }
  return splits;
}

void writePieces(VectorOutput& file, const InputLine& source, const VertexLineList& pieces) {
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const OGRFeatureUniquePtr feature = file.newFeature("pieces");
    setSource(*feature, source);
    feature->SetField("piece", static_cast<int>(i));
    feature->SetField("pieces", static_cast<int>(pieces.size()));
    feature->SetField("length", zr2DTools::calcLength(pieces[i]));
    file.add("pieces", *feature, file.lineOf(pieces[i]));
  }
}

SplitCounts writeAll(const SafeOutput& output, const MetricLines& input,
                     const std::vector<SplitLine>& splits) {
  const std::vector<LayerModel> layers = {
      {"pieces", wkbLineString,
       sourceFieldsAnd({{"piece", OFTInteger}, {"pieces", OFTInteger}, {"length", OFTReal}})}};
  VectorOutput file(output, "pieces", layers, anyElevation(input.lines), input.model);
  SplitCounts counts;
  for (std::size_t i = 0; i < splits.size(); ++i) {
    writePieces(file, input.lines[i], splits[i].pieces);
    counts.crossings += splits[i].crossings;
    counts.cutLines += splits[i].crossings > 0 ? 1 : 0;
  }
  file.finish();
  counts.pieces = file.count("pieces");
  return counts;
}

void run(const SplitOptions& options) {
  const double tolerance = optionValues::numberFromZero("--tolerance", options.tolerance);
  outputDriver(options.output);
  optionValues::refuseOverwritingInput(options.output, options.lines.file);
  optionValues::refuseOverwritingInput(options.output, options.with.file);
  const MetricLines input = readMetricLines(options.lines);
  InputOptions withOptions = options.with;
  withOptions.skipBad = options.lines.skipBad;
  const CompanionLines with = readRingsInto(withOptions, input.model, options.lines.file);
  SafeOutput output(options.output);
  const std::vector<SplitLine> splits = splitAll(input.lines, LineSplitter(with.lines, tolerance));
  const SplitCounts counts = writeAll(output, input, splits);
  output.commit();
  summaryText::writeLine(
      std::cout, "lines",
      std::to_string(input.lines.size()) + " in, " + std::to_string(counts.cutLines) + " cut");
  summaryText::writeLine(std::cout, "crossings",
                         std::to_string(counts.crossings) + " with " +
                             textFormat::counted(with.lines.size(), "line", "lines") + " of " +
                             options.with.file);
  summaryText::writeSystem(std::cout, input.model, input.stated);
  writeInputNotes(std::cout, input);
  summaryText::writeLeftOut(std::cout, options.lines.file, input.leftOut);
  summaryText::writeLeftOut(std::cout, options.with.file, with.leftOut);
  summaryText::writeLine(std::cout, "output",
                         options.output + ": pieces " + std::to_string(counts.pieces));
  std::cout << std::flush;
}

}  // namespace

Command addSplitCommand(CLI::App& application) {
  const auto options = std::make_shared<SplitOptions>();
  CLI::App* const parser = addParser(application, *options);
  return {parser, [options] { run(*options); }};
}
