#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/commandRunner.h"
#include "apps/segySurvey.h"

// Whatever is wrong with the input: one line that names the file, the row or trace and the reason,
// status 2, no output.

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

class SurveyBadInput : public ::testing::Test {
 protected:
  std::string reasonOf(std::vector<std::string> arguments, const std::string& output = "out.gpkg") {
    arguments.insert(arguments.begin(), "survey");
    arguments.insert(arguments.end(), {"-o", outputs.path(output)});
    return refusalOf(arguments, outputs);
  }

  std::string reasonAgainstCorners(const std::string& table) {
    return reasonOf({"fit", "--corners", inputs.file("corners.csv", table)});
  }

  std::string reasonAgainstTraces(const std::vector<SegyTrace>& traces,
                                  const SegyManner& manner = {}) {
    writeSegy(inputs.path("bad.sgy"), traces, manner);
    return reasonOf({"fit", inputs.path("bad.sgy")});
  }

  std::string goodSegy() {
    writeSegy(inputs.path("good.sgy"), SegyGrid().traces());
    return inputs.path("good.sgy");
  }

  std::string goodCorners() {
    return inputs.file("good.csv", "inline,crossline,x,y\n1,1,0,0\n1,9,80,0\n9,1,0,80\n");
  }

  TestFolder inputs;
  TestFolder outputs;
};

TEST_F(SurveyBadInput, MissingColumnIsNamedWithThoseThatAreThere) {
  EXPECT_THAT(reasonAgainstCorners("inline,x,y\n1,0,0\n"),
              HasSubstr("corners.csv: no column crossline; it has inline, x, y"));
  EXPECT_THAT(reasonAgainstCorners("xline,x,y\n1,0,0\n"), HasSubstr("no column inline;"));
  EXPECT_THAT(reasonAgainstCorners("il,xl,x\n1,0,0\n"), HasSubstr("no column y;"));
  EXPECT_THAT(reasonAgainstCorners("il,xl,y\n1,0,0\n"), HasSubstr("no column x;"));
}

TEST_F(SurveyBadInput, NamedColumnHasToBeThere) {
  EXPECT_THAT(reasonOf({"fit", "--corners", goodCorners(), "--columns", "inline,cross,x,y"}),
              HasSubstr("good.csv: no column 'cross'; it has inline, crossline, x, y"));
  EXPECT_THAT(reasonOf({"fit", "--corners", goodCorners(), "--columns", "inline,x"}),
              HasSubstr("--columns: 'inline,x' is not the four names"));
}

TEST_F(SurveyBadInput, CellThatIsNoNumberNamesItsRow) {
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n1,9,east,0\n9,1,0,80\n"),
              HasSubstr("corners.csv: row 2: x 'east' is not a number"));
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n1,9,8,0\n,1,0,80\n"),
              HasSubstr("corners.csv: row 3: inline is empty"));
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,nan,0,0\n1,9,8,0\n9,1,0,80\n"),
              HasSubstr("corners.csv: row 1: crossline 'nan' is not finite"));
}

TEST_F(SurveyBadInput, ThreeCornersAreWanted) {
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n1,9,8,0\n"),
              HasSubstr("corners.csv: 2 corners, but a grid needs three"));
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n1,9,8,0\n9,1,0,8\n9,9,8,8\n"),
              HasSubstr("corners.csv: row 4: a fourth corner"));
}

TEST_F(SurveyBadInput, CornersOnOneLineAreRefused) {
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n1,5,4,0\n1,9,8,0\n"),
              HasSubstr("corners.csv: the three corners lie on one line: inline 1"));
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,7,0,0\n2,7,4,0\n3,7,8,0\n"),
              HasSubstr("lie on one line: crossline 7"));
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n2,2,4,4\n3,3,8,8\n"),
              HasSubstr("lie on one line by their inlines and crosslines"));
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n1,9,4,4\n9,1,8,8\n"),
              HasSubstr("lie on one line by their x and y"));
}

TEST_F(SurveyBadInput, CoincidingCornersNameTheirRows) {
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n1,9,4,0\n1,9,0,8\n"),
              HasSubstr("row 2 and row 3: the same corner twice, inline 1, crossline 9"));
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n1,9,4,0\n9,1,0,0\n"),
              HasSubstr("row 1 and row 3: two corners at one place, 0 0"));
}

TEST_F(SurveyBadInput, CornersThatShareNoLineAreRefused) {
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n2,9,80,0\n9,2,0,80\n"),
              HasSubstr("no two of the three corners share an inline or a crossline"));
}

// Crosslines 10 m apart; the third corner stands 60 m, 6 crosslines, off the right angle.
TEST_F(SurveyBadInput, CornersThatContradictEachOtherAreRefused) {
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n1,9,80,0\n9,1,60,80\n"),
              HasSubstr("row 3: the corners contradict each other: by the other two inline 9, "
                        "crossline 1 is off by 0.0 inlines and 6.0 crosslines, more than 5"));
}

TEST_F(SurveyBadInput, NumbersBeyondAllBoundsAreRefused) {
  EXPECT_THAT(reasonAgainstCorners("inline,crossline,x,y\n1,1,0,0\n1,9,1e300,0\n9,1,0,1e300\n"),
              HasSubstr("corners.csv: the "));
}

TEST_F(SurveyBadInput, FitNeedsOneInput) {
  EXPECT_THAT(reasonOf({"fit"}), HasSubstr("a SEG-Y file or --corners is needed"));
  EXPECT_THAT(reasonOf({"fit", goodSegy(), "--corners", goodCorners()}),
              HasSubstr("exclude each other"));
}

TEST_F(SurveyBadInput, MissingFilesAreNamed) {
  EXPECT_THAT(reasonOf({"fit", inputs.path("no.sgy")}),
              HasSubstr("no.sgy: cannot be read: No such file or directory"));
  EXPECT_THAT(reasonOf({"fit", "--corners", inputs.path("no.csv")}), HasSubstr("no.csv"));
  EXPECT_THAT(refusalOf({"survey", "header", inputs.path("no.sgy")}, outputs),
              HasSubstr("no.sgy: cannot be read: No such file or directory"));
  EXPECT_THAT(reasonOf({"fit", inputs.path("")}), HasSubstr("Is a directory"));
}

TEST_F(SurveyBadInput, FilesThatAreNoSegyAreRefused) {
  const std::string shortFile = inputs.file("short.sgy", std::string(3599, ' '));
  EXPECT_THAT(reasonOf({"fit", shortFile}),
              HasSubstr("short.sgy: not a SEG-Y file: its 3599 bytes do not hold"));
  EXPECT_THAT(refusalOf({"survey", "header", shortFile}, outputs), HasSubstr("not a SEG-Y file"));
  const std::string text = inputs.file("text.sgy", std::string(9000, 'a'));
  EXPECT_THAT(reasonOf({"fit", text}), HasSubstr("text.sgy: not a SEG-Y file: 24929 is no format"));
  EXPECT_THAT(refusalOf({"survey", "header", text}, outputs), HasSubstr("not a SEG-Y file"));
}

TEST_F(SurveyBadInput, TruncatedFilesNameTheTrace) {
  const std::string whole = readFile(goodSegy());
  // 651 traces of 240 bytes of header and 3 samples of 4.
  const std::string cut = inputs.file("cut.sgy", whole.substr(0, whole.size() - 100));
  EXPECT_THAT(reasonOf({"fit", cut}),
              HasSubstr("cut.sgy: trace 651: truncated, 152 of its 252 bytes are there"));
  const std::string empty = inputs.file("empty.sgy", whole.substr(0, 3600));
  EXPECT_THAT(reasonOf({"fit", empty}), HasSubstr("empty.sgy: no traces"));
}

TEST_F(SurveyBadInput, TracesWithoutGeometryAreRefused) {
  std::vector<SegyTrace> traces(20);
  EXPECT_THAT(
      reasonAgainstTraces(traces),
      HasSubstr("bad.sgy: no geometry: inline and crossline, at bytes 189 and 193, are 0 in "
                "all 20 traces"));
  traces = SegyGrid().traces();
  for (SegyTrace& trace : traces) {
    trace.x = trace.y = 0.0;
  }
  EXPECT_THAT(reasonAgainstTraces(traces),
              HasSubstr("no geometry: x and y, at bytes 181 and 185, are 0 in all 651 traces"));
}

TEST_F(SurveyBadInput, TracesOfOneLineAreRefused) {
  SegyGrid grid;
  grid.inlines = 1;
  EXPECT_THAT(reasonAgainstTraces(grid.traces()),
              HasSubstr("bad.sgy: no grid: inline is 1000 in all 31 traces"));
  grid.inlines = 5;
  grid.crosslines = 1;
  EXPECT_THAT(reasonAgainstTraces(grid.traces()), HasSubstr("crossline is 300 in all 5 traces"));
  std::vector<SegyTrace> diagonal;
  for (int k = 1; k < 9; ++k) {
    diagonal.push_back({k, k, 10.0 * k, 10.0 * k});
  }
  EXPECT_THAT(reasonAgainstTraces(diagonal), HasSubstr("bad.sgy: no grid: its traces lie on one"));
}

TEST_F(SurveyBadInput, AnglesAreRefused) {
  SegyManner manner;
  manner.coordinateUnits = 2;
  EXPECT_THAT(
      reasonAgainstTraces(SegyGrid().traces(), manner),
      HasSubstr("bad.sgy: trace 1: its coordinates are angles by their units, 2 at byte 89"));
}

TEST_F(SurveyBadInput, PlacesThatAreNoGridAreRefused) {
  SegyGrid grid;
  std::vector<SegyTrace> traces = grid.traces();
  for (SegyTrace& trace : traces) {  // sheared by half a right angle
    trace.x += 2.0 * (trace.y - grid.y0);
  }
  EXPECT_THAT(reasonAgainstTraces(traces), HasSubstr("bad.sgy: no grid fits its traces: corner"));
}

TEST_F(SurveyBadInput, BytesThatNoFieldBeginsAtAreRefused) {
  EXPECT_THAT(reasonOf({"fit", goodSegy(), "--inline-byte", "190"}),
              HasSubstr("--inline-byte: no field of a trace header begins at byte 190"));
  EXPECT_THAT(reasonOf({"fit", goodSegy(), "--y-byte", "241"}), HasSubstr("--y-byte: no field"));
}

TEST_F(SurveyBadInput, OptionsAreHeldAgainstEachOther) {
  EXPECT_THAT(reasonOf({"fit", "--corners", goodCorners(), "--units", "yd"}),
              HasSubstr("--units: 'yd' is neither m, ft nor usft"));
  EXPECT_THAT(reasonOf({"fit", "--corners", goodCorners(), "--steps", "2"}),
              HasSubstr("--steps: '2' is not two numbers above 0"));
  EXPECT_THAT(reasonOf({"fit", "--corners", goodCorners(), "--grid", "--every", "0"}),
              HasSubstr("--every: '0' is not a whole number above 0"));
  EXPECT_THAT(reasonOf({"fit", "--corners", goodCorners(), "--every", "2"}),
              HasSubstr("--every: is about the bins, which --grid asks for"));
  EXPECT_THAT(reasonOf({"fit", "--corners", goodCorners(), "--grid"}, "out.csv"),
              HasSubstr("out.csv: a .csv output holds the corners alone"));
  EXPECT_THAT(reasonOf({"fit", "--corners", goodCorners()}, "out.shp"),
              HasSubstr("out.shp: unknown ending for the output: .geojson, .json, .gpkg or .csv"));
  EXPECT_THAT(reasonOf({"fit", "--corners", goodCorners(), "--crs", "EPSG:4326"}),
              HasSubstr("not a projected system in metres"));
}

TEST_F(SurveyBadInput, GridOfTooManyBinsIsRefused) {
  const std::string corners =
      inputs.file("wide.csv", "inline,crossline,x,y\n1,1,0,0\n1,2001,1,0\n2001,1,0,1\n");
  EXPECT_THAT(reasonOf({"fit", "--corners", corners, "--grid"}),
              HasSubstr("--grid: 4004001 bins are more than 1000000: take only each N-th line with "
                        "--every N"));
}

TEST_F(SurveyBadInput, PointsNeedTheirColumns) {
  const std::string points = inputs.file("points.csv", "a,crossline\n1,2\n");
  EXPECT_THAT(reasonOf({"to-world", points, "--corners", goodCorners()}),
              HasSubstr("points.csv: no column inline; it has a, crossline"));
  EXPECT_THAT(reasonOf({"to-survey", points, "--corners", goodCorners()}),
              HasSubstr("points.csv: no columns x and y; it has a, crossline"));
}

TEST_F(SurveyBadInput, BadPointsNameTheirRow) {
  const std::string numbers = inputs.file("numbers.csv", "inline,crossline\n1,2\n1,two\n");
  EXPECT_THAT(reasonOf({"to-world", numbers, "--corners", goodCorners()}),
              HasSubstr("numbers.csv: row 2: crossline 'two' is not a number"));
  const std::string places = inputs.file("places.csv", "x,y\n1,2\n1,inf\n");
  EXPECT_THAT(reasonOf({"to-survey", places, "--corners", goodCorners()}, "out.csv"),
              HasSubstr("places.csv: row 2: y 'inf' is not finite"));
  EXPECT_THAT(reasonOf({"to-world", numbers, "--corners", goodCorners(), "--where", "9"}),
              HasSubstr("numbers.csv: no feature 9"));
}

TEST_F(SurveyBadInput, LinesAreNoPoints) {
  const std::string lines = inputs.file("lines.geojson", metricLines({"[0,0],[1,1]"}));
  EXPECT_THAT(reasonOf({"to-survey", lines, "--corners", goodCorners(), "--crs", "EPSG:32633"}),
              HasSubstr("lines.geojson: no layer with points"));
}

TEST_F(SurveyBadInput, PointsWithASystemNeedThatOfTheGrid) {
  const std::string points = inputs.file("wells.csv", "lon,lat\n15,40\n");
  EXPECT_THAT(reasonOf({"to-survey", points, "--corners", goodCorners()}),
              AllOf(HasSubstr("wells.csv: its points are in EPSG:4326"), HasSubstr("give --crs")));
}

TEST_F(SurveyBadInput, UnknownEncodingIsRefused) {
  EXPECT_THAT(refusalOf({"survey", "header", goodSegy(), "--encoding", "utf"}, outputs),
              HasSubstr("--encoding: 'utf' is neither ebcdic, ascii nor guess"));
}

TEST_F(SurveyBadInput, UnknownJobIsOneLine) {
  EXPECT_THAT(refusalOf({"survey", "fold"}, outputs), HasSubstr("fold"));
}

TEST(SurveyOutputSafety, InputsAreNotOverwritten) {
  const TestFolder folder;
  const std::string table = "inline,crossline,x,y\n1,1,0,0\n1,9,80,0\n9,1,0,80\n";
  const std::string corners = folder.file("corners.csv", table);
  EXPECT_EQ(runZrbase({"survey", "fit", "--corners", corners, "-o", corners}).status, 2);
  EXPECT_EQ(runZrbase({"survey", "to-world", corners, "--corners", corners, "-o", corners}).status,
            2);
  EXPECT_EQ(readFile(corners), table);
}

TEST(SurveyOutputSafety, EarlierOutputSurvivesAFailure) {
  const TestFolder folder;
  const std::string corners = folder.file("corners.csv", "inline,crossline,x,y\n1,1,0,0\n");
  const std::string output = folder.file("out.gpkg", "kept");
  EXPECT_EQ(runZrbase({"survey", "fit", "--corners", corners, "-o", output}).status, 2);
  EXPECT_EQ(readFile(output), "kept");
}

}  // namespace
