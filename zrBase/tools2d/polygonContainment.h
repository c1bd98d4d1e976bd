#ifndef ZRBASE_TOOLS2D_POLYGONCONTAINMENT_H
#define ZRBASE_TOOLS2D_POLYGONCONTAINMENT_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

/// Whether a vertex lies inside a polygon, and which polygons of a list lie inside others, in the
/// x-y plane. A polygon is a VertexLine, turning either way; it may repeat its first vertex at the
/// end or leave the last side out.
namespace zr2DTools {

/// Whether a vertex lies inside a polygon, by the parity of crossings (even-odd rule, Shimrat
/// 1962).
///
/// Two segments are laid from far away to p, one from (p.x + step, p.y + 2 step), the other from
/// (p.x + 3 step, p.y - step), and p is inside when getNumberIntersections is odd for both. So a
/// part that is enclosed twice is outside, and a vertex on a side is inside or outside as both
/// counts fall.
/// @param step  in model units; the caller's choice. It has to be larger than the extent of the
///              polygon: a segment that ends within the polygon counts one crossing too few.
/// @param tolerance  passed on to getNumberIntersections, which counts a hit on a vertex of the
///                   polygon once only where this is above 0
/// @return false for a polygon of fewer than two vertices
/// @note O(number of vertices), without allocation
ZRBASE_EXPORT bool vertexInsidePolygon(const VertexLine& polygon, const gdfVertex& p, double step,
                                       double tolerance);
/// The same, after a rejection of each vertex strictly outside a given extent, which is normally
/// that of the polygon (calculateMinMax); a vertex on the edge of the extent is looked at.
ZRBASE_EXPORT bool vertexInsidePolygon(const VertexLine& polygon, const gdfVertex& p, double step,
                                       double minX, double maxX, double minY, double maxY,
                                       double tolerance);

/// Moves each polygon that lies inside another one from `polygons` to `inner`.
///
/// A polygon lies inside another when every vertex of it lies in the extent of that one (closed)
/// and inside it by vertexInsidePolygon. Only vertices are looked at. The list is walked from its
/// last polygon to its first, and each polygon is compared with those that are still listed at that
/// moment: one nested two deep moves as well, one whose only container has moved before it stays.
/// A polygon without vertices lies inside any other.
/// @param polygons  those that stay keep their order
/// @param inner  appended to in the order of the walk, never cleared
/// @param step  as for vertexInsidePolygon, larger than the largest polygon
/// @return whether `inner` holds anything at the end: a list that was not empty gives true though
///         nothing moved
ZRBASE_EXPORT bool identifyInnerOuterPolygons(VertexLineList& polygons, VertexLineList& inner,
                                              double step, double tolerance);

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_POLYGONCONTAINMENT_H
