#ifndef ZRBASE_TOOLS3D_PLANEFIT_H
#define ZRBASE_TOOLS3D_PLANEFIT_H

#include <zrBase/export.h>
#include <zrBase/geometry/gdfVertex.h>

#include <vector>

/// Planes fitted to clouds of points, as a centre, the mean of the points, and a normal.
///
/// Every fit first looks for clouds that are flat in a coordinate, within a fixed tolerance in
/// model units and measured from the first point, and answers those with the axis itself. The
/// sense of any other normal is the one that the method happens to give: it may point down. An
/// output may be one of the points. The eigen fits take the normal from mgcEigenD, whose static
/// `error` word gathers what goes wrong: fit on one thread at a time.
namespace zr3DTools {

/// Plane of least squared distances, measured square to it, through the mean of the points: its
/// normal is the eigenvector of their scatter matrix with the smallest eigenvalue (Pearson, 1901).
///
/// Flat clouds come first, each coordinate compared with the first point's within 0.001 (closed):
/// with z flat, or a single point, the normal is (0, 0, 1), else with y flat (0, 1, 0), else with x
/// flat (1, 0, 0). The overload with the flag prefers x to y. Points on a sloping line leave the
/// normal open: any vector square to the line, as the solver has it. A NaN coordinate is not flat
/// and makes the fit NaN.
///
/// @param centre  mean of the points; an empty list leaves both outputs untouched
/// @param normal  unit normal of the plane
/// @return always 0.0: it says nothing about the fit
/// @note O(n), without allocation.
ZRBASE_EXPORT double lsOrthogonalPlaneFit(const VertexLine& points, gdfVertex& centre,
                                          gdfVertex& normal);

/// The same for the points with the given indices, each as often as it is listed: mean and scatter
/// are theirs. The tests for flat clouds are not: they see all of `points`, so that one point off
/// the rest, indexed or not, decides between the axis and the eigenvector.
///
/// Without indices, in a list that is not empty, the centre is (NaN, NaN, NaN) and the normal that
/// of the flat test, or else (0, 0, 1). No points at all leave both outputs untouched.
/// @param indices  not checked. A variable, or `std::vector<int>{...}`: the braces {}, {0} and {1}
/// alone are taken as the flag of the next overload
ZRBASE_EXPORT double lsOrthogonalPlaneFit(const VertexLine& points, const std::vector<int>& indices,
                                          gdfVertex& centre, gdfVertex& normal);

/// Plane fit that first looks for flat and for upright clouds, with a tolerance of 0.01, and then
/// takes the method that the flag names.
///
/// A cloud is flat in a coordinate where none of its points differs from the first by more than
/// 0.01: in z (0, 0, 1), else in x (1, 0, 0), else in y (0, 1, 0), and a single point counts as
/// flat in z. A NaN difference counts as none. Then isPointsPlaneOrthogonalToXYPlane, ...YZPlane
/// and ...XZPlane are tried, in this order, and the first that is true ends the fit with its
/// normal. Two points pass the first of them unseen: unless they are flat in a coordinate the
/// normal stays what it was.
///
/// @param orthogonal  true for the eigenvector as in the overload without a flag. False for a
/// linear system of three unknowns, with the rows (Sxx, Sxy, Sx), (Sxy, Syy, Sy), (Sx, Sy, 1) and
/// the right-hand side (Sxz, Syz, Sz): Sx and Sy are sums of the coordinates as they are, the
/// other sums are of offsets from the centre. Its solution, scaled to unit length, is the normal;
/// (0, 0, 1) when the determinant is within 1e-8 of 0 (closed), when no element of the inverse is
/// above 1e-26 in size, a NaN included, or when the solution is zero. It depends on where the
/// cloud lies, and for a cloud around the z axis it is the horizontal direction of steepest
/// ascent, not the normal of the plane.
/// @param centre  mean of the points; an empty list leaves both outputs untouched
/// @return always 0.0
ZRBASE_EXPORT double lsOrthogonalPlaneFit(const VertexLine& points, const bool& orthogonal,
                                          gdfVertex& centre, gdfVertex& normal);

/// Normal of a cloud, cleaned: lsOrthogonalPlaneFit with the flag set to true, then cleanNormal.
///
/// (0, 0, 0) for an empty list, and for two points that differ by more than 0.01 in each
/// coordinate.
ZRBASE_EXPORT gdfVertex calcAverageNormal(const VertexLine& points);
/// The same for the points with the given indices, by the overload of lsOrthogonalPlaneFit that
/// takes them: with a tolerance of 0.001 and without the search for upright clouds, so that all
/// indices need not give the answer for the whole list. (0, 0, 0) for an empty list of points.
ZRBASE_EXPORT gdfVertex calcAverageNormal(const VertexLine& points,
                                          const std::vector<int>& indices);

/// Snaps a normal near an axis onto it: the first of z > 0.98, z < -0.98, x > 0.98, y > 0.98,
/// x < -0.98, y < -0.98 (open) that holds makes it that axis, with that sign. Otherwise nothing
/// changes: no scaling.
///
/// The order matters for vectors longer than a unit vector only. gdfVertex::cleanNormal has the
/// limit 1 and another order.
ZRBASE_EXPORT void cleanNormal(gdfVertex& normal);

}  // namespace zr3DTools

#endif  // ZRBASE_TOOLS3D_PLANEFIT_H
