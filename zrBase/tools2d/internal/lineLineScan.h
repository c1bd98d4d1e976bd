#ifndef ZRBASE_TOOLS2D_INTERNAL_LINELINESCAN_H
#define ZRBASE_TOOLS2D_INTERNAL_LINELINESCAN_H

#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/segmentIntersection.h>

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

/// Calls visit(hit) for each crossing of two lines, the segments of `a` outside, those of `b`
/// inside, until it returns true. The hit lies in a scratch vertex: `visit` may write to the two
/// lines only when it then stops.
/// @return whether `visit` returned true
template <class Visitor>
bool visitLineLineCrossings(const VertexLine& a, const VertexLine& b, double tolerance,
                            Visitor visit) {
  if (a.size() < 2 || b.size() < 2) return false;
  const gdfVertex* const firstOfB = b.data();
  const gdfVertex* const lastOfB = firstOfB + (b.size() - 1);
  gdfVertex hit;
  for (std::size_t i = 0; i + 1 < a.size(); ++i) {
    const SegmentBox box(a[i], a[i + 1]);
    // Most pairs end on one test of two outcodes, each worked out once for the two segments that
    // share a vertex.
    int startBeyond = box.sidesBeyond(*firstOfB);
    for (const gdfVertex* start = firstOfB; start != lastOfB; ++start) {
      const int endBeyond = box.sidesBeyond(start[1]);
      const bool apart = (startBeyond & endBeyond) != 0;
      startBeyond = endBeyond;
      if (apart) continue;
      if (getSegmentSegmentIntersect(a[i], a[i + 1], start[0], start[1], hit, tolerance) &&
          visit(hit)) {
        return true;
      }
    }
  }
  return false;
}

}  // namespace zr2DTools::internal

#endif  // ZRBASE_TOOLS2D_INTERNAL_LINELINESCAN_H
