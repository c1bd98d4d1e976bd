#ifndef ZRBASE_APPS_POLYGONS_POLYGONSOUTPUT_H
#define ZRBASE_APPS_POLYGONS_POLYGONSOUTPUT_H

#include <string>
#include <vector>

#include "common/modelSystem.h"
#include "common/safeOutput.h"
#include "polygons/polygonJobs.h"

/// @file
/// What the three jobs write; each gives the counts for the summary, "polygons 3, rings 5".

/// Layers `polygons`, with holes, and `rings`.
std::string writeNested(const SafeOutput& output, const SpatialReference& system,
                        const NestedRings& nested);

/// Layer `polygons`.
std::string writeConditioned(const SafeOutput& output, const SpatialReference& system,
                             const std::vector<ConditionedPolygon>& polygons);

/// Layer `polygons`.
std::string writeCompleted(const SafeOutput& output, const SpatialReference& system,
                           const std::vector<CompletedLine>& lines, double tolerance);

#endif  // ZRBASE_APPS_POLYGONS_POLYGONSOUTPUT_H
