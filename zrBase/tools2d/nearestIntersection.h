#ifndef ZRBASE_TOOLS2D_NEARESTINTERSECTION_H
#define ZRBASE_TOOLS2D_NEARESTINTERSECTION_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

/// Of all crossings of a line with a segment, vector, bivector or other line the one nearest to a
/// reference, or farthest from it. Crossings are solved in the x-y plane; the distance that selects
/// is the one in space, z included, with the height that the crossing takes. Among equal distances
/// the lower-numbered segment stays.
///
/// Distances are compared, strictly, with a start value of 3.4028234663852886e38, or its negative
/// for the farthest: a crossing that is not nearer than that, or whose distance is a NaN, is none.
/// Without a crossing, and for a line of fewer than two vertices, the result is false and the
/// outputs are untouched. Candidates that are rejected never reach an output. An output may be one
/// of the inputs. The two functions on a bivector depart from all this.
namespace zr2DTools {

/// Crossing of a line with the segment s-e that is nearest to a reference:
/// getSegmentSegmentIntersect(L[i], L[i+1], s, e), heights from s-e.
/// @param index  number of the segment that is crossed; untouched after a false
ZRBASE_EXPORT bool getNearestLineSegmentIntersect(const VertexLine& line, const gdfVertex& s,
                                                  const gdfVertex& e, const gdfVertex& reference,
                                                  gdfVertex& out, int& index, double tolerance);
/// The same without the number of the segment.
ZRBASE_EXPORT bool getNearestLineSegmentIntersect(const VertexLine& line, const gdfVertex& s,
                                                  const gdfVertex& e, const gdfVertex& reference,
                                                  gdfVertex& out, double tolerance);
/// Crossing of a line with the segment s-e that is farthest from a reference.
ZRBASE_EXPORT bool getFarthestLineSegmentIntersect(const VertexLine& line, const gdfVertex& s,
                                                   const gdfVertex& e, const gdfVertex& reference,
                                                   gdfVertex& out, double tolerance);

/// Crossing of two lines that is nearest to a reference: getSegmentSegmentIntersect(A[i], A[i+1],
/// B[j], B[j+1]), heights from `b`. Among equal distances the smallest i stays, then the smallest
/// j.
ZRBASE_EXPORT bool getNearestLineLineIntersect(const VertexLine& a, const VertexLine& b,
                                               const gdfVertex& reference, gdfVertex& out,
                                               double tolerance);
/// Crossing of two lines that is farthest from a reference, in the same order.
ZRBASE_EXPORT bool getFarthestLineLineIntersect(const VertexLine& a, const VertexLine& b,
                                                const gdfVertex& reference, gdfVertex& out,
                                                double tolerance);

/// Crossing of a vector with a line that is nearest to the vector's origin:
/// getVectorSegmentIntersect(o, d, L[i], L[i+1]), heights from the origin.
ZRBASE_EXPORT bool getNearestVectorLineIntersect(const gdfVertex& origin,
                                                 const gdfVertex& direction, const VertexLine& line,
                                                 gdfVertex& out, double tolerance);
/// Crossing of the infinite line along a vector with a line that is farthest from the vector's
/// origin, behind the origin too: getBiVectorSegmentIntersect(o, d, L[i], L[i+1]).
///
/// An origin that equals the start of a segment exactly counts as a hit there but gives no
/// crossing: taken in its place is the crossing found last, or a candidate rejected since, or (0,
/// 0, 0) when there was neither.
ZRBASE_EXPORT bool getFarthestVectorLineIntersect(const gdfVertex& origin,
                                                  const gdfVertex& direction,
                                                  const VertexLine& line, gdfVertex& out,
                                                  double tolerance);

/// Last crossing, in line order, of a bivector with a line, not the nearest:
/// getBiVectorSegmentIntersect(o, d, L[i], L[i+1]), with what getFarthestVectorLineIntersect tells
/// of an origin at the start of a segment.
/// @param out  the crossing; untouched when there is none. A caller that has to know presets it.
/// @return false in all cases
ZRBASE_EXPORT bool getNearestBiVectorLineIntersect(const gdfVertex& origin,
                                                   const gdfVertex& direction,
                                                   const VertexLine& line, gdfVertex& out,
                                                   double tolerance);
/// As getNearestBiVectorLineIntersect: the last crossing in line order, and false in all cases.
ZRBASE_EXPORT bool getFarthestBiVectorLineIntersect(const gdfVertex& origin,
                                                    const gdfVertex& direction,
                                                    const VertexLine& line, gdfVertex& out,
                                                    double tolerance);

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_NEARESTINTERSECTION_H
