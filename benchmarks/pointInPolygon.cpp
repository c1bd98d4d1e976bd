// Whether places lie in a polygon: rings of 10 to 10,000 vertices.

#include "support/cases.h"
#include "support/peers.h"
#include "support/random.h"

#include <zrBase/tools2d/zr2DTools.h>

#include <boost/geometry/geometries/polygon.hpp>

#include <cmath>
#include <vector>

namespace {

constexpr double radius = 1000.0;
constexpr std::size_t placeCount = 64;

/// A closed ring with a bay and a cape for every eight vertices or so.
VertexLine ragged(const benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  Random random;
  VertexLine ring;
  for (std::size_t i = 0; i < count; ++i) {
    const double angle =
        2.0 * 3.141592653589793 * static_cast<double>(i) / static_cast<double>(count);
    const double reach = radius * (0.75 + 0.2 * std::sin(angle * static_cast<double>(count) / 8.0) +
                                   random.between(-0.05, 0.05));
    ring.emplace_back(reach * std::cos(angle), reach * std::sin(angle));
  }
  ring.push_back(ring.front());
  return ring;
}

VertexLine places() {
  Random random;
  VertexLine result;
  for (std::size_t i = 0; i < placeCount; ++i) {
    const double x = random.between(-radius, radius);
    result.emplace_back(x, random.between(-radius, radius));
  }
  return result;
}

/// Asks of all places, and tells how many were inside.
template <class Places, class Inside>
void ask(benchmark::State& state, const Places& all, Inside inside) {
  std::size_t found = 0;
  for (auto _ : state) {
    found = 0;
    for (const auto& place : all) found += inside(place) ? 1U : 0U;
    benchmark::DoNotOptimize(found);
  }
  cases::countOperations(state, placeCount);
  cases::tellResult(state, found);
}

void zrBaseInside(benchmark::State& state) {
  const VertexLine ring = ragged(state);
  ask(state, places(), [&ring](const gdfVertex& place) {
    return zr2DTools::vertexInsidePolygon(ring, place, 10.0 * radius, 1e-5);
  });
}

void boostInside(benchmark::State& state) {
  peers::bg::model::polygon<peers::BoostPoint> polygon;
  for (const gdfVertex& v : ragged(state)) polygon.outer().push_back(peers::boostPoint(v));
  peers::bg::correct(polygon);
  std::vector<peers::BoostPoint> all;
  for (const gdfVertex& v : places()) all.push_back(peers::boostPoint(v));
  ask(state, all,
      [&polygon](const peers::BoostPoint& place) { return peers::bg::within(place, polygon); });
}

peers::GeosGeometry geosPolygon(const benchmark::State& state) {
  const VertexLine ring = ragged(state);
  const auto count = static_cast<unsigned>(ring.size());
  GEOSCoordSequence* const sequence = GEOSCoordSeq_create_r(peers::geos(), count, 2);
  for (unsigned i = 0; i < count; ++i) {
    GEOSCoordSeq_setXY_r(peers::geos(), sequence, i, ring[i].x(), ring[i].y());
  }
  GEOSGeometry* const shell = GEOSGeom_createLinearRing_r(peers::geos(), sequence);
  return peers::GeosGeometry(GEOSGeom_createPolygon_r(peers::geos(), shell, nullptr, 0));
}

std::vector<peers::GeosGeometry> geosPlaces() {
  std::vector<peers::GeosGeometry> all;
  for (const gdfVertex& v : places()) all.push_back(peers::geosPoint(v));
  return all;
}

void geosInside(benchmark::State& state) {
  const peers::GeosGeometry polygon = geosPolygon(state);
  ask(state, geosPlaces(), [&polygon](const peers::GeosGeometry& place) {
    return GEOSContains_r(peers::geos(), polygon.get(), place.get()) == 1;
  });
}

/// Its index of the ring stands before the clock starts.
void geosPreparedInside(benchmark::State& state) {
  const peers::GeosGeometry polygon = geosPolygon(state);
  const peers::GeosPrepared prepared(GEOSPrepare_r(peers::geos(), polygon.get()));
  const std::vector<peers::GeosGeometry> all = geosPlaces();
  GEOSPreparedContains_r(peers::geos(), prepared.get(), all.front().get());
  ask(state, all, [&prepared](const peers::GeosGeometry& place) {
    return GEOSPreparedContains_r(peers::geos(), prepared.get(), place.get()) == 1;
  });
}

void sizes(benchmark::internal::Benchmark* registered) {
  registered->ArgName("vertices")->RangeMultiplier(10)->Range(10, 10000);
}

BENCHMARK(zrBaseInside)->Name("inside/zrBase")->Apply(sizes);
BENCHMARK(boostInside)->Name("inside/Boost")->Apply(sizes);
BENCHMARK(geosInside)->Name("inside/GEOS")->Apply(sizes);
BENCHMARK(geosPreparedInside)->Name("inside/GEOS_prepared*")->Apply(sizes);

}  // namespace
