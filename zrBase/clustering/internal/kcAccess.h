#ifndef ZRBASE_CLUSTERING_INTERNAL_KCACCESS_H
#define ZRBASE_CLUSTERING_INTERNAL_KCACCESS_H

#include <zrBase/clustering/KCnode.h>
#include <zrBase/clustering/KCtree.h>

#include <cstddef>
#include <new>

/// What a walk needs to know of a split to go on below it. The cuts of a tree stand in one array,
/// in the order of the nodes, so that a walk reads a fraction of the memory that the nodes take.
struct KCcut {
  double value;  ///< coordinate of the cut
  int dim;       ///< dimension cut
  int nLo;       ///< number of points on the low side
};

/// The library's own way into the nodes of a tree.
///
/// A tree of n points has n leaves and n - 1 splits, all in one block, each right behind its own
/// arrays, and in the order of a walk that goes to the low child first:
///
///     [root][low child][ ... all below it ...][high child][ ... ]
///     one node: [bound of its own, d][coordinate sums, d][KCleaf or KCsplit]
///
/// A child has one bound of its own; the other is that of its parent. The root has none in the
/// block. So the node that comes after s splits and l leaves begins at a place that s and l tell.
struct KCaccess {
  static constexpr std::size_t arraysSize(int dim) {
    return 2 * sizeof(double) * static_cast<std::size_t>(dim);
  }

  /// From the start of the block to the coordinate sums of the node after s splits and l leaves.
  static std::size_t offset(std::size_t s, std::size_t l, int dim) {
    return s * (sizeof(KCsplit) + arraysSize(dim)) + l * (sizeof(KCleaf) + arraysSize(dim));
  }

  static KCleaf* newLeaf(void* at, double* sum, double* lo, double* hi, int n, int* window) {
    return new (at) KCleaf(sum, lo, hi, n, window);
  }
  static KCsplit* newSplit(void* at, double* sum, double* lo, double* hi) {
    return new (at) KCsplit(sum, lo, hi);
  }

  static int nData(const KCnode& node) { return node.nData; }
  static double* sum(const KCnode& node) { return node.sum; }
  static double sumSq(const KCnode& node) { return node.sumSq; }
  static void setSumSq(KCnode& node, double sumSq) { node.sumSq = sumSq; }
  static void setCount(KCnode& node, int n) { node.nData = n; }

  static void setCut(KCsplit& split, int cutDim, double cutVal, double cutLo, double cutHi) {
    split.cutDim = cutDim;
    split.cutVal = cutVal;
    split.cutLo = cutLo;
    split.cutHi = cutHi;
  }
  static void setChildren(KCsplit& split, KCnode* low, KCnode* high) {
    split.loChild = low;
    split.hiChild = high;
  }
};

#endif  // ZRBASE_CLUSTERING_INTERNAL_KCACCESS_H
