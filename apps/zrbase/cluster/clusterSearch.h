#ifndef ZRBASE_APPS_CLUSTER_CLUSTERSEARCH_H
#define ZRBASE_APPS_CLUSTER_CLUSTERSEARCH_H

#include <zrBase/clustering/KMfilterCenters.h>

#include "cluster/clusterModel.h"

/// The best centers that a search saw, and how many stages it took.
struct SearchResult {
  KMfilterCenters centers;
  int stages;
};

/// Runs the strategy over the data, which has its tree; shows the stages on a terminal.
SearchResult searchClusters(KMdata& data, const ClusterRequest& request);

#endif  // ZRBASE_APPS_CLUSTER_CLUSTERSEARCH_H
