#include "flowpathCommand.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>

#include "commandError.h"
#include "flowpathModel.h"
#include "flowpathSummary.h"
#include "mapPicture.h"
#include "modelSystem.h"
#include "progressLine.h"
#include "safeOutput.h"
#include "textFormat.h"
#include "vectorInput.h"
#include "vectorOutput.h"

namespace {

const char* const kFooter =
    "Each line of FAULTS is a template. Both of its sides are divided by bisectors into one "
    "domain\n"
    "per segment; flow paths keep their height, the distance from the trace, across them. Heights "
    "and\n"
    "slips are metres: a height is positive left of the trace as seen along its direction, "
    "negative\n"
    "right of it; a slip is positive in that direction.\n\n"
    "Longitudes and latitudes are projected to the UTM zone (WGS 84) of the middle of the traces,\n"
    "unless --crs names another system in metres. A file that states no system, such as a CSV of "
    "x\n"
    "and y, is taken as metres of the model; CSV columns lon and lat are WGS 84.\n\n"
    "Output: layers template, bisectors, flowpaths and moved, in the metric system that the "
    "summary\n"
    "names. A GeoPackage has four layers; GeoJSON is one collection whose features tell theirs in "
    "the\n"
    "property 'layer', with a 'crs' member.\n\n"
    "Examples:\n"
    "  zrbase flowpath faults.geojson --height 2000 --height -2000 -o paths.geojson\n"
    "      paths 2 km left and right of every fault\n"
    "  zrbase flowpath faults.gpkg --layer active --where 7 --points wells.csv --slip 500 -o "
    "out.gpkg\n"
    "      the wells carried 500 m along one fault of a layer\n"
    "  zrbase flowpath trace.csv --height 100,200,-100 --bounds 0,0,5000,4000 -o out.gpkg\n"
    "      a trace of x,y,z rows in a model of 5 by 4 km\n"
    "  zrbase flowpath faults.shp --crs EPSG:2193 --side-tolerance 0.01 --height 500 -o out.gpkg\n"
    "      in the New Zealand Transverse Mercator grid; points within 1 cm stand on the trace\n"
    "  zrbase flowpath faults.geojson --height 1000 --skip-bad -o out.gpkg --picture map.svg\n"
    "      with a map; features that cannot be used are left out and counted";

// Six degrees from its middle a zone stretches lengths by up to 1 part in 200: beyond that the user
// is told.
constexpr double kWidestInOneZone = 12.0;

double finiteNumber(const std::string& option, const std::string& text) {
  const std::optional<double> value = textFormat::number(text);
  if (!value || !std::isfinite(*value)) {
    throw CommandError(option + ": '" + textFormat::oneLine(text) + "' is not a finite number");
  }
  return *value;
}

// --height 100,200 and --height 100 --height 200 are the same.
std::vector<double> numberList(const std::string& option, const std::vector<std::string>& texts) {
  std::vector<double> values;
  for (const std::string& text : texts) {
    for (const std::string& piece : textFormat::split(text, ',')) {
      values.push_back(finiteNumber(option, piece));
    }
  }
  return values;
}

std::vector<long long> selectedFids(const std::string& where) {
  std::vector<long long> fids;
  if (textFormat::lowerCase(where) == "all") {
    return fids;
  }
  for (const std::string& piece : textFormat::split(where, ',')) {
    const std::optional<long long> fid = textFormat::wholeNumber(piece);
    if (!fid) {
      throw CommandError("--where: '" + textFormat::oneLine(where) +
                         "' is neither a feature id nor all");
    }
    fids.push_back(*fid);
  }
  return fids;
}

Extent statedBounds(const std::string& text) {
  const std::vector<double> corners = numberList("--bounds", {text});
  if (corners.size() != 4 || corners[0] == corners[2] || corners[1] == corners[3]) {
    throw CommandError("--bounds: '" + textFormat::oneLine(text) +
                       "' is not two corners x0,y0,x1,y1 of a box with an area");
  }
  Extent bounds;
  bounds.add(corners[0], corners[1]);
  bounds.add(corners[2], corners[3]);
  return bounds;
}

FlowpathRequest requestFrom(const FlowpathOptions& options) {
  FlowpathRequest request;
  request.heights = numberList("--height", options.heights);
  request.slips = numberList("--slip", options.slips);
  request.sideTolerance = finiteNumber("--side-tolerance", options.sideTolerance);
  if (request.sideTolerance < 0.0) {
    throw CommandError("--side-tolerance: '" + options.sideTolerance + "' is below 0");
  }
  if (!options.bounds.empty()) {
    request.bounds = statedBounds(options.bounds);
  }
  return request;
}

void refuseOverwritingInput(const std::string& output, const std::string& input) {
  std::error_code ignored;
  if (!output.empty() && !input.empty() && std::filesystem::equivalent(output, input, ignored)) {
    throw CommandError(output + ": is an input too: give the output another name");
  }
}

/// What was read, in the metric system of the work.
struct Input {
  std::vector<TemplateLine> lines;
  SpatialReference stated;
  SpatialReference model;
  double degreesWide = 0.0;  // longitudes that were put into one zone
  std::size_t otherFeatures = 0;
  std::size_t repeatedVertices = 0;
  std::vector<std::string> leftOut;
};

// Traces beside the date line have longitudes near both 180 and -180: of the extent with plain
// longitudes and that with longitudes from 0 to 360 the narrower one is meant.
Extent extentOf(const std::vector<TemplateLine>& lines, bool geographic) {
  Extent plain;
  Extent eastward;
  for (const TemplateLine& line : lines) {
    for (const gdfVertex& vertex : line.vertices) {
      plain.add(vertex.x(), vertex.y());
      eastward.add(vertex.x() < 0.0 ? vertex.x() + 360.0 : vertex.x(), vertex.y());
    }
  }
  const bool narrower = eastward.maxX - eastward.minX < plain.maxX - plain.minX;
  return geographic && narrower ? eastward : plain;
}

Input readInput(const FlowpathOptions& options) {
  BadFeatures bad(options.faults, options.skipBad);
  TemplateFile file =
      readTemplates(options.faults, {options.layer, selectedFids(options.where)}, bad);
  Input input;
  input.stated = file.system;
  input.otherFeatures = file.otherFeatures;
  input.repeatedVertices = file.repeatedVertices;
  try {
    const bool geographic = isGeographic(file.system);
    const Extent extent = extentOf(file.lines, geographic);
    input.model = chooseModelSystem(file.system, options.crs, extent);
    input.degreesWide = geographic && options.crs.empty() ? extent.maxX - extent.minX : 0.0;
    projectTemplates(file.lines, Projection(file.system, input.model), bad);
  } catch (const CommandError& error) {
    // "faults.shp: feature 3: ..." names the file already.
    const std::string text = error.what();
    throw text.rfind(options.faults, 0) == 0 ? error : CommandError(options.faults + ": " + text);
  }
  if (file.lines.empty()) {
    throw CommandError(options.faults + ": no usable line, " +
                       std::to_string(bad.leftOut().size()) + " left out");
  }
  input.lines = std::move(file.lines);
  input.leftOut = bad.leftOut();
  return input;
}

// Points that state no system are in that of the model. Returns what was left out.
std::vector<std::string> readRequestPoints(const FlowpathOptions& options,
                                           const SpatialReference& model,
                                           FlowpathRequest& request) {
  BadFeatures bad(options.points, options.skipBad);
  PointFile file = readPoints(options.points, bad);
  if (file.system && !model) {
    throw CommandError(options.points + ": its points are in " + systemCode(file.system) +
                       ", but " + options.faults + " states no system: give --crs");
  }
  projectPoints(file.points, Projection(file.system, model), bad);
  if (file.points.empty()) {
    throw CommandError(options.points + ": no usable point");
  }
  request.points = std::move(file.points);
  return bad.leftOut();
}

std::vector<TemplateModel> modelAll(const std::vector<TemplateLine>& lines,
                                    const FlowpathRequest& request) {
  ProgressLine progress("zrbase flowpath: template", lines.size());
  std::vector<TemplateModel> models;
  for (const TemplateLine& line : lines) {
    models.push_back(modelTemplate(line, request));
    progress.show(models.size());
  }
  return models;
}

void printLeftOut(const std::string& file, const std::vector<std::string>& leftOut) {
  if (leftOut.empty()) {
    return;
  }
  std::cout << "left out  " << textFormat::counted(leftOut.size(), "bad feature", "bad features")
            << " of " << file << '\n';
  for (const std::string& each : leftOut) {
    std::cout << "          " << each << '\n';
  }
}

std::string boundsText(const Extent& bounds) {
  return textFormat::fixed(bounds.minX, 0) + "," + textFormat::fixed(bounds.minY, 0) + "," +
         textFormat::fixed(bounds.maxX, 0) + "," + textFormat::fixed(bounds.maxY, 0);
}

void printInput(const Input& input, const Extent& bounds) {
  std::cout << "\ncrs       " << systemLabel(input.model);
  if (input.stated && systemCode(input.stated) != systemCode(input.model)) {
    std::cout << ", projected from " << systemCode(input.stated);
  }
  std::cout << "\nbounds    " << boundsText(bounds) << '\n';
  if (input.degreesWide > kWidestInOneZone) {
    std::cout
        << "note      the traces span " << textFormat::fixed(input.degreesWide, 0)
        << " degrees of longitude: one zone stretches lengths; --where or --crs keep them true\n";
  }
  if (input.repeatedVertices > 0) {
    std::cout << "dropped   "
              << textFormat::counted(input.repeatedVertices, "repeated vertex", "repeated vertices")
              << '\n';
  }
  if (input.otherFeatures > 0) {
    std::cout << "ignored   "
              << textFormat::counted(input.otherFeatures, "feature that is no line",
                                     "features that are no lines")
              << '\n';
  }
}

void printOutput(const FlowpathOptions& options, const WrittenCounts& counts) {
  std::cout << "output    " << options.output << ": template " << counts.templates << ", bisectors "
            << counts.bisectors << ", flowpaths " << counts.paths << ", moved " << counts.moved
            << '\n';
  if (!options.picture.empty()) {
    std::cout << "picture   " << options.picture << '\n';
  }
  std::cout << std::flush;
}

MapContent mapContentOf(const FlowpathOptions& options, const Input& input,
                        const FlowpathRequest& request, const std::vector<TemplateModel>& models) {
  MapContent content;
  content.models = &models;
  content.points = &request.points;
  content.systemText = systemLabel(input.model);
  content.sourceText = std::filesystem::path(options.faults).filename().string();
  return content;
}

}  // namespace

CLI::App* addFlowpathCommand(CLI::App& application, FlowpathOptions& options) {
  CLI::App* const command =
      application.add_subcommand("flowpath", "Bisectors and flow paths of fault traces");
  command->footer(kFooter);
  command->add_option("FAULTS", options.faults, "vector file with the fault traces")
      ->type_name("FILE")
      ->required();
  command
      ->add_option("--layer", options.layer, "layer of FAULTS; the first one with lines otherwise")
      ->type_name("NAME");
  command
      ->add_option("--where", options.where,
                   "feature id, or several joined by commas, or all (default)")
      ->type_name("FID");
  command
      ->add_option("--points", options.points, "vector file of points; each gets a path through it")
      ->type_name("FILE");
  command->add_option("--height", options.heights, "height of a path; may be repeated")
      ->type_name("H")
      ->expected(1)
      ->allow_extra_args(false)
      ->take_all();
  command->add_option("--slip", options.slips, "slip to move each point by; may be repeated")
      ->type_name("S")
      ->expected(1)
      ->allow_extra_args(false)
      ->take_all();
  command->add_option("--bounds", options.bounds, "two corners of the model, in the metric system")
      ->type_name("X0,Y0,X1,Y1");
  command
      ->add_option("--side-tolerance", options.sideTolerance,
                   "distance within which a point stands on the trace (0)")
      ->type_name("T");
  command->add_option("--crs", options.crs, "metric system to work in")->type_name("EPSG:N");
  command->add_option("-o,--output", options.output, "output: .geojson, .json or .gpkg")
      ->type_name("FILE")
      ->required();
  command->add_option("--picture", options.picture, "map of the result: .svg or .png")
      ->type_name("FILE");
  command->add_flag("--skip-bad", options.skipBad, "leave bad features out and go on");
  return command;
}

void runFlowpathCommand(const FlowpathOptions& options, int& argumentCount, char** arguments) {
  FlowpathRequest request = requestFrom(options);
  outputDriver(options.output);
  if (!options.picture.empty()) {
    pictureFormat(options.picture);
  }
  for (const std::string& input : {options.faults, options.points}) {
    refuseOverwritingInput(options.output, input);
    refuseOverwritingInput(options.picture, input);
  }
  const Input input = readInput(options);
  const std::vector<std::string> pointsLeftOut =
      options.points.empty() ? std::vector<std::string>()
                             : readRequestPoints(options, input.model, request);
  if (request.bounds.empty) {
    request.bounds = defaultBounds(input.lines, request);
  }
  SafeOutput output(options.output);
  std::unique_ptr<SafeOutput> picture;
  if (!options.picture.empty()) {
    picture = std::make_unique<SafeOutput>(options.picture);
  }
  const std::vector<TemplateModel> models = modelAll(input.lines, request);
  const WrittenCounts counts = writeModels(output, input.model, models, request.points);
  if (picture) {
    drawMapPicture(*picture, mapContentOf(options, input, request, models), argumentCount,
                   arguments);
  }
  output.commit();
  if (picture) {
    picture->commit();
  }
  writeSummaryTable(std::cout, models);
  printInput(input, request.bounds);
  printLeftOut(options.faults, input.leftOut);
  printLeftOut(options.points, pointsLeftOut);
  printOutput(options, counts);
}
