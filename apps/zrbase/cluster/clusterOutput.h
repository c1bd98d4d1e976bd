#ifndef ZRBASE_APPS_CLUSTER_CLUSTEROUTPUT_H
#define ZRBASE_APPS_CLUSTER_CLUSTEROUTPUT_H

#include <string>
#include <vector>

#include "cluster/clusterModel.h"
#include "cluster/clusterPoints.h"
#include "cluster/pointLayer.h"
#include "common/safeOutput.h"

/// What there is to write.
struct ClusterContent {
  PointLayer& layer;
  const ClusterPoints& points;
  const Clustering& clustering;
  std::string file;  ///< the input, for messages
};

/// Whether the output is a table, by its ending. @throws CommandError if it is neither .csv nor one
/// of outputDriver
bool isClusterTable(const std::string& fileName);

/// "rocks_centers.csv" for "rocks.csv".
std::string centersFileBeside(const std::string& output);

/// Names of attributes of the input that give way to results of the same name.
std::vector<std::string> replacedAttributes(const PointLayer& layer);

/// Writes the layers points and centers. The input is read again for the attributes that are
/// copied. @throws CommandError if it has changed meanwhile
void writeClusterLayers(const SafeOutput& output, const ClusterContent& content);

/// Writes the points as a table, likewise.
void writePointTable(const SafeOutput& output, const ClusterContent& content);

/// Writes the centers as a table.
void writeCenterTable(const SafeOutput& output, const ClusterContent& content);

#endif  // ZRBASE_APPS_CLUSTER_CLUSTEROUTPUT_H
