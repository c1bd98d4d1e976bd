#include <zrBase/survey/zrSurveyPoint.h>

#include <gtest/gtest.h>

#include "survey/support/surveyPoints.h"

#include <limits>

namespace {

TEST(SurveyPoint, StartsUnsetInAllFields) {
  const zrSurveyPoint p;
  EXPECT_EQ(p.inlineNumber, unsetNumber);
  EXPECT_EQ(p.traceNumber, unsetNumber);
  EXPECT_EQ(p.x, unsetNumber);
  EXPECT_EQ(p.y, unsetNumber);
  EXPECT_EQ(unsetNumber, static_cast<double>(std::numeric_limits<float>::max()));
  EXPECT_FALSE(p.IsSet());
}

TEST(SurveyPoint, ClearUnsetsAllFields) {
  zrSurveyPoint p = surveyPoint("1 2 3 4");
  p.clear();
  EXPECT_THAT(p, PointIs("unset"));
}

TEST(SurveyPoint, KeptSurveyPointSetTakesWorldFirst) {
  zrSurveyPoint p;
  p.Set(1.0, 2.0, 3.0, 4.0);
  EXPECT_EQ(p.x, 1.0);
  EXPECT_EQ(p.y, 2.0);
  EXPECT_EQ(p.inlineNumber, 3.0);
  EXPECT_EQ(p.traceNumber, 4.0);
}

TEST(SurveyPoint, IsSetOnlyWithAllFour) {
  EXPECT_TRUE(surveyPoint("1 2 3 4").IsSet());
  EXPECT_TRUE(surveyPoint("0 0 0 0").IsSet());
  for (double zrSurveyPoint::*field : {&zrSurveyPoint::inlineNumber, &zrSurveyPoint::traceNumber,
                                       &zrSurveyPoint::x, &zrSurveyPoint::y}) {
    zrSurveyPoint p = surveyPoint("1 2 3 4");
    p.*field = unsetNumber;
    EXPECT_FALSE(p.IsSet());
    p.*field = -unsetNumber;
    EXPECT_TRUE(p.IsSet()) << "the comparison is exact, the negative is a number";
  }
}

TEST(SurveyPoint, CopiesAllFour) {
  const zrSurveyPoint p = surveyPoint("1 2 3 4");
  zrSurveyPoint copied;
  copied.Copy(p);
  EXPECT_THAT(copied, PointIs("1 2 3 4"));
  zrSurveyPoint assigned;
  assigned = p;
  EXPECT_THAT(assigned, PointIs("1 2 3 4"));
}

}  // namespace
