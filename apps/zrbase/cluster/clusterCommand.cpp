#include "cluster/clusterCommand.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>

#include "cluster/clusterModel.h"
#include "cluster/clusterOutput.h"
#include "cluster/clusterPicture.h"
#include "cluster/clusterPoints.h"
#include "cluster/clusterSummary.h"
#include "cluster/pointLayer.h"
#include "common/commandError.h"
#include "common/metricInput.h"
#include "common/optionValues.h"
#include "common/safeOutput.h"
#include "common/summaryText.h"
#include "common/textFormat.h"
#include "common/vectorInput.h"
#include "drawing/pictureFile.h"

namespace {

const char* const kFooter =
    "Points are put into K clusters so that the sum of their squared distances to the nearest of "
    "K\n"
    "centers, the distortion, gets small (k-means). --columns names what the distance is made of:\n"
    "attributes with numbers, and x, y and z, the coordinates of the points. Without it these are "
    "x\n"
    "and y, and z where there is one. --scale divides each column by its standard deviation (std)\n"
    "or its largest less its smallest value (range), so that columns in different units count\n"
    "alike; distances are then those of the scaled numbers. A column whose values are all the "
    "same\n"
    "tells no points apart.\n"
    "\n"
    "Strategies:\n"
    "  lloyd      centers move to the means of their points, from random starts\n"
    "  swap       a center is replaced by a point drawn at random, if that pays\n"
    "  hybrid     swaps and Lloyd steps with simulated annealing (default)\n"
    "  ez-hybrid  a swap, then Lloyd steps while they gain more than 1%\n"
    "The search ends after --stages moves, hybrids at the end of the run they are in then; stages\n"
    "of swap are swaps. Random draws are the same in every run, so that results are too. A search\n"
    "draws at most 32768 centers.\n"
    "\n"
    "Longitudes and latitudes that are clustered by are projected to the UTM zone (WGS 84) of the\n"
    "middle of the points, unless --crs names another system in metres; where attributes alone "
    "are\n"
    "clustered by, the points stay in theirs. A file that states no system is taken as it is; CSV\n"
    "columns lon and lat are WGS 84.\n"
    "\n"
    "Output: layer points has fid, the coordinates that were clustered by, all attributes of "
    "POINTS,\n"
    "cluster (from 0) and cluster_distance, to its center. Layer centers has cluster, weight "
    "(points),\n"
    "distortion, average (distortion by weight), rms (its root) and the center in the units of "
    "each\n"
    "column; it has places where x and y are among them. A GeoPackage has both layers; GeoJSON is\n"
    "one collection whose features tell theirs in the property 'layer'; .csv has the points, and "
    "the\n"
    "centers go into a second table, --centers.\n"
    "\n"
    "--trace writes what the search does to the standard error stream: 'stages' the average\n"
    "distortion at each stage, 'swaps' each swap as well, 'centers' all centers after each move\n"
    "(or 5, 6, 7). Its numbers are scaled, and less a round number near the mean of each column.\n"
    "\n"
    "Examples:\n"
    "  zrbase cluster wells.csv -k 5 -o wells_clustered.csv\n"
    "      a table of x and y rows; centers in wells_clustered_centers.csv\n"
    "  zrbase cluster quakes.geojson -k 8 -o clusters.gpkg --picture clusters.svg\n"
    "      epicentres in longitude and latitude, in metres of their UTM zone\n"
    "  zrbase cluster logs.csv --columns GR,RHOB,NPHI --scale std -k 4 -o facies.csv\n"
    "      facies from well logs in different units\n"
    "  zrbase cluster logs.csv --columns GR,RHOB,NPHI --scale std -k 4 --strategy lloyd\n"
    "        --stages 2000 --trace stages -o facies.csv --picture facies.png --axes NPHI,RHOB\n"
    "      another search, told stage by stage, and a cross-plot";

// The options as typed; numbers are read by the command, which names the bad one.
struct ClusterOptions {
  InputOptions input;
  std::vector<std::string> columns;
  std::string clusters;
  std::string strategy = "hybrid";
  std::string stages = "500";
  std::string scale = "none";
  std::string trace;
  std::string output;
  std::string centers;
  std::string picture;
  std::string axes;
};

constexpr long long kMostStages = 1000000000;

CLI::App* addParser(CLI::App& application, ClusterOptions& options) {
  CLI::App* const command =
      application.add_subcommand("cluster", "Clusters of points by coordinates or attributes");
  command->footer(kFooter);
  command->add_option("POINTS", options.input.file, "table or vector file with the points")
      ->type_name("FILE")
      ->required();
  command
      ->add_option("--layer", options.input.layer,
                   "layer of POINTS; the first one with the columns otherwise")
      ->type_name("NAME");
  command
      ->add_option("--where", options.input.where,
                   "feature id, or several joined by commas, or all (default)")
      ->type_name("FID");
  command
      ->add_option("--columns", options.columns,
                   "columns to cluster by (x, y and the z that there is)")
      ->type_name("A,B,C")
      ->expected(1)
      ->allow_extra_args(false)
      ->take_all();
  command->add_option("-k", options.clusters, "number of clusters")->type_name("K")->required();
  command->add_option("--strategy", options.strategy, "lloyd, swap, hybrid (default) or ez-hybrid")
      ->type_name("NAME");
  command->add_option("--stages", options.stages, "most stages of the search (500)")
      ->type_name("N");
  command->add_option("--scale", options.scale, "none (default), std or range")->type_name("NAME");
  command->add_option("--crs", options.input.crs, "metric system to work in")->type_name("EPSG:N");
  command->add_option("-o,--output", options.output, "output: .csv, .geojson, .json or .gpkg")
      ->type_name("FILE")
      ->required();
  command
      ->add_option("--centers", options.centers,
                   "table of the centers, .csv; OUTPUT_centers.csv beside a table")
      ->type_name("FILE");
  command->add_option("--picture", options.picture, "scatter picture: .svg or .png")
      ->type_name("FILE");
  command->add_option("--axes", options.axes, "two columns that the picture shows (the first two)")
      ->type_name("A,B");
  command->add_option("--trace", options.trace, "tell the search: stages, swaps or centers")
      ->type_name("LEVEL");
  command->add_flag("--skip-bad", options.input.skipBad, "leave bad features out and go on");
  return command;
}

long long wholeNumberFromOne(const std::string& option, const std::string& text) {
  const std::optional<long long> number = textFormat::wholeNumber(text);
  if (!number || *number < 1) {
    throw CommandError(option + ": '" + textFormat::oneLine(text) +
                       "' is not a whole number above 0");
  }
  return *number;
}

StatLev traceLevel(const std::string& text) {
  const std::string level = textFormat::lowerCase(text);
  if (level.empty()) {
    return KM_STAT_SILENT;
  }
  if (level == "stages" || level == "5") {
    return KM_STAT_STAGES;
  }
  if (level == "swaps" || level == "6") {
    return KM_STAT_SWAPS;
  }
  if (level == "centers" || level == "7") {
    return KM_STAT_CENTERS;
  }
  throw CommandError("--trace: '" + textFormat::oneLine(text) +
                     "' is not stages, swaps or centers");
}

ClusterRequest requestFrom(const ClusterOptions& options) {
  ClusterRequest request;
  request.clusters = wholeNumberFromOne("-k", options.clusters);
  request.stages =
      static_cast<int>(std::min(kMostStages, wholeNumberFromOne("--stages", options.stages)));
  request.strategy = clusterStrategy(options.strategy);
  request.scale = clusterScale(options.scale);
  request.trace = traceLevel(options.trace);
  return request;
}

std::vector<std::string> columnNames(const std::vector<std::string>& texts) {
  std::vector<std::string> names;
  for (const std::string& text : texts) {
    for (const std::string& name : textFormat::split(text, ',')) {
      if (name.empty()) {
        throw CommandError("--columns: '" + textFormat::oneLine(text) + "' has an empty name");
      }
      if (std::find(names.begin(), names.end(), name) != names.end()) {
        throw CommandError("--columns: '" + textFormat::oneLine(name) + "' is named twice");
      }
      names.push_back(name);
    }
  }
  return names;
}

/// The files that are written.
struct OutputFiles {
  explicit OutputFiles(const ClusterOptions& options) : points(options.output) {
    if (!options.centers.empty()) {
      centers = std::make_unique<SafeOutput>(options.centers);
    }
    if (!options.picture.empty()) {
      picture = std::make_unique<SafeOutput>(options.picture);
    }
  }

  void commit() {
    points.commit();
    for (SafeOutput* const file : {centers.get(), picture.get()}) {
      if (file != nullptr) {
        file->commit();
      }
    }
  }

  SafeOutput points;
  std::unique_ptr<SafeOutput> centers;
  std::unique_ptr<SafeOutput> picture;
};

void checkNames(const ClusterOptions& options) {
  isClusterTable(options.output);
  if (!options.centers.empty() && textFormat::fileEnding(options.centers) != ".csv") {
    throw CommandError(options.centers + ": unknown ending for the centers: .csv");
  }
  if (!options.picture.empty()) {
    pictureFormat(options.picture);
  }
  for (const std::string& output : {options.output, options.centers, options.picture}) {
    optionValues::refuseOverwritingInput(output, options.input.file);
  }
  const auto plain = [](const std::string& name) {
    return std::filesystem::path(name).lexically_normal();
  };
  if (!options.centers.empty() && plain(options.centers) == plain(options.output)) {
    throw CommandError(options.centers + ": is the output too: give the centers another name");
  }
}

// The column of a name among those that are clustered by.
std::size_t axisColumn(const ClusterPoints& points, const std::string& name) {
  for (std::size_t j = 0; j < points.columns.size(); ++j) {
    if (points.columns[j].name == name) {
      return j;
    }
  }
  std::string known;
  for (const PointColumn& column : points.columns) {
    known += (known.empty() ? "" : ", ") + textFormat::oneLine(column.name);
  }
  throw CommandError("--axes: '" + textFormat::oneLine(name) + "' is none of the columns " + known);
}

ScatterContent scatterOf(const ClusterOptions& options, const ClusterRequest& request,
                         const ClusterPoints& points, const Clustering& clustering) {
  ScatterContent content = {points, clustering, request, 0, 0, ""};
  content.up = points.columns.size() > 1 ? 1 : 0;
  if (!options.axes.empty()) {
    const std::vector<std::string> names = textFormat::split(options.axes, ',');
    if (names.size() != 2 || names[0] == names[1]) {
      throw CommandError("--axes: '" + textFormat::oneLine(options.axes) + "' is not two columns");
    }
    content.across = axisColumn(points, names[0]);
    content.up = axisColumn(points, names[1]);
  }
  content.sourceText = std::filesystem::path(options.input.file).filename().string();
  return content;
}

void writeFiles(const OutputFiles& files, const ClusterContent& content,
                const ScatterContent& scatter) {
  if (isClusterTable(files.points.finalPath())) {
    writePointTable(files.points, content);
  } else {
    writeClusterLayers(files.points, content);
  }
  if (files.centers) {
    writeCenterTable(*files.centers, content);
  }
  if (files.picture) {
    drawClusterPicture(*files.picture, scatter);
  }
}

void printOutput(const ClusterOptions& options, const ClusterPoints& points,
                 const Clustering& clustering) {
  const std::string pointsText = textFormat::counted(points.size(), "point", "points");
  const std::string centersText =
      textFormat::counted(clustering.clusters.size(), "center", "centers");
  const bool table = isClusterTable(options.output);
  summaryText::writeLine(std::cout, "output",
                         options.output + ": " + pointsText + (table ? "" : ", " + centersText));
  if (!options.centers.empty()) {
    summaryText::writeLine(std::cout, "centers", options.centers + ": " + centersText);
  }
  if (!options.picture.empty()) {
    summaryText::writeLine(std::cout, "picture", options.picture);
  }
  std::cout << std::flush;
}

void run(const ClusterOptions& typed) {
  ClusterOptions options = typed;
  const ClusterRequest request = requestFrom(options);
  const std::vector<std::string> names = columnNames(options.columns);
  if (isClusterTable(options.output) && options.centers.empty()) {
    options.centers = centersFileBeside(options.output);
  }
  checkNames(options);
  PointLayer layer(options.input, names);
  if (!options.input.crs.empty() && !layer.usesPlaces()) {
    throw CommandError("--crs: no coordinates are clustered by");
  }
  BadFeatures bad(options.input.file, options.input.skipBad);
  const ClusterPoints points = readClusterPoints(layer, options.input, bad);
  Clustering clustering;
  const ScatterContent scatter = scatterOf(options, request, points, clustering);
  OutputFiles files(options);
  clustering = clusterPoints(points, request, options.input.file);
  writeFiles(files, {layer, points, clustering, options.input.file}, scatter);
  files.commit();
  writeClusterTable(std::cout, points, clustering);
  writeClusterFacts(std::cout, points, request, clustering);
  writeClusterNotes(std::cout, points, clustering, replacedAttributes(layer));
  writeFirstLeftOut(std::cout, options.input.file, bad.leftOut());
  printOutput(options, points, clustering);
}

}  // namespace

Command addClusterCommand(CLI::App& application) {
  const auto options = std::make_shared<ClusterOptions>();
  CLI::App* const parser = addParser(application, *options);
  return {parser, [options] { run(*options); }};
}
