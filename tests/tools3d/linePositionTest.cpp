#include <zrBase/tools3d/linePosition.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

using zr3DTools::EndSpecifier;
using zr3DTools::FirstEnd;
using zr3DTools::LastEnd;

constexpr double unset = 3.4028234663852886e+38;
constexpr double preset = 77.0;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// What getSignedDistanceFromLineEndpoint gives with both ends open and no limit; preset when it
/// leaves its output alone, NaN when it returns false.
double signedDistance(const char* lineText, const char* vertexText, EndSpecifier end) {
  double distance = preset;
  const bool found = zr3DTools::getSignedDistanceFromLineEndpoint(
      line(lineText), vertex(vertexText), end, distance, true, true, unset);
  return found ? distance : notANumber;
}

TEST(EndSpecifier, IsAPlainIntEnum) {
  static_assert(std::is_same_v<std::underlying_type_t<EndSpecifier>, int>);
  EXPECT_EQ(FirstEnd, 0);
  EXPECT_EQ(LastEnd, 1);
}

TEST(SignedDistanceFromLineEndpoint, GrowsAlongTheLineFromTheFirstEnd) {
  const char* const straight = "0 0, 10 0, 20 0, 30 0";
  EXPECT_EQ(signedDistance(straight, "4 0", FirstEnd), 4.0);
  EXPECT_EQ(signedDistance(straight, "14 0", FirstEnd), 14.0);
  EXPECT_EQ(signedDistance(straight, "24 0", FirstEnd), 24.0);
}

TEST(SignedDistanceFromLineEndpoint, IsNegativeOnTheLineFromTheLastEnd) {
  const char* const straight = "0 0, 10 0, 20 0, 30 0";
  EXPECT_EQ(signedDistance(straight, "4 0", LastEnd), -26.0);
  EXPECT_EQ(signedDistance(straight, "14 0", LastEnd), -16.0);
  EXPECT_EQ(signedDistance(straight, "24 0", LastEnd), -6.0);
}

// The feet are at 14 and at 16; straight it is 10 + |(4, 3)| and -|(4, 3)|.
TEST(SignedDistanceFromLineEndpoint, KeptSignedDistanceIsStraight) {
  EXPECT_EQ(signedDistance("0 0, 10 0, 20 0", "14 3", FirstEnd), 15.0);
  EXPECT_EQ(signedDistance("0 0, 10 0, 20 0", "16 3", LastEnd), -5.0);
}

TEST(SignedDistanceFromLineEndpoint, IsNegativeBeforeTheStart) {
  EXPECT_EQ(signedDistance("0 0, 10 0, 20 0", "-3 4", FirstEnd), -5.0);
  EXPECT_EQ(signedDistance("0 0, 10 0, 20 0", "-3 4", LastEnd), -25.0);
}

TEST(SignedDistanceFromLineEndpoint, IsPositiveBeyondTheEnd) {
  EXPECT_EQ(signedDistance("0 0, 10 0, 20 0", "23 4", LastEnd), 5.0);
  EXPECT_EQ(signedDistance("0 0, 10 0, 20 0", "23 4", FirstEnd), 25.0);
}

TEST(SignedDistanceFromLineEndpoint, FindsNothingBeyondTheEndOfATwoVertexLine) {
  EXPECT_TRUE(std::isnan(signedDistance("0 0, 10 0", "13 4", FirstEnd)));
  EXPECT_EQ(signedDistance("0 0, 10 0", "-3 4", FirstEnd), -5.0);
  EXPECT_EQ(signedDistance("0 0, 10 0", "-3 4", LastEnd), -15.0);
}

TEST(SignedDistanceFromLineEndpoint, CountsHeights) {
  EXPECT_EQ(signedDistance("0 0 0, 0 0 10, 0 0 20", "3 0 14", FirstEnd), 15.0);
}

TEST(SignedDistanceFromLineEndpoint, TakesADoubledVertexForItsOwnSegment) {
  EXPECT_EQ(signedDistance("0 0, 10 0, 10 0, 20 0", "10 0", FirstEnd), 10.0);
  EXPECT_EQ(signedDistance("0 0, 10 0, 10 0, 20 0", "10 0", LastEnd), -10.0);
}

TEST(SignedDistanceFromLineEndpoint, LeavesItsOutputAfterAFalse) {
  const VertexLine straight = line("0 0, 10 0, 20 0");
  double distance = preset;
  EXPECT_FALSE(zr3DTools::getSignedDistanceFromLineEndpoint(straight, vertex("-3 4"), FirstEnd,
                                                            distance, false, true, unset));
  EXPECT_FALSE(zr3DTools::getSignedDistanceFromLineEndpoint(straight, vertex("23 4"), LastEnd,
                                                            distance, true, false, unset));
  EXPECT_FALSE(zr3DTools::getSignedDistanceFromLineEndpoint(line("1 1"), vertex("1 1"), FirstEnd,
                                                            distance, true, true, unset));
  EXPECT_EQ(distance, preset);
}

TEST(SignedDistanceFromLineEndpoint, StaysStrictlyBelowTheLargestDistance) {
  const VertexLine straight = line("0 0, 10 0, 20 0");
  double distance = preset;
  EXPECT_FALSE(zr3DTools::getSignedDistanceFromLineEndpoint(straight, vertex("4 0 3"), FirstEnd,
                                                            distance, true, true, 3.0));
  EXPECT_EQ(distance, preset);
  EXPECT_TRUE(zr3DTools::getSignedDistanceFromLineEndpoint(straight, vertex("4 0 3"), FirstEnd,
                                                           distance, true, true, 3.5));
  EXPECT_EQ(distance, 5.0);
}

TEST(SignedDistanceFromLineEndpoint, KeptUnknownEndLeavesInteriorDistance) {
  EXPECT_EQ(signedDistance("0 0, 10 0, 20 0", "14 3", static_cast<EndSpecifier>(2)), preset);
  EXPECT_EQ(signedDistance("0 0, 10 0, 20 0", "4 3", static_cast<EndSpecifier>(-1)), preset);
}

TEST(SignedDistanceFromLineEndpoint, KeptUnknownEndAddsNoLength) {
  EXPECT_EQ(signedDistance("0 0, 10 0, 20 0", "-3 4", static_cast<EndSpecifier>(2)), -5.0);
  EXPECT_EQ(signedDistance("0 0, 10 0, 20 0", "23 4", static_cast<EndSpecifier>(2)), 5.0);
}

TEST(SignedDistanceFromLineEndpoint, MayWriteIntoItsOwnInput) {
  gdfVertex p = vertex("14 3");
  EXPECT_TRUE(zr3DTools::getSignedDistanceFromLineEndpoint(line("0 0, 10 0, 20 0"), p, FirstEnd,
                                                           p.x(), true, true, unset));
  EXPECT_THAT(p, VertexIs("15 3"));
}

// On a straight line the two ends' positions of a vertex on it differ by the length of the line.
RC_GTEST_PROP(SignedDistanceFromLineEndpoint, EndsDifferByTheLengthOnAStraightLine, ()) {
  const int first = *rc::gen::inRange(1, 640);
  const int second = *rc::gen::inRange(1, 640);
  const int place = *rc::gen::inRange(0, first + second + 1);
  const double length = (first + second) / 64.0;
  const VertexLine straight = {gdfVertex(), gdfVertex(first / 64.0, 0), gdfVertex(length, 0)};
  const gdfVertex p(place / 64.0, 0);
  double fromFirst = preset;
  double fromLast = preset;
  RC_ASSERT(zr3DTools::getSignedDistanceFromLineEndpoint(straight, p, FirstEnd, fromFirst, true,
                                                         true, unset));
  RC_ASSERT(zr3DTools::getSignedDistanceFromLineEndpoint(straight, p, LastEnd, fromLast, true, true,
                                                         unset));
  RC_ASSERT(fromFirst == place / 64.0);
  RC_ASSERT(fromFirst - fromLast == length);
}

/// Outputs of lengthAlongLine, preset so that one that is left alone can be told.
struct Along {
  double length = preset;
  int segment = -7;
  double ratio = -preset;
  bool found = false;
};

Along along(const char* lineText, const gdfVertex& p) {
  Along a;
  a.found = zr3DTools::lengthAlongLine(line(lineText), p, a.length, a.segment, a.ratio);
  return a;
}

void expectUntouched(const Along& a) {
  EXPECT_FALSE(a.found);
  EXPECT_EQ(a.length, preset);
  EXPECT_EQ(a.segment, -7);
  EXPECT_EQ(a.ratio, -preset);
}

TEST(LengthAlongLine, FindsTheHeightOnAFallingSegment) {
  const Along a = along("0 0 20, 0 0 10, 0 0 0", vertex("0 0 4"));
  EXPECT_TRUE(a.found);
  EXPECT_EQ(a.length, 16.0);
  EXPECT_EQ(a.segment, 2);
  EXPECT_EQ(a.ratio, 0.6);
}

TEST(LengthAlongLine, IsFalseForFewerThanTwoVertices) {
  Along a;
  EXPECT_FALSE(
      zr3DTools::lengthAlongLine(VertexLine(), vertex("1 1"), a.length, a.segment, a.ratio));
  expectUntouched(a);
  expectUntouched(along("1 1 1", vertex("1 1 1")));
}

TEST(LengthAlongLine, KeptFirstVertexLeavesSegmentAndRatio) {
  const Along a = along("0 0 10, 0 0 5, 0 0 10", vertex("0 0 10"));
  EXPECT_TRUE(a.found);
  EXPECT_EQ(a.length, 0.0);
  EXPECT_EQ(a.segment, -7);
  EXPECT_EQ(a.ratio, -preset);
}

TEST(LengthAlongLine, KeptVertexMatchMarksRatio) {
  const Along a = along("0 0 10, 0 0 5, 0 0 0", vertex("1 0 5"));
  EXPECT_TRUE(a.found);
  EXPECT_EQ(a.length, 5.0);
  EXPECT_EQ(a.segment, 1);
  EXPECT_EQ(a.ratio, unset);
}

TEST(LengthAlongLine, KeptRisingSegmentIsNotMatched) {
  expectUntouched(along("0 0 0, 0 0 10", vertex("0 0 4")));
}

TEST(LengthAlongLine, MatchesARisingLineAtAVertexOfTheSameHeight) {
  const Along a = along("0 0 0, 0 0 10, 0 0 20", vertex("3 0 10"));
  EXPECT_TRUE(a.found);
  EXPECT_EQ(a.length, 10.0);
  EXPECT_EQ(a.segment, 1);
  EXPECT_EQ(a.ratio, unset);
}

// The first vertex ends no segment; only all three coordinates together find it.
TEST(LengthAlongLine, DoesNotMatchTheHeightOfTheFirstVertexAlone) {
  expectUntouched(along("0 0 10, 0 0 0", vertex("1 0 10")));
  expectUntouched(along("0 0 0, 0 0 10", vertex("1 0 0")));
}

TEST(LengthAlongLine, IsFalseOutsideTheHeightsOfTheLine) {
  expectUntouched(along("0 0 10, 0 0 0", vertex("0 0 11")));
  expectUntouched(along("0 0 10, 0 0 0", vertex("0 0 -1")));
  expectUntouched(along("0 0 10, 0 0 0", gdfVertex(0.0, 0.0, notANumber)));
}

// The height 3 is reached 7 down the segment of length 10; p lies 25 from the segment's start.
TEST(LengthAlongLine, KeptPartIsStraightDistanceToVertex) {
  const Along a = along("0 0 10, 0 0 0", vertex("0 24 3"));
  EXPECT_TRUE(a.found);
  EXPECT_EQ(a.length, 25.0);
  EXPECT_EQ(a.segment, 1);
  EXPECT_EQ(a.ratio, 2.5);
}

// The last segment passes right through p, but its far end is 20 away in the map, and the first
// one's offset is 10.
TEST(LengthAlongLine, KeptCandidateIsJudgedByFarEnd) {
  const Along judged = along("40 0 10, 40 0 0, 30 0 10, 70 0 0", vertex("50 0 5"));
  EXPECT_TRUE(judged.found);
  EXPECT_EQ(judged.segment, 1);
  EXPECT_DOUBLE_EQ(judged.length, std::sqrt(125.0));

  // The first segment ends 50 away but passes through p: the offset 0 is stored, and no vertex 2
  // away beats it.
  const Along stored = along("0 0 10, 100 0 0, 52 0 5", vertex("50 0 5"));
  EXPECT_TRUE(stored.found);
  EXPECT_EQ(stored.segment, 1);
  EXPECT_DOUBLE_EQ(stored.length, std::sqrt(2525.0));
  EXPECT_DOUBLE_EQ(stored.ratio, 0.5);
}

TEST(LengthAlongLine, TakesTheFirstOfEquallyClosePlaces) {
  const Along a = along("0 0 10, 5 0 5, 5 0 8, -5 0 5", vertex("0 0 5"));
  EXPECT_TRUE(a.found);
  EXPECT_EQ(a.segment, 1);
  EXPECT_DOUBLE_EQ(a.length, std::sqrt(50.0));
}

TEST(LengthAlongLine, TakesTheCloserOfSeveralPlaces) {
  const Along a = along("0 0 10, 5 0 5, 5 0 8, -4 0 5", vertex("0 0 5"));
  EXPECT_TRUE(a.found);
  EXPECT_EQ(a.segment, 3);
  EXPECT_DOUBLE_EQ(a.length, std::sqrt(50.0) + 3.0 + std::sqrt(90.0));
}

// Closeness in the map is |dx| + |dy|: 3 + 4 loses to 6 + 0, although 5 is less than 6.
TEST(LengthAlongLine, AddsTheOffsetsInXAndY) {
  const Along a = along("0 0 10, 6 0 5, 3 4 8, 3 4 5", vertex("0 0 5"));
  EXPECT_TRUE(a.found);
  EXPECT_EQ(a.segment, 1);
}

TEST(LengthAlongLine, TakesAnOffsetOfTheUnsetValueForNoMatch) {
  const Along a = along("0 0 5, 0 0 0", gdfVertex(unset, 0.0, 0.0));
  EXPECT_FALSE(a.found);
  EXPECT_EQ(a.length, preset);
  EXPECT_EQ(a.segment, 1);
  EXPECT_EQ(a.ratio, unset);
}

TEST(LengthAlongLine, MayWriteIntoItsOwnInput) {
  gdfVertex p = vertex("8 0 4");
  int segment = -7;
  EXPECT_TRUE(zr3DTools::lengthAlongLine(line("0 0 10, 0 0 0, 0 0 -5"), p, p.z(), segment, p.x()));
  EXPECT_THAT(p, VertexIs("1 0 10"));
  EXPECT_EQ(segment, 1);
}

/// Outputs of vertexAtDistanceAlongLine, preset.
struct Place {
  gdfVertex point{7, 7, 7};
  int segment = -7;
  bool found = false;
};

Place placeAt(const char* lineText, double distance) {
  Place place;
  place.found =
      zr3DTools::vertexAtDistanceAlongLine(line(lineText), distance, place.point, place.segment);
  return place;
}

void expectUntouched(const Place& place) {
  EXPECT_FALSE(place.found);
  EXPECT_THAT(place.point, VertexIs("7 7 7"));
  EXPECT_EQ(place.segment, -7);
}

TEST(VertexAtDistanceAlongLine, InterpolatesInSpace) {
  const Place place = placeAt("0 0 0, 0 0 4, 0 8 4", 6.0);
  EXPECT_TRUE(place.found);
  EXPECT_THAT(place.point, VertexIs("0 2 4"));
  EXPECT_EQ(place.segment, 1);
}

TEST(VertexAtDistanceAlongLine, GivesTheFirstVertexAtZero) {
  const Place place = placeAt("1 2 3, 11 2 3", 0.0);
  EXPECT_TRUE(place.found);
  EXPECT_THAT(place.point, VertexIs("1 2 3"));
  EXPECT_EQ(place.segment, 0);
}

TEST(VertexAtDistanceAlongLine, GivesTheEndVertexWithTheSegmentThatEndsInIt) {
  const Place end = placeAt("0 0 0, 10 0 0", 10.0);
  EXPECT_TRUE(end.found);
  EXPECT_THAT(end.point, VertexIs("10 0 0"));
  EXPECT_EQ(end.segment, 0);

  const Place inner = placeAt("0 0, 5 0, 5 0, 9 0", 5.0);
  EXPECT_TRUE(inner.found);
  EXPECT_THAT(inner.point, VertexIs("5 0"));
  EXPECT_EQ(inner.segment, 0);
}

TEST(VertexAtDistanceAlongLine, KeptPastTheEndIsNumberedAsSegment) {
  const Place place = placeAt("0 0 0, 10 0 0", 10.0005);
  EXPECT_TRUE(place.found);
  EXPECT_THAT(place.point, VertexIs("10 0 0"));
  EXPECT_EQ(place.segment, 1);
}

TEST(VertexAtDistanceAlongLine, ToleratesAThousandthPastTheEnd) {
  EXPECT_TRUE(placeAt("0 0 0, 10 0 0", 10.0 + 0.001).found);
  expectUntouched(placeAt("0 0 0, 10 0 0", std::nextafter(10.0 + 0.001, 11.0)));
  expectUntouched(placeAt("0 0 0, 10 0 0", 10.1));
}

TEST(VertexAtDistanceAlongLine, KeptNegativeDistanceExtrapolates) {
  const Place place = placeAt("0 0 0, 10 0 20, 20 0 0", -std::sqrt(125.0));
  EXPECT_TRUE(place.found);
  EXPECT_THAT(place.point, VertexNear("-5 0 -10", 1e-12));
  EXPECT_EQ(place.segment, 0);
}

TEST(VertexAtDistanceAlongLine, HandlesAFirstSegmentWithoutLength) {
  const Place atStart = placeAt("3 4, 3 4, 13 4", 0.0);
  EXPECT_TRUE(atStart.found);
  EXPECT_THAT(atStart.point, VertexIs("3 4"));
  EXPECT_EQ(atStart.segment, 0);

  const Place before = placeAt("3 4, 3 4, 13 4", -1.0);
  EXPECT_TRUE(before.found);
  EXPECT_TRUE(std::isnan(before.point.x()));
  EXPECT_EQ(before.segment, 0);
}

TEST(VertexAtDistanceAlongLine, IsFalseForShortLinesAndNaN) {
  Place place;
  EXPECT_FALSE(zr3DTools::vertexAtDistanceAlongLine(VertexLine(), 0.0, place.point, place.segment));
  expectUntouched(place);
  expectUntouched(placeAt("1 1", 0.0));
  expectUntouched(placeAt("0 0, 10 0", notANumber));
}

TEST(VertexAtDistanceAlongLine, MayWriteIntoItsOwnLine) {
  VertexLine straight = line("1 1 1, 11 1 1");
  int segment = -7;
  EXPECT_TRUE(zr3DTools::vertexAtDistanceAlongLine(straight, 2.5, straight[0], segment));
  EXPECT_THAT(straight, LineIs("3.5 1 1, 11 1 1"));
}

// On a line of axis-parallel steps: up to the point it is as long as was asked for.
RC_GTEST_PROP(VertexAtDistanceAlongLine, LiesAtTheDistanceAskedFor, ()) {
  const int east = *rc::gen::inRange(1, 640);
  const int up = *rc::gen::inRange(1, 640);
  const int asked = *rc::gen::inRange(0, east + up + 1);
  const VertexLine bent = {gdfVertex(), gdfVertex(east / 64.0, 0, 0),
                           gdfVertex(east / 64.0, 0.0, up / 64.0)};
  gdfVertex point;
  int segment = -7;
  RC_ASSERT(zr3DTools::vertexAtDistanceAlongLine(bent, asked / 64.0, point, segment));
  RC_ASSERT(segment == (asked <= east ? 0 : 1));
  RC_ASSERT(std::fabs(point.x() + point.z() - asked / 64.0) <= 1e-12);
}

}  // namespace
