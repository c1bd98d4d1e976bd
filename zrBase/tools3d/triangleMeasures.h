#ifndef ZRBASE_TOOLS3D_TRIANGLEMEASURES_H
#define ZRBASE_TOOLS3D_TRIANGLEMEASURES_H

#include <zrBase/geometry/gdfVertex.h>

#include <cmath>

namespace zr3DTools {

/// Area of the triangle a, b, c in space; never negative, the same for every order of the vertices.
/// 0 for vertices on one line.
inline double getArea(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c) {
  return ((b - a) ^ (c - b)).length() / 2.0;
}

/// Signed area of the triangle a, b, c along a normal.
///
/// Positive when a, b, c run counter-clockwise as seen from the tip of the normal; two vertices
/// swapped flip the sign. The normal is used as it stands: its length scales the result, and a
/// normal oblique to the triangle gives the area of the projection along it.
///
///          c
///         / \        normal towards the reader: positive
///        a---b
///
constexpr double getArea(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                         const gdfVertex& normal) {
  return ((b - a) ^ (c - b)) * normal / 2.0;
}

/// Area of the triangle's projection on the x-y plane; never negative. z plays no part, 0 for an
/// upright triangle.
inline double getMapArea(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c) {
  return std::fabs(((b - a) ^ (c - b)).z()) / 2.0;
}

/// Volume of the tetrahedron a, b, c, d; never negative, 0 for vertices in one plane.
inline double getVolume(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                        const gdfVertex& d) {
  return std::fabs(((b - a) ^ (c - a)) * (d - a)) / 6.0;
}

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_TRIANGLEMEASURES_H
