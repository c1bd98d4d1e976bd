#include "well/wellCommand.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>

#include "common/commandError.h"
#include "common/modelSystem.h"
#include "common/optionValues.h"
#include "common/safeOutput.h"
#include "common/summaryText.h"
#include "common/textFormat.h"
#include "drawing/pictureFile.h"
#include "well/surveyInput.h"
#include "well/wellModel.h"
#include "well/wellOutput.h"
#include "well/wellPicture.h"

namespace {

const char* const kFooter =
    "SURVEY is a table, one station a row by ascending measured depth, with columns of measured "
    "depth\n"
    "(MD, Measured Depth, DEPT ...), inclination (Inc, Incl, DEVI ...) and azimuth (Azi, Azimuth,\n"
    "HAZI ...) in any case, units in brackets or parentheses: MD[m], Inc (deg). Inclination is\n"
    "measured from the vertical, 0 to 180, azimuth clockwise from grid north, both in degrees.\n"
    "\n"
    "Depths are in the unit that the column states, MD[ft], or in --units, or in metres. Results "
    "come\n"
    "out in that unit, or in --output-units; the wellhead is given in the unit of the results. "
    "TVD\n"
    "grows downwards from the wellhead, z is that of the wellhead less TVD. Dogleg severity is in\n"
    "degrees over 30 m or 100 ft since the station before, and 0 at a first one that has none.\n"
    "\n"
    "A survey that begins below depth 0 is computed from the wellhead, vertical there with the "
    "azimuth\n"
    "of the first station. --tie-in gives the place of the first station instead, as its TVD, "
    "north\n"
    "and east offset from the wellhead in the unit of SURVEY, or 'file' to take them from columns "
    "TVD,\n"
    "North and East of SURVEY. Where it has these columns, the summary tells how far the computed\n"
    "places are from them.\n"
    "\n"
    "Methods:\n"
    "  tangential         the interval runs as its lower station points, by an azimuth of 0 to "
    "360\n"
    "  average            at the mean inclination and the mean azimuth, a mean of two numbers: "
    "350\n"
    "                     and 10 make 180\n"
    "  balanced           half as the upper station points, half as the lower\n"
    "  minimum-curvature  arc of a circle (default); average within 0.57 degrees of a right angle\n"
    "  radius             arc on a vertical cylinder, which turns from 350 to 10 by way of south;\n"
    "                     balanced where both inclinations or both azimuths are equal\n"
    "A station whose place suffers from such a rule is told on the standard error stream.\n"
    "\n"
    "Output: .csv has the stations as a table. .gpkg has layers path (a line with z) and stations\n"
    "(points with z); .geojson has both in one collection, told apart by the property 'layer'. "
    "Any\n"
    "other format that GDAL writes (.shp, .fgb ...) has the path. The picture's section lies along "
    "the\n"
    "closure azimuth, from the wellhead to the last station.\n"
    "\n"
    "Examples:\n"
    "  zrbase well survey.csv -o stations.csv\n"
    "      places of all stations as offsets from the wellhead\n"
    "  zrbase well survey.csv --wellhead 464500,6524200,25 --crs EPSG:23031 -o well.gpkg\n"
    "      the path in map coordinates\n"
    "  zrbase well survey.csv --method radius -o well.geojson --picture well.svg\n"
    "      with plan view and vertical section\n"
    "  zrbase well survey.csv --units ft --output-units m -o well.shp\n"
    "      depths in feet, path in metres\n"
    "  zrbase well sidetrack.csv --tie-in 1520.4,-35.2,210.7 -o sidetrack.geojson\n"
    "      a survey whose first station is known";

constexpr double kFarthest = 1e9;  // no coordinate of a well is larger

// The options as typed; numbers are read by the command, which names the bad one.
struct WellOptions {
  SurveyOptions survey;
  std::string method = "minimum-curvature";
  std::string outputUnits;
  std::string wellhead;  // empty for 0,0,0
  std::string tieIn;
  std::string crs;
  std::string output;
  std::string picture;
};

std::vector<double> threeNumbers(const std::string& option, const std::string& text,
                                 const std::string& form) {
  std::vector<double> numbers = optionValues::numberList(option, {text});
  if (numbers.size() != 3) {
    throw CommandError(option + ": '" + textFormat::oneLine(text) + "' is not " + form);
  }
  for (const double number : numbers) {
    if (std::abs(number) > kFarthest) {
      throw CommandError(option + ": '" + textFormat::oneLine(text) + "' is out of reach");
    }
  }
  return numbers;
}

std::string unitText(const std::string& option, const std::string& text) {
  std::string unit = textFormat::lowerCase(text);
  if (!unit.empty() && unit != "m" && unit != "ft") {
    throw CommandError(option + ": '" + textFormat::oneLine(text) + "' is neither ft nor m");
  }
  return unit;
}

WellRequest requestFrom(const WellOptions& options) {
  WellRequest request;
  request.method = wellMethod(options.method);
  if (!options.wellhead.empty()) {
    const std::vector<double> head = threeNumbers("--wellhead", options.wellhead, "x,y,z");
    request.wellhead = gdfVertex(head[0], head[1], head[2]);
  }
  request.ownTieIn = textFormat::lowerCase(options.tieIn) == "file";
  if (!options.tieIn.empty() && !request.ownTieIn) {
    const std::vector<double> place =
        threeNumbers("--tie-in", options.tieIn, "TVD,NORTH,EAST or file");
    request.tieIn = WellOffset{place[0], place[1], place[2]};
  }
  const std::string unit = unitText("--output-units", options.outputUnits);
  if (!unit.empty()) {
    request.unit = unit == "m" ? LengthUnit::metre : LengthUnit::foot;
  }
  return request;
}

CLI::App* addParser(CLI::App& application, WellOptions& options) {
  CLI::App* const command =
      application.add_subcommand("well", "Path of a well from its directional survey");
  command->footer(kFooter);
  command->add_option("SURVEY", options.survey.file, "table with the stations of the survey")
      ->type_name("FILE")
      ->required();
  command
      ->add_option("--layer", options.survey.layer,
                   "layer of SURVEY; the first one with the columns otherwise")
      ->type_name("NAME");
  command
      ->add_option("--method", options.method,
                   "tangential, average, balanced, minimum-curvature (default) or radius")
      ->type_name("METHOD");
  command->add_option("--units", options.survey.units, "unit of the depths in SURVEY: ft or m")
      ->type_name("UNIT");
  command
      ->add_option("--output-units", options.outputUnits,
                   "unit of the results: ft or m; that of SURVEY otherwise")
      ->type_name("UNIT");
  command->add_option("--wellhead", options.wellhead, "where the well begins (0,0,0), z up")
      ->type_name("X,Y,Z");
  command->add_option("--tie-in", options.tieIn, "place of the first station, or file")
      ->type_name("TVD,NORTH,EAST");
  command->add_option("--crs", options.crs, "metric system of the wellhead's x and y")
      ->type_name("EPSG:N");
  command
      ->add_option("-o,--output", options.output,
                   "output: .csv, .geojson, .json, .gpkg, .shp, .fgb ...")
      ->type_name("FILE")
      ->required();
  command->add_option("--picture", options.picture, "plan view and vertical section: .svg or .png")
      ->type_name("FILE");
  command->add_flag("--skip-bad", options.survey.skipBad, "leave bad rows out and go on");
  return command;
}

std::string length(double value, LengthUnit unit) {
  return textFormat::fixed(value, 2) + " " + unitName(unit);
}

std::string startText(const WellPath& path, const WellRequest& request) {
  if (path.fromWellhead) {
    return "vertical at the wellhead";
  }
  if (!request.tieIn && !request.ownTieIn) {
    return "at the wellhead";
  }
  const WellOffset& first = path.stations.front().offset;
  return "first station at TVD " + length(first.tvd, path.unit) + ", north " +
         length(first.north, path.unit) + ", east " + length(first.east, path.unit) +
         (request.ownTieIn ? ", from the file" : "");
}

void printPath(const WellPath& path) {
  const double displacement = path.displacement();
  summaryText::writeLine(std::cout, "stations", std::to_string(path.stations.size()));
  summaryText::writeLine(std::cout, "method", methodName(path.method));
  summaryText::writeLine(std::cout, "depth", length(path.last().measuredDepth, path.unit));
  summaryText::writeLine(std::cout, "TVD", length(path.last().offset.tvd, path.unit));
  summaryText::writeLine(std::cout, "displaced", length(displacement, path.unit) + " horizontally");
  summaryText::writeLine(
      std::cout, "closure",
      displacement > 0.0 ? "azimuth " + textFormat::fixed(path.closureAzimuth(), 2) : "none");
  const WellStation& sharpest = path.sharpest();
  summaryText::writeLine(std::cout, "dogleg",
                         "largest " + textFormat::fixed(sharpest.dogleg, 2) + " " +
                             doglegUnitName(path.unit) + ", at " +
                             length(sharpest.measuredDepth, path.unit));
}

void printSummary(const WellOptions& options, const WellRequest& request, const Survey& survey,
                  const WellPath& path, const SpatialReference& system, const WellOutput& output) {
  printPath(path);
  summaryText::writeLine(std::cout, "start", startText(path, request));
  if (path.farthestFromOwn) {
    const WellOffset& far = *path.farthestFromOwn;
    summaryText::writeLine(std::cout, "check",
                           "the file's own TVD, north and east differ by at most " +
                               textFormat::fixed(far.tvd, 3) + ", " +
                               textFormat::fixed(far.north, 3) + " and " +
                               textFormat::fixed(far.east, 3) + " " + unitName(path.unit));
  }
  if (system) {
    summaryText::writeSystem(std::cout, system, nullptr);
  }
  if (!survey.leftOut.empty()) {
    summaryText::writeLeftOut(std::cout, options.survey.file, survey.leftOut);
  }
  summaryText::writeLine(std::cout, "output", options.output + ": " + output.contents());
  if (!options.picture.empty()) {
    summaryText::writeLine(std::cout, "picture", options.picture);
  }
  std::cout << std::flush;
}

void checkNames(const WellOptions& options) {
  checkWellOutputName(options.output);
  if (!options.picture.empty()) {
    pictureFormat(options.picture);
  }
  optionValues::refuseOverwritingInput(options.output, options.survey.file);
  optionValues::refuseOverwritingInput(options.picture, options.survey.file);
}

SpatialReference systemFrom(const WellOptions& options, LengthUnit unit) {
  if (options.crs.empty()) {
    return nullptr;
  }
  if (options.wellhead.empty()) {
    throw CommandError("--crs " + options.crs + ": give --wellhead, where the well begins in it");
  }
  SpatialReference system = metricSystemFromEpsg(options.crs);
  if (unit != LengthUnit::metre) {
    throw CommandError("--crs " + options.crs + " is in metres, but the results are in " +
                       unitName(unit) + ": give --output-units m");
  }
  return system;
}

void run(const WellOptions& options) {
  SurveyOptions surveyOptions = options.survey;
  surveyOptions.units = unitText("--units", options.survey.units);
  const WellRequest request = requestFrom(options);
  checkNames(options);
  const Survey survey = readSurvey(surveyOptions);
  const WellPath path = computeWell(survey, request);
  const SpatialReference system = systemFrom(options, path.unit);
  const std::string name = std::filesystem::path(options.survey.file).stem().string();
  WellOutput output(options.output, path, name, system, options.survey.file);
  std::unique_ptr<SafeOutput> picture;
  if (!options.picture.empty()) {
    picture = std::make_unique<SafeOutput>(options.picture);
    drawWellPicture(*picture, {&path, name, system ? systemLabel(system) : ""});
  }
  output.commit();
  if (picture) {
    picture->commit();
  }
  for (const std::string& warning : path.warnings) {
    std::cerr << "zrbase well: warning: " << options.survey.file << ": "
              << textFormat::oneLine(warning) << '\n';
  }
  printSummary(options, request, survey, path, system, output);
}

}  // namespace

Command addWellCommand(CLI::App& application) {
  const auto options = std::make_shared<WellOptions>();
  CLI::App* const parser = addParser(application, *options);
  return {parser, [options] { run(*options); }};
}
