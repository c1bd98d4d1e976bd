#include "survey/placesOutput.h"

#include <string>

#include "common/progressLine.h"
#include "common/textFormat.h"
#include "common/vectorOutput.h"
#include "survey/gridOutput.h"

namespace {

// A text as a cell of a table.
std::string cell(const std::string& text) {
  if (text.find_first_of(",\"") == std::string::npos) {
    return text;
  }
  std::string quoted = "\"";
  for (const char c : text) {
    quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  }
  return quoted + "\"";
}

void writeTable(const SafeOutput& output, const std::vector<SurveyPlace>& places) {
  std::string table = "fid,name,inline,crossline,x,y\n";
  for (const SurveyPlace& place : places) {
    const zrSurveyPoint& p = place.point;
    table += std::to_string(place.fid) + "," + cell(place.name);
    for (const double number : {p.inlineNumber, p.traceNumber, p.x, p.y}) {
      table += "," + textFormat::shortest(number);
    }
    table += "\n";
  }
  output.write(table.data(), table.size());
}

void writeFeatures(const SafeOutput& output, const std::vector<SurveyPlace>& places,
                   const SpatialReference& system) {
  VectorOutput file(output, "points",
                    {{"points",
                      wkbPoint,
                      {{"fid", OFTInteger64},
                       {"name", OFTString},
                       {"inline", OFTReal},
                       {"crossline", OFTReal},
                       {"x", OFTReal},
                       {"y", OFTReal}}}},
                    false, system);
  ProgressLine progress("zrbase survey: point", places.size());
  for (const SurveyPlace& place : places) {
    const zrSurveyPoint& p = place.point;
    const OGRFeatureUniquePtr feature = file.newFeature("points");
    feature->SetField("fid", static_cast<GIntBig>(place.fid));
    if (!place.name.empty()) {
      feature->SetField("name", place.name.c_str());
    }
    feature->SetField("inline", p.inlineNumber);
    feature->SetField("crossline", p.traceNumber);
    feature->SetField("x", p.x);
    feature->SetField("y", p.y);
    file.add("points", *feature, file.pointOf(gdfVertex(p.x, p.y)));
    progress.show(file.count("points"));
  }
  file.finish();
}

}  // namespace

void writePlaces(const SafeOutput& output, const std::vector<SurveyPlace>& places,
                 const SpatialReference& system) {
  if (isTable(output.finalPath())) {
    writeTable(output, places);
  } else {
    writeFeatures(output, places, system);
  }
}
