#ifndef ZRBASE_TOOLS3D_PLANEINTERSECTION_H
#define ZRBASE_TOOLS3D_PLANEINTERSECTION_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

/// Planes cut by segments, lines and polygons, in space.
///
/// A plane is an offset d and a normal n, the vertices v with n * v = d, or a vertex that lies on
/// it and a normal; the second form is the first with d = point * normal. The normal need not have
/// unit length: d and the tolerances scale with it. An output may be one of the inputs.
namespace zr3DTools {

/// Whether a vertex lies on a plane: v * normal - d within the tolerance of 0 (closed).
///
/// @param tolerance  distance times the length of the normal
constexpr bool vertexOnPlane(double d, const gdfVertex& normal, const gdfVertex& v,
                             double tolerance) {
  return gdfEqualZero(v * normal - d, tolerance);
}

/// Place where the closed segment from start to end passes through a plane.
///
/// A segment and its reverse give the same bits. No hit for a segment without length, for one that
/// runs parallel to the plane, even when it lies in it, and for one with both ends strictly on one
/// side. An end exactly on the plane is a hit there; an end that stops short of it is none,
/// however little is missing.
///
///            o end
///     ------/---------- n * v = d
///          o start
///
/// @param out  the hit; after a false untouched, or the rejected hit when that is not finite
/// @param tolerance  a segment is parallel when n * end - n * start lies within it (closed); it
/// widens nothing else
inline bool planeSegmentIntersect(double d, const gdfVertex& normal, const gdfVertex& start,
                                  const gdfVertex& end, gdfVertex& out, double tolerance) {
  if (start == end) return false;
  // As zr2DTools::sortVertices orders them, so that both directions round alike.
  const bool reversed = end < start;
  const gdfVertex& low = reversed ? end : start;
  const gdfVertex& high = reversed ? start : end;
  const double lowOffset = normal * low;
  const double highOffset = normal * high;
  const double difference = highOffset - lowOffset;
  // Kept on purpose (KeptSegmentInPlaneIsNoHit): parallel is tested before the sides, so that a
  // segment within the plane has no hit, nor has a short one that pierces it at a right angle. A
  // line that touches the plane with a whole segment is hit by that segment's neighbours.
  if (gdfEqualZero(difference, tolerance)) return false;
  // Kept on purpose (KeptEndJustOffThePlaneIsNoHit): no tolerance here. An end on the plane belongs
  // to both segments that meet there, one a hair off it to none but the segment that passes
  // through.
  // Kept on purpose (KeptUnderflowingSidesAreAHit): the sign of the product counts, not the two
  // signs; where it underflows to 0 the segment is extended to the plane.
  if ((d - highOffset) * (d - lowOffset) > 0.0) return false;
  const double t = (d - lowOffset) / difference;
  // Kept on purpose (KeptHitNotFiniteIsWritten): written before it is judged; callers may look at
  // the rejected place after a false.
  out = (high - low) * t + low;
  return out.valid();
}

/// The same for the plane through a point.
inline bool planeSegmentIntersect(const gdfVertex& point, const gdfVertex& normal,
                                  const gdfVertex& start, const gdfVertex& end, gdfVertex& out,
                                  double tolerance) {
  return planeSegmentIntersect(point * normal, normal, start, end, out, tolerance);
}

/// First place, in the line's order, where a line passes through a plane: planeSegmentIntersect on
/// one segment after the other. False for fewer than two vertices.
///
/// @param tolerance  that of planeSegmentIntersect, here and in all forms below
/// @param out  the hit; after a false untouched, or the last hit that was rejected as not finite
/// @param segment  number of the segment that is hit; untouched after a false
ZRBASE_EXPORT bool planeLineIntersect(double d, const gdfVertex& normal, const VertexLine& line,
                                      gdfVertex& out, int& segment, double tolerance);
/// The same without the number of the segment.
ZRBASE_EXPORT bool planeLineIntersect(double d, const gdfVertex& normal, const VertexLine& line,
                                      gdfVertex& out, double tolerance);
/// All places where a line passes through a plane, in the line's order.
///
/// A vertex exactly on the plane is hit by both its segments and stands in the list twice.
/// @param out  cleared first, also for a line of fewer than two vertices
/// @return whether there is any hit
ZRBASE_EXPORT bool planeLineIntersect(double d, const gdfVertex& normal, const VertexLine& line,
                                      VertexLine& out, double tolerance);

/// First hit, for the plane through a point.
ZRBASE_EXPORT bool planeLineIntersect(const gdfVertex& point, const gdfVertex& normal,
                                      const VertexLine& line, gdfVertex& out, int& segment,
                                      double tolerance);
/// First hit without the number of the segment, for the plane through a point.
ZRBASE_EXPORT bool planeLineIntersect(const gdfVertex& point, const gdfVertex& normal,
                                      const VertexLine& line, gdfVertex& out, double tolerance);
/// All hits, for the plane through a point.
ZRBASE_EXPORT bool planeLineIntersect(const gdfVertex& point, const gdfVertex& normal,
                                      const VertexLine& line, VertexLine& out, double tolerance);

/// Of all places where a line passes through a plane the one nearest to a reference, in space.
/// Among equal distances the lower-numbered segment stays. The places are those that
/// planeSegmentIntersect finds on each segment, with the same tolerance.
///
/// False for fewer than two vertices, and when no hit is nearer than 3.4028234663852886e+38. The
/// outputs are then untouched: unlike planeLineIntersect, this never writes a rejected hit.
/// @param segment  number of the segment that is hit
ZRBASE_EXPORT bool nearestPlaneLineIntersect(double d, const gdfVertex& normal,
                                             const gdfVertex& reference, const VertexLine& line,
                                             gdfVertex& out, int& segment, double tolerance);
/// As nearestPlaneLineIntersect, on a polygon: the segment that runs from the last vertex to the
/// first is tested too, after all others, and has the number n - 1 for n vertices.
///
/// A polygon whose last vertex equals its first is fine: its closing segment has no length.
ZRBASE_EXPORT bool nearestPlanePolygonIntersect(double d, const gdfVertex& normal,
                                                const gdfVertex& reference,
                                                const VertexLine& polygon, gdfVertex& out,
                                                int& segment, double tolerance);

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_PLANEINTERSECTION_H
