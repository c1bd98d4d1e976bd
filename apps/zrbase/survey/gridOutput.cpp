#include "survey/gridOutput.h"

#include <cmath>
#include <vector>

#include "common/commandError.h"
#include "common/progressLine.h"
#include "common/textFormat.h"
#include "common/vectorOutput.h"
#include "survey/rounding.h"

namespace {

constexpr double kMostBins = 1e6;

double binsAlong(double lines, double every) { return std::floor((lines - 1.0) / every) + 1.0; }

std::vector<LayerModel> layersOf(const BinRequest& request) {
  std::vector<LayerModel> layers = {{"outline",
                                     wkbPolygon,
                                     {{"inline_min", OFTReal},
                                      {"inline_max", OFTReal},
                                      {"inline_step", OFTReal},
                                      {"crossline_min", OFTReal},
                                      {"crossline_max", OFTReal},
                                      {"crossline_step", OFTReal},
                                      {"inline_spacing", OFTReal},
                                      {"crossline_spacing", OFTReal},
                                      {"rotation", OFTReal}}}};
  if (request.wanted) {
    layers.push_back({"bins",
                      request.centres ? wkbPoint : wkbPolygon,
                      {{"inline", OFTReal}, {"crossline", OFTReal}}});
  }
  return layers;
}

void writeOutline(VectorOutput& file, const FittedGrid& grid) {
  const OGRFeatureUniquePtr outline = file.newFeature("outline");
  outline->SetField("inline_min", grid.lowestInline());
  outline->SetField("inline_max", grid.highestInline());
  outline->SetField("inline_step", grid.inlineStep);
  outline->SetField("crossline_min", grid.lowestCrossline());
  outline->SetField("crossline_max", grid.highestCrossline());
  outline->SetField("crossline_step", grid.crosslineStep);
  outline->SetField("inline_spacing", grid.inlineSpacing());
  outline->SetField("crossline_spacing", grid.crosslineSpacing());
  outline->SetField("rotation", grid.rotation());
  file.add("outline", *outline,
           file.polygonOf({grid.placeOf(grid.lowestInline(), grid.lowestCrossline()),
                           grid.placeOf(grid.highestInline(), grid.lowestCrossline()),
                           grid.placeOf(grid.highestInline(), grid.highestCrossline()),
                           grid.placeOf(grid.lowestInline(), grid.highestCrossline())}));
}

void writeBin(VectorOutput& file, const FittedGrid& grid, bool centre, double i, double t) {
  const OGRFeatureUniquePtr bin = file.newFeature("bins");
  bin->SetField("inline", i);
  bin->SetField("crossline", t);
  if (centre) {
    file.add("bins", *bin, file.pointOf(grid.placeOf(i, t)));
    return;
  }
  const double di = grid.inlineStep / 2.0;
  const double dt = grid.crosslineStep / 2.0;
  file.add("bins", *bin,
           file.polygonOf({grid.placeOf(i - di, t - dt), grid.placeOf(i + di, t - dt),
                           grid.placeOf(i + di, t + dt), grid.placeOf(i - di, t + dt)}));
}

void writeBins(VectorOutput& file, const FittedGrid& grid, const BinRequest& request) {
  const auto every = static_cast<double>(request.every);
  const auto total = static_cast<std::size_t>(countBins(grid, request));
  const auto inlines = static_cast<long long>(binsAlong(grid.inlineCount(), every));
  const auto crosslines = static_cast<long long>(binsAlong(grid.crosslineCount(), every));
  ProgressLine progress("zrbase survey: bin", total);
  for (long long a = 0; a < inlines; ++a) {
    const double i = grid.lowestInline() + static_cast<double>(a) * every * grid.inlineStep;
    for (long long b = 0; b < crosslines; ++b) {
      writeBin(file, grid, request.centres, i,
               grid.lowestCrossline() + static_cast<double>(b) * every * grid.crosslineStep);
    }
    progress.show(file.count("bins"));
  }
}

}  // namespace

bool isTable(const std::string& fileName) {
  if (textFormat::fileEnding(fileName) == ".csv") {
    return true;
  }
  try {
    outputDriver(fileName);
  } catch (const CommandError&) {
    throw CommandError(fileName +
                       ": unknown ending for the output: .geojson, .json, .gpkg or .csv");
  }
  return false;
}

long long countBins(const FittedGrid& grid, const BinRequest& request) {
  const auto every = static_cast<double>(request.every);
  const double count =
      binsAlong(grid.inlineCount(), every) * binsAlong(grid.crosslineCount(), every);
  if (!(count <= kMostBins)) {
    throw CommandError("--grid: " + textFormat::fixed(count, 0) + " bins are more than " +
                       textFormat::fixed(kMostBins, 0) +
                       ": take only each N-th line with --every N");
  }
  return static_cast<long long>(count);
}

void writeGrid(const SafeOutput& output, const FittedGrid& grid, const BinRequest& request,
               const SpatialReference& system) {
  VectorOutput file(output, request.wanted ? "survey" : "outline", layersOf(request), false,
                    system);
  writeOutline(file, grid);
  if (request.wanted) {
    writeBins(file, grid, request);
  }
  file.finish();
}

void writeCorners(const SafeOutput& output, const FittedGrid& grid) {
  std::string table = "inline,crossline,x,y\n";
  for (int k = 0; k < 3; ++k) {
    const zrSurveyPoint& p = grid.coordinates.SurveyPoint(k);
    table += textFormat::shortest(p.inlineNumber) + "," + textFormat::shortest(p.traceNumber) +
             "," + textFormat::shortest(rounding::coordinate(p.x)) + "," +
             textFormat::shortest(rounding::coordinate(p.y)) + "\n";
  }
  output.write(table.data(), table.size());
}
