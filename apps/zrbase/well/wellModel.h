#ifndef ZRBASE_APPS_WELL_WELLMODEL_H
#define ZRBASE_APPS_WELL_WELLMODEL_H

#include <zrBase/geometry/gdfVertex.h>

#include <optional>
#include <string>
#include <vector>

#include "well/lengthUnit.h"
#include "well/surveyInput.h"

/// The calculation methods, by the library's numbers.
enum class WellMethod {
  tangential = 0,
  average = 1,
  balanced = 2,
  minimumCurvature = 3,
  radius = 4
};

/// The method of a name. @throws CommandError that lists the names
WellMethod wellMethod(const std::string& name);
/// "minimum-curvature"
std::string methodName(WellMethod method);

struct WellRequest {
  WellMethod method = WellMethod::minimumCurvature;
  gdfVertex wellhead;               ///< in the unit of the results, z up
  std::optional<WellOffset> tieIn;  ///< place of the first station, in the unit of the survey
  bool ownTieIn = false;            ///< the place that the file tells for its first station
  std::optional<LengthUnit> unit;   ///< of the results; that of the survey otherwise
};

/// A station and its place.
struct WellStation {
  long long row = 0;
  double measuredDepth = 0.0;
  double inclination = 0.0;
  double azimuth = 0.0;
  WellOffset offset;
  gdfVertex place;      ///< x east, y north, z up
  double dogleg = 0.0;  ///< severity since the station before, see doglegUnitName
};

struct WellPath {
  WellMethod method = WellMethod::minimumCurvature;
  LengthUnit unit = LengthUnit::metre;
  gdfVertex wellhead;
  bool fromWellhead = false;  ///< it runs from the wellhead, vertical there, to the first station
  std::vector<WellStation> stations;
  /// Where a rule of the method leads astray, "row 7: ...", in order.
  std::vector<std::string> warnings;
  /// Largest difference from the places that the file tells, by direction; nothing without them.
  std::optional<WellOffset> farthestFromOwn;

  const WellStation& last() const { return stations.back(); }
  /// Vertices from the wellhead, or the first station, to the last.
  VertexLine line() const;
  const WellStation& sharpest() const;
  /// Horizontal distance of the last station from the wellhead.
  double displacement() const;
  /// Azimuth of the last station from the wellhead, 0 up to 360; 0 where there is no displacement.
  double closureAzimuth() const;
};

/// Computes the places of all stations.
///
/// A survey that begins at depth 0 begins at the wellhead. One that begins deeper is computed from
/// a vertical station at depth 0 with the azimuth of its first, unless the place of that is given.
/// @throws CommandError if a place is not finite, or the file tells none for its first station
WellPath computeWell(const Survey& survey, const WellRequest& request);

#endif  // ZRBASE_APPS_WELL_WELLMODEL_H
