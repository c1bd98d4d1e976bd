#ifndef ZRBASE_BENCHMARKS_SUPPORT_PEERS_H
#define ZRBASE_BENCHMARKS_SUPPORT_PEERS_H

#include <zrBase/geometry/gdfVertex.h>

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <geos_c.h>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/multi_point.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/segment.hpp>

#include <memory>

/// Geometry in the peers' own types. Benchmarks make it before they start the clock.
namespace peers {

namespace bg = boost::geometry;

using BoostPoint = bg::model::d2::point_xy<double>;
using BoostSegment = bg::model::segment<BoostPoint>;
using BoostLine = bg::model::linestring<BoostPoint>;
using BoostPoints = bg::model::multi_point<BoostPoint>;

using CgalKernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using CgalPoint = CgalKernel::Point_2;
using CgalSegment = CgalKernel::Segment_2;

inline BoostPoint boostPoint(const gdfVertex& v) { return {v.x(), v.y()}; }
inline CgalPoint cgalPoint(const gdfVertex& v) { return {v.x(), v.y()}; }

inline BoostLine boostLine(const VertexLine& line) {
  BoostLine result;
  for (const gdfVertex& v : line) result.push_back(boostPoint(v));
  return result;
}

/// The context of all GEOS calls of this program.
inline GEOSContextHandle_t geos() {
  static const std::unique_ptr<GEOSContextHandle_HS, void (*)(GEOSContextHandle_t)> context(
      GEOS_init_r(), GEOS_finish_r);
  return context.get();
}

struct GeosDeleter {
  void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(geos(), geometry); }
  void operator()(const GEOSPreparedGeometry* geometry) const {
    GEOSPreparedGeom_destroy_r(geos(), geometry);
  }
};
using GeosGeometry = std::unique_ptr<GEOSGeometry, GeosDeleter>;
using GeosPrepared = std::unique_ptr<const GEOSPreparedGeometry, GeosDeleter>;

inline GeosGeometry geosLine(const VertexLine& line) {
  const auto count = static_cast<unsigned>(line.size());
  GEOSCoordSequence* const sequence = GEOSCoordSeq_create_r(geos(), count, 2);
  for (unsigned i = 0; i < count; ++i) {
    GEOSCoordSeq_setXY_r(geos(), sequence, i, line[i].x(), line[i].y());
  }
  return GeosGeometry(GEOSGeom_createLineString_r(geos(), sequence));
}

inline GeosGeometry geosPoint(const gdfVertex& v) {
  return GeosGeometry(GEOSGeom_createPointFromXY_r(geos(), v.x(), v.y()));
}

}  // namespace peers

#endif  // ZRBASE_BENCHMARKS_SUPPORT_PEERS_H
