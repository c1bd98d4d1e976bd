#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "apps/commandRunner.h"
#include "apps/polygonTexts.h"

// Open lines closed along a boundary: `zrbase polygons --complete`.

namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

// The areas that a line divides a ring into.
std::vector<double> areasDividedByGeos(const std::string& ring, const std::string& line) {
  const std::unique_ptr<OGRGeometry> outline = geometryOf("LINESTRING (" + ring + ")");
  const std::unique_ptr<OGRGeometry> edges(outline->Union(geometryOf(line).get()));
  const std::unique_ptr<OGRGeometry> parts(edges->Polygonize());
  std::vector<double> areas;
  for (const OGRGeometry* const part : *parts->toGeometryCollection()) {
    areas.push_back(part->toPolygon()->get_Area());
  }
  return areas;
}

class PolygonsCompletion : public ::testing::Test {
 protected:
  // Closes the lines of one file along the boundary of another.
  ReadLayer layerOf(const std::string& lines, const std::string& boundary,
                    const std::vector<std::string>& options = {}) {
    const std::string output = folder.path("out.gpkg");
    std::vector<std::string> arguments = {"polygons", lines, "--complete", boundary, "-o", output};
    arguments.insert(arguments.end(), options.begin(), options.end());
    result = runZrbase(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return readLayers(output)["polygons"];
  }

  std::vector<ReadFeature> completed(const std::vector<std::string>& lines,
                                     const std::vector<std::string>& boundaries,
                                     const std::vector<std::string>& options = {}) {
    return layerOf(folder.file("in.csv", table(lines)),
                   folder.file("boundary.csv", table(boundaries)), options)
        .features;
  }

  TestFolder folder;
  CommandResult result;
};

TEST_F(PolygonsCompletion, LineFromSideToSideIsClosedTheShorterWay) {
  const auto polygons =
      completed({"LINESTRING (0 6,2 7,5 8,8 7,10 6)"}, {polygon(square(0, 0, 10))});
  ASSERT_EQ(polygons.size(), 1U);
  EXPECT_THAT(
      polygons[0].vertices,
      ElementsAre(ElementsAre(0, 6), ElementsAre(2, 7), ElementsAre(5, 8), ElementsAre(8, 7),
                  ElementsAre(10, 6), ElementsAre(10, 10), ElementsAre(0, 10), ElementsAre(0, 6)));
  EXPECT_EQ(polygons[0].fields.at("closed_by"), "boundary");
  EXPECT_EQ(polygons[0].fields.at("boundary"), "1");
  EXPECT_EQ(polygons[0].number("added"), 2);
  EXPECT_EQ(polygons[0].number("crossings"), 0);
  EXPECT_EQ(polygons[0].number("area"), 29);
}

// Whichever sides the line runs between, and in whichever direction and order of the boundary: one
// of the two areas that the line divides the square into.
TEST_F(PolygonsCompletion, ClosedAreaIsOneOfTheTwoThatGeosFinds) {
  const std::vector<std::string> ends = {"3 0", "10 4", "6 10", "0 7"};
  std::vector<std::string> lines;
  for (const std::string& start : ends) {
    for (const std::string& end : ends) {
      if (start != end) {
        lines.push_back("LINESTRING (" + start + ",5 5," + end + ")");
      }
    }
  }
  for (const std::string boundary : {"0 0,10 0,10 10,0 10,0 0", "10 0,10 10,0 10,0 0,10 0",
                                     "0 10,10 10,10 0,0 0,0 10", "10 10,10 0,0 0,0 10,10 10"}) {
    const auto polygons = completed(lines, {polygon(boundary)});
    ASSERT_EQ(polygons.size(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const double area = polygons[i].number("area");
      const std::vector<double> areas = areasDividedByGeos(boundary, lines[i]);
      ASSERT_EQ(areas.size(), 2U);
      EXPECT_LT(std::min(std::abs(area - areas[0]), std::abs(area - areas[1])), 1e-9)
          << lines[i] << " in " << boundary;
      EXPECT_EQ(polygons[i].number("crossings"), 0);
    }
  }
}

TEST_F(PolygonsCompletion, EndsMayStopShortByTheReach) {
  const std::vector<std::string> line = {"LINESTRING (0.2 5,5 6,9.8 5)"};
  const std::vector<std::string> box = {polygon(square(0, 0, 10))};
  const auto polygons = completed(line, box, {"--reach", "0.5"});
  ASSERT_EQ(polygons.size(), 1U);
  EXPECT_THAT(polygons[0].vertices.front(), ElementsAre(DoubleNear(0.2, 1e-12), 5));
  EXPECT_EQ(polygons[0].number("added"), 2);
  const CommandResult refused =
      runZrbase({"polygons", folder.path("in.csv"), "--complete", folder.path("boundary.csv"),
                 "--reach", "0.1", "-o", folder.path("short.gpkg")});
  EXPECT_EQ(refused.status, 2);
  EXPECT_THAT(refused.err, HasSubstr("feature 1: its two ends do not both come within 0.100 m"));
}

TEST_F(PolygonsCompletion, EndsMayRunOverTheBoundary) {
  const auto polygons = completed({"LINESTRING (3 -1,4 4,-1 3)"}, {polygon(square(0, 0, 10))});
  ASSERT_EQ(polygons.size(), 1U);
  EXPECT_THAT(polygons[0].vertices,
              ElementsAre(ElementsAre(3, -1), ElementsAre(4, 4), ElementsAre(-1, 3),
                          ElementsAre(0, 0), ElementsAre(3, -1)));
}

TEST_F(PolygonsCompletion, ClosedLineStaysAsItIs) {
  const auto polygons = completed({"LINESTRING (1 1,2 1,2 2,1 1)", "LINESTRING (0 5,10 5)"},
                                  {polygon(square(0, 0, 10))});
  ASSERT_EQ(polygons.size(), 2U);
  EXPECT_EQ(polygons[0].fields.at("closed_by"), "itself");
  EXPECT_EQ(polygons[0].fields.count("boundary"), 0U);
  EXPECT_EQ(polygons[0].number("area"), 0.5);
  EXPECT_EQ(polygons[1].number("area"), 50);
  EXPECT_THAT(result.out, HasSubstr("result    1 closed along "));
}

TEST_F(PolygonsCompletion, FirstBoundaryThatBothEndsReachIsTaken) {
  const auto polygons =
      completed({"LINESTRING (100 5,105 6,110 5)"},
                {polygon(square(0, 0, 10)), "LINESTRING (" + square(100, 0, 10) + ")"});
  ASSERT_EQ(polygons.size(), 1U);
  EXPECT_EQ(polygons[0].fields.at("boundary"), "2");
}

// Zone 33 for the line, longitudes for the boundary.
TEST_F(PolygonsCompletion, BoundaryIsBroughtIntoTheSystemOfTheLines) {
  const std::string line = folder.file(
      "line.geojson", metricLines({"[480000,4450000],[500000,4460000],[520000,4450000]"}));
  const std::string boundary =
      folder.file("box.geojson",
                  R"({"type":"Feature","properties":{},"geometry":{"type":"Polygon","coordinates":)"
                  R"([[[14.8,40],[15.2,40],[15.2,40.4],[14.8,40.4],[14.8,40]]]}})");
  const ReadLayer layer = layerOf(line, boundary);
  ASSERT_EQ(layer.features.size(), 1U);
  EXPECT_EQ(layer.crs, "EPSG:32633");
  EXPECT_EQ(layer.features[0].number("added"), 2);
}

TEST_F(PolygonsCompletion, BoundaryWithoutASystemIsInThatOfTheLines) {
  const std::string line = folder.file(
      "line.geojson", metricLines({"[500000,4000500],[500500,4000700],[501000,4000500]"}));
  const std::string boundary =
      folder.file("box.csv", table({polygon(square(500000, 4000000, 1000))}));
  const ReadLayer layer = layerOf(line, boundary);
  ASSERT_EQ(layer.features.size(), 1U);
  EXPECT_NEAR(layer.features[0].number("area"), 400000, 1e-6);
}

}  // namespace
