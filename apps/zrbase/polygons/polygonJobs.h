#ifndef ZRBASE_APPS_POLYGONS_POLYGONJOBS_H
#define ZRBASE_APPS_POLYGONS_POLYGONJOBS_H

#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "common/vectorInput.h"
#include "polygons/ringNesting.h"

/// @file
/// The three jobs on polygons and closed lines. A feature that one cannot use is reported as bad.

/// Rings and where each stands among the others.
struct NestedRings {
  std::vector<InputLine> rings;
  std::vector<RingPlace> places;  ///< one for each ring
};

/// A polygon that was conditioned.
struct ConditionedPolygon {
  InputLine source;  ///< its outer ring, conditioned
  VertexLineList holes;
  std::size_t removed = 0;        ///< vertices that repeated the one before them
  std::size_t nodes = 0;          ///< vertices put in where a ring crosses itself
  std::size_t crossingsLeft = 0;  ///< where it still does without a vertex
};

/// A line that was closed.
struct CompletedLine {
  InputLine source;                   ///< closed
  std::optional<InputLine> boundary;  ///< the one it was closed along; none if it was closed before
  std::size_t added = 0;              ///< vertices of the boundary
};

/// Orders rings into outer and inner ones; a line whose ends lie within the tolerance is a ring.
NestedRings nestInput(const std::vector<InputLine>& lines, double tolerance, BadFeatures& bad);

/// zr2DTools::conditionPolygon on each ring, both ways round, as long as it finds crossings; the
/// rings of a polygon stay together. A side that crosses several others may keep crossings, which
/// are counted. A tolerance below 1e-5 counts as that.
std::vector<ConditionedPolygon> conditionInput(const std::vector<InputLine>& lines,
                                               double tolerance, BadFeatures& bad);

/// Closes each line along the first of the boundaries that both of its ends reach.
/// @param boundaries  closed
/// @param reach  how far short an end may stop; none for the default of each boundary
std::vector<CompletedLine> completeInput(const std::vector<InputLine>& lines,
                                         const std::vector<InputLine>& boundaries,
                                         std::optional<double> reach, double tolerance,
                                         BadFeatures& bad);

/// Area of a ring in plan, whichever way it turns.
double ringArea(const VertexLine& ring);

/// How many pairs of sides cross away from all of their vertices, by more than the tolerance.
std::size_t selfCrossings(const VertexLine& ring, double tolerance);

#endif  // ZRBASE_APPS_POLYGONS_POLYGONJOBS_H
