#include <zrBase/tools3d/lineSampling.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

namespace {

using zr3DTools::sampleLineFixedInterval;
using zr3DTools::sampleLineUsingRatio;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The samples that replace the vertices; the call must return true.
VertexLine replaced(const char* lineText, double interval) {
  VertexLine result;
  EXPECT_TRUE(sampleLineFixedInterval(line(lineText), result, interval, false));
  return result;
}

/// The line with its long segments split; the call must return true.
VertexLine split(const char* lineText, double interval) {
  VertexLine result;
  EXPECT_TRUE(sampleLineFixedInterval(line(lineText), result, interval, true));
  return result;
}

TEST(SampleLineFixedInterval, SpacesSamplesAndAddsTheEnd) {
  EXPECT_THAT(replaced("0 0 0, 10 0 0", 3.0), LineIs("0 0, 3 0, 6 0, 9 0, 10 0"));
}

TEST(SampleLineFixedInterval, MeasuresInSpace) {
  EXPECT_THAT(replaced("0 0 0, 6 0 8", 2.5), LineIs("0 0 0, 1.5 0 2, 3 0 4, 4.5 0 6, 6 0 8"));
}

// 3 in the first segment leaves 1 to carry; 2 into the second is the next.
TEST(SampleLineFixedInterval, CarriesTheSpacingThroughVertices) {
  EXPECT_THAT(replaced("0 0, 4 0, 10 0", 3.0), LineIs("0 0, 3 0, 6 0, 9 0, 10 0"));
  EXPECT_THAT(replaced("0 0, 2 0, 2 5", 3.0), LineIs("0 0, 2 1, 2 4, 2 5"));
}

TEST(SampleLineFixedInterval, CarriesOverSegmentsShorterThanTheInterval) {
  EXPECT_THAT(replaced("0 0, 1 0, 2 0, 2 0, 3.5 0, 8 0", 3.0), LineIs("0 0, 3 0, 6 0, 8 0"));
}

TEST(SampleLineFixedInterval, TakesASampleWhereAFirstStepEndsAtAVertex) {
  EXPECT_THAT(replaced("0 0, 3 0, 5 0", 3.0), LineIs("0 0, 3 0"));
  EXPECT_THAT(replaced("0 0, 1 0, 3 0", 3.0), LineIs("0 0, 3 0"));
}

TEST(SampleLineFixedInterval, KeptSampleDueAtVertexIsSkipped) {
  EXPECT_THAT(replaced("0 0 0, 10 0 0", 5.0), LineIs("0 0, 5 0"));
  // Skipped at the vertex at 10; at the end it comes in by the rule for line ends.
  EXPECT_THAT(replaced("0 0, 10 0, 20 0", 5.0), LineIs("0 0, 5 0, 15 0, 20 0"));
  // Nothing is carried over the skipped sample.
  EXPECT_THAT(replaced("0 0, 6 0, 10 0", 3.0), LineIs("0 0, 3 0, 9 0, 10 0"));
}

TEST(SampleLineFixedInterval, KeptShortResultOmitsLineEnd) {
  EXPECT_THAT(replaced("0 0, 10 0", 20.0), LineIs("0 0"));
  EXPECT_THAT(replaced("0 0, 10 0", 6.0), LineIs("0 0, 6 0"));
}

// By itself the call gives "0 0, 6 0" and no end.
TEST(SampleLineFixedInterval, KeptEndRuleCountsEarlierContent) {
  VertexLine result = line("7 7");
  EXPECT_TRUE(sampleLineFixedInterval(line("0 0, 10 0"), result, 6.0, false));
  EXPECT_THAT(result, LineIs("7 7, 0 0, 6 0, 10 0"));
}

TEST(SampleLineFixedInterval, LeavesOutAnEndThatIsReachedAlready) {
  EXPECT_THAT(replaced("0 0, 9.000001 0", 3.0), LineNear("0 0, 3 0, 6 0, 9 0", 1e-9));
  EXPECT_THAT(replaced("0 0, 9.0001 0", 3.0), LineNear("0 0, 3 0, 6 0, 9 0, 9.0001 0", 1e-9));
}

TEST(SampleLineFixedInterval, LeavesOutAnEndThatTurnsBack) {
  EXPECT_THAT(replaced("0 0, 7 0, 5.5 0", 3.0), LineIs("0 0, 3 0, 6 0"));
}

TEST(SampleLineFixedInterval, AppendsToItsResult) {
  VertexLine result = line("1 1, 2 2");
  EXPECT_TRUE(sampleLineFixedInterval(line("0 0, 10 0"), result, 4.0, true));
  EXPECT_THAT(result, LineIs("1 1, 2 2, 0 0, 5 0, 10 0"));
}

TEST(SampleLineFixedInterval, HandlesShortLines) {
  for (const bool keepVertices : {false, true}) {
    VertexLine result;
    EXPECT_FALSE(sampleLineFixedInterval(VertexLine(), result, 1.0, keepVertices));
    EXPECT_TRUE(result.empty());
    EXPECT_TRUE(sampleLineFixedInterval(line("1 2 3"), result, 1.0, keepVertices));
    EXPECT_THAT(result, LineIs("1 2 3"));
  }
  VertexLine preset = line("4 4");
  EXPECT_FALSE(sampleLineFixedInterval(VertexLine(), preset, 1.0, false));
  EXPECT_THAT(preset, LineIs("4 4"));
}

TEST(SampleLineFixedInterval, StopsAfterTheFirstVertexWithoutAnInterval) {
  for (const double interval : {0.0, -0.0, -3.0, -infinity, notANumber}) {
    for (const bool keepVertices : {false, true}) {
      VertexLine result;
      EXPECT_FALSE(sampleLineFixedInterval(line("1 2, 9 2"), result, interval, keepVertices));
      EXPECT_THAT(result, LineIs("1 2"));
    }
  }
}

TEST(SampleLineFixedInterval, LooksAtNoIntervalForALineOfOneVertex) {
  for (const double interval : {0.0, -3.0, notANumber}) {
    VertexLine result;
    EXPECT_TRUE(sampleLineFixedInterval(line("1 2"), result, interval, false));
    EXPECT_THAT(result, LineIs("1 2"));
  }
}

TEST(SampleLineFixedInterval, SplitsAKeptSegmentIntoWholeIntervals) {
  EXPECT_THAT(split("0 0 0, 10 0 0", 4.0), LineIs("0 0, 5 0, 10 0"));
  EXPECT_THAT(split("0 0, 29 0", 10.0), LineIs("0 0, 14.5 0, 29 0"));
  EXPECT_THAT(split("0 0, 20 0", 10.0), LineIs("0 0, 10 0, 20 0"));
  EXPECT_THAT(split("0 0 0, 0 24 32", 10.0), LineIs("0 0 0, 0 6 8, 0 12 16, 0 18 24, 0 24 32"));
}

TEST(SampleLineFixedInterval, HalvesAKeptSegmentBelowTwoIntervals) {
  EXPECT_THAT(split("0 0, 15 0 3", 10.0), LineIs("0 0, 7.5 0 1.5, 15 0 3"));
}

TEST(SampleLineFixedInterval, KeepsEveryVertex) {
  EXPECT_THAT(split("0 0, 1 0, 1 0, 1 20, 2 20", 10.0), LineIs("0 0, 1 0, 1 0, 1 10, 1 20, 2 20"));
}

// With 1.3 in double precision the bound would be 13, and 13 is not above it.
TEST(SampleLineFixedInterval, KeptSplitStartsAtSinglePrecisionFactor) {
  EXPECT_THAT(split("0 0, 13 0", 10.0), LineIs("0 0, 6.5 0, 13 0"));
  EXPECT_THAT(split("0 0, 12.999999 0", 10.0), LineIs("0 0, 12.999999 0"));
}

TEST(SampleLineFixedInterval, MayAppendToTheLineItself) {
  VertexLine sampled = line("0 0, 10 0");
  EXPECT_TRUE(sampleLineFixedInterval(sampled, sampled, 3.0, false));
  EXPECT_THAT(sampled, LineIs("0 0, 10 0, 0 0, 3 0, 6 0, 9 0, 10 0"));

  VertexLine divided = line("0 0, 10 0");
  EXPECT_TRUE(sampleLineFixedInterval(divided, divided, 4.0, true));
  EXPECT_THAT(divided, LineIs("0 0, 10 0, 0 0, 5 0, 10 0"));

  VertexLine empty;
  EXPECT_FALSE(sampleLineFixedInterval(empty, empty, 4.0, true));
  EXPECT_TRUE(empty.empty());
}

TEST(SampleLineFixedInterval, EndsOnLengthsThatCannotBeWalked) {
  VertexLine result;
  EXPECT_TRUE(sampleLineFixedInterval({gdfVertex(), gdfVertex(infinity, 0.0)}, result, 1.0, false));
  EXPECT_THAT(result, LineIs("0 0"));

  result.clear();
  EXPECT_TRUE(sampleLineFixedInterval({gdfVertex(), gdfVertex(1e100, 0)}, result, 1.0, false));
  EXPECT_THAT(result, LineIs("0 0"));

  result.clear();
  EXPECT_TRUE(sampleLineFixedInterval({gdfVertex(), gdfVertex(1, 0)}, result,
                                      std::numeric_limits<double>::denorm_min(), false));
  EXPECT_THAT(result, LineIs("0 0"));

  result.clear();
  EXPECT_TRUE(sampleLineFixedInterval({gdfVertex(), gdfVertex(infinity, 0.0), gdfVertex(5, 0)},
                                      result, 1.0, true));
  ASSERT_EQ(result.size(), 3u);
  EXPECT_THAT(result.back(), VertexIs("5 0"));
}

TEST(SampleLineFixedInterval, GoesOnBehindALengthThatCannotBeWalked) {
  VertexLine result;
  EXPECT_TRUE(sampleLineFixedInterval({gdfVertex(-1e100, 0), gdfVertex(0, 0), gdfVertex(0, 7)},
                                      result, 3.0, false));
  ASSERT_EQ(result.size(), 4u);
  EXPECT_THAT(VertexLine(result.begin() + 1, result.end()), LineIs("0 3, 0 6, 0 7"));
}

TEST(SampleLineFixedInterval, TakesNoSampleOnceACoordinateIsNaN) {
  VertexLine result;
  EXPECT_TRUE(sampleLineFixedInterval(
      {gdfVertex(), gdfVertex(notANumber, 0.0), gdfVertex(10, 0), gdfVertex(20, 0)}, result, 3.0,
      false));
  EXPECT_THAT(result, LineIs("0 0"));
}

TEST(SampleLineFixedInterval, TakesTheFirstVertexAloneAtAnInfiniteInterval) {
  EXPECT_THAT(replaced("0 0, 10 0, 20 0", infinity), LineIs("0 0"));
  EXPECT_THAT(split("0 0, 10 0, 20 0", infinity), LineIs("0 0, 10 0, 20 0"));
}

// One segment along x, all numbers multiples of 1/64: every sample is exact.
RC_GTEST_PROP(SampleLineFixedInterval, SpacesSamplesExactlyOnOneSegment, ()) {
  const int length = *rc::gen::inRange(1, 2000);
  const int interval = *rc::gen::inRange(1, 300);
  VertexLine result;
  RC_ASSERT(sampleLineFixedInterval({gdfVertex(), gdfVertex(length / 64.0, 0)}, result,
                                    interval / 64.0, false));
  VertexLine expected = {gdfVertex()};
  // A first step that ends at the vertex takes a sample, a later one does not.
  if (length == interval) expected.emplace_back(length / 64.0, 0);
  for (int at = interval; at < length; at += interval) expected.emplace_back(at / 64.0, 0);
  if (expected.size() > 2) expected.emplace_back(length / 64.0, 0);
  RC_ASSERT(result == expected);
}

RC_GTEST_PROP(SampleLineFixedInterval, LeavesNoKeptPieceOfTwoIntervals, ()) {
  const auto steps = *rc::gen::container<std::vector<int>>(4, rc::gen::inRange(0, 1000));
  const double interval = *rc::gen::inRange(1, 300) / 64.0;
  VertexLine stairs = {gdfVertex()};
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const double step = steps[i] / 64.0;
    stairs.push_back(stairs.back() + (i % 2 == 0 ? gdfVertex(step, 0) : gdfVertex(0, step)));
  }
  VertexLine result;
  RC_ASSERT(sampleLineFixedInterval(stairs, result, interval, true));
  std::size_t kept = 0;
  for (const gdfVertex& v : result) {
    if (kept < stairs.size() && v == stairs[kept]) ++kept;
  }
  RC_ASSERT(kept == stairs.size());
  for (std::size_t i = 1; i < result.size(); ++i) {
    RC_ASSERT(result[i - 1].distance(result[i]) < 2.0 * interval);
  }
}

TEST(SampleLineUsingRatio, IsFalseForRatioOneAndBelowZero) {
  for (const double ratio : {1.0, 0.0, -0.0, -2.0}) {
    VertexLine result;
    EXPECT_FALSE(sampleLineUsingRatio(line("0 0, 5 0, 10 0"), result, ratio, true));
    EXPECT_FALSE(sampleLineUsingRatio(line("0 0"), result, ratio, true));
    EXPECT_TRUE(result.empty());
  }
}

TEST(SampleLineUsingRatio, HandlesShortLines) {
  VertexLine result;
  EXPECT_FALSE(sampleLineUsingRatio(VertexLine(), result, 2.0, true));
  EXPECT_TRUE(result.empty());
  EXPECT_TRUE(sampleLineUsingRatio(line("1 2 3"), result, 2.0, true));
  EXPECT_THAT(result, LineIs("1 2 3"));
}

// (3 - 2) 3 = 3, so four intervals of 2.5; without the vertices the sample due at 5 is skipped.
TEST(SampleLineUsingRatio, DensifiesAboveOne) {
  VertexLine kept;
  EXPECT_TRUE(sampleLineUsingRatio(line("0 0, 5 0, 10 0"), kept, 3.0, true));
  EXPECT_THAT(kept, LineIs("0 0, 2.5 0, 5 0, 7.5 0, 10 0"));
  VertexLine replacedVertices;
  EXPECT_TRUE(sampleLineUsingRatio(line("0 0, 5 0, 10 0"), replacedVertices, 3.0, false));
  EXPECT_THAT(replacedVertices, LineIs("0 0, 2.5 0, 7.5 0, 10 0"));
}

// (6 - 2) / 2 = 2, so three intervals of 2.
TEST(SampleLineUsingRatio, KeptThinningGivesUpVertices) {
  for (const bool keepVertices : {false, true}) {
    VertexLine result;
    EXPECT_TRUE(
        sampleLineUsingRatio(line("0 0, 1 0, 2 0, 3 0, 4 0, 6 0"), result, 0.5, keepVertices));
    EXPECT_THAT(result, LineIs("0 0, 2 0, 4 0, 6 0"));
  }
}

// (3 - 2) 0.9 is truncated to 0, so one interval of 10.
TEST(SampleLineUsingRatio, TruncatesTheCount) {
  VertexLine result;
  EXPECT_TRUE(sampleLineUsingRatio(line("0 0, 5 0, 10 0"), result, 0.9, false));
  EXPECT_THAT(result, LineIs("0 0, 10 0"));
}

TEST(SampleLineUsingRatio, TakesTwoVerticesAsOneInterval) {
  VertexLine result;
  EXPECT_TRUE(sampleLineUsingRatio(line("0 0, 10 0"), result, 5.0, false));
  EXPECT_THAT(result, LineIs("0 0, 10 0"));
}

TEST(SampleLineUsingRatio, StopsAfterTheFirstVertexOfALineWithoutLength) {
  for (const double ratio : {0.5, 2.0, 1e300, infinity}) {
    VertexLine result;
    EXPECT_FALSE(sampleLineUsingRatio(line("1 1, 1 1, 1 1"), result, ratio, true));
    EXPECT_THAT(result, LineIs("1 1"));
  }
}

TEST(SampleLineUsingRatio, TakesANaNForOneInterval) {
  VertexLine kept;
  EXPECT_TRUE(sampleLineUsingRatio(line("0 0, 5 0, 10 0"), kept, notANumber, true));
  EXPECT_THAT(kept, LineIs("0 0, 5 0, 10 0"));
  VertexLine replacedVertices;
  EXPECT_TRUE(sampleLineUsingRatio(line("0 0, 5 0, 10 0"), replacedVertices, notANumber, false));
  EXPECT_THAT(replacedVertices, LineIs("0 0, 10 0"));
}

TEST(SampleLineUsingRatio, AppendsToItsResultOrTheLineItself) {
  VertexLine result = line("8 8");
  EXPECT_TRUE(sampleLineUsingRatio(line("0 0, 10 0"), result, 5.0, false));
  EXPECT_THAT(result, LineIs("8 8, 0 0, 10 0"));

  VertexLine sampled = line("0 0, 5 0, 10 0");
  EXPECT_TRUE(sampleLineUsingRatio(sampled, sampled, 3.0, true));
  EXPECT_THAT(sampled, LineIs("0 0, 5 0, 10 0, 0 0, 2.5 0, 5 0, 7.5 0, 10 0"));

  VertexLine lone = line("3 3");
  EXPECT_TRUE(sampleLineUsingRatio(lone, lone, 3.0, true));
  EXPECT_THAT(lone, LineIs("3 3, 3 3"));
}

}  // namespace
