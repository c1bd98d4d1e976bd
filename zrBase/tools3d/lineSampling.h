#ifndef ZRBASE_TOOLS3D_LINESAMPLING_H
#define ZRBASE_TOOLS3D_LINESAMPLING_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

namespace zr3DTools {

/// Resamples a line at a fixed interval of its length in space.
///
/// The first vertex always comes over. Then, with `keepVertices` false, new vertices replace the
/// old ones at exact spacing, counted through the vertices:
///
///     0-----------------+------10       interval 3: x = 0, 3, 6, 9, and the end 10
///
/// but a sample that falls exactly on a vertex, as a whole further step within a segment, is left
/// out and the spacing starts anew there: (0, 0)-(10, 0) at interval 5 gives 0 and 5 alone.
///
/// With `keepVertices` true every vertex stays. A segment longer than 1.2999999523162842 intervals
/// is split: in halves when shorter than 2 intervals, else into as many equal pieces as whole
/// intervals fit into it.
///
/// At last the end of the line is looked after, in both modes. If `result` holds more than two
/// vertices, what it held before the call included, and the line's last vertex is not already its
/// last (each coordinate strictly within 1e-05), that vertex is appended when it lies farther from
/// the last but one of `result` than the last does. Without keepVertices, and into an empty
/// `result`, a line shorter than the interval therefore gives its first vertex alone.
/// @param result    appended to, not cleared. May be the line itself, whose vertices are then
///                  followed by the samples
/// @param interval  in model units. Zero, a negative value or a NaN gives false after the first
///                  vertex of a line of two or more
/// @return false for an empty line, with nothing appended; true for a line of one vertex, which is
///         appended whatever the interval; true otherwise
/// @note A single pass; memory grows with length / interval. Segments that could not be walked to
///       their end are not sampled: an infinite one, and without keepVertices one of 2^53 intervals
///       and more, where adding an interval to a distance along it no longer changes that distance.
///       The spacing starts anew behind it.
ZRBASE_EXPORT bool sampleLineFixedInterval(const VertexLine& line, VertexLine& result,
                                           double interval, bool keepVertices);

/// Resamples a line to about `ratio` times its number of vertices, by sampleLineFixedInterval.
///
/// The interval is the line's length over the whole part of (n - 2) ratio, plus 1. A ratio above 1
/// densifies the line. One below 1 thins it, and then the vertices of the line are given up
/// whatever `keepVertices` says.
/// @param result  appended to, not cleared. May be the line itself
/// @return false for a ratio of exactly 1.0, of 0 or below, and for an empty line, with nothing
///         appended; true for a line of one vertex, which is appended; otherwise as
///         sampleLineFixedInterval, so false after the first vertex for a line without length
ZRBASE_EXPORT bool sampleLineUsingRatio(const VertexLine& line, VertexLine& result, double ratio,
                                        bool keepVertices);

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_LINESAMPLING_H
