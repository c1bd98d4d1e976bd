#include "cluster/pointLayer.h"

#include <ogrsf_frmts.h>

#include <cmath>

#include "common/commandError.h"
#include "common/optionValues.h"
#include "common/textFormat.h"

namespace {

constexpr double kFarthest = 1e100;

// Calls `visit` on each point of a geometry; false if there is something else in it.
bool visitPoints(const OGRGeometry& geometry, const std::function<void(const OGRPoint&)>& visit) {
  const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
  if (type == wkbPoint) {
    visit(*geometry.toPoint());
    return true;
  }
  if (type != wkbMultiPoint && type != wkbGeometryCollection) {
    return false;
  }
  bool pointsAlone = true;
  for (const OGRGeometry* const part : *geometry.toGeometryCollection()) {
    pointsAlone = visitPoints(*part, visit) && pointsAlone;
  }
  return pointsAlone;
}

bool holdsPoint(const OGRGeometry& geometry) {
  bool found = false;
  visitPoints(geometry, [&found](const OGRPoint&) { found = true; });
  return found;
}

std::string columnList(OGRLayer& layer) {
  std::string list;
  for (int i = 0; i < layer.GetLayerDefn()->GetFieldCount(); ++i) {
    list += (list.empty() ? "" : ", ") +
            textFormat::oneLine(layer.GetLayerDefn()->GetFieldDefn(i)->GetNameRef());
  }
  return list.empty() ? "none" : list;
}

int axisNamed(const std::string& name) {
  const std::string plain = textFormat::lowerCase(name);
  const bool known = plain == "x" || plain == "y" || plain == "z";
  return known ? plain[0] - 'x' : -1;
}

bool isNumeric(OGRFieldType type) {
  return type == OFTInteger || type == OFTInteger64 || type == OFTReal;
}

// What a type of the layer does not tell, the first point does.
bool firstPointHasZ(OGRLayer& layer) {
  bool hasZ = OGR_GT_HasZ(layer.GetGeomType()) == TRUE;
  if (wkbFlatten(layer.GetGeomType()) == wkbUnknown) {
    layer.ResetReading();
    bool found = false;
    while (!found) {
      const OGRFeatureUniquePtr feature(layer.GetNextFeature());
      if (!feature) {
        break;
      }
      const OGRGeometry* const geometry = feature->GetGeometryRef();
      found = geometry != nullptr && holdsPoint(*geometry);
      hasZ = found && geometry->Is3D() == TRUE;
    }
  }
  return hasZ;
}

}  // namespace

std::optional<std::string> reasonAgainstNumber(const std::string& name, double value) {
  if (!std::isfinite(value)) {
    return name + " is not finite (NaN or infinite)";
  }
  if (std::abs(value) > kFarthest) {
    return name + " " + textFormat::shortest(value) + " is out of reach";
  }
  return std::nullopt;
}

std::optional<std::string> readPointNumber(const OGRFeature& feature, int field, double& value) {
  const OGRFieldDefn& definition = *feature.GetFieldDefnRef(field);
  if (!feature.IsFieldSetAndNotNull(field)) {
    return std::string(definition.GetNameRef()) + " is empty";
  }
  if (isNumeric(definition.GetType())) {
    value = feature.GetFieldAsDouble(field);
  } else {
    const char* const text = feature.GetFieldAsString(field);
    const std::optional<double> number = textFormat::number(text);
    if (!number) {
      const std::string shown = textFormat::oneLine(text);
      return std::string(definition.GetNameRef()) +
             (shown.empty() ? " is empty" : " '" + shown + "' is not a number");
    }
    value = *number;
  }
  if (std::abs(value) <= kFarthest) {
    return std::nullopt;
  }
  return reasonAgainstNumber(definition.GetNameRef(), value);
}

PointLayer::PointLayer(const InputOptions& options, const std::vector<std::string>& columns)
    : file_(options.file), source_(options.file) {
  const std::vector<long long> fids = optionValues::featureIds("--where", options.where);
  wanted_.insert(fids.begin(), fids.end());
  chooseLayer(options, columns);
  for (const PointColumn& column : columns_) {
    usesPlaces_ = usesPlaces_ || column.ofPlace();
    const OGRFieldDefn* const field =
        column.ofPlace() ? nullptr : layer_->GetLayerDefn()->GetFieldDefn(column.field);
    if (field != nullptr && !isNumeric(field->GetType()) && field->GetType() != OFTString) {
      throw CommandError(file_ + ": column '" + column.name + "' has no numbers but the type " +
                         OGRFieldDefn::GetFieldTypeName(field->GetType()));
    }
  }
}

bool PointLayer::isTable() const { return layer_->GetLayerDefn()->GetGeomFieldCount() == 0; }

void PointLayer::chooseLayer(const InputOptions& options, const std::vector<std::string>& names) {
  std::vector<OGRLayer*> layers = source_.layers();
  if (!options.layer.empty()) {
    layers = {&source_.layerNamed(options.layer)};
  } else if (names.empty()) {
    OGRLayer* const withPoints = source_.firstLayerWith(holdsPoint);
    const bool placeless = withPoints != nullptr && !coordinateColumns(*withPoints) &&
                           withPoints->GetLayerDefn()->GetGeomFieldCount() == 0;
    if (withPoints == nullptr || placeless) {
      throw CommandError(file_ + ": no layer with points, and no table with columns x and y; " +
                         (layers.empty() ? "" : "it has " + columnList(*layers.front()) + ": ") +
                         "--columns names those to cluster by");
    }
    layers = {withPoints};
  }
  for (OGRLayer* const layer : layers) {
    if (resolve(*layer, names)) {
      return;
    }
  }
  throw CommandError(file_ + ": " +
                     (layers.empty()
                          ? "no layer in it"
                          : "no column '" + unknown_ + "'; it has " + columnList(*layers.front())));
}

// Finds the columns in the layer; false, with the first one that is not there, if it lacks one.
bool PointLayer::resolve(OGRLayer& layer, const std::vector<std::string>& names) {
  layer_ = &layer;
  coordinates_ = coordinateColumns(layer);
  hasZ_ = isTable() ? coordinates_ && coordinates_->z >= 0 : firstPointHasZ(layer);
  columns_.clear();
  std::vector<std::string> wanted = names;
  if (names.empty()) {
    wanted = hasZ_ ? std::vector<std::string>{"x", "y", "z"} : std::vector<std::string>{"x", "y"};
  }
  for (const std::string& name : wanted) {
    PointColumn column;
    column.name = name;
    column.axis = hasPlaces() ? axisNamed(name) : -1;
    if (column.axis == 2 && !hasZ_) {
      column.axis = -1;
    }
    column.field = column.axis < 0 ? layer.GetLayerDefn()->GetFieldIndex(name.c_str()) : -1;
    if (column.axis < 0 && column.field < 0) {
      unknown_ = unknown_.empty() ? textFormat::oneLine(name) : unknown_;
      return false;
    }
    columns_.push_back(column);
  }
  return true;
}

void PointLayer::forEach(const std::function<void(OGRFeature&)>& use) {
  std::set<long long> missing = wanted_;
  source_.forEachFeature(*layer_, [&](OGRFeature& feature) {
    if (wanted_.empty() || missing.erase(feature.GetFID()) > 0) {
      use(feature);
    }
  });
  if (!missing.empty()) {
    throw CommandError(file_ + ": no feature " + std::to_string(*missing.begin()) + " in layer '" +
                       layer_->GetName() + "'");
  }
}

std::string PointLayer::where(const OGRFeature& feature) const {
  return (isTable() ? "row " : "feature ") + std::to_string(feature.GetFID());
}

bool PointLayer::isOther(const OGRFeature& feature) {
  const OGRGeometry* const geometry = feature.GetGeometryRef();
  return geometry != nullptr && !visitPoints(*geometry, [](const OGRPoint&) {});
}

std::optional<std::string> PointLayer::readRow(const OGRFeature& row,
                                               std::vector<PointPlace>& places) const {
  PointPlace place;
  double z = 0.0;
  std::optional<std::string> reason = readPointNumber(row, coordinates_->x, place.position.x());
  reason = reason ? reason : readPointNumber(row, coordinates_->y, place.position.y());
  if (!reason && coordinates_->z >= 0) {
    reason = readPointNumber(row, coordinates_->z, z);
    place.position.z() = z;
    place.hasZ = true;
  }
  if (!reason) {
    places.push_back(place);
  }
  return reason;
}

std::optional<std::string> PointLayer::readPlaces(const OGRFeature& feature,
                                                  std::vector<PointPlace>& places) const {
  places.clear();
  if (coordinates_) {
    return readRow(feature, places);
  }
  const OGRGeometry* const geometry = feature.GetGeometryRef();
  if (geometry == nullptr) {
    return missingGeometryReason(feature, source_.reason(""));
  }
  std::optional<std::string> reason;
  visitPoints(*geometry, [&](const OGRPoint& point) {
    PointPlace place;
    place.hasZ = point.Is3D() == TRUE;
    place.position = gdfVertex(point.getX(), point.getY(), place.hasZ ? point.getZ() : 0.0);
    reason = reason            ? reason
             : point.IsEmpty() ? std::optional<std::string>("an empty point")
                               : reasonAgainstNumber("x", place.position.x());
    reason = reason ? reason : reasonAgainstNumber("y", place.position.y());
    reason = reason ? reason : reasonAgainstNumber("z", place.position.z());
    places.push_back(place);
  });
  if (!reason && places.empty()) {
    reason = "a multi-point without points";
  }
  return reason;
}
