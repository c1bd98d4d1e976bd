#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "apps/clusterTables.h"
#include "apps/commandRunner.h"

// What stands in the files and in the summary beside the clusters themselves.

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

class ClusterOutput : public ClusterRun {};

TEST_F(ClusterOutput, RowsKeepTheirOrderAndColumns) {
  cluster(kTriangles, {"-k", "3"});
  const TextTable table = points();
  ASSERT_EQ(table.size(), 9U);
  EXPECT_EQ(readFile(folder.path("out.csv")).rfind("fid,x,y,name,cluster,cluster_distance\n", 0),
            0U);
  EXPECT_EQ(table[4].at("fid"), "5");
  EXPECT_EQ(table[4].at("x"), "102");
  EXPECT_EQ(table[4].at("name"), "b");
  EXPECT_NEAR(numberIn(table[4], "cluster_distance"), std::sqrt(2.0), 1e-9);
}

TEST_F(ClusterOutput, AttributesArePassedOn) {
  const std::string file = folder.file(
      "typed.geojson",
      R"({"type":"FeatureCollection","features":[)"
      R"({"type":"Feature","properties":{"name":"a, \"b\"","n":7,"day":"2020-02-01","v":0.1},)"
      R"("geometry":{"type":"Point","coordinates":[15,40]}},)"
      R"({"type":"Feature","properties":{"name":null,"n":8,"day":"2021-02-01","v":0.7},)"
      R"("geometry":{"type":"Point","coordinates":[15.1,40]}}]})");
  run(file, {"-k", "2"}, "out.gpkg");
  const auto points = readLayers(folder.path("out.gpkg")).at("points").features;
  EXPECT_EQ(points.at(0).fields.at("name"), "a, \"b\"");
  EXPECT_EQ(points.at(0).fields.at("n"), "7");
  EXPECT_EQ(points.at(0).fields.at("day"), "2020/02/01");
  EXPECT_EQ(points.at(0).number("v"), 0.1);
  EXPECT_EQ(points.at(1).fields.count("name"), 0U);
  run(file, {"-k", "2"});
  EXPECT_THAT(readFile(folder.path("out.csv")), HasSubstr(",\"a, \"\"b\"\"\",7,2020/02/01,0.1,"));
}

TEST_F(ClusterOutput, ResultsTakeThePlaceOfEarlierOnes) {
  cluster(kTriangles, {"-k", "3"});
  run(folder.path("out.csv"), {"-k", "1"}, "again.csv");
  EXPECT_THAT(result.out, AllOf(HasSubstr("replaced  column cluster of the input"),
                                HasSubstr("replaced  column cluster_distance of the input")));
  EXPECT_EQ(readFile(folder.path("again.csv")).rfind("x,y,fid,name,cluster,cluster_distance\n", 0),
            0U);
}

TEST_F(ClusterOutput, NamesOfTheInputDoNotMeetThoseOfTheLayers) {
  cluster("layer,weight,x,y\nred,heavy,0,0\nblue,light,9,9\n", {"-k", "2"}, "out.geojson");
  const auto layers = readLayers(folder.path("out.geojson"));
  EXPECT_EQ(layers.at("points").features.at(0).fields.at("layer_2"), "red");
  EXPECT_EQ(layers.at("points").features.at(0).fields.at("weight_2"), "heavy");
  EXPECT_EQ(layers.at("centers").features.at(0).number("weight"), 1.0);
}

TEST_F(ClusterOutput, ColumnCalledLikeAResultIsStillClustered) {
  cluster("weight,rms\n1,5\n2,5\n", {"-k", "2", "--columns", "weight,rms"});
  EXPECT_EQ(numberIn(centers().at(0), "center_weight") + numberIn(centers().at(1), "center_weight"),
            3.0);
  EXPECT_EQ(centers().at(0).at("weight"), "1");
}

TEST_F(ClusterOutput, CentersMayHaveAFileOfTheirOwn) {
  cluster(kTriangles, {"-k", "3", "--centers", folder.path("c.csv")}, "out.gpkg");
  EXPECT_EQ(readTextTable(folder.path("c.csv")).size(), 3U);
  EXPECT_THAT(folder.names(), UnorderedElementsAre("points.csv", "out.gpkg", "c.csv"));
}

TEST_F(ClusterOutput, SelectionAndBadRowsAreLeftOut) {
  const char* const table = "x,y,v\n0,0,1\n1,0,\n50,0,2\n51,0,high\n52,0,3\n";
  cluster(table, {"-k", "2", "--columns", "x,v", "--skip-bad"});
  EXPECT_EQ(points().size(), 3U);
  EXPECT_THAT(result.out,
              AllOf(HasSubstr("left out  2 bad features"), HasSubstr("row 2: v is empty"),
                    HasSubstr("row 4: v 'high' is not a number")));
  cluster(table, {"-k", "2", "--where", "1,3"});
  EXPECT_EQ(points().size(), 2U);
}

TEST_F(ClusterOutput, ManyBadRowsAreToldInFew) {
  std::string table = "x,y\n0,0\n1,1\n";
  for (int i = 0; i < 500; ++i) {
    table += "none,0\n";
  }
  cluster(table, {"-k", "2", "--skip-bad"});
  EXPECT_THAT(result.out,
              AllOf(HasSubstr("left out  500 bad features"), HasSubstr("and 480 more")));
  EXPECT_LT(std::count(result.out.begin(), result.out.end(), '\n'), 50);
}

TEST_F(ClusterOutput, SummaryTellsClustersAndDistortion) {
  cluster(kTriangles, {"-k", "3"});
  EXPECT_THAT(result.out,
              AllOf(HasSubstr("cluster  weight  rms distance"), HasSubstr("points    9\n"),
                    HasSubstr("columns   x, y\n"), HasSubstr("scale     none\n"),
                    HasSubstr("distortion 24.0000, rms distance 1.63299\n"),
                    HasSubstr("out.csv: 9 points\n"), HasSubstr("out_centers.csv: 3 centers\n")));
}

TEST_F(ClusterOutput, CopiedRowsSurviveALargeTable) {
  cluster(scatteredPoints(100000, 4), {"-k", "4"});
  const TextTable table = points();
  ASSERT_EQ(table.size(), 100000U);
  for (std::size_t i = 0; i < table.size(); i += 997) {
    EXPECT_EQ(table[i].at("fid"), std::to_string(i + 1));
    EXPECT_EQ(table[i].at("cluster"), table[i % 4].at("cluster"));
  }
}

}  // namespace
