#ifndef ZRBASE_APPS_CLUSTER_CLUSTERPOINTS_H
#define ZRBASE_APPS_CLUSTER_CLUSTERPOINTS_H

#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <string>
#include <vector>

#include "cluster/pointLayer.h"
#include "common/modelSystem.h"
#include "common/vectorInput.h"

/// The points of a layer as they are clustered: numbers in flat arrays, one row a point.
struct ClusterPoints {
  std::vector<PointColumn> columns;
  std::vector<double> values;        ///< row after row, a number for each column
  std::vector<long long> fids;       ///< feature of each point
  std::vector<gdfVertex> positions;  ///< of each point; empty if no column is of the place
  SpatialReference stated;
  SpatialReference model;  ///< of the places; `stated` if no column is one of them
  double degreesWide = 0.0;
  std::size_t otherFeatures = 0;  ///< features that are no points, ignored
  std::size_t badFeatures = 0;    ///< that were left out

  std::size_t size() const { return fids.size(); }
  double value(std::size_t point, std::size_t column) const {
    return values[point * columns.size() + column];
  }
  /// The column with that coordinate of the place, -1 if there is none.
  int columnOfAxis(int axis) const;
  /// "m" for a coordinate in a metric system, else empty.
  std::string unitOf(std::size_t column) const;
};

/// Reads the points of the layer; places are brought into a metric system if a column is one of
/// their coordinates, see chooseModelSystem.
/// @throws CommandError if a feature cannot be used, see BadFeatures, or no point is left
ClusterPoints readClusterPoints(PointLayer& layer, const InputOptions& options, BadFeatures& bad);

#endif  // ZRBASE_APPS_CLUSTER_CLUSTERPOINTS_H
