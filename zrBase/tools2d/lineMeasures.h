#ifndef ZRBASE_TOOLS2D_LINEMEASURES_H
#define ZRBASE_TOOLS2D_LINEMEASURES_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

/// Length, extent and distances of whole lines in the x-y plane. Heights play no part in any of
/// them; the functions of the same names in zr3DTools measure in space. All results are in model
/// units.
namespace zr2DTools {

/// Length of a line: the sum of the lengths of its segments, in line order. 0.0 for fewer than two
/// vertices.
ZRBASE_EXPORT double calcLength(const VertexLine& line);

/// Length of a stretch of a line, from vertex `first` to vertex `last`: segments first to last - 1.
///
/// 0.0 for a stretch that is empty, turned round or reaches past the line (first >= last, first <
/// 0, last >= number of vertices), and for a line of fewer than two vertices. A stretch is never
/// cut to fit.
ZRBASE_EXPORT double calcLength(const VertexLine& line, int first, int last);

/// Extent of a line in x and in y. Starts from the first vertex: a NaN there stays, a later one is
/// passed over.
/// @return false, with all four outputs untouched, for an empty line; else true
ZRBASE_EXPORT bool calculateMinMax(const VertexLine& line, double& minX, double& maxX, double& minY,
                                   double& maxY);

/// Distance of a vertex from a closed segment, ends included: to the foot of the perpendicular
/// where that lies on the segment, else to the nearer end. Unlike getDistanceFromVertexToSegment it
/// stops at the ends.
/// @return a NaN for a segment whose ends are equal in x and y
ZRBASE_EXPORT double getMinimumDistanceToSegment(const gdfVertex& start, const gdfVertex& end,
                                                 const gdfVertex& p);

/// Smallest getMinimumDistanceToSegment over the segments of a line. Segments without length are
/// passed over.
/// @return 3.4028234663852886e38, the mark of a distance that is not set, when there is no segment
///         that has a length, and so for a line of one vertex, however near the vertex is
ZRBASE_EXPORT double getMinimumDistanceToLine(const VertexLine& line, const gdfVertex& p);

/// Always false; writes nothing. The entry is there for the callers that link against it.
ZRBASE_EXPORT bool getDownSampleAngle(const VertexLine& line, int, double& angle);

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_LINEMEASURES_H
