#ifndef ZRBASE_BISECTORS_INTERNAL_NEARESTBISECTOR_H
#define ZRBASE_BISECTORS_INTERNAL_NEARESTBISECTOR_H

#include <zrBase/bisectors/internal/domainGeometry.h>
#include <zrBase/bisectors/zr2DBisector.h>
#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/side.h>
#include <zrBase/tools2d/sideTests.h>

#include <algorithm>
#include <cmath>

/// The nearest bisector on a climb, and the side of a vertex against it.
///
/// The measure of nearness (distanceFromBisector) costs several roots and divisions. Plain products
/// bound it; the measure itself is worked out only for bisectors that the bounds leave in doubt.
/// The margins are wide: gdfVertex::normalise moves a unit vector by less than 2e-8 (where it snaps
/// onto an axis), and 1e-6 is asked for.
namespace bisectorInternal {

constexpr double relativeDoubt = 1e-6;
constexpr double absoluteDoubt = 1e-4;

/// zr2DTools::getSideOfVector at tolerance 0.
inline zre::side sideOfVector(const gdfVertex& origin, const gdfVertex& direction,
                              const gdfVertex& p) {
  return zr2DTools::getSideOfVector(origin, direction, p, 0.0);
}

/// Distance of a vertex from a bisector between base and top, by the perpendiculars at both ends.
inline double distanceFromBisector(const zr2DBisector& b, const gdfVertex& p) {
  const gdfVertex v = b.getNormalisedVector();
  const gdfVertex across(-v.y(), v.x(), v.z());
  if (sideOfVector(b.getBase(), across, p) == zre::sideLeft) return (p - b.getBase()).length();
  if (sideOfVector(b.getTop(), across, p) == zre::sideRight) return (p - b.getTop()).length();
  return std::fabs((p - b.getBase()) * across);
}

/// Bounds of distanceFromBisector for flat data; no bounds at all (0 to infinity) where heights
/// differ, where the bisector is short enough to be normalised to nothing, and for what is not
/// finite.
struct DistanceBounds {
  double least = 0.0;
  double most = HUGE_VAL;
};

inline DistanceBounds boundsOfDistance(const zr2DBisector& b, const gdfVertex& p) {
  const gdfVertex along = b.getVector();
  const gdfVertex w = p - b.getBase();
  const double squaredLength = along.length2();
  const bool isFlat = along.z() == 0.0 && w.z() == 0.0;
  const bool isLong = squaredLength > absoluteDoubt;
  const double size = zr2DTools::internal::sumOfSizes(w) + zr2DTools::internal::sumOfSizes(along);
  if (!isFlat || !isLong || !(size < 1e30)) return {};
  const double t = along * w;
  double squared = 0.0;
  if (t <= 0.0) {
    squared = w.length2();
  } else if (t >= squaredLength) {
    squared = (p - b.getTop()).length2();
  } else {
    const double cross = along.x() * w.y() - along.y() * w.x();
    squared = cross * cross / squaredLength;
  }
  const double distance = std::sqrt(squared);
  const double doubt = relativeDoubt * size + absoluteDoubt;
  return {distance - doubt, distance + doubt};
}

/// The nearest of the bisectors met so far, by distances below the unset one.
struct NearestSoFar {
  int index = -1;
  double distance = gdfInternal::unset;

  void meet(const Chain& chain, int candidate, const gdfVertex& p) {
    const double candidateDistance = distanceFromBisector(at(chain, candidate), p);
    if (candidateDistance < distance) {
      distance = candidateDistance;
      index = candidate;
    }
  }
};

/// Index of the bisector nearest to a vertex on the climb from an index upward, the first of
/// equally near ones; -1 where the climb meets a retired one or none is nearer than the unset
/// distance.
///
/// The bounds of all are taken first; distances are then worked out for those that may be the
/// nearest. Of these the first few are noted on the way; a longer list is found again from the
/// bounds.
template <class Recorder>
int nearestOnClimb(const Chain& chain, int start, const gdfVertex& p, Recorder& recorder) {
  struct Noted {
    int index;
    double least;
  };
  constexpr int mostNoted = 32;
  Noted noted[mostNoted];
  int count = 0;
  double leastUpperBound = HUGE_VAL;
  ClimbLimit limit(chain);
  int i = start;
  for (; isIn(chain, i) && !limit.reached(); i = at(chain, i).getTopConnect()) {
    recorder.read(i);
    // Kept on purpose (KeptRetiredOnClimbLeavesNoSide): one retired bisector ends the search
    // without a side, whatever was found below it.
    if (at(chain, i).getType() == retiredType) return -1;
    const DistanceBounds bounds = boundsOfDistance(at(chain, i), p);
    if (bounds.least > leastUpperBound) continue;
    if (bounds.most < leastUpperBound) leastUpperBound = bounds.most;
    if (count < mostNoted) noted[count] = {i, bounds.least};
    ++count;
  }
  const int notedCount = std::min(count, mostNoted);
  int inDoubt = 0;
  for (int k = 0; k < notedCount; ++k) {
    if (noted[k].least <= leastUpperBound) noted[inDoubt++] = noted[k];
  }
  // One that is nearer than all others by its bounds, and than the unset distance, needs no
  // distance.
  if (inDoubt == 1 && count <= mostNoted && leastUpperBound < gdfInternal::unset)
    return noted[0].index;
  NearestSoFar nearest;
  for (int k = 0; k < inDoubt; ++k) nearest.meet(chain, noted[k].index, p);
  if (count > mostNoted) {
    for (int k = at(chain, noted[mostNoted - 1].index).getTopConnect(); k != i;
         k = at(chain, k).getTopConnect()) {
      if (boundsOfDistance(at(chain, k), p).least <= leastUpperBound) nearest.meet(chain, k, p);
    }
  }
  return nearest.index;
}

/// Side of a vertex against the nearest bisector on the climb from an index upward; zre::sideNone
/// without one.
template <class Recorder>
zre::side sideOfNearest(const Chain& chain, int start, const gdfVertex& p, Recorder& recorder) {
  const int found = nearestOnClimb(chain, start, p, recorder);
  if (found < 0) return zre::sideNone;
  // Kept on purpose (KeptSideGoesByStoredNormal): the nearest is found by base and top, and the
  // side is then told by the stored normal, which need not lie along them.
  return sideOfVector(at(chain, found).getBase(), at(chain, found).getNormalVector(), p);
}

}  // namespace bisectorInternal

#endif  // ZRBASE_BISECTORS_INTERNAL_NEARESTBISECTOR_H
