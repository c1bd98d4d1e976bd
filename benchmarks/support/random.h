#ifndef ZRBASE_BENCHMARKS_SUPPORT_RANDOM_H
#define ZRBASE_BENCHMARKS_SUPPORT_RANDOM_H

#include <cstdint>
#include <random>

/// Doubles in [low, high): the same sequence on every platform and in every run.
class Random {
 public:
  double between(double low, double high) {
    constexpr double step = 1.0 / 9007199254740992.0;  // 2^-53
    return low + (high - low) * (static_cast<double>(engine_() >> 11) * step);
  }

 private:
  std::mt19937_64 engine_{20240229};
};

#endif  // ZRBASE_BENCHMARKS_SUPPORT_RANDOM_H
