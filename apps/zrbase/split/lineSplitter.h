#ifndef ZRBASE_APPS_SPLIT_LINESPLITTER_H
#define ZRBASE_APPS_SPLIT_LINESPLITTER_H

#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <vector>

#include "common/modelSystem.h"
#include "common/vectorInput.h"

/// What a line was cut into, in its direction; one piece where nothing crosses it.
struct SplitLine {
  VertexLineList pieces;
  std::size_t crossings = 0;  ///< places where it was cut
};

/// Cuts lines at their crossings with a set of others, in the x-y plane.
///
/// The crossings are those of zr2DTools::getSegmentSegmentIntersect, heights from the line that is
/// cut. They are sorted along the line, and nothing of it is lost:
///
/// - A crossing within the tolerance of a vertex cuts at that vertex; several crossings within the
///   tolerance of each other are one cut. At the line's own first and last vertex there is nothing
///   to cut.
/// - Segments that run along each other do not cross.
/// - A splitter with exactly the vertices of the line is passed over, so that lines can be cut by
///   the file they are in.
class LineSplitter {
 public:
  /// @param splitters  are referred to, not copied
  /// @param tolerance  in model units; a place is never told apart closer than 1e-5
  LineSplitter(const std::vector<InputLine>& splitters, double tolerance);

  SplitLine split(const VertexLine& line) const;

 private:
  struct Splitter {
    const VertexLine* line;
    Extent extent;
  };

  std::vector<Splitter> splitters_;
  double tolerance_;
  double samePlace_;
};

#endif  // ZRBASE_APPS_SPLIT_LINESPLITTER_H
