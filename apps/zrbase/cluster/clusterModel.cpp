#include "cluster/clusterModel.h"

#include <zrBase/clustering/KMdata.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <unordered_set>

#include "cluster/clusterSearch.h"
#include "common/commandError.h"
#include "common/textFormat.h"

namespace {

constexpr std::size_t kMostPoints = 2000000000;
constexpr int kHighestDraw = 32767;

double secondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The mean, rounded to a coarse binary number: subtracting it takes large coordinates to small ones
// without a rounding of their own.
double originOf(double mean, double range) {
  int exponent = 0;
  std::frexp(range, &exponent);
  const double step = std::ldexp(1.0, exponent - 5);
  const double origin = std::round(mean / step) * step;
  return std::isfinite(origin) ? origin : mean;
}

ColumnScale scaleOf(const ClusterPoints& points, std::size_t column, ClusterScale scale) {
  const auto count = static_cast<double>(points.size());
  double low = points.value(0, column);
  double high = low;
  double sum = 0.0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const double value = points.value(i, column);
    low = std::min(low, value);
    high = std::max(high, value);
    sum += value;
  }
  ColumnScale result;
  result.constant = low == high;
  result.origin = result.constant ? low : originOf(std::clamp(sum / count, low, high), high - low);
  if (result.constant || scale == ClusterScale::none) {
    return result;
  }
  result.divisor = high - low;
  if (scale == ClusterScale::std) {
    const double mean = sum / count;
    double squares = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const double share = (points.value(i, column) - mean) / (high - low);
      squares += share * share;
    }
    result.divisor = std::sqrt(squares / count) * (high - low);
  }
  return result;
}

void fill(KMdata& data, const ClusterPoints& points, const std::vector<ColumnScale>& scales) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    double* const row = data[static_cast<int>(i)];
    for (std::size_t j = 0; j < scales.size(); ++j) {
      // Adding 0 takes the sign off a zero, so that equal rows have equal bits.
      row[j] = (points.value(i, j) - scales[j].origin) / scales[j].divisor + 0.0;
    }
  }
}

/// Rows of numbers by their bits.
struct RowHash {
  std::size_t width;
  std::size_t operator()(const double* row) const {
    std::uint64_t hash = 14695981039346656037U;
    for (std::size_t j = 0; j < width; ++j) {
      std::uint64_t bits = 0;
      std::memcpy(&bits, row + j, sizeof bits);
      hash = (hash ^ (bits ^ (bits >> 32U))) * 1099511628211U;
      hash ^= hash >> 29U;
    }
    return static_cast<std::size_t>(hash);
  }
};
struct RowEqual {
  std::size_t width;
  bool operator()(const double* a, const double* b) const { return std::equal(a, a + width, b); }
};

// Distinct rows, counted up to `enough`.
std::size_t countDistinct(const KMdata& data, std::size_t enough) {
  const auto width = static_cast<std::size_t>(data.getDim());
  std::unordered_set<const double*, RowHash, RowEqual> seen(16, RowHash{width}, RowEqual{width});
  for (int i = 0; i < data.getNPts() && seen.size() < enough; ++i) {
    seen.insert(data[i]);
  }
  return seen.size();
}

// The generator of the search gives v / 32767 for v from 0 to 32767, which falls onto some points
// and never onto the others where there are about as many points or more.
std::size_t countDrawable(std::size_t points) {
  const auto count = static_cast<double>(points);
  std::size_t drawable = 0;
  double last = -1.0;
  for (int v = 0; v <= kHighestDraw; ++v) {
    const double drawn =
        std::min(std::trunc(v / static_cast<double>(kHighestDraw) * count), count - 1.0);
    drawable += drawn > last ? 1 : 0;
    last = drawn;
  }
  return drawable;
}

void refuseTooMany(const KMdata& data, long long clusters, const std::string& file) {
  const auto wanted = static_cast<std::size_t>(clusters);
  const auto points = static_cast<std::size_t>(data.getNPts());
  const std::size_t drawable = countDrawable(points);
  const std::size_t distinct = countDistinct(data, std::min(wanted, drawable + 1));
  if (distinct < wanted && distinct <= drawable) {
    throw CommandError(file + ": -k " + std::to_string(clusters) + " is more than its " +
                       textFormat::counted(distinct, "distinct point", "distinct points"));
  }
  if (wanted > drawable) {
    throw CommandError("-k " + std::to_string(clusters) + ": the search draws at most " +
                       std::to_string(drawable) + " centers from " + std::to_string(points) +
                       " points");
  }
}

// Weights and distortions are summed over the points, so that they are those of the points written.
void takeClusters(const KMfilterCenters& centers, Clustering& result) {
  result.clusters.resize(static_cast<std::size_t>(centers.getK()));
  for (std::size_t k = 0; k < result.clusters.size(); ++k) {
    const double* const center = centers[static_cast<int>(k)];
    for (std::size_t j = 0; j < result.scales.size(); ++j) {
      const ColumnScale& scale = result.scales[j];
      result.clusters[k].center.push_back(scale.origin + scale.divisor * center[j]);
    }
  }
  for (std::size_t i = 0; i < result.clusterOf.size(); ++i) {
    Cluster& cluster = result.clusters[static_cast<std::size_t>(result.clusterOf[i])];
    ++cluster.weight;
    cluster.distortion += result.distances[i];  // squared until here
    result.distances[i] = std::sqrt(result.distances[i]);
  }
  for (const Cluster& cluster : result.clusters) {
    result.distortion += cluster.distortion;
  }
}

template <typename Value>
struct Choice {
  const char* name;
  Value value;
};

constexpr Choice<ClusterStrategy> kStrategies[] = {{"lloyd", ClusterStrategy::lloyd},
                                                   {"swap", ClusterStrategy::swap},
                                                   {"hybrid", ClusterStrategy::hybrid},
                                                   {"ez-hybrid", ClusterStrategy::ezHybrid}};
constexpr Choice<ClusterScale> kScales[] = {
    {"none", ClusterScale::none}, {"std", ClusterScale::std}, {"range", ClusterScale::range}};

template <typename Choices>
auto valueNamed(const Choices& choices, const std::string& text, const std::string& complaint) {
  for (const auto& choice : choices) {
    if (textFormat::lowerCase(text) == choice.name) {
      return choice.value;
    }
  }
  throw CommandError(complaint);
}

template <typename Choices, typename Value>
const char* nameOf(const Choices& choices, Value value) {
  for (const auto& choice : choices) {
    if (choice.value == value) {
      return choice.name;
    }
  }
  return "";
}

}  // namespace

ClusterStrategy clusterStrategy(const std::string& text) {
  return valueNamed(
      kStrategies, text,
      "--strategy: '" + textFormat::oneLine(text) + "' is not lloyd, swap, hybrid or ez-hybrid");
}

const char* strategyName(ClusterStrategy strategy) { return nameOf(kStrategies, strategy); }

ClusterScale clusterScale(const std::string& text) {
  return valueNamed(kScales, text,
                    "--scale: '" + textFormat::oneLine(text) + "' is not none, std or range");
}

const char* scaleName(ClusterScale scale) { return nameOf(kScales, scale); }

double Cluster::average() const {
  return weight == 0 ? 0.0 : distortion / static_cast<double>(weight);
}

double Clustering::rms() const {
  return std::sqrt(distortion / static_cast<double>(clusterOf.size()));
}

Clustering clusterPoints(const ClusterPoints& points, const ClusterRequest& request,
                         const std::string& file) {
  if (points.size() > kMostPoints) {
    throw CommandError(file + ": more than " + std::to_string(kMostPoints) + " points");
  }
  Clustering result;
  for (std::size_t j = 0; j < points.columns.size(); ++j) {
    result.scales.push_back(scaleOf(points, j, request.scale));
  }
  KMdata data(static_cast<int>(points.columns.size()), static_cast<int>(points.size()));
  fill(data, points, result.scales);
  refuseTooMany(data, request.clusters, file);
  const auto start = std::chrono::steady_clock::now();
  data.buildKcTree();
  result.treeSeconds = secondsSince(start);
  SearchResult found = searchClusters(data, request);
  result.searchSeconds = secondsSince(start) - result.treeSeconds;
  result.stages = found.stages;
  result.clusterOf.resize(points.size());
  result.distances.resize(points.size());
  found.centers.getAssignments(result.clusterOf.data(), result.distances.data());
  takeClusters(found.centers, result);
  return result;
}
