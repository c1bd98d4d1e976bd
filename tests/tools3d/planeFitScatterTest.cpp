#include <zrBase/tools3d/planeFit.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "support/geometryText.h"

#include <zrBase/numerics/mgcEigenD.h>
#include <zrBase/tools3d/orthogonalPlaneTests.h>

#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <random>
#include <utility>
#include <vector>

// Plane fits on random clouds: planes of known dip and azimuth, and a plain second implementation.

namespace {

/// A sequence that is the same on every platform.
class Numbers {
 public:
  explicit Numbers(unsigned int seed) : engine_(seed) {}
  int below(int bound) { return static_cast<int>(engine_() % static_cast<unsigned int>(bound)); }
  /// Between -1 and 1.
  double even() { return static_cast<double>(engine_()) / 2147483648.0 - 1.0; }

 private:
  std::mt19937 engine_;
};

// Known planes.

/// Points over 200 by 200 m of a plane, up to 0.02 m off it.
VertexLine scattered(double azimuth, double dip, int count, Numbers& numbers) {
  gdfVertex normal;
  normal.setPlaneNormalWithAzimDip(azimuth, dip);
  gdfVertex strike;
  strike.setVectorAzimuthPlunge(azimuth - 90.0, 0.0);
  gdfVertex downDip;
  downDip.setVectorAzimuthPlunge(azimuth, dip);
  VertexLine points;
  for (int i = 0; i < count; ++i) {
    points.push_back(gdfVertex(4000, 7000, -2000) + strike * (100.0 * numbers.even()) +
                     downDip * (100.0 * numbers.even()) + normal * (0.02 * numbers.even()));
  }
  return points;
}

/// Smallest angle between two azimuths, in degrees.
double apart(double azimuth, double other) {
  return std::fabs(std::remainder(azimuth - other, 360.0));
}

std::vector<int> allIndices(const VertexLine& points) {
  std::vector<int> indices;
  for (std::size_t i = 0; i < points.size(); ++i) indices.push_back(static_cast<int>(i));
  return indices;
}

/// The eigenvector by each road that leads to it.
std::vector<gdfVertex> orthogonalNormals(const VertexLine& points) {
  gdfVertex centre;
  std::vector<gdfVertex> normals(3);
  zr3DTools::lsOrthogonalPlaneFit(points, centre, normals[0]);
  zr3DTools::lsOrthogonalPlaneFit(points, allIndices(points), centre, normals[1]);
  zr3DTools::lsOrthogonalPlaneFit(points, true, centre, normals[2]);
  return normals;
}

TEST(PlaneFitOfScatteredPoints, FindsDipAndAzimuth) {
  Numbers numbers(1);
  for (const double dip : {3.0, 10.0, 30.0, 45.0, 60.0, 85.0}) {
    for (double azimuth = 0.0; azimuth < 360.0; azimuth += 22.5) {
      for (const gdfVertex& normal : orthogonalNormals(scattered(azimuth, dip, 60, numbers))) {
        EXPECT_NEAR(normal.length(), 1.0, 1e-13);
        EXPECT_NEAR(normal.planeDip(), dip, 0.1) << azimuth;
        // The noise of 0.02 m turns the azimuth by more where the dip is small.
        EXPECT_LE(apart(normal.planeAzimuth(), azimuth), 0.1) << dip << ", " << azimuth;
      }
    }
  }
}

TEST(PlaneFitOfScatteredPoints, FindsTheStrikeOfUprightPlanes) {
  Numbers numbers(2);
  for (double azimuth = 0.0; azimuth < 180.0; azimuth += 22.5) {
    for (const gdfVertex& normal : orthogonalNormals(scattered(azimuth, 90.0, 60, numbers))) {
      EXPECT_NEAR(normal.planeDip(), 90.0, 0.1) << azimuth;
      // Which of the two sides it dips to is left to the noise.
      EXPECT_LE(std::fabs(std::remainder(normal.planeAzimuth() - azimuth, 180.0)), 0.1) << azimuth;
    }
  }
}

TEST(PlaneFitOfScatteredPoints, CentreIsTheMean) {
  Numbers numbers(3);
  const VertexLine points = scattered(120.0, 30.0, 20000, numbers);
  gdfVertex centre;
  gdfVertex normal;
  zr3DTools::lsOrthogonalPlaneFit(points, centre, normal);
  EXPECT_THAT(centre, VertexNear("4000 7000 -2000", 2.0));
}

// NaN and infinite coordinates anywhere: the fits end.

TEST(PlaneFitOfScatteredPoints, EndsWhateverTheCoordinates) {
  Numbers numbers(4);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  const double bad[] = {nan, infinity, -infinity, 1e308, -1e308, 5e-324};
  for (int round = 0; round < 2000; ++round) {
    VertexLine points = scattered(numbers.below(360), numbers.below(91), 6, numbers);
    const bool everywhere = round % 10 == 0;
    for (gdfVertex& point : points) {
      for (std::size_t axis = 0; axis < 3; ++axis) {
        if (everywhere || numbers.below(6) == 0) point[axis] = bad[numbers.below(6)];
      }
    }
    gdfVertex centre;
    gdfVertex normal;
    EXPECT_EQ(zr3DTools::lsOrthogonalPlaneFit(points, centre, normal), 0.0);
    EXPECT_EQ(zr3DTools::lsOrthogonalPlaneFit(points, {0, 2, 5}, centre, normal), 0.0);
    EXPECT_EQ(zr3DTools::lsOrthogonalPlaneFit(points, true, centre, normal), 0.0);
    EXPECT_EQ(zr3DTools::lsOrthogonalPlaneFit(points, false, centre, normal), 0.0);
  }
  mgcEigenD::error = 0;
}

// A second implementation in plain arithmetic, one step after the other. It shares the solver.

namespace reference {

struct Fit {
  gdfVertex centre{-1, -2, -3};
  gdfVertex normal{-4, -5, -6};
};

gdfVertex eigenNormal(const VertexLine& cloud, const gdfVertex& c) {
  mgcEigenD solver(3);
  for (int row = 0; row < 3; ++row) {
    for (int col = 0; col < 3; ++col) {
      double sum = 0.0;
      for (const gdfVertex& p : cloud) {
        sum += (p - c)[static_cast<std::size_t>(row)] * (p - c)[static_cast<std::size_t>(col)];
      }
      solver.Matrix(row, col) = sum;
    }
  }
  solver.DecrSortEigenStuff3();
  return {solver.Eigenvector(0, 2), solver.Eigenvector(1, 2), solver.Eigenvector(2, 2)};
}

gdfVertex sumOf(const VertexLine& cloud) {
  double sum[3] = {0.0, 0.0, 0.0};
  for (const gdfVertex& p : cloud) {
    for (std::size_t axis = 0; axis < 3; ++axis) sum[axis] += p[axis];
  }
  return {sum[0], sum[1], sum[2]};
}

gdfVertex axisVector(std::size_t axis) {
  gdfVertex v;
  v[axis] = 1.0;
  return v;
}

bool within(const VertexLine& points, std::size_t axis, double tolerance) {
  for (const gdfVertex& p : points) {
    if (std::fabs(p[axis] - points[0][axis]) > tolerance) return false;
  }
  return true;
}

Fit fitIndexed(const VertexLine& points, const std::vector<int>& indices) {
  Fit fit;
  VertexLine cloud;
  for (const int i : indices) cloud.push_back(points[static_cast<std::size_t>(i)]);
  const double n = static_cast<double>(cloud.size());
  const gdfVertex sum = sumOf(cloud);
  fit.centre = gdfVertex(sum.x() / n, sum.y() / n, sum.z() / n);
  fit.normal = eigenNormal(cloud, fit.centre);
  for (const std::size_t axis : {0u, 1u, 2u}) {
    if (within(points, axis, 0.001)) fit.normal = axisVector(axis);
  }
  return fit;
}

/// Distance from the line through two places of a view, by its two kept coordinates.
bool uprightIn(const VertexLine& points, std::size_t a, std::size_t b, gdfVertex& normal) {
  if (points.size() < 3) return true;
  const gdfVertex& o = points[0];
  std::size_t far = 1;
  while (far < points.size() && std::fabs(points[far][a] - o[a]) < 0.01 &&
         std::fabs(points[far][b] - o[b]) < 0.01) {
    ++far;
  }
  if (far == points.size()) return false;
  gdfVertex u(points[far][a] - o[a], points[far][b] - o[b]);
  u.normalise();
  for (const gdfVertex& p : points) {
    const double t = (p[a] - o[a]) * u.x() + (p[b] - o[b]) * u.y();
    const double da = o[a] + u.x() * t - p[a];
    const double db = o[b] + u.y() * t - p[b];
    if (std::sqrt(da * da + db * db) > 0.01) return false;
  }
  normal = gdfVertex();
  normal[a] = u.y();
  normal[b] = -u.x();
  return true;
}

gdfVertex linearNormal(const VertexLine& points, const gdfVertex& c) {
  double xx = 0, xy = 0, yy = 0, xz = 0, yz = 0, sz = 0, sx = 0, sy = 0;
  for (const gdfVertex& p : points) {
    const gdfVertex d = p - c;
    xx += d.x() * d.x();
    xy += d.x() * d.y();
    yy += d.y() * d.y();
    xz += d.x() * d.z();
    yz += d.y() * d.z();
    sz += d.z();
    sx += p.x();
    sy += p.y();
  }
  const double det =
      xx * (yy * 1.0 - sy * sy) - xy * (xy * 1.0 - sx * sy) + sx * (xy * sy - sx * yy);
  if (std::fabs(det) <= 1e-8) return {0, 0, 1};
  const double inverse[3][3] = {
      {(yy * 1.0 - sy * sy) / det, (sx * sy - xy * 1.0) / det, (xy * sy - sx * yy) / det},
      {(sy * sx - xy * 1.0) / det, (xx * 1.0 - sx * sx) / det, (sx * xy - xx * sy) / det},
      {(xy * sy - yy * sx) / det, (sx * xy - xx * sy) / det, (xx * yy - xy * xy) / det}};
  double w[3];
  for (int i = 0; i < 3; ++i) w[i] = inverse[i][0] * xz + inverse[i][1] * yz + inverse[i][2] * sz;
  const double length = std::sqrt(w[0] * w[0] + w[1] * w[1] + w[2] * w[2]);
  if (length == 0.0) return {0, 0, 1};
  return {w[0] / length, w[1] / length, w[2] / length};
}

Fit fitWithFlag(const VertexLine& points, bool orthogonal) {
  Fit fit;
  const double n = static_cast<double>(points.size());
  const gdfVertex sum = sumOf(points);
  fit.centre = gdfVertex(sum.x() / n, sum.y() / n, sum.z() / n);
  for (const std::size_t axis : {2u, 0u, 1u}) {
    if (within(points, axis, 0.01)) {
      fit.normal = axisVector(axis);
      return fit;
    }
  }
  if (uprightIn(points, 0, 1, fit.normal) || uprightIn(points, 1, 2, fit.normal) ||
      uprightIn(points, 0, 2, fit.normal)) {
    return fit;
  }
  fit.normal = orthogonal ? eigenNormal(points, fit.centre) : linearNormal(points, fit.centre);
  return fit;
}

}  // namespace reference

/// A cloud near a bad case: on a coarse grid, in rows or slabs, with noise about the tolerances.
VertexLine awkwardCloud(Numbers& numbers) {
  const double steps[] = {0.0, 1e-5, 0.0005, 0.001, 0.0015, 0.005, 0.01, 0.0125, 0.25, 1.0, 1000.0};
  const double scale[] = {steps[numbers.below(11)], steps[numbers.below(11)],
                          steps[numbers.below(11)]};
  const bool inRow = numbers.below(3) == 0;
  const gdfVertex direction(numbers.below(5) - 2, numbers.below(5) - 2, numbers.below(5) - 2);
  const gdfVertex base = numbers.below(2) == 0
                             ? gdfVertex()
                             : gdfVertex(numbers.below(9), numbers.below(9), numbers.below(9));
  VertexLine points;
  const int count = 1 + numbers.below(7);
  for (int i = 0; i < count; ++i) {
    const gdfVertex noise(scale[0] * (numbers.below(5) - 2), scale[1] * (numbers.below(5) - 2),
                          scale[2] * (numbers.below(5) - 2));
    points.push_back(base + noise + direction * (inRow ? numbers.below(9) : 0));
  }
  return points;
}

TEST(PlaneFitReference, AgreesToTheLastBit) {
  Numbers numbers(5);
  for (int round = 0; round < 20000; ++round) {
    const VertexLine points = awkwardCloud(numbers);
    std::vector<int> some;
    for (int k = 1 + numbers.below(6); k > 0; --k) {
      some.push_back(numbers.below(static_cast<int>(points.size())));
    }
    const std::pair<const char*, reference::Fit> expected[] = {
        {"all", reference::fitIndexed(points, allIndices(points))},
        {"some", reference::fitIndexed(points, some)},
        {"orthogonal", reference::fitWithFlag(points, true)},
        {"linear", reference::fitWithFlag(points, false)}};
    reference::Fit fits[4];
    zr3DTools::lsOrthogonalPlaneFit(points, fits[0].centre, fits[0].normal);
    zr3DTools::lsOrthogonalPlaneFit(points, some, fits[1].centre, fits[1].normal);
    zr3DTools::lsOrthogonalPlaneFit(points, true, fits[2].centre, fits[2].normal);
    zr3DTools::lsOrthogonalPlaneFit(points, false, fits[3].centre, fits[3].normal);
    for (int i = 0; i < 4; ++i) {
      ASSERT_EQ(fits[i].centre, expected[i].second.centre)
          << expected[i].first << " of " << toText(points);
      ASSERT_EQ(fits[i].normal, expected[i].second.normal)
          << expected[i].first << " of " << toText(points);
    }
  }
}

// Laws.

RC_GTEST_PROP(PlaneFitLaws, NormalIsNoWorseThanAnyOtherDirection, ()) {
  const auto coordinate = rc::gen::map(rc::gen::inRange(-64, 65), [](int k) { return k / 64.0; });
  VertexLine points;
  const int count = *rc::gen::inRange(3, 12);
  for (int i = 0; i < count; ++i) points.emplace_back(*coordinate, *coordinate, *coordinate);
  gdfVertex centre;
  gdfVertex normal;
  zr3DTools::lsOrthogonalPlaneFit(points, centre, normal);
  gdfVertex other(*coordinate, *coordinate, *coordinate);
  other.normalise();
  RC_PRE(other != gdfVertex());
  double squares = 0.0;
  double otherSquares = 0.0;
  for (const gdfVertex& point : points) {
    squares += std::pow((point - centre) * normal, 2);
    otherSquares += std::pow((point - centre) * other, 2);
  }
  RC_ASSERT(squares <= otherSquares + 1e-12);
}

RC_GTEST_PROP(PlaneFitLaws, ShiftMovesTheCentreAlone, ()) {
  // Four points of coordinates k/64: their mean and all offsets are exact.
  const auto coordinate = rc::gen::map(rc::gen::inRange(-64, 65), [](int k) { return k / 64.0; });
  VertexLine points;
  for (int i = 0; i < 4; ++i) points.emplace_back(*coordinate, *coordinate, *coordinate);
  const gdfVertex by(*coordinate, *coordinate, *coordinate);
  VertexLine moved;
  for (const gdfVertex& point : points) moved.push_back(point + by);
  reference::Fit before;
  reference::Fit after;
  zr3DTools::lsOrthogonalPlaneFit(points, before.centre, before.normal);
  zr3DTools::lsOrthogonalPlaneFit(moved, after.centre, after.normal);
  RC_ASSERT(after.centre == before.centre + by);
  RC_ASSERT(after.normal == before.normal);
}

}  // namespace
