// A fitted survey grid: points mapped through it, and the stream of traces that it comes from.

#include "support/cases.h"

#include <zrBase/survey/zrSurveyCoordinates.h>

#include <gdal.h>
#include <gdal_alg.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

// A survey of ten million traces.
constexpr std::int64_t inlineCount = 2500;
constexpr std::int64_t traceCount = 4000;
constexpr std::int64_t allTraces = inlineCount * traceCount;

using GeoTransform = std::array<double, 6>;

/// Turned by 30 degrees, 25 metres from inline to inline and 12.5 from trace to trace.
zrSurveyCoordinates fittedGrid() {
  zrSurveyCoordinates grid;
  const gdfVertex origin(431955.0, 6348555.0, 0.0);
  const gdfVertex alongInlines = gdfVertex(-0.5, 0.8660254037844386, 0.0) * (25.0 * 2499.0);
  const gdfVertex alongTraces = gdfVertex(0.8660254037844386, 0.5, 0.0) * (12.5 * 3999.0);
  grid.SetOne(1.0, 1.0, origin);
  grid.SetTwo(1.0, 4000.0, origin + alongTraces);
  grid.SetThree(2500.0, 1.0, origin + alongInlines);
  grid.CalculateTransMatrices();
  return grid;
}

GeoTransform geoTransformOf(const gdfTransMatrix& m) {
  return {m(3, 0), m(0, 0), m(1, 0), m(3, 1), m(0, 1), m(1, 1)};
}

enum class Direction { toWorld, toSurvey };

/// Points as both sides like them best: x and y apart for GDAL, vertices for us.
struct Points {
  std::vector<double> x;
  std::vector<double> y;
};

/// Scattered over the survey, in survey numbers or, to be mapped back, in the world.
Points scatteredPoints(const benchmark::State& state, Direction direction) {
  const zrSurveyCoordinates grid = fittedGrid();
  const std::int64_t count = state.range(0);
  Points points;
  points.x.reserve(static_cast<std::size_t>(count));
  points.y.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    const std::int64_t place = i * 7368787 % allTraces;
    gdfVertex v(static_cast<double>(place / traceCount) + 1.25,
                static_cast<double>(place % traceCount) + 1.5, 0.0);
    if (direction == Direction::toSurvey) grid.Survey2World(v);
    points.x.push_back(v.x());
    points.y.push_back(v.y());
  }
  return points;
}

/// The mean of all coordinates, in thousandths.
void tellMean(benchmark::State& state, const Points& mapped) {
  double sum = 0.0;
  for (const double x : mapped.x) sum += x;
  for (const double y : mapped.y) sum += y;
  const double count = static_cast<double>(mapped.x.size());
  cases::tellResult(state, static_cast<std::size_t>(std::llround(sum / count * 1000.0)));
  cases::countOperations(state, mapped.x.size());
}

template <Direction direction>
void zrBaseMap(benchmark::State& state) {
  const zrSurveyCoordinates grid = fittedGrid();
  const Points points = scatteredPoints(state, direction);
  Points mapped = points;
  for (auto _ : state) {
    for (std::size_t i = 0; i < points.x.size(); ++i) {
      double x = points.x[i];
      double y = points.y[i];
      double z = 0.0;
      if constexpr (direction == Direction::toWorld) {
        grid.Survey2World(x, y, z);
      } else {
        grid.World2Survey(x, y, z);
      }
      mapped.x[i] = x;
      mapped.y[i] = y;
    }
    benchmark::ClobberMemory();
  }
  tellMean(state, mapped);
}

template <Direction direction>
void zrBaseMapVertices(benchmark::State& state) {
  const zrSurveyCoordinates grid = fittedGrid();
  Points points = scatteredPoints(state, direction);
  VertexLine vertices;
  vertices.reserve(points.x.size());
  for (std::size_t i = 0; i < points.x.size(); ++i) {
    vertices.emplace_back(points.x[i], points.y[i], 0.0);
  }
  VertexLine mapped = vertices;
  for (auto _ : state) {
    for (std::size_t i = 0; i < vertices.size(); ++i) {
      gdfVertex v = vertices[i];
      if constexpr (direction == Direction::toWorld) {
        grid.Survey2World(v);
      } else {
        grid.World2Survey(v);
      }
      mapped[i] = v;
    }
    benchmark::ClobberMemory();
  }
  for (std::size_t i = 0; i < mapped.size(); ++i) {
    points.x[i] = mapped[i].x();
    points.y[i] = mapped[i].y();
  }
  tellMean(state, points);
}

template <Direction direction>
GeoTransform geoTransform() {
  GeoTransform toWorld = geoTransformOf(fittedGrid().SurveyToWorld());
  if (direction == Direction::toWorld) return toWorld;
  GeoTransform toSurvey{};
  const bool inverted = GDALInvGeoTransform(toWorld.data(), toSurvey.data()) != 0;
  return inverted ? toSurvey : GeoTransform{};
}

template <Direction direction>
void gdalApply(benchmark::State& state) {
  GeoTransform transform = geoTransform<direction>();
  const Points points = scatteredPoints(state, direction);
  Points mapped = points;
  for (auto _ : state) {
    for (std::size_t i = 0; i < points.x.size(); ++i) {
      GDALApplyGeoTransform(transform.data(), points.x[i], points.y[i], &mapped.x[i], &mapped.y[i]);
    }
    benchmark::ClobberMemory();
  }
  tellMean(state, mapped);
}

/// The transformer of whole arrays, without a projection. It works in place: on a block that stays
/// in the cache, so that the copy before it costs little.
template <Direction direction>
void gdalTransformer(benchmark::State& state) {
  constexpr std::size_t blockSize = 1024;
  GeoTransform transform = geoTransformOf(fittedGrid().SurveyToWorld());
  void* const transformer =
      GDALCreateGenImgProjTransformer3(nullptr, transform.data(), nullptr, nullptr);
  if (transformer == nullptr) return state.SkipWithError("no transformer");
  const Points points = scatteredPoints(state, direction);
  Points mapped = points;
  std::vector<double> z(blockSize);
  std::vector<int> succeeded(blockSize);
  for (auto _ : state) {
    for (std::size_t begin = 0; begin < points.x.size(); begin += blockSize) {
      const std::size_t count = std::min(blockSize, points.x.size() - begin);
      std::copy_n(points.x.data() + begin, count, mapped.x.data() + begin);
      std::copy_n(points.y.data() + begin, count, mapped.y.data() + begin);
      GDALGenImgProjTransform(transformer, direction == Direction::toSurvey ? TRUE : FALSE,
                              static_cast<int>(count), mapped.x.data() + begin,
                              mapped.y.data() + begin, z.data(), succeeded.data());
    }
    benchmark::ClobberMemory();
  }
  GDALDestroyGenImgProjTransformer(transformer);
  tellMean(state, mapped);
}

void sizes(benchmark::internal::Benchmark* registered) {
  registered->ArgName("points")->Arg(4096)->Arg(allTraces)->Unit(benchmark::kMicrosecond);
}

#define MAPPING_BENCHMARKS(topic, direction)                                                      \
  BENCHMARK_TEMPLATE(zrBaseMap, direction)->Name(topic "/zrBase")->Apply(sizes);                  \
  BENCHMARK_TEMPLATE(zrBaseMapVertices, direction)->Name(topic "/zrBase_vertices")->Apply(sizes); \
  BENCHMARK_TEMPLATE(gdalApply, direction)->Name(topic "/GDAL")->Apply(sizes);                    \
  BENCHMARK_TEMPLATE(gdalTransformer, direction)->Name(topic "/GDAL_transformer")->Apply(sizes)

MAPPING_BENCHMARKS("surveyToWorld", Direction::toWorld);
MAPPING_BENCHMARKS("worldToSurvey", Direction::toSurvey);

/// How the traces of a survey come in.
enum Order : std::int64_t { alongInlines = 0, acrossInlines = 1, scattered = 2 };

/// Places in the order of arrival, and back in the grid of traces.
template <Order order>
std::int64_t placeOf(std::int64_t arrival) {
  if (order == acrossInlines) {
    return arrival % inlineCount * traceCount + arrival / inlineCount;
  }
  return order == scattered ? arrival * 7368787 % allTraces : arrival;
}

/// Bytes that the program holds of the heap.
std::size_t heapBytes() {
  const struct mallinfo2 held = mallinfo2();
  return held.uordblks + held.hblkhd;
}

template <Order order>
void feedTraces(zrSurveyCoordinatePoints& points, std::int64_t begin, std::int64_t end) {
  for (std::int64_t i = begin; i < end; ++i) {
    const std::int64_t place = placeOf<order>(i);
    const double inlineNumber = static_cast<double>(place / traceCount + 1);
    const double traceNumber = static_cast<double>(place % traceCount + 1);
    points.AddPoint(431955.0 + 12.5 * traceNumber, 6348555.0 + 25.0 * inlineNumber, inlineNumber,
                    traceNumber);
  }
}

/// The making of the traces counts too. The heap is looked at ten times on the way.
template <Order order>
void zrBaseStream(benchmark::State& state) {
  std::size_t mostBytes = 0;
  double longestRun = 0.0;
  for (auto _ : state) {
    const std::size_t bytesBefore = heapBytes();
    zrSurveyCoordinatePoints points;
    for (std::int64_t begin = 0; begin < allTraces; begin += allTraces / 10) {
      feedTraces<order>(points, begin, begin + allTraces / 10);
      mostBytes = std::max(mostBytes, heapBytes() - bytesBefore);
    }
    points.End();
    longestRun =
        std::max(points.longestRowEnd.traceNumber - points.longestRowStart.traceNumber,
                 points.longestColumnEnd.inlineNumber - points.longestColumnStart.inlineNumber);
  }
  state.SetItemsProcessed(state.iterations() * allTraces);
  state.counters["heapBytes"] = static_cast<double>(mostBytes);
  state.counters["objectBytes"] = static_cast<double>(sizeof(zrSurveyCoordinatePoints));
  cases::countOperations(state, static_cast<std::size_t>(allTraces));
  cases::tellResult(state, static_cast<std::size_t>(longestRun) + 1);
}

void traceStreams(benchmark::internal::Benchmark* registered, Order order) {
  registered->ArgName("order")->Arg(order)->Unit(benchmark::kMillisecond);
}

BENCHMARK_TEMPLATE(zrBaseStream, alongInlines)
    ->Name("traceStream/zrBase")
    ->Apply([](benchmark::internal::Benchmark* b) { traceStreams(b, alongInlines); });
BENCHMARK_TEMPLATE(zrBaseStream, acrossInlines)
    ->Name("traceStream/zrBase")
    ->Apply([](benchmark::internal::Benchmark* b) { traceStreams(b, acrossInlines); });
BENCHMARK_TEMPLATE(zrBaseStream, scattered)
    ->Name("traceStream/zrBase")
    ->Apply([](benchmark::internal::Benchmark* b) { traceStreams(b, scattered); });

}  // namespace
