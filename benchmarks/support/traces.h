#ifndef ZRBASE_BENCHMARKS_SUPPORT_TRACES_H
#define ZRBASE_BENCHMARKS_SUPPORT_TRACES_H

#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <cstdint>
#include <vector>

/// The fault traces that the benchmarks work on, in metres, and lines made of them.
namespace traces {

struct Trace {
  std::int64_t record;  ///< row in the source of the example data; names the trace in benchmarks
  VertexLine line;
};

/// The traces of examples/data/long_traces.geojson, each projected equirectangularly about its own
/// centre. Ends the program with a message where the file cannot be read.
const std::vector<Trace>& longTraces();

/// The first vertices of a long trace. A count above the trace's own goes on along a copy of the
/// trace, moved so that it begins where the last one ended.
VertexLine firstVertices(std::int64_t record, std::size_t count);

struct Extent {
  gdfVertex low;
  gdfVertex high;
  double widthAndHeight() const { return high.x() - low.x() + high.y() - low.y(); }
  gdfVertex centre() const { return (low + high) * 0.5; }
};

Extent extentOf(const VertexLine& line);

/// The extent of a line, widened on all sides by half of its own width and height.
Extent modelExtent(const VertexLine& line);

/// A copy turned about the centre of the line's extent, anticlockwise.
VertexLine turned(const VertexLine& line, double degrees);

/// Regular zigzag from (0, 0), `width` to each tooth, up and down by `height`.
VertexLine zigzag(std::size_t count, double width, double height);

/// Half circle of a radius of 10000 with equal steps: all of its bisectors meet in one place.
VertexLine halfCircle(std::size_t count);

/// Vertices at random about a line, up to a tenth of its length away from its segments' middles:
/// the same ones at each call.
VertexLine placesAround(const VertexLine& line, std::size_t count);

}  // namespace traces

#endif  // ZRBASE_BENCHMARKS_SUPPORT_TRACES_H
