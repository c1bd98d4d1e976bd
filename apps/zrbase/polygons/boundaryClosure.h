#ifndef ZRBASE_APPS_POLYGONS_BOUNDARYCLOSURE_H
#define ZRBASE_APPS_POLYGONS_BOUNDARYCLOSURE_H

#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <optional>
#include <vector>

/// A line that was closed along a boundary.
struct ClosedLine {
  VertexLine ring;                   ///< its last vertex repeats the first
  std::size_t boundaryVertices = 0;  ///< how many of them are the boundary's
};

/// A boundary along which lines are closed by zr2DTools::completePolygon.
///
/// That function measures the way round the boundary in vertices, joins it to within a side, and
/// reaches for it by one mean side. So it is given the boundary with its sides divided, and the
/// corners that it passed are then put behind the line's own vertices: the way is the shorter one
/// in metres, and the ring has no other vertices than those of both.
class Boundary {
 public:
  /// @param ring  closed
  /// @param reach  the longest side after the division, above 0
  Boundary(const VertexLine& ring, double reach, double tolerance);

  /// Closes an open line; nothing if an end does not reach the boundary, or both ends are closer to
  /// each other than reach().
  std::optional<ClosedLine> close(const VertexLine& line) const;

  /// How far short of the boundary an end may stop: the mean divided side.
  double reach() const;

 private:
  struct Attempt {
    std::vector<std::size_t> corners;  ///< of the boundary, in the order from the line's end
    double gap = 0.0;                  ///< from the last place on the boundary to the line's start
  };
  std::optional<Attempt> attempt(VertexLine flat) const;

  VertexLine corners_;
  VertexLine divided_;  ///< z tells the corner, see kFirstCorner; below it for a place between
  double longestSide_ = 0.0;
  double tolerance_;
};

/// Length of a boundary's side that is fine enough for most: a thousandth of its length.
double defaultReach(const VertexLine& boundary);

#endif  // ZRBASE_APPS_POLYGONS_BOUNDARYCLOSURE_H
