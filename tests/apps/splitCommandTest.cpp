#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ogrsf_frmts.h>
#include <zrBase/tools2d/lineSplitting.h>

#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "apps/commandRunner.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

using Vertices = std::vector<std::vector<double>>;

double lengthOf(const Vertices& line) {
  double length = 0.0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    length += std::hypot(line[i][0] - line[i - 1][0], line[i][1] - line[i - 1][1]);
  }
  return length;
}

VertexLine vertexLine(const Vertices& vertices) {
  VertexLine line;
  for (const std::vector<double>& vertex : vertices) {
    line.emplace_back(vertex[0], vertex[1], 0.0);
  }
  return line;
}

// The lines of a file in longitude and latitude, projected by GDAL.
std::map<long long, std::unique_ptr<OGRGeometry>> projectedLines(const std::string& file,
                                                                 int epsg) {
  GDALAllRegister();
  const GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
  OGRSpatialReference geographic;
  geographic.SetWellKnownGeogCS("WGS84");
  geographic.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  OGRSpatialReference metric;
  metric.importFromEPSG(epsg);
  const std::unique_ptr<OGRCoordinateTransformation> way(
      OGRCreateCoordinateTransformation(&geographic, &metric));
  std::map<long long, std::unique_ptr<OGRGeometry>> lines;
  for (const OGRFeatureUniquePtr& feature : dataset->GetLayer(0)) {
    feature->GetGeometryRef()->transform(way.get());
    lines[feature->GetFID()].reset(feature->StealGeometry());
  }
  return lines;
}

int pointsIn(const OGRGeometry& geometry) {
  if (geometry.IsEmpty()) {
    return 0;
  }
  const bool several = wkbFlatten(geometry.getGeometryType()) == wkbMultiPoint;
  return several ? geometry.toGeometryCollection()->getNumGeometries() : 1;
}

class SplitCommand : public ::testing::Test {
 protected:
  // The pieces of the file, cut by the other.
  std::vector<ReadFeature> piecesOf(const std::string& input, const std::string& with,
                                    const std::vector<std::string>& options = {},
                                    const std::string& output = "out.geojson") {
    std::vector<std::string> arguments = {"split", input, "--with",
                                          with,    "-o",  folder.path(output)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    result = runZrbase(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    const auto layers = readLayers(folder.path(output));
    EXPECT_EQ(layers.size(), 1U);
    EXPECT_EQ(layers.count("pieces"), 1U);
    return layers.count("pieces") == 0 ? std::vector<ReadFeature>() : layers.at("pieces").features;
  }

  std::string lines(const std::string& name, const std::vector<std::string>& coordinates) {
    return folder.file(name, metricLines(coordinates));
  }

  TestFolder folder;
  CommandResult result;
};

// A single cut, on the last segment: neither of the two parts may be lost.
TEST_F(SplitCommand, OneCrossingGivesTwoPieces) {
  const auto pieces =
      piecesOf(lines("a.geojson", {"[0,0],[10,0]"}), lines("b.geojson", {"[4,-5],[4,5]"}));
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_THAT(pieces[0].vertices, ElementsAre(ElementsAre(0, 0), ElementsAre(4, 0)));
  EXPECT_THAT(pieces[1].vertices, ElementsAre(ElementsAre(4, 0), ElementsAre(10, 0)));
  EXPECT_EQ(pieces[0].number("piece"), 0);
  EXPECT_EQ(pieces[1].number("piece"), 1);
  EXPECT_EQ(pieces[0].number("pieces"), 2);
  EXPECT_EQ(pieces[0].number("length"), 4);
  EXPECT_EQ(pieces[1].number("length"), 6);
  EXPECT_THAT(result.out, HasSubstr("lines     1 in, 1 cut\n"));
  EXPECT_THAT(result.out, HasSubstr("crossings 1 with 1 line of "));
  EXPECT_THAT(result.out, HasSubstr("out.geojson: pieces 2\n"));
}

TEST_F(SplitCommand, LineThatNothingCrossesComesThroughWhole) {
  const auto pieces =
      piecesOf(lines("a.geojson", {"[0,0],[10,0],[20,5]"}), lines("b.geojson", {"[4,1],[4,5]"}));
  ASSERT_EQ(pieces.size(), 1U);
  EXPECT_THAT(pieces[0].vertices,
              ElementsAre(ElementsAre(0, 0), ElementsAre(10, 0), ElementsAre(20, 5)));
  EXPECT_EQ(pieces[0].number("pieces"), 1);
  EXPECT_THAT(result.out, HasSubstr("lines     1 in, 0 cut\n"));
}

// The splitters come in another order than their crossings.
TEST_F(SplitCommand, PiecesFollowTheLine) {
  const auto pieces = piecesOf(lines("a.geojson", {"[0,0],[10,0]"}),
                               lines("b.geojson", {"[7,-5],[7,5]", "[2,-5],[2,5],[5,5],[5,-5]"}));
  ASSERT_EQ(pieces.size(), 4U);
  const std::vector<double> ends = {2, 5, 7, 10};
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    EXPECT_THAT(pieces[i].vertices.back(), ElementsAre(ends[i], 0));
    EXPECT_EQ(pieces[i].vertices.size(), 2U);
  }
}

TEST_F(SplitCommand, CrossingAtAVertexCutsOnceAndAddsNone) {
  const auto pieces = piecesOf(lines("a.geojson", {"[0,0],[10,0],[20,10]"}),
                               lines("b.geojson", {"[10,-5],[10,5]", "[10.0005,-5],[10.0005,5]"}));
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_THAT(pieces[0].vertices, ElementsAre(ElementsAre(0, 0), ElementsAre(10, 0)));
  EXPECT_THAT(pieces[1].vertices, ElementsAre(ElementsAre(10, 0), ElementsAre(20, 10)));
}

TEST_F(SplitCommand, OwnEndsAreNotCut) {
  const auto pieces = piecesOf(lines("a.geojson", {"[0,0],[10,0]"}),
                               lines("b.geojson", {"[0,-5],[0,5]", "[10,-5],[10,5]"}));
  ASSERT_EQ(pieces.size(), 1U);
  EXPECT_THAT(result.out, HasSubstr("crossings 0 with 2 lines of "));
}

TEST_F(SplitCommand, WiderToleranceCutsAtTheVertex) {
  const std::string line = lines("a.geojson", {"[0,0],[10,0],[20,0]"});
  const std::string with = lines("b.geojson", {"[11,-5],[11,5]"});
  EXPECT_THAT(piecesOf(line, with).at(0).vertices.back(), ElementsAre(11, 0));
  EXPECT_THAT(piecesOf(line, with, {"--tolerance", "2"}).at(0).vertices.back(), ElementsAre(10, 0));
}

TEST_F(SplitCommand, LinesOfOneFileCutEachOther) {
  const std::string file = lines("a.geojson", {"[0,0],[10,0],[20,0]", "[4,-5],[4,5]"});
  const auto pieces = piecesOf(file, file);
  ASSERT_EQ(pieces.size(), 4U);
  EXPECT_THAT(pieces[1].vertices,
              ElementsAre(ElementsAre(4, 0), ElementsAre(10, 0), ElementsAre(20, 0)));
  EXPECT_THAT(pieces[3].vertices, ElementsAre(ElementsAre(4, 0), ElementsAre(4, 5)));
}

TEST_F(SplitCommand, PolygonOutlinesCutToo) {
  const std::string polygon =
      folder.file("b.csv", "WKT,name\n\"POLYGON ((2 -5,8 -5,8 5,2 5,2 -5))\",licence\n");
  const auto pieces = piecesOf(lines("a.geojson", {"[0,0],[10,0]"}), polygon);
  ASSERT_EQ(pieces.size(), 3U);
  EXPECT_EQ(pieces[1].number("length"), 6);
}

TEST_F(SplitCommand, HeightsAreThoseOfTheLine) {
  const std::string line = folder.file("a.csv", "x,y,z\n0,0,100\n10,0,200\n");
  const std::string with = folder.file("b.csv", "x,y,z\n4,-5,7\n4,5,7\n");
  piecesOf(line, with);
  EXPECT_THAT(readFile(folder.path("out.geojson")), HasSubstr("[ 4.0, 0.0, 140.0 ]"));
}

TEST_F(SplitCommand, SourceIsToldOfEachPiece) {
  const std::string line =
      folder.file("a.csv", "WKT,name\n\"MULTILINESTRING ((0 0,10 0),(0 1,10 1))\",Garlock\n");
  const auto pieces = piecesOf(line, folder.file("b.csv", "x,y\n4,-5\n4,5\n"));
  ASSERT_EQ(pieces.size(), 4U);
  EXPECT_EQ(pieces[3].number("fid"), 1);
  EXPECT_EQ(pieces[3].number("part"), 1);
  EXPECT_EQ(pieces[3].number("piece"), 1);
  EXPECT_EQ(pieces[3].fields.at("name"), "Garlock");
}

// A table states no system: it is in the one of the work, UTM zone 33.
TEST_F(SplitCommand, SecondFileWithoutASystemIsInThatOfTheFirst) {
  const auto pieces = piecesOf(lines("a.geojson", {"[500000,4000000],[501000,4000000]"}),
                               folder.file("b.csv", "x,y\n500400,3999000\n500400,4001000\n"));
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_EQ(pieces[0].number("length"), 400);
}

TEST_F(SplitCommand, SecondLayerOfAFileMayCut) {
  runZrbase({"flowpath", lines("t.geojson", {"[0,0],[10,0],[20,5]"}), "--height", "1", "-o",
             folder.path("map.gpkg")});
  const auto pieces = piecesOf(folder.path("map.gpkg"), folder.path("map.gpkg"),
                               {"--layer", "flowpaths", "--with-layer", "bisectors"});
  EXPECT_EQ(pieces.size(), 2U);
}

// Where the library's own function gives the whole line, in order, its pieces are these.
TEST_F(SplitCommand, PiecesAreThoseOfTheLibraryWhereItKeepsTheWholeLine) {
  const Vertices line = {{0, 0}, {10, 3}, {20, -2}, {30, 4}, {40, 0}, {50, 1}};
  const Vertices splitter = {{3, -9}, {12, 9}, {22, -9}, {33, 9}};
  VertexLineList expected;
  ASSERT_TRUE(
      zr2DTools::fastSplitLineWithLine(vertexLine(line), vertexLine(splitter), expected, 0.001));
  const auto pieces = piecesOf(lines("a.geojson", {"[0,0],[10,3],[20,-2],[30,4],[40,0],[50,1]"}),
                               lines("b.geojson", {"[3,-9],[12,9],[22,-9],[33,9]"}));
  ASSERT_EQ(pieces.size(), expected.size());
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    ASSERT_EQ(pieces[i].vertices.size(), expected[i].size());
    for (std::size_t k = 0; k < expected[i].size(); ++k) {
      EXPECT_NEAR(pieces[i].vertices[k][0], expected[i][k].x(), 1e-8);
      EXPECT_NEAR(pieces[i].vertices[k][1], expected[i][k].y(), 1e-8);
    }
  }
}

// A line across California: the pieces of each fault add up to it, end to end, and there are as
// many as the crossings that GEOS finds want.
TEST_F(SplitCommand, RealTracesKeepTheirLength) {
  const std::string faults = ZRBASE_EXAMPLE_DATA "/california.geojson";
  const std::string across =
      folder.file("across.csv", "WKT,name\n\"LINESTRING (-119 32,-117 34.5,-115 36)\",across\n");
  const std::string geographic = folder.file(
      "across.geojson",
      R"({"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":)"
      R"([[-119,32],[-117,34.5],[-115,36]]}})");
  std::map<long long, std::vector<ReadFeature>> cut;
  for (const ReadFeature& piece : piecesOf(faults, geographic, {}, "out.gpkg")) {
    cut[static_cast<long long>(piece.number("fid"))].push_back(piece);
  }
  EXPECT_THAT(result.out, HasSubstr("EPSG:32611"));
  const auto whole = projectedLines(faults, 32611);
  const auto cutter = projectedLines(across, 32611);
  ASSERT_EQ(cut.size(), whole.size());
  int crossings = 0;
  for (const auto& [fid, line] : whole) {
    double length = 0.0;
    for (std::size_t i = 0; i < cut[fid].size(); ++i) {
      const ReadFeature& piece = cut[fid][i];
      EXPECT_NEAR(piece.number("length"), lengthOf(piece.vertices), 1e-6);
      EXPECT_TRUE(i == 0 || piece.vertices.front() == cut[fid][i - 1].vertices.back());
      length += piece.number("length");
    }
    EXPECT_NEAR(length, line->toLineString()->get_Length(), 1e-6) << fid;
    const std::unique_ptr<OGRGeometry> places(line->Intersection(cutter.begin()->second.get()));
    EXPECT_EQ(cut[fid].size(), static_cast<std::size_t>(pointsIn(*places)) + 1) << fid;
    crossings += pointsIn(*places);
  }
  EXPECT_GT(crossings, 3);
}

TEST_F(SplitCommand, SkipBadCountsBothFiles) {
  const auto pieces = piecesOf(lines("a.geojson", {"[0,0],[10,0]", "[1,2]"}),
                               lines("b.geojson", {"[3,4]", "[4,-5],[4,5]"}), {"--skip-bad"});
  EXPECT_EQ(pieces.size(), 2U);
  EXPECT_THAT(result.out, HasSubstr("left out  1 bad feature of " + folder.path("a.geojson")));
  EXPECT_THAT(result.out, HasSubstr("left out  1 bad feature of " + folder.path("b.geojson")));
}

TEST_F(SplitCommand, SameInputGivesTheSameBytes) {
  const std::string faults = ZRBASE_EXAMPLE_DATA "/anatolia.geojson";
  for (const std::string ending : {".geojson", ".gpkg"}) {
    piecesOf(faults, faults, {"--tolerance", "50"}, "first" + ending);
    piecesOf(faults, faults, {"--tolerance", "50"}, "second" + ending);
    EXPECT_EQ(readFile(folder.path("first" + ending)), readFile(folder.path("second" + ending)));
  }
}

TEST(SplitHelp, HasExamples) {
  const CommandResult result = runZrbase({"split", "--help"});
  EXPECT_EQ(result.status, 0);
  for (const char* const text : {"Examples:", "--with", "--with-layer", "--tolerance", "--crs",
                                 "--layer", "--where", "--skip-bad"}) {
    EXPECT_THAT(result.out, HasSubstr(text));
  }
}

}  // namespace
