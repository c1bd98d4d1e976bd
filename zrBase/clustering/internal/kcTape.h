#ifndef ZRBASE_CLUSTERING_INTERNAL_KCTAPE_H
#define ZRBASE_CLUSTERING_INTERNAL_KCTAPE_H

#include <zrBase/clustering/internal/kcContext.h>
#include <zrBase/clustering/internal/kcLanes.h>
#include <zrBase/clustering/internal/kcPasses.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

/// A distance that is not below this one counts for nothing.
constexpr double kcFarthest = std::numeric_limits<double>::max();

/// The centers of the context in one block, row behind row. Width is the dimension, or 0 for one
/// that is only known at run time.
template <int Width>
class KCcenterRows {
 public:
  KCcenterRows() : rows_(static_cast<std::size_t>(kcK) * width()) {
    for (int j = 0; j < kcK; ++j) {
      std::copy_n(kcCtrs[j], width(), rows_.data() + static_cast<std::size_t>(j) * width());
    }
  }

  static std::size_t width() { return static_cast<std::size_t>(Width > 0 ? Width : kcDim); }

  const double* operator[](int center) const {
    return rows_.data() + static_cast<std::size_t>(center) * width();
  }

  /// What kcClosestToPoint finds, for two candidates.
  int closerOfTwo(const double* p, int first, int second) const {
    const KCpair both = distances(p, first, second);
    const double least = both[0] < kcFarthest ? both[0] : kcFarthest;
    return kcPick(both[1] < least, first, second);
  }

  /// What kcClosestToPoint finds.
  int closest(const double* p, const int* cands, int nCands) const {
    int center = cands[0];
    double least = kcFarthest;
    for (int j = 0; j < nCands; j += 2) {
      // A last one without a neighbour stands in both lanes: it is not below itself.
      const int next = cands[std::min(j + 1, nCands - 1)];
      const KCpair both = distances(p, cands[j], next);
      center = kcPick(both[0] < least, center, cands[j]);
      least = both[0] < least ? both[0] : least;
      center = kcPick(both[1] < least, center, next);
      least = both[1] < least ? both[1] : least;
    }
    return center;
  }

 private:
  KCpair distances(const double* p, int first, int second) const {
    const double* const a = (*this)[first];
    const double* const b = (*this)[second];
    KCpair squaredDistances{0.0, 0.0};
    for (std::size_t d = 0; d < width(); ++d) {
      const KCpair difference = p[d] - kcPair(a[d], b[d]);
      squaredDistances += difference * difference;
    }
    return squaredDistances;
  }

  std::vector<double> rows_;
};

/// A place where a walk ends: the node after s splits and l leaves of a tree.
struct KCnote {
  int s;
  int l;
  int n;              ///< data points below
  int center;         ///< the one they go to
  const double* sum;  ///< their coordinate sums
};

/// The notes of a walk, in its order, read in long pieces: the memory that a piece needs is asked
/// for before it is worked on, so that the waits for it overlap.
///
/// A leaf that was met with several candidates is decided here. Those with two, by far the most,
/// stand apart, for a loop without branches.
///
/// The Reader has foresee(note), for a note that is new, and read(first, last).
template <int Width, class Reader>
class KCtape {
 public:
  KCtape(const KCview& tree, const KCcenterRows<Width>& centers, Reader& reader)
      : tree_(tree), centers_(centers), reader_(reader), notes_(length + 2) {}

  /// A node whose points all go to one center.
  void note(int s, int l, int n, int center) {
    KCnote& added = notes_[end_++];
    added = {s, l, n, center, nullptr};
    reader_.foresee(added);
    if (end_ >= length) read();
  }

  /// A leaf with one point and several candidates.
  void noteLeaf(int s, int l, const int* cands, int nCands) {
    __builtin_prefetch(tree_.pidx + l);
    if (nCands == 2) {
      twos_.push_back({end_, cands[0], cands[1]});
    } else {
      several_.push_back({end_, static_cast<int>(cands_.size()), nCands});
      cands_.insert(cands_.end(), cands, cands + nCands);
    }
    note(s, l, 1, -1);
  }

  void read() {
    for (const Open& open : twos_) __builtin_prefetch(kcPts + indexOf(open));
    for (const Open& open : several_) __builtin_prefetch(kcPts + indexOf(open));
    for (const Open& open : twos_) foreseePoint(open);
    for (const Open& open : several_) foreseePoint(open);
    for (const Open& open : twos_) {
      const double* const p = kcPts[indexOf(open)];
      notes_[open.note].center = centers_.closerOfTwo(p, open.first, open.second);
      notes_[open.note].sum = p;
    }
    for (const Open& open : several_) {
      const double* const p = kcPts[indexOf(open)];
      notes_[open.note].center = centers_.closest(p, cands_.data() + open.first, open.second);
      notes_[open.note].sum = p;
    }
    reader_.read(notes_.data(), notes_.data() + end_);
    end_ = 0;
    twos_.clear();
    several_.clear();
    cands_.clear();
  }

 private:
  static constexpr std::size_t length = 192;

  /// A leaf to be decided: its note, and two candidates, or begin and number of several.
  struct Open {
    std::size_t note;
    int first;
    int second;
  };

  int indexOf(const Open& open) const { return tree_.pidx[notes_[open.note].l]; }
  void foreseePoint(const Open& open) const {
    const double* const p = kcPts[indexOf(open)];
    __builtin_prefetch(p);
    __builtin_prefetch(p + centers_.width() - 1);
  }

  const KCview& tree_;
  const KCcenterRows<Width>& centers_;
  Reader& reader_;
  std::vector<KCnote> notes_;
  std::size_t end_ = 0;
  std::vector<Open> twos_;
  std::vector<Open> several_;
  std::vector<int> cands_;
};

#endif  // ZRBASE_CLUSTERING_INTERNAL_KCTAPE_H
