// Positions along a well by minimum curvature. The peer is a script, peers/wellPathNumpy.py, which
// makes the same stations.

#include "support/cases.h"

#include <zrBase/utilities/wellPath.h>

#include <cmath>
#include <cstdint>
#include <vector>

namespace {

/// A directional survey. The first length is not used: it would lead to the first station.
struct Survey {
  std::vector<double> length;
  std::vector<double> inclination;
  std::vector<double> azimuth;
};

/// The number of an index in a sequence of doubles in [0, 1), by SplitMix64 (Steele, Lea and Flood,
/// 2014).
double drawn(std::uint64_t index) {
  std::uint64_t z = (index + 1) * 0x9E3779B97F4A7C15U;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
  z ^= z >> 31;
  return static_cast<double>(z >> 11) * (1.0 / 9007199254740992.0);
}

/// From level to straight down and back, turning round all the while, with noise of a degree, and
/// every 16th interval straight. 20 to 40 metres from station to station.
Survey surveyOf(const benchmark::State& state) {
  Survey survey;
  const auto count = static_cast<std::uint64_t>(state.range(0));
  for (std::uint64_t i = 0; i < count; ++i) {
    const std::uint64_t turned = i % 16 == 15 ? i - 1 : i;
    const auto phase = static_cast<std::int64_t>(turned % 1800) - 900;
    survey.length.push_back(20.0 + 20.0 * drawn(3 * i));
    survey.inclination.push_back(0.1 * std::fabs(static_cast<double>(phase)) +
                                 drawn(3 * turned + 1));
    survey.azimuth.push_back(0.1 * static_cast<double>(turned % 3590) + drawn(3 * turned + 2));
  }
  return survey;
}

void zrBasePath(benchmark::State& state) {
  const Survey survey = surveyOf(state);
  const std::size_t count = survey.length.size();
  std::vector<double> x(count);
  std::vector<double> y(count);
  std::vector<double> z(count);
  for (auto _ : state) {
    for (std::size_t i = 1; i < count; ++i) {
      double a = survey.length[i];
      double b = survey.inclination[i];
      double c = survey.azimuth[i];
      zrUtils::convertToXyzMinimumCurvature(0.0, survey.inclination[i - 1], survey.azimuth[i - 1],
                                            a, b, c);
      x[i] = x[i - 1] + a;
      y[i] = y[i - 1] + b;
      z[i] = z[i - 1] + c;
    }
    benchmark::ClobberMemory();
  }
  const double reach = std::fabs(x.back()) + std::fabs(y.back()) + std::fabs(z.back());
  cases::tellResult(state, static_cast<std::size_t>(std::llround(reach * 1000.0)));
  cases::countOperations(state, count - 1);
}

BENCHMARK(zrBasePath)
    ->Name("minimumCurvature/zrBase")
    ->ArgName("stations")
    ->Arg(1000)
    ->Arg(1000000)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
