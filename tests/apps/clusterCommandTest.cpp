#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "apps/clusterTables.h"
#include "apps/commandRunner.h"

namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::UnorderedElementsAre;

const char* const kDegrees =
    "name,lon,lat,mag\na,15,40,3\nb,15.01,40,4\nc,15.5,40.2,3.5\nd,15.51,40.2,5\n";

class ClusterCommand : public ClusterRun {};

class ClusterStrategies : public ClusterCommand,
                          public ::testing::WithParamInterface<const char*> {};

TEST_P(ClusterStrategies, FindTheGroups) {
  cluster(kTriangles, {"-k", "3", "--strategy", GetParam()});
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(groups("name"), ElementsAre("aaa", "bbb", "ccc"));
  EXPECT_THAT(result.out, HasSubstr(std::string("strategy  ") + GetParam() + ", 50"));
}

TEST_P(ClusterStrategies, AsManyClustersAsDistinctPointsHaveNoDistortion) {
  cluster("x,y\n1,1\n5,5\n1,1\n9,2\n5,5\n", {"-k", "3", "--strategy", GetParam()});
  double total = 0.0;
  for (const auto& center : centers()) {
    total += numberIn(center, "distortion");
  }
  EXPECT_EQ(total, 0.0);
  EXPECT_EQ(points().size(), 5U);
}

TEST_P(ClusterStrategies, EndWhereDistancesVanishInRounding) {
  cluster("x,y\n1e-300,0\n0,0\n5e-310,1e-320\n3e-301,1e-5\n",
          {"-k", "4", "--strategy", GetParam()});
  EXPECT_EQ(centers().size(), 4U);
  EXPECT_THAT(result.out, Not(HasSubstr("nan")));
}

INSTANTIATE_TEST_SUITE_P(All, ClusterStrategies,
                         ::testing::Values("lloyd", "swap", "hybrid", "ez-hybrid"));

TEST_F(ClusterCommand, CentersAreTheMeansWithWeightAndDistortion) {
  cluster(kTriangles, {"-k", "3"});
  TextTable table = centers();
  ASSERT_EQ(table.size(), 3U);
  std::set<std::string> places;
  for (const auto& center : table) {
    places.insert(center.at("x") + " " + center.at("y"));
    EXPECT_EQ(center.at("weight"), "3");
    EXPECT_NEAR(numberIn(center, "distortion"), 8.0, 1e-9);
    EXPECT_NEAR(numberIn(center, "average"), 8.0 / 3.0, 1e-9);
    EXPECT_NEAR(numberIn(center, "rms"), std::sqrt(8.0 / 3.0), 1e-9);
  }
  EXPECT_THAT(places, UnorderedElementsAre("1 1", "101 1", "1 101"));
}

TEST_F(ClusterCommand, EveryPointHasItsNearestCenter) {
  cluster(scatteredPoints(3000, 7), {"-k", "9"});
  const TextTable made = centers();
  std::vector<double> distortions(made.size());
  std::vector<int> weights(made.size());
  for (const auto& row : points()) {
    std::vector<double> squares;
    for (const auto& center : made) {
      const double dx = numberIn(row, "x") - numberIn(center, "x");
      const double dy = numberIn(row, "y") - numberIn(center, "y");
      squares.push_back(dx * dx + dy * dy);
    }
    const auto own = static_cast<std::size_t>(numberIn(row, "cluster"));
    EXPECT_LE(squares.at(own), *std::min_element(squares.begin(), squares.end()) + 1e-6);
    EXPECT_NEAR(numberIn(row, "cluster_distance"), std::sqrt(squares[own]), 1e-6);
    distortions[own] += squares[own];
    ++weights[own];
  }
  for (std::size_t k = 0; k < made.size(); ++k) {
    EXPECT_NEAR(numberIn(made[k], "distortion"), distortions[k], 1e-3);
    EXPECT_EQ(numberIn(made[k], "weight"), weights[k]);
  }
}

TEST_F(ClusterCommand, OneClusterIsTheMeanOfAll) {
  cluster("x,y\n0,0\n4,0\n8,12\n", {"-k", "1"});
  EXPECT_EQ(centers().at(0).at("x"), "4");
  EXPECT_EQ(centers().at(0).at("y"), "4");
  EXPECT_EQ(centers().at(0).at("distortion"), "128");  // 32 + 16 + 80
}

TEST_F(ClusterCommand, FarFromTheOriginNothingIsLost) {
  cluster("x,y\n4000000.25,8000000\n4000000.75,8000000\n4000009.25,8000000\n4000009.75,8000000\n",
          {"-k", "2"});
  EXPECT_EQ(centers().at(0).at("distortion"), "0.125");
  EXPECT_EQ(centers().at(1).at("distortion"), "0.125");
}

TEST_F(ClusterCommand, ElevationCountsWhereThereIsOne) {
  const char* const table = "n,x,y,z\na,0,0,0\na,1,0,0\nb,0,0,500\nb,1,0,500\n";
  cluster(table, {"-k", "2"});
  EXPECT_THAT(groups("n"), ElementsAre("aa", "bb"));
  cluster(table, {"-k", "2", "--columns", "x,y"});
  EXPECT_THAT(groups("n"), ElementsAre("ab", "ab"));
}

// Columns and scales

TEST_F(ClusterCommand, AttributesAreClusteredByName) {
  cluster("x,y,por\n0,0,0.1\n100,0,0.3\n0,0,0.32\n100,0,0.12\n", {"-k", "2", "--columns", "por"});
  EXPECT_THAT(groups("por"), ElementsAre("0.10.12", "0.30.32"));
}

TEST_F(ClusterCommand, ColumnsMayBeNamedOneByOne) {
  cluster("a,b\n0,5\n1,5\n9,5\n10,5\n", {"-k", "2", "--columns", "a", "--columns", "b"});
  EXPECT_THAT(groups("a"), ElementsAre("01", "910"));
}

// u is 0 or 10, v is 0 to 1000: without a scale v alone counts.
TEST_F(ClusterCommand, ScaleMakesColumnsCountAlike) {
  const char* const table = "n,u,v\na,0,0\na,0,400\na,0,1000\nb,10,100\nb,10,500\nb,10,900\n";
  cluster(table, {"-k", "2", "--columns", "u,v"});
  EXPECT_THAT(groups("v"), ElementsAre("0400100500", "1000900"));
  cluster(table, {"-k", "2", "--columns", "u,v", "--scale", "range"});
  EXPECT_THAT(groups("n"), ElementsAre("aaa", "bbb"));
  cluster(table, {"-k", "2", "--columns", "u,v", "--scale", "std"});
  EXPECT_THAT(groups("n"), ElementsAre("aaa", "bbb"));
}

TEST_F(ClusterCommand, RangeDividesDistancesAndNotCenters) {
  cluster("n,q\na,0\na,1\nb,9\nb,10\n", {"-k", "2", "--columns", "q", "--scale", "range"});
  for (const auto& row : points()) {
    EXPECT_NEAR(numberIn(row, "cluster_distance"), 0.05, 1e-12);
  }
  const double sum = numberIn(centers().at(0), "q") + numberIn(centers().at(1), "q");
  EXPECT_NEAR(sum, 10.0, 1e-12);  // 0.5 and 9.5
  EXPECT_NEAR(numberIn(centers().at(0), "distortion"), 0.005, 1e-12);
}

TEST_F(ClusterCommand, StandardDeviationDividesDistances) {
  cluster("n,q\na,0\na,1\nb,9\nb,10\n", {"-k", "2", "--columns", "q", "--scale", "std"});
  for (const auto& row : points()) {
    EXPECT_NEAR(numberIn(row, "cluster_distance"), 0.5 / std::sqrt(20.5), 1e-12);
  }
}

TEST_F(ClusterCommand, ConstantColumnIsToldAndHarmless) {
  for (const char* const scale : {"none", "std", "range"}) {
    cluster("q,r\n0,7.3\n1,7.3\n9,7.3\n10,7.3\n",
            {"-k", "2", "--columns", "q,r", "--scale", scale});
    EXPECT_THAT(groups("q"), ElementsAre("01", "910"));
    EXPECT_EQ(centers().at(0).at("r"), "7.3");
    EXPECT_THAT(result.out, HasSubstr("all values of r are the same"));
  }
}

// Places

TEST_F(ClusterCommand, DegreesAreProjectedWhereTheyAreClustered) {
  cluster(kDegrees, {"-k", "2"}, "out.geojson");
  const auto layers = readLayers(folder.path("out.geojson"));
  EXPECT_EQ(layers.at("points").crs, "EPSG:32633");
  EXPECT_EQ(layers.at("centers").crs, "EPSG:32633");
  EXPECT_NEAR(layers.at("points").features.at(0).vertices.at(0).at(0), 500000.0, 1e-6);
  EXPECT_THAT(result.out, HasSubstr("projected from EPSG:4326"));
}

TEST_F(ClusterCommand, DegreesStayWhereAttributesAreClustered) {
  cluster(kDegrees, {"-k", "2", "--columns", "mag"}, "out.geojson");
  const auto layers = readLayers(folder.path("out.geojson"));
  EXPECT_EQ(layers.at("points").crs, "EPSG:4326");
  EXPECT_EQ(layers.at("points").features.at(3).vertices.at(0).at(0), 15.51);
  for (const ReadFeature& center : layers.at("centers").features) {
    EXPECT_THAT(center.vertices, IsEmpty());
  }
}

TEST_F(ClusterCommand, SystemMayBeChosen) {
  cluster(kDegrees, {"-k", "2", "--crs", "EPSG:3035"}, "out.gpkg");
  EXPECT_EQ(readLayers(folder.path("out.gpkg")).at("points").crs, "EPSG:3035");
}

TEST_F(ClusterCommand, CentersHavePlacesBesideTheirCoordinates) {
  cluster(kTriangles, {"-k", "3"}, "out.gpkg");
  const auto layers = readLayers(folder.path("out.gpkg"));
  for (const ReadFeature& center : layers.at("centers").features) {
    EXPECT_EQ(center.vertices.at(0).at(0), center.number("x"));
    EXPECT_EQ(center.vertices.at(0).at(1), center.number("y"));
    EXPECT_EQ(center.number("weight"), 3.0);
  }
}

TEST_F(ClusterCommand, EachPointOfAMultiPointCounts) {
  const std::string file =
      folder.file("multi.geojson",
                  R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":)"
                  R"("urn:ogc:def:crs:EPSG::32633"}},"features":[)"
                  R"({"type":"Feature","properties":{"name":"m"},"geometry":{"type":"MultiPoint",)"
                  R"("coordinates":[[0,0],[1000,0]]}},)"
                  R"({"type":"Feature","properties":{"name":"p"},"geometry":{"type":"Point",)"
                  R"("coordinates":[1002,0]}},)"
                  R"({"type":"Feature","properties":{"name":"l"},"geometry":{"type":"LineString",)"
                  R"("coordinates":[[0,0],[5,5]]}}]})");
  run(file, {"-k", "2"});
  EXPECT_THAT(groups("name"), ElementsAre("m", "mp"));
  EXPECT_EQ(points().at(1).at("x"), "1000");
  EXPECT_THAT(result.out, HasSubstr("ignored   1 feature that is no point"));
}

TEST_F(ClusterCommand, LinesAreClusteredByTheirAttributes) {
  const std::string file =
      folder.file("lines.geojson",
                  R"({"type":"FeatureCollection","features":[)"
                  R"({"type":"Feature","properties":{"slip":1.5},"geometry":{"type":"LineString",)"
                  R"("coordinates":[[0,0],[1,1]]}},)"
                  R"({"type":"Feature","properties":{"slip":8},"geometry":{"type":"LineString",)"
                  R"("coordinates":[[0,0],[1,2]]}}]})");
  run(file, {"-k", "2", "--columns", "slip"}, "out.gpkg");
  const auto layers = readLayers(folder.path("out.gpkg"));
  ASSERT_EQ(layers.at("points").features.size(), 2U);
  EXPECT_THAT(layers.at("points").features[0].vertices, IsEmpty());
  EXPECT_EQ(layers.at("points").features[1].number("slip"), 8.0);
}

// The search

TEST_F(ClusterCommand, StagesEndTheSearch) {
  cluster(scatteredPoints(300, 3), {"-k", "3", "--strategy", "lloyd", "--stages", "7"});
  EXPECT_THAT(result.out, HasSubstr("strategy  lloyd, 7 stages\n"));
}

TEST_F(ClusterCommand, TraceTellsEachStageBesideTheSummary) {
  cluster(scatteredPoints(300, 3),
          {"-k", "3", "--strategy", "lloyd", "--stages", "7", "--trace", "stages"});
  for (const char* const stage : {"<stage: 0 curr: ", "<stage: 7 curr: "}) {
    EXPECT_THAT(result.err, HasSubstr(stage));
  }
  EXPECT_THAT(result.err, Not(HasSubstr("<stage: 8")));
  EXPECT_THAT(result.out, Not(HasSubstr("<stage")));
}

TEST_F(ClusterCommand, TraceTellsSwapsAndCentersAtHigherLevels) {
  const std::vector<std::string> search = {"-k", "3", "--strategy", "swap", "--stages", "4"};
  const auto traced = [&](const std::string& level) {
    std::vector<std::string> options = search;
    options.insert(options.end(), {"--trace", level});
    cluster(scatteredPoints(300, 3), options);
    return result.err;
  };
  EXPECT_THAT(traced("stages"), Not(HasSubstr("swapping")));
  EXPECT_THAT(traced("swaps"), AllOf(HasSubstr("swapping: "), Not(HasSubstr("dist ="))));
  EXPECT_THAT(traced("centers"), HasSubstr("dist ="));
  EXPECT_EQ(traced("7"), traced("centers"));
}

TEST_F(ClusterCommand, TraceChangesNoResult) {
  cluster(scatteredPoints(500, 5), {"-k", "5"});
  const std::string silent = readFile(folder.path("out.csv"));
  cluster(scatteredPoints(500, 5), {"-k", "5", "--trace", "centers"});
  EXPECT_EQ(readFile(folder.path("out.csv")), silent);
}

TEST_F(ClusterCommand, ResultIsTheSameFromRunToRun) {
  for (const char* const output : {"out.csv", "out.geojson", "out.gpkg"}) {
    cluster(scatteredPoints(500, 5), {"-k", "5"}, output);
    const std::string first = readFile(folder.path(output));
    cluster(scatteredPoints(500, 5), {"-k", "5"}, output);
    EXPECT_EQ(readFile(folder.path(output)), first) << output;
  }
}

TEST_F(ClusterCommand, DecimalCommaOfTheUserChangesNothing) {
  const std::string file = folder.file("points.csv", scatteredPoints(300, 3));
  run(file, {"-k", "3", "--columns", "v,x", "--trace", "stages"});
  const std::string plain = readFile(folder.path("out.csv")) + result.err;
  const CommandResult german = runZrbase({"cluster", file, "-k", "3", "--columns", "v,x", "--trace",
                                          "stages", "-o", folder.path("out.csv")},
                                         "LC_ALL=de_DE.UTF-8");
  EXPECT_EQ(german.status, 0);
  EXPECT_EQ(readFile(folder.path("out.csv")) + german.err, plain);
}

TEST_F(ClusterCommand, HelpNamesStrategiesAndExamples) {
  const CommandResult help = runZrbase({"cluster", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.out, AllOf(HasSubstr("ez-hybrid"), HasSubstr("Examples:"), HasSubstr("--trace"),
                              HasSubstr("32768")));
}

}  // namespace
