#include <zrBase/tools2d/lineSplitting.h>

#include <zrBase/tools2d/segmentIntersection.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <cmath>
#include <limits>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double tolerance = 1e-05;

/// What a split said and listed.
struct Split {
  bool found;
  VertexLineList pieces;
};

Split split(const VertexLine& l, const VertexLine& splitter, double within = tolerance) {
  Split result{false, {}};
  result.found = zr2DTools::fastSplitLineWithLine(l, splitter, result.pieces, within);
  return result;
}

Split split(const char* l, const char* splitter, double within = tolerance) {
  return split(line(l), line(splitter), within);
}

TEST(FastSplitLineWithLine, CutsAtEachCrossing) {
  const Split got = split("0 0, 25 0, 30 0", "10 -1, 10 1, 20 1, 20 -1");
  EXPECT_TRUE(got.found);
  EXPECT_THAT(got.pieces,
              ElementsAre(LineIs("0 0, 10 0"), LineIs("10 0, 20 0"), LineIs("20 0, 25 0, 30 0")));
}

TEST(FastSplitLineWithLine, KeepsTheVerticesBetweenTheCuts) {
  const Split got =
      split("0 0, 10 0, 10 10, 20 10, 20 0, 30 0", "5 -1, 5 5, 25 5, 25 20, 15 20, 15 -5");
  // Crossings: (5, 0), then (10, 5), then (15, 10), then (20, 5).
  EXPECT_TRUE(got.found);
  EXPECT_THAT(got.pieces, ElementsAre(LineIs("0 0, 5 0"), LineIs("5 0, 10 0, 10 5"),
                                      LineIs("10 5, 10 10, 15 10"), LineIs("15 10, 20 10, 20 5"),
                                      LineIs("20 5, 20 0, 30 0")));
}

TEST(FastSplitLineWithLine, KeptSingleCutGivesNoPiece) {
  const Split got = split("0 0, 10 0, 20 0", "5 -1, 5 1");
  EXPECT_TRUE(got.found);
  EXPECT_THAT(got.pieces, IsEmpty());
}

TEST(FastSplitLineWithLine, FindsNothingWhereNothingCrosses) {
  const Split apart = split("0 0, 10 0, 20 0", "0 1, 20 1");
  EXPECT_FALSE(apart.found);
  EXPECT_THAT(apart.pieces, IsEmpty());
  // On each other they are parallel, and parallel segments do not cross.
  EXPECT_FALSE(split("0 0, 10 0, 20 0", "0 0, 10 0, 20 0").found);
}

TEST(FastSplitLineWithLine, FindsNothingForFewerThanTwoVertices) {
  EXPECT_FALSE(split("", "5 -1, 5 1").found);
  EXPECT_FALSE(split("5 0", "5 -1, 5 1").found);
  EXPECT_FALSE(split("0 0, 10 0", "").found);
  EXPECT_FALSE(split("0 0, 10 0", "5 0").found);
}

TEST(FastSplitLineWithLine, KeptEndBehindCutOnLastSegmentIsDropped) {
  EXPECT_THAT(split("0 0, 30 0", "10 -1, 10 1, 20 1, 20 -1").pieces,
              ElementsAre(LineIs("0 0, 10 0"), LineIs("10 0, 20 0")));
  EXPECT_THAT(split("0 0, 15 0, 30 0", "10 -1, 10 1, 20 1, 20 -1").pieces,
              ElementsAre(LineIs("0 0, 10 0"), LineIs("10 0, 15 0, 20 0")));
}

TEST(FastSplitLineWithLine, CutsOnceAtAVertex) {
  const Split lone = split("0 0, 10 0, 20 0", "10 -1, 10 1");
  EXPECT_TRUE(lone.found);
  EXPECT_THAT(lone.pieces, IsEmpty());
  EXPECT_THAT(split("0 0, 10 0, 20 0, 30 0", "10 -1, 10 1, 20 1, 20 -1").pieces,
              ElementsAre(LineIs("0 0, 10 0"), LineIs("10 0, 20 0"), LineIs("20 0, 30 0")));
}

TEST(FastSplitLineWithLine, KeptCutAtFirstVertexIsLost) {
  EXPECT_FALSE(split("0 0, 10 0, 20 0", "0 -1, 0 1").found);
  EXPECT_TRUE(split("0 0, 10 0, 20 0", "20 -1, 20 1").found);
  // Crossings at both ends and at 5: the one at the start would be the first of three cuts.
  EXPECT_THAT(split("0 0, 10 0, 20 0", "0 -1, 0 1, 5 1, 5 -1, 20 -1, 20 1").pieces,
              ElementsAre(LineIs("0 0, 5 0"), LineIs("5 0, 10 0, 20 0")));
}

TEST(FastSplitLineWithLine, LooksForTheStartInASquareOfItsOwn) {
  const double reach = 0.009999999776482582;
  const double beyond = std::nextafter(reach, 1.0);
  const VertexLine level = line("0 0, 10 0");
  EXPECT_FALSE(split(level, {{reach, -1}, {reach, 1}}).found);
  EXPECT_TRUE(split(level, {{beyond, -1}, {beyond, 1}}).found);
  EXPECT_FALSE(split(line("0 0, -10 0"), {{-reach, -1}, {-reach, 1}}).found);
  EXPECT_TRUE(split(line("0 0, -10 0"), {{-beyond, -1}, {-beyond, 1}}).found);
  EXPECT_FALSE(split(line("0 0, 0 10"), {{-1, reach}, {1, reach}}).found);
  EXPECT_TRUE(split(line("0 0, 0 10"), {{-1, beyond}, {1, beyond}}).found);
  EXPECT_FALSE(split(line("0 0, 0 -10"), {{-1, -reach}, {1, -reach}}).found);
  EXPECT_TRUE(split(line("0 0, 0 -10"), {{-1, -beyond}, {1, -beyond}}).found);
  // The tolerance makes it neither wider nor narrower.
  EXPECT_TRUE(split(level, {{beyond, -1}, {beyond, 1}}, 5.0).found);
  EXPECT_FALSE(split(level, {{reach, -1}, {reach, 1}}, 0.0).found);
}

TEST(FastSplitLineWithLine, TakesHeightsFromTheLine) {
  const char* const splitter = "5 -1 99, 5 1 99, 15 1 99, 15 -1 99";
  EXPECT_THAT(split("0 0 0, 10 0 10, 20 0 10, 30 0 40", splitter).pieces,
              ElementsAre(LineIs("0 0 0, 5 0 5"), LineIs("5 0 5, 10 0 10, 15 0 10"),
                          LineIs("15 0 10, 20 0 10, 30 0 40")));
}

TEST(FastSplitLineWithLine, MeasuresHeightsByMapDistance) {
  // A step of 6, 8 with a rise of 40, cut in the middle.
  EXPECT_THAT(split("0 0 0, 6 8 40, 16 8 40, 26 8 40", "0 4, 5 4, 11 4, 11 20").pieces,
              ElementsAre(LineIs("0 0 0, 3 4 20"), LineIs("3 4 20, 6 8 40, 11 8 40"),
                          LineIs("11 8 40, 16 8 40, 26 8 40")));
}

TEST(FastSplitLineWithLine, KeptCutsFollowTheSplitter) {
  EXPECT_THAT(split("0 0, 30 0, 40 0", "20 -1, 20 1, 10 1, 10 -1").pieces,
              ElementsAre(LineIs("0 0, 20 0"), LineIs("20 0, 10 0"), LineIs("10 0, 30 0, 40 0")));
}

TEST(FastSplitLineWithLine, DropsAHitThatRepeatsTheCutBefore) {
  // A vertex of the splitter on the line is hit by both of its segments.
  EXPECT_THAT(split("0 0, 30 0", "10 -1, 10 0, 10 1").pieces, IsEmpty());
  EXPECT_THAT(split("0 0, 30 0", "10 -1, 10 0, 10 1, 20 1, 20 -1").pieces,
              ElementsAre(LineIs("0 0, 10 0"), LineIs("10 0, 20 0")));
}

TEST(FastSplitLineWithLine, TakesTheClosenessOfTwoCutsAsAStrictBox) {
  EXPECT_THAT(split("-1 0, 1 0", "0 -1, 0 1, 1e-05 1, 1e-05 -1").pieces,
              ElementsAre(LineIs("-1 0, 0 0"), LineIs("0 0, 1e-05 0")));
  EXPECT_THAT(split("-1 0, 1 0", "0 -1, 0 1, 9e-06 1, 9e-06 -1").pieces, IsEmpty());
  EXPECT_THAT(split("0 -1, 0 1", "-1 0, 1 0, 1 -1e-05, -1 -1e-05").pieces,
              ElementsAre(LineIs("0 -1, 0 0"), LineIs("0 0, 0 -1e-05")));
  EXPECT_THAT(split("0 -1, 0 1", "-1 0, 1 0, 1 -9e-06, -1 -9e-06").pieces, IsEmpty());
}

TEST(FastSplitLineWithLine, KeptRepeatedCutIsSoughtInLastOnly) {
  EXPECT_THAT(split("0 0, 30 0, 40 0", "10 -1, 10 1, 20 1, 20 -1, 10 -1, 10 1").pieces,
              ElementsAre(LineIs("0 0, 10 0"), LineIs("10 0, 20 0"), LineIs("20 0, 10 0"),
                          LineIs("10 0, 30 0, 40 0")));
}

TEST(FastSplitLineWithLine, LeavesOutAPieceThatWouldStartEmpty) {
  // The cut at (10, 0) is a vertex of the line, so that the piece to (5, 0), found after it on the
  // same segment, has no vertex to start from; the next starts at the vertex, not at the cut.
  EXPECT_THAT(split("0 0, 10 0, 20 0, 30 0", "10 -1, 10 1, 5 1, 5 -1").pieces,
              ElementsAre(LineIs("0 0, 10 0"), LineIs("10 0, 20 0, 30 0")));
}

TEST(FastSplitLineWithLine, AddsToTheList) {
  VertexLineList pieces = {line("1 1, 2 2")};
  EXPECT_TRUE(zr2DTools::fastSplitLineWithLine(line("0 0, 30 0"), line("10 -1, 10 1, 20 1, 20 -1"),
                                               pieces, tolerance));
  EXPECT_THAT(pieces, ElementsAre(LineIs("1 1, 2 2"), LineIs("0 0, 10 0"), LineIs("10 0, 20 0")));
  EXPECT_TRUE(
      zr2DTools::fastSplitLineWithLine(line("0 0, 30 0"), line("10 -1, 10 1"), pieces, tolerance));
  EXPECT_EQ(pieces.size(), 3u);
  EXPECT_FALSE(zr2DTools::fastSplitLineWithLine(line("0 0, 30 0"), line(""), pieces, tolerance));
  EXPECT_EQ(pieces.size(), 3u);
}

TEST(FastSplitLineWithLine, ListMayHoldTheLines) {
  VertexLineList pieces = {line("0 0, 25 0, 30 0"), line("10 -1, 10 1, 20 1, 20 -1")};
  pieces.shrink_to_fit();
  EXPECT_TRUE(zr2DTools::fastSplitLineWithLine(pieces[0], pieces[1], pieces, tolerance));
  EXPECT_THAT(pieces,
              ElementsAre(LineIs("0 0, 25 0, 30 0"), LineIs("10 -1, 10 1, 20 1, 20 -1"),
                          LineIs("0 0, 10 0"), LineIs("10 0, 20 0"), LineIs("20 0, 25 0, 30 0")));
}

// The split against its rules in the plainest form.

/// A hit that counts: with the height of the segment, unless it lies at its start.
bool plainHit(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c, const gdfVertex& d,
              gdfVertex& hit, double within) {
  if (!zr2DTools::getSegmentSegmentIntersect(a, b, c, d, hit, within)) return false;
  const double r = 0.009999999776482582;
  const bool away =
      hit.x() < a.x() - r || hit.x() > a.x() + r || hit.y() < a.y() - r || hit.y() > a.y() + r;
  if (!away) return false;
  if (a.z() == b.z()) {
    hit.z() = a.z();
  } else {
    hit.z() = a.z() + (a.mapDistance(hit) / a.mapDistance(b)) * (b.z() - a.z());
  }
  return true;
}

void plainPieces(const VertexLine& l, const std::vector<std::size_t>& positions,
                 const VertexLine& cuts, VertexLineList& pieces) {
  std::size_t start = 0;
  VertexLine carried;
  for (std::size_t k = 0; k < cuts.size(); ++k) {
    VertexLine piece;
    if (!carried.empty() && carried[0] != l[start]) piece.push_back(carried[0]);
    carried.clear();
    for (std::size_t v = start; v < positions[k]; ++v) piece.push_back(l[v]);
    if (!piece.empty() && cuts[k] != piece.back()) piece.push_back(cuts[k]);
    if (piece.size() > 1) {
      pieces.push_back(piece);
      carried = {piece.back()};
    }
    start = positions[k];
  }
  if (start + 1 >= l.size()) return;
  VertexLine piece;
  if (!carried.empty() && carried[0] != l[start]) piece.push_back(carried[0]);
  for (std::size_t v = start; v < l.size(); ++v) piece.push_back(l[v]);
  if (piece.size() > 1) pieces.push_back(piece);
}

bool plainSplit(const VertexLine& l, const VertexLine& splitter, VertexLineList& pieces,
                double within) {
  std::vector<std::size_t> positions;
  VertexLine cuts;
  gdfVertex hit;
  for (std::size_t i = 0; i + 1 < l.size(); ++i) {
    for (std::size_t j = 0; j + 1 < splitter.size(); ++j) {
      if (!plainHit(l[i], l[i + 1], splitter[j], splitter[j + 1], hit, within)) continue;
      if (!cuts.empty() && !(std::abs(hit.x() - cuts.back().x()) >= 1e-05 ||
                             std::abs(hit.y() - cuts.back().y()) >= 1e-05)) {
        continue;
      }
      positions.push_back(i + 1);
      cuts.push_back(hit);
    }
  }
  if (cuts.size() > 1) plainPieces(l, positions, cuts, pieces);
  return !cuts.empty();
}

VertexLine drawnLine(int reach, bool hasNaN) {
  VertexLine drawn(*rc::gen::inRange<std::size_t>(0, *rc::gen::element<std::size_t>(4, 8, 60)));
  for (gdfVertex& v : drawn) {
    v = gdfVertex(*rc::gen::inRange(-reach, reach) / 64.0, *rc::gen::inRange(-reach, reach) / 64.0,
                  *rc::gen::inRange(-2, 3));
  }
  if (hasNaN && !drawn.empty()) {
    gdfVertex& v = drawn[*rc::gen::inRange<std::size_t>(0, drawn.size())];
    (*rc::gen::arbitrary<bool>() ? v.x() : v.y()) = std::numeric_limits<double>::quiet_NaN();
  }
  return drawn;
}

RC_GTEST_PROP(FastSplitLineWithLine, AgreesWithTestsOfAllPairs, ()) {
  const int reach = *rc::gen::element(3, 8, 200);
  const bool hasNaN = *rc::gen::inRange(0, 8) == 0;
  const VertexLine l = drawnLine(reach, hasNaN);
  const VertexLine splitter = drawnLine(reach, hasNaN);
  const double within = *rc::gen::element(0.0, 1e-05, 1 / 64.0, 1.0);
  VertexLineList expected;
  const bool expectedFound = plainSplit(l, splitter, expected, within);
  const Split got = split(l, splitter, within);
  RC_ASSERT(got.found == expectedFound);
  RC_ASSERT(got.pieces.size() == expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    RC_ASSERT(toText(got.pieces[i]) == toText(expected[i]));
  }
}

TEST(FastSplitLineWithLine, CutsLongLinesInLineOrder) {
  // A comb of 3000 teeth over a level line of 1500 segments, in which each segment has four cuts.
  VertexLine level;
  for (int i = 0; i <= 1500; ++i) level.emplace_back(2 * i, 0);
  VertexLine comb;
  for (int i = 0; i < 3000; ++i) {
    comb.emplace_back(i + 0.25, -1);
    comb.emplace_back(i + 0.25, 1);
    comb.emplace_back(i + 0.75, 1);
    comb.emplace_back(i + 0.75, -1);
  }
  const Split got = split(level, comb);
  EXPECT_TRUE(got.found);
  ASSERT_EQ(got.pieces.size(), 6000u);
  EXPECT_THAT(got.pieces.front(), LineIs("0 0, 0.25 0"));
  EXPECT_THAT(got.pieces[4], LineIs("1.75 0, 2 0, 2.25 0"));
  EXPECT_THAT(got.pieces.back(), LineIs("2999.25 0, 2999.75 0"));
}

TEST(FastSplitLineWithLine, TakesTwoInfinitePlacesForOne) {
  // Both the second and the third side of the splitter meet the line at x = infinity: their
  // difference is no number, hence not "far enough".
  const double infinity = std::numeric_limits<double>::infinity();
  const VertexLine bent = {{1, 1, 0}, {3, 3, 1}, {infinity, 4, 0}, {infinity, 1, 0}};
  VertexLineList pieces;
  zr2DTools::fastSplitLineWithLine(bent, bent, pieces, 0.1);
  ASSERT_FALSE(pieces.empty());
  EXPECT_EQ(pieces.back().size(), 3U);
  EXPECT_EQ(pieces.back().back().y(), 1.0);
}

}  // namespace
