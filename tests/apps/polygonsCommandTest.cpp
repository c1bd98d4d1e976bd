#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "apps/commandRunner.h"
#include "apps/polygonTexts.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

using Vertices = std::vector<std::vector<double>>;

// The areas of the polygons that GDAL makes of the rings, sorted.
std::vector<double> organizedAreas(const std::vector<std::string>& rings) {
  std::vector<OGRGeometry*> parts;
  for (const std::string& ring : rings) {
    parts.push_back(geometryOf(polygon(ring)).release());
  }
  const std::unique_ptr<OGRGeometry> made(OGRGeometryFactory::organizePolygons(
      parts.data(), static_cast<int>(parts.size()), nullptr, nullptr));
  std::vector<double> areas;
  if (wkbFlatten(made->getGeometryType()) == wkbPolygon) {
    areas.push_back(made->toPolygon()->get_Area());
  } else {
    for (const OGRGeometry* const part : *made->toGeometryCollection()) {
      areas.push_back(part->toPolygon()->get_Area());
    }
  }
  std::sort(areas.begin(), areas.end());
  return areas;
}

// A place in millionths, so that two computations of it compare equal.
using Place = std::pair<long, long>;

Place placeOf(double x, double y) { return {std::lround(x * 1e6), std::lround(y * 1e6)}; }

std::set<Place> placesOf(const Vertices& vertices) {
  std::set<Place> places;
  for (const std::vector<double>& vertex : vertices) {
    places.insert(placeOf(vertex[0], vertex[1]));
  }
  return places;
}

// The vertices of the ring and its crossings with itself.
std::set<Place> nodesByGeos(const std::string& ring) {
  const std::unique_ptr<OGRGeometry> outline = geometryOf("LINESTRING (" + ring + ")");
  const std::unique_ptr<OGRGeometry> noded(outline->Union(outline.get()));
  std::set<Place> places;
  for (const OGRGeometry* const line : *noded->toGeometryCollection()) {
    for (const OGRPoint& point : *line->toLineString()) {
      places.insert(placeOf(point.getX(), point.getY()));
    }
  }
  return places;
}

class PolygonsCommand : public ::testing::Test {
 protected:
  std::map<std::string, ReadLayer> layersOf(const std::string& input,
                                            const std::vector<std::string>& options,
                                            const std::string& output = "out.geojson") {
    std::vector<std::string> arguments = {"polygons", input, "-o", folder.path(output)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    result = runZrbase(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    auto layers = readLayers(folder.path(output));
    layers["polygons"];  // so that a failed run does not end the test program
    layers["rings"];
    return layers;
  }

  // The polygons of a job that writes these alone; in a GeoPackage, which names its layers.
  std::vector<ReadFeature> polygonsOf(const std::vector<std::string>& geometries,
                                      const std::vector<std::string>& options) {
    return layersOf(folder.file("in.csv", table(geometries)), options, "out.gpkg")
        .at("polygons")
        .features;
  }

  TestFolder folder;
  CommandResult result;
};

TEST_F(PolygonsCommand, InnerSquareBecomesAHole) {
  const auto layers = layersOf(
      folder.file("in.csv", table({polygon(square(20, 20, 10)), polygon(square(0, 0, 100))})),
      {"--inner-outer"});
  ASSERT_EQ(layers.at("polygons").features.size(), 1U);
  const ReadFeature& outer = layers.at("polygons").features[0];
  EXPECT_EQ(outer.number("fid"), 2);
  EXPECT_EQ(outer.fields.at("name"), "n2");
  EXPECT_EQ(outer.number("holes"), 1);
  EXPECT_EQ(outer.fields.at("hole_rings"), "1");
  EXPECT_EQ(outer.number("area"), 9900);
  ASSERT_EQ(outer.holes.size(), 1U);
  EXPECT_THAT(outer.holes[0].front(), ElementsAre(20, 20));
  const std::vector<ReadFeature>& rings = layers.at("rings").features;
  ASSERT_EQ(rings.size(), 2U);
  EXPECT_EQ(rings[0].fields.at("role"), "inner");
  EXPECT_EQ(rings[0].fields.at("inside"), "2");
  EXPECT_EQ(rings[0].number("depth"), 1);
  EXPECT_EQ(rings[1].fields.at("role"), "outer");
  EXPECT_EQ(rings[1].fields.count("inside"), 0U);
  EXPECT_THAT(result.out, HasSubstr("result    2 rings, 1 outer, 1 inner\n"));
}

// Land, lake, island, pond, whatever their order in the file.
TEST_F(PolygonsCommand, NestingIsFollowedAllTheWayIn) {
  std::vector<std::string> rings = {square(0, 0, 100), square(10, 10, 80), square(20, 20, 60),
                                    square(30, 30, 40)};
  std::sort(rings.begin(), rings.end());
  do {
    std::vector<std::string> geometries;
    for (const std::string& ring : rings) {
      geometries.push_back(polygon(ring));
    }
    const auto polygons = polygonsOf(geometries, {"--inner-outer"});
    ASSERT_EQ(polygons.size(), 2U);
    const ReadFeature& land = polygons[polygons[0].number("depth") == 0 ? 0 : 1];
    const ReadFeature& island = polygons[polygons[0].number("depth") == 0 ? 1 : 0];
    EXPECT_EQ(land.number("area"), 10000 - 6400);
    EXPECT_EQ(island.number("area"), 3600 - 1600);
    EXPECT_EQ(island.number("depth"), 2);
  } while (std::next_permutation(rings.begin(), rings.end()));
}

TEST_F(PolygonsCommand, DisjointAndOverlappingAndEqualRingsAreOuter) {
  const auto polygons = polygonsOf({polygon(square(0, 0, 10)), polygon(square(5, 5, 10)),
                                    polygon(square(50, 0, 10)), polygon(square(50, 0, 10))},
                                   {"--inner-outer"});
  ASSERT_EQ(polygons.size(), 4U);
  for (const ReadFeature& each : polygons) {
    EXPECT_EQ(each.number("depth"), 0);
    EXPECT_EQ(each.holes.size(), 0U);
  }
}

// A hole may touch the ring around it at a vertex, or with all of its vertices; blocks side by side
// do not lie in each other.
TEST_F(PolygonsCommand, RingsMayTouch) {
  const auto holes =
      polygonsOf({polygon("0 0,100 0,100 100,0 100,0 0"), polygon("0 50,20 40,20 60,0 50"),
                  polygon("50 100,100 50,60 0,50 100")},
                 {"--inner-outer"});
  ASSERT_EQ(holes.size(), 1U);
  EXPECT_EQ(holes[0].holes.size(), 2U);
  const auto blocks =
      polygonsOf({polygon(square(0, 0, 10)), polygon(square(10, 0, 10))}, {"--inner-outer"});
  EXPECT_EQ(blocks.size(), 2U);
}

TEST_F(PolygonsCommand, HolesOfAPolygonComeBack) {
  const auto polygons = polygonsOf({"POLYGON ((" + square(0, 0, 100) + "),(" + square(10, 10, 20) +
                                    "),(" + square(50, 50, 20) + "))"},
                                   {"--inner-outer"});
  ASSERT_EQ(polygons.size(), 1U);
  EXPECT_EQ(polygons[0].fields.at("hole_rings"), "1 ring 1,1 ring 2");
  EXPECT_EQ(polygons[0].number("area"), 10000 - 800);
}

TEST_F(PolygonsCommand, ClosedLinesAndMultiPolygonsAreRings) {
  const auto polygons =
      polygonsOf({"MULTIPOLYGON (((" + square(0, 0, 10) + ")),((" + square(20, 0, 10) + ")))",
                  "LINESTRING (22 2,24 2,24 4,22 2)", "LINESTRING (1 1,3 1,3 3,1.0004 1)"},
                 {"--inner-outer"});
  ASSERT_EQ(polygons.size(), 2U);
  EXPECT_EQ(polygons[0].fields.at("hole_rings"), "3");
  EXPECT_EQ(polygons[1].number("part"), 1);
  EXPECT_EQ(polygons[1].fields.at("hole_rings"), "2");
}

// Squares on a grid, nested and side by side, at map coordinates.
TEST_F(PolygonsCommand, PolygonsAreThoseThatGdalMakes) {
  std::vector<std::string> rings;
  for (int i = 0; i < 12; ++i) {
    const double x = 500000.0 + 1000.0 * (i % 4);
    const double y = 4000000.0 + 1000.0 * (i % 3);
    for (int depth = 0; depth <= i % 5; ++depth) {
      rings.push_back(square(x + 50.0 * depth, y + 70.0 * depth, 900.0 - 180.0 * depth));
    }
  }
  std::reverse(rings.begin() + 3, rings.end());
  std::vector<std::string> geometries;
  for (const std::string& ring : rings) {
    geometries.push_back(polygon(ring));
  }
  std::vector<double> areas;
  for (const ReadFeature& each : polygonsOf(geometries, {"--inner-outer"})) {
    areas.push_back(each.number("area"));
  }
  std::sort(areas.begin(), areas.end());
  const std::vector<double> expected = organizedAreas(rings);
  ASSERT_EQ(areas.size(), expected.size());
  for (std::size_t i = 0; i < areas.size(); ++i) {
    EXPECT_NEAR(areas[i], expected[i], 1e-3);
  }
}

TEST_F(PolygonsCommand, FigureOfEightGetsItsNode) {
  const auto polygons = polygonsOf({polygon("0 0,10 10,10 0,0 10,0 0")}, {"--condition"});
  ASSERT_EQ(polygons.size(), 1U);
  EXPECT_THAT(polygons[0].vertices,
              ElementsAre(ElementsAre(0, 0), ElementsAre(5, 5), ElementsAre(10, 10),
                          ElementsAre(10, 0), ElementsAre(0, 10), ElementsAre(0, 0)));
  EXPECT_EQ(polygons[0].number("nodes"), 1);
  EXPECT_EQ(polygons[0].number("crossings"), 0);
  EXPECT_EQ(polygons[0].number("removed"), 0);
  EXPECT_EQ(polygons[0].number("vertices"), 6);
}

TEST_F(PolygonsCommand, CloseVerticesGoAndEndsAreClosed) {
  const auto polygons = polygonsOf({"LINESTRING (0 0,10 0,10.2 0.1,10 10,0 10,0.3 0.2)"},
                                   {"--condition", "--tolerance", "0.5"});
  ASSERT_EQ(polygons.size(), 1U);
  EXPECT_THAT(polygons[0].vertices,
              ElementsAre(ElementsAre(0, 0), ElementsAre(10, 0), ElementsAre(10, 10),
                          ElementsAre(0, 10), ElementsAre(0, 0)));
  EXPECT_EQ(polygons[0].number("removed"), 1);
  EXPECT_THAT(result.out, HasSubstr("1 vertex removed, 0 nodes put in, 0 crossings left"));
}

TEST_F(PolygonsCommand, RingsOfAPolygonStayTogether) {
  const auto polygons = polygonsOf({"POLYGON ((0 0,100 0,100 100,0 100,0 0),"
                                    "(10 10,20 20,20 10,10 20,10 10))",
                                    polygon(square(200, 0, 5))},
                                   {"--condition"});
  ASSERT_EQ(polygons.size(), 2U);
  EXPECT_EQ(polygons[0].number("holes"), 1);
  EXPECT_EQ(polygons[0].number("nodes"), 1);
  EXPECT_EQ(polygons[0].holes.at(0).size(), 6U);
  EXPECT_EQ(polygons[1].number("fid"), 2);
}

// GEOS puts a node at every crossing of an outline with itself.
TEST_F(PolygonsCommand, NodesAndCrossingsLeftAreAllThatGeosFinds) {
  const std::string pentagram = "0 10,6 -8,-9.5 3,9.5 3.1,-6 -8,0 10";
  const std::string battlements = "0 0,30 0,30 5,20 5,20 -5,10 -5,10 5,0 5,0 0";
  std::string grid;  // six lines to and fro across twenty
  for (int y = 1; y <= 6; ++y) {
    const std::string row = " " + std::to_string(y) + ",";
    grid += y % 2 == 1 ? "0" + row + "22" + row : "22" + row + "0" + row;
  }
  for (int x = 20; x >= 1; --x) {
    const std::string column = std::to_string(x) + " ";
    grid += x % 2 == 0 ? column + "7," + column + "0," : column + "0," + column + "7,";
  }
  for (const std::string& ring : {battlements, pentagram, grid + "0 1"}) {
    const auto polygons = polygonsOf({polygon(ring)}, {"--condition"});
    ASSERT_EQ(polygons.size(), 1U);
    const std::set<Place> nodes = nodesByGeos(ring);
    const std::set<Place> ours = placesOf(polygons[0].vertices);
    EXPECT_TRUE(std::includes(nodes.begin(), nodes.end(), ours.begin(), ours.end()));
    EXPECT_EQ(nodes.size() - ours.size(), polygons[0].number("crossings")) << ring;
    EXPECT_GT(polygons[0].number("nodes"), 0);
  }
  EXPECT_EQ(polygonsOf({polygon(battlements)}, {"--condition"}).at(0).number("nodes"), 2);
  EXPECT_EQ(polygonsOf({polygon(battlements)}, {"--condition"}).at(0).number("crossings"), 0);
}

TEST_F(PolygonsCommand, DriftingVerticesGoToTheLast) {
  const auto polygons = polygonsOf({polygon("0 0,0.6 0,1.2 0,0.1 0.1,10 0,10 10,0 0")},
                                   {"--condition", "--tolerance", "1"});
  ASSERT_EQ(polygons.size(), 1U);
  EXPECT_THAT(polygons[0].vertices, ElementsAre(ElementsAre(0, 0), ElementsAre(10, 0),
                                                ElementsAre(10, 10), ElementsAre(0, 0)));
  EXPECT_EQ(polygons[0].number("removed"), 3);
}

TEST_F(PolygonsCommand, SkipBadLeavesOutWhatCannotBeUsed) {
  const auto polygons = polygonsOf({"LINESTRING (0 0,10 0,10 10)", polygon(square(0, 0, 5))},
                                   {"--condition", "--skip-bad"});
  ASSERT_EQ(polygons.size(), 1U);
  EXPECT_THAT(result.out, HasSubstr("feature 1: an open line: its ends are 14.142 m apart"));
}

TEST_F(PolygonsCommand, SameInputGivesTheSameBytes) {
  const std::string input =
      folder.file("in.csv", table({polygon(square(20, 20, 10)), polygon(square(0, 0, 100))}));
  for (const std::string ending : {".geojson", ".gpkg"}) {
    for (const std::string job : {"--inner-outer", "--condition"}) {
      layersOf(input, {job}, "first" + job + ending);
      layersOf(input, {job}, "second" + job + ending);
      EXPECT_EQ(readFile(folder.path("first" + job + ending)),
                readFile(folder.path("second" + job + ending)));
    }
  }
}

TEST(PolygonsHelp, HasExamples) {
  const CommandResult result = runZrbase({"polygons", "--help"});
  EXPECT_EQ(result.status, 0);
  for (const char* const text :
       {"Examples:", "--inner-outer", "--condition", "--complete", "--boundary-layer", "--reach",
        "--tolerance", "--crs", "--layer", "--where", "--skip-bad"}) {
    EXPECT_THAT(result.out, HasSubstr(text));
  }
}

}  // namespace
