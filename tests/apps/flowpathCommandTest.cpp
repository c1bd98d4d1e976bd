#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "apps/commandRunner.h"

namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// 1 km east, 1 km east and north: one root bisector on either side, none merged.
const char* const kBentLine = "[500000,4000000],[501000,4000000],[502000,4001000]";

std::vector<std::string> keysOf(const std::map<std::string, ReadLayer>& layers) {
  std::vector<std::string> keys;
  keys.reserve(layers.size());
  for (const auto& layer : layers) {
    keys.push_back(layer.first);
  }
  return keys;
}

class FlowpathCommand : public ::testing::Test {
 protected:
  // Runs on the file with the options, and reads the output back.
  std::map<std::string, ReadLayer> layersOf(const std::string& input,
                                            std::vector<std::string> options,
                                            const std::string& output = "out.geojson") {
    options.insert(options.begin(), {"flowpath", input, "-o", folder.path(output)});
    result = runZrbase(options);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return readLayers(folder.path(output));
  }

  std::string bent() { return folder.file("bent.geojson", metricLines({kBentLine})); }

  TestFolder folder;
  CommandResult result;
};

TEST_F(FlowpathCommand, GeoPackageHasTheFourLayersInTheModelsSystem) {
  const auto layers = layersOf(bent(), {"--height", "100"}, "out.gpkg");
  EXPECT_THAT(keysOf(layers), ElementsAre("bisectors", "flowpaths", "moved", "template"));
  for (const auto& [name, layer] : layers) {
    EXPECT_EQ(layer.crs, "EPSG:32633") << name;
  }
}

TEST_F(FlowpathCommand, GeoJsonTellsTheLayerOfEachFeatureAndTheSystem) {
  const auto layers = layersOf(bent(), {"--height", "100", "--slip", "5"});
  EXPECT_THAT(keysOf(layers), ElementsAre("bisectors", "flowpaths", "moved", "template"));
  EXPECT_EQ(layers.at("flowpaths").crs, "EPSG:32633");
  EXPECT_THAT(readFile(folder.path("out.geojson")), HasSubstr("urn:ogc:def:crs:EPSG::32633"));
}

TEST_F(FlowpathCommand, TemplateIsWrittenAsRead) {
  const auto layers = layersOf(bent(), {});
  const ReadFeature trace = layers.at("template").features.at(0);
  EXPECT_THAT(trace.vertices,
              ElementsAre(ElementsAre(500000, 4000000), ElementsAre(501000, 4000000),
                          ElementsAre(502000, 4001000)));
  EXPECT_EQ(trace.number("vertices"), 3);
  EXPECT_EQ(trace.number("roots"), 2);
  EXPECT_EQ(trace.number("merged"), 0);
  EXPECT_EQ(trace.fields.at("crs"), "EPSG:32633");
}

// The bend is 45 degrees to the left, so both roots stand at 22.5 degrees from north, the left one
// to the north-west.
TEST_F(FlowpathCommand, RootsOfABendBisectIt) {
  const auto layers = layersOf(bent(), {});
  const std::vector<ReadFeature>& bisectors = layers.at("bisectors").features;
  ASSERT_EQ(bisectors.size(), 2U);
  for (const ReadFeature& bisector : bisectors) {
    const bool left = bisector.fields.at("side") == "left";
    const double dx = bisector.vertices.at(1).at(0) - bisector.vertices.at(0).at(0);
    const double dy = bisector.vertices.at(1).at(1) - bisector.vertices.at(0).at(1);
    EXPECT_THAT(bisector.vertices.at(0), ElementsAre(501000, 4000000));
    EXPECT_NEAR(std::atan2(dx, dy) * 180.0 / M_PI, left ? -22.5 : 157.5, 1e-6);
    EXPECT_EQ(bisector.fields.at("type"), "root");
    EXPECT_EQ(bisector.number("left_domain"), 0);
    EXPECT_EQ(bisector.number("right_domain"), 1);
    EXPECT_EQ(bisector.number("top_connect"), -1);
    EXPECT_EQ(bisector.fields.at("base_connections"), "1");
  }
}

TEST_F(FlowpathCommand, PositiveHeightsAreLeft) {
  const auto layers = layersOf(bent(), {"--height", "100", "--height", "-200"});
  const std::vector<ReadFeature>& paths = layers.at("flowpaths").features;
  ASSERT_EQ(paths.size(), 2U);
  EXPECT_EQ(paths[0].number("h"), 100);
  EXPECT_EQ(paths[0].fields.at("side"), "left");
  EXPECT_NEAR(paths[0].vertices.at(0).at(1), 4000100, 1e-6);
  EXPECT_EQ(paths[1].number("h"), -200);
  EXPECT_EQ(paths[1].fields.at("side"), "right");
  EXPECT_NEAR(paths[1].vertices.at(0).at(1), 3999800, 1e-6);
}

TEST_F(FlowpathCommand, HeightsMayBeJoinedByCommas) {
  const auto layers = layersOf(bent(), {"--height", "-100,200,300"});
  EXPECT_EQ(layers.at("flowpaths").features.size(), 3U);
}

TEST_F(FlowpathCommand, EachVertexOfAPathHasASlip) {
  const auto layers = layersOf(bent(), {"--height", "100"});
  const ReadFeature path = layers.at("flowpaths").features.at(0);
  const std::vector<double> slips = numbersIn(path.fields.at("slips"));
  ASSERT_EQ(slips.size(), path.vertices.size());
  EXPECT_THAT(slips,
              ElementsAre(DoubleNear(-1000, 1e-6), 0, DoubleNear(std::sqrt(2.0) * 1000, 1e-6)));
}

TEST_F(FlowpathCommand, PlaceOfSlipZeroMovesWhereNoPointsAreGiven) {
  const auto layers = layersOf(bent(), {"--height", "100", "--slip", "-250", "--slip", "0"});
  const std::vector<ReadFeature>& moved = layers.at("moved").features;
  ASSERT_EQ(moved.size(), 2U);
  const std::vector<double> from = numbersIn(moved[0].fields.at("from"));
  EXPECT_EQ(moved[0].number("slip"), -250);
  EXPECT_THAT(moved[0].vertices.at(0),
              ElementsAre(DoubleNear(from.at(0) - 250, 1e-6), DoubleNear(from.at(1), 1e-6)));
  EXPECT_THAT(moved[1].vertices.at(0),
              ElementsAre(DoubleNear(from.at(0), 1e-6), DoubleNear(from.at(1), 1e-6)));
}

TEST_F(FlowpathCommand, PathThroughAPointHasItAtSlipZero) {
  const std::string points =
      folder.file("points.csv", "name,x,y\na,500500,4000030\nb,500600,3999990\n");
  const auto layers = layersOf(bent(), {"--points", points, "--slip", "100"});
  const std::vector<ReadFeature>& paths = layers.at("flowpaths").features;
  ASSERT_EQ(paths.size(), 2U);
  EXPECT_NEAR(paths[0].number("h"), 30, 1e-6);
  EXPECT_NEAR(paths[1].number("h"), -10, 1e-6);
  EXPECT_EQ(paths[0].number("point"), 1);
  const std::vector<double> slips = numbersIn(paths[0].fields.at("slips"));
  bool found = false;
  for (std::size_t i = 0; i < slips.size(); ++i) {
    found |= slips[i] == 0.0 && paths[0].vertices.at(i) == std::vector<double>({500500, 4000030});
  }
  EXPECT_TRUE(found) << paths[0].fields.at("slips");
  const std::vector<ReadFeature>& moved = layers.at("moved").features;
  ASSERT_EQ(moved.size(), 2U);
  EXPECT_THAT(moved[0].vertices.at(0),
              ElementsAre(DoubleNear(500600, 1e-6), DoubleNear(4000030, 1e-6)));
  EXPECT_EQ(moved[0].fields.at("from"), "POINT (500500 4000030)");
}

TEST_F(FlowpathCommand, PointsArePulledIntoTheModelsSystem) {
  const auto layers = layersOf(ZRBASE_EXAMPLE_DATA "/california.geojson",
                               {"--where", "5", "--points", ZRBASE_EXAMPLE_DATA "/points.csv"});
  EXPECT_EQ(layers.at("template").crs, "EPSG:32611");
  ASSERT_EQ(layers.at("flowpaths").features.size(), 4U);
  for (const ReadFeature& path : layers.at("flowpaths").features) {
    EXPECT_LT(std::abs(path.number("h")),
              5000.0);  // kilometres beside the trace, not a continent away
  }
}

TEST_F(FlowpathCommand, SouthernTracesGoToASouthernZone) {
  const auto layers = layersOf(ZRBASE_EXAMPLE_DATA "/new_zealand.geojson", {"--where", "4"});
  EXPECT_EQ(layers.at("template").crs, "EPSG:32759");
  EXPECT_THAT(result.out,
              HasSubstr("EPSG:32759 (WGS 84 / UTM zone 59S), projected from EPSG:4326"));
}

TEST_F(FlowpathCommand, TracesAcrossTheDateLineShareAZone) {
  const std::string file = folder.file(
      "fiji.geojson", R"({"type":"Feature","properties":{},"geometry":{"type":"LineString",)"
                      R"("coordinates":[[179.7,-17],[-179.9,-17.1],[-179.6,-17]]}})");
  const auto layers = layersOf(file, {"--height", "1000"});
  const ReadFeature trace = layers.at("template").features.at(0);
  EXPECT_LT(std::abs(trace.vertices.at(2).at(0) - trace.vertices.at(0).at(0)), 100000.0);
}

TEST_F(FlowpathCommand, StatedSystemIsUsed) {
  const auto layers = layersOf(ZRBASE_EXAMPLE_DATA "/new_zealand.geojson",
                               {"--where", "4", "--crs", "EPSG:2193"}, "out.gpkg");
  EXPECT_EQ(layers.at("template").crs, "EPSG:2193");
}

TEST_F(FlowpathCommand, RowsOfATableAreOneLine) {
  const std::string file = folder.file("trace.csv", "x,y,z\n0,0,5\n10,0,5\n20,5,6\n");
  const auto layers = layersOf(file, {"--height", "2"}, "out.gpkg");
  EXPECT_EQ(layers.at("template").features.at(0).number("vertices"), 3);
  EXPECT_EQ(layers.at("flowpaths").features.at(0).number("L"), 5);
  EXPECT_THAT(result.out, HasSubstr("none (model coordinates in metres)"));
}

TEST_F(FlowpathCommand, WellKnownTextOfATableIsALineEach) {
  const std::string file = folder.file("traces.csv",
                                       "name,WKT\nupper,\"LINESTRING (0 0,10 0,20 "
                                       "5)\"\nlower,\"LINESTRING (0 -50,10 -50,20 -45)\"\n");
  const auto layers = layersOf(file, {"--crs", "EPSG:32633"});
  ASSERT_EQ(layers.at("template").features.size(), 2U);
  EXPECT_EQ(layers.at("template").features.at(1).fields.at("name"), "lower");
  EXPECT_EQ(layers.at("template").crs, "EPSG:32633");
}

TEST_F(FlowpathCommand, PartsOfAMultiLineAreTemplates) {
  const std::string file =
      folder.file("multi.csv", "WKT\n\"MULTILINESTRING ((0 0,10 0,20 5),(50 0,60 0))\"\n");
  const auto layers = layersOf(file, {"--height", "2"});
  ASSERT_EQ(layers.at("template").features.size(), 2U);
  EXPECT_EQ(layers.at("template").features.at(1).number("part"), 1);
}

// A template of two vertices: parallel, from one template length before it to one after it.
TEST_F(FlowpathCommand, LineOfTwoVerticesHasStraightPaths) {
  const std::string file = folder.file("straight.csv", "x,y\n0,0\n10,0\n");
  const auto layers = layersOf(file, {"--height", "2", "--height", "-3"});
  const std::vector<ReadFeature>& paths = layers.at("flowpaths").features;
  ASSERT_EQ(paths.size(), 2U);
  EXPECT_THAT(paths[0].vertices, ElementsAre(ElementsAre(-10, 2), ElementsAre(0, 2),
                                             ElementsAre(10, 2), ElementsAre(20, 2)));
  EXPECT_THAT(numbersIn(paths[0].fields.at("slips")), ElementsAre(-10, 0, 10, 20));
  EXPECT_EQ(paths[1].number("h"), -3);
  EXPECT_THAT(paths[1].vertices.at(1), ElementsAre(0, -3));
}

TEST_F(FlowpathCommand, GeoPackageIsReadByItsLayer) {
  layersOf(bent(), {}, "first.gpkg");
  const auto layers =
      layersOf(folder.path("first.gpkg"), {"--layer", "template", "--height", "10"}, "second.gpkg");
  EXPECT_EQ(layers.at("template").features.at(0).vertices.size(), 3U);
  EXPECT_EQ(layers.at("template").crs, "EPSG:32633");
}

// A Shapefile tells its system in words; the code that they mean is found again.
TEST_F(FlowpathCommand, ShapefileIsReadWithItsSystem) {
  const std::string shapefile = folder.path("bent.shp");
  copyVectorFile(bent(), shapefile, "ESRI Shapefile");
  const auto layers = layersOf(shapefile, {"--height", "10"});
  EXPECT_EQ(layers.at("template").features.at(0).vertices.size(), 3U);
  EXPECT_EQ(layers.at("template").crs, "EPSG:32633");
}

// One column alone: a list of geometries.
TEST_F(FlowpathCommand, TableOfWellKnownTextAloneIsRead) {
  const std::string file = folder.file("list.csv", "WKT\n\"LINESTRING (0 0,10 0,20 5)\"\n");
  const auto layers = layersOf(file, {"--height", "2"});
  EXPECT_EQ(layers.at("flowpaths").features.size(), 1U);
}

TEST_F(FlowpathCommand, SkipBadLeavesOutPointsToo) {
  const std::string points = folder.file("points.csv", "x,y\n500500,4000030\nnan,4000030\n");
  const auto layers = layersOf(bent(), {"--points", points, "--skip-bad"});
  EXPECT_EQ(layers.at("flowpaths").features.size(), 1U);
  EXPECT_THAT(result.out, HasSubstr("left out  1 bad feature of"));
}

TEST_F(FlowpathCommand, StatedBoundsReachTheBisectors) {
  const auto layers = layersOf(bent(), {"--bounds", "499000,3999000,503000,4002000"});
  // An open bisector is as long as the two sides of the bounds together: 4 km and 3 km.
  const ReadFeature& root = layers.at("bisectors").features.at(0);
  EXPECT_NEAR(std::hypot(root.vertices.at(1).at(0) - root.vertices.at(0).at(0),
                         root.vertices.at(1).at(1) - root.vertices.at(0).at(1)),
              7000.0, 1e-5);
}

TEST_F(FlowpathCommand, RepeatedVertexIsDroppedAndCounted) {
  const std::string file = folder.file("repeat.csv", "x,y\n0,0\n10,0\n10,0\n20,5\n");
  const auto layers = layersOf(file, {});
  EXPECT_EQ(layers.at("template").features.at(0).number("vertices"), 3);
  EXPECT_THAT(result.out, HasSubstr("dropped   1 repeated vertex\n"));
}

TEST_F(FlowpathCommand, SkipBadGoesOnAndCounts) {
  const std::string file =
      folder.file("mixed.geojson", metricLines({"[1,2]", kBentLine, "[3,4],[3,4]"}));
  const auto layers = layersOf(file, {"--skip-bad", "--height", "100"});
  ASSERT_EQ(layers.at("template").features.size(), 1U);
  EXPECT_EQ(layers.at("template").features.at(0).number("fid"), 1);
  EXPECT_THAT(result.out, HasSubstr("left out  2 bad features"));
  EXPECT_THAT(result.out, HasSubstr("feature 0: a line of one vertex"));
}

TEST_F(FlowpathCommand, WhereSelectsByFeatureId) {
  const auto layers = layersOf(ZRBASE_EXAMPLE_DATA "/anatolia.geojson", {"--where", "3,7"});
  ASSERT_EQ(layers.at("template").features.size(), 2U);
  EXPECT_EQ(layers.at("template").features.at(0).number("fid"), 3);
  EXPECT_EQ(layers.at("template").features.at(1).number("fid"), 7);
}

TEST_F(FlowpathCommand, SummaryCountsTheWholeFile) {
  layersOf(ZRBASE_EXAMPLE_DATA "/anatolia.geojson", {"--height", "1000,-1000"}, "out.gpkg");
  EXPECT_THAT(result.out, StartsWith("template  vertices  roots  merged  paths  time [ms]\n"));
  EXPECT_THAT(result.out, HasSubstr("all 40"));
  EXPECT_THAT(result.out, HasSubstr("template 40, bisectors "));
  EXPECT_THAT(result.out, HasSubstr("flowpaths 80, moved 0"));
}

TEST_F(FlowpathCommand, SameInputGivesTheSameBytes) {
  const std::vector<std::string> options = {"--where", "5", "--height", "1500", "--slip", "700"};
  for (const std::string ending : {".geojson", ".gpkg"}) {
    layersOf(ZRBASE_EXAMPLE_DATA "/california.geojson", options, "first" + ending);
    layersOf(ZRBASE_EXAMPLE_DATA "/california.geojson", options, "second" + ending);
    EXPECT_EQ(readFile(folder.path("first" + ending)), readFile(folder.path("second" + ending)))
        << ending;
  }
}

TEST_F(FlowpathCommand, DecimalCommaOfTheUserChangesNothing) {
  const std::vector<std::string> options = {"--height", "0.5", "--slip", "0.25"};
  layersOf(bent(), options, "plain.geojson");
  const CommandResult comma =
      runZrbase({"flowpath", bent(), "--height", "0.5", "--slip", "0.25", "-o",
                 folder.path("comma.geojson"), "--picture", folder.path("comma.svg")},
                "LC_ALL=de_DE.UTF-8");
  EXPECT_EQ(comma.status, 0) << comma.err;
  EXPECT_EQ(readFile(folder.path("plain.geojson")), readFile(folder.path("comma.geojson")));
  EXPECT_THAT(comma.out, HasSubstr("0."));
}

TEST(Zrbase, AloneListsItsJobs) {
  const CommandResult result = runZrbase({});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out, HasSubstr("flowpath"));
}

TEST(Zrbase, VersionIsThatOfTheProject) {
  EXPECT_EQ(runZrbase({"--version"}).out, "zrbase " ZRBASE_VERSION "\n");
}

TEST(Zrbase, UnknownJobIsOneLineWithStatus2) {
  const CommandResult result = runZrbase({"fold"});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.err, StartsWith("zrbase: "));
  EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1);
}

TEST(Zrbase, HelpOfTheJobHasExamples) {
  const CommandResult result = runZrbase({"flowpath", "--help"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out, HasSubstr("Examples:"));
  for (const char* const option :
       {"--layer", "--where", "--points", "--height", "--slip", "--bounds", "--side-tolerance",
        "--crs", "--picture", "--skip-bad"}) {
    EXPECT_THAT(result.out, HasSubstr(option));
  }
}

}  // namespace
