#include "cluster/clusterOutput.h"

#include <ogrsf_frmts.h>

#include <cmath>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>

#include "cluster/pointFields.h"
#include "cluster/tableWriter.h"
#include "common/commandError.h"
#include "common/progressLine.h"
#include "common/textFormat.h"
#include "common/vectorOutput.h"

namespace {

double coordinate(const gdfVertex& place, int axis) {
  return axis == 0 ? place.x() : axis == 1 ? place.y() : place.z();
}

/// A point on its way out: its number, its feature, and its place if it has one.
struct PointRow {
  std::size_t index;
  OGRFeature& feature;
  std::optional<gdfVertex> place;
};

// The place of a feature whose attributes alone were clustered: that of a single point.
std::optional<gdfVertex> plainPlace(const PointLayer& layer, const OGRFeature& feature) {
  std::vector<PointPlace> places;
  const bool may = layer.hasPlaces() && (layer.isTable() || feature.GetGeometryRef() != nullptr) &&
                   !PointLayer::isOther(feature);
  if (!may || layer.readPlaces(feature, places) || places.size() != 1) {
    return std::nullopt;
  }
  return places.front().position;
}

// Reads the features again and calls `use` on each of their points.
void forEachRow(const ClusterContent& content, const std::function<void(const PointRow&)>& use) {
  const ClusterPoints& points = content.points;
  ProgressLine progress("zrbase cluster: writing point", points.size());
  std::size_t next = 0;
  content.layer.forEach([&](OGRFeature& feature) {
    while (next < points.size() && points.fids[next] == feature.GetFID()) {
      use({next, feature,
           points.positions.empty() ? plainPlace(content.layer, feature)
                                    : std::optional<gdfVertex>(points.positions[next])});
      progress.show(++next);
    }
  });
  if (next != points.size()) {
    throw CommandError(content.file + ": has changed while it was read");
  }
}

PointFormat formatOf(const std::string& fileName) {
  return outputDriver(fileName) == "GPKG" ? PointFormat::geoPackage : PointFormat::geoJson;
}

LayerModel pointsModel(const PointFields& fields, OGRwkbGeometryType geometry) {
  LayerModel model = {"points", geometry, {}};
  if (fields.fid) {
    model.fields.push_back({"fid", OFTInteger64});
  }
  for (const CoordinateField& field : fields.coordinates) {
    model.fields.push_back({field.name.c_str(), OFTReal});
  }
  for (const CopiedField& field : fields.copied) {
    model.fields.push_back({field.name.c_str(), field.type, field.subtype});
  }
  model.fields.push_back({"cluster", OFTInteger});
  model.fields.push_back({"cluster_distance", OFTReal});
  return model;
}

LayerModel centersModel(const std::vector<std::string>& names, OGRwkbGeometryType geometry) {
  LayerModel model = {"centers",
                      geometry,
                      {{"cluster", OFTInteger},
                       {"weight", OFTInteger},
                       {"distortion", OFTReal},
                       {"average", OFTReal},
                       {"rms", OFTReal}}};
  for (const std::string& name : names) {
    model.fields.push_back({name.c_str(), OFTReal});
  }
  return model;
}

/// Puts points and centers into the layers of a file.
class LayerWriter {
 public:
  LayerWriter(VectorOutput& file, const ClusterContent& content, const PointFields& fields,
              const std::vector<std::string>& centerNames)
      : file_(file),
        points_(content.points),
        clustering_(content.clustering),
        fields_(fields),
        centerNames_(centerNames) {
    // By name each value would cost a search.
    const OGRFeatureUniquePtr feature = file.newFeature("points");
    fid_ = feature->GetFieldIndex("fid");
    cluster_ = feature->GetFieldIndex("cluster");
    distance_ = feature->GetFieldIndex("cluster_distance");
    for (const CoordinateField& field : fields.coordinates) {
      coordinateFields_.push_back(feature->GetFieldIndex(field.name.c_str()));
    }
    for (const CopiedField& field : fields.copied) {
      copiedFields_.push_back(feature->GetFieldIndex(field.name.c_str()));
    }
  }

  void writePoint(const PointRow& row) {
    const OGRFeatureUniquePtr made = file_.newFeature("points");
    OGRFeature& feature = *made;
    if (fields_.fid) {
      feature.SetField(fid_, static_cast<GIntBig>(points_.fids[row.index]));
    }
    for (std::size_t i = 0; i < coordinateFields_.size() && row.place; ++i) {
      feature.SetField(coordinateFields_[i], coordinate(*row.place, fields_.coordinates[i].axis));
    }
    for (std::size_t i = 0; i < copiedFields_.size(); ++i) {
      copy(row, fields_.copied[i], copiedFields_[i], feature);
    }
    feature.SetField(cluster_, clustering_.clusterOf[row.index]);
    feature.SetField(distance_, clustering_.distances[row.index]);
    add("points", feature, row.place);
  }

  void writeCenter(std::size_t index, double meanZ) {
    const Cluster& cluster = clustering_.clusters[index];
    const OGRFeatureUniquePtr made = file_.newFeature("centers");
    OGRFeature& feature = *made;
    feature.SetField("cluster", static_cast<int>(index));
    feature.SetField("weight", static_cast<int>(cluster.weight));
    feature.SetField("distortion", cluster.distortion);
    if (cluster.weight > 0) {
      feature.SetField("average", cluster.average());
      feature.SetField("rms", std::sqrt(cluster.average()));
    }
    for (std::size_t j = 0; j < centerNames_.size(); ++j) {
      feature.SetField(centerNames_[j].c_str(), cluster.center[j]);
    }
    add("centers", feature, placeOf(cluster, meanZ));
  }

 private:
  void copy(const PointRow& row, const CopiedField& field, int target, OGRFeature& feature) const {
    if (field.column >= 0) {
      const double value = points_.value(row.index, static_cast<std::size_t>(field.column));
      feature.SetField(target, value);
    } else if (!row.feature.IsFieldSetAndNotNull(field.source)) {
      return;
    } else if (field.type == OFTString) {
      feature.SetField(target, row.feature.GetFieldAsString(field.source));
    } else {
      feature.SetField(target, row.feature.GetRawFieldRef(field.source));
    }
  }

  // Where x and y are clustered by, a center has a place.
  std::optional<gdfVertex> placeOf(const Cluster& cluster, double meanZ) const {
    const int x = points_.columnOfAxis(0);
    const int y = points_.columnOfAxis(1);
    const int z = points_.columnOfAxis(2);
    if (x < 0 || y < 0) {
      return std::nullopt;
    }
    const auto value = [&cluster](int column) {
      return cluster.center[static_cast<std::size_t>(column)];
    };
    return gdfVertex(value(x), value(y), z < 0 ? meanZ : value(z));
  }

  void add(const char* layer, OGRFeature& feature, const std::optional<gdfVertex>& place) {
    if (place) {
      file_.add(layer, feature, file_.pointOf(*place));
    } else {
      file_.add(layer, feature);
    }
  }

  VectorOutput& file_;
  const ClusterPoints& points_;
  const Clustering& clustering_;
  const PointFields& fields_;
  const std::vector<std::string>& centerNames_;
  int fid_ = -1;
  int cluster_ = -1;
  int distance_ = -1;
  std::vector<int> coordinateFields_;
  std::vector<int> copiedFields_;
};

// The mean z of each cluster, for centers that have no z of their own.
std::vector<double> meanElevations(const ClusterContent& content) {
  const Clustering& clustering = content.clustering;
  std::vector<double> means(clustering.clusters.size());
  for (std::size_t i = 0; i < content.points.positions.size(); ++i) {
    const auto k = static_cast<std::size_t>(clustering.clusterOf[i]);
    means[k] +=
        content.points.positions[i].z() / static_cast<double>(clustering.clusters[k].weight);
  }
  return means;
}

void writeCopiedCell(TableWriter& table, const OGRFeature& feature, int field) {
  if (!feature.IsFieldSetAndNotNull(field)) {
    table.emptyCell();
  } else if (feature.GetFieldDefnRef(field)->GetType() == OFTReal) {
    table.cell(feature.GetFieldAsDouble(field));  // its text would lose digits
  } else {
    table.cell(std::string_view(const_cast<OGRFeature&>(feature).GetFieldAsString(field)));
  }
}

void writePointHeading(TableWriter& table, const PointFields& fields) {
  if (fields.fid) {
    table.cell("fid");
  }
  for (const CoordinateField& field : fields.coordinates) {
    table.cell(field.name);
  }
  for (const CopiedField& field : fields.copied) {
    table.cell(field.name);
  }
  table.cell("cluster");
  table.cell("cluster_distance");
  table.endRow();
}

void writePointRow(TableWriter& table, const PointFields& fields, const ClusterContent& content,
                   const PointRow& row) {
  if (fields.fid) {
    table.cell(content.points.fids[row.index]);
  }
  for (const CoordinateField& field : fields.coordinates) {
    if (row.place) {
      table.cell(coordinate(*row.place, field.axis));
    } else {
      table.emptyCell();
    }
  }
  for (const CopiedField& field : fields.copied) {
    writeCopiedCell(table, row.feature, field.source);
  }
  table.cell(static_cast<long long>(content.clustering.clusterOf[row.index]));
  table.cell(content.clustering.distances[row.index]);
  table.endRow();
}

}  // namespace

bool isClusterTable(const std::string& fileName) {
  if (textFormat::fileEnding(fileName) == ".csv") {
    return true;
  }
  const std::string ending = textFormat::fileEnding(fileName);
  if (ending != ".geojson" && ending != ".json" && ending != ".gpkg") {
    throw CommandError(fileName +
                       ": unknown ending for the output: .csv, .geojson, .json or .gpkg");
  }
  return false;
}

std::string centersFileBeside(const std::string& output) {
  const std::filesystem::path path(output);
  return (path.parent_path() / (path.stem().string() + "_centers.csv")).string();
}

std::vector<std::string> replacedAttributes(const PointLayer& layer) {
  return pointFields(layer, PointFormat::table).replaced;
}

void writeClusterLayers(const SafeOutput& output, const ClusterContent& content) {
  const PointLayer& layer = content.layer;
  const ClusterPoints& points = content.points;
  const PointFields fields = pointFields(layer, formatOf(output.finalPath()));
  const std::vector<std::string> centerNames = centerCoordinateNames(points.columns);
  const bool centersPlaced = points.columnOfAxis(0) >= 0 && points.columnOfAxis(1) >= 0;
  VectorOutput file(output, "clusters",
                    {pointsModel(fields, layer.hasPlaces() ? wkbPoint : wkbNone),
                     centersModel(centerNames, centersPlaced ? wkbPoint : wkbNone)},
                    layer.hasPlaces() && layer.hasZ(), points.model);
  LayerWriter writer(file, content, fields, centerNames);
  forEachRow(content, [&writer](const PointRow& row) { writer.writePoint(row); });
  const std::vector<double> meanZ = meanElevations(content);
  for (std::size_t i = 0; i < content.clustering.clusters.size(); ++i) {
    writer.writeCenter(i, meanZ[i]);
  }
  file.finish();
}

void writePointTable(const SafeOutput& output, const ClusterContent& content) {
  const PointFields fields = pointFields(content.layer, PointFormat::table);
  TableWriter table(output);
  writePointHeading(table, fields);
  forEachRow(content, [&](const PointRow& row) { writePointRow(table, fields, content, row); });
  table.finish();
}

void writeCenterTable(const SafeOutput& output, const ClusterContent& content) {
  TableWriter table(output);
  for (const char* const name : {"cluster", "weight", "distortion", "average", "rms"}) {
    table.cell(std::string_view(name));
  }
  for (const std::string& name : centerCoordinateNames(content.points.columns)) {
    table.cell(name);
  }
  table.endRow();
  for (std::size_t i = 0; i < content.clustering.clusters.size(); ++i) {
    const Cluster& cluster = content.clustering.clusters[i];
    table.cell(static_cast<long long>(i));
    table.cell(static_cast<long long>(cluster.weight));
    table.cell(cluster.distortion);
    if (cluster.weight > 0) {
      table.cell(cluster.average());
      table.cell(std::sqrt(cluster.average()));
    } else {
      table.emptyCell();
      table.emptyCell();
    }
    for (const double value : cluster.center) {
      table.cell(value);
    }
    table.endRow();
  }
  table.finish();
}
