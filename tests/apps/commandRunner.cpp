#include "apps/commandRunner.h"

#include <gtest/gtest.h>
#include <ogrsf_frmts.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <locale>
#include <sstream>

namespace {

namespace fs = std::filesystem;

std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) {
    result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  }
  return result + "'";
}

std::vector<std::vector<double>> verticesOf(const OGRLineString& line) {
  std::vector<std::vector<double>> vertices;
  for (const OGRPoint& point : line) {
    vertices.push_back({point.getX(), point.getY()});
  }
  return vertices;
}

void readPolygon(const OGRPolygon& polygon, ReadFeature& result) {
  result.vertices = verticesOf(*polygon.getExteriorRing());
  for (int i = 0; i < polygon.getNumInteriorRings(); ++i) {
    result.holes.push_back(verticesOf(*polygon.getInteriorRing(i)));
  }
}

ReadFeature readFeature(const OGRFeature& feature) {
  ReadFeature result;
  for (int i = 0; i < feature.GetFieldCount(); ++i) {
    if (feature.IsFieldSetAndNotNull(i)) {
      result.fields[feature.GetFieldDefnRef(i)->GetNameRef()] = feature.GetFieldAsString(i);
    }
  }
  const OGRGeometry* const geometry = feature.GetGeometryRef();
  if (geometry != nullptr && wkbFlatten(geometry->getGeometryType()) == wkbPoint) {
    result.vertices.push_back({geometry->toPoint()->getX(), geometry->toPoint()->getY()});
  } else if (geometry != nullptr && wkbFlatten(geometry->getGeometryType()) == wkbPolygon) {
    readPolygon(*geometry->toPolygon(), result);
  } else if (geometry != nullptr) {
    result.vertices = verticesOf(*geometry->toLineString());
  }
  return result;
}

std::string crsOf(OGRLayer& layer) {
  const OGRSpatialReference* const system = layer.GetSpatialRef();
  const char* const code = system == nullptr ? nullptr : system->GetAuthorityCode(nullptr);
  return code == nullptr ? "" : std::string(system->GetAuthorityName(nullptr)) + ":" + code;
}

}  // namespace

CommandResult runZrbase(const std::vector<std::string>& arguments, const std::string& environment) {
  const TestFolder folder;
  std::string line = environment + " " + quoted(ZRBASE_COMMAND);
  for (const std::string& argument : arguments) {
    line += " " + quoted(argument);
  }
  line += " >" + quoted(folder.path("out")) + " 2>" + quoted(folder.path("err")) + " </dev/null";
  const int status = std::system(line.c_str());
  CommandResult result;
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  result.out = readFile(folder.path("out"));
  result.err = readFile(folder.path("err"));
  return result;
}

std::string refusalOf(const std::vector<std::string>& arguments, const TestFolder& outputs) {
  const CommandResult result = runZrbase(arguments);
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err.rfind("zrbase " + arguments.front() + ": ", 0), 0U) << result.err;
  EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
  EXPECT_TRUE(outputs.names().empty());
  return result.err;
}

TestFolder::TestFolder() {
  std::string pattern = (fs::temp_directory_path() / "zrbase-test-XXXXXX").string();
  folder_ = mkdtemp(pattern.data());
}

TestFolder::~TestFolder() { fs::remove_all(folder_); }

std::string TestFolder::path(const std::string& name) const { return folder_ + "/" + name; }

std::string TestFolder::file(const std::string& name, const std::string& content) const {
  std::ofstream(path(name), std::ios::binary) << content;
  return path(name);
}

std::vector<std::string> TestFolder::names() const {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder_)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string metricLines(const std::vector<std::string>& lines) {
  std::string features;
  for (const std::string& line : lines) {
    features +=
        std::string(features.empty() ? "" : ",") +
        R"({"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[)" +
        line + "]}}";
  }
  return R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":)"
         R"("urn:ogc:def:crs:EPSG::32633"}},"features":[)" +
         features + "]}";
}

std::string readFile(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

double ReadFeature::number(const std::string& field) const {
  const auto found = fields.find(field);
  EXPECT_NE(found, fields.end()) << "no field " << field;
  const std::vector<double> numbers =
      found == fields.end() ? std::vector<double>() : numbersIn(found->second);
  EXPECT_EQ(numbers.size(), 1U) << field;
  return numbers.empty() ? 0.0 : numbers.front();
}

std::map<std::string, ReadLayer> readLayers(const std::string& path) {
  GDALAllRegister();
  const GDALDatasetUniquePtr dataset(
      GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
  std::map<std::string, ReadLayer> layers;
  if (!dataset) {
    ADD_FAILURE() << path << " cannot be read";
    return layers;
  }
  for (OGRLayer* const layer : dataset->GetLayers()) {
    const bool shared = layer->GetLayerDefn()->GetFieldIndex("layer") >= 0;
    if (!shared) {
      layers[layer->GetName()].crs = crsOf(*layer);
    }
    for (const OGRFeatureUniquePtr& feature : *layer) {
      const std::string name = shared ? feature->GetFieldAsString("layer") : layer->GetName();
      layers[name].crs = crsOf(*layer);
      layers[name].features.push_back(readFeature(*feature));
    }
  }
  return layers;
}

void copyVectorFile(const std::string& from, const std::string& to, const std::string& driver) {
  GDALAllRegister();
  const GDALDatasetUniquePtr source(GDALDataset::Open(from.c_str(), GDAL_OF_VECTOR));
  ASSERT_TRUE(source);
  GDALDriver* const target = GetGDALDriverManager()->GetDriverByName(driver.c_str());
  const GDALDatasetUniquePtr copy(target->Create(to.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  ASSERT_TRUE(copy);
  OGRLayer* const layer = source->GetLayer(0);
  ASSERT_NE(copy->CopyLayer(layer, layer->GetName()), nullptr);
}

std::vector<double> numbersIn(const std::string& text) {
  const std::size_t colon = text.find(':');
  std::string plain = colon == std::string::npos ? text : text.substr(colon + 1);
  for (char& c : plain) {
    const bool numeric = (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.' || c == 'e';
    c = numeric ? c : ' ';
  }
  std::istringstream stream(plain);
  stream.imbue(std::locale::classic());
  std::vector<double> numbers;
  for (double number = 0.0; stream >> number;) {
    numbers.push_back(number);
  }
  return numbers;
}
