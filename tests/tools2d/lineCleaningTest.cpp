#include <zrBase/tools2d/lineCleaning.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <limits>
#include <vector>

namespace {

using testing::ElementsAre;

constexpr double tolerance = 1e-05;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// What an operation made of a line, and what it said.
struct Cleaned {
  bool changed;
  VertexLine line;
};

Cleaned withoutAdjacent(const char* text, double within = tolerance) {
  Cleaned cleaned{false, line(text)};
  cleaned.changed = zr2DTools::removeDuplicateAdjacentVertices(cleaned.line, within);
  return cleaned;
}

Cleaned withoutRepeated(const char* text, double within = tolerance) {
  Cleaned cleaned{false, line(text)};
  cleaned.changed = zr2DTools::removeDuplicateVertices(cleaned.line, within);
  return cleaned;
}

Cleaned thinned(const char* text, double percent, const char* before = "") {
  Cleaned cleaned{false, line(before)};
  cleaned.changed = zr2DTools::downSampleLineUsingChangeInAngle(line(text), cleaned.line, percent);
  return cleaned;
}

#define EXPECT_CLEANED(operation, expectedChange, expectedLine) \
  do {                                                          \
    const Cleaned cleaned = operation;                          \
    EXPECT_EQ(cleaned.changed, expectedChange);                 \
    EXPECT_THAT(cleaned.line, LineIs(expectedLine));            \
  } while (false)

// Adjacent vertices.

TEST(RemoveDuplicateAdjacentVertices, DropsWhatRepeatsTheVertexBefore) {
  EXPECT_CLEANED(withoutAdjacent("0 0, 0 0, 5 0, 9 0, 9 0, 9 0"), true, "0 0, 5 0, 9 0");
  EXPECT_CLEANED(withoutAdjacent("0 0, 5 0, 0 0"), false, "0 0, 5 0, 0 0");
}

TEST(RemoveDuplicateAdjacentVertices, KeptDriftingRunLeavesItsFirst) {
  EXPECT_CLEANED(withoutAdjacent("0 0, 0.6 0, 1.2 0, 1.8 0, 2.4 0", 1.0), true, "0 0");
  // (1.2, 0) goes though it lies far from (0, 0), the last that stays; (9, 0) begins anew.
  EXPECT_CLEANED(withoutAdjacent("0 0, 0.6 0, 1.2 0, 9 0, 9.6 0", 1.0), true, "0 0, 9 0");
}

TEST(RemoveDuplicateAdjacentVertices, TakesNoNoticeOfHeights) {
  EXPECT_CLEANED(withoutAdjacent("1 2 3, 1 2 300"), true, "1 2 3");
}

TEST(RemoveDuplicateAdjacentVertices, ComparesStrictlyWithinABox) {
  EXPECT_CLEANED(withoutAdjacent("0 0, 1 0", 1.0), false, "0 0, 1 0");
  EXPECT_CLEANED(withoutAdjacent("0 0, 0 -1", 1.0), false, "0 0, 0 -1");
  EXPECT_CLEANED(withoutAdjacent("0 0, 0.9 -0.9", 1.0), true, "0 0");
}

TEST(RemoveDuplicateAdjacentVertices, FindsNothingWithoutATolerance) {
  EXPECT_CLEANED(withoutAdjacent("0 0, 0 0", 0.0), false, "0 0, 0 0");
  EXPECT_CLEANED(withoutAdjacent("0 0, 0 0", -1.0), false, "0 0, 0 0");
  EXPECT_CLEANED(withoutAdjacent("0 0, 0 0", nan), false, "0 0, 0 0");
}

TEST(RemoveDuplicateAdjacentVertices, KeepsVerticesWithANaN) {
  VertexLine odd = {{nan, 0.0}, {nan, 0.0}, {1.0, 1.0}, {1.0, 1.0}};
  EXPECT_TRUE(zr2DTools::removeDuplicateAdjacentVertices(odd, 1.0));
  EXPECT_EQ(odd.size(), 3u);
  EXPECT_TRUE(std::isnan(odd[1].x()));
}

TEST(RemoveDuplicateAdjacentVertices, LeavesFewerThanTwoVertices) {
  EXPECT_CLEANED(withoutAdjacent(""), false, "");
  EXPECT_CLEANED(withoutAdjacent("4 4"), false, "4 4");
}

TEST(RemoveDuplicateAdjacentVertices, ShortensAnIndexList) {
  const VertexLine vertices = line("0 0, 5 0, 0 0 3, 9 0");
  std::vector<int> indices = {0, 2, 1, 1, 3};
  EXPECT_TRUE(zr2DTools::removeDuplicateAdjacentVertices(vertices, indices, tolerance));
  EXPECT_THAT(indices, ElementsAre(0, 1, 3));
  EXPECT_THAT(vertices, LineIs("0 0, 5 0, 0 0 3, 9 0"));
  EXPECT_FALSE(zr2DTools::removeDuplicateAdjacentVertices(vertices, indices, tolerance));
  EXPECT_THAT(indices, ElementsAre(0, 1, 3));
}

TEST(RemoveDuplicateAdjacentVertices, FollowsADriftInTheOrderOfTheIndices) {
  const VertexLine vertices = line("1.8 0, 1.2 0, 0.6 0, 0 0");
  std::vector<int> indices = {3, 2, 1, 0};
  EXPECT_TRUE(zr2DTools::removeDuplicateAdjacentVertices(vertices, indices, 1.0));
  EXPECT_THAT(indices, ElementsAre(3));
  std::vector<int> apart = {3, 1, 2, 0};
  EXPECT_TRUE(zr2DTools::removeDuplicateAdjacentVertices(vertices, apart, 1.0));
  EXPECT_THAT(apart, ElementsAre(3, 1, 0));
}

TEST(RemoveDuplicateAdjacentVertices, LeavesFewerThanTwoIndices) {
  std::vector<int> indices = {1};
  EXPECT_FALSE(zr2DTools::removeDuplicateAdjacentVertices(line("0 0, 0 0"), indices, tolerance));
  EXPECT_THAT(indices, ElementsAre(1));
  indices.clear();
  EXPECT_FALSE(zr2DTools::removeDuplicateAdjacentVertices(line(""), indices, tolerance));
  EXPECT_TRUE(indices.empty());
}

// Vertices anywhere in the line.

TEST(RemoveDuplicateVertices, DropsWhatRepeatsAnEarlierVertex) {
  EXPECT_CLEANED(withoutRepeated("0 0 1, 0 0 2, 5 0 3, 5 0 4"), true, "0 0 1, 5 0 3");
  EXPECT_CLEANED(withoutRepeated("3 7, 1 1, 3 7, 2 2, 1 1, 3 7"), true, "3 7, 1 1, 2 2");
}

TEST(RemoveDuplicateVertices, KeptLoneDuplicateDropsFirstVertex) {
  EXPECT_CLEANED(withoutRepeated("0 0, 5 0 1, 9 0, 5 0 2"), true, "5 0 1, 9 0, 5 0 2");
  EXPECT_CLEANED(withoutRepeated("0 0 1, 5 0, 0 0 2"), true, "5 0, 0 0 2");
  EXPECT_CLEANED(withoutRepeated("0 0 1, 0 0 2"), true, "0 0 2");
}

TEST(RemoveDuplicateVertices, ComparesWithThoseThatStayOnly) {
  // (0.6, 0) goes and takes nothing with it; (1.2, 0) stays and takes (1.8, 0).
  EXPECT_CLEANED(withoutRepeated("0 0, 0.6 0, 1.2 0, 1.8 0", 1.0), true, "0 0, 1.2 0");
  // (0.6, 0) comes first and takes both of its neighbours.
  EXPECT_CLEANED(withoutRepeated("0.6 0, 1.2 0, 0 0, 1.8 0", 1.0), true, "0.6 0, 1.8 0");
}

TEST(RemoveDuplicateVertices, LeavesALineWithoutRepetition) {
  EXPECT_CLEANED(withoutRepeated("0 0, 5 0, 0 5, 5 5"), false, "0 0, 5 0, 0 5, 5 5");
}

TEST(RemoveDuplicateVertices, ComparesStrictlyWithinABox) {
  EXPECT_CLEANED(withoutRepeated("0 0, 1 0, 0 1, 1 1", 1.0), false, "0 0, 1 0, 0 1, 1 1");
  EXPECT_CLEANED(withoutRepeated("0 0, 0.9 0.9, -0.9 -0.9", 1.0), true, "0 0");
}

TEST(RemoveDuplicateVertices, FindsRepetitionsOnAnUprightLine) {
  EXPECT_CLEANED(withoutRepeated("3 10, 3 20, 3 30, 3 20, 3 10, 3 40"), true,
                 "3 10, 3 20, 3 30, 3 40");
}

TEST(RemoveDuplicateVertices, FindsNothingWithoutATolerance) {
  EXPECT_CLEANED(withoutRepeated("0 0, 0 0, 0 0", 0.0), false, "0 0, 0 0, 0 0");
  EXPECT_CLEANED(withoutRepeated("0 0, 0 0, 0 0", -1.0), false, "0 0, 0 0, 0 0");
  EXPECT_CLEANED(withoutRepeated("0 0, 0 0, 0 0", nan), false, "0 0, 0 0, 0 0");
}

TEST(RemoveDuplicateVertices, LeavesFewerThanTwoVertices) {
  EXPECT_CLEANED(withoutRepeated(""), false, "");
  EXPECT_CLEANED(withoutRepeated("4 4"), false, "4 4");
}

// The two removals against their rules in the plainest form, on lines full of repetitions and of
// differences that equal the tolerance, NaNs and infinities among them.

VertexLine crowdedLine() {
  const int reachX = *rc::gen::element(2, 8, 256);
  const int reachY = *rc::gen::element(2, 8, 256);
  const bool isWild = *rc::gen::arbitrary<bool>();
  VertexLine crowded(*rc::gen::inRange<std::size_t>(0, 60));
  for (std::size_t i = 0; i < crowded.size(); ++i) {
    gdfVertex& v = crowded[i];
    v.x() = *rc::gen::inRange(-reachX, reachX) / 64.0;
    v.y() = *rc::gen::inRange(-reachY, reachY) / 64.0;
    v.z() = static_cast<double>(i);
    if (isWild && *rc::gen::inRange(0, 8) == 0) {
      (*rc::gen::arbitrary<bool>() ? v.x() : v.y()) = *rc::gen::element(nan, HUGE_VAL, -HUGE_VAL);
    }
  }
  return crowded;
}

bool plainlyRepeats(const gdfVertex& a, const gdfVertex& b, double within) {
  return -within < a.x() - b.x() && a.x() - b.x() < within && -within < a.y() - b.y() &&
         a.y() - b.y() < within;
}

bool plainlyRemoveAdjacent(VertexLine& l, double within) {
  if (l.size() < 2) return false;
  const std::size_t before = l.size();
  std::vector<bool> flags(before, false);
  for (std::size_t i = 0; i + 1 < before; ++i) {
    if (plainlyRepeats(l[i], l[i + 1], within)) flags[i + 1] = true;
  }
  for (std::size_t i = before; i-- > 0;) {
    if (flags[i]) l.erase(l.begin() + static_cast<std::ptrdiff_t>(i));
  }
  return l.size() != before;
}

bool plainlyRemoveAnywhere(VertexLine& l, double within) {
  if (l.size() < 2) return false;
  const std::size_t before = l.size();
  std::vector<bool> flags(before, false);
  std::size_t count = 0;
  for (std::size_t i = 0; i + 1 < before; ++i) {
    if (flags[i]) continue;
    for (std::size_t j = i + 1; j < before; ++j) {
      if (flags[j] || !plainlyRepeats(l[i], l[j], within)) continue;
      flags[j] = true;
      ++count;
    }
  }
  if (count == 1) {
    l.erase(l.begin());
  } else if (count > 1) {
    VertexLine rest;
    for (std::size_t i = 0; i < before; ++i) {
      if (!flags[i]) rest.push_back(l[i]);
    }
    l = rest;
  }
  return l.size() != before;
}

RC_GTEST_PROP(RemoveDuplicateAdjacentVertices, AgreesWithErasureOneByOne, ()) {
  const VertexLine crowded = crowdedLine();
  const double within = *rc::gen::element(0.0, 1e-05, 1 / 64.0, 3 / 64.0, HUGE_VAL);
  VertexLine expected = crowded;
  const bool expectedChange = plainlyRemoveAdjacent(expected, within);
  VertexLine got = crowded;
  RC_ASSERT(zr2DTools::removeDuplicateAdjacentVertices(got, within) == expectedChange);
  RC_ASSERT(toText(got) == toText(expected));

  std::vector<int> indices(crowded.size());
  for (std::size_t i = 0; i < indices.size(); ++i) indices[i] = static_cast<int>(i);
  RC_ASSERT(zr2DTools::removeDuplicateAdjacentVertices(crowded, indices, within) == expectedChange);
  RC_ASSERT(indices.size() == expected.size());
  for (std::size_t i = 0; i < indices.size(); ++i) RC_ASSERT(indices[i] == expected[i].z());
}

RC_GTEST_PROP(RemoveDuplicateVertices, AgreesWithComparisonOfAllPairs, ()) {
  VertexLine got = crowdedLine();
  const double within = *rc::gen::element(0.0, 1e-05, 1 / 64.0, 3 / 64.0, HUGE_VAL);
  VertexLine expected = got;
  const bool expectedChange = plainlyRemoveAnywhere(expected, within);
  RC_ASSERT(zr2DTools::removeDuplicateVertices(got, within) == expectedChange);
  RC_ASSERT(toText(got) == toText(expected));
}

// Thinning by change of angle.

TEST(DownSampleLineUsingChangeInAngle, LeavesTheEndsOfAStraightLine) {
  EXPECT_CLEANED(thinned("0 0 1, 10 0 2, 20 0 3", 10.0), true, "0 0 1, 20 0 3");
  EXPECT_CLEANED(thinned("0 0, 1 1, 2 2, 3 3, 4 4", 10.0), true, "0 0, 4 4");
}

TEST(DownSampleLineUsingChangeInAngle, HasNothingToDropOfTwoVertices) {
  EXPECT_CLEANED(thinned("0 0, 10 0", 10.0), false, "0 0, 10 0");
}

TEST(DownSampleLineUsingChangeInAngle, ListsTheVertexOfATurn) {
  // Azimuths 90, 90, 180 (due north), 180.
  EXPECT_CLEANED(thinned("0 0, 5 0, 10 0, 10 5, 10 10", 10.0), true, "0 0, 10 0, 10 10");
  EXPECT_CLEANED(thinned("0 0, 10 0, 10 10", 10.0), false, "0 0, 10 0, 10 10");
}

TEST(DownSampleLineUsingChangeInAngle, ComparesWithTheDirectionListedLast) {
  // Azimuths 90, 84.3, 78.7: the second is within 81 to 99, the third is not, though it turned by
  // no more than the second.
  EXPECT_CLEANED(thinned("0 0, 10 0, 20 1, 30 3", 10.0), true, "0 0, 20 1, 30 3");
}

TEST(DownSampleLineUsingChangeInAngle, CountsTheMarginItselfAsStraight) {
  // 90 and 270: the margin of 180 reaches it. 180 and 90: that of 90 does.
  EXPECT_CLEANED(thinned("0 0, 10 0, 0 0", 200.0), true, "0 0, 0 0");
  EXPECT_CLEANED(thinned("0 0, 10 0, 0 0", 199.0), false, "0 0, 10 0, 0 0");
  EXPECT_CLEANED(thinned("0 0, 0 10, 10 10", 50.0), true, "0 0, 10 10");
  EXPECT_CLEANED(thinned("0 0, 0 10, 10 10", 49.0), false, "0 0, 0 10, 10 10");
}

TEST(DownSampleLineUsingChangeInAngle, TakesNoNoticeOfTheSignOfThePercentage) {
  EXPECT_CLEANED(thinned("0 0, 10 0, 20 1, 30 3", -10.0), true, "0 0, 20 1, 30 3");
  EXPECT_CLEANED(thinned("0 0, 10 0, 0 0", -200.0), true, "0 0, 0 0");
}

TEST(DownSampleLineUsingChangeInAngle, DropsOnlyTheSameDirectionAtZeroPercent) {
  EXPECT_CLEANED(thinned("0 0, 10 0, 20 0, 30 0.5", 0.0), true, "0 0, 20 0, 30 0.5");
}

TEST(DownSampleLineUsingChangeInAngle, ListsOnlyTheEndsForANaN) {
  EXPECT_CLEANED(thinned("0 0, 10 0, 10 10, 0 10", nan), true, "0 0, 0 10");
}

TEST(DownSampleLineUsingChangeInAngle, KeptMarginGrowsWithAzimuth) {
  // From 90 to 84.3, within 81 to 99; from 5.7 to 11.3, beyond 6.3, by less of a turn.
  EXPECT_CLEANED(thinned("0 0, 10 0, 20 1", 10.0), true, "0 0, 20 1");
  EXPECT_CLEANED(thinned("0 0, 1 10, 3 20", 10.0), false, "0 0, 1 10, 3 20");
  // Due south is 0 and has no margin whatever the percentage; 0.057 is beyond it.
  EXPECT_CLEANED(thinned("0 0, 0 -10, 1 990", 100000.0), false, "0 0, 0 -10, 1 990");
  EXPECT_CLEANED(thinned("0 0, 0 -10, 0 -20", 0.0), true, "0 0, 0 -20");
}

TEST(DownSampleLineUsingChangeInAngle, KeptTurnAcrossNorthIsLarge) {
  // From 359.1 to 0.9: the margin of 179.6 does not reach it. From 0.9 to 2.7 one of 0.9 * 3 does.
  EXPECT_CLEANED(thinned("0 0, -1 64, 0 128", 50.0), false, "0 0, -1 64, 0 128");
  EXPECT_CLEANED(thinned("0 0, 1 64, 4 128", 300.0), true, "0 0, 4 128");
}

TEST(DownSampleLineUsingChangeInAngle, KeptLoneVertexCountsAsThinned) {
  EXPECT_CLEANED(thinned("4 5 6", 10.0), true, "4 5 6");
  EXPECT_CLEANED(thinned("4 5 6", 10.0, "1 1"), true, "1 1, 4 5 6");
}

TEST(DownSampleLineUsingChangeInAngle, AddsNothingForAnEmptyLine) {
  EXPECT_CLEANED(thinned("", 10.0), false, "");
  EXPECT_CLEANED(thinned("", 10.0, "1 1"), false, "1 1");
}

TEST(DownSampleLineUsingChangeInAngle, KeptThinningCountsEarlierContent) {
  // One of three was dropped, and three are listed; none of two was, and three are listed.
  EXPECT_CLEANED(thinned("0 0, 10 0, 20 0", 10.0, "1 1"), false, "1 1, 0 0, 20 0");
  EXPECT_CLEANED(thinned("0 0, 10 0", 10.0, "1 1"), true, "1 1, 0 0, 10 0");
}

TEST(DownSampleLineUsingChangeInAngle, ResultMayBeTheLine) {
  VertexLine both = line("0 0, 10 0, 20 0");
  EXPECT_TRUE(zr2DTools::downSampleLineUsingChangeInAngle(both, both, 10.0));
  EXPECT_THAT(both, LineIs("0 0, 10 0, 20 0, 0 0, 20 0"));
}

}  // namespace
