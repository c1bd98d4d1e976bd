#include <zrBase/tools2d/segmentIntersection.h>

#include <gtest/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <cstddef>
#include <string>

// Two closed segments, rule by rule, and the foot of a perpendicular that is built on them.

namespace {

struct Answer {
  bool found = false;
  gdfVertex out{-99.0, -98.0, -97.0};
};

constexpr const char* untouched = "-99 -98 -97";

/// The segments are the first two and the last two vertices of the text.
Answer intersect(const std::string& text, double tolerance = 0.0) {
  const VertexLine v = line(text);
  Answer answer;
  answer.found = zr2DTools::getSegmentSegmentIntersect(v.at(0), v.at(1), v.at(2), v.at(3),
                                                       answer.out, tolerance);
  return answer;
}

#define EXPECT_HIT(text, place)                     \
  do {                                              \
    const Answer a_ = intersect(text);              \
    EXPECT_TRUE(a_.found) << (text);                \
    EXPECT_THAT(a_.out, VertexIs(place)) << (text); \
  } while (false)

#define EXPECT_MISS(text, tolerance)                    \
  do {                                                  \
    const Answer a_ = intersect(text, tolerance);       \
    EXPECT_FALSE(a_.found) << (text);                   \
    EXPECT_THAT(a_.out, VertexIs(untouched)) << (text); \
  } while (false)

// First segment downward or level, then upward; second above, then below. 100 is a tolerance that
// would let all pass.
TEST(SegmentSegmentIntersect, RangesApartInYMiss) {
  EXPECT_MISS("0 2, 4 0, 0 3, 4 4", 100.0);
  EXPECT_MISS("0 2, 4 0, 0 -3, 4 -1", 100.0);
  EXPECT_MISS("0 0, 4 2, 0 4, 4 3", 100.0);
  EXPECT_MISS("0 0, 4 2, 0 -1, 4 -3", 100.0);
  EXPECT_MISS("0 0, 4 0, 0 1, 4 2", 100.0);
  EXPECT_MISS("0 0, 4 0, 0 -1, 4 -2", 100.0);
}

TEST(SegmentSegmentIntersect, RangesApartInXMiss) {
  EXPECT_MISS("0 0, 2 4, 3 4, 5 0", 100.0);
  EXPECT_MISS("3 4, 5 0, 0 0, 2 4", 100.0);
  EXPECT_MISS("2 4, 0 0, 5 0, 3 4", 100.0);
}

TEST(SegmentSegmentIntersect, KeptBoxRejectionIgnoresTolerance) {
  // 0.001 apart in y and in x, under a tolerance of 0.01.
  EXPECT_MISS("0 0, 10 0, 5 0.001, 5 10", 0.01);
  EXPECT_MISS("0 0, 0 10, 0.001 5, 10 5", 0.01);
  // y = x against y = 12.5 - 1.25 x: they meet at x = y = 50/9, outside 6 <= x and y <= 5, but the
  // boxes overlap.
  EXPECT_MISS("0 0, 10 10, 6 5, 10 0", 0.5);
  const Answer slanting = intersect("0 0, 10 10, 6 5, 10 0", 1.0);
  EXPECT_TRUE(slanting.found);
  EXPECT_THAT(slanting.out, VertexNear("5.555555555555555 5.555555555555555 -0", 1e-12));
}

TEST(SegmentSegmentIntersect, EveryKindOfSlopePairCrosses) {
  EXPECT_HIT("0 5, 10 5, 3 0, 3 10", "3 5 0");    // level, vertical
  EXPECT_HIT("3 0, 3 10, 0 5, 10 5", "3 5 0");    // vertical, level
  EXPECT_HIT("0 5, 10 5, 2 0, 7 10", "4.5 5 0");  // level, sloping
  EXPECT_HIT("2 0, 7 10, 0 5, 10 5", "4.5 5 0");  // sloping, level
  EXPECT_HIT("2 0, 2 9, 0 1, 4 9", "2 5 0");      // vertical, sloping
  EXPECT_HIT("0 1, 4 9, 2 0, 2 9", "2 5 0");      // sloping, vertical
  EXPECT_HIT("0 0, 4 4, 0 4, 4 0", "2 2 0");      // sloping both
  EXPECT_HIT("0 0, 4 8, 0 6, 4 2", "2 4 0");
}

// The branch "first vertical" needs the vertical one to begin further left or lower.
TEST(SegmentSegmentIntersect, VerticalThatBeginsFurthestLeft) {
  EXPECT_HIT("2 0, 2 9, 2 5, 4 9", "2 5 0");
  EXPECT_HIT("2 5, 4 9, 2 9, 2 0", "2 5 0");
}

TEST(SegmentSegmentIntersect, VerticalAndLevelCrossExactly) {
  // 0.1 and 0.3 have no exact slope arithmetic: the crossing takes them as they stand.
  EXPECT_HIT("0.1 -7, 0.1 9, -3 0.3, 5 0.3", "0.1 0.3 0");
  EXPECT_EQ(zr2DTools::internal::verticalSlope, 1.7976931348623157e308);
}

TEST(SegmentSegmentIntersect, KeptParallelSegmentsNeverMeet) {
  // Overlapping on one line, sharing an end, one on the other, and equal: level, vertical, sloping.
  for (const char* text :
       {"0 0, 6 0, 4 0, 9 0", "0 0, 5 0, 5 0, 9 0", "0 0, 9 0, 2 0, 4 0", "0 0, 5 0, 0 0, 5 0",
        "0 0, 0 6, 0 4, 0 9", "0 0, 0 5, 0 5, 0 9", "0 0, 0 9, 0 2, 0 4", "0 0, 0 5, 0 5, 0 0",
        "0 0, 6 6, 4 4, 9 9", "0 0, 5 5, 5 5, 9 9", "0 0, 9 9, 2 2, 4 4", "0 0, 5 5, 5 5, 0 0"}) {
    EXPECT_MISS(text, 1.0);
  }
}

TEST(SegmentSegmentIntersect, CollinearOverlapIsNoHit) { EXPECT_MISS("0 0, 6 3, 2 1, 8 4", 0.0); }

TEST(SegmentSegmentIntersect, StraightContinuationIsNoHit) {
  EXPECT_MISS("0 0, 4 2, 4 2, 8 4", 0.0);
}

// Slopes that differ by one part in 1e9 are not parallel: there is no tolerance on them.
TEST(SegmentSegmentIntersect, NearlyParallelSegmentsCross) {
  const Answer answer = intersect("-1 0, 1 0, -1 -1e-09, 1 1e-09");
  EXPECT_TRUE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("0 0 0"));
}

TEST(SegmentSegmentIntersect, EndsMeetingAtAnAngleCountAtZeroTolerance) {
  EXPECT_HIT("0 0, 10 0, 10 0, 10 10", "10 0 0");
  EXPECT_HIT("0 0, 4 4, 4 4, 8 0", "4 4 0");
  EXPECT_HIT("0 0, 4 4, 8 0, 4 4", "4 4 0");
  EXPECT_HIT("0 0, 10 0, 0 0, 0 10", "0 0 0");
}

TEST(SegmentSegmentIntersect, EndTouchingTheInsideCountsAtZeroTolerance) {
  EXPECT_HIT("0 0, 10 0, 5 0, 5 10", "5 0 0");
  EXPECT_HIT("0 0, 8 8, 4 4, 8 0", "4 4 0");
}

// Slopes by ends in either order of x; on equal x the start counts as the left end.
TEST(SegmentSegmentIntersect, DirectionOfASegmentPlaysNoPart) {
  EXPECT_HIT("4 8, 0 0, 0 6, 4 2", "2 4 0");
  EXPECT_HIT("0 0, 4 8, 4 2, 0 6", "2 4 0");
  EXPECT_HIT("3 10, 3 0, 10 5, 0 5", "3 5 0");
}

// Slopes 0.7 and -0.5: 5.67 comes out as ...666 from the line that begins at x = 0, as ...668 from
// the other.
TEST(SegmentSegmentIntersect, SegmentBeginningFurtherLeftIsReckonedFirst) {
  EXPECT_HIT("2 1, 12 8, 12 4, 0 10", "8.6666666666666679 5.6666666666666661 0");
  EXPECT_HIT("12 4, 0 10, 2 1, 12 8", "8.6666666666666679 5.6666666666666661 0");
  // Here the other order would put y above 8 and so miss the end at (6, 8).
  EXPECT_HIT("6 8, 1 9, 8 9, 0 5", "5.9999999999999991 8 0");
}

TEST(SegmentSegmentIntersect, SegmentBeginningLowerIsReckonedFirstOnEqualX) {
  EXPECT_HIT("10 7, 0 8, 3 12, 0 0", "1.9512195121951221 7.8048780487804885 0");
  EXPECT_HIT("3 12, 0 0, 10 7, 0 8", "1.9512195121951221 7.8048780487804885 0");
}

// One left end for both: the order given stays, and the two orders differ in the last bit of y.
TEST(SegmentSegmentIntersect, CommonLeftEndKeepsTheGivenOrder) {
  EXPECT_HIT("10 8, 2 2, 11 5, 2 2", "2.0000000000000004 2.0000000000000004 0");
  EXPECT_HIT("11 5, 2 2, 10 8, 2 2", "2.0000000000000004 2 0");
}

TEST(SegmentSegmentIntersect, KeptSegmentWithoutLengthCountsAsLevel) {
  EXPECT_HIT("5 5, 5 5, 0 0, 10 10", "5 5 0");
  EXPECT_HIT("5 5, 5 5, 5 0, 5 10", "5 5 0");
  EXPECT_MISS("5 5, 5 5, 0 5, 10 5", 1.0);
  EXPECT_MISS("5 5, 5 5, 5 5, 5 5", 1.0);
  EXPECT_MISS("5 4, 5 4, 0 0, 10 10", 0.0);
}

TEST(SegmentSegmentIntersect, ZeroLengthSecondSegmentGivesItsOwnHeight) {
  EXPECT_HIT("0 0 1, 10 10 2, 5 5 7, 5 5 9", "5 5 7");
  EXPECT_HIT("5 0 1, 5 10 2, 5 5 7, 5 5 9", "5 5 7");
  EXPECT_MISS("0 5, 10 5, 5 5 7, 5 5 9", 1.0);
}

TEST(SegmentSegmentIntersect, ToleranceWidensTheRangesAndIsClosed) {
  // y = x against y = 8 - x / 2: they meet at 16/3, and 6 is 2/3 too far right.
  EXPECT_MISS("0 0, 10 10, 6 5, 10 3", 0.6);
  EXPECT_TRUE(intersect("0 0, 10 10, 6 5, 10 3", 0.7).found);
  // y = x against x + y = 9: they meet at 4.5, half a unit past (4, 4); 0.5 reaches exactly.
  EXPECT_TRUE(intersect("0 0, 4 4, 1 8, 9 0", 0.5).found);
  EXPECT_THAT(intersect("0 0, 4 4, 1 8, 9 0", 0.5).out, VertexIs("4.5 4.5 0"));
  EXPECT_MISS("0 0, 4 4, 1 8, 9 0", 0.4999999);
  EXPECT_TRUE(intersect("1 8, 9 0, 0 0, 4 4", 0.5).found);
  EXPECT_MISS("1 8, 9 0, 0 0, 4 4", 0.4999999);
}

// The crossing is written where the lines meet, not at the end that it lies past.
TEST(SegmentSegmentIntersect, TolerantHitExtrapolatesHeight) {
  const Answer answer = intersect("1 8, 9 0, 0 0 0, 4 4 8", 0.5);
  EXPECT_TRUE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("4.5 4.5 9"));
}

TEST(SegmentSegmentIntersect, KeptCrossingHeightComesFromSecondSegment) {
  // Either segment may be the one reckoned first: the height stays that of the second argument
  // pair.
  EXPECT_HIT("0 0 100, 4 4 200, 0 4 0, 4 0 8", "2 2 4");
  EXPECT_HIT("0 4 0, 4 0 8, 0 0 100, 4 4 200", "2 2 150");
  EXPECT_HIT("1 1 100, 4 4 200, 0 4 0, 4 0 8", "2 2 4");
  EXPECT_HIT("0 4 nan, 4 0 inf, 0 0 100, 4 4 200", "2 2 150");
}

TEST(SegmentSegmentIntersect, HeightIsInterpolatedOnXWhereThereIsAReachInX) {
  EXPECT_HIT("0 5, 10 5, 2 0 0, 7 10 20", "4.5 5 10");
  EXPECT_HIT("5 0, 5 10, 0 5 0, 10 5 8", "5 5 4");
  EXPECT_HIT("5 0, 5 10, 10 5 8, 0 5 0", "5 5 4");
}

TEST(SegmentSegmentIntersect, HeightIsInterpolatedOnYAlongAVertical) {
  EXPECT_HIT("0 5, 10 5, 5 0 0, 5 10 10", "5 5 5");
  EXPECT_HIT("0 5, 10 5, 5 10 10, 5 0 0", "5 5 5");
}

TEST(SegmentSegmentIntersect, OutputMayBeAnyInput) {
  for (std::size_t aliased = 0; aliased < 4; ++aliased) {
    VertexLine v = line("0 0 1, 4 4 2, 0 4 0, 4 0 8");
    EXPECT_TRUE(zr2DTools::getSegmentSegmentIntersect(v[0], v[1], v[2], v[3], v[aliased], 0.0));
    EXPECT_THAT(v[aliased], VertexIs("2 2 4"));
  }
}

TEST(SegmentSegmentIntersect, NaNInThePlaneIsNoHit) {
  for (const char* text : {"nan 0, 4 4, 0 4, 4 0", "0 nan, 4 4, 0 4, 4 0", "0 0, nan 4, 0 4, 4 0",
                           "0 0, 4 nan, 0 4, 4 0", "0 0, 4 4, nan 4, 4 0", "0 0, 4 4, 0 nan, 4 0",
                           "0 0, 4 4, 0 4, nan 0", "0 0, 4 4, 0 4, 4 nan"}) {
    EXPECT_MISS(text, 1.0);
  }
  EXPECT_FALSE(intersect("0 0, 4 4, 0 4, 4 0", std::nan("")).found);
}

TEST(SegmentSegmentIntersect, NaNHeightOfTheSecondSegmentIsCarried) {
  const Answer answer = intersect("0 0, 4 4, 0 4 nan, 4 0 8");
  EXPECT_TRUE(answer.found);
  EXPECT_EQ(answer.out.x(), 2.0);
  EXPECT_TRUE(std::isnan(answer.out.z()));
}

/// Segment from the first two vertices, then the vertex whose foot is looked for.
Answer foot(const std::string& text, double tolerance = 0.0) {
  const VertexLine v = line(text);
  Answer answer;
  answer.found = zr2DTools::nearestPointOnLine(v.at(0), v.at(1), v.at(2), answer.out, tolerance);
  return answer;
}

TEST(NearestPointOnLine, IsTheFootOfThePerpendicular) {
  EXPECT_THAT(foot("0 0, 10 0, 3 4").out, VertexIs("3 0 0"));
  EXPECT_THAT(foot("0 0, 10 0, 3 -4").out, VertexIs("3 0 0"));
  EXPECT_THAT(foot("0 0, 0 10, 4 3").out, VertexIs("0 3 0"));
  // Cross segment (0, 4)-(8, -4), y = 4 - x, against y = x.
  EXPECT_THAT(foot("0 0, 4 4, 4 0").out, VertexIs("2 2 0"));
  EXPECT_THAT(foot("4 4, 0 0, 4 0").out, VertexIs("2 2 0"));
}

TEST(NearestPointOnLine, VertexOnTheSegmentIsItsOwnFoot) {
  EXPECT_THAT(foot("0 0, 10 0, 3 0").out, VertexIs("3 0 0"));
  EXPECT_THAT(foot("0 0, 10 0, 10 0").out, VertexIs("10 0 0"));
}

TEST(NearestPointOnLine, KeptFootOfPerpendicularIsFlat) {
  const Answer answer = foot("0 0 5, 10 0 7, 3 4 9");
  EXPECT_TRUE(answer.found);
  EXPECT_THAT(answer.out, VertexIs("3 0 0"));
  // As far away as the segment is long, and then a little farther.
  EXPECT_TRUE(foot("0 0 5, 10 0 7, 3 10 9").found);
  const Answer tooFar = foot("0 0 5, 10 0 7, 3 10.5 9");
  EXPECT_FALSE(tooFar.found);
  EXPECT_THAT(tooFar.out, VertexIs(untouched));
  EXPECT_TRUE(foot("0 0 5, 10 0 7, 3 -10 9").found);
  EXPECT_FALSE(foot("0 0 5, 10 0 7, 3 -10.5 9").found);
}

TEST(NearestPointOnLine, FootMustFallOnTheSegment) {
  EXPECT_TRUE(foot("0 0, 10 0, 10 1").found);
  EXPECT_TRUE(foot("0 0, 10 0, 0 1").found);
  EXPECT_FALSE(foot("0 0, 10 0, 10.5 1").found);
  EXPECT_FALSE(foot("0 0, 10 0, -0.5 1").found);
}

// The foot of (5, 4) is (4.5, 4.5), half a unit past (4, 4). Along an axis the box rejection comes
// first.
TEST(NearestPointOnLine, ToleranceReachesPastAnEndOnlyAtAnAngle) {
  EXPECT_TRUE(foot("0 0, 4 4, 5 4", 0.5).found);
  EXPECT_THAT(foot("0 0, 4 4, 5 4", 0.5).out, VertexIs("4.5 4.5 0"));
  EXPECT_FALSE(foot("0 0, 4 4, 5 4", 0.25).found);
  EXPECT_FALSE(foot("0 0, 10 0, 10.5 1", 5.0).found);
}

TEST(NearestPointOnLine, SegmentWithoutLengthHasNoFoot) {
  EXPECT_FALSE(foot("3 3, 3 3, 3 3", 1.0).found);
  EXPECT_FALSE(foot("3 3, 3 3, 3 4", 1.0).found);
  EXPECT_THAT(foot("3 3, 3 3, 3 4", 1.0).out, VertexIs(untouched));
}

TEST(NearestPointOnLine, OutputMayBeAnyInput) {
  for (std::size_t aliased = 0; aliased < 3; ++aliased) {
    VertexLine v = line("0 0 5, 4 4 6, 4 0 7");
    EXPECT_TRUE(zr2DTools::nearestPointOnLine(v[0], v[1], v[2], v[aliased], 0.0));
    EXPECT_THAT(v[aliased], VertexIs("2 2 0"));
  }
}

}  // namespace
