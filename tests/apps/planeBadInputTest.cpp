#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "apps/commandRunner.h"
#include "apps/planePoints.h"

// Whatever is wrong with the input: one line that names the file, the feature and the reason,
// status 2, no output.

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class PlaneBadInput : public ::testing::Test {
 protected:
  // Runs with an output in an own folder, and holds every promise about a failure but the reason.
  std::string reasonOf(std::vector<std::string> arguments, const std::string& output = "out.gpkg") {
    arguments.insert(arguments.begin(), "plane");
    arguments.insert(arguments.end(), {"-o", outputs.path(output)});
    const CommandResult result = runZrbase(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, StartsWith("zrbase plane: "));
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    EXPECT_THAT(outputs.names(), ElementsAre());
    return result.err;
  }

  std::string table(const std::string& rows) {
    return inputs.file("points.csv", "x,y,z,bed\n" + rows);
  }
  std::string good() { return table("0,0,0,a\n10,0,0,a\n0,10,5,a\n"); }
  std::string features(const std::string& type, const std::vector<std::string>& coordinates) {
    return inputs.file("in.geojson", planeFeatures(type, coordinates));
  }

  TestFolder inputs;
  TestFolder outputs;
};

TEST_F(PlaneBadInput, MissingFileIsNamed) {
  EXPECT_THAT(reasonOf({inputs.path("nothing.csv")}), HasSubstr("nothing.csv"));
}

TEST_F(PlaneBadInput, FileWithoutPointsIsRefused) {
  const std::string file = inputs.file("empty.geojson", planeFeatures("MultiPoint", {}));
  EXPECT_THAT(reasonOf({file}), HasSubstr("empty.geojson: no layer with points"));
}

TEST_F(PlaneBadInput, TableWithoutRowsIsRefused) {
  EXPECT_THAT(reasonOf({table("")}), HasSubstr("points.csv: no points in layer 'points'"));
}

TEST_F(PlaneBadInput, UnknownGroupFieldIsToldWithTheKnownOnes) {
  EXPECT_THAT(reasonOf({good(), "--group", "site"}),
              HasSubstr("points.csv: no field 'site' for --group; it has x, y, z, bed"));
}

TEST_F(PlaneBadInput, UnknownFieldForElevationsIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--z", "elev"}), HasSubstr("no field 'elev' for --z"));
}

TEST_F(PlaneBadInput, RowWithoutAGroupIsNamed) {
  EXPECT_THAT(reasonOf({table("0,0,0,a\n1,0,0,\n"), "--group", "bed"}),
              HasSubstr("points.csv: row 2: no value in field 'bed'"));
}

TEST_F(PlaneBadInput, SetOfTwoPointsIsNamed) {
  EXPECT_THAT(reasonOf({table("0,0,0,a\n1,0,0,a\n"), "--group", "bed"}),
              HasSubstr("points.csv: set 'a': a plane needs 3 points: 2 points"));
}

TEST_F(PlaneBadInput, LineOfTwoVerticesIsNamed) {
  EXPECT_THAT(reasonOf({features("LineString", {"[[0,0,0],[5,5,5]]"})}),
              HasSubstr("in.geojson: feature 0: a plane needs 3 points: 2 points"));
}

TEST_F(PlaneBadInput, PointsOnASlopingLineHaveNoPlaneByAnyMethod) {
  for (const char* const method : {"ls", "orthogonal", "linear"}) {
    EXPECT_THAT(reasonOf({table("0,0,0,a\n1,2,3,a\n2,4,6,a\n5,10,15,a\n"), "--method", method}),
                HasSubstr("the set of all points: its points are on one line"));
  }
}

TEST_F(PlaneBadInput, PointsOnALongLineHaveNoPlane) {
  EXPECT_THAT(reasonOf({table("0,0,0,a\n50000,0,0.01,a\n100000,0,0,a\n")}),
              HasSubstr("its points are on one line: no plane"));
}

TEST_F(PlaneBadInput, PointsAtOnePlaceHaveNoPlane) {
  EXPECT_THAT(reasonOf({table("4,5,6,a\n4,5,6,a\n4,5,6.0005,a\n")}),
              HasSubstr("its points are at one place within 0.001 m: no plane"));
}

TEST_F(PlaneBadInput, CoordinateOutOfAnyModelIsRefused) {
  EXPECT_THAT(reasonOf({table("0,0,0,a\n1e200,0,0,a\n0,1,0,a\n")}),
              HasSubstr("a coordinate beyond"));
}

TEST_F(PlaneBadInput, NanElevationNamesItsRow) {
  EXPECT_THAT(reasonOf({table("0,0,0,a\n1,0,nan,a\n0,1,0,a\n")}),
              HasSubstr("points.csv: row 2: z is not finite"));
}

TEST_F(PlaneBadInput, BlankElevationNamesItsRow) {
  EXPECT_THAT(reasonOf({table("0,0,0,a\n1,0,,a\n0,1,0,a\n")}),
              HasSubstr("points.csv: row 2: z '' is not a number"));
}

TEST_F(PlaneBadInput, InfiniteElevationOfAVertexNamesItsFeature) {
  EXPECT_THAT(reasonOf({features("MultiPoint", {"[[0,0,0],[1,0,1e999],[0,1,0]]"})}),
              HasSubstr("in.geojson: feature 0: "));
}

TEST_F(PlaneBadInput, TableWithoutElevationsIsRefused) {
  EXPECT_THAT(reasonOf({inputs.file("flat.csv", "x,y\n0,0\n1,0\n0,1\n")}),
              HasSubstr("flat.csv: no column z: --z names the one with elevations"));
}

TEST_F(PlaneBadInput, LineWithoutElevationsIsNamed) {
  EXPECT_THAT(reasonOf({features("LineString", {"[[0,0],[5,5],[5,0]]"})}),
              HasSubstr("in.geojson: feature 0: without z: a plane needs elevations"));
}

TEST_F(PlaneBadInput, OneElevationForALineIsRefused) {
  const std::string file = inputs.file("in.csv", "WKT,elev\n\"LINESTRING (0 0,5 5,5 0)\",7\n");
  EXPECT_THAT(reasonOf({file, "--z", "elev"}),
              HasSubstr("feature 1: --z is for single points, not for a LINESTRING"));
}

TEST_F(PlaneBadInput, UnknownMethodIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--method", "ransac"}),
              HasSubstr("--method: 'ransac' is none of ls, orthogonal and linear"));
}

TEST_F(PlaneBadInput, UnknownLayerAndFeatureAreRefused) {
  EXPECT_THAT(reasonOf({good(), "--layer", "sites"}), HasSubstr("no layer 'sites'"));
  EXPECT_THAT(reasonOf({good(), "--where", "77"}), HasSubstr("points.csv: no feature 77"));
}

TEST_F(PlaneBadInput, MetresThatClaimToBeDegreesAreTold) {
  const std::string file =
      inputs.file("m.csv", "lon,lat,z\n500000,4000000,1\n500010,4000000,1\n500000,4000010,2\n");
  EXPECT_THAT(reasonOf({file}),
              HasSubstr("m.csv: row 1: (500000 4000000) is no longitude and latitude"));
}

TEST_F(PlaneBadInput, UnknownEndingsAreRefused) {
  EXPECT_THAT(reasonOf({good()}, "out.shp"),
              HasSubstr("out.shp: unknown ending for the output: .geojson, .json, .gpkg or .csv"));
  EXPECT_THAT(reasonOf({good(), "--picture", outputs.path("net.pdf")}),
              HasSubstr("net.pdf: unknown ending for the picture"));
}

TEST_F(PlaneBadInput, PictureInAMissingFolderLeavesNoOutput) {
  EXPECT_THAT(reasonOf({good(), "--picture", outputs.path("missing/net.svg")}),
              HasSubstr("missing/net.svg: cannot be written: No such file or directory"));
}

TEST_F(PlaneBadInput, SkippingEverySetIsRefused) {
  EXPECT_THAT(reasonOf({table("0,0,0,a\n1,0,0,b\n"), "--group", "bed", "--skip-bad"}),
              HasSubstr("points.csv: no set with a plane, 2 left out"));
  EXPECT_THAT(reasonOf({table("0,0,x,a\n1,0,y,b\n"), "--skip-bad"}),
              HasSubstr("points.csv: no usable point, 2 left out"));
}

TEST(PlaneOutputSafety, InputIsNotOverwritten) {
  const TestFolder folder;
  const std::string input = folder.file("points.csv", "x,y,z\n0,0,0\n1,0,0\n0,1,0\n");
  const std::string before = readFile(input);
  const CommandResult result = runZrbase({"plane", input, "-o", input});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.err, HasSubstr("is an input too"));
  EXPECT_EQ(readFile(input), before);
}

TEST(PlaneOutputSafety, EarlierOutputSurvivesAFailure) {
  const TestFolder folder;
  const std::string input = folder.file("bad.csv", "x,y,z\n0,0,0\n1,0,0\n");
  const std::string output = folder.file("out.csv", "kept");
  EXPECT_EQ(runZrbase({"plane", input, "-o", output}).status, 2);
  EXPECT_EQ(readFile(output), "kept");
}

}  // namespace
