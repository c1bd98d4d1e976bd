// A point moved along a path by slip, and linear referencing by the peers.

#include "support/cases.h"
#include "support/peers.h"
#include "support/random.h"

#include <zrBase/bisectors/zrFlowPath.h>

#include <vector>

namespace {

constexpr std::size_t slipCount = 1024;

/// A trace as a path, whose slips are the lengths from its start, and slips at random within it.
struct Job {
  zrFlowPath path;
  std::vector<double> slips;
};

Job jobOf(const benchmark::State& state) {
  const VertexLine line = cases::lineOf(state);
  std::vector<double> slips{0.0};
  for (std::size_t i = 1; i < line.size(); ++i) {
    slips.push_back(slips.back() + line[i].distance(line[i - 1]));
  }
  Job job;
  job.path.setFlow(line, slips);
  Random random;
  for (std::size_t i = 0; i < slipCount; ++i)
    job.slips.push_back(random.between(0.0, slips.back()));
  return job;
}

void zrBaseVertex(benchmark::State& state) {
  const Job job = jobOf(state);
  for (auto _ : state) {
    for (const double slip : job.slips) benchmark::DoNotOptimize(job.path.getVertex(slip));
  }
  cases::countOperations(state, job.slips.size());
}

void geosInterpolate(benchmark::State& state) {
  const Job job = jobOf(state);
  const peers::GeosGeometry line = peers::geosLine(job.path.getFlowLine());
  for (auto _ : state) {
    for (const double slip : job.slips) {
      const peers::GeosGeometry place(GEOSInterpolate_r(peers::geos(), line.get(), slip));
      benchmark::DoNotOptimize(place.get());
    }
  }
  cases::countOperations(state, job.slips.size());
}

void boostInterpolate(benchmark::State& state) {
  const Job job = jobOf(state);
  const peers::BoostLine line = peers::boostLine(job.path.getFlowLine());
  for (auto _ : state) {
    for (const double slip : job.slips) {
      peers::BoostPoint place;
      peers::bg::line_interpolate(line, slip, place);
      benchmark::DoNotOptimize(place);
    }
  }
  cases::countOperations(state, job.slips.size());
}

void sizes(benchmark::internal::Benchmark* registered) {
  cases::tracesBySize(registered, {50, 300});
}

BENCHMARK(zrBaseVertex)->Name("movedPoint/zrBase")->Apply(sizes);
BENCHMARK(geosInterpolate)->Name("movedPoint/GEOS")->Apply(sizes);
BENCHMARK(boostInterpolate)->Name("movedPoint/Boost")->Apply(sizes);

}  // namespace
