// A path parallel to a trace, from a skeleton that stands; the peer is the mitred offset curve of
// GEOS.

#include "support/cases.h"
#include "support/peers.h"

#include <zrBase/bisectors/zr2DBisectorSet.h>
#include <zrBase/tools2d/zr2DTools.h>

#include <algorithm>

namespace {

constexpr std::size_t mostVertices = 400;

struct Job {
  VertexLine line;
  double height;
  zr2DBisectorSet skeleton;
};

/// A trace of at most 400 vertices, and a height in percent of its length.
Job jobOf(const benchmark::State& state) {
  Job job;
  for (const traces::Trace& trace : traces::longTraces()) {
    if (trace.record == state.range(0)) job.line = trace.line;
  }
  job.line.resize(std::min(job.line.size(), mostVertices));
  job.height = 0.01 * static_cast<double>(state.range(1)) * zr2DTools::calcLength(job.line);
  const traces::Extent model = traces::modelExtent(job.line);
  job.skeleton.generateBisectors(job.line, model.low, model.high);
  job.skeleton.expandBisectors();
  return job;
}

template <int mode>
void atHeight(benchmark::State& state) {
  Job job = jobOf(state);
  job.skeleton.setFlowPathMode(mode);
  std::size_t vertices = 0;
  for (auto _ : state) {
    zrFlowPath path;
    if (!job.skeleton.generateFlowPath(job.height, path)) state.SkipWithError("no path");
    benchmark::DoNotOptimize(path.getFlowLine().data());
    vertices = path.getFlowLine().size();
  }
  cases::tellResult(state, vertices);
}

/// The point lies in the middle of the path at the height.
void throughPoint(benchmark::State& state) {
  Job job = jobOf(state);
  job.skeleton.setFlowPathMode(1);
  zrFlowPath model;
  job.skeleton.generateFlowPath(job.height, model);
  const VertexLine& places = model.getFlowLine();
  const std::size_t middle = places.size() / 2;
  const gdfVertex point = (places[middle - 1] + places[middle]) * 0.5;
  std::size_t vertices = 0;
  for (auto _ : state) {
    zrFlowPath path;
    if (!job.skeleton.generateFlowPath(point, path, false, job.height)) {
      state.SkipWithError("no path");
    }
    benchmark::DoNotOptimize(path.getFlowLine().data());
    vertices = path.getFlowLine().size();
  }
  cases::tellResult(state, vertices);
}

void geosOffsetCurve(benchmark::State& state) {
  const Job job = jobOf(state);
  const peers::GeosGeometry line = peers::geosLine(job.line);
  int vertices = 0;
  for (auto _ : state) {
    const peers::GeosGeometry curve(
        GEOSOffsetCurve_r(peers::geos(), line.get(), job.height, 8, GEOSBUF_JOIN_MITRE, 5.0));
    vertices = GEOSGetNumCoordinates_r(peers::geos(), curve.get());
  }
  cases::tellResult(state, static_cast<std::size_t>(vertices));
}

void heights(benchmark::internal::Benchmark* registered) {
  registered->ArgNames({"record", "height%"});
  for (const traces::Trace& trace : traces::longTraces()) {
    for (const int percent : {1, 5, 10, -1, -5, -10}) registered->Args({trace.record, percent});
  }
}

BENCHMARK_TEMPLATE(atHeight, 0)->Name("flowPath/zrBase_mode0")->Apply(heights);
BENCHMARK_TEMPLATE(atHeight, 1)->Name("flowPath/zrBase_mode1")->Apply(heights);
BENCHMARK(throughPoint)->Name("flowPath/zrBase_throughPoint")->Apply(heights);
BENCHMARK(geosOffsetCurve)->Name("flowPath/GEOS")->Apply(heights);

}  // namespace
