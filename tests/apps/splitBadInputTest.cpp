#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/commandRunner.h"

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

class SplitBadInput : public ::testing::Test {
 protected:
  std::string reasonOf(const std::string& lines, const std::string& with,
                       const std::vector<std::string>& options = {},
                       const std::string& output = "out.gpkg") {
    std::vector<std::string> arguments = {"split", lines, "--with",
                                          with,    "-o",  outputs.path(output)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return refusalOf(arguments, outputs);
  }

  std::string good() { return inputs.file("good.geojson", metricLines({"[0,0],[10,0]"})); }
  std::string cutter() { return inputs.file("cutter.geojson", metricLines({"[4,-5],[4,5]"})); }
  std::string points() {
    return inputs.file(
        "points.geojson",
        R"({"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[1,2]}})");
  }

  TestFolder inputs;
  TestFolder outputs;
};

TEST_F(SplitBadInput, MissingFilesAreNamed) {
  EXPECT_THAT(reasonOf(inputs.path("nothing.shp"), cutter()), HasSubstr("nothing.shp"));
  EXPECT_THAT(reasonOf(good(), inputs.path("nothing.shp")), HasSubstr("nothing.shp"));
}

TEST_F(SplitBadInput, MissingWithIsTold) {
  EXPECT_THAT(refusalOf({"split", good(), "-o", outputs.path("out.gpkg")}, outputs),
              HasSubstr("--with is required"));
}

TEST_F(SplitBadInput, FilesOfPointsAreRefused) {
  EXPECT_THAT(reasonOf(points(), cutter()), HasSubstr("points.geojson: no layer with lines"));
  EXPECT_THAT(reasonOf(good(), points()),
              HasSubstr("points.geojson: no layer with polygons or lines"));
}

TEST_F(SplitBadInput, PolygonsAreNotCut) {
  const std::string polygons =
      inputs.file("areas.csv", "WKT,name\n\"POLYGON ((0 0,1 0,1 1,0 0))\",a\n");
  EXPECT_THAT(reasonOf(polygons, cutter()), HasSubstr("areas.csv: no layer with lines"));
}

TEST_F(SplitBadInput, UnknownLayersAreToldWithTheKnownOnes) {
  EXPECT_THAT(reasonOf(good(), cutter(), {"--layer", "faults"}),
              AllOf(HasSubstr("no layer 'faults'"), HasSubstr("good")));
  EXPECT_THAT(reasonOf(good(), cutter(), {"--with-layer", "faults"}),
              AllOf(HasSubstr("no layer 'faults'"), HasSubstr("cutter")));
}

TEST_F(SplitBadInput, UnknownFeatureIsRefused) {
  EXPECT_THAT(reasonOf(good(), cutter(), {"--where", "7"}), HasSubstr("no feature 7"));
}

TEST_F(SplitBadInput, FilesWithoutAFeatureAreRefused) {
  const std::string empty =
      inputs.file("empty.geojson", R"({"type":"FeatureCollection","features":[]})");
  EXPECT_THAT(reasonOf(empty, cutter()), HasSubstr("empty.geojson: no layer with lines"));
  EXPECT_THAT(reasonOf(good(), empty), HasSubstr("empty.geojson: no layer with"));
}

TEST_F(SplitBadInput, NanIsNamedInEitherFile) {
  const std::string rows = inputs.file("rows.csv", "x,y\n0,0\n5,nan\n10,0\n");
  EXPECT_THAT(reasonOf(rows, cutter()), HasSubstr("rows.csv: row 2: y is not finite"));
  EXPECT_THAT(reasonOf(good(), rows), HasSubstr("rows.csv: row 2: y is not finite"));
}

TEST_F(SplitBadInput, LineOfOneVertexIsNamedInEitherFile) {
  const std::string one = inputs.file("one.geojson", metricLines({"[1,2]"}));
  EXPECT_THAT(reasonOf(one, cutter()), HasSubstr("one.geojson: feature 0: a line of one vertex"));
  EXPECT_THAT(reasonOf(good(), one), HasSubstr("one.geojson: feature 0: a line of one vertex"));
}

TEST_F(SplitBadInput, ToleranceHasToBeANumberFromZero) {
  EXPECT_THAT(reasonOf(good(), cutter(), {"--tolerance", "1m"}),
              HasSubstr("--tolerance: '1m' is not a finite number"));
  EXPECT_THAT(reasonOf(good(), cutter(), {"--tolerance", "nan"}), HasSubstr("--tolerance: 'nan'"));
  EXPECT_THAT(reasonOf(good(), cutter(), {"--tolerance", "-1"}),
              HasSubstr("--tolerance: '-1' is below 0"));
}

TEST_F(SplitBadInput, UnknownEndingOfTheOutputIsRefused) {
  EXPECT_THAT(reasonOf(good(), cutter(), {}, "out.dxf"), HasSubstr("unknown ending"));
}

TEST_F(SplitBadInput, SystemOfTheSecondFileNeedsOneOfTheFirst) {
  const std::string rows = inputs.file("rows.csv", "x,y\n0,0\n10,0\n");
  EXPECT_THAT(reasonOf(rows, cutter()), HasSubstr("states no system: give --crs"));
}

TEST_F(SplitBadInput, InputsAreNotOverwritten) {
  const std::string lines = good();
  const std::string with = cutter();
  for (const std::string& output : {lines, with}) {
    const std::string before = readFile(output);
    const CommandResult result = runZrbase({"split", lines, "--with", with, "-o", output});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("is an input too"));
    EXPECT_EQ(readFile(output), before);
  }
}

}  // namespace
