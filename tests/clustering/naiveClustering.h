#ifndef ZRBASE_TESTS_CLUSTERING_NAIVECLUSTERING_H
#define ZRBASE_TESTS_CLUSTERING_NAIVECLUSTERING_H

#include <zrBase/clustering/KCtree.h>
#include <zrBase/clustering/KMdata.h>
#include <zrBase/clustering/KMfilterCenters.h>
#include <zrBase/clustering/kmServices.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

/// The kc-tree and its passes as one would write them down for the first time: a plain structure,
/// a copy at each step, the rules in their order. The library has to give the same bits.
namespace naive {

using Point = std::vector<double>;
using Points = std::vector<Point>;

inline double squaredDistance(const Point& a, const Point& b) {
  double total = 0.0;
  for (std::size_t d = 0; d < a.size(); ++d) total += (a[d] - b[d]) * (a[d] - b[d]);
  return total;
}

struct Node {
  int nData = 0;
  Point sum, lo, hi;
  double sumSq = 0.0;
  std::vector<int> bucket;
  int cutDim = -1;
  double cutVal = 0.0, cutLo = 0.0, cutHi = 0.0;
  std::unique_ptr<Node> low, high;

  bool isLeaf() const { return low == nullptr; }
};

class Tree {
 public:
  explicit Tree(Points points) : points_(std::move(points)) {
    for (std::size_t i = 0; i < points_.size(); ++i) order.push_back(static_cast<int>(i));
    Point lo = points_.at(0), hi = points_.at(0);
    for (const Point& p : points_) {
      for (std::size_t d = 0; d < p.size(); ++d) {
        lo[d] = std::min(lo[d], p[d]);
        hi[d] = std::max(hi[d], p[d]);
      }
    }
    root = build(0, static_cast<int>(points_.size()), lo, hi);
    collect(*root);
  }

  Tree(Points points, const Point& lo, const Point& hi) : points_(std::move(points)) {
    for (std::size_t i = 0; i < points_.size(); ++i) order.push_back(static_cast<int>(i));
    root = build(0, static_cast<int>(points_.size()), lo, hi);
    collect(*root);
  }

  std::vector<int> order;
  std::unique_ptr<Node> root;

 private:
  double at(int i, int d) const { return points_[order[i]][d]; }

  std::unique_ptr<Node> build(int begin, int n, Point lo, Point hi) {
    auto node = std::make_unique<Node>();
    node->lo = lo;
    node->hi = hi;
    node->sum.assign(lo.size(), 0.0);
    if (n < 2) {
      node->nData = n;
      node->bucket.assign(order.begin() + begin, order.begin() + begin + n);
      return node;
    }
    int cd = 0, nLow = 0;
    double cv = 0.0;
    cut(begin, n, lo, hi, cd, cv, nLow);
    node->cutDim = cd;
    node->cutVal = cv;
    node->cutLo = lo[cd];
    node->cutHi = hi[cd];
    Point lowHi = hi, highLo = lo;
    lowHi[cd] = cv;
    highLo[cd] = cv;
    node->low = build(begin, nLow, lo, lowHi);
    node->high = build(begin + nLow, n - nLow, highLo, hi);
    return node;
  }

  void cut(int begin, int n, const Point& lo, const Point& hi, int& cd, double& cv, int& nLow) {
    double longest = hi[0] - lo[0];
    for (std::size_t d = 0; d < lo.size(); ++d) longest = std::max(longest, hi[d] - lo[d]);
    double widest = -1.0;
    double least = 0.0, greatest = 0.0;
    const auto extentAlong = [&](int d) {
      least = greatest = at(begin, d);
      for (int i = begin; i < begin + n; ++i) {
        least = std::min(least, at(i, d));
        greatest = std::max(greatest, at(i, d));
      }
    };
    for (int d = 0; d < static_cast<int>(lo.size()); ++d) {
      if (!(hi[d] - lo[d] >= 0.999 * longest)) continue;
      extentAlong(d);
      if (greatest - least > widest) {
        widest = greatest - least;
        cd = d;
      }
    }
    extentAlong(cd);
    const double ideal = (lo[cd] + hi[cd]) * 0.5;
    cv = least > ideal ? least : ideal > greatest ? greatest : ideal;
    int left = 0, right = n - 1;
    while (true) {
      while (left < n && at(begin + left, cd) < cv) ++left;
      while (right >= 0 && at(begin + right, cd) >= cv) --right;
      if (left > right) break;
      std::swap(order[begin + left], order[begin + right]);
      ++left;
      --right;
    }
    const int br1 = left;
    right = n - 1;
    while (true) {
      while (left < n && at(begin + left, cd) <= cv) ++left;
      while (right >= br1 && at(begin + right, cd) > cv) --right;
      if (left > right) break;
      std::swap(order[begin + left], order[begin + right]);
      ++left;
      --right;
    }
    const int br2 = left;
    if (least > ideal) {
      nLow = 1;
    } else if (ideal > greatest) {
      nLow = n - 1;
    } else if (br1 > n / 2) {
      nLow = br1;
    } else {
      nLow = std::min(br2, n / 2);
    }
  }

  void collect(Node& node) {
    if (node.isLeaf()) {
      for (int i : node.bucket) {
        for (std::size_t d = 0; d < node.sum.size(); ++d) {
          node.sum[d] += points_[i][d];
          node.sumSq += points_[i][d] * points_[i][d];
        }
      }
      return;
    }
    for (Node* child : {node.low.get(), node.high.get()}) {
      collect(*child);
      node.nData += child->nData;
      for (std::size_t d = 0; d < node.sum.size(); ++d) node.sum[d] += child->sum[d];
      node.sumSq += child->sumSq;
    }
  }

  Points points_;
};

/// Statistics and assignments of some centers, from a descent of the tree.
struct Clustering {
  Points sums;
  std::vector<double> sumSqs;
  std::vector<int> weights;
  std::vector<int> closest;
  std::vector<double> distances;
};

class Passes {
 public:
  Passes(const Tree& tree, const Points& points, const Points& centers)
      : points_(points), centers_(centers) {
    result.sums.assign(centers.size(), Point(centers[0].size(), 0.0));
    result.sumSqs.assign(centers.size(), 0.0);
    result.weights.assign(centers.size(), 0);
    result.closest.assign(points.size(), -1);
    result.distances.assign(points.size(), -1.0);
    std::vector<int> all;
    for (std::size_t j = 0; j < centers.size(); ++j) all.push_back(static_cast<int>(j));
    filter(*tree.root, all);
    assign(*tree.root, all);
  }

  Clustering result;

 private:
  void post(int c, const Point& sum, int n, double sumSq) {
    for (std::size_t d = 0; d < sum.size(); ++d) result.sums[c][d] += sum[d];
    result.weights[c] += n;
    result.sumSqs[c] += sumSq;
  }

  int nearest(const Point& p, const std::vector<int>& cands, double& best) const {
    best = std::numeric_limits<double>::max();
    int position = 0;
    for (std::size_t j = 0; j < cands.size(); ++j) {
      const double distance = squaredDistance(p, centers_[cands[j]]);
      if (distance < best) {
        best = distance;
        position = static_cast<int>(j);
      }
    }
    return position;
  }

  std::vector<int> remaining(const Node& node, const std::vector<int>& cands) const {
    Point middle = node.lo;
    for (std::size_t d = 0; d < middle.size(); ++d) middle[d] = (node.lo[d] + node.hi[d]) * 0.5;
    double ignored = 0.0;
    const int closest = cands[nearest(middle, cands, ignored)];
    std::vector<int> kept;
    for (int c : cands) {
      if (c == closest || !isPruned(centers_[c], centers_[closest], node)) kept.push_back(c);
    }
    return kept;
  }

  static bool isPruned(const Point& c, const Point& closest, const Node& node) {
    double norm = 0.0, dot = 0.0;
    for (std::size_t d = 0; d < c.size(); ++d) {
      const double difference = c[d] - closest[d];
      norm += difference * difference;
      const double corner = difference > 0 ? node.hi[d] : node.lo[d];
      dot += (corner - closest[d]) * difference;
    }
    return norm >= 2 * dot;
  }

  void filter(const Node& node, const std::vector<int>& cands) {
    if (cands.size() == 1) {
      post(cands[0], node.sum, node.nData, node.sumSq);
    } else if (node.isLeaf()) {
      for (int i : node.bucket) {
        double ignored = 0.0;
        post(cands[nearest(points_[i], cands, ignored)], points_[i], 1, node.sumSq);
      }
    } else {
      const std::vector<int> kept = remaining(node, cands);
      filter(*node.low, kept);
      filter(*node.high, kept);
    }
  }

  void assign(const Node& node, const std::vector<int>& cands) {
    if (node.isLeaf()) {
      for (int i : node.bucket) {
        result.closest[i] = cands[nearest(points_[i], cands, result.distances[i])];
      }
      return;
    }
    const std::vector<int> kept = cands.size() == 1 ? cands : remaining(node, cands);
    assign(*node.low, kept);
    assign(*node.high, kept);
  }

  const Points& points_;
  const Points& centers_;
};

}  // namespace naive

/// What a tree holds, for the eyes of the tests.
struct NodePeek : KCnode {
  static int nDataOf(KCnode& node) { return node.*(&NodePeek::nData); }
  static double* sumOf(KCnode& node) { return node.*(&NodePeek::sum); }
  static double sumSqOf(KCnode& node) { return node.*(&NodePeek::sumSq); }
  static double* bndLoOf(KCnode& node) { return node.*(&NodePeek::bndLo); }
  static double* bndHiOf(KCnode& node) { return node.*(&NodePeek::bndHi); }
  static int idOf(KCnode& node) { return node.*(&NodePeek::id); }
};
struct LeafPeek : KCleaf {
  static int* bucketOf(KCleaf& leaf) { return leaf.*(&LeafPeek::bucket); }
};
struct SplitPeek : KCsplit {
  static int cutDimOf(KCsplit& split) { return split.*(&SplitPeek::cutDim); }
  static double cutValOf(KCsplit& split) { return split.*(&SplitPeek::cutVal); }
  static double cutLoOf(KCsplit& split) { return split.*(&SplitPeek::cutLo); }
  static double cutHiOf(KCsplit& split) { return split.*(&SplitPeek::cutHi); }
  static KCnode* lowOf(KCsplit& split) { return split.*(&SplitPeek::loChild); }
  static KCnode* highOf(KCsplit& split) { return split.*(&SplitPeek::hiChild); }
};

/// Writes points into a set of data.
inline void fill(KMdata& data, const naive::Points& points) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    std::copy(points[i].begin(), points[i].end(), data[static_cast<int>(i)]);
  }
}

/// Writes points over the centers.
inline void place(KMcenters& centers, const naive::Points& points) {
  for (std::size_t j = 0; j < points.size(); ++j) {
    std::copy(points[j].begin(), points[j].end(), centers[static_cast<int>(j)]);
  }
}

/// A set of data with a tree.
struct Data : KMdata {
  explicit Data(const naive::Points& points)
      : KMdata(static_cast<int>(points.at(0).size()), static_cast<int>(points.size())) {
    fill(*this, points);
    buildKcTree();
  }
  int capacity() const { return maxPts; }
};

/// Centers whose protected operations the tests may call.
struct Filter : KMfilterCenters {
  using KMfilterCenters::computeDistortion;
  using KMfilterCenters::invalidate;
  using KMfilterCenters::KMfilterCenters;
  using KMfilterCenters::moveToCentroid;
  using KMfilterCenters::swapOneCenter;
  using KMfilterCenters::validate;
  bool isValid() const { return valid; }
};

/// Catches what is written to kmOut and kmErr, and sets the statistics level, for as long as it
/// lives.
class Caught {
 public:
  explicit Caught(StatLev level = KM_STAT_SILENT) : out_(kmOut), err_(kmErr), level_(kmStatLev) {
    kmOut = &output;
    kmErr = &errors;
    kmStatLev = level;
  }
  Caught(const Caught&) = delete;
  Caught& operator=(const Caught&) = delete;
  ~Caught() {
    kmOut = out_;
    kmErr = err_;
    kmStatLev = level_;
  }

  std::ostringstream output;
  std::ostringstream errors;

 private:
  std::ostream* out_;
  std::ostream* err_;
  StatLev level_;
};

/// The rules of the generator, apart from it. It calls rand() itself: to compare the two, let one
/// draw all it needs before the other begins.
class ReferenceGenerator {
 public:
  ReferenceGenerator() {
    std::srand(0);
    for (int i = 0; i < 97; ++i) next();
    for (int i = 1; i <= 97; ++i) table_[i] = next();
    held_ = next();
  }
  double draw() {
    const int entry = 1 + static_cast<int>(std::trunc(97.0 * held_ / 32767.0));
    spareVisits += entry == 98 ? 1 : 0;
    held_ = table_[entry];
    table_[entry] = next();
    return held_ / 32767.0;
  }
  int drawInt(int n) {
    const int drawn = static_cast<int>(draw() * n);
    return drawn == n ? n - 1 : drawn;
  }
  int spareVisits = 0;

 private:
  static int next() { return std::rand() % 32768; }
  int table_[99] = {};
  int held_ = 0;
};

/// Ends a child process with 0 if a condition holds.
[[noreturn]] inline void endWith(bool holds) { std::_Exit(holds ? 0 : 1); }

#endif  // ZRBASE_TESTS_CLUSTERING_NAIVECLUSTERING_H
