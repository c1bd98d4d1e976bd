#include <zrBase/tools3d/reversedSegments.h>

#include <gtest/gtest.h>

#include "support/geometryText.h"

#include <limits>
#include <string>

namespace {

const char* const report = "zr3DTools reversed line\n";

/// What one call writes on standard error. The line must stay as it is and the result be false.
std::string reported(VertexLine tested) {
  const VertexLine original = tested;
  testing::internal::CaptureStderr();
  const bool removed = zr3DTools::removeSingleReversedSegments(tested);
  const std::string text = testing::internal::GetCapturedStderr();
  EXPECT_FALSE(removed);
  EXPECT_EQ(toText(tested), toText(original));
  return text;
}

TEST(RemoveSingleReversedSegments, KeptReversedSegmentIsOnlyReported) {
  EXPECT_EQ(reported(line("0 0, 0 10, 0 5, 0 20")), report);
}

TEST(RemoveSingleReversedSegments, KeptReversedLineIsReportedOnce) {
  EXPECT_EQ(reported(line("0 0, 1 1, 2 0, 3 1, 4 0, 5 1")), report);
}

TEST(RemoveSingleReversedSegments, SaysNothingOfALineThatKeepsItsDirection) {
  EXPECT_EQ(reported(line("0 0, 0 10, 0 10, 5 10, 0 20")), "");
  EXPECT_EQ(reported(line("0 20, 0 10, 0 10, 5 10, 0 0")), "");
}

TEST(RemoveSingleReversedSegments, ReportsARiseOnAFallingLine) {
  EXPECT_EQ(reported(line("0 20, 0 10, 0 11, 0 0")), report);
}

TEST(RemoveSingleReversedSegments, TakesALevelFirstSegmentAsRising) {
  EXPECT_EQ(reported(line("0 0, 5 0, 5 1")), "");
  EXPECT_EQ(reported(line("0 0, 5 0, 5 -1")), report);
}

TEST(RemoveSingleReversedSegments, LooksAtYAlone) {
  EXPECT_EQ(reported(line("0 0 0, 10 1 5, 3 2 -9")), "");
}

TEST(RemoveSingleReversedSegments, TakesAFirstStepThatIsNotANumberAsFalling) {
  constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(reported({gdfVertex(0.0, notANumber), gdfVertex(0, 1), gdfVertex(0, 0)}), "");
  EXPECT_EQ(reported({gdfVertex(0.0, notANumber), gdfVertex(0, 0), gdfVertex(0, 1)}), report);
}

TEST(RemoveSingleReversedSegments, SaysNothingOfShortLines) {
  EXPECT_EQ(reported(VertexLine()), "");
  EXPECT_EQ(reported(line("1 1")), "");
  EXPECT_EQ(reported(line("1 1, 0 0")), "");
}

TEST(RemoveSingleReversedSegmentsOfLines, ReportsEveryLineAndReturnsFalse) {
  VertexLineList lines = {line("0 0, 0 10, 0 5"), line("0 0, 0 10"), VertexLine(),
                          line("0 9, 0 5, 0 7")};
  const VertexLineList original = lines;
  testing::internal::CaptureStderr();
  const bool removed = zr3DTools::removeSingleReversedSegments(lines);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), std::string(report) + report);
  EXPECT_FALSE(removed);
  EXPECT_EQ(lines, original);
}

TEST(RemoveSingleReversedSegmentsOfLines, SaysNothingOfAnEmptyList) {
  VertexLineList lines;
  testing::internal::CaptureStderr();
  const bool removed = zr3DTools::removeSingleReversedSegments(lines);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_FALSE(removed);
}

}  // namespace
