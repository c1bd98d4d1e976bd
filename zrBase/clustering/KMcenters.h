#ifndef ZRBASE_CLUSTERING_KMCENTERS_H
#define ZRBASE_CLUSTERING_KMCENTERS_H

#include <zrBase/clustering/KMdata.h>
#include <zrBase/export.h>

/// A set of center points for a KMdata.
///
/// It owns its centers and refers to the data, which the caller keeps alive for as long as the
/// centers are used. Indices and sizes are trusted.
class ZRBASE_EXPORT KMcenters {
 public:
  /// k centers of the dimension of the data; what they hold is up to the caller.
  KMcenters(int k, KMdata& p);
  /// A copy with centers of its own, for the same data.
  KMcenters(const KMcenters& other);
  /// Becomes a copy of the other, for the other's data. The storage stays where it is if number and
  /// dimension agree.
  KMcenters& operator=(const KMcenters& other);
  /// Frees the centers; the data stays.
  virtual ~KMcenters();

  /// Gives the set another number of centers. If it differs, all coordinates are lost.
  void resize(int k);

  /// Number of centers.
  int getK() const { return kCtrs; }
  /// Dimension of the data.
  int getDim() const { return pts->getDim(); }
  /// Number of data points in use.
  int getNPts() const { return pts->getNPts(); }
  /// The data.
  KMdata& getData() const { return *pts; }
  /// The data points, one row each.
  double** getDataPts() const { return pts->getPts(); }
  /// The centers, one row each.
  double** getCtrPts() const { return ctrs; }
  /// Center i, to read and to write. A KMfilterCenters is not told of what is written.
  double* operator[](int i) { return ctrs[i]; }
  /// Center i.
  const double* operator[](int i) const { return ctrs[i]; }

  /// Writes the centers to kmOut under the title "Center_Points", each in brackets.
  /// @param fancy  true shows the first coordinate of each center and false none: it is taken as
  /// the number of coordinates. KMdata::print shows them all.
  virtual void print(bool fancy) const;

 protected:
  int kCtrs;      ///< number of centers
  KMdata* pts;    ///< the data, not owned
  double** ctrs;  ///< the centers, owned
};

#endif  // ZRBASE_CLUSTERING_KMCENTERS_H
