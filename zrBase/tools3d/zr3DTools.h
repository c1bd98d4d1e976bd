#ifndef ZRBASE_TOOLS3D_ZR3DTOOLS_H
#define ZRBASE_TOOLS3D_ZR3DTOOLS_H

/// @file
/// Free functions on lines, triangles and planes in space. Lengths and distances are
/// three-dimensional unless a function says that it works in the map plane; coordinates are in
/// model units, x east, y north, z up.
///
/// | Header               | What it holds                                                         |
/// |----------------------|-----------------------------------------------------------------------|
/// | endSpecifier.h       | from which end of a line a distance is measured                       |
/// | lineMeasures3D.h     | lengths and centres of lines                                          |
/// | vertexDistances.h    | distances of a vertex from a segment or a line                        |
/// | triangleMeasures.h   | areas of triangles, volume of a tetrahedron                           |
/// | linePosition.h       | where on a line a vertex lies, which vertex lies at a distance        |
/// | lineSampling.h       | lines resampled at an interval or by a ratio of the vertex count      |
/// | planeIntersection.h  | planes cut with segments, lines and polygons                          |
/// | planePlaneIntersection.h | planes cut with planes                                            |
/// | planeTriangleIntersection.h | planes cut with triangles                                      |
/// | planeFit.h           | planes fitted to clouds of points, average normals                    |
/// | orthogonalPlaneTests.h | whether points lie in a plane square to a coordinate plane          |
/// | reversedSegments.h   | report of a segment that runs against its line                        |
/// | segmentCleaning.h    | repeated vertices and segments removed, segments in order             |
/// | lineFusion.h         | segments and lines joined end to end                                  |

#include <zrBase/tools3d/endSpecifier.h>
#include <zrBase/tools3d/lineFusion.h>
#include <zrBase/tools3d/lineMeasures3D.h>
#include <zrBase/tools3d/linePosition.h>
#include <zrBase/tools3d/lineSampling.h>
#include <zrBase/tools3d/orthogonalPlaneTests.h>
#include <zrBase/tools3d/planeFit.h>
#include <zrBase/tools3d/planeIntersection.h>
#include <zrBase/tools3d/planePlaneIntersection.h>
#include <zrBase/tools3d/planeTriangleIntersection.h>
#include <zrBase/tools3d/reversedSegments.h>
#include <zrBase/tools3d/segmentCleaning.h>
#include <zrBase/tools3d/triangleMeasures.h>
#include <zrBase/tools3d/vertexDistances.h>

/// Tools in space.
namespace zr3DTools {}

#endif  // ZRBASE_TOOLS3D_ZR3DTOOLS_H
