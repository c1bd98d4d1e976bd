#ifndef ZRBASE_TOOLS3D_LINEMEASURES3D_H
#define ZRBASE_TOOLS3D_LINEMEASURES3D_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

namespace zr3DTools {

/// Length of a line in space: the sum of its segments' lengths, from the first to the last. 0.0 for
/// fewer than two vertices.
ZRBASE_EXPORT double calcLength(const VertexLine& line);

/// Length of a line from vertex `first` to vertex `last`: the segments first to last - 1.
///
/// 0.0 when the line has fewer than two vertices, when first is negative, when first is not below
/// last, and when last is no vertex of the line: the range is not clipped.
/// calcLength(line, 0, n - 1) equals calcLength(line).
ZRBASE_EXPORT double calcLength(const VertexLine& line, int first, int last);

/// Arithmetic mean of the vertices, each counted once whatever the lengths of its segments; the
/// closing vertex of a polygon counts as well. (0, 0, 0) for an empty line.
ZRBASE_EXPORT gdfVertex calcAverageVertex(const VertexLine& line);

/// The point half way along a line, by vertexAtDistanceAlongLine at half of calcLength.
///
/// (0, 0, 0) for an empty line, the vertex itself for a line of one. (0, 0, 0) too for a line whose
/// length is a NaN.
ZRBASE_EXPORT gdfVertex calcMidVertex(const VertexLine& line);

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_LINEMEASURES3D_H
