#ifndef ZRBASE_CLUSTERING_KCNODE_H
#define ZRBASE_CLUSTERING_KCNODE_H

#include <zrBase/export.h>

/// A node of a KCtree: a cell of space, with count and sums of the data points in it.
///
/// The nodes of a tree live in one block that the tree owns, each beside its sums, in the order of
/// a walk that goes to the low child first. A node made by hand owns its arrays.
///
/// filterCandidates and assignPoints work on the centers of the last pass that a tree has begun
/// (KCtree::getNeighbors, KCtree::getAssignments); sampleInNode and printNode on the points of the
/// last tree built or passed through. All of these must still exist.
class ZRBASE_EXPORT KCnode {
 public:
  KCnode(const KCnode&) = delete;
  KCnode& operator=(const KCnode&) = delete;
  /// Frees the arrays of a node made by hand.
  virtual ~KCnode();

  /// Adds up the data points below, here and in all nodes below.
  ///
  /// The tree does so once. A second call starts with the sums of the first: at each level they are
  /// added to once more. Only counts, and a leaf's sum of squares, start over.
  /// @param n  number of points
  /// @param sum  the node's own array of coordinate sums
  /// @param sumSq  sum over the points of their squared norm
  virtual void collectStats(int& n, double*& sum, double& sumSq) = 0;

  /// Posts all points below to the nearest of some centers: adds them to its statistics.
  ///
  /// Where a leaf has to choose, it takes each point's present coordinates, and with each its own
  /// sum of squares, of all its points, as collectStats() left it. That is the point's squared norm
  /// only in a leaf of one point that has not moved since.
  /// @param cands  indices of centers; between equal distances the first that no split has dropped
  /// wins
  /// @param nCands  at least 1. If it is 1, all points are posted at once
  virtual void filterCandidates(int* cands, int nCands) = 0;

  /// Stores, at the index of each point below, the nearest of some centers and the squared distance
  /// to it.
  /// @param cands  indices of centers; between equal distances the first that no split has dropped
  /// wins
  /// @param nCands  at least 1
  /// @param closeCtr  an entry for each point of the data, or null
  /// @param sqDist  the same
  virtual void assignPoints(int* cands, int nCands, int* closeCtr, double* sqDist) = 0;

  /// Draws a place at random, with a bias to where the data lies.
  ///
  /// The walk goes down by the number of points on either side. At each split, it may also end with
  /// a place anywhere in the cell, enlarged three times about its center; at a leaf it ends with
  /// the data point. Nothing in the library calls it.
  /// @param sample  the place; untouched by a leaf without points
  /// @param box  low and high corner of the node's cell; the walk narrows it, and restores it
  virtual void sampleInNode(double* sample, double* box[2]) = 0;

  /// Writes the nodes below to kmOut, the high side first, and this node between its children.
  /// @param level  number of dots at the start of each line
  virtual void printNode(int level) const = 0;

 protected:
  friend class KCleaf;
  friend class KCsplit;
  friend class KCtree;
  friend struct KCaccess;

  /// A node with a copy of its cell, and all sums 0.
  KCnode(int dim, const double* lo, const double* hi);
  /// A node of a tree, on arrays that the tree owns.
  KCnode(double* sumInTree, double* loInTree, double* hiInTree)
      : sum(sumInTree), bndLo(loInTree), bndHi(hiInTree) {}

  int id = -1;         ///< not used
  int nData = 0;       ///< data points below
  double* sum;         ///< coordinate sums of these
  double sumSq = 0.0;  ///< sum of their squared norms
  double* bndLo;       ///< low corner of the cell: not of the box around its points
  double* bndHi;       ///< high corner of the cell
};

/// A leaf: a cell with one data point, or none.
class ZRBASE_EXPORT KCleaf : public KCnode {
 public:
  /// A leaf over a window of point indices.
  /// @param n  number of points, 0 or 1
  /// @param window  their indices; not copied
  KCleaf(int dim, const double* lo, const double* hi, int n, int* window);

  void collectStats(int& n, double*& sum, double& sumSq) override;
  void filterCandidates(int* cands, int nCands) override;
  void assignPoints(int* cands, int nCands, int* closeCtr, double* sqDist) override;
  void sampleInNode(double* sample, double* box[2]) override;
  void printNode(int level) const override;

 protected:
  friend class KCtree;
  friend struct KCaccess;

  /// A leaf of a tree.
  KCleaf(double* sumInTree, double* loInTree, double* hiInTree, int n, int* window)
      : KCnode(sumInTree, loInTree, hiInTree), bucket(window) {
    nData = n;
  }

  int* bucket;  ///< indices of the points, a window of the tree's permutation, not owned
};

/// A split: a cell cut in two across one dimension.
class ZRBASE_EXPORT KCsplit : public KCnode {
 public:
  /// A split of a cell.
  /// @param cutDim  the dimension
  /// @param cutVal  the coordinate on it
  /// @param cutLo,cutHi  bounds of the cell on it
  /// @param loChild,hiChild  the two sides, owned from here on
  KCsplit(int dim, const double* lo, const double* hi, int cutDim, double cutVal, double cutLo,
          double cutHi, KCnode* loChild, KCnode* hiChild);
  /// Destroys the children of a split made by hand.
  ~KCsplit() override;

  void collectStats(int& n, double*& sum, double& sumSq) override;
  void filterCandidates(int* cands, int nCands) override;
  void assignPoints(int* cands, int nCands, int* closeCtr, double* sqDist) override;
  void sampleInNode(double* sample, double* box[2]) override;
  void printNode(int level) const override;

 protected:
  friend class KCtree;
  friend struct KCaccess;

  /// A split of a tree; the children follow.
  KCsplit(double* sumInTree, double* loInTree, double* hiInTree)
      : KCnode(sumInTree, loInTree, hiInTree) {}

  int cutDim = 0;             ///< the dimension cut
  double cutVal = 0.0;        ///< where
  double cutLo = 0.0;         ///< low bound of the cell on that dimension
  double cutHi = 0.0;         ///< high bound
  KCnode* loChild = nullptr;  ///< the side below the cut, owned
  KCnode* hiChild = nullptr;  ///< the side above
};

#endif  // ZRBASE_CLUSTERING_KCNODE_H
