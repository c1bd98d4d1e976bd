#ifndef ZRBASE_BENCHMARKS_SUPPORT_CASES_H
#define ZRBASE_BENCHMARKS_SUPPORT_CASES_H

#include "traces.h"

#include <benchmark/benchmark.h>

#include <initializer_list>

/// Arguments of the benchmarks, and what their results carry along.
///
/// A benchmark is called topic/contender/argument:value/... Those of one topic and the same
/// arguments do the same work, and ratios.py sets them side by side. The contenders of this library
/// begin with zrBase; an asterisk at the end marks a peer that does less than the topic asks.
namespace cases {

/// Each long trace at each count of vertices.
inline void tracesBySize(benchmark::internal::Benchmark* registered,
                         std::initializer_list<int> counts) {
  registered->ArgNames({"record", "vertices"});
  for (const traces::Trace& trace : traces::longTraces()) {
    for (const int count : counts) registered->Args({trace.record, count});
  }
}

/// The line that the arguments of tracesBySize name.
inline VertexLine lineOf(const benchmark::State& state) {
  return traces::firstVertices(state.range(0), static_cast<std::size_t>(state.range(1)));
}

/// Times are reported for one of these many operations.
inline void countOperations(benchmark::State& state, std::size_t perIteration) {
  state.counters["operations"] = static_cast<double>(perIteration);
}

/// A number that has to come out alike, or nearly, for all contenders.
inline void tellResult(benchmark::State& state, std::size_t found) {
  state.counters["result"] = static_cast<double>(found);
}

}  // namespace cases

#endif  // ZRBASE_BENCHMARKS_SUPPORT_CASES_H
