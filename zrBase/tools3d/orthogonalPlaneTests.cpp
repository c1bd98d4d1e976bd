#include <zrBase/tools3d/orthogonalPlaneTests.h>

#include <cmath>
#include <cstddef>

namespace zr3DTools {

namespace {

/// Whether a point is off the origin by the tolerance or more in a coordinate of the view.
bool isDistant(const gdfVertex& point, const gdfVertex& origin, double tolerance) {
  const gdfVertex d = point - origin;
  return std::fabs(d.x()) >= tolerance || std::fabs(d.y()) >= tolerance ||
         std::fabs(d.z()) >= tolerance;
}

/// Looks for the line that the points form in a view. `project` sets the coordinate that the view
/// drops to 0.
/// @param direction  unit vector of the line; untouched after a false
template <class Project>
bool lineInView(const VertexLine& points, double tolerance, Project project, gdfVertex& direction) {
  const gdfVertex origin = project(points[0]);
  std::size_t distant = 1;
  // Kept on purpose (KeptZeroToleranceTakesTheNextPoint): the dropped 0 takes part, so that with a
  // tolerance of 0 even a point over the origin counts as distant. It has no direction then;
  // callers get a normal of zeros, not a false. A difference that is NaN is no distance.
  while (distant < points.size() && !isDistant(project(points[distant]), origin, tolerance)) {
    ++distant;
  }
  // Kept on purpose (KeptPointsOverOnePlaceAreRefused): every plane through a single place would
  // do, but none is told. Fits go on to another view.
  if (distant == points.size()) return false;
  // Kept on purpose (KeptFirstDistantPointSetsTheDirection): not the farthest, nor a mean. The
  // normal of a noisy straight cloud is that of its first step.
  gdfVertex u = project(points[distant]) - origin;
  u.normalise();
  for (const gdfVertex& point : points) {
    const gdfVertex p = project(point);
    const double t = (p - origin) * u;
    if ((origin + u * t - p).length() > tolerance) return false;
  }
  direction = u;
  return true;
}

gdfVertex dropX(const gdfVertex& v) { return gdfVertex(0.0, v.y(), v.z()); }
gdfVertex dropY(const gdfVertex& v) { return gdfVertex(v.x(), 0.0, v.z()); }
gdfVertex dropZ(const gdfVertex& v) { return gdfVertex(v.x(), v.y(), 0.0); }

// Kept on purpose (KeptFewerThanThreePointsPassUnseen): true without a normal, even where two
// points would give one. Callers that need a normal set it before the call.
bool passUnseen(const VertexLine& points) { return points.size() < 3; }

}  // namespace

// Kept on purpose (KeptNormalTurnsWithTheOrderOfPoints): no sense is imposed on the normal, it
// follows the way from the first point to the distant one. Callers turn it if they care.
bool isPointsPlaneOrthogonalToXYPlane(const VertexLine& points, const double& tolerance,
                                      gdfVertex& normal) {
  if (passUnseen(points)) return true;
  gdfVertex u;
  if (!lineInView(
          points, tolerance, [](const gdfVertex& v) { return dropZ(v); }, u))
    return false;
  normal = gdfVertex(u.y(), -u.x(), 0.0);
  return true;
}

bool isPointsPlaneOrthogonalToXZPlane(const VertexLine& points, const double& tolerance,
                                      gdfVertex& normal) {
  if (passUnseen(points)) return true;
  gdfVertex u;
  if (!lineInView(
          points, tolerance, [](const gdfVertex& v) { return dropY(v); }, u))
    return false;
  normal = gdfVertex(u.z(), 0.0, -u.x());
  return true;
}

bool isPointsPlaneOrthogonalToYZPlane(const VertexLine& points, const double& tolerance,
                                      gdfVertex& normal) {
  if (passUnseen(points)) return true;
  gdfVertex u;
  if (!lineInView(
          points, tolerance, [](const gdfVertex& v) { return dropX(v); }, u))
    return false;
  normal = gdfVertex(0.0, u.z(), -u.y());
  return true;
}

}  // namespace zr3DTools
