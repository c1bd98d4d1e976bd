#ifndef ZRBASE_APPS_COMMON_VECTOROUTPUT_H
#define ZRBASE_APPS_COMMON_VECTOROUTPUT_H

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "common/gdalErrors.h"
#include "common/modelSystem.h"
#include "common/safeOutput.h"

/// The OGR driver for the ending of the file.
/// @param tableToo  allow .csv, for an output of a single layer of points
/// @throws CommandError if it is neither .geojson, .json nor .gpkg
std::string outputDriver(const std::string& fileName, bool tableToo = false);

struct FieldModel {
  const char* name;
  OGRFieldType type;
  OGRFieldSubType subtype = OFSTNone;
};

struct LayerModel {
  const char* name;
  OGRwkbGeometryType geometry;  ///< without z
  std::vector<FieldModel> fields;
};

/// Features of one or several layers on their way into a file.
///
/// A GeoPackage gets its layers, a table has the columns X, Y and perhaps Z before the fields.
/// GeoJSON holds one layer: several go into a single collection, each of
/// whose features tells its layer in the property `layer` and has only that layer's properties. A
/// `crs` member states the system. The same input gives the same bytes.
class VectorOutput {
 public:
  /// @param collection  name of the single collection of a GeoJSON file
  /// @param withZ  whether vertices have a z
  /// @throws CommandError if the file cannot be made
  VectorOutput(const SafeOutput& output, const std::string& collection,
               const std::vector<LayerModel>& layers, bool withZ, const SpatialReference& system);

  /// A feature of the layer, to be filled and handed to `add`.
  OGRFeatureUniquePtr newFeature(const std::string& layer) const;
  /// Puts the feature into its layer, with this geometry. @throws CommandError if it is refused
  void add(const std::string& layer, OGRFeature& feature, const OGRGeometry& geometry);
  /// The same without a geometry.
  void add(const std::string& layer, OGRFeature& feature);

  /// A point with a z where the file has one.
  OGRPoint pointOf(const gdfVertex& v) const;
  OGRLineString lineOf(const VertexLine& vertices) const;
  /// A polygon of an outer ring and perhaps holes, each closed if its vertices are not.
  OGRPolygon polygonOf(const VertexLine& ring, const VertexLineList& holes = {}) const;

  /// Ends the file and holds its count of features against what was added.
  /// @throws CommandError if not every feature arrived
  void finish();

  /// How many features the layer got.
  std::size_t count(const std::string& layer) const { return counts_.at(layer); }

 private:
  OGRLayer* createLayer(const std::string& name, OGRwkbGeometryType geometry);
  void addFields(OGRLayer& layer, const std::vector<FieldModel>& fields);
  OGRLinearRing ringOf(const VertexLine& vertices) const;
  void check(bool done, const std::string& what) const;
  void checkWritten() const;

  const SafeOutput& output_;
  GdalErrors errors_;
  SpatialReference system_;
  bool withZ_;
  bool oneCollection_ = false;  // several layers in one collection
  bool json_ = false;
  bool table_ = false;
  GDALDatasetUniquePtr dataset_;
  std::map<std::string, OGRLayer*> layers_;
  std::map<std::string, std::size_t> counts_;
};

#endif  // ZRBASE_APPS_COMMON_VECTOROUTPUT_H
