// Where a plane cuts a triangle.

#include "support/cases.h"
#include "support/random.h"

#include <zrBase/tools3d/zr3DTools.h>

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Simple_cartesian.h>
#include <CGAL/intersections.h>
#include <boost/variant/get.hpp>

#include <vector>

namespace {

constexpr std::size_t triangleCount = 4096;
const gdfVertex planeNormal(0.6, 0.0, 0.8);
constexpr double planeOffset = 10.0;

struct Triangle {
  gdfVertex a, b, c;
};

/// Triangles of about 50 m within 60 m of the plane: half of them are cut, half are not.
const std::vector<Triangle>& triangles() {
  static const std::vector<Triangle> all = [] {
    Random random;
    std::vector<Triangle> result;
    const auto vertex = [&random](const gdfVertex& centre, double reach) {
      const double x = random.between(-reach, reach);
      const double y = random.between(-reach, reach);
      return centre + gdfVertex(x, y, random.between(-reach, reach));
    };
    for (std::size_t i = 0; i < triangleCount; ++i) {
      const gdfVertex centre = vertex(gdfVertex(0, 0, 0), 60.0);
      result.push_back({vertex(centre, 25.0), vertex(centre, 25.0), vertex(centre, 25.0)});
    }
    return result;
  }();
  return all;
}

void zrBaseCut(benchmark::State& state) {
  std::size_t found = 0;
  for (auto _ : state) {
    found = 0;
    for (const Triangle& t : triangles()) {
      gdfVertex first;
      gdfVertex second;
      found += zr3DTools::planeTriangleIntersect(planeOffset, planeNormal, t.a, t.b, t.c, first,
                                                 second, 1e-5)
                   ? 1U
                   : 0U;
      benchmark::DoNotOptimize(first);
      benchmark::DoNotOptimize(second);
    }
  }
  cases::countOperations(state, triangleCount);
  cases::tellResult(state, found);
}

template <class Kernel>
void cgalCut(benchmark::State& state) {
  using Point = typename Kernel::Point_3;
  const auto point = [](const gdfVertex& v) { return Point(v.x(), v.y(), v.z()); };
  std::vector<typename Kernel::Triangle_3> prepared;
  for (const Triangle& t : triangles()) prepared.emplace_back(point(t.a), point(t.b), point(t.c));
  const typename Kernel::Plane_3 plane(planeNormal.x(), planeNormal.y(), planeNormal.z(),
                                       -planeOffset);
  std::size_t found = 0;
  for (auto _ : state) {
    found = 0;
    for (const typename Kernel::Triangle_3& t : prepared) {
      const auto result = CGAL::intersection(plane, t);
      if (result && boost::get<typename Kernel::Segment_3>(&*result) != nullptr) ++found;
    }
    benchmark::DoNotOptimize(found);
  }
  cases::countOperations(state, triangleCount);
  cases::tellResult(state, found);
}

BENCHMARK(zrBaseCut)->Name("planeTriangle/zrBase");
BENCHMARK(cgalCut<CGAL::Simple_cartesian<double>>)->Name("planeTriangle/CGAL_double");
BENCHMARK(cgalCut<CGAL::Exact_predicates_inexact_constructions_kernel>)
    ->Name("planeTriangle/CGAL_exact_predicates");

}  // namespace
