#ifndef ZRBASE_TOOLS2D_INTERNAL_LINELINESCAN_H
#define ZRBASE_TOOLS2D_INTERNAL_LINELINESCAN_H

#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/segmentIntersection.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace zr2DTools::internal {

/// The x and y ranges of one segment, ordered by the very comparisons that
/// getSegmentSegmentIntersect orders its first segment by, so that a NaN in the segment lands on
/// the same side of each test.
///
/// sidesBeyond gives one bit for each of the four sides that a vertex lies strictly beyond (the
/// outcode of Cohen and Sutherland). Two vertices with a bit in common belong to a segment that
/// getSegmentSegmentIntersect rejects on its ranges: a bit means that the comparison which rejects
/// holds for both ends, and so that neither of them is a NaN there.
class SegmentBox {
 public:
  SegmentBox(const gdfVertex& a, const gdfVertex& b) {
    const bool fallsInX = a.x() > b.x();
    const bool fallsInY = a.y() >= b.y();
    const gdfVertex& left = fallsInX ? b : a;
    const gdfVertex& right = fallsInX ? a : b;
    const gdfVertex& lower = fallsInY ? b : a;
    const gdfVertex& upper = fallsInY ? a : b;
    low_ = pair(left.x(), lower.y());
    high_ = pair(right.x(), upper.y());
  }

#if defined(__SSE2__)
  int sidesBeyond(const gdfVertex& v) const {
    const __m128d xy = pair(v.x(), v.y());
    return _mm_movemask_pd(_mm_cmpgt_pd(xy, high_)) | _mm_movemask_pd(_mm_cmpgt_pd(low_, xy)) << 2;
  }

 private:
  using Pair = __m128d;
  static Pair pair(double x, double y) { return _mm_set_pd(y, x); }
#else
  int sidesBeyond(const gdfVertex& v) const {
    return static_cast<int>(v.x() > high_.x()) | static_cast<int>(v.y() > high_.y()) << 1 |
           static_cast<int>(low_.x() > v.x()) << 2 | static_cast<int>(low_.y() > v.y()) << 3;
  }

 private:
  using Pair = gdfVertex;
  static Pair pair(double x, double y) { return {x, y}; }
#endif

  Pair low_;
  Pair high_;
};

/// The x and y ranges of a run of consecutive segments.
///
/// isApartFrom means that every segment of the one run lies beyond the same side of every segment
/// of the other, so that getSegmentSegmentIntersect rejects each pair on its ranges. A run with a
/// NaN is apart from none.
class RunBox {
 public:
  RunBox() = default;
  RunBox(const gdfVertex* first, const gdfVertex* last)
      : lowX_(first->x()), highX_(first->x()), lowY_(first->y()), highY_(first->y()) {
    bool isOrdered = true;
    for (const gdfVertex* v = first; v <= last; ++v) {
      isOrdered = isOrdered && v->x() == v->x() && v->y() == v->y();
      lowX_ = std::min(lowX_, v->x());
      highX_ = std::max(highX_, v->x());
      lowY_ = std::min(lowY_, v->y());
      highY_ = std::max(highY_, v->y());
    }
    if (isOrdered) return;
    lowX_ = lowY_ = -HUGE_VAL;
    highX_ = highY_ = HUGE_VAL;
  }
  bool isApartFrom(const RunBox& other) const {
    return (other.lowX_ > highX_) | (other.lowY_ > highY_) | (lowX_ > other.highX_) |
           (lowY_ > other.highY_);
  }

 private:
  double lowX_;
  double highX_;
  double lowY_;
  double highY_;
};

/// A line cut into runs of consecutive segments, each with its box: few enough to stand on the
/// stack, so that a scan allocates nothing. Longer lines have longer runs.
class LineRuns {
 public:
  static constexpr std::size_t mostRuns = 128;

  /// @param line of two vertices or more
  explicit LineRuns(const VertexLine& line)
      : line_(line),
        segmentsPerRun_(std::max<std::size_t>(16, line.size() / mostRuns + 1)),
        count_((line.size() - 2) / segmentsPerRun_ + 1) {}

  std::size_t count() const { return count_; }
  /// First vertex of a run.
  std::size_t start(std::size_t run) const { return run * segmentsPerRun_; }
  /// Last vertex of a run: the first of the next one.
  std::size_t end(std::size_t run) const {
    return std::min((run + 1) * segmentsPerRun_, line_.size() - 1);
  }
  RunBox box(std::size_t run) const { return {line_.data() + start(run), line_.data() + end(run)}; }

 private:
  const VertexLine& line_;
  std::size_t segmentsPerRun_;
  std::size_t count_;
};

/// The crossings of one segment with a run of `b`. Most pairs end on one test of two outcodes, each
/// worked out once for the two segments that share a vertex.
template <class Visitor>
bool visitSegmentRunCrossings(const gdfVertex& start, const gdfVertex& end, const gdfVertex* first,
                              const gdfVertex* last, double tolerance, gdfVertex& hit,
                              Visitor& visit) {
  const SegmentBox box(start, end);
  int startBeyond = box.sidesBeyond(*first);
  for (const gdfVertex* v = first; v != last; ++v) {
    const int endBeyond = box.sidesBeyond(v[1]);
    const bool apart = (startBeyond & endBeyond) != 0;
    startBeyond = endBeyond;
    if (apart) continue;
    if (getSegmentSegmentIntersect(start, end, v[0], v[1], hit, tolerance) && visit(hit))
      return true;
  }
  return false;
}

/// Calls visit(hit) for each crossing of two lines, the segments of `a` outside, those of `b`
/// inside, until it returns true. The hit lies in a scratch vertex: `visit` may write to the two
/// lines only when it then stops.
/// @return whether `visit` returned true
template <class Visitor>
bool visitLineLineCrossings(const VertexLine& a, const VertexLine& b, double tolerance,
                            Visitor visit) {
  if (a.size() < 2 || b.size() < 2) return false;
  const LineRuns runsOfA(a);
  const LineRuns runsOfB(b);
  std::array<RunBox, LineRuns::mostRuns> boxesOfB;
  for (std::size_t run = 0; run < runsOfB.count(); ++run) boxesOfB[run] = runsOfB.box(run);
  std::array<std::size_t, LineRuns::mostRuns> near;
  gdfVertex hit;
  for (std::size_t runOfA = 0; runOfA < runsOfA.count(); ++runOfA) {
    const RunBox boxOfA = runsOfA.box(runOfA);
    std::size_t nearCount = 0;
    for (std::size_t run = 0; run < runsOfB.count(); ++run) {
      if (!boxOfA.isApartFrom(boxesOfB[run])) near[nearCount++] = run;
    }
    if (nearCount == 0) continue;
    for (std::size_t i = runsOfA.start(runOfA); i < runsOfA.end(runOfA); ++i) {
      for (std::size_t k = 0; k < nearCount; ++k) {
        const gdfVertex* const first = b.data() + runsOfB.start(near[k]);
        const gdfVertex* const last = b.data() + runsOfB.end(near[k]);
        if (visitSegmentRunCrossings(a[i], a[i + 1], first, last, tolerance, hit, visit))
          return true;
      }
    }
  }
  return false;
}

}  // namespace zr2DTools::internal

#endif  // ZRBASE_TOOLS2D_INTERNAL_LINELINESCAN_H
