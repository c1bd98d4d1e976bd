#ifndef ZRBASE_TOOLS2D_POLYGONREPAIR_H
#define ZRBASE_TOOLS2D_POLYGONREPAIR_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

/// Polygons that get a vertex where their sides cross, with themselves or with another polygon.
/// Both functions work in the x-y plane and change their polygons in place; neither sorts what it
/// inserts.
namespace zr2DTools {

/// Gives a ring that crosses itself a vertex at its crossings, and makes its closure exact.
///
/// First removeDuplicateAdjacentVertices. Then each side looks for the first later side, not its
/// neighbour, that it crosses exactly (getSegmentSegmentIntersect at a tolerance of 0; z of the
/// later side), and gets the crossing as a vertex if that is at least the tolerance away, in x or
/// in y, from the ends of both. The shortened side is then looked at again. Only the earlier one of
/// the two sides gets the vertex:
///
///     (0, 10)    (10, 10)
///        | \     / |
///        |  (5,5)  |         0 0, 10 10, 10 0, 0 10, 0 0  becomes
///        | /     \ |         0 0, 5 5, 10 10, 10 0, 0 10, 0 0
///     (0, 0)     (10, 0)
///
/// The first side is never compared with the last: they share a vertex in a closed ring, and in an
/// open one a crossing of the two goes unseen.
/// A side that meets a later one at an end of either looks no further. How far the search reaches
/// is settled by the number of vertices after the removal, n: sides that insertions push beyond it
/// are not looked at. Last, a last vertex that equals the first within the tolerance (strict, in x,
/// y and z) becomes an exact copy of it; an open ring stays open.
/// @return false for n below 3; also when a vertex is due while the polygon has more than 1.5 n:
///         the vertices inserted so far then stay, and the closure is as it was
/// @note O(n squared)
ZRBASE_EXPORT bool conditionPolygon(VertexLine& polygon, double tolerance);

/// Gives two polygons a vertex at each of their mutual crossings.
///
/// The sides are those between neighbouring vertices: a polygon that leaves its last side out has
/// none there. A crossing goes into a polygon if it is at least the tolerance away, in x or in y,
/// from both ends of the side there, and takes the height of that side; so the two polygons share
/// its x and y, not its z. A side of `second` is cut as soon as a crossing is found, so that the
/// next sides of `first` meet its parts; those of `first` are cut at the end. Several crossings on
/// one side of `first` stand in the order in which the sides of `second` run, wherever they lie
/// along the side.
/// @param tolerance  also that of the crossings (getSegmentSegmentIntersect). At 0 or below the
///         vertices of an earlier call count as new crossings and go in again, so that repeated
///         calls grow the polygons without end.
/// @return whether either polygon gained a vertex; false with no change when either has fewer than
///         two
/// @note O(vertices of first times those of second at the end)
ZRBASE_EXPORT bool tidyIntersectingPolygons(VertexLine& first, VertexLine& second,
                                            double tolerance);

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_POLYGONREPAIR_H
