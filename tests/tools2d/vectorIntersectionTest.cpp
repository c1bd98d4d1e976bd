#include <zrBase/tools2d/vectorIntersection.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <cstddef>
#include <string>

// Rays, infinite lines and segments by the sign tests on coordinates. The metric forms, whose names
// end in 2, have a file of their own.

namespace {

using Primitive = bool (*)(const gdfVertex&, const gdfVertex&, const gdfVertex&, const gdfVertex&,
                           gdfVertex&, double);

constexpr Primitive raySegment = &zr2DTools::getVectorSegmentIntersect;
constexpr Primitive lineSegment = &zr2DTools::getBiVectorSegmentIntersect;
constexpr Primitive rayRay = &zr2DTools::getVectorVectorIntersect;
constexpr Primitive rayLine = &zr2DTools::getVectorBiVectorIntersect;
constexpr Primitive lineLine = &zr2DTools::getBiVectorBiVectorIntersect;

struct Answer {
  bool found = false;
  gdfVertex out{-99.0, -98.0, -97.0};
};

constexpr const char* untouched = "-99 -98 -97";
constexpr double small = 1e-05;

/// The text holds the four vertices in the order of the arguments.
Answer run(Primitive primitive, const std::string& text, double tolerance = small) {
  const VertexLine v = line(text);
  Answer answer;
  answer.found = primitive(v.at(0), v.at(1), v.at(2), v.at(3), answer.out, tolerance);
  return answer;
}

void expectHit(Primitive primitive, const std::string& text, const std::string& place,
               double tolerance = small) {
  const Answer answer = run(primitive, text, tolerance);
  EXPECT_TRUE(answer.found) << text;
  EXPECT_THAT(answer.out, VertexIs(place)) << text;
}

/// A miss, and what the output then holds: the rejected candidate or what it held before.
void expectMiss(Primitive primitive, const std::string& text, const std::string& left,
                double tolerance = small) {
  const Answer answer = run(primitive, text, tolerance);
  EXPECT_FALSE(answer.found) << text;
  EXPECT_THAT(answer.out, VertexIs(left)) << text;
}

TEST(VectorSegmentIntersect, CrossesAheadWithTheHeightOfTheOrigin) {
  expectHit(raySegment, "0 0 7, 1 0 3, 5 -5 1, 5 5 2", "5 0 7");
  expectHit(raySegment, "0 0 7, 0.001 0, 5 -5, 5 5", "5 0 7");
  expectHit(raySegment, "8 8 7, -1 -1, 0 4, 4 0", "2 2 7");
}

TEST(VectorSegmentIntersect, OriginOnTheStartIsTheHit) {
  expectHit(raySegment, "5 5 1, 1 0, 5 5 1, 9 9 2", "5 5 1");
  expectHit(raySegment, "5 5 1, -1 0, 5 5 1, 9 9 2", "5 5 1");  // whatever the direction
  expectHit(raySegment, "5 5 1, 8 8 2, 5 5 1, 9 9 2",
            "5 5 1");  // along the segment, but not end - start
  expectHit(raySegment, "5 5 1, 4 4 0, 5 5 1, 9 9 2", "5 5 1");
}

TEST(VectorSegmentIntersect, OriginOnTheEndIsTheHit) {
  expectHit(raySegment, "9 9 2, 1 0, 5 5 1, 9 9 2", "9 9 2");
  expectHit(raySegment, "9 9 2, -4 -4 -1, 5 5 1, 9 9 2", "9 9 2");
}

TEST(VectorSegmentIntersect, KeptRayFromAnEndMissesOnlyTheVerySegment) {
  expectMiss(raySegment, "5 5 1, 4 4 1, 5 5 1, 9 9 2", untouched);
  // The same difference, end - start, is tested at the end: away from the segment.
  expectMiss(raySegment, "9 9 2, 4 4 1, 5 5 1, 9 9 2", untouched);
}

// The heights differ, so the origin is no end; the ray is then parallel, or crosses as any other.
TEST(VectorSegmentIntersect, OriginOnAnEndMustAgreeInHeight) {
  expectMiss(raySegment, "5 5 8, 8 8, 5 5 1, 9 9 2", untouched);
  expectHit(raySegment, "5 5 8, 1 0, 5 5 1, 9 9 2", "5 5 8");
}

TEST(VectorSegmentIntersect, ParallelIsNoHit) {
  expectMiss(raySegment, "0 0, 1 1, 2 2, 9 9", untouched);
  expectMiss(raySegment, "0 0, 1 1, 2 3, 9 10", untouched);
}

// (5, 0) lies behind the ray, yet equals an end; a height of 1 on the ray keeps them apart.
TEST(VectorSegmentIntersect, KeptCrossingAtAnEndCountsBehindToo) {
  expectHit(raySegment, "0 0, -1 0, 5 0, 5 5", "5 0 0");
  expectHit(raySegment, "0 0, -1 0, 5 5, 5 0", "5 0 0");
  expectMiss(raySegment, "0 0 1, -1 0, 5 0, 5 5", "5 0 1");
  expectMiss(raySegment, "0 0 1, -1 0, 5 5, 5 0", "5 0 1");
}

TEST(VectorSegmentIntersect, CrossingBehindIsRejectedAndLeftInTheOutput) {
  expectMiss(raySegment, "0 0 7, -1 0, 5 -5, 5 5", "5 0 7");
  expectMiss(raySegment, "0 0 7, 1 0, -5 -5, -5 5", "-5 0 7");
  expectMiss(raySegment, "0 0 7, 0 -1, -5 5, 5 5", "0 5 7");
  expectMiss(raySegment, "0 0 7, 0 1, -5 -5, 5 -5", "0 -5 7");
}

// No tolerance, however large, moves the origin: the ray starts 1/64 past the segment.
TEST(VectorSegmentIntersect, DirectionIsTestedWithoutTolerance) {
  expectMiss(raySegment, "0.015625 0, 1 0, 0 -5, 0 5", "0 0 0", 1.0);
  expectMiss(raySegment, "0 0.015625, 0 1, -5 0, 5 0", "0 0 0", 1.0);
}

TEST(VectorSegmentIntersect, CrossingPastTheSegmentIsRejectedAndLeftInTheOutput) {
  expectMiss(raySegment, "0 0 7, 1 0, 5 1, 5 5", "5 0 7");
  expectMiss(raySegment, "0 0 7, 1 0, 5 -5, 5 -1", "5 0 7");
  expectMiss(raySegment, "0 0 7, 0 1, 1 5, 5 5", "0 5 7");
  expectMiss(raySegment, "0 0 7, 0 1, -1 5, -5 5", "0 5 7");
}

TEST(VectorSegmentIntersect, ToleranceWidensTheRangeOfTheSegmentAndIsClosed) {
  expectHit(raySegment, "0 0 7, 1 0, 5 1, 5 5", "5 0 7", 1.0);
  expectMiss(raySegment, "0 0 7, 1 0, 5 1, 5 5", "5 0 7", 0.9999);
  expectHit(raySegment, "0 0 7, 0 1, -5 5, -1 5", "0 5 7", 1.0);
  // 49 * (1 / 49) lies one bit short of x = 1.
  expectMiss(raySegment, "0 0, 49 49, 1 -1, 1 2", "0.99999999999999989 0.99999999999999989 0", 0.0);
  expectHit(raySegment, "0 0, 49 49, 1 -1, 1 2", "0.99999999999999989 0.99999999999999989 0",
            1e-15);
}

// A component of 0 is tested like a positive one. The crossing carries such a coordinate of the
// origin unchanged, so the rule itself is looked at.
TEST(VectorSegmentIntersect, KeptRayTestCountsZeroAsPositive) {
  using zr2DTools::internal::aheadZeroIsPositive;
  EXPECT_FALSE(aheadZeroIsPositive(1.0, 0.0, 0.0));
  EXPECT_FALSE(aheadZeroIsPositive(1.0, -0.0, 0.0));
  EXPECT_TRUE(aheadZeroIsPositive(1.0, 0.0, 1.0));
  EXPECT_TRUE(aheadZeroIsPositive(1.0, 0.0, 2.0));
  EXPECT_TRUE(zr2DTools::internal::aheadZeroIsFree(1.0, 0.0, 0.0));
  expectHit(raySegment, "0 0, 0 1, -5 5, 5 5", "0 5 0");
  expectHit(raySegment, "0 0, 1 0, 5 -5, 5 5", "5 0 0");
}

TEST(BiVectorSegmentIntersect, CrossesAheadAndBehind) {
  expectHit(lineSegment, "0 0 7, 1 0, 5 -5, 5 5", "5 0 7");
  expectHit(lineSegment, "0 0 7, -1 0, 5 -5, 5 5", "5 0 7");
  expectHit(lineSegment, "0 0 7, 0 -1, -5 5, 5 5", "0 5 7");
}

TEST(BiVectorSegmentIntersect, KeptBiVectorAtSegmentStartWritesNothing) {
  const Answer across = run(lineSegment, "5 5 1, 1 0, 5 5 1, 9 9 2");
  EXPECT_TRUE(across.found);
  EXPECT_THAT(across.out, VertexIs(untouched));
  const Answer along = run(lineSegment, "5 5 1, 8 8 2, 5 5 1, 9 9 2");
  EXPECT_TRUE(along.found);
  EXPECT_THAT(along.out, VertexIs(untouched));
  expectMiss(lineSegment, "5 5 1, 4 4 1, 5 5 1, 9 9 2", untouched);
}

TEST(BiVectorSegmentIntersect, OriginOnTheEndIsNotSpecial) {
  expectHit(lineSegment, "9 9 2, 1 0, 5 5 1, 9 9 2", "9 9 2");
  expectHit(lineSegment, "9 9 3, 1 0, 5 5 1, 9 9 2", "9 9 3");
  expectMiss(lineSegment, "9 9 2, 8 8, 5 5 1, 9 9 2", untouched);
}

TEST(BiVectorSegmentIntersect, OriginOnTheStartMustAgreeInHeight) {
  expectHit(lineSegment, "5 5 8, 1 0, 5 5 1, 9 9 2", "5 5 8");
}

TEST(BiVectorSegmentIntersect, CrossingPastTheSegmentIsRejectedAndLeftInTheOutput) {
  expectMiss(lineSegment, "0 0 7, 1 0, 5 1, 5 5", "5 0 7");
  expectMiss(lineSegment, "0 0 7, 0 1, 1 5, 5 5", "0 5 7");
  expectHit(lineSegment, "0 0 7, 1 0, 5 1, 5 5", "5 0 7", 1.0);
  expectMiss(lineSegment, "0 0 7, 1 0, 5 1, 5 5", "5 0 7", 0.9999);
}

TEST(BiVectorSegmentIntersect, ParallelIsNoHit) {
  expectMiss(lineSegment, "0 0, 1 1, 2 2, 9 9", untouched);
}

TEST(VectorVectorIntersect, CrossesAheadOfBothWithTheHeightOfTheFirst) {
  expectHit(rayRay, "0 0 7, 1 1 5, 4 0 3, -1 1 2", "2 2 7");
  expectHit(rayRay, "4 4 7, -1 -1, 0 4, 1 -1", "2 2 7");
}

TEST(VectorVectorIntersect, KeptEqualRayOriginsWriteNothing) {
  const Answer answer = run(rayRay, "1 2 3, 1 0, 1 2 3, 0 1");
  EXPECT_TRUE(answer.found);
  EXPECT_THAT(answer.out, VertexIs(untouched));
  EXPECT_TRUE(run(rayRay, "1 2 3, 1 0, 1 2 3, 2 0").found);
  expectMiss(rayRay, "1 2 3, 1 0, 1 2 3, 1 0", untouched);
  // Heights apart: the origins are not equal and the crossing is found the long way.
  expectHit(rayRay, "1 2 3, 1 0, 1 2 4, 0 1", "1 2 3");
}

// One row for each of the four tests, in both signs; the crossing stays in the output.
TEST(VectorVectorIntersect, CrossingBehindEitherIsRejected) {
  expectMiss(rayRay, "0 0 7, 1 0, -5 -5, 0 1", "-5 0 7");
  expectMiss(rayRay, "0 0 7, -1 0, 5 -5, 0 1", "5 0 7");
  expectMiss(rayRay, "0 0 7, 0 1, -5 -5, 1 0", "0 -5 7");
  expectMiss(rayRay, "0 0 7, 0 -1, -5 5, 1 0", "0 5 7");
  expectMiss(rayRay, "0 0 7, 1 0, 5 -5, 0 -1", "5 0 7");
  expectMiss(rayRay, "0 0 7, 1 0, 5 5, 0 1", "5 0 7");
  expectMiss(rayRay, "0 0 7, 0 1, 5 5, 1 0", "0 5 7");
  expectMiss(rayRay, "0 0 7, 0 1, -5 5, -1 0", "0 5 7");
}

TEST(VectorVectorIntersect, KeptCrossingAtAnOriginCountsBehindTheOther) {
  expectHit(rayRay, "0 0, -1 0, 5 0, 0 1", "5 0 0");       // origin 2, behind ray 1
  expectMiss(rayRay, "0 0 1, -1 0, 5 0 0, 0 1", "5 0 1");  // the same with heights apart
  expectHit(rayRay, "0 0 1, 1 0, 0 5 9, 0 1", "0 0 1");    // origin 1, behind ray 2
}

TEST(VectorVectorIntersect, ParallelIsNoHit) {
  expectMiss(rayRay, "0 0, 1 1, 2 2, -1 -1", untouched);
}

// 49 * (1 / 49) is one bit short of the x = 1 that ray 2 runs along. Its direction 0 in x is not
// tested: a positive one would put the crossing behind it.
TEST(VectorVectorIntersect, KeptTwoRayTestSkipsZero) {
  expectHit(rayRay, "0 0, 49 49, 1 -1, 0 1", "0.99999999999999989 0.99999999999999989 0");
  expectHit(rayRay, "0 0, 49 49, -1 1, 1 0", "0.99999999999999989 0.99999999999999989 0");
}

TEST(VectorBiVectorIntersect, CrossesAheadOfTheRayAndAnywhereOnTheLine) {
  expectHit(rayLine, "0 0 7, 1 0, 5 5 3, 0 1", "5 0 7");
  expectHit(rayLine, "0 0 7, 1 0, 5 5 3, 0 -1", "5 0 7");
  expectHit(rayLine, "4 4 7, -1 -1, 0 4, -1 1", "2 2 7");
}

TEST(VectorBiVectorIntersect, KeptEqualRayAndLineOriginsWriteNothing) {
  const Answer answer = run(rayLine, "1 2 3, 1 0, 1 2 3, 0 1");
  EXPECT_TRUE(answer.found);
  EXPECT_THAT(answer.out, VertexIs(untouched));
  EXPECT_TRUE(run(rayLine, "1 2 3, 1 0, 1 2 3, 2 0").found);
  expectMiss(rayLine, "1 2 3, 1 0, 1 2 3, 1 0", untouched);
  expectHit(rayLine, "1 2 3, 1 0, 1 2 4, 0 1", "1 2 3");
}

TEST(VectorBiVectorIntersect, CrossingBehindIsRejectedAndLeftInTheOutput) {
  expectMiss(rayLine, "0 0 7, 1 0, -5 5, 0 1", "-5 0 7");
  expectMiss(rayLine, "0 0 7, -1 0, 5 5, 0 1", "5 0 7");
  expectMiss(rayLine, "0 0 7, 0 1, 5 -5, 1 0", "0 -5 7");
  expectMiss(rayLine, "0 0 7, 0 -1, 5 5, 1 0", "0 5 7");
}

// Behind the ray the line's own origin is no excuse, as it is for two rays.
TEST(VectorBiVectorIntersect, OriginOfTheLineIsNoHitBehindTheRay) {
  expectMiss(rayLine, "0 0, -1 0, 5 0, 0 1", "5 0 0");
}

TEST(VectorBiVectorIntersect, OriginOnTheLineIsTheHit) {
  expectHit(rayLine, "0 0 7, 1 0, 0 5, 0 1", "0 0 7");
}

// Directions 1e-6 from parallel: the determinant is 1e-6 as given and 1e-4 from ten times the
// directions.
TEST(VectorBiVectorIntersect, KeptBiVectorDirectionsTimesTen) {
  const std::string nearlyParallel = "0 0, 1 0, 0 -1, 1 1e-06";
  const Answer scaled = run(rayLine, nearlyParallel, 1e-05);
  EXPECT_TRUE(scaled.found);
  EXPECT_THAT(scaled.out, VertexNear("1000000 0 0", 1e-3));
  expectMiss(rayRay, nearlyParallel, untouched, 1e-05);
  expectMiss(lineLine, nearlyParallel, untouched, 1e-05);
  // A hundred times, neither less nor more.
  EXPECT_TRUE(run(rayLine, "0 0, 1 0, 5 -1, 0 1", 99.9).found);
  EXPECT_FALSE(run(rayLine, "0 0, 1 0, 5 -1, 0 1", 100.1).found);
}

TEST(BiVectorBiVectorIntersect, CrossesAnywhereWithTheHeightOfTheFirst) {
  expectHit(lineLine, "0 0 7, 1 0, 5 5 3, 0 1", "5 0 7");
  expectHit(lineLine, "0 0 7, -1 0, 5 5 3, 0 1", "5 0 7");
  expectHit(lineLine, "1 2 3, 1 0, 1 2 3, 0 1", "1 2 3");  // equal origins are not special
  expectMiss(lineLine, "0 0, 1 1, 2 3, 1 1", untouched);
}

TEST(BiVectorBiVectorIntersect, ZeroToleranceLeavesTheRejectedCandidate) {
  const Answer answer = run(lineLine, "0 0 7, 1 0, 0 1, 1 0", 0.0);
  EXPECT_FALSE(answer.found);
  EXPECT_TRUE(std::isinf(answer.out.x()));
  EXPECT_TRUE(std::isnan(answer.out.y()));
}

TEST(EveryVectorIntersection, OutputMayBeAnyInput) {
  for (const Primitive primitive : {raySegment, lineSegment, rayRay, rayLine, lineLine}) {
    // A crossing far past the second vertices too, so that a range test on overwritten ends would
    // show.
    for (const char* text : {"0 0 7, 1 0 0, 5 -5 1, 5 5 2", "0 0 7, 1 0 0, 5 -5 1, 1 6 2"}) {
      const Answer expected = run(primitive, text);
      for (std::size_t aliased = 0; aliased < 4; ++aliased) {
        VertexLine v = line(text);
        EXPECT_EQ(primitive(v[0], v[1], v[2], v[3], v[aliased], small), expected.found)
            << text << aliased;
        EXPECT_EQ(v[aliased], expected.out) << text << aliased;
      }
    }
  }
}

rc::Gen<gdfVertex> mapVertex() {
  const auto coordinate = rc::gen::map(rc::gen::inRange(-256, 257), [](int k) { return k / 64.0; });
  return rc::gen::apply([](double x, double y) { return gdfVertex(x, y); }, coordinate, coordinate);
}

Answer answerOf(Primitive primitive, const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                const gdfVertex& d) {
  Answer answer;
  answer.found = primitive(a, b, c, d, answer.out, small);
  return answer;
}

// What a ray meets, the line that holds the ray meets too, at the same place.
RC_GTEST_PROP(VectorIntersectionProperty, LineMeetsWhatARayMeets, ()) {
  const gdfVertex o = *mapVertex(), v = *mapVertex(), s = *mapVertex(), e = *mapVertex();
  RC_PRE(!(o == s) && !(o == e));
  const Answer ray = answerOf(raySegment, o, v, s, e);
  const Answer whole = answerOf(lineSegment, o, v, s, e);
  if (ray.found) RC_ASSERT(whole.found);
  RC_ASSERT(ray.out == whole.out);
}

// Forward and backward rays together meet the segment wherever the line does.
RC_GTEST_PROP(VectorIntersectionProperty, OneOfTwoOppositeRaysMeetsWhatTheLineMeets, ()) {
  const gdfVertex o = *mapVertex(), v = *mapVertex(), s = *mapVertex(), e = *mapVertex();
  const bool forward = answerOf(raySegment, o, v, s, e).found;
  const bool backward = answerOf(raySegment, o, -v, s, e).found;
  if (answerOf(lineSegment, o, v, s, e).found) RC_ASSERT(forward || backward);
}

RC_GTEST_PROP(VectorIntersectionProperty, SwappedEndsOfTheSegmentChangeNothing, ()) {
  const gdfVertex o = *mapVertex(), v = *mapVertex(), s = *mapVertex(), e = *mapVertex();
  RC_PRE(!(o == s) && !(o == e));
  for (const Primitive primitive : {raySegment, lineSegment}) {
    const Answer straight = answerOf(primitive, o, v, s, e);
    const Answer swapped = answerOf(primitive, o, v, e, s);
    RC_ASSERT(straight.found == swapped.found);
    RC_ASSERT(straight.out == swapped.out);
  }
}

RC_GTEST_PROP(VectorIntersectionProperty, TwoRaysAreTheSameEitherWayRound, ()) {
  const gdfVertex o = *mapVertex(), u = *mapVertex(), p = *mapVertex(), w = *mapVertex();
  const Answer lines = answerOf(lineLine, o, u, p, w);
  // Crossings at an origin are left out: there one rounding decides.
  RC_PRE(lines.found && !lines.out.equal(o, 1e-6) && !lines.out.equal(p, 1e-6));
  RC_ASSERT(answerOf(rayRay, o, u, p, w).found == answerOf(rayRay, p, w, o, u).found);
}

}  // namespace
