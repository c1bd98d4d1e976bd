#ifndef ZRBASE_CLUSTERING_INTERNAL_KCWALK_H
#define ZRBASE_CLUSTERING_INTERNAL_KCWALK_H

#include <zrBase/clustering/internal/kcAccess.h>
#include <zrBase/clustering/internal/kcContext.h>
#include <zrBase/clustering/internal/kcLanes.h>
#include <zrBase/clustering/internal/kcPasses.h>
#include <zrBase/clustering/internal/kcTape.h>

#include <cstddef>
#include <limits>
#include <numeric>
#include <vector>

/// One pass through a tree, from the root, with all centers as candidates.
///
/// It takes the decisions of KCnode::filterCandidates and KCnode::assignPoints, but reads the cuts
/// alone, and notes on a tape where it ends. Two things make it quick:
///
/// - The cell of a child differs from that of its parent on one dimension. So of the terms of each
///   candidate's sums only those of one dimension are computed anew; the sums themselves are always
///   formed from all terms, in their order.
/// - The candidate closest to the middle of a cell is mostly that of the parent. So the pruning
///   terms are held ready against this one, and computed anew where it changes.
template <int Width, class Reader>
class KCwalk {
 public:
  KCwalk(const KCview& tree, Reader& reader)
      : tree_(tree),
        tape_(tree, centers_, reader),
        cellLo_(tree.bndLo, tree.bndLo + width()),
        cellHi_(tree.bndHi, tree.bndHi + width()),
        pairTerms_(10 * width()) {}

  void run() {
    ids_.resize(static_cast<std::size_t>(kcK));
    std::iota(ids_.begin(), ids_.end(), 0);
    if (kcK == 1) {
      tape_.note(0, 0, tree_.nPts, 0);
    } else if (tree_.nPts == 1) {
      tape_.noteLeaf(0, 0, ids_.data(), kcK);
    } else if (tree_.nPts > 1 && kcK == 2) {
      beginPair(0, 1);
      splitOfPair(0, 0, tree_.nPts);
    } else if (tree_.nPts > 1) {
      List all = begin();
      splitOfList(0, 0, tree_.nPts, all);
    }
    tape_.read();
  }

 private:
  /// A list of candidates that is being worked on. Lists stand on two stacks, of center numbers and
  /// of sums.
  struct List {
    std::size_t firstId;
    std::size_t firstTwo;
    int nCands;
    int closest;  ///< position that the pruning terms are for

    int nTwos() const { return (nCands + 1) / 2; }
  };

  // Two neighbours of a list, lane by lane: the norm of kcIsPruned (-inf for the closest, which is
  // never pruned), and for each dimension three pairs. In a list of odd length the last lane is
  // filled with NaNs, for which no comparison holds.
  static constexpr std::size_t center = 1;    ///< coordinate
  static constexpr std::size_t distance = 2;  ///< term of the squared distance to the middle
  static constexpr std::size_t dot = 3;       ///< term of the dot product of kcIsPruned

  static std::size_t width() { return KCcenterRows<Width>::width(); }
  static std::size_t sizeOfTwo() { return 2 * (1 + 3 * width()); }
  static KCpair& norm(double* two) { return *reinterpret_cast<KCpair*>(two); }
  static KCpair& term(double* two, std::size_t kind, std::size_t d) {
    return *reinterpret_cast<KCpair*>(two + 2 * (3 * d + kind));
  }
  static KCpair sumOf(double* two, std::size_t kind) {
    KCpair sum = term(two, kind, 0);
    for (std::size_t d = 1; d < width(); ++d) sum += term(two, kind, d);
    return sum;
  }
  double* twosOf(const List& list) { return twos_.data() + list.firstTwo * sizeOfTwo(); }
  const double* closestOf(const List& list) const {
    return centers_[ids_[list.firstId + static_cast<std::size_t>(list.closest)]];
  }

  /// The list of all centers.
  List begin() {
    List all = {0, 0, kcK, 0};
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    twos_.resize(static_cast<std::size_t>(all.nTwos()) * sizeOfTwo());
    for (int p = 0; p < all.nTwos(); ++p) {
      double* const two = twos_.data() + static_cast<std::size_t>(p) * sizeOfTwo();
      const bool isAlone = 2 * p + 1 == kcK;
      for (std::size_t d = 0; d < width(); ++d) {
        term(two, center, d) = kcPair(centers_[2 * p][d], isAlone ? nan : centers_[2 * p + 1][d]);
        setDistance(two, d, cellLo_[d], cellHi_[d]);
      }
    }
    all.closest = findClosest(all);
    setClosest(all);
    return all;
  }

  static void setDistance(double* two, std::size_t d, double lo, double hi) {
    const KCpair toMiddle = (lo + hi) * 0.5 - term(two, center, d);
    term(two, distance, d) = toMiddle * toMiddle;
  }

  /// @return how far the two lie from the closest, on this dimension
  static KCpair setDot(double* two, std::size_t d, double closest, double lo, double hi) {
    const KCpair difference = term(two, center, d) - closest;
    const KCpair corner = kcSelect(difference > 0.0, kcPair(hi, hi), kcPair(lo, lo));
    term(two, dot, d) = (corner - closest) * difference;
    return difference;
  }

  void setCell(const List& list, std::size_t d, double lo, double hi) {
    cellLo_[d] = lo;
    cellHi_[d] = hi;
    const double closest = closestOf(list)[d];
    double* two = twosOf(list);
    for (int p = 0; p < list.nTwos(); ++p, two += sizeOfTwo()) {
      setDistance(two, d, lo, hi);
      setDot(two, d, closest, lo, hi);
    }
  }

  void setClosest(const List& list) {
    const double* const closest = closestOf(list);
    double* two = twosOf(list);
    for (int p = 0; p < list.nTwos(); ++p, two += sizeOfTwo()) {
      norm(two) = kcPair(0.0, 0.0);
      for (std::size_t d = 0; d < width(); ++d) {
        const KCpair difference = setDot(two, d, closest[d], cellLo_[d], cellHi_[d]);
        norm(two) += difference * difference;
      }
    }
    norm(twosOf(list) +
         static_cast<std::size_t>(list.closest / 2) * sizeOfTwo())[list.closest % 2] =
        -std::numeric_limits<double>::infinity();
  }

  /// Whether nobody has come as near to the middle of the cell as the one that was the closest.
  bool closestStays(const List& list) {
    double* two = twosOf(list);
    const double own = sumOf(two + static_cast<std::size_t>(list.closest / 2) * sizeOfTwo(),
                             distance)[list.closest % 2];
    KCpairMask asNear = {0, 0};
    for (int p = 0; p < list.nTwos(); ++p, two += sizeOfTwo()) {
      asNear += sumOf(two, distance) <= own;
    }
    return asNear[0] + asNear[1] == -1 && own < kcFarthest;
  }

  int findClosest(const List& list) {
    int position = 0;
    double least = kcFarthest;
    double* two = twosOf(list);
    for (int p = 0; p < list.nTwos(); ++p, two += sizeOfTwo()) {
      const KCpair distances = sumOf(two, distance);
      for (int lane = 0; lane < 2; ++lane) {
        if (distances[lane] < least) {
          least = distances[lane];
          position = 2 * p + lane;
        }
      }
    }
    return position;
  }

  int countPruned(const List& list) {
    KCpairMask pruned = {0, 0};
    double* two = twosOf(list);
    for (int p = 0; p < list.nTwos(); ++p, two += sizeOfTwo()) {
      pruned += norm(two) >= 2 * sumOf(two, dot);
    }
    return static_cast<int>(-(pruned[0] + pruned[1]));
  }

  /// Puts those that remain of a list behind it. Each is copied, and the next one stands in its
  /// place if it does not remain: so no branch has to be guessed.
  List remaining(const List& list, int nKept) {
    List kept = {list.firstId + static_cast<std::size_t>(list.nCands),
                 list.firstTwo + static_cast<std::size_t>(list.nTwos()), 0, 0};
    const std::size_t room = static_cast<std::size_t>(list.nCands) + 2;
    if (ids_.size() < kept.firstId + room) ids_.resize(2 * (kept.firstId + room));
    if (twos_.size() < (kept.firstTwo + room) * sizeOfTwo()) {
      twos_.resize(2 * (kept.firstTwo + room) * sizeOfTwo());
    }
    const bool asPair = nKept == 2;
    const int* const ids = &ids_[list.firstId];
    int* const keptIds = &ids_[kept.firstId];
    double* const keptTwos = twosOf(kept);
    double* two = twosOf(list);
    for (int p = 0; p < list.nTwos(); ++p, two += sizeOfTwo()) {
      const KCpairMask pruned = norm(two) >= 2 * sumOf(two, dot);
      for (int lane = 0; lane < 2 && 2 * p + lane < list.nCands; ++lane) {
        if (pruned[lane] != 0) continue;
        const std::size_t at = static_cast<std::size_t>(kept.nCands);
        keptIds[at] = ids[2 * p + lane];
        if (!asPair) copyLane(two + lane, keptTwos + at / 2 * sizeOfTwo() + at % 2);
        if (2 * p + lane == list.closest) kept.closest = kept.nCands;
        ++kept.nCands;
      }
    }
    if (nKept % 2 == 1) {
      double* const last = keptTwos + static_cast<std::size_t>(nKept / 2) * sizeOfTwo() + 1;
      for (std::size_t i = 0; i < sizeOfTwo(); i += 2) {
        last[i] = std::numeric_limits<double>::quiet_NaN();
      }
    }
    return kept;
  }

  static void copyLane(const double* from, double* to) {
    for (std::size_t i = 0; i < sizeOfTwo(); i += 2) to[i] = from[i];
  }

  /// A split with a list of three candidates or more, whose terms are those of its cell; they are
  /// again when it is done, and the closest may be another one.
  void splitOfList(int s, int l, int n, List& list) {
    const KCcut cut = tree_.cuts[s];
    if (!closestStays(list)) {
      const int closest = findClosest(list);
      if (closest != list.closest) {
        list.closest = closest;
        setClosest(list);
      }
    }
    const int nPruned = countPruned(list);
    if (nPruned == 0) {
      const double lo = cellLo_[static_cast<std::size_t>(cut.dim)];
      const double hi = cellHi_[static_cast<std::size_t>(cut.dim)];
      childrenOfList(s, l, n, cut, list);
      setCell(list, static_cast<std::size_t>(cut.dim), lo, hi);
      return;
    }
    const int nKept = list.nCands - nPruned;
    if (nKept == 1) {
      const int only = ids_[list.firstId + static_cast<std::size_t>(list.closest)];
      tape_.note(s + 1, l, cut.nLo, only);
      tape_.note(s + cut.nLo, l + cut.nLo, n - cut.nLo, only);
      return;
    }
    List kept = remaining(list, nKept);
    if (nKept == 2) {
      beginPair(ids_[kept.firstId], ids_[kept.firstId + 1]);
      childrenOfPair(s, l, n, cut);
    } else {
      const double lo = cellLo_[static_cast<std::size_t>(cut.dim)];
      const double hi = cellHi_[static_cast<std::size_t>(cut.dim)];
      childrenOfList(s, l, n, cut, kept);
      cellLo_[static_cast<std::size_t>(cut.dim)] = lo;
      cellHi_[static_cast<std::size_t>(cut.dim)] = hi;
    }
  }

  /// Leaves the terms of the last child behind.
  void childrenOfList(int s, int l, int n, const KCcut& cut, List& list) {
    const std::size_t d = static_cast<std::size_t>(cut.dim);
    const double lo = cellLo_[d];
    const double hi = cellHi_[d];
    if (cut.nLo < 2) {
      tape_.noteLeaf(s + 1, l, &ids_[list.firstId], list.nCands);
    } else {
      setCell(list, d, lo, cut.value);
      splitOfList(s + 1, l, cut.nLo, list);
    }
    if (n - cut.nLo < 2) {
      tape_.noteLeaf(s + cut.nLo, l + cut.nLo, &ids_[list.firstId], list.nCands);
    } else {
      setCell(list, d, cut.value, hi);
      splitOfList(s + cut.nLo, l + cut.nLo, n - cut.nLo, list);
    }
  }

  // Two candidates: most splits are met with no more. Each lane takes the other one as the closest,
  // so that nothing has to be computed anew whichever is.

  static constexpr std::size_t pairCenter = 0;
  static constexpr std::size_t pairOther = 1;
  static constexpr std::size_t pairDifference = 2;
  static constexpr std::size_t pairDistance = 3;
  static constexpr std::size_t pairDot = 4;

  KCpair& pairTerm(std::size_t kind, std::size_t d) {
    return *reinterpret_cast<KCpair*>(pairTerms_.data() + 2 * (5 * d + kind));
  }

  void beginPair(int first, int second) {
    pair_[0] = first;
    pair_[1] = second;
    const double* const a = centers_[first];
    const double* const b = centers_[second];
    pairNorm_ = kcPair(0.0, 0.0);
    for (std::size_t d = 0; d < width(); ++d) {
      pairTerm(pairCenter, d) = kcPair(a[d], b[d]);
      pairTerm(pairOther, d) = kcPair(b[d], a[d]);
      const KCpair difference = pairTerm(pairCenter, d) - pairTerm(pairOther, d);
      pairTerm(pairDifference, d) = difference;
      pairNorm_ += difference * difference;
      setPairCell(d, cellLo_[d], cellHi_[d]);
    }
  }

  void setPairCell(std::size_t d, double lo, double hi) {
    cellLo_[d] = lo;
    cellHi_[d] = hi;
    const KCpair toMiddle = (lo + hi) * 0.5 - pairTerm(pairCenter, d);
    pairTerm(pairDistance, d) = toMiddle * toMiddle;
    const KCpair difference = pairTerm(pairDifference, d);
    const KCpair corner = kcSelect(difference > 0.0, kcPair(hi, hi), kcPair(lo, lo));
    pairTerm(pairDot, d) = (corner - pairTerm(pairOther, d)) * difference;
  }

  KCpair pairSum(std::size_t kind) {
    KCpair sum = pairTerm(kind, 0);
    for (std::size_t d = 1; d < width(); ++d) sum += pairTerm(kind, d);
    return sum;
  }

  void splitOfPair(int s, int l, int n) {
    const KCcut cut = tree_.cuts[s];
    const KCpair distances = pairSum(pairDistance);
    const KCpairMask pruned = pairNorm_ >= 2 * pairSum(pairDot);
    const double least = distances[0] < kcFarthest ? distances[0] : kcFarthest;
    const bool isSecond = distances[1] < least;
    if (kcPick(isSecond, static_cast<int>(pruned[1]), static_cast<int>(pruned[0])) != 0) {
      const int only = kcPick(isSecond, pair_[0], pair_[1]);
      tape_.note(s + 1, l, cut.nLo, only);
      tape_.note(s + cut.nLo, l + cut.nLo, n - cut.nLo, only);
      return;
    }
    childrenOfPair(s, l, n, cut);
  }

  void childrenOfPair(int s, int l, int n, const KCcut& cut) {
    const std::size_t d = static_cast<std::size_t>(cut.dim);
    const double lo = cellLo_[d];
    const double hi = cellHi_[d];
    const KCpair distanceBefore = pairTerm(pairDistance, d);
    const KCpair dotBefore = pairTerm(pairDot, d);
    if (cut.nLo < 2) {
      tape_.noteLeaf(s + 1, l, pair_, 2);
    } else {
      setPairCell(d, lo, cut.value);
      splitOfPair(s + 1, l, cut.nLo);
    }
    if (n - cut.nLo < 2) {
      tape_.noteLeaf(s + cut.nLo, l + cut.nLo, pair_, 2);
    } else {
      setPairCell(d, cut.value, hi);
      splitOfPair(s + cut.nLo, l + cut.nLo, n - cut.nLo);
    }
    cellLo_[d] = lo;
    cellHi_[d] = hi;
    pairTerm(pairDistance, d) = distanceBefore;
    pairTerm(pairDot, d) = dotBefore;
  }

  const KCview tree_;
  const KCcenterRows<Width> centers_;
  KCtape<Width, Reader> tape_;
  std::vector<double> cellLo_;
  std::vector<double> cellHi_;
  std::vector<int> ids_;
  std::vector<double> twos_;
  int pair_[2] = {0, 0};
  KCpair pairNorm_ = {0.0, 0.0};
  std::vector<double> pairTerms_;
};

#endif  // ZRBASE_CLUSTERING_INTERNAL_KCWALK_H
