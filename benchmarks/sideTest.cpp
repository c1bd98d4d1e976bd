// Side of a point against one segment, and against a whole trace.

#include "support/cases.h"
#include "support/peers.h"

#include <zrBase/tools2d/zr2DTools.h>

#include <vector>

namespace {

/// Segments of all long traces, each with a place near its trace.
struct Triple {
  gdfVertex start, end, place;
};

const std::vector<Triple>& triples() {
  static const std::vector<Triple> all = [] {
    std::vector<Triple> result;
    for (const traces::Trace& trace : traces::longTraces()) {
      const VertexLine& line = trace.line;
      const VertexLine places = traces::placesAround(line, 2 * (line.size() - 1));
      for (std::size_t i = 0; i < places.size(); ++i) {
        const std::size_t segment = i % (line.size() - 1);
        result.push_back({line[segment], line[segment + 1], places[i]});
      }
    }
    return result;
  }();
  return all;
}

struct SideOfVector {
  struct Prepared {
    gdfVertex origin, direction, place;
  };
  static Prepared make(const Triple& t) {
    gdfVertex direction = t.end - t.start;
    direction.normalise();
    return {t.start, direction, t.place};
  }
  static bool isLeft(const Prepared& p) {
    return zr2DTools::getSideOfVector(p.origin, p.direction, p.place, 0.0) == zre::sideLeft;
  }
};

struct SideOfSegment {
  using Prepared = Triple;
  static Prepared make(const Triple& t) { return t; }
  static bool isLeft(const Prepared& p) {
    return zr2DTools::getSideOfSegment(p.start, p.end, p.place, 0.0) == zre::sideLeft;
  }
};

/// Exact: the sign is right however close the place lies to the segment's line.
struct CgalOrientation {
  struct Prepared {
    peers::CgalPoint start, end, place;
  };
  static Prepared make(const Triple& t) {
    return {peers::cgalPoint(t.start), peers::cgalPoint(t.end), peers::cgalPoint(t.place)};
  }
  static bool isLeft(const Prepared& p) {
    return CGAL::orientation(p.start, p.end, p.place) == CGAL::LEFT_TURN;
  }
};

/// Not exact: a cross product, and a tolerance relative to its terms.
struct BoostSide {
  struct Prepared {
    peers::BoostPoint start, end, place;
  };
  static Prepared make(const Triple& t) {
    return {peers::boostPoint(t.start), peers::boostPoint(t.end), peers::boostPoint(t.place)};
  }
  static bool isLeft(const Prepared& p) {
    return peers::bg::strategy::side::side_by_triangle<>::apply(p.start, p.end, p.place) > 0;
  }
};

/// Exact, by a filter and doubled doubles.
struct GeosOrientation {
  using Prepared = Triple;
  static Prepared make(const Triple& t) { return t; }
  static bool isLeft(const Prepared& p) {
    return GEOSOrientationIndex_r(peers::geos(), p.start.x(), p.start.y(), p.end.x(), p.end.y(),
                                  p.place.x(), p.place.y()) == 1;
  }
};

template <class Contender>
void sideOfOne(benchmark::State& state) {
  std::vector<typename Contender::Prepared> prepared;
  for (const Triple& t : triples()) prepared.push_back(Contender::make(t));
  std::size_t left = 0;
  for (auto _ : state) {
    left = 0;
    for (const auto& p : prepared) left += Contender::isLeft(p) ? 1 : 0;
    benchmark::DoNotOptimize(left);
  }
  cases::countOperations(state, prepared.size());
  cases::tellResult(state, left);
}

BENCHMARK_TEMPLATE(sideOfOne, SideOfVector)->Name("sideOfSegment/zrBase_getSideOfVector");
BENCHMARK_TEMPLATE(sideOfOne, SideOfSegment)->Name("sideOfSegment/zrBase_getSideOfSegment");
BENCHMARK_TEMPLATE(sideOfOne, CgalOrientation)->Name("sideOfSegment/CGAL");
BENCHMARK_TEMPLATE(sideOfOne, BoostSide)->Name("sideOfSegment/Boost");
BENCHMARK_TEMPLATE(sideOfOne, GeosOrientation)->Name("sideOfSegment/GEOS");

constexpr std::size_t placeCount = 256;

void sideOfLine(benchmark::State& state) {
  const VertexLine line = cases::lineOf(state);
  const VertexLine places = traces::placesAround(line, placeCount);
  for (auto _ : state) {
    for (const gdfVertex& place : places) {
      benchmark::DoNotOptimize(zr2DTools::getSideOfLine(line, place, 0.0));
    }
  }
  cases::countOperations(state, places.size());
}

/// Finds the nearest place on the line, and no side.
void projectOnLine(benchmark::State& state) {
  const VertexLine line = cases::lineOf(state);
  const peers::GeosGeometry geosLine = peers::geosLine(line);
  std::vector<peers::GeosGeometry> places;
  for (const gdfVertex& v : traces::placesAround(line, placeCount)) {
    places.push_back(peers::geosPoint(v));
  }
  for (auto _ : state) {
    for (const peers::GeosGeometry& place : places) {
      benchmark::DoNotOptimize(GEOSProject_r(peers::geos(), geosLine.get(), place.get()));
    }
  }
  cases::countOperations(state, places.size());
}

/// Finds the distance from the line, and no side.
void distanceFromLine(benchmark::State& state) {
  const VertexLine line = cases::lineOf(state);
  const peers::BoostLine boostLine = peers::boostLine(line);
  std::vector<peers::BoostPoint> places;
  for (const gdfVertex& v : traces::placesAround(line, placeCount)) {
    places.push_back(peers::boostPoint(v));
  }
  for (auto _ : state) {
    for (const peers::BoostPoint& place : places) {
      benchmark::DoNotOptimize(peers::bg::comparable_distance(place, boostLine));
    }
  }
  cases::countOperations(state, places.size());
}

void sizes(benchmark::internal::Benchmark* registered) {
  cases::tracesBySize(registered, {50, 300});
}

BENCHMARK(sideOfLine)->Name("sideOfLine/zrBase")->Apply(sizes);
BENCHMARK(projectOnLine)->Name("sideOfLine/GEOS_project*")->Apply(sizes);
BENCHMARK(distanceFromLine)->Name("sideOfLine/Boost_distance*")->Apply(sizes);

}  // namespace
