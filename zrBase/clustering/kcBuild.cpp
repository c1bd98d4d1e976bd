#include <zrBase/clustering/internal/kcBuild.h>

#include <zrBase/clustering/internal/kcAccess.h>
#include <zrBase/clustering/internal/largePages.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

namespace {

/// Least and greatest coordinate of some points along one dimension.
struct Extent {
  double least;
  double greatest;
};

/// Builds the nodes over a copy of the points that is permuted along with their indices, so that
/// every sweep reads memory in its order. Width is the dimension, or 0 for one that is only known
/// at run time.
template <int Width>
class NodeBuilder {
 public:
  NodeBuilder(double** pts, int* pidx, int n, int dim, char* block, KCcut* cuts)
      : dim_(dim),
        indices_(pidx),
        copy_(new double[static_cast<std::size_t>(n) * width()]),
        points_(copy_.get()),
        next_(block),
        nextCut_(cuts) {
    adviseLargePages(points_, static_cast<std::size_t>(n) * width() * sizeof(double));
    for (int i = 0; i < n; ++i) std::copy_n(pts[i], width(), point(i));
  }

  /// The nodes over the n points from `first` on, in the cell from lo to hi.
  /// @param own  the one of both that belongs to this node alone, still to be moved to its place
  KCnode* build(int first, int n, double* lo, double* hi) {
    if (n < 2) return buildLeaf(first, n, lo, hi);
    double* const sum = takeArray();
    KCsplit& split = *KCaccess::newSplit(take(sizeof(KCsplit)), sum, lo, hi);
    int cutDim = 0;
    double cutVal = 0.0;
    const int nLo = slidingMidpointSplit(first, n, lo, hi, cutDim, cutVal);
    *nextCut_++ = {cutVal, cutDim, nLo};
    KCaccess::setCut(split, cutDim, cutVal, lo[cutDim], hi[cutDim]);
    KCnode* const low = build(first, nLo, lo, takeBound(hi, cutDim, cutVal));
    KCnode* const high = build(first + nLo, n - nLo, takeBound(lo, cutDim, cutVal), hi);
    KCaccess::setChildren(split, low, high);
    addUp(split, *low, *high);
    return &split;
  }

 private:
  /// From this number of points on, a sweep without branches pays.
  static constexpr int manyPoints = 32;

  std::size_t width() const { return static_cast<std::size_t>(Width > 0 ? Width : dim_); }
  double* point(int i) { return points_ + static_cast<std::size_t>(i) * width(); }
  double coordinate(int i, int d) {
    return points_[static_cast<std::size_t>(i) * width() + static_cast<std::size_t>(d)];
  }

  void* take(std::size_t bytes) {
    void* const place = next_;
    next_ += bytes;
    return place;
  }
  double* takeArray() { return static_cast<double*>(take(width() * sizeof(double))); }
  double* takeBound(const double* bound, int cutDim, double cutVal) {
    double* const own = takeArray();
    std::copy_n(bound, width(), own);
    own[cutDim] = cutVal;
    return own;
  }

  KCleaf* buildLeaf(int first, int n, double* lo, double* hi) {
    double* const sum = takeArray();
    double sumSq = 0.0;
    for (std::size_t d = 0; d < width(); ++d) {
      const double coordinate = n > 0 ? point(first)[d] : 0.0;
      sum[d] = 0.0 + coordinate;
      sumSq += coordinate * coordinate;
    }
    KCleaf* const leaf = KCaccess::newLeaf(take(sizeof(KCleaf)), sum, lo, hi, n, indices_ + first);
    KCaccess::setSumSq(*leaf, sumSq);
    return leaf;
  }

  /// What KCsplit::collectStats does, while the children are at hand.
  void addUp(KCsplit& split, KCnode& low, KCnode& high) {
    double* const sum = KCaccess::sum(split);
    const double* const lowSum = KCaccess::sum(low);
    const double* const highSum = KCaccess::sum(high);
    for (std::size_t d = 0; d < width(); ++d) sum[d] = lowSum[d] + highSum[d];
    KCaccess::setCount(split, KCaccess::nData(low) + KCaccess::nData(high));
    KCaccess::setSumSq(split, KCaccess::sumSq(low) + KCaccess::sumSq(high));
  }

  void swapPoints(int i, int j) {
    std::swap(indices_[i], indices_[j]);
    double* const a = point(i);
    double* const b = point(j);
    for (std::size_t d = 0; d < width(); ++d) std::swap(a[d], b[d]);
  }

  static void widen(Extent& extent, double c) {
    extent.least = c < extent.least ? c : extent.least;
    extent.greatest = c > extent.greatest ? c : extent.greatest;
  }

  Extent extentAlong(int first, int n, int d) {
    const double start = coordinate(first, d);
    Extent extent{start, start};
    int i = first + 1;
    if (n >= manyPoints) {
      // Several chains, so that none of them waits for itself.
      Extent chains[4] = {extent, extent, extent, extent};
      for (; i + 4 <= first + n; i += 4) {
        for (int chain = 0; chain < 4; ++chain) widen(chains[chain], coordinate(i + chain, d));
      }
      for (const Extent& chain : chains) {
        widen(extent, chain.least);
        widen(extent, chain.greatest);
      }
      // Of zeros with different signs the first counts, which only one chain in the order of the
      // points finds.
      if (extent.least == 0.0 || extent.greatest == 0.0) {
        extent = {start, start};
        i = first + 1;
      }
    }
    for (; i < first + n; ++i) widen(extent, coordinate(i, d));
    return extent;
  }

  /// Dimension to cut: of those along which the cell is longest, to within a thousandth, that of
  /// the widest spread of points. The lowest wins a tie.
  int dimensionToCut(int first, int n, const double* lo, const double* hi, Extent& extent) {
    double longest = hi[0] - lo[0];
    for (std::size_t d = 1; d < width(); ++d) {
      if (hi[d] - lo[d] > longest) longest = hi[d] - lo[d];
    }
    int cutDim = -1;
    double widest = -1.0;
    for (int d = 0; d < static_cast<int>(width()); ++d) {
      if (!(hi[d] - lo[d] >= 0.999 * longest)) continue;
      const Extent along = extentAlong(first, n, d);
      if (along.greatest - along.least > widest) {
        widest = along.greatest - along.least;
        cutDim = d;
        extent = along;
      }
    }
    if (cutDim >= 0) return cutDim;
    extent = extentAlong(first, n, 0);
    return 0;
  }

  int slidingMidpointSplit(int first, int n, const double* lo, const double* hi, int& cutDim,
                           double& cutVal) {
    Extent extent{};
    cutDim = dimensionToCut(first, n, lo, hi, extent);
    const double middle = (lo[cutDim] + hi[cutDim]) * 0.5;
    cutVal = middle;
    if (extent.least > middle) {
      cutVal = extent.least;
    } else if (middle > extent.greatest) {
      cutVal = extent.greatest;
    }
    int nBelow = 0;
    int nNotAbove = 0;
    planeSplit(first, n, cutDim, cutVal, nBelow, nNotAbove);
    if (extent.least > middle) return 1;
    if (middle > extent.greatest) return n - 1;
    const int half = n / 2;
    return nBelow > half ? nBelow : std::min(nNotAbove, half);
  }

  /// Sorts a window into points below the cut, points at it, and points above it, by two sweeps
  /// from both ends that swap what is misplaced, pair by pair.
  void planeSplit(int first, int n, int d, double cutVal, int& nBelow, int& nNotAbove) {
    const auto isBelow = [=](double c) { return c < cutVal; };
    const auto isNotAbove = [=](double c) { return !(c > cutVal); };
    nBelow = 0;
    nNotAbove = 0;
    for (int i = first; i < first + n; ++i) {
      nBelow += isBelow(coordinate(i, d)) ? 1 : 0;
      nNotAbove += isNotAbove(coordinate(i, d)) ? 1 : 0;
    }
    sweep(first, first + nBelow, first + n, d, isBelow);
    if (nNotAbove > nBelow) {
      sweep(first + nBelow, first + nNotAbove, first + n, d, isNotAbove);
    }
  }

  /// Brings the points that belong to the left before `middle`, which is where they end: the first
  /// misplaced one from the left changes places with the first from the right, and so on.
  template <class Belongs>
  void sweep(int begin, int middle, int end, int d, Belongs belongsLeft) {
    if (end - begin >= manyPoints) {
      sweepByBlocks(begin, middle, end, d, belongsLeft);
      return;
    }
    int left = begin;
    int right = end - 1;
    for (;;) {
      while (left < middle && belongsLeft(coordinate(left, d))) ++left;
      if (left == middle) return;
      while (!belongsLeft(coordinate(right, d))) --right;
      swapPoints(left++, right--);
    }
  }

  /// The same, with the misplaced ones listed first, block by block: a list is made without
  /// branches, where those of the plain loop would be guessed wrong every other time (Edelkamp and
  /// Weiss, 2016).
  template <class Belongs>
  void sweepByBlocks(int begin, int middle, int end, int d, Belongs belongsLeft) {
    constexpr int blockLength = 64;
    int lefts[blockLength];
    int rights[blockLength];
    int nLefts = 0, nRights = 0, nextLeft = 0, nextRight = 0;
    int left = begin;
    int right = end - 1;
    for (;;) {
      if (nextLeft == nLefts) {
        nextLeft = nLefts = 0;
        for (const int stop = std::min(middle, left + blockLength); left < stop; ++left) {
          lefts[nLefts] = left;
          nLefts += belongsLeft(coordinate(left, d)) ? 0 : 1;
        }
      }
      if (nextRight == nRights) {
        nextRight = nRights = 0;
        for (const int stop = std::max(middle - 1, right - blockLength); right > stop; --right) {
          rights[nRights] = right;
          nRights += belongsLeft(coordinate(right, d)) ? 1 : 0;
        }
      }
      while (nextLeft < nLefts && nextRight < nRights) {
        swapPoints(lefts[nextLeft++], rights[nextRight++]);
      }
      if (nextLeft == nLefts && left == middle) return;
    }
  }

  const int dim_;
  int* const indices_;
  std::unique_ptr<double[]> copy_;
  double* const points_;
  char* next_;
  KCcut* nextCut_;
};

template <int Width>
KCnode* buildNodes(double** pts, int* pidx, int n, int dim, double* lo, double* hi, void* block,
                   KCcut* cuts) {
  NodeBuilder<Width> builder(pts, pidx, n, dim, static_cast<char*>(block), cuts);
  return builder.build(0, n, lo, hi);
}

}  // namespace

void kmEnclosingBox(double** pts, int n, int dim, double* lo, double* hi) {
  if (n < 1) return;
  std::copy_n(pts[0], dim, lo);
  std::copy_n(pts[0], dim, hi);
  for (int i = 1; i < n; ++i) {
    const double* const p = pts[i];
    for (int d = 0; d < dim; ++d) {
      if (p[d] < lo[d]) {
        lo[d] = p[d];
      } else if (p[d] > hi[d]) {
        hi[d] = p[d];
      }
    }
  }
}

std::size_t kcBlockSize(int n, int dim) {
  const std::size_t leaves = static_cast<std::size_t>(std::max(n, 1));
  return leaves * (sizeof(KCleaf) + KCaccess::arraysSize(dim)) +
         (leaves - 1) * (sizeof(KCsplit) + KCaccess::arraysSize(dim));
}

KCnode* kcBuildNodes(double** pts, int* pidx, int n, int dim, double* lo, double* hi, void* block,
                     KCcut* cuts) {
  switch (dim) {
    case 2:
      return buildNodes<2>(pts, pidx, n, dim, lo, hi, block, cuts);
    case 3:
      return buildNodes<3>(pts, pidx, n, dim, lo, hi, block, cuts);
    case 4:
      return buildNodes<4>(pts, pidx, n, dim, lo, hi, block, cuts);
    case 8:
      return buildNodes<8>(pts, pidx, n, dim, lo, hi, block, cuts);
    default:
      return buildNodes<0>(pts, pidx, n, dim, lo, hi, block, cuts);
  }
}
