#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "apps/commandRunner.h"

// Where a rule of a method leads astray, the station is told and the result stays that of the
// method.

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class WellWarning : public ::testing::Test {
 protected:
  // What is told about a survey of two stations; the output must stand.
  std::string toldOf(const std::string& rows, const std::string& method) {
    const std::string survey = folder.file("survey.csv", "MD,Inc,Azi\n" + rows);
    const CommandResult result =
        runZrbase({"well", survey, "--method", method, "-o", folder.path("out.csv")});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr("out.csv: table of"));
    EXPECT_THAT(readFile(folder.path("out.csv")), StartsWith("MD[m]"));
    return result.err;
  }

  // North offset of the last station.
  double lastNorth() const {
    const std::string text = readFile(folder.path("out.csv"));
    const std::size_t row = text.rfind('\n', text.size() - 2) + 1;
    return numbersIn(text.substr(row)).at(7);
  }

  TestFolder folder;
};

std::size_t linesIn(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

TEST_F(WellWarning, AverageAcrossNorthIsToldAndGoesSouth) {
  const std::string told = toldOf("0,10,359\n100,10,1\n", "average");
  EXPECT_EQ(linesIn(told), 1U);
  EXPECT_THAT(told, AllOf(StartsWith("zrbase well: warning: "), HasSubstr("survey.csv: row 2: "),
                          HasSubstr("azimuth 359 to 1 crosses north"), HasSubstr("mean 180")));
  EXPECT_LT(lastNorth(), 0.0);
}

TEST_F(WellWarning, EachStationAcrossNorthHasItsLine) {
  const std::string told = toldOf("0,10,359\n100,10,1\n200,10,20\n300,10,350\n", "average");
  EXPECT_EQ(linesIn(told), 2U);
  EXPECT_THAT(told, AllOf(HasSubstr("row 2: "), HasSubstr("row 4: ")));
}

TEST_F(WellWarning, AverageOfAzimuthsHalfACircleApartIsNotTold) {
  EXPECT_EQ(toldOf("0,10,0\n100,10,180\n", "average"), "");
  EXPECT_EQ(toldOf("0,10,10\n100,10,170\n", "average"), "");
}

TEST_F(WellWarning, AverageWithAVerticalStationIsTold) {
  EXPECT_THAT(
      toldOf("0,0,0\n100,10,90\n", "average"),
      AllOf(HasSubstr("row 2: azimuth 0 to 90 with one station vertical"), HasSubstr("mean 45")));
  EXPECT_EQ(toldOf("0,0,90\n100,10,90\n", "average"), "");
}

TEST_F(WellWarning, RadiusAcrossNorthTurnsTheLongWay) {
  const std::string told = toldOf("0,10,359\n100,12,1\n", "radius");
  EXPECT_EQ(linesIn(told), 1U);
  EXPECT_THAT(
      told, AllOf(HasSubstr("row 2: azimuth 359 to 1 crosses north"), HasSubstr("by 358 degrees")));
}

TEST_F(WellWarning, RadiusWithEqualInclinationsDoesNotMindNorth) {
  EXPECT_EQ(toldOf("0,10,359\n100,10,1\n", "radius"), "");
  EXPECT_GT(lastNorth(), 0.0);
}

TEST_F(WellWarning, MinimumCurvatureDoesNotMindNorth) {
  EXPECT_EQ(toldOf("0,10,359\n100,10,1\n", "minimum-curvature"), "");
  EXPECT_GT(lastNorth(), 0.0);
}

TEST_F(WellWarning, BalancedMindsNothing) {
  EXPECT_EQ(toldOf("0,10,359\n100,100,1\n", "balanced"), "");
  EXPECT_EQ(toldOf("0,0,0\n100,10,700\n", "balanced"), "");
}

TEST_F(WellWarning, MinimumCurvatureNearARightAngleIsTold) {
  const std::string told = toldOf("0,0,45\n100,90,45\n", "minimum-curvature");
  EXPECT_EQ(linesIn(told), 1U);
  EXPECT_THAT(told, AllOf(HasSubstr("row 2: dogleg of 90 degrees, near a right angle"),
                          HasSubstr("average angle method")));
}

// The cosine of 89.4 degrees is 0.0105, that of 89.5 is 0.0087: the band ends at 0.01.
TEST_F(WellWarning, BandAboutTheRightAngleIsNarrow) {
  EXPECT_EQ(toldOf("0,0,45\n100,89.4,45\n", "minimum-curvature"), "");
  EXPECT_THAT(toldOf("0,0,45\n100,89.5,45\n", "minimum-curvature"), HasSubstr("89.5 degrees"));
  EXPECT_THAT(toldOf("0,0,45\n100,90.5,45\n", "minimum-curvature"), HasSubstr("90.5 degrees"));
  EXPECT_EQ(toldOf("0,0,45\n100,90.6,45\n", "minimum-curvature"), "");
}

TEST_F(WellWarning, RightAngleAcrossNorthTellsTheMeanToo) {
  EXPECT_THAT(toldOf("0,2,359\n100,92,1\n", "minimum-curvature"),
              AllOf(HasSubstr("near a right angle"), HasSubstr("mean 180")));
}

TEST_F(WellWarning, MinimumCurvatureWithoutADoglegAcrossNorthIsTold) {
  EXPECT_THAT(toldOf("0,10,0\n100,10,360\n", "minimum-curvature"),
              AllOf(HasSubstr("row 2: azimuth 0 to 360 without a dogleg"), HasSubstr("mean 180")));
  EXPECT_LT(lastNorth(), 0.0);
}

TEST_F(WellWarning, NearlyOppositeDirectionsAreTold) {
  EXPECT_THAT(toldOf("0,90,0\n100,90,180\n", "minimum-curvature"), HasSubstr("nearly back"));
}

TEST_F(WellWarning, TangentialKnowsAzimuthsOfOneCircleOnly) {
  EXPECT_THAT(toldOf("0,10,0\n100,10,370\n", "tangential"),
              HasSubstr("row 2: azimuth 370 is outside 0 to 360"));
  EXPECT_EQ(lastNorth(), 0.0);
  EXPECT_THAT(toldOf("0,10,0\n100,10,-1\n", "tangential"), HasSubstr("azimuth -1 is outside"));
  EXPECT_EQ(toldOf("0,10,0\n100,10,360\n", "tangential"), "");
  EXPECT_EQ(toldOf("0,0,0\n100,0,370\n", "tangential"), "");
}

TEST_F(WellWarning, VerticalIntervalsAreNeverTold) {
  for (const char* const method : {"average", "minimum-curvature", "radius"}) {
    EXPECT_EQ(toldOf("0,0,0\n100,0,350\n", method), "") << method;
  }
}

TEST_F(WellWarning, RealSurveyIsToldWhereItCrossesNorth) {
  const std::string survey = std::string(ZRBASE_EXAMPLE_DATA) + "/deviation.csv";
  const CommandResult result =
      runZrbase({"well", survey, "--method", "average", "-o", folder.path("out.csv")});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(linesIn(result.err), 1U) << result.err;
  EXPECT_THAT(result.err, HasSubstr("deviation.csv: row 7: azimuth 1.3 to 351.6 crosses north"));
}

}  // namespace
