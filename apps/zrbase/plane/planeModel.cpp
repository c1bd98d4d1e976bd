#include "plane/planeModel.h"

#include <zrBase/tools3d/planeFit.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "common/commandError.h"
#include "common/geometryParts.h"
#include "common/progressLine.h"
#include "common/textFormat.h"

namespace {

constexpr std::array<std::pair<const char*, PlaneMethod>, 3> kMethods = {
    {{"ls", PlaneMethod::ls},
     {"orthogonal", PlaneMethod::orthogonal},
     {"linear", PlaneMethod::linear}}};

// A normal this near to an axis or to the horizontal is on it: the rest is rounding.
constexpr double kRounding = 1e-9;
// The normal of a narrower set is decided by the rounding of its coordinates.
constexpr double kNarrowest = 1e-6;
// A double holds no millimetre far beyond.
constexpr double kLargestCoordinate = 1e12;

// Within this distance the fit takes coordinates as equal.
double toleranceOf(PlaneMethod method) { return method == PlaneMethod::ls ? 0.001 : 0.01; }

bool isTooLarge(const gdfVertex& v) {
  return std::abs(v.x()) > kLargestCoordinate || std::abs(v.y()) > kLargestCoordinate ||
         std::abs(v.z()) > kLargestCoordinate;
}

/// How far the points reach from the first one, and from the line to the farthest.
struct Spread {
  double length = 0.0;
  double width = 0.0;
};

Spread spreadOf(const VertexLine& points) {
  Spread spread;
  gdfVertex along;
  for (const gdfVertex& point : points) {
    const gdfVertex offset = point - points.front();
    if (offset.length() > spread.length) {
      spread.length = offset.length();
      along = offset / spread.length;
    }
  }
  for (const gdfVertex& point : points) {
    const gdfVertex offset = point - points.front();
    spread.width = std::max(spread.width, (offset ^ along).length());
  }
  return spread;
}

std::string reasonAgainst(const VertexLine& points, double tolerance) {
  if (points.size() < 3) {
    return "a plane needs 3 points: " + textFormat::counted(points.size(), "point", "points");
  }
  if (std::any_of(points.begin(), points.end(), isTooLarge)) {
    return "a coordinate beyond " + textFormat::shortest(kLargestCoordinate) + " m";
  }
  const Spread spread = spreadOf(points);
  const std::string within = " within " + textFormat::shortest(tolerance) + " m: no plane";
  if (spread.length <= tolerance) {
    return "its points are at one place" + within;
  }
  if (spread.width <= tolerance) {
    return "its points are on one line" + within;
  }
  return spread.width <= kNarrowest * spread.length ? "its points are on one line: no plane" : "";
}

gdfVertex reportedNormal(gdfVertex normal) {
  if (std::abs(normal.x()) <= kRounding && std::abs(normal.y()) <= kRounding) {
    return gdfVertex(0.0, 0.0, 1.0);
  }
  if (std::abs(normal.z()) > kRounding) {
    return normal.z() < 0.0 ? -normal : normal;
  }
  // Upright: a strike from 0 to below 180 is a dip azimuth from 90 to below 270.
  if (std::abs(normal.y()) <= kRounding) {
    return gdfVertex(1.0, 0.0, 0.0);
  }
  return normal.y() > 0.0 ? gdfVertex(-normal.x(), -normal.y(), 0.0)
                          : gdfVertex(normal.x(), normal.y(), 0.0);
}

// To the ninth decimal: 30 and not 30.000000000000004.
double rounded(double degrees) { return std::round(degrees * 1e9) / 1e9; }

double roundedAzimuth(double degrees) {
  const double azimuth = rounded(degrees);
  return azimuth >= 360.0 ? azimuth - 360.0 : azimuth;
}

void describe(FittedPlane& plane, const VertexLine& points) {
  plane.points = points.size();
  plane.dip = rounded(plane.normal.planeDip());
  if (plane.normal.x() != 0.0 || plane.normal.y() != 0.0) {
    plane.azimuth = roundedAzimuth(plane.normal.planeAzimuth());
    plane.strike = roundedAzimuth(plane.normal.planeStrike());
  }
  double squares = 0.0;
  for (const gdfVertex& point : points) {
    const double distance = std::abs((point - plane.centre).dotProduct(plane.normal));
    squares += distance * distance;
    plane.largestDistance = std::max(plane.largestDistance, distance);
  }
  plane.rms = std::sqrt(squares / static_cast<double>(points.size()));
}

void fit(const VertexLine& points, PlaneMethod method, FittedPlane& plane) {
  if (method == PlaneMethod::ls) {
    zr3DTools::lsOrthogonalPlaneFit(points, plane.centre, plane.normal);
  } else {
    const bool orthogonal = method == PlaneMethod::orthogonal;
    zr3DTools::lsOrthogonalPlaneFit(points, orthogonal, plane.centre, plane.normal);
  }
}

}  // namespace

PlaneMethod planeMethod(const std::string& name) {
  for (const auto& [known, method] : kMethods) {
    if (name == known) {
      return method;
    }
  }
  throw CommandError("--method: '" + textFormat::oneLine(name) +
                     "' is none of ls, orthogonal and linear");
}

const char* methodName(PlaneMethod method) {
  return kMethods[static_cast<std::size_t>(method)].first;
}

std::vector<FittedPlane> fitPlanes(const std::vector<PointSet>& sets, PlaneMethod method,
                                   BadFeatures& bad) {
  ProgressLine progress("zrbase plane: set", sets.size());
  std::vector<FittedPlane> planes;
  for (std::size_t i = 0; i < sets.size(); ++i) {
    const PointSet& set = sets[i];
    std::string reason = reasonAgainst(set.points, toleranceOf(method));
    FittedPlane plane;
    if (reason.empty()) {
      fit(set.points, method, plane);
      reason = isFinite(plane.normal) ? "" : "the method finds no plane";
    }
    if (reason.empty()) {
      plane.label = set.label;
      plane.name = set.name;
      // Adding zeros takes the sign off negative ones.
      plane.normal = reportedNormal(plane.normal) + gdfVertex();
      describe(plane, set.points);
      planes.push_back(std::move(plane));
    } else {
      bad.report(set.where, reason);
    }
    progress.show(i + 1);
  }
  return planes;
}

std::string azimuthText(const std::optional<double>& azimuth) {
  if (!azimuth) {
    return "-";
  }
  const std::string text = textFormat::fixed(*azimuth, 1);
  const std::string digits = text == "360.0" ? "0.0" : text;
  return std::string(5 - std::min<std::size_t>(5, digits.size()), '0') + digits;
}
