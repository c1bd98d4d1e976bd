#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/commandRunner.h"

namespace {

using ::testing::HasSubstr;

const char* const kCorners = ZRBASE_EXAMPLE_DATA "/corners.csv";

class SurveyMapCommand : public ::testing::Test {
 protected:
  CommandResult map(const std::string& job, const std::string& points, const std::string& output,
                    std::vector<std::string> options = {}) {
    options.insert(options.begin(),
                   {"survey", job, points, "--corners", corners, "-o", folder.path(output)});
    const CommandResult result = runZrbase(options);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return result;
  }

  // 10 m from crossline to crossline, eastwards, and 20 m from inline to inline, northwards.
  TestFolder folder;
  std::string corners = folder.file(
      "corners.csv",
      "inline,crossline,x,y\n100,1,500000,4000000\n100,101,501000,4000000\n150,1,500000,4001000\n");
};

TEST_F(SurveyMapCommand, NumbersBecomePlaces) {
  const std::string points =
      folder.file("picks.csv", "name,inline,crossline\na,100,1\nb,125.5,11\n\"c, d\",99,0\n");
  const CommandResult result = map("to-world", points, "out.csv");
  EXPECT_EQ(readFile(folder.path("out.csv")),
            "fid,name,inline,crossline,x,y\n"
            "1,a,100,1,500000,4000000\n"
            "2,b,125.5,11,500100,4000510\n"
            "3,\"c, d\",99,0,499990,3999980\n");
  EXPECT_THAT(result.out, HasSubstr("points    3, 1 outside the survey"));
  EXPECT_THAT(result.out, HasSubstr("x         499990.00 to 500100.00"));
}

TEST_F(SurveyMapCommand, PlacesBecomeNumbers) {
  const std::string points = folder.file("wells.csv", "well,x,y,z\nw,500100,4000510,-1200\n");
  map("to-survey", points, "out.csv");
  EXPECT_EQ(readFile(folder.path("out.csv")),
            "fid,name,inline,crossline,x,y\n1,,125.5,11,500100,4000510\n");
}

TEST_F(SurveyMapCommand, ThereAndBackIsTheSame) {
  corners = kCorners;
  const std::string points =
      folder.file("picks.csv", "IL,XL\n100,300\n750,1250\n333.25,817.5\n0,0\n2000,-40\n");
  for (const std::string ending : {".csv", ".gpkg", ".geojson"}) {
    const bool table = ending == ".csv";
    const std::vector<std::string> system =
        table ? std::vector<std::string>() : std::vector<std::string>{"--crs", "EPSG:23031"};
    map("to-world", points, "world" + ending, system);
    map("to-survey", folder.path("world" + ending), "survey" + ending, system);
    map("to-world", folder.path("survey" + ending), "again.csv");
    const std::string numbers = readFile(folder.path("again.csv"));
    EXPECT_THAT(numbers, HasSubstr(",100,300,605835.52,6073556.38"));
    EXPECT_THAT(numbers, HasSubstr(",333.25,817.5,"));
    EXPECT_THAT(numbers, HasSubstr(",2000,-40,"));
  }
}

TEST_F(SurveyMapCommand, OutputHasItsAttributesAtTheirPlace) {
  const std::string points = folder.file("picks.csv", "name,inline,crossline\nb,125.5,11\n");
  for (const std::string output : {"out.gpkg", "out.geojson"}) {
    map("to-world", points, output, {"--crs", "EPSG:23031"});
    const auto layers = readLayers(folder.path(output));
    const ReadLayer& layer = layers.at("points");
    EXPECT_EQ(layer.crs, "EPSG:23031");
    const ReadFeature& point = layer.features.at(0);
    EXPECT_EQ(point.number("fid"), 1);
    EXPECT_EQ(point.fields.at("name"), "b");
    EXPECT_EQ(point.number("inline"), 125.5);
    EXPECT_EQ(point.number("crossline"), 11);
    EXPECT_EQ(point.number("x"), 500100);
    EXPECT_EQ(point.number("y"), 4000510);
    EXPECT_THAT(point.vertices, ::testing::ElementsAre(::testing::ElementsAre(500100, 4000510)));
  }
}

TEST_F(SurveyMapCommand, DegreesAreProjected) {
  // The central meridian of zone 33 is 15 degrees east, with x = 500000.
  corners =
      folder.file("utm.csv", "inline,crossline,x,y\n1,1,500000,0\n1,3,500200,0\n3,1,500000,200\n");
  const std::string points = folder.file("wells.csv", "lon,lat\n15,0\n");
  const CommandResult result = map("to-survey", points, "out.csv", {"--crs", "EPSG:32633"});
  EXPECT_THAT(result.out,
              HasSubstr("EPSG:32633 (WGS 84 / UTM zone 33N), projected from EPSG:4326"));
  EXPECT_THAT(readFile(folder.path("out.csv")), HasSubstr("\n1,,1,1,500000,0\n"));
}

TEST_F(SurveyMapCommand, FeetBecomeMetres) {
  const std::string points = folder.file("wells.csv", "x,y\n500100,4000510\n");
  map("to-survey", points, "out.csv", {"--units", "ft"});
  EXPECT_EQ(readFile(folder.path("out.csv")),
            "fid,name,inline,crossline,x,y\n1,,125.5,11,152430.48,1219355.448\n");
}

TEST_F(SurveyMapCommand, EachPointOfAMultiPointIsMapped) {
  const std::string points = folder.file(
      "points.geojson", R"({"type":"Feature","properties":{"name":"m"},"crs":null,"geometry":)"
                        R"({"type":"MultiPoint","coordinates":[[15,36.1],[15.001,36.1]]}})");
  const CommandResult result = map("to-survey", points, "out.csv", {"--crs", "EPSG:32633"});
  EXPECT_THAT(result.out, HasSubstr("points    2, "));
}

TEST_F(SurveyMapCommand, WhereAndLayerChoosePoints) {
  const std::string points = folder.file("picks.csv", "inline,crossline\n100,1\n101,1\n102,1\n");
  map("to-world", points, "out.csv", {"--where", "3,1", "--layer", "picks"});
  EXPECT_EQ(readFile(folder.path("out.csv")),
            "fid,name,inline,crossline,x,y\n1,,100,1,500000,4000000\n3,,102,1,500000,4000040\n");
}

TEST_F(SurveyMapCommand, BadRowsAreLeftOutOnRequest) {
  const std::string points =
      folder.file("picks.csv", "inline,crossline\n100,1\n101,x\n,1\n102,1\n");
  const CommandResult result = map("to-world", points, "out.csv", {"--skip-bad"});
  EXPECT_THAT(result.out, HasSubstr("left out  2 bad features of "));
  EXPECT_THAT(result.out, HasSubstr("row 2: crossline 'x' is not a number"));
  EXPECT_THAT(result.out, HasSubstr("row 3: inline is empty"));
}

}  // namespace
