#ifndef ZRBASE_TOOLS3D_PLANETRIANGLEINTERSECTION_H
#define ZRBASE_TOOLS3D_PLANETRIANGLEINTERSECTION_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

namespace zr3DTools {

/// Stretch in which the plane normal * v = d cuts the triangle a, b, c.
///
/// A corner on the plane, within 0.0001 times the length of the normal (closed), is an end of the
/// stretch; the other end is another such corner, or the place where the opposite edge passes
/// through the plane. Corners are looked at in the order a, b, c, and at most two of them count: a
/// triangle within the plane gives a and b. With no corner on the plane the edges a-b, b-c and c-a
/// are cut by planeSegmentIntersect, also at 0.0001.
///
///          b
///         / \                first on a-b, second on b-c
///     ---o---o----- plane
///       /     \              .
///      a-------c
///
/// A triangle that touches the plane with one corner alone has no stretch: false, though that
/// corner stands in `first`.
/// @param first  end of the stretch; may be written after a false
/// @param second  end of the stretch; after a false untouched, or a hit that was rejected as not
/// finite
/// @param tolerance  has no effect
ZRBASE_EXPORT bool planeTriangleIntersect(double d, const gdfVertex& normal, const gdfVertex& a,
                                          const gdfVertex& b, const gdfVertex& c, gdfVertex& first,
                                          gdfVertex& second, double tolerance);

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_PLANETRIANGLEINTERSECTION_H
