#include "plane/pointSets.h"

#include <ogrsf_frmts.h>

#include <map>
#include <optional>
#include <set>
#include <utility>

#include "common/commandError.h"
#include "common/geometryParts.h"
#include "common/optionValues.h"
#include "common/textFormat.h"
#include "common/vectorSource.h"

namespace {

bool isUsedKind(const OGRGeometry& part) {
  return isOfKind(part, wkbPoint) || isOfKind(part, wkbCurve) || isOfKind(part, wkbCurvePolygon);
}

bool holdsVertices(const OGRGeometry& geometry) {
  bool found = isOfKind(geometry, wkbMultiPoint) || isOfKind(geometry, wkbMultiCurve) ||
               isOfKind(geometry, wkbMultiSurface);
  forEachSimplePart(geometry, [&](const OGRGeometry& part) { found |= isUsedKind(part); });
  return found;
}

void appendRing(VertexLine& vertices, const VertexLine& ring) {
  const bool closed = ring.size() > 1 && ring.front() == ring.back();
  vertices.insert(vertices.end(), ring.begin(), ring.end() - (closed ? 1 : 0));
}

VertexLine allVerticesOf(const OGRGeometry& geometry) {
  VertexLine vertices;
  forEachSimplePart(geometry, [&vertices](const OGRGeometry& part) {
    if (isOfKind(part, wkbPoint) && !part.IsEmpty()) {
      const OGRPoint& point = *part.toPoint();
      vertices.emplace_back(point.getX(), point.getY(), point.Is3D() ? point.getZ() : 0.0);
    } else if (isOfKind(part, wkbCurve)) {
      const VertexLine line = verticesOf(part);
      vertices.insert(vertices.end(), line.begin(), line.end());
    } else if (isOfKind(part, wkbCurvePolygon)) {
      for (const VertexLine& ring : ringVerticesOf(part)) {
        appendRing(vertices, ring);
      }
    }
  });
  return vertices;
}

class PointSetReader {
 public:
  PointSetReader(VectorSource& source, const PointSetOptions& options, BadFeatures& bad)
      : source_(source), options_(options), bad_(bad) {
    const std::vector<long long> ids = optionValues::featureIds("--where", options.input.where);
    wanted_.insert(ids.begin(), ids.end());
    selecting_ = !wanted_.empty();
  }

  PointSetFile read(OGRLayer& layer) {
    file_.stated = VectorSource::systemOf(layer);
    columns_ = coordinateColumns(layer);
    file_.isTable = columns_.has_value();
    group_ = fieldNamed(layer, "--group", options_.group);
    zField_ = fieldNamed(layer, "--z", options_.zField);
    if (columns_ && zField_ < 0) {
      zField_ = columns_->z;
      if (zField_ < 0) {
        throw CommandError(options_.input.file +
                           ": no column z: --z names the one with elevations");
      }
    }
    source_.forEachFeature(layer, [this](OGRFeature& feature) { readFeature(feature); });
    if (!wanted_.empty()) {
      throw CommandError(options_.input.file + ": no feature " + std::to_string(*wanted_.begin()) +
                         " in layer '" + layer.GetName() + "'");
    }
    return std::move(file_);
  }

 private:
  int fieldNamed(OGRLayer& layer, const std::string& option, const std::string& name) const {
    if (name.empty()) {
      return -1;
    }
    OGRFeatureDefn& definition = *layer.GetLayerDefn();
    const int field = definition.GetFieldIndex(name.c_str());
    if (field < 0) {
      std::string known;
      for (int i = 0; i < definition.GetFieldCount(); ++i) {
        known += (i == 0 ? "" : ", ") + std::string(definition.GetFieldDefn(i)->GetNameRef());
      }
      throw CommandError(options_.input.file + ": no field '" + name + "' for " + option +
                         "; it has " + (known.empty() ? "none" : known));
    }
    return field;
  }

  void readFeature(const OGRFeature& feature) {
    if (selecting_ && wanted_.erase(feature.GetFID()) == 0) {
      return;
    }
    const std::string where = (columns_ ? "row " : "feature ") + std::to_string(feature.GetFID());
    const OGRGeometry* const geometry = feature.GetGeometryRef();
    if (!columns_ && geometry != nullptr && !holdsVertices(*geometry)) {
      ignore(*geometry, where);
      return;
    }
    VertexLine vertices;
    std::string reason = columns_ ? readRow(feature, vertices) : readGeometry(feature, vertices);
    std::string group;
    if (reason.empty() && group_ >= 0) {
      group = textFormat::oneLine(feature.GetFieldAsString(group_));
      reason = group.empty() ? "no value in field '" + options_.group + "'" : "";
    }
    if (!reason.empty()) {
      bad_.report(where, reason);
      return;
    }
    PointSet& set = setFor(feature, group);
    set.points.insert(set.points.end(), vertices.begin(), vertices.end());
    set.fids.insert(set.fids.end(), vertices.size(), feature.GetFID());
  }

  void ignore(const OGRGeometry& geometry, const std::string& where) {
    if (selecting_) {
      bad_.report(where,
                  "neither points nor a line but a " + std::string(geometry.getGeometryName()));
    } else {
      ++file_.otherFeatures;
    }
  }

  // The place of a row of a table; returns the reason if it tells none.
  std::string readRow(const OGRFeature& row, VertexLine& vertices) const {
    gdfVertex place;
    std::string reason = readCoordinate(row, columns_->x, false, place.x());
    reason = reason.empty() ? readCoordinate(row, columns_->y, false, place.y()) : reason;
    reason = reason.empty() ? readCoordinate(row, zField_, false, place.z()) : reason;
    vertices = {place};
    return reason;
  }

  // All vertices of a feature; returns the reason if they cannot be used.
  std::string readGeometry(const OGRFeature& feature, VertexLine& vertices) const {
    const OGRGeometry* const geometry = feature.GetGeometryRef();
    if (geometry == nullptr) {
      return missingGeometryReason(feature, source_.reason(""));
    }
    vertices = allVerticesOf(*geometry);
    if (vertices.empty()) {
      return "without points";
    }
    if (zField_ >= 0) {
      if (!isOfKind(*geometry, wkbPoint)) {
        return "--z is for single points, not for a " + std::string(geometry->getGeometryName());
      }
      std::string reason = readCoordinate(feature, zField_, false, vertices.front().z());
      if (!reason.empty()) {
        return reason;
      }
    } else if (geometry->Is3D() == FALSE) {
      return "without z: a plane needs elevations";
    }
    for (std::size_t i = 0; i < vertices.size(); ++i) {
      if (!isFinite(vertices[i])) {
        return "vertex " + std::to_string(i) + " is not finite (NaN or infinite coordinate)";
      }
    }
    return "";
  }

  PointSet& setFor(const OGRFeature& feature, const std::string& group) {
    const bool single = columns_ || isOfKind(*feature.GetGeometryRef(), wkbPoint);
    const std::string id = std::to_string(feature.GetFID());
    if (group_ >= 0) {
      return setNamed(group, group, "set '" + group + "'");
    }
    if (single) {
      return setNamed("", "all", "the set of all points");
    }
    PointSet& set = setNamed(id, id, "feature " + id);
    set.name = featureName(feature);
    return set;
  }

  PointSet& setNamed(const std::string& key, const std::string& label, const std::string& where) {
    const auto [found, isNew] = setByKey_.emplace(key, file_.sets.size());
    if (isNew) {
      PointSet set;
      set.label = label;
      set.where = where;
      file_.sets.push_back(std::move(set));
    }
    return file_.sets[found->second];
  }

  VectorSource& source_;
  const PointSetOptions& options_;
  BadFeatures& bad_;
  std::set<long long> wanted_;
  bool selecting_ = false;
  std::optional<CoordinateColumns> columns_;
  int group_ = -1;
  int zField_ = -1;
  std::map<std::string, std::size_t> setByKey_;
  PointSetFile file_;
};

Extent extentOfSets(const std::vector<PointSet>& sets, bool geographic) {
  InputLine all;
  for (const PointSet& set : sets) {
    all.vertices.insert(all.vertices.end(), set.points.begin(), set.points.end());
  }
  return extentOf({all}, geographic);
}

// Projects in place; a point that cannot be projected is a bad feature and leaves its set.
// `kind` is what a file calls its features, "row".
void projectSet(PointSet& set, const std::string& kind, const Projection& projection,
                BadFeatures& bad) {
  VertexLine projected;
  std::vector<long long> fids;
  for (std::size_t i = 0; i < set.points.size(); ++i) {
    gdfVertex place = set.points[i];
    const std::optional<std::string> reason = projection.apply(place);
    if (reason) {
      bad.report(kind + " " + std::to_string(set.fids[i]), *reason);
    } else {
      projected.push_back(place);
      fids.push_back(set.fids[i]);
    }
  }
  set.points = std::move(projected);
  set.fids = std::move(fids);
}

void bringIntoMetres(PointSetFile& file, const InputOptions& options, BadFeatures& bad) {
  const bool geographic = isGeographic(file.stated);
  const Extent extent = extentOfSets(file.sets, geographic);
  file.model = chooseModelSystem(file.stated, options.crs, extent);
  file.degreesWide = geographic && options.crs.empty() ? extent.maxX - extent.minX : 0.0;
  const Projection projection(file.stated, file.model);
  for (PointSet& set : file.sets) {
    projectSet(set, file.isTable ? "row" : "feature", projection, bad);
  }
}

// "points.shp: feature 3: ..." names the file already.
CommandError namingFile(const CommandError& error, const std::string& file) {
  const std::string text = error.what();
  return text.rfind(file, 0) == 0 ? error : CommandError(file + ": " + text);
}

}  // namespace

PointSetFile readPointSets(const PointSetOptions& options, BadFeatures& bad) {
  const InputOptions& input = options.input;
  VectorSource source(input.file);
  OGRLayer* const layer =
      input.layer.empty() ? source.firstLayerWith(holdsVertices) : &source.layerNamed(input.layer);
  if (layer == nullptr) {
    throw CommandError(input.file + ": no layer with points");
  }
  PointSetFile file = PointSetReader(source, options, bad).read(*layer);
  if (file.sets.empty()) {
    const std::size_t left = bad.leftOut().size();
    throw CommandError(input.file + ": " +
                       (left > 0 ? "no usable point, " + std::to_string(left) + " left out"
                                 : "no points in layer '" + std::string(layer->GetName()) + "'"));
  }
  try {
    bringIntoMetres(file, input, bad);
  } catch (const CommandError& error) {
    throw namingFile(error, input.file);
  }
  return file;
}
