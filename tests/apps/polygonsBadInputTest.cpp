#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/commandRunner.h"

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

const char* const kSquare = "WKT,name\n\"POLYGON ((0 0,10 0,10 10,0 10,0 0))\",a\n";
const char* const kOpenLine = "WKT,name\n\"LINESTRING (0 5,5 6,10 5)\",a\n";

class PolygonsBadInput : public ::testing::Test {
 protected:
  std::string reasonOf(const std::string& input, const std::vector<std::string>& options,
                       const std::string& output = "out.gpkg") {
    std::vector<std::string> arguments = {"polygons", input, "-o", outputs.path(output)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return refusalOf(arguments, outputs);
  }

  std::string square() { return inputs.file("square.csv", kSquare); }
  std::string line() { return inputs.file("line.csv", kOpenLine); }
  std::string wkt(const std::string& geometry) {
    return inputs.file("bad.csv", "WKT,name\n\"" + geometry + "\",a\n");
  }
  std::string points() {
    return inputs.file(
        "points.geojson",
        R"({"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[1,2]}})");
  }

  TestFolder inputs;
  TestFolder outputs;
};

TEST_F(PolygonsBadInput, ExactlyOneJobHasToBeGiven) {
  EXPECT_THAT(reasonOf(square(), {}), HasSubstr("give one of --inner-outer"));
  EXPECT_THAT(reasonOf(square(), {"--inner-outer", "--condition"}),
              HasSubstr("give only one of --inner-outer"));
  EXPECT_THAT(reasonOf(square(), {"--condition", "--complete", square()}),
              HasSubstr("give only one of"));
}

TEST_F(PolygonsBadInput, OptionsOfAnotherJobAreRefused) {
  EXPECT_THAT(reasonOf(square(), {"--condition", "--reach", "5"}),
              HasSubstr("--reach: only with --complete"));
  EXPECT_THAT(reasonOf(square(), {"--inner-outer", "--boundary-layer", "a"}),
              HasSubstr("--boundary-layer: only with --complete"));
}

TEST_F(PolygonsBadInput, MissingFilesAreNamed) {
  EXPECT_THAT(reasonOf(inputs.path("nothing.shp"), {"--condition"}), HasSubstr("nothing.shp"));
  EXPECT_THAT(reasonOf(line(), {"--complete", inputs.path("nothing.shp")}),
              HasSubstr("nothing.shp"));
}

TEST_F(PolygonsBadInput, FilesOfPointsAreRefused) {
  EXPECT_THAT(reasonOf(points(), {"--inner-outer"}),
              HasSubstr("points.geojson: no layer with polygons or lines"));
  EXPECT_THAT(reasonOf(line(), {"--complete", points()}),
              HasSubstr("points.geojson: no layer with polygons or lines"));
}

TEST_F(PolygonsBadInput, PolygonsCannotBeCompleted) {
  EXPECT_THAT(reasonOf(square(), {"--complete", square()}),
              HasSubstr("square.csv: no layer with lines"));
}

TEST_F(PolygonsBadInput, BoundaryWithoutAPolygonIsRefused) {
  EXPECT_THAT(reasonOf(line(), {"--complete", line()}),
              HasSubstr("line.csv: no boundary: neither a polygon nor a closed line"));
}

TEST_F(PolygonsBadInput, UnknownLayersAreToldWithTheKnownOnes) {
  EXPECT_THAT(reasonOf(square(), {"--condition", "--layer", "blocks"}),
              AllOf(HasSubstr("no layer 'blocks'"), HasSubstr("square")));
  EXPECT_THAT(reasonOf(line(), {"--complete", square(), "--boundary-layer", "blocks"}),
              AllOf(HasSubstr("no layer 'blocks'"), HasSubstr("square")));
}

TEST_F(PolygonsBadInput, UnknownFeatureIsRefused) {
  EXPECT_THAT(reasonOf(square(), {"--condition", "--where", "7"}), HasSubstr("no feature 7"));
}

TEST_F(PolygonsBadInput, SelectedPointIsNoRing) {
  const std::string mixed =
      inputs.file("mixed.csv", "WKT,name\n\"POINT (1 2)\",p\n\"POLYGON ((0 0,1 0,1 1,0 0))\",q\n");
  EXPECT_THAT(reasonOf(mixed, {"--condition", "--where", "1"}),
              HasSubstr("mixed.csv: feature 1: neither a polygon nor a line but a POINT"));
}

TEST_F(PolygonsBadInput, FileWithoutAFeatureIsRefused) {
  const std::string empty =
      inputs.file("empty.geojson", R"({"type":"FeatureCollection","features":[]})");
  EXPECT_THAT(reasonOf(empty, {"--condition"}), HasSubstr("empty.geojson: no layer with"));
}

TEST_F(PolygonsBadInput, CoordinatesThatAreNotFiniteAreNamed) {
  EXPECT_THAT(reasonOf(wkt("POLYGON ((0 0,nan 0,1 1,0 0))"), {"--condition"}),
              HasSubstr("bad.csv: feature 1: "));
  EXPECT_THAT(reasonOf(wkt("POLYGON ((0 0,9 0,9 9,0 0),(1 1,1e999 1,2 2,1 1))"), {"--condition"}),
              HasSubstr("bad.csv: feature 1, ring 1: vertex 1 is not finite"));
  EXPECT_THAT(reasonOf(inputs.file("rows.csv", "x,y\n0,0\n5,nan\n10,0\n"), {"--inner-outer"}),
              HasSubstr("rows.csv: row 2: y is not finite"));
}

TEST_F(PolygonsBadInput, RingsOfTooFewCornersAreNamed) {
  EXPECT_THAT(reasonOf(wkt("POLYGON ((0 0,1 0,0 0))"), {"--condition"}),
              HasSubstr("bad.csv: feature 1: a ring of fewer than three corners"));
  EXPECT_THAT(
      reasonOf(wkt("MULTIPOLYGON (((0 0,1 0,1 1,0 0)),((0 0,0 0,0 0,0 0)))"), {"--inner-outer"}),
      HasSubstr("bad.csv: feature 1, part 1: a ring of fewer than three corners"));
  EXPECT_THAT(reasonOf(wkt("POLYGON EMPTY"), {"--condition"}),
              HasSubstr("bad.csv: feature 1: a polygon without rings"));
  EXPECT_THAT(reasonOf(wkt("LINESTRING (0 0,1 0,0 0)"), {"--inner-outer"}),
              HasSubstr("bad.csv: feature 1: a ring of fewer than three corners"));
}

TEST_F(PolygonsBadInput, OpenLinesAreNoRings) {
  for (const char* const job : {"--inner-outer", "--condition"}) {
    EXPECT_THAT(reasonOf(line(), {job}),
                HasSubstr("line.csv: feature 1: an open line: its ends are 10.000 m apart"));
  }
}

TEST_F(PolygonsBadInput, RingThatTheToleranceLeavesNothingOfIsNamed) {
  EXPECT_THAT(reasonOf(square(), {"--condition", "--tolerance", "11"}),
              HasSubstr("square.csv: feature 1: fewer than three corners are left"));
}

TEST_F(PolygonsBadInput, LineFarFromTheBoundaryIsNamed) {
  const std::string file = wkt("LINESTRING (3 3,5 5,7 3)");
  EXPECT_THAT(reasonOf(file, {"--complete", square()}),
              HasSubstr("bad.csv: feature 1: its two ends do not both come within"));
}

TEST_F(PolygonsBadInput, SkippingEveryFeatureIsRefused) {
  for (const std::vector<std::string>& job : std::vector<std::vector<std::string>>{
           {"--inner-outer"}, {"--condition"}, {"--complete", square(), "--reach", "0.01"}}) {
    std::vector<std::string> options = job;
    options.emplace_back("--skip-bad");
    EXPECT_THAT(reasonOf(wkt("LINESTRING (3 3,5 5,7 3)"), options),
                HasSubstr("bad.csv: no usable feature, 1 left out"));
  }
}

TEST_F(PolygonsBadInput, NumbersAreChecked) {
  EXPECT_THAT(reasonOf(square(), {"--condition", "--tolerance", "1m"}),
              HasSubstr("--tolerance: '1m' is not a finite number"));
  EXPECT_THAT(reasonOf(square(), {"--condition", "--tolerance", "-1"}),
              HasSubstr("--tolerance: '-1' is below 0"));
  EXPECT_THAT(reasonOf(line(), {"--complete", square(), "--reach", "0"}),
              HasSubstr("--reach: '0' is not above 0"));
  EXPECT_THAT(reasonOf(line(), {"--complete", square(), "--reach", "nan"}),
              HasSubstr("--reach: 'nan' is not a finite number"));
}

TEST_F(PolygonsBadInput, UnknownEndingOfTheOutputIsRefused) {
  EXPECT_THAT(reasonOf(square(), {"--condition"}, "out.dxf"), HasSubstr("unknown ending"));
}

TEST_F(PolygonsBadInput, SystemOfTheBoundaryNeedsOneOfTheLines) {
  const std::string boundary =
      inputs.file("b.geojson", metricLines({"[0,0],[10,0],[10,10],[0,0]"}));
  EXPECT_THAT(reasonOf(line(), {"--complete", boundary}),
              HasSubstr("states no system: give --crs"));
}

TEST_F(PolygonsBadInput, InputsAreNotOverwritten) {
  const std::string lines = inputs.file("line.geojson", metricLines({"[0,5],[5,6],[10,5]"}));
  const std::string boundary =
      inputs.file("b.geojson", metricLines({"[0,0],[10,0],[10,10],[0,10],[0,0]"}));
  for (const std::string& output : {lines, boundary}) {
    const std::string before = readFile(output);
    const CommandResult result =
        runZrbase({"polygons", lines, "--complete", boundary, "-o", output});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("is an input too"));
    EXPECT_EQ(readFile(output), before);
  }
}

}  // namespace
