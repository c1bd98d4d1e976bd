#include "plane/planeOutput.h"

#include "common/vectorOutput.h"

namespace {

const char* const kLayer = "planes";

const std::vector<LayerModel>& layerModels() {
  static const std::vector<LayerModel> models = {{kLayer,
                                                  wkbPoint,
                                                  {{"set", OFTString},
                                                   {"name", OFTString},
                                                   {"points", OFTInteger},
                                                   {"dip", OFTReal},
                                                   {"dip_azimuth", OFTReal},
                                                   {"strike", OFTReal},
                                                   {"rms", OFTReal},
                                                   {"max_distance", OFTReal},
                                                   {"nx", OFTReal},
                                                   {"ny", OFTReal},
                                                   {"nz", OFTReal},
                                                   {"method", OFTString},
                                                   {"crs", OFTString}}}};
  return models;
}

void setIfAny(OGRFeature& feature, const char* field, const std::optional<double>& value) {
  if (value) {
    feature.SetField(field, *value);
  }
}

void fill(OGRFeature& feature, const FittedPlane& plane) {
  feature.SetField("set", plane.label.c_str());
  if (!plane.name.empty()) {
    feature.SetField("name", plane.name.c_str());
  }
  feature.SetField("points", static_cast<int>(plane.points));
  feature.SetField("dip", plane.dip);
  setIfAny(feature, "dip_azimuth", plane.azimuth);
  setIfAny(feature, "strike", plane.strike);
  feature.SetField("rms", plane.rms);
  feature.SetField("max_distance", plane.largestDistance);
  feature.SetField("nx", plane.normal.x());
  feature.SetField("ny", plane.normal.y());
  feature.SetField("nz", plane.normal.z());
}

}  // namespace

void writePlanes(const SafeOutput& output, const SpatialReference& system, PlaneMethod method,
                 const std::vector<FittedPlane>& planes) {
  VectorOutput file(output, kLayer, layerModels(), true, system);
  const std::string code = systemCode(system);
  for (const FittedPlane& plane : planes) {
    const OGRFeatureUniquePtr feature = file.newFeature(kLayer);
    fill(*feature, plane);
    feature->SetField("method", methodName(method));
    feature->SetField("crs", code.c_str());
    file.add(kLayer, *feature, file.pointOf(plane.centre));
  }
  file.finish();
}
