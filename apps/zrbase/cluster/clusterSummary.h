#ifndef ZRBASE_APPS_CLUSTER_CLUSTERSUMMARY_H
#define ZRBASE_APPS_CLUSTER_CLUSTERSUMMARY_H

#include <iosfwd>
#include <string>
#include <vector>

#include "cluster/clusterModel.h"
#include "cluster/clusterPoints.h"

/// One row a cluster: weight, rms distance, center. Of many clusters the first.
void writeClusterTable(std::ostream& out, const ClusterPoints& points, const Clustering& result);

/// What was clustered, and how well.
void writeClusterFacts(std::ostream& out, const ClusterPoints& points,
                       const ClusterRequest& request, const Clustering& result);

/// What was read differently from what the user may expect.
void writeClusterNotes(std::ostream& out, const ClusterPoints& points, const Clustering& result,
                       const std::vector<std::string>& replaced);

/// The bad features that were left out, the first ones one by one.
void writeFirstLeftOut(std::ostream& out, const std::string& file,
                       const std::vector<std::string>& leftOut);

/// A number for reading, of about six digits.
std::string roundedText(double value);

#endif  // ZRBASE_APPS_CLUSTER_CLUSTERSUMMARY_H
