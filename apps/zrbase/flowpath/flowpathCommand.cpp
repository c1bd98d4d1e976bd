#include "flowpath/flowpathCommand.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>

#include "common/commandError.h"
#include "common/metricInput.h"
#include "common/optionValues.h"
#include "common/progressLine.h"
#include "common/safeOutput.h"
#include "common/summaryText.h"
#include "common/textFormat.h"
#include "common/vectorOutput.h"
#include "drawing/pictureFile.h"
#include "flowpath/flowpathModel.h"
#include "flowpath/flowpathOutput.h"
#include "flowpath/flowpathSummary.h"
#include "flowpath/mapPicture.h"

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

// The options as typed; numbers are read by the command, which names the bad one.
struct FlowpathOptions {
  InputOptions faults;
  std::string points;
  std::vector<std::string> heights;
  std::vector<std::string> slips;
  std::string bounds;
  std::string sideTolerance = "0";
  std::string output;
  std::string picture;
};

Extent statedBounds(const std::string& text) {
  const std::vector<double> corners = optionValues::numberList("--bounds", {text});
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
  request.heights = optionValues::numberList("--height", options.heights);
  request.slips = optionValues::numberList("--slip", options.slips);
  request.sideTolerance = optionValues::numberFromZero("--side-tolerance", options.sideTolerance);
  if (!options.bounds.empty()) {
    request.bounds = statedBounds(options.bounds);
  }
  return request;
}

std::vector<TemplateModel> modelAll(const std::vector<InputLine>& lines,
                                    const FlowpathRequest& request) {
  ProgressLine progress("zrbase flowpath: template", lines.size());
  std::vector<TemplateModel> models;
  for (const InputLine& line : lines) {
    models.push_back(modelTemplate(line, request));
    progress.show(models.size());
  }
  return models;
}

std::string boundsText(const Extent& bounds) {
  return textFormat::fixed(bounds.minX, 0) + "," + textFormat::fixed(bounds.minY, 0) + "," +
         textFormat::fixed(bounds.maxX, 0) + "," + textFormat::fixed(bounds.maxY, 0);
}

void printInput(const MetricLines& input, const Extent& bounds) {
  std::cout << '\n';
  summaryText::writeSystem(std::cout, input.model, input.stated);
  summaryText::writeLine(std::cout, "bounds", boundsText(bounds));
  writeInputNotes(std::cout, input);
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

MapContent mapContentOf(const FlowpathOptions& options, const MetricLines& input,
                        const FlowpathRequest& request, const std::vector<TemplateModel>& models) {
  MapContent content;
  content.models = &models;
  content.points = &request.points;
  content.systemText = systemLabel(input.model);
  content.sourceText = std::filesystem::path(options.faults.file).filename().string();
  return content;
}

CLI::App* addParser(CLI::App& application, FlowpathOptions& options) {
  CLI::App* const command =
      application.add_subcommand("flowpath", "Bisectors and flow paths of fault traces");
  command->footer(kFooter);
  command->add_option("FAULTS", options.faults.file, "vector file with the fault traces")
      ->type_name("FILE")
      ->required();
  command
      ->add_option("--layer", options.faults.layer,
                   "layer of FAULTS; the first one with lines otherwise")
      ->type_name("NAME");
  command
      ->add_option("--where", options.faults.where,
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
  command->add_option("--crs", options.faults.crs, "metric system to work in")->type_name("EPSG:N");
  command->add_option("-o,--output", options.output, "output: .geojson, .json or .gpkg")
      ->type_name("FILE")
      ->required();
  command->add_option("--picture", options.picture, "map of the result: .svg or .png")
      ->type_name("FILE");
  command->add_flag("--skip-bad", options.faults.skipBad, "leave bad features out and go on");
  return command;
}

void run(const FlowpathOptions& options) {
  FlowpathRequest request = requestFrom(options);
  outputDriver(options.output);
  if (!options.picture.empty()) {
    pictureFormat(options.picture);
  }
  for (const std::string& input : {options.faults.file, options.points}) {
    optionValues::refuseOverwritingInput(options.output, input);
    optionValues::refuseOverwritingInput(options.picture, input);
  }
  const MetricLines input = readMetricLines(options.faults);
  MetricPoints points;
  if (!options.points.empty()) {
    points =
        readPointsInto(options.points, options.faults.skipBad, input.model, options.faults.file);
    request.points = points.points;
  }
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
    drawMapPicture(*picture, mapContentOf(options, input, request, models));
  }
  output.commit();
  if (picture) {
    picture->commit();
  }
  writeSummaryTable(std::cout, models);
  printInput(input, request.bounds);
  summaryText::writeLeftOut(std::cout, options.faults.file, input.leftOut);
  summaryText::writeLeftOut(std::cout, options.points, points.leftOut);
  printOutput(options, counts);
}

}  // namespace

Command addFlowpathCommand(CLI::App& application) {
  const auto options = std::make_shared<FlowpathOptions>();
  CLI::App* const parser = addParser(application, *options);
  return {parser, [options] { run(*options); }};
}
