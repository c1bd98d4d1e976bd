#ifndef ZRBASE_TOOLS2D_ZR2DTOOLS_H
#define ZRBASE_TOOLS2D_ZR2DTOOLS_H

/// @file
/// Free functions on vertices, lines and polygons in the map plane. The names of shapes in function
/// names:
///
/// | Word     | What it is                                                  | Given by            |
/// |----------|-------------------------------------------------------------|---------------------|
/// | Segment  | the closed stretch between two vertices, both ends included | start, end          |
/// | Vector   | a ray: a half-line from an origin, origin included          | origin, direction   |
/// | BiVector | an infinite line through an origin                          | origin, direction   |
/// | Line     | a polyline                                                  | VertexLine          |
///
/// Crossings are solved in x and y; each function tells whose z a crossing takes. Distances and
/// equality stay in three dimensions where a function says so.

#include <zrBase/tools2d/lineCleaning.h>
#include <zrBase/tools2d/lineIntersection.h>
#include <zrBase/tools2d/lineLocation.h>
#include <zrBase/tools2d/lineMeasures.h>
#include <zrBase/tools2d/lineSolvers.h>
#include <zrBase/tools2d/lineSplitting.h>
#include <zrBase/tools2d/polygonBoundary.h>
#include <zrBase/tools2d/polygonContainment.h>
#include <zrBase/tools2d/polygonRepair.h>
#include <zrBase/tools2d/segmentIntersection.h>
#include <zrBase/tools2d/side.h>
#include <zrBase/tools2d/sideTests.h>
#include <zrBase/tools2d/vectorIntersection.h>

/// Tools in the map plane.
namespace zr2DTools {}

#endif  // ZRBASE_TOOLS2D_ZR2DTOOLS_H
