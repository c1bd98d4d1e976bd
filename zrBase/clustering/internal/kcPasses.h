#ifndef ZRBASE_CLUSTERING_INTERNAL_KCPASSES_H
#define ZRBASE_CLUSTERING_INTERNAL_KCPASSES_H

struct KCcut;

/// A tree as its passes see it.
struct KCview {
  int nPts;             ///< number of points
  const int* pidx;      ///< point indices in the order of the leaves
  const double* bndLo;  ///< outermost cell
  const double* bndHi;  ///< outermost cell
  const char* block;    ///< the nodes
  const KCcut* cuts;    ///< the cuts
};

/// The walk of KCnode::filterCandidates from the root, with all centers of the context as
/// candidates: the same sums, in the same order.
void kcFilterAll(const KCview& tree);

/// The walk of KCnode::assignPoints from the root, with all centers of the context as candidates.
void kcAssignAll(const KCview& tree, int* closeCtr, double* sqDist);

#endif  // ZRBASE_CLUSTERING_INTERNAL_KCPASSES_H
