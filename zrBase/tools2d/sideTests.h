#ifndef ZRBASE_TOOLS2D_SIDETESTS_H
#define ZRBASE_TOOLS2D_SIDETESTS_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/side.h>

#include <cmath>

namespace zr2DTools {

namespace internal {

inline double sumOfSizes(const gdfVertex& v) {
  return std::fabs(v.x()) + std::fabs(v.y()) + std::fabs(v.z());
}

/// A length that is neither so short that normalise makes nothing of it, nor near an overflow.
inline bool hasPlainLength(double sumOfSizes) { return sumOfSizes > 1e-4 && sumOfSizes < 1e30; }

/// Share of the sizes within which a side is not clear. It is wide: gdfVertex::normalise moves a
/// unit vector by less than 2e-8, where it snaps onto an axis.
constexpr double doubtfulShare = 1e-6;

inline double sideMeasure(const gdfVertex& w, const gdfVertex& direction) {
  // Kept on purpose (KeptSideMeasureAddsProductOfHeights): w.z v.z is no part of a cross product,
  // and stays: sets of bisectors over templates with heights are built with it.
  return w.y() * direction.x() - direction.y() * w.x() + w.z() * direction.z();
}

/// The side by vectors that are not normalised, where `doubt` leaves it clear; else sideNone. As
/// the sum of sizes is no less than a length, a measure beyond (doubtfulShare + tolerance) times
/// the sums is beyond the tolerance for unit vectors too.
inline zre::side clearSide(const gdfVertex& w, const gdfVertex& direction, double doubt) {
  constexpr double leastDoubt = 1e-200;  // below this the products may have underflowed
  const double measure = sideMeasure(w, direction);
  if (!(doubt > leastDoubt)) return zre::sideNone;
  if (measure > doubt) return zre::sideLeft;
  return measure < -doubt ? zre::sideRight : zre::sideNone;
}

}  // namespace internal

/// Side of a vertex against a vector, in the x-y plane.
///
/// The direction to p is normalised, the vector `direction` is used as it stands. The measure is
/// w.y v.x - v.y w.x + w.z v.z; left above the tolerance, right below its negative, on the line in
/// between, both bounds included. Its third term is 0 for flat data.
inline zre::side getSideOfVector(const gdfVertex& origin, const gdfVertex& direction,
                                 const gdfVertex& p, double tolerance) {
  gdfVertex w = p - origin;
  // Most sides are clear without the root and the divisions of a normalisation.
  const double size = internal::sumOfSizes(w);
  if (tolerance >= 0.0 && internal::hasPlainLength(size)) {
    const double share = internal::doubtfulShare * internal::sumOfSizes(direction) + tolerance;
    const zre::side clear = internal::clearSide(w, direction, share * size);
    if (clear != zre::sideNone) return clear;
  }
  w.normalise();
  const double measure = internal::sideMeasure(w, direction);
  if (measure > tolerance) return zre::sideLeft;
  if (measure < -tolerance) return zre::sideRight;
  return zre::sideOn;
}

/// Side of a vertex against a directed segment. A vertex within 1e-05 of an end (each coordinate,
/// strictly) is on the line whatever the tolerance; otherwise getSideOfVector along the normalised
/// segment, which has no sides for a length up to 1e-05.
inline zre::side getSideOfSegment(const gdfVertex& start, const gdfVertex& end, const gdfVertex& p,
                                  double tolerance) {
  constexpr double endCloseness = 1e-05;
  // Kept on purpose (KeptEndsAreOnAtFixedCloseness): the tolerance argument plays no part at the
  // ends.
  if (p.equal(start, endCloseness) || p.equal(end, endCloseness)) return zre::sideOn;
  gdfVertex direction = end - start;
  const gdfVertex w = p - start;
  const double size = internal::sumOfSizes(w);
  const double length = internal::sumOfSizes(direction);
  if (tolerance >= 0.0 && internal::hasPlainLength(size) && internal::hasPlainLength(length)) {
    const double share = internal::doubtfulShare + tolerance;
    const zre::side clear = internal::clearSide(w, direction, share * size * length);
    if (clear != zre::sideNone) return clear;
  }
  direction.normalise();
  return getSideOfVector(start, direction, p, tolerance);
}

/// Distance in space of a vertex from the infinite line through start and end, despite the name: a
/// vertex beyond an end is measured to the line's continuation. -1.0 when start and end are equal.
inline double getDistanceFromVertexToSegment(const gdfVertex& start, const gdfVertex& end,
                                             const gdfVertex& p) {
  if (start == end) return -1.0;
  const gdfVertex along = end - start;
  // Kept on purpose (KeptSegmentDistanceIsToTheInfiniteLine): no end is looked at.
  return (along ^ (p - start)).length() / along.length();
}

/// Compass angle of the step from one vertex to another, in degrees: an azimuth clockwise from
/// north, in [0, 360) (a hair west of north may round up to 360), but for a step exactly along the
/// y axis: due north gives 180, due south, or no step at all, gives 0.
ZRBASE_EXPORT double angle(const gdfVertex& from, const gdfVertex& to);

/// Two vertices in ascending order of x, then y, then z; equal ones in the given order. Outputs may
/// be inputs.
ZRBASE_EXPORT void sortVertices(const gdfVertex& a, const gdfVertex& b, gdfVertex& first,
                                gdfVertex& second);
/// Three vertices: a and b sorted as above, then c put in by x alone; where its x equals that of
/// its neighbour the two are sorted as above. Outputs may be inputs.
ZRBASE_EXPORT void sortVertices(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                                gdfVertex& first, gdfVertex& second, gdfVertex& last);

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_SIDETESTS_H
