#include "well/lineFile.h"

#include <cpl_conv.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <cmath>
#include <filesystem>

#include "common/commandError.h"
#include "common/gdalErrors.h"
#include "common/textFormat.h"

namespace {

const char* const kNoLine = " does not hold a line with its z";
const char* const kFolder = "/vsimem/zrbase-line";

bool writesVectors(GDALDriver& driver) {
  return driver.GetMetadataItem(GDAL_DCAP_VECTOR) != nullptr &&
         driver.GetMetadataItem(GDAL_DCAP_CREATE) != nullptr;
}

bool hasEnding(GDALDriver& driver, const std::string& ending) {
  const char* const endings = driver.GetMetadataItem(GDAL_DMD_EXTENSIONS);
  if (endings == nullptr || ending.empty()) {
    return false;
  }
  for (const std::string& each : textFormat::split(endings, ' ')) {
    if ("." + textFormat::lowerCase(each) == ending) {
      return true;
    }
  }
  return false;
}

/// A folder in memory that is gone in the end.
class MemoryFolder {
 public:
  MemoryFolder() { VSIMkdir(kFolder, 0777); }
  ~MemoryFolder() { VSIRmdirRecursive(kFolder); }
  MemoryFolder(const MemoryFolder&) = delete;
  MemoryFolder& operator=(const MemoryFolder&) = delete;

  static std::string path(const std::string& name) { return std::string(kFolder) + "/" + name; }

  static std::map<std::string, std::string> files() {
    std::map<std::string, std::string> contents;
    char** const names = VSIReadDir(kFolder);
    for (char** name = names; name != nullptr && *name != nullptr; ++name) {
      vsi_l_offset size = 0;
      const GByte* const bytes = VSIGetMemFileBuffer(path(*name).c_str(), &size, FALSE);
      if (bytes != nullptr) {
        contents[*name].assign(reinterpret_cast<const char*>(bytes),
                               static_cast<std::size_t>(size));
      }
    }
    CSLDestroy(names);
    return contents;
  }
};

/// Writes one file into memory and checks it.
class LineFileWriter {
 public:
  LineFileWriter(const std::string& fileName, const LineRecord& record,
                 const SpatialReference& system)
      : fileName_(fileName),
        name_(std::filesystem::path(fileName).filename().string()),
        driver_(lineDriver(fileName)),
        record_(record),
        system_(system) {}

  std::map<std::string, std::string> write() {
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName(driver_.c_str());
    GDALDatasetUniquePtr dataset(
        driver->Create(folder_.path(name_).c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    check(dataset != nullptr);
    OGRLayer* const layer = createLayer(*dataset);
    const OGRFeatureUniquePtr feature(new OGRFeature(layer->GetLayerDefn()));
    record_.fill(*feature);
    OGRLineString line;
    for (const gdfVertex& v : record_.vertices) {
      line.addPoint(v.x(), v.y(), v.z());
    }
    check(feature->SetGeometry(&line) == OGRERR_NONE);
    check(layer->CreateFeature(feature.get()) == OGRERR_NONE);
    errors_.clear();
    dataset.reset();
    check(!errors_.failed());
    checkWritten();
    return MemoryFolder::files();
  }

 private:
  void check(bool done) const {
    if (!done) {
      throw CommandError(fileName_ + ": cannot be written: " + driver_ +
                         (errors_.failed() ? ": " + errors_.reason("") : kNoLine));
    }
  }

  OGRLayer* createLayer(GDALDataset& dataset) {
    char** options = nullptr;
    if (driver_ == "ESRI Shapefile") {  // a table of its kind notes the day otherwise
      options = CSLSetNameValue(options, "DBF_DATE_LAST_UPDATE", "1970-01-01");
    }
    const std::string name = std::filesystem::path(name_).stem().string();
    const OGRSpatialReference* const system = system_.get();
    // The data set copies the system, but asks for it without const.
    OGRLayer* const layer = dataset.CreateLayer(
        name.c_str(), const_cast<OGRSpatialReference*>(system), wkbLineString25D, options);
    CSLDestroy(options);
    check(layer != nullptr);
    for (const FieldModel& field : record_.fields) {
      OGRFieldDefn definition(field.name, field.type);
      layer->CreateField(&definition);  // a format without fields of our own holds the line alone
    }
    return layer;
  }

  void checkWritten() const {
    const GDALDatasetUniquePtr dataset(
        GDALDataset::Open(folder_.path(name_).c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    OGRLayer* const layer =
        dataset && dataset->GetLayerCount() > 0 ? dataset->GetLayer(0) : nullptr;
    const OGRFeatureUniquePtr feature(layer == nullptr ? nullptr : layer->GetNextFeature());
    const SpatialReference stated = layer == nullptr ? nullptr : keptSystem(layer->GetSpatialRef());
    if (isGeographic(stated) || (stated && !system_ && stated->IsProjected())) {
      throw CommandError(fileName_ + ": cannot be written: " + driver_ +
                         " would take the coordinates for those of " + systemCode(stated));
    }
    if (!feature || !holdsLine(feature->GetGeometryRef())) {
      throw CommandError(fileName_ + ": cannot be written: " + driver_ + kNoLine);
    }
  }

  bool holdsLine(const OGRGeometry* geometry) const {
    if (geometry == nullptr || wkbFlatten(geometry->getGeometryType()) != wkbLineString ||
        !geometry->Is3D()) {
      return false;
    }
    const OGRLineString& line = *geometry->toLineString();
    const VertexLine& vertices = record_.vertices;
    bool same = static_cast<std::size_t>(line.getNumPoints()) == vertices.size();
    for (int i = 0; same && i < line.getNumPoints(); ++i) {
      const gdfVertex& v = vertices[static_cast<std::size_t>(i)];
      same = near(line.getX(i), v.x()) && near(line.getY(i), v.y()) && near(line.getZ(i), v.z());
    }
    return same;
  }

  // Formats of text round: to a micrometre, or to twelve digits.
  static bool near(double read, double written) {
    return std::abs(read - written) <= 1e-6 + 1e-12 * std::abs(written);
  }

  const std::string fileName_;
  const std::string name_;
  const std::string driver_;
  const LineRecord& record_;
  const SpatialReference& system_;
  GdalErrors errors_;
  MemoryFolder folder_;
};

}  // namespace

std::string lineDriver(const std::string& fileName) {
  GDALAllRegister();
  const std::string ending = textFormat::fileEnding(fileName);
  GDALDriverManager& drivers = *GetGDALDriverManager();
  for (int i = 0; i < drivers.GetDriverCount(); ++i) {
    GDALDriver& driver = *drivers.GetDriver(i);
    if (writesVectors(driver) && hasEnding(driver, ending)) {
      return driver.GetDescription();
    }
  }
  return "";
}

std::map<std::string, std::string> lineFileBytes(const std::string& fileName,
                                                 const LineRecord& record,
                                                 const SpatialReference& system) {
  return LineFileWriter(fileName, record, system).write();
}
