#ifndef ZRBASE_TESTS_SURVEY_SUPPORT_SURVEYGRIDS_H
#define ZRBASE_TESTS_SURVEY_SUPPORT_SURVEYGRIDS_H

#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/survey/zrSurveyCoordinates.h>

#include <cmath>

inline gdfVertex worldOf(const zrSurveyCoordinates& grid, double inlineNumber, double traceNumber) {
  gdfVertex v(inlineNumber, traceNumber, 0.0);
  grid.Survey2World(v);
  return v;
}

inline gdfVertex surveyOf(const zrSurveyCoordinates& grid, const gdfVertex& world) {
  gdfVertex v = world;
  grid.World2Survey(v);
  return v;
}

/// A grid with its first corner (10, 20) at `origin`, whose trace axis runs `degrees` anticlockwise
/// of north, over 100 numbers in each axis. Distances from number to number; a negative one of the
/// inlines makes it left-handed.
inline zrSurveyCoordinates turnedGrid(double degrees, double inlineDistance, double traceDistance,
                                      const gdfVertex& origin = gdfVertex()) {
  const double angle = degrees * std::atan(1.0) / 45.0;
  const gdfVertex alongTrace(-std::sin(angle), std::cos(angle), 0.0);
  const gdfVertex alongInline(std::cos(angle), std::sin(angle), 0.0);
  zrSurveyCoordinates grid;
  grid.SetOne(10.0, 20.0, origin);
  grid.SetTwo(10.0, 120.0, origin + alongTrace * (100.0 * traceDistance));
  grid.SetThree(110.0, 20.0, origin + alongInline * (100.0 * inlineDistance));
  return grid;
}

#endif  // ZRBASE_TESTS_SURVEY_SUPPORT_SURVEYGRIDS_H
