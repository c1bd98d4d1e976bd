#ifndef ZRBASE_TOOLS3D_ORTHOGONALPLANETESTS_H
#define ZRBASE_TOOLS3D_ORTHOGONALPLANETESTS_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

/// Tests for points that lie in a plane square to a coordinate plane: seen along the axis that the
/// coordinate plane leaves out, such points form a straight line.
namespace zr3DTools {

/// Whether the points lie in a vertical plane: in map view they form a straight line.
///
/// The line runs through the first point, the origin, and the first later point that is off it by
/// at least the tolerance in x or in y; every point has to lie within the tolerance (closed) of it.
/// z is free. So a short first step, close to the tolerance, sets the direction for all: points
/// that a line through the far ones would fit can fail. Points all over one place have no
/// direction and give false, save with a tolerance of 0, where the next point counts as off
/// whatever it is; a negative tolerance gives false for three or more points.
///
///     y   o         u  unit vector from the origin o to the first distant point
///     |    o   o
///     |       o     normal = (u.y, -u.x, 0), to the right of u seen from above
///     +-------- x
///
/// Fewer than three points lie in such a plane always: true, with the normal left alone. Points in
/// the other sense of the line give the opposite normal.
///
/// A step of a length up to GDF_EXACTNESS_LIMIT has no direction: where the tolerance lets it
/// count, u is zero, distances are taken from the origin, and the normal of a true is (0, 0, 0). A
/// coordinate that is NaN is neither off the origin nor far from the line.
///
/// @param tolerance  in model units
/// @param normal  unit normal of the plane; untouched after a false and for fewer than three points
/// @note O(n), without allocation.
ZRBASE_EXPORT bool isPointsPlaneOrthogonalToXYPlane(const VertexLine& points,
                                                    const double& tolerance, gdfVertex& normal);
/// The same seen along y, for planes that strike along it: x and z count, y is free; the normal is
/// (u.z, 0, -u.x).
ZRBASE_EXPORT bool isPointsPlaneOrthogonalToXZPlane(const VertexLine& points,
                                                    const double& tolerance, gdfVertex& normal);
/// The same seen along x, for planes that strike along it: y and z count, x is free; the normal is
/// (0, u.z, -u.y).
ZRBASE_EXPORT bool isPointsPlaneOrthogonalToYZPlane(const VertexLine& points,
                                                    const double& tolerance, gdfVertex& normal);

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_ORTHOGONALPLANETESTS_H
