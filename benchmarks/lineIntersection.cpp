// All crossings of two lines, and whether there is one.

#include "support/cases.h"
#include "support/peers.h"

#include <zrBase/tools2d/zr2DTools.h>

#include <CGAL/box_intersection_d.h>
#include <boost/variant/get.hpp>

#include <utility>
#include <vector>

namespace {

struct Lines {
  VertexLine first, second;
};

/// A trace and its copy, turned about its centre.
Lines turnedTraces(const benchmark::State& state) {
  const VertexLine line = cases::lineOf(state);
  return {line, traces::turned(line, 30.0)};
}

/// Two combs of which each tooth of one crosses each tooth of the other: the most crossings there
/// can be.
Lines combs(const benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const double width = 10.0;
  const VertexLine comb = traces::zigzag(count, width, width * static_cast<double>(count));
  return {comb, traces::turned(comb, 90.0)};
}

using MakeLines = Lines (*)(const benchmark::State&);

template <MakeLines make>
void zrBaseAll(benchmark::State& state) {
  const Lines lines = make(state);
  std::size_t found = 0;
  for (auto _ : state) {
    VertexLine crossings;
    zr2DTools::getLineLineIntersect(lines.first, lines.second, crossings, 0.0);
    benchmark::DoNotOptimize(crossings.data());
    found = crossings.size();
  }
  cases::tellResult(state, found);
}

template <MakeLines make>
void geosAll(benchmark::State& state) {
  const Lines lines = make(state);
  const peers::GeosGeometry first = peers::geosLine(lines.first);
  const peers::GeosGeometry second = peers::geosLine(lines.second);
  int found = 0;
  for (auto _ : state) {
    const peers::GeosGeometry crossings(
        GEOSIntersection_r(peers::geos(), first.get(), second.get()));
    found = GEOSGetNumGeometries_r(peers::geos(), crossings.get());
  }
  cases::tellResult(state, static_cast<std::size_t>(found));
}

template <MakeLines make>
void boostAll(benchmark::State& state) {
  const Lines lines = make(state);
  const peers::BoostLine first = peers::boostLine(lines.first);
  const peers::BoostLine second = peers::boostLine(lines.second);
  std::size_t found = 0;
  for (auto _ : state) {
    peers::BoostPoints crossings;
    peers::bg::intersection(first, second, crossings);
    benchmark::DoNotOptimize(crossings.data());
    found = crossings.size();
  }
  cases::tellResult(state, found);
}

using CgalSegments = std::vector<peers::CgalSegment>;

CgalSegments cgalSegments(const VertexLine& line) {
  CgalSegments segments;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    segments.emplace_back(peers::cgalPoint(line[i]), peers::cgalPoint(line[i + 1]));
  }
  return segments;
}

/// Segments whose boxes meet by CGAL's sweep over boxes, which are made anew each time, as the
/// indices of the other peers are; and then the crossing of each pair.
template <MakeLines make>
void cgalAll(benchmark::State& state) {
  using Box = CGAL::Box_intersection_d::Box_with_handle_d<double, 2, CgalSegments::const_iterator>;
  const Lines lines = make(state);
  const CgalSegments first = cgalSegments(lines.first);
  const CgalSegments second = cgalSegments(lines.second);
  const auto boxesOf = [](const CgalSegments& segments) {
    std::vector<Box> boxes;
    boxes.reserve(segments.size());
    for (auto s = segments.begin(); s != segments.end(); ++s) boxes.emplace_back(s->bbox(), s);
    return boxes;
  };
  std::size_t found = 0;
  for (auto _ : state) {
    std::vector<peers::CgalPoint> crossings;
    std::vector<Box> firstBoxes = boxesOf(first);
    std::vector<Box> secondBoxes = boxesOf(second);
    CGAL::box_intersection_d(firstBoxes.begin(), firstBoxes.end(), secondBoxes.begin(),
                             secondBoxes.end(), [&](const Box& s, const Box& t) {
                               const auto result = CGAL::intersection(*s.handle(), *t.handle());
                               if (!result) return;
                               const auto* hit = boost::get<peers::CgalPoint>(&*result);
                               if (hit != nullptr) crossings.push_back(*hit);
                             });
    benchmark::DoNotOptimize(crossings.data());
    found = crossings.size();
  }
  cases::tellResult(state, found);
}

void zrBaseAny(benchmark::State& state) {
  const Lines lines = turnedTraces(state);
  for (auto _ : state) {
    gdfVertex crossing;
    benchmark::DoNotOptimize(
        zr2DTools::getLineLineIntersect(lines.first, lines.second, crossing, 0.0));
    benchmark::DoNotOptimize(crossing);
  }
}

/// The index of the first line stands before the clock starts; no crossing is told.
void geosPreparedAny(benchmark::State& state) {
  const Lines lines = turnedTraces(state);
  const peers::GeosGeometry first = peers::geosLine(lines.first);
  const peers::GeosGeometry second = peers::geosLine(lines.second);
  const peers::GeosPrepared prepared(GEOSPrepare_r(peers::geos(), first.get()));
  for (auto _ : state) {
    benchmark::DoNotOptimize(GEOSPreparedIntersects_r(peers::geos(), prepared.get(), second.get()));
  }
}

void boostAny(benchmark::State& state) {
  const Lines lines = turnedTraces(state);
  const peers::BoostLine first = peers::boostLine(lines.first);
  const peers::BoostLine second = peers::boostLine(lines.second);
  for (auto _ : state) benchmark::DoNotOptimize(peers::bg::intersects(first, second));
}

void sizes(benchmark::internal::Benchmark* registered) {
  cases::tracesBySize(registered, {50, 100, 200, 400, 800});
}
void combSizes(benchmark::internal::Benchmark* registered) {
  registered->ArgName("vertices")->Arg(50)->Arg(100);
}

BENCHMARK_TEMPLATE(zrBaseAll, turnedTraces)->Name("linesAll/zrBase")->Apply(sizes);
BENCHMARK_TEMPLATE(geosAll, turnedTraces)->Name("linesAll/GEOS")->Apply(sizes);
BENCHMARK_TEMPLATE(boostAll, turnedTraces)->Name("linesAll/Boost")->Apply(sizes);
BENCHMARK_TEMPLATE(cgalAll, turnedTraces)->Name("linesAll/CGAL_boxes")->Apply(sizes);

BENCHMARK_TEMPLATE(zrBaseAll, combs)->Name("linesWorst/zrBase")->Apply(combSizes);
BENCHMARK_TEMPLATE(geosAll, combs)->Name("linesWorst/GEOS")->Apply(combSizes);
BENCHMARK_TEMPLATE(boostAll, combs)->Name("linesWorst/Boost")->Apply(combSizes);
BENCHMARK_TEMPLATE(cgalAll, combs)->Name("linesWorst/CGAL_boxes")->Apply(combSizes);

BENCHMARK(zrBaseAny)->Name("linesAny/zrBase")->Apply(sizes);
BENCHMARK(geosPreparedAny)->Name("linesAny/GEOS_prepared*")->Apply(sizes);
BENCHMARK(boostAny)->Name("linesAny/Boost*")->Apply(sizes);

}  // namespace
