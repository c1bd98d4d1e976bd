#include <zrBase/tools3d/lineFusion.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <zrBase/tools3d/segmentCleaning.h>

#include "support/geometryText.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <string>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double tolerance = 1e-05;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// What an operation gave, and what it said.
template <class Output>
struct Fused {
  bool result;
  Output output;
};

/// Segments as lines of two vertices.
struct Heap {
  VertexLine first;
  VertexLine second;

  Heap(std::initializer_list<const char*> segments) {
    for (const char* segment : segments) {
      first.push_back(line(segment).at(0));
      second.push_back(line(segment).at(1));
    }
  }
};

VertexLineList list(std::initializer_list<const char*> texts) {
  VertexLineList lines;
  for (const char* text : texts) lines.push_back(line(text));
  return lines;
}

Fused<VertexLineList> segmentsToChains(const Heap& heap, double within = tolerance) {
  Fused<VertexLineList> fused{};
  fused.result = zr3DTools::fuseSegments(heap.first, heap.second, fused.output, within);
  return fused;
}

Fused<VertexLine> segmentsToLine(const Heap& heap, const char* before = "") {
  Fused<VertexLine> fused{false, line(before)};
  fused.result = zr3DTools::fuseSegments(heap.first, heap.second, fused.output, tolerance);
  return fused;
}

Fused<VertexLineList> linesToChains(std::initializer_list<const char*> lines,
                                    double within = tolerance) {
  Fused<VertexLineList> fused{};
  fused.result = zr3DTools::fuseLines(list(lines), fused.output, within);
  return fused;
}

Fused<VertexLine> linesToLine(std::initializer_list<const char*> lines, const char* before = "") {
  Fused<VertexLine> fused{false, line(before)};
  fused.result = zr3DTools::fuseLines(list(lines), fused.output);
  return fused;
}

#define EXPECT_FUSED(operation, expectedResult, ...) \
  do {                                               \
    const auto fused = operation;                    \
    EXPECT_EQ(fused.result, expectedResult);         \
    EXPECT_THAT(fused.output, __VA_ARGS__);          \
  } while (false)

// Segments into chains.

TEST(FuseSegments, ChainsSegmentsEndToEnd) {
  EXPECT_FUSED(segmentsToChains({"0 0, 1 0", "2 0, 3 0", "1 0, 2 0"}), true,
               ElementsAre(LineIs("0 0, 1 0, 2 0, 3 0")));
}

TEST(FuseSegments, TurnsSegmentsAsNeeded) {
  EXPECT_FUSED(segmentsToChains({"1 0, 2 0", "3 0, 2 0", "1 0, 0 0"}), true,
               ElementsAre(LineIs("0 0, 1 0, 2 0, 3 0")));
  EXPECT_FUSED(segmentsToChains({"1 0, 2 0", "2 0, 3 0", "0 0, 1 0"}), true,
               ElementsAre(LineIs("0 0, 1 0, 2 0, 3 0")));
}

TEST(FuseSegments, BeginsAChainWithTheLowestThatIsLeft) {
  EXPECT_FUSED(segmentsToChains({"0 0, 1 0", "0 9, 1 9", "1 0, 2 0", "1 9, 2 9"}), true,
               ElementsAre(LineIs("0 0, 1 0, 2 0"), LineIs("0 9, 1 9, 2 9")));
}

TEST(FuseSegments, LeavesTheHigherBranchOver) {
  EXPECT_FUSED(segmentsToChains({"0 0, 1 0", "1 0, 2 1", "1 0, 2 -1", "2 -1, 3 -1"}), true,
               ElementsAre(LineIs("0 0, 1 0, 2 1"), LineIs("1 0, 2 -1, 3 -1")));
}

TEST(FuseSegments, LooksFromTheLowestAgainAfterEachJoint) {
  // Segment 3 lets segment 1 match; it goes on before segment 4, which matches the other end.
  EXPECT_FUSED(segmentsToChains({"0 0, 1 0", "2 0, 3 0", "2 0, 3 5", "1 0, 2 0", "-1 0, 0 0"}),
               true, ElementsAre(LineIs("-1 0, 0 0, 1 0, 2 0, 3 0"), LineIs("2 0, 3 5")));
}

TEST(FuseSegments, CopyInTheChainIsTheOneThatStays) {
  EXPECT_FUSED(segmentsToChains({"0 0 0, 1 0 0", "1.25 0 0.25, 2 0 0"}, 0.5), true,
               ElementsAre(LineIs("0 0 0, 1 0 0, 2 0 0")));
}

TEST(FuseSegments, HeightsKeepSegmentsApart) {
  EXPECT_FUSED(segmentsToChains({"0 0 0, 1 0 0", "1 0 7, 2 0 7"}), true,
               ElementsAre(LineIs("0 0 0, 1 0 0"), LineIs("1 0 7, 2 0 7")));
}

TEST(FuseSegments, KeptSegmentBackAtItsEndIsUsedUp) {
  EXPECT_FUSED(segmentsToChains({"0 0, 9 0", "9 0.1, 9 -0.1", "0.1 0, 0 0.1"}, 0.5), true,
               ElementsAre(LineIs("0 0, 9 0")));
}

TEST(FuseSegments, SegmentWithoutLengthCanBeginAChain) {
  EXPECT_FUSED(segmentsToChains({"5 5, 5 5"}), true, ElementsAre(LineIs("5 5, 5 5")));
}

TEST(FuseSegments, KeptMatchingEndMayBeTheFarther) {
  // (0.9, 0.9, 0.9) matches, at a distance of 1.56; (0, 1, 0) does not, and is only 1 away.
  EXPECT_FUSED(segmentsToChains({"0 0 0, 9 0 0", "0.9 0.9 0.9, 0 1 0"}, 1.0), true,
               ElementsAre(LineIs("0.9 0.9 0.9, 0 0 0, 9 0 0")));
  EXPECT_FUSED(segmentsToChains({"9 0 0, 0 0 0", "0.9 0.9 0.9, 0 1 0"}, 1.0), true,
               ElementsAre(LineIs("9 0 0, 0 0 0, 0.9 0.9 0.9")));
  // As far as each other: it is the first end.
  EXPECT_FUSED(segmentsToChains({"0 0 0, 9 0 0", "3 0 4, 0 5 0"}, 5.0), true,
               ElementsAre(LineIs("3 0 4, 0 0 0, 9 0 0")));
}

TEST(FuseSegments, KeptMatchOfSecondEndMeasuresNothing) {
  // The same segment the other way round: (0, 1, 0) goes in, though it is the nearer.
  EXPECT_FUSED(segmentsToChains({"0 0 0, 9 0 0", "0 1 0, 0.9 0.9 0.9"}, 1.0), true,
               ElementsAre(LineIs("0 1 0, 0 0 0, 9 0 0")));
  EXPECT_FUSED(segmentsToChains({"9 0 0, 0 0 0", "0 1 0, 0.9 0.9 0.9"}, 1.0), true,
               ElementsAre(LineIs("9 0 0, 0 0 0, 0 1 0")));
}

TEST(FuseSegments, KeptClosedChainGrowsAtItsFront) {
  // The last side runs from (4, 4), the chain's last vertex, to (0, 0), its first: its first end
  // matches the last vertex, so that (0, 0) is appended. What touches (0, 0) then goes to the
  // front.
  EXPECT_FUSED(segmentsToChains({"0 0, 4 0", "4 0, 4 4", "4 4, 0 0", "0 0, -1 -1"}), true,
               ElementsAre(LineIs("-1 -1, 0 0, 4 0, 4 4, 0 0")));
  // Given the other way round its first end matches the first vertex, and (4, 4) comes there.
  EXPECT_FUSED(segmentsToChains({"0 0, 4 0", "4 0, 4 4", "0 0, 4 4", "4 4, 5 5"}), true,
               ElementsAre(LineIs("5 5, 4 4, 0 0, 4 0, 4 4")));
}

TEST(FuseSegments, ComparesStrictly) {
  EXPECT_FUSED(segmentsToChains({"0 0, 1 0", "2 0, 3 0"}, 1.0), true,
               ElementsAre(LineIs("0 0, 1 0"), LineIs("2 0, 3 0")));
}

TEST(FuseSegments, ToleranceOfZeroMatchesNothing) {
  for (double none : {0.0, -1.0, nan}) {
    EXPECT_FUSED(segmentsToChains({"0 0, 1 0", "1 0, 2 0", "1 0, 2 0"}, none), true,
                 ElementsAre(LineIs("0 0, 1 0"), LineIs("1 0, 2 0"), LineIs("1 0, 2 0")));
  }
}

TEST(FuseSegments, NothingMatchesANaN) {
  const auto fused = segmentsToChains({"0 0, nan 0", "nan 0, 2 0", "2 0, 3 0"});
  EXPECT_TRUE(fused.result);
  ASSERT_EQ(fused.output.size(), 2u);
  EXPECT_EQ(fused.output[1].size(), 3u);
}

TEST(FuseSegments, AppendsToTheChains) {
  VertexLineList chains = list({"7 7"});
  const Heap heap = {"0 0, 1 0"};
  EXPECT_TRUE(zr3DTools::fuseSegments(heap.first, heap.second, chains, tolerance));
  EXPECT_THAT(chains, ElementsAre(LineIs("7 7"), LineIs("0 0, 1 0")));
}

TEST(FuseSegments, RefusesNoSegmentsAndUnequalLists) {
  VertexLineList chains = list({"7 7"});
  EXPECT_FALSE(zr3DTools::fuseSegments({}, {}, chains, tolerance));
  EXPECT_FALSE(zr3DTools::fuseSegments(line("0 0, 1 0"), line("1 0"), chains, tolerance));
  EXPECT_THAT(chains, ElementsAre(LineIs("7 7")));
  VertexLine whole = line("7 7");
  EXPECT_FALSE(zr3DTools::fuseSegments({}, {}, whole, tolerance));
  EXPECT_FALSE(zr3DTools::fuseSegments(line("0 0"), line("1 0, 2 0"), whole, tolerance));
  EXPECT_THAT(whole, LineIs("7 7"));
}

TEST(FuseSegments, ListsMayBeChainsOfTheOutput) {
  VertexLineList chains = list({"0 0, 1 0", "1 0, 2 0"});
  chains.shrink_to_fit();
  EXPECT_TRUE(zr3DTools::fuseSegments(chains[0], chains[1], chains, tolerance));
  EXPECT_THAT(chains, ElementsAre(LineIs("0 0, 1 0"), LineIs("1 0, 2 0"), LineIs("0 0, 1 0, 2 0")));
}

// Segments into one line.

TEST(FuseSegmentsIntoLine, KeptSingleChainIsNotCopiedOut) {
  EXPECT_FUSED(segmentsToLine({"0 0, 1 0", "2 0, 3 0", "1 0, 2 0"}), true, LineIs(""));
  EXPECT_FUSED(segmentsToLine({"0 0, 1 0"}, "7 7"), true, LineIs("7 7"));
}

TEST(FuseSegmentsIntoLine, JoinsChainsByTheirClosestEnds) {
  EXPECT_FUSED(segmentsToLine({"0 0, 1 0", "9 0, 8 0", "1 0, 2 0", "8 0, 4 0"}), true,
               LineIs("0 0, 1 0, 2 0, 4 0, 8 0, 9 0"));
}

TEST(FuseSegmentsIntoLine, AppendsToTheLine) {
  EXPECT_FUSED(segmentsToLine({"0 0, 1 0", "3 0, 4 0"}, "-5 0"), true,
               LineIs("-5 0, 0 0, 1 0, 3 0, 4 0"));
}

TEST(FuseSegmentsIntoLine, LineMayBeOneOfTheLists) {
  Heap heap = {"0 0, 1 0", "3 0, 4 0"};
  EXPECT_TRUE(zr3DTools::fuseSegments(heap.first, heap.second, heap.first, tolerance));
  // What it held, "0 0, 3 0", runs on into the chain "0 0, 1 0"; (3, 0) is 2 from its last vertex.
  EXPECT_THAT(heap.first, LineIs("0 0, 3 0, 0 0, 1 0, 3 0, 4 0"));
}

// Lines into chains.

TEST(FuseLines, ChainsLinesEndToEnd) {
  EXPECT_FUSED(linesToChains({"2 0, 1 5, 4 0", "4 0, 5 5, 6 0", "0 0, 1 1, 2 0"}), true,
               ElementsAre(LineIs("0 0, 1 1, 2 0, 2 0, 1 5, 4 0, 4 0, 5 5, 6 0")));
}

TEST(FuseLines, TurnsLinesAsNeeded) {
  EXPECT_FUSED(linesToChains({"2 0, 4 0", "6 0, 5 5, 4 0", "2 0, 1 1, 0 0"}), true,
               ElementsAre(LineIs("0 0, 1 1, 2 0, 2 0, 4 0, 4 0, 5 5, 6 0")));
}

TEST(FuseLines, KeptJunctionVerticesAreBothKept) {
  const auto joined = linesToChains({"0 0 0, 1 0 0", "1.25 0 0, 2 0 0"}, 0.5);
  ASSERT_THAT(joined.output, ElementsAre(LineIs("0 0 0, 1 0 0, 1.25 0 0, 2 0 0")));
  VertexLine once = joined.output[0];
  EXPECT_TRUE(zr3DTools::removeDuplicateAdjacentVertices(once, 0.5));
  EXPECT_THAT(once, LineIs("0 0 0, 1 0 0, 2 0 0"));
}

TEST(FuseLines, LineOfNearerLastVertexRunsInward) {
  // First ends that match in a corner of the box, last ones outside it and nearer: the far vertex
  // then comes outermost.
  EXPECT_FUSED(linesToChains({"0 0 0, 9 0 0", "0.9 0.9 0.9, 5 5 5, 0 1 0"}, 1.0), true,
               ElementsAre(LineIs("0.9 0.9 0.9, 5 5 5, 0 1 0, 0 0 0, 9 0 0")));
  EXPECT_FUSED(linesToChains({"9 0 0, 0 0 0", "0.9 0.9 0.9, 5 5 5, 0 1 0"}, 1.0), true,
               ElementsAre(LineIs("9 0 0, 0 0 0, 0 1 0, 5 5 5, 0.9 0.9 0.9")));
}

TEST(FuseLines, KeptRingAtChainEndIsUsedUp) {
  EXPECT_FUSED(linesToChains({"0 0, 9 0", "9 0, 10 1, 10 -1, 9 0", "0 0, -1 1, 0 0"}), true,
               ElementsAre(LineIs("0 0, 9 0")));
  EXPECT_FUSED(linesToChains({"0 0, 9 0", "9 0"}), true, ElementsAre(LineIs("0 0, 9 0")));
}

TEST(FuseLines, RingCanBeginAChain) {
  EXPECT_FUSED(linesToChains({"9 0, 10 1, 10 -1, 9 0", "0 0, 9 0"}), true,
               ElementsAre(LineIs("0 0, 9 0, 9 0, 10 1, 10 -1, 9 0")));
}

TEST(FuseLines, LinesThatMatchNothingAreChainsOfTheirOwn) {
  EXPECT_FUSED(linesToChains({"0 0, 1 0", "5 5", "1 0 3, 2 0 3"}), true,
               ElementsAre(LineIs("0 0, 1 0"), LineIs("5 5"), LineIs("1 0 3, 2 0 3")));
  EXPECT_FUSED(linesToChains({"0 0, 1 0", "1 0, 2 0"}, 0.0), true,
               ElementsAre(LineIs("0 0, 1 0"), LineIs("1 0, 2 0")));
}

TEST(FuseLines, KeptLoneLineIsNoChain) {
  EXPECT_FUSED(linesToChains({"0 0, 1 0"}), false, IsEmpty());
  EXPECT_FUSED(linesToChains({}), false, IsEmpty());
  VertexLineList chains = list({"7 7"});
  EXPECT_FALSE(zr3DTools::fuseLines(list({"0 0, 1 0"}), chains, tolerance));
  EXPECT_THAT(chains, ElementsAre(LineIs("7 7")));
}

TEST(FuseLines, SkipsEmptyLines) {
  EXPECT_FUSED(linesToChains({"", "0 0, 1 0", "", "1 0, 2 0", ""}), true,
               ElementsAre(LineIs("0 0, 1 0, 1 0, 2 0")));
  EXPECT_FUSED(linesToChains({"", "0 0, 1 0"}), true, ElementsAre(LineIs("0 0, 1 0")));
}

TEST(FuseLines, KeptChainsFromBeforeAreASuccess) {
  EXPECT_FUSED(linesToChains({"", ""}), false, IsEmpty());
  VertexLineList chains = list({"7 7"});
  EXPECT_TRUE(zr3DTools::fuseLines(list({"", ""}), chains, tolerance));
  EXPECT_THAT(chains, ElementsAre(LineIs("7 7")));
}

TEST(FuseLines, ChainsMayBeTheLines) {
  VertexLineList both = list({"0 0, 1 0", "1 0, 2 0"});
  both.shrink_to_fit();
  EXPECT_TRUE(zr3DTools::fuseLines(both, both, tolerance));
  EXPECT_THAT(both,
              ElementsAre(LineIs("0 0, 1 0"), LineIs("1 0, 2 0"), LineIs("0 0, 1 0, 1 0, 2 0")));
}

// Lines into one line.

TEST(FuseLinesByClosestEnds, TakesTheClosestTimeAfterTime) {
  // (2, 0) is 1 away, at the end; then (-4, 0) is 4 from (0, 0), at the front, and (9, 0) is 5 from
  // (4, 0), which came to the front by that.
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "9 0, 12 0", "4 0, 2 0", "-4 0, -5 0"}), true,
               LineIs("-5 0, -4 0, 0 0, 1 0, 2 0, 4 0, 9 0, 12 0"));
}

TEST(FuseLinesByClosestEnds, KeptJoinAtFrontReversesTheLine) {
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "-1 0, -2 0"}), true, LineIs("1 0, 0 0, -1 0, -2 0"));
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "-2 0, -1 0"}), true, LineIs("1 0, 0 0, -1 0, -2 0"));
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "2 0, 3 0"}), true, LineIs("0 0, 1 0, 2 0, 3 0"));
}

TEST(FuseLinesByClosestEnds, KeptLoneVertexTurnsNothing) {
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "-1 0"}), true, LineIs("-1 0, 0 0, 1 0"));
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "2 0"}), true, LineIs("0 0, 1 0, 2 0"));
  // After a turn too the front is that of the line as it then runs.
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "-1 0, -2 0", "4 0"}), true,
               LineIs("4 0, 1 0, 0 0, -1 0, -2 0"));
}

TEST(FuseLinesByClosestEnds, MeasuresInSpace) {
  EXPECT_FUSED(linesToLine({"0 0 0, 1 0 0", "2 0 9, 3 0 9", "5 0 0, 6 0 0"}), true,
               LineIs("6 0 0, 5 0 0, 1 0 0, 0 0 0, 2 0 9, 3 0 9"));
}

TEST(FuseLinesByClosestEnds, TakesTheLowerOfEquallyCloseLines) {
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "2 0, 3 0 1", "1 1, 9 9"}), true,
               LineIs("3 0 1, 2 0, 1 0, 0 0, 1 1, 9 9"));
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "1 1, 9 9", "2 0, 3 0 1"}), true,
               LineIs("9 9, 1 1, 1 0, 0 0, 2 0, 3 0 1"));
}

TEST(FuseLinesByClosestEnds, TakesTheFirstVertexAtTheFirstEndOfEquallyClose) {
  // All four pairs of ends are equal: joined by its first vertex, at the front.
  EXPECT_FUSED(linesToLine({"5 0, 6 0, 5 0", "4 0, 4 9, 4 0"}), true,
               LineIs("5 0, 6 0, 5 0, 4 0, 4 9, 4 0"));
  EXPECT_FUSED(linesToLine({"5 0 1, 5 0 -1", "5 1, 5 -1"}), true,
               LineIs("5 0 -1, 5 0 1, 5 1, 5 -1"));
}

TEST(FuseLinesByClosestEnds, TestsTheFirstVertexAtBothEndsBeforeTheLastVertex) {
  // First vertex at the last end and last vertex at the first end are both 1 away.
  EXPECT_FUSED(linesToLine({"0 0, 9 0", "9 1, 0 1"}), true, LineIs("0 0, 9 0, 9 1, 0 1"));
}

TEST(FuseLinesByClosestEnds, DoublesALineEqualToTheFirst) {
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "0 0, 1 0"}), true, LineIs("1 0, 0 0, 0 0, 1 0"));
}

TEST(FuseLinesByClosestEnds, KeptFarLinesStayOut) {
  // Squared distances of 3.39e38, below the limit of 3.40e38, and of 4e38. One vertex is both ends
  // of what is there, so that another goes to its front.
  EXPECT_FUSED(linesToLine({"0 0", "1.84e19 0"}), true, LineIs("1.84e19 0, 0 0"));
  EXPECT_FUSED(linesToLine({"0 0", "2e19 0"}), true, LineIs("0 0"));
  EXPECT_FUSED(linesToLine({"0 0", "2e19 0", "1e19 0"}), true, LineIs("2e19 0, 1e19 0, 0 0"));
}

TEST(FuseLinesByClosestEnds, LeavesOutEndsThatAreNotFinite) {
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "nan 0", "inf 0, 0 -inf"}), true, LineIs("0 0, 1 0"));
  const auto byItsLast = linesToLine({"0 0, 1 0", "nan 0, 2 0", "5 0, 6 0"});
  EXPECT_TRUE(byItsLast.result);
  // The NaN now is the last vertex, so that the next joins at the front.
  ASSERT_EQ(byItsLast.output.size(), 6u);
  EXPECT_THAT(byItsLast.output[5], VertexIs("6 0"));
}

TEST(FuseLinesByClosestEnds, SkipsEmptyLines) {
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "", "2 0, 3 0", ""}), true, LineIs("0 0, 1 0, 2 0, 3 0"));
}

TEST(FuseLinesByClosestEnds, BeginsWithTheFirstLineThatIsNotEmpty) {
  EXPECT_FUSED(linesToLine({"", "", "0 0, 1 0", "2 0, 3 0"}), true, LineIs("0 0, 1 0, 2 0, 3 0"));
  EXPECT_FUSED(linesToLine({"", ""}), false, LineIs(""));
  EXPECT_FUSED(linesToLine({"", "4 4"}), true, LineIs("4 4"));
}

TEST(FuseLinesByClosestEnds, BeginsWithWhatIsThereBeforeAnEmptyLine) {
  EXPECT_FUSED(linesToLine({"", "2 0, 3 0"}, "0 0, 1 0"), true, LineIs("0 0, 1 0, 2 0, 3 0"));
  EXPECT_FUSED(linesToLine({"", ""}, "0 0"), true, LineIs("0 0"));
}

TEST(FuseLinesByClosestEnds, KeptEarlierLineTurnsRoundToo) {
  // (6, 0) is 1 from what was there; the first line, "0 0, 1 0", is farther and its end stays.
  EXPECT_FUSED(linesToLine({"0 0, 1 0", "6 0, 8 0"}, "5 0, 4 4"), true,
               LineIs("1 0, 0 0, 4 4, 5 0, 6 0, 8 0"));
}

TEST(FuseLinesByClosestEnds, RefusesNoLines) {
  EXPECT_FUSED(linesToLine({}), false, LineIs(""));
  EXPECT_FUSED(linesToLine({}, "7 7"), false, LineIs("7 7"));
}

TEST(FuseLinesByClosestEnds, GivesALoneLine) {
  EXPECT_FUSED(linesToLine({"0 0, 1 0, 2 5"}), true, LineIs("0 0, 1 0, 2 5"));
}

TEST(FuseLinesByClosestEnds, LineMayBeOneOfTheLines) {
  VertexLineList lines = list({"0 0, 1 0", "2 0, 3 0"});
  EXPECT_TRUE(zr3DTools::fuseLines(lines, lines[1]));
  // What it held, "2 0, 3 0", comes first; the line itself, as it was, is joined at (2, 0).
  EXPECT_THAT(lines[1], LineIs("1 0, 0 0, 3 0, 2 0, 2 0, 3 0"));
}

// Laws.

VertexLineList drawnLines() {
  VertexLineList lines(*rc::gen::inRange<std::size_t>(2, 12));
  for (VertexLine& drawn : lines) {
    drawn.resize(*rc::gen::inRange<std::size_t>(0, 5));
    for (gdfVertex& v : drawn) {
      v.setVertex(*rc::gen::inRange(-2, 3) / 64.0, *rc::gen::inRange(-2, 3) / 64.0,
                  *rc::gen::inRange(0, 2) / 64.0);
    }
  }
  return lines;
}

VertexLine sortedVertices(const VertexLineList& lines) {
  VertexLine all;
  for (const VertexLine& l : lines) all.insert(all.end(), l.begin(), l.end());
  std::sort(all.begin(), all.end());
  return all;
}

RC_GTEST_PROP(FuseLinesByClosestEnds, LosesAndAddsNoVertex, ()) {
  const VertexLineList lines = drawnLines();
  VertexLine whole;
  const bool result = zr3DTools::fuseLines(lines, whole);
  RC_ASSERT(result == !whole.empty());
  RC_ASSERT(sortedVertices({whole}) == sortedVertices(lines));
}

RC_GTEST_PROP(FuseLines, NoChainMatchesALaterOne, ()) {
  const VertexLineList lines = drawnLines();
  VertexLineList chains;
  zr3DTools::fuseLines(lines, chains, 1 / 128.0);
  for (std::size_t i = 0; i < chains.size(); ++i) {
    for (std::size_t j = i + 1; j < chains.size(); ++j) {
      // A later chain begins with a line that no end of an earlier one matches.
      for (const gdfVertex& end : {chains[i].front(), chains[i].back()}) {
        RC_ASSERT(end != chains[j].front());
        RC_ASSERT(end != chains[j].back());
      }
    }
  }
}

}  // namespace
