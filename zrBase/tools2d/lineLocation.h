#ifndef ZRBASE_TOOLS2D_LINELOCATION_H
#define ZRBASE_TOOLS2D_LINELOCATION_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>
#include <zrBase/tools2d/side.h>

/// Where a vertex lies against a whole line: beside which segment, on which side, how far along;
/// and how often a segment crosses a ring.
namespace zr2DTools {

/// Side of a vertex against a whole line: getSideOfSegment on the segment that
/// getLineSegmentContaining finds, with both ends open and no limit to the distance. Before the
/// start the first segment decides, beyond the end the last.
///
/// @return sideNone for a line of fewer than two vertices, and for a vertex that lies in no
///         segment's sector. On a line of just two vertices that is every vertex beyond the end,
///         though not one before the start.
ZRBASE_EXPORT zre::side getSideOfLine(const VertexLine& line, const gdfVertex& p, double tolerance);

/// The segment that a vertex belongs to: among those in whose sector it lies, the one to whose
/// infinite line it is closest; among equally close ones the first.
///
/// The sector of a segment lies between a plane at its start and one at its end. At the two ends of
/// the line the plane stands square to the segment, and bounds it only if the flag for that end is
/// not set; at the vertices between, it is a mitre, whose normal is the sum of the two unit vectors
/// that run back along the segments that meet. But from the second interior vertex on, the plane
/// takes the normal of the vertex before:
///
///     plane stands at vertex       0             1    2    3    ...   n - 2    n - 1
///     normal made at vertex    (segment 0)       1    1    2    ...   n - 3    (segment n - 2)
///
/// On strongly bent lines this decides which segment wins. All products and distances are in space,
/// z included. A sector is closed. A segment whose ends are exactly equal has no sector, but a
/// vertex that equals them is its own, whatever was found before it. Where it is the first segment
/// of the line, nothing bounds the sectors at the start, and -1 is not given; where it is the last,
/// and on a line of two vertices, `allowBeyondEnd` has no effect: nothing is found beyond the end.
/// Beside it a mitre is square to the one segment that has a direction.
///
/// @param index  the number of the segment; -1 for a vertex before the start and n - 1 for one
///               beyond the end, of a line of n vertices, where the flags allow them; -2 after a
///               false. Untouched for fewer than two vertices.
/// @param maxDistance  in model units; only lines strictly closer than this count, so that 0 finds
///               nothing but a segment without length
/// @return whether there is such a segment
/// @note O(n), without allocation.
ZRBASE_EXPORT bool getLineSegmentContaining(const VertexLine& line, const gdfVertex& p, int& index,
                                            bool allowBeforeStart, bool allowBeyondEnd,
                                            double maxDistance);

/// Projects a vertex on a line and measures along it from the start, in the x-y plane.
///
/// A vertex that equals vertices of the line in x and y exactly takes the last of these. Any other
/// is projected on each segment by nearestPointOnLine with the tolerance 0, so that it must lie no
/// farther from a segment than that is long; of the segments with a foot, that one is taken whose
/// foot is least far from its own start, the first among equals. This need not be the segment
/// nearest to the vertex.
///
/// With `extend` a vertex without a foot is projected on the first segment carried on straight
/// before the start, and then on the last carried on beyond the end, each by 10000 times the length
/// of that segment.
///
/// @param length  the length along the line in model units, negative before the start; 0 after a -1
/// @return the number of the vertex or segment; 0 also before the start; -1 when there is no
///         projection; -2 beyond the end. A line of fewer than two vertices that has no equal
///         vertex gives -1.
ZRBASE_EXPORT int lengthAlong2D(const VertexLine& line, const gdfVertex& p, double& length,
                                bool extend);

/// How many distinct crossings the segment a-b has with a line taken as a ring, in the x-y plane:
/// getSegmentSegmentIntersect(a, b, L[i], L[i+1]).
///
/// A line whose first and last vertices are not exactly equal is completed by the segment from the
/// last to the first. Crossings are compared in space, with the heights of the line. Along the line
/// one that repeats the one counted last, each coordinate strictly within the tolerance, is not
/// counted again, such as one through a shared vertex; so with a tolerance of 0 each counts. On the
/// last segment of a closed line one that repeats the very first is not counted either. On the
/// segment that completes an open line only the exact repetition of the one counted last is left
/// out, so a crossing through the first vertex of an open line counts twice when another was
/// counted in between.
/// @return 0 for a line of fewer than two vertices
ZRBASE_EXPORT int getNumberIntersections(const VertexLine& line, const gdfVertex& a,
                                         const gdfVertex& b, double tolerance);

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_LINELOCATION_H
