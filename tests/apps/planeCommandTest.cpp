#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "apps/commandRunner.h"
#include "apps/planePoints.h"

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const char* const kHeader = "x,y,z,bed\n";

double azimuthBetween(double a, double b) {
  const double apart = std::fmod(std::abs(a - b), 360.0);
  return std::min(apart, 360.0 - apart);
}

class PlaneCommand : public ::testing::Test {
 protected:
  std::vector<ReadFeature> planesOf(const std::string& input, std::vector<std::string> options,
                                    const std::string& output = "out.geojson") {
    options.insert(options.begin(), {"plane", input, "-o", folder.path(output)});
    result = runZrbase(options);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    const auto layers = readLayers(folder.path(output));
    EXPECT_EQ(layers.size(), 1U);
    crs = layers.empty() ? "" : layers.begin()->second.crs;
    return layers.empty() ? std::vector<ReadFeature>() : layers.begin()->second.features;
  }

  // The plane of the only set, or an empty feature.
  ReadFeature planeOf(const std::string& input, const std::vector<std::string>& options = {}) {
    const std::vector<ReadFeature> planes = planesOf(input, options);
    EXPECT_EQ(planes.size(), 1U);
    return planes.empty() ? ReadFeature() : planes.front();
  }

  std::string table(const std::string& rows) { return folder.file("points.csv", kHeader + rows); }

  static void expectOrientation(const ReadFeature& plane, double dip, double azimuth,
                                double tolerance = 0.1) {
    EXPECT_NEAR(plane.number("dip"), dip, tolerance);
    EXPECT_LT(azimuthBetween(plane.number("dip_azimuth"), azimuth), tolerance);
    EXPECT_LT(azimuthBetween(plane.number("strike"), azimuth - 90.0), tolerance);
  }

  TestFolder folder;
  PlanePoints points;
  CommandResult result;
  std::string crs;
};

TEST_F(PlaneCommand, KnownOrientationsAreFoundByBothLeastSquaresMethods) {
  const std::vector<std::pair<double, double>> known = {{30, 90},  {5, 0},    {60, 45},  {85, 300},
                                                        {45, 180}, {15, 270}, {72, 225}, {40, 359}};
  std::string rows;
  for (std::size_t i = 0; i < known.size(); ++i) {
    const auto scattered = points.on(known[i].first, known[i].second, 400, 0.05);
    rows += PlanePoints::rows(scattered, "bed " + std::to_string(i));
  }
  for (const char* const method : {"ls", "orthogonal"}) {
    const auto planes = planesOf(table(rows), {"--group", "bed", "--method", method});
    ASSERT_EQ(planes.size(), known.size());
    for (std::size_t i = 0; i < known.size(); ++i) {
      EXPECT_EQ(planes[i].fields.at("set"), "bed " + std::to_string(i));
      EXPECT_EQ(planes[i].number("points"), 400);
      EXPECT_EQ(planes[i].fields.at("method"), method);
      expectOrientation(planes[i], known[i].first, known[i].second);
      EXPECT_GT(planes[i].number("rms"), 0.01);
      EXPECT_LT(planes[i].number("rms"), planes[i].number("max_distance"));
      EXPECT_LE(planes[i].number("max_distance"), 0.1);
    }
  }
}

TEST_F(PlaneCommand, LeastSquaresIsTheMethodByDefault) {
  const ReadFeature plane = planeOf(table(PlanePoints::rows(points.on(30, 90), "a")));
  EXPECT_EQ(plane.fields.at("method"), "ls");
  EXPECT_THAT(result.out, HasSubstr("method    ls"));
}

// Around the origin the linear system gives the direction of steepest ascent as the normal: the
// strike is right, the plane stands upright. A flat set is flat by all methods.
TEST_F(PlaneCommand, LinearGivesNoBestFitAndSaysSo) {
  const std::string tilted = "-10,-10,0,a\n10,-10,-10,a\n10,10,0,a\n-10,10,10,a\n";
  const ReadFeature plane = planeOf(table(tilted), {"--method", "linear"});
  expectOrientation(plane, 90.0, 135.0, 1e-9);
  EXPECT_GT(plane.number("rms"), 1.0);
  EXPECT_THAT(result.out, HasSubstr("method linear gives no best-fit plane"));
  const ReadFeature flat = planeOf(table("0,0,5,a\n10,0,5,a\n0,10,5,a\n"), {"--method", "linear"});
  EXPECT_EQ(flat.number("dip"), 0.0);
}

// The square x = +-10, y = +-10 on z = -x / 2, shifted: its centre, its normal (1, 0, 2) / sqrt(5).
TEST_F(PlaneCommand, CentreNormalAndDistancesAreThoseOfTheSet) {
  const ReadFeature plane =
      planeOf(table("90,190,55,a\n110,190,45,a\n110,210,45,a\n90,210,55,a\n"));
  ASSERT_EQ(plane.vertices.size(), 1U);
  EXPECT_THAT(plane.vertices[0], ::testing::ElementsAre(100.0, 200.0));
  EXPECT_THAT(readFile(folder.path("out.geojson")), HasSubstr("[ 100.0, 200.0, 50.0 ]"));
  EXPECT_NEAR(plane.number("nx"), 1.0 / std::sqrt(5.0), 1e-12);
  EXPECT_NEAR(plane.number("ny"), 0.0, 1e-12);
  EXPECT_NEAR(plane.number("nz"), 2.0 / std::sqrt(5.0), 1e-12);
  EXPECT_NEAR(plane.number("dip"), std::atan(0.5) * 180.0 / M_PI, 1e-9);
  EXPECT_NEAR(plane.number("rms"), 0.0, 1e-9);
}

// Corners 1 above and 1 below the plane z = 0 by turns: no plane fits better, each is 1 off.
TEST_F(PlaneCommand, RmsIsTheRootMeanSquareDistance) {
  const ReadFeature plane = planeOf(table("-10,-10,1,a\n10,-10,-1,a\n10,10,1,a\n-10,10,-1,a\n"));
  EXPECT_NEAR(plane.number("rms"), 1.0, 1e-9);
  EXPECT_NEAR(plane.number("max_distance"), 1.0, 1e-9);
  EXPECT_NEAR(plane.number("dip"), 0.0, 1e-6);
}

TEST_F(PlaneCommand, HorizontalPlaneHasNeitherAzimuthNorStrike) {
  const ReadFeature plane = planeOf(table("0,0,5,a\n10,0,5,a\n0,10,5,a\n7,8,5,a\n"));
  EXPECT_EQ(plane.number("dip"), 0.0);
  EXPECT_EQ(plane.number("nz"), 1.0);
  EXPECT_EQ(plane.fields.count("dip_azimuth"), 0U);
  EXPECT_EQ(plane.fields.count("strike"), 0U);
  EXPECT_THAT(result.out, HasSubstr("0.0        -       -"));
}

TEST_F(PlaneCommand, UprightPlaneHasAStrikeBelow180) {
  for (const char* const method : {"ls", "orthogonal"}) {
    for (const double azimuth : {0.0, 90.0, 135.0, 250.0, 315.0}) {
      const auto upright = points.on(90, azimuth);
      const ReadFeature plane =
          planeOf(table(PlanePoints::rows(upright, "a")), {"--method", method});
      const double strike = std::fmod(azimuth + 90.0, 180.0);
      EXPECT_NEAR(plane.number("dip"), 90.0, 1e-3) << method << azimuth;
      EXPECT_LT(azimuthBetween(2 * plane.number("strike"), 2 * strike), 1e-3) << method << azimuth;
    }
  }
  const ReadFeature exact = planeOf(table("0,0,0,a\n0,10,0,a\n0,0,10,a\n"));
  EXPECT_EQ(exact.number("strike"), 0.0);
  EXPECT_EQ(exact.number("dip_azimuth"), 90.0);
}

TEST_F(PlaneCommand, RowsWithoutAGroupAreOneSet) {
  const ReadFeature plane = planeOf(
      table(PlanePoints::rows(points.on(30, 90), "a") + PlanePoints::rows(points.on(30, 90), "b")));
  EXPECT_EQ(plane.fields.at("set"), "all");
  EXPECT_EQ(plane.number("points"), 120);
}

TEST_F(PlaneCommand, GroupsKeepTheOrderOfTheirFirstPoints) {
  const std::string rows =
      "0,0,0,upper\n0,0,9,lower\n9,0,9,lower\n9,0,0,upper\n0,9,0,upper\n"
      "0,9,9,lower\n";
  const auto planes = planesOf(table(rows), {"--group", "bed"});
  ASSERT_EQ(planes.size(), 2U);
  EXPECT_EQ(planes[0].fields.at("set"), "upper");
  EXPECT_EQ(planes[1].fields.at("set"), "lower");
}

TEST_F(PlaneCommand, EachMultiPointIsASet) {
  const std::string file =
      folder.file("multi.geojson",
                  planeFeatures("MultiPoint", {"[" + PlanePoints::json(points.on(30, 90)) + "]",
                                               "[" + PlanePoints::json(points.on(50, 200)) + "]"}));
  const auto planes = planesOf(file, {});
  ASSERT_EQ(planes.size(), 2U);
  EXPECT_EQ(crs, "EPSG:32633");
  EXPECT_EQ(planes[1].fields.at("set"), "1");
  expectOrientation(planes[0], 30, 90);
  expectOrientation(planes[1], 50, 200);
}

TEST_F(PlaneCommand, EachLineAndPolygonIsASetOfItsVertices) {
  const std::string lines = folder.file(
      "lines.geojson",
      planeFeatures("LineString", {"[" + PlanePoints::json(points.on(30, 90, 12)) + "]"}));
  const ReadFeature trace = planeOf(lines);
  EXPECT_EQ(trace.number("points"), 12);
  expectOrientation(trace, 30, 90);
  const std::string polygon =
      folder.file("polygon.geojson",
                  planeFeatures("Polygon", {"[[[0,0,0],[10,0,10],[10,10,10],[0,10,0],[0,0,0]]]"}));
  const ReadFeature facet = planeOf(polygon);
  EXPECT_EQ(facet.number("points"), 4);
  expectOrientation(facet, 45, 270, 1e-6);
}

TEST_F(PlaneCommand, PartsOfAMultiLineAreOneSet) {
  const std::string file = folder.file(
      "parts.csv", "name,WKT\nBase,\"MULTILINESTRING Z ((0 0 0,10 0 10),(10 10 10,0 10 0))\"\n");
  const ReadFeature plane = planeOf(file);
  EXPECT_EQ(plane.number("points"), 4);
  EXPECT_EQ(plane.fields.at("name"), "Base");
  expectOrientation(plane, 45, 270, 1e-6);
}

TEST_F(PlaneCommand, GroupJoinsTheVerticesOfSeveralFeatures) {
  const std::string file = folder.file("parts.csv",
                                       "bed,WKT\nk,\"LINESTRING Z (0 0 0,10 0 10)\"\n"
                                       "k,\"LINESTRING Z (10 10 10,0 10 0)\"\n");
  const ReadFeature plane = planeOf(file, {"--group", "bed"});
  EXPECT_EQ(plane.fields.at("set"), "k");
  EXPECT_EQ(plane.number("points"), 4);
}

TEST_F(PlaneCommand, ElevationMayBeAnAttribute) {
  const std::string file = folder.file("gps.csv", "x,y,z,elev\n0,0,9,0\n10,0,9,10\n0,10,9,0\n");
  expectOrientation(planeOf(file, {"--z", "elev"}), 45, 270, 1e-6);
  const std::string flat = folder.file("wkt.csv",
                                       "WKT,elev\nPOINT (0 0),0\nPOINT (10 0),10\n"
                                       "POINT (0 10),0\n");
  expectOrientation(planeOf(flat, {"--z", "elev"}), 45, 270, 1e-6);
}

TEST_F(PlaneCommand, WhereSelectsFeatures) {
  const std::string file = folder.file(
      "multi.geojson",
      planeFeatures("MultiPoint", {"[[0,0,0],[1,1,1],[2,2,2]]", "[[0,0,0],[9,0,0],[0,9,0]]"}));
  const ReadFeature plane = planeOf(file, {"--where", "1"});
  EXPECT_EQ(plane.fields.at("set"), "1");
}

TEST_F(PlaneCommand, TableComesBackAsATable) {
  const std::string quoted =
      folder.file("quoted.csv",
                  "x,y,z,bed\n0,0,0,\"Lower, \"\"red\"\"\"\n10,0,10,\"Lower, \"\"red\"\"\"\n"
                  "0,10,0,\"Lower, \"\"red\"\"\"\n");
  const std::string output = folder.path("planes.csv");
  ASSERT_EQ(runZrbase({"plane", quoted, "--group", "bed", "-o", output}).status, 0);
  const std::string text = readFile(output);
  EXPECT_THAT(text, StartsWith("X,Y,Z,set,name,points,dip,dip_azimuth,strike,rms,max_distance,"
                               "nx,ny,nz,method,crs\n"));
  EXPECT_THAT(text,
              AllOf(HasSubstr(",\"Lower, \"\"red\"\"\",,3,45,270,180,"), Not(HasSubstr("\r"))));
  // And the table of centres is itself a table of points.
  EXPECT_THAT(runZrbase({"plane", output, "-o", folder.path("again.csv")}).err,
              HasSubstr("a plane needs 3 points: 1 point"));
}

// The points are carried to longitude and latitude here, and back by the command.
TEST_F(PlaneCommand, GeographicPointsAreProjectedAndKeepTheirZ) {
  OGRSpatialReference metric;
  OGRSpatialReference geographic;
  ASSERT_EQ(metric.importFromEPSG(32633), OGRERR_NONE);
  ASSERT_EQ(geographic.importFromEPSG(4326), OGRERR_NONE);
  geographic.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  OGRCoordinateTransformation* const way = OGRCreateCoordinateTransformation(&metric, &geographic);
  ASSERT_NE(way, nullptr);
  std::string rows = "lon,lat,z\n";
  for (PlanePoints::Point p : points.on(35, 110, 200, 0.0, {450000.0, 5200000.0, 1500.0})) {
    ASSERT_TRUE(way->Transform(1, p.data(), &p[1]));
    // Six decimals of a degree are a decimetre.
    char text[128];
    std::snprintf(text, sizeof text, "%.12f,%.12f,%.6f\n", p[0], p[1], p[2]);
    rows += text;
  }
  OGRCoordinateTransformation::DestroyCT(way);
  const ReadFeature plane = planeOf(folder.file("lonlat.csv", rows));
  EXPECT_EQ(crs, "EPSG:32633");
  EXPECT_EQ(plane.fields.at("crs"), "EPSG:32633");
  expectOrientation(plane, 35, 110, 1e-3);
  EXPECT_THAT(result.out,
              HasSubstr("EPSG:32633 (WGS 84 / UTM zone 33N), projected from EPSG:4326"));
}

TEST_F(PlaneCommand, BadPointsAndSetsAreLeftOutWhenAsked) {
  const std::string rows =
      "0,0,0,good\n10,0,10,good\n0,10,0,good\n5,5,nan,good\n"
      "0,0,0,line\n1,1,1,line\n3,3,3,line\n0,0,0,pair\n1,0,0,pair\n";
  const auto planes = planesOf(table(rows), {"--group", "bed", "--skip-bad"});
  ASSERT_EQ(planes.size(), 1U);
  EXPECT_EQ(planes[0].number("points"), 3);
  EXPECT_THAT(result.out, AllOf(HasSubstr("3 bad features"), HasSubstr("row 4: z is not finite"),
                                HasSubstr("set 'line': its points are on one line"),
                                HasSubstr("set 'pair': a plane needs 3 points: 2 points")));
}

TEST_F(PlaneCommand, GeoPackageHasTheLayerPlanesAndTheSameBytesEachTime) {
  const std::string input = table(PlanePoints::rows(points.on(30, 90), "a"));
  planesOf(input, {"--crs", "EPSG:32633"}, "first.gpkg");
  planesOf(input, {"--crs", "EPSG:32633"}, "second.gpkg");
  EXPECT_EQ(readLayers(folder.path("first.gpkg")).count("planes"), 1U);
  EXPECT_EQ(readFile(folder.path("first.gpkg")), readFile(folder.path("second.gpkg")));
}

TEST_F(PlaneCommand, SummaryHasARowForEachSet) {
  planesOf(table("0,0,0,k\n10,0,10,k\n0,10,0,k\n"), {"--group", "bed"});
  EXPECT_THAT(result.out, StartsWith("set  points   dip  azimuth  strike  rms [m]\n"
                                     "k         3  45.0    270.0   180.0    0.000\n"));
  EXPECT_THAT(result.out, HasSubstr("out.geojson: 1 plane\n"));
}

TEST_F(PlaneCommand, HelpTellsTheMethodsAndExamples) {
  const CommandResult help = runZrbase({"plane", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.out, AllOf(HasSubstr("ls          "), HasSubstr("orthogonal  "),
                              HasSubstr("linear      "), HasSubstr("Examples:")));
}

}  // namespace
