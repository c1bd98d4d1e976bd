// Shuffled segments back into lines.

#include "support/cases.h"
#include "support/peers.h"
#include "support/random.h"

#include <zrBase/tools3d/zr3DTools.h>

#include <cmath>
#include <utility>
#include <vector>

namespace {

struct Segments {
  VertexLine first, second;
};

/// Long lines, one above the other, cut up; the segments shuffled, and half of them turned round.
Segments shuffled(const benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const auto lineCount = static_cast<std::size_t>(state.range(1));
  const std::size_t perLine = count / lineCount;
  Segments all;
  for (std::size_t line = 0; line < lineCount; ++line) {
    const auto place = [line](std::size_t i) {
      const auto x = static_cast<double>(i);
      return gdfVertex(x, 3.0 * static_cast<double>(line) + std::sin(x));
    };
    for (std::size_t i = 0; i < perLine; ++i) {
      all.first.push_back(place(i));
      all.second.push_back(place(i + 1));
    }
  }
  Random random;
  for (std::size_t i = all.first.size(); i > 1; --i) {
    const auto other = static_cast<std::size_t>(random.between(0.0, static_cast<double>(i)));
    std::swap(all.first[i - 1], all.first[other]);
    std::swap(all.second[i - 1], all.second[other]);
    if (random.between(0.0, 1.0) < 0.5) std::swap(all.first[i - 1], all.second[i - 1]);
  }
  return all;
}

void zrBaseFuse(benchmark::State& state) {
  const Segments segments = shuffled(state);
  std::size_t found = 0;
  for (auto _ : state) {
    VertexLineList chains;
    zr3DTools::fuseSegments(segments.first, segments.second, chains, 1e-5);
    benchmark::DoNotOptimize(chains.data());
    found = chains.size();
  }
  cases::tellResult(state, found);
}

/// Joins ends that are equal to the last bit; knows no tolerance.
void geosMerge(benchmark::State& state) {
  const Segments segments = shuffled(state);
  std::vector<GEOSGeometry*> lines;
  for (std::size_t i = 0; i < segments.first.size(); ++i) {
    lines.push_back(peers::geosLine({segments.first[i], segments.second[i]}).release());
  }
  const peers::GeosGeometry all(GEOSGeom_createCollection_r(
      peers::geos(), GEOS_MULTILINESTRING, lines.data(), static_cast<unsigned>(lines.size())));
  int found = 0;
  for (auto _ : state) {
    const peers::GeosGeometry merged(GEOSLineMerge_r(peers::geos(), all.get()));
    found = GEOSGetNumGeometries_r(peers::geos(), merged.get());
  }
  cases::tellResult(state, static_cast<std::size_t>(found));
}

void sizes(benchmark::internal::Benchmark* registered) {
  registered->ArgNames({"segments", "lines"});
  for (const int count : {1000, 10000, 100000}) {
    registered->Args({count, 1});
    registered->Args({count, count / 50});
  }
}

BENCHMARK(zrBaseFuse)->Name("fuse/zrBase")->Apply(sizes)->Unit(benchmark::kMillisecond);
BENCHMARK(geosMerge)->Name("fuse/GEOS")->Apply(sizes)->Unit(benchmark::kMillisecond);

}  // namespace
