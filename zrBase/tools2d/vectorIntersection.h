#ifndef ZRBASE_TOOLS2D_VECTORINTERSECTION_H
#define ZRBASE_TOOLS2D_VECTORINTERSECTION_H

#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/lineSolvers.h>
#include <zrBase/tools2d/segmentIntersection.h>

#include <algorithm>

/// Crossings of vectors (rays: a half-line from an origin along a direction, origin included),
/// bivectors (infinite lines through an origin along a direction) and segments, in the x-y plane.
///
/// A crossing takes the z of the first origin. After a false `out` may hold a rejected candidate; a
/// caller that minds passes a scratch vertex. The tolerance goes to getIntersect as a raw
/// determinant, and widens range tests where told.
namespace zr2DTools {

namespace internal {

/// Whether `reached` lies where the ray goes, coordinate by coordinate; a direction of 0 counts as
/// positive.
inline bool aheadZeroIsPositive(double origin, double direction, double reached) {
  return direction >= 0.0 ? !(origin > reached) : !(reached > origin);
}

/// The same, but a direction of exactly 0 is not tested at all.
inline bool aheadZeroIsFree(double origin, double direction, double reached) {
  if (direction > 0.0) return !(origin > reached);
  if (direction < 0.0) return !(reached > origin);
  return true;
}

inline bool insideRange(const gdfVertex& p, const gdfVertex& s, const gdfVertex& e,
                        double tolerance) {
  return insideOrAt(p.x(), std::min(s.x(), e.x()), std::max(s.x(), e.x()), tolerance) &&
         insideOrAt(p.y(), std::min(s.y(), e.y()), std::max(s.y(), e.y()), tolerance);
}

/// Distance below which a crossing counts as met, behind the origin too; for directions of about
/// unit length.
constexpr double nearOrigin = 1.0001;

}  // namespace internal

/// Ray from an origin along a direction against a closed segment.
///
/// An origin that equals an end of the segment (all three coordinates, exactly) is the hit, unless
/// the direction equals end - start exactly. A crossing that equals an end exactly, z included, is
/// a hit whatever the direction.
inline bool getVectorSegmentIntersect(const gdfVertex& origin, const gdfVertex& direction,
                                      const gdfVertex& start, const gdfVertex& end, gdfVertex& out,
                                      double tolerance) {
  const gdfVertex o = origin;
  const gdfVertex v = direction;
  const gdfVertex s = start;
  const gdfVertex e = end;
  // Kept on purpose (KeptRayFromAnEndMissesOnlyTheVerySegment): only a direction equal to end -
  // start, to the last bit, is taken to run along the segment; twice that, or its reverse at the
  // end, is a hit at the origin.
  if (o == s || o == e) {
    if (v == e - s) return false;
    out = o == s ? s : e;
    return true;
  }
  if (!getIntersect(o, o + v, s, e, out, tolerance)) return false;
  // Kept on purpose (KeptCrossingAtAnEndCountsBehindToo): this short cut comes before the tests of
  // direction. As the crossing has the height of the origin, it needs an end of that height.
  if (out == s || out == e) return true;
  // Kept on purpose (KeptRayTestCountsZeroAsPositive): a direction component of 0 is tested like a
  // positive one here and in getVectorBiVectorIntersect, and not at all in
  // getVectorVectorIntersect.
  if (!internal::aheadZeroIsPositive(o.x(), v.x(), out.x())) return false;
  if (!internal::aheadZeroIsPositive(o.y(), v.y(), out.y())) return false;
  return internal::insideRange(out, s, e, tolerance);
}

/// Infinite line through an origin along a direction against a closed segment.
///
/// An origin that equals the start of the segment exactly gives true and leaves `out` as it was,
/// unless the direction equals end - start exactly, which gives false. The end is not treated so.
inline bool getBiVectorSegmentIntersect(const gdfVertex& origin, const gdfVertex& direction,
                                        const gdfVertex& start, const gdfVertex& end,
                                        gdfVertex& out, double tolerance) {
  const gdfVertex o = origin;
  const gdfVertex s = start;
  const gdfVertex e = end;
  // Kept on purpose (KeptBiVectorAtSegmentStartWritesNothing): true without a crossing. The line
  // queries built on this report whatever their scratch vertex held before.
  if (o == s) return !(direction == e - s);
  if (!getIntersect(o, o + direction, s, e, out, tolerance)) return false;
  if (out == s || out == e) return true;
  return internal::insideRange(out, s, e, tolerance);
}

/// Two rays. Equal origins give true and leave `out` as it was, unless the directions are equal too
/// (false).
inline bool getVectorVectorIntersect(const gdfVertex& origin1, const gdfVertex& direction1,
                                     const gdfVertex& origin2, const gdfVertex& direction2,
                                     gdfVertex& out, double tolerance) {
  const gdfVertex o1 = origin1;
  const gdfVertex u1 = direction1;
  const gdfVertex o2 = origin2;
  const gdfVertex u2 = direction2;
  // Kept on purpose (KeptEqualRayOriginsWriteNothing): true without a crossing, as in
  // getBiVectorSegmentIntersect.
  if (o1 == o2) return !(u1 == u2);
  if (!getIntersect(o1, o1 + u1, o2, o2 + u2, out, tolerance)) return false;
  // Kept on purpose (KeptCrossingAtAnOriginCountsBehindTheOther): reaching either origin exactly
  // ends it, wherever the other ray goes. getVectorBiVectorIntersect grants this to the ray's
  // origin alone.
  if (out == o1 || out == o2) return true;
  // Kept on purpose (KeptTwoRayTestSkipsZero): looser than getVectorSegmentIntersect; the two stay
  // different.
  return internal::aheadZeroIsFree(o1.x(), u1.x(), out.x()) &&
         internal::aheadZeroIsFree(o1.y(), u1.y(), out.y()) &&
         internal::aheadZeroIsFree(o2.x(), u2.x(), out.x()) &&
         internal::aheadZeroIsFree(o2.y(), u2.y(), out.y());
}

/// Ray against an infinite line. Equal origins give true and leave `out` as it was, unless the
/// directions are equal too (false). The tolerance rejects only pairs a hundred times closer to
/// parallel than in the other functions.
inline bool getVectorBiVectorIntersect(const gdfVertex& vectorOrigin,
                                       const gdfVertex& vectorDirection,
                                       const gdfVertex& bivectorOrigin,
                                       const gdfVertex& bivectorDirection, gdfVertex& out,
                                       double tolerance) {
  const gdfVertex o = vectorOrigin;
  const gdfVertex v = vectorDirection;
  const gdfVertex p = bivectorOrigin;
  const gdfVertex w = bivectorDirection;
  // Kept on purpose (KeptEqualRayAndLineOriginsWriteNothing): true without a crossing, as in
  // getVectorVectorIntersect.
  if (o == p) return !(v == w);
  // Kept on purpose (KeptBiVectorDirectionsTimesTen): both directions are taken ten times, which
  // makes the determinant that the tolerance is compared with a hundred times larger.
  if (!getIntersect(o, o + v * 10.0, p, p + w * 10.0, out, tolerance)) return false;
  if (out == o) return true;
  return internal::aheadZeroIsPositive(o.x(), v.x(), out.x()) &&
         internal::aheadZeroIsPositive(o.y(), v.y(), out.y());
}

/// Two infinite lines, each by an origin and a direction: getIntersect of their points.
inline bool getBiVectorBiVectorIntersect(const gdfVertex& origin1, const gdfVertex& direction1,
                                         const gdfVertex& origin2, const gdfVertex& direction2,
                                         gdfVertex& out, double tolerance) {
  return getIntersect(origin1, origin1 + direction1, origin2, origin2 + direction2, out, tolerance);
}

/// Ray against a segment by distances in space, with getIntersect2; for flat directions of about
/// unit length.
///
/// The crossing takes the z of the origin, and must project onto the segment (closed, no tolerance,
/// z included). With d0 its distance from the origin, d1 that from origin + direction and L the
/// direction's length: a hit when d0 < 1.0001, on either side of the origin, or when max(d0, L) >=
/// d1. For steep or long directions that refuses crossings ahead.
inline bool getVectorSegmentIntersect2(const gdfVertex& origin, const gdfVertex& direction,
                                       const gdfVertex& start, const gdfVertex& end, gdfVertex& out,
                                       double tolerance) {
  const gdfVertex o = origin;
  const gdfVertex v = direction;
  const gdfVertex s = start;
  const gdfVertex along = end - start;
  if (!getIntersect2(o, o + v, s, end, out, tolerance)) return false;
  // Kept on purpose (KeptProjectionTakesOriginHeight): measured in space, with the height that the
  // crossing took from the origin, and without the tolerance.
  const double projection = (out - s) * along;
  if (!(0.0 <= projection && projection <= along * along)) return false;
  const double fromOrigin = out.distance(o);
  // Kept on purpose (KeptCrossingJustBehindOriginCounts): 1.0001 is in model units and absolute, so
  // a crossing up to that far behind the origin is a hit.
  if (fromOrigin < internal::nearOrigin) return true;
  return std::max(fromOrigin, v.length()) >= out.distance(o + v);
}

/// Ray against the infinite line through two points, with getIntersect2; for flat directions of
/// about unit length.
///
/// Mind the arguments: `point2` and `secondPoint2` are both points, the fourth is no direction.
/// With d0 the crossing's distance from the origin and d1 that from origin + direction: a hit when
/// d0 < 1.0001, on either side of the origin, or when d0 > d1. For steep or long directions that
/// refuses crossings ahead.
inline bool getVectorVectorIntersect2(const gdfVertex& origin1, const gdfVertex& direction1,
                                      const gdfVertex& point2, const gdfVertex& secondPoint2,
                                      gdfVertex& out, double tolerance) {
  const gdfVertex o = origin1;
  const gdfVertex v = direction1;
  // Kept on purpose (KeptFourthArgumentIsAPoint): unlike getVectorVectorIntersect the fourth
  // argument is not added to the third. Callers pass a point.
  if (!getIntersect2(o, o + v, point2, secondPoint2, out, tolerance)) return false;
  const double fromOrigin = out.distance(o);
  if (fromOrigin < internal::nearOrigin) return true;
  return fromOrigin > out.distance(o + v);
}

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_VECTORINTERSECTION_H
