#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/commandRunner.h"

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

class FuseBadInput : public ::testing::Test {
 protected:
  std::string reasonOf(const std::string& lines, const std::vector<std::string>& options = {},
                       const std::string& tolerance = "1", const std::string& output = "out.gpkg") {
    std::vector<std::string> arguments = {"fuse",    lines, "--tolerance",
                                          tolerance, "-o",  outputs.path(output)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return refusalOf(arguments, outputs);
  }

  std::string good() { return inputs.file("good.geojson", metricLines({"[0,0],[10,0]"})); }

  TestFolder inputs;
  TestFolder outputs;
};

TEST_F(FuseBadInput, MissingFileIsNamed) {
  EXPECT_THAT(reasonOf(inputs.path("nothing.shp")), HasSubstr("nothing.shp"));
}

TEST_F(FuseBadInput, FileOfPointsIsRefused) {
  const std::string points = inputs.file(
      "points.geojson",
      R"({"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[1,2]}})");
  EXPECT_THAT(reasonOf(points), HasSubstr("points.geojson: no layer with lines"));
}

TEST_F(FuseBadInput, FileWithoutAFeatureIsRefused) {
  const std::string empty =
      inputs.file("empty.geojson", R"({"type":"FeatureCollection","features":[]})");
  EXPECT_THAT(reasonOf(empty), HasSubstr("empty.geojson: no layer with lines"));
}

TEST_F(FuseBadInput, UnknownLayerIsToldWithTheKnownOnes) {
  EXPECT_THAT(reasonOf(good(), {"--layer", "faults"}),
              AllOf(HasSubstr("no layer 'faults'"), HasSubstr("good")));
}

TEST_F(FuseBadInput, UnknownFeatureIsRefused) {
  EXPECT_THAT(reasonOf(good(), {"--where", "7"}), HasSubstr("no feature 7"));
}

TEST_F(FuseBadInput, NanNamesItsRow) {
  const std::string rows = inputs.file("rows.csv", "x,y\n0,0\n5,nan\n10,0\n");
  EXPECT_THAT(reasonOf(rows), HasSubstr("rows.csv: row 2: y is not finite"));
}

TEST_F(FuseBadInput, LineOfOneVertexNamesItsFeature) {
  const std::string one = inputs.file("one.geojson", metricLines({"[0,0],[10,0]", "[1,2]"}));
  EXPECT_THAT(reasonOf(one), HasSubstr("one.geojson: feature 1: a line of one vertex"));
}

TEST_F(FuseBadInput, MissingToleranceIsTold) {
  EXPECT_THAT(refusalOf({"fuse", good(), "-o", outputs.path("out.gpkg")}, outputs),
              HasSubstr("--tolerance is required"));
}

TEST_F(FuseBadInput, ToleranceHasToBeANumberAboveZero) {
  EXPECT_THAT(reasonOf(good(), {}, "wide"),
              HasSubstr("--tolerance: 'wide' is not a finite number"));
  EXPECT_THAT(reasonOf(good(), {}, "inf"), HasSubstr("--tolerance: 'inf' is not a finite number"));
  EXPECT_THAT(reasonOf(good(), {}, "-1"), HasSubstr("--tolerance: '-1' is below 0"));
  EXPECT_THAT(reasonOf(good(), {}, "0"), HasSubstr("--tolerance: '0' is not above 0"));
}

TEST_F(FuseBadInput, UnknownEndingOfTheOutputIsRefused) {
  EXPECT_THAT(reasonOf(good(), {}, "1", "out.dxf"), HasSubstr("unknown ending"));
}

TEST_F(FuseBadInput, OutputInAMissingFolderIsRefused) {
  EXPECT_THAT(reasonOf(good(), {}, "1", "missing/out.gpkg"), HasSubstr("cannot be written"));
}

TEST_F(FuseBadInput, InputIsNotOverwritten) {
  const std::string input = good();
  const std::string before = readFile(input);
  const CommandResult result = runZrbase({"fuse", input, "--tolerance", "1", "-o", input});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.err, HasSubstr("is an input too"));
  EXPECT_EQ(readFile(input), before);
}

}  // namespace
