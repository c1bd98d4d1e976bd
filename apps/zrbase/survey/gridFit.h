#ifndef ZRBASE_APPS_SURVEY_GRIDFIT_H
#define ZRBASE_APPS_SURVEY_GRIDFIT_H

#include <zrBase/survey/zrSurveyCoordinates.h>
#include <zrBase/survey/zrSurveyPoint.h>

#include <array>
#include <string>

/// A corner with what a message calls it: "row 2".
struct Corner {
  zrSurveyPoint point;
  std::string label;
};

/// How far the fit misses the one of its three corners that it need not meet.
struct Residual {
  zrSurveyPoint corner;
  double inlineNumber = 0.0;  ///< number that the fit gives to its place, less its own
  double crosslineNumber = 0.0;
  double distance = 0.0;  ///< from its place to where the fit puts its numbers
};

/// A survey grid that is fitted.
struct FittedGrid {
  zrSurveyCoordinates coordinates;  ///< with the corners of its rectangle
  Residual residual;
  double inlineStep = 1.0;
  double crosslineStep = 1.0;

  /// Makes these the lowest and highest numbers, with the fit as it is.
  void setRange(double lowestInline, double highestInline, double lowestCrossline,
                double highestCrossline);
  double lowestInline() const { return coordinates.One().inlineNumber; }
  double highestInline() const { return coordinates.Three().inlineNumber; }
  double lowestCrossline() const { return coordinates.One().traceNumber; }
  double highestCrossline() const { return coordinates.Two().traceNumber; }

  /// World distance of neighbouring inlines, one step apart.
  double inlineSpacing() const { return coordinates.inlineDistance() * inlineStep; }
  /// World distance of neighbouring crosslines.
  double crosslineSpacing() const { return coordinates.xlineDistance() * crosslineStep; }
  /// Number of inlines, both ends counted; a whole number, however large.
  double inlineCount() const;
  double crosslineCount() const;
  /// Direction of rising crossline numbers, in degrees anticlockwise from north; in (-180, 180].
  double rotation() const;
  /// Place of survey numbers in the world; its z is 0.
  gdfVertex placeOf(double inlineNumber, double crosslineNumber) const;
};

/// Fits a grid to three corners in any order.
/// @throws CommandError with the reason why they are not those of a grid
FittedGrid fitGrid(const std::array<Corner, 3>& corners);

#endif  // ZRBASE_APPS_SURVEY_GRIDFIT_H
