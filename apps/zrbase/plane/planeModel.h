#ifndef ZRBASE_APPS_PLANE_PLANEMODEL_H
#define ZRBASE_APPS_PLANE_PLANEMODEL_H

#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "common/vectorInput.h"
#include "plane/pointSets.h"

/// How a plane is fitted, see zr3DTools::lsOrthogonalPlaneFit.
enum class PlaneMethod {
  ls,          ///< smallest sum of squared distances, square to the plane
  orthogonal,  ///< the same after a search, within 1 cm, for sets parallel to an axis
  linear       ///< a linear system whose result moves with the points: no best fit
};

/// The method of that name. @throws CommandError that lists them
PlaneMethod planeMethod(const std::string& name);
const char* methodName(PlaneMethod method);

/// The plane of one set.
struct FittedPlane {
  std::string label;  ///< of the set
  std::string name;   ///< of the feature that is the set, empty if there is none
  std::size_t points = 0;
  gdfVertex centre;
  /// Unit normal that points up; of an upright plane the one with a strike from 0 to below 180.
  gdfVertex normal;
  double dip = 0.0;  ///< degrees
  /// Dip azimuth and strike (dip right of strike) in degrees, from 0 to below 360; a horizontal
  /// plane has neither.
  std::optional<double> azimuth;
  std::optional<double> strike;
  double rms = 0.0;              ///< root mean square distance of the points from the plane
  double largestDistance = 0.0;  ///< of a point from the plane

  /// The name, or else the label.
  const std::string& title() const { return name.empty() ? label : name; }
};

/// Fits a plane to each set. A set without a plane of its own is a bad feature: fewer than 3
/// points, or points at one place or on one line within the fit's tolerance.
std::vector<FittedPlane> fitPlanes(const std::vector<PointSet>& sets, PlaneMethod method,
                                   BadFeatures& bad);

/// "045.2", or "-" where there is none.
std::string azimuthText(const std::optional<double>& azimuth);

#endif  // ZRBASE_APPS_PLANE_PLANEMODEL_H
