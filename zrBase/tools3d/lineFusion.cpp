#include <zrBase/tools3d/lineFusion.h>

#include <zrBase/tools3d/internal/freeEnds.h>
#include <zrBase/tools3d/internal/growingChains.h>
#include <zrBase/tools3d/internal/nearestEnds.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <limits>
#include <utility>

namespace zr3DTools {

namespace {

using internal::FreeEnds;
using internal::LineChain;
using internal::NearestEnds;
using internal::VertexChain;

/// The lowest free item at one end of a chain. Items only ever go, so that it stays what it is
/// until the chain grows at this end or the item is used up.
class ItemAtEnd {
 public:
  std::size_t lowest(FreeEnds& items, const gdfVertex& end) {
    const bool isCurrent =
        isKnown_ && end_ == end && (lowest_ == FreeEnds::none || items.isFree(lowest_));
    if (!isCurrent) {
      end_ = end;
      lowest_ = items.lowestAt(end);
      isKnown_ = true;
    }
    return lowest_;
  }

 private:
  gdfVertex end_;
  std::size_t lowest_ = FreeEnds::none;
  bool isKnown_ = false;
};

/// All chains of the free items: begin(item) makes a chain, join(chain, item) lets it grow by an
/// item that matches one of its ends.
///
/// It is as if all free items were looked at from the lowest on after each joint. An item joins one
/// chain and begins none, so that neither the joints of a chain nor the chains need a limit.
template <class Begin, class Join>
VertexLineList chainsOf(FreeEnds& items, Begin begin, Join join) {
  VertexLineList chains;
  for (std::size_t item = items.lowest(); item != FreeEnds::none; item = items.lowest()) {
    auto chain = begin(item);
    items.use(item);
    ItemAtEnd atFirst;
    ItemAtEnd atLast;
    while (true) {
      const std::size_t next =
          std::min(atFirst.lowest(items, chain.first()), atLast.lowest(items, chain.last()));
      if (next == FreeEnds::none) break;
      items.use(next);
      join(chain, next);
    }
    chains.push_back(std::move(chain).line());
  }
  return chains;
}

/// Appends only now: the inputs may be part of the output.
void append(VertexLineList& chains, VertexLineList&& found) {
  chains.insert(chains.end(), std::make_move_iterator(found.begin()),
                std::make_move_iterator(found.end()));
}

bool isFarther(const gdfVertex& v, const gdfVertex& other, const gdfVertex& from) {
  return v.distance2(from) > other.distance2(from);
}

/// Joins a segment of which an end matches an end of the chain.
void joinSegment(VertexChain& chain, const gdfVertex& a, const gdfVertex& b, double tolerance) {
  const gdfVertex first = chain.first();
  const gdfVertex last = chain.last();
  // Kept on purpose (KeptSegmentBackAtItsEndIsUsedUp): with both ends at the one end of the chain
  // it adds nothing, and is gone all the same.
  // Kept on purpose (KeptMatchingEndMayBeTheFarther): a match is a box and farther is a ball, so
  // that a in a corner of the box can be farther than b outside it; a then goes in, and is not
  // dropped as the copy of a vertex that is there.
  // Kept on purpose (KeptClosedChainGrowsAtItsFront): the first vertex is tried before the last, so
  // that what touches a chain where it closed goes to its front.
  if (a.equal(first, tolerance)) {
    if (!b.equal(first, tolerance)) chain.addAtFirst(isFarther(b, a, first) ? b : a);
  } else if (a.equal(last, tolerance)) {
    if (!b.equal(last, tolerance)) chain.addAtLast(isFarther(b, a, last) ? b : a);
  } else if (b.equal(first, tolerance)) {
    // Kept on purpose (KeptMatchOfSecondEndMeasuresNothing): here a goes in, however much nearer it
    // is than b.
    chain.addAtFirst(a);
  } else {
    chain.addAtLast(a);
  }
}

/// Joins a line of which an end matches an end of the chain.
void joinLine(LineChain& chain, const VertexLine& line, double tolerance) {
  const gdfVertex& f = line.front();
  const gdfVertex& l = line.back();
  // Kept on purpose (KeptJunctionVerticesAreBothKept): a line goes in whole, with the vertex that
  // matches that of the chain. Callers who want it once remove adjacent duplicates afterwards.
  // Kept on purpose (KeptRingAtChainEndIsUsedUp): with both ends at the one end of the chain it
  // adds nothing, and is gone all the same.
  if (f.equal(chain.first(), tolerance)) {
    if (l.equal(chain.first(), tolerance)) return;
    const bool runsOutward = isFarther(l, f, chain.first());
    chain.add(LineChain::front, line, runsOutward ? LineChain::byFirst : LineChain::byLast);
  } else if (f.equal(chain.last(), tolerance)) {
    if (l.equal(chain.last(), tolerance)) return;
    const bool runsOutward = isFarther(l, f, chain.last());
    chain.add(LineChain::back, line, runsOutward ? LineChain::byFirst : LineChain::byLast);
  } else if (l.equal(chain.first(), tolerance)) {
    chain.add(LineChain::front, line, LineChain::byLast);
  } else {
    chain.add(LineChain::back, line, LineChain::byLast);
  }
}

/// The ends of all lines but one that begins: 2 k and 2 k + 1 are the first and last of line k. A
/// line of a single vertex has a first end only.
NearestEnds endsToJoin(const VertexLineList& lines, std::size_t start) {
  NearestEnds ends;
  for (std::size_t k = 1; k < lines.size(); ++k) {
    if (k == start || lines[k].empty()) continue;
    ends.add(2 * k, lines[k].front());
    if (lines[k].size() > 1) ends.add(2 * k + 1, lines[k].back());
  }
  ends.build();
  return ends;
}

/// Joins the lines to what is there, the one with the closest end first.
VertexLine joinedByClosestEnds(const VertexLine& beginning, const VertexLineList& lines,
                               NearestEnds& ends) {
  LineChain chain(beginning);
  LineChain::Side last = LineChain::back;
  std::array<NearestEnds::Hit, 2> closest = {ends.nearest(chain.first()),
                                             ends.nearest(chain.last())};
  while (true) {
    const LineChain::Side first = LineChain::opposite(last);
    // Of equals in distance, line and end of the line, that at the first end of what is there.
    const LineChain::Side side = closest[last] < closest[first] ? last : first;
    // Kept on purpose (KeptFarLinesStayOut): the search starts from the mark of what is not set, as
    // a squared distance, and is never without a limit. What is farther is not joined.
    if (!closest[side].isFound()) break;
    const std::size_t k = closest[side].end / 2;
    const bool isByLast = closest[side].end % 2 == 1;
    chain.add(side, lines[k], isByLast ? LineChain::byLast : LineChain::byFirst);
    // Kept on purpose (KeptJoinAtFrontReversesTheLine): what is there turns round, so that every
    // line of two or more vertices joins at its end.
    // Kept on purpose (KeptLoneVertexTurnsNothing): a single vertex goes to the front as it is.
    if (lines[k].size() > 1) last = side;

    const LineChain::Side other = LineChain::opposite(side);
    ends.remove(2 * k);
    ends.remove(2 * k + 1);
    closest[side] = ends.nearest(chain.end(side));
    if (closest[other].isFound() && !ends.contains(closest[other].end)) {
      closest[other] = ends.nearest(chain.end(other));
    }
  }
  return chain.lineTowards(last);
}

}  // namespace

bool fuseSegments(const VertexLine& firstEnds, const VertexLine& secondEnds, VertexLineList& chains,
                  double tolerance) {
  if (firstEnds.empty() || firstEnds.size() != secondEnds.size()) return false;
  FreeEnds segments(firstEnds, secondEnds, tolerance);
  append(chains, chainsOf(
                     segments,
                     [&](std::size_t segment) {
                       return VertexChain(firstEnds[segment], secondEnds[segment]);
                     },
                     [&](VertexChain& chain, std::size_t segment) {
                       joinSegment(chain, firstEnds[segment], secondEnds[segment], tolerance);
                     }));
  return true;
}

bool fuseSegments(const VertexLine& firstEnds, const VertexLine& secondEnds, VertexLine& line,
                  double tolerance) {
  VertexLineList chains;
  if (!fuseSegments(firstEnds, secondEnds, chains, tolerance)) return false;
  // Kept on purpose (KeptSingleChainIsNotCopiedOut): true, and the line is left as it was. Callers
  // that need the one chain call the form with a list; others take the line as a sign of several.
  if (chains.size() == 1) return true;
  return fuseLines(chains, line);
}

bool fuseLines(const VertexLineList& lines, VertexLineList& chains, double tolerance) {
  // Kept on purpose (KeptLoneLineIsNoChain): nothing is fused of one line, and it is not handed on
  // as a chain, as a line that matches no other is.
  if (lines.size() < 2) return false;
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  VertexLine firsts;
  VertexLine lasts;
  firsts.reserve(lines.size());
  lasts.reserve(lines.size());
  for (const VertexLine& line : lines) {
    firsts.push_back(line.empty() ? gdfVertex(nan, nan, nan) : line.front());
    lasts.push_back(line.empty() ? gdfVertex(nan, nan, nan) : line.back());
  }
  FreeEnds items(firsts, lasts, tolerance);
  for (std::size_t k = 0; k < lines.size(); ++k) {
    if (lines[k].empty()) items.use(k);
  }
  append(chains,
         chainsOf(
             items, [&](std::size_t k) { return LineChain(lines[k]); },
             [&](LineChain& chain, std::size_t k) { joinLine(chain, lines[k], tolerance); }));
  // Kept on purpose (KeptChainsFromBeforeAreASuccess): the whole list is looked at, so that two
  // empty lines are a success where it held chains before.
  return !chains.empty();
}

bool fuseLines(const VertexLineList& lines, VertexLine& line) {
  if (lines.empty()) return false;
  // Kept on purpose (KeptEarlierLineTurnsRoundToo): what the line held before is its beginning, and
  // is joined to and turned round as if it came with the first of the lines.
  VertexLine beginning = line;
  std::size_t start = 0;
  if (beginning.empty()) {
    while (start < lines.size() && lines[start].empty()) ++start;
    if (start == lines.size()) return false;
  }
  beginning.insert(beginning.end(), lines[start].begin(), lines[start].end());
  NearestEnds ends = endsToJoin(lines, start);
  line = joinedByClosestEnds(beginning, lines, ends);
  return true;
}

}  // namespace zr3DTools
