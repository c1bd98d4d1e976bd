#include <zrBase/tools2d/polygonRepair.h>

#include <zrBase/tools2d/internal/lineLineScan.h>
#include <zrBase/tools2d/lineCleaning.h>
#include <zrBase/tools2d/segmentIntersection.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace zr2DTools {

namespace {

/// Whether x or y differs by at least the tolerance.
bool differsInPlan(const gdfVertex& v, const gdfVertex& w, double tolerance) {
  return std::fabs(v.x() - w.x()) >= tolerance || std::fabs(v.y() - w.y()) >= tolerance;
}

/// The first side from i + 2 on, and before `end`, that crosses side i; `end` when there is none.
std::size_t firstCrossedSide(const VertexLine& polygon, std::size_t i, std::size_t end,
                             gdfVertex& hit) {
  const internal::SegmentBox box(polygon[i], polygon[i + 1]);
  int startBeyond = box.sidesBeyond(polygon[i + 2]);
  for (std::size_t j = i + 2; j < end; ++j) {
    const int endBeyond = box.sidesBeyond(polygon[j + 1]);
    const bool apart = (startBeyond & endBeyond) != 0;
    startBeyond = endBeyond;
    if (apart) continue;
    // Kept on purpose (KeptRingCrossingsAreFoundExactly): at a tolerance of 0, whatever the
    // caller's; a side that stops short of another by a hair does not cross it.
    if (getSegmentSegmentIntersect(polygon[i], polygon[i + 1], polygon[j], polygon[j + 1], hit,
                                   0.0)) {
      return j;
    }
  }
  return end;
}

/// Inserts the crossings of a ring with itself.
/// @return false when the ring has grown too far for the next one
bool insertSelfCrossings(VertexLine& polygon, double tolerance) {
  // Kept on purpose (KeptConditioningReachIsThatOfTheStart): the bounds are those of the ring
  // before any insertion, so that the sides pushed beyond them are not searched.
  const std::size_t size = polygon.size();
  gdfVertex hit;
  for (std::size_t i = 0; i + 3 < size;) {
    // Kept on purpose (KeptFirstSideIsNeverComparedWithTheLast): they share a vertex in a closed
    // ring; nobody looks whether it is one.
    const std::size_t end = i == 0 ? size - 2 : size - 1;
    const std::size_t j = firstCrossedSide(polygon, i, end, hit);
    // Kept on purpose (KeptTouchEndsTheSearchOfASide): the first hit ends it, though it gives no
    // vertex and a true crossing may follow.
    if (j == end || !differsInPlan(hit, polygon[i], tolerance) ||
        !differsInPlan(hit, polygon[i + 1], tolerance) ||
        !differsInPlan(hit, polygon[j], tolerance) ||
        !differsInPlan(hit, polygon[j + 1], tolerance)) {
      ++i;
      continue;
    }
    // Kept on purpose (KeptGrowthLimitLeavesTheRingHalfDone): it bounds the insertions of a
    // hopeless ring; those made so far stay, and the closure is not tidied.
    if (static_cast<double>(polygon.size()) > static_cast<double>(size) * 1.5) return false;
    // Kept on purpose (KeptOnlyEarlierSideGetsTheCrossing): side j runs through the new vertex
    // without one of its own. Callers count on the ring naming each crossing once.
    polygon.insert(polygon.begin() + static_cast<std::ptrdiff_t>(i) + 1, hit);
  }
  return true;
}

struct Insertion {
  std::size_t before;
  gdfVertex vertex;
};

/// Inserts vertices before the given ones, in one pass. The positions descend; of those before one
/// vertex a later one goes in front of an earlier one.
void insertVertices(VertexLine& line, const std::vector<Insertion>& insertions) {
  auto from = static_cast<std::ptrdiff_t>(line.size());
  line.resize(line.size() + insertions.size());
  auto to = static_cast<std::ptrdiff_t>(line.size());
  const auto begin = line.begin();
  for (const Insertion& insertion : insertions) {
    const auto before = static_cast<std::ptrdiff_t>(insertion.before);
    std::move_backward(begin + before, begin + from, begin + to);
    to -= from - before;
    from = before;
    begin[--to] = insertion.vertex;
  }
}

/// Inserts the crossings of a1-a0, side i of the first polygon, into the second, and lists those
/// that the first is to get.
void tidySide(const gdfVertex& a1, const gdfVertex& a0, std::size_t i, VertexLine& second,
              double tolerance, std::vector<Insertion>& forFirst,
              std::vector<Insertion>& forSecond) {
  forSecond.clear();
  const internal::SegmentBox box(a1, a0);
  int startBeyond = box.sidesBeyond(second.back());
  for (std::size_t j = second.size() - 1; j > 0; --j) {
    const gdfVertex& b1 = second[j];
    const gdfVertex& b0 = second[j - 1];
    const int endBeyond = box.sidesBeyond(b0);
    const bool apart = (startBeyond & endBeyond) != 0;
    startBeyond = endBeyond;
    gdfVertex hit;
    if (apart || !getSegmentSegmentIntersect(a1, a0, b1, b0, hit, tolerance)) continue;
    if (differsInPlan(hit, b1, tolerance) && differsInPlan(hit, b0, tolerance)) {
      forSecond.push_back({j, hit});
    }
    if (!differsInPlan(hit, a1, tolerance) || !differsInPlan(hit, a0, tolerance)) continue;
    // Kept on purpose (KeptSharedNodeHasTwoHeights): each polygon gets the crossing at the height
    // of its own side, so that the two nodes are equal in plan and not in space.
    hit.z() = internal::heightAlong(a1, a0, hit.x(), hit.y());
    // Kept on purpose (KeptNodesFollowTheOtherPolygon): several crossings of one side go in as they
    // were found, the later in front, and are not sorted along the side.
    forFirst.push_back({i, hit});
  }
  if (!forSecond.empty()) insertVertices(second, forSecond);
}

}  // namespace

bool conditionPolygon(VertexLine& polygon, double tolerance) {
  removeDuplicateAdjacentVertices(polygon, tolerance);
  if (polygon.size() < 3) return false;
  if (!insertSelfCrossings(polygon, tolerance)) return false;
  if (polygon.back().equal(polygon.front(), tolerance)) polygon.back() = polygon.front();
  return true;
}

bool tidyIntersectingPolygons(VertexLine& first, VertexLine& second, double tolerance) {
  const std::size_t firstSize = first.size();
  const std::size_t secondSize = second.size();
  if (firstSize < 2 || secondSize < 2) return false;
  std::vector<Insertion> forFirst;
  std::vector<Insertion> forSecond;
  for (std::size_t i = firstSize - 1; i > 0; --i) {
    const gdfVertex a1 = first[i];
    const gdfVertex a0 = first[i - 1];
    tidySide(a1, a0, i, second, tolerance, forFirst, forSecond);
  }
  // The walk looks at vertices before the insertions alone, so that they may wait for its end.
  if (!forFirst.empty()) insertVertices(first, forFirst);
  return first.size() > firstSize || second.size() > secondSize;
}

}  // namespace zr2DTools
