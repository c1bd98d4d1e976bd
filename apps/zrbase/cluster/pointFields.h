#ifndef ZRBASE_APPS_CLUSTER_POINTFIELDS_H
#define ZRBASE_APPS_CLUSTER_POINTFIELDS_H

#include <ogr_feature.h>

#include <string>
#include <vector>

#include "cluster/clusterPoints.h"
#include "cluster/pointLayer.h"

/// An attribute of the input that the output has as well.
struct CopiedField {
  std::string name;  ///< in the output
  int source = 0;    ///< in the input
  int column = -1;   ///< the column of the search that it is; its values are numbers then
  OGRFieldType type = OFTString;
  OGRFieldSubType subtype = OFSTNone;
};

/// A coordinate of the place that the output has as a number.
struct CoordinateField {
  std::string name;
  int axis = 0;
};

/// The fields of a written point: fid, coordinates, attributes of the input, cluster,
/// cluster_distance.
struct PointFields {
  bool fid = true;  ///< false where the input has an attribute of that name, which is copied
  std::vector<CoordinateField> coordinates;
  std::vector<CopiedField> copied;
  std::vector<std::string> replaced;  ///< attributes of the input that gave way to results
};

/// Which file the fields are for.
enum class PointFormat { table, geoPackage, geoJson };

/// Chooses the fields. Names are told apart whatever their case: a second "Name" is "Name_2", and
/// so is an attribute that is called like a property of GeoJSON centers.
PointFields pointFields(const PointLayer& layer, PointFormat format);

/// Names of the fields of a center; the coordinates are called like the columns, or "center_weight"
/// where a column is called like another field.
std::vector<std::string> centerCoordinateNames(const std::vector<PointColumn>& columns);

#endif  // ZRBASE_APPS_CLUSTER_POINTFIELDS_H
