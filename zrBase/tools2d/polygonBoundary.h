#ifndef ZRBASE_TOOLS2D_POLYGONBOUNDARY_H
#define ZRBASE_TOOLS2D_POLYGONBOUNDARY_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

/// Polygons that are closed along a boundary, and boundaries that are merged into one ring. Ways
/// round a boundary are chosen by their number of vertices, not by their length.
namespace zr2DTools {

/// Closes an open polygon, whose ends stop short of a boundary or run over it, along that boundary.
///
/// Both end sides are carried on by one step, the length of the boundary in plan over its number of
/// vertices; the boundary segments that they meet (getSegmentSegmentIntersect) are the start and
/// the end segment. Of several the last one stays that is found up to the segment where both are
/// known. From the end of the polygon the boundary is then followed to its start, the way round
/// with fewer vertices; boundary vertices are appended, not the crossings, and the polygon's own
/// vertices stay. With a the number of the start segment, b that of the end segment plus one, and n
/// that of the boundary's vertices:
///
///     a = b                  a
///     a < b,  b - a < n / 2  b, b - 1, ..., a + 1
///     a < b,  else           b, ..., n - 1, 0, ..., a - 1
///     a > b,  a - b < n / 2  b, ..., a - 1
///     a > b,  else           b, b - 1, ..., 0      (and does not go on from n - 1)
///
/// Then removeDuplicateAdjacentVertices, and a copy of the first vertex if the last is not exactly
/// equal to it.
/// @param tolerance  of the crossings (closed) and of the removal (strict: 0 or less removes
/// nothing)
/// @return false, with the polygon untouched, when either line has fewer than five vertices, when
///         the polygon's ends are closer together in space than one step, or when an end meets no
///         boundary segment
/// @note O(vertices of both). The boundary may be the polygon itself.
ZRBASE_EXPORT bool completePolygon(const VertexLine& boundary, VertexLine& polygon,
                                   double tolerance);

/// Merges two boundaries that cross at least twice into one ring: the longest stretch of `first`
/// between two of its crossings, and an arc of `second`.
///
/// Each segment of `first` has one crossing at most, that with the lowest-numbered segment of
/// `second`. Pairs of segments with an end in common, exactly and in space, are passed over. The
/// stretches are measured in plan between the start vertices of the crossed segments of `first`;
/// the one past both ends of `first` goes first and stays among equals. The ring is the crossing,
/// the vertices after it up to the one before the last crossed segment's start (that start itself
/// is left out), and the other crossing; heights of crossings are those of `second`. The arc runs
/// between the segments s, at the start of the stretch, and e, at its end, the way round with more
/// vertices; with n the number of vertices of `second`:
///
///     s < e,   e - s > n / 2   e, e - 1, ..., s + 1
///     s < e,   else            e, ..., n - 1, 0, ..., s - 1
///     s >= e,  s - e > n / 2   e, ..., s - 1
///     s >= e,  else            s, ..., n - 1, 0, ..., e - 1   (from s, not from e)
///
/// Last removeDuplicateAdjacentVertices. The ring's first vertex is not repeated at its end.
/// @param result  replaced; left alone with fewer than two crossings. It may be one of the inputs.
/// @param tolerance  of the crossings (closed) and of the removal (strict: 0 or less removes
/// nothing)
/// @param touching  set to true when a pair of segments has an end in common, also where nothing is
///                  combined; never set to false: the caller presets it
/// @return the number of segments of `first` that are crossed; 0 when nothing was combined, and
///         also when the removal leaves a single vertex of the ring, which then stands in `result`
/// @note O(segments of first times segments of second). The fourth argument has no effect.
ZRBASE_EXPORT int combineBoundaries(const VertexLine& first, const VertexLine& second,
                                    VertexLine& result, double ignored, double tolerance,
                                    bool& touching);

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_POLYGONBOUNDARY_H
