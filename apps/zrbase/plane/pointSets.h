#ifndef ZRBASE_APPS_PLANE_POINTSETS_H
#define ZRBASE_APPS_PLANE_POINTSETS_H

#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <string>
#include <vector>

#include "common/metricInput.h"
#include "common/modelSystem.h"
#include "common/vectorInput.h"

/// Points that one plane is fitted to.
struct PointSet {
  std::string label;  ///< value of the group field, feature id, or "all"
  std::string name;   ///< the feature's name field, empty if there is none
  std::string where;  ///< for messages: "set 'A'", "feature 3"
  VertexLine points;
  std::vector<long long> fids;  ///< feature or row of each point
};

struct PointSetOptions {
  InputOptions input;
  std::string group;   ///< field whose values tell the sets apart; empty for none
  std::string zField;  ///< field with the elevation of single points; empty for their own z
};

/// Sets in the metric system of the work, and what there is to tell about reading them.
struct PointSetFile {
  std::vector<PointSet> sets;
  SpatialReference stated;
  SpatialReference model;
  bool isTable = false;           ///< its features are rows
  double degreesWide = 0.0;       ///< longitudes that were put into one zone
  std::size_t otherFeatures = 0;  ///< features without points or vertices, ignored
};

/// Reads the sets of any vector file that OGR opens, in the order in which they first appear, and
/// brings them into a metric system, see chooseModelSystem; z stays as it is.
///
/// With a group field each of its values is a set. Without one each multi-point, line, multi-line
/// or polygon is a set of its vertices (the closing vertex of a ring counts once), and all single
/// points together, or all rows of a table, are one. Points that are repeated count as often as
/// they stand there. Points without a z, values that are missing or not finite and what cannot be
/// projected are bad features.
/// @throws CommandError if the file, the layer, a field or a feature cannot be used, or no set is
/// left
PointSetFile readPointSets(const PointSetOptions& options, BadFeatures& bad);

#endif  // ZRBASE_APPS_PLANE_POINTSETS_H
