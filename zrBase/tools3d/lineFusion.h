#ifndef ZRBASE_TOOLS3D_LINEFUSION_H
#define ZRBASE_TOOLS3D_LINEFUSION_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

/// Loose segments and pieces of lines, joined end to end.
///
/// Two ends match when x, y and z each differ by strictly less than the tolerance
/// (gdfVertex::equal): a box, not a ball. With a tolerance of 0, or with a NaN or an infinity in an
/// end, nothing matches. Tolerances are in model units.
///
/// Where several pieces could go on, the one with the lowest index does: at a place where three or
/// more meet the order of the input decides which two go together, and what is left over begins a
/// chain of its own. Nothing is averaged or moved. An output may be one of the inputs, or one line
/// of it.
namespace zr3DTools {

/// Chains of segments, each as long as matching ends let it become.
///
/// A chain begins with the lowest segment that is left, from its first end to its second. It then
/// grows by the lowest segment left that matches either end of it, at its front or at its back, and
/// so on. With a and b the ends of that segment, the first of these that holds counts:
///
///     a matches the first vertex of the chain:  the farther of a and b goes to the front
///     a matches the last vertex:                the farther of a and b goes to the back
///     b matches the first vertex:               a goes to the front
///     b matches the last vertex:                a goes to the back
///
/// Farther is meant from the vertex of the chain, in space, and of equals it is a. Where both a and
/// b match the one end, the segment is used up and adds nothing. A vertex where segments meet
/// stands in the chain once, as it came in first. A closed chain ends with a vertex that matches
/// its first one, and what else touches it there goes to its front.
///
/// @param firstEnds   first end of each segment
/// @param secondEnds  its second end, at the same index
/// @param chains      appended to, never cleared; untouched after a false
/// @return false for no segments or for lists of different lengths, else true
/// @note O(n) on average, for as long as few ends lie within a few tolerances of each other; never
///       more than O(n^2).
ZRBASE_EXPORT bool fuseSegments(const VertexLine& firstEnds, const VertexLine& secondEnds,
                                VertexLineList& chains, double tolerance);

/// The same into one line, for segments that make more than one chain: the chains are joined by
/// their closest ends, as fuseLines(lines, line) does.
///
/// But when the segments make exactly one chain, the line stays as it is, and the result is true
/// all the same. For that chain call the form with a list.
///
/// @param line  appended to as fuseLines(lines, line) does, which may also reverse what it held
///              before; untouched after a false
/// @return false for no segments or for lists of different lengths, else true
ZRBASE_EXPORT bool fuseSegments(const VertexLine& firstEnds, const VertexLine& secondEnds,
                                VertexLine& line, double tolerance);

/// Chains of whole lines, each as long as matching ends let it become.
///
/// A chain begins with the lowest line that is left, as it is. It then grows by the lowest line
/// left that matches either end of it. With f and l the first and last vertices of that line, the
/// first of these that holds counts:
///
///     f matches the first vertex of the chain:  to the front; reversed if l is farther than f
///     f matches the last vertex:                to the back; reversed unless l is farther than f
///     l matches the first vertex:               to the front, as it is
///     l matches the last vertex:                to the back, reversed
///
/// Farther is meant from the vertex of the chain, in space, strictly. Where both f and l match the
/// one end, as those of a ring do, the line is used up and adds nothing. Unlike in fuseSegments
/// both vertices of a joint stay: see removeDuplicateAdjacentVertices. Empty lines are left out.
///
/// @param chains  appended to, never cleared
/// @return false, at once, for fewer than two lines; else whether `chains` holds anything, be it
///         from before
/// @note O(n) on average in the number of lines, as fuseSegments, plus the copying.
ZRBASE_EXPORT bool fuseLines(const VertexLineList& lines, VertexLineList& chains, double tolerance);

/// One line of all lines, however far apart they are: time after time the line with the end that is
/// closest to either end of what is there is joined at that end.
///
/// Distances are measured in space. Of equals the line with the lower index goes first, then its
/// first vertex before its last, then what is there by its first end before its last. A line that
/// is joined to the first end turns all that is there round, so that the new line comes last; a
/// line of a single vertex turns nothing and is put first or last. So the direction of the result
/// depends on the order of the joints. Both vertices of a joint stay, also where they are equal.
///
/// Empty lines are left out; where the first line and `line` are empty, the first line that is not
/// begins. A line that lies 1.8e19 model units (the square root of the sentinel for what is not
/// set) or more from both ends, or has no finite end, is left out, with all that only it could
/// bring within reach.
///
/// @param line  appended to, never cleared: what it held before is taken to run on into the first
///              of the lines, and turns round with it
/// @return whether `line` holds anything; false with `line` untouched when there are no lines
/// @note O(n log n) on average in the number of lines, plus the copying.
ZRBASE_EXPORT bool fuseLines(const VertexLineList& lines, VertexLine& line);

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_LINEFUSION_H
