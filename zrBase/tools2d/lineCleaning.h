#ifndef ZRBASE_TOOLS2D_LINECLEANING_H
#define ZRBASE_TOOLS2D_LINECLEANING_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

#include <vector>

/// Removal of vertices that repeat others, and thinning of a line where it runs straight.
///
/// A vertex repeats another when both x and y differ by strictly less than the tolerance
/// (gdfVertex::equalXY): a box, not a circle. Heights play no part, so that of two vertices above
/// one place of the map one goes. With a tolerance of 0, or with a NaN in x or y, nothing repeats
/// anything. Tolerances are in model units.
namespace zr2DTools {

/// Removes each vertex that repeats the one just before it.
///
/// Neighbours are compared as they stand in the line that comes in, whether they stay or go: of a
/// run of vertices of which each repeats its neighbour only the first stays, however far the run
/// drifts from it. The first vertex of the line always stays, the last one may go.
/// @return whether a vertex went; false for fewer than two vertices
/// @note O(n), in place.
ZRBASE_EXPORT bool removeDuplicateAdjacentVertices(VertexLine& line, double tolerance);

/// The same on a line that is given by indices: removes each index whose vertex repeats that of the
/// index just before it. `vertices` stays as it is.
/// @param indices  each from 0 to the number of vertices - 1, which is not tested
/// @return whether an index went; false for fewer than two indices
ZRBASE_EXPORT bool removeDuplicateAdjacentVertices(const VertexLine& vertices,
                                                   std::vector<int>& indices, double tolerance);

/// Removes each vertex that repeats an earlier one anywhere in the line, as long as there are at
/// least two to remove.
///
/// A vertex is compared with those that stay only, so that the earliest of a cluster stays, and
/// others of it may stay beside it where it is wider than the tolerance. The order is kept. But
/// when there is exactly one to remove, the first vertex of the line goes instead of it:
///
///     A, A', B, B'  becomes  A, B
///     A, B, C, B'   becomes  B, C, B'
///
/// To be rid of a single repetition, see removeDuplicateAdjacentVertices.
/// @return whether a vertex went; false for fewer than two vertices
/// @note O(n log n), for as long as few vertices lie within the tolerance of each other in x, or in
///       y, whichever of the two the line extends further along.
ZRBASE_EXPORT bool removeDuplicateVertices(VertexLine& line, double tolerance);

/// The vertices at which a line changes its direction, with its first and its last vertex.
///
/// Directions are those of zr2DTools::angle, in degrees. A vertex is listed when the segment that
/// starts at it has a direction strictly outside reference - margin to reference + margin. The
/// reference is the direction of the segment behind the vertex listed last, so that a line that
/// turns little by little is seen to turn. The margin is that percentage of the reference itself: a
/// line that runs towards azimuth 100 may turn ten times as far as one towards azimuth 10, and one
/// due south, for which `angle` gives 0, not at all. There is no wrap: from azimuth 359 to 1 is a
/// turn by 358 degrees.
///
/// @param result   appended to, never cleared; may be the line itself. A line of one vertex is
///                 listed once, an empty one adds nothing.
/// @param percent  of the reference; its sign does not matter
/// @return false when the whole of `result`, with what it held before, has as many vertices as the
///         line, and for an empty line; else true, so for a line of one vertex always
/// @note O(n).
ZRBASE_EXPORT bool downSampleLineUsingChangeInAngle(const VertexLine& line, VertexLine& result,
                                                    double percent);

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_LINECLEANING_H
