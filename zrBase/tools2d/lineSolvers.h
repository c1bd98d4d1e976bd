#ifndef ZRBASE_TOOLS2D_LINESOLVERS_H
#define ZRBASE_TOOLS2D_LINESOLVERS_H

#include <zrBase/geometry/gdfVertex.h>

#include <cmath>

namespace zr2DTools {

/// Shared arithmetic of the three solvers of two infinite lines in the x-y plane.
namespace internal {

/// (b - a) x (d - c) in the plane: the raw determinant, in units of length squared.
inline double determinant(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                          const gdfVertex& d) {
  return (b.x() - a.x()) * (d.y() - c.y()) - (b.y() - a.y()) * (d.x() - c.x());
}

/// The crossing for a given determinant. The z is that of a.
inline gdfVertex crossing(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                          const gdfVertex& d, double determinant) {
  const double t =
      ((a.y() - c.y()) * (d.x() - c.x()) - (a.x() - c.x()) * (d.y() - c.y())) / determinant;
  return {(b.x() - a.x()) * t + a.x(), (b.y() - a.y()) * t + a.y(), a.z()};
}

inline bool strictlyInside(double value, double tolerance) {
  return -tolerance < value && value < tolerance;
}

inline bool hasNaN(const gdfVertex& v) {
  return std::isnan(v.x()) || std::isnan(v.y()) || std::isnan(v.z());
}

}  // namespace internal

/// Crossing of the infinite lines a-b and c-d in the x-y plane.
///
/// @param out  the crossing, with the z of a. Untouched when the lines count as parallel; when the
/// crossing is not
///             finite it is written all the same and the result is false.
/// @param tolerance  lines are parallel when their raw determinant (b - a) x (d - c) lies strictly
/// between
///             -tolerance and tolerance. That is an area, it grows with both lengths, and is no
///             angle. With 0 no line is parallel, and a determinant of 0 ends in the test for
///             finite coordinates.
/// @return whether there is a finite crossing
inline bool getIntersect(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                         const gdfVertex& d, gdfVertex& out, double tolerance) {
  const double determinant = internal::determinant(a, b, c, d);
  // Kept on purpose (KeptToleranceIsAnAreaAndNoAngle): the raw determinant grows with both lengths
  // and is not normalised. Callers have chosen their tolerances for it.
  if (internal::strictlyInside(determinant, tolerance)) return false;
  // Kept on purpose (KeptSolverLeavesRejectedCandidate): the candidate is written before it is
  // judged. The vector forms pass their caller's output straight through, and callers see the
  // candidate after a false.
  out = internal::crossing(a, b, c, d, determinant);
  return out.valid();
}

/// As getIntersect, but for two rules: a determinant of exactly 0 is parallel at any tolerance, and
/// a crossing is rejected only for a NaN: an infinite coordinate passes.
inline bool getIntersect2(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                          const gdfVertex& d, gdfVertex& out, double tolerance) {
  const double determinant = internal::determinant(a, b, c, d);
  if (internal::strictlyInside(determinant, tolerance) || determinant == 0.0) return false;
  out = internal::crossing(a, b, c, d, determinant);
  // Kept on purpose (KeptSecondSolverAcceptsInfinity): only a NaN is refused here, where
  // getIntersect asks for finite coordinates. The bisector passes work with crossings at infinity
  // and drop them by their distance.
  return !internal::hasNaN(out);
}

/// As getIntersect, but lines are parallel only at a determinant of exactly 0; the tolerance is not
/// used.
inline bool getIntersectionVertex3(const gdfVertex& a, const gdfVertex& b, const gdfVertex& c,
                                   const gdfVertex& d, gdfVertex& out, double /*tolerance*/) {
  // Kept on purpose (KeptThirdSolverIgnoresTolerance): the signature is that of its siblings, which
  // callers swap for one another; the zero test is exact.
  const double determinant = internal::determinant(a, b, c, d);
  if (determinant == 0.0) return false;
  out = internal::crossing(a, b, c, d, determinant);
  return out.valid();
}

}  // namespace zr2DTools

#endif  // ZRBASE_TOOLS2D_LINESOLVERS_H
