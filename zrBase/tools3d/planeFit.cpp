#include <zrBase/tools3d/planeFit.h>

#include <zrBase/geometry/gdfTriMatrix.h>
#include <zrBase/numerics/internal/symmetricEigenSteps.h>
#include <zrBase/numerics/mgcEigenD.h>
#include <zrBase/tools3d/orthogonalPlaneTests.h>

#include <cmath>
#include <cstddef>

namespace zr3DTools {

namespace {

/// The points of a list that a list of indices picks. Reads like a VertexLine.
class IndexedPoints {
 public:
  IndexedPoints(const VertexLine& points, const std::vector<int>& indices)
      : points_(points), indices_(indices) {}

  std::size_t size() const { return indices_.size(); }
  const gdfVertex& operator[](std::size_t k) const {
    return points_[static_cast<std::size_t>(indices_[k])];
  }

 private:
  const VertexLine& points_;
  const std::vector<int>& indices_;
};

template <class Cloud>
gdfVertex sumOf(const Cloud& cloud) {
  gdfVertex sum;
  for (std::size_t i = 0; i < cloud.size(); ++i) sum += cloud[i];
  return sum;
}

/// Sums over a cloud of its offsets from a centre, two by two.
struct Scatter {
  double xx = 0.0;
  double xy = 0.0;
  double xz = 0.0;
  double yy = 0.0;
  double yz = 0.0;
  double zz = 0.0;
  /// Of the offsets in z alone: 0 but for rounding.
  double z = 0.0;
};

template <class Cloud>
Scatter scatterOf(const Cloud& cloud, const gdfVertex& centre) {
  Scatter sums;  // in registers while the points go by
  for (std::size_t i = 0; i < cloud.size(); ++i) {
    const gdfVertex d = cloud[i] - centre;
    sums.xx += d.x() * d.x();
    sums.xy += d.x() * d.y();
    sums.xz += d.x() * d.z();
    sums.yy += d.y() * d.y();
    sums.yz += d.y() * d.z();
    sums.zz += d.z() * d.z();
    sums.z += d.z();
  }
  return sums;
}

/// Direction of least scatter. The steps are those of an mgcEigenD of size 3, without its storage;
/// a scatter that does not converge is told in its word too.
gdfVertex eigenNormal(const Scatter& s) {
  double vectors[3][3] = {{s.xx, s.xy, s.xz}, {s.xy, s.yy, s.yz}, {s.xz, s.yz, s.zz}};
  double values[3];
  if (!mgcInternal::decreasingSolutionOfThree(vectors, values)) {
    mgcEigenD::error |= mgcEigenD::ql_exceeded;
  }
  // Kept on purpose (KeptNormalMayPointDown): the sense is the solver's, none is imposed. Callers
  // turn the normals they compare.
  return gdfVertex(vectors[0][2], vectors[1][2], vectors[2][2]);
}

/// The axis of a cloud that is flat in a coordinate, for the fits without a flag.
bool flatCloudNormal(const VertexLine& points, gdfVertex& normal) {
  constexpr double tolerance = 0.001;
  bool flatX = true;
  bool flatY = true;
  // A single point counts as flat in z whatever its coordinates: a NaN is not within the tolerance
  // of itself.
  bool flatZ = true;
  // Kept on purpose (KeptFlatnessIsMeasuredFromTheFirstPoint): not from the centre, nor by the
  // extent. So the same points in another order may be flat or not.
  for (std::size_t i = 1; i < points.size() && (flatX || flatY || flatZ); ++i) {
    const gdfVertex d = points[i] - points[0];
    flatX = flatX && gdfEqualZero(d.x(), tolerance);
    flatY = flatY && gdfEqualZero(d.y(), tolerance);
    flatZ = flatZ && gdfEqualZero(d.z(), tolerance);
  }
  if (flatZ) {
    normal = gdfVertex(0.0, 0.0, 1.0);
  } else if (flatY) {
    normal = gdfVertex(0.0, 1.0, 0.0);
  } else if (flatX) {
    normal = gdfVertex(1.0, 0.0, 0.0);
  }
  return flatX || flatY || flatZ;
}

/// The fits without a flag: of a cloud, with the flat tests on `points`, which are not empty.
template <class Cloud>
void fitCloud(const VertexLine& points, const Cloud& cloud, gdfVertex& centre, gdfVertex& normal) {
  // Kept on purpose (KeptEmptyIndexListGivesCentreNaN): 0/0 without indices, which is not caught.
  // Callers detect it by valid().
  const gdfVertex mean = sumOf(cloud) / static_cast<double>(cloud.size());
  gdfVertex fitted;
  // Kept on purpose (KeptIndexedFitTestsTheWholeListForFlatness): all points, also those that no
  // index picks. One flat list then gives one normal for all its parts.
  if (!flatCloudNormal(points, fitted)) fitted = eigenNormal(scatterOf(cloud, mean));
  // Last, as the outputs may be points of the cloud.
  centre = mean;
  normal = fitted;
}

/// The coordinate in which a cloud is constant, in the order of preference.
enum class Constant { none = -1, z = 0, x = 1, y = 2 };

Constant constantCoordinate(const VertexLine& points, double tolerance) {
  if (points.empty()) return Constant::none;
  bool constantX = true;
  bool constantY = true;
  bool constantZ = true;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const gdfVertex d = points[i] - points[0];
    // Kept on purpose (KeptNaNDoesNotBreakConstancy): a coordinate is given up where it differs by
    // more, and a NaN does not. The fits without a flag, which ask for a difference within the
    // tolerance, take the same cloud for uneven.
    if (std::fabs(d.x()) > tolerance) constantX = false;
    if (std::fabs(d.y()) > tolerance) constantY = false;
    if (std::fabs(d.z()) > tolerance) constantZ = false;
    if (!constantX && !constantY && !constantZ) return Constant::none;
  }
  // Kept on purpose (KeptFitWithFlagPrefersXToY): the fits without a flag ask for y before x, so
  // that points above each other give (0, 1, 0) there and (1, 0, 0) here.
  if (constantZ) return Constant::z;
  return constantX ? Constant::x : Constant::y;
}

/// The normals that need no fit, of flat and upright clouds, in the order of their tests.
bool normalWithoutFit(const VertexLine& points, gdfVertex& normal) {
  constexpr double tolerance = 0.01;
  switch (constantCoordinate(points, tolerance)) {
    case Constant::z:
      normal = gdfVertex(0.0, 0.0, 1.0);
      return true;
    case Constant::x:
      normal = gdfVertex(1.0, 0.0, 0.0);
      return true;
    case Constant::y:
      normal = gdfVertex(0.0, 1.0, 0.0);
      return true;
    case Constant::none:
      break;
  }
  // Kept on purpose (KeptTwoSlopingPointsLeaveTheNormal): two points pass the first of these tests
  // unseen, and the fit ends without a normal. Callers start from zeros and see that none came.
  return isPointsPlaneOrthogonalToXYPlane(points, tolerance, normal) ||
         isPointsPlaneOrthogonalToYZPlane(points, tolerance, normal) ||
         isPointsPlaneOrthogonalToXZPlane(points, tolerance, normal);
}

bool anyElementAbove(const gdfTriMatrix& matrix, double limit) {
  for (int row = 0; row < 3; ++row) {
    for (int col = 0; col < 3; ++col) {
      if (std::fabs(matrix(row, col)) > limit) return true;
    }
  }
  return false;
}

/// @param sum  of the points as they are
gdfVertex linearNormal(const Scatter& s, const gdfVertex& sum) {
  const gdfVertex vertical(0.0, 0.0, 1.0);
  // Kept on purpose (KeptLinearFitMixesCentredAndRawSums): the sums of x and y are not centred, as
  // all the others are, and the last element is 1 where the count of points would be looked for.
  // So the normal moves with the cloud. Stored orientations were made by exactly this system.
  const gdfTriMatrix matrix(gdfVertex(s.xx, s.xy, sum.x()), gdfVertex(s.xy, s.yy, sum.y()),
                            gdfVertex(sum.x(), sum.y(), 1.0));
  // Kept on purpose (KeptNearlySingularLinearFitIsVertical): an absolute limit, in whatever unit,
  // and no attempt at a solution of least length.
  if (gdfEqualZero(matrix.determinant(), 1e-8)) return vertical;
  const gdfTriMatrix inverse = matrix.invert();
  // Kept on purpose (KeptTinyInverseOfALinearFitIsVertical): the limit is absolute, and the sums
  // grow with the coordinates.
  //
  // Kept on purpose (KeptLinearFitThatOverflowsIsVertical): an inverse of NaNs has no element above
  // the limit either, so that sums beyond the range of a double end here.
  if (!anyElementAbove(inverse, 1e-26)) return vertical;
  // Kept on purpose (KeptLinearFitOfCentredCloudIsItsGradient): the solution is taken as the normal
  // as it stands, and not as the coefficients of z = ax + by + c that it resembles.
  const gdfVertex w = inverse * gdfVertex(s.xz, s.yz, s.z);
  const double length = w.length();
  if (length == 0.0) return vertical;
  return w / length;
}

}  // namespace

// Kept on purpose (KeptFitResultIsAlwaysZero): not a residual. Callers compile against a double and
// drop it.
double lsOrthogonalPlaneFit(const VertexLine& points, gdfVertex& centre, gdfVertex& normal) {
  if (!points.empty()) fitCloud(points, points, centre, normal);
  return 0.0;
}

double lsOrthogonalPlaneFit(const VertexLine& points, const std::vector<int>& indices,
                            gdfVertex& centre, gdfVertex& normal) {
  if (!points.empty()) fitCloud(points, IndexedPoints(points, indices), centre, normal);
  return 0.0;
}

double lsOrthogonalPlaneFit(const VertexLine& points, const bool& orthogonal, gdfVertex& centre,
                            gdfVertex& normal) {
  if (points.empty()) return 0.0;
  const gdfVertex sum = sumOf(points);
  const gdfVertex mean = sum / static_cast<double>(points.size());
  // On a copy: the normal may be one of the points, as the centre may.
  gdfVertex fitted = normal;
  if (!normalWithoutFit(points, fitted)) {
    const Scatter scatter = scatterOf(points, mean);
    fitted = orthogonal ? eigenNormal(scatter) : linearNormal(scatter, sum);
  }
  centre = mean;
  normal = fitted;
  return 0.0;
}

gdfVertex calcAverageNormal(const VertexLine& points) {
  gdfVertex centre;
  gdfVertex normal;
  lsOrthogonalPlaneFit(points, true, centre, normal);
  cleanNormal(normal);
  return normal;
}

gdfVertex calcAverageNormal(const VertexLine& points, const std::vector<int>& indices) {
  gdfVertex centre;
  gdfVertex normal;
  // Kept on purpose (KeptIndexedAverageNormalIsTheFitWithoutFlag): the form above takes the one
  // with the flag, which has another tolerance and knows upright clouds. Local frames built from
  // all indices may therefore differ from those built from the list.
  lsOrthogonalPlaneFit(points, indices, centre, normal);
  cleanNormal(normal);
  return normal;
}

void cleanNormal(gdfVertex& normal) {
  constexpr double limit = 0.98;
  // Kept on purpose (KeptSnapTestsZFirstThenPositiveSides): both senses of z, then x and y upward,
  // then x and y downward. A vector of unit length meets one of them at most.
  if (normal.z() > limit) {
    normal = gdfVertex(0.0, 0.0, 1.0);
  } else if (normal.z() < -limit) {
    normal = gdfVertex(0.0, 0.0, -1.0);
  } else if (normal.x() > limit) {
    normal = gdfVertex(1.0, 0.0, 0.0);
  } else if (normal.y() > limit) {
    normal = gdfVertex(0.0, 1.0, 0.0);
  } else if (normal.x() < -limit) {
    normal = gdfVertex(-1.0, 0.0, 0.0);
  } else if (normal.y() < -limit) {
    normal = gdfVertex(0.0, -1.0, 0.0);
  }
}

}  // namespace zr3DTools
