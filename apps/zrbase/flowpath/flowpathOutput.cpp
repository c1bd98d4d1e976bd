#include "flowpath/flowpathOutput.h"

#include <algorithm>
#include <utility>

#include "common/textFormat.h"
#include "common/vectorOutput.h"

namespace {

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

/// Puts the records of templates into the layers of the file.
class ModelWriter {
 public:
  ModelWriter(VectorOutput& file, std::string systemText, bool withZ)
      : file_(file), systemText_(std::move(systemText)), withZ_(withZ) {}

  void write(const TemplateModel& model, const std::vector<InputPoint>& points) {
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

 private:
  OGRFeatureUniquePtr newFeature(const char* layer, const InputLine& source) const {
    OGRFeatureUniquePtr feature = file_.newFeature(layer);
    feature->SetField("fid", static_cast<GIntBig>(source.fid));
    feature->SetField("part", source.part);
    return feature;
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
    feature.SetField("crs", systemText_.c_str());
    file_.add("template", feature, file_.lineOf(model.source.vertices));
  }

  void writeBisector(const InputLine& source, const BisectorRecord& record) {
    const OGRFeatureUniquePtr made = newFeature("bisectors", source);
    OGRFeature& feature = *made;
    feature.SetField("type", record.root ? "root" : "merged");
    feature.SetField("side", sideName(record.side));
    feature.SetField("index", record.index);
    feature.SetField("left_domain", record.leftDomain);
    feature.SetField("right_domain", record.rightDomain);
    feature.SetField("top_connect", record.topConnect);
    feature.SetField("base_connections", joined(record.baseConnections).c_str());
    file_.add("bisectors", feature, file_.lineOf({record.base, record.top}));
  }

  static void setPoint(OGRFeature& feature, const PathRecord& record,
                       const std::vector<InputPoint>& points) {
    if (record.pointIndex >= 0) {
      feature.SetField(
          "point", static_cast<GIntBig>(points[static_cast<std::size_t>(record.pointIndex)].fid));
    }
  }

  void writePath(const InputLine& source, const PathRecord& record,
                 const std::vector<InputPoint>& points) {
    const OGRFeatureUniquePtr made = newFeature("flowpaths", source);
    OGRFeature& feature = *made;
    feature.SetField("h", record.path.getH());
    feature.SetField("L", record.path.getL());
    feature.SetField("side", sideName(record.side));
    setPoint(feature, record, points);
    feature.SetField("slips", textFormat::jsonList(record.path.getSlipValues()).c_str());
    file_.add("flowpaths", feature, file_.lineOf(record.path.getFlowLine()));
  }

  void writeMoved(const TemplateModel& model, const MovedRecord& record,
                  const std::vector<InputPoint>& points) {
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
    const OGRPoint to = file_.pointOf(record.to);
    file_.add("moved", feature, to);
  }

  VectorOutput& file_;
  const std::string systemText_;
  const bool withZ_;
};

}  // namespace

WrittenCounts writeModels(const SafeOutput& output, const SpatialReference& system,
                          const std::vector<TemplateModel>& models,
                          const std::vector<InputPoint>& points) {
  const bool withZ = anyElevation(models);
  VectorOutput file(output, "flowpath", layerModels(), withZ, system);
  ModelWriter writer(file, systemCode(system), withZ);
  for (const TemplateModel& model : models) {
    writer.write(model, points);
  }
  file.finish();
  return {file.count("template"), file.count("bisectors"), file.count("flowpaths"),
          file.count("moved")};
}
