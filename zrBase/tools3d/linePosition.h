#ifndef ZRBASE_TOOLS3D_LINEPOSITION_H
#define ZRBASE_TOOLS3D_LINEPOSITION_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools3d/endSpecifier.h>

namespace zr3DTools {

/// Signed position of a vertex on a line, its origin at the chosen end.
///
/// From the first end the distance grows along the line and is negative only before the start. From
/// the last end it is negative everywhere but beyond the end:
///
///                  before     on the line     beyond
///                     p   0-------p-------n   p
///      FirstEnd      < 0         > 0         > L       L: length of the line
///      LastEnd      < -L         < 0         > 0
///
/// The segment is that of zr2DTools::getLineSegmentContaining, which tests in three dimensions. The
/// position is the straight distance of p from the segment's vertex on the side of the chosen end,
/// plus the whole segments between that vertex and the end; a vertex beside the line is thus
/// farther along than its foot. Before the start and beyond the end it is the straight distance
/// from that end, to which the length of the line is added where the chosen end is the other one.
/// @param distance     out, in model units. Untouched after a false; untouched too for a vertex on
///                     the line when `end` is neither of the two enumerators (such a value adds no
///                     length outside the line)
/// @param allowBeforeStart  whether a vertex before the first is accepted
/// @param allowBeyondEnd    whether a vertex beyond the last is accepted; without effect on a line
///                          of two vertices, which never accepts one
/// @param maxDistance  distances from the segment's infinite line must stay strictly below this
/// @return false for fewer than two vertices, and when no segment takes p
ZRBASE_EXPORT bool getSignedDistanceFromLineEndpoint(const VertexLine& line, const gdfVertex& p,
                                                     EndSpecifier end, double& distance,
                                                     bool allowBeforeStart, bool allowBeyondEnd,
                                                     double maxDistance);

/// How far along a line the z of a vertex is reached. Despite its name this works by height, for
/// lines whose z falls along their length, such as well paths and fault sticks.
///
/// A place matches where a vertex after the first has exactly the z of p, or where a segment falls
/// strictly through it. A segment that rises through it is not matched. Of several places the one
/// closest to p in the map wins, by the sum of the offsets in x and y, the first on a tie; mind
/// that a place inside a segment is judged by the segment's far end, yet the places after it are
/// held against its own offset.
/// @param length   out: the length up to the match; inside a segment its last part is the straight
///                 distance from the segment's start to p itself, so p should lie on the line. 0
///                 when p equals the first vertex exactly. Untouched after a false
/// @param segment  out: the number of the vertex at the end of the matching segment, 1 to n - 1.
///                 Untouched when p equals the first vertex
/// @param ratio    out: the last part of `length` over the length of the segment;
///                 3.4028234663852886e+38 for a match at a vertex. Untouched when p equals the
///                 first vertex
/// @return false for fewer than two vertices and when no place matches, with the outputs untouched;
/// a
///         match as far away in x as an unset value counts as none, but leaves segment and ratio
///         written
ZRBASE_EXPORT bool lengthAlongLine(const VertexLine& line, const gdfVertex& p, double& length,
                                   int& segment, double& ratio);

/// The point at a distance along a line, measured from its first vertex.
///
/// A distance below 0 extrapolates backwards along the first segment (not a number if that segment
/// has no length). A distance past the end by no more than 0.001, that bound included, gives the
/// last vertex.
/// @param vertex   out: x, y and z interpolated. Untouched after a false
/// @param segment  out: the segment of the point, 0 to n - 2; a vertex belongs to the segment that
///                 ends in it. n - 1 for a distance past the end, which is no segment of the line.
///                 Untouched after a false
/// @return false for fewer than two vertices, for a distance farther past the end, and for a NaN
ZRBASE_EXPORT bool vertexAtDistanceAlongLine(const VertexLine& line, double distance,
                                             gdfVertex& vertex, int& segment);

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_LINEPOSITION_H
