#ifndef ZRBASE_APPS_CLUSTER_CLUSTERMODEL_H
#define ZRBASE_APPS_CLUSTER_CLUSTERMODEL_H

#include <zrBase/clustering/kmServices.h>

#include <cstddef>
#include <string>
#include <vector>

#include "cluster/clusterPoints.h"

enum class ClusterStrategy { lloyd, swap, hybrid, ezHybrid };
enum class ClusterScale { none, std, range };

/// The strategy of that name. @throws CommandError if there is none
ClusterStrategy clusterStrategy(const std::string& text);
const char* strategyName(ClusterStrategy strategy);
/// The scale of that name. @throws CommandError if there is none
ClusterScale clusterScale(const std::string& text);
const char* scaleName(ClusterScale scale);

/// What is wanted of the points.
struct ClusterRequest {
  long long clusters = 0;
  int stages = 0;  ///< most stages of the search
  ClusterStrategy strategy = ClusterStrategy::hybrid;
  ClusterScale scale = ClusterScale::none;
  StatLev trace = KM_STAT_SILENT;  ///< what the search tells on the standard error stream
};

/// How a column goes into the search: value less origin, divided by the divisor.
struct ColumnScale {
  double origin = 0.0;
  double divisor = 1.0;
  bool constant = false;  ///< all values are the same: it tells no points apart
};

/// One cluster.
struct Cluster {
  std::vector<double> center;  ///< in the units of the columns
  std::size_t weight = 0;      ///< points
  double distortion = 0.0;     ///< sum of the squared distances of its points, scaled

  /// Distortion by weight; 0 without points.
  double average() const;
};

/// What the search found.
struct Clustering {
  std::vector<ColumnScale> scales;
  std::vector<Cluster> clusters;
  std::vector<int> clusterOf;     ///< of each point, from 0
  std::vector<double> distances;  ///< of each point from its center, scaled
  double distortion = 0.0;        ///< of all clusters
  int stages = 0;
  double treeSeconds = 0.0;
  double searchSeconds = 0.0;

  /// Root mean square distance of all points.
  double rms() const;
};

/// Clusters the points.
/// @throws CommandError if there are more clusters than distinct points, or more than can be drawn
Clustering clusterPoints(const ClusterPoints& points, const ClusterRequest& request,
                         const std::string& file);

#endif  // ZRBASE_APPS_CLUSTER_CLUSTERMODEL_H
