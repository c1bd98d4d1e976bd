#ifndef ZRBASE_APPS_SURVEY_TRACEMOMENTS_H
#define ZRBASE_APPS_SURVEY_TRACEMOMENTS_H

#include <zrBase/survey/zrSurveyPoint.h>

#include <array>
#include <optional>

/// Sums over points of a survey, from which the plane through all of them by least squares follows
/// without keeping any.
class TraceMoments {
 public:
  void add(const zrSurveyPoint& p);

  /// The corners (lowest, lowest), (lowest, highest) and (highest, lowest) of a rectangle of inline
  /// and crossline numbers, with the places that x and y as linear functions of the numbers, fitted
  /// to all points by least squares, give them. Nothing if the points lie on one line of numbers.
  std::optional<std::array<zrSurveyPoint, 3>> corners(double lowestInline, double highestInline,
                                                      double lowestCrossline,
                                                      double highestCrossline) const;

 private:
  // All sums are taken from the first point, so that large coordinates lose no digits.
  zrSurveyPoint first_;
  double count_ = 0.0;
  double i_ = 0.0;
  double t_ = 0.0;
  double x_ = 0.0;
  double y_ = 0.0;
  double ii_ = 0.0;
  double it_ = 0.0;
  double tt_ = 0.0;
  double xi_ = 0.0;
  double xt_ = 0.0;
  double yi_ = 0.0;
  double yt_ = 0.0;
};

#endif  // ZRBASE_APPS_SURVEY_TRACEMOMENTS_H
