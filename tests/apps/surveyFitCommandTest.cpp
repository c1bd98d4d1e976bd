#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/commandRunner.h"
#include "apps/segySurvey.h"

namespace {

using ::testing::AllOf;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

const char* const kCorners = ZRBASE_EXAMPLE_DATA "/corners.csv";

class SurveyFitCommand : public ::testing::Test {
 protected:
  // Fits with an outline, and reads its attributes and its polygon.
  ReadFeature outlineOf(const std::string& input, std::vector<std::string> options = {}) {
    options.insert(options.begin(), {"survey", "fit", input});
    options.insert(options.end(), {"-o", folder.path("outline.gpkg")});
    result = runZrbase(options);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    const auto layers = readLayers(folder.path("outline.gpkg"));
    EXPECT_EQ(layers.count("outline"), 1U);
    return layers.empty() ? ReadFeature() : layers.begin()->second.features.at(0);
  }

  std::string segy(const std::vector<SegyTrace>& traces, const SegyManner& manner = {}) {
    writeSegy(folder.path("survey.sgy"), traces, manner);
    return folder.path("survey.sgy");
  }

  // Holds an outline against the grid that the traces were made of.
  void expectGrid(const ReadFeature& outline, const SegyGrid& grid, double tolerance) {
    const int lastInline = grid.firstInline + (grid.inlines - 1) * grid.inlineStep;
    const int lastCrossline = grid.firstCrossline + (grid.crosslines - 1) * grid.crosslineStep;
    EXPECT_EQ(outline.number("inline_min"), grid.firstInline);
    EXPECT_EQ(outline.number("inline_max"), lastInline);
    EXPECT_EQ(outline.number("inline_step"), grid.inlineStep);
    EXPECT_EQ(outline.number("crossline_min"), grid.firstCrossline);
    EXPECT_EQ(outline.number("crossline_max"), lastCrossline);
    EXPECT_EQ(outline.number("crossline_step"), grid.crosslineStep);
    EXPECT_NEAR(outline.number("inline_spacing"), grid.inlineSpacing, tolerance / 10.0);
    EXPECT_NEAR(outline.number("crossline_spacing"), grid.crosslineSpacing, tolerance / 10.0);
    const auto corner = [&](int i, int t) {
      return ElementsAre(DoubleNear(grid.x(i, t), tolerance), DoubleNear(grid.y(i, t), tolerance));
    };
    EXPECT_THAT(outline.vertices, ElementsAre(corner(grid.firstInline, grid.firstCrossline),
                                              corner(lastInline, grid.firstCrossline),
                                              corner(lastInline, lastCrossline),
                                              corner(grid.firstInline, lastCrossline),
                                              corner(grid.firstInline, grid.firstCrossline)));
  }

  TestFolder folder;
  CommandResult result;
};

TEST_F(SurveyFitCommand, RealCornersGiveTheirGrid) {
  result = runZrbase({"survey", "fit", "--corners", kCorners});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(
      result.out,
      AllOf(HasSubstr("one          100        300  605835.52  6073556.38"),
            HasSubstr("three        750        300  605381.55  6089799.65"),
            HasSubstr("inlines   100 to 750, step 1: 651, each along azimuth 88.40"),
            HasSubstr("crosslines 300 to 1250, step 1: 951, each along azimuth 358.40"),
            HasSubstr("24.999 m from inline to inline, 25.000 m from crossline to crossline")));
  // The crossline leans 0.2597 m off the right angle: 0.0104 traces of 25 m. The inlines run along
  // atan(663.51 / 23740.74) = 1.60089 degrees.
  EXPECT_THAT(result.out, HasSubstr("rotation  -88.3991 degrees"));
  EXPECT_THAT(result.out, HasSubstr("residual  inline 0.0000, crossline 0.0104, 0.26 m at the "
                                    "third corner, inline 750, crossline 1250"));
}

TEST_F(SurveyFitCommand, OrderOfTheCornersDecidesWhichIsTheThird) {
  const std::string file = folder.file("corners.csv",
                                       "Y;X;Inline No.;XL\n6090463.17;629122.55;750;1250\n"
                                       "6074219.89;629576.26;100;1250\n"
                                       "6073556.38;605835.52;100;300\n");
  result = runZrbase({"survey", "fit", "--corners", file});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("at the third corner, inline 100, crossline 300"));
}

TEST_F(SurveyFitCommand, ColumnsCanBeNamed) {
  const std::string file =
      folder.file("corners.csv", "A,B,C,D,x,y\n0,1,2,10,5,5\n0,1,12,10,5,5\n0,100,2,20,5,5\n");
  result = runZrbase({"survey", "fit", "--corners", file, "--columns", "D,C,B,A"});
  // Inline 10 has crosslines 2 and 12 at one place: 1 0.
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.err, HasSubstr("row 1 and row 2: two corners at one place, 1 0"));
}

TEST_F(SurveyFitCommand, PointsServeAsCorners) {
  const std::string file = folder.file(
      "corners.geojson",
      R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":)"
      R"("urn:ogc:def:crs:EPSG::32633"}},"features":[)"
      R"({"type":"Feature","properties":{"inline":1,"crossline":1},"geometry":{"type":"Point","coordinates":[500000,100]}},)"
      R"({"type":"Feature","properties":{"inline":1,"crossline":11},"geometry":{"type":"Point","coordinates":[500100,100]}},)"
      R"({"type":"Feature","properties":{"inline":6,"crossline":1},"geometry":{"type":"Point","coordinates":[500000,300]}}]})");
  result = runZrbase({"survey", "fit", "--corners", file});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("bin       40.000 m from inline to inline, 10.000 m from"));
}

TEST_F(SurveyFitCommand, TracesInlineByInlineGiveTheirGrid) {
  const SegyGrid grid;
  expectGrid(outlineOf(segy(grid.traces())), grid, 0.02);
  EXPECT_THAT(result.out, HasSubstr("traces    651 in "));
  EXPECT_THAT(result.out, HasSubstr("of the longest run of one line"));
  EXPECT_THAT(result.out, HasSubstr("each along azimuth 60.00"));
  EXPECT_THAT(result.out, HasSubstr("each along azimuth 330.00"));
}

TEST_F(SurveyFitCommand, OtherOrdersGiveTheSameGrid) {
  const SegyGrid grid;
  for (const auto& order : {byCrossline, serpentine, shuffled, crosslineSerpentine}) {
    const ReadFeature outline = outlineOf(segy(order(grid.traces())));
    expectGrid(outline, grid, 0.02);
    // Crosslines rise towards azimuth 60.
    EXPECT_NEAR(outline.number("rotation"), -60.0, 1e-3);
  }
  // Its only runs of one inline are pairs, where the crosslines turn.
  EXPECT_THAT(result.out, HasSubstr("of all traces by least squares"));
}

// To the metre, bins of 25 m: two neighbours would turn the grid by up to 3 degrees.
TEST_F(SurveyFitCommand, RoundedCoordinatesDoNotTurnTheGridInAnyOrder) {
  const SegyGrid grid;
  SegyManner manner;
  manner.scalar = 1;
  for (const auto& order : {serpentine, crosslineSerpentine, shuffled}) {
    expectGrid(outlineOf(segy(order(grid.traces()), manner)), grid, 2.0);
  }
}

TEST_F(SurveyFitCommand, BackwardNumbersAndLeftHandedGridsAreMet) {
  SegyGrid grid;
  grid.inlineSpacing = -50.0;  // inlines follow each other to the right of their direction
  const ReadFeature outline = outlineOf(segy(grid.traces()));
  EXPECT_NEAR(outline.number("inline_spacing"), 50.0, 1e-3);
  EXPECT_NEAR(outline.vertices.at(2).at(0), grid.x(1040, 420), 0.02);
  EXPECT_NEAR(outline.vertices.at(2).at(1), grid.y(1040, 420), 0.02);
}

TEST_F(SurveyFitCommand, ScalarsDivideMultiplyOrDoNothing) {
  SegyGrid grid;
  grid.azimuth = 90.0;  // places are multiples of 25 then, and of 100 with these distances
  grid.crosslineSpacing = 100.0;
  grid.inlineSpacing = 200.0;
  for (const int scalar : {-100, -1, 0, 1, 100}) {
    SegyManner manner;
    manner.scalar = scalar;
    expectGrid(outlineOf(segy(grid.traces(), manner)), grid, 1e-6);
  }
}

TEST_F(SurveyFitCommand, FormatsAndByteOrdersAreAlike) {
  const SegyGrid grid;
  for (const int format : {1, 3, 5, 8}) {
    for (const bool little : {false, true}) {
      SegyManner manner;
      manner.format = format;
      manner.littleEndian = little;
      expectGrid(outlineOf(segy(grid.traces(), manner)), grid, 0.02);
      EXPECT_EQ(result.out.find("little endian") != std::string::npos, little);
    }
  }
}

TEST_F(SurveyFitCommand, GeometryMayBeInOtherBytes) {
  const SegyGrid grid;
  SegyManner manner;
  manner.inlineByte = 9;
  manner.crosslineByte = 21;
  manner.xByte = 73;
  manner.yByte = 77;
  expectGrid(outlineOf(segy(grid.traces(), manner), {"--inline-byte", "9", "--crossline-byte", "21",
                                                     "--x-byte", "73", "--y-byte", "77"}),
             grid, 0.02);
}

TEST_F(SurveyFitCommand, FeetBecomeMetres) {
  SegyGrid grid;
  SegyManner manner;
  manner.measurementSystem = 2;
  const std::string file = segy(grid.traces(), manner);
  EXPECT_NEAR(outlineOf(file, {"--units", "ft"}).number("inline_spacing"), 15.24, 1e-4);
  EXPECT_THAT(result.out, Not(HasSubstr("note")));
  EXPECT_NEAR(outlineOf(file).number("inline_spacing"), 50.0, 1e-3);
  EXPECT_THAT(result.out, HasSubstr("the binary header states feet"));
}

TEST_F(SurveyFitCommand, AnglesAreTakenForLengthsOnRequestOnly) {
  const SegyGrid grid;
  SegyManner manner;
  manner.coordinateUnits = 2;
  const std::string file = segy(grid.traces(), manner);
  EXPECT_EQ(runZrbase({"survey", "fit", file}).status, 2);
  expectGrid(outlineOf(file, {"--units", "m"}), grid, 0.02);
}

// Rows of different length: the longest is in the middle, and no row or column is whole.
TEST_F(SurveyFitCommand, RaggedSurveyIsCoveredAsAWhole) {
  const SegyGrid grid;
  std::vector<SegyTrace> ragged;
  for (const SegyTrace& trace : grid.traces()) {
    const int a = (trace.inlineNumber - 1020) / 2;    // -10 to 10
    const int b = (trace.crosslineNumber - 360) / 4;  // -15 to 15
    if (a * a * 9 + b * b * 4 <= 900) {
      ragged.push_back(trace);
    }
  }
  for (const auto& order : {byCrossline, serpentine, shuffled}) {
    expectGrid(outlineOf(segy(order(ragged))), grid, 0.05);
  }
}

TEST_F(SurveyFitCommand, TracesWithoutGeometryAreLeftOutAndCounted) {
  const SegyGrid grid;
  std::vector<SegyTrace> traces = grid.traces();
  traces.insert(traces.begin() + 40, 5, SegyTrace());
  traces[100].x = traces[100].y = 0.0;
  expectGrid(outlineOf(segy(traces)), grid, 0.02);
  EXPECT_THAT(result.out, HasSubstr("left out  5 traces without geometry"));
  EXPECT_THAT(result.out, HasSubstr("left out  1 trace with x and y of 0"));
}

TEST_F(SurveyFitCommand, MisfitNamesTheTraceThatStandsOff) {
  const SegyGrid grid;
  std::vector<SegyTrace> traces = grid.traces();
  traces.back().x += 300.0;
  traces.back().y += 400.0;
  outlineOf(segy(traces));
  EXPECT_THAT(result.out, HasSubstr("at the outermost traces, trace 651"));
  EXPECT_THAT(result.out, AnyOf(HasSubstr("misfit    500.0"), HasSubstr("misfit    499.9")));
}

TEST_F(SurveyFitCommand, CornersOfTracesServeAsCorners) {
  const SegyGrid grid;
  const std::string corners = folder.path("corners.csv");
  ASSERT_EQ(runZrbase({"survey", "fit", segy(grid.traces()), "-o", corners}).status, 0);
  expectGrid(outlineOf("--corners", {corners, "--steps", "2,4"}), grid, 0.02);
  EXPECT_THAT(result.out, HasSubstr("residual  inline 0.0000, crossline 0.0000, 0.00 m"));
}

TEST_F(SurveyFitCommand, BinsAreRectanglesAroundTheLines) {
  const std::string corners =
      folder.file("corners.csv", "inline,crossline,x,y\n10,1,0,0\n10,5,40,0\n14,1,0,80\n");
  result = runZrbase({"survey", "fit", "--corners", corners, "--steps", "2,1", "--crs",
                      "EPSG:23031", "--grid", "-o", folder.path("grid.geojson")});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("grid.geojson: outline, bins 15"));
  const auto layers = readLayers(folder.path("grid.geojson"));
  const ReadLayer& bins = layers.at("bins");
  EXPECT_EQ(bins.crs, "EPSG:23031");
  ASSERT_EQ(bins.features.size(), 15U);
  EXPECT_EQ(bins.features[7].number("inline"), 12);
  EXPECT_EQ(bins.features[7].number("crossline"), 3);
  const auto at = [](double x, double y) {
    return ElementsAre(DoubleNear(x, 1e-9), DoubleNear(y, 1e-9));
  };
  EXPECT_THAT(bins.features[7].vertices,
              ElementsAre(at(15, 20), at(15, 60), at(25, 60), at(25, 20), at(15, 20)));
  EXPECT_EQ(layers.at("outline").features.size(), 1U);
}

TEST_F(SurveyFitCommand, EveryThinsTheBinsAndCentresMakesThemPoints) {
  const std::string corners =
      folder.file("corners.csv", "inline,crossline,x,y\n10,1,0,0\n10,6,50,0\n14,1,0,80\n");
  result = runZrbase({"survey", "fit", "--corners", corners, "--grid", "--centres", "--every", "2",
                      "-o", folder.path("grid.gpkg")});
  EXPECT_EQ(result.status, 0) << result.err;
  const auto layers = readLayers(folder.path("grid.gpkg"));
  const std::vector<ReadFeature>& bins = layers.at("bins").features;
  ASSERT_EQ(bins.size(), 9U);  // inlines 10, 12, 14 and crosslines 1, 3, 5
  EXPECT_EQ(bins[5].number("inline"), 12);
  EXPECT_EQ(bins[5].number("crossline"), 5);
  EXPECT_NEAR(bins[5].vertices.at(0).at(0), 40.0, 1e-9);
  EXPECT_NEAR(bins[5].vertices.at(0).at(1), 40.0, 1e-9);
}

TEST_F(SurveyFitCommand, BytesOfTheOutputAreTheSameEachTime) {
  for (const std::string ending : {"gpkg", "geojson", "csv"}) {
    for (const std::string name : {"first.", "second."}) {
      ASSERT_EQ(
          runZrbase({"survey", "fit", "--corners", kCorners, "-o", folder.path(name + ending)},
                    "LC_ALL=de_DE.UTF-8")
              .status,
          0);
    }
    EXPECT_EQ(readFile(folder.path("first." + ending)), readFile(folder.path("second." + ending)));
  }
}

TEST(SurveyCommand, AloneItShowsItsHelp) {
  const CommandResult result = runZrbase({"survey"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out,
              AllOf(HasSubstr("to-world"), HasSubstr("to-survey"), HasSubstr("header")));
  EXPECT_EQ(runZrbase({"survey", "--help"}).out, result.out);
}

TEST(SurveyCommand, EachJobHasItsHelp) {
  for (const std::string job : {"fit", "to-world", "to-survey", "header"}) {
    const CommandResult result = runZrbase({"survey", job, "--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("Usage: zrbase survey " + job));
    EXPECT_THAT(result.out, HasSubstr("Example"));
  }
}

}  // namespace
