#include "plane/planeCommand.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>
#include <memory>

#include "common/commandError.h"
#include "common/commandOptions.h"
#include "common/optionValues.h"
#include "common/safeOutput.h"
#include "common/summaryText.h"
#include "common/textFormat.h"
#include "common/vectorOutput.h"
#include "drawing/pictureFile.h"
#include "plane/planeModel.h"
#include "plane/planeOutput.h"
#include "plane/pointSets.h"
#include "plane/stereonetPicture.h"

namespace {

// Six degrees from its middle a zone stretches lengths by up to 1 part in 200.
constexpr double kWidestInOneZone = 12.0;

const char* const kFooter =
    "A set of points is what one plane is fitted to: the points with one value of --group, else\n"
    "each multi-point, line or polygon by its vertices, else all single points, or all rows of a\n"
    "table, together. Each needs 3 points that are not on one line. z is up, in metres.\n\n"
    "Methods:\n"
    "  ls          smallest sum of squared distances, measured square to the plane (default); a\n"
    "              set flat within 1 mm in z, y or x gets that axis as its normal\n"
    "  orthogonal  the same, but a set that is within 1 cm flat in a coordinate, upright, or\n"
    "              parallel to the x or y axis comes first, and gets exactly such a plane\n"
    "  linear      a linear system whose result depends on where the points lie and is no "
    "best-fit\n"
    "              plane; for comparison with orientations that were made by it\n\n"
    "Dip is degrees below the horizontal, dip azimuth and strike degrees clockwise from the north\n"
    "of the metric system (grid north), the strike with the dip on its right. A horizontal plane\n"
    "has neither; an upright one has the strike below 180. rms is the root mean square distance\n"
    "of the points from the plane.\n\n"
    "Longitudes and latitudes are projected to the UTM zone (WGS 84) of their middle, unless "
    "--crs\n"
    "names another system in metres; z stays. A file that states no system, such as a CSV of x, y\n"
    "and z, is taken as metres; CSV columns lon and lat are WGS 84.\n\n"
    "Output: layer planes, a point at the centre of each set with set, name, points, dip,\n"
    "dip_azimuth, strike, rms, max_distance, the upward normal nx, ny, nz, method and crs.\n\n"
    "Examples:\n"
    "  zrbase plane contacts.csv --group bed -o planes.csv\n"
    "      a table of x,y,z,bed rows: one plane a bed, as a table\n"
    "  zrbase plane outcrops.gpkg --layer traces -o planes.gpkg --picture net.svg\n"
    "      a plane through each digitised trace with elevations, and a stereonet of the poles\n"
    "  zrbase plane gps.geojson --group site --method orthogonal --skip-bad -o planes.geojson\n"
    "      a plane a site; sites without a plane are left out and told\n"
    "  zrbase plane dem_points.shp --z ELEV --group facet -o planes.gpkg --picture net.png\n"
    "      points whose elevation is an attribute";

struct PlaneOptions {
  PointSetOptions points;
  std::string method = "ls";
  std::string output;
  std::string picture;
};

CLI::App* addParser(CLI::App& application, PlaneOptions& options) {
  CLI::App* const command =
      application.add_subcommand("plane", "Best-fit planes of point sets, with a stereonet");
  command->footer(kFooter);
  addInputOptions(*command, "POINTS", "points", options.points.input);
  command->add_option("--group", options.points.group, "field whose values tell the sets apart")
      ->type_name("FIELD");
  command->add_option("--z", options.points.zField, "field with the elevation of single points")
      ->type_name("FIELD");
  command->add_option("--method", options.method, "ls (default), orthogonal or linear")
      ->type_name("METHOD");
  command->add_option("-o,--output", options.output, "output: .geojson, .json, .gpkg or .csv")
      ->type_name("FILE")
      ->required();
  command
      ->add_option("--picture", options.picture,
                   "lower-hemisphere stereonet of the poles: .svg or .png")
      ->type_name("FILE");
  return command;
}

void writeSummaryTable(std::ostream& out, const std::vector<FittedPlane>& planes) {
  std::vector<std::vector<std::string>> rows = {
      {"set", "points", "dip", "azimuth", "strike", "rms [m]"}};
  for (const FittedPlane& plane : planes) {
    rows.push_back({plane.label + (plane.name.empty() ? "" : " " + plane.name),
                    std::to_string(plane.points), textFormat::fixed(plane.dip, 1),
                    azimuthText(plane.azimuth), azimuthText(plane.strike),
                    textFormat::fixed(plane.rms, 3)});
  }
  summaryText::writeTable(out, rows);
}

void writeNotes(std::ostream& out, const PointSetFile& file, PlaneMethod method) {
  if (method == PlaneMethod::linear) {
    summaryText::writeLine(out, "note",
                           "method linear gives no best-fit plane: see rms, and --method ls");
  }
  if (file.degreesWide > kWidestInOneZone) {
    summaryText::writeLine(out, "note",
                           "the points span " + textFormat::fixed(file.degreesWide, 0) +
                               " degrees of longitude: one zone turns north and stretches "
                               "lengths; --where or --crs keep them true");
  }
  if (file.otherFeatures > 0) {
    summaryText::writeLine(
        out, "ignored",
        textFormat::counted(file.otherFeatures, "feature that is", "features that are") +
            " neither points nor a line");
  }
}

void printSummary(const PlaneOptions& options, const PointSetFile& file, PlaneMethod method,
                  const std::vector<FittedPlane>& planes, const BadFeatures& bad) {
  writeSummaryTable(std::cout, planes);
  std::cout << '\n';
  summaryText::writeSystem(std::cout, file.model, file.stated);
  summaryText::writeLine(std::cout, "method", methodName(method));
  writeNotes(std::cout, file, method);
  summaryText::writeLeftOut(std::cout, options.points.input.file, bad.leftOut());
  summaryText::writeLine(
      std::cout, "output",
      options.output + ": " + textFormat::counted(planes.size(), "plane", "planes"));
  if (!options.picture.empty()) {
    summaryText::writeLine(std::cout, "picture", options.picture);
  }
  std::cout << std::flush;
}

StereonetContent netContentOf(const PlaneOptions& options, const PointSetFile& file,
                              PlaneMethod method, const std::vector<FittedPlane>& planes) {
  StereonetContent content;
  content.planes = &planes;
  content.method = method;
  content.systemText = systemLabel(file.model);
  content.sourceText = std::filesystem::path(options.points.input.file).filename().string();
  content.gridNorth = file.model != nullptr;
  return content;
}

void run(const PlaneOptions& options) {
  const InputOptions& input = options.points.input;
  const PlaneMethod method = planeMethod(options.method);
  outputDriver(options.output, true);
  if (!options.picture.empty()) {
    pictureFormat(options.picture);
  }
  optionValues::refuseOverwritingInput(options.output, input.file);
  optionValues::refuseOverwritingInput(options.picture, input.file);
  BadFeatures bad(input.file, input.skipBad);
  const PointSetFile file = readPointSets(options.points, bad);
  const std::vector<FittedPlane> planes = fitPlanes(file.sets, method, bad);
  if (planes.empty()) {
    throw CommandError(input.file + ": no set with a plane, " +
                       std::to_string(bad.leftOut().size()) + " left out");
  }
  SafeOutput output(options.output);
  std::unique_ptr<SafeOutput> picture;
  if (!options.picture.empty()) {
    picture = std::make_unique<SafeOutput>(options.picture);
  }
  writePlanes(output, file.model, method, planes);
  if (picture) {
    drawStereonetPicture(*picture, netContentOf(options, file, method, planes));
  }
  output.commit();
  if (picture) {
    picture->commit();
  }
  printSummary(options, file, method, planes, bad);
}

}  // namespace

Command addPlaneCommand(CLI::App& application) {
  const auto options = std::make_shared<PlaneOptions>();
  CLI::App* const parser = addParser(application, *options);
  return {parser, [options] { run(*options); }};
}
