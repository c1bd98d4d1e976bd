#ifndef ZRBASE_TOOLS2D_SEGMENTINTERSECTION_H
#define ZRBASE_TOOLS2D_SEGMENTINTERSECTION_H

#include <zrBase/geometry/gdfVertex.h>

#include <algorithm>

namespace zr2DTools {

namespace internal {

/// Slope that stands for a vertical segment: the largest finite double.
constexpr double verticalSlope = 1.7976931348623157e308;

/// y = slope x + intercept; for a vertical segment the intercept is its x.
struct SlopeAndIntercept {
  double slope;
  double intercept;
};

inline SlopeAndIntercept slopeAndIntercept(const gdfVertex& left, const gdfVertex& right) {
  // Kept on purpose (KeptSegmentWithoutLengthCountsAsLevel): level is tested before vertical, so a
  // segment without length is level: it is found on a segment that is not level, and never on one
  // that is.
  if (left.y() == right.y()) return {0.0, left.y()};
  if (left.x() == right.x()) return {verticalSlope, left.x()};
  const double slope = (right.y() - left.y()) / (right.x() - left.x());
  return {slope, left.y() - slope * left.x()};
}

/// Whether the y ranges of a-b and c-d miss each other, touching ranges excepted.
inline bool apartInY(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                     const gdfVertex& d) {
  if (a.y() >= b.y()) {
    return (c.y() > a.y() && d.y() > a.y()) || (b.y() > c.y() && b.y() > d.y());
  }
  return (a.y() > c.y() && a.y() > d.y()) || (c.y() > b.y() && d.y() > b.y());
}

/// x and y where the first line meets the second; their slopes differ.
inline void crossingOfSlopes(const SlopeAndIntercept& first, const SlopeAndIntercept& second,
                             double& x, double& y) {
  if (first.slope == 0.0) {
    y = first.intercept;
    x = second.slope == verticalSlope ? second.intercept
                                      : (first.intercept - second.intercept) / second.slope;
  } else if (second.slope == 0.0) {
    y = second.intercept;
    x = first.slope == verticalSlope ? first.intercept
                                     : (second.intercept - first.intercept) / first.slope;
  } else if (first.slope == verticalSlope) {
    x = first.intercept;
    y = second.slope * first.intercept + second.intercept;
  } else {
    x = second.slope == verticalSlope
            ? second.intercept
            : (second.intercept - first.intercept) / (first.slope - second.slope);
    y = x * first.slope + first.intercept;
  }
}

inline bool insideOrAt(double value, double low, double high, double tolerance) {
  return value >= low - tolerance && value <= high + tolerance;
}

/// z of a place in the plane, linear along c-d: on x where c-d has a reach in x, else on y.
inline double heightAlong(const gdfVertex& c, const gdfVertex& d, double x, double y) {
  double t = 0.0;
  if (d.x() != c.x()) {
    t = (x - c.x()) / (d.x() - c.x());
  } else if (d.y() != c.y()) {
    t = (y - c.y()) / (d.y() - c.y());
  } else {
    return c.z();
  }
  return t * (d.z() - c.z()) + c.z();
}

}  // namespace internal

/// Crossing of the closed segments a-b and c-d in the x-y plane: both end points of both belong to
/// them.
///
/// Parallel segments never cross: not where they overlap, nor where they touch end to end on one
/// line. A segment without length counts as level (parallel to y = constant), so it is found on a
/// segment that is not level. The z is interpolated along c-d and takes nothing from a-b: the
/// segment whose height is wanted goes second.
/// @param out  the crossing; untouched after a false
/// @param tolerance  widens only the last test, whether the crossing lies within both segments'
/// ranges (closed).
///                   Segments whose bounding boxes miss each other are rejected without it.
inline bool getSegmentSegmentIntersect(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                                       const gdfVertex& d, gdfVertex& out, double tolerance) {
  // Kept on purpose (KeptBoxRejectionIgnoresTolerance): the two rejections on y and x are exact, so
  // a pair that misses by less than the tolerance in the sense of its boxes is no hit, while one
  // that misses at an angle may be. They come first because most pairs of a double loop end here,
  // before any division.
  if (internal::apartInY(a, b, c, d)) return false;

  const bool firstReversed = a.x() > b.x();
  const gdfVertex& left1 = firstReversed ? b : a;
  const gdfVertex& right1 = firstReversed ? a : b;
  const bool secondReversed = c.x() > d.x();
  const gdfVertex& left2 = secondReversed ? d : c;
  const gdfVertex& right2 = secondReversed ? c : d;
  if (left2.x() > right1.x() || left1.x() > right2.x()) return false;

  // The segment that begins further left, or lower, goes first. The two orders round differently.
  const bool swapped = left1.x() > left2.x() || (left1.x() == left2.x() && left1.y() > left2.y());
  const internal::SlopeAndIntercept first = swapped ? internal::slopeAndIntercept(left2, right2)
                                                    : internal::slopeAndIntercept(left1, right1);
  const internal::SlopeAndIntercept second = swapped ? internal::slopeAndIntercept(left1, right1)
                                                     : internal::slopeAndIntercept(left2, right2);
  // Kept on purpose (KeptParallelSegmentsNeverMeet): equal slopes end it, overlap or shared end
  // point or not, and without a tolerance. Line cleaning and polygon work count on collinear
  // neighbours giving no hit.
  if (first.slope == second.slope) return false;

  double x = 0.0;
  double y = 0.0;
  internal::crossingOfSlopes(first, second, x, y);
  if (!internal::insideOrAt(x, left1.x(), right1.x(), tolerance) ||
      !internal::insideOrAt(x, left2.x(), right2.x(), tolerance) ||
      !internal::insideOrAt(y, std::min(a.y(), b.y()), std::max(a.y(), b.y()), tolerance) ||
      !internal::insideOrAt(y, std::min(c.y(), d.y()), std::max(c.y(), d.y()), tolerance)) {
    return false;
  }
  // Kept on purpose (KeptCrossingHeightComesFromSecondSegment): z follows c-d alone, whatever order
  // the slopes were taken in. Callers choose the height by the order of the arguments.
  out = gdfVertex(x, y, internal::heightAlong(c, d, x, y));
  return true;
}

/// Foot of the perpendicular from p to the segment a-b, in the x-y plane.
///
/// The search reaches as far from p as a-b is long, to either side; so p must lie no farther from
/// the segment than that, and the foot must fall within the segment (closed, widened by the
/// tolerance). Otherwise, and for an a-b without length, the result is false and `out` is
/// untouched.
/// @param out  the foot, with z = 0
inline bool nearestPointOnLine(const gdfVertex& a, const gdfVertex& b, const gdfVertex& p,
                               gdfVertex& out, double tolerance) {
  const double dx = b.x() - a.x();
  const double dy = b.y() - a.y();
  // Kept on purpose (KeptFootOfPerpendicularIsFlat): the cross segment goes second and is flat, so
  // the foot has z = 0 whatever the heights of a and b; and it is as long as twice a-b, so a vertex
  // farther away finds no foot.
  const gdfVertex c(p.x() - dy, p.y() + dx, 0.0);
  const gdfVertex d(p.x() + dy, p.y() - dx, 0.0);
  return getSegmentSegmentIntersect(a, b, c, d, out, tolerance);
}

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_SEGMENTINTERSECTION_H
