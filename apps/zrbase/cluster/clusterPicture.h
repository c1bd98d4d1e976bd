#ifndef ZRBASE_APPS_CLUSTER_CLUSTERPICTURE_H
#define ZRBASE_APPS_CLUSTER_CLUSTERPICTURE_H

#include <cstddef>
#include <string>

#include "cluster/clusterModel.h"
#include "cluster/clusterPoints.h"
#include "common/safeOutput.h"

/// What the picture shows.
struct ScatterContent {
  const ClusterPoints& points;
  const Clustering& clustering;
  const ClusterRequest& request;
  std::size_t across = 0;  ///< the column to the right
  /// The column up; `across` again for none, the number of the cluster is up then.
  std::size_t up = 1;
  std::string sourceText;

  bool oneColumn() const { return across == up; }
};

/// Draws the points of two columns coloured by cluster, with the centers and a legend.
///
/// Many points are drawn as an image within the picture, so that its size does not grow with them.
void drawClusterPicture(const SafeOutput& output, const ScatterContent& content);

#endif  // ZRBASE_APPS_CLUSTER_CLUSTERPICTURE_H
