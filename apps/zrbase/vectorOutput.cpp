#include "vectorOutput.h"

#include <cpl_conv.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <map>
#include <utility>

#include "commandError.h"
#include "gdalErrors.h"
#include "textFormat.h"

namespace {

struct FieldModel {
  const char* name;
  OGRFieldType type;
  OGRFieldSubType subtype = OFSTNone;
};

struct LayerModel {
  const char* name;
  OGRwkbGeometryType geometry;
  std::vector<FieldModel> fields;
};

const std::vector<LayerModel>& layerModels() {
  static const std::vector<LayerModel> models = {{"template",
                                                  wkbLineString,
                                                  {{"fid", OFTInteger64},
                                                   {"part", OFTInteger},
                                                   {"name", OFTString},
                                                   {"vertices", OFTInteger},
                                                   {"roots", OFTInteger},
                                                   {"merged", OFTInteger},
                                                   {"paths", OFTInteger},
                                                   {"crs", OFTString}}},
                                                 {"bisectors",
                                                  wkbLineString,
                                                  {{"fid", OFTInteger64},
                                                   {"part", OFTInteger},
                                                   {"type", OFTString},
                                                   {"side", OFTString},
                                                   {"index", OFTInteger},
                                                   {"left_domain", OFTInteger},
                                                   {"right_domain", OFTInteger},
                                                   {"top_connect", OFTInteger},
                                                   {"base_connections", OFTString}}},
                                                 {"flowpaths",
                                                  wkbLineString,
                                                  {{"fid", OFTInteger64},
                                                   {"part", OFTInteger},
                                                   {"h", OFTReal},
                                                   {"L", OFTReal},
                                                   {"side", OFTString},
                                                   {"point", OFTInteger64},
                                                   {"slips", OFTString, OFSTJSON}}},
                                                 {"moved",
                                                  wkbPoint,
                                                  {{"fid", OFTInteger64},
                                                   {"part", OFTInteger},
                                                   {"h", OFTReal},
                                                   {"slip", OFTReal},
                                                   {"point", OFTInteger64},
                                                   {"from", OFTString}}}};
  return models;
}

const char* sideName(zre::side side) {
  switch (side) {
    case zre::sideOn:
      return "on";
    case zre::sideLeft:
      return "left";
    case zre::sideRight:
      return "right";
    case zre::sideNone:
      break;
  }
  return "none";
}

std::string joined(const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers) {
    text += (text.empty() ? "" : ",") + std::to_string(number);
  }
  return text;
}

bool anyElevation(const std::vector<TemplateModel>& models) {
  return std::any_of(models.begin(), models.end(), [](const TemplateModel& model) {
    const VertexLine& line = model.source.vertices;
    return std::any_of(line.begin(), line.end(), [](const gdfVertex& v) { return v.z() != 0.0; });
  });
}

/// Puts the records of templates into the layers of one data set.
class ModelWriter {
 public:
  ModelWriter(GDALDataset& dataset, bool oneLayer, bool withZ, const SpatialReference& system,
              const GdalErrors& errors)
      : dataset_(dataset), oneLayer_(oneLayer), withZ_(withZ), system_(system), errors_(errors) {
    for (const LayerModel& model : layerModels()) {
      addLayer(model);
    }
  }

  void write(const TemplateModel& model, const std::vector<SeedPoint>& points) {
    writeTemplate(model);
    for (const BisectorRecord& record : model.bisectors) {
      writeBisector(model.source, record);
    }
    for (const PathRecord& record : model.paths) {
      writePath(model.source, record, points);
    }
    for (const MovedRecord& record : model.moved) {
      writeMoved(model, record, points);
    }
  }

  const WrittenCounts& counts() const { return counts_; }

 private:
  void addLayer(const LayerModel& model) {
    OGRLayer* layer = oneLayer_ ? shared_ : nullptr;
    if (layer == nullptr) {
      layer =
          createLayer(oneLayer_ ? "flowpath" : model.name, oneLayer_ ? wkbUnknown : model.geometry);
      if (oneLayer_) {
        shared_ = layer;
        addField(*layer, {"layer", OFTString});
      }
    }
    for (const FieldModel& field : model.fields) {
      addField(*layer, field);
    }
    layers_[model.name] = layer;
  }

  OGRLayer* createLayer(const std::string& name, OGRwkbGeometryType geometry) {
    const OGRwkbGeometryType type =
        withZ_ && geometry != wkbUnknown ? OGR_GT_SetZ(geometry) : geometry;
    char** options = nullptr;
    if (oneLayer_) {
      options = CSLSetNameValue(options, "RFC7946", "NO");
      options = CSLSetNameValue(options, "COORDINATE_PRECISION",
                                "9");  // a nanometre: what a double holds
    } else {
      options = CSLSetNameValue(options, "FID", "ogc_fid");  // "fid" is the template's
    }
    const OGRSpatialReference* const system = system_.get();
    // The data set copies the system, but asks for it without const.
    OGRLayer* const layer =
        dataset_.CreateLayer(name.c_str(), const_cast<OGRSpatialReference*>(system), type, options);
    CSLDestroy(options);
    check(layer != nullptr, "layer " + name);
    return layer;
  }

  void addField(OGRLayer& layer, const FieldModel& field) {
    if (layer.GetLayerDefn()->GetFieldIndex(field.name) >= 0) {
      return;
    }
    OGRFieldDefn definition(field.name, field.type);
    definition.SetSubType(field.subtype);
    check(layer.CreateField(&definition) == OGRERR_NONE, std::string("field ") + field.name);
  }

  void check(bool done, const std::string& what) const {
    if (!done) {
      throw CommandError(what + ": " + errors_.reason("refused"));
    }
  }

  OGRFeatureUniquePtr newFeature(const char* layerName, const TemplateLine& source) {
    OGRFeatureUniquePtr feature(new OGRFeature(layers_.at(layerName)->GetLayerDefn()));
    if (oneLayer_) {
      feature->SetField("layer", layerName);
    }
    feature->SetField("fid", static_cast<GIntBig>(source.fid));
    feature->SetField("part", source.part);
    return feature;
  }

  void add(const char* layerName, OGRFeature& feature, const OGRGeometry& geometry,
           std::size_t& count) {
    check(feature.SetGeometry(&geometry) == OGRERR_NONE, layerName);
    check(layers_.at(layerName)->CreateFeature(&feature) == OGRERR_NONE, layerName);
    ++count;
  }

  OGRPoint pointOf(const gdfVertex& v) const {
    return withZ_ ? OGRPoint(v.x(), v.y(), v.z()) : OGRPoint(v.x(), v.y());
  }

  OGRLineString lineOf(const VertexLine& vertices) const {
    OGRLineString line;
    for (const gdfVertex& vertex : vertices) {
      const OGRPoint point = pointOf(vertex);
      line.addPoint(&point);
    }
    return line;
  }

  void writeTemplate(const TemplateModel& model) {
    const OGRFeatureUniquePtr made = newFeature("template", model.source);
    OGRFeature& feature = *made;
    if (!model.source.name.empty()) {
      feature.SetField("name", model.source.name.c_str());
    }
    feature.SetField("vertices", static_cast<int>(model.source.vertices.size()));
    feature.SetField("roots", static_cast<int>(model.roots));
    feature.SetField("merged", static_cast<int>(model.merged));
    feature.SetField("paths", static_cast<int>(model.paths.size()));
    feature.SetField("crs", systemCode(system_).c_str());
    add("template", feature, lineOf(model.source.vertices), counts_.templates);
  }

  void writeBisector(const TemplateLine& source, const BisectorRecord& record) {
    const OGRFeatureUniquePtr made = newFeature("bisectors", source);
    OGRFeature& feature = *made;
    feature.SetField("type", record.root ? "root" : "merged");
    feature.SetField("side", sideName(record.side));
    feature.SetField("index", record.index);
    feature.SetField("left_domain", record.leftDomain);
    feature.SetField("right_domain", record.rightDomain);
    feature.SetField("top_connect", record.topConnect);
    feature.SetField("base_connections", joined(record.baseConnections).c_str());
    add("bisectors", feature, lineOf({record.base, record.top}), counts_.bisectors);
  }

  static void setPoint(OGRFeature& feature, const PathRecord& record,
                       const std::vector<SeedPoint>& points) {
    if (record.pointIndex >= 0) {
      feature.SetField(
          "point", static_cast<GIntBig>(points[static_cast<std::size_t>(record.pointIndex)].fid));
    }
  }

  void writePath(const TemplateLine& source, const PathRecord& record,
                 const std::vector<SeedPoint>& points) {
    const OGRFeatureUniquePtr made = newFeature("flowpaths", source);
    OGRFeature& feature = *made;
    feature.SetField("h", record.path.getH());
    feature.SetField("L", record.path.getL());
    feature.SetField("side", sideName(record.side));
    setPoint(feature, record, points);
    feature.SetField("slips", textFormat::jsonList(record.path.getSlipValues()).c_str());
    add("flowpaths", feature, lineOf(record.path.getFlowLine()), counts_.paths);
  }

  void writeMoved(const TemplateModel& model, const MovedRecord& record,
                  const std::vector<SeedPoint>& points) {
    const PathRecord& path = model.paths[record.pathIndex];
    const OGRFeatureUniquePtr made = newFeature("moved", model.source);
    OGRFeature& feature = *made;
    feature.SetField("h", path.path.getH());
    feature.SetField("slip", record.slip);
    setPoint(feature, path, points);
    const std::string from = "POINT" + std::string(withZ_ ? " Z (" : " (") +
                             textFormat::shortest(record.from.x()) + " " +
                             textFormat::shortest(record.from.y()) +
                             (withZ_ ? " " + textFormat::shortest(record.from.z()) : "") + ")";
    feature.SetField("from", from.c_str());
    const OGRPoint to = pointOf(record.to);
    add("moved", feature, to, counts_.moved);
  }

  GDALDataset& dataset_;
  const bool oneLayer_;
  const bool withZ_;
  const SpatialReference& system_;
  const GdalErrors& errors_;
  OGRLayer* shared_ = nullptr;
  std::map<std::string, OGRLayer*> layers_;
  WrittenCounts counts_;
};

// A full disk may only show when the data set is closed, and not every driver tells: the file is
// read back.
void checkWritten(const SafeOutput& output, const WrittenCounts& counts) {
  const GDALDatasetUniquePtr dataset(
      GDALDataset::Open(output.partialPath().c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
  GIntBig found = 0;
  if (dataset) {
    for (OGRLayer* const layer : dataset->GetLayers()) {
      found += layer->GetFeatureCount();
    }
  }
  const std::size_t expected = counts.templates + counts.bisectors + counts.paths + counts.moved;
  if (found != static_cast<GIntBig>(expected)) {
    throw CommandError(output.finalPath() +
                       ": cannot be written: not every feature arrived in the file");
  }
}

}  // namespace

std::string outputDriver(const std::string& fileName) {
  const std::string ending = textFormat::fileEnding(fileName);
  if (ending == ".geojson" || ending == ".json") {
    return "GeoJSON";
  }
  if (ending == ".gpkg") {
    return "GPKG";
  }
  throw CommandError(fileName + ": unknown ending for the output: .geojson, .json or .gpkg");
}

WrittenCounts writeModels(const SafeOutput& output, const SpatialReference& system,
                          const std::vector<TemplateModel>& models,
                          const std::vector<SeedPoint>& points) {
  GdalErrors errors;
  GDALAllRegister();
  // A GeoPackage notes when it was last changed; a fixed date keeps the bytes the same from run to
  // run.
  CPLSetConfigOption("OGR_CURRENT_DATE", "1970-01-01T00:00:00.000Z");
  const std::string driverName = outputDriver(output.finalPath());
  GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName(driverName.c_str());
  if (driver == nullptr) {
    throw CommandError(output.finalPath() + ": cannot be written: GDAL lacks the driver " +
                       driverName);
  }
  VSIUnlink(output.partialPath().c_str());  // reserved, but the drivers want to make it themselves
  GDALDatasetUniquePtr dataset(
      driver->Create(output.partialPath().c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  WrittenCounts counts;
  try {
    if (!dataset) {
      throw CommandError(errors.reason("refused"));
    }
    dataset->StartTransaction();
    ModelWriter writer(*dataset, driverName == "GeoJSON", anyElevation(models), system, errors);
    for (const TemplateModel& model : models) {
      writer.write(model, points);
    }
    dataset->CommitTransaction();
    counts = writer.counts();
    errors.clear();
    dataset.reset();
    if (errors.failed()) {
      throw CommandError(errors.reason(""));
    }
  } catch (const CommandError& error) {
    throw CommandError(output.finalPath() + ": cannot be written: " + error.what());
  }
  checkWritten(output, counts);
  return counts;
}
