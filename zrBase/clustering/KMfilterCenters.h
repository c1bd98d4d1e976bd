#ifndef ZRBASE_CLUSTERING_KMFILTERCENTERS_H
#define ZRBASE_CLUSTERING_KMFILTERCENTERS_H

#include <zrBase/clustering/KMcenters.h>
#include <zrBase/export.h>

/// Centers with the statistics of their clusters, and the elementary moves of a k-means search.
///
/// A cluster is the set of data points that are nearer to its center than to any other. Its
/// statistics come from one descent of the data's tree, by the filtering algorithm (Kanungo, Mount
/// and others, 2002): a list of candidate centers goes down the tree and loses a candidate as soon
/// as no place in the current cell can be nearer to it than to another; where one is left, the
/// whole subtree is its own.
///
/// Statistics are lazy: every move of the centers leaves them stale, and whoever asks with `force`
/// has them computed once. `force` false gives what is there, stale or not. Writing to a center by
/// operator[] or getCtrPts() is not noticed: write before the first question, or follow it with a
/// move.
///
/// One pass runs at a time in the whole process: no two objects may work on two threads at once.
class ZRBASE_EXPORT KMfilterCenters : public KMcenters {
 public:
  /// k centers for the data. They are all at the origin: follow with genRandom(), or write them.
  ///
  /// If the data has no tree, one is built, and the warning "Building kc-tree" reported. From
  /// KM_STAT_CENTERS on the centers are printed.
  /// @param dampFactor  how far a Lloyd move goes: 1.0 all the way to the centroid, 0.0 nowhere
  KMfilterCenters(int k, KMdata& data, double dampFactor);
  /// A copy with centers and statistics of its own, for the same data.
  KMfilterCenters(const KMfilterCenters& other);
  /// Becomes a copy of the other, statistics and damping included.
  KMfilterCenters& operator=(const KMfilterCenters& other);
  ~KMfilterCenters() override;

  /// Gives the set another number of centers. If it differs, the centers and all statistics are
  /// lost. In every case the statistics are not valid afterwards.
  void resize(int k);

  /// Coordinate sums of each center's points, one row per center.
  /// @param force  true has the statistics computed first if they are not valid
  double** getSums(bool force);
  /// Sum of the squared norms of each center's points; `force` as in getSums().
  double* getSumSqs(bool force);
  /// Number of each center's points; `force` as in getSums().
  int* getWeights(bool force);
  /// Sum of the squared distances of each center's points to it; `force` as in getSums().
  ///
  /// It is formed from the three sums above and not from the points, so that it carries their
  /// rounding: far from the origin it may even come out below 0.
  double* getDists(bool force);
  /// Total distortion, the sum of getDists(); `force` as in getSums().
  /// @return the largest finite double if nothing was computed yet and `force` is false
  double getDist(bool force);
  /// Total distortion divided by the number of data points in use; `force` as in getSums().
  double getAvgDist(bool force);

  /// Nearest center of every data point, and the squared distance to it.
  ///
  /// Between centers at the same distance, one of them: the lowest index of those that were still
  /// candidates where the tree decided. If no distance lies below the largest finite double, that
  /// is the distance told. The pass clears sums, sums of squares and
  /// weights, and leaves getDists() and getDist() as they are. Statistics that were valid go on
  /// counting as such: they read as 0 until a move has made them stale.
  /// @param closeCtr  as many entries as the tree has points, in the order of the data; or null
  /// @param sqDist  the same
  void getAssignments(int* closeCtr, double* sqDist);

  /// Puts the centers on data points drawn at random, no point twice.
  ///
  /// It never returns if there are more centers than points.
  void genRandom();
  /// One step of Lloyd's algorithm: each center goes towards the centroid of its points, by the
  /// damping factor. Centers without points stay where they are.
  void lloyd1Stage();
  /// Replaces one center, drawn at random, by one data point, drawn at random. The point may
  /// coincide with a center.
  void swap1Stage();

  /// Writes one line per center to kmOut: index, all coordinates in brackets, distortion.
  /// @param fancy  has no effect
  void print(bool fancy) const override;

 protected:
  /// The frame of a search makes the moves itself, and clears `valid` without a word.
  friend class Rabriol;

  /// Computes all statistics from the tree, valid or not. If the data has lost its tree, it is
  /// built again first, with the warning.
  void computeDistortion();
  /// What lloyd1Stage() does.
  void moveToCentroid();
  /// What swap1Stage() does, with a choice.
  ///
  /// The center is drawn before the point.
  /// @param allowDuplicate  false draws points until one coincides with no center. It never returns
  /// if there is none.
  void swapOneCenter(bool allowDuplicate);
  /// Declares that the statistics match the centers.
  void validate() { valid = true; }
  /// Declares the opposite. From KM_STAT_CENTERS on the centers are printed first.
  void invalidate();

  double** sums;      ///< coordinate sums of each center's points, owned
  double* sumSqs;     ///< sums of their squared norms, owned
  int* weights;       ///< their numbers, owned
  double* dists;      ///< sums of their squared distances to the center, owned
  double currDist;    ///< total distortion
  bool valid;         ///< whether the statistics match the centers
  double dampFactor;  ///< how far a Lloyd move goes

 private:
  void allocateStatistics();
  void freeStatistics();
  void copyStatistics(const KMfilterCenters& other);
  KCtree& standingTree();
};

#endif  // ZRBASE_CLUSTERING_KMFILTERCENTERS_H
