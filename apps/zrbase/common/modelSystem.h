#ifndef ZRBASE_APPS_COMMON_MODELSYSTEM_H
#define ZRBASE_APPS_COMMON_MODELSYSTEM_H

#include <zrBase/geometry/gdfVertex.h>

#include <memory>
#include <optional>
#include <string>

class OGRCoordinateTransformation;
class OGRSpatialReference;

/// A coordinate reference system whose coordinates are read x east, y north (longitude before
/// latitude); null where a file states none.
using SpatialReference = std::shared_ptr<const OGRSpatialReference>;

/// Smallest and largest x and y of what was read.
struct Extent {
  double minX = 0.0;
  double minY = 0.0;
  double maxX = 0.0;
  double maxY = 0.0;
  bool empty = true;

  /// Grows to hold the point.
  void add(double x, double y);
};

/// "EPSG:n" to the system. @throws CommandError if it is unknown, or not a projected system in
/// metres.
SpatialReference metricSystemFromEpsg(const std::string& text);

/// WGS 84 longitude and latitude.
SpatialReference geographicSystem();

/// A private copy with axis order x, y; null for null, and for the "undefined" system of a
/// GeoPackage.
SpatialReference keptSystem(const OGRSpatialReference* stated);

/// Whether its coordinates are angles.
bool isGeographic(const SpatialReference& system);

/// "EPSG:32759 (WGS 84 / UTM zone 59S)", or "none (model coordinates in metres)".
std::string systemLabel(const SpatialReference& system);
/// "EPSG:32759", else the name, else "none".
std::string systemCode(const SpatialReference& system);

/// The metric system that the work is done in.
///
/// With `crsOption` it is that one. Without, a projected system in metres and a file without any
/// system are taken as they are; anything else goes to the UTM zone (WGS 84) of the extent's
/// centre, north or south of the equator.
/// @param extent  in the coordinates of `stated`; an extent wider than 180 degrees is taken to
/// cross the date line
SpatialReference chooseModelSystem(const SpatialReference& stated, const std::string& crsOption,
                                   const Extent& extent);

/// Brings coordinates of one system into another; does nothing if either is not known, or both are
/// the same.
class Projection {
 public:
  /// @throws CommandError if there is no way from one to the other
  Projection(const SpatialReference& from, const SpatialReference& to);
  ~Projection();

  /// Projects x and y in place, z stays. @return why it cannot be done; nothing if it was
  std::optional<std::string> apply(gdfVertex& vertex) const;

 private:
  std::unique_ptr<OGRCoordinateTransformation> transformation_;
  bool fromDegrees_ = false;
  std::string targetCode_;
};

#endif  // ZRBASE_APPS_COMMON_MODELSYSTEM_H
