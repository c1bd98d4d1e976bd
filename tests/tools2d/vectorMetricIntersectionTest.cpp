#include <zrBase/tools2d/vectorIntersection.h>

#include <gtest/gtest.h>

#include "support/geometryText.h"

#include <cstddef>
#include <string>

// The forms that judge a crossing by distances in space, for directions of about unit length.

namespace {

struct Answer {
  bool found = false;
  gdfVertex out{-99.0, -98.0, -97.0};
};

constexpr const char* untouched = "-99 -98 -97";

/// Origin, direction, start and end of the segment.
Answer raySegment(const std::string& text, double tolerance = 1e-05) {
  const VertexLine v = line(text);
  Answer answer;
  answer.found = zr2DTools::getVectorSegmentIntersect2(v.at(0), v.at(1), v.at(2), v.at(3),
                                                       answer.out, tolerance);
  return answer;
}

/// Origin, direction, and two points of the second line.
Answer rayPoints(const std::string& text, double tolerance = 1e-05) {
  const VertexLine v = line(text);
  Answer answer;
  answer.found = zr2DTools::getVectorVectorIntersect2(v.at(0), v.at(1), v.at(2), v.at(3),
                                                      answer.out, tolerance);
  return answer;
}

TEST(VectorSegmentIntersect2, CrossesAheadWithTheHeightOfTheOrigin) {
  const Answer answer = raySegment("0 0 0, 1 0, 5 -5, 5 5");
  EXPECT_TRUE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("5 0 0"));
  EXPECT_THAT(raySegment("0 0 7, 1 0, 5 -5 7, 5 5 7").out, VertexIs("5 0 7"));
}

TEST(VectorSegmentIntersect2, KeptCrossingJustBehindOriginCounts) {
  const Answer behind = raySegment("0 0, 1 0, -1 -5, -1 5");
  EXPECT_TRUE(behind.found);
  EXPECT_THAT(behind.out, VertexIs("-1 0 0"));
  EXPECT_TRUE(raySegment("0 0, 1 0, -1.00005 -5, -1.00005 5").found);
  EXPECT_FALSE(raySegment("0 0, 1 0, -1.00015 -5, -1.00015 5").found);
  // In model units, whatever the length of the direction.
  EXPECT_TRUE(raySegment("0 0, 100 0, -1 -5, -1 5").found);
  EXPECT_TRUE(raySegment("0 0, 0.01 0, -1 -5, -1 5").found);
}

TEST(VectorSegmentIntersect2, CrossingTwoBehindIsRejectedAndLeftInTheOutput) {
  const Answer answer = raySegment("0 0 0, 1 0, -2 -5, -2 5");
  EXPECT_FALSE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("-2 0 0"));
  EXPECT_FALSE(raySegment("0 0, 100 0, -2 -5, -2 5").found);
  EXPECT_FALSE(raySegment("0 0, 0.01 0, -2 -5, -2 5").found);
}

// 2 ahead along a direction of 10: the tip is 8 away, farther than the origin, but not than the
// direction is long.
TEST(VectorSegmentIntersect2, CrossingNearTheOriginOfALongDirectionCounts) {
  EXPECT_TRUE(raySegment("0 0, 10 0, 2 -5, 2 5").found);
}

TEST(VectorSegmentIntersect2, CrossingMustProjectOntoTheSegmentWithoutTolerance) {
  EXPECT_TRUE(raySegment("0 0, 1 0, 5 -1, 5 0").found);  // at the end: closed
  EXPECT_TRUE(raySegment("0 0, 1 0, 5 0, 5 1").found);   // at the start
  const Answer pastEnd = raySegment("0 0, 1 0, 5 -1, 5 -0.015625", 0.5);
  EXPECT_FALSE(pastEnd.found);
  EXPECT_THAT(pastEnd.out, VertexIs("5 0 0"));
  EXPECT_FALSE(raySegment("0 0, 1 0, 5 0.015625, 5 1", 0.5).found);
  // Also close by: the projection is looked at before the distance.
  EXPECT_FALSE(raySegment("0 0, 1 0, 0.5 0.015625, 0.5 1", 0.25).found);
}

// e - s = (0, 2, 10): the projection is 2 + 10 z of 0 to 104, with the z of the ray's origin.
TEST(VectorSegmentIntersect2, KeptProjectionTakesOriginHeight) {
  EXPECT_TRUE(raySegment("0 0 5, 1 0, 5 -1 0, 5 1 10").found);
  EXPECT_FALSE(raySegment("0 0 20, 1 0, 5 -1 0, 5 1 10").found);
  EXPECT_FALSE(raySegment("0 0 -1, 1 0, 5 -1 0, 5 1 10").found);
}

// Direction (1, 0, 5), length sqrt(26). At 2 ahead the tip is sqrt(1 + 25) away: just as long, and
// closed. At 3 ahead it is sqrt(4 + 25) away: farther than both.
TEST(VectorSegmentIntersect2, DistancesAreTakenInSpaceAndTheLastTestIsClosed) {
  EXPECT_TRUE(raySegment("0 0, 1 0 5, 2 -5, 2 5").found);
  EXPECT_FALSE(raySegment("0 0, 1 0 5, 3 -5, 3 5").found);
}

TEST(VectorSegmentIntersect2, ParallelLeavesTheOutputAloneAtAnyTolerance) {
  for (const double tolerance : {0.0, 1e-05}) {
    const Answer answer = raySegment("0 0, 1 0, 0 1, 5 1", tolerance);
    EXPECT_FALSE(answer.found);
    EXPECT_THAT(answer.out, VertexIs(untouched));
  }
}

// Neither end of the segment is special here, nor a direction along it.
TEST(VectorSegmentIntersect2, OriginOnAnEndIsSolvedLikeAnyOther) {
  EXPECT_THAT(raySegment("5 5, 1 0, 5 5, 5 9").out, VertexIs("5 5 0"));
  EXPECT_FALSE(raySegment("5 5, 8 8, 5 5, 9 9").found);
}

TEST(VectorSegmentIntersect2, InfiniteCrossingIsNoHit) {
  const Answer answer = raySegment("0 0, 1 1, 0 1e200, 1e200 0");
  EXPECT_FALSE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("inf inf 0"));
}

TEST(VectorVectorIntersect2, KeptFourthArgumentIsAPoint) {
  // The line through (5, -5) and (5, 5); with a direction of (5, 5) it would cross at x = 10.
  const Answer answer = rayPoints("0 0 7, 1 0, 5 -5, 5 5");
  EXPECT_TRUE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("5 0 7"));
}

TEST(VectorVectorIntersect2, SecondLineIsInfinite) {
  EXPECT_THAT(rayPoints("0 0, 1 0, 5 2, 5 3").out, VertexIs("5 0 0"));
  EXPECT_TRUE(rayPoints("0 0, 1 0, 5 2, 5 3").found);
  EXPECT_TRUE(rayPoints("0 0, 1 0, 5 3, 5 2").found);
}

TEST(VectorVectorIntersect2, CrossingJustBehindTheOriginCounts) {
  EXPECT_TRUE(rayPoints("0 0, 1 0, -1 2, -1 3").found);
  EXPECT_TRUE(rayPoints("0 0, 1 0, -1.00005 2, -1.00005 3").found);
  EXPECT_FALSE(rayPoints("0 0, 1 0, -1.00015 2, -1.00015 3").found);
}

TEST(VectorVectorIntersect2, CrossingFarBehindIsRejectedAndLeftInTheOutput) {
  const Answer answer = rayPoints("0 0 7, 1 0, -2 2, -2 3");
  EXPECT_FALSE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("-2 0 7"));
}

// Direction (4, 0): at 2 the origin and the tip are equally far, and the test is strict.
TEST(VectorVectorIntersect2, FartherFromTheOriginThanFromTheTipAndStrictly) {
  EXPECT_TRUE(rayPoints("0 0, 4 0, 3 2, 3 3").found);
  EXPECT_FALSE(rayPoints("0 0, 4 0, 2 2, 2 3").found);
  EXPECT_FALSE(rayPoints("0 0, 4 0, 1.5 2, 1.5 3").found);
  EXPECT_TRUE(rayPoints("0 0, 4 0, 1 2, 1 3").found);  // within 1.0001
  // The same place by the segment form, which also looks at the length of the direction.
  EXPECT_TRUE(raySegment("0 0, 4 0, 1.5 -2, 1.5 3").found);
}

// Direction (1, 0, 5): the tip stays sqrt(25) off at least, so a crossing 5 ahead is nearer to the
// origin.
TEST(VectorVectorIntersect2, DistancesAreTakenInSpace) {
  EXPECT_FALSE(rayPoints("0 0, 1 0 5, 5 2, 5 3").found);
  EXPECT_TRUE(rayPoints("0 0, 1 0 5, 14 2, 14 3").found);
}

TEST(VectorVectorIntersect2, ParallelLeavesTheOutputAloneAtAnyTolerance) {
  for (const double tolerance : {0.0, 1e-05}) {
    const Answer answer = rayPoints("0 0, 1 0, 0 1, 5 1", tolerance);
    EXPECT_FALSE(answer.found);
    EXPECT_THAT(answer.out, VertexIs(untouched));
  }
}

// Infinity is not farther than infinity.
TEST(VectorVectorIntersect2, InfiniteCrossingIsNoHit) {
  const Answer answer = rayPoints("0 0, 1 1, 0 1e200, 1e200 0");
  EXPECT_FALSE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("inf inf 0"));
}

TEST(EveryMetricIntersection, OutputMayBeAnyInput) {
  for (const auto primitive :
       {&zr2DTools::getVectorSegmentIntersect2, &zr2DTools::getVectorVectorIntersect2}) {
    for (const char* text :
         {"0 0, 1 0, 5 -5, 5 5", "0 0, 1 0, -1 -5, -1 5", "0 0, 1 0, -2 -5, -2 5"}) {
      VertexLine expected = line(text);
      gdfVertex place;
      const bool found =
          primitive(expected[0], expected[1], expected[2], expected[3], place, 1e-05);
      for (std::size_t aliased = 0; aliased < 4; ++aliased) {
        VertexLine v = line(text);
        EXPECT_EQ(primitive(v[0], v[1], v[2], v[3], v[aliased], 1e-05), found) << text << aliased;
        EXPECT_EQ(v[aliased], place) << text << aliased;
      }
    }
  }
}

}  // namespace
