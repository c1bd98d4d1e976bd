#ifndef ZRBASE_CLUSTERING_KCTREE_H
#define ZRBASE_CLUSTERING_KCTREE_H

#include <zrBase/clustering/KCnode.h>
#include <zrBase/export.h>

class KMfilterCenters;
struct KCcut;

/// A binary tree of cells over data points, for the filtering of centers.
///
/// Cells are cut across their longest sides, at the middle, or at the nearest point where the
/// middle would leave one side empty (sliding midpoint; Mount and Arya), down to one point per
/// leaf. Points that coincide are divided evenly. Each node knows number, coordinate sums and sum
/// of squared norms of its points.
///
/// The tree refers to the points and the caller keeps them alive. It takes 172 + 32 d bytes per
/// point in d dimensions, and while it is built another 8 d.
///
///     root      [2, 9] x [0, 4]                    x = 5.5 cuts the longer side
///                /          \.
///     [2, 5.5] x [0, 4]   [5.5, 9] x [0, 4]        cells, not boxes around the points
class ZRBASE_EXPORT KCtree {
 public:
  /// Builds the tree.
  /// @param pts  the points, one row each; a null pointer is reported as an error and ends the
  /// process with status 1
  /// @param n  number of points; 0 gives a leaf without points as root
  /// @param dim  their dimension, at least 1
  /// @param maxPts  capacity of the permutation; the larger of this and n counts
  /// @param boxLo  low corner of the outermost cell, copied; null takes that of the box around the
  /// points. Points outside a given box are legal.
  /// @param boxHi  high corner, the same
  KCtree(double** pts, int n, int dim, int maxPts, double* boxLo, double* boxHi);
  KCtree(const KCtree&) = delete;
  KCtree& operator=(const KCtree&) = delete;
  /// Frees the tree; the points stay.
  ~KCtree();

  /// The outermost cell. Never null.
  KCnode* getRoot() const { return root; }

  /// Filtering pass: sums, sums of squares and weights of the centers, from all points of the tree.
  ///
  /// They are set to 0 first. Validity and distortions of the centers are left alone: use
  /// KMfilterCenters::getSums(true) and its kin.
  void getNeighbors(KMfilterCenters& centers);

  /// Assignment pass: see KMfilterCenters::getAssignments(), which is the way to call it.
  void getAssignments(KMfilterCenters& centers, int* closeCtr, double* sqDist);

 protected:
  int dim;        ///< dimension
  int nPts;       ///< number of points
  int maxPts;     ///< capacity of the permutation
  double** pts;   ///< the points, not owned
  int* pidx;      ///< permutation of the point indices, in the order of the leaves, owned
  KCnode* root;   ///< the outermost cell, owned
  double* bndLo;  ///< low corner of the outermost cell, owned
  double* bndHi;  ///< high corner, owned

 private:
  void* block_;  ///< all nodes, each with its sums and its part of the bounds
  KCcut* cuts_;  ///< what a pass reads of the splits, in the order of the nodes
};

#endif  // ZRBASE_CLUSTERING_KCTREE_H
