#include "well/wellOutput.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>
#include <utility>

#include "common/commandError.h"
#include "common/optionValues.h"
#include "common/textFormat.h"
#include "common/vectorOutput.h"
#include "well/lineFile.h"

namespace {

namespace fs = std::filesystem;

const std::vector<FieldModel>& pathFields() {
  static const std::vector<FieldModel> fields = {
      {"well", OFTString},      {"method", OFTString}, {"unit", OFTString},
      {"stations", OFTInteger}, {"md", OFTReal},       {"tvd", OFTReal},
      {"displaced", OFTReal},   {"closure", OFTReal},  {"dls_max", OFTReal},
      {"dls_unit", OFTString},  {"crs", OFTString}};
  return fields;
}

const std::vector<LayerModel>& layerModels() {
  static const std::vector<LayerModel> models = {{"path", wkbLineString, pathFields()},
                                                 {"stations",
                                                  wkbPoint,
                                                  {{"row", OFTInteger64},
                                                   {"md", OFTReal},
                                                   {"inc", OFTReal},
                                                   {"azi", OFTReal},
                                                   {"x", OFTReal},
                                                   {"y", OFTReal},
                                                   {"z", OFTReal},
                                                   {"tvd", OFTReal},
                                                   {"north", OFTReal},
                                                   {"east", OFTReal},
                                                   {"dls", OFTReal}}}};
  return models;
}

template <typename Value>
void setField(OGRFeature& feature, const char* name, Value value) {
  const int field = feature.GetFieldIndex(name);
  if (field >= 0) {
    feature.SetField(field, value);
  }
}

void fillPath(OGRFeature& feature, const WellPath& path, const std::string& name,
              const std::string& system) {
  setField(feature, "well", name.c_str());
  setField(feature, "method", methodName(path.method).c_str());
  setField(feature, "unit", unitName(path.unit).c_str());
  setField(feature, "stations", static_cast<int>(path.stations.size()));
  setField(feature, "md", path.last().measuredDepth);
  setField(feature, "tvd", path.last().offset.tvd);
  setField(feature, "displaced", path.displacement());
  setField(feature, "closure", path.closureAzimuth());
  setField(feature, "dls_max", path.sharpest().dogleg);
  setField(feature, "dls_unit", doglegUnitName(path.unit).c_str());
  setField(feature, "crs", system.c_str());
}

void fillStation(OGRFeature& feature, const WellStation& station) {
  feature.SetField("row", static_cast<GIntBig>(station.row));
  feature.SetField("md", station.measuredDepth);
  feature.SetField("inc", station.inclination);
  feature.SetField("azi", station.azimuth);
  feature.SetField("x", station.place.x());
  feature.SetField("y", station.place.y());
  feature.SetField("z", station.place.z());
  feature.SetField("tvd", station.offset.tvd);
  feature.SetField("north", station.offset.north);
  feature.SetField("east", station.offset.east);
  feature.SetField("dls", station.dogleg);
}

// A nanometre, as the coordinates of a GeoJSON file have it.
std::string cell(double value) {
  std::string text = textFormat::fixed(value, 9);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') {
    text.pop_back();
  }
  return text;
}

std::string tableRow(const WellStation& station) {
  std::string row;
  for (const double value :
       {station.measuredDepth, station.inclination, station.azimuth, station.place.x(),
        station.place.y(), station.place.z(), station.offset.tvd, station.offset.north,
        station.offset.east, station.dogleg}) {
    row += (row.empty() ? "" : ",") + cell(value);
  }
  return row + "\n";
}

std::string tableHeading(LengthUnit unit) {
  const std::string length = "[" + unitName(unit) + "]";
  return "MD" + length + ",Inc[deg],Azi[deg],X" + length + ",Y" + length + ",Z" + length + ",TVD" +
         length + ",North" + length + ",East" + length + ",DLS[" + doglegUnitName(unit) + "]\n";
}

bool isTable(const std::string& output) { return textFormat::fileEnding(output) == ".csv"; }

bool isLayered(const std::string& output) {
  const std::string ending = textFormat::fileEnding(output);
  return ending == ".geojson" || ending == ".json" || ending == ".gpkg";
}

// What an earlier Shapefile of that name may have left: a system or an index that is not true now.
std::vector<std::string> companionsOf(const fs::path& output) {
  std::vector<std::string> companions;
  if (textFormat::fileEnding(output.string()) == ".shp") {
    for (const char* const ending : {".prj", ".cpg", ".qix", ".sbn", ".sbx"}) {
      companions.push_back(fs::path(output).replace_extension(ending).string());
    }
  }
  return companions;
}

}  // namespace

void checkWellOutputName(const std::string& output) {
  if (!isTable(output) && !isLayered(output) && lineDriver(output).empty()) {
    throw CommandError(output +
                       ": unknown ending for the output: .csv, .geojson, .json, .gpkg, or that of "
                       "another vector format, .shp or .fgb");
  }
}

WellOutput::WellOutput(const std::string& output, const WellPath& path, const std::string& name,
                       const SpatialReference& system, const std::string& input)
    : output_(output) {
  const std::string vertices = std::to_string(path.line().size()) + " vertices";
  const std::string stations = std::to_string(path.stations.size()) + " stations";
  if (isTable(output)) {
    contents_ = "table of " + stations;
    writeTable(path);
  } else if (isLayered(output)) {
    contents_ = "path of " + vertices + ", " + stations;
    writeLayers(path, name, system);
  } else {
    contents_ = "path of " + vertices;
    writeLine(path, name, system, input);
  }
}

void WellOutput::commit() {
  for (const std::unique_ptr<SafeOutput>& file : files_) {
    file->commit();
  }
  for (const std::string& name : stale_) {
    std::error_code ignored;
    fs::remove(name, ignored);
  }
}

void WellOutput::writeTable(const WellPath& path) {
  files_.push_back(std::make_unique<SafeOutput>(output_));
  std::string text = tableHeading(path.unit);
  for (const WellStation& station : path.stations) {
    text += tableRow(station);
  }
  files_.back()->write(text.data(), text.size());
}

void WellOutput::writeLayers(const WellPath& path, const std::string& name,
                             const SpatialReference& system) {
  files_.push_back(std::make_unique<SafeOutput>(output_));
  VectorOutput file(*files_.back(), "well", layerModels(), true, system);
  const OGRFeatureUniquePtr line = file.newFeature("path");
  fillPath(*line, path, name, systemCode(system));
  file.add("path", *line, file.lineOf(path.line()));
  for (const WellStation& station : path.stations) {
    const OGRFeatureUniquePtr feature = file.newFeature("stations");
    fillStation(*feature, station);
    file.add("stations", *feature, file.pointOf(station.place));
  }
  file.finish();
}

void WellOutput::writeLine(const WellPath& path, const std::string& name,
                           const SpatialReference& system, const std::string& input) {
  LineRecord record;
  record.vertices = path.line();
  record.fields = pathFields();
  record.fill = [&](OGRFeature& feature) { fillPath(feature, path, name, systemCode(system)); };
  stale_ = companionsOf(output_);
  const fs::path folder = fs::path(output_).parent_path();
  for (const auto& [fileName, bytes] : lineFileBytes(output_, record, system)) {
    const std::string target = (folder / fileName).string();
    optionValues::refuseOverwritingInput(target, input);
    stale_.erase(std::remove(stale_.begin(), stale_.end(), target), stale_.end());
    files_.push_back(std::make_unique<SafeOutput>(target));
    files_.back()->write(bytes.data(), bytes.size());
  }
}
