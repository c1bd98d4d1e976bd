#include "polygons/polygonsOutput.h"

#include <algorithm>

#include "common/lineFeatures.h"
#include "common/vectorOutput.h"

namespace {

int asInt(std::size_t count) { return static_cast<int>(count); }

bool hasElevation(const VertexLine& line) {
  return std::any_of(line.begin(), line.end(), [](const gdfVertex& v) { return v.z() != 0.0; });
}

// Which ring of its polygon the source was; a line has none.
void setRing(OGRFeature& feature, const InputLine& source) {
  if (source.isRing()) {
    feature.SetField("ring", source.ring);
  }
}

const std::vector<LayerModel>& nestedLayers() {
  static const std::vector<LayerModel> layers = {{"polygons", wkbPolygon,
                                                  sourceFieldsAnd({{"ring", OFTInteger},
                                                                   {"depth", OFTInteger},
                                                                   {"inside", OFTString},
                                                                   {"holes", OFTInteger},
                                                                   {"hole_rings", OFTString},
                                                                   {"area", OFTReal}})},
                                                 {"rings", wkbLineString,
                                                  sourceFieldsAnd({{"ring", OFTInteger},
                                                                   {"role", OFTString},
                                                                   {"depth", OFTInteger},
                                                                   {"inside", OFTString}})}};
  return layers;
}

void setPlace(OGRFeature& feature, const NestedRings& nested, std::size_t i) {
  setSource(feature, nested.rings[i]);
  setRing(feature, nested.rings[i]);
  const RingPlace& place = nested.places[i];
  feature.SetField("depth", place.depth);
  if (place.inside) {
    feature.SetField("inside", nested.rings[*place.inside].label().c_str());
  }
}

void writePolygonOf(VectorOutput& file, const NestedRings& nested, std::size_t outer) {
  const OGRFeatureUniquePtr feature = file.newFeature("polygons");
  setPlace(*feature, nested, outer);
  VertexLineList holes;
  std::string labels;
  double area = ringArea(nested.rings[outer].vertices);
  for (std::size_t i = 0; i < nested.rings.size(); ++i) {
    if (nested.places[i].holeOf == outer) {
      holes.push_back(nested.rings[i].vertices);
      labels += (labels.empty() ? "" : ",") + nested.rings[i].label();
      area -= ringArea(holes.back());
    }
  }
  feature->SetField("holes", asInt(holes.size()));
  if (!holes.empty()) {
    feature->SetField("hole_rings", labels.c_str());
  }
  feature->SetField("area", area);
  file.add("polygons", *feature, file.polygonOf(nested.rings[outer].vertices, holes));
}

}  // namespace

std::string writeNested(const SafeOutput& output, const SpatialReference& system,
                        const NestedRings& nested) {
  VectorOutput file(output, "polygons", nestedLayers(), anyElevation(nested.rings), system);
  for (std::size_t i = 0; i < nested.rings.size(); ++i) {
    if (!nested.places[i].holeOf) {
      writePolygonOf(file, nested, i);
    }
  }
  for (std::size_t i = 0; i < nested.rings.size(); ++i) {
    const OGRFeatureUniquePtr feature = file.newFeature("rings");
    setPlace(*feature, nested, i);
    feature->SetField("role", nested.places[i].holeOf ? "inner" : "outer");
    file.add("rings", *feature, file.lineOf(nested.rings[i].vertices));
  }
  file.finish();
  return "polygons " + std::to_string(file.count("polygons")) + ", rings " +
         std::to_string(file.count("rings"));
}

std::string writeConditioned(const SafeOutput& output, const SpatialReference& system,
                             const std::vector<ConditionedPolygon>& polygons) {
  const std::vector<LayerModel> layers = {{"polygons", wkbPolygon,
                                           sourceFieldsAnd({{"holes", OFTInteger},
                                                            {"vertices", OFTInteger},
                                                            {"removed", OFTInteger},
                                                            {"nodes", OFTInteger},
                                                            {"crossings", OFTInteger}})}};
  const bool withZ =
      std::any_of(polygons.begin(), polygons.end(), [](const ConditionedPolygon& polygon) {
        return hasElevation(polygon.source.vertices) ||
               std::any_of(polygon.holes.begin(), polygon.holes.end(), hasElevation);
      });
  VectorOutput file(output, "polygons", layers, withZ, system);
  for (const ConditionedPolygon& polygon : polygons) {
    const OGRFeatureUniquePtr feature = file.newFeature("polygons");
    setSource(*feature, polygon.source);
    std::size_t vertices = polygon.source.vertices.size();
    for (const VertexLine& hole : polygon.holes) {
      vertices += hole.size();
    }
    feature->SetField("holes", asInt(polygon.holes.size()));
    feature->SetField("vertices", asInt(vertices));
    feature->SetField("removed", asInt(polygon.removed));
    feature->SetField("nodes", asInt(polygon.nodes));
    feature->SetField("crossings", asInt(polygon.crossingsLeft));
    file.add("polygons", *feature, file.polygonOf(polygon.source.vertices, polygon.holes));
  }
  file.finish();
  return "polygons " + std::to_string(file.count("polygons"));
}

std::string writeCompleted(const SafeOutput& output, const SpatialReference& system,
                           const std::vector<CompletedLine>& lines, double tolerance) {
  const std::vector<LayerModel> layers = {{"polygons", wkbPolygon,
                                           sourceFieldsAnd({{"closed_by", OFTString},
                                                            {"boundary", OFTString},
                                                            {"added", OFTInteger},
                                                            {"crossings", OFTInteger},
                                                            {"area", OFTReal}})}};
  const bool withZ = std::any_of(lines.begin(), lines.end(), [](const CompletedLine& line) {
    return hasElevation(line.source.vertices);
  });
  VectorOutput file(output, "polygons", layers, withZ, system);
  for (const CompletedLine& line : lines) {
    const OGRFeatureUniquePtr feature = file.newFeature("polygons");
    setSource(*feature, line.source);
    feature->SetField("closed_by", line.boundary ? "boundary" : "itself");
    if (line.boundary) {
      feature->SetField("boundary", line.boundary->label().c_str());
    }
    feature->SetField("added", asInt(line.added));
    feature->SetField("crossings", asInt(selfCrossings(line.source.vertices, tolerance)));
    feature->SetField("area", ringArea(line.source.vertices));
    file.add("polygons", *feature, file.polygonOf(line.source.vertices));
  }
  file.finish();
  return "polygons " + std::to_string(file.count("polygons"));
}
