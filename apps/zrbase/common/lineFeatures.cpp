#include "common/lineFeatures.h"

#include <algorithm>

std::vector<FieldModel> sourceFieldsAnd(const std::vector<FieldModel>& fields) {
  std::vector<FieldModel> all = {{"fid", OFTInteger64}, {"part", OFTInteger}, {"name", OFTString}};
  all.insert(all.end(), fields.begin(), fields.end());
  return all;
}

void setSource(OGRFeature& feature, const InputLine& source) {
  feature.SetField("fid", static_cast<GIntBig>(source.fid));
  feature.SetField("part", source.part);
  if (!source.name.empty()) {
    feature.SetField("name", source.name.c_str());
  }
}

bool anyElevation(const std::vector<InputLine>& lines) {
  return std::any_of(lines.begin(), lines.end(), [](const InputLine& line) {
    return std::any_of(line.vertices.begin(), line.vertices.end(),
                       [](const gdfVertex& v) { return v.z() != 0.0; });
  });
}
