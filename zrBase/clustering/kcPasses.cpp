#include <zrBase/clustering/internal/kcPasses.h>

#include <zrBase/clustering/internal/kcAccess.h>
#include <zrBase/clustering/internal/kcContext.h>
#include <zrBase/clustering/internal/kcTape.h>
#include <zrBase/clustering/internal/kcWalk.h>
#include <zrBase/clustering/kmPoints.h>

#include <cstddef>
#include <vector>

namespace {

/// Adds the points of each note to the statistics of its center.
template <int Width>
class PostReader {
 public:
  explicit PostReader(const KCview& tree) : tree_(tree) {}

  void foresee(KCnote& note) const {
    const char* const sum = sumsAt(note);
    if (note.center >= 0) __builtin_prefetch(sum);
    __builtin_prefetch(sum + sumSize() + sizeof(KCnode) / 2);
    note.sum = reinterpret_cast<const double*>(sum);
  }

  void read(const KCnote* begin, const KCnote* end) const {
    for (const KCnote* note = begin; note != end; ++note) {
      const KCnode& node = *reinterpret_cast<const KCnode*>(sumsAt(*note) + sumSize());
      double* const sums = kcSums[note->center];
      for (std::size_t d = 0; d < width(); ++d) sums[d] += note->sum[d];
      kcWeights[note->center] += note->n;
      // Kept on purpose (KeptMovedPointKeepsItsFormerNorm): at a leaf met with several candidates
      // the sum is the point as it is now, but the sum of squares is the leaf's, of the point as it
      // was when the tree was built, as in KCleaf::filterCandidates.
      kcSumSqs[note->center] += KCaccess::sumSq(node);
    }
  }

 private:
  static std::size_t width() { return KCcenterRows<Width>::width(); }
  static std::size_t sumSize() { return width() * sizeof(double); }
  const char* sumsAt(const KCnote& note) const {
    return tree_.block + KCaccess::offset(static_cast<std::size_t>(note.s),
                                          static_cast<std::size_t>(note.l),
                                          static_cast<int>(width()));
  }

  const KCview& tree_;
};

/// Writes the center of each point.
class AssignReader {
 public:
  AssignReader(const KCview& tree, int* closeCtr) : tree_(tree), closeCtr_(closeCtr) {}

  void foresee(const KCnote&) const {}

  void read(const KCnote* begin, const KCnote* end) const {
    for (const KCnote* note = begin; note != end; ++note) {
      for (int i = note->l; i < note->l + note->n; ++i) closeCtr_[tree_.pidx[i]] = note->center;
    }
  }

 private:
  const KCview& tree_;
  int* const closeCtr_;
};

template <int Width>
void filterAll(const KCview& tree) {
  PostReader<Width> reader(tree);
  KCwalk<Width, PostReader<Width>>(tree, reader).run();
}

template <int Width>
void assignAll(const KCview& tree, int* closeCtr, double* sqDist) {
  AssignReader reader(tree, closeCtr);
  KCwalk<Width, AssignReader>(tree, reader).run();
  if (sqDist == nullptr) return;
  for (int i = 0; i < tree.nPts; ++i) {
    const double squaredDistance =
        kmDist2(static_cast<int>(KCcenterRows<Width>::width()), kcPts[i], kcCtrs[closeCtr[i]]);
    // A distance that nothing was found to be below is told as the bound itself.
    sqDist[i] = squaredDistance < kcFarthest ? squaredDistance : kcFarthest;
  }
}

}  // namespace

void kcFilterAll(const KCview& tree) {
  if (kcK < 1) return;
  switch (kcDim) {
    case 2:
      return filterAll<2>(tree);
    case 3:
      return filterAll<3>(tree);
    case 4:
      return filterAll<4>(tree);
    case 8:
      return filterAll<8>(tree);
    default:
      return filterAll<0>(tree);
  }
}

void kcAssignAll(const KCview& tree, int* closeCtr, double* sqDist) {
  if (kcK < 1 || (closeCtr == nullptr && sqDist == nullptr)) return;
  std::vector<int> ownArray;
  if (closeCtr == nullptr) {
    ownArray.resize(static_cast<std::size_t>(tree.nPts));
    closeCtr = ownArray.data();
  }
  switch (kcDim) {
    case 2:
      return assignAll<2>(tree, closeCtr, sqDist);
    case 3:
      return assignAll<3>(tree, closeCtr, sqDist);
    case 4:
      return assignAll<4>(tree, closeCtr, sqDist);
    case 8:
      return assignAll<8>(tree, closeCtr, sqDist);
    default:
      return assignAll<0>(tree, closeCtr, sqDist);
  }
}
