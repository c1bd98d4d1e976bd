#ifndef ZRBASE_TOOLS2D_LINESPLITTING_H
#define ZRBASE_TOOLS2D_LINESPLITTING_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

/// Cutting of lines by lines, in the x-y plane.
namespace zr2DTools {

/// Cuts a line into pieces where another line crosses it.
///
/// The cuts are the hits of getSegmentSegmentIntersect(L[i], L[i+1], S[j], S[j+1]), by the segments
/// of the line and for each by those of the splitter. Several cuts of one segment thus come in the
/// order of the splitter, and the pieces between them may run back and forth.
///
/// - A hit in the square of 0.009999999776482582 (0.01 in single precision) about the start of its
///   segment, borders included, is no cut, whatever the tolerance is. A crossing at a vertex is so
///   cut once, by the segment that ends there; one at the first vertex of the line is lost.
/// - A hit that lies less than 1e-05 from the cut before it, in x and in y, is no second cut. Cuts
///   farther back are not compared.
/// - A cut takes its height from the line, linear by map distance along the segment, and never from
///   the splitter.
///
/// A piece runs from the cut before it, or from the start of the line, over the vertices between to
/// its own cut. A cut that equals the neighbouring vertex exactly, z included, is not doubled, and
/// a piece that would have fewer than two vertices is left out; the piece after one left out starts
/// at the line's next vertex. The last piece runs from the last cut to the end of the line, but
/// there is none when that cut lies on the last segment: that end is lost. With a single cut there
/// are no pieces at all:
///
///     line        o-----------o------------------o------------o
///     cuts             x                x
///     pieces      <---->
///                      <------o--------->
///                                       <--------o------------>
///
/// @param pieces     appended to, never cleared; may be the list that holds one of the lines
/// @param tolerance  of getSegmentSegmentIntersect, in model units; closed
/// @return whether there was a cut: true for a single one, although `pieces` stays as it was. False
///         for fewer than two vertices in either line.
/// @note O(number of segments of the line times that of the splitter), where most pairs end at a
///       test of their boxes.
ZRBASE_EXPORT bool fastSplitLineWithLine(const VertexLine& line, const VertexLine& splitter,
                                         VertexLineList& pieces, double tolerance);

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_LINESPLITTING_H
