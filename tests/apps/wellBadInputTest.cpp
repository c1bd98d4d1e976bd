#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "apps/commandRunner.h"

// Whatever is wrong with a survey: one line that names the file, the row and the reason, status 2,
// no output.

namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const char* const kGoodRows = "MD,Inc,Azi\n0,0,0\n100,10,90\n";

class WellBadInput : public ::testing::Test {
 protected:
  // Runs with an output in an own folder, and holds every promise about a failure but the reason.
  std::string reasonOf(std::vector<std::string> arguments, const std::string& output = "out.gpkg") {
    arguments.insert(arguments.begin(), "well");
    arguments.insert(arguments.end(), {"-o", outputs.path(output)});
    const CommandResult result = runZrbase(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, StartsWith("zrbase well: "));
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    EXPECT_THAT(outputs.names(), ElementsAre());
    return result.err;
  }

  // The same for a survey of this text.
  std::string reasonAgainst(const std::string& survey) {
    return reasonOf({inputs.file("survey.csv", survey)});
  }

  std::string good() { return inputs.file("good.csv", kGoodRows); }

  TestFolder inputs;
  TestFolder outputs;
};

TEST_F(WellBadInput, MissingFileIsNamed) {
  EXPECT_THAT(reasonOf({inputs.path("nothing.csv")}), HasSubstr("nothing.csv"));
}

TEST_F(WellBadInput, EmptyFileIsNamed) {
  EXPECT_THAT(reasonAgainst(""), HasSubstr("survey.csv: cannot be read"));
}

TEST_F(WellBadInput, FileOfAnotherKindIsNamed) {
  EXPECT_THAT(reasonOf({inputs.file("text.txt", "no table")}),
              HasSubstr("text.txt: cannot be read"));
}

TEST_F(WellBadInput, MissingColumnIsToldWithThoseThereAre) {
  EXPECT_THAT(reasonAgainst("MD,Inc,Depth error\n0,0,0\n10,0,0\n"),
              HasSubstr("survey.csv: no column of azimuth; it has MD, Inc, Depth error"));
}

TEST_F(WellBadInput, TableWithoutNamesHasNoColumns) {
  EXPECT_THAT(reasonAgainst("0,0,0\n10,0,0\n"),
              HasSubstr("no column of measured depth and inclination and azimuth"));
}

TEST_F(WellBadInput, TwoColumnsForOneAreRefused) {
  EXPECT_THAT(reasonAgainst("MD[m],MD[ft],Inc,Azi\n0,0,0,0\n10,33,0,0\n"),
              HasSubstr("two columns of measured depth: 'MD[m]' and 'MD[ft]'"));
}

TEST_F(WellBadInput, ForeignUnitsAreRefused) {
  EXPECT_THAT(reasonAgainst("MD[km],Inc,Azi\n0,0,0\n10,0,0\n"),
              HasSubstr("survey.csv: column 'MD[km]': its unit is not m or ft"));
  EXPECT_THAT(reasonAgainst("MD,Inc[rad],Azi\n0,0,0\n10,0,0\n"),
              HasSubstr("survey.csv: column 'Inc[rad]': its unit is not degrees"));
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\nm,rad,rad\n0,0,0\n10,0,0\n"),
              HasSubstr("survey.csv: row 1: the units 'm' and 'rad'"));
}

TEST_F(WellBadInput, UnitThatContradictsTheColumnIsRefused) {
  const std::string feet = inputs.file("feet.csv", "MD (ft),Inc,Azi\n0,0,0\n10,0,0\n");
  EXPECT_THAT(reasonOf({feet, "--units", "m"}),
              HasSubstr("feet.csv: its measured depths are in ft, which --units m contradicts"));
  const std::string metres = inputs.file("metres.csv", "MD [m],Inc,Azi\n0,0,0\n10,0,0\n");
  EXPECT_THAT(reasonOf({metres, "--units", "ft"}), HasSubstr("in m, which --units ft contradicts"));
}

TEST_F(WellBadInput, SurveyWithoutAStationIsRefused) {
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n"), HasSubstr("survey.csv: a survey of no station"));
}

TEST_F(WellBadInput, SurveyOfOneStationIsRefused) {
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n100,10,90\n"),
              HasSubstr("survey.csv: a survey of one station"));
}

TEST_F(WellBadInput, StationsOutOfOrderNameBothRows) {
  EXPECT_THAT(
      reasonAgainst("MD,Inc,Azi\n0,0,0\n200,0,0\n100,0,0\n"),
      HasSubstr("survey.csv: row 3: measured depth 100 is out of order: row 2 is at 200 already"));
}

TEST_F(WellBadInput, RepeatedDepthIsOutOfOrder) {
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n0,0,0\n200,0,0\n200,0,0\n"), HasSubstr("row 3: "));
}

TEST_F(WellBadInput, NegativeAndHugeDepthsAreRefused) {
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n-5,0,0\n200,0,0\n"),
              HasSubstr("row 1: measured depth -5 is below 0"));
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n0,0,0\n1e300,0,0\n"),
              HasSubstr("row 2: measured depth 1e+300 is out of reach"));
}

TEST_F(WellBadInput, InclinationOutsideTheHalfCircleIsRefused) {
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n0,0,0\n200,180.5,0\n"),
              HasSubstr("survey.csv: row 2: inclination 180.5 is outside 0 to 180"));
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n0,-0.5,0\n200,0,0\n"),
              HasSubstr("row 1: inclination -0.5 is outside 0 to 180"));
}

TEST_F(WellBadInput, NullValueIsNoAzimuth) {
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n0,0,0\n200,1,-999.25\n"),
              HasSubstr("row 2: azimuth -999.25 is outside"));
}

TEST_F(WellBadInput, TextIsNoNumber) {
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n0,0,0\n200,10 deg,0\n"),
              HasSubstr("survey.csv: row 2: inclination '10 deg' is not a number"));
  EXPECT_THAT(reasonAgainst("MD;Inc;Azi\n0;0;0\n200;10,5;0\n"),
              HasSubstr("row 2: inclination '10,5' is not a number"));
}

TEST_F(WellBadInput, NanAndInfinityAreNotFinite) {
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n0,0,0\n200,0,nan\n"),
              HasSubstr("survey.csv: row 2: azimuth 'nan' is not finite"));
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n0,0,0\ninf,0,0\n"),
              HasSubstr("survey.csv: row 2: measured depth 'inf' is not finite"));
}

TEST_F(WellBadInput, EmptyCellsAreTold) {
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n0,0,0\n200,,0\n"),
              HasSubstr("row 2: inclination is empty"));
  EXPECT_THAT(reasonAgainst("MD,Inc,Azi\n0,0,0\n200,1\n300,1,2\n"),
              HasSubstr("row 2: azimuth is empty"));
}

TEST_F(WellBadInput, TooFewGoodRowsAreTold) {
  const std::string file = inputs.file("survey.csv", "MD,Inc,Azi\n0,0,0\n200,x,0\n");
  EXPECT_THAT(reasonOf({file, "--skip-bad"}), HasSubstr("a survey of one station, 1 left out"));
}

TEST_F(WellBadInput, TieInWithoutItsColumnsIsRefused) {
  EXPECT_THAT(reasonOf({good(), "--tie-in", "file"}),
              AllOf(HasSubstr("good.csv: row 1: "), HasSubstr("--tie-in file finds no")));
  const std::string mixed =
      inputs.file("mixed.csv", "MD[ft],Inc,Azi,TVD[m],North[m],East[m]\n9,0,0,9,0,0\n19,0,0,,,\n");
  EXPECT_THAT(reasonOf({mixed, "--tie-in", "file"}), HasSubstr("in the unit of the depths"));
}

TEST_F(WellBadInput, OptionsThatCannotBeReadAreNamed) {
  EXPECT_THAT(reasonOf({good(), "--method", "mincurve"}),
              HasSubstr("--method: 'mincurve' is none of tangential, average, balanced, "
                        "minimum-curvature, radius"));
  EXPECT_THAT(reasonOf({good(), "--units", "yd"}), HasSubstr("--units: 'yd' is neither ft nor m"));
  EXPECT_THAT(reasonOf({good(), "--output-units", "km"}), HasSubstr("--output-units: 'km'"));
  EXPECT_THAT(reasonOf({good(), "--wellhead", "1,2"}), HasSubstr("--wellhead: '1,2' is not x,y,z"));
  EXPECT_THAT(reasonOf({good(), "--wellhead", "1,nan,2"}),
              HasSubstr("--wellhead: 'nan' is not a finite number"));
  EXPECT_THAT(reasonOf({good(), "--wellhead", "1,1e300,2"}), HasSubstr("is out of reach"));
  EXPECT_THAT(reasonOf({good(), "--tie-in", "1,2"}),
              HasSubstr("--tie-in: '1,2' is not TVD,NORTH,EAST or file"));
  EXPECT_THAT(reasonOf({good(), "--layer", "other"}), HasSubstr("no layer 'other'"));
}

TEST_F(WellBadInput, SystemNeedsAWellheadInMetres) {
  EXPECT_THAT(reasonOf({good(), "--crs", "EPSG:32631"}), HasSubstr("give --wellhead"));
  EXPECT_THAT(
      reasonOf({good(), "--crs", "EPSG:32631", "--wellhead", "500000,0,0", "--units", "ft"}),
      HasSubstr("--crs EPSG:32631 is in metres, but the results are in ft: give --output-units m"));
  EXPECT_THAT(reasonOf({good(), "--crs", "EPSG:4326", "--wellhead", "5,6,0"}),
              HasSubstr("not a projected system in metres"));
}

TEST_F(WellBadInput, UnknownEndingsAreRefused) {
  EXPECT_THAT(reasonOf({good()}, "out.well"), HasSubstr("unknown ending for the output"));
  EXPECT_THAT(reasonOf({good(), "--picture", outputs.path("well.pdf")}),
              HasSubstr("unknown ending for the picture"));
}

TEST_F(WellBadInput, FormatsThatCannotHoldThePathAreRefused) {
  EXPECT_THAT(reasonOf({good()}, "out.tab"), HasSubstr("does not hold a line with its z"));
  EXPECT_THAT(reasonOf({good()}, "out.kml"), HasSubstr("out.kml: cannot be written: "));
}

TEST_F(WellBadInput, MissingFolderLeavesNothing) {
  EXPECT_THAT(reasonOf({good()}, "missing/out.shp"), HasSubstr("cannot be written"));
  EXPECT_THAT(reasonOf({good(), "--picture", outputs.path("missing/map.svg")}, "out.shp"),
              HasSubstr("missing/map.svg: cannot be written: No such file or directory"));
}

TEST(WellOutputSafety, InputIsNotOverwritten) {
  const TestFolder folder;
  const std::string input = folder.file("survey.csv", kGoodRows);
  EXPECT_EQ(runZrbase({"well", input, "-o", input}).status, 2);
  EXPECT_EQ(readFile(input), kGoodRows);
}

TEST(WellOutputSafety, TableOfAShapefileIsNotTheInput) {
  const TestFolder folder;
  copyVectorFile(folder.file("survey.csv", kGoodRows), folder.path("out.dbf"), "ESRI Shapefile");
  const std::vector<std::string> before = folder.names();
  const std::string table = readFile(folder.path("out.dbf"));
  const CommandResult result =
      runZrbase({"well", folder.path("out.dbf"), "-o", folder.path("out.shp")});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.err, HasSubstr("out.dbf: is an input too"));
  EXPECT_EQ(folder.names(), before);
  EXPECT_EQ(readFile(folder.path("out.dbf")), table);
}

TEST(WellOutputSafety, EarlierOutputSurvivesAFailure) {
  const TestFolder folder;
  const std::string input = folder.file("bad.csv", "MD,Inc,Azi\n0,0,0\n10,x,0\n");
  const std::string output = folder.file("out.csv", "kept");
  EXPECT_EQ(runZrbase({"well", input, "-o", output}).status, 2);
  EXPECT_EQ(readFile(output), "kept");
}

}  // namespace
