#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "apps/commandRunner.h"

// Whatever is wrong with the input: one line that names the file, the feature and the reason,
// status 2, no output.

namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const char* const kGoodLine = "[500000,4000000],[501000,4000000],[502000,4001000]";

class FlowpathBadInput : public ::testing::Test {
 protected:
  // Runs with an output in an own folder, and holds every promise about a failure but the reason.
  std::string reasonOf(std::vector<std::string> arguments, const std::string& output = "out.gpkg") {
    arguments.insert(arguments.begin(), "flowpath");
    arguments.insert(arguments.end(), {"--height", "100", "-o", outputs.path(output)});
    const CommandResult result = runZrbase(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, StartsWith("zrbase flowpath: "));
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    EXPECT_THAT(outputs.names(), ElementsAre());
    return result.err;
  }

  std::string good() { return inputs.file("good.geojson", metricLines({kGoodLine})); }

  TestFolder inputs;
  TestFolder outputs;
};

TEST_F(FlowpathBadInput, MissingFileIsNamed) {
  EXPECT_THAT(reasonOf({inputs.path("nothing.geojson")}), HasSubstr("nothing.geojson"));
}

TEST_F(FlowpathBadInput, FileOfAnotherKindIsNamed) {
  EXPECT_THAT(reasonOf({inputs.file("text.geojson", "no vector file at all")}),
              HasSubstr("text.geojson: cannot be read"));
}

TEST_F(FlowpathBadInput, FileWithoutLinesIsRefused) {
  const std::string points = inputs.file(
      "points.geojson",
      R"({"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[1,2]}})");
  EXPECT_THAT(reasonOf({points}), HasSubstr("points.geojson: no layer with lines"));
}

TEST_F(FlowpathBadInput, UnknownLayerIsToldWithTheKnownOnes) {
  EXPECT_THAT(reasonOf({good(), "--layer", "faults"}),
              AllOf(HasSubstr("no layer 'faults'"), HasSubstr("good")));
}

TEST_F(FlowpathBadInput, LineOfOneVertexNamesItsFeature) {
  const std::string file = inputs.file("one.geojson", metricLines({kGoodLine, "[1,2]"}));
  EXPECT_THAT(reasonOf({file}), HasSubstr("one.geojson: feature 1: a line of one vertex"));
}

TEST_F(FlowpathBadInput, LineOfOneRepeatedVertexNamesItsFeature) {
  const std::string file = inputs.file("same.geojson", metricLines({"[1,2],[1,2],[1,2]"}));
  EXPECT_THAT(reasonOf({file}),
              HasSubstr("same.geojson: feature 0: a line of one vertex, repeated"));
}

TEST_F(FlowpathBadInput, NanInWellKnownTextNamesItsFeature) {
  const std::string file = inputs.file("nan.csv", "WKT,name\n\"LINESTRING (0 0,nan 5,10 0)\",a\n");
  EXPECT_THAT(reasonOf({file}), AllOf(HasSubstr("nan.csv: feature 1: its geometry cannot be read"),
                                      HasSubstr("(0 0,nan 5,10 0)")));
}

TEST_F(FlowpathBadInput, InfiniteCoordinateNamesItsFeature) {
  const std::string file = inputs.file("inf.geojson", metricLines({"[0,0],[1e999,5],[10,0]"}));
  EXPECT_THAT(reasonOf({file}), HasSubstr("inf.geojson: feature 0: "));
}

TEST_F(FlowpathBadInput, NanInATableNamesItsRow) {
  const std::string file = inputs.file("rows.csv", "x,y,z\n0,0,0\n5,nan,0\n10,0,0\n");
  EXPECT_THAT(reasonOf({file}), HasSubstr("rows.csv: row 2: y is not finite"));
}

TEST_F(FlowpathBadInput, TextInATableNamesItsRow) {
  const std::string file = inputs.file("rows.csv", "x,y\n0,0\nfive,0\n10,0\n");
  EXPECT_THAT(reasonOf({file}), HasSubstr("rows.csv: row 2: x 'five' is not a number"));
}

TEST_F(FlowpathBadInput, FeatureWithoutGeometryIsNamed) {
  const std::string file = inputs.file(
      "null.geojson", R"({"type":"FeatureCollection","features":[)"
                      R"({"type":"Feature","properties":{},"geometry":{"type":"LineString",)"
                      R"("coordinates":[[1,2],[3,4]]}},)"
                      R"({"type":"Feature","properties":{},"geometry":null}]})");
  EXPECT_THAT(reasonOf({file}), HasSubstr("null.geojson: feature 1: without a geometry"));
}

TEST_F(FlowpathBadInput, MetresThatClaimToBeDegreesAreTold) {
  const std::string file =
      inputs.file("metres.geojson", R"({"type":"Feature","properties":{},"geometry":{"type":)"
                                    R"("LineString","coordinates":[[500000,4000000],[1,2]]}})");
  EXPECT_THAT(
      reasonOf({file}),
      HasSubstr("metres.geojson: feature 0: (500000 4000000) is no longitude and latitude"));
}

TEST_F(FlowpathBadInput, UnknownSystemIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--crs", "EPSG:99999"}),
              HasSubstr("--crs EPSG:99999: unknown coordinate system"));
}

TEST_F(FlowpathBadInput, SystemInDegreesIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--crs", "EPSG:4326"}),
              HasSubstr("not a projected system in metres"));
}

TEST_F(FlowpathBadInput, UnknownFeatureIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--where", "7"}), HasSubstr("good.geojson: no feature 7"));
}

TEST_F(FlowpathBadInput, SelectionThatIsNoNumberIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--where", "first"}), HasSubstr("--where: 'first'"));
}

TEST_F(FlowpathBadInput, HeightThatIsNoNumberIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--height", "12m"}),
              HasSubstr("--height: '12m' is not a finite number"));
}

TEST_F(FlowpathBadInput, SlipThatIsNotFiniteIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--slip", "nan"}),
              HasSubstr("--slip: 'nan' is not a finite number"));
}

TEST_F(FlowpathBadInput, NegativeSideToleranceIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--side-tolerance", "-1"}), HasSubstr("--side-tolerance: '-1'"));
}

TEST_F(FlowpathBadInput, BoundsOfThreeNumbersAreRefused) {
  EXPECT_THAT(reasonOf({good(), "--bounds", "0,0,5"}), HasSubstr("--bounds: '0,0,5'"));
}

TEST_F(FlowpathBadInput, UnknownOptionIsOneLine) {
  EXPECT_THAT(reasonOf({good(), "--colour", "red"}), HasSubstr("--colour"));
}

TEST_F(FlowpathBadInput, MissingPointsFileIsNamed) {
  EXPECT_THAT(reasonOf({good(), "--points", inputs.path("wells.csv")}), HasSubstr("wells.csv"));
}

TEST_F(FlowpathBadInput, PointThatIsNotFiniteNamesItsRow) {
  const std::string points = inputs.file("wells.csv", "name,x,y\na,1,2\nb,inf,2\n");
  EXPECT_THAT(reasonOf({good(), "--points", points}),
              HasSubstr("wells.csv: row 2: x is not finite"));
}

TEST_F(FlowpathBadInput, PointsFileOfLinesIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--points", good()}),
              HasSubstr("good.geojson: no layer with points"));
}

TEST_F(FlowpathBadInput, PointsWithASystemNeedOneInTheModel) {
  const std::string trace = inputs.file("trace.csv", "x,y\n0,0\n10,0\n20,5\n");
  const std::string points = inputs.file("wells.csv", "lon,lat\n15,40\n");
  EXPECT_THAT(reasonOf({trace, "--points", points}), HasSubstr("give --crs"));
}

TEST_F(FlowpathBadInput, UnknownEndingOfTheOutputIsRefused) {
  EXPECT_THAT(reasonOf({good()}, "out.dxf"), HasSubstr("out.dxf: unknown ending for the output"));
}

TEST_F(FlowpathBadInput, UnknownEndingOfThePictureIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--picture", outputs.path("map.bmp")}),
              HasSubstr("map.bmp: unknown ending for the picture"));
}

TEST_F(FlowpathBadInput, OutputInAMissingFolderIsRefused) {
  EXPECT_THAT(reasonOf({good()}, "missing/out.gpkg"),
              HasSubstr("missing/out.gpkg: cannot be written: No such file or directory"));
}

TEST_F(FlowpathBadInput, PictureInAMissingFolderLeavesNoOutput) {
  EXPECT_THAT(reasonOf({good(), "--picture", outputs.path("missing/map.svg")}),
              HasSubstr("missing/map.svg: cannot be written: No such file or directory"));
}

TEST_F(FlowpathBadInput, SkippingEveryFeatureIsRefused) {
  const std::string file = inputs.file("bad.geojson", metricLines({"[1,2]", "[3,4]"}));
  EXPECT_THAT(reasonOf({file, "--skip-bad"}), HasSubstr("bad.geojson: no usable line, 2 left out"));
}

TEST(FlowpathOutputSafety, InputIsNotOverwritten) {
  const TestFolder folder;
  const std::string input = folder.file("trace.geojson", metricLines({kGoodLine}));
  const std::string before = readFile(input);
  const CommandResult result = runZrbase({"flowpath", input, "--height", "10", "-o", input});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(readFile(input), before);
}

TEST(FlowpathOutputSafety, EarlierOutputSurvivesAFailure) {
  const TestFolder folder;
  const std::string input = folder.file("bad.geojson", metricLines({"[1,2]"}));
  const std::string output = folder.file("out.geojson", "kept");
  EXPECT_EQ(runZrbase({"flowpath", input, "-o", output}).status, 2);
  EXPECT_EQ(readFile(output), "kept");
}

TEST(FlowpathOutputSafety, FolderAsOutputIsRefused) {
  const TestFolder folder;
  const std::string input = folder.file("trace.geojson", metricLines({kGoodLine}));
  const std::string makeFolder = "mkdir " + folder.path("out.gpkg");
  ASSERT_EQ(std::system(makeFolder.c_str()), 0);
  const CommandResult result = runZrbase({"flowpath", input, "-o", folder.path("out.gpkg")});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.err, HasSubstr("out.gpkg: cannot be written: Is a directory"));
}

}  // namespace
