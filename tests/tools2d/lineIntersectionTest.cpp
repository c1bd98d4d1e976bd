#include <zrBase/tools2d/lineIntersection.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <zrBase/tools2d/segmentIntersection.h>

#include <array>
#include <cmath>
#include <limits>

#include "support/geometryText.h"

namespace {

constexpr double tolerance = 1e-05;

// Open to the west; the segment from (5, -5, 1) to (5, 15, 2) crosses its bottom at a quarter of
// its height and its top at three quarters.
const char* const bracket = "0 0 50, 10 0 60, 10 10 70, 0 10 80";

TEST(LineSegmentIntersect, GivesFirstCrossingAndItsSegment) {
  gdfVertex out;
  int index = 42;
  EXPECT_TRUE(zr2DTools::getLineSegmentIntersect(line(bracket), {5, -5, 1}, {5, 15, 2}, out, index,
                                                 tolerance));
  EXPECT_THAT(out, VertexIs("5 0 1.25"));
  EXPECT_EQ(index, 0);
  EXPECT_TRUE(zr2DTools::getLineSegmentIntersect(line(bracket), {5, 5, 0}, {5, 15, 1}, out, index,
                                                 tolerance));
  EXPECT_THAT(out, VertexIs("5 10 0.5"));
  EXPECT_EQ(index, 2);
}

TEST(LineSegmentIntersect, DropsTheIndexInItsShortForm) {
  gdfVertex out;
  EXPECT_TRUE(
      zr2DTools::getLineSegmentIntersect(line(bracket), {5, -5, 1}, {5, 15, 2}, out, tolerance));
  EXPECT_THAT(out, VertexIs("5 0 1.25"));
}

TEST(LineSegmentIntersect, LeavesOutputsAloneOnAMiss) {
  gdfVertex out(7, 8, 9);
  int index = 42;
  EXPECT_FALSE(
      zr2DTools::getLineSegmentIntersect(line(bracket), {20, 0}, {20, 5}, out, index, tolerance));
  EXPECT_FALSE(
      zr2DTools::getLineSegmentIntersect(line("5 0"), {5, -5}, {5, 5}, out, index, tolerance));
  EXPECT_FALSE(zr2DTools::getLineSegmentIntersect(line(""), {5, -5}, {5, 5}, out, tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
  EXPECT_EQ(index, 42);
}

TEST(LineSegmentIntersect, OutputMayBeAnEndOfTheSegment) {
  gdfVertex end(5, 15, 2);
  EXPECT_TRUE(zr2DTools::getLineSegmentIntersect(line(bracket), {5, -5, 1}, end, end, tolerance));
  EXPECT_THAT(end, VertexIs("5 0 1.25"));
}

TEST(LineSegmentIntersectList, GivesAllCrossingsInLineOrder) {
  VertexLine out;
  EXPECT_TRUE(
      zr2DTools::getLineSegmentIntersect(line(bracket), {5, -5, 1}, {5, 15, 2}, out, tolerance));
  EXPECT_THAT(out, LineIs("5 0 1.25, 5 10 1.75"));
}

TEST(LineSegmentIntersectList, ListsASharedVertexTwice) {
  VertexLine out;
  EXPECT_TRUE(
      zr2DTools::getLineSegmentIntersect(line("0 0, 10 0, 10 10"), {5, -5}, {15, 5}, out, 0.0));
  EXPECT_THAT(out, LineIs("10 0, 10 0"));
}

TEST(LineSegmentIntersectList, KeptSegmentCrossingsAreAppended) {
  VertexLine out = line("1 2 3");
  EXPECT_TRUE(zr2DTools::getLineSegmentIntersect(line(bracket), {20, 0}, {20, 5}, out, tolerance));
  EXPECT_THAT(out, LineIs("1 2 3"));
  EXPECT_TRUE(
      zr2DTools::getLineSegmentIntersect(line(bracket), {5, -5, 1}, {5, 15, 2}, out, tolerance));
  EXPECT_THAT(out, LineIs("1 2 3, 5 0 1.25, 5 10 1.75"));
}

TEST(LineSegmentIntersectList, IsFalseOnAMissWithAnEmptyList) {
  VertexLine out;
  EXPECT_FALSE(zr2DTools::getLineSegmentIntersect(line(bracket), {20, 0}, {20, 5}, out, tolerance));
  EXPECT_TRUE(out.empty());
}

TEST(LineSegmentIntersectList, IsFalseWithoutSegmentsWhateverTheListHolds) {
  VertexLine out = line("1 2 3");
  EXPECT_FALSE(zr2DTools::getLineSegmentIntersect(line("5 0"), {5, -5}, {5, 5}, out, tolerance));
  EXPECT_FALSE(zr2DTools::getLineSegmentIntersect(line(""), {5, -5}, {5, 5}, out, tolerance));
  EXPECT_THAT(out, LineIs("1 2 3"));
}

TEST(LineSegmentIntersectList, ListMayBeTheLineItself) {
  VertexLine both = line("0 0, 10 0, 10 10, 0 10");
  EXPECT_TRUE(zr2DTools::getLineSegmentIntersect(both, {5, -5}, {5, 15}, both, tolerance));
  EXPECT_THAT(both, LineIs("0 0, 10 0, 10 10, 0 10, 5 0, 5 10"));
}

TEST(LineSegmentIntersectList, EndsMayBeEntriesOfTheList) {
  VertexLine out = line("5 -5 1, 5 15 2");
  out.shrink_to_fit();
  EXPECT_TRUE(zr2DTools::getLineSegmentIntersect(line(bracket), out[0], out[1], out, tolerance));
  EXPECT_THAT(out, LineIs("5 -5 1, 5 15 2, 5 0 1.25, 5 10 1.75"));
}

// Two lines: the bracket's level segments at y = 0 and y = 5 against uprights at x = 2 and x = 8,
// heights from those.
const char* const lyingU = "0 0, 10 0, 10 5, 0 5";
const char* const standingU = "2 -5 7, 2 15 7, 8 15 7, 8 -5 7";

TEST(LineLineIntersect, GivesFirstCrossing) {
  gdfVertex out;
  EXPECT_TRUE(zr2DTools::getLineLineIntersect(line(lyingU), line(standingU), out, tolerance));
  EXPECT_THAT(out, VertexIs("2 0 7"));
}

TEST(LineLineIntersect, LeavesOutputAloneOnAMiss) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getLineLineIntersect(line(lyingU), line("20 0, 20 9"), out, tolerance));
  EXPECT_FALSE(zr2DTools::getLineLineIntersect(line("2 0"), line(standingU), out, tolerance));
  EXPECT_FALSE(zr2DTools::getLineLineIntersect(line(lyingU), line("2 0"), out, tolerance));
  EXPECT_FALSE(zr2DTools::getLineLineIntersect(line(""), line(""), out, tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
}

TEST(LineLineIntersectList, RunsOverTheSecondLineInside) {
  VertexLine out;
  EXPECT_TRUE(zr2DTools::getLineLineIntersect(line(lyingU), line(standingU), out, tolerance));
  EXPECT_THAT(out, LineIs("2 0 7, 8 0 7, 2 5 7, 8 5 7"));
  EXPECT_TRUE(zr2DTools::getLineLineIntersect(line(standingU), line(lyingU), out, tolerance));
  EXPECT_THAT(out, LineIs("2 0, 2 5, 8 0, 8 5"));
}

TEST(LineLineIntersectList, ClearsTheListInAllCases) {
  VertexLine out = line("1 2 3");
  EXPECT_FALSE(zr2DTools::getLineLineIntersect(line(lyingU), line("20 0, 20 9"), out, tolerance));
  EXPECT_TRUE(out.empty());
  out = line("1 2 3");
  EXPECT_FALSE(zr2DTools::getLineLineIntersect(line("2 0"), line(standingU), out, tolerance));
  EXPECT_TRUE(out.empty());
  out = line("1 2 3");
  EXPECT_FALSE(zr2DTools::getLineLineIntersect(line(lyingU), line(""), out, tolerance));
  EXPECT_TRUE(out.empty());
}

TEST(LineLineIntersectList, ListMayBeEitherLine) {
  VertexLine first = line(lyingU);
  EXPECT_TRUE(zr2DTools::getLineLineIntersect(first, line(standingU), first, tolerance));
  EXPECT_THAT(first, LineIs("2 0 7, 8 0 7, 2 5 7, 8 5 7"));
  VertexLine second = line(standingU);
  EXPECT_TRUE(zr2DTools::getLineLineIntersect(line(lyingU), second, second, tolerance));
  EXPECT_THAT(second, LineIs("2 0 7, 8 0 7, 2 5 7, 8 5 7"));
  VertexLine itself = line("0 0, 10 0, 10 10");
  EXPECT_TRUE(zr2DTools::getLineLineIntersect(itself, itself, itself, 0.0));
  EXPECT_THAT(itself, LineIs("10 0, 10 0"));
}

// The double loop skips pairs by their ranges before it asks about them. The skipped pairs must be
// those that would have been rejected, with NaNs and infinities in any place, and touching ranges
// must not be skipped.
RC_GTEST_PROP(LineLineIntersectList, EqualsThePlainDoubleLoop, (bool wild)) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr std::array<double, 4> wildValues = {infinity, -infinity, -0.0,
                                                std::numeric_limits<double>::quiet_NaN()};
  const auto coordinate = [&]() -> double {
    if (wild && *rc::gen::inRange(0, 12) == 0) return *rc::gen::elementOf(wildValues);
    return *rc::gen::inRange(-12, 13) / 4.0;
  };
  const auto drawnLine = [&] {
    VertexLine drawn;
    const int vertices = *rc::gen::inRange(0, 7);
    for (int i = 0; i < vertices; ++i) {
      const double x = coordinate();
      const double y = coordinate();
      drawn.emplace_back(x, y, i);
    }
    return drawn;
  };
  const VertexLine a = drawnLine();
  const VertexLine b = drawnLine();
  const double drawnTolerance = *rc::gen::element(0.0, 1e-05, 0.5);
  VertexLine expected;
  gdfVertex hit;
  for (std::size_t i = 0; i + 1 < a.size(); ++i) {
    for (std::size_t j = 0; j + 1 < b.size(); ++j) {
      if (zr2DTools::getSegmentSegmentIntersect(a[i], a[i + 1], b[j], b[j + 1], hit,
                                                drawnTolerance)) {
        expected.push_back(hit);
      }
    }
  }
  VertexLine out;
  RC_ASSERT(zr2DTools::getLineLineIntersect(a, b, out, drawnTolerance) == !expected.empty());
  RC_ASSERT(out.size() == expected.size());
  for (std::size_t k = 0; k < out.size(); ++k) {
    const bool sameHeight =
        out[k].z() == expected[k].z() || (std::isnan(out[k].z()) && std::isnan(expected[k].z()));
    RC_ASSERT(out[k].x() == expected[k].x());
    RC_ASSERT(out[k].y() == expected[k].y());
    RC_ASSERT(sameHeight);
  }
}

// A vector going east at y = 5 meets the uprights at x = 8 and then x = 4 of this line.
const char* const farUprightFirst = "8 0, 8 10, 4 10, 4 0";

TEST(VectorLineIntersect, GivesFirstCrossingInLineOrder) {
  gdfVertex out;
  EXPECT_TRUE(
      zr2DTools::getVectorLineIntersect({0, 5, 3}, {1, 0}, line(farUprightFirst), out, tolerance));
  EXPECT_THAT(out, VertexIs("8 5 3"));
}

TEST(VectorLineIntersect, DoesNotLookBehind) {
  gdfVertex out;
  EXPECT_TRUE(zr2DTools::getVectorLineIntersect({0, 5}, {1, 0}, line("-4 0, -4 10, 6 10, 6 0"), out,
                                                tolerance));
  EXPECT_THAT(out, VertexIs("6 5"));
}

TEST(VectorLineIntersect, KeptFirstHitShowsRejectedCandidate) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(
      zr2DTools::getVectorLineIntersect({0, 5, 3}, {1, 0}, line("-4 0, -4 10"), out, tolerance));
  EXPECT_THAT(out, VertexIs("-4 5 3"));
  EXPECT_FALSE(
      zr2DTools::getBiVectorLineIntersect({0, 5, 3}, {1, 0}, line("20 0, 20 2"), out, tolerance));
  EXPECT_THAT(out, VertexIs("20 5 3"));
  // The last of several.
  EXPECT_FALSE(
      zr2DTools::getBiVectorLineIntersect({0, 5}, {1, 0}, line("20 0, 20 2, 6 0"), out, tolerance));
  EXPECT_THAT(out, VertexNear("41 5", 1e-11));
}

TEST(VectorLineIntersect, LeavesOutputAloneWithoutSegments) {
  gdfVertex out(7, 8, 9);
  EXPECT_FALSE(zr2DTools::getVectorLineIntersect({0, 5}, {1, 0}, line("0 5"), out, tolerance));
  EXPECT_FALSE(zr2DTools::getVectorLineIntersect({0, 5}, {1, 0}, line(""), out, tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
}

TEST(VectorLineIntersect, OutputMayBeTheOriginOrAVertexOfTheLine) {
  // The first upright leaves its candidate (-4, 5); from there the second, behind the origin too,
  // would lie ahead.
  gdfVertex origin(0, 5);
  EXPECT_TRUE(zr2DTools::getVectorLineIntersect(
      origin, {1, 0}, line("-4 0, -4 10, -2 10, -2 0, 6 0, 6 10"), origin, tolerance));
  EXPECT_THAT(origin, VertexIs("6 5"));
  VertexLine uprights = line("-4 0, -4 10, 6 10, 6 0");
  EXPECT_TRUE(zr2DTools::getVectorLineIntersect({0, 5}, {1, 0}, uprights, uprights[3], tolerance));
  EXPECT_THAT(uprights, LineIs("-4 0, -4 10, 6 10, 6 5"));
}

TEST(VectorLineIntersectList, GivesAllCrossingsInLineOrder) {
  VertexLine out = line("1 2 3");
  EXPECT_TRUE(zr2DTools::getVectorLineIntersect(
      {0, 5, 3}, {1, 0}, line("8 0, 8 10, 4 10, 4 0, -4 0, -4 10"), out, tolerance));
  EXPECT_THAT(out, LineIs("8 5 3, 4 5 3"));
}

TEST(VectorLineIntersectList, ClearsTheListInAllCases) {
  VertexLine out = line("1 2 3");
  EXPECT_FALSE(
      zr2DTools::getVectorLineIntersect({0, 5}, {1, 0}, line("-4 0, -4 10"), out, tolerance));
  EXPECT_TRUE(out.empty());
  out = line("1 2 3");
  EXPECT_FALSE(zr2DTools::getVectorLineIntersect({0, 5}, {1, 0}, line("0 5"), out, tolerance));
  EXPECT_TRUE(out.empty());
}

TEST(VectorLineIntersectList, ListMayBeTheLineOrHoldTheVector) {
  VertexLine both = line(farUprightFirst);
  EXPECT_TRUE(zr2DTools::getVectorLineIntersect({0, 5}, {1, 0}, both, both, tolerance));
  EXPECT_THAT(both, LineIs("8 5, 4 5"));
  VertexLine vector = line("0 5, 1 0");
  EXPECT_TRUE(zr2DTools::getVectorLineIntersect(vector[0], vector[1], line(farUprightFirst), vector,
                                                tolerance));
  EXPECT_THAT(vector, LineIs("8 5, 4 5"));
}

TEST(BiVectorLineIntersect, LooksBothWays) {
  gdfVertex out;
  EXPECT_TRUE(zr2DTools::getBiVectorLineIntersect({0, 5, 3}, {1, 0}, line("-4 0, -4 10, 6 10, 6 0"),
                                                  out, tolerance));
  EXPECT_THAT(out, VertexIs("-4 5 3"));
  VertexLine all = line("1 2 3");
  EXPECT_TRUE(zr2DTools::getBiVectorLineIntersect({0, 5, 3}, {1, 0}, line("-4 0, -4 10, 6 10, 6 0"),
                                                  all, tolerance));
  EXPECT_THAT(all, LineIs("-4 5 3, 6 5 3"));
}

TEST(BiVectorLineIntersect, FromTheStartOfASegmentKeepsWhatTheOutputHeld) {
  gdfVertex out(7, 8, 9);
  EXPECT_TRUE(
      zr2DTools::getBiVectorLineIntersect({0, 9}, {1, 0}, line("0 9, 0 19"), out, tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
  // Along the segment itself there is no crossing.
  EXPECT_FALSE(
      zr2DTools::getBiVectorLineIntersect({0, 9}, {0, 10}, line("0 9, 0 19"), out, tolerance));
  EXPECT_THAT(out, VertexIs("7 8 9"));
}

// Seen from (0, 9) to the east with a tolerance of 4: the first segment is met at (20, 9) and
// rejected; the next three climb by 3 and count as parallel; the last begins at the origin.
const char* const upToTheOrigin = "20 -20, 20 0, 12 3, 6 6, 0 9, 0 19";

TEST(BiVectorLineIntersect, FromTheStartOfASegmentShowsARejectedCandidate) {
  gdfVertex out(7, 8, 9);
  EXPECT_TRUE(zr2DTools::getBiVectorLineIntersect({0, 9}, {1, 0}, line(upToTheOrigin), out, 4.0));
  EXPECT_THAT(out, VertexIs("20 9"));
}

TEST(BiVectorLineIntersectList, KeptListedHitMayRepeatScratchVertex) {
  VertexLine out = line("1 2 3");
  EXPECT_TRUE(
      zr2DTools::getBiVectorLineIntersect({0, 9}, {1, 0}, line("0 9, 0 19"), out, tolerance));
  EXPECT_THAT(out, LineIs("0 0 0"));
  EXPECT_TRUE(zr2DTools::getBiVectorLineIntersect({0, 9}, {1, 0}, line(upToTheOrigin), out, 4.0));
  EXPECT_THAT(out, LineIs("20 9"));
  // A true crossing at x = -5 is repeated by the segment that starts at the origin.
  EXPECT_TRUE(zr2DTools::getBiVectorLineIntersect({0, 9}, {1, 0}, line("-5 0, -5 9, 0 9, 0 19"),
                                                  out, tolerance));
  EXPECT_THAT(out, LineIs("-5 9, -5 9"));
}

TEST(BiVectorLineIntersectList, ClearsTheListInAllCases) {
  VertexLine out = line("1 2 3");
  EXPECT_FALSE(
      zr2DTools::getBiVectorLineIntersect({0, 5}, {1, 0}, line("20 0, 20 2"), out, tolerance));
  EXPECT_TRUE(out.empty());
  out = line("1 2 3");
  EXPECT_FALSE(zr2DTools::getBiVectorLineIntersect({0, 5}, {1, 0}, line("0 5"), out, tolerance));
  EXPECT_TRUE(out.empty());
}

}  // namespace
