#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/clusterTables.h"
#include "apps/commandRunner.h"

// Whatever is wrong with the input: one line that names the file, the row and the reason, status 2,
// no output.

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

const char* const kGood = "name,x,y,por\na,0,0,0.1\nb,10,0,0.2\nc,20,5,0.3\n";

class ClusterBadInput : public ::testing::Test {
 protected:
  std::string reasonOf(std::vector<std::string> arguments, const std::string& output = "out.csv") {
    arguments.insert(arguments.begin(), "cluster");
    arguments.insert(arguments.end(), {"-o", outputs.path(output)});
    return refusalOf(arguments, outputs);
  }

  std::string good() { return inputs.file("good.csv", kGood); }
  std::string table(const std::string& text) { return inputs.file("rows.csv", text); }

  TestFolder inputs;
  TestFolder outputs;
};

TEST_F(ClusterBadInput, MissingFileIsNamed) {
  EXPECT_THAT(reasonOf({inputs.path("nothing.csv"), "-k", "2"}), HasSubstr("nothing.csv"));
}

TEST_F(ClusterBadInput, MoreClustersThanDistinctPointsAreRefused) {
  EXPECT_THAT(reasonOf({good(), "-k", "4"}),
              HasSubstr("good.csv: -k 4 is more than its 3 distinct points"));
  for (const char* const strategy : {"lloyd", "swap", "hybrid", "ez-hybrid"}) {
    EXPECT_THAT(reasonOf({table("x,y\n1,2\n1,2\n3,4\n1,2\n"), "-k", "3", "--strategy", strategy}),
                HasSubstr("rows.csv: -k 3 is more than its 2 distinct points"));
  }
}

TEST_F(ClusterBadInput, ZerosOfBothSignsAreOnePoint) {
  EXPECT_THAT(reasonOf({table("x,y\n0,0\n-0.0,0\n0,-0.0\n"), "-k", "2"}),
              HasSubstr("-k 2 is more than its 1 distinct point"));
}

TEST_F(ClusterBadInput, PointsThatDifferElsewhereAreNotDistinct) {
  EXPECT_THAT(reasonOf({table("x,y,v\n0,0,1\n0,1,1\n0,2,1\n"), "-k", "2", "--columns", "v"}),
              HasSubstr("-k 2 is more than its 1 distinct point"));
}

TEST_F(ClusterBadInput, MoreClustersThanCanBeDrawnAreRefused) {
  std::string text = "x,y\n";
  for (int i = 0; i < 33000; ++i) {
    text += std::to_string(i) + ",0\n";
  }
  EXPECT_THAT(reasonOf({table(text), "-k", "32900"}),
              HasSubstr("-k 32900: the search draws at most 32768 centers from 33000 points"));
}

TEST_F(ClusterBadInput, NumberOfClustersHasToBeOne) {
  for (const char* const k : {"0", "-3", "2.5", "many", "99999999999999999999"}) {
    EXPECT_THAT(reasonOf({good(), "-k", k}),
                HasSubstr("-k: '" + std::string(k) + "' is not a whole number above 0"));
  }
  EXPECT_THAT(reasonOf({good()}), HasSubstr("-k is required"));
}

TEST_F(ClusterBadInput, HugeNumberOfClustersIsRefusedAtOnce) {
  EXPECT_THAT(reasonOf({good(), "-k", "4000000000000"}), HasSubstr("3 distinct points"));
}

TEST_F(ClusterBadInput, TextInAColumnNamesItsRow) {
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--columns", "por,name"}),
              HasSubstr("good.csv: row 1: name 'a' is not a number"));
}

TEST_F(ClusterBadInput, MissingValueNamesItsRow) {
  EXPECT_THAT(reasonOf({table("x,y,v\n0,0,1\n0,1,\n"), "-k", "2", "--columns", "v"}),
              HasSubstr("rows.csv: row 2: v is empty"));
  EXPECT_THAT(reasonOf({table("x,y,v\n0,0,1\n,1,4\n"), "-k", "2"}),
              HasSubstr("rows.csv: row 2: x is empty"));
}

TEST_F(ClusterBadInput, ValueThatIsNotFiniteNamesItsRow) {
  EXPECT_THAT(reasonOf({table("x,v\n0,1\n0,nan\n"), "-k", "2", "--columns", "v"}),
              HasSubstr("rows.csv: row 2: v is not finite"));
  EXPECT_THAT(reasonOf({table("x,v\n0,1\n0,-inf\n"), "-k", "2", "--columns", "v"}),
              HasSubstr("rows.csv: row 2: v is not finite"));
}

TEST_F(ClusterBadInput, ValueWhoseSquareIsNoNumberNamesItsRow) {
  EXPECT_THAT(reasonOf({table("x,v\n0,1\n0,1e200\n"), "-k", "2", "--columns", "v"}),
              HasSubstr("rows.csv: row 2: v 1e+200 is out of reach"));
}

TEST_F(ClusterBadInput, NullOfAFeatureIsNamed) {
  const std::string file = inputs.file(
      "null.geojson",
      R"({"type":"FeatureCollection","features":[)"
      R"({"type":"Feature","properties":{"v":1.5},"geometry":{"type":"Point","coordinates":[1,2]}},)"
      R"({"type":"Feature","properties":{"v":null},"geometry":null}]})");
  EXPECT_THAT(reasonOf({file, "-k", "2", "--columns", "v"}),
              HasSubstr("null.geojson: feature 1: v is empty"));
  EXPECT_THAT(reasonOf({file, "-k", "2"}),
              HasSubstr("null.geojson: feature 1: without a geometry"));
}

TEST_F(ClusterBadInput, ColumnOfDatesIsRefused) {
  const std::string file =
      inputs.file("dates.geojson", R"({"type":"Feature","properties":{"day":"2020-01-01"},)"
                                   R"("geometry":{"type":"Point","coordinates":[1,2]}})");
  EXPECT_THAT(reasonOf({file, "-k", "1", "--columns", "day"}),
              HasSubstr("dates.geojson: column 'day' has no numbers but the type Date"));
}

TEST_F(ClusterBadInput, UnknownColumnIsToldWithTheKnownOnes) {
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--columns", "x,perm"}),
              HasSubstr("good.csv: no column 'perm'; it has name, x, y, por"));
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--columns", "x,z"}), HasSubstr("no column 'z'"));
}

TEST_F(ClusterBadInput, TableWithoutCoordinatesAsksForColumns) {
  EXPECT_THAT(reasonOf({table("GR,RHOB\n1,2\n3,4\n"), "-k", "2"}),
              AllOf(HasSubstr("no table with columns x and y"), HasSubstr("GR, RHOB"),
                    HasSubstr("--columns")));
}

TEST_F(ClusterBadInput, ColumnsNamedTwiceOrNotAtAllAreRefused) {
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--columns", "x,x"}), HasSubstr("'x' is named twice"));
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--columns", "x,,y"}), HasSubstr("has an empty name"));
}

TEST_F(ClusterBadInput, FileWithoutPointsIsRefused) {
  const std::string lines = inputs.file("lines.geojson", metricLines({"[0,0],[1,1]"}));
  EXPECT_THAT(reasonOf({lines, "-k", "1"}), HasSubstr("lines.geojson: no layer with points"));
  EXPECT_THAT(reasonOf({lines, "-k", "1", "--layer", "lines"}), HasSubstr("no usable point"));
}

TEST_F(ClusterBadInput, EmptyTableIsRefused) {
  EXPECT_THAT(reasonOf({table("x,y\n"), "-k", "1"}), HasSubstr("rows.csv: no usable point"));
}

TEST_F(ClusterBadInput, SkippingEveryRowIsRefused) {
  EXPECT_THAT(reasonOf({good(), "-k", "1", "--columns", "name", "--skip-bad"}),
              HasSubstr("good.csv: no usable point, 3 left out"));
}

TEST_F(ClusterBadInput, MetresThatClaimToBeDegreesAreTold) {
  EXPECT_THAT(reasonOf({table("lon,lat\n15,40\n500000,4000000\n"), "-k", "1"}),
              HasSubstr("rows.csv: row 2: (500000 4000000) is no longitude and latitude"));
}

TEST_F(ClusterBadInput, SystemWithoutCoordinatesIsRefused) {
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--columns", "por", "--crs", "EPSG:32633"}),
              HasSubstr("--crs: no coordinates are clustered by"));
}

TEST_F(ClusterBadInput, UnknownWordsAreRefused) {
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--strategy", "best"}),
              HasSubstr("--strategy: 'best' is not lloyd, swap, hybrid or ez-hybrid"));
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--scale", "log"}),
              HasSubstr("--scale: 'log' is not none, std or range"));
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--trace", "4"}),
              HasSubstr("--trace: '4' is not stages, swaps or centers"));
}

TEST_F(ClusterBadInput, SearchWithoutEndIsRefused) {
  for (const char* const stages : {"0", "-1", "all"}) {
    EXPECT_THAT(reasonOf({good(), "-k", "2", "--stages", stages}), HasSubstr("--stages: '"));
  }
}

TEST_F(ClusterBadInput, AxesHaveToBeTwoOfTheColumns) {
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--axes", "x,por"}),
              HasSubstr("--axes: 'por' is none of the columns x, y"));
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--axes", "x"}), HasSubstr("is not two columns"));
  EXPECT_THAT(reasonOf({good(), "-k", "2", "--axes", "x,x"}), HasSubstr("is not two columns"));
}

TEST_F(ClusterBadInput, UnknownFeatureAndLayerAreRefused) {
  EXPECT_THAT(reasonOf({good(), "-k", "1", "--where", "7"}), HasSubstr("good.csv: no feature 7"));
  EXPECT_THAT(reasonOf({good(), "-k", "1", "--layer", "wells"}), HasSubstr("no layer 'wells'"));
}

TEST_F(ClusterBadInput, UnknownEndingsAreRefused) {
  EXPECT_THAT(reasonOf({good(), "-k", "1"}, "out.dxf"),
              HasSubstr("out.dxf: unknown ending for the output"));
  EXPECT_THAT(reasonOf({good(), "-k", "1", "--picture", outputs.path("p.bmp")}),
              HasSubstr("p.bmp: unknown ending for the picture"));
  EXPECT_THAT(reasonOf({good(), "-k", "1", "--centers", outputs.path("c.gpkg")}),
              HasSubstr("c.gpkg: unknown ending for the centers"));
}

TEST_F(ClusterBadInput, OneFileForPointsAndCentersIsRefused) {
  EXPECT_THAT(reasonOf({good(), "-k", "1", "--centers", outputs.path("out.csv")}),
              HasSubstr("is the output too"));
}

TEST_F(ClusterBadInput, MissingFoldersLeaveNothing) {
  EXPECT_THAT(reasonOf({good(), "-k", "1"}, "missing/out.csv"),
              HasSubstr("cannot be written: No such file or directory"));
  EXPECT_THAT(reasonOf({good(), "-k", "1", "--picture", outputs.path("missing/p.svg")}),
              HasSubstr("p.svg: cannot be written"));
  EXPECT_THAT(reasonOf({good(), "-k", "1", "--centers", outputs.path("missing/c.csv")}),
              HasSubstr("c.csv: cannot be written"));
}

TEST(ClusterOutputSafety, InputIsNotOverwrittenByAnyOutput) {
  const TestFolder folder;
  const std::string input = folder.file("a_centers.csv", kGood);
  for (const std::vector<std::string>& outputs :
       std::vector<std::vector<std::string>>{{"-o", input},
                                             {"-o", folder.path("a.csv")},
                                             {"-o", folder.path("a.gpkg"), "--centers", input}}) {
    std::vector<std::string> arguments = {"cluster", input, "-k", "1"};
    arguments.insert(arguments.end(), outputs.begin(), outputs.end());
    const CommandResult result = runZrbase(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("is an input too"));
  }
  EXPECT_EQ(readFile(input), kGood);
  EXPECT_THAT(folder.names(), ::testing::ElementsAre("a_centers.csv"));
}

}  // namespace
