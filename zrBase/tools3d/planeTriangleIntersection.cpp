#include <zrBase/tools3d/planeTriangleIntersection.h>

#include <zrBase/tools3d/planeIntersection.h>

namespace zr3DTools {

namespace {

// Kept on purpose (KeptTriangleToleranceIsFixed): what the caller gives has no effect. Surfaces cut
// by this function fit together because all of their triangles take a corner as on the plane alike.
constexpr double triangleTolerance = 0.0001;

struct Plane {
  double d;
  gdfVertex normal;

  bool holds(const gdfVertex& v) const { return vertexOnPlane(d, normal, v, triangleTolerance); }
  bool cuts(const gdfVertex& start, const gdfVertex& end, gdfVertex& out) const {
    return planeSegmentIntersect(d, normal, start, end, out, triangleTolerance);
  }
};

/// The end `second` when the corner that is `first` lies on the plane: one of the other two corners
/// if it lies there too, in their order, else the cut of the edge between them.
bool secondEndFromCorner(const Plane& plane, const gdfVertex& u, const gdfVertex& w,
                         gdfVertex& second) {
  if (plane.holds(u)) {
    second = u;
    return true;
  }
  if (plane.holds(w)) {
    second = w;
    return true;
  }
  return plane.cuts(u, w, second);
}

}  // namespace

bool planeTriangleIntersect(double d, const gdfVertex& normal, const gdfVertex& a,
                            const gdfVertex& b, const gdfVertex& c, gdfVertex& first,
                            gdfVertex& second, double) {
  // Copies: an output may be a corner or the normal.
  const Plane plane{d, normal};
  const gdfVertex cornerA = a;
  const gdfVertex cornerB = b;
  const gdfVertex cornerC = c;
  // Kept on purpose (KeptTouchingCornerIsWrittenAndFalse): the corner is written before the other
  // end is known, and stays when there is none.
  if (plane.holds(cornerA)) {
    first = cornerA;
    return secondEndFromCorner(plane, cornerB, cornerC, second);
  }
  if (plane.holds(cornerB)) {
    first = cornerB;
    return secondEndFromCorner(plane, cornerA, cornerC, second);
  }
  if (plane.holds(cornerC)) {
    first = cornerC;
    return plane.cuts(cornerA, cornerB, second);
  }
  if (plane.cuts(cornerA, cornerB, first)) {
    return plane.cuts(cornerB, cornerC, second) || plane.cuts(cornerC, cornerA, second);
  }
  return plane.cuts(cornerB, cornerC, first) && plane.cuts(cornerC, cornerA, second);
}

}  // namespace zr3DTools
