// Lloyd's algorithm: trees over clouds of points, single stages, and runs of twenty.

#include "support/cases.h"

#include <zrBase/clustering/KMdata.h>
#include <zrBase/clustering/KMfilterCenters.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

// peers/clusteringSklearn.py makes the same clouds, to the last bit, and takes the same starting
// centers: whoever changes one changes the other.

namespace {

constexpr int stagesOfRun = 20;

/// The n-th number of a stream, in [0, 1): splitmix64 (Steele, Lea, Flood, 2014).
double uniform(std::uint64_t stream, std::uint64_t n) {
  std::uint64_t z = ((stream << 40) + n + 1) * 0x9e3779b97f4a7c15U;
  z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9U;
  z = (z ^ (z >> 27)) * 0x94d049bb133111ebU;
  z = z ^ (z >> 31);
  return static_cast<double>(z >> 11) * (1.0 / 9007199254740992.0);  // 2^-53
}

/// Even in the unit cube, or bells about 100 places in it: of a standard deviation of 0.02, or of
/// 0.05, where they run into each other.
enum class Layout { uniform, clustered, wide };

double coordinate(Layout layout, std::uint64_t point, std::uint64_t dim, std::uint64_t d) {
  const std::uint64_t n = point * dim + d;
  if (layout == Layout::uniform) return uniform(2, n);
  const auto place = static_cast<std::uint64_t>(100.0 * uniform(1, point));
  const double bell = ((uniform(2, n) + uniform(3, n)) + uniform(4, n)) + uniform(5, n) - 2.0;
  const double reach = layout == Layout::wide ? 0.0866025403784439 : 0.0346410161513775;
  return uniform(0, place * dim + d) + reach * bell;
}

std::unique_ptr<KMdata> makeCloud(Layout layout, int dim, int count) {
  auto cloud = std::make_unique<KMdata>(dim, count);
  for (int i = 0; i < count; ++i) {
    for (int d = 0; d < dim; ++d) {
      (*cloud)[i][d] = coordinate(layout, static_cast<std::uint64_t>(i),
                                  static_cast<std::uint64_t>(dim), static_cast<std::uint64_t>(d));
    }
  }
  return cloud;
}

/// A cloud with its tree. The last one asked for is kept: large ones do not all have room.
KMdata& cloudOf(Layout layout, const benchmark::State& state) {
  static std::unique_ptr<KMdata> cloud;
  static Layout layoutOfCloud = layout;
  const int dim = static_cast<int>(state.range(0));
  const int count = static_cast<int>(state.range(1));
  if (!cloud || layoutOfCloud != layout || cloud->getDim() != dim || cloud->getNPts() != count) {
    cloud.reset();
    cloud = makeCloud(layout, dim, count);
    cloud->buildKcTree();
    layoutOfCloud = layout;
  }
  return *cloud;
}

/// Centers that can be put back where they began.
class Centers {
 public:
  /// Begins at points of the cloud, at equal steps of their numbers.
  Centers(KMdata& cloud, const benchmark::State& state)
      : filter_(static_cast<int>(state.range(2)), cloud, 1.0) {
    const int step = cloud.getNPts() / filter_.getK();
    for (int j = 0; j < filter_.getK(); ++j) {
      std::copy_n(cloud[j * step], filter_.getDim(), filter_[j]);
    }
    keep();
  }

  /// Begins where the centers are now.
  void keep() {
    beginning_.clear();
    for (int j = 0; j < filter_.getK(); ++j) {
      beginning_.insert(beginning_.end(), filter_[j], filter_[j] + filter_.getDim());
    }
  }

  void putBack() {
    filter_.resize(filter_.getK());  // the same number: the statistics are forgotten, no more
    const double* from = beginning_.data();
    for (int j = 0; j < filter_.getK(); ++j, from += filter_.getDim()) {
      std::copy_n(from, filter_.getDim(), filter_[j]);
    }
  }

  void run(int stages) {
    for (int stage = 0; stage < stages; ++stage) filter_.lloyd1Stage();
  }

  KMfilterCenters& filter() { return filter_; }

 private:
  KMfilterCenters filter_;
  std::vector<double> beginning_;
};

/// The first nine digits, as a whole number.
void tellDistortion(benchmark::State& state, double distortion) {
  const double leading = std::floor(std::log10(distortion));
  cases::tellResult(
      state, static_cast<std::size_t>(std::llround(distortion * std::pow(10.0, 8.0 - leading))));
  state.counters["distortion"] = distortion;
}

/// One stage: the mean of those after the first of a run.
void stage(benchmark::State& state, Layout layout) {
  Centers centers(cloudOf(layout, state), state);
  centers.run(1);
  centers.keep();
  for (auto _ : state) {
    centers.putBack();
    centers.run(stagesOfRun - 1);
  }
  cases::countOperations(state, stagesOfRun - 1);
}

/// A run from the starting centers to the distortion of its end.
void run(benchmark::State& state, Layout layout, int stages) {
  Centers centers(cloudOf(layout, state), state);
  double distortion = 0.0;
  for (auto _ : state) {
    centers.putBack();
    centers.run(stages);
    distortion = centers.filter().getDist(true);
  }
  tellDistortion(state, distortion);
}

/// The same with all that a fit of the peer does: the tree before, the center of each point after.
void fit(benchmark::State& state, Layout layout, int stages) {
  KMdata& cloud = cloudOf(layout, state);
  Centers centers(cloud, state);
  std::vector<int> closest(static_cast<std::size_t>(cloud.getNPts()));
  double distortion = 0.0;
  for (auto _ : state) {
    cloud.buildKcTree();
    centers.putBack();
    centers.run(stages);
    distortion = centers.filter().getDist(true);
    centers.filter().getAssignments(closest.data(), nullptr);
    benchmark::DoNotOptimize(closest.data());
  }
  tellDistortion(state, distortion);
}

/// A figure of /proc/self/status in bytes; 0 where there is none.
double memoryFigure(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kibibytes = 0.0;
    if (word == name + ":" && status >> kibibytes) return 1024.0 * kibibytes;
  }
  return 0.0;
}

/// The most memory that a cloud and its tree take while the tree is built, beyond what the program
/// held before. Linux alone tells; elsewhere 0.
double peakBytes(Layout layout, int dim, int count) {
#if defined(__GLIBC__)
  malloc_trim(0);
#endif
  std::ofstream("/proc/self/clear_refs") << "5\n";  // the peak counts from here on
  const double before = memoryFigure("VmRSS");
  makeCloud(layout, dim, count)->buildKcTree();
  return memoryFigure("VmHWM") - before;
}

void tree(benchmark::State& state, Layout layout) {
  KMdata& cloud = cloudOf(layout, state);
  for (auto _ : state) cloud.buildKcTree();
  state.counters["bytesPerPoint"] =
      peakBytes(layout, cloud.getDim(), cloud.getNPts()) / cloud.getNPts();
}

void clouds(benchmark::internal::Benchmark* registered) {
  registered->ArgNames({"dim", "points"});
  registered->ArgsProduct({{2, 3, 8}, {10000, 100000, 1000000}});
  registered->Unit(benchmark::kMillisecond);
}

/// A million points and a thousand centers take longer than all the others together. They come
/// along where ZRBASE_BENCHMARKS_LONG is set in the environment.
void searches(benchmark::internal::Benchmark* registered) {
  const bool isLong = std::getenv("ZRBASE_BENCHMARKS_LONG") != nullptr;
  registered->ArgNames({"dim", "points", "centers"});
  for (const int dim : {2, 3, 8}) {
    for (const int points : {10000, 100000, 1000000}) {
      for (const int centers : {10, 100, 1000}) {
        if (points < 1000000 || centers < 1000 || isLong) registered->Args({dim, points, centers});
      }
    }
  }
  registered->Unit(benchmark::kMillisecond);
}

/// As many centers as there are bells.
void wideSearches(benchmark::internal::Benchmark* registered) {
  registered->ArgNames({"dim", "points", "centers"});
  registered->ArgsProduct({{2, 3, 8}, {10000, 100000, 1000000}, {100}});
  registered->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(tree, zrBase, Layout::clustered)
    ->Name("clusterTreeClustered/zrBase")
    ->Apply(clouds);
BENCHMARK_CAPTURE(tree, zrBase, Layout::uniform)->Name("clusterTreeUniform/zrBase")->Apply(clouds);

BENCHMARK_CAPTURE(stage, zrBase, Layout::clustered)
    ->Name("lloydStageClustered/zrBase")
    ->Apply(searches);
BENCHMARK_CAPTURE(stage, zrBase, Layout::uniform)
    ->Name("lloydStageUniform/zrBase")
    ->Apply(searches);
BENCHMARK_CAPTURE(stage, zrBase, Layout::wide)->Name("lloydStageWide/zrBase")->Apply(wideSearches);

BENCHMARK_CAPTURE(run, zrBase, Layout::clustered, 1)
    ->Name("lloyd1Clustered/zrBase")
    ->Apply(searches);
BENCHMARK_CAPTURE(fit, zrBase, Layout::clustered, 1)
    ->Name("lloyd1Clustered/zrBase_whole")
    ->Apply(searches);
BENCHMARK_CAPTURE(run, zrBase, Layout::uniform, 1)->Name("lloyd1Uniform/zrBase")->Apply(searches);
BENCHMARK_CAPTURE(fit, zrBase, Layout::uniform, 1)
    ->Name("lloyd1Uniform/zrBase_whole")
    ->Apply(searches);

BENCHMARK_CAPTURE(run, zrBase, Layout::clustered, stagesOfRun)
    ->Name("lloyd20Clustered/zrBase")
    ->Apply(searches);
BENCHMARK_CAPTURE(fit, zrBase, Layout::clustered, stagesOfRun)
    ->Name("lloyd20Clustered/zrBase_whole")
    ->Apply(searches);
BENCHMARK_CAPTURE(run, zrBase, Layout::uniform, stagesOfRun)
    ->Name("lloyd20Uniform/zrBase")
    ->Apply(searches);
BENCHMARK_CAPTURE(fit, zrBase, Layout::uniform, stagesOfRun)
    ->Name("lloyd20Uniform/zrBase_whole")
    ->Apply(searches);
BENCHMARK_CAPTURE(run, zrBase, Layout::wide, stagesOfRun)
    ->Name("lloyd20Wide/zrBase")
    ->Apply(wideSearches);

}  // namespace
