#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <locale>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "apps/commandRunner.h"

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr double kDegree = M_PI / 180.0;

// Straight down, then a build of 30 degrees towards the east.
const char* const kBuild = "MD,Inc,Azi\n0,0,0\n100,0,0\n200,30,90\n";

using Table = std::vector<std::map<std::string, double>>;

std::string exampleSurvey() { return std::string(ZRBASE_EXAMPLE_DATA) + "/deviation.csv"; }

std::vector<std::string> cellsOf(const std::string& row) {
  std::vector<std::string> cells;
  std::istringstream stream(row);
  for (std::string cell; std::getline(stream, cell, ',');) {
    cells.push_back(cell);
  }
  return cells;
}

// Rows of a table by the names of its columns, without what stands in brackets.
Table readTable(const std::string& path) {
  std::istringstream lines(readFile(path));
  std::string line;
  std::getline(lines, line);
  const std::vector<std::string> names = cellsOf(line);
  Table table;
  while (std::getline(lines, line)) {
    const std::vector<std::string> cells = cellsOf(line);
    EXPECT_EQ(cells.size(), names.size()) << line;
    table.emplace_back();
    for (std::size_t i = 0; i < std::min(cells.size(), names.size()); ++i) {
      std::istringstream number(cells[i]);
      number.imbue(std::locale::classic());
      number >> table.back()[names[i].substr(0, names[i].find_first_of(" ["))];
    }
  }
  return table;
}

class WellCommand : public ::testing::Test {
 protected:
  // Runs on a survey of this text with the options, and leaves the output in `output`.
  void compute(const std::string& survey, std::vector<std::string> options = {},
               const std::string& output = "out.csv") {
    run(folder.file("survey.csv", survey), std::move(options), output);
  }

  void run(const std::string& file, std::vector<std::string> options,
           const std::string& output = "out.csv") {
    options.insert(options.begin(), {"well", file, "-o", folder.path(output)});
    result = runZrbase(options);
    EXPECT_EQ(result.status, 0) << result.err;
  }

  Table tableOf(const std::string& survey, std::vector<std::string> options = {}) {
    compute(survey, std::move(options));
    return readTable(folder.path("out.csv"));
  }

  TestFolder folder;
  CommandResult result;
};

// The survey of the contractor

TEST_F(WellCommand, MinimumCurvatureGivesTheContractorsPlaces) {
  run(exampleSurvey(), {"--method", "minimum-curvature"});
  const Table own = readTable(exampleSurvey());
  const Table made = readTable(folder.path("out.csv"));
  ASSERT_EQ(own.size(), 79U);
  ASSERT_EQ(made.size(), 79U);
  for (std::size_t i = 0; i < own.size(); ++i) {
    SCOPED_TRACE("station " + std::to_string(i + 1));
    for (const char* const column : {"TVD", "North", "East"}) {
      EXPECT_NEAR(made[i].at(column), own[i].at(column), 0.05) << column;
    }
    if (i < 77) {  // the last two were carried on to total depth, with the severity before them
      EXPECT_NEAR(made[i].at("DLS"), own[i].at("Dogleg"), 0.11);  // theirs from rounded angles
    }
    EXPECT_EQ(made[i].at("MD"), own[i].at("MD"));
  }
  EXPECT_EQ(result.err, "");
}

TEST_F(WellCommand, MinimumCurvatureIsTheDefault) {
  run(exampleSurvey(), {}, "default.csv");
  run(exampleSurvey(), {"--method", "minimum-curvature"}, "named.csv");
  EXPECT_EQ(readFile(folder.path("default.csv")), readFile(folder.path("named.csv")));
}

TEST_F(WellCommand, SummaryTellsTheWell) {
  run(exampleSurvey(), {});
  EXPECT_THAT(
      result.out,
      AllOf(HasSubstr("stations  79\n"), HasSubstr("minimum-curvature\n"),
            HasSubstr("depth     2267.00 m\n"), HasSubstr("TVD       2013.26 m"),
            HasSubstr("displaced 940.59 m horizontally"), HasSubstr("closure   azimuth 302.03"),
            HasSubstr("largest 4.00 deg/30 m, at 505.40 m"),
            HasSubstr("vertical at the wellhead")));
  EXPECT_THAT(result.out, HasSubstr("the file's own TVD, north and east differ by at most 0.036, "
                                    "0.027 and 0.044 m"));
}

TEST_F(WellCommand, TieInFromTheFileStartsAtItsFirstPlace) {
  run(exampleSurvey(), {"--tie-in", "file"});
  const Table made = readTable(folder.path("out.csv"));
  EXPECT_EQ(made.at(0).at("TVD"), 76.29);
  EXPECT_EQ(made.at(0).at("North"), 0.59);
  EXPECT_EQ(made.at(0).at("East"), 0.07);
  EXPECT_EQ(made.at(0).at("DLS"), 0.0);
  EXPECT_NEAR(made.back().at("TVD"), 2013.3, 0.05);
}

// Methods, by hand. Between 100 and 200 the inclination goes from 0 to 30 towards the east.

TEST_F(WellCommand, TangentialRunsAsTheLowerStation) {
  const auto last = tableOf(kBuild, {"--method", "tangential"}).at(2);
  EXPECT_NEAR(last.at("East"), 50.0, 1e-8);
  EXPECT_NEAR(last.at("TVD"), 100.0 + 100.0 * std::cos(30.0 * kDegree), 1e-8);
  EXPECT_EQ(last.at("North"), 0.0);
}

TEST_F(WellCommand, BalancedTakesHalfOfEach) {
  const auto last = tableOf(kBuild, {"--method", "balanced"}).at(2);
  EXPECT_NEAR(last.at("East"), 25.0, 1e-8);
  EXPECT_NEAR(last.at("TVD"), 150.0 + 50.0 * std::cos(30.0 * kDegree), 1e-8);
}

// An arc of 30 degrees and 100 m has a radius of 600 / pi.
TEST_F(WellCommand, MinimumCurvatureIsAnArc) {
  const auto last = tableOf(kBuild).at(2);
  const double radius = 600.0 / M_PI;
  EXPECT_NEAR(last.at("East"), radius * (1.0 - std::cos(30.0 * kDegree)), 1e-8);
  EXPECT_NEAR(last.at("TVD"), 100.0 + radius * 0.5, 1e-8);
  EXPECT_NEAR(last.at("DLS"), 9.0, 1e-8);
}

TEST_F(WellCommand, AverageTakesTheMeanAngles) {
  const auto last = tableOf("MD,Inc,Azi\n0,10,40\n100,20,60\n", {"--method", "average"}).at(1);
  EXPECT_NEAR(last.at("East"), 100.0 * std::sin(15.0 * kDegree) * std::sin(50.0 * kDegree), 1e-8);
  EXPECT_NEAR(last.at("North"), 100.0 * std::sin(15.0 * kDegree) * std::cos(50.0 * kDegree), 1e-8);
  EXPECT_NEAR(last.at("TVD"), 100.0 * std::cos(15.0 * kDegree), 1e-8);
  EXPECT_EQ(result.err, "");
}

// A quarter turn on a cylinder, from 30 to 60 degrees of inclination. With both angles in radians
// the reach of the interval is 100 (cos 30 - cos 60) / (pi / 6), and it bends along a circle.
TEST_F(WellCommand, RadiusBendsOnACylinder) {
  const auto last = tableOf("MD,Inc,Azi\n0,30,0\n100,60,90\n", {"--method", "radius"}).at(1);
  const double reach = 100.0 * (std::cos(30.0 * kDegree) - std::cos(60.0 * kDegree)) / (M_PI / 6.0);
  EXPECT_NEAR(last.at("East"), reach / (M_PI / 2.0), 1e-8);
  EXPECT_NEAR(last.at("North"), reach / (M_PI / 2.0), 1e-8);
  EXPECT_NEAR(last.at("TVD"),
              100.0 * (std::sin(60.0 * kDegree) - std::sin(30.0 * kDegree)) / (M_PI / 6.0), 1e-8);
}

TEST_F(WellCommand, MethodNamesMayBeOfAnyCase) {
  EXPECT_EQ(tableOf(kBuild, {"--method", "Radius"}), tableOf(kBuild, {"--method", "radius"}));
}

// Where it begins

TEST_F(WellCommand, DeepFirstStationIsReachedFromAVerticalWellhead) {
  const auto first = tableOf("MD,Inc,Azi\n100,30,90\n200,30,90\n", {"--method", "average"}).at(0);
  EXPECT_NEAR(first.at("East"), 100.0 * std::sin(15.0 * kDegree), 1e-8);
  EXPECT_NEAR(first.at("North"), 0.0, 1e-8);
  EXPECT_NEAR(first.at("TVD"), 100.0 * std::cos(15.0 * kDegree), 1e-8);
  EXPECT_NEAR(first.at("DLS"), 9.0, 1e-8);
  EXPECT_EQ(result.err, "");
}

TEST_F(WellCommand, WellheadShiftsThePlacesAndTurnsDepthIntoHeight) {
  const auto last = tableOf(kBuild, {"--wellhead", "1000,2000,50", "--method", "tangential"}).at(2);
  EXPECT_NEAR(last.at("X"), 1050.0, 1e-8);
  EXPECT_NEAR(last.at("Y"), 2000.0, 1e-8);
  EXPECT_NEAR(last.at("Z"), -50.0 - 100.0 * std::cos(30.0 * kDegree), 1e-8);
  EXPECT_NEAR(last.at("East"), 50.0, 1e-8);
}

TEST_F(WellCommand, WellheadMayHaveNegativeCoordinates) {
  EXPECT_EQ(tableOf(kBuild, {"--wellhead", "-10,-20,-30"}).at(0).at("X"), -10.0);
}

TEST_F(WellCommand, TieInPlacesTheFirstStation) {
  const Table table = tableOf("MD,Inc,Azi\n1000,0,0\n1100,0,0\n",
                              {"--tie-in", "950,-20,30", "--wellhead", "1,2,3"});
  EXPECT_EQ(table.at(0).at("TVD"), 950.0);
  EXPECT_EQ(table.at(0).at("North"), -20.0);
  EXPECT_EQ(table.at(0).at("East"), 30.0);
  EXPECT_EQ(table.at(1).at("TVD"), 1050.0);
  EXPECT_EQ(table.at(1).at("X"), 31.0);
  EXPECT_EQ(table.at(1).at("Y"), -18.0);
  EXPECT_EQ(table.at(1).at("Z"), -1047.0);
}

TEST_F(WellCommand, VerticalWellHasNoClosure) {
  tableOf("MD,Inc,Azi\n0,0,0\n100,0,0\n");
  EXPECT_THAT(result.out, AllOf(HasSubstr("displaced 0.00 m"), HasSubstr("closure   none")));
}

// Units

TEST_F(WellCommand, DoglegOfFeetIsOverAHundredFeet) {
  const Table table = tableOf("MD (ft),Inc,Azi\n0,0,0\n50,2,0\n");
  EXPECT_NEAR(table.at(1).at("DLS"), 4.0, 1e-8);
  EXPECT_THAT(readFile(folder.path("out.csv")),
              StartsWith("MD[ft],Inc[deg],Azi[deg],X[ft],Y[ft],Z[ft],TVD[ft],North[ft],East[ft],"
                         "DLS[deg/100 ft]\n"));
  EXPECT_THAT(result.out, HasSubstr("depth     50.00 ft"));
}

TEST_F(WellCommand, OutputUnitsConvert) {
  const Table table = tableOf("MD,Inc,Azi\n0,0,0\n1000,0,0\n1100,10,0\n",
                              {"--units", "ft", "--output-units", "m", "--wellhead", "1,2,3"});
  EXPECT_EQ(table.at(1).at("MD"), 304.8);
  EXPECT_EQ(table.at(1).at("TVD"), 304.8);
  EXPECT_EQ(table.at(1).at("Z"), -301.8);
  EXPECT_NEAR(table.at(2).at("DLS"), 10.0 / 30.48 * 30.0, 1e-8);
}

TEST_F(WellCommand, StatedUnitAgreesWithTheOption) {
  EXPECT_EQ(tableOf("MD[m],Inc,Azi\n0,0,0\n10,0,0\n", {"--units", "m"}).size(), 2U);
  EXPECT_EQ(tableOf("MD[usft],Inc,Azi\n0,0,0\n10,0,0\n", {"--units", "FT"}).size(), 2U);
  EXPECT_THAT(result.out, HasSubstr("10.00 usft"));
}

// Columns and separators

TEST_F(WellCommand, ColumnNamesOfTheFieldAreRecognised) {
  const Table expected = tableOf(kBuild);
  const std::string rows = "\n0,0,0\n100,0,0\n200,30,90\n";
  for (const char* const names :
       {"MD[m],Inc[deg],Azi[deg]", "Measured Depth,Inclination,Azimuth", "DEPT,DEVI,HAZI",
        "md (m),INCL (DEG),AZIM (deg)", "MeasuredDepth_m,Incl.,AZI_deg", "DEPT.M,DEVI.DEG,HAZI.DEG",
        "Meas. Depth (RKB),Incl angle,Azi (grid)", "depth,deviation,azimuth (True)"}) {
    EXPECT_EQ(tableOf(names + rows), expected) << names;
  }
}

TEST_F(WellCommand, OtherColumnsMayStandAnywhere) {
  EXPECT_EQ(tableOf("Comment,Azi,TVD,Inc,MD\na,0,5,0,0\nb,0,,0,100\n,90,x,30,200\n"),
            tableOf(kBuild));
  EXPECT_THAT(result.out, Not(HasSubstr("check")));
}

TEST_F(WellCommand, SemicolonsTabsAndByteOrderMarksAreRead) {
  const Table expected = tableOf(kBuild);
  EXPECT_EQ(tableOf("\xEF\xBB\xBFMD;Inc;Azi\r\n0;0;0\r\n100;0;0\r\n200;30;90\r\n"), expected);
  EXPECT_EQ(tableOf("MD\tInc\tAzi\n0\t0\t0\n100\t0\t0\n200\t30\t90\n"), expected);
  EXPECT_EQ(tableOf("\"MD\",\"Inc\",\"Azi\"\n\"0\",\"0\",\"0\"\n100,0,0\n2e2,30.0,+90\n"),
            expected);
}

TEST_F(WellCommand, RowOfUnitsBelowTheNamesIsUnderstood) {
  tableOf("MD,Inc,Azi\nft,deg,deg\n0,0,0\n100,0,0\n");
  EXPECT_THAT(result.out, AllOf(HasSubstr("stations  2\n"), HasSubstr("100.00 ft")));
}

TEST_F(WellCommand, ItsOwnTableCanBeReadAgain) {
  const Table first = tableOf(kBuild);
  run(folder.path("out.csv"), {}, "again.csv");
  EXPECT_EQ(readTable(folder.path("again.csv")), first);
  EXPECT_THAT(result.out, HasSubstr("differ by at most 0.000, 0.000 and 0.000 m"));
}

TEST_F(WellCommand, TableInAGeoPackageIsRead) {
  const std::string source = folder.file("survey.csv", kBuild);
  copyVectorFile(source, folder.path("survey.gpkg"), "GPKG");
  run(source, {}, "fromText.csv");
  run(folder.path("survey.gpkg"), {"--layer", "survey"}, "fromPackage.csv");
  EXPECT_EQ(readTable(folder.path("fromPackage.csv")), readTable(folder.path("fromText.csv")));
}

TEST_F(WellCommand, DecimalCommaOfALocaleChangesNothing) {
  const std::string survey = folder.file("survey.csv", "MD,Inc,Azi\n0.5,0.25,0\n100.5,1.5,90.5\n");
  ASSERT_EQ(runZrbase({"well", survey, "-o", folder.path("plain.csv")}).status, 0);
  ASSERT_EQ(
      runZrbase({"well", survey, "-o", folder.path("comma.csv")}, "LC_ALL=de_DE.UTF-8").status, 0);
  EXPECT_EQ(readFile(folder.path("comma.csv")), readFile(folder.path("plain.csv")));
}

TEST_F(WellCommand, BadRowsAreLeftOutWhereAsked) {
  const Table table =
      tableOf("MD,Inc,Azi\n0,0,0\n50,x,0\n100,0,0\n90,0,0\n200,30,90\n", {"--skip-bad"});
  EXPECT_EQ(table, tableOf(kBuild));
  compute("MD,Inc,Azi\n0,0,0\n50,x,0\n100,0,0\n", {"--skip-bad"});
  EXPECT_THAT(result.out, HasSubstr("row 2: inclination 'x' is not a number"));
}

TEST_F(WellCommand, HelpHasExamples) {
  const CommandResult help = runZrbase({"well", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.out, AllOf(HasSubstr("zrbase well survey.csv -o stations.csv"),
                              HasSubstr("--tie-in"), HasSubstr("minimum-curvature")));
}

}  // namespace
