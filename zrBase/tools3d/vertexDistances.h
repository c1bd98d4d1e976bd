#ifndef ZRBASE_TOOLS3D_VERTEXDISTANCES_H
#define ZRBASE_TOOLS3D_VERTEXDISTANCES_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

#include <algorithm>

namespace zr3DTools {

/// Distance in space of a vertex from the infinite line through a and b; never negative.
///
/// A vertex beyond an end of the segment is measured to the line's continuation:
/// getMinimumDistanceToSegment is the one that stops at the ends. When a and b lie within 1e-05 of
/// each other (their distance, closed) the line has no direction, and the result is the distance of
/// p from a.
///
///             p
///             |        <- result
///      a---b  +  . . . the foot may lie outside the segment
///
inline double getPerpendicularDistance(const gdfVertex& a, const gdfVertex& b, const gdfVertex& p) {
  gdfVertex direction = b - a;
  direction.normalise();
  // Kept on purpose (KeptPerpendicularFootIsNotClamped): the foot may lie beyond either end. The
  // heights of bisectors over a template segment are taken this way, also for vertices beside it.
  const double along = (p - a) * direction;
  return (a + direction * along - p).length();
}

/// Distance in space of a vertex from the segment between start and end, both included.
///
/// A foot of the perpendicular on the segment gives the perpendicular distance, otherwise the
/// nearer end counts. NaN for a segment whose ends are equal. zr2DTools has the same function in
/// the map plane.
inline double getMinimumDistanceToSegment(const gdfVertex& start, const gdfVertex& end,
                                          const gdfVertex& p) {
  if ((start - end) * (start - p) >= 0.0 && (end - start) * (end - p) >= 0.0) {
    // Kept on purpose (KeptNoLengthInSpaceGivesNaN): equal ends pass both tests and give 0 / 0,
    // also for p on the very spot. The search along a line passes over such a segment because a NaN
    // is never smaller.
    return ((end - start) ^ (p - end)).length() / (end - start).length();
  }
  return std::min((start - p).length(), (end - p).length());
}

/// Smallest getMinimumDistanceToSegment over the segments of a line; segments without length are
/// passed over.
///
/// 3.4028234663852886e+38 when no segment counts: for fewer than two vertices, and for a line whose
/// vertices are all equal.
ZRBASE_EXPORT double getMinimumDistanceToLine(const VertexLine& line, const gdfVertex& p);

/// Largest getPerpendicularDistance over the segments of a line: how far the vertex is from the
/// farthest of the infinite lines through them. 0.0 for fewer than two vertices.
ZRBASE_EXPORT double getMaximumPerpendicularDistance(const VertexLine& line, const gdfVertex& p);

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_VERTEXDISTANCES_H
