#include "survey/surveyFitJob.h"

#include <cmath>
#include <iostream>
#include <memory>
#include <optional>
#include <vector>

#include "common/commandError.h"
#include "common/optionValues.h"
#include "common/safeOutput.h"
#include "common/summaryText.h"
#include "common/textFormat.h"
#include "survey/gridFit.h"
#include "survey/gridOutput.h"
#include "survey/traceSurvey.h"

namespace {

using textFormat::fixed;
using textFormat::shortest;

struct Steps {
  double inlines = 1.0;
  double crosslines = 1.0;
};

std::optional<Steps> statedSteps(const std::string& text) {
  if (text.empty()) {
    return std::nullopt;
  }
  const std::vector<double> steps = optionValues::numberList("--steps", {text});
  if (steps.size() != 2 || steps[0] <= 0.0 || steps[1] <= 0.0) {
    throw CommandError("--steps: '" + textFormat::oneLine(text) +
                       "' is not two numbers above 0, INLINE,CROSSLINE");
  }
  return Steps{steps[0], steps[1]};
}

BinRequest binsFrom(const FitOptions& options) {
  BinRequest request;
  request.wanted = options.grid;
  request.centres = options.centres;
  const std::optional<long long> every = textFormat::wholeNumber(options.every);
  if (!every || *every < 1) {
    throw CommandError("--every: '" + textFormat::oneLine(options.every) +
                       "' is not a whole number above 0");
  }
  request.every = *every;
  if (!options.grid && (options.centres || *every > 1)) {
    throw CommandError(std::string(options.centres ? "--centres" : "--every") +
                       ": is about the bins, which --grid asks for");
  }
  if (options.grid && options.output.empty()) {
    throw CommandError("--grid: the bins need an output, -o");
  }
  return request;
}

void checkInput(const FitOptions& options) {
  const std::string& corners = options.corners.file;
  if (options.segy.empty() == corners.empty()) {
    throw CommandError(corners.empty() ? "fit: a SEG-Y file or --corners is needed"
                                       : "fit: a SEG-Y file and --corners exclude each other");
  }
  checkTraceBytes(options.bytes);
  if (options.output.empty()) {
    return;
  }
  if (isTable(options.output) && (options.grid || !options.crs.empty())) {
    throw CommandError(std::string(options.grid ? "--grid" : "--crs") + ": " + options.output +
                       ": a .csv output holds the corners alone");
  }
  optionValues::refuseOverwritingInput(options.output, corners);
  optionValues::refuseOverwritingInput(options.output, options.segy);
}

// Direction of the way, clockwise from north, in [0, 360) as it is printed.
std::string azimuthText(const gdfVertex& from, const gdfVertex& to) {
  constexpr double kDegrees = 57.29577951308232;
  const double azimuth = std::atan2(to.x() - from.x(), to.y() - from.y()) * kDegrees;
  const std::string text = fixed(azimuth < -0.005 ? azimuth + 360.0 : azimuth, 2);
  return text == "360.00" ? "0.00" : text;
}

void printCorners(const FittedGrid& grid) {
  std::vector<std::vector<std::string>> rows = {{"corner", "inline", "crossline", "x", "y"}};
  const char* const names[] = {"one", "two", "three"};
  for (int k = 0; k < 3; ++k) {
    const zrSurveyPoint& p = grid.coordinates.SurveyPoint(k);
    rows.push_back({names[k], shortest(p.inlineNumber), shortest(p.traceNumber), fixed(p.x, 2),
                    fixed(p.y, 2)});
  }
  const gdfVertex far = grid.placeOf(grid.highestInline(), grid.highestCrossline());
  rows.push_back({"opposite", shortest(grid.highestInline()), shortest(grid.highestCrossline()),
                  fixed(far.x(), 2), fixed(far.y(), 2)});
  summaryText::writeTable(std::cout, rows);
  std::cout << '\n';
}

std::string linesText(double lowest, double highest, double step, double count) {
  return shortest(lowest) + " to " + shortest(highest) + ", step " + shortest(step) + ": " +
         fixed(count, 0);
}

void printGrid(const FittedGrid& grid) {
  const gdfVertex one = grid.placeOf(grid.lowestInline(), grid.lowestCrossline());
  const gdfVertex two = grid.placeOf(grid.lowestInline(), grid.highestCrossline());
  const gdfVertex three = grid.placeOf(grid.highestInline(), grid.lowestCrossline());
  summaryText::writeLine(
      std::cout, "inlines",
      linesText(grid.lowestInline(), grid.highestInline(), grid.inlineStep, grid.inlineCount()) +
          ", each along azimuth " + azimuthText(one, two));
  summaryText::writeLine(std::cout, "crosslines",
                         linesText(grid.lowestCrossline(), grid.highestCrossline(),
                                   grid.crosslineStep, grid.crosslineCount()) +
                             ", each along azimuth " + azimuthText(one, three));
  summaryText::writeLine(std::cout, "bin",
                         fixed(grid.inlineSpacing(), 3) + " m from inline to inline, " +
                             fixed(grid.crosslineSpacing(), 3) + " m from crossline to crossline");
  summaryText::writeLine(
      std::cout, "rotation",
      fixed(grid.rotation(), 4) + " degrees anticlockwise, of rising crosslines from north");
  const Residual& r = grid.residual;
  summaryText::writeLine(std::cout, "residual",
                         "inline " + fixed(r.inlineNumber, 4) + ", crossline " +
                             fixed(r.crosslineNumber, 4) + ", " + fixed(r.distance, 2) +
                             " m at the third corner, inline " + shortest(r.corner.inlineNumber) +
                             ", crossline " + shortest(r.corner.traceNumber));
}

void printTraces(const FitOptions& options, const TraceSurvey& survey) {
  const SegyFile file(options.segy);
  summaryText::writeLine(std::cout, "traces",
                         std::to_string(survey.traces) + " in " + options.segy +
                             (file.littleEndian() ? ", little endian" : ""));
  summaryText::writeLine(std::cout, "corners",
                         survey.leastSquares
                             ? "of all traces by least squares"
                             : "of the longest run of one line, and the line furthest from it");
  summaryText::writeLine(std::cout, "misfit",
                         fixed(survey.misfit, 2) + " m at most at the outermost traces, trace " +
                             std::to_string(survey.misfitTrace));
  const auto leftOut = [](long long count, const std::string& why) {
    if (count > 0) {
      summaryText::writeLine(
          std::cout, "left out",
          textFormat::counted(static_cast<std::size_t>(count), "trace", "traces") + why);
    }
  };
  leftOut(survey.withoutGeometry, " without geometry: all of it is 0");
  leftOut(survey.withoutPlace, " with x and y of 0");
  if (file.statesFeet() && options.corners.units.empty()) {
    summaryText::writeLine(std::cout, "note",
                           "the binary header states feet, x and y are taken for metres: "
                           "--units ft converts them");
  }
}

void printOutput(const FitOptions& options, const FittedGrid& grid, const BinRequest& bins) {
  if (options.output.empty()) {
    return;
  }
  std::string contents = "outline";
  if (isTable(options.output)) {
    contents = "three corners";
  } else if (bins.wanted) {
    contents += ", bins " + std::to_string(countBins(grid, bins));
  }
  summaryText::writeLine(std::cout, "output", options.output + ": " + contents);
}

}  // namespace

void runSurveyFit(const FitOptions& options) {
  checkInput(options);
  const BinRequest bins = binsFrom(options);
  const std::optional<Steps> steps = statedSteps(options.steps);
  const zrUnits units = unitsFrom(options.corners.units);
  const SpatialReference system = options.crs.empty() ? nullptr : metricSystemFromEpsg(options.crs);
  std::unique_ptr<SafeOutput> output;
  if (!options.output.empty()) {
    output = std::make_unique<SafeOutput>(options.output);
  }
  std::optional<TraceSurvey> traces;
  if (!options.segy.empty()) {
    traces = surveyOfTraces(options.segy, options.bytes, units, !options.corners.units.empty());
  }
  FittedGrid grid = traces ? traces->grid : gridOfCorners(options.corners);
  if (steps) {
    grid.inlineStep = steps->inlines;
    grid.crosslineStep = steps->crosslines;
  }
  if (output && isTable(options.output)) {
    writeCorners(*output, grid);
  } else if (output) {
    writeGrid(*output, grid, bins, system);
  }
  if (output) {
    output->commit();
  }
  printCorners(grid);
  if (traces) {
    printTraces(options, *traces);
  }
  printGrid(grid);
  summaryText::writeSystem(std::cout, system, nullptr);
  printOutput(options, grid, bins);
  std::cout << std::flush;
}
