#include "survey/traceSurvey.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <numeric>
#include <optional>

#include "common/commandError.h"
#include "common/textFormat.h"
#include "survey/traceMoments.h"

namespace {

/// Lowest and highest of whole numbers, and the largest step that meets them all.
class NumberRange {
 public:
  void add(long long number) {
    if (empty_) {
      lowest_ = highest_ = first_ = number;
    }
    empty_ = false;
    lowest_ = std::min(lowest_, number);
    highest_ = std::max(highest_, number);
    step_ = std::gcd(step_, number - first_);
  }
  bool single() const { return lowest_ == highest_; }
  double lowest() const { return static_cast<double>(lowest_); }
  double highest() const { return static_cast<double>(highest_); }
  double span() const { return highest() - lowest(); }
  double step() const { return static_cast<double>(std::max(1LL, step_)); }

 private:
  bool empty_ = true;
  long long first_ = 0;
  long long lowest_ = 0;
  long long highest_ = 0;
  long long step_ = 0;
};

struct NumberedTrace {
  long long number = 0;
  zrSurveyPoint point;
};

/// What is kept of a stream of traces: always the same room, however many come.
class TraceGatherer {
 public:
  TraceGatherer(const zrUnits& units, bool anyUnits) : anyUnits_(anyUnits) {
    stream_.units = units;
    // From the first trace on, so that the highest lines are found as well as the lowest.
    stream_.points.firstPoint = true;
  }

  void add(const TraceHeader& trace);
  TraceSurvey survey(const TraceBytes& bytes);

 private:
  void addPlace(const TraceHeader& trace);
  void refuseNoSurvey(const TraceBytes& bytes) const;
  std::optional<FittedGrid> gridOfStream();
  FittedGrid gridOfAll() const;
  void findMisfit(TraceSurvey& survey) const;

  const bool anyUnits_;
  zrSurveyCoordinates stream_;
  TraceMoments moments_;  // in metres, as all that is fitted
  NumberRange inlines_;
  NumberRange crosslines_;
  std::array<NumberedTrace, 4> outermost_;
  long long traces_ = 0;
  long long zeroNumbers_ = 0;
  long long withoutGeometry_ = 0;
  long long withoutPlace_ = 0;
};

void TraceGatherer::add(const TraceHeader& trace) {
  ++traces_;
  const bool numbered = trace.inlineNumber != 0 || trace.crosslineNumber != 0;
  const bool placed = trace.x != 0.0 || trace.y != 0.0;
  zeroNumbers_ += numbered ? 0 : 1;
  if (!numbered && !placed) {
    ++withoutGeometry_;
    return;
  }
  inlines_.add(trace.inlineNumber);
  crosslines_.add(trace.crosslineNumber);
  if (placed) {
    addPlace(trace);
  } else {
    ++withoutPlace_;
  }
}

void TraceGatherer::addPlace(const TraceHeader& trace) {
  if (trace.coordinateUnits >= 2 && trace.coordinateUnits <= 4 && !anyUnits_) {
    throw CommandError(
        "trace " + std::to_string(trace.number) + ": its coordinates are angles by their units, " +
        std::to_string(trace.coordinateUnits) + " at byte 89: give --units if they are lengths");
  }
  const double i = trace.inlineNumber;
  const double t = trace.crosslineNumber;
  if (stream_.points.firstPoint) {
    // Once as the seed, and once to take part in the steps like any other.
    stream_.points.AddPoint(trace.x, trace.y, i, t);
  }
  stream_.points.AddPoint(trace.x, trace.y, i, t);
  zrSurveyPoint p;
  p.Set(stream_.units.convertX(trace.x), stream_.units.convertY(trace.y), i, t);
  moments_.add(p);
  // Outermost towards each of the four corners.
  const std::array<double, 4> reach = {-i - t, -i + t, i - t, i + t};
  for (std::size_t k = 0; k < reach.size(); ++k) {
    const zrSurveyPoint& q = outermost_[k].point;
    const std::array<double, 4> before = {
        -q.inlineNumber - q.traceNumber, -q.inlineNumber + q.traceNumber,
        q.inlineNumber - q.traceNumber, q.inlineNumber + q.traceNumber};
    if (!q.IsSet() || reach[k] > before[k]) {
      outermost_[k] = {trace.number, p};
    }
  }
}

void TraceGatherer::refuseNoSurvey(const TraceBytes& bytes) const {
  const std::string all =
      "in " + (traces_ == 1 ? "its only trace" : "all " + std::to_string(traces_) + " traces");
  if (zeroNumbers_ == traces_) {
    throw CommandError("no geometry: inline and crossline, at bytes " +
                       std::to_string(bytes.inlineNumber) + " and " +
                       std::to_string(bytes.crosslineNumber) + ", are 0 " + all);
  }
  if (!outermost_.front().point.IsSet()) {
    throw CommandError("no geometry: x and y, at bytes " + std::to_string(bytes.x) + " and " +
                       std::to_string(bytes.y) + ", are 0 " + all);
  }
  const bool line = inlines_.single();
  if (line || crosslines_.single()) {
    throw CommandError(std::string("no grid: ") + (line ? "inline" : "crossline") + " is " +
                       textFormat::shortest(line ? inlines_.lowest() : crosslines_.lowest()) + " " +
                       all);
  }
}

// The grid by the corners of the stream; nothing if they are not all there, or if they are close
// together for the size of the survey: then the file has no long runs of one line.
std::optional<FittedGrid> TraceGatherer::gridOfStream() {
  stream_.points.End();
  if (!stream_.CalculateSurveyCoordinates() || stream_.Partial()) {
    return std::nullopt;
  }
  const zrSurveyPoint& a = stream_.One();
  const zrSurveyPoint& b = stream_.Two();
  const zrSurveyPoint& c = stream_.Three();
  const auto inlines = std::minmax({a.inlineNumber, b.inlineNumber, c.inlineNumber});
  const auto crosslines = std::minmax({a.traceNumber, b.traceNumber, c.traceNumber});
  if ((inlines.second - inlines.first) * 2.0 < inlines_.span() ||
      (crosslines.second - crosslines.first) * 2.0 < crosslines_.span()) {
    return std::nullopt;
  }
  try {
    return fitGrid({Corner{a, "corner 1"}, Corner{b, "corner 2"}, Corner{c, "corner 3"}});
  } catch (const CommandError&) {
    return std::nullopt;  // all traces together have the last word
  }
}

FittedGrid TraceGatherer::gridOfAll() const {
  const auto corners = moments_.corners(inlines_.lowest(), inlines_.highest(), crosslines_.lowest(),
                                        crosslines_.highest());
  if (!corners) {
    throw CommandError("no grid: its traces lie on one line of inline and crossline numbers");
  }
  const auto& [a, b, c] = *corners;
  try {
    return fitGrid({Corner{a, "corner 1"}, Corner{b, "corner 2"}, Corner{c, "corner 3"}});
  } catch (const CommandError& error) {
    throw CommandError(std::string("no grid fits its traces: ") + error.what());
  }
}

void TraceGatherer::findMisfit(TraceSurvey& survey) const {
  for (const NumberedTrace& trace : outermost_) {
    const zrSurveyPoint& p = trace.point;
    const double distance =
        survey.grid.placeOf(p.inlineNumber, p.traceNumber).distance(gdfVertex(p.x, p.y));
    if (survey.misfitTrace == 0 || distance > survey.misfit) {
      survey.misfit = distance;
      survey.misfitTrace = trace.number;
    }
  }
}

TraceSurvey TraceGatherer::survey(const TraceBytes& bytes) {
  refuseNoSurvey(bytes);
  TraceSurvey survey;
  const std::optional<FittedGrid> ofStream = gridOfStream();
  survey.leastSquares = !ofStream;
  survey.grid = ofStream ? *ofStream : gridOfAll();
  survey.grid.setRange(inlines_.lowest(), inlines_.highest(), crosslines_.lowest(),
                       crosslines_.highest());
  survey.grid.inlineStep = inlines_.step();
  survey.grid.crosslineStep = crosslines_.step();
  survey.traces = traces_;
  survey.withoutGeometry = withoutGeometry_;
  survey.withoutPlace = withoutPlace_;
  findMisfit(survey);
  return survey;
}

}  // namespace

TraceSurvey surveyOfTraces(const std::string& file, const TraceBytes& bytes, const zrUnits& units,
                           bool anyUnits) {
  SegyFile segy(file);
  TraceGatherer gatherer(units, anyUnits);
  try {
    segy.forEachTrace(bytes, [&gatherer](const TraceHeader& trace) { gatherer.add(trace); });
    return gatherer.survey(bytes);
  } catch (const CommandError& error) {
    const std::string text = error.what();
    throw CommandError(text.rfind(file, 0) == 0 ? text : file + ": " + text);
  }
}
