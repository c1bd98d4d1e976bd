#ifndef ZRBASE_CLUSTERING_KMDATA_H
#define ZRBASE_CLUSTERING_KMDATA_H

#include <zrBase/export.h>

class KCtree;

/// A set of points of any dimension, with the tree over them that makes clustering fast.
///
/// It owns its points, `maxPts` rows in one block, and its tree. Fill the points through
/// operator[], call buildKcTree(), and hand the set to a KMfilterCenters:
///
///     KMdata data(3, 1000);
///     for (int i = 0; i < 1000; ++i) { data[i][0] = ...; data[i][1] = ...; data[i][2] = ...; }
///     data.buildKcTree();
///     KMfilterCenters centers(10, data, 1.0);
///
/// The tree holds sums of the coordinates as they were when it was built: build it again after
/// changing points. Indices and sizes are trusted.
class ZRBASE_EXPORT KMdata {
 public:
  /// A set of `maxPts` points, all of them in use; the coordinates are not initialised, and there
  /// is no tree.
  KMdata(int dim, int maxPts);
  KMdata(const KMdata&) = delete;
  KMdata& operator=(const KMdata&) = delete;

  /// Dimension of the points.
  int getDim() const { return dim; }
  /// Number of points in use.
  int getNPts() const { return nPts; }
  /// The points, one row each.
  double** getPts() const { return pts; }
  /// The tree over the points, or null while there is none.
  KCtree* getKcTree() const { return kcTree; }
  /// Point i, to read and to write.
  double* operator[](int i) { return pts[i]; }
  /// Point i.
  const double* operator[](int i) const { return pts[i]; }

  /// Sets the number of points in use, and nothing else: no storage is made for more, and a tree
  /// goes on standing for the points that it was built over.
  void setNPts(int n) {
    // Kept on purpose (KeptSetNPtsLeavesTreeAndPoints): nothing is allocated, and the tree stays.
    // Callers shorten a set for its samples and averages, and go on with its tree.
    nPts = n;
  }

  /// Gives the set another size. The tree goes, even if the size is the one that the set has.
  ///
  /// If the dimension or the number of points in use differs, n rows are allocated anew, and all
  /// coordinates are lost. A KMcenters that refers to the set is not told: it can go on with
  /// another n, but not with another dimension.
  void resize(int dim, int n);

  /// Builds the tree over the points in use; an older tree is destroyed. See KCtree.
  void buildKcTree();

  /// Copies one point in use, drawn at random: that at kmRanInt(nPts).
  virtual void sampleCtr(double* sample);

  /// Copies k points in use, drawn at random one after the other by kmRanInt(nPts).
  /// @param sample  k rows, to be written
  /// @param allowDuplicate  false draws again whenever a point has come before. It tells points by
  /// their index, not by their coordinates. It never returns if k is above the number of points.
  virtual void sampleCtrs(double** sample, int k, bool allowDuplicate);

  /// Frees the points and the tree.
  virtual ~KMdata();

  /// Writes all points in use to kmOut, under the title "Data_Points".
  /// @param fancy  true puts each point into brackets
  void print(bool fancy) const;

 protected:
  int dim;         ///< dimension
  int maxPts;      ///< number of rows at construction; resize() leaves it alone
  int nPts;        ///< points in use
  double** pts;    ///< the points, owned
  KCtree* kcTree;  ///< the tree, owned, or null
};

#endif  // ZRBASE_CLUSTERING_KMDATA_H
