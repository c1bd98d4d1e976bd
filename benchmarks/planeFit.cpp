// The plane that fits a cloud of points best.

#include "support/cases.h"
#include "support/random.h"

#include <zrBase/tools3d/zr3DTools.h>

#define CGAL_EIGEN3_ENABLED
#define CGAL_NO_DEPRECATION_WARNINGS
#include <CGAL/Diagonalize_traits.h>
#include <CGAL/Eigen_diagonalize_traits.h>
#include <CGAL/Simple_cartesian.h>
#include <CGAL/linear_least_squares_fitting_3.h>

#include <vector>

namespace {

using Kernel = CGAL::Simple_cartesian<double>;

/// Points of a fault plane, dip 60 towards 120, at map coordinates, a metre rough.
VertexLine roughPlane(const benchmark::State& state) {
  Random random;
  const gdfVertex alongStrike(0.5, 0.8660254037844386, 0.0);
  const gdfVertex downDip(0.4330127018922193, -0.25, -0.8660254037844386);
  const gdfVertex normal(0.75, -0.4330127018922193, 0.5);
  VertexLine points;
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    points.push_back(
        gdfVertex(512345.6, 4123456.7, -1500.0) + alongStrike * random.between(-2000.0, 2000.0) +
        downDip * random.between(-1000.0, 1000.0) + normal * random.between(-1.0, 1.0));
  }
  return points;
}

void zrBaseFit(benchmark::State& state) {
  const VertexLine points = roughPlane(state);
  for (auto _ : state) {
    gdfVertex centre;
    gdfVertex normal;
    zr3DTools::lsOrthogonalPlaneFit(points, centre, normal);
    benchmark::DoNotOptimize(normal);
  }
}

/// With the search for upright clouds before the fit.
void zrBaseFlaggedFit(benchmark::State& state) {
  const VertexLine points = roughPlane(state);
  for (auto _ : state) {
    gdfVertex centre;
    gdfVertex normal;
    zr3DTools::lsOrthogonalPlaneFit(points, true, centre, normal);
    benchmark::DoNotOptimize(normal);
  }
}

template <class Solver>
void cgalFit(benchmark::State& state) {
  std::vector<Kernel::Point_3> points;
  for (const gdfVertex& v : roughPlane(state)) points.emplace_back(v.x(), v.y(), v.z());
  for (auto _ : state) {
    Kernel::Plane_3 plane;
    Kernel::Point_3 centroid;
    CGAL::linear_least_squares_fitting_3(points.begin(), points.end(), plane, centroid,
                                         CGAL::Dimension_tag<0>(), Kernel(), Solver());
    benchmark::DoNotOptimize(plane);
  }
}

/// What CGAL takes where it is not told of Eigen: an iteration of its own.
using OwnSolver = CGAL::Diagonalize_traits<double, 3>;
/// What it takes otherwise: Eigen's closed form, with half of the digits where eigenvalues lie
/// close together.
using EigenSolver = CGAL::Eigen_diagonalize_traits<double, 3>;

void sizes(benchmark::internal::Benchmark* registered) {
  registered->ArgName("points")->Arg(10)->Arg(1000)->Arg(100000);
}

BENCHMARK(zrBaseFit)->Name("planeFit/zrBase")->Apply(sizes);
BENCHMARK(zrBaseFlaggedFit)->Name("planeFit/zrBase_flagged")->Apply(sizes);
BENCHMARK_TEMPLATE(cgalFit, OwnSolver)->Name("planeFit/CGAL")->Apply(sizes);
BENCHMARK_TEMPLATE(cgalFit, EigenSolver)->Name("planeFit/CGAL_closed_form*")->Apply(sizes);

}  // namespace
