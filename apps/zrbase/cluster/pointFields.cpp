#include "cluster/pointFields.h"

#include <algorithm>
#include <cstddef>
#include <set>

#include "common/textFormat.h"

namespace {

const std::vector<std::string>& centerFieldNames() {
  static const std::vector<std::string> names = {"layer",      "cluster", "weight",
                                                 "distortion", "average", "rms"};
  return names;
}

/// Gives names that differ in more than case.
class NameSet {
 public:
  bool has(const std::string& name) const { return taken_.count(textFormat::lowerCase(name)) > 0; }

  void take(const std::string& name) { taken_.insert(textFormat::lowerCase(name)); }

  std::string unique(const std::string& name) {
    std::string result = name;
    for (int i = 2; has(result); ++i) {
      result = name + "_" + std::to_string(i);
    }
    take(result);
    return result;
  }

 private:
  std::set<std::string> taken_;
};

// A text that GDAL read a geometry from is not repeated.
bool isGeometryText(const OGRFeatureDefn& definition, int field) {
  const std::string name = textFormat::lowerCase(definition.GetFieldDefn(field)->GetNameRef());
  const bool text = definition.GetFieldDefn(field)->GetType() == OFTString;
  return definition.GetGeomFieldCount() > 0 && text &&
         (name == "wkt" || name == "geom" || name == "geometry" || name == "the_geom" ||
          name == "wkt_geom");
}

int columnOf(const PointLayer& layer, int field) {
  const std::vector<PointColumn>& columns = layer.columns();
  const auto found = std::find_if(columns.begin(), columns.end(), [field](const PointColumn& c) {
    return !c.ofPlace() && c.field == field;
  });
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

// Types that the formats have in common; others are copied as texts.
bool isPlainType(OGRFieldType type) {
  return type == OFTInteger || type == OFTInteger64 || type == OFTReal || type == OFTDate ||
         type == OFTDateTime;
}

CopiedField copiedField(const PointLayer& layer, int field) {
  const OGRFieldDefn& definition = *layer.definition().GetFieldDefn(field);
  CopiedField copied;
  copied.name = definition.GetNameRef();
  copied.source = field;
  copied.column = columnOf(layer, field);
  if (copied.column >= 0) {
    copied.type = OFTReal;
  } else if (isPlainType(definition.GetType())) {
    copied.type = definition.GetType();
    copied.subtype = definition.GetSubType();
  } else if (definition.GetSubType() == OFSTJSON) {
    copied.subtype = OFSTJSON;
  }
  return copied;
}

// The coordinates that are clustered by; in a table all of a place that is no attribute anyway.
std::vector<CoordinateField> coordinatesFor(const PointLayer& layer, PointFormat format) {
  std::vector<CoordinateField> coordinates;
  const char* const names[] = {"x", "y", "z"};
  for (int axis = 0; axis < 3; ++axis) {
    const bool placed = format == PointFormat::table && !layer.isTable();
    const bool clustered =
        std::any_of(layer.columns().begin(), layer.columns().end(),
                    [axis](const PointColumn& column) { return column.axis == axis; });
    if (clustered || (placed && (axis < 2 || layer.hasZ()))) {
      coordinates.push_back({names[axis], axis});
    }
  }
  return coordinates;
}

}  // namespace

PointFields pointFields(const PointLayer& layer, PointFormat format) {
  const OGRFeatureDefn& definition = layer.definition();
  PointFields fields;
  NameSet names;
  names.take("cluster");
  names.take("cluster_distance");
  if (format == PointFormat::geoJson) {
    for (const std::string& name : centerFieldNames()) {
      names.take(name);
    }
  }
  if (format == PointFormat::geoPackage) {  // its own columns
    names.take("ogc_fid");
    names.take("geom");
  }
  fields.fid = definition.GetFieldIndex("fid") < 0;
  fields.coordinates = coordinatesFor(layer, format);
  NameSet coordinates;
  for (const CoordinateField& coordinate : fields.coordinates) {
    names.take(coordinate.name);
    coordinates.take(coordinate.name);
  }
  for (int i = 0; i < definition.GetFieldCount(); ++i) {
    const std::string name = definition.GetFieldDefn(i)->GetNameRef();
    const std::string plain = textFormat::lowerCase(name);
    if (plain == "cluster" || plain == "cluster_distance") {
      fields.replaced.push_back(name);
    } else if (!isGeometryText(definition, i) && !(layer.isTable() && coordinates.has(name))) {
      fields.copied.push_back(copiedField(layer, i));
      fields.copied.back().name = names.unique(name);
    }
  }
  return fields;
}

std::vector<std::string> centerCoordinateNames(const std::vector<PointColumn>& columns) {
  NameSet names;
  for (const std::string& name : centerFieldNames()) {
    names.take(name);
  }
  std::vector<std::string> result;
  result.reserve(columns.size());
  for (const PointColumn& column : columns) {
    result.push_back(names.unique(names.has(column.name) ? "center_" + column.name : column.name));
  }
  return result;
}
