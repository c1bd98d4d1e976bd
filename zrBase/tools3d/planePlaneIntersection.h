#ifndef ZRBASE_TOOLS3D_PLANEPLANEINTERSECTION_H
#define ZRBASE_TOOLS3D_PLANEPLANEINTERSECTION_H

#include <zrBase/geometry/gdfVertex.h>

#include <cmath>

namespace zr3DTools {

/// Whether two planes run parallel: the square of the length of the cross product of their normals
/// lies within the tolerance (closed).
///
/// Not an angle: normals of unit length that enclose the small angle a, in radians, give a * a, so
/// that a tolerance of 1e-05 takes planes up to 0.18 degrees apart as parallel. Longer normals give
/// more, in the fourth power of a length that both have. A zero normal is parallel to all.
constexpr bool parallelPlanes(const gdfVertex& normal1, const gdfVertex& normal2,
                              double tolerance) {
  // Kept on purpose (KeptParallelComparesSquaredCrossProduct): neither is the root taken nor are
  // the normals scaled. The tolerances of callers are set for the square.
  return gdfEqualZero((normal1 ^ normal2).length2(), tolerance);
}

/// Line in which the planes normal1 * v = d1 and normal2 * v = d2 meet.
///
/// The place on the line is where the coordinate along which the direction is longest is 0, since
/// that makes its division the best conditioned. Two components that tie for the longest leave it
/// to x. Swapped planes give the opposite direction. Outputs may be inputs.
/// @param point  a vertex of the line; not finite where a tie leaves it to x and the direction has
/// no x, as (0, 1, 1), though the result is true
/// @param direction  normal1 ^ normal2, not of unit length
/// @param tolerance  of parallelPlanes
/// @return false for parallel planes; the outputs are then untouched
inline bool planePlaneIntersect(double d1, const gdfVertex& normal1, double d2,
                                const gdfVertex& normal2, gdfVertex& point, gdfVertex& direction,
                                double tolerance) {
  if (parallelPlanes(normal1, normal2, tolerance)) return false;
  const gdfVertex n1 = normal1;
  const gdfVertex n2 = normal2;
  const gdfVertex along = n1 ^ n2;
  const double alongX = std::fabs(along.x());
  const double alongY = std::fabs(along.y());
  const double alongZ = std::fabs(along.z());
  direction = along;
  // Kept on purpose (KeptTiedDirectionIsCutAtX): both comparisons are strict, so that a tie of y
  // and z is cut where x is 0, also where the line runs along no x at all and the quotients are not
  // finite. Callers test the point with valid().
  if (alongZ > alongY && alongZ > alongX) {
    point = gdfVertex((d1 * n2.y() - d2 * n1.y()) / along.z(),
                      (d2 * n1.x() - d1 * n2.x()) / along.z(), 0.0);
  } else if (alongY > alongZ && alongY > alongX) {
    point = gdfVertex(-(d1 * n2.z() - d2 * n1.z()) / along.y(), 0.0,
                      -(d2 * n1.x() - d1 * n2.x()) / along.y());
  } else {
    point = gdfVertex(0.0, (d1 * n2.z() - d2 * n1.z()) / along.x(),
                      (d2 * n1.y() - d1 * n2.y()) / along.x());
  }
  return true;
}

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_PLANEPLANEINTERSECTION_H
