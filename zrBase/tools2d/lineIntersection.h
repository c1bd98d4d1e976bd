#ifndef ZRBASE_TOOLS2D_LINEINTERSECTION_H
#define ZRBASE_TOOLS2D_LINEINTERSECTION_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/nearestIntersection.h>

/// Crossings of a whole line with a segment, a vector (ray), a bivector (infinite line) or another
/// line, in the x-y plane: the first one, or all of them. The nearest and farthest ones are in
/// nearestIntersection.h.
///
/// Each function takes the segments in line order and asks one function of segmentIntersection.h or
/// vectorIntersection.h about each, named below with the order of its arguments, for that order
/// decides whose height a crossing takes. The tolerance is passed on as it is and means what it
/// means there. A line of fewer than two vertices has no segment: the result is false and the
/// outputs stay as they were, but for a list that is told to be cleared. A crossing at a vertex
/// that two segments share is met on both, and so is listed twice. An output may be one of the
/// inputs. All scans are linear, or doubly nested for two lines.
namespace zr2DTools {

/// First crossing of a line with the segment s-e: getSegmentSegmentIntersect(L[i], L[i+1], s, e),
/// heights from s-e.
/// @param out    the crossing; untouched after a false
/// @param index  number of the segment that is crossed; untouched after a false
ZRBASE_EXPORT bool getLineSegmentIntersect(const VertexLine& line, const gdfVertex& s,
                                           const gdfVertex& e, gdfVertex& out, int& index,
                                           double tolerance);
/// The same without the number of the segment.
ZRBASE_EXPORT bool getLineSegmentIntersect(const VertexLine& line, const gdfVertex& s,
                                           const gdfVertex& e, gdfVertex& out, double tolerance);
/// All crossings of a line with the segment s-e, in line order.
/// @param out  appended to, never cleared, unlike the lists of the functions below
/// @return whether `out` holds anything at the end: a list that was not empty gives true without a
///         crossing. False for a line of fewer than two vertices, whatever the list holds.
ZRBASE_EXPORT bool getLineSegmentIntersect(const VertexLine& line, const gdfVertex& s,
                                           const gdfVertex& e, VertexLine& out, double tolerance);

/// First crossing of two lines, by the segments of `a` and then those of `b`:
/// getSegmentSegmentIntersect(A[i], A[i+1], B[j], B[j+1]), heights from `b`.
/// @param out  the crossing; untouched after a false
/// @note O(number of segments of a times that of b), as all functions on two lines
ZRBASE_EXPORT bool getLineLineIntersect(const VertexLine& a, const VertexLine& b, gdfVertex& out,
                                        double tolerance);
/// All crossings of two lines, in the same order.
/// @param out  cleared first, also when a line has fewer than two vertices
/// @return whether there is any
ZRBASE_EXPORT bool getLineLineIntersect(const VertexLine& a, const VertexLine& b, VertexLine& out,
                                        double tolerance);

/// First crossing, in line order, of a vector with a line: getVectorSegmentIntersect(o, d, L[i],
/// L[i+1]). It need not be the nearest one: see getNearestVectorLineIntersect.
/// @param out  the crossing, with the height of the origin; after a false it may hold the last
///             candidate that was rejected
ZRBASE_EXPORT bool getVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                                          const VertexLine& line, gdfVertex& out, double tolerance);
/// All crossings of a vector with a line, in line order.
/// @param out  cleared first, also when the line has fewer than two vertices
/// @return whether there is any
ZRBASE_EXPORT bool getVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                                          const VertexLine& line, VertexLine& out,
                                          double tolerance);

/// First crossing, in line order, of a bivector with a line: getBiVectorSegmentIntersect(o, d,
/// L[i], L[i+1]).
///
/// An origin that equals the start of a segment exactly counts as a hit there but gives no
/// crossing: `out` then holds what it held before, or the last candidate that was rejected.
/// @param out  the crossing, with the height of the origin; after a false it may hold the last
///             candidate that was rejected
ZRBASE_EXPORT bool getBiVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                                            const VertexLine& line, gdfVertex& out,
                                            double tolerance);
/// All crossings of a bivector with a line, in line order.
///
/// An origin that equals the start of a segment exactly counts as a hit there but gives no
/// crossing: what is listed is the crossing found last, or a candidate rejected since, or (0, 0, 0)
/// when there was neither.
/// @param out  cleared first, also when the line has fewer than two vertices
/// @return whether there is any
ZRBASE_EXPORT bool getBiVectorLineIntersect(const gdfVertex& origin, const gdfVertex& direction,
                                            const VertexLine& line, VertexLine& out,
                                            double tolerance);

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_LINEINTERSECTION_H
