#include <zrBase/clustering/KCtree.h>
#include <zrBase/clustering/KMfilterCenters.h>

#include <gtest/gtest.h>

#include "clustering/naiveClustering.h"

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

// Tree, passes and assignments against the plain forms of naiveClustering.h, bit for bit, and
// against brute force. Coordinates are mostly multiples of 1/64 from a small range, so that points
// coincide, lie on one line, or lie halfway between centers again and again.

namespace {

using naive::Point;
using naive::Points;

class RandomCase {
 public:
  explicit RandomCase(unsigned seed) : engine_(seed) {
    dim = 1 + below(seed % 4 == 0 ? 20 : 4);
    const int n = 1 + below(seed % 8 == 1 ? 300 : 40);
    const int k = 1 + below(seed % 8 == 1 ? 40 : 9);
    kind_ = below(4);
    for (int i = 0; i < n; ++i) points.push_back(point());
    for (int j = 0; j < k; ++j) centers.push_back(below(2) == 0 ? points[below(n)] : point());
  }

  int below(int n) { return static_cast<int>(engine_() % static_cast<unsigned>(n)); }

  int dim;
  Points points;
  Points centers;

 private:
  Point point() {
    Point p(dim);
    const int step = below(8);
    for (int d = 0; d < dim; ++d) {
      switch (kind_) {
        case 0:  // a grid of few places
          p[d] = below(6) / 64.0;
          break;
        case 1:  // one line, and places beside it
          p[d] = step * (d + 1) / 64.0 + (below(9) == 0 ? 1.0 : 0.0);
          break;
        case 2:  // anywhere
          p[d] = below(1000003) / 997.0 - 300.0;
          break;
        default:  // two distant crowds
          p[d] = below(1000) / 64.0 + (step < 4 ? 1e6 : 0.0);
      }
    }
    return p;
  }

  std::mt19937 engine_;
  int kind_;
};

testing::AssertionResult sameNodes(KCnode& node, const naive::Node& expected) {
  const std::size_t dim = expected.sum.size();
  const auto array = [dim](const double* values) { return Point(values, values + dim); };
  if (NodePeek::nDataOf(node) != expected.nData || array(NodePeek::sumOf(node)) != expected.sum ||
      NodePeek::sumSqOf(node) != expected.sumSq || array(NodePeek::bndLoOf(node)) != expected.lo ||
      array(NodePeek::bndHiOf(node)) != expected.hi || NodePeek::idOf(node) != -1) {
    return testing::AssertionFailure() << "base differs at a node of " << expected.nData;
  }
  if (expected.isLeaf()) {
    KCleaf* const leaf = dynamic_cast<KCleaf*>(&node);
    if (leaf == nullptr) return testing::AssertionFailure() << "no leaf";
    const int* const bucket = LeafPeek::bucketOf(*leaf);
    if (std::vector<int>(bucket, bucket + expected.nData) != expected.bucket) {
      return testing::AssertionFailure() << "bucket differs";
    }
    return testing::AssertionSuccess();
  }
  KCsplit* const split = dynamic_cast<KCsplit*>(&node);
  if (split == nullptr) return testing::AssertionFailure() << "no split";
  if (SplitPeek::cutDimOf(*split) != expected.cutDim ||
      SplitPeek::cutValOf(*split) != expected.cutVal ||
      SplitPeek::cutLoOf(*split) != expected.cutLo ||
      SplitPeek::cutHiOf(*split) != expected.cutHi) {
    return testing::AssertionFailure() << "cut differs at a node of " << expected.nData;
  }
  const testing::AssertionResult low = sameNodes(*SplitPeek::lowOf(*split), *expected.low);
  return low ? sameNodes(*SplitPeek::highOf(*split), *expected.high) : low;
}

/// Sums, sums of squares and weights as a pass left them.
testing::AssertionResult sameStatistics(KMfilterCenters& centers,
                                        const naive::Clustering& expected) {
  for (int j = 0; j < centers.getK(); ++j) {
    const Point sums(centers.getSums(false)[j], centers.getSums(false)[j] + centers.getDim());
    if (sums != expected.sums[j] || centers.getSumSqs(false)[j] != expected.sumSqs[j] ||
        centers.getWeights(false)[j] != expected.weights[j]) {
      return testing::AssertionFailure() << "center " << j << " differs";
    }
  }
  return testing::AssertionSuccess();
}

TEST(ClusteringAgainstNaive, BuildsTheSameTree) {
  for (unsigned seed = 0; seed < 4000; ++seed) {
    const RandomCase random(seed);
    const Data data(random.points);
    const naive::Tree tree(random.points);
    ASSERT_TRUE(sameNodes(*data.getKcTree()->getRoot(), *tree.root)) << "seed " << seed;
  }
}

TEST(ClusteringAgainstNaive, BuildsTheSameTreeInAGivenBox) {
  for (unsigned seed = 0; seed < 2000; ++seed) {
    RandomCase random(seed);
    Point lo(random.dim), hi(random.dim);
    for (int d = 0; d < random.dim; ++d) {
      lo[d] = random.below(5) / 64.0 - 2.0;
      hi[d] = random.below(5) * 100.0;
    }
    const Data data(random.points);
    const KCtree built(data.getPts(), data.getNPts(), random.dim, 0, lo.data(), hi.data());
    const naive::Tree tree(random.points, lo, hi);
    ASSERT_TRUE(sameNodes(*built.getRoot(), *tree.root)) << "seed " << seed;
  }
}

TEST(ClusteringAgainstNaive, FiltersAndAssignsTheSame) {
  for (unsigned seed = 0; seed < 8000; ++seed) {
    const RandomCase random(seed);
    const int k = static_cast<int>(random.centers.size());
    Data data(random.points);
    Filter centers(k, data, 1.0);
    place(centers, random.centers);
    const naive::Tree tree(random.points);
    const naive::Passes passes(tree, random.points, random.centers);

    centers.computeDistortion();
    ASSERT_TRUE(sameStatistics(centers, passes.result)) << "seed " << seed;
    std::vector<int> closest(random.points.size());
    std::vector<double> distances(random.points.size());
    centers.getAssignments(closest.data(), distances.data());
    ASSERT_EQ(closest, passes.result.closest) << "seed " << seed;
    ASSERT_EQ(distances, passes.result.distances) << "seed " << seed;
  }
}

TEST(ClusteringAgainstNaive, LargerSetsGiveTheSameInEveryDimension) {
  for (int dim = 1; dim <= 20; ++dim) {
    std::mt19937 engine(static_cast<unsigned>(dim));
    std::normal_distribution<double> normal;
    Points middles, points, places;
    for (int j = 0; j < 30; ++j) {
      middles.emplace_back(dim);
      for (double& x : middles.back()) x = 3.0 * normal(engine);
    }
    for (int i = 0; i < 1500; ++i) {
      points.push_back(middles[engine() % 30]);
      for (double& x : points.back()) x += normal(engine);
    }
    for (int j = 0; j < 35; ++j) places.push_back(points[engine() % 1500]);
    Data data(points);
    Filter centers(35, data, 1.0);
    const naive::Tree tree(points);
    for (int step = 0; step < 4; ++step) {
      if (step == 0) place(centers, places);
      for (int j = 0; j < 35; ++j) places[j].assign(centers[j], centers[j] + dim);
      const naive::Passes passes(tree, points, places);
      centers.getDist(true);
      ASSERT_TRUE(sameStatistics(centers, passes.result)) << "dimension " << dim;
      centers.lloyd1Stage();
    }
  }
}

TEST(ClusteringAgainstNaive, HandCalledNodesPostTheSame) {
  for (unsigned seed = 0; seed < 2000; ++seed) {
    const RandomCase random(seed);
    const int k = static_cast<int>(random.centers.size());
    Data data(random.points);
    Filter centers(k, data, 1.0);
    place(centers, random.centers);
    std::vector<int> all;
    for (int j = 0; j < k; ++j) all.push_back(j);
    centers.computeDistortion();
    const naive::Tree tree(random.points);
    const naive::Passes passes(tree, random.points, random.centers);
    std::vector<int> closest(random.points.size());
    std::vector<double> distances(random.points.size());
    // The pass clears the statistics: what follows posts on zeros.
    centers.getAssignments(closest.data(), nullptr);
    KCnode* const root = data.getKcTree()->getRoot();
    root->assignPoints(all.data(), k, closest.data(), distances.data());
    ASSERT_EQ(closest, passes.result.closest);
    ASSERT_EQ(distances, passes.result.distances);
    root->filterCandidates(all.data(), k);
    ASSERT_TRUE(sameStatistics(centers, passes.result)) << "seed " << seed;
  }
}

TEST(ClusteringAgainstNaive, ValuesThatAreNoNumbersGiveTheSame) {
  const double odd[] = {std::numeric_limits<double>::infinity(),
                        -std::numeric_limits<double>::infinity(),
                        std::numeric_limits<double>::quiet_NaN(),
                        1e200,
                        -1e200,
                        1.7e308};
  const auto same = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
  for (unsigned seed = 0; seed < 3000; ++seed) {
    RandomCase random(seed);
    Points& centers = random.centers;
    const int k = static_cast<int>(centers.size());
    for (int times = 1 + random.below(3); times > 0; --times) {
      centers[random.below(k)][random.below(random.dim)] = odd[random.below(6)];
    }
    Data data(random.points);
    Filter filter(k, data, 1.0);
    place(filter, centers);
    filter.computeDistortion();
    const naive::Tree tree(random.points);
    const naive::Clustering expected = naive::Passes(tree, random.points, centers).result;
    for (int j = 0; j < k; ++j) {
      ASSERT_EQ(filter.getWeights(false)[j], expected.weights[j]) << "seed " << seed;
      for (int d = 0; d < random.dim; ++d) {
        ASSERT_TRUE(same(filter.getSums(false)[j][d], expected.sums[j][d])) << "seed " << seed;
      }
    }
    std::vector<int> closest(random.points.size());
    std::vector<double> distances(random.points.size());
    filter.getAssignments(closest.data(), distances.data());
    ASSERT_EQ(closest, expected.closest) << "seed " << seed;
    ASSERT_EQ(distances, expected.distances) << "seed " << seed;
  }
}

TEST(ClusteringAgainstBruteForce, AssignsANearestCenter) {
  for (unsigned seed = 0; seed < 6000; ++seed) {
    const RandomCase random(seed);
    const int k = static_cast<int>(random.centers.size());
    Data data(random.points);
    Filter centers(k, data, 1.0);
    place(centers, random.centers);
    std::vector<int> closest(random.points.size());
    std::vector<double> distances(random.points.size());
    centers.getAssignments(closest.data(), distances.data());
    for (std::size_t i = 0; i < random.points.size(); ++i) {
      double least = std::numeric_limits<double>::max();
      for (const Point& center : random.centers) {
        least = std::min(least, naive::squaredDistance(random.points[i], center));
      }
      ASSERT_EQ(distances[i], naive::squaredDistance(random.points[i], random.centers[closest[i]]));
      ASSERT_LE(distances[i], least * (1 + 1e-12)) << "seed " << seed;
    }
  }
}

TEST(ClusteringAgainstBruteForce, DistortionIsThatOfTheDirectSum) {
  for (unsigned seed = 0; seed < 2000; ++seed) {
    const RandomCase random(seed);
    const int k = static_cast<int>(random.centers.size());
    Data data(random.points);
    Filter centers(k, data, 1.0);
    place(centers, random.centers);
    std::vector<int> closest(random.points.size());
    std::vector<double> distances(random.points.size());
    centers.getAssignments(closest.data(), distances.data());
    double direct = 0.0, magnitude = 0.0;
    for (std::size_t i = 0; i < distances.size(); ++i) {
      direct += distances[i];
      magnitude += naive::squaredDistance(random.points[i], Point(random.dim, 0.0)) + distances[i];
    }
    ASSERT_NEAR(centers.getDist(true), direct, 1e-13 * magnitude) << "seed " << seed;
    ASSERT_EQ(centers.getAvgDist(true), centers.getDist(true) / data.getNPts());
  }
}

}  // namespace
