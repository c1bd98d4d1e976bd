#include "polygons/polygonsCommand.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>

#include "common/commandError.h"
#include "common/commandOptions.h"
#include "common/metricInput.h"
#include "common/optionValues.h"
#include "common/safeOutput.h"
#include "common/summaryText.h"
#include "common/textFormat.h"
#include "common/vectorOutput.h"
#include "polygons/polygonJobs.h"
#include "polygons/polygonsOutput.h"

namespace {

const char* const kFooter = R"(One of three jobs, in plan; distances are metres.

--inner-outer takes every ring by itself, those of polygons and closed lines, and orders them anew:
a ring that lies in an odd number of others is a hole of the innermost outer ring around it, any
other one is an outer ring, so an island in a lake is a polygon of its own. Rings may touch within
--tolerance; rings that overlap or are the same do not lie in each other. Output: layer polygons,
with holes, and layer rings with the role of each ring (outer, inner), its depth (in how many
others it lies) and the innermost ring it lies in (inside: 12, 12.1 for a part, 12 ring 1 for a
hole).

--condition repairs rings: of neighbouring vertices that differ by less than --tolerance in x and
in y the first stays, ends within it are closed exactly, and where a ring crosses itself one of
the two sides gets a vertex, a node; a side that crosses several others may keep crossings without
one. The rings of a polygon stay together. Output: layer polygons with the
numbers of vertices, of those removed, of nodes put in, and of crossings left.

--complete closes open lines along a boundary: a polygon's outer ring or a closed line of the
second file, the first one that both ends of the line come to. The shorter way round is taken; the
vertices of both stay as they are. An end may run over the boundary with its last segment, or stop
short of it by --reach at most (a thousandth of the boundary's length unless given; also what the
joint is true to, and no more than the mean side of the boundary). A line that is closed already
stays as it is. Output: layer polygons, with what closed each (boundary, itself), the boundary,
how many of its vertices were added, how often the ring crosses itself (crossings), and the area.

Longitudes and latitudes are projected to the UTM zone (WGS 84) of the middle of FILE, unless
--crs names another system in metres. A boundary that states no system is in that of the work.

Examples:
  zrbase polygons contours.geojson --inner-outer -o closures.gpkg
      closed contours become polygons with holes
  zrbase polygons blocks.shp --condition --tolerance 0.5 -o clean.gpkg
      fault blocks without vertices closer than half a metre, closed, noded where they cross
  zrbase polygons contacts.gpkg --layer west --complete licence.geojson --reach 50 -o areas.geojson
      open contacts closed along the outline of a licence, from 50 m before it)";

struct PolygonsOptions {
  InputOptions polygons;
  InputOptions boundary;
  bool innerOuter = false;
  bool condition = false;
  std::string tolerance = "0.001";
  std::string reach;
  std::string output;
};

CLI::App* addParser(CLI::App& application, PolygonsOptions& options) {
  CLI::App* const command = application.add_subcommand(
      "polygons", "Rings ordered into polygons, repaired, or closed along a boundary");
  command->footer(kFooter);
  addInputOptions(*command, "FILE", "polygons or lines", options.polygons);
  command->add_flag("--inner-outer", options.innerOuter, "order rings into outer and inner ones");
  command->add_flag("--condition", options.condition, "repair rings");
  command
      ->add_option("--complete", options.boundary.file,
                   "close the lines of FILE along the boundary in this vector file")
      ->type_name("BOUNDARY");
  command
      ->add_option("--boundary-layer", options.boundary.layer,
                   "layer of BOUNDARY; the first one with polygons or lines otherwise")
      ->type_name("NAME");
  command->add_option("--reach", options.reach, "how far an end may stop short of the boundary")
      ->type_name("R");
  command
      ->add_option("--tolerance", options.tolerance,
                   "distance within which places are the same (0.001)")
      ->type_name("T");
  addOutputOption(*command, options.output);
  return command;
}

void requireOneJob(const PolygonsOptions& options) {
  const bool complete = !options.boundary.file.empty();
  const int jobs = (options.innerOuter ? 1 : 0) + (options.condition ? 1 : 0) + (complete ? 1 : 0);
  if (jobs != 1) {
    throw CommandError(std::string(jobs == 0 ? "give one of" : "give only one of") +
                       " --inner-outer, --condition and --complete BOUNDARY");
  }
  if (!complete && !(options.reach.empty() && options.boundary.layer.empty())) {
    throw CommandError(std::string(options.reach.empty() ? "--boundary-layer" : "--reach") +
                       ": only with --complete");
  }
}

std::optional<double> reachOf(const PolygonsOptions& options) {
  if (options.reach.empty()) {
    return std::nullopt;
  }
  const double reach = optionValues::numberFromZero("--reach", options.reach);
  if (reach == 0.0) {
    throw CommandError("--reach: '" + textFormat::oneLine(options.reach) + "' is not above 0");
  }
  return reach;
}

// The outer rings of polygons and the closed lines.
std::vector<InputLine> boundariesAmong(const std::vector<InputLine>& lines,
                                       const std::string& file) {
  std::vector<InputLine> boundaries;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(boundaries),
               [](const InputLine& line) {
                 return line.ring <= 0 && line.vertices.size() > 3 &&
                        line.vertices.front() == line.vertices.back();
               });
  if (boundaries.empty()) {
    throw CommandError(file + ": no boundary: neither a polygon nor a closed line");
  }
  return boundaries;
}

struct JobResult {
  std::string counts;
  std::string note;
  std::vector<std::string> boundaryLeftOut;
};

void refuseNothing(bool empty, const PolygonsOptions& options, const BadFeatures& bad) {
  if (empty) {
    throw CommandError(options.polygons.file + ": no usable feature, " +
                       std::to_string(bad.leftOut().size()) + " left out");
  }
}

JobResult nest(const PolygonsOptions& options, const MetricLines& input, double tolerance,
               const SafeOutput& output, BadFeatures& bad) {
  const NestedRings nested = nestInput(input.lines, tolerance, bad);
  refuseNothing(nested.rings.empty(), options, bad);
  const auto holes = std::count_if(nested.places.begin(), nested.places.end(),
                                   [](const RingPlace& place) { return place.holeOf.has_value(); });
  JobResult result;
  result.note = textFormat::counted(nested.rings.size(), "ring", "rings") + ", " +
                std::to_string(nested.rings.size() - static_cast<std::size_t>(holes)) + " outer, " +
                std::to_string(holes) + " inner";
  result.counts = writeNested(output, input.model, nested);
  return result;
}

JobResult condition(const PolygonsOptions& options, const MetricLines& input, double tolerance,
                    const SafeOutput& output, BadFeatures& bad) {
  const std::vector<ConditionedPolygon> polygons = conditionInput(input.lines, tolerance, bad);
  refuseNothing(polygons.empty(), options, bad);
  std::size_t removed = 0;
  std::size_t nodes = 0;
  std::size_t crossings = 0;
  for (const ConditionedPolygon& polygon : polygons) {
    removed += polygon.removed;
    nodes += polygon.nodes;
    crossings += polygon.crossingsLeft;
  }
  JobResult result;
  result.note = textFormat::counted(removed, "vertex", "vertices") + " removed, " +
                textFormat::counted(nodes, "node", "nodes") + " put in, " +
                textFormat::counted(crossings, "crossing", "crossings") + " left";
  result.counts = writeConditioned(output, input.model, polygons);
  return result;
}

JobResult complete(const PolygonsOptions& options, const MetricLines& input, double tolerance,
                   const SafeOutput& output, BadFeatures& bad) {
  InputOptions boundaryOptions = options.boundary;
  boundaryOptions.skipBad = options.polygons.skipBad;
  const CompanionLines read = readRingsInto(boundaryOptions, input.model, options.polygons.file);
  const std::vector<InputLine> boundaries = boundariesAmong(read.lines, options.boundary.file);
  const std::vector<CompletedLine> lines =
      completeInput(input.lines, boundaries, reachOf(options), tolerance, bad);
  refuseNothing(lines.empty(), options, bad);
  const auto along = std::count_if(lines.begin(), lines.end(), [](const CompletedLine& line) {
    return line.boundary.has_value();
  });
  JobResult result;
  result.note = std::to_string(along) + " closed along " + options.boundary.file + ", " +
                std::to_string(lines.size() - static_cast<std::size_t>(along)) + " closed before";
  result.counts = writeCompleted(output, input.model, lines, tolerance);
  result.boundaryLeftOut = read.leftOut;
  return result;
}

void printSummary(const PolygonsOptions& options, const MetricLines& input, const BadFeatures& bad,
                  const JobResult& result) {
  summaryText::writeLine(std::cout, "result", result.note);
  summaryText::writeSystem(std::cout, input.model, input.stated);
  writeInputNotes(std::cout, input);
  std::vector<std::string> leftOut = input.leftOut;
  leftOut.insert(leftOut.end(), bad.leftOut().begin(), bad.leftOut().end());
  summaryText::writeLeftOut(std::cout, options.polygons.file, leftOut);
  summaryText::writeLeftOut(std::cout, options.boundary.file, result.boundaryLeftOut);
  summaryText::writeLine(std::cout, "output", options.output + ": " + result.counts);
  std::cout << std::flush;
}

void run(const PolygonsOptions& options) {
  requireOneJob(options);
  const double tolerance = optionValues::numberFromZero("--tolerance", options.tolerance);
  reachOf(options);
  outputDriver(options.output);
  optionValues::refuseOverwritingInput(options.output, options.polygons.file);
  optionValues::refuseOverwritingInput(options.output, options.boundary.file);
  const bool toClose = !options.boundary.file.empty();
  const MetricLines input =
      toClose ? readMetricLines(options.polygons) : readMetricRings(options.polygons);
  BadFeatures bad(options.polygons.file, options.polygons.skipBad);
  SafeOutput output(options.output);
  const auto job = toClose ? complete : options.innerOuter ? nest : condition;
  const JobResult result = job(options, input, tolerance, output, bad);
  output.commit();
  printSummary(options, input, bad, result);
}

}  // namespace

Command addPolygonsCommand(CLI::App& application) {
  const auto options = std::make_shared<PolygonsOptions>();
  CLI::App* const parser = addParser(application, *options);
  return {parser, [options] { run(*options); }};
}
