#include <zrBase/tools3d/zr3DTools.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bisectors/support/faultTraces.h"
#include "support/geometryText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// Mapped fault traces, cut up, shuffled and turned round: fusion has to find the traces again,
// vertex by vertex, but for the direction.

namespace {

constexpr double tolerance = 1e-6;

/// The same numbers on every platform.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  std::size_t below(std::size_t limit) {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<std::size_t>(state_ >> 33) % limit;
  }

  template <class Entry>
  void shuffle(std::vector<Entry>& entries) {
    for (std::size_t i = entries.size(); i > 1; --i) std::swap(entries[i - 1], entries[below(i)]);
  }

 private:
  std::uint64_t state_;
};

/// Pieces of a trace of at most so many segments, each beginning where the one before it ends;
/// some of them turned round.
VertexLineList piecesOf(const VertexLine& trace, std::size_t longest, Dice& dice) {
  VertexLineList pieces;
  for (std::size_t from = 0; from + 1 < trace.size();) {
    const std::size_t to = std::min(from + 1 + dice.below(longest), trace.size() - 1);
    pieces.emplace_back(trace.begin() + static_cast<std::ptrdiff_t>(from),
                        trace.begin() + static_cast<std::ptrdiff_t>(to) + 1);
    if (dice.below(2) == 0) std::reverse(pieces.back().begin(), pieces.back().end());
    from = to;
  }
  return pieces;
}

/// A line in that of its two directions that begins at the lesser end.
VertexLine inOneDirection(VertexLine line) {
  if (line.back() < line.front()) std::reverse(line.begin(), line.end());
  return line;
}

VertexLineList inOneOrder(VertexLineList lines) {
  for (VertexLine& line : lines) line = inOneDirection(line);
  std::sort(lines.begin(), lines.end());
  return lines;
}

VertexLine withJointsOnce(VertexLine line) {
  zr3DTools::removeDuplicateAdjacentVertices(line, tolerance);
  return line;
}

/// The traces of one file, each at a height of its own: in their metres all begin at one place.
class TraceReconstruction : public testing::TestWithParam<const char*> {
 protected:
  TraceReconstruction()
      : traces(
            faultTraces::read(std::string(ZRBASE_EXAMPLE_DATA) + "/" + GetParam() + ".geojson")) {
    for (std::size_t i = 0; i < traces.size(); ++i) {
      traces[i].erase(std::unique(traces[i].begin(), traces[i].end()), traces[i].end());
      for (gdfVertex& v : traces[i]) v.z() = 100.0 * static_cast<double>(i);
    }
  }

  VertexLineList shuffledPieces(std::size_t longest) {
    VertexLineList pieces;
    for (const VertexLine& trace : traces) {
      const VertexLineList cut = piecesOf(trace, longest, dice);
      pieces.insert(pieces.end(), cut.begin(), cut.end());
    }
    dice.shuffle(pieces);
    return pieces;
  }

  VertexLineList traces;
  Dice dice{20240229};
};

VertexLineList fusedSegments(const VertexLineList& segments) {
  VertexLine first;
  VertexLine second;
  for (const VertexLine& segment : segments) {
    first.push_back(segment.at(0));
    second.push_back(segment.at(1));
  }
  VertexLineList chains;
  EXPECT_TRUE(zr3DTools::fuseSegments(first, second, chains, tolerance));
  return chains;
}

TEST_P(TraceReconstruction, ShuffledSegmentsOfOneTraceMakeTheTrace) {
  ASSERT_FALSE(traces.empty());
  for (const VertexLine& trace : traces) {
    VertexLineList segments = piecesOf(trace, 1, dice);
    dice.shuffle(segments);
    EXPECT_THAT(inOneOrder(fusedSegments(segments)), testing::ElementsAre(inOneDirection(trace)));
  }
}

TEST_P(TraceReconstruction, ShuffledSegmentsOfAllTracesMakeAllTraces) {
  EXPECT_EQ(inOneOrder(fusedSegments(shuffledPieces(1))), inOneOrder(traces));
}

TEST_P(TraceReconstruction, SortedSegmentsMakeAllTraces) {
  VertexLine first;
  VertexLine second;
  for (const VertexLine& segment : shuffledPieces(1)) {
    zr3DTools::addSortedSegments(first, second, segment.at(0), segment.at(1));
  }
  VertexLineList chains;
  EXPECT_TRUE(zr3DTools::fuseSegments(first, second, chains, tolerance));
  EXPECT_EQ(inOneOrder(chains), inOneOrder(traces));
}

TEST_P(TraceReconstruction, ShuffledPiecesOfAllTracesMakeAllTraces) {
  VertexLineList chains;
  ASSERT_TRUE(zr3DTools::fuseLines(shuffledPieces(9), chains, tolerance));
  for (VertexLine& chain : chains) chain = withJointsOnce(chain);
  EXPECT_EQ(inOneOrder(chains), inOneOrder(traces));
}

TEST_P(TraceReconstruction, ShuffledPiecesOfOneTraceMakeTheTraceByTheirClosestEnds) {
  for (const VertexLine& trace : traces) {
    VertexLineList pieces = piecesOf(trace, 9, dice);
    dice.shuffle(pieces);
    VertexLine whole;
    ASSERT_TRUE(zr3DTools::fuseLines(pieces, whole));
    EXPECT_EQ(inOneDirection(withJointsOnce(whole)), inOneDirection(trace));
  }
}

// The chains follow one another in one line, each of them whole.
TEST_P(TraceReconstruction, SegmentsOfAllTracesMakeOneLineOfThemAll) {
  const VertexLineList segments = shuffledPieces(1);
  VertexLine first;
  VertexLine second;
  for (const VertexLine& segment : segments) {
    first.push_back(segment.at(0));
    second.push_back(segment.at(1));
  }
  VertexLine whole;
  ASSERT_TRUE(zr3DTools::fuseSegments(first, second, whole, tolerance));
  VertexLineList apart;
  for (const gdfVertex& v : whole) {
    if (apart.empty() || apart.back().back().z() != v.z()) apart.emplace_back();
    apart.back().push_back(v);
  }
  EXPECT_EQ(inOneOrder(apart), inOneOrder(traces));
}

INSTANTIATE_TEST_SUITE_P(Faults, TraceReconstruction,
                         testing::Values("anatolia", "california", "long_traces", "new_zealand"),
                         [](const auto& file) { return std::string(file.param); });

}  // namespace
