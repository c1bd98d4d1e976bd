#include "common/vectorOutput.h"

#include <cpl_conv.h>

#include "common/commandError.h"
#include "common/textFormat.h"

namespace {

GDALDatasetUniquePtr createDataset(const SafeOutput& output, const std::string& driverName) {
  GDALAllRegister();
  // A GeoPackage notes when it was last changed; a fixed date keeps the bytes the same from run to
  // run.
  CPLSetConfigOption("OGR_CURRENT_DATE", "1970-01-01T00:00:00.000Z");
  GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName(driverName.c_str());
  if (driver == nullptr) {
    throw CommandError(output.finalPath() + ": cannot be written: GDAL lacks the driver " +
                       driverName);
  }
  VSIUnlink(output.partialPath().c_str());  // reserved, but the drivers want to make it themselves
  return GDALDatasetUniquePtr(
      driver->Create(output.partialPath().c_str(), 0, 0, 0, GDT_Unknown, nullptr));
}

}  // namespace

std::string outputDriver(const std::string& fileName, bool tableToo) {
  const std::string ending = textFormat::fileEnding(fileName);
  if (ending == ".geojson" || ending == ".json") {
    return "GeoJSON";
  }
  if (ending == ".gpkg") {
    return "GPKG";
  }
  if (tableToo && ending == ".csv") {
    return "CSV";
  }
  throw CommandError(fileName + ": unknown ending for the output: " +
                     (tableToo ? ".geojson, .json, .gpkg or .csv" : ".geojson, .json or .gpkg"));
}

VectorOutput::VectorOutput(const SafeOutput& output, const std::string& collection,
                           const std::vector<LayerModel>& layers, bool withZ,
                           const SpatialReference& system)
    : output_(output), system_(system), withZ_(withZ) {
  const bool pointsAlone = layers.size() == 1 && layers.front().geometry == wkbPoint;
  const std::string driver = outputDriver(output.finalPath(), pointsAlone);
  json_ = driver == "GeoJSON";
  table_ = driver == "CSV";
  oneCollection_ = json_ && layers.size() > 1;
  dataset_ = createDataset(output, driver);
  check(dataset_ != nullptr, "");
  dataset_->StartTransaction();
  for (const LayerModel& model : layers) {
    counts_[model.name] = 0;
    if (!oneCollection_ || layers_.empty()) {
      layers_[model.name] = createLayer(json_ ? collection : model.name,
                                        oneCollection_ ? wkbUnknown : model.geometry);
      if (oneCollection_) {
        addFields(*layers_[model.name], {{"layer", OFTString}});
      }
    } else {
      layers_[model.name] = layers_.begin()->second;
    }
    addFields(*layers_[model.name], model.fields);
  }
}

void VectorOutput::check(bool done, const std::string& what) const {
  if (!done) {
    throw CommandError(output_.finalPath() + ": cannot be written: " +
                       (what.empty() ? "" : what + ": ") + errors_.reason("refused"));
  }
}

OGRLayer* VectorOutput::createLayer(const std::string& name, OGRwkbGeometryType geometry) {
  const bool plain = !withZ_ || geometry == wkbUnknown || geometry == wkbNone;
  char** options = nullptr;
  if (json_) {
    options = CSLSetNameValue(options, "RFC7946", "NO");
    // A nanometre: what a double holds.
    options = CSLSetNameValue(options, "COORDINATE_PRECISION", "9");
  } else if (table_) {
    options = CSLSetNameValue(options, "GEOMETRY", withZ_ ? "AS_XYZ" : "AS_XY");
    options = CSLSetNameValue(options, "LINEFORMAT", "LF");
    // Otherwise whole numbers stand in quotes.
    options = CSLSetNameValue(options, "STRING_QUOTING", "IF_NEEDED");
  } else {
    options = CSLSetNameValue(options, "FID", "ogc_fid");  // "fid" is that of the input
  }
  const OGRSpatialReference* const system = system_.get();
  // The data set copies the system, but asks for it without const.
  OGRLayer* const layer =
      dataset_->CreateLayer(name.c_str(), const_cast<OGRSpatialReference*>(system),
                            plain ? geometry : OGR_GT_SetZ(geometry), options);
  CSLDestroy(options);
  check(layer != nullptr, "layer " + name);
  return layer;
}

void VectorOutput::addFields(OGRLayer& layer, const std::vector<FieldModel>& fields) {
  for (const FieldModel& field : fields) {
    if (layer.GetLayerDefn()->GetFieldIndex(field.name) < 0) {
      OGRFieldDefn definition(field.name, field.type);
      definition.SetSubType(field.subtype);
      check(layer.CreateField(&definition) == OGRERR_NONE, std::string("field ") + field.name);
    }
  }
}

OGRFeatureUniquePtr VectorOutput::newFeature(const std::string& layer) const {
  OGRFeatureUniquePtr feature(new OGRFeature(layers_.at(layer)->GetLayerDefn()));
  if (oneCollection_) {
    feature->SetField("layer", layer.c_str());
  }
  return feature;
}

void VectorOutput::add(const std::string& layer, OGRFeature& feature, const OGRGeometry& geometry) {
  check(feature.SetGeometry(&geometry) == OGRERR_NONE, layer);
  add(layer, feature);
}

void VectorOutput::add(const std::string& layer, OGRFeature& feature) {
  check(layers_.at(layer)->CreateFeature(&feature) == OGRERR_NONE, layer);
  ++counts_.at(layer);
}

OGRPoint VectorOutput::pointOf(const gdfVertex& v) const {
  return withZ_ ? OGRPoint(v.x(), v.y(), v.z()) : OGRPoint(v.x(), v.y());
}

OGRLineString VectorOutput::lineOf(const VertexLine& vertices) const {
  OGRLineString line;
  for (const gdfVertex& vertex : vertices) {
    const OGRPoint point = pointOf(vertex);
    line.addPoint(&point);
  }
  return line;
}

OGRLinearRing VectorOutput::ringOf(const VertexLine& vertices) const {
  OGRLinearRing ring;
  for (const gdfVertex& vertex : vertices) {
    const OGRPoint point = pointOf(vertex);
    ring.addPoint(&point);
  }
  ring.closeRings();
  return ring;
}

OGRPolygon VectorOutput::polygonOf(const VertexLine& ring, const VertexLineList& holes) const {
  OGRPolygon polygon;
  OGRLinearRing outer = ringOf(ring);
  polygon.addRing(&outer);
  for (const VertexLine& hole : holes) {
    OGRLinearRing inner = ringOf(hole);
    polygon.addRing(&inner);
  }
  return polygon;
}

void VectorOutput::finish() {
  dataset_->CommitTransaction();
  errors_.clear();
  dataset_.reset();
  check(!errors_.failed(), "");
  checkWritten();
}

// A full disk may only show when the data set is closed, and not every driver tells: the file is
// read back.
void VectorOutput::checkWritten() const {
  const GDALDatasetUniquePtr dataset(
      GDALDataset::Open(output_.partialPath().c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
  GIntBig found = 0;
  if (dataset) {
    for (OGRLayer* const layer : dataset->GetLayers()) {
      found += layer->GetFeatureCount();
    }
  }
  GIntBig expected = 0;
  for (const auto& [name, count] : counts_) {
    expected += static_cast<GIntBig>(count);
  }
  if (found != expected) {
    throw CommandError(output_.finalPath() +
                       ": cannot be written: not every feature arrived in the file");
  }
}
