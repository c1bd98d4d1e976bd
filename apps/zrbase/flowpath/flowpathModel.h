#ifndef ZRBASE_APPS_FLOWPATH_FLOWPATHMODEL_H
#define ZRBASE_APPS_FLOWPATH_FLOWPATHMODEL_H

#include <zrBase/bisectors/zr2DBisectorSet.h>
#include <zrBase/bisectors/zrFlowPath.h>
#include <zrBase/geometry/gdfVertex.h>

#include <cstddef>
#include <string>
#include <vector>

#include "common/modelSystem.h"
#include "common/vectorInput.h"

/// What is asked of each template, in metres of the model.
struct FlowpathRequest {
  std::vector<double> heights;     ///< positive left of the template, negative right
  std::vector<InputPoint> points;  ///< each gets a path through it
  std::vector<double>
      slips;  ///< moves along each point's path; without points along each height's path
  double sideTolerance = 0.0;
  Extent bounds;  ///< the model's extent
};

/// One bisector that is left in a chain.
struct BisectorRecord {
  bool root = false;
  zre::side side = zre::sideNone;
  int index = 0;  ///< its place in the chain, which the connections refer to
  int leftDomain = -1;
  int rightDomain = -1;
  int topConnect = -1;
  std::vector<int> baseConnections;
  gdfVertex base;
  gdfVertex top;
};

/// A path along the template, made for a height or through a point.
struct PathRecord {
  zrFlowPath path;
  zre::side side = zre::sideOn;
  int pointIndex = -1;  ///< place in the request's points; -1 for a path at a height
};

/// A place moved along a path.
struct MovedRecord {
  std::size_t pathIndex = 0;  ///< place in the template's paths
  double slip = 0.0;
  gdfVertex from;  ///< the place at slip 0
  gdfVertex to;
};

/// Everything that came of one template.
struct TemplateModel {
  InputLine source;
  std::vector<BisectorRecord> bisectors;
  std::vector<PathRecord> paths;
  std::vector<MovedRecord> moved;
  std::vector<std::string> notes;  ///< what could not be made, "no path at height -5000"
  std::size_t roots = 0;
  std::size_t merged = 0;
  double milliseconds = 0.0;
};

/// The box that holds the templates and points with room around them.
///
/// The room is the largest of a quarter of the longer side, twice the largest absolute height, and
/// 1 m, so that a path at any of the heights stays inside and the domain of every point can be
/// probed.
Extent defaultBounds(const std::vector<InputLine>& lines, const FlowpathRequest& request);

/// Builds both chains of the template and makes its paths.
TemplateModel modelTemplate(const InputLine& line, const FlowpathRequest& request);

/// The part of a path from one slip to another, in the order of growing slip.
VertexLine pathBetween(const zrFlowPath& path, double fromSlip, double toSlip);

#endif  // ZRBASE_APPS_FLOWPATH_FLOWPATHMODEL_H
