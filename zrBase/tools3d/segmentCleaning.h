#ifndef ZRBASE_TOOLS3D_SEGMENTCLEANING_H
#define ZRBASE_TOOLS3D_SEGMENTCLEANING_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

/// What is done to lines and loose segments before they are fused: removal of what repeats other
/// vertices or segments.
///
/// A heap of segments is two lists of equal length: the entries at one index are the two ends of a
/// segment. Two vertices match when x, y and z each differ by strictly less than the tolerance
/// (gdfVertex::equal): a box, not a ball. With a tolerance of 0, or with a NaN or an infinity in a
/// vertex, nothing matches. Tolerances are in model units.
///
/// The functions on lines have namesakes in zr2DTools, which take no notice of heights.
namespace zr3DTools {

/// Adds the segment between two vertices to a heap, from its greater to its smaller vertex.
///
/// The order is that of gdfVertex::operator<: by x, then y, then z, without a tolerance. So a
/// segment and its reverse give the same entries. Where neither vertex is the greater, as for two
/// equal ones, nothing is added.
/// @param firstEnds, secondEnds  appended to; must not be one and the same list
ZRBASE_EXPORT void addSortedSegments(VertexLine& firstEnds, VertexLine& secondEnds,
                                     const gdfVertex& a, const gdfVertex& b);

/// Removes each vertex that matches the one just before it.
///
/// Neighbours are compared as they stand in the line that comes in, whether they stay or go: of a
/// run of vertices of which each matches its neighbour only the first stays, however far the run
/// drifts from it. The first vertex of the line always stays, the last one may go.
/// @return whether a vertex went; false for fewer than two vertices
/// @note O(n), in place.
ZRBASE_EXPORT bool removeDuplicateAdjacentVertices(VertexLine& line, double tolerance);

/// Removes each vertex that matches an earlier one anywhere in the line, as long as there are at
/// least two to remove.
///
/// A vertex is compared with those that stay only, so that the earliest of a cluster stays. The
/// order is kept. But when there is exactly one to remove, the first vertex of the line goes
/// instead of it, as in the map plane:
///
///     A, A', B, B'  becomes  A, B
///     A, B, C, B'   becomes  B, C, B'
///
/// @return whether a vertex went; false for fewer than two vertices
/// @note O(n log n), for as long as few vertices lie within the tolerance of each other in that of
///       x, y and z which the line extends furthest along.
ZRBASE_EXPORT bool removeDuplicateVertices(VertexLine& line, double tolerance);

/// Finds the segments that are of no length or repeat an earlier one, in either direction, and
/// removes from the heap the entry before each of them.
///
/// A segment is of no length when its ends match. One repeats another when their first ends and
/// their second ends match, or the first of each the second of the other. It is compared with those
/// that were not found so far, so that the earliest of a cluster is not found itself.
///
/// It is not the entry that was found that goes, but the one before it. With S' the reverse of S:
///
///     S, T, S'  becomes  S, S'
///     S, S', T  becomes  S', T
///
/// An entry before the first there is none: when only the first is of no length, all stay.
///
/// @param firstEnds, secondEnds  must not be one and the same list
/// @return whether an entry went; false, with the lists untouched, when they are empty or of
///         different lengths
/// @note O(n) on average, for as long as few segments have both ends in places with many others.
ZRBASE_EXPORT bool removeDuplicateSegments(VertexLine& firstEnds, VertexLine& secondEnds,
                                           double tolerance);

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_SEGMENTCLEANING_H
