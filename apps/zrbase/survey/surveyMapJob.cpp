#include "survey/surveyMapJob.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <vector>

#include "common/commandError.h"
#include "common/optionValues.h"
#include "common/safeOutput.h"
#include "common/summaryText.h"
#include "common/textFormat.h"
#include "survey/gridFit.h"
#include "survey/gridOutput.h"
#include "survey/placesOutput.h"
#include "survey/rounding.h"

namespace {

// Half a line beyond the last one still belongs to its bins.
constexpr double kHalfLine = 0.5;

void fillPlace(const zrSurveyCoordinates& grid, zrSurveyPoint& point) {
  gdfVertex place(point.inlineNumber, point.traceNumber);
  grid.Survey2World(place);
  point.x = rounding::coordinate(place.x());
  point.y = rounding::coordinate(place.y());
}

void fillNumbers(const zrSurveyCoordinates& grid, zrSurveyPoint& point) {
  gdfVertex numbers(point.x, point.y);
  grid.World2Survey(numbers);
  point.inlineNumber = rounding::lineNumber(numbers.x());
  point.traceNumber = rounding::lineNumber(numbers.y());
}

void mapAll(const MapOptions& options, const FittedGrid& grid, std::vector<SurveyPlace>& places) {
  for (SurveyPlace& place : places) {
    zrSurveyPoint& point = place.point;
    if (options.toWorld) {
      fillPlace(grid.coordinates, point);
    } else {
      fillNumbers(grid.coordinates, point);
    }
    if (!std::isfinite(point.inlineNumber + point.traceNumber + point.x + point.y)) {
      throw CommandError(options.points.file + ": point " + std::to_string(place.fid) +
                         ": its numbers are too large to be mapped");
    }
  }
}

bool isInside(const FittedGrid& grid, const zrSurveyPoint& p) {
  return p.inlineNumber >= grid.lowestInline() - kHalfLine &&
         p.inlineNumber <= grid.highestInline() + kHalfLine &&
         p.traceNumber >= grid.lowestCrossline() - kHalfLine &&
         p.traceNumber <= grid.highestCrossline() + kHalfLine;
}

std::string rangeText(const std::vector<SurveyPlace>& places, double zrSurveyPoint::*number,
                      int decimals) {
  const auto [lowest, highest] = std::minmax_element(
      places.begin(), places.end(), [number](const SurveyPlace& a, const SurveyPlace& b) {
        return a.point.*number < b.point.*number;
      });
  return textFormat::fixed(lowest->point.*number, decimals) + " to " +
         textFormat::fixed(highest->point.*number, decimals);
}

void printSummary(const MapOptions& options, const FittedGrid& grid, const SurveyPlaces& points,
                  const SpatialReference& system) {
  const std::vector<SurveyPlace>& places = points.places;
  const auto outside =
      std::count_if(places.begin(), places.end(),
                    [&grid](const SurveyPlace& place) { return !isInside(grid, place.point); });
  summaryText::writeLine(std::cout, "points",
                         std::to_string(places.size()) +
                             (outside > 0 ? ", " + std::to_string(outside) + " outside the survey"
                                          : ", all within the survey"));
  summaryText::writeLine(std::cout, "inline", rangeText(places, &zrSurveyPoint::inlineNumber, 2));
  summaryText::writeLine(std::cout, "crossline", rangeText(places, &zrSurveyPoint::traceNumber, 2));
  summaryText::writeLine(std::cout, "x", rangeText(places, &zrSurveyPoint::x, 2));
  summaryText::writeLine(std::cout, "y", rangeText(places, &zrSurveyPoint::y, 2));
  summaryText::writeSystem(std::cout, system, points.stated);
  summaryText::writeLeftOut(std::cout, options.points.file, points.leftOut);
  summaryText::writeLine(std::cout, "output", options.output);
  std::cout << std::flush;
}

}  // namespace

void runSurveyMap(const MapOptions& options) {
  if (isTable(options.output) && options.toWorld && !options.crs.empty()) {
    throw CommandError("--crs: " + options.output + ": a .csv output states no system");
  }
  for (const std::string& input : {options.points.file, options.corners.file}) {
    optionValues::refuseOverwritingInput(options.output, input);
  }
  const SpatialReference system = options.crs.empty() ? nullptr : metricSystemFromEpsg(options.crs);
  const FittedGrid grid = gridOfCorners(options.corners);
  SurveyPlaces points = options.toWorld
                            ? readNumbers(options.points)
                            : readPlaces(options.points, unitsFrom(options.corners.units), system,
                                         options.corners.file);
  SafeOutput output(options.output);
  mapAll(options, grid, points.places);
  writePlaces(output, points.places, system);
  output.commit();
  printSummary(options, grid, points, system);
}
