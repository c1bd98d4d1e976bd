// The skeleton of a trace: both chains here, one side by CGAL's straight skeleton.

#include "support/cases.h"
#include "support/peers.h"

#include <zrBase/bisectors/zr2DBisectorSet.h>

#include <CGAL/Polygon_2.h>
#include <CGAL/create_straight_skeleton_2.h>

namespace {

using MakeLine = VertexLine (*)(const benchmark::State&);

VertexLine circleLine(const benchmark::State& state) {
  return traces::halfCircle(static_cast<std::size_t>(state.range(0)));
}

VertexLine zigzagLine(const benchmark::State& state) {
  return traces::zigzag(static_cast<std::size_t>(state.range(0)), 100.0, 1000.0);
}

template <MakeLine make>
void bothChains(benchmark::State& state) {
  const VertexLine line = make(state);
  const traces::Extent model = traces::modelExtent(line);
  for (auto _ : state) {
    zr2DBisectorSet skeleton;
    skeleton.generateBisectors(line, model.low, model.high);
    benchmark::DoNotOptimize(skeleton.getLeftBisectors().data());
    benchmark::DoNotOptimize(skeleton.getRightBisectors().data());
  }
}

using Ring = CGAL::Polygon_2<peers::CgalKernel>;

/// The line closed by two corners square to its ends' connection, as far out as the reach of the
/// merges in the model extent; empty where that ring crosses itself.
Ring ringOf(const VertexLine& line, double side) {
  gdfVertex along = line.back() - line.front();
  along.normalise();
  const gdfVertex out =
      gdfVertex(-along.y(), along.x()) * (side * traces::modelExtent(line).widthAndHeight());
  Ring ring;
  for (const gdfVertex& v : line) ring.push_back(peers::cgalPoint(v));
  ring.push_back(peers::cgalPoint(line.back() + out));
  ring.push_back(peers::cgalPoint(line.front() + out));
  if (!ring.is_simple()) return {};
  if (ring.is_clockwise_oriented()) ring.reverse_orientation();
  return ring;
}

template <MakeLine make>
void oneSide(benchmark::State& state) {
  const VertexLine line = make(state);
  Ring ring = ringOf(line, 1.0);
  if (ring.is_empty()) ring = ringOf(line, -1.0);
  if (ring.is_empty()) {
    state.SkipWithError("no simple ring");
    return;
  }
  for (auto _ : state) {
    const auto skeleton = CGAL::create_interior_straight_skeleton_2(ring);
    if (!skeleton) {
      state.SkipWithError("no skeleton");
      return;
    }
    benchmark::DoNotOptimize(skeleton.get());
  }
}

void sizes(benchmark::internal::Benchmark* registered) {
  cases::tracesBySize(registered, {50, 100, 200, 300, 400, 800});
}
void peerSizes(benchmark::internal::Benchmark* registered) {
  cases::tracesBySize(registered, {50, 100, 200, 300, 400});
}
void madeSizes(benchmark::internal::Benchmark* registered) {
  registered->ArgName("vertices")->Arg(50)->Arg(100)->Arg(200)->Arg(400)->Arg(800);
}

BENCHMARK_TEMPLATE(bothChains, cases::lineOf)->Name("skeleton/zrBase")->Apply(sizes);
BENCHMARK_TEMPLATE(oneSide, cases::lineOf)->Name("skeleton/CGAL_oneSide*")->Apply(peerSizes);
BENCHMARK_TEMPLATE(bothChains, circleLine)->Name("skeletonOfHalfCircle/zrBase")->Apply(madeSizes);
BENCHMARK_TEMPLATE(bothChains, zigzagLine)->Name("skeletonOfZigzag/zrBase")->Apply(madeSizes);

}  // namespace
