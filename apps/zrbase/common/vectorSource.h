#ifndef ZRBASE_APPS_COMMON_VECTORSOURCE_H
#define ZRBASE_APPS_COMMON_VECTORSOURCE_H

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "common/gdalErrors.h"
#include "common/modelSystem.h"

/// A vector file opened for reading, with GDAL's own chatter kept back and folded into our
/// messages.
class VectorSource {
 public:
  /// @throws CommandError if GDAL cannot open it as a vector file
  explicit VectorSource(const std::string& file);

  /// The layer of that name. @throws CommandError that lists the names there are
  OGRLayer& layerNamed(const std::string& name);
  /// The first layer with a geometry that `wanted` accepts, or a table with x and y; null if there
  /// is none.
  OGRLayer* firstLayerWith(const std::function<bool(const OGRGeometry&)>& wanted);

  /// All layers in file order.
  std::vector<OGRLayer*> layers() const;

  /// Calls `use` on each feature in file order. @throws CommandError if reading breaks off
  void forEachFeature(OGRLayer& layer, const std::function<void(OGRFeature&)>& use);

  /// The system that the layer states, null if none.
  static SpatialReference systemOf(OGRLayer& layer);
  /// What GDAL said about the feature just read, as one line; `otherwise` if nothing.
  std::string reason(const std::string& otherwise) const { return errors_.reason(otherwise); }

 private:
  std::string file_;
  GdalErrors errors_;
  GDALDatasetUniquePtr dataset_;
};

/// The columns of a table that hold coordinates.
struct CoordinateColumns {
  int x = -1;
  int y = -1;
  int z = -1;               ///< -1 if there is none
  bool geographic = false;  ///< named as longitude and latitude
};

/// The columns of a layer without geometry; nothing if it has a geometry, or no columns of these
/// names.
std::optional<CoordinateColumns> coordinateColumns(OGRLayer& layer);

/// Reads the finite number in a column of a row into `value`.
///
/// @param mayBeBlank  leave `value` as it is where the row has no text, or the table no such column
/// @return why the column holds none, "z 'high' is not a number"; an empty text if it does
std::string readCoordinate(const OGRFeature& row, int column, bool mayBeBlank, double& value);

/// The feature's name: its first filled field of the usual names, or an empty text.
std::string featureName(const OGRFeature& feature);

/// Why a feature has no geometry: the well-known text that is none, what GDAL said, or that it just
/// has none.
std::string missingGeometryReason(const OGRFeature& feature, const std::string& said);

#endif  // ZRBASE_APPS_COMMON_VECTORSOURCE_H
