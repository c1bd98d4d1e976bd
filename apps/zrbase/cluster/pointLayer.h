#ifndef ZRBASE_APPS_CLUSTER_POINTLAYER_H
#define ZRBASE_APPS_CLUSTER_POINTLAYER_H

#include <zrBase/geometry/gdfVertex.h>

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "common/metricInput.h"
#include "common/modelSystem.h"
#include "common/vectorSource.h"

/// A column that points are clustered by: a coordinate of their place, or an attribute.
struct PointColumn {
  std::string name;
  int axis = -1;   ///< 0, 1 or 2 for x, y or z of the place; -1 for an attribute
  int field = -1;  ///< the attribute in the layer; -1 for a coordinate

  bool ofPlace() const { return axis >= 0; }
};

/// Where a feature is.
struct PointPlace {
  gdfVertex position;  ///< z is 0 where there is none
  bool hasZ = false;
};

/// The layer of a file whose points are clustered, and the columns they are clustered by.
///
/// Its features can be walked over as often as is wanted, so that attributes that are only passed
/// on need not be kept.
class PointLayer {
 public:
  /// @param columns  names; x, y and z mean the place; none for x, y and the z that there is
  /// @throws CommandError if the file, the layer or a column cannot be used
  PointLayer(const InputOptions& options, const std::vector<std::string>& columns);

  const std::vector<PointColumn>& columns() const { return columns_; }
  /// Whether a column is a coordinate of the place.
  bool usesPlaces() const { return usesPlaces_; }
  /// Whether the layer has geometries, or columns of coordinates.
  bool hasPlaces() const { return !isTable() || coordinates_.has_value(); }
  /// Whether the layer has no geometries.
  bool isTable() const;
  /// Whether its places have a z, as far as the layer tells.
  bool hasZ() const { return hasZ_; }
  /// The system that the places are in, null if none is stated.
  SpatialReference system() const { return VectorSource::systemOf(*layer_); }
  const OGRFeatureDefn& definition() const { return *layer_->GetLayerDefn(); }

  /// Calls `use` on each feature that `--where` chooses, in file order.
  /// @throws CommandError if reading breaks off, or a chosen feature is not there
  void forEach(const std::function<void(OGRFeature&)>& use);
  /// Whether `--where` chooses.
  bool isSelecting() const { return !wanted_.empty(); }

  /// "row 3", "feature 3".
  std::string where(const OGRFeature& feature) const;
  /// The places of a feature, several for a multi-point, in `places`.
  /// @return why it has none; nothing if it has
  std::optional<std::string> readPlaces(const OGRFeature& feature,
                                        std::vector<PointPlace>& places) const;
  /// Whether the feature has a geometry that is no point.
  static bool isOther(const OGRFeature& feature);

 private:
  void chooseLayer(const InputOptions& options, const std::vector<std::string>& names);
  bool resolve(OGRLayer& layer, const std::vector<std::string>& names);
  std::optional<std::string> readRow(const OGRFeature& row, std::vector<PointPlace>& places) const;

  std::string file_;
  VectorSource source_;
  std::set<long long> wanted_;
  OGRLayer* layer_ = nullptr;
  std::optional<CoordinateColumns> coordinates_;
  std::vector<PointColumn> columns_;
  std::string unknown_;  // the column that a layer did not have
  bool usesPlaces_ = false;
  bool hasZ_ = false;
};

/// Reads the number in a field into `value`: finite, and at most 1e100 from 0, so that squares can
/// be summed. @return why there is none; nothing if there is
std::optional<std::string> readPointNumber(const OGRFeature& feature, int field, double& value);

/// The reason against a number that is no use, nothing for one that is; `name` begins it.
std::optional<std::string> reasonAgainstNumber(const std::string& name, double value);

#endif  // ZRBASE_APPS_CLUSTER_POINTLAYER_H
