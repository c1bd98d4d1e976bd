#include <zrBase/tools2d/polygonContainment.h>

#include <zrBase/tools2d/lineLocation.h>
#include <zrBase/tools2d/lineMeasures.h>

#include <limits>
#include <utility>
#include <vector>

namespace zr2DTools {

namespace {

/// Ranges of a polygon in x and y. That of a polygon without vertices holds nothing.
struct Extent {
  double minX = std::numeric_limits<double>::infinity();
  double maxX = -std::numeric_limits<double>::infinity();
  double minY = std::numeric_limits<double>::infinity();
  double maxY = -std::numeric_limits<double>::infinity();

  explicit Extent(const VertexLine& polygon) { calculateMinMax(polygon, minX, maxX, minY, maxY); }

  /// Closed. Not for a NaN on either side.
  bool holds(const gdfVertex& v) const {
    return v.x() >= minX && v.x() <= maxX && v.y() >= minY && v.y() <= maxY;
  }
  bool holds(const Extent& other) const {
    return other.minX >= minX && other.maxX <= maxX && other.minY >= minY && other.maxY <= maxY;
  }
};

/// Whether every vertex of a polygon lies inside another one.
bool liesInside(const VertexLine& polygon, const Extent& extent, const VertexLine& other,
                const Extent& otherExtent, double step, double tolerance) {
  // Kept on purpose (KeptPolygonWithoutVerticesIsInner): no vertex fails, so it lies inside
  // whatever it is compared with, another one without vertices included.
  if (polygon.empty()) return true;
  // An extent that is not held has a vertex that is not: no need to look for it.
  if (!otherExtent.holds(extent)) return false;
  for (const gdfVertex& v : polygon) {
    if (!otherExtent.holds(v) || !vertexInsidePolygon(other, v, step, tolerance)) return false;
  }
  return true;
}

}  // namespace

bool vertexInsidePolygon(const VertexLine& polygon, const gdfVertex& p, double step,
                         double tolerance) {
  // Kept on purpose (KeptInsideNeedsOddCountsFromBothSides): one odd and one even count make the
  // vertex an outside one. A vertex on a side or a segment through a corner is settled by this
  // alone.
  const gdfVertex far(p.x() + step, p.y() + 2.0 * step, p.z());
  if (getNumberIntersections(polygon, far, p, tolerance) % 2 == 0) return false;
  const gdfVertex otherFar(p.x() + 3.0 * step, p.y() - step, p.z());
  return getNumberIntersections(polygon, otherFar, p, tolerance) % 2 != 0;
}

bool vertexInsidePolygon(const VertexLine& polygon, const gdfVertex& p, double step, double minX,
                         double maxX, double minY, double maxY, double tolerance) {
  if (p.x() < minX || p.x() > maxX || p.y() < minY || p.y() > maxY) return false;
  return vertexInsidePolygon(polygon, p, step, tolerance);
}

bool identifyInnerOuterPolygons(VertexLineList& polygons, VertexLineList& inner, double step,
                                double tolerance) {
  std::vector<Extent> extents;
  extents.reserve(polygons.size());
  for (const VertexLine& polygon : polygons) extents.emplace_back(polygon);

  for (std::size_t i = polygons.size(); i-- > 0;) {
    for (std::size_t j = extents.size(); j-- > 0;) {
      if (j == i || !liesInside(polygons[i], extents[i], polygons[j], extents[j], step, tolerance))
        continue;
      // Kept on purpose (KeptNestingLooksAtThoseStillListed): the polygon is gone from the list
      // before the next one is compared, so that one which only it contains stays an outer one.
      inner.push_back(std::move(polygons[i]));
      polygons.erase(polygons.begin() + static_cast<std::ptrdiff_t>(i));
      extents.erase(extents.begin() + static_cast<std::ptrdiff_t>(i));
      break;
    }
  }
  // Kept on purpose (KeptInnerListDecidesTheResult): what the caller's list held before counts too.
  return !inner.empty();
}

}  // namespace zr2DTools
