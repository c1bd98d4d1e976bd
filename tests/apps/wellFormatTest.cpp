#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ogrsf_frmts.h>

#include <string>
#include <vector>

#include "apps/commandRunner.h"

// The files that `zrbase well` writes.

namespace {

using ::testing::Contains;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Straight down, then a build of 30 degrees towards the east.
const char* const kBuild = "MD,Inc,Azi\n0,0,0\n100,0,0\n200,30,90\n";

struct ReadLine {
  std::vector<std::vector<double>> vertices;  // x, y, z
  bool withZ = false;
  std::string system;
};

// The only line of a file.
ReadLine readLine(const std::string& path) {
  GDALAllRegister();
  const GDALDatasetUniquePtr dataset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
  ReadLine result;
  if (!dataset) {
    ADD_FAILURE() << path << " cannot be read";
    return result;
  }
  for (OGRLayer* const layer : dataset->GetLayers()) {
    for (const OGRFeatureUniquePtr& feature : *layer) {
      const OGRGeometry* const geometry = feature->GetGeometryRef();
      if (geometry == nullptr || wkbFlatten(geometry->getGeometryType()) != wkbLineString) {
        continue;
      }
      EXPECT_TRUE(result.vertices.empty()) << "a second line in " << path;
      result.withZ = geometry->Is3D() == TRUE;
      const OGRSpatialReference* const system = layer->GetSpatialRef();
      result.system = system == nullptr ? "" : system->GetName();
      for (const OGRPoint& point : *geometry->toLineString()) {
        result.vertices.push_back({point.getX(), point.getY(), point.getZ()});
      }
    }
  }
  return result;
}

class WellFormats : public ::testing::Test {
 protected:
  // Runs on a survey of this text with the options, and leaves the output in `output`.
  void compute(const std::string& survey, std::vector<std::string> options,
               const std::string& output) {
    options.insert(options.begin(),
                   {"well", folder.file("survey.csv", survey), "-o", folder.path(output)});
    result = runZrbase(options);
    EXPECT_EQ(result.status, 0) << result.err;
  }

  TestFolder folder;
  CommandResult result;
};

TEST_F(WellFormats, LineRunsFromTheWellheadThroughAllStations) {
  for (const char* const name :
       {"out.geojson", "out.json", "out.gpkg", "out.shp", "out.fgb", "out.gml", "out.sqlite"}) {
    SCOPED_TRACE(name);
    compute("MD,Inc,Azi\n100,0,0\n200,0,0\n", {"--wellhead", "464500,6524200,25"}, name);
    const ReadLine line = readLine(folder.path(name));
    EXPECT_TRUE(line.withZ);
    EXPECT_THAT(line.vertices,
                ElementsAre(ElementsAre(464500, 6524200, 25), ElementsAre(464500, 6524200, -75),
                            ElementsAre(464500, 6524200, -175)));
  }
}

TEST_F(WellFormats, LineBeginsAtATiedInStation) {
  compute("MD,Inc,Azi\n100,0,0\n200,0,0\n", {"--tie-in", "90,0,0"}, "out.shp");
  EXPECT_THAT(readLine(folder.path("out.shp")).vertices,
              ElementsAre(ElementsAre(0, 0, -90), ElementsAre(0, 0, -190)));
}

TEST_F(WellFormats, StationsAreALayerBesideThePath) {
  for (const char* const name : {"out.gpkg", "out.geojson"}) {
    SCOPED_TRACE(name);
    compute(kBuild, {"--wellhead", "10,20,30"}, name);
    const auto layers = readLayers(folder.path(name));
    ASSERT_EQ(layers.size(), 2U);
    const std::vector<ReadFeature>& stations = layers.at("stations").features;
    ASSERT_EQ(stations.size(), 3U);
    EXPECT_EQ(stations[1].number("md"), 100);
    EXPECT_EQ(stations[1].number("z"), -70);
    EXPECT_NEAR(stations[2].number("x"), stations[2].vertices.at(0).at(0), 1e-8);
    EXPECT_NEAR(stations[2].number("dls"), 9.0, 1e-8);
    const ReadFeature& path = layers.at("path").features.at(0);
    EXPECT_EQ(path.fields.at("well"), "survey");
    EXPECT_EQ(path.fields.at("unit"), "m");
    EXPECT_EQ(path.number("stations"), 3);
    EXPECT_THAT(path.number("closure"), DoubleNear(90.0, 1e-8));
  }
}

TEST_F(WellFormats, SystemOfTheWellheadIsWritten) {
  for (const char* const name : {"out.gpkg", "out.shp", "out.fgb"}) {
    compute(kBuild, {"--wellhead", "464500,6524200,25", "--crs", "EPSG:32631"}, name);
    EXPECT_EQ(readLine(folder.path(name)).system, "WGS 84 / UTM zone 31N") << name;
    EXPECT_THAT(result.out, HasSubstr("EPSG:32631"));
  }
}

TEST_F(WellFormats, SystemOfAnEarlierShapefileDoesNotStay) {
  compute(kBuild, {"--wellhead", "464500,6524200,25", "--crs", "EPSG:32631"}, "out.shp");
  EXPECT_THAT(folder.names(), Contains("out.prj"));
  compute(kBuild, {}, "out.shp");
  EXPECT_THAT(folder.names(), ElementsAre("out.dbf", "out.shp", "out.shx", "survey.csv"));
  EXPECT_EQ(readLine(folder.path("out.shp")).system, "");
}

TEST_F(WellFormats, SameInputGivesTheSameBytes) {
  for (const char* const ending : {".csv", ".geojson", ".gpkg", ".shp", ".fgb"}) {
    const std::string name = std::string("out") + ending;
    compute(kBuild, {}, name);
    const std::string before = readFile(folder.path(name));
    compute(kBuild, {}, name);
    EXPECT_EQ(readFile(folder.path(name)), before) << ending;
  }
}

}  // namespace
