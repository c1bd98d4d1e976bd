#ifndef ZRBASE_APPS_POLYGONS_RINGNESTING_H
#define ZRBASE_APPS_POLYGONS_RINGNESTING_H

#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <optional>
#include <vector>

/// Where a ring stands among others.
struct RingPlace {
  int depth = 0;                      ///< in how many others it lies; an odd one is a hole
  std::optional<std::size_t> inside;  ///< the innermost ring that it lies in
  std::optional<std::size_t> holeOf;  ///< for a hole: the outer ring whose polygon it belongs to
};

/// Finds which ring lies in which, in the x-y plane, by zr2DTools::vertexInsidePolygon.
///
/// A ring lies in another when all of its vertices and the middles of its sides do. Those within
/// `tolerance` of the other's outline do not count, so a ring may touch the one around it; at least
/// one must count. Rings that overlap or are the same do not lie in each other.
/// @param rings  closed
std::vector<RingPlace> nestRings(const VertexLineList& rings, double tolerance);

#endif  // ZRBASE_APPS_POLYGONS_RINGNESTING_H
