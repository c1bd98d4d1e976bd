#include "common/vectorSource.h"

#include <cpl_vsi.h>

#include <array>
#include <cmath>
#include <fstream>

#include "common/commandError.h"
#include "common/textFormat.h"

namespace {

// A column of one of these names is read as a geometry in well-known text.
const char* const kTableOptions[] = {"GEOM_POSSIBLE_NAMES=WKT,geom,geometry,the_geom,wkt_geom",
                                     "KEEP_GEOM_COLUMNS=YES", nullptr};

int columnNamed(OGRFeatureDefn& definition, const std::string& name) {
  for (int i = 0; i < definition.GetFieldCount(); ++i) {
    if (textFormat::lowerCase(definition.GetFieldDefn(i)->GetNameRef()) == name) {
      return i;
    }
  }
  return -1;
}

struct ColumnNames {
  const char* x;
  const char* y;
  bool geographic;
};

// field_1 and so on are what a table without a header line gets.
constexpr std::array<ColumnNames, 6> kColumnNames = {{{"x", "y", false},
                                                      {"easting", "northing", false},
                                                      {"lon", "lat", true},
                                                      {"longitude", "latitude", true},
                                                      {"long", "lat", true},
                                                      {"field_1", "field_2", false}}};

GDALDataset* open(const std::string& file) {
  return GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR,
                           nullptr, kTableOptions);
}

std::string withoutQuotes(const std::string& text) {
  const bool quoted = text.size() > 1 && text.front() == '"' && text.back() == '"';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

// GDAL takes a CSV file of a single column for no table at all, but a list of geometries in
// well-known text is one: it is opened as a copy in memory, with an empty column before the
// geometries.
GDALDatasetUniquePtr openGeometryList(const std::string& file) {
  const char* const copyName = "/vsimem/zrbase-geometry-list.csv";
  std::ifstream stream(file);
  std::string line;
  if (textFormat::fileEnding(file) != ".csv" || !std::getline(stream, line) ||
      textFormat::lowerCase(withoutQuotes(textFormat::oneLine(line))) != "wkt") {
    return nullptr;
  }
  std::string table = "row,WKT\n";
  while (std::getline(stream, line)) {
    line = textFormat::oneLine(line);
    if (!line.empty()) {
      table += ",\"" + withoutQuotes(line) + "\"\n";
    }
  }
  VSILFILE* const copy = VSIFOpenL(copyName, "wb");
  VSIFWriteL(table.data(), 1, table.size(), copy);
  VSIFCloseL(copy);
  return GDALDatasetUniquePtr(open(copyName));
}

}  // namespace

VectorSource::VectorSource(const std::string& file) : file_(file) {
  GDALAllRegister();
  dataset_.reset(open(file));
  if (!dataset_) {
    const std::string reason = errors_.reason("not a vector file");
    dataset_ = openGeometryList(file);
    if (!dataset_) {
      const bool named = reason.rfind(file, 0) == 0;
      throw CommandError(named ? reason : file + ": cannot be read: " + reason);
    }
  }
}

OGRLayer& VectorSource::layerNamed(const std::string& name) {
  OGRLayer* const layer = dataset_->GetLayerByName(name.c_str());
  if (layer != nullptr) {
    return *layer;
  }
  std::string known;
  for (OGRLayer* const each : dataset_->GetLayers()) {
    known += (known.empty() ? "" : ", ") + std::string(each->GetName());
  }
  throw CommandError(file_ + ": no layer '" + name + "'; it has " +
                     (known.empty() ? "none" : known));
}

OGRLayer* VectorSource::firstLayerWith(const std::function<bool(const OGRGeometry&)>& wanted) {
  OGRLayer* unreadable = nullptr;
  for (OGRLayer* const layer : dataset_->GetLayers()) {
    bool found = coordinateColumns(*layer).has_value();
    layer->ResetReading();
    while (!found) {
      const OGRFeatureUniquePtr feature(layer->GetNextFeature());
      if (!feature) {
        break;
      }
      const OGRGeometry* const geometry = feature->GetGeometryRef();
      found = geometry != nullptr && wanted(*geometry);
      unreadable = geometry == nullptr && unreadable == nullptr ? layer : unreadable;
    }
    if (found) {
      return layer;
    }
  }
  return unreadable;
}

std::vector<OGRLayer*> VectorSource::layers() const {
  std::vector<OGRLayer*> all;
  for (OGRLayer* const layer : dataset_->GetLayers()) {
    all.push_back(layer);
  }
  return all;
}

void VectorSource::forEachFeature(OGRLayer& layer, const std::function<void(OGRFeature&)>& use) {
  layer.ResetReading();
  for (;;) {
    errors_.clear();
    const OGRFeatureUniquePtr feature(layer.GetNextFeature());
    if (!feature) {
      break;
    }
    use(*feature);
  }
  if (errors_.failed()) {
    throw CommandError(file_ + ": reading breaks off: " + errors_.reason(""));
  }
}

SpatialReference VectorSource::systemOf(OGRLayer& layer) {
  const auto columns = coordinateColumns(layer);
  return columns && columns->geographic ? geographicSystem() : keptSystem(layer.GetSpatialRef());
}

std::optional<CoordinateColumns> coordinateColumns(OGRLayer& layer) {
  OGRFeatureDefn& definition = *layer.GetLayerDefn();
  if (definition.GetGeomFieldCount() > 0) {
    return std::nullopt;
  }
  for (const ColumnNames& names : kColumnNames) {
    CoordinateColumns columns;
    columns.x = columnNamed(definition, names.x);
    columns.y = columnNamed(definition, names.y);
    if (columns.x >= 0 && columns.y >= 0) {
      const bool headless = std::string(names.x) == "field_1";
      columns.z = columnNamed(definition, headless ? "field_3" : "z");
      columns.geographic = names.geographic;
      return columns;
    }
  }
  return std::nullopt;
}

std::string readCoordinate(const OGRFeature& row, int column, bool mayBeBlank, double& value) {
  const std::string text = column < 0 ? "" : row.GetFieldAsString(column);
  if (text.empty() && mayBeBlank) {
    return "";
  }
  const std::optional<double> number = textFormat::number(text);
  const char* const name = row.GetFieldDefnRef(column)->GetNameRef();
  if (!number) {
    return std::string(name) + " '" + textFormat::oneLine(text) + "' is not a number";
  }
  value = *number;
  return std::isfinite(value) ? ""
                              : std::string(name) + " is not finite (NaN or infinite coordinate)";
}

std::string featureName(const OGRFeature& feature) {
  for (const char* const wanted : {"name", "fault_name", "fault", "label", "title"}) {
    for (int i = 0; i < feature.GetFieldCount(); ++i) {
      const OGRFieldDefn* const field = feature.GetFieldDefnRef(i);
      const bool matches = textFormat::lowerCase(field->GetNameRef()) == wanted;
      if (matches && feature.IsFieldSetAndNotNull(i)) {
        return textFormat::oneLine(feature.GetFieldAsString(i));
      }
    }
  }
  return "";
}

std::string missingGeometryReason(const OGRFeature& feature, const std::string& said) {
  constexpr std::size_t kMostShown = 60;
  for (const char* const column : {"WKT", "geom", "geometry", "the_geom", "wkt_geom"}) {
    const int field = feature.GetFieldIndex(column);
    const std::string text = field < 0 ? "" : textFormat::oneLine(feature.GetFieldAsString(field));
    if (!text.empty()) {
      const bool whole = text.size() <= kMostShown;
      return "its geometry cannot be read: " + (whole ? text : text.substr(0, kMostShown) + "...");
    }
  }
  return said.empty() ? "without a geometry" : said;
}
