#ifndef ZRBASE_TESTS_SURVEY_SUPPORT_SURVEYPOINTS_H
#define ZRBASE_TESTS_SURVEY_SUPPORT_SURVEYPOINTS_H

#include <gmock/gmock.h>
#include <zrBase/survey/zrSurveyCoordinatePoints.h>
#include <zrBase/survey/zrSurveyCoordinates.h>
#include <zrBase/survey/zrSurveyPoint.h>

#include <cmath>
#include <cstddef>
#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

/// The value of a field that is not set.
constexpr double unsetNumber = 3.4028234663852886e38;

/// A point as text in the order of its fields: "inline trace x y", or "unset".
inline zrSurveyPoint surveyPoint(const std::string& text) {
  zrSurveyPoint p;
  if (text == "unset") return p;
  std::istringstream stream(text);
  if (!(stream >> p.inlineNumber >> p.traceNumber >> p.x >> p.y) || !(stream >> std::ws).eof()) {
    throw std::invalid_argument("not a survey point: \"" + text + "\"");
  }
  return p;
}

inline std::vector<double> numbersOf(const zrSurveyPoint& p) {
  return {p.inlineNumber, p.traceNumber, p.x, p.y};
}

inline std::string toText(const zrSurveyPoint& p) {
  std::ostringstream out;
  out << std::setprecision(17) << p.inlineNumber << ' ' << p.traceNumber << ' ' << p.x << ' '
      << p.y;
  return out.str();
}

/// Exact: all four fields equal by ==.
MATCHER_P(PointIs, text, "is exactly " + std::string(text)) {
  *result_listener << "which is " << toText(arg);
  return numbersOf(arg) == numbersOf(surveyPoint(text));
}

/// Approximate: each field within the tolerance.
MATCHER_P2(PointNear, text, tolerance,
           "is " + std::string(text) + " within " + testing::PrintToString(tolerance)) {
  *result_listener << "which is " << toText(arg);
  const std::vector<double> actual = numbersOf(arg);
  const std::vector<double> expected = numbersOf(surveyPoint(text));
  for (std::size_t k = 0; k < 4; ++k) {
    if (!(std::fabs(actual[k] - expected[k]) <= tolerance)) return false;
  }
  return true;
}

/// A grid with these corners, no fit yet.
inline zrSurveyCoordinates gridOf(const std::string& one, const std::string& two,
                                  const std::string& three) {
  zrSurveyCoordinates grid;
  grid.SetOne(surveyPoint(one));
  grid.SetTwo(surveyPoint(two));
  grid.SetThree(surveyPoint(three));
  return grid;
}

/// Feeds "inline trace, inline trace, ..." to AddPoint, with world positions (10 trace, 10 inline).
inline void addPoints(zrSurveyCoordinatePoints& points, const std::string& text) {
  std::istringstream parts(text);
  for (std::string part; std::getline(parts, part, ',');) {
    const zrSurveyPoint p = surveyPoint(part + " 0 0");
    points.AddPoint(10.0 * p.traceNumber, 10.0 * p.inlineNumber, p.inlineNumber, p.traceNumber);
  }
}

/// The same for AddStoredPoint.
inline void storePoints(zrSurveyCoordinatePoints& points, const std::string& text) {
  std::istringstream parts(text);
  for (std::string part; std::getline(parts, part, ',');) {
    const zrSurveyPoint p = surveyPoint(part + " 0 0");
    points.AddStoredPoint(10.0 * p.traceNumber, 10.0 * p.inlineNumber, p.inlineNumber,
                          p.traceNumber);
  }
}

/// All the numbers of a stream's state, the stored points last.
inline std::vector<double> numbersOf(const zrSurveyCoordinatePoints& points) {
  std::vector<double> numbers = {points.inlineInterval, points.traceInterval, points.lastInline,
                                 points.lastTrace,      points.minInline,     points.maxInline,
                                 points.minTrace,       points.maxTrace};
  numbers.push_back(points.recalculated ? 1.0 : 0.0);
  numbers.push_back(points.firstPoint ? 1.0 : 0.0);
  const auto append = [&numbers](const zrSurveyPoint& p) {
    for (const double number : numbersOf(p)) numbers.push_back(number);
  };
  for (const zrSurveyPoint* p :
       {&points.longestRowStart, &points.longestRowEnd, &points.minInlinePoint,
        &points.maxInlinePoint, &points.longestColumnStart, &points.longestColumnEnd,
        &points.minTracePoint, &points.maxTracePoint, &points.rowStart, &points.rowEnd,
        &points.columnStart, &points.columnEnd}) {
    append(*p);
  }
  for (const zrSurveyPoint& p : points.storedPoints) append(p);
  return numbers;
}

#endif  // ZRBASE_TESTS_SURVEY_SUPPORT_SURVEYPOINTS_H
